#include "names/constructor.h"

#include <algorithm>
#include <string>
#include <utility>

namespace {

ConstrItem NewItem(ItemType type, std::string_view item_text) {
  ConstrItem item;
  item.ItemType = type;
  item.ItemText = item_text;
  if (type == kFileDate) {
    item.Date0 = 8;
    item.Date1 = 4;
    item.Date2 = 2;
    item.DateSeparator = "-";
  } else if (type == kTodaysDate) {
    item.TDate0 = 8;
    item.TDate1 = 4;
    item.TDate2 = 2;
    item.TDateSeparator = "-";
  } else if (type == kCounter) {
    item.CounterStart = 1;
    item.CounterRange = 3;
    item.ResetCounter = 1;
  }
  return item;
}

}  // namespace

Constructor::Constructor() {
  InsertArrConstrItem(0, kExtension, "");
  InsertArrConstrItem(0, kText, ".");
  InsertArrConstrItem(0, kSourceFileName, "");
}

void Constructor::InsertArrConstrItem(std::size_t pIndex, ItemType pType, std::string_view pText) {
  ArrConstr.insert(ArrConstr.begin() + static_cast<std::ptrdiff_t>(pIndex), NewItem(pType, pText));
}

void Constructor::DeleteArrConstrItem(std::size_t pIndex) {
  ArrConstr.erase(ArrConstr.begin() + static_cast<std::ptrdiff_t>(pIndex));
}

void Constructor::MoveArrConstrItemLeft(std::size_t pIndex) {
  std::swap(ArrConstr[pIndex - 1], ArrConstr[pIndex]);
}

void Constructor::MoveArrConstrItemRight(std::size_t pIndex) {
  std::swap(ArrConstr[pIndex + 1], ArrConstr[pIndex]);
}

bool Constructor::Holds(ItemType type) const {
  return std::any_of(ArrConstr.begin(), ArrConstr.end(),
                     [&](const ConstrItem& item) { return item.ItemType == type; });
}

std::string_view ElementCaption(ItemType type, std::string_view text) {
  switch (type) {
    case kSourceFileName:
      return "<Source file name>";
    case kExtension:
      return "<Extension>";
    case kParentFolderName:
      return "<Parent folder name>";
    case kFileDate:
      return "<File date>";
    case kTodaysDate:
      return "<Today's date>";
    case kCounter:
      return "<Counter>";
    case kText:
      break;
  }
  return text;
}

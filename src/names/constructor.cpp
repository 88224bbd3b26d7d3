#include "names/constructor.h"

#include <algorithm>
#include <string>
#include <utility>

Constructor::Constructor() {
  InsertArrConstrItem(0, kExtension, "");
  InsertArrConstrItem(0, kText, ".");
  InsertArrConstrItem(0, kSourceFileName, "");
}

void Constructor::InsertArrConstrItem(std::size_t pIndex, ItemType pType, std::string_view pText) {
  ArrConstr.insert(ArrConstr.begin() + static_cast<std::ptrdiff_t>(pIndex),
                   {.ItemType = pType, .ItemText = std::string(pText)});
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

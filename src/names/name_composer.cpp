#include "names/name_composer.h"

#include <cstddef>

#include "names/counter.h"
#include "names/name_text.h"

/// What the elements of one name are made from.
struct NameComposer::Row {
  std::string_view source_file_name;
  std::string_view folder_name;
  const FileDate& date;
  LocalTime today;
};

NameComposer::NameComposer(const Constructor& constructor, Clock& clock, const LocaleFacts& locale)
    : clock_(clock) {
  const auto add_date = [&](bool today, const std::string& format) {
    if (format.empty()) return;
    elements_.push_back(DateElement{today, DateFormatter(format, locale)});
    needs_today_ = needs_today_ || today;
  };
  for (const ConstrItem& item : constructor.ArrConstr) {
    switch (item.ItemType) {
      case kText:
        elements_.push_back(item.ItemText);
        break;
      case kSourceFileName:
      case kExtension:
      case kParentFolderName: {
        const auto& fields = kTransformFields[static_cast<std::size_t>(item.ItemType)];
        elements_.push_back(
            TransformElement{static_cast<ItemType>(item.ItemType), PartTransform(item, fields)});
        break;
      }
      case kFileDate:
        add_date(false, item.DateFormat);
        break;
      case kTodaysDate:
        add_date(true, item.TDateFormat);
        break;
      case kCounter:
        elements_.push_back(Counter{&item});
        break;
      default:  // an element of a kind that is not known adds nothing
        break;
    }
  }
}

std::string_view NameComposer::Compose(std::string_view source_file_name,
                                       std::string_view folder_name, const FileDate& date) {
  const Row row{source_file_name, folder_name, date, needs_today_ ? clock_.Now() : LocalTime()};
  name_.clear();
  for (Element& element : elements_) {
    std::visit([&](auto& kind) { Append(kind, row); }, element);
  }
  return mMain::NormalizeExt(name_);
}

void NameComposer::Append(const std::string& fixed, const Row&) {
  name_ += fixed;
}

void NameComposer::Append(TransformElement& element, const Row& row) {
  std::string_view part = row.folder_name;
  if (element.source == kSourceFileName) part = mMain::GetFileName(row.source_file_name);
  if (element.source == kExtension) part = mMain::GetFileExt(row.source_file_name, ".");
  element.transform.AppendTo(part, name_);
}

void NameComposer::Append(const DateElement& element, const Row& row) {
  if (element.today) {
    element.formatter.AppendTo(row.today.year, row.today.month, row.today.day, name_);
  } else if (!row.date.Empty()) {
    element.formatter.AppendTo(row.date.Year(), row.date.Month(), row.date.Day(), name_);
  }
}

void NameComposer::Append(const Counter& counter, const Row&) {
  AppendCounter(counter.item->CounterValue, counter.item->CounterFormat, name_);
}

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
    elements_.push_back(DateElement{today, DateFormatter(format, locale), 0, 0, 0, {}});
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
        elements_.push_back(TransformElement{
            static_cast<ItemType>(item.ItemType), PartTransform(item, fields), {}, {}});
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
  if (element.source == kSourceFileName) {
    element.transform.AppendTo(mMain::GetFileName(row.source_file_name), name_);
    return;
  }
  const std::string_view part =
      element.source == kExtension ? mMain::GetFileExt(row.source_file_name, ".") : row.folder_name;
  if (part != element.last_part) {
    element.last_text.clear();
    element.transform.AppendTo(part, element.last_text);
    element.last_part = part;
  }
  name_ += element.last_text;
}

void NameComposer::Append(DateElement& element, const Row& row) {
  if (element.today) {
    AppendDate(element, row.today.year, row.today.month, row.today.day);
  } else if (!row.date.Empty()) {
    AppendDate(element, row.date.Year(), row.date.Month(), row.date.Day());
  }
}

void NameComposer::AppendDate(DateElement& element, int year, int month, int day) {
  if (day != element.last_day || month != element.last_month || year != element.last_year) {
    element.last_text.clear();
    element.formatter.AppendTo(year, month, day, element.last_text);
    element.last_year = year;
    element.last_month = month;
    element.last_day = day;
  }
  name_ += element.last_text;
}

void NameComposer::Append(const Counter& counter, const Row&) {
  AppendCounter(counter.item->CounterValue, counter.item->CounterFormat, name_);
}

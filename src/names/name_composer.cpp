#include "names/name_composer.h"

#include <utility>

#include "names/counter.h"
#include "names/date_format.h"
#include "names/element_kinds.h"
#include "names/name_text.h"
#include "names/transform.h"

namespace {

struct Day {
  int year, month, day;  ///< all 0: no date
  bool operator==(const Day&) const = default;
};

std::string_view Stem(const NameSource& source) {
  return mMain::GetFileName(source.file_name);
}
std::string_view Extension(const NameSource& source) {
  return mMain::GetFileExt(source.file_name, ".");
}
std::string_view FolderName(const NameSource& source) {
  return source.folder_name;
}
Day FileDay(const NameSource& source) {
  return {source.date.Year(), source.date.Month(), source.date.Day()};
}
Day Today(const NameSource& source) {
  return {source.today.year, source.today.month, source.today.day};
}

PartTransform TransformOf(const ConstrItem& item) {
  return {item.transform, PaneTitle(item.ItemType)};
}

auto Transformed(const ConstrItem& item, std::string_view (*part_of)(const NameSource&)) {
  return [=, transform = TransformOf(item)](const NameSource& source, std::string& name) mutable {
    transform.AppendTo(part_of(source), name);
  };
}

/// Neighbours in the list mostly share folder, extension and day, so these elements keep what they
/// made last: of `Key`, the text that `append` makes of what `key_of` answers.
template <class Key, class KeyOf, class AppendText>
auto Kept(KeyOf key_of, AppendText append) {
  return [=, last_key = Key(), last_text = std::string()](const NameSource& source,
                                                          std::string& name) mutable {
    const auto key = key_of(source);
    if (key != last_key) {
      last_text.clear();
      last_key = Key();  // which gives nothing, should what follows fail
      append(key, last_text);
      last_key = key;
    }
    name += last_text;
  };
}

auto KeptTransform(const ConstrItem& item, std::string_view (*part_of)(const NameSource&)) {
  return Kept<std::string>(
      part_of, [transform = TransformOf(item)](std::string_view part, std::string& text) mutable {
        transform.AppendTo(part, text);
      });
}

auto Dated(const DateOptions& options, const LocaleFacts& locale,
           Day (*day_of)(const NameSource&)) {
  return Kept<Day>(day_of, [formatter = DateFormatter(options.Format, locale)](const Day& day,
                                                                               std::string& text) {
    if (day.day != 0) formatter.AppendTo(day.year, day.month, day.day, text);
  });
}

}  // namespace

NameComposer::Element NameComposer::ElementOf(const ConstrItem& item, const LocaleFacts& locale) {
  switch (item.ItemType) {
    case kText:
      return [&item](const NameSource&, std::string& name) { name += item.ItemText; };
    case kSourceFileName:
      return Transformed(item, Stem);
    case kExtension:
      return KeptTransform(item, Extension);
    case kParentFolderName:
      return KeptTransform(item, FolderName);
    case kFileDate:
      return Dated(item.date, locale, FileDay);
    case kTodaysDate:
      return Dated(item.date, locale, Today);
    case kCounter:
      return [&counter = item.counter](const NameSource&, std::string& name) {
        AppendCounter(counter.Value, counter.Format, name);
      };
  }
  return [](const NameSource&, std::string&) {};  // of a kind that is not known
}

NameSource SourceOf(const FileRow& row, const Records& records) {
  return {.file_name = row.GivenName(), .folder_name = records.ParentName(row), .date = row.date};
}

NameComposer::NameComposer(const Constructor& constructor, Clock& clock, const LocaleFacts& locale)
    : clock_(clock), needs_today_(constructor.Holds(kTodaysDate)) {
  for (const ConstrItem& item : constructor.ArrConstr) {
    elements_.push_back(ElementOf(item, locale));
  }
}

std::string_view NameComposer::Compose(NameSource source) {
  if (needs_today_) source.today = clock_.Now();
  name_.clear();
  for (const Element& element : elements_) element(source, name_);
  return mMain::NormalizeExt(name_);
}

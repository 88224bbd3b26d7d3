#include "settings/templates.h"

#include "platform/text.h"
#include "settings/reg_settings.h"
#include "trace/failure.h"

namespace {

using mRegSettings::ReadText;

constexpr std::string_view kDirectory = "Templates";
constexpr std::string_view kCounter = "Counter";
constexpr std::string_view kLine = "Line";
constexpr std::string_view kBar = "|";

/// Controls whose names differ in a part and an end only: one for each part with each end, which
/// are parted by blanks.
struct ControlFamily {
  std::string_view begin;
  std::string_view parts = {};
  std::string_view ends = {};
  std::string_view key = {};  ///< where it isn't the name without its prefix
};

/// In the order in which they are stored.
constexpr ControlFamily kFamilies[] = {
    {"fdStartValue", "", "", "CounterStart"},
    {"cmbRange", "", "", "CounterRange"},
    {"cmbDate", "(0) (1) (2)"},
    {"fdDateSeparator"},
    {"cmbTDate", "(0) (1) (2)"},
    {"fdTDateSeparator"},
    {"cmbCase", "ParentFolder OldFile Ext"},
    {"cmbCut", "File ParentFolder Ext"},
    {"fdCut", "File ParentFolder Ext", "N X Text"},
    {"fdReplace", " ParentFolder Ext", "1 2"},
    {"cmbGroupBy"},
    {"cmbAdd", "File ParentFolder Ext"},
    {"fdAdd", "File ParentFolder Ext", "N Text1 Text2"},
};

std::vector<std::string_view> Words(std::string_view words) {
  return words.empty() ? std::vector<std::string_view>{""} : text::Split(words, " ");
}

/// Calls `body` with the name of each control and its key, which is "Date0" of "cmbDate(0)".
template <class Body>
void ForEachControl(const Body& body) {
  for (const ControlFamily& family : kFamilies) {
    for (const std::string_view part : Words(family.parts)) {
      for (const std::string_view end : Words(family.ends)) {
        const std::string name = std::string(family.begin).append(part).append(end);
        std::string key(family.key.empty() ? name.substr(name.starts_with("fd") ? 2 : 3)
                                           : std::string(family.key));
        std::erase_if(key, [](char sign) { return sign == '(' || sign == ')'; });
        body(name, key);
      }
    }
  }
}

std::string SectionOf(std::int16_t number) {
  return std::string(kDirectory).append("\\").append(std::to_string(number));
}

/// `line` with one more number behind it.
void Append(std::string_view element, std::string& line) {
  if (!line.empty()) line += kBar;
  line += element;
}

bool IsCalled(SettingsStore& store, std::string_view element, std::string_view name) {
  return text::EqualIgnoringCase(name, ReadText(store, {kDirectory, element, ""}));
}

}  // namespace

std::vector<std::string> TemplateControls() {
  std::vector<std::string> names;
  ForEachControl([&](const std::string& name, const std::string&) { names.push_back(name); });
  return names;
}

std::optional<std::string> FindTemplate(SettingsStore& store, std::string_view name) {
  const std::string line = ReadText(store, {kDirectory, kLine, ""});
  for (const std::string_view element : text::Split(line, kBar)) {
    if (IsCalled(store, element, name)) return std::string(element);
  }
  return std::nullopt;
}

std::int16_t TemplateNumber(std::string_view element) {
  return mRegSettings::ToShort(mRegSettings::ToInteger(element));
}

std::int16_t AddTemplate(SettingsStore& store, std::string_view name) {
  const std::int64_t highest = mRegSettings::ReadInteger(store, {kDirectory, kCounter, "0"});
  const std::int16_t number = mRegSettings::ToShort(highest + 1);
  const std::string element = std::to_string(number);
  store.SaveSetting(kDirectory, kCounter, element);
  store.SaveSetting(kDirectory, element, name);
  std::string line = ReadText(store, {kDirectory, kLine, ""});
  Append(element, line);
  store.SaveSetting(kDirectory, kLine, line);
  return number;
}

void WriteTemplate(SettingsStore& store, std::int16_t number, const TemplateOptions& options) {
  const std::string section = SectionOf(number);
  std::size_t i = 0;
  ForEachControl([&](const std::string&, const std::string& key) {
    store.SaveSetting(section, key, options.controls.at(i++));
  });
  if (options.SortColumn < 0) throw Failure(kInvalidCall, "Invalid procedure call or argument");
  store.SaveSetting(section, "SortColumn", std::to_string(options.SortColumn));
  store.SaveSetting(section, "SortOrder", options.SortOrder ? "1" : "0");
}

void DeleteTemplate(SettingsStore& store, std::string_view name) {
  const std::string line = ReadText(store, {kDirectory, kLine, ""});
  std::string rest;
  std::int16_t found = 0;
  for (const std::string_view element : text::Split(line, kBar)) {
    if (IsCalled(store, element, name)) {
      found = TemplateNumber(element);
    } else {
      Append(element, rest);
    }
  }
  store.SaveSetting(kDirectory, kLine, rest);
  // No template has the number 0, so a name that isn't there fails here.
  mRegSettings::DeleteSetting(store, kDirectory, std::to_string(found));
  mRegSettings::DeleteSetting(store, SectionOf(found));
  store.SaveSetting(kDirectory, "Current", "0");
}

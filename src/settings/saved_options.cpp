#include "settings/saved_options.h"

#include <variant>

#include "settings/reg_settings.h"
#include "trace/failure.h"

namespace {

namespace setting = mRegSettings::setting;
using mRegSettings::Setting;

using Box = bool SavedOptions::*;
using Choice = int SavedOptions::*;
using Number = std::int16_t SavedOptions::*;
using Text = std::string SavedOptions::*;

struct Option {
  const Setting& stored;
  std::variant<Box, Choice, Number, Text> held;
  Box save = nullptr;       ///< the box that says whether it is remembered; null: always
  bool reset = false;       ///< takes its default while that box is off
  bool own_dialog = false;  ///< written by the dialog that changes it
};

constexpr Box kSource = &SavedOptions::chSaveSourceFolderOptions;
constexpr Box kOutput = &SavedOptions::chSaveOutputFolderOptions;
constexpr Box kList = &SavedOptions::chSaveFileListOptions;

/// In the order of the reading and of the writing; the save boxes stand before their groups.
constexpr Option kOptions[] = {
    {setting::kSaveSourceFolderOptions, kSource},
    {setting::kSaveOutputFolderOptions, kOutput},
    {setting::kSaveFileListOptions, kList},
    {setting::kSourceFolderPath, &SavedOptions::fdSourceFolder, kSource},
    {setting::kSourceFolderSubfolders, &SavedOptions::chSubfolders, kSource, true},
    {setting::kIncludeMask, &SavedOptions::fdIncludeMask, kSource},
    {setting::kExcludeMask, &SavedOptions::fdExcludeMask, kSource},
    {setting::kOutputFolderMode, &SavedOptions::cmbDestination, kOutput, true},
    {setting::kOutputFolderPath, &SavedOptions::fdDestination, kOutput},
    {setting::kOutputFolderSubfolders, &SavedOptions::chDestinationSubfolders, kOutput, true},
    {setting::kColumnPath, &SavedOptions::chColumnPath, kList},
    {setting::kColumnSize, &SavedOptions::chColumnSize, kList},
    {setting::kColumnType, &SavedOptions::chColumnType, kList},
    {setting::kColumnDate, &SavedOptions::chColumnDate, kList},
    {setting::kGroupBy, &SavedOptions::cmbGroupBy, kList, true},
    {setting::kAddNumber, &SavedOptions::gConflictAddNumber, nullptr, false, true},
    {setting::kNumberLeft, &SavedOptions::gNumberLeft, nullptr, false, true},
    {setting::kNumberRight, &SavedOptions::gNumberRight, nullptr, false, true},
};

/// The last position of either list: "Move to" of cmbDestination, "Type" of cmbGroupBy.
constexpr int kLastChoice = 2;

std::int16_t ToShort(std::int32_t number) {
  if (number != static_cast<std::int16_t>(number)) throw Failure(kOverflow, "Overflow");
  return static_cast<std::int16_t>(number);
}

struct Reader {
  void operator()(Box held) { options.*held = mRegSettings::ReadCheck(store, stored); }
  void operator()(Choice held) {
    options.*held = mRegSettings::ReadInteger(store, stored, 0, kLastChoice);
  }
  void operator()(Number held) {
    options.*held = ToShort(mRegSettings::ReadInteger(store, stored));
  }
  void operator()(Text held) { options.*held = mRegSettings::ReadText(store, stored); }

  SettingsStore& store;
  const Setting& stored;
  SavedOptions& options;
};

/// Its value as it is stored.
std::string TextOf(const Option& option, const SavedOptions& options) {
  struct {
    std::string operator()(const std::string& text) const { return text; }
    std::string operator()(int number) const { return std::to_string(number); }
  } as_text;
  return std::visit([&](auto held) { return as_text(options.*held); }, option.held);
}

void Write(SettingsStore& store, const Option& option, const SavedOptions& options) {
  mRegSettings::WriteText(store, option.stored, TextOf(option, options));
}

bool IsSaved(const Option& option, const SavedOptions& options) {
  return option.save == nullptr || options.*option.save;
}

}  // namespace

void ReadSavedOptions(SettingsStore& store, SavedOptions& options, std::size_t& read) {
  const SavedOptions first_start;
  for (read = 0; read < std::size(kOptions); ++read) {
    const Option& option = kOptions[read];
    if (IsSaved(option, options)) {
      std::visit(Reader{store, option.stored, options}, option.held);
    } else if (option.reset) {
      std::visit([&](auto held) { options.*held = first_start.*held; }, option.held);
    }
  }
}

void WriteSavedOptions(SettingsStore& store, const SavedOptions& options,
                       const OptionsAtStart& start) {
  for (std::size_t i = 0; i < std::size(kOptions); ++i) {
    const Option& option = kOptions[i];
    const bool shown = start.could_read && i <= start.read;
    const bool unread = !shown && IsSaved(option, start.shown);
    const bool changed = TextOf(option, options) != TextOf(option, start.shown);
    const bool due = option.own_dialog ? i == start.read : changed || !unread;
    if (due && IsSaved(option, options)) Write(store, option, options);
  }
}

void WriteConflictOptions(SettingsStore& store, const SavedOptions& options) {
  for (const Option& option : kOptions) {
    if (option.own_dialog) Write(store, option, options);
  }
}

#include "settings/saved_options.h"

#include "settings/reg_settings.h"
#include "trace/failure.h"

namespace setting = mRegSettings::setting;
using mRegSettings::ReadCheck;
using mRegSettings::ReadInteger;
using mRegSettings::ReadText;
using mRegSettings::WriteInteger;
using mRegSettings::WriteText;

namespace {

// Last positions of the lists: "Move to" of cmbDestination, "Type" of cmbGroupBy.
constexpr int kLastDestination = 2;
constexpr int kLastGroupBy = 2;

void ReadSourcePage(SettingsStore& store, SavedOptions& options) {
  if (!options.chSaveSourceFolderOptions) {
    options.chSubfolders = true;
    return;
  }
  options.fdSourceFolder = ReadText(store, setting::kSourceFolderPath);
  options.chSubfolders = ReadCheck(store, setting::kSourceFolderSubfolders);
  options.fdIncludeMask = ReadText(store, setting::kIncludeMask);
  options.fdExcludeMask = ReadText(store, setting::kExcludeMask);
}

void ReadOutputPage(SettingsStore& store, SavedOptions& options) {
  if (!options.chSaveOutputFolderOptions) {
    options.cmbDestination = 0;
    options.chDestinationSubfolders = true;
    return;
  }
  options.cmbDestination = ReadInteger(store, setting::kOutputFolderMode, 0, kLastDestination);
  options.fdDestination = ReadText(store, setting::kOutputFolderPath);
  options.chDestinationSubfolders = ReadCheck(store, setting::kOutputFolderSubfolders);
}

void ReadFileList(SettingsStore& store, SavedOptions& options) {
  if (!options.chSaveFileListOptions) {
    options.cmbGroupBy = 1;
    return;
  }
  options.chColumnPath = ReadCheck(store, setting::kColumnPath);
  options.chColumnSize = ReadCheck(store, setting::kColumnSize);
  options.chColumnType = ReadCheck(store, setting::kColumnType);
  options.chColumnDate = ReadCheck(store, setting::kColumnDate);
  options.cmbGroupBy = ReadInteger(store, setting::kGroupBy, 0, kLastGroupBy);
}

void ReadConflicts(SettingsStore& store, SavedOptions& options) {
  const std::int32_t add_number = ReadInteger(store, setting::kAddNumber);
  if (add_number != static_cast<std::int16_t>(add_number)) throw Failure(kOverflow, "Overflow");
  options.gConflictAddNumber = static_cast<std::int16_t>(add_number);
  options.gNumberLeft = ReadText(store, setting::kNumberLeft);
  options.gNumberRight = ReadText(store, setting::kNumberRight);
}

}  // namespace

void ReadSavedOptions(SettingsStore& store, SavedOptions& options) {
  options.chSaveSourceFolderOptions = ReadCheck(store, setting::kSaveSourceFolderOptions);
  options.chSaveOutputFolderOptions = ReadCheck(store, setting::kSaveOutputFolderOptions);
  options.chSaveFileListOptions = ReadCheck(store, setting::kSaveFileListOptions);
  ReadSourcePage(store, options);
  ReadOutputPage(store, options);
  ReadFileList(store, options);
  ReadConflicts(store, options);
}

void WriteSavedOptions(SettingsStore& store, const SavedOptions& options) {
  WriteInteger(store, setting::kSaveSourceFolderOptions, options.chSaveSourceFolderOptions);
  WriteInteger(store, setting::kSaveOutputFolderOptions, options.chSaveOutputFolderOptions);
  WriteInteger(store, setting::kSaveFileListOptions, options.chSaveFileListOptions);
  if (options.chSaveSourceFolderOptions) {
    WriteText(store, setting::kSourceFolderPath, options.fdSourceFolder);
    WriteInteger(store, setting::kSourceFolderSubfolders, options.chSubfolders);
    WriteText(store, setting::kIncludeMask, options.fdIncludeMask);
    WriteText(store, setting::kExcludeMask, options.fdExcludeMask);
  }
  if (options.chSaveOutputFolderOptions) {
    WriteInteger(store, setting::kOutputFolderMode, options.cmbDestination);
    WriteText(store, setting::kOutputFolderPath, options.fdDestination);
    WriteInteger(store, setting::kOutputFolderSubfolders, options.chDestinationSubfolders);
  }
  if (options.chSaveFileListOptions) {
    WriteInteger(store, setting::kColumnPath, options.chColumnPath);
    WriteInteger(store, setting::kColumnSize, options.chColumnSize);
    WriteInteger(store, setting::kColumnType, options.chColumnType);
    WriteInteger(store, setting::kColumnDate, options.chColumnDate);
    WriteInteger(store, setting::kGroupBy, options.cmbGroupBy);
  }
}

void WriteConflictOptions(SettingsStore& store, const SavedOptions& options) {
  WriteInteger(store, setting::kAddNumber, options.gConflictAddNumber);
  WriteText(store, setting::kNumberLeft, options.gNumberLeft);
  WriteText(store, setting::kNumberRight, options.gNumberRight);
}

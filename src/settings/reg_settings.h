#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/settings_store.h"

/// The tree of settings, and strict reading and writing of its values.
namespace mRegSettings {

/// A key with the text that stands for it while it isn't stored.
struct Setting {
  std::string_view section;
  std::string_view key;
  std::string_view default_text;
};

/// The keys. Check boxes are stored as 0 or 1, choices from a list as the position from 0.
/// Placement of windows: settings/window_placement.h.
namespace setting {

inline constexpr std::string_view kSave = "Settings\\Save";
inline constexpr Setting kSaveSourceFolderOptions{kSave, "SaveSourceFolderOptions", "1"};
inline constexpr Setting kSaveOutputFolderOptions{kSave, "SaveOutputFolderOptions", "1"};
inline constexpr Setting kSaveFileListOptions{kSave, "SaveFileListOptions", "1"};

inline constexpr std::string_view kFolders = "Settings\\Folders";
inline constexpr Setting kSourceFolderPath{kFolders, "SourceFolderPath", ""};
inline constexpr Setting kSourceFolderSubfolders{kFolders, "SourceFolderSubfolders", "1"};
inline constexpr Setting kIncludeMask{kFolders, "IncludeMask", ""};
inline constexpr Setting kExcludeMask{kFolders, "ExcludeMask", ""};
inline constexpr Setting kOutputFolderMode{kFolders, "OutputFolderMode", "0"};
inline constexpr Setting kOutputFolderPath{kFolders, "OutputFolderPath", ""};
inline constexpr Setting kOutputFolderSubfolders{kFolders, "OutputFolderSubfolders", "1"};

inline constexpr std::string_view kFileList = "Settings\\FileList";
inline constexpr Setting kColumnPath{kFileList, "ColumnPath", "0"};
inline constexpr Setting kColumnSize{kFileList, "ColumnSize", "0"};
inline constexpr Setting kColumnType{kFileList, "ColumnType", "0"};
inline constexpr Setting kColumnDate{kFileList, "ColumnDate", "0"};
inline constexpr Setting kGroupBy{kFileList, "GroupBy", "1"};

/// Whether the program asks before it lists a system folder.
inline constexpr Setting kCheckForSystemFolders{"Settings", "CheckForSystemFolders", "1"};

/// How a taken name is numbered. Only the left text has an underscore.
inline constexpr std::string_view kConflicts = "Conflicts";
inline constexpr Setting kAddNumber{kConflicts, "AddNumber", "1"};
inline constexpr Setting kNumberLeft{kConflicts, "NumberLeft", "_{"};
inline constexpr Setting kNumberRight{kConflicts, "NumberRight", "}"};

/// The directory of templates; it also has a key a template, named by its number, and the section
/// of that name below it.
inline constexpr std::string_view kTemplates = "Templates";
inline constexpr Setting kCounter{kTemplates, "Counter", "0"};
inline constexpr Setting kLine{kTemplates, "Line", ""};
inline constexpr Setting kCurrent{kTemplates, "Current", ""};

/// The program that was started last; written, never read.
inline constexpr std::string_view kVersion = "Version";
inline constexpr Setting kMajor{kVersion, "Major", ""};
inline constexpr Setting kMinor{kVersion, "Minor", ""};
inline constexpr Setting kRevision{kVersion, "Revision", ""};
inline constexpr Setting kAppPath{"Path", "AppPath", ""};

}  // namespace setting

/// The number that the whole of `text` is: digits, with "-" in front or not. Raises Failure
/// kTypeMismatch when it is none, kOverflow when it needs more than 32 bits.
std::int32_t ToInteger(std::string_view text);

/// In bytes. No control takes as much; a damaged file can hold any length.
inline constexpr std::size_t kLongestText = 64 * 1024;

/// Raises Failure kInvalidPropertyValue for a text above kLongestText, and so do all that read.
std::string ReadText(SettingsStore& store, const Setting& setting);

/// As ToInteger; the report of a failure names the key.
std::int32_t ReadInteger(SettingsStore& store, const Setting& setting);

/// As ReadInteger; raises Failure kInvalidPropertyValue for a number below `least` or above `most`.
std::int32_t ReadInteger(SettingsStore& store, const Setting& setting, std::int32_t least,
                         std::int32_t most);

/// A check box: as ReadInteger from 0 to 1.
bool ReadCheck(SettingsStore& store, const Setting& setting);

void WriteText(SettingsStore& store, const Setting& setting, std::string_view value);
void WriteInteger(SettingsStore& store, const Setting& setting, std::int32_t value);

/// As those of the store; raise Failure kInvalidCall when there is nothing to delete.
void DeleteSetting(SettingsStore& store, std::string_view section, std::string_view key);
void DeleteSetting(SettingsStore& store, std::string_view section);

/// Brings all changes to disk. Whoever writes settings calls it at the end of the command. Raises
/// Failure kPathFileAccess when the store can't be written, once for each cause; the values stand
/// until the program ends, and the next call tries again.
void Flush(SettingsStore& store);

/// Raises Failure kPathFileAccess when something that is stored can't be read. Once, at the start:
/// all other readings answer defaults then.
void CheckReadable(SettingsStore& store);

struct ProgramVersion {
  int Major;
  int Minor;
  int Revision;
};

/// Stores which program was started, and its folder `app_path`, and flushes.
void SaveVersion(SettingsStore& store, const ProgramVersion& version, std::string_view app_path);

}  // namespace mRegSettings

#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/settings_store.h"

/// The tree of settings and strict reading of its values. Which there are: settings/option_table.h
/// and settings/window_placement.h.
namespace mRegSettings {

/// A key with the text that stands for it while it isn't stored.
struct Setting {
  std::string_view section;
  std::string_view key;
  std::string_view default_text;
};

/// In bytes. No control takes as much; a damaged file can hold any length.
inline constexpr std::size_t kLongestText = 64 * 1024;

/// The number that the whole text is: digits, with "-" in front or not. Raises Failure
/// kTypeMismatch when it is none, kOverflow when it needs more than 32 bits.
std::int32_t ToInteger(std::string_view text);

/// The same number; raises Failure kOverflow when it needs more than 16 bits.
std::int16_t ToShort(std::int64_t number);

/// Raises Failure kInvalidPropertyValue for a text above kLongestText, and so do all that read.
std::string ReadText(SettingsStore& store, const Setting& setting);

/// The stored text, as ToInteger takes it; the report names the key.
std::int32_t ReadInteger(SettingsStore& store, const Setting& setting);

/// As ReadInteger; raises Failure kInvalidPropertyValue for a number below `least` or above `most`.
std::int32_t ReadInteger(SettingsStore& store, const Setting& setting, std::int32_t least,
                         std::int32_t most);

/// A check box: as ReadInteger from 0 to 1.
bool ReadCheck(SettingsStore& store, const Setting& setting);

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

/// Stores which program was started, and its folder `app_path`, and flushes; what stands there
/// already is not written again, so that most starts don't wait for the disk. Nothing else reads
/// it.
void SaveVersion(SettingsStore& store, const ProgramVersion& version, std::string_view app_path);

}  // namespace mRegSettings

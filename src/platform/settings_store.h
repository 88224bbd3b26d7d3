#pragma once

#include <string>
#include <string_view>

/// What stands between the store and its file.
struct StoreProblem {
  std::string text = {};  ///< says what is wrong with which path; "" is no problem
  int error = 0;          ///< errno of the call that failed, 0 if none did

  explicit operator bool() const { return !text.empty(); }
};

/// All that the program remembers between two runs: sections of keys, each with a text.
///
/// A section is a path whose levels are parted by one backslash, as in "Settings\Folders". Letter
/// case counts in sections and keys. A key and a section may bear one name: they are two things.
/// Any bytes are kept unchanged as section, key and text, the empty text included.
///
/// Nothing here fails by an exception. A store that can't be read answers defaults; one that can't
/// be written goes on with the new values until the program ends, and `Flush` tells of it.
class SettingsStore {
 public:
  virtual ~SettingsStore() = default;

  /// The stored text; `default_text` when the section or the key isn't there.
  virtual std::string GetSetting(std::string_view section, std::string_view key,
                                 std::string_view default_text = {}) = 0;

  /// Stores `value`, which `GetSetting` answers from now on; on disk after the next `Flush`.
  virtual void SaveSetting(std::string_view section, std::string_view key,
                           std::string_view value) = 0;

  /// Deletes one key, never a section of the same name. False when there was none.
  [[nodiscard]] virtual bool DeleteSetting(std::string_view section, std::string_view key) = 0;

  /// Deletes all keys of `section` and of the sections below it, never a key of the same name.
  /// False when there was none.
  [[nodiscard]] virtual bool DeleteSetting(std::string_view section) = 0;

  /// Brings all changes to disk, whole or not at all, over what other programs have written since;
  /// their other keys stay. What can't be brought is kept and tried again the next time. Answers
  /// no problem when done, else what stood in the way; a cause that one of these two calls has
  /// answered once is never answered again.
  [[nodiscard]] virtual StoreProblem Flush() = 0;

  /// Whether `GetSetting` knows what is stored, all of it or what a damage left. While it doesn't,
  /// it answers defaults although other values may stand in the store.
  [[nodiscard]] virtual bool CanBeRead() const = 0;

  /// Answers no problem when all that is stored can be read, else what can't be.
  [[nodiscard]] virtual StoreProblem ReadProblem() = 0;
};

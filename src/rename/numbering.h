#pragma once

#include <cstdint>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "core/pass.h"
#include "platform/files.h"

/// What stands around the number of a numbered name.
struct NumberTexts {
  std::string left;
  std::string right;
  bool operator==(const NumberTexts&) const = default;
};
/// What can be told nothing against; in place of texts that no name can hold.
inline const NumberTexts kSafeNumberTexts{"_{", "}"};

/// Numbered names of one name, by what stands before and behind the number.
struct NumberedNames {
  std::string head;
  std::string tail;
  std::uint64_t first = 1;  ///< the numbers that it is for
  std::uint64_t last = 0;
};

/// Those that a taken `name` may get: base, left text, number, right text, and the extension with
/// its dot.
NumberedNames ConflictNames(std::string_view name, const NumberTexts& texts);

/// Those that a file of that name in the folder `path` may be moved aside to, in the order in which
/// they are tried. They surely fit: see Numbering::FreeAsideName. None when the texts can't stand
/// in a name.
std::vector<NumberedNames> AsideNames(std::string_view path, std::string_view name,
                                      const NumberTexts& texts);

/// Finds free numbered names, for the length of one pass.
///
/// The answer is the one that trying 1, 2, 3 ... against the file system gives. To spare the
/// probes, the numbers found taken are remembered for each name; a number whose file the pass
/// itself takes away (`Freed`) counts as open again.
class Numbering {
 public:
  /// `pass` is asked between the probes, of which a folder full of numbered names needs many;
  /// when it is to end, the search gives up.
  explicit Numbering(Pass& pass);

  /// `pName` when it is free in the folder `pPath` (with closing separator), else the first free
  /// of its numbered names (ConflictNames). "" when the search gave up.
  std::string FreeName(std::string_view pPath, std::string_view pName);

  /// As FreeName for a `pName` that is known to be taken; spares the test.
  std::string FreeNumberedName(std::string_view pPath, std::string_view pName);

  /// The first free numbered name that surely fits: 255 bytes are the most that file systems take
  /// (NAME_MAX, limits.h(0p)). The base is shortened by whole characters to make room for the
  /// number; where extension and number alone leave none, the whole name is the base. "" when the
  /// texts can't stand in a name, and when the search gave up.
  std::string FreeAsideName(std::string_view pPath, std::string_view pName,
                            const NumberTexts& texts);

  /// `CorrectedNewName` takes a free numbered name when `pName` is taken, else it stays.
  void CreateUniqueName(std::string_view pPath, std::string_view pName,
                        std::string& CorrectedNewName);

  /// The entry at `path` was moved away or deleted.
  void Freed(std::string_view path);

 private:
  /// Numbered names, the head with its folder, and what is known of them.
  struct Series : NumberedNames {
    std::uint64_t untried = 1;           ///< every number below it was found taken at some time
    std::set<std::uint64_t> freed = {};  ///< of these, what may be open again
  };
  std::string FreeIn(std::string_view folder, NumberedNames names);
  std::string FirstFree(Series& series);
  std::string Resolved(std::string_view path, std::size_t folder_size);
  std::string KeyOf(const Series& series, std::size_t folder_size);
  Series* Known(const Series& wanted, std::size_t folder_size);
  void Open(std::string_view lower_head, std::string_view lower_tail, const char* digits,
            const char* digits_end);

  Pass& pass_;
  const RunState& state_;
  FileSystem& files_;
  /// By the lower case of head and tail, because a file system may take two cases for one name.
  std::unordered_map<std::string, std::vector<Series>> series_;
  std::string last_folder_;
  std::string last_resolved_;
};

#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Which process, of which user on which machine, writes a journal.
struct ProcessMark {
  std::string machine;
  std::string boot;  ///< another one after each start of the machine
  std::uint64_t user = 0;
  std::uint64_t process = 0;
  std::uint64_t started = 0;  ///< in ticks since the machine's start: numbers are given out again
  bool operator==(const ProcessMark&) const = default;
};

/// That of this process.
ProcessMark OwnMark();

/// Whether that process may still live, on this machine.
bool MayLive(const ProcessMark& mark);

/// Where this user's journals are kept: the folder Quorvane in XDG_STATE_HOME, if that is an
/// absolute path, else in ~/.local/state (XDG Base Directory Specification). "" when there is
/// neither.
std::string JournalFolder();

/// A file of one writer that only grows. What was appended outlives the process, whatever ends it.
/// The writer holds its lock (flock(2)) as long as it lives, so that nobody else takes it; where
/// the file system knows no locks, none is held.
class JournalFile {
 public:
  /// Makes a new file `name` for this user alone, and the folder (mode 0700) where it is missing.
  /// Null, and errno, when that can't be; EPERM when the folder is a link or another user's.
  static std::unique_ptr<JournalFile> Make(const std::string& folder, const std::string& name);

  /// Opens one that is there. Null, and errno, unless it is a regular file of this user alone, with
  /// no second name, in such a folder; EWOULDBLOCK when another holds its lock. Never waits.
  static std::unique_ptr<JournalFile> Take(const std::string& path);

  /// The names in the folder that end in `ending`; none when it can't be read, or is another's.
  static std::vector<std::string> Names(const std::string& folder, std::string_view ending);

  virtual ~JournalFile() = default;

  /// Writes `bytes` behind what is there, by one call. False, and errno, when not all of it could
  /// be written; nothing of it is then left.
  virtual bool Append(std::string_view bytes) = 0;

  /// Has all that was appended on the disk soon, and doesn't wait for it.
  virtual void Sync() = 0;

  virtual std::uint64_t Size() const = 0;
  /// Up to `size` bytes from `at` on; less at the end, and where it can't be read.
  virtual std::string Read(std::uint64_t at, std::size_t size) const = 0;
  /// Drops all behind the first `size` bytes.
  virtual bool CutTo(std::uint64_t size) = 0;

  /// Deletes the file, if it is still the one at its path.
  virtual bool Remove() = 0;
};

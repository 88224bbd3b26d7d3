#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/files.h"
#include "platform/journal_file.h"

/// The records of a journal: what they tell, and how that stands in a file.
///
/// A journal begins with `kFirstBytes`, which hold the version. Each record is the length of its
/// body, the body, and the CRC-32 of the body (ISO 3309, as RFC 1952 has it). Numbers have as many
/// bytes as they need, the lowest seven bits first (LEB128); times have eight. Texts are raw bytes
/// behind their length. A folder stands there once; places name it by its number, from 0 on in the
/// order of the journal.
namespace journal {

inline constexpr std::string_view kFirstBytes = "QVJRNL1\n";
/// No record is longer, and no journal: reading one is bounded.
inline constexpr std::size_t kLongestBody = 64 * 1024;
inline constexpr std::uint64_t kLongestFile = 1024 * 1024 * 1024;

enum class Kind : std::uint8_t { kPass = 1, kFolder, kOperation, kWhole, kEnd, kIncomplete };

std::uint32_t Crc(std::string_view bytes);

enum class Work : std::uint8_t { kRun, kUndo, kPutBack };

/// A pass over files that begins.
struct PassFacts {
  ProcessMark mark;
  std::int64_t began = 0;  ///< seconds since 1970-01-01 00:00 UTC
  Work work = Work::kRun;
  int output_mode = 0;
  std::string source_folder;
  std::size_t wanted = 0;  ///< files that it is to rename, copy or move
};

/// An entry of a folder.
struct Place {
  std::uint32_t folder = 0;
  std::string name;
  bool operator==(const Place&) const = default;
};

enum class Action : std::uint8_t { kMove, kCopy, kDelete, kMakeFolder, kRemoveFolder };

constexpr bool HasTarget(Action action) {
  return action == Action::kMove || action == Action::kCopy;
}

/// One change of the disk. `to` is of moves and copies; `file` is what stands at `from`.
struct Operation {
  Action action = Action::kMove;
  Place from, to;
  Fingerprint file = 0;
};

/// What became of an operation; unknown when the program ended before that was written.
enum class Outcome : std::uint8_t { kUnknown, kDone, kNotDone };
/// As it stands in a record when it is told too what was made.
inline constexpr std::uint8_t kDoneAndMade = 3;

/// Takes what a journal tells, in its order: the file that is written, and the picture of the files
/// that is made of it.
class Sink {
 public:
  virtual ~Sink() = default;
  virtual void Begin(const PassFacts& pass) = 0;
  /// Answers the number that the folder has from now on. `path` is from the root, without links,
  /// and ends in the separator.
  virtual std::uint32_t Folder(const std::string& path, const FolderIdentity& identity) = 0;
  /// It is about to be done.
  virtual void Before(const Operation& operation) = 0;
  /// It copies, if only to move to another device, and this copy is about to get its name.
  virtual void CopyIsWhole(const CopyIdentities& copied) = 0;
  /// `made` is the folder or copy that was made, where that wasn't told before.
  virtual void After(Outcome outcome, const FileIdentity& made) = 0;
  /// The pass has come to its end by itself.
  virtual void End() = 0;
  /// From here on something may have been done that isn't told.
  virtual void Incomplete() = 0;
};

/// Puts together the records of a journal; what became of an operation goes with the next record.
class Writer {
 public:
  /// Each puts a record behind `bytes`.
  void Begin(std::string& bytes, const PassFacts& pass);
  void Folder(std::string& bytes, const std::string& path, const FolderIdentity& identity);
  void Before(std::string& bytes, const Operation& operation);
  void CopyIsWhole(std::string& bytes, const CopyIdentities& copied);
  void End(std::string& bytes);
  void Incomplete(std::string& bytes);

  void After(Outcome outcome, const FileIdentity& made) { outcome_ = outcome, made_ = made; }

 private:
  void Start(Kind kind);
  void PutOutcome();
  void Put(std::string& bytes) const;

  std::string body_;
  Outcome outcome_ = Outcome::kUnknown;
  FileIdentity made_;
};

/// Whether that can be a name, and the path of a folder, in a journal.
bool IsSoundName(std::string_view name);
bool IsSoundFolder(std::string_view path);

/// How far a journal could be read.
struct ReadTo {
  std::uint64_t end = 0;  ///< behind its last whole record
  bool whole = false;     ///< nothing stands behind it
  bool sound = false;     ///< it is a journal, and nothing in it can't be
};

/// Tells `sink` what stands in `file`, up to its first record that isn't whole. Asks `go_on` now
/// and then; when that wants to stop, what was read isn't sound.
ReadTo Read(const JournalFile& file, Sink& sink, const GoOn& go_on);

}  // namespace journal

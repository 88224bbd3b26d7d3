#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// What an entry of a folder is, by itself and not by what a link points to.
enum class EntryKind : std::uint8_t { kFolder, kFile };

/// Tells one regular file from every other by a single number, so that a row can keep it. 0 is
/// none: it isn't known, or no regular file.
using Fingerprint = std::uint64_t;

/// Facts of one entry, as lstat tells them; a symbolic link is a file.
struct FileFacts {
  EntryKind kind = EntryKind::kFile;
  std::uint64_t size = 0;        ///< bytes
  std::int64_t modified_ns = 0;  ///< last-write time, nanoseconds since 1970-01-01 00:00 UTC
  Fingerprint fingerprint = 0;
};

inline bool FitsBirth(std::int64_t a_ns, std::int64_t b_ns) {
  return a_ns == b_ns || a_ns == 0 || b_ns == 0;
}

/// Tells one file from every other: which one it is and whether it was written to since.
struct FileIdentity {
  std::uint64_t device = 0;
  std::uint64_t inode = 0;
  std::uint64_t size = 0;
  std::int64_t modified_ns = 0;
  std::int64_t born_ns = 0;  ///< when it was made; 0 where that isn't known, which fits any
  bool operator==(const FileIdentity& other) const {
    return device == other.device && inode == other.inode && size == other.size &&
           modified_ns == other.modified_ns && FitsBirth(born_ns, other.born_ns);
  }
};

/// By inode number and birth, since a freed number is given out again soon; where births aren't
/// known, by size and the time of the last write. Stays when the file is renamed. Never 0.
inline Fingerprint FingerprintOf(const FileIdentity& file) {
  // Mixes well enough that two files never meet (the finalizer of splitmix64).
  const auto mix = [](std::uint64_t x) {
    x = (x ^ (x >> 30)) * 0xBF58476D1CE4E5B9u;
    x = (x ^ (x >> 27)) * 0x94D049BB133111EBu;
    return x ^ (x >> 31);
  };
  const bool is_born = file.born_ns != 0;
  const auto time = static_cast<std::uint64_t>(is_born ? file.born_ns : file.modified_ns);
  const std::uint64_t all = mix(mix(file.inode) + time) + (is_born ? 0 : mix(file.size));
  return all != 0 ? all : 1;
}

/// Tells one folder from every other, whatever is in it.
struct FolderIdentity {
  std::uint64_t device = 0;
  std::uint64_t inode = 0;
  std::int64_t born_ns = 0;  ///< as above: an inode number is given out again soon
  bool operator==(const FolderIdentity& other) const {
    return device == other.device && inode == other.inode && FitsBirth(born_ns, other.born_ns);
  }
};

/// A copy and the file that it was made of, as both stood when the copy was done.
struct CopyIdentities {
  FileIdentity source;
  FileIdentity made;
};

/// Why an operation was not done: an errno value, 0 when that isn't known, or one of these.
enum FileProblem : int {
  kFolderReplaced = -1,  ///< its path leads to another folder than expected
  kSourceChanged = -2,   ///< the file was written to, or replaced, meanwhile
  kEmptyName = -3,
  kNameHoldsSeparator = -4,  ///< or NUL
  kFolderNotAbsolute = -5,   ///< the path would lead to wherever the program was started
  kNoSuchMode = -6,          ///< the row holds an output mode that isn't one
  kFolderInTheWay = -7,      ///< a folder there would keep undo from bringing a file back
  kOriginalGone = -8,        ///< the file that a copy was made of isn't there any more
  kNotTheCopy = -9,          ///< not the very file that was made
  kUnknownProblem = -10,
};

/// The entries of one folder in the order in which the system delivers them, without "." and "..".
/// Names are raw bytes.
struct FolderEntries {
  struct Entry {
    std::string_view name;  ///< points into `names`; valid while this object lives unchanged
    EntryKind kind;
  };
  std::vector<Entry> entries;
  std::vector<std::string> names;  ///< storage; large pieces, not one string an entry
};

/// Told of a copy that is whole and about to get its name.
using CopyWatch = std::function<void(const CopyIdentities&)>;

/// Whether a name is of the form that an operation gives to what it hasn't finished. Where that is
/// of a process that was killed, it is a file like any other.
bool IsUnfinishedName(std::string_view name);

/// Called between the pieces of a long operation, so that events can run; false asks it to stop.
using GoOn = std::function<bool()>;

/// What became of a rename that was tried without a look.
enum class Attempt : std::uint8_t {
  kDone,
  kFailed,     ///< as MoveFile would have; Problem() tells why
  kLookFirst,  ///< nothing was done: only MoveFile, which looks first, can do or refuse this one
};

/// All that the system's files are asked and told. Paths are raw bytes, taken as they stand; no
/// path is followed through a symbolic link in its last name. Operations tell only done (true) or
/// not done (false); what is not done has changed nothing. Nothing here ever replaces or deletes a
/// file that the program did not make itself.
class FileSystem {
 public:
  virtual ~FileSystem() = default;

  /// True when an entry of that name is there, a dangling link and a folder included; every error
  /// is false, so is a path that ends in the separator. "*" and "?" in the last name stand for any
  /// run of characters and for any one character.
  virtual bool Exists(std::string_view path) = 0;

  /// The facts of the entry at `path`, with a closing separator those of the folder; nothing when
  /// it can't be looked at.
  virtual std::optional<FileFacts> Look(std::string_view path) = 0;

  /// Which file or folder the entry at `path` is, by itself and not by what a link points to.
  virtual std::optional<FileIdentity> Identify(std::string_view path) = 0;

  /// Which folder `path` (with or without a closing separator) leads to, links followed; nothing
  /// when it leads to none.
  virtual std::optional<FolderIdentity> IdentifyFolder(std::string_view path) = 0;

  /// From now on, until LetFoldersGo, whatever lies in `folder` or below it is taken as missing,
  /// and no operation on it is done (kFolderReplaced), while that path leads to another folder than
  /// `identity`.
  virtual void ExpectFolder(std::string_view folder, const FolderIdentity& identity) = 0;

  /// `path` with the folder before its last separator as the system resolves it: from the root,
  /// without links, "." and "..". What stands behind the last separator stays. `path` itself where
  /// there is no such folder.
  virtual std::string ResolveFolder(std::string_view path) = 0;

  /// Whether both paths lead to one directory entry that is there: one folder, however its path is
  /// written, and one name, or two that the file system takes for one, as under another letter
  /// case. Two hard links are two.
  virtual bool IsSameEntry(std::string_view a, std::string_view b) = 0;

  /// Whether the file at `path`, or that a link there points to, is `file`, not written to since.
  virtual bool IsVeryFile(std::string_view path, const FileIdentity& file) = 0;

  /// Reads the whole folder `path` (with or without a closing separator) into `entries`; "" is the
  /// root. What a living process has in the making is passed over; what a killed one left behind is
  /// a file like any other. False when the folder can't be read or when `go_on` asked to stop;
  /// `entries` then holds what was read so far.
  virtual bool List(std::string_view path, const GoOn& go_on, FolderEntries& entries) = 0;

  /// Renames or moves one file, folder or link; never onto an existing entry, unless that is the
  /// same directory entry under another letter case. Moving an entry onto itself is done when it
  /// is there. To another file system a regular file is copied whole and synced before the source
  /// goes; if that was replaced in the meantime, what is there now stays, and the copy too.
  /// When done and `moved` is given, that takes the fingerprint of what stands at `to` now.
  virtual bool MoveFile(std::string_view from, std::string_view to, const GoOn& go_on,
                        Fingerprint* moved) = 0;
  bool MoveFile(std::string_view from, std::string_view to, const GoOn& go_on) {
    return MoveFile(from, to, go_on, nullptr);
  }

  /// As MoveFile within one file system, by a single call that can't replace, and with nothing
  /// looked at unless that call fails. `known` is the fingerprint of the file when it was last
  /// looked at; by it a rename that was done and answered an error is known for done.
  virtual Attempt RenameKnown(std::string_view from, std::string_view to, Fingerprint known) = 0;

  /// The quickest of both for a file whose fingerprint is `known`, which MoveFile keeps true; of a
  /// file that was replaced since it was looked at, RenameKnown keeps the old one.
  bool MoveKnown(std::string_view from, std::string_view to, const GoOn& go_on,
                 Fingerprint& known) {
    const Attempt attempt = RenameKnown(from, to, known);
    if (attempt != Attempt::kLookFirst) return attempt == Attempt::kDone;
    return MoveFile(from, to, go_on, &known);
  }

  /// Copies what `from` is, or points to, if that is a regular file; never onto an existing entry.
  /// The target appears whole, with times, mode, attributes and access list, or not at all. When
  /// done and `copied` is given, it takes the identities of both files.
  virtual bool CopyFile(std::string_view from, std::string_view to, const GoOn& go_on,
                        CopyIdentities* copied) = 0;

  /// From now on `watch` is told of every copy, also of one that a move to another file system
  /// makes; null ends it. What it names may still not get its name.
  virtual void WatchCopies(const CopyWatch& watch) = 0;

  /// Deletes the file at `path` only if it is still the very file `made`; anything else is not
  /// done.
  virtual bool DeleteMadeFile(std::string_view path, const FileIdentity& made) = 0;

  /// Makes one folder level; not done when anything has that name. What was expected at its path is
  /// gone, so any folder may be there from now on.
  virtual bool CreateDirectory(std::string_view path) = 0;

  /// Deletes the folder at `path` only if it is empty and still the very folder `made`.
  virtual bool DeleteMadeFolder(std::string_view path, const FolderIdentity& made) = 0;

  /// Why the last operation that was not done was not: errno or a FileProblem.
  virtual int Problem() const { return 0; }

  /// To be told when events ran, and so others had their turn: before anything is changed in a
  /// folder again, it is looked whether its path still leads to it.
  virtual void LookAnew() {}

  /// Lets go of what is kept open for speed between calls, and of what was expected. Good at the
  /// end of a pass: a medium with an open folder can't be unmounted.
  virtual void LetFoldersGo() {}
};

/// The file system of this machine (POSIX, with the Linux calls where they are there).
/// Ignores SIGXFSZ and SIGPIPE from its making on, so that a limit is an error and not an end.
/// Handles of the last three folders used are kept until LetFoldersGo. That a folder was renamed or
/// replaced meanwhile is noticed after LookAnew, and after a tenth of a second at the latest; until
/// then what is done there is done in the folder that the path led to.
std::unique_ptr<FileSystem> MakePosixFileSystem();

#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

#include "platform/files.h"
#include "platform/posix/syscalls.h"

/// An open folder, by handle only: names can be looked up in it, nothing more.
struct Folder {
  FileHandle handle;
  FolderIdentity identity;

  /// The folder of two paths may be one under two texts.
  bool IsSameAs(const Folder& other) const { return identity == other.identity; }
};

/// A name in an open folder, whether something is there or not.
struct Place {
  std::shared_ptr<const Folder> folder;
  std::string name;

  int at() const { return folder->handle.get(); }
  const char* c_name() const { return name.c_str(); }
  explicit operator bool() const { return folder != nullptr; }
};

/// A path cut behind its last separator: "/a/b" is "/a" and "b", "/b" is "/" and "b", "b" is "."
/// and "b".
struct SplitPath {
  std::string_view folder;
  std::string_view name;
};
SplitPath Split(std::string_view path);

std::string_view WithoutClosingSeparators(std::string_view folder);

/// Turns paths into places and keeps the handles of the last three folders (source,
/// output, and the way there over a link), which saves walking the
/// path for every file of a folder; paths may be longer than the system takes in one call.
///
/// A kept handle stays with its folder when that is renamed or replaced, so the path may mean
/// another folder by then. Hence the handle is compared with what the path leads to, and opened
/// anew when they differ; an open handle keeps its inode number from being given to another folder,
/// so the comparison can't be fooled. A comparison is trusted for a tenth of a second, `ForChange`
/// trusts none from before `LookAnew`. Should the folder be replaced by then, no harm is done: by
/// its handle all goes on in the folder that was meant, wherever that is, and nothing is reached in
/// the other.
///
/// A folder that is expected, or lies below one, is opened by way of the deepest such: that one is
/// known by its handle, and the rest of the path is walked from there. So whatever replaces it
/// later, nothing in the other folder is reached. A kept handle was reached so; expecting more
/// drops those that were not.
class FolderHandles {
 public:
  enum class Trust : std::uint8_t {
    kNow,      ///< only a comparison made now
    kSettled,  ///< one since LookAnew
    kRecent,
  };

  explicit FolderHandles(const Syscalls& calls) : calls_(calls) {}

  /// No place when the folder can't be opened, isn't the one that is expected, or the path holds a
  /// NUL byte; Problem() tells why.
  Place ForChange(const SplitPath& path) { return PlaceOf(path, Trust::kSettled); }
  Place ForChange(std::string_view path) { return ForChange(Split(path)); }
  Place ForLook(std::string_view path) { return PlaceOf(Split(path), Trust::kRecent); }

  /// The folder itself, "" being the root; a closing separator changes nothing. Null as
  /// above.
  std::shared_ptr<const Folder> Open(std::string_view folder, Trust trust);

  /// Where the folder is as the system tells it: from the root, without links; "" when it can't
  /// tell, or takes no path of that length.
  std::string PathOf(const Folder& folder);

  /// An errno or kFolderReplaced.
  int Problem() const { return problem_; }

  /// From now on `folder` (with or without a closing separator) must be `identity`.
  void Expect(std::string_view folder, const FolderIdentity& identity);

  /// To be told when a folder was made at `path`: whatever was expected there is gone.
  void Unexpect(std::string_view path);

  /// To be told when the entry at `path` was moved or deleted: it may have been a folder, or a link
  /// that a path leads over.
  void Forget(std::string_view path);

  /// No comparison so far is good for a change.
  void LookAnew() { ++settled_; }

  /// Lets all handles go, so that a medium can be unmounted, and expects nothing any more.
  void ForgetAll();

 private:
  struct PathHash : std::hash<std::string_view> {
    using is_transparent = void;
  };
  using Expected = std::unordered_map<std::string, FolderIdentity, PathHash, std::equal_to<>>;
  struct Kept {
    std::string path;
    std::shared_ptr<const Folder> folder;
    std::int64_t compared_ms = 0;
    unsigned settled = 0;  ///< what `settled_` was then
  };

  Place PlaceOf(const SplitPath& path, Trust trust);
  bool StillThere(Kept& kept, Trust trust);
  bool LeadsTo(const std::string& path, const Folder& folder);
  const Expected::value_type* DeepestExpected(std::string_view path) const;
  std::shared_ptr<const Folder> OpenAnew(const std::string& path);
  std::shared_ptr<const Folder> OpenFrom(int start, const std::string& path);
  FileHandle Walk(int start, const std::string& path);
  int OpenStep(int at, const char* path);
  void LetHandlesGo();

  const Syscalls& calls_;
  std::array<Kept, 3> kept_;  ///< the last used first
  Expected expected_;         ///< paths without closing separators
  unsigned settled_ = 0;      ///< how often LookAnew was called
  int problem_ = 0;
};

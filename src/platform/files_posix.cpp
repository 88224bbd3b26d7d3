#include "platform/files_posix.h"

#include <fcntl.h>
#include <signal.h>

#include <cstdlib>
#include <utility>

#include "platform/file_copy.h"
#include "platform/file_move.h"
#include "platform/folder_handles.h"
#include "platform/folder_listing.h"
#include "platform/name_pattern.h"
#include "platform/rename_no_replace.h"

namespace {

/// The answer upwards; the reason stays in errno for whoever looks into it.
bool Done(int error) {
  errno = error;
  return error == 0;
}

class PosixFileSystem final : public FileSystem {
 public:
  explicit PosixFileSystem(Syscalls calls) : calls_(std::move(calls)) {
    // Past a size limit, or into a broken pipe, a write shall fail and not end us (signal(7)).
    ::signal(SIGXFSZ, SIG_IGN);
    ::signal(SIGPIPE, SIG_IGN);
  }

  bool Exists(std::string_view path) override {
    const Place place = folders_.ForLook(path);
    struct stat facts;
    if (!place || place.name.empty()) return false;
    if (LStat(place, facts)) return true;
    return HasWildcards(place.name) && AnyFits(place);
  }

  std::optional<FileFacts> Look(std::string_view path) override {
    const Place place = folders_.ForLook(path);
    struct stat facts;
    if (!place) return std::nullopt;
    // "/" has no last name: it is the folder itself (AT_EMPTY_PATH, see stat(2)).
    const int of_itself = place.name.empty() ? AT_EMPTY_PATH : 0;
    if (calls_.fstatat(place.at(), place.c_name(), &facts, AT_SYMLINK_NOFOLLOW | of_itself) != 0) {
      return std::nullopt;
    }
    const FileIdentity identity = IdentityOf(facts);
    return FileFacts{S_ISDIR(facts.st_mode) ? EntryKind::kFolder : EntryKind::kFile, identity.size,
                     identity.modified_ns};
  }

  std::optional<FolderIdentity> IdentifyFolder(std::string_view path) override {
    const auto folder = folders_.Open(path, FolderHandles::Trust::kNow);
    if (!folder) return std::nullopt;
    return FolderIdentity{folder->device, folder->inode, 0};
  }

  void ExpectFolder(std::string_view, const FolderIdentity&) override {}

  std::string ResolveFolder(std::string_view path) override {
    const std::size_t name = path.rfind('/') + 1;
    const std::string folder(path.substr(0, name));
    const std::unique_ptr<char, decltype(&std::free)> resolved(::realpath(folder.c_str(), nullptr),
                                                               &std::free);
    if (!resolved) return std::string(path);
    std::string text = resolved.get();
    if (!text.ends_with('/')) text += '/';
    return text.append(path.substr(name));
  }

  bool IsSameEntry(std::string_view a, std::string_view b) override {
    const Place first = folders_.ForChange(a);
    const Place second = folders_.ForChange(b);
    struct stat facts;
    if (!first || !second || !first.folder->IsSameAs(*second.folder)) return false;
    if (first.name == second.name) return LStat(first, facts);
    return move_.IsSameEntry(first, second);
  }

  bool IsVeryFile(std::string_view path, const FileIdentity& file) override {
    const Place place = folders_.ForLook(path);
    struct stat facts;
    return place && calls_.fstatat(place.at(), place.c_name(), &facts, 0) == 0 &&
           IdentityOf(facts) == file;
  }

  bool List(std::string_view path, const GoOn& go_on, FolderEntries& entries) override {
    const auto folder = folders_.Open(path, FolderHandles::Trust::kNow);
    if (!folder) {
      entries = {};
      return false;
    }
    return Done(ListFolder(calls_, *folder, go_on, entries));
  }

  bool MoveFile(std::string_view from, std::string_view to, const GoOn& go_on) override {
    const auto [source, target] = Places(from, to);
    if (!source || !target) return false;
    const bool done = Done(move_.Move(source, target, go_on));
    if (done) folders_.Forget(from);
    return done;
  }

  bool CopyFile(std::string_view from, std::string_view to, const GoOn& go_on,
                CopyIdentities* copied) override {
    const auto [source, target] = Places(from, to);
    if (!source || !target) return false;
    CopyIdentities both;
    const int error = copy_.Copy(source, target, FileCopy::Purpose::kCopy, go_on, both);
    if (error == 0 && copied) *copied = both;
    return Done(error);
  }

  bool DeleteMadeFile(std::string_view path, const FileIdentity& made) override {
    const Place place = folders_.ForChange(path);
    struct stat facts;
    if (!place || !LStat(place, facts)) return false;
    return Done(IdentityOf(facts) == made ? Unlink(place) : ESTALE);
  }

  bool CreateDirectory(std::string_view path) override {
    const Place place = folders_.ForChange(path);
    return place && Done(ErrorOf([&] { return ::mkdirat(place.at(), place.c_name(), 0777); }));
  }

  bool DeleteMadeFolder(std::string_view path, const FolderIdentity& made) override {
    if (IdentifyFolder(path) != made) return false;
    const Place place = folders_.ForChange(path);
    return place &&
           Done(ErrorOf([&] { return calls_.unlinkat(place.at(), place.c_name(), AT_REMOVEDIR); }));
  }

  int Problem() const override { return errno; }

  void LetFoldersGo() override { folders_.ForgetAll(); }

 private:
  bool LStat(const Place& place, struct stat& facts) {
    return calls_.fstatat(place.at(), place.c_name(), &facts, AT_SYMLINK_NOFOLLOW) == 0;
  }

  int Unlink(const Place& place) {
    return ErrorOf([&] { return calls_.unlinkat(place.at(), place.c_name(), 0); });
  }

  bool AnyFits(const Place& place) {
    FolderEntries all;
    ListFolder(calls_, *place.folder, {}, all);
    for (const FolderEntries::Entry& entry : all.entries) {
      if (FitsPattern(entry.name, place.name)) return true;
    }
    return false;
  }

  /// Two names in one folder need it opened, and compared, only once.
  std::pair<Place, Place> Places(std::string_view from, std::string_view to) {
    Place source = folders_.ForChange(from);
    if (!source) return {};
    const SplitPath split = Split(to);
    if (split.folder != Split(from).folder || split.name.find('\0') != split.name.npos) {
      return {std::move(source), folders_.ForChange(to)};
    }
    Place target{source.folder, std::string(split.name)};
    return {std::move(source), std::move(target)};
  }

  const Syscalls calls_;
  FolderHandles folders_{calls_};
  RenameNoReplace rename_{calls_};
  FileCopy copy_{calls_, rename_};
  FileMove move_{calls_, rename_, copy_};
};

}  // namespace

std::unique_ptr<FileSystem> MakePosixFileSystem(Syscalls calls) {
  return std::make_unique<PosixFileSystem>(std::move(calls));
}

std::unique_ptr<FileSystem> MakePosixFileSystem() {
  return MakePosixFileSystem(RealSyscalls());
}

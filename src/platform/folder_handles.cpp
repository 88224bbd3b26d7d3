#include "platform/folder_handles.h"

#include <fcntl.h>
#include <limits.h>
#include <time.h>

#include <cstring>
#include <utility>

namespace {

constexpr std::int64_t kTrustMs = 100;

/// Good to a few milliseconds, and cheaper than any system call (clock_gettime(2)).
std::int64_t CoarseMilliseconds() {
  struct timespec now = {};
  ::clock_gettime(CLOCK_MONOTONIC_COARSE, &now);
  return std::int64_t{now.tv_sec} * 1000 + now.tv_nsec / 1'000'000;
}

std::string_view WithoutClosingSeparators(std::string_view folder) {
  while (folder.size() > 1 && folder.back() == '/') folder.remove_suffix(1);
  return folder;
}

}  // namespace

SplitPath Split(std::string_view path) {
  const std::size_t slash = path.rfind('/');
  if (slash == std::string_view::npos) return {".", path};
  return {slash == 0 ? "/" : path.substr(0, slash), path.substr(slash + 1)};
}

Place FolderHandles::PlaceOf(std::string_view path, Trust trust) {
  const SplitPath split = Split(path);
  if (split.name.find('\0') != std::string_view::npos) {
    errno = EINVAL;
    return {};
  }
  Place place;
  place.folder = Open(split.folder, trust);
  if (place.folder) place.name = split.name;
  return place;
}

std::shared_ptr<const Folder> FolderHandles::Open(std::string_view folder, Trust trust) {
  const std::string_view path = folder.empty() ? "/" : WithoutClosingSeparators(folder);
  if (kept_[0].path != path) std::swap(kept_[0], kept_[1]);
  Kept& first = kept_[0];
  if (first.folder && first.path == path && StillThere(first, trust)) return first.folder;

  std::string wanted(path);
  if (wanted.find('\0') != std::string::npos) {
    errno = EINVAL;
    return nullptr;
  }
  std::shared_ptr<const Folder> opened = OpenAnew(wanted);
  if (opened) {
    first = {std::move(wanted), opened, CoarseMilliseconds()};
  } else if (first.path == path) {
    first = {};
  }
  return opened;
}

bool FolderHandles::StillThere(Kept& kept, Trust trust) {
  const std::int64_t now = CoarseMilliseconds();
  if (trust == Trust::kRecent && now - kept.compared_ms < kTrustMs) return true;
  struct stat facts;
  if (kept.path.size() >= PATH_MAX || calls_.fstatat(AT_FDCWD, kept.path.c_str(), &facts, 0) != 0) {
    return false;
  }
  kept.compared_ms = now;
  return facts.st_dev == kept.folder->device && facts.st_ino == kept.folder->inode;
}

std::shared_ptr<const Folder> FolderHandles::OpenAnew(const std::string& path) {
  auto folder = std::make_shared<Folder>();
  folder->handle = Walk(path);
  struct stat facts;
  if (!folder->handle || calls_.fstat(folder->handle.get(), &facts) != 0) return nullptr;
  folder->device = facts.st_dev;
  folder->inode = facts.st_ino;
  return folder;
}

/// A call takes at most PATH_MAX - 1 bytes (path_resolution(7)); a longer path is walked in pieces.
FileHandle FolderHandles::Walk(const std::string& path) {
  std::size_t begin = 0;
  FileHandle reached;
  while (path.size() - begin >= PATH_MAX) {
    const std::size_t slash = path.rfind('/', begin + PATH_MAX - 1);
    if (slash == std::string::npos || slash <= begin) {
      errno = ENAMETOOLONG;
      return {};
    }
    const std::string piece = path.substr(begin, slash - begin);
    reached = FileHandle(OpenStep(begin == 0 ? AT_FDCWD : reached.get(), piece.c_str()));
    if (!reached) return {};
    begin = path.find_first_not_of('/', slash);
    if (begin == std::string::npos) return reached;
  }
  return FileHandle(OpenStep(begin == 0 ? AT_FDCWD : reached.get(), path.c_str() + begin));
}

int FolderHandles::OpenStep(int at, const char* path) {
  const auto open = [&] { return calls_.openat(at, path, O_PATH | O_DIRECTORY | O_CLOEXEC, 0); };
  int fd = Uninterrupted(open);
  if (fd == -1 && (errno == EMFILE || errno == ENFILE)) {
    ForgetAll();
    fd = Uninterrupted(open);
  }
  return fd;
}

void FolderHandles::Forget(std::string_view path) {
  const std::string_view entry = WithoutClosingSeparators(path);
  for (Kept& kept : kept_) {
    const std::string_view folder = kept.path;
    if (folder.substr(0, entry.size()) == entry &&
        (folder.size() == entry.size() || folder[entry.size()] == '/')) {
      kept = {};
    }
  }
}

void FolderHandles::ForgetAll() {
  for (Kept& kept : kept_) kept = {};
}

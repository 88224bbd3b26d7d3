#include "platform/posix/folder_handles.h"

#include <fcntl.h>
#include <limits.h>
#include <time.h>

#include <algorithm>
#include <utility>

#include "platform/posix/entry_facts.h"

namespace {

constexpr std::int64_t kTrustMs = 100;

/// Good to a few milliseconds, and cheaper than any system call (clock_gettime(2)).
std::int64_t CoarseMilliseconds() {
  struct timespec now = {};
  ::clock_gettime(CLOCK_MONOTONIC_COARSE, &now);
  return std::int64_t{now.tv_sec} * 1000 + now.tv_nsec / 1'000'000;
}

/// Whether the path `folder` is `top` or below it; neither has a closing separator.
bool IsAtOrBelow(std::string_view folder, std::string_view top) {
  return folder.starts_with(top) &&
         (folder.size() == top.size() || top.ends_with('/') || folder[top.size()] == '/');
}

}  // namespace

std::string_view WithoutClosingSeparators(std::string_view folder) {
  while (folder.size() > 1 && folder.back() == '/') folder.remove_suffix(1);
  return folder;
}

SplitPath Split(std::string_view path) {
  const std::size_t slash = path.rfind('/');
  if (slash == std::string_view::npos) return {".", path};
  return {slash == 0 ? "/" : path.substr(0, slash), path.substr(slash + 1)};
}

Place FolderHandles::PlaceOf(const SplitPath& path, Trust trust) {
  if (path.name.find('\0') != std::string_view::npos) {
    problem_ = EINVAL;
    return {};
  }
  Place place;
  place.folder = Open(path.folder, trust);
  if (place.folder) place.name = path.name;
  return place;
}

std::shared_ptr<const Folder> FolderHandles::Open(std::string_view folder, Trust trust) {
  const std::string_view path = folder.empty() ? "/" : WithoutClosingSeparators(folder);
  Kept& first = kept_[0];
  bool kept = first.path == path;
  for (std::size_t i = 1; i < kept_.size() && !kept; ++i) {
    std::swap(first, kept_[i]);
    kept = first.path == path;
  }
  if (kept && first.folder && StillThere(first, trust)) return first.folder;

  std::string wanted(path);
  if (wanted.find('\0') != std::string::npos) {
    problem_ = EINVAL;
    return nullptr;
  }
  std::shared_ptr<const Folder> opened = OpenAnew(wanted);
  if (opened) {
    first = {std::move(wanted), opened, CoarseMilliseconds(), settled_};
  } else if (kept) {
    first = {};
  }
  return opened;
}

bool FolderHandles::StillThere(Kept& kept, Trust trust) {
  const std::int64_t now = CoarseMilliseconds();
  const bool settled = trust == Trust::kRecent || kept.settled == settled_;
  if (trust != Trust::kNow && settled && now - kept.compared_ms < kTrustMs) return true;
  if (kept.path.size() >= PATH_MAX || !LeadsTo(kept.path, *kept.folder)) return false;
  kept.compared_ms = now;
  kept.settled = settled_;
  return true;
}

bool FolderHandles::LeadsTo(const std::string& path, const Folder& folder) {
  struct statx facts;
  const auto look = [&] {
    return calls_.statx(AT_FDCWD, path.c_str(), 0, STATX_INO | STATX_BTIME, &facts);
  };
  return Uninterrupted(look) == 0 && FolderIdentityOf(facts) == folder.identity;
}

/// The link of an open handle shows its path, and of a deleted folder some text (proc(5)).
std::string FolderHandles::PathOf(const Folder& folder) {
  const std::string link = "/proc/self/fd/" + std::to_string(folder.handle.get());
  std::string path(PATH_MAX, '\0');
  const ssize_t size = Uninterrupted(
      [&] { return calls_.readlinkat(AT_FDCWD, link.c_str(), path.data(), path.size()); });
  path.resize(static_cast<std::size_t>(std::max<ssize_t>(size, 0)));
  return path.starts_with('/') && LeadsTo(path, folder) ? path : std::string();
}

const FolderHandles::Expected::value_type* FolderHandles::DeepestExpected(
    std::string_view path) const {
  if (expected_.empty()) return nullptr;
  for (;;) {
    const auto found = expected_.find(path);
    if (found != expected_.end()) return &*found;
    const std::size_t slash = path.rfind('/');
    if (slash == std::string_view::npos || path.size() == 1) return nullptr;
    path = WithoutClosingSeparators(path.substr(0, slash + 1));
  }
}

std::shared_ptr<const Folder> FolderHandles::OpenAnew(const std::string& path) {
  const Expected::value_type* expected = DeepestExpected(path);
  if (expected == nullptr) return OpenFrom(AT_FDCWD, path);
  std::shared_ptr<const Folder> folder = OpenFrom(AT_FDCWD, expected->first);
  if (folder && !IsExpectedFolder(calls_, *folder, expected->second)) {
    problem_ = kFolderReplaced;
    return nullptr;
  }
  const std::size_t rest = path.find_first_not_of('/', expected->first.size());
  if (!folder || rest == std::string::npos) return folder;
  return OpenFrom(folder->handle.get(), path.substr(rest));
}

/// `path` begins at the open folder `start`, unless it is absolute.
std::shared_ptr<const Folder> FolderHandles::OpenFrom(int start, const std::string& path) {
  auto folder = std::make_shared<Folder>();
  folder->handle = Walk(start, path);
  struct statx facts;
  problem_ = folder->handle ? LookInto(calls_, folder->handle.get(), facts) : errno;
  if (problem_ != 0) return nullptr;
  folder->identity = FolderIdentityOf(facts);
  return folder;
}

/// A call takes at most PATH_MAX - 1 bytes (path_resolution(7)); a longer path is walked in pieces.
FileHandle FolderHandles::Walk(int start, const std::string& path) {
  std::size_t begin = 0;
  FileHandle reached;
  while (path.size() - begin >= PATH_MAX) {
    const std::size_t slash = path.rfind('/', begin + PATH_MAX - 1);
    if (slash == std::string::npos || slash <= begin) {
      errno = ENAMETOOLONG;
      return {};
    }
    const std::string piece = path.substr(begin, slash - begin);
    reached = FileHandle(OpenStep(begin == 0 ? start : reached.get(), piece.c_str()));
    if (!reached) return {};
    begin = path.find_first_not_of('/', slash);
    if (begin == std::string::npos) return reached;
  }
  return FileHandle(OpenStep(begin == 0 ? start : reached.get(), path.c_str() + begin));
}

int FolderHandles::OpenStep(int at, const char* path) {
  const auto open = [&] { return calls_.openat(at, path, O_PATH | O_DIRECTORY | O_CLOEXEC, 0); };
  int fd = Uninterrupted(open);
  if (fd == -1 && (errno == EMFILE || errno == ENFILE)) {
    LetHandlesGo();
    fd = Uninterrupted(open);
  }
  return fd;
}

void FolderHandles::Expect(std::string_view folder, const FolderIdentity& identity) {
  const std::string path(folder.empty() ? "/" : WithoutClosingSeparators(folder));
  const auto [entry, is_new] = expected_.try_emplace(path, identity);
  if (!is_new && entry->second == identity) return;
  entry->second = identity;
  Forget(path);
}

void FolderHandles::Unexpect(std::string_view path) {
  const auto found = expected_.find(WithoutClosingSeparators(path));
  if (found != expected_.end()) expected_.erase(found);
}

void FolderHandles::Forget(std::string_view path) {
  const std::string_view top = WithoutClosingSeparators(path);
  for (Kept& kept : kept_) {
    if (IsAtOrBelow(kept.path, top)) kept = {};
  }
  LookAnew();
}

void FolderHandles::LetHandlesGo() {
  for (Kept& kept : kept_) kept = {};
}

void FolderHandles::ForgetAll() {
  LetHandlesGo();
  expected_.clear();
}

#include "platform/append_file.h"

#include <fcntl.h>
#include <sys/file.h>

#include <filesystem>

#include "platform/posix/syscalls.h"

namespace {

/// Whether what is open is of that kind and the user's own.
bool IsOwn(const struct stat& facts, mode_t kind) {
  return (facts.st_mode & S_IFMT) == kind && facts.st_uid == ::geteuid();
}

/// The folder, not reached through a link of its name.
FileHandle OpenFolder(const std::string& path) {
  FileHandle handle(::open(path.c_str(), O_PATH | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
  struct stat facts;
  if (!handle || ::fstat(handle.get(), &facts) != 0) return {};
  if (IsOwn(facts, S_IFDIR)) return handle;
  errno = EPERM;
  return {};
}

/// Whether it may be written to. A second name can be one that another user gave to a file that
/// must not change.
bool IsOwnFile(int fd) {
  struct stat facts;
  if (::fstat(fd, &facts) != 0) return false;
  if (IsOwn(facts, S_IFREG) && facts.st_nlink == 1) return true;
  errno = EPERM;
  return false;
}

}  // namespace

std::optional<AppendFile> AppendFile::Open(const std::string& path) {
  const std::filesystem::path whole = path;
  const std::string name = whole.filename();
  const FileHandle folder = OpenFolder(whole.parent_path());
  if (!folder) return std::nullopt;
  // Without O_NONBLOCK a fifo of that name would hold the program until someone reads it.
  constexpr int kHow = O_WRONLY | O_APPEND | O_NOFOLLOW | O_CLOEXEC | O_NOCTTY | O_NONBLOCK;
  const auto open = [&](int how) {
    return FileHandle(
        Uninterrupted([&] { return ::openat(folder.get(), name.c_str(), how, 0644); }));
  };
  FileHandle handle = open(kHow);
  const bool existed = static_cast<bool>(handle);
  if (!existed && errno == ENOENT) handle = open(kHow | O_CREAT);
  if (!handle || !IsOwnFile(handle.get())) return std::nullopt;
  const int lock = ErrorOf([&] { return ::flock(handle.get(), LOCK_EX | LOCK_NB); });
  if (lock == EWOULDBLOCK) return std::nullopt;
  return AppendFile(std::move(handle), existed);
}

bool AppendFile::Append(std::string_view text) {
  while (!text.empty()) {
    const ssize_t done =
        Uninterrupted([&] { return ::write(handle_.get(), text.data(), text.size()); });
    if (done <= 0) return false;
    text.remove_prefix(static_cast<std::size_t>(done));
  }
  return true;
}

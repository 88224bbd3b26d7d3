#include "platform/append_file.h"

#include <fcntl.h>
#include <sys/file.h>

std::optional<AppendFile> AppendFile::Open(const std::string& path) {
  // Without O_NONBLOCK a fifo of that name would hold the program until someone reads it.
  constexpr int kHow = O_WRONLY | O_APPEND | O_CLOEXEC | O_NOCTTY | O_NONBLOCK;
  FileHandle handle(Uninterrupted([&] { return ::open(path.c_str(), kHow); }));
  const bool existed = static_cast<bool>(handle);
  if (!existed && errno == ENOENT) {
    handle = FileHandle(Uninterrupted([&] { return ::open(path.c_str(), kHow | O_CREAT, 0644); }));
  }
  if (!handle) return std::nullopt;
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

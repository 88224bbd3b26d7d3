#pragma once

#include <string>
#include <utility>

/// Owns one open file of the system; -1 is none. On a POSIX system, a file descriptor.
class FileHandle {
 public:
  FileHandle() = default;
  explicit FileHandle(int fd) : fd_(fd) {}
  FileHandle(FileHandle&& other) noexcept : fd_(std::exchange(other.fd_, -1)) {}
  FileHandle& operator=(FileHandle&& other) noexcept {
    std::swap(fd_, other.fd_);
    return *this;
  }
  /// Closes it and leaves errno as it is: an answer is often on its way out through it.
  ~FileHandle();

  explicit operator bool() const { return fd_ >= 0; }
  int get() const { return fd_; }

 private:
  int fd_ = -1;
};

/// The regular file that the raw bytes `path` lead to, links followed, to be read. None, and errno,
/// where that can't be; EINVAL for what is no regular file, which is not opened: a fifo can wait
/// for ever, and a device do anything.
FileHandle OpenRegularFile(const std::string& path);

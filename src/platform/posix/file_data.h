#pragma once

#include <memory>

#include "platform/files.h"
#include "platform/posix/device_set.h"
#include "platform/posix/syscalls.h"

/// Copies what is in one file into another, new one.
class FileData {
 public:
  explicit FileData(const Syscalls& calls) : calls_(calls) {}

  /// Copies all of `from`, whose facts are `source`, into the empty file `to`: by sharing its
  /// blocks where the file system can, else in pieces with `go_on` between them; holes stay holes.
  /// 0, ECANCELED when `go_on` asked to stop, kSourceChanged when more or less came than `source`
  /// tells, or an errno.
  int Copy(int from, int to, const struct statx& source, const GoOn& go_on);

 private:
  struct Job {
    int from;
    int to;
    const GoOn& go_on;
    off_t size;      ///< of all
    bool by_kernel;  ///< copy_file_range is worth a try
  };

  bool Clone(int from, int to, const struct statx& source);
  int CopyAround(Job& job, off_t size);
  int CopyRange(Job& job, off_t& at, off_t end);
  int CopyByKernel(Job& job, off_t& at, off_t end);
  int CopyByBuffer(Job& job, off_t& at, off_t end);
  int WriteAll(int to, const char* bytes, std::size_t size, off_t at);

  const Syscalls& calls_;
  std::unique_ptr<char[]> buffer_;
  DeviceSet without_clones_;
};

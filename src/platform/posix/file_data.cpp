#include "platform/posix/file_data.h"

#include <algorithm>
#include <limits>

#include "platform/posix/entry_facts.h"

namespace {

constexpr std::size_t kBuffer = 256 * 1024;
constexpr off_t kPiece = 16 * 1024 * 1024;
constexpr off_t kSmall = 64 * 1024;
constexpr off_t kToTheEnd = std::numeric_limits<off_t>::max();
constexpr off_t kBlock = 512;  // the unit of st_blocks, inode(7)

bool Stopped(const GoOn& go_on) {
  return go_on && !go_on();
}

}  // namespace

int FileData::Copy(int from, int to, const struct statx& source, const GoOn& go_on) {
  const auto size = static_cast<off_t>(source.stx_size);
  if (size > 0 && Clone(from, to, source)) return 0;
  Job job{from, to, go_on, size, size > kSmall};
  if (static_cast<off_t>(source.stx_blocks) * kBlock < size) return CopyAround(job, size);
  off_t at = 0;
  const int error = CopyRange(job, at, kToTheEnd);
  return error == 0 && at != size ? kSourceChanged : error;
}

bool FileData::Clone(int from, int to, const struct statx& source) {
  const std::uint64_t device = DeviceOf(source);
  if (without_clones_.Has(device)) return false;
  const int error = ErrorOf([&] { return calls_.clone(to, from); });
  if (error == EOPNOTSUPP) without_clones_.Add(device);
  return error == 0;
}

/// Only what lies between the holes (lseek(2)); where holes can't be asked for, all.
int FileData::CopyAround(Job& job, off_t size) {
  off_t at = 0;
  while (at < size) {
    const off_t data = calls_.lseek(job.from, at, SEEK_DATA);
    if (data < 0 && errno == ENXIO) break;  // nothing but a hole up to the end
    off_t hole = data < 0 ? -1 : calls_.lseek(job.from, data, SEEK_HOLE);
    if (hole < 0) hole = size;
    if (data >= 0) at = data;
    if (const int error = CopyRange(job, at, hole)) return error;
    if (at < hole) return kSourceChanged;
  }
  return ErrorOf([&] { return calls_.ftruncate(job.to, size); });
}

int FileData::CopyRange(Job& job, off_t& at, off_t end) {
  if (job.by_kernel) {
    const int error = CopyByKernel(job, at, end);
    if (error == ECANCELED) return error;
    if (error != 0) job.by_kernel = false;
  }
  return at < end ? CopyByBuffer(job, at, end) : 0;
}

/// An early end is no error: reading decides what it means.
int FileData::CopyByKernel(Job& job, off_t& at, off_t end) {
  while (at < end) {
    off_t from_at = at;
    off_t to_at = at;
    const auto piece = static_cast<std::size_t>(std::min(end - at, kPiece));
    const ssize_t copied = Uninterrupted(
        [&] { return calls_.copy_file_range(job.from, &from_at, job.to, &to_at, piece); });
    if (copied < 0) return errno;
    if (copied == 0) return 0;
    at += copied;
    if (Stopped(job.go_on)) return ECANCELED;
  }
  return 0;
}

int FileData::CopyByBuffer(Job& job, off_t& at, off_t end) {
  if (!buffer_) buffer_.reset(new char[kBuffer]);
  while (at < end) {
    const auto wanted = static_cast<std::size_t>(std::min(end - at, off_t{kBuffer}));
    const ssize_t got =
        Uninterrupted([&] { return calls_.pread(job.from, buffer_.get(), wanted, at); });
    if (got < 0) return errno;
    if (got == 0) return 0;
    const auto size = static_cast<std::size_t>(got);
    if (const int error = WriteAll(job.to, buffer_.get(), size, at)) return error;
    at += got;
    if (size < wanted && at == job.size) return 0;  // less than asked for is the end
    if (size == wanted && Stopped(job.go_on)) return ECANCELED;
  }
  return 0;
}

int FileData::WriteAll(int to, const char* bytes, std::size_t size, off_t at) {
  while (size > 0) {
    const ssize_t written = Uninterrupted([&] { return calls_.pwrite(to, bytes, size, at); });
    if (written < 0) return errno;
    if (written == 0) return EIO;  // no progress and no reason: don't spin
    bytes += written;
    size -= static_cast<std::size_t>(written);
    at += written;
  }
  return 0;
}

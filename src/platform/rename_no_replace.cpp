#include "platform/rename_no_replace.h"

#include <fcntl.h>
#include <stdio.h>

#include <algorithm>

namespace {

/// renameat2(2): EINVAL where the file system has no such flag, ENOSYS where the kernel has no
/// such call; FUSE answers EOPNOTSUPP too.
bool LacksTheFlag(int error) {
  return error == EINVAL || error == ENOSYS || error == EOPNOTSUPP;
}

/// link(2): EPERM where the file system has no hard links or protected_hardlinks forbids this one.
/// Only what says that a link can't be, not what says that nothing can.
bool LacksHardLinks(int error) {
  switch (error) {
    case EPERM:
    case EMLINK:
    case EOPNOTSUPP:
    case ENOSYS:
    case EACCES:
    case EINVAL:
      return true;
    default:
      return false;
  }
}

}  // namespace

bool DeviceSet::Has(std::uint64_t device) const {
  return std::find(devices_.begin(), devices_.end(), device) != devices_.end();
}

void DeviceSet::Add(std::uint64_t device) {
  if (!Has(device)) devices_.push_back(device);
}

bool HoldsInode(const Syscalls& calls, const Place& place, const struct stat& facts) {
  struct stat now;
  return calls.fstatat(place.at(), place.c_name(), &now, AT_SYMLINK_NOFOLLOW) == 0 &&
         now.st_dev == facts.st_dev && now.st_ino == facts.st_ino;
}

void TakeBack(const Syscalls& calls, const Place& place, const struct stat& facts) {
  if (HoldsInode(calls, place, facts)) {
    Uninterrupted([&] { return calls.unlinkat(place.at(), place.c_name(), 0); });
  }
}

int RenameNoReplace::operator()(const Place& from, const Place& to) {
  const std::uint64_t device = to.folder->device;
  if (without_flag_.Has(device)) return WithoutTheFlag(from, to);
  const int error = ErrorOf([&] {
    return calls_.renameat2(from.at(), from.c_name(), to.at(), to.c_name(), RENAME_NOREPLACE);
  });
  if (!LacksTheFlag(error)) return error;
  // EINVAL also means a folder moved into itself, so only a fallback that works is remembered.
  const int fallback = WithoutTheFlag(from, to);
  if (fallback == 0) without_flag_.Add(device);
  return fallback;
}

int RenameNoReplace::WithoutTheFlag(const Place& from, const Place& to) {
  struct stat facts;
  if (calls_.fstatat(to.at(), to.c_name(), &facts, AT_SYMLINK_NOFOLLOW) == 0) return EEXIST;
  if (errno != ENOENT) return errno;
  if (calls_.fstatat(from.at(), from.c_name(), &facts, AT_SYMLINK_NOFOLLOW) != 0) return errno;
  const int error = ByHardLink(from, to, facts);
  return LacksHardLinks(error) ? OverPlaceholder(from, to, facts) : error;
}

/// An error of the unlink is told as EBUSY: it must not look like a missing ability to link.
int RenameNoReplace::ByHardLink(const Place& from, const Place& to, const struct stat& source) {
  const int error =
      ErrorOf([&] { return calls_.linkat(from.at(), from.c_name(), to.at(), to.c_name(), 0); });
  if (error != 0) return error;
  if (Uninterrupted([&] { return calls_.unlinkat(from.at(), from.c_name(), 0); }) == 0) return 0;
  TakeBack(calls_, to, source);
  return EBUSY;
}

int RenameNoReplace::OverPlaceholder(const Place& from, const Place& to,
                                     const struct stat& source) {
  return S_ISDIR(source.st_mode) ? FolderOverPlaceholder(from, to) : FileOverPlaceholder(from, to);
}

int RenameNoReplace::FileOverPlaceholder(const Place& from, const Place& to) {
  const FileHandle placeholder(Uninterrupted([&] {
    return calls_.openat(to.at(), to.c_name(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC,
                         0600);
  }));
  if (!placeholder) return errno;
  const int error =
      ErrorOf([&] { return calls_.renameat(from.at(), from.c_name(), to.at(), to.c_name()); });
  if (error == 0) return 0;
  struct stat facts;
  if (calls_.fstat(placeholder.get(), &facts) == 0 && facts.st_size == 0) {
    TakeBack(calls_, to, facts);
  }
  return error;
}

/// A folder goes over an empty folder only, and rmdir takes only an empty one: both are safe.
int RenameNoReplace::FolderOverPlaceholder(const Place& from, const Place& to) {
  if (::mkdirat(to.at(), to.c_name(), 0700) != 0) return errno;
  const int error =
      ErrorOf([&] { return calls_.renameat(from.at(), from.c_name(), to.at(), to.c_name()); });
  if (error != 0) calls_.unlinkat(to.at(), to.c_name(), AT_REMOVEDIR);
  return error;
}

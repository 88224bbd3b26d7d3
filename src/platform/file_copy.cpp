#include "platform/file_copy.h"

#include <fcntl.h>

#include "platform/file_attributes.h"
#include "platform/temporary_name.h"

namespace {

constexpr int kNoSuchWay = -1;  // beside the errno values: try with a name
constexpr off_t kSyncedAtOnce = 16 * 1024 * 1024;

/// open(2): EOPNOTSUPP where the file system has no O_TMPFILE, EISDIR or ENOENT where the kernel
/// has none.
bool LacksNamelessFiles(int error) {
  return error == EOPNOTSUPP || error == EISDIR || error == ENOENT || error == EINVAL ||
         error == ENOSYS;
}

/// What linking a file without a name answers where that can't be, no /proc included.
bool LacksNaming(int error) {
  return error == EPERM || error == EOPNOTSUPP || error == ENOSYS || error == EMLINK ||
         error == EINVAL || error == ENOENT || error == EACCES || error == EXDEV;
}

}  // namespace

FileIdentity IdentityOf(const struct stat& facts) {
  return {facts.st_dev, facts.st_ino, static_cast<std::uint64_t>(facts.st_size),
          std::int64_t{facts.st_mtim.tv_sec} * 1'000'000'000 + facts.st_mtim.tv_nsec};
}

int FileCopy::Copy(const Place& from, const Place& to, Purpose purpose, const GoOn& go_on,
                   CopyIdentities& copied) {
  FileHandle source;
  struct stat facts;
  if (const int error = OpenSource(from, purpose, source, facts)) return error;
  struct stat taken;
  if (calls_.fstatat(to.at(), to.c_name(), &taken, AT_SYMLINK_NOFOLLOW) == 0) return EEXIST;
  if (errno != ENOENT) return errno;

  copied.source = IdentityOf(facts);
  return CopyOpened(source.get(), facts, to, purpose, go_on, copied.made);
}

/// O_NONBLOCK: a fifo without a writer must not hold us up (fifo(7)).
int FileCopy::OpenSource(const Place& from, Purpose purpose, FileHandle& file, struct stat& facts) {
  const int follow = purpose == Purpose::kMove ? O_NOFOLLOW : 0;
  file = FileHandle(Uninterrupted([&] {
    return calls_.openat(from.at(), from.c_name(),
                         O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC | follow, 0);
  }));
  if (!file || calls_.fstat(file.get(), &facts) != 0) return errno;
  return S_ISREG(facts.st_mode) ? 0 : EINVAL;
}

int FileCopy::CopyOpened(int from, const struct stat& source, const Place& to, Purpose purpose,
                         const GoOn& go_on, FileIdentity& made) {
  const std::uint64_t device = to.folder->device;
  if (!without_nameless_.Has(device)) {
    const int error = CopyBy(Way::kNameless, from, source, to, purpose, go_on, made);
    if (error != kNoSuchWay) return error;
  }
  const int error = CopyBy(Way::kNamed, from, source, to, purpose, go_on, made);
  if (error == 0) without_nameless_.Add(device);  // only then was it the way's fault
  return error;
}

int FileCopy::CopyBy(Way way, int from, const struct stat& source, const Place& to, Purpose purpose,
                     const GoOn& go_on, FileIdentity& made) {
  Target target;
  if (const int error = OpenTarget(way, to, target)) return error;
  const int file = target.file.get();
  struct stat facts = {};
  int error = Fill(from, source, file, purpose, go_on);
  if (error == 0 && calls_.fstat(file, &facts) != 0) error = errno;
  if (error == 0) error = GiveName(target, to);
  if (error != 0) {
    if (target.temporary && ::fstat(file, &facts) == 0) TakeBack(calls_, target.temporary, facts);
    return error;
  }
  if (purpose == Purpose::kMove) error = SyncFolder(to, file);
  if (error != 0) TakeBack(calls_, to, facts);
  made = IdentityOf(facts);
  return error;
}

int FileCopy::OpenTarget(Way way, const Place& to, Target& target) {
  if (way == Way::kNamed) return OpenNamed(to, target);
  target.file = FileHandle(Uninterrupted(
      [&] { return calls_.openat(to.at(), ".", O_TMPFILE | O_WRONLY | O_CLOEXEC, 0600); }));
  if (target.file) return 0;
  return LacksNamelessFiles(errno) ? kNoSuchWay : errno;
}

int FileCopy::OpenNamed(const Place& to, Target& target) {
  for (;;) {
    target.temporary = {to.folder, NextTemporaryName()};
    target.file = FileHandle(Uninterrupted([&] {
      return calls_.openat(to.at(), target.temporary.c_name(),
                           O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600);
    }));
    if (target.file) return 0;
    if (errno != EEXIST) return errno;  // else a process before us had our number, and was killed
  }
}

int FileCopy::Fill(int from, const struct stat& source, int to, Purpose purpose,
                   const GoOn& go_on) {
  // A move syncs as it goes: one sync at the end would leave "Cancel" unheard while gigabytes go
  // to a slow medium.
  off_t synced = 0;
  const GoOn synced_go_on = [&] {
    struct stat written;
    if (calls_.fstat(to, &written) == 0 && written.st_size - synced >= kSyncedAtOnce) {
      synced = written.st_size;
      if (calls_.fsync(to) != 0) return false;
    }
    return !go_on || go_on();
  };
  const GoOn& between = purpose == Purpose::kMove ? synced_go_on : go_on;
  if (const int error = data_.Copy(from, to, source, between)) return error;
  struct stat now;
  if (calls_.fstat(from, &now) != 0) return errno;
  if (IdentityOf(now) != IdentityOf(source)) return ESTALE;
  const bool keep_owner = purpose == Purpose::kMove;
  if (const int error = CopyAttributes(calls_, from, to, source, keep_owner)) return error;
  return Finish(to, purpose);
}

/// File systems behind a server or in user space keep an error of writing for the close
/// (close(2)); closing a second handle asks for it while there is still something to drop.
int FileCopy::Finish(int file, Purpose purpose) {
  if (purpose == Purpose::kMove) {
    if (const int error = ErrorOf([&] { return calls_.fsync(file); })) return error;
  }
  const int second = ::fcntl(file, F_DUPFD_CLOEXEC, 0);
  if (second < 0) return errno;
  return calls_.close(second) == 0 ? 0 : errno;
}

int FileCopy::GiveName(const Target& target, const Place& to) {
  if (target.temporary) return rename_(target.temporary, to);
  // The way for all users to name a file made by O_TMPFILE (open(2)).
  const std::string self = "/proc/self/fd/" + std::to_string(target.file.get());
  const int error = ErrorOf([&] {
    return calls_.linkat(AT_FDCWD, self.c_str(), to.at(), to.c_name(), AT_SYMLINK_FOLLOW);
  });
  return LacksNaming(error) ? kNoSuchWay : error;
}

/// A folder that we may write but not read can't be synced by itself; then its file system is.
int FileCopy::SyncFolder(const Place& to, int file) {
  const FileHandle folder(Uninterrupted(
      [&] { return calls_.openat(to.at(), ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC, 0); }));
  if (!folder) return ErrorOf([&] { return ::syncfs(file); });
  const int error = ErrorOf([&] { return calls_.fsync(folder.get()); });
  return error == EINVAL ? 0 : error;  // fsync(2): it has no such thing for folders
}

#include "platform/posix/file_copy.h"

#include <fcntl.h>

#include "platform/posix/file_attributes.h"
#include "platform/posix/temporary_name.h"

namespace {

constexpr int kNoSuchWay = -1000;  // no errno and no FileProblem: try with a name
constexpr std::uint64_t kSyncedAtOnce = 16 * 1024 * 1024;
constexpr std::uint64_t kWrittenUnasked = 64 * 1024;

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

int FileCopy::Copy(const Place& from, const Place& to, Purpose purpose, const GoOn& go_on,
                   CopyIdentities& copied) {
  FileHandle source;
  struct statx facts;
  if (const int error = OpenSource(from, purpose, source, facts)) return error;
  // A little is sooner written than asked for; that the name is taken shows when it is given.
  if (facts.stx_size > kWrittenUnasked) {
    struct statx taken;
    const int looked = LookAt(calls_, to, taken);
    if (looked != ENOENT) return looked == 0 ? EEXIST : looked;
  }

  copied.source = IdentityOf(facts);
  return CopyOpened(source.get(), facts, to, purpose, go_on, copied.made);
}

/// O_NONBLOCK: a fifo without a writer must not hold us up (fifo(7)).
int FileCopy::OpenSource(const Place& from, Purpose purpose, FileHandle& file,
                         struct statx& facts) {
  const int follow = purpose == Purpose::kMove ? O_NOFOLLOW : 0;
  file = FileHandle(Uninterrupted([&] {
    return calls_.openat(from.at(), from.c_name(),
                         O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC | follow, 0);
  }));
  if (!file) return errno;
  if (const int error = LookInto(calls_, file.get(), facts)) return error;
  return S_ISREG(facts.stx_mode) ? 0 : ENXIO;  // as open(2) for a socket
}

int FileCopy::CopyOpened(int from, const struct statx& source, const Place& to, Purpose purpose,
                         const GoOn& go_on, FileIdentity& made) {
  const std::uint64_t device = to.folder->identity.device;
  if (!without_nameless_.Has(device)) {
    const int error = CopyBy(Way::kNameless, from, source, to, purpose, go_on, made);
    if (error != kNoSuchWay) return error;
  }
  const int error = CopyBy(Way::kNamed, from, source, to, purpose, go_on, made);
  if (error == 0) without_nameless_.Add(device);  // only then was it the way's fault
  return error;
}

int FileCopy::CopyBy(Way way, int from, const struct statx& source, const Place& to,
                     Purpose purpose, const GoOn& go_on, FileIdentity& made) {
  Target target;
  if (const int error = OpenTarget(way, source, to, target)) return error;
  const int file = target.file.get();
  struct statx facts = {};
  int error = Fill(from, source, file, purpose, go_on, facts);
  // A server may set the time of writing when it gets the last of it.
  if (error == 0 && !AnswersOnce(calls_, *to.folder)) error = LookInto(calls_, file, facts);
  if (error == 0 && watch) watch({IdentityOf(source), IdentityOf(facts)});
  if (error == 0) error = GiveName(target, facts, to);
  if (error != 0) {
    Drop(target);
    return error;
  }
  made = IdentityOf(facts);
  if (purpose == Purpose::kMove) error = SyncFolder(to, file);
  if (error != 0) names_.Remove(to, made, Match::kUnwritten);
  return error;
}

/// Nobody can reach a file without a name, so it is opened with the mode that it shall have; but
/// attributes are only for who may write.
int FileCopy::OpenTarget(Way way, const struct statx& source, const Place& to, Target& target) {
  if (way == Way::kNamed) return OpenNamed(to, target);
  target.file = FileHandle(Uninterrupted([&] {
    const mode_t mode = (source.stx_mode & 0777) | 0600;
    return calls_.openat(to.at(), ".", O_TMPFILE | O_WRONLY | O_CLOEXEC, mode);
  }));
  if (target.file) return 0;
  return LacksNamelessFiles(errno) ? kNoSuchWay : errno;
}

int FileCopy::OpenNamed(const Place& to, Target& target) {
  const int error = WithTemporaryName(to.folder, target.temporary, [&] {
    target.file = FileHandle(Uninterrupted([&] {
      return calls_.openat(to.at(), target.temporary.c_name(),
                           O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600);
    }));
    return target.file ? 0 : errno;
  });
  if (error != 0 && error != EEXIST) names_.RemoveUncertain(target.temporary);
  return error;
}

void FileCopy::Drop(const Target& target) {
  struct statx facts;
  if (target.temporary && LookInto(calls_, target.file.get(), facts) == 0) {
    names_.Remove(target.temporary, IdentityOf(facts), Match::kSameFile);
  }
}

/// A move syncs as it goes: one sync at the end would leave "Cancel" unheard while gigabytes go to
/// a slow medium.
int FileCopy::CopyAndSync(int from, const struct statx& source, int to, const GoOn& go_on) {
  std::uint64_t synced = 0;
  int failed = 0;
  const GoOn sync_between = [&] {
    struct statx written;
    if (LookInto(calls_, to, written) == 0 && written.stx_size - synced >= kSyncedAtOnce) {
      synced = written.stx_size;
      failed = ErrorOf([&] { return calls_.fsync(to); });
    }
    return failed == 0 && (!go_on || go_on());
  };
  const int error = data_.Copy(from, to, source, sync_between);
  return failed != 0 ? failed : error;
}

/// `made` takes the facts of the copy; only its mode may be another by then.
int FileCopy::Fill(int from, const struct statx& source, int to, Purpose purpose, const GoOn& go_on,
                   struct statx& made) {
  const bool moves = purpose == Purpose::kMove;
  const int copied =
      moves ? CopyAndSync(from, source, to, go_on) : data_.Copy(from, to, source, go_on);
  if (copied != 0) return copied;
  struct statx now;
  if (const int error = LookInto(calls_, from, now)) return error;
  if (IdentityOf(now) != IdentityOf(source)) return kSourceChanged;
  if (const int error = CopyAttributes(calls_, from, to, source, moves)) return error;
  if (const int error = LookInto(calls_, to, made)) return error;
  if (const int error = GiveMode(calls_, to, made, source)) return error;
  return Finish(to, purpose);
}

/// File systems behind a server or in user space keep an error of writing for the close
/// (close(2)); closing a second handle asks for it while there is still something to drop. An
/// interrupted close has closed all the same, so it is asked with another.
int FileCopy::Finish(int file, Purpose purpose) {
  if (purpose == Purpose::kMove) {
    if (const int error = ErrorOf([&] { return calls_.fsync(file); })) return error;
  }
  return ErrorOf([&] {
    const int second = Uninterrupted([&] { return calls_.dup(file); });
    return second == -1 ? -1 : calls_.close(second);
  });
}

int FileCopy::GiveName(const Target& target, const struct statx& facts, const Place& to) {
  if (target.temporary) return names_.Rename(target.temporary, to, facts);
  const int error = Link(target.file.get(), to);
  if (error == 0 || StandingAt(calls_, to, IdentityOf(facts)) == Standing::kThatFile) return 0;
  return LacksNaming(error) ? kNoSuchWay : error;
}

/// The short way is for all users since Linux 6.10, before only for some: to others the file seems
/// not to be there. The long one is for all that see /proc (open(2)).
int FileCopy::Link(int file, const Place& to) {
  if (links_by_handle_) {
    const int error =
        ErrorOf([&] { return calls_.linkat(file, "", to.at(), to.c_name(), AT_EMPTY_PATH); });
    if (error != ENOENT) return error;
    links_by_handle_ = false;
  }
  const std::string self = "/proc/self/fd/" + std::to_string(file);
  return ErrorOf([&] {
    return calls_.linkat(AT_FDCWD, self.c_str(), to.at(), to.c_name(), AT_SYMLINK_FOLLOW);
  });
}

/// A folder that we may write but not read can't be synced by itself; then its file system is.
int FileCopy::SyncFolder(const Place& to, int file) {
  const FileHandle folder(Uninterrupted(
      [&] { return calls_.openat(to.at(), ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC, 0); }));
  if (!folder) return ErrorOf([&] { return calls_.syncfs(file); });
  const int error = ErrorOf([&] { return calls_.fsync(folder.get()); });
  return error == EINVAL ? 0 : error;  // fsync(2): it has no such thing for folders
}

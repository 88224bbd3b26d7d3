#include "platform/posix/entry_names.h"

#include <fcntl.h>
#include <stdio.h>

#include "platform/posix/temporary_name.h"

namespace {

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

/// A second name may need room in the folder. To delete must work on a full disk all the same.
bool LacksRoom(int error) {
  return error == ENOSPC || error == EDQUOT;
}

}  // namespace

int EntryNames::Rename(const Place& from, const Place& to, const struct statx& source) {
  return RenameBy(Ways::kAll, from, to, source);
}

int EntryNames::RenameUnseen(const Place& from, const Place& to) {
  if (without_flag_.Has(to.folder->identity.device)) return ENOSYS;
  const bool done =
      calls_.renameat2(from.at(), from.c_name(), to.at(), to.c_name(), RENAME_NOREPLACE) == 0;
  return done ? 0 : errno;
}

/// renameat2(2): EINVAL where the file system has no such flag, ENOSYS where the kernel has no
/// such call; FUSE answers EOPNOTSUPP too.
bool EntryNames::LacksTheCall(int error) {
  return error == EINVAL || error == ENOSYS || error == EOPNOTSUPP;
}

/// A name that is taken is left over from a process that had our number before.
int EntryNames::RenameAside(const Place& from, const struct statx& source, Place& aside) {
  return WithTemporaryName(from.folder, aside,
                           [&] { return RenameBy(Ways::kRenaming, from, aside, source); });
}

int EntryNames::RenameBy(Ways ways, const Place& from, const Place& to,
                         const struct statx& source) {
  const std::uint64_t device = to.folder->identity.device;
  if (without_flag_.Has(device)) return WithoutTheFlag(ways, from, to, source);
  int error = EINTR;
  while (error == EINTR) error = RenameUnseen(from, to);
  if (error == 0 || WasRenamed(from, to, source)) return 0;
  if (!LacksTheCall(error)) return error;
  // EINVAL also means a folder moved into itself, so only a fallback that works is remembered.
  const int fallback = WithoutTheFlag(ways, from, to, source);
  if (fallback == 0) without_flag_.Add(device);
  return fallback;
}

/// Where letter case is ignored both names lead to the file, before and after; that is for the
/// caller to tell, who knows the names.
bool EntryNames::WasRenamed(const Place& from, const Place& to, const struct statx& source) {
  const FileIdentity file = IdentityOf(source);
  return StandingAt(calls_, from, file) == Standing::kNothing &&
         StandingAt(calls_, to, file) == Standing::kThatFile;
}

int EntryNames::WithoutTheFlag(Ways ways, const Place& from, const Place& to,
                               const struct statx& source) {
  struct statx taken;
  const int looked = LookAt(calls_, to, taken);
  if (looked != ENOENT) return looked == 0 ? EEXIST : looked;
  if (ways == Ways::kRenaming || S_ISDIR(source.stx_mode)) {
    return OverPlaceholder(ways, from, to, source);
  }
  const int error = Link(from, to, source);
  if (error == 0) return UnlinkOld(from, to, source);
  return LacksHardLinks(error) ? OverPlaceholder(ways, from, to, source) : error;
}

int EntryNames::Link(const Place& from, const Place& to, const struct statx& source) {
  const int error =
      ErrorOf([&] { return calls_.linkat(from.at(), from.c_name(), to.at(), to.c_name(), 0); });
  if (error == 0) return 0;
  const bool linked = StandingAt(calls_, to, IdentityOf(source)) == Standing::kThatFile;
  return linked ? 0 : error;
}

/// The new name goes again only while the old one is seen to be there.
int EntryNames::UnlinkOld(const Place& from, const Place& to, const struct statx& source) {
  const FileIdentity file = IdentityOf(source);
  const int error = Remove(from, file, Match::kSameFile);
  if (error == 0) return 0;
  const Standing old = StandingAt(calls_, from, file);
  if (old == Standing::kNothing) return 0;
  if (old == Standing::kThatFile) Remove(to, file, Match::kSameFile);
  return error;
}

/// A folder goes over an empty folder only, and a file over a file that nobody wrote to.
int EntryNames::OverPlaceholder(Ways ways, const Place& from, const Place& to,
                                const struct statx& source) {
  FileIdentity placeholder;
  if (const int error = MakePlaceholder(to, S_ISDIR(source.stx_mode), placeholder)) return error;
  const int error =
      ErrorOf([&] { return calls_.renameat(from.at(), from.c_name(), to.at(), to.c_name()); });
  if (error == 0 || WasRenamed(from, to, source)) return 0;
  struct statx facts;
  if (ways == Ways::kAll) {
    Remove(to, placeholder, Match::kUnwritten);
  } else if (LookFor(to, placeholder, Match::kUnwritten, facts) == 0) {
    Unlink(to, facts);
  }
  return error;
}

int EntryNames::MakePlaceholder(const Place& at, bool folder, FileIdentity& made) {
  FileHandle file;
  int error = folder ? ErrorOf([&] { return calls_.mkdirat(at.at(), at.c_name(), 0700); })
                     : MakeEmptyFile(at, file);
  if (error == EEXIST) return error;
  struct statx facts;
  if (error == 0) error = folder ? LookAt(calls_, at, facts) : LookInto(calls_, file.get(), facts);
  if (error == 0) {
    made = IdentityOf(facts);
  } else if (error != EMFILE && error != ENFILE && error != ENOMEM) {  // those made nothing
    RemoveUncertain(at);
  }
  return error;
}

int EntryNames::MakeEmptyFile(const Place& at, FileHandle& file) {
  constexpr int kHow = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
  file = FileHandle(Uninterrupted([&] { return calls_.openat(at.at(), at.c_name(), kHow, 0600); }));
  return file ? 0 : errno;
}

int EntryNames::Remove(const Place& place, const FileIdentity& wanted, Match match) {
  struct statx facts;
  if (const int error = LookFor(place, wanted, match, facts)) return error;
  if (IsOwnTemporaryName(place.name)) return Unlink(place, facts);
  Place aside;
  const int error = RenameAside(place, facts, aside);
  if (LacksRoom(error)) return Unlink(place, facts);
  if (error != 0) return error;
  int removed = LookFor(aside, wanted, match, facts);
  if (removed == 0) removed = Unlink(aside, facts);
  if (removed != 0) RenameBy(Ways::kRenaming, aside, place, facts);
  return removed;
}

void EntryNames::RemoveUncertain(const Place& place) {
  struct statx facts;
  if (LookAt(calls_, place, facts) != 0) return;
  const bool empty_file = S_ISREG(facts.stx_mode) && facts.stx_size == 0;
  const bool link = S_ISLNK(facts.stx_mode) && IsOwnTemporaryName(place.name);
  if (empty_file || link || S_ISDIR(facts.stx_mode)) Unlink(place, facts);
}

/// `facts` are those of what stands there, wanted or not, and as before when it can't be seen.
int EntryNames::LookFor(const Place& place, const FileIdentity& wanted, Match match,
                        struct statx& facts) {
  struct statx now;
  if (const int error = LookAt(calls_, place, now)) return error;
  facts = now;
  const FileIdentity seen = IdentityOf(facts);
  const bool fits = match == Match::kSameFile ? IsSameFile(seen, wanted) : seen == wanted;
  return fits ? 0 : kSourceChanged;
}

int EntryNames::Unlink(const Place& place, const struct statx& facts) {
  const int how = S_ISDIR(facts.stx_mode) ? AT_REMOVEDIR : 0;
  const int error = ErrorOf([&] { return calls_.unlinkat(place.at(), place.c_name(), how); });
  if (error == 0) return 0;
  const bool gone = StandingAt(calls_, place, IdentityOf(facts)) == Standing::kNothing;
  return gone ? 0 : error;
}

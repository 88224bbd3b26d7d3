#include "platform/posix/file_move.h"

#include <fcntl.h>
#include <limits.h>

#include <string>

#include "platform/posix/folder_listing.h"
#include "platform/posix/temporary_name.h"
#include "platform/text.h"

namespace {

bool InOneFolder(const Place& from, const Place& to) {
  return from.folder->IsSameAs(*to.folder);
}

/// False when no file system takes the two for one entry. True says nothing.
bool MayBeOne(const Place& from, const Place& to) {
  if (!InOneFolder(from, to)) return false;
  if (text::IsAscii(from.name) && text::IsAscii(to.name)) {
    return text::EqualIgnoringCase(from.name, to.name);
  }
  return text::NameKey(from.name) == text::NameKey(to.name);
}

}  // namespace

int FileMove::AtOnce(const Place& from, const Place& to, Fingerprint known) {
  const bool itself = from.name == to.name && InOneFolder(from, to);
  if (itself || !AnswersOnce(calls_, *to.folder)) return kNotAtOnce;
  const int error = names_.RenameUnseen(from, to);
  if (error == 0) return MayBeOne(from, to) ? Settle(from, to) : 0;
  struct statx facts;
  const int looked = LookAt(calls_, from, facts);
  // ENOENT is answered before anything is done; all others when the source has been found.
  if (looked == ENOENT && error != ENOENT && Stands(to, known)) return 0;
  const bool looks_first = error == EXDEV || error == EINTR || EntryNames::LacksTheCall(error) ||
                           (error == EEXIST && MayBeOne(from, to));
  return looks_first ? kNotAtOnce : looked != 0 ? looked : error;
}

/// Some file systems that ignore letter case answer 0 and do nothing.
int FileMove::Settle(const Place& from, const Place& to) {
  switch (CompareEntries(calls_, from, to)) {
    case NamePair::kOneAsInFirst:
      return kNotAtOnce;
    case NamePair::kUnknown:
      return IsListed(calls_, *to.folder, to.name) == 0 ? 0 : kNotAtOnce;
    default:
      return 0;
  }
}

bool FileMove::Stands(const Place& place, Fingerprint known) {
  struct statx facts;
  return LookAt(calls_, place, facts) == 0 && FingerprintOf(facts) == known;
}

int FileMove::Move(const Place& from, const Place& to, const GoOn& go_on, Fingerprint& moved) {
  struct statx source;
  if (const int error = LookAt(calls_, from, source)) return error;
  moved = FingerprintOf(source);
  if (from.name == to.name && InOneFolder(from, to)) return 0;
  const int error = names_.Rename(from, to, source);
  if (error == EXDEV) {
    const int failed = ToOtherDevice(from, to, source, go_on);
    moved = LookAt(calls_, to, source) == 0 ? FingerprintOf(source) : 0;
    return failed;
  }
  // Some file systems that ignore letter case refuse a change of it, some answer 0 and do nothing.
  if (!MayBeOne(from, to)) return error;
  const NamePair names = CompareEntries(calls_, from, to);
  if (names == NamePair::kOneAsInSecond) return 0;
  const bool refused = error == 0 || error == EEXIST;
  if (names == NamePair::kOneAsInFirst) return refused ? InTwoSteps(from, to, source) : error;
  if (names != NamePair::kUnknown || error != 0) return error;
  const int again = InTwoSteps(from, to, source);
  return again == ENOENT ? 0 : again;  // no old name: it was as it said
}

/// A plain rename between two forms of one name may answer 0 and do nothing, so by way of a third.
int FileMove::InTwoSteps(const Place& from, const Place& to, const struct statx& source) {
  Place aside;
  if (const int error = names_.RenameAside(from, source, aside)) return error;
  const int error = names_.Rename(aside, to, source);
  if (error != 0) names_.Rename(aside, from, source);
  return error;
}

int FileMove::ToOtherDevice(const Place& from, const Place& to, const struct statx& source,
                            const GoOn& go_on) {
  CopyIdentities copied;
  if (S_ISREG(source.stx_mode)) {
    const int error = copy_.Copy(from, to, FileCopy::Purpose::kMove, go_on, copied);
    if (error != 0) return error;
  } else if (S_ISLNK(source.stx_mode)) {
    struct statx made;
    if (const int error = MakeLink(from, source, to, made)) return error;
    copied = {IdentityOf(source), IdentityOf(made)};
  } else {
    return EXDEV;
  }
  return RemoveSource(from, to, copied);
}

/// Made under a temporary name, so that it is known for ours before it takes its own.
int FileMove::MakeLink(const Place& from, const struct statx& source, const Place& to,
                       struct statx& made) {
  std::string leads_to(PATH_MAX, '\0');
  const ssize_t size = Uninterrupted([&] {
    return calls_.readlinkat(from.at(), from.c_name(), leads_to.data(), leads_to.size() - 1);
  });
  if (size < 0) return errno;
  leads_to.resize(static_cast<std::size_t>(size));

  Place aside;
  const int failed = WithTemporaryName(to.folder, aside, [&] {
    return ErrorOf([&] { return calls_.symlinkat(leads_to.c_str(), aside.at(), aside.c_name()); });
  });
  if (failed == EEXIST) return failed;
  const FileTimes times = TimesOf(source);  // not all can keep them; no loss
  Uninterrupted([&] {
    return calls_.utimensat(aside.at(), aside.c_name(), times.data(), AT_SYMLINK_NOFOLLOW);
  });
  int error = LookAt(calls_, aside, made);
  if (error == 0 && copy_.watch) copy_.watch({IdentityOf(source), IdentityOf(made)});
  if (error == 0) error = names_.Rename(aside, to, made);
  if (error != 0) names_.RemoveUncertain(aside);
  return failed != 0 && error != 0 ? failed : error;
}

/// Somebody may have written to it, or put another in its place, while it was copied. The copy goes
/// again only while the source is seen to be there.
int FileMove::RemoveSource(const Place& from, const Place& to, const CopyIdentities& copied) {
  const Standing copy = StandingAt(calls_, to, copied.made);
  const bool stands = copy == Standing::kThatFile;
  const int error = stands ? names_.Remove(from, copied.source, Match::kUnwritten) : EBUSY;
  if (error == 0) return 0;
  const Standing source = StandingAt(calls_, from, copied.source);
  if (stands && source == Standing::kNothing) return 0;
  if (source == Standing::kThatFile) names_.Remove(to, copied.made, Match::kUnwritten);
  return error;
}

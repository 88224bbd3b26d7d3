#include "platform/file_move.h"

#include <fcntl.h>
#include <limits.h>

#include <algorithm>
#include <string>

#include "platform/folder_listing.h"
#include "platform/temporary_name.h"

namespace {

char LowerAscii(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

/// False when no file system takes the two names for one: both ASCII, and other letters. True
/// says nothing.
bool MayBeOneName(const std::string& a, const std::string& b) {
  const auto beyond_ascii = [](char c) { return (c & 0x80) != 0; };
  if (std::any_of(a.begin(), a.end(), beyond_ascii) ||
      std::any_of(b.begin(), b.end(), beyond_ascii)) {
    return true;
  }
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char x, char y) { return LowerAscii(x) == LowerAscii(y); });
}

}  // namespace

int FileMove::Move(const Place& from, const Place& to, const GoOn& go_on) {
  struct stat facts;
  const bool same_folder = from.folder->IsSameAs(*to.folder);
  if (same_folder && from.name == to.name) {
    return calls_.fstatat(from.at(), from.c_name(), &facts, AT_SYMLINK_NOFOLLOW) == 0 ? 0 : errno;
  }
  const int error = rename_(from, to);
  switch (error) {
    case 0:
      return same_folder && KeptItsName(from, to) ? InTwoSteps(from, to) : 0;
    case EEXIST:
      return same_folder && IsSameEntry(from, to) ? InTwoSteps(from, to) : EEXIST;
    case EXDEV:
      return ToOtherDevice(from, to, go_on);
    default:
      return error;
  }
}

/// Two names that lead to one inode are one entry if only one of them is listed; if both are,
/// they are hard links and two files to the user.
bool FileMove::IsSameEntry(const Place& from, const Place& to) {
  struct stat facts;
  return calls_.fstatat(from.at(), from.c_name(), &facts, AT_SYMLINK_NOFOLLOW) == 0 &&
         HoldsInode(calls_, to, facts) && IsListed(calls_, *to.folder, to.name) == ENOENT;
}

/// Some file systems that ignore letter case answer 0 to a change of it and do nothing.
bool FileMove::KeptItsName(const Place& from, const Place& to) {
  return MayBeOneName(from.name, to.name) && IsSameEntry(from, to);
}

/// A plain rename between two forms of one name may answer 0 and do nothing, so by way of a third.
int FileMove::InTwoSteps(const Place& from, const Place& to) {
  const Place aside{from.folder, NextTemporaryName()};
  if (const int error = rename_(from, aside)) return error;
  const int error = rename_(aside, to);
  if (error != 0) rename_(aside, from);
  return error;
}

int FileMove::ToOtherDevice(const Place& from, const Place& to, const GoOn& go_on) {
  struct stat facts;
  if (calls_.fstatat(from.at(), from.c_name(), &facts, AT_SYMLINK_NOFOLLOW) != 0) return errno;
  if (S_ISREG(facts.st_mode)) return FileToOtherDevice(from, to, go_on);
  if (S_ISLNK(facts.st_mode)) return LinkToOtherDevice(from, to, facts);
  return EXDEV;
}

int FileMove::FileToOtherDevice(const Place& from, const Place& to, const GoOn& go_on) {
  CopyIdentities copied;
  if (const int error = copy_.Copy(from, to, FileCopy::Purpose::kMove, go_on, copied)) return error;
  const int error = RemoveSource(from, copied.source);
  if (error == 0) return 0;
  struct stat now;
  if (calls_.fstatat(to.at(), to.c_name(), &now, AT_SYMLINK_NOFOLLOW) == 0 &&
      IdentityOf(now) == copied.made) {
    calls_.unlinkat(to.at(), to.c_name(), 0);
  }
  return error;
}

int FileMove::LinkToOtherDevice(const Place& from, const Place& to, const struct stat& source) {
  std::string leads_to(PATH_MAX, '\0');
  const ssize_t size = ::readlinkat(from.at(), from.c_name(), leads_to.data(), leads_to.size() - 1);
  if (size < 0) return errno;
  leads_to.resize(static_cast<std::size_t>(size));
  if (::symlinkat(leads_to.c_str(), to.at(), to.c_name()) != 0) return errno;
  struct stat made;
  if (calls_.fstatat(to.at(), to.c_name(), &made, AT_SYMLINK_NOFOLLOW) != 0) return errno;
  const struct timespec times[2] = {source.st_atim, source.st_mtim};
  ::utimensat(to.at(), to.c_name(), times, AT_SYMLINK_NOFOLLOW);  // not all can; no loss
  const int error = RemoveSource(from, IdentityOf(source));
  if (error != 0) TakeBack(calls_, to, made);
  return error;
}

/// Somebody may have written to it, or put another in its place, while it was copied.
int FileMove::RemoveSource(const Place& from, const FileIdentity& source) {
  struct stat now;
  if (calls_.fstatat(from.at(), from.c_name(), &now, AT_SYMLINK_NOFOLLOW) != 0) return errno;
  if (IdentityOf(now) != source) return ESTALE;
  return ErrorOf([&] { return calls_.unlinkat(from.at(), from.c_name(), 0); });
}

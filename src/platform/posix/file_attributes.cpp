#include "platform/posix/file_attributes.h"

#include <sys/xattr.h>

#include <string>
#include <string_view>

#include "platform/posix/entry_facts.h"

namespace {

constexpr std::string_view kAccessList = "system.posix_acl_access";  // acl(5)

/// We made the file, so EPERM says that its file system knows no such thing: FAT answers so to a
/// mode that it can't hold.
bool NotSupported(int error) {
  return error == EOPNOTSUPP || error == ENOSYS || error == EPERM;
}

/// Attributes that are the user's must arrive; those that the system keeps for itself (labels,
/// checksums) are tried, and are often not ours to set (xattr(7)).
bool MustArrive(std::string_view name) {
  return name.starts_with("user.") || name == kAccessList;
}

/// The answer of a call that fills a buffer and tells the size when asked with none.
template <class Call>
int ReadWhole(std::string& into, Call call) {
  for (;;) {
    const ssize_t size = Uninterrupted([&] { return call(nullptr, 0); });
    if (size < 0) return errno;
    into.resize(static_cast<std::size_t>(size));
    if (size == 0) return 0;
    const ssize_t filled = Uninterrupted([&] { return call(into.data(), into.size()); });
    if (filled >= 0) {
      into.resize(static_cast<std::size_t>(filled));
      return 0;
    }
    if (errno != ERANGE) return errno;  // it grew between the two
  }
}

int CopyAttribute(const Syscalls& calls, int from, int to, const char* name, std::string& value) {
  const int read = ReadWhole(value, [&](char* buffer, std::size_t size) {
    return calls.fgetxattr(from, name, buffer, size);
  });
  if (read == ENODATA) return 0;
  if (read != 0) return MustArrive(name) ? read : 0;
  const int error = ErrorOf([&] { return calls.fsetxattr(to, name, value.data(), value.size()); });
  return MustArrive(name) && !NotSupported(error) ? error : 0;
}

int CopyExtended(const Syscalls& calls, int from, int to) {
  std::string names;
  const int error = ReadWhole(
      names, [&](char* buffer, std::size_t size) { return calls.flistxattr(from, buffer, size); });
  if (error != 0) return NotSupported(error) ? 0 : error;
  bool has_access_list = false;
  std::string value;
  for (std::size_t at = 0; at < names.size(); at = names.find('\0', at) + 1) {
    const char* name = names.c_str() + at;
    has_access_list |= name == kAccessList;
    if (const int failed = CopyAttribute(calls, from, to, name, value)) return failed;
  }
  // The target folder's default list must not open the copy to more people than the original.
  if (has_access_list) return 0;
  const int own = ErrorOf([&] { return calls.fgetxattr(to, kAccessList.data(), nullptr, 0); });
  if (own != 0) return own == ENODATA || NotSupported(own) ? 0 : own;
  return ErrorOf([&] { return calls.fremovexattr(to, kAccessList.data()); });
}

void GiveOwner(const Syscalls& calls, int to, const struct statx& source) {
  const auto give = [&](uid_t owner) {
    return ErrorOf([&] { return calls.fchown(to, owner, source.stx_gid); });
  };
  if (give(source.stx_uid) != 0) give(static_cast<uid_t>(-1));  // as far as we may
}

}  // namespace

int CopyAttributes(const Syscalls& calls, int from, int to, const struct statx& source,
                   bool keep_owner) {
  if (keep_owner) GiveOwner(calls, to, source);
  if (const int error = CopyExtended(calls, from, to)) return error;
  const FileTimes times = TimesOf(source);
  const int timed = ErrorOf([&] { return calls.futimens(to, times.data()); });
  return NotSupported(timed) ? 0 : timed;
}

/// "Runs as its owner" must not come to mean another owner.
int GiveMode(const Syscalls& calls, int to, const struct statx& made, const struct statx& source) {
  const bool same_owner = made.stx_uid == source.stx_uid && made.stx_gid == source.stx_gid;
  const mode_t mode = source.stx_mode & (same_owner ? 07777 : 0777);
  if ((made.stx_mode & 07777) == mode) return 0;
  const int error = ErrorOf([&] { return calls.fchmod(to, mode); });
  return NotSupported(error) ? 0 : error;
}

#include "platform/posix/folder_listing.h"

#include <dirent.h>
#include <fcntl.h>

#include <algorithm>
#include <cstddef>
#include <cstring>

#include "platform/posix/temporary_name.h"

namespace {

constexpr std::size_t kPiece = 128 * 1024;

/// One record of getdents(2): its head, and its name behind it.
struct Record {
  unsigned char type;
  const char* name;
};

/// Calls `take` for each record of a filled buffer.
template <class Take>
void ForEachRecord(const char* buffer, std::size_t filled, Take take) {
  for (std::size_t at = 0; at < filled;) {
    const char* record = buffer + at;
    unsigned short length = 0;
    std::memcpy(&length, record + offsetof(dirent64, d_reclen), sizeof length);
    take(Record{static_cast<unsigned char>(record[offsetof(dirent64, d_type)]),
                record + offsetof(dirent64, d_name)});
    at += length;
  }
}

EntryKind KindOf(const Syscalls& calls, int folder, const Record& record) {
  if (record.type != DT_UNKNOWN) {
    return record.type == DT_DIR ? EntryKind::kFolder : EntryKind::kFile;
  }
  // Some file systems don't tell (readdir(3)). What vanished meanwhile fails later, as a file.
  struct statx facts;
  const bool looked =
      Uninterrupted([&] {
        return calls.statx(folder, record.name, AT_SYMLINK_NOFOLLOW, STATX_TYPE, &facts);
      }) == 0;
  return looked && S_ISDIR(facts.stx_mode) ? EntryKind::kFolder : EntryKind::kFile;
}

bool IsItselfOrParent(std::string_view name) {
  return name == "." || name == "..";
}

/// One string for the names of one piece; it is reserved at once, so that its bytes never move.
void Append(const Syscalls& calls, int folder, const char* buffer, std::size_t filled,
            FolderEntries& entries) {
  std::string& names = entries.names.emplace_back();
  names.reserve(filled);
  ForEachRecord(buffer, filled, [&](const Record& record) {
    const std::string_view name = record.name;
    if (IsItselfOrParent(name) || IsInTheMaking(calls, name)) return;
    const std::size_t begin = names.size();
    names += name;
    entries.entries.push_back(
        {std::string_view(names).substr(begin), KindOf(calls, folder, record)});
  });
}

/// Reads to the end of the folder; `take(fd, buffer, filled)` answers false to stop.
template <class Take>
int ReadFolder(const Syscalls& calls, const Folder& folder, Take take) {
  const FileHandle listing(Uninterrupted([&] {
    return calls.openat(folder.handle.get(), ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC, 0);
  }));
  if (!listing) return errno;
  const std::unique_ptr<char[]> buffer(new char[kPiece]);
  for (;;) {
    const ssize_t filled =
        Uninterrupted([&] { return calls.getdents(listing.get(), buffer.get(), kPiece); });
    if (filled < 0) return errno;
    if (filled == 0) return 0;
    if (!take(listing.get(), buffer.get(), static_cast<std::size_t>(filled))) return ECANCELED;
  }
}

}  // namespace

int ListFolder(const Syscalls& calls, const Folder& folder, const GoOn& go_on,
               FolderEntries& entries) {
  entries.entries.clear();
  entries.names.clear();
  return ReadFolder(calls, folder, [&](int fd, const char* buffer, std::size_t filled) {
    Append(calls, fd, buffer, filled, entries);
    return !go_on || go_on();
  });
}

int IsListed(const Syscalls& calls, const Folder& folder, std::string_view name) {
  bool found = false;
  const int error = ReadFolder(calls, folder, [&](int, const char* buffer, std::size_t filled) {
    ForEachRecord(buffer, filled, [&](const Record& record) { found |= name == record.name; });
    return !found;
  });
  return found ? 0 : error == 0 ? ENOENT : error;
}

int IsEmptyFolder(const Syscalls& calls, const Folder& folder) {
  bool empty = true;
  const int error = ReadFolder(calls, folder, [&](int, const char* buffer, std::size_t filled) {
    ForEachRecord(buffer, filled, [&](const Record& r) { empty &= IsItselfOrParent(r.name); });
    return empty;
  });
  return empty ? error : ENOTEMPTY;
}

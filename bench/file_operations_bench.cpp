// The file operations beside the bare system calls, measured in the same run.
// Usage: quorvane_bench_files [folder]; works in a new folder there, or in TMPDIR.

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "platform/files.h"
#include "ratio.h"
#include "workspace.h"

namespace {

using bench::Require;

constexpr int kFolders = 100;
constexpr int kFilesAFolder = 1000;
constexpr int kRenames = 20'000;
constexpr int kCopies = 10'000;
constexpr int kRounds = 5;

void WriteFile(const std::string& path, std::size_t size) {
  static const std::string kContent(64 * 1024, 'q');
  const int fd = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
  Require(fd >= 0, path);
  Require(::write(fd, kContent.data(), size) == static_cast<ssize_t>(size), path);
  ::close(fd);
}

std::string Numbered(const std::string& folder, const char* head, int i) {
  return folder + '/' + head + std::to_string(i) + ".jpg";
}

/// Lists and looks at everything below `folder`; answers the bytes of all files.
std::uint64_t OurScan(FileSystem& files, const std::string& folder) {
  FolderEntries all;
  Require(files.List(folder, {}, all), folder);
  std::uint64_t bytes = 0;
  std::string path = folder + '/';
  const std::size_t folder_size = path.size();
  for (const FolderEntries::Entry& entry : all.entries) {
    path.resize(folder_size);
    path += entry.name;
    bytes += entry.kind == EntryKind::kFolder ? OurScan(files, path) : files.Look(path)->size;
  }
  return bytes;
}

std::uint64_t BareScan(int parent, const char* name) {
  DIR* dir = ::fdopendir(::openat(parent, name, O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  Require(dir != nullptr, name);
  std::uint64_t bytes = 0;
  while (const dirent* entry = ::readdir(dir)) {
    if (entry->d_name[0] == '.') continue;
    if (entry->d_type == DT_DIR) {
      bytes += BareScan(::dirfd(dir), entry->d_name);
      continue;
    }
    struct statx facts;
    ::statx(::dirfd(dir), entry->d_name, AT_SYMLINK_NOFOLLOW, STATX_TYPE | STATX_SIZE | STATX_MTIME,
            &facts);
    bytes += facts.stx_size;
  }
  ::closedir(dir);
  return bytes;
}

void MeasureScan(FileSystem& files, const std::string& root) {
  const std::string tree = root + "/tree";
  ::mkdir(tree.c_str(), 0755);
  for (int f = 0; f < kFolders; ++f) {
    const std::string folder = tree + "/folder" + std::to_string(f);
    ::mkdir(folder.c_str(), 0755);
    for (int i = 0; i < kFilesAFolder; ++i) WriteFile(Numbered(folder, "picture ", i), 16);
  }
  const std::uint64_t expected = 16ull * kFolders * kFilesAFolder;
  const auto ours = [&] { Require(OurScan(files, tree) == expected, "scan"); };
  const auto bare = [&] { Require(BareScan(AT_FDCWD, tree.c_str()) == expected, "readdir"); };
  const std::string command = "find '" + tree + "' -printf '%s %T@ %p\\n' > /dev/null";
  const bool has_find = std::system(command.c_str()) == 0;
  bench::Ratio beside_calls("scan / readdir + statx", 1.5, long{kFolders} * kFilesAFolder);
  bench::Ratio beside_find("scan / find -printf", 1.0, long{kFolders} * kFilesAFolder);
  ours();
  for (int round = 0; round < kRounds; ++round) {
    beside_calls.Round(ours, bare);
    if (has_find) beside_find.Round(ours, [&] { Require(!std::system(command.c_str()), "find"); });
  }
  beside_calls.Print();
  if (has_find) beside_find.Print();
}

void MeasureRename(FileSystem& files, const std::string& root) {
  const std::string folder = root + "/a folder/of some/depth/holding";
  std::filesystem::create_directories(folder);
  for (int i = 0; i < kRenames; ++i) WriteFile(Numbered(folder, "a", i), 0);
  std::vector<Fingerprint> known;
  for (int i = 0; i < kRenames; ++i) {
    known.push_back(files.Look(Numbered(folder, "a", i))->fingerprint);
  }
  const auto ours = [&](const char* from, const char* to) {
    for (int i = 0; i < kRenames; ++i) {
      const std::string target = Numbered(folder, to, i);
      Require(files.RenameKnown(Numbered(folder, from, i), target,
                                known[static_cast<std::size_t>(i)]) == Attempt::kDone,
              target);
    }
  };
  const auto bare = [&](const char* from, const char* to) {
    for (int i = 0; i < kRenames; ++i) {
      const std::string target = Numbered(folder, to, i);
      Require(::renameat2(AT_FDCWD, Numbered(folder, from, i).c_str(), AT_FDCWD, target.c_str(),
                          RENAME_NOREPLACE) == 0,
              target);
    }
  };
  bench::Ratio ratio("rename in place / renameat2", 1.15, kRenames);
  ours("a", "b");
  bare("b", "a");
  for (int round = 0; round < kRounds; ++round) {
    ratio.Round([&] { ours("a", "b"); }, [&] { bare("b", "a"); });
  }
  ratio.Print();
}

/// `linked`: without a name until it is whole, so that nothing can be replaced.
void BareCopy(const std::string& from, const std::string& to, bool linked) {
  static char buffer[64 * 1024];
  const int source = ::open(from.c_str(), O_RDONLY | O_CLOEXEC);
  const std::string folder = to.substr(0, to.rfind('/'));
  const int target = linked ? ::open(folder.c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, 0644)
                            : ::open(to.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0644);
  Require(source >= 0 && target >= 0, to);
  for (ssize_t got; (got = ::read(source, buffer, sizeof buffer)) > 0;) {
    Require(::write(target, buffer, static_cast<std::size_t>(got)) == got, to);
  }
  const std::string self = "/proc/self/fd/" + std::to_string(target);
  Require(!linked || ::linkat(AT_FDCWD, self.c_str(), AT_FDCWD, to.c_str(), AT_SYMLINK_FOLLOW) == 0,
          to);
  ::close(source);
  ::close(target);
}

void MeasureCopy(FileSystem& files, const std::string& root) {
  const std::string from = root + "/from";
  ::mkdir(from.c_str(), 0755);
  for (int i = 0; i < kCopies; ++i) WriteFile(Numbered(from, "p", i), 4096);
  int used = 0;
  const auto copy_all = [&](auto copy) {
    const std::string to = root + "/to" + std::to_string(++used);
    ::mkdir(to.c_str(), 0755);
    for (int i = 0; i < kCopies; ++i) copy(Numbered(from, "p", i), Numbered(to, "p", i));
  };
  const auto ours = [&](const std::string& a, const std::string& b) {
    CopyIdentities copied;
    Require(files.CopyFile(a, b, {}, &copied), b);
  };
  bench::Ratio beside_plain("copy 4 KiB / read + write", 1.6, kCopies);
  bench::Ratio beside_link("copy 4 KiB / read + write + link", 1.4, kCopies);
  for (int round = 0; round < kRounds; ++round) {
    for (bench::Ratio* ratio : {&beside_plain, &beside_link}) {
      const bool linked = ratio == &beside_link;
      const auto bare = [&](const auto& a, const auto& b) { BareCopy(a, b, linked); };
      ratio->Round([&] { copy_all(ours); }, [&] { copy_all(bare); });
    }
  }
  beside_plain.Print();
  beside_link.Print();
}

}  // namespace

int main(int argc, char** argv) {
  return bench::RunInNewFolder(argc, argv, [](const std::string& root) {
    const std::unique_ptr<FileSystem> files = MakePosixFileSystem();
    MeasureScan(*files, root);
    MeasureRename(*files, root);
    MeasureCopy(*files, root);
  });
}

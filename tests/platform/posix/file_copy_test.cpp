#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/xattr.h>

#include <string>
#include <vector>

#include "faults.h"
#include "platform/posix/files_posix.h"
#include "support/temp_folder.h"

namespace {

using Names = std::vector<std::string>;

bool Copy(const TempFolder& folder, const Syscalls& calls, const GoOn& go_on = {}) {
  return MakePosixFileSystem(calls)->CopyFile(folder / "a", folder / "b", go_on, nullptr);
}

std::string Pattern(std::size_t size) {
  std::string bytes(size, '\0');
  for (std::size_t i = 0; i < size; ++i) bytes[i] = static_cast<char>(i * 31 + i / 251);
  return bytes;
}

const struct {
  const char* what;
  void (*apply)(Syscalls&);
} kWays[] = {
    {"all there", [](Syscalls&) {}},
    {"the kernel stops half way",
     [](Syscalls& c) {
       Fail(c.clone, EOPNOTSUPP);
       c.copy_file_range = [real = c.copy_file_range, used = 0](int a, off_t* x, int b, off_t* y,
                                                                std::size_t size) mutable {
         return used++ == 0 ? real(a, x, b, y, size / 2) : 0;
       };
     }},
    {"short and interrupted reads and writes",
     [](Syscalls& c) {
       Fail(c.clone, EOPNOTSUPP);
       Fail(c.copy_file_range, ENOSYS);
       c.pread = [real = c.pread](int fd, void* to, std::size_t size, off_t at) {
         return real(fd, to, std::min<std::size_t>(size, 7001), at);
       };
       Fail(c.pread, EINTR, 2);
       c.pwrite = [real = c.pwrite](int fd, const void* from, std::size_t size, off_t at) {
         return real(fd, from, std::min<std::size_t>(size, 3001), at);
       };
       Fail(c.pwrite, EINTR, 2);
     }},
};

}  // namespace

TEST(CopyFile, CopiesWholeByEveryWayAndKeepsHoles) {
  for (const auto& way : kWays) {
    for (const std::size_t size : {0u, 1u, 65'536u, 65'537u, 700'001u, 3u << 20}) {
      SCOPED_TRACE(std::string(way.what) + ", " + std::to_string(size));
      const TempFolder folder;
      const bool holes = size == 3u << 20;  // with a piece between, and one at the end
      folder.Write("a", holes ? "head" : Pattern(size));
      if (holes) {
        const FileHandle a(::open((folder / "a").c_str(), O_WRONLY));
        ASSERT_EQ(::pwrite(a.get(), "middle", 6, 1 << 20), 6);
        ASSERT_EQ(::ftruncate(a.get(), static_cast<off_t>(size)), 0);
      }
      Syscalls calls;
      way.apply(calls);
      EXPECT_TRUE(Copy(folder, calls));
      EXPECT_TRUE(folder.Read("b") == folder.Read("a"));
      EXPECT_LE(folder.Facts("b").st_blocks, folder.Facts("a").st_blocks + (holes ? 512 : 2048));
    }
  }
}

TEST(CopyFile, KeepsTimesModeAndAttributes) {
  const TempFolder folder;
  folder.Write("a", "A");
  const std::string a = folder / "a", b = folder / "b", c = folder / "c";
  // acl(5) as stored: version 2; owner rw, user 1234 r, group r, mask r, others none.
  const unsigned char list[] = {2,  0, 0, 0,                                                     //
                                1,  0, 6, 0, 255, 255, 255, 255, 2,  0, 4, 0, 210, 4,   0,   0,  //
                                4,  0, 4, 0, 255, 255, 255, 255, 16, 0, 4, 0, 255, 255, 255, 255,
                                32, 0, 0, 0, 255, 255, 255, 255};
  const char* kAccess = "system.posix_acl_access";
  const bool lists = ::setxattr(a.c_str(), kAccess, list, sizeof list, 0) == 0;
  const bool attributes = ::setxattr(a.c_str(), "user.rating", "5\0!", 3, 0) == 0;
  ::setxattr(folder.path().c_str(), "system.posix_acl_default", list, sizeof list, 0);
  ASSERT_TRUE(lists || ::chmod(a.c_str(), 0640) == 0);
  const struct timespec times[2] = {{1, 0}, {1'600'000'000, 987'654'321}};
  ASSERT_EQ(::utimensat(AT_FDCWD, a.c_str(), times, 0), 0);

  ASSERT_TRUE(MakePosixFileSystem()->CopyFile(a, b, {}, nullptr));
  const struct stat facts = folder.Facts("b");
  EXPECT_EQ(facts.st_mode & 07777, 0640u);
  EXPECT_EQ(facts.st_mtim.tv_sec, 1'600'000'000);
  EXPECT_EQ(facts.st_mtim.tv_nsec, 987'654'321);
  const auto value_of = [&](const char* name) {
    std::string value(128, '\0');
    const ssize_t size = ::getxattr(b.c_str(), name, value.data(), value.size());
    return value.substr(0, static_cast<std::size_t>(std::max<ssize_t>(size, 0)));
  };
  EXPECT_EQ(value_of("user.rating"), attributes ? std::string("5\0!", 3) : "");
  const auto* bytes = reinterpret_cast<const char*>(list);
  EXPECT_EQ(value_of(kAccess), lists ? std::string(bytes, sizeof list) : "");
  // What the folder gives to new files must not open a copy further than its original.
  ASSERT_EQ(::removexattr(a.c_str(), kAccess) == 0, lists);
  ASSERT_TRUE(MakePosixFileSystem()->CopyFile(a, c, {}, nullptr));
  EXPECT_LT(::getxattr(c.c_str(), kAccess, nullptr, 0), 0);
}

TEST(CopyFile, LeavesNothingBehindWhenCancelled) {
  for (const bool by_kernel : {false, true}) {
    const TempFolder folder;
    folder.Write("a", Pattern(40 << 20));
    Syscalls calls;
    Fail(calls.clone, EOPNOTSUPP);
    if (!by_kernel) Fail(calls.copy_file_range, EXDEV);
    if (by_kernel) kLacks[3].apply(calls);
    int asked = 0;
    EXPECT_FALSE(Copy(folder, calls, [&] { return ++asked < 2; }));
    EXPECT_EQ(asked, 2);
    EXPECT_EQ(folder.List(), Names{"a"});
  }
}

TEST(CopyFile, RefusesASourceThatChangesMeanwhile) {
  const std::function<void(const TempFolder&)> changes[] = {
      [](const TempFolder& f) { EXPECT_EQ(::truncate((f / "a").c_str(), 800'000), 0); },
      [](const TempFolder& f) { EXPECT_EQ(::truncate((f / "a").c_str(), 300'000), 0); },
      [](const TempFolder& f) {  // written to, and no other size
        EXPECT_EQ(::utimensat(AT_FDCWD, (f / "a").c_str(), nullptr, 0), 0);
      }};
  for (const auto& change : changes) {
    TempFolder folder;
    folder.Write("a", Pattern(700'000));
    const struct timespec earlier[2] = {{1, 0}, {1, 0}};
    ASSERT_EQ(::utimensat(AT_FDCWD, (folder / "a").c_str(), earlier, 0), 0);
    Syscalls calls;
    Fail(calls.clone, EOPNOTSUPP);
    Fail(calls.copy_file_range, EXDEV);
    const auto files = MakePosixFileSystem(calls);
    const auto go_on = [&] {
      change(folder);
      return true;
    };
    EXPECT_FALSE(files->CopyFile(folder / "a", folder / "b", go_on, nullptr));
    EXPECT_EQ(files->Problem(), kSourceChanged);
    EXPECT_EQ(folder.List(), Names{"a"});
  }
}

TEST(CopyFile, TakesWhatALinkPointsToAndNothingButFiles) {
  TempFolder folder;
  folder.Write("file", "F");
  folder.MakeFolder("sub");
  ASSERT_EQ(::mkfifo((folder / "fifo").c_str(), 0600), 0);
  folder.MakeLink("link", "file");
  folder.MakeLink("dangling", "nowhere");
  folder.MakeLink("loop", "loop");
  const auto files = MakePosixFileSystem();
  for (const char* source : {"fifo", "sub", "dangling", "loop", "none", ""}) {
    EXPECT_FALSE(files->CopyFile(folder / source, folder / "x", {}, nullptr)) << source;
  }
  EXPECT_FALSE(files->CopyFile("/dev/zero", folder / "x", {}, nullptr));
  for (const char* target : {"dangling", "sub", "fifo", "file", "none/x", "sub/"}) {
    EXPECT_FALSE(files->CopyFile(folder / "file", folder / target, {}, nullptr)) << target;
  }
  EXPECT_FALSE(folder.Has("x"));
  EXPECT_TRUE(files->CopyFile(folder / "link", folder / "x", {}, nullptr));
  EXPECT_TRUE(S_ISREG(folder.Facts("x").st_mode));
  EXPECT_EQ(folder.Read("x"), "F");
}

TEST(CopyFile, SurvivesTheFileSizeLimit) {
  TempFolder folder;
  folder.Write("a", Pattern(200'000));
  struct rlimit before;
  ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &before), 0);
  const struct rlimit low = {100'000, before.rlim_max};
  ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &low), 0);
  Syscalls calls;
  Fail(calls.clone, EOPNOTSUPP);
  EXPECT_FALSE(Copy(folder, calls));
  ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &before), 0);
  EXPECT_EQ(folder.List(), Names{"a"});
}

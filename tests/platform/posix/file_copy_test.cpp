#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/xattr.h>

#include <string>
#include <vector>

#include "faults.h"
#include "platform/posix/files_posix.h"
#include "support/temp_folder.h"

using Names = std::vector<std::string>;

static std::string Pattern(std::size_t size) {
  std::string bytes(size, '\0');
  for (std::size_t i = 0; i < size; ++i) bytes[i] = static_cast<char>(i * 31 + i / 251);
  return bytes;
}

static void StopTheKernelHalfWay(Syscalls& c) {
  Fail(c.clone, EOPNOTSUPP);
  c.copy_file_range = [real = c.copy_file_range, used = 0](int a, off_t* x, int b, off_t* y,
                                                           std::size_t size) mutable {
    return used++ == 0 ? real(a, x, b, y, size / 2) : 0;
  };
}

static void ReadAndWriteInPieces(Syscalls& c) {
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
}

TEST(CopyFile, CopiesWholeByEveryWayAndKeepsHoles) {
  int way = 0;
  for (const auto apply : {+[](Syscalls&) {}, StopTheKernelHalfWay, ReadAndWriteInPieces}) {
    ++way;
    for (const std::size_t size : {0u, 1u, 65'536u, 65'537u, 700'001u, 3u << 20}) {
      SCOPED_TRACE("way " + std::to_string(way) + ", size " + std::to_string(size));
      const TempFolder folder;
      const bool holes = size == 3u << 20;  // with a piece between, and one at the end
      folder.Write("a", holes ? "head" : Pattern(size));
      if (holes) {
        const FileHandle a(::open((folder / "a").c_str(), O_WRONLY));
        ASSERT_EQ(::pwrite(a.get(), "middle", 6, 1 << 20), 6);
        ASSERT_EQ(::ftruncate(a.get(), static_cast<off_t>(size)), 0);
      }
      Syscalls calls;
      apply(calls);
      EXPECT_TRUE(MakePosixFileSystem(calls)->CopyFile(folder / "a", folder / "b", {}, nullptr));
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
  const std::string list(
      "\2\0\0\0\1\0\6\0\377\377\377\377\2\0\4\0\322\4\0\0\4\0\4\0\377\377\377\377"
      "\20\0\4\0\377\377\377\377\40\0\0\0\377\377\377\377",
      44);
  const char* kAccess = "system.posix_acl_access";
  const bool lists = ::setxattr(a.c_str(), kAccess, list.data(), list.size(), 0) == 0;
  const bool attributes = ::setxattr(a.c_str(), "user.rating", "5\0!", 3, 0) == 0;
  ::setxattr(folder.path().c_str(), "system.posix_acl_default", list.data(), list.size(), 0);
  ASSERT_TRUE(lists || ::chmod(a.c_str(), 0640) == 0);
  const struct timespec times[2] = {{1, 0}, {1'600'000'000, 987'654'321}};
  ASSERT_EQ(::utimensat(AT_FDCWD, a.c_str(), times, 0), 0);

  const auto files = MakePosixFileSystem();
  ASSERT_TRUE(files->CopyFile(a, b, {}, nullptr));
  EXPECT_EQ(folder.Facts("b").st_mode & 07777, 0640u);
  EXPECT_EQ(files->Look(b)->modified_ns, 1'600'000'000'987'654'321);
  const auto value_of = [&](const char* name) {
    std::string value(128, '\0');
    const ssize_t size = ::getxattr(b.c_str(), name, value.data(), value.size());
    return value.substr(0, static_cast<std::size_t>(std::max<ssize_t>(size, 0)));
  };
  EXPECT_EQ(value_of("user.rating"), attributes ? std::string("5\0!", 3) : "");
  EXPECT_EQ(value_of(kAccess), lists ? list : "");
  // What the folder gives to new files must not open a copy further than its original.
  ASSERT_EQ(::removexattr(a.c_str(), kAccess) == 0, lists);
  ASSERT_TRUE(files->CopyFile(a, c, {}, nullptr));
  EXPECT_LT(::getxattr(c.c_str(), kAccess, nullptr, 0), 0);
}

TEST(CopyFile, LeavesNothingBehindWhenCancelledOrWhenItsSourceChangesMeanwhile) {
  const char* path = nullptr;
  const struct {
    std::size_t size;
    bool by_kernel;
    int problem;
    GoOn go_on;
  } table[] = {
      {40u << 20, true, 0, [asked = 0]() mutable { return ++asked < 2; }},
      {40u << 20, false, 0, [asked = 0]() mutable { return ++asked < 2; }},
      {700'000, false, kSourceChanged, [&] { return ::truncate(path, 800'000) == 0; }},
      {700'000, false, kSourceChanged, [&] { return ::truncate(path, 300'000) == 0; }},
      // Written to, and no other size.
      {700'000, false, kSourceChanged, [&] { return ::utimensat(0, path, nullptr, 0) == 0; }}};
  for (const auto& row : table) {
    const TempFolder folder;
    const std::string a = folder / "a";
    folder.Write("a", Pattern(row.size));
    const struct timespec earlier[2] = {{1, 0}, {1, 0}};
    ASSERT_EQ(::utimensat(AT_FDCWD, (path = a.c_str()), earlier, 0), 0);
    Syscalls calls;
    Fail(calls.clone, EOPNOTSUPP);
    row.by_kernel ? kLacks[3].apply(calls) : Fail(calls.copy_file_range, EXDEV);
    const auto files = MakePosixFileSystem(calls);
    EXPECT_FALSE(files->CopyFile(a, folder / "b", row.go_on, nullptr));
    EXPECT_TRUE(row.problem == 0 || files->Problem() == row.problem) << files->Problem();
    EXPECT_EQ(folder.List(), Names{"a"});
  }
}

TEST(CopyFile, TakesWhatALinkPointsToAndNothingButFiles) {
  const TempFolder folder;
  folder.Write("file", "F");
  folder.MakeFolder("sub");
  ASSERT_EQ(::mkfifo((folder / "fifo").c_str(), 0600), 0);
  folder.MakeLink("link", "file");
  folder.MakeLink("dangling", "nowhere");
  folder.MakeLink("loop", "loop");
  const auto copy = [&](const std::string& from, const char* to) {
    return MakePosixFileSystem()->CopyFile(from, folder / to, {}, nullptr);
  };
  for (const char* source : {"fifo", "sub", "dangling", "loop", "none", ""}) {
    EXPECT_FALSE(copy(folder / source, "x")) << source;
  }
  EXPECT_FALSE(copy("/dev/zero", "x"));
  for (const char* target : {"dangling", "sub", "fifo", "file", "none/x", "sub/"}) {
    EXPECT_FALSE(copy(folder / "file", target)) << target;
  }
  EXPECT_FALSE(folder.Has("x"));
  EXPECT_TRUE(copy(folder / "link", "x"));
  EXPECT_TRUE(S_ISREG(folder.Facts("x").st_mode));
  EXPECT_EQ(folder.Read("x"), "F");
}

TEST(CopyFile, SurvivesTheFileSizeLimit) {
  const TempFolder folder;
  folder.Write("a", Pattern(200'000));
  struct rlimit before;
  ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &before), 0);
  const struct rlimit low = {100'000, before.rlim_max};
  ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &low), 0);
  Syscalls calls;
  Fail(calls.clone, EOPNOTSUPP);
  EXPECT_FALSE(MakePosixFileSystem(calls)->CopyFile(folder / "a", folder / "b", {}, nullptr));
  ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &before), 0);
  EXPECT_EQ(folder.List(), Names{"a"});
}

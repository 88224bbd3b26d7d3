#include <gtest/gtest.h>
#include <stdio.h>
#include <sys/mount.h>
#include <sys/wait.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "faults.h"
#include "platform/files_posix.h"
#include "support/temp_folder.h"

namespace {

using Names = std::vector<std::string>;

/// One way of renaming that a file system may leave, by what it lacks.
struct Lack {
  const char* what;
  std::function<void(Syscalls&)> apply;
};

const std::vector<Lack>& Lacks() {
  static const std::vector<Lack> kLacks = {
      {"nothing", [](Syscalls&) {}},
      {"no-replace renames", [](Syscalls& c) { Fail(c.renameat2, EINVAL); }},
      {"no-replace renames, an old kernel", [](Syscalls& c) { Fail(c.renameat2, ENOSYS); }},
      {"hard links too", [](Syscalls& c) {
         Fail(c.renameat2, EOPNOTSUPP);
         Fail(c.linkat, EPERM);
       }}};
  return kLacks;
}

}  // namespace

TEST(MoveFile, NeverReplacesWhateverTheFileSystemLacks) {
  for (const Lack& lack : Lacks()) {
    SCOPED_TRACE(lack.what);
    TempFolder folder;
    Syscalls calls = RealSyscalls();
    lack.apply(calls);
    const auto files = MakePosixFileSystem(calls);
    folder.Write("a", "A");
    folder.Write("taken", "T");
    folder.MakeFolder("sub");
    folder.MakeLink("dangling", "nowhere");
    ASSERT_EQ(::link((folder / "a").c_str(), (folder / "hard").c_str()), 0);
    const Names before = folder.List();
    for (const char* target : {"taken", "dangling", "sub", "hard", "none/x"}) {
      EXPECT_FALSE(files->MoveFile(folder / "a", folder / target, {})) << target;
    }
    EXPECT_FALSE(files->MoveFile(folder / "a", folder / std::string(256, 'n'), {}));
    EXPECT_FALSE(files->MoveFile(folder / "none", folder / "x", {}));
    EXPECT_FALSE(files->MoveFile(folder / "none", folder / "none", {}));
    EXPECT_FALSE(files->MoveFile(folder / "sub", folder / "sub/below", {}));
    EXPECT_EQ(folder.List(), before);
    EXPECT_EQ(folder.Read("taken"), "T");
    EXPECT_EQ(folder.Read("a"), "A");
  }
}

TEST(MoveFile, MovesFilesLinksAndFoldersWhateverTheFileSystemLacks) {
  for (const Lack& lack : Lacks()) {
    SCOPED_TRACE(lack.what);
    TempFolder folder;
    Syscalls calls = RealSyscalls();
    lack.apply(calls);
    const auto files = MakePosixFileSystem(calls);
    folder.Write("a\xFF\n", "A");
    folder.MakeFolder("sub");
    folder.Write("sub/inner", "I");
    folder.MakeLink("dangling", "nowhere");
    EXPECT_TRUE(files->MoveFile(folder / "a\xFF\n", folder / "A\xFE", {}));
    EXPECT_TRUE(files->MoveFile(folder / "A\xFE", folder / "A\xFE", {}));
    EXPECT_TRUE(files->MoveFile(folder / "dangling", folder / "link", {}));
    EXPECT_TRUE(files->MoveFile(folder / "sub", folder / "Sub", {}));
    EXPECT_TRUE(files->MoveFile(folder / "Sub/inner", folder / "outer", {}));
    EXPECT_EQ(folder.List(), (Names{"A\xFE", "Sub", "link", "outer"}));
    EXPECT_EQ(folder.Read("A\xFE"), "A");
  }
}

/// Moves from the test's folder to /dev/shm, with or without a file system boundary of its own.
class MoveToOtherDevice : public ::testing::Test {
 protected:
  void SetUp() override {
    if (::access("/dev/shm", W_OK) != 0) GTEST_SKIP() << "no /dev/shm to write to";
    away = std::make_unique<TempFolder>("/dev/shm");
    if (home.Facts("").st_dev == away->Facts("").st_dev) {
      GTEST_SKIP() << "the temporary folder is on /dev/shm itself";
    }
  }
  bool Move() { return MakePosixFileSystem()->MoveFile(home / "a", *away / "b", {}); }

  TempFolder home;
  std::unique_ptr<TempFolder> away;
};

TEST_F(MoveToOtherDevice, MovesFilesAndLinksWhole) {
  home.Write("a", "A");
  const struct stat before = home.Facts("a");
  EXPECT_TRUE(Move());
  EXPECT_EQ(away->Read("b"), "A");
  EXPECT_EQ(away->Facts("b").st_mtim.tv_nsec, before.st_mtim.tv_nsec);
  EXPECT_EQ(home.List(), Names{});

  home.MakeLink("a", "nowhere");
  EXPECT_FALSE(Move());
  ASSERT_EQ(::unlink((*away / "b").c_str()), 0);
  EXPECT_TRUE(Move());
  EXPECT_EQ(std::filesystem::read_symlink(*away / "b"), "nowhere");
  EXPECT_EQ(home.List(), Names{});

  ASSERT_EQ(::unlink((*away / "b").c_str()), 0);
  ASSERT_EQ(::mkfifo((home / "a").c_str(), 0600), 0);
  EXPECT_FALSE(Move());
  EXPECT_EQ(away->List(), Names{});
}

TEST_F(MoveToOtherDevice, LeavesASourceThatIsWrittenToMeanwhile) {
  home.Write("a", "A");
  Syscalls calls = RealSyscalls();
  calls.fsync = [this, real = calls.fsync](int fd) {
    home.Write("a", "changed");
    return real(fd);
  };
  const auto files = MakePosixFileSystem(calls);
  EXPECT_FALSE(files->MoveFile(home / "a", *away / "b", {}));
  EXPECT_EQ(files->Problem(), kSourceChanged);
  EXPECT_EQ(home.Read("a"), "changed");
  EXPECT_EQ(away->List(), Names{});
}

TEST(MoveFile, CopiesOverABindMountThatTellsTheSameDevice) {
  TempFolder folder;
  folder.MakeFolder("real");
  folder.MakeFolder("bound");
  const std::string bound = folder / "bound";
  if (::mount((folder / "real").c_str(), bound.c_str(), nullptr, MS_BIND, nullptr) != 0) {
    GTEST_SKIP() << "a bind mount needs root";
  }
  folder.Write("a", "A");
  folder.Write("real/same", "S");
  const auto files = MakePosixFileSystem();
  EXPECT_TRUE(files->MoveFile(folder / "a", bound + "/a", {}));
  EXPECT_EQ(folder.Read("real/a"), "A");
  EXPECT_FALSE(folder.Has("a"));
  EXPECT_FALSE(files->MoveFile(folder / "real/same", bound + "/a", {}));
  EXPECT_TRUE(files->MoveFile(folder / "real/same", bound + "/same", {}));
  EXPECT_EQ(folder.List("real"), (Names{"a", "same"}));

  // Nothing may be changed here any more.
  ASSERT_EQ(::mount(nullptr, bound.c_str(), nullptr, MS_BIND | MS_REMOUNT | MS_RDONLY, nullptr), 0);
  EXPECT_FALSE(files->MoveFile(bound + "/a", bound + "/c", {}));
  EXPECT_FALSE(files->MoveFile(bound + "/a", folder / "c", {}));
  EXPECT_FALSE(files->CopyFile(bound + "/a", bound + "/c", {}, nullptr));
  EXPECT_FALSE(folder.Has("c"));
  EXPECT_EQ(folder.List("real"), (Names{"a", "same"}));
  files->LetFoldersGo();
  EXPECT_EQ(::umount(bound.c_str()), 0) << "a folder handle was kept";
}

TEST(MoveFile, FailsInAFolderThatMayNotBeWritten) {
  if (::geteuid() == 0) GTEST_SKIP() << "rights do not bind root";
  TempFolder folder;
  folder.MakeFolder("sub");
  folder.Write("sub/a", "A");
  ASSERT_EQ(::chmod((folder / "sub").c_str(), 0500), 0);
  for (const Lack& lack : Lacks()) {
    Syscalls calls = RealSyscalls();
    lack.apply(calls);
    const auto files = MakePosixFileSystem(calls);
    EXPECT_FALSE(files->MoveFile(folder / "sub/a", folder / "sub/b", {})) << lack.what;
    EXPECT_FALSE(files->CopyFile(folder / "sub/a", folder / "sub/b", {}, nullptr)) << lack.what;
  }
  EXPECT_EQ(folder.List("sub"), Names{"a"});
  ::chmod((folder / "sub").c_str(), 0700);
}

TEST(MoveFile, LeavesAnImmutableFileWhereItIs) {
  TempFolder folder;
  folder.Write("a", "A");
  const std::string quoted = "'" + folder / "a" + "' 2>/dev/null";
  if (std::system(("chattr +i " + quoted).c_str()) != 0) GTEST_SKIP() << "chattr +i needs root";
  for (const Lack& lack : Lacks()) {
    Syscalls calls = RealSyscalls();
    lack.apply(calls);
    EXPECT_FALSE(MakePosixFileSystem(calls)->MoveFile(folder / "a", folder / "b", {})) << lack.what;
  }
  EXPECT_EQ(folder.List(), Names{"a"});
  EXPECT_EQ(std::system(("chattr -i " + quoted).c_str()), 0);
}

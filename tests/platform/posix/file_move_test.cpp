#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "faults.h"
#include "platform/posix/files_posix.h"
#include "support/temp_folder.h"

using Names = std::vector<std::string>;

TEST(MoveFile, NeverReplacesWhateverTheFileSystemLacks) {
  const std::string too_long(256, 'n');
  for (const Lack& lack : kLacks) {
    SCOPED_TRACE(lack.what);
    TempFolder folder;
    Syscalls calls;
    lack.apply(calls);
    const auto files = MakePosixFileSystem(calls);
    folder.Write("a", "A");
    folder.Write("taken", "T");
    folder.MakeFolder("sub");
    folder.MakeLink("dangling", "nowhere");
    ASSERT_EQ(::link((folder / "a").c_str(), (folder / "hard").c_str()), 0);
    const Names before = folder.List();
    for (const char* target : {"taken", "dangling", "sub", "hard", "none/x", too_long.c_str()}) {
      EXPECT_FALSE(files->MoveFile(folder / "a", folder / target, {})) << target;
    }
    for (const char* to : {"x", "none"}) {
      EXPECT_FALSE(files->MoveFile(folder / "none", folder / to, {})) << to;
    }
    EXPECT_FALSE(files->MoveFile(folder / "sub", folder / "sub/below", {}));
    EXPECT_EQ(folder.List(), before);
    EXPECT_EQ(folder.Read("a").value_or("") + folder.Read("taken").value_or(""), "AT");
    EXPECT_TRUE(files->MoveFile(folder / "a", folder / "a", {}));
    EXPECT_TRUE(files->MoveFile(folder / "dangling", folder / "A\xFF\n", {}));
    EXPECT_EQ(std::filesystem::read_symlink(folder / "A\xFF\n"), "nowhere");
  }
}

TEST(MoveFile, ToAnotherDeviceTakesNoKindThatCanNotBeCopiedAndNoFileThatChanges) {
  const TempFolder home;
  const TempFolder away(::access("/dev/shm", W_OK) == 0 ? "/dev/shm" : "");
  if (home.Facts("").st_dev == away.Facts("").st_dev) GTEST_SKIP() << "no other device here";
  ASSERT_EQ(::mkfifo((home / "fifo").c_str(), 0600), 0);
  home.Write("e", "E");
  Syscalls calls;
  calls.fsync = [&, real = calls.fsync](int fd) {
    home.Write("e", "changed");
    return real(fd);
  };
  const auto files = MakePosixFileSystem(calls);
  EXPECT_FALSE(files->MoveFile(home / "fifo", away / "d", {}));
  EXPECT_FALSE(files->MoveFile(home / "e", away / "e", {}));
  EXPECT_EQ(files->Problem(), kSourceChanged);
  EXPECT_EQ(home.List(), (Names{"e", "fifo"}));
  EXPECT_EQ(away.List(), Names());
}

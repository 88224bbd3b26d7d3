#include "platform/posix/files_posix.h"

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <set>
#include <string>
#include <vector>

#include "support/temp_folder.h"

struct PosixFiles : ::testing::Test {
  std::set<std::string> Listed(const std::string& path) {
    FolderEntries all;
    EXPECT_TRUE(files->List(path, {}, all)) << path;
    std::set<std::string> names;
    for (const auto& entry : all.entries) {
      names.insert((entry.kind == EntryKind::kFolder ? "/" : "") + std::string(entry.name));
    }
    EXPECT_EQ(names.size(), all.entries.size());
    return names;
  }

  TempFolder folder;
  std::unique_ptr<FileSystem> files = MakePosixFileSystem();
};

TEST_F(PosixFiles, ExistsForWhateverHoldsTheName) {
  for (const char* name : {"file", "a?b", "x\u00E9.txt", "line\nbreak\\ -\xFF. "}) {
    folder.Write(name, "");
  }
  folder.MakeFolder("sub");
  folder.MakeLink("dangling", "nowhere");
  folder.MakeLink("loop", "loop");
  for (const char* name :
       {"file", "sub", "dangling", "loop", "a?b", "x?.txt", "*.txt", "line\nbreak\\ -\xFF. "}) {
    EXPECT_TRUE(files->Exists(folder / name)) << name;
  }
  using namespace std::string_literals;
  for (const auto& name : {"x??.txt"s, "*.TXT"s, "none"s, ""s, "sub/"s, "file/below"s,
                           "loop/below"s, "none/*"s, "sub/*"s, "file\0x"s, std::string(300, 'n')}) {
    EXPECT_FALSE(files->Exists(folder / name)) << name;
  }
}

TEST_F(PosixFiles, ListsAllInPiecesButWhatALivingProcessHasInTheMaking) {
  const pid_t dead = ::fork();
  if (dead == 0) ::_exit(0);
  ASSERT_EQ(::waitpid(dead, nullptr, 0), dead);
  const std::string living = ".qv-" + std::to_string(::getpid()) + "-1.part";
  std::set<std::string> expected = {
      living + "ly", ".qv-0-1.part", ".qv-99999999999-1.part",
      ".qv--3.part", ".qv-12-.part", ".hidden",
      "bad\xFF",     "new\nline",    ".qv-" + std::to_string(dead) + "-1.part"};
  for (int i = 0; i < 5000; ++i)
    expected.insert("a name that fills the pieces " + std::to_string(i));
  for (const std::string& name : expected) folder.Write(name, "");
  folder.Write(living, "");
  folder.MakeFolder("sub");
  folder.MakeLink("to sub", folder / "sub");
  ASSERT_EQ(::mkfifo((folder / "fifo").c_str(), 0600), 0);
  expected.insert({"/sub", "to sub", "fifo"});
  EXPECT_TRUE(Listed(folder.path()) == expected);
  EXPECT_FALSE(Listed("").empty());
  FolderEntries all;
  EXPECT_FALSE(files->List(folder / "none", {}, all));
  const GoOn stop = [] { return false; };
  EXPECT_FALSE(files->List(folder.path(), stop, all));
  EXPECT_TRUE(!all.entries.empty() && all.entries.size() < 5000u) << all.entries.size();
  Syscalls calls;  // of a file system that does not tell the kind while listing
  calls.getdents = [real = calls.getdents](int fd, void* buffer, std::size_t size) {
    const ssize_t filled = real(fd, buffer, size);
    auto* bytes = static_cast<unsigned char*>(buffer);
    for (ssize_t at = 0; at < filled; at += bytes[at + 16] + 256 * bytes[at + 17]) {
      bytes[at + 18] = 0;  // d_type, DT_UNKNOWN
    }
    return filled;
  };
  files = MakePosixFileSystem(calls);
  EXPECT_TRUE(Listed(folder / "") == expected);
}

TEST_F(PosixFiles, NoticeThatAPathLeadsToAnotherFolderNowAndLetAllFoldersGo) {
  const auto open_files = [] {
    return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
  };
  const auto before = open_files();
  folder.MakeFolder("one");
  folder.Write("one/a", "first");
  EXPECT_TRUE(files->Exists(folder / "one/a"));
  // From outside: the kept handle now belongs to "two".
  ASSERT_EQ(::rename((folder / "one").c_str(), (folder / "two").c_str()), 0);
  folder.MakeFolder("one");
  folder.Write("one/a", "second");
  files->LookAnew();  // as after events
  EXPECT_TRUE(files->MoveFile(folder / "one/a", folder / "one/b", {}));
  EXPECT_EQ(folder.Read("one/b"), "second");
  EXPECT_EQ(folder.Read("two/a"), "first");
  // By ourselves: known at once, looking included.
  EXPECT_TRUE(files->Exists(folder / "two/a"));
  EXPECT_TRUE(files->MoveFile(folder / "two", folder / "three", {}));
  EXPECT_FALSE(files->Exists(folder / "two/a"));
  EXPECT_TRUE(files->Exists(folder / "three/a"));
  EXPECT_GT(open_files(), before);
  files->LetFoldersGo();
  EXPECT_EQ(open_files(), before);
}

TEST_F(PosixFiles, DeleteOnlyWhatIsMeant) {
  folder.Write("file", "x");
  CopyIdentities copied;
  ASSERT_TRUE(files->CopyFile(folder / "file", folder / "copy", {}, &copied));
  EXPECT_FALSE(files->DeleteMadeFile(folder / "file", copied.made));
  EXPECT_EQ(files->Problem(), kNotTheCopy);
  folder.Write("copy", "written to since");
  EXPECT_FALSE(files->IsVeryFile(folder / "copy", copied.made));
  EXPECT_FALSE(files->DeleteMadeFile(folder / "copy", copied.made));
  folder.MakeLink("link", "file");
  EXPECT_TRUE(files->IsVeryFile(folder / "link", copied.source));
  EXPECT_FALSE(files->DeleteMadeFile(folder / "link", copied.source)) << "a link is not the file";

  for (const char* name : {"sub", "other"}) folder.MakeFolder(name);
  folder.Write("sub/in use", "");
  EXPECT_FALSE(files->CreateDirectory(folder / "sub"));
  EXPECT_EQ(files->Problem(), EEXIST);
  const FolderIdentity made = *files->IdentifyFolder(folder / "sub/");
  EXPECT_FALSE(files->DeleteMadeFolder(folder / "sub", made));
  EXPECT_EQ(files->Problem(), ENOTEMPTY);
  EXPECT_FALSE(files->DeleteMadeFolder(folder / "other", made));
  EXPECT_EQ(folder.List(), (std::vector<std::string>{"copy", "file", "link", "other", "sub"}));
}

TEST(ExpectedFolders, AreTheOnlyOnesThatAnythingHappensIn) {
  for (const bool by_link : {false, true}) {
    TempFolder folder;
    const auto files = MakePosixFileSystem();
    CopyIdentities copied;
    for (const char* name : {"out", "out/deep", "other", "other/deep"}) folder.MakeFolder(name);
    for (const char* name : {"a", "out/deep/file", "other/deep/file"}) folder.Write(name, "x");
    ASSERT_TRUE(files->CopyFile(folder / "a", folder / "other/deep/copy", {}, &copied));
    const FolderIdentity other = *files->IdentifyFolder(folder / "other");
    files->ExpectFolder(folder / "out/", *files->IdentifyFolder(folder / "out"));
    files->ExpectFolder(folder.path(), *files->IdentifyFolder(folder / ""));
    EXPECT_TRUE(by_link || files->Exists(folder / "out/deep/file"));  // its handle is kept
    ASSERT_EQ(::rename((folder / "out").c_str(), (folder / "moved").c_str()), 0);
    if (by_link) folder.MakeLink("out", "other");  // which no folder can replace
    EXPECT_EQ(by_link, ::rename((folder / "other").c_str(), (folder / "out").c_str()) != 0);
    files->LookAnew();
    const std::string deep = folder / "out//deep/";
    const std::function<bool()> operations[] = {
        [&] { return files->MoveFile(deep + "file", folder / "b", {}); },
        [&] { return files->MoveFile(folder / "a", deep + "b", {}); },
        [&] { return files->CopyFile(folder / "a", deep + "b", {}, nullptr); },
        [&] { return files->CopyFile(deep + "file", folder / "b", {}, nullptr); },
        [&] { return files->DeleteMadeFile(deep + "copy", copied.made); },
        [&] { return files->CreateDirectory(deep + "new"); },
        [&] { return files->DeleteMadeFolder(folder / "out", other); }};
    for (const auto& operation : operations) {
      EXPECT_FALSE(operation());
      EXPECT_EQ(files->Problem(), kFolderReplaced);
    }
    EXPECT_FALSE(files->IsSameEntry(deep + "file", deep + "file"));
    EXPECT_FALSE(files->IsVeryFile(deep + "copy", copied.made));
    EXPECT_EQ(folder.List("out/deep"), (std::vector<std::string>{"copy", "file"}));
    EXPECT_TRUE(files->MoveFile(folder / "a", folder / "b", {}));  // all else goes on
    files->LetFoldersGo();
    EXPECT_TRUE(files->MoveFile(folder / "b", deep + "b", {}));
  }
}

TEST_F(PosixFiles, KnowOneEntryByWhateverPathAndLookAtItself) {
  folder.MakeFolder("sub");
  folder.MakeLink("to sub", "sub");
  folder.Write("sub/a", "12345");
  const struct timespec times[2] = {{1, 0}, {1'700'000'000, 123'456'789}};
  ASSERT_EQ(::utimensat(AT_FDCWD, (folder / "sub/a").c_str(), times, 0), 0);
  ASSERT_EQ(::link((folder / "sub/a").c_str(), (folder / "sub/hard").c_str()), 0);
  EXPECT_EQ(files->Look(folder / "sub/a")->size, 5u);
  EXPECT_EQ(files->Look(folder / "sub/a")->modified_ns, 1'700'000'000'123'456'789);
  EXPECT_EQ(files->Look(folder / "")->kind, EntryKind::kFolder);
  EXPECT_EQ(files->Look(folder / "to sub")->kind, EntryKind::kFile);
  EXPECT_FALSE(files->Look(folder / "none"));
  const std::string far = folder / "to sub/../to sub//./x?";
  EXPECT_EQ(files->ResolveFolder(far + "/"), far + "/");
  EXPECT_EQ(files->ResolveFolder(far),
            std::filesystem::canonical(folder.path()).string() + "/sub/x?");
  for (const char* top : {"/x", "x"}) EXPECT_EQ(files->ResolveFolder(top), top);
  EXPECT_TRUE(files->IsSameEntry(folder / "to sub/a", folder / "sub/../sub//a"));
  EXPECT_FALSE(files->IsSameEntry(folder / "sub/a", folder / "sub/hard"));
  EXPECT_FALSE(files->IsSameEntry(folder / "sub/a", folder / "sub/A"));
  EXPECT_FALSE(files->IsSameEntry(folder / "none", folder / "none"));
}

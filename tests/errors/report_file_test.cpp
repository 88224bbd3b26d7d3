#include "errors/report_file.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/file.h>
#include <sys/stat.h>

#include "support/fake_services.h"
#include "support/temp_folder.h"

namespace {

using testing::StartsWith;

constexpr char kFile[] = "Quorvane/ErrorReport.txt";

/// A documents folder, and a wait that only counts and lets something happen meanwhile.
class ReportFileTest : public testing::Test {
 protected:
  void Save(std::string_view report) {
    ErrTrace::SaveErrorReport(ErrTrace::kReportFileName, report, sources_);
  }

  std::string Expected(const std::string& report) const {
    return report + "\r\nProgram path: /opt/q\r\nError report path: " + documents_.path() +
           "/Quorvane/\r\n"
           "Free space (Program): 1.46 MB (1,536,001 bytes)\r\n"
           "Free space (Error): 1.46 MB (1,536,001 bytes)\r\n"
           "File name : quorvane\r\n"
           "File size : 1.17 MB (1,234,567 bytes)\r\n"
           "Manifest: True\r\nM6: False\r\n"
           "OS: Test System 1 build 2.3 (patch 4)\r\n\r\n\r\n";
  }

  TempFolder documents_;
  FakeFolders folders_{documents_.path()};
  FakeSystemFacts facts_;
  PlainLocale locale_;
  int waited_ms_ = 0;
  std::function<void()> meanwhile_;
  ReportSources sources_{facts_, locale_, folders_, {true, false}, [this](int milliseconds) {
                           waited_ms_ += milliseconds;
                           if (meanwhile_) meanwhile_();
                         }};
};

TEST_F(ReportFileTest, SetsTheSecondReportOffFromTheFirst) {
  Save("first");
  EXPECT_EQ(documents_.Read(kFile), Expected("first"));
  Save("second");
  EXPECT_EQ(documents_.Read(kFile), Expected("first") + "\r\n \r\n" + Expected("second"));
  Save("");
  EXPECT_EQ(documents_.Read(kFile), Expected("first") + "\r\n \r\n" + Expected("second"));
  EXPECT_EQ(waited_ms_, 0);
}

TEST_F(ReportFileTest, TakesAPathAsItStands) {
  ErrTrace::SaveErrorReport(documents_ / "own.txt", "text", sources_);
  EXPECT_EQ(documents_.Read("own.txt"), Expected("text"));
}

TEST_F(ReportFileTest, WaitsForALockUpToASecond) {
  documents_.MakeFolder("Quorvane");
  documents_.Write(kFile, "");
  const struct {
    int held_ms;
    int waited_ms;
    bool saved;
  } table[] = {{0, 0, true}, {200, 200, true}, {1000, 1000, true}, {1001, 1000, false}};
  for (const auto& row : table) {
    documents_.Write(kFile, "");
    int other = ::open((documents_ / kFile).c_str(), O_RDONLY | O_CLOEXEC);
    ASSERT_EQ(::flock(other, LOCK_EX), 0);
    waited_ms_ = 0;
    meanwhile_ = [&] {
      if (waited_ms_ >= row.held_ms && other >= 0) ::close(std::exchange(other, -1));
    };
    if (row.held_ms == 0) meanwhile_();
    Save("text");
    EXPECT_EQ(waited_ms_, row.waited_ms);
    EXPECT_EQ(documents_.Read(kFile)->size() > 0, row.saved) << row.held_ms;
    if (other >= 0) ::close(other);
  }
}

TEST_F(ReportFileTest, MakesTheFoldersThatAreMissing) {
  FakeFolders deeper(documents_ / "not/yet");
  ErrTrace::SaveErrorReport(ErrTrace::kReportFileName, "text",
                            {facts_, locale_, deeper, {}, sources_.wait});
  EXPECT_THAT(documents_.Read("not/yet/Quorvane/ErrorReport.txt").value_or(""),
              StartsWith("text\r\n"));
}

TEST_F(ReportFileTest, WritesNowhereButIntoAFileOfTheUsersOwnAndNeverWaitsForAnother) {
  const std::string file = documents_ / kFile, folder = documents_ / "Quorvane";
  const std::string kept = documents_ / "kept.txt", elsewhere = documents_ / "elsewhere";
  const auto give_away = [](const std::string& path) {
    return ::chown(path.c_str(), 65534, 65534);
  };
  const struct {
    const char* what;
    std::function<int()> make;
    bool only_superuser = false;
  } table[] = {
      {"a fifo", [&] { return ::unlink(file.c_str()) + ::mkfifo(file.c_str(), 0600); }},
      {"a folder", [&] { return ::unlink(file.c_str()) + ::mkdir(file.c_str(), 0700); }},
      {"a link", [&] { return ::unlink(file.c_str()) + ::symlink(kept.c_str(), file.c_str()); }},
      {"a device", [&] { return ::unlink(file.c_str()) + ::symlink("/dev/null", file.c_str()); }},
      {"a second name",
       [&] { return ::unlink(file.c_str()) + ::link(kept.c_str(), file.c_str()); }},
      {"another user's file", [&] { return give_away(file); }, true},
      {"another user's folder", [&] { return give_away(folder); }, true},
      {"a linked folder",
       [&] {
         return ::rename(folder.c_str(), elsewhere.c_str()) +
                ::symlink(elsewhere.c_str(), folder.c_str());
       }},
      {"a file in the place of the folder",
       [&] {
         return ::unlink(file.c_str()) + ::rmdir(folder.c_str()) +
                ::link(kept.c_str(), folder.c_str());
       }},
  };
  for (const auto& row : table) {
    if (row.only_superuser && ::geteuid() != 0) continue;
    for (const auto& old : {folder, elsewhere}) std::filesystem::remove_all(old);
    documents_.MakeFolder("Quorvane");
    documents_.Write(kFile, "old");
    documents_.Write("kept.txt", "old");
    ASSERT_EQ(row.make(), 0) << row.what;
    Save("text");
    EXPECT_EQ(waited_ms_, 0) << row.what;
    for (const auto& one : std::filesystem::recursive_directory_iterator(documents_.path())) {
      if (one.symlink_status().type() != std::filesystem::file_type::regular) continue;
      EXPECT_EQ(one.file_size(), 3U) << row.what << " " << one.path();
    }
  }
}

TEST_F(ReportFileTest, FollowsALinkedDocumentsFolder) {
  documents_.MakeFolder("far");
  documents_.MakeLink("near", "far");
  FakeFolders linked(documents_ / "near");
  ErrTrace::SaveErrorReport(ErrTrace::kReportFileName, "text", {facts_, locale_, linked});
  EXPECT_TRUE(documents_.Has("far/Quorvane/ErrorReport.txt"));
}

TEST_F(ReportFileTest, LeavesOutFactsThatCanNotBeHad) {
  facts_.broken = true;
  Save("text");
  EXPECT_THAT(documents_.Read(kFile).value_or(""),
              testing::HasSubstr("Free space (Error): \r\nFile name : quorvane\r\n"));
}

}  // namespace

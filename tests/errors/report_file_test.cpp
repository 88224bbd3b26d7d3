#include "errors/report_file.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include "support/fake_system.h"
#include "support/plain_locale.h"
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

TEST_F(ReportFileTest, IsSilentWhereNothingCanBeWritten) {
  struct Place {
    const char* what;
    std::function<void()> make;
    int waited_ms;
  };
  const Place table[] = {
      {"a file where the folder should be", [&] { documents_.Write("Quorvane", "mine"); }, 1000},
      {"a folder of the file's name",
       [&] {
         documents_.MakeFolder("Quorvane");
         documents_.MakeFolder(kFile);
       },
       1000},
      {"a fifo that nobody reads",
       [&] {
         documents_.MakeFolder("Quorvane");
         ASSERT_EQ(::mkfifo((documents_ / kFile).c_str(), 0600), 0);
       },
       1000},
      {"a full disk",
       [&] {
         documents_.MakeFolder("Quorvane");
         documents_.MakeLink(kFile, "/dev/full");
       },
       0},
  };
  for (const Place& place : table) {
    std::filesystem::remove_all(documents_ / "Quorvane");
    waited_ms_ = 0;
    place.make();
    Save("text");
    EXPECT_EQ(waited_ms_, place.waited_ms) << place.what;
  }
}

TEST_F(ReportFileTest, IsSilentInAReadOnlyFolder) {
  if (::geteuid() == 0) GTEST_SKIP() << "the superuser writes everywhere";
  documents_.MakeFolder("Quorvane");
  ASSERT_EQ(::chmod((documents_ / "Quorvane").c_str(), 0500), 0);
  Save("text");
  EXPECT_FALSE(documents_.Has(kFile));
}

TEST_F(ReportFileTest, FollowsALinkToWhereTheUserKeepsTheFile) {
  documents_.MakeFolder("Quorvane");
  documents_.Write("kept.txt", "old");
  documents_.MakeLink(kFile, documents_ / "kept.txt");
  Save("text");
  EXPECT_EQ(documents_.Read("kept.txt"), "old\r\n \r\n" + Expected("text"));
}

TEST_F(ReportFileTest, LeavesOutFactsThatCanNotBeHad) {
  facts_.broken = true;
  Save("text");
  EXPECT_THAT(documents_.Read(kFile).value_or(""),
              testing::HasSubstr("Free space (Error): \r\nFile name : quorvane\r\n"));
}

}  // namespace

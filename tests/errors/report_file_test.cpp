#include "errors/report_file.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/stat.h>

#include "errors/send_mail.h"
#include "support/fake_services.h"
#include "support/temp_folder.h"

constexpr char kFile[] = "Quorvane/ErrorReport.txt";

/// A documents folder, and a wait that only counts and lets something happen meanwhile.
struct ReportFileTest : testing::Test {
  ReportFileTest() { system_.folders.documents = documents_.path(); }

  void Save(std::string_view report, std::string_view file = ErrTrace::kReportFileName) {
    ErrTrace::SaveErrorReport(file, report, sources_);
  }

  std::string Expected(const std::string& report) const {
    return report + "\r\nProgram path: /opt/q\r\nError report path: " + documents_.path() +
           "/Quorvane/\r\nFree space (Program): 1.46 MB (1,536,001 bytes)\r\n"
           "Free space (Error): 1.46 MB (1,536,001 bytes)\r\n"
           "File name : quorvane\r\nFile size : 1.17 MB (1,234,567 bytes)\r\n"
           "Manifest: True\r\nM6: False\r\n"
           "OS: Test System 1 build 2.3 (patch 4)\r\n\r\n\r\n";
  }

  TempFolder documents_;
  FakeServices system_;
  int waited_ms_ = 0;
  std::function<void()> meanwhile_ = [] {};
  ReportSources sources_{system_.services, {true, false}, [this](int milliseconds) {
                           waited_ms_ += milliseconds;
                           meanwhile_();
                         }};
};

TEST_F(ReportFileTest, SetsTheSecondReportOffFromTheFirst) {
  Save("first");
  Save("second");
  Save("");
  EXPECT_EQ(documents_.Read(kFile), Expected("first") + "\r\n \r\n" + Expected("second"));
  EXPECT_EQ(waited_ms_, 0);
  Save("text", documents_ / "own.txt");
  EXPECT_EQ(documents_.Read("own.txt"), Expected("text"));
}

TEST_F(ReportFileTest, WaitsForALockUpToASecond) {
  documents_.MakeFolder("Quorvane");
  for (const int held_ms : {200, 1000, 1001}) {
    documents_.Write(kFile, "");
    int other = ::open((documents_ / kFile).c_str(), O_RDONLY | O_CLOEXEC);
    ASSERT_EQ(::flock(other, LOCK_EX), 0);
    waited_ms_ = 0;
    meanwhile_ = [&] {
      if (waited_ms_ >= held_ms && other >= 0) ::close(std::exchange(other, -1));
    };
    Save("text");
    EXPECT_EQ(waited_ms_, std::min(held_ms, 1000));
    EXPECT_EQ(documents_.Read(kFile)->empty(), held_ms > 1000) << held_ms;
    if (other >= 0) ::close(other);
  }
}

TEST_F(ReportFileTest, WritesNowhereButIntoAFileOfTheUsersOwnAndNeverWaitsForAnother) {
  const std::string file = documents_ / kFile, folder = documents_ / "Quorvane";
  const std::string kept = documents_ / "kept.txt", far = documents_ / "far";
  const bool superuser = ::geteuid() == 0;
  const auto gone = [&] { return ::unlink(file.c_str()); };
  const auto give_away = [&](const std::string& path) {
    return superuser ? ::chown(path.c_str(), 1, 1) : gone() + ::mkdir(file.c_str(), 0700);
  };
  const auto folder_gone = [&] { return gone() + ::rmdir(folder.c_str()); };
  const std::pair<const char*, std::function<int()>> table[] = {
      {"a fifo", [&] { return gone() + ::mkfifo(file.c_str(), 0600); }},
      {"a link", [&] { return gone() + ::symlink(kept.c_str(), file.c_str()); }},
      {"a device", [&] { return gone() + ::symlink("/dev/null", file.c_str()); }},
      {"a second name", [&] { return gone() + ::link(kept.c_str(), file.c_str()); }},
      {"another user's file", [&] { return give_away(file); }},
      {"another user's folder", [&] { return give_away(folder); }},
      {"a linked folder", [&] { return folder_gone() + ::symlink(far.c_str(), folder.c_str()); }},
      {"a file as folder", [&] { return folder_gone() + ::link(kept.c_str(), folder.c_str()); }}};
  for (const auto& [what, make] : table) {
    SCOPED_TRACE(what);
    for (const auto& old : {folder, far}) std::filesystem::remove_all(old);
    for (const std::string name : {"Quorvane", "far"}) {
      documents_.MakeFolder(name);
      documents_.Write(name + "/ErrorReport.txt", "old");
    }
    documents_.Write("kept.txt", "old");
    ASSERT_EQ(make(), 0);
    Save("text");
    EXPECT_EQ(waited_ms_, 0);
    for (const auto& one : std::filesystem::recursive_directory_iterator(documents_.path())) {
      if (one.symlink_status().type() != std::filesystem::file_type::regular) continue;
      EXPECT_EQ(one.file_size(), 3U) << one.path();
    }
  }
}

TEST(SendMail, OpensTheLinkOfAMessageAndDoesNotLookAtTheResult) {
  const std::pair<mMain::Mail, const char*> table[] = {
      {{""}, "link mailto:"},
      {{"a@b", "R&D 100%\r\nx\ry\n"}, "link mailto:a@b?Subject=R%26D%20100%%0D%0Ax%0Dy%0A"},
      {{"a@b", "", "text"}, "link mailto:a@b?Body=text%0D%0A"},
      {{"a@b", "s", "b c", "c & d", "e@f", "/a b.txt"},
       "link mailto:a@b?Subject=s&Body=b%20c%0D%0A&CC=c & d&BCC=e@f&Attacth=\"/a b.txt\""},
  };
  FakeShell shell;
  shell.answer = kShellNoAssociation;
  for (const auto& [mail, link] : table) {
    mMain::SendMail(shell, mail);
    EXPECT_EQ(shell.asked.back(), link);
  }
}

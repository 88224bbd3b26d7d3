// What a list of a million files costs, and of ten million: time, memory, and the longest time in
// which the program gave no answer. Each part runs in a process of its own, so that none counts
// another's memory.
//
//   quorvane_bench_million [folder]   makes 1,000,000 empty files in a new folder there, or in
//   TMPDIR

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QAccessible>
#include <QApplication>
#include <QPushButton>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "commands/commands.h"
#include "core/pass.h"
#include "filelist/file_list_panel.h"
#include "filelist/grid.h"
#include "filelist/list_view.h"
#include "filelist/scan.h"
#include "look/skin.h"
#include "names/preview.h"
#include "platform/clock.h"
#include "platform/files.h"
#include "ratio.h"
#include "rename/run.h"
#include "rename/undo.h"
#include "steps.h"
#include "support/fake_services.h"
#include "window/main_window.h"
#include "workspace.h"

namespace {

using bench::Require;
using bench::Steps;

constexpr std::size_t kFiles = 1'000'000;
constexpr std::size_t kManyRows = 10'000'000;
constexpr std::size_t kFewRows = 100'000;
constexpr std::size_t kFilesAFolder = 1000;
constexpr double kMostBytes = 140;   ///< a row, with its names
constexpr double kMostGrowth = 1.5;  ///< of the time a row, from few rows to many

std::string FileName(std::size_t i) {
  char buffer[40];
  std::snprintf(buffer, sizeof buffer, "IMG_%05zu.JPG", i);
  return buffer;
}

std::string FolderName(std::size_t i) {
  return "Day " + std::to_string(i);
}

void MakeFiles(const std::string& folder, std::size_t count) {
  std::filesystem::create_directories(folder);
  for (std::size_t i = 0; i < count; ++i) {
    Require(::mknod((folder + FileName(i)).c_str(), S_IFREG | 0644, 0) == 0, folder);
  }
}

/// Files that are nowhere: all there while they are listed, then every name is free and every move
/// is done. So what is measured is ours alone.
class ImaginedFiles : public MemoryFiles {
 public:
  explicit ImaginedFiles(std::size_t folders_in_root) : folders_in_root_(folders_in_root) {}
  bool listed = false;  ///< from now on files are where they are moved to

  std::optional<FileFacts> Look(std::string_view path) override {
    if (listed) return std::nullopt;
    return FileFacts{EntryKind::kFile, std::hash<std::string_view>()(path) % 9'000'000, 1, 1};
  }
  bool Exists(std::string_view) override { return false; }
  std::optional<FolderIdentity> IdentifyFolder(std::string_view path) override {
    return FolderIdentity{1, std::hash<std::string_view>()(path), 1};
  }
  bool MoveFile(std::string_view, std::string_view, const GoOn&, Fingerprint*) override {
    return true;
  }
  Attempt RenameKnown(std::string_view, std::string_view, Fingerprint) override {
    return Attempt::kDone;
  }

  bool List(std::string_view path, const GoOn&, FolderEntries& entries) override {
    const bool root = std::count(path.begin(), path.end(), '/') == 2;
    std::string& names = entries.names.emplace_back();
    const std::size_t count = root ? folders_in_root_ : kFilesAFolder;
    names.reserve(count * 20);
    for (std::size_t i = 0; i < count; ++i) {
      const std::size_t begin = names.size();
      names += root ? FolderName(i) : FileName(i);
      entries.entries.push_back(
          {std::string_view(names).substr(begin), root ? EntryKind::kFolder : EntryKind::kFile});
    }
    return true;
  }

 private:
  const std::size_t folders_in_root_;
};

/// "Pic 0000001.JPG": a name of up to 15 bytes stands in its row, a longer one takes 32 more.
void FillConstructor(Constructor& constructor) {
  constructor.DeleteArrConstrItem(0);
  constructor.InsertArrConstrItem(0, kCounter, "");
  constructor.ArrConstr[0].counter.Format = "0000000";
  constructor.InsertArrConstrItem(0, kText, "Pic ");
}

void MeasureSorts(Grid& grid, Steps& steps) {
  const auto populate = [&](const std::string& what, GroupBy groups, int column) {
    steps.Do(what, [&] {
      grid.SetGroupsOrder(groups);
      grid.SetSortOrder(column, true);
      grid.Populate();
    });
  };
  populate("populate", GroupBy::kNone, -1);
  populate("populate, by folder", GroupBy::kPath, -1);
  for (const int column : {kColumnPath, kColumnSize, kColumnType, kColumnDate, kColumnSourceName}) {
    const auto at = static_cast<std::size_t>(column);
    populate("sort by " + std::string(grid.List().Columns()[at].caption), GroupBy::kNone, column);
  }
}

/// The passes without a window over what lies in `folder`; each is a step.
void MeasurePasses(FileSystem& files, const std::string& folder, Steps& steps,
                   const std::function<void()>& listed) {
  FakeServices fakes;
  fakes.events.on_events = [&] { steps.Answer(); };
  const std::unique_ptr<Clock> clock = MakeSystemClock();
  const Services services = fakes.With(files, *clock, fakes.locale);
  Session session;
  FileTypes types(fakes.type_names);
  const auto pass = [&] {
    return Pass(session.records, session.state, services, session.records.Count());
  };
  steps.Do("scan", [&] {
    Pass scan = pass();
    mScanCD::Scan(scan, {folder, "", "", true}, types).ShowDir3_FillPreview("", folder);
  });
  Require(session.records.Count() == steps.Rows(), "the scan");
  listed();
  MeasureSorts(session.grid, steps);
  FillConstructor(session.constructor);
  steps.Do("preview", [&] {
    Pass preview = pass();
    SetPreview(preview, session.grid, session.constructor);
    session.state.gRowCounted.assign(session.records.Count(), 0);
  });
  RunOutput output;
  output.fdSourceFolder = folder;
  steps.Do("rename", [&] {
    Pass run = pass();
    RenameRun(run, output, session.reports).RunRename();
  });
  steps.Do("undo", [&] {
    Pass undo = pass();
    UndoRun(undo, session.reports).Undo();
  });
  Require(session.reports.gFailureReport.empty(), "the run or its undo");
}

/// The window with all that costs most: its skin, and assistive technology that reads it.
class WholeWindow {
 public:
  explicit WholeWindow(Steps& steps) : steps_(steps) {
    ApplySkin(application_, true);
    QAccessible::setActive(true);
    window_.emplace(session, services_);
    window_->resize(1600, 1000);
    window_->show();
    QApplication::processEvents();
    fakes_.events.on_events = [this] { LetEventsRun(); };
  }

  Form1& Window() { return *window_; }

  /// A click on a button, till all that it did is painted; "Cancel" is clicked after `rows`.
  void Do(const char* what, const char* button, std::int64_t rows = -1) {
    cancel_at_ = rows;
    steps_.Do(what, [&] {
      Button(button)->click();
      steps_.Answer();
      QApplication::processEvents();
    });
  }

  Session session;

 private:
  QPushButton* Button(const char* name) {
    return window_->findChild<QPushButton*>(QString::fromLatin1(name));
  }

  void LetEventsRun() {
    steps_.Answer();
    if (cancel_at_ >= 0 && session.state.counts.passed >= cancel_at_) {
      cancel_at_ = -1;
      Button("bnCancel")->click();
    }
    QApplication::processEvents();
  }

  Steps& steps_;
  int words_ = 0;
  QApplication application_{words_, nullptr};
  FakeServices fakes_;
  const std::unique_ptr<FileSystem> files_ = MakePosixFileSystem();
  const std::unique_ptr<Clock> clock_ = MakeSystemClock();
  const Services services_ = fakes_.With(*files_, *clock_, fakes_.locale);
  std::int64_t cancel_at_ = -1;
  std::optional<Form1> window_;  ///< last, for it uses all of the above
};

/// The commands as the user gives them, over the files of the part before.
void MeasureWindow(const std::string& root) {
  Steps steps("the window over 1,000 folders", kFiles);
  WholeWindow whole(steps);
  Session& session = whole.session;
  FillConstructor(session.constructor);
  whole.Window().TakeSourceFolder(root + "/many/");
  whole.Do("list", "bnLoadFileList");
  Require(session.records.Count() == steps.Rows(), "the list");
  whole.Do("list anew", "bnLoadFileList");
  whole.Do("preview", "bnPreview");
  whole.Window().findChild<ListView*>()->selectAll();
  whole.Do("rename, with all rows selected", "bnRename");
  Require(session.state.counts.done == static_cast<std::int64_t>(steps.Rows()), "the run");
  whole.Do("undo, cancelled amid it", "bnUndo", kFiles / 2);
  whole.Do("undo of the rest", "bnUndo");
  session.constructor.ArrConstr[0].ItemText = "IMG_";  // each takes the name of the next
  session.constructor.ArrConstr[1].counter.Format = "00000";
  whole.Do("preview of a chain", "bnPreview");
  whole.Do("rename of a tenth of it", "bnRename", kFiles / 10);
  whole.Do("undo of that", "bnUndo");
  Require(session.reports.gFailureReport.empty(), "the undo");
}

void PrintAim(const std::string& what, double value, double aim) {
  std::printf("%-34s %9.2f  aim %5.2f  %s\n", what.c_str(), value, aim,
              value <= aim ? "met" : "MISSED");
}

/// Many rows and few, which must not differ in the time a row.
void MeasureRows(const std::string&) {
  const std::string root = "/imagined/";
  const auto steps_of = [&](const char* title, std::size_t rows) {
    Steps steps(title, rows);
    ImaginedFiles files(rows / kFilesAFolder);
    MeasurePasses(files, root, steps, [&] { files.listed = true; });
    return steps;
  };
  const Steps few = steps_of("100,000 rows without files", kFewRows);
  const Steps many = steps_of("10,000,000 rows without files", kManyRows);
  PrintAim("bytes a row", many.BytesARow(), kMostBytes);
  for (std::size_t i = 0; i < few.Times().size(); ++i) {
    PrintAim(few.Times()[i].first + ", many / few", many.Times()[i].second / few.Times()[i].second,
             kMostGrowth);
  }
}

void MeasureFiles(const std::string& folder, const char* title) {
  Steps steps(title, kFiles);
  MeasurePasses(*MakePosixFileSystem(), folder, steps, [] {});
}

void MeasureManyFolders(const std::string& root) {
  const std::string folder = root + "/many/";
  for (std::size_t f = 0; f < kFiles / kFilesAFolder; ++f) {
    MakeFiles(folder + FolderName(f) + "/", kFilesAFolder);
  }
  MeasureFiles(folder, "1,000,000 files in 1,000 folders");
}

void MeasureOneFolder(const std::string& root) {
  const std::string folder = root + "/one/";
  MakeFiles(folder, kFiles);
  MeasureFiles(folder, "1,000,000 files in one folder");
}

/// Runs a part in a process of its own.
void Apart(void (*part)(const std::string& root), const std::string& root) {
  std::fflush(stdout);
  const pid_t child = ::fork();
  Require(child >= 0, "fork");
  if (child == 0) {
    int result = 0;
    try {
      part(root);
    } catch (const std::exception& failure) {
      std::fprintf(stderr, "%s\n", failure.what());
      result = 1;
    }
    std::fflush(stdout);
    ::_exit(result);
  }
  int status = 0;
  Require(::waitpid(child, &status, 0) == child && status == 0, "a part");
}

}  // namespace

int main(int argc, char** argv) {
  ::setenv("QT_QPA_PLATFORM", "offscreen", 0);
  return bench::RunInNewFolder(argc, argv, [](const std::string& root) {
    for (auto part : {MeasureManyFolders, MeasureWindow, MeasureOneFolder, MeasureRows}) {
      Apart(part, root);
    }
  });
}

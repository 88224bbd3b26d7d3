// What a list of a million files costs: the scan beside `find -printf` in the same run, and in
// milliseconds of the processor what has no bare counterpart: grouping, each sort, a step of
// scrolling, a letter typed till the names that it changes are painted; and the peak of memory.
//
//   quorvane_bench_lists [folder]   works in a new folder there, or in TMPDIR

#include <sys/resource.h>
#include <unistd.h>

#include <QApplication>
#include <QHeaderView>
#include <QLineEdit>
#include <QScrollBar>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

#include "commands/commands.h"
#include "core/pass.h"
#include "filelist/file_list_panel.h"
#include "filelist/grid.h"
#include "filelist/grouped_rows_model.h"
#include "filelist/list_view.h"
#include "filelist/scan.h"
#include "platform/clock.h"
#include "platform/files.h"
#include "ratio.h"
#include "support/fake_services.h"
#include "window/main_window.h"
#include "workspace.h"

namespace {

using bench::Require;

constexpr int kFilesAFolder = 1000;
constexpr int kScannedFolders = 100;
constexpr int kListedFolders = 1000;
constexpr int kRounds = 5;
constexpr int kSteps = 200;

std::string Name(int i) {
  char buffer[24];
  std::snprintf(buffer, sizeof buffer, "IMG_%05d.JPG", i);
  return buffer;
}

/// The same number of files in so many folders.
void MeasureScan(const std::string& root, int folders, const char* all_title,
                 const char* few_title) {
  constexpr int kFiles = kScannedFolders * kFilesAFolder;
  const std::string tree = root + "/in " + std::to_string(folders) + "/";
  for (int i = 0; i < kFiles; ++i) {
    const std::string folder = tree + "folder" + std::to_string(i % folders) + "/";
    if (i < folders) std::filesystem::create_directories(folder);
    Require(!!std::ofstream(folder + Name(i / folders)), folder);
  }
  const std::unique_ptr<FileSystem> files = MakePosixFileSystem();
  const std::unique_ptr<Clock> clock = MakeSystemClock();
  FakeServices fakes;
  const Services services = fakes.With(*files, *clock, fakes.locale);
  const auto ours = [&](const char* mask, std::size_t expected) {
    Records records;
    RunState state;
    FileTypes types(fakes.type_names);
    Pass pass(records, state, services, 0);
    mScanCD::Scan(pass, {tree, mask, "", true}, types).ShowDir3_FillPreview("tree", tree);
    Require(records.Count() == expected, "the scan");
  };
  const std::string command = "find '" + tree + "' -type f -printf '%s %T@ %p\\n' > /dev/null";
  const auto find = [&] { Require(std::system(command.c_str()) == 0, "find"); };
  if (std::system("find --version > /dev/null 2>&1") != 0) return;
  bench::Ratio all(all_title, 0.9, kFiles);
  bench::Ratio few(few_title, 0.5, kFiles);
  ours("", kFiles);
  for (int round = 0; round < kRounds; ++round) {
    all.Round([&] { ours("", kFiles); }, find);
    few.Round([&] { ours("*77.JPG", kFiles / 100); }, find);
  }
  all.Print();
  few.Print();
}

/// New names are in no order at all, sizes and dates nearly so.
void Fill(Records& records) {
  std::uint32_t any = 1;
  for (int f = 0; f < kListedFolders; ++f) {
    const std::string name = "Day " + std::to_string(f);
    for (int i = 0; i < kFilesAFolder; ++i) {
      any = any * 1664525 + 1013904223;  // Numerical Recipes, "quick and dirty" generators
      records.AddRecord(name, "/home/user/Pictures/" + name + "/", Name(i),
                        FileDate(2024, 1 + f % 12, 1 + i % 28, 1, 2, 3), any >> 12,
                        i % 9 == 0 ? "Text" : "JPEG image");
      records[records.Count() - 1].newFileName = "Lisbon " + std::to_string(any) + ".jpg";
    }
  }
}

/// Of the processor, so that what else the machine does isn't counted.
template <class Work>
double Milliseconds(Work&& work) {
  const std::clock_t begin = std::clock();
  work();
  return 1000.0 * static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC;
}

template <class Work>
void Print(const char* what, double aim_ms, Work&& work) {
  const double ms = Milliseconds(work);
  std::printf("%-34s %9.2f ms  aim %7.1f  %s\n", what, ms, aim_ms, ms <= aim_ms ? "met" : "MISSED");
  std::fflush(stdout);
}

void MeasureSorts(Grid& grid) {
  constexpr double kAim = 1000;
  const auto populate = [&](int column, bool ascending) {
    grid.SetSortOrder(column, ascending);
    grid.Populate();
  };
  for (const GroupBy groups : {GroupBy::kNone, GroupBy::kType, GroupBy::kPath}) {
    grid.SetGroupsOrder(groups);
    const int by = kGroupColumns[static_cast<int>(groups)];
    const std::string what =
        by < 0 ? "populate"
               : "group by " + std::string(grid.List().Columns()[std::size_t(by)].caption);
    Print(what.c_str(), kAim, [&] { populate(-1, true); });
  }
  for (int column = 0; grid.List().CanSort(column) || column <= kColumnNewName; ++column) {
    if (!grid.List().CanSort(column)) continue;
    const std::string what =
        "sort by " + std::string(grid.List().Columns()[std::size_t(column)].caption);
    Print(what.c_str(), kAim, [&] { populate(column, true); });
    Print((what + ", downwards").c_str(), kAim, [&] { populate(column, false); });
  }
  populate(-1, true);
}

/// Names of which most are equal for long: what is tried is the text of the sort alone.
void MeasureLongNames() {
  constexpr double kAim = 1000;
  constexpr const char* kFormats[] = {
      "%4$d-%3$02d-%2$02d Holiday in Portugal - Lisbon - Camera B - IMG_%1$04d.jpg",
      "Holiday in Portugal - Lisbon - Camera B - %4$d-%3$02d-%2$02d IMG_%1$04d.jpg",
      "The long title of a book with a subtitle - volume %4$d, the complete and revised edition, "
      "chapter %3$02d, part %2$02d, page %1$04d.jpg"};
  for (const char* format : kFormats) {
    std::uint32_t any = 1;
    std::vector<std::string> names(std::size_t{kListedFolders} * kFilesAFolder);
    for (std::string& name : names) {
      any = any * 1664525 + 1013904223;
      char buffer[160];
      const int i = static_cast<int>(any >> 8);
      std::snprintf(buffer, sizeof buffer, format, i % 10000, 1 + i / 7 % 28, 1 + i / 3 % 12,
                    2010 + i / 11 % 10);
      name = buffer;
    }
    const auto name_of = [&](std::size_t i) { return std::string_view(names[i]); };
    for (const bool ascending : {true, false}) {
      const std::string what = names[0].substr(0, 20) + "..." + (ascending ? "" : ", downwards");
      Print(what.c_str(), kAim,
            [&] { SortedByText(names.size(), name_of, AppendNaturalKey, ascending); });
    }
  }
}

void MeasureScroll(Grid& grid) {
  GroupedRowsModel model(grid.List());
  ListView view(model);
  constexpr int kShownRows = 40;
  view.resize(1200, view.verticalHeader()->defaultSectionSize() * kShownRows);
  view.show();
  QApplication::processEvents();
  const int step = std::max(1, view.verticalScrollBar()->maximum() / kSteps);
  const double ms = Milliseconds([&] {
    for (int i = 0; i < kSteps; ++i) {
      view.verticalScrollBar()->setValue(i * step);
      view.grab();
    }
  });
  std::printf("%-34s %9.2f ms  aim %7.1f\n", "a step of scrolling, 40 rows painted", ms / kSteps,
              100.0);
}

/// Of the whole program, in use now.
double Megabytes() {
  long pages = 0, resident = 0;
  std::ifstream("/proc/self/statm") >> pages >> resident;
  return static_cast<double>(resident * ::sysconf(_SC_PAGESIZE)) / (1 << 20);
}

/// From a letter typed to the drafts of all rows in sight painted, with a counter, wherever the
/// list is scrolled to; now and then a box is ticked before.
void MeasureDrafts(Session& session) {
  FakeServices fakes;
  Form1 window(session, fakes.services);
  window.resize(1600, 1000);
  window.show();
  auto* list = window.findChild<ListView*>();
  auto* letters = window.findChild<QLineEdit*>(QStringLiteral("fdReplace2"));
  window.findChild<QLineEdit*>(QStringLiteral("fdReplace1"))->setText(QStringLiteral("IMG"));
  session.constructor.InsertArrConstrItem(0, kCounter, "");
  for (const GroupBy groups : {GroupBy::kNone, GroupBy::kPath}) {
    for (const int column : {-1, int{kColumnNewName}}) {
      session.grid.SetGroupsOrder(groups);
      session.grid.SetSortOrder(column, true);
      session.grid.Populate();
      static_cast<ListSurface*>(window.findChild<FileListPanel*>())
          ->ListRepopulated(EmptyList::kNotListed);
      QApplication::processEvents();
      Require(list->model()->headerData(kColumnNewName, Qt::Horizontal).toString().endsWith(u')'),
              "the drafts");
      const double before = Megabytes();
      double worst = 0;
      for (int i = 0; i < kSteps; ++i) {
        QScrollBar* bar = list->verticalScrollBar();
        bar->setValue(static_cast<int>(std::int64_t{bar->maximum()} * (i * 77 % kSteps) / kSteps));
        const QModelIndex box = list->model()->index(i * 5 % list->model()->rowCount(), 4);
        if (i % 5 == 0) list->model()->setData(box, i % 2 * 2, Qt::CheckStateRole);
        worst = std::max(worst, Milliseconds([&] {
                           letters->setText(QString(i % 20, u'x'));
                           QApplication::processEvents();
                         }));
      }
      std::printf("letter to drafts, %s, %-11s %9.2f ms  aim %7.1f  %s, %.1f MB more\n",
                  groups == GroupBy::kNone ? "plain  " : "grouped",
                  column < 0 ? "unsorted" : "sorted", worst, 50.0, worst <= 50 ? "met" : "MISSED",
                  Megabytes() - before);
    }
  }
}

void PrintPeak() {
  struct rusage used = {};
  ::getrusage(RUSAGE_SELF, &used);
  std::printf("%-34s %9ld MB\n", "peak of memory", used.ru_maxrss / 1024);
}

}  // namespace

int main(int argc, char** argv) {
  ::setenv("QT_QPA_PLATFORM", "offscreen", 0);
  QApplication application(argc, argv);
  return bench::RunInNewFolder(argc, argv, [](const std::string& root) {
    MeasureScan(root, kScannedFolders, "scan / find -printf", "scan, 99 of 100 rejected / find");
    MeasureScan(root, 1, "scan of one folder / find", "one folder, 99 of 100 rejected");
    Session session;
    Fill(session.records);
    MeasureSorts(session.grid);
    MeasureScroll(session.grid);
    MeasureDrafts(session);
    PrintPeak();
    MeasureLongNames();
  });
}

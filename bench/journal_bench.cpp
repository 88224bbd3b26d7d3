// A run in place with its journal beside the same run without, in the same run of the program; and
// how large a journal gets. Usage: quorvane_bench_journal [folder]; works in a new folder there, or
// in TMPDIR, and keeps the journal there too.

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>
#include <ctime>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>

#include "core/records.h"
#include "platform/clock.h"
#include "platform/files.h"
#include "ratio.h"
#include "rename/journaled_files.h"
#include "rename/left_runs.h"
#include "rename/run.h"
#include "rename/run_journal.h"
#include "support/fake_services.h"
#include "workspace.h"

namespace {

using bench::Require;

constexpr int kFiles = 100'000;
constexpr int kRounds = 5;
constexpr double kLargest = 200;  // bytes an operation

struct World {
  std::unique_ptr<FileSystem> files = MakePosixFileSystem();
  std::unique_ptr<Clock> clock = MakeSystemClock();
  FakeServices fakes;
  const Services services = fakes.With(*files, *clock, fakes.locale);
};

std::string Name(int i, const char* what) {
  char buffer[24];
  std::snprintf(buffer, sizeof buffer, "%s_%06d.JPG", what, i);
  return buffer;
}

struct Times {
  double wall;
  double processor;
};

/// The times of a run that gives all files of `folder` new names, told to `journal` if that keeps
/// any.
Times RunOnce(World& world, const std::string& folder, const char* from, const char* to,
              RunJournal& journal) {
  Records records;
  for (int i = 0; i < kFiles; ++i) {
    records.AddRecord("", folder, Name(i, from), FileDate(), 0, "");
    FileRow& row = records[static_cast<std::size_t>(i)];
    row.newFileName = Name(i, to);
    row.fingerprint = world.files->Look(folder + row.sourceFileName)->fingerprint;  // as scanned
  }
  RunState state;
  RunReports reports;
  RunOutput output;
  output.fdSourceFolder = folder;
  const std::clock_t begun = std::clock();
  const double wall = bench::Seconds([&] {
    std::optional<JournaledServices> journaled;
    if (journal.Keeps()) {
      journal.Begin({OwnMark(), 0, journal::Work::kRun, 0, folder, kFiles});
      journaled.emplace(world.services, journal, [&] { journal.Sync(); });
    }
    Pass pass(records, state, journaled ? journaled->Get() : world.services, records.Count());
    RenameRun(pass, output, reports).RunRename();
    journal.End();
  });
  Require(reports.gFailureReport.empty() && journal.Problem() == 0, "the run");
  return {wall, static_cast<double>(std::clock() - begun) / CLOCKS_PER_SEC};
}

void MeasureRun(World& world, const std::string& root) {
  const std::string folder = root + "/a folder/of some depth/";
  std::filesystem::create_directories(folder);
  for (int i = 0; i < kFiles; ++i) {
    const int fd = ::open((folder + Name(i, "IMG")).c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0644);
    Require(fd >= 0, folder);
    ::close(fd);
  }
  RunJournal without, with;
  with.KeepIn(root + "/state");
  bench::Ratio wall("run in place / without its journal", 1.05, kFiles);
  bench::Ratio processor("the same in processor time", 1.05, kFiles);
  RunOnce(world, folder, "IMG", "DSC", without);
  for (int round = 0; round < kRounds; ++round) {
    const Times ours = RunOnce(world, folder, "DSC", "IMG", with);
    with.Remove();
    const Times floor = RunOnce(world, folder, "IMG", "DSC", without);
    wall.Add(ours.wall, floor.wall);
    processor.Add(ours.processor, floor.processor);
  }
  wall.Print();
  processor.Print();
}

/// What 1,000,000 renames take between names of that many bytes.
void PrintSize(std::size_t name) {
  journal::Writer writer;
  std::string bytes;
  const Fingerprint file = 0x123456789ABCDEF0;
  const std::string from(name, 'a'), to(name, 'b');
  writer.Before(bytes, {journal::Action::kMove, {100, from}, {100, to}, file});
  writer.After(journal::Outcome::kDone, {});
  const auto size = static_cast<double>(bytes.size());
  std::printf("journal of 1,000,000, names of %3zu bytes %9.1f MB  aim %3.0f  %s\n", name, size,
              kLargest, size <= kLargest ? "met" : "MISSED");
}

void MeasureReading(World& world, const std::string& root) {
  const std::string folder = root + "/a folder/of some depth/";
  {
    RunJournal journal;  // its end lets go of the file, and leaves it
    journal.KeepIn(root + "/state");
    RunOnce(world, folder, "DSC", "IMG", journal);
  }
  std::unique_ptr<LeftRun> left;
  const double read = bench::Seconds([&] {
    left = LeftRun::Read(LeftJournals(root + "/state")[0], *world.files, [] { return true; });
  });
  Require(left != nullptr && left->Told().renamed == kFiles, "reading");
  RunState state;
  const double back = bench::Seconds([&] { left->PutBack(world.services, state); });
  Require(state.counts.done == kFiles, "putting back");
  std::printf("of %d files: read %.2f s, put back %.2f s\n", kFiles, read, back);
}

}  // namespace

int main(int argc, char** argv) {
  return bench::RunInNewFolder(argc, argv, [](const std::string& root) {
    World world;
    MeasureRun(world, root);
    MeasureReading(world, root);
    for (const std::size_t name : {16, 40, 80}) PrintSize(name);
  });
}

// The passes over real files beside the bare system calls that they can't do without, measured in
// the same run. Usage: quorvane_bench_passes [folder]; works in a new folder there, or in TMPDIR.

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "core/records.h"
#include "filelist/scan.h"
#include "platform/clock.h"
#include "platform/event_pump.h"
#include "platform/files.h"
#include "platform/type_names.h"
#include "ratio.h"
#include "rename/run.h"
#include "workspace.h"

namespace {

using bench::Require;

constexpr int kFolders = 100;
constexpr int kFilesAFolder = 1000;
constexpr int kRenames = 20'000;
constexpr int kOneName = 5'000;
constexpr int kRounds = 5;

class NoEvents : public EventPump {
 public:
  void LetEventsRun() override {}
};

class NoTypeNames : public TypeNames {
 public:
  std::string TypeName(std::string_view) override { return {}; }
};

struct World {
  std::unique_ptr<FileSystem> files = MakePosixFileSystem();
  std::unique_ptr<Clock> clock = MakeSystemClock();
  NoEvents events;
  NoTypeNames type_names;
};

std::string Name(int i) {
  char buffer[16];
  std::snprintf(buffer, sizeof buffer, "IMG_%05d.JPG", i);
  return buffer;
}

std::string Numbered(int i) {
  const std::string name = Name(i);
  return name.substr(0, 9) + "_{1}.JPG";
}

void Touch(const std::string& path) {
  const int fd = ::open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0644);
  Require(fd >= 0, path);
  ::close(fd);
}

/// A new folder with `count` files; ends in the separator.
std::string FolderOf(const std::string& root, int count) {
  static int folders = 0;
  const std::string folder = root + "/a folder/of some depth/" + std::to_string(folders++) + "/";
  std::filesystem::create_directories(folder);
  for (int i = 0; i < count; ++i) Touch(folder + Name(i));
  return folder;
}

bool Taken(const std::string& path) {
  struct stat facts;
  return ::lstat(path.c_str(), &facts) == 0;
}

void Move(const std::string& from, const std::string& to) {
  Require(::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0, to);
}

/// What one file's rename asks of the system at least: a test and a move that can't replace.
void TestAndMove(const std::string& from, const std::string& to) {
  Require(!Taken(to), to);
  Move(from, to);
}

/// The run over the files of `folder`, each of which takes the name that `new_name` gives.
template <class NewName>
double OurRun(World& world, const std::string& folder, int count, NewName new_name) {
  Records records;
  for (int i = 0; i < count; ++i) {
    records.AddRecord("", folder, Name(i), FileDate(), 0, "");
    records[static_cast<std::size_t>(i)].newFileName = new_name(i);
  }
  RunState state;
  RunReports reports;
  const OutputOptions output{kUseSourceFolder, "", true, folder};
  const double seconds = bench::Seconds([&] {
    RenameRun(output, records, state, *world.files, world.events, *world.clock, reports)
        .RunRename();
  });
  Require(reports.gFailureReport.empty(), "the run");
  return seconds;
}

void MeasureScan(World& world, const std::string& root) {
  const std::string tree = root + "/tree/";
  for (int f = 0; f < kFolders; ++f) {
    const std::string folder = tree + "folder" + std::to_string(f) + "/";
    std::filesystem::create_directories(folder);
    for (int i = 0; i < kFilesAFolder; ++i) Touch(folder + Name(i));
  }
  const auto ours = [&](const char* mask, std::size_t expected) {
    Records records;
    RunState state;
    FileTypes types(world.type_names);
    LongPass pass(0, state, world.events, *world.clock);
    mScanCD::Scan({mask, "", true}, records, state, *world.files, *world.clock, types, pass)
        .ShowDir3_FillPreview("tree", tree);
    Require(records.Count() == expected, "the scan");
  };
  const std::string command = "find '" + tree + "' -type f -printf '%s %T@ %p\\n' > /dev/null";
  const auto find = [&] { Require(std::system(command.c_str()) == 0, "find"); };
  if (std::system("find --version > /dev/null 2>&1") != 0) return;
  constexpr long kFiles = long{kFolders} * kFilesAFolder;
  bench::Ratio all("scan / find -printf", 1.0, kFiles);
  bench::Ratio few("scan, 99 of 100 rejected / find", 0.5, kFiles);
  ours("", static_cast<std::size_t>(kFiles));
  for (int round = 0; round < kRounds; ++round) {
    all.Round([&] { ours("", static_cast<std::size_t>(kFiles)); }, find);
    few.Round([&] { ours("*77.JPG", static_cast<std::size_t>(kFiles) / 100); }, find);
  }
  all.Print();
  few.Print();
}

void MeasureInPlace(World& world, const std::string& root) {
  bench::Ratio ratio("rename run / test + renameat2", 1.2, kRenames);
  for (int round = 0; round < kRounds; ++round) {
    const std::string first = FolderOf(root, kRenames), second = FolderOf(root, kRenames);
    const double ours = OurRun(world, first, kRenames, [](int i) { return "new " + Name(i); });
    ratio.Add(ours, bench::Seconds([&] {
                for (int i = 0; i < kRenames; ++i) {
                  TestAndMove(second + Name(i), second + "new " + Name(i));
                }
              }));
  }
  ratio.Print();
}

void MeasureChain(World& world, const std::string& root) {
  bench::Ratio ratio("chain / holder aside, then move", 1.3, kRenames);
  for (int round = 0; round < kRounds; ++round) {
    const std::string first = FolderOf(root, kRenames), second = FolderOf(root, kRenames);
    const double ours = OurRun(world, first, kRenames, [](int i) { return Name(i + 1); });
    ratio.Add(ours, bench::Seconds([&] {
                for (int i = 0; i < kRenames; ++i) {
                  const std::string target = second + Name(i + 1);
                  if (Taken(target)) TestAndMove(target, second + Numbered(i + 1));
                  Move(second + (i == 0 ? Name(0) : Numbered(i)), target);
                }
              }));
  }
  ratio.Print();
}

void MeasureOneName(World& world, const std::string& root) {
  bench::Ratio ratio("one name / number remembered", 1.5, kOneName);
  for (int round = 0; round < kRounds; ++round) {
    const std::string first = FolderOf(root, kOneName), second = FolderOf(root, kOneName);
    const double ours = OurRun(world, first, kOneName, [](int) { return "Lisbon.jpg"; });
    ratio.Add(ours, bench::Seconds([&] {
                TestAndMove(second + Name(0), second + "Lisbon.jpg");
                for (int i = 1; i < kOneName; ++i) {
                  TestAndMove(second + Name(i), second + "Lisbon_{" + std::to_string(i) + "}.jpg");
                }
              }));
  }
  ratio.Print();
}

}  // namespace

int main(int argc, char** argv) {
  return bench::RunInNewFolder(argc, argv, [](const std::string& root) {
    World world;
    MeasureScan(world, root);
    MeasureInPlace(world, root);
    MeasureChain(world, root);
    MeasureOneName(world, root);
  });
}

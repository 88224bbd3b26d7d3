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
#include "platform/clock.h"
#include "platform/files.h"
#include "ratio.h"
#include "rename/run.h"
#include "rename/undo.h"
#include "support/fake_services.h"
#include "workspace.h"

namespace {

using bench::Require;

constexpr int kRenames = 20'000;
constexpr int kFew = 5'000;
constexpr int kRounds = 5;

/// Real files and a real clock; the rest is none of the passes' work.
struct World {
  std::unique_ptr<FileSystem> files = MakePosixFileSystem();
  std::unique_ptr<Clock> clock = MakeSystemClock();
  FakeServices fakes;
  const Services services = fakes.With(*files, *clock, fakes.locale);
};

std::string Name(int i) {
  char buffer[24];
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

/// What a rename asks of the system where a number is looked for: a test and a move.
void TestAndMove(const std::string& from, const std::string& to) {
  Require(!Taken(to), to);
  Move(from, to);
}

struct Times {
  double run;
  double undo;
};

/// The run over the files of `folder`, each of which takes the name that `new_name` gives, and its
/// undo.
template <class NewName>
Times OurRunAndUndo(World& world, const std::string& folder, int count, NewName new_name) {
  Records records;
  for (int i = 0; i < count; ++i) {
    const Fingerprint file = world.files->Look(folder + Name(i))->fingerprint;
    records.AddRecord("", folder, Name(i), FileDate(), 0, "", file);
    records[static_cast<std::size_t>(i)].newFileName = new_name(i);
  }
  RunState state;
  RunReports reports;
  RunOutput output;
  output.fdSourceFolder = folder;
  Times times;
  times.run = bench::Seconds([&] {
    Pass pass(records, state, world.services, records.Count());
    RenameRun(pass, output, reports).RunRename();
  });
  Require(reports.gFailureReport.empty(), "the run");
  times.undo = bench::Seconds([&] {
    Pass pass(records, state, world.services, records.Count());
    UndoRun(pass, reports).Undo();
  });
  Require(reports.gFailureReport.empty(), "the undo");
  return times;
}

struct Goal {
  const char* name;
  double aim;
};

/// A run and its undo beside the bare calls that each file needs: `floor(folder, i)`.
template <class NewName, class RunFloor, class UndoFloor>
void Measure(World& world, const std::string& root, int count, Goal run_goal, Goal undo_goal,
             NewName new_name, RunFloor run_floor, UndoFloor undo_floor) {
  bench::Ratio run(run_goal.name, run_goal.aim, count);
  bench::Ratio undo(undo_goal.name, undo_goal.aim, count);
  for (int round = 0; round < kRounds; ++round) {
    const std::string first = FolderOf(root, count), second = FolderOf(root, count);
    const Times ours = OurRunAndUndo(world, first, count, new_name);
    const auto each = [&](auto& floor) {
      return bench::Seconds([&] {
        for (int i = 0; i < count; ++i) floor(second, i);
      });
    };
    run.Add(ours.run, each(run_floor));
    undo.Add(ours.undo, each(undo_floor));
  }
  run.Print();
  undo.Print();
}

void MeasureInPlace(World& world, const std::string& root) {
  const auto new_name = [](int i) { return "new " + Name(i); };
  Measure(
      world, root, kRenames, {"rename run / renameat2", 1.15}, {"its undo / renameat2", 1.15},
      new_name,
      [&](const std::string& folder, int i) { Move(folder + Name(i), folder + new_name(i)); },
      [&](const std::string& folder, int i) { Move(folder + new_name(i), folder + Name(i)); });
}

/// Every file takes the next one's name: the run moves holders aside, the undo finds names free.
void MeasureChain(World& world, const std::string& root, int count, Goal run, Goal undo) {
  Measure(
      world, root, count, run, undo, [](int i) { return Name(i + 1); },
      [](const std::string& folder, int i) {
        const std::string target = folder + Name(i + 1);
        if (Taken(target)) TestAndMove(target, folder + Numbered(i + 1));
        Move(folder + (i == 0 ? Name(0) : Numbered(i)), target);
      },
      [](const std::string& folder, int i) {
        TestAndMove(folder + Name(i + 1), folder + Name(i));
      });
}

/// Every file takes the name of the one before: the other way about.
void MeasureChainBack(World& world, const std::string& root, int count, Goal run, Goal undo) {
  const auto new_name = [](int i) { return i == 0 ? std::string("first.JPG") : Name(i - 1); };
  Measure(
      world, root, count, run, undo, new_name,
      [&](const std::string& folder, int i) {
        TestAndMove(folder + Name(i), folder + new_name(i));
      },
      [&](const std::string& folder, int i) {
        const std::string former = folder + Name(i);
        if (Taken(former)) TestAndMove(former, folder + Numbered(i));
        Move(folder + (i == 0 ? new_name(0) : Numbered(i - 1)), former);
      });
}

void MeasureOneName(World& world, const std::string& root, int count, Goal run, Goal undo) {
  const auto numbered = [](int i) {
    return i == 0 ? std::string("Lisbon.jpg") : "Lisbon_{" + std::to_string(i) + "}.jpg";
  };
  Measure(
      world, root, count, run, undo, [](int) { return "Lisbon.jpg"; },
      [&](const std::string& folder, int i) {
        TestAndMove(folder + Name(i), folder + numbered(i));
      },
      [&](const std::string& folder, int i) {
        TestAndMove(folder + numbered(i), folder + Name(i));
      });
}

/// Each at two sizes: the time a file must not grow with their number.
void MeasureConflicts(World& world, const std::string& root) {
  MeasureChain(world, root, kFew, {"5,000 chain / aside, then move", 1.3}, {"its undo", 1.3});
  MeasureChain(world, root, kRenames, {"20,000 chain / aside, then move", 1.3}, {"its undo", 1.3});
  MeasureChainBack(world, root, kFew, {"5,000 chain back / test, move", 1.3},
                   {"its undo / aside, then move", 1.3});
  MeasureChainBack(world, root, kRenames, {"20,000 chain back / test, move", 1.3},
                   {"its undo / aside, then move", 1.3});
  MeasureOneName(world, root, kFew, {"5,000 one name / number kept", 1.5}, {"its undo", 1.5});
  MeasureOneName(world, root, kRenames, {"20,000 one name / number kept", 1.5}, {"its undo", 1.5});
}

}  // namespace

int main(int argc, char** argv) {
  return bench::RunInNewFolder(argc, argv, [](const std::string& root) {
    World world;
    MeasureInPlace(world, root);
    MeasureConflicts(world, root);
  });
}

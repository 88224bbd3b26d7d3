// The whole job in one go, for bench/peers: lists the files below a folder with sizes and dates,
// and gives each a new name, in which the text `to` stands in place of `from`.
//
//   quorvane_whole_job ours folder/ from to    as the program does it, without a window
//   quorvane_whole_job floor folder/ from to   the bare calls that nobody can do without

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "commands/commands.h"
#include "filelist/scan.h"
#include "names/preview.h"
#include "platform/clock.h"
#include "platform/files.h"
#include "rename/run.h"
#include "support/fake_services.h"
#include "workspace.h"

namespace {

using bench::Require;

void DoOurs(const std::string& folder, const std::string& from, const std::string& to) {
  FakeServices fakes;
  const std::unique_ptr<FileSystem> files = MakePosixFileSystem();
  const std::unique_ptr<Clock> clock = MakeSystemClock();
  const Services services = fakes.With(*files, *clock, fakes.locale);
  FileTypes types(fakes.type_names);
  Session session;
  const auto pass = [&] {
    return Pass(session.records, session.state, services, session.records.Count());
  };
  Pass scan = pass();
  mScanCD::Scan(scan, {folder, "", "", true}, types).ShowDir3_FillPreview("", folder);
  session.grid.Populate();
  session.constructor.ArrConstr[0].transform.Replace1 = from;
  session.constructor.ArrConstr[0].transform.Replace2 = to;
  Pass preview = pass();
  SetPreview(preview, session.grid, session.constructor);
  session.state.gRowCounted.assign(session.records.Count(), 0);
  RunOutput output;
  output.fdSourceFolder = folder;
  Pass run = pass();
  RenameRun(run, output, session.reports).RunRename();
  Require(session.reports.gFailureReport.empty(), "the run");
}

/// One folder after the other: its names, what they are, and the renames.
void DoFloor(int parent, const char* name, const std::string& from, const std::string& to) {
  DIR* folder = ::fdopendir(::openat(parent, name, O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  Require(folder != nullptr, name);
  std::vector<std::string> files, folders;
  while (const dirent* entry = ::readdir(folder)) {
    if (entry->d_name[0] != '.')
      (entry->d_type == DT_DIR ? folders : files).push_back(entry->d_name);
  }
  const int fd = ::dirfd(folder);
  constexpr unsigned kWanted = STATX_TYPE | STATX_SIZE | STATX_MTIME;
  for (const std::string& file : files) {
    struct statx facts;
    Require(::statx(fd, file.c_str(), AT_SYMLINK_NOFOLLOW, kWanted, &facts) == 0, file);
  }
  for (const std::string& file : files) {
    const std::string target = std::string(file).replace(file.find(from), from.size(), to);
    Require(::renameat2(fd, file.c_str(), fd, target.c_str(), RENAME_NOREPLACE) == 0, target);
  }
  for (const std::string& sub : folders) DoFloor(fd, sub.c_str(), from, to);
  ::closedir(folder);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 5) return 2;
  try {
    if (std::string_view(argv[1]) == "ours") {
      DoOurs(argv[2], argv[3], argv[4]);
    } else {
      DoFloor(AT_FDCWD, argv[2], argv[3], argv[4]);
    }
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "%s\n", failure.what());
    return 1;
  }
}

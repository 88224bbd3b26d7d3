// Runs and undoes over the files of a folder, round and round, until it is killed.
// Usage: quorvane_run_to_be_killed <work> <folder/> <output folder/>. Prints one line at the start.

#include <unistd.h>

#include <cstdio>
#include <cstdlib>

#include "core/records.h"
#include "platform/clock.h"
#include "rename/killed_run.h"
#include "rename/run.h"
#include "rename/undo.h"

namespace {

class NoEvents : public EventPump {
 public:
  void LetEventsRun() override {}
};

}  // namespace

int main(int argc, char** argv) {
  if (argc != 4) return 2;
  ::alarm(60);  // should nobody come to kill it
  const std::string folder = argv[2];
  const RunOutput output{std::atoi(argv[1]), argv[3], false, folder};
  const std::unique_ptr<FileSystem> files = MakePosixFileSystem();
  const std::unique_ptr<Clock> clock = MakeSystemClock();
  NoEvents events;
  RunState state;
  RunReports reports;
  Records records;
  for (int i = 0; i < kKilledFiles; ++i) {
    records.AddRecord("", folder, KilledName(i), FileDate(), 0, "");
    records[records.Count() - 1].newFileName = KilledNewName(i);
  }
  std::puts("running");
  std::fflush(stdout);
  while (reports.gFailureReport.empty()) {
    RenameRun(output, records, state, *files, events, *clock, reports).RunRename();
    UndoRun(records, state, *files, events, *clock, reports).Undo();
  }
  return 1;
}

#include <signal.h>
#include <sys/utsname.h>
#include <unistd.h>

#include <cerrno>
#include <charconv>
#include <fstream>

#include "platform/journal_file.h"

namespace {

std::string FirstLine(const std::string& path) {
  std::string line;
  std::ifstream file(path);
  std::getline(file, line);
  return line;
}

/// The machine's own number (machine-id(5)); its name where it has none.
std::string Machine() {
  std::string machine = FirstLine("/etc/machine-id");
  struct utsname names;
  if (machine.empty() && ::uname(&names) == 0) machine = names.nodename;
  return machine;
}

/// When a process began: field 22 of its state (proc_pid_stat(5)), counted behind its name, which
/// may hold anything. 0 when it isn't known, and of one that has ended and waits to be asked how.
std::uint64_t StartOf(std::uint64_t process) {
  const std::string state = FirstLine("/proc/" + std::to_string(process) + "/stat");
  std::size_t at = state.rfind(')');
  if (at != state.npos && state.compare(at, 3, ") Z") == 0) return 0;
  for (int field = 2; field < 22 && at != state.npos; ++field) at = state.find(' ', at + 1);
  if (at == state.npos) return 0;
  std::uint64_t started = 0;
  std::from_chars(state.data() + at + 1, state.data() + state.size(), started);
  return started;
}

}  // namespace

ProcessMark OwnMark() {
  const auto process = static_cast<std::uint64_t>(::getpid());
  return {Machine(), FirstLine("/proc/sys/kernel/random/boot_id"), ::geteuid(), process,
          StartOf(process)};
}

/// kill(2): signal 0 only asks; EPERM says that it lives and is another user's.
bool MayLive(const ProcessMark& mark) {
  const ProcessMark own = OwnMark();
  const auto process = static_cast<pid_t>(mark.process);
  if (mark.machine != own.machine || mark.boot != own.boot || process <= 0) return false;
  if (::kill(process, 0) != 0 && errno != EPERM) return false;
  return StartOf(mark.process) == mark.started;
}

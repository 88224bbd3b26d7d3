// What the start costs beside a bare window with one table: the time until the window stands on the
// screen with its content, the processor's part of it, which means something on a busy machine too,
// and the memory of both once they are idle, of which "resident" counts Qt's libraries in full.
// It needs a display with a free middle; ./dev bench gives it one.
//
//   quorvane_bench_start [folder]   gives the programs a home in a new folder there, or in TMPDIR

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QGuiApplication>
#include <QImage>
#include <QPixmap>
#include <QScreen>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <thread>

#include "ratio.h"
#include "workspace.h"

namespace {

using bench::Require;
using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

constexpr int kRounds = 21;
constexpr milliseconds kLongest{30'000};
constexpr milliseconds kUntilIdle{1500};
constexpr milliseconds kBetween{150};  ///< what the last program left to do is done by then

/// What the screen shows in its middle, asked of the display itself.
QRgb Middle() {
  QScreen& screen = *QGuiApplication::primaryScreen();
  const QPoint middle = screen.geometry().center();
  return screen.grabWindow(0, middle.x(), middle.y(), 1, 1).toImage().pixel(0, 0);
}

template <class Condition>
void WaitUntil(Condition&& holds, const std::string& what) {
  const auto end = Clock::now() + kLongest;
  while (!holds()) {
    Require(Clock::now() < end, what);
    std::this_thread::sleep_for(milliseconds(1));
  }
}

/// Whose output goes nowhere: a display without a desktop makes Qt talk.
pid_t StartProgram(const char* path) {
  posix_spawn_file_actions_t actions;
  ::posix_spawn_file_actions_init(&actions);
  ::posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
  std::string name = path;
  char* words[] = {name.data(), nullptr};
  pid_t pid = 0;
  Require(::posix_spawn(&pid, path, &actions, nullptr, words, environ) == 0, name);
  ::posix_spawn_file_actions_destroy(&actions);
  return pid;
}

/// Seconds of the processor that all threads have had; see proc(5), schedstat of the kernel.
double ProcessorTime(pid_t pid) {
  double seconds = 0;
  const std::string tasks = "/proc/" + std::to_string(pid) + "/task";
  for (const auto& task : std::filesystem::directory_iterator(tasks)) {
    double nanoseconds = 0;
    std::ifstream(task.path() / "schedstat") >> nanoseconds;
    seconds += nanoseconds / 1e9;
  }
  return seconds;
}

struct Cost {
  double seconds = 0;
  double processor = 0;
};

/// Starts the program, lets `look` see it once its window shows, and ends it as a session does.
template <class Look>
Cost Start(const char* path, Look&& look) {
  std::this_thread::sleep_for(kBetween);
  const QRgb free = Middle();
  const auto begin = Clock::now();
  const pid_t pid = StartProgram(path);
  WaitUntil([&] { return Middle() != free; }, std::string("the window of ") + path);
  const Cost cost{std::chrono::duration<double>(Clock::now() - begin).count(), ProcessorTime(pid)};
  look(pid);
  ::kill(pid, SIGTERM);
  Require(::waitpid(pid, nullptr, 0) == pid, "the end of the program");
  WaitUntil([&] { return Middle() == free; }, "the closing of the window");
  return cost;
}

/// A line of `/proc/PID/smaps_rollup`, in megabytes.
double Megabytes(const std::string& rollup, const std::string& line) {
  const std::size_t at = rollup.find("\n" + line + ":");
  Require(at != std::string::npos, line);
  return std::stod(rollup.substr(at + line.size() + 2)) / 1024;
}

void PrintMemory(const char* name, const char* path) {
  Start(path, [&](pid_t pid) {
    std::this_thread::sleep_for(kUntilIdle);
    std::stringstream text;
    text << std::ifstream("/proc/" + std::to_string(pid) + "/smaps_rollup").rdbuf();
    const std::string rollup = text.str();
    std::printf("%-34s resident %5.1f MB, shared out %5.1f MB, its own %5.1f MB\n", name,
                Megabytes(rollup, "Rss"), Megabytes(rollup, "Pss"),
                Megabytes(rollup, "Private_Dirty"));
    std::fflush(stdout);
  });
}

void Measure(const char* what) {
  std::printf("%s\n", what);
  bench::Ratio time("start to a painted window", 1.2, 1);
  bench::Ratio processor("  of it the processor", 1.2, 1);
  const auto leave = [](pid_t) {};
  Start(QUORVANE_PROGRAM, leave);
  Start(QUORVANE_BARE, leave);
  for (int round = 0; round < kRounds; ++round) {
    const Cost ours = Start(QUORVANE_PROGRAM, leave);
    const Cost bare = Start(QUORVANE_BARE, leave);
    time.Add(ours.seconds, bare.seconds);
    processor.Add(ours.processor, bare.processor);
  }
  time.Print();
  processor.Print();
  PrintMemory("memory of ours", QUORVANE_PROGRAM);
  PrintMemory("memory of the bare window", QUORVANE_BARE);
}

}  // namespace

int main(int argc, char** argv) {
  ::setenv("QT_QPA_PLATFORM", "xcb", 1);  // where one program may look at another's window
  QGuiApplication application(argc, argv);
  return bench::RunInNewFolder(argc, argv, [](const std::string& root) {
    for (const char* folder :
         {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME", "XDG_RUNTIME_DIR"}) {
      ::setenv(folder, root.c_str(), 1);
    }
    Measure("nothing reads the windows");
    ::setenv("QT_LINUX_ACCESSIBILITY_ALWAYS_ON", "1", 1);
    if (::getenv("DBUS_SESSION_BUS_ADDRESS") != nullptr) Measure("read by assistive technology");
  });
}

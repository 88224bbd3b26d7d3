#include "platform/ending_signals.h"

#include <fcntl.h>
#include <signal.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <iterator>

namespace {

constexpr int kSignals[] = {SIGTERM, SIGINT, SIGHUP};
struct sigaction former[std::size(kSignals)];

/// Where the handler writes to. A handler may do little else (signal-safety(7)).
std::atomic<int> write_end = -1;
static_assert(std::atomic<int>::is_always_lock_free);

void Handle(int) {
  const int error = errno;
  // A full pipe tells as much as one more byte in it.
  [[maybe_unused]] const ssize_t written = ::write(write_end, "", 1);
  errno = error;
}

}  // namespace

EndingSignals::EndingSignals() {
  if (::pipe2(ends_, O_CLOEXEC | O_NONBLOCK) != 0) return;
  write_end = ends_[1];
  struct sigaction action = {};
  action.sa_handler = Handle;
  action.sa_flags = SA_RESTART;
  for (std::size_t i = 0; i < std::size(kSignals); ++i) {
    ::sigaction(kSignals[i], nullptr, &former[i]);
    if (former[i].sa_handler != SIG_IGN) ::sigaction(kSignals[i], &action, nullptr);
  }
}

EndingSignals::~EndingSignals() {
  if (ends_[0] < 0) return;
  for (std::size_t i = 0; i < std::size(kSignals); ++i) {
    ::sigaction(kSignals[i], &former[i], nullptr);
  }
  write_end = -1;
  for (const int end : ends_) ::close(end);
}

bool EndingSignals::Taken() {
  bool came = false;
  char bytes[64];
  while (::read(ends_[0], bytes, sizeof bytes) > 0) came = true;
  return came;
}

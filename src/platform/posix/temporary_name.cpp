#include "platform/posix/temporary_name.h"

#include <signal.h>
#include <unistd.h>

#include <atomic>
#include <charconv>

namespace {

constexpr std::string_view kHead = ".qv-";
constexpr std::string_view kTail = ".part";

/// Takes a run of at least one digit off the front.
bool TakeDigits(std::string_view& rest) {
  const std::size_t end = rest.find_first_not_of("0123456789");
  if (end == 0 || rest.empty()) return false;
  rest.remove_prefix(end == std::string_view::npos ? rest.size() : end);
  return true;
}

/// The process number in a temporary name; 0 in every other name, and where no process can have it.
pid_t MakerOf(std::string_view name) {
  if (!name.starts_with(kHead)) return 0;
  name.remove_prefix(kHead.size());
  const std::string_view number = name;
  if (!TakeDigits(name) || !name.starts_with('-')) return 0;
  name.remove_prefix(1);
  pid_t maker = 0;
  const auto read = std::from_chars(number.data(), number.data() + number.size(), maker);
  return read.ec == std::errc() && TakeDigits(name) && name == kTail ? maker : 0;
}

}  // namespace

std::string NextTemporaryName() {
  static std::atomic<unsigned long> number{0};
  std::string name(kHead);
  name += std::to_string(::getpid());
  name += '-';
  name += std::to_string(++number);
  name += kTail;
  return name;
}

bool IsOwnTemporaryName(std::string_view name) {
  return MakerOf(name) == ::getpid();
}

bool IsUnfinishedName(std::string_view name) {
  return MakerOf(name) > 0;
}

/// kill(2): signal 0 only asks; EPERM says that it lives and is another user's.
bool IsInTheMaking(const Syscalls& calls, std::string_view name) {
  const pid_t maker = MakerOf(name);
  return maker > 0 && (calls.kill(maker, 0) == 0 || errno == EPERM);
}

#include "platform/temporary_name.h"

#include <unistd.h>

#include <atomic>

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

bool IsTemporaryName(std::string_view name) {
  if (!name.starts_with(kHead)) return false;
  name.remove_prefix(kHead.size());
  if (!TakeDigits(name) || !name.starts_with('-')) return false;
  name.remove_prefix(1);
  return TakeDigits(name) && name == kTail;
}

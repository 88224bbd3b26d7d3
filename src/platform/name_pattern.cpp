#include "platform/name_pattern.h"

#include <algorithm>
#include <cstddef>

namespace {

/// The length of the code point at `at` by its lead byte and as many continuation bytes as follow.
std::size_t CharacterBytes(std::string_view name, std::size_t at) {
  const auto lead = static_cast<unsigned char>(name[at]);
  const std::size_t wanted = lead >= 0xF0 && lead < 0xF8   ? 4
                             : lead >= 0xE0 && lead < 0xF0 ? 3
                             : lead >= 0xC2 && lead < 0xE0 ? 2
                                                           : 1;
  const std::string_view tail = name.substr(at + 1, wanted - 1);
  const bool whole = tail.size() == wanted - 1 && std::all_of(tail.begin(), tail.end(), [](char c) {
                       return (c & 0xC0) == 0x80;
                     });
  return whole ? wanted : 1;
}

}  // namespace

bool HasWildcards(std::string_view name) {
  return name.find('*') != name.npos || name.find('?') != name.npos;
}

bool FitsPattern(std::string_view name, std::string_view pattern) {
  std::size_t n = 0;
  std::size_t p = 0;
  std::size_t star = pattern.npos;  // the last "*" met, and where its run ends for now
  std::size_t run_end = 0;
  while (n < name.size()) {
    if (p < pattern.size() && pattern[p] == '*') {
      star = p++;
      run_end = n;
    } else if (p < pattern.size() && pattern[p] == '?') {
      n += CharacterBytes(name, n);
      ++p;
    } else if (p < pattern.size() && pattern[p] == name[n]) {
      ++n;
      ++p;
    } else if (star != pattern.npos) {
      run_end += CharacterBytes(name, run_end);
      n = run_end;
      p = star + 1;
    } else {
      return false;
    }
  }
  return pattern.find_first_not_of('*', p) == pattern.npos;
}

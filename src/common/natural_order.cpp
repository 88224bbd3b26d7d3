#include "common/natural_order.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "common/path_text.h"
#include "platform/text.h"
#include "platform/utf8.h"

namespace {

// The bytes of a key from the lowest on. Between them stands UTF-8, whose bytes are in the order of
// the code points, and the ten digits, which lead a number and tell of how many digits it is.
constexpr char kEnd = 0;
constexpr char kSeparator = 1;
constexpr char kFirstPoints = 2;  ///< leads the code points that would read as one of these
constexpr char kBadByte = '\xFF';

constexpr bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

/// Most names are made of these bytes: each stands in a key for itself, in lower case. 0 for
/// others.
constexpr std::array<char, 256> MakePlainBytes() {
  std::array<char, 256> plain{};
  for (int i = kFirstPoints + 1; i < 0x80; ++i) {
    const char c = static_cast<char>(i);
    if (!IsDigit(c) && c != kNative.separator) plain[i] = c >= 'A' && c <= 'Z' ? c + 32 : c;
  }
  return plain;
}
constexpr std::array<char, 256> kPlain = MakePlainBytes();

char PlainOf(char c) {
  return kPlain[static_cast<unsigned char>(c)];
}

/// How many bytes from the first on are plain.
std::size_t PlainLength(std::string_view t) {
  std::size_t length = 0;
  while (length < t.size() && PlainOf(t[length]) != 0) ++length;
  return length;
}

/// Numbers of any size whose bytes are in their order.
void AppendCount(std::size_t count, std::string& key) {
  constexpr std::size_t kMore = 0xFF;
  for (; count >= kMore; count -= kMore) key += static_cast<char>(kMore);
  key += static_cast<char>(count);
}

void AppendPoint(char32_t point, std::string& key) {
  if (point == static_cast<char32_t>(kNative.separator)) {
    key += kSeparator;
    return;
  }
  if (point <= kFirstPoints) key += kFirstPoints;
  if (point >= utf8::kBadByte) key += kBadByte;
  utf8::Append(point, key);
}

/// The digits of a number without leading zeros: the more, the larger it is.
void AppendNumber(std::string_view digits, std::string& key) {
  constexpr std::size_t kMany = 9;
  key += static_cast<char>('0' + std::min(digits.size(), kMany));
  if (digits.size() >= kMany) AppendCount(digits.size() - kMany, key);
  key += digits;
}

}  // namespace

void AppendNaturalKey(std::string_view t, std::string& key) {
  std::size_t zeros = 0;
  for (std::size_t at = 0; at < t.size();) {
    if (const std::size_t plain = PlainLength(t.substr(at)); plain > 0) {
      const auto begin = static_cast<std::ptrdiff_t>(key.size());
      key += t.substr(at, plain);
      std::transform(key.begin() + begin, key.end(), key.begin() + begin, PlainOf);
      at += plain;
      continue;
    }
    if (!IsDigit(t[at])) {
      AppendPoint(text::LowerOf(utf8::Read(t, at)), key);
      continue;
    }
    const std::size_t first = at;
    while (at < t.size() && t[at] == '0') ++at;
    zeros += at - first;
    const std::size_t begin = at;
    while (at < t.size() && IsDigit(t[at])) ++at;
    AppendNumber(t.substr(begin, at - begin), key);
  }
  key += kEnd;
  AppendCount(zeros, key);
  key += t;
}

#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// UTF-8 read and written by code points, bad bytes included. Everything else works on the
/// characters of text.h; this is for the few who must look inside one.
namespace utf8 {

/// A bad byte is read as this and the byte, above all code points, so that it equals only itself.
inline constexpr char32_t kBadByte = 0x110000;

/// Reads the code point at byte `at`, which must be in `t`, and moves `at` behind it. What is not
/// well-formed (Unicode Standard, table 3-7) is read as one bad byte.
inline char32_t Read(std::string_view t, std::size_t& at) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(t[i]); };
  const unsigned char first = byte(at++);
  if (first < 0x80) return first;
  const std::size_t more = first >= 0xF0 ? 3 : first >= 0xE0 ? 2 : 1;
  if (first < 0xC2 || first > 0xF4 || t.size() - at < more) return kBadByte + first;
  char32_t point = first & (0x3Fu >> more);
  for (std::size_t i = 0; i < more; ++i) {
    if ((byte(at + i) & 0xC0) != 0x80) return kBadByte + first;
    point = point << 6 | (byte(at + i) & 0x3F);
  }
  const bool overlong = (more == 2 && point < 0x800) || (more == 3 && point < 0x10000);
  const bool surrogate = point >= 0xD800 && point < 0xE000;
  if (overlong || surrogate || point >= kBadByte) return kBadByte + first;
  at += more;
  return point;
}

/// Writes what `Read` has read.
inline void Append(char32_t point, std::string& out) {
  const auto put = [&](char32_t byte) { out += static_cast<char>(byte); };
  if (point < 0x80 || point >= kBadByte) {
    put(point & 0xFF);
  } else if (point < 0x800) {
    put(0xC0 | point >> 6);
    put(0x80 | (point & 0x3F));
  } else if (point < 0x10000) {
    put(0xE0 | point >> 12);
    put(0x80 | (point >> 6 & 0x3F));
    put(0x80 | (point & 0x3F));
  } else {
    put(0xF0 | point >> 18);
    put(0x80 | (point >> 12 & 0x3F));
    put(0x80 | (point >> 6 & 0x3F));
    put(0x80 | (point & 0x3F));
  }
}

}  // namespace utf8

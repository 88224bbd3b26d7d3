#include "platform/text.h"

#include <utf8proc.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>

#include "platform/utf8.h"

namespace text {
namespace {

constexpr char32_t kSharpS = 0xDF;

bool Ascii(char c) {
  return static_cast<unsigned char>(c) < 0x80;
}

constexpr char32_t LowerOfAscii(char32_t c) {
  return c >= 'A' && c <= 'Z' ? c + 32 : c;
}
constexpr char32_t UpperOfAscii(char32_t c) {
  return c >= 'a' && c <= 'z' ? c - 32 : c;
}

char32_t Mapped(char32_t point, utf8proc_int32_t (*map)(utf8proc_int32_t)) {
  return static_cast<char32_t>(map(static_cast<utf8proc_int32_t>(point)));
}

/// Latin, Greek and Cyrillic letters, which most names are made of, looked up once.
constexpr char32_t kTableEnd = 0x600;
using CaseTable = std::array<std::uint16_t, kTableEnd>;

CaseTable MakeCaseTable(utf8proc_int32_t (*map)(utf8proc_int32_t)) {
  CaseTable table{};
  for (char32_t point = 0; point < kTableEnd; ++point) {
    table[point] = static_cast<std::uint16_t>(point == kSharpS ? point : Mapped(point, map));
  }
  return table;
}

const CaseTable kLower = MakeCaseTable(utf8proc_tolower);
const CaseTable kUpper = MakeCaseTable(utf8proc_toupper);

char32_t UpperOf(char32_t point) {
  if (point < kTableEnd) return kUpper[point];
  return point < utf8::kBadByte ? Mapped(point, utf8proc_toupper) : point;
}

/// True for code points that neither join what stands before them nor what comes behind, but for
/// CR LF: blocks of letters without marks, of Latin, Greek, Cyrillic and Chinese and Japanese.
bool IsLoner(char32_t point) {
  if (point < 0x300) return true;
  if (point < 0x590) return point >= 0x370 && (point < 0x483 || point >= 0x48A);
  if (point < 0x1E00) return false;
  if (point < 0x2000) return true;
  return (point >= 0x3041 && point < 0x3097) || (point >= 0x30A0 && point < 0x3100) ||
         (point >= 0x4E00 && point < 0xA000);
}

/// The general road of NextCharacter, where more than one code point can make a character.
std::size_t EndOfCluster(std::string_view t, std::size_t at) {
  auto last = utf8::Read(t, at);
  utf8proc_int32_t state = 0;
  while (at < t.size() && last < utf8::kBadByte) {
    std::size_t behind = at;
    const char32_t next = utf8::Read(t, behind);
    if (next >= utf8::kBadByte) break;
    if (IsLoner(last) && IsLoner(next) && last != '\r') break;
    if (utf8proc_grapheme_break_stateful(static_cast<utf8proc_int32_t>(last),
                                         static_cast<utf8proc_int32_t>(next), &state)) {
      break;
    }
    last = next;
    at = behind;
  }
  return at;
}

/// Letter case of single bytes by table: the loop over a name has no branch then.
using ByteTable = std::array<unsigned char, 128>;

template <class Map>
constexpr ByteTable MakeByteTable(Map map) {
  ByteTable table{};
  for (char32_t c = 0; c < table.size(); ++c) table[c] = static_cast<unsigned char>(map(c));
  return table;
}
constexpr ByteTable kLowerBytes = MakeByteTable(LowerOfAscii);
constexpr ByteTable kUpperBytes = MakeByteTable(UpperOfAscii);

/// True when the characters from the one at `at` on part at byte `end`.
bool EndsCharacter(std::string_view t, std::size_t at, std::size_t end) {
  while (at < end) at = NextCharacter(t, at);
  return at == end;
}

unsigned char LowerByte(char c) {
  return kLowerBytes[static_cast<unsigned char>(c)];
}

template <class Map>
void AppendMapped(std::string_view t, std::string& out, const ByteTable& bytes, Map map) {
  if (IsAscii(t)) {
    const std::size_t start = out.size();
    out += t;
    for (std::size_t i = start; i < out.size(); ++i) {
      out[i] = static_cast<char>(bytes[static_cast<unsigned char>(out[i])]);
    }
    return;
  }
  for (std::size_t at = 0; at < t.size();) utf8::Append(map(utf8::Read(t, at)), out);
}

int MarkClass(char32_t point) {
  constexpr char32_t kFirstMark = 0x300;
  if (point < kFirstMark || point >= utf8::kBadByte) return 0;
  return utf8proc_get_property(static_cast<utf8proc_int32_t>(point))->combining_class;
}

void AppendDecomposed(char32_t point, std::u32string& out) {
  constexpr char32_t kFirstDecomposable = 0xC0;
  if (point < kFirstDecomposable || point >= utf8::kBadByte) {
    out += point;
    return;
  }
  utf8proc_int32_t parts[4];  // the most that a code point has, by the annex
  int boundary = 0;
  const auto count = utf8proc_decompose_char(static_cast<utf8proc_int32_t>(point), parts,
                                             std::size(parts), UTF8PROC_DECOMPOSE, &boundary);
  for (utf8proc_ssize_t i = 0; i < count; ++i) out += static_cast<char32_t>(parts[i]);
}

/// Marks on one letter that don't touch each other may come in any order; puts them in one.
void SortMarks(std::u32string& points) {
  const auto is_mark = [](char32_t point) { return MarkClass(point) != 0; };
  const auto before = [](char32_t a, char32_t b) { return MarkClass(a) < MarkClass(b); };
  for (auto at = points.begin(); at != points.end();) {
    const auto marks = std::find_if(at, points.end(), is_mark);
    at = std::find_if_not(marks, points.end(), is_mark);
    std::stable_sort(marks, at, before);
  }
}

}  // namespace

char32_t LowerOf(char32_t point) {
  if (point < kTableEnd) return kLower[point];
  return point < utf8::kBadByte ? Mapped(point, utf8proc_tolower) : point;
}

bool IsAscii(std::string_view t) {
  const char* at = t.data();
  std::size_t left = t.size();
  for (; left >= 8; at += 8, left -= 8) {
    std::uint64_t eight;
    std::memcpy(&eight, at, 8);
    if (eight & 0x8080808080808080u) return false;
  }
  return std::all_of(at, at + left, Ascii);
}

bool IsBytewise(std::string_view t) {
  return IsAscii(t) && t.find("\r\n") == t.npos;
}

std::size_t NextCharacter(std::string_view t, std::size_t at) {
  const std::size_t next = at + 1;
  if (Ascii(t[at]) && (next == t.size() || (Ascii(t[next]) && t[at] != '\r'))) return next;
  return EndOfCluster(t, at);
}

std::size_t Length(std::string_view t) {
  if (IsBytewise(t)) return t.size();
  std::size_t count = 0;
  for (std::size_t at = 0; at < t.size(); at = NextCharacter(t, at)) ++count;
  return count;
}

std::string_view Left(std::string_view t, std::size_t n) {
  if (n >= t.size()) return t;  // a character has at least one byte
  std::size_t at = 0;
  while (n-- > 0 && at < t.size()) at = NextCharacter(t, at);
  return t.substr(0, at);
}

std::string_view Right(std::string_view t, std::size_t n) {
  if (n >= t.size()) return t;
  // Between two ASCII bytes characters part, whatever stands before; so most tails are found from
  // behind.
  std::size_t at = t.size();
  while (n > 0 && at > 1 && Ascii(t[at - 1]) && Ascii(t[at - 2]) && t[at - 1] != '\n') --at, --n;
  if (n == 0) return t.substr(at);
  const std::string_view front = t.substr(0, at);
  const std::size_t length = Length(front);
  return n >= length ? t : t.substr(Left(front, length - n).size());
}

void AppendUpper(std::string_view t, std::string& out) {
  AppendMapped(t, out, kUpperBytes, UpperOf);
}

void AppendLower(std::string_view t, std::string& out) {
  AppendMapped(t, out, kLowerBytes, LowerOf);
}

std::string ToUpper(std::string_view t) {
  std::string out;
  AppendUpper(t, out);
  return out;
}

std::string ToLower(std::string_view t) {
  std::string out;
  AppendLower(t, out);
  return out;
}

void AppendFolded(std::string_view t, std::string& out) {
  if (IsAscii(t)) return AppendLower(t, out);
  std::u32string points;
  for (std::size_t at = 0; at < t.size();) AppendDecomposed(utf8::Read(t, at), points);
  SortMarks(points);
  for (const char32_t point : points) utf8::Append(LowerOf(point), out);
}

std::string Folded(std::string_view t) {
  std::string out;
  AppendFolded(t, out);
  return out;
}

std::string NameKey(std::string_view t) {
  if (IsAscii(t)) return ToLower(t);
  utf8proc_uint8_t* folded = nullptr;
  const utf8proc_ssize_t size = utf8proc_map(
      reinterpret_cast<const utf8proc_uint8_t*>(t.data()), static_cast<utf8proc_ssize_t>(t.size()),
      &folded,
      static_cast<utf8proc_option_t>(UTF8PROC_DECOMPOSE | UTF8PROC_CASEFOLD | UTF8PROC_IGNORE));
  if (size < 0) return ToLower(t);
  const std::unique_ptr<utf8proc_uint8_t, decltype(&std::free)> owner(folded, &std::free);
  return {reinterpret_cast<const char*>(folded), static_cast<std::size_t>(size)};
}

bool EqualIgnoringCase(std::string_view a, std::string_view b) {
  std::size_t i = 0;
  std::size_t k = 0;
  while (i < a.size() && k < b.size()) {
    if (LowerOf(utf8::Read(a, i)) != LowerOf(utf8::Read(b, k))) return false;
  }
  return i == a.size() && k == b.size();
}

Replacer::Replacer(std::string_view find, std::string_view replacement)
    : replacement_(replacement) {
  for (std::size_t at = 0; at < find.size();) find_ += LowerOf(utf8::Read(find, at));
}

void Replacer::AppendTo(std::string_view t, std::string& out) const {
  if (find_.empty()) {
    out += t;
    return;
  }
  if (IsBytewise(t)) return AppendBytewise(t, out);
  std::size_t copied = 0;
  std::size_t character = 0;  // the beginning of a character, at most a little behind `at`
  for (std::size_t at = 0; at < t.size();) {
    const std::size_t end = MatchEnd(t, at);
    if (end != at) {
      while (character < at) character = NextCharacter(t, character);
      if (character == at && EndsCharacter(t, at, end)) {
        out.append(t, copied, at - copied);
        out += replacement_;
        copied = character = at = end;
        continue;
      }
    }
    utf8::Read(t, at);
  }
  out.append(t, copied);
}

/// The end of an occurrence by code points at byte `at`; `at` itself when there is none.
std::size_t Replacer::MatchEnd(std::string_view t, std::size_t at) const {
  std::size_t end = at;
  for (const char32_t point : find_) {
    if (end == t.size() || LowerOf(utf8::Read(t, end)) != point) return at;
  }
  return end;
}

void Replacer::AppendBytewise(std::string_view t, std::string& out) const {
  std::size_t copied = 0;
  for (std::size_t at = 0; at + find_.size() <= t.size();) {
    const auto matches = [&](std::size_t i) { return LowerByte(t[at + i]) == find_[i]; };
    std::size_t i = 0;
    while (i < find_.size() && matches(i)) ++i;
    if (i < find_.size()) {
      ++at;
    } else {
      out.append(t, copied, at - copied);
      out += replacement_;
      copied = at += i;
    }
  }
  out.append(t, copied);
}

std::string ReplaceIgnoringCase(std::string_view t, std::string_view find,
                                std::string_view replacement) {
  std::string out;
  Replacer(find, replacement).AppendTo(t, out);
  return out;
}

std::string_view Trim(std::string_view t) {
  t = TrimRight(t);
  return t.substr(std::min(t.find_first_not_of(' '), t.size()));
}

std::string_view TrimRight(std::string_view t) {
  return t.substr(0, t.find_last_not_of(' ') + 1);
}

std::vector<std::string_view> Split(std::string_view t, std::string_view separator) {
  std::vector<std::string_view> pieces;
  if (t.empty()) return pieces;
  std::size_t from = 0;
  for (std::size_t at; !separator.empty() && (at = t.find(separator, from)) != t.npos;) {
    pieces.push_back(t.substr(from, at - from));
    from = at + separator.size();
  }
  pieces.push_back(t.substr(from));
  return pieces;
}

}  // namespace text

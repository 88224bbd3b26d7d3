#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

/// Characters, letter case, search and replace over UTF-8 text.
///
/// A character is an extended grapheme cluster (Unicode Standard Annex #29). File names are raw
/// bytes, so any text may hold bytes that are no UTF-8: each such byte counts as one character and
/// passes through every function here unchanged. Nothing here fails but for memory. Pure ASCII
/// takes a fast path.
namespace text {

/// True when no byte is above 0x7F.
bool IsAscii(std::string_view t);

/// True when each byte is a character by itself: pure ASCII without CR LF, which is one character.
bool IsBytewise(std::string_view t);

/// The byte offset behind the character that begins at byte `at`; `at` must be below `t.size()`
/// and be the beginning of a character.
std::size_t NextCharacter(std::string_view t, std::size_t at);

/// The number of characters.
std::size_t Length(std::string_view t);

/// The first `n` characters; all of `t` when it has no more.
std::string_view Left(std::string_view t, std::size_t n);

/// The last `n` characters; all of `t` when it has no more.
std::string_view Right(std::string_view t, std::size_t n);

/// Each code point by its own upper or lower case one (Unicode's simple mappings); sharp s stays.
std::string ToUpper(std::string_view t);
std::string ToLower(std::string_view t);

/// As above, of one code point as utf8.h reads it; a bad byte stays.
char32_t LowerOf(char32_t point);

/// As above, appended to `out`, which must not hold `t`.
void AppendUpper(std::string_view t, std::string& out);
void AppendLower(std::string_view t, std::string& out);

/// The form in which what a reader sees as the same but for letter case has the same bytes: in
/// lower case, each mark apart from its letter (canonical decomposition, Unicode Standard Annex
/// #15). It has as many characters as `t`. Appended to `out`, which must not hold `t`.
void AppendFolded(std::string_view t, std::string& out);
std::string Folded(std::string_view t);

/// The same for all texts that differ only in letter case or in Unicode's canonical forms, as a
/// file system that ignores these takes them for one (Unicode's full case folding, Annex #15). Of
/// bytes that are no UTF-8: the lower case.
std::string NameKey(std::string_view t);

/// True when the lower case of both is the same.
bool EqualIgnoringCase(std::string_view a, std::string_view b);

/// `t` with every occurrence of `find` replaced, from left to right, without regard to letter case
/// and without looking at replaced text again. An occurrence is made of whole characters. An empty
/// `find` answers `t`.
std::string ReplaceIgnoringCase(std::string_view t, std::string_view find,
                                std::string_view replacement);

/// `ReplaceIgnoringCase` with the same two texts for many others.
class Replacer {
 public:
  Replacer(std::string_view find, std::string_view replacement);

  /// Appends `t` with its replacements to `out`, which must not hold `t`.
  void AppendTo(std::string_view t, std::string& out) const;

 private:
  std::size_t MatchEnd(std::string_view t, std::size_t at) const;
  void AppendBytewise(std::string_view t, std::string& out) const;

  std::u32string find_;  ///< in lower case
  std::string replacement_;
};

/// Without the blanks (U+0020 only) at both ends, or at the right end.
std::string_view Trim(std::string_view t);
std::string_view TrimRight(std::string_view t);

/// The pieces between every occurrence of `separator`, empty ones kept; an empty `t` has none, a
/// `t` without `separator` is one piece. The pieces point into `t`.
std::vector<std::string_view> Split(std::string_view t, std::string_view separator);

}  // namespace text

#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "common/language.h"

/// A list of masks in the form in which names are tested against it: parsed once, matched often.
///
/// Masks are parted by blanks and by "|"; double quotes, or ":", keep blanks inside one mask. In a
/// mask "*" is any run of characters, "?" one character, "#" one digit 0 to 9, "[abc]", "[a-z]" and
/// "[!abc]" one character of a list, of a range, or not of a list; all else is itself. A dot has no
/// special meaning. Letter case is ignored, and so is whether a letter and its accent are one code
/// point or two; a range goes by the letter first, then by its accent (`text::Folded`), so "[a-e]"
/// leaves out an e with an accent and "[a-z]" takes it. The whole name must match.
class MaskList {
 public:
  /// Never fails; a mask that can't be understood does when it is reached. `called` is what its
  /// slip begins with, and a constant.
  explicit MaskList(std::string_view str, std::string_view called = mLanguageGobals::kTheMask);

  /// True when at least one mask matches, tried in their order. Raises kBadPattern when a mask
  /// with a "[" without "]" is reached before one has matched.
  bool Matches(std::string_view Filename) const;

  /// Whether it has a mask with a "[" without "]".
  bool IsFaulty() const;

 private:
  struct Range {
    std::string first;
    std::string last;
  };
  struct Element {
    enum Kind { kLiteral, kAnyRun, kAnyOne, kDigit, kOneOf, kNoneOf } kind;
    std::string literal;        ///< one character, folded
    std::vector<Range> ranges;  ///< of a list, folded; a single character is both ends
  };
  struct Mask {
    std::vector<Element> elements;
    std::string faulty;  ///< if a "[" has no "]": the mask, or what stands around it
  };

  static Mask Parse(std::string_view mask);
  static std::size_t ParseList(std::string_view mask, std::size_t at, Element& element);
  static bool Fits(const Element& element, std::string_view character);
  static bool MaskMatches(const Mask& mask, std::string_view name, bool bytewise);
  [[noreturn]] void Fail(const Mask& mask) const;

  std::string text_;  ///< as given, for the trace
  std::string_view called_;
  std::vector<Mask> masks_;
};

namespace mCommon {

/// True when `Filename` matches at least one mask of the list `str`; fails as `MaskList` does.
bool LikeFilter(std::string_view str, std::string_view Filename);

}  // namespace mCommon

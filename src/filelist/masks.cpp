#include "filelist/masks.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "platform/text.h"
#include "trace/err_trace.h"

namespace {

/// Makes runs of `c` single.
void Squeeze(std::string& t, char c) {
  t.erase(std::unique(t.begin(), t.end(), [c](char a, char b) { return a == c && b == c; }),
          t.end());
}

/// The masks of a list side by side, parted by "|". A colon can't be in a name of the systems that
/// masks come from, so it serves as the one sign of a quote.
std::string Parted(std::string_view list) {
  std::string t(text::Trim(list));
  std::replace(t.begin(), t.end(), '"', ':');
  Squeeze(t, ':');
  bool quoted = false;
  for (char& c : t) {
    if (c == ':') quoted = !quoted;
    if (c == ' ' && !quoted) c = '|';
  }
  Squeeze(t, '|');
  std::erase(t, ':');
  return t;
}

/// A name as it is compared; short ASCII names, that is nearly all, need no memory of the heap.
class FoldedName {
 public:
  explicit FoldedName(std::string_view name) : bytewise_(text::IsBytewise(name)) {
    if (bytewise_ && name.size() <= short_.size()) {
      std::transform(name.begin(), name.end(), short_.begin(),
                     [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; });
      view_ = std::string_view(short_.data(), name.size());
    } else {
      text::AppendFolded(name, long_);
      view_ = long_;
    }
  }
  FoldedName(const FoldedName&) = delete;
  FoldedName& operator=(const FoldedName&) = delete;

  std::string_view View() const { return view_; }
  bool Bytewise() const { return bytewise_; }

 private:
  bool bytewise_;
  std::array<char, 256> short_;
  std::string long_;
  std::string_view view_;
};

/// A faulty mask as it is told: of a long one what stands around its bracket, for a line that isn't
/// broken.
std::string Excerpt(std::string_view mask, std::size_t bracket) {
  constexpr std::size_t kBefore = 12, kMost = 30;
  if (text::Length(mask) <= kMost) return std::string(mask);
  const std::string_view before = text::Right(mask.substr(0, bracket), kBefore);
  const std::string_view from = text::Left(mask.substr(bracket), kMost - text::Length(before));
  std::string told = before.size() < bracket ? "…" : "";
  told.append(before).append(from);
  return bracket + from.size() < mask.size() ? told + "…" : told;
}

}  // namespace

MaskList::MaskList(std::string_view str, std::string_view called) : text_(str), called_(called) {
  const std::string parted = Parted(str);
  for (const std::string_view mask : text::Split(parted, "|")) masks_.push_back(Parse(mask));
}

bool MaskList::Matches(std::string_view Filename) const {
  return ErrTrace::inner("mCommon.LikeFilter(str,Filename)", ErrTrace::args(text_, Filename), [&] {
    const FoldedName name(Filename);
    return std::any_of(masks_.begin(), masks_.end(), [&](const Mask& mask) {
      if (!mask.faulty.empty()) Fail(mask);
      return MaskMatches(mask, name.View(), name.Bytewise());
    });
  });
}

MaskList::Mask MaskList::Parse(std::string_view mask) {
  Mask parsed;
  for (std::size_t at = 0; at < mask.size() && parsed.faulty.empty();) {
    const std::size_t next = text::NextCharacter(mask, at);
    const std::string_view character = mask.substr(at, next - at);
    at = next;
    auto& elements = parsed.elements;
    if (character == "*") {
      if (elements.empty() || elements.back().kind != Element::kAnyRun) {
        elements.push_back({Element::kAnyRun, {}, {}});
      }
    } else if (character == "?") {
      elements.push_back({Element::kAnyOne, {}, {}});
    } else if (character == "#") {
      elements.push_back({Element::kDigit, {}, {}});
    } else if (character == "[") {
      elements.push_back({Element::kOneOf, {}, {}});
      const std::size_t bracket = at - 1;
      at = ParseList(mask, at, elements.back());
      if (at == mask.npos) parsed.faulty = Excerpt(mask, bracket);
    } else {
      elements.push_back({Element::kLiteral, text::Folded(character), {}});
    }
  }
  return parsed;
}

/// Reads a list from behind its "[" and answers the place behind its "]", or npos without one. A
/// "-" between two characters makes a range, elsewhere it is itself; so is a "!" but at the front.
std::size_t MaskList::ParseList(std::string_view mask, std::size_t at, Element& element) {
  std::vector<std::string_view> characters;
  for (std::string_view one; at < mask.size(); characters.push_back(one)) {
    const std::size_t next = text::NextCharacter(mask, at);
    one = mask.substr(at, next - at);
    at = next;
    if (one != "]") continue;

    std::size_t i = 0;
    if (!characters.empty() && characters[0] == "!") {
      element.kind = Element::kNoneOf;
      i = 1;
    }
    while (i < characters.size()) {
      const bool range = i + 2 < characters.size() && characters[i + 1] == "-";
      const std::size_t last = range ? i + 2 : i;
      element.ranges.push_back({text::Folded(characters[i]), text::Folded(characters[last])});
      i = last + 1;
    }
    return at;
  }
  return mask.npos;
}

bool MaskList::Fits(const Element& element, std::string_view character) {
  const auto inside = [&](const Range& range) {
    return range.first <= character && character <= range.last;
  };
  switch (element.kind) {
    case Element::kLiteral:
      return element.literal == character;
    case Element::kDigit:
      return character.size() == 1 && character[0] >= '0' && character[0] <= '9';
    case Element::kOneOf:
      return std::any_of(element.ranges.begin(), element.ranges.end(), inside);
    case Element::kNoneOf:
      return std::none_of(element.ranges.begin(), element.ranges.end(), inside);
    case Element::kAnyOne:
    case Element::kAnyRun:
      break;
  }
  return true;
}

bool MaskList::IsFaulty() const {
  return std::any_of(masks_.begin(), masks_.end(),
                     [](const Mask& mask) { return !mask.faulty.empty(); });
}

void MaskList::Fail(const Mask& mask) const {
  const std::string_view end = mLanguageGobals::kBracketNotClosed;
  throw Failure(
      {.number = kBadPattern,
       .description = "Invalid pattern string",
       .slip = std::string(called_).append(" “").append(mask.faulty).append("”").append(end)});
}

/// Where nothing fits, only the last run grows by a character: what an earlier run could take, the
/// last one can too. So the time is at most the product of both lengths.
bool MaskList::MaskMatches(const Mask& mask, std::string_view name, bool bytewise) {
  const auto next = [&](std::size_t at) {
    return bytewise ? at + 1 : text::NextCharacter(name, at);
  };
  const auto& elements = mask.elements;
  std::size_t at = 0;
  std::size_t i = 0;
  std::size_t run = elements.size();  // the last run seen; the count while there is none
  std::size_t run_end = 0;            // where that run ends in the name
  while (at < name.size()) {
    if (i < elements.size() && elements[i].kind == Element::kAnyRun) {
      run = i++;
      run_end = at;
      if (i == elements.size()) return true;
      continue;
    }
    const std::size_t behind = next(at);
    if (i < elements.size() && Fits(elements[i], name.substr(at, behind - at))) {
      at = behind;
      ++i;
    } else if (run < elements.size()) {
      at = run_end = next(run_end);
      i = run + 1;
    } else {
      return false;
    }
  }
  while (i < elements.size() && elements[i].kind == Element::kAnyRun) ++i;
  return i == elements.size();
}

namespace mCommon {

bool LikeFilter(std::string_view str, std::string_view Filename) {
  return MaskList(str).Matches(Filename);
}

}  // namespace mCommon

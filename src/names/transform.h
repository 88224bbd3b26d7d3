#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "names/constr_item.h"
#include "names/pieces.h"
#include "platform/text.h"

/// The modes of an element's letter case, by position in the box.
enum CaseMode : std::int32_t {
  kCaseUnchanged = 0,
  kCaseUpper = 1,
  kCaseLower = 2,
  kCaseFirstUpper = 3,
};

/// Which of the steps cut, replace and add may change a part at all; a mode without its text, or
/// with a count of 0 where that removes nothing, does not.
struct TransformSteps {
  bool cut, replace, add;
  bool operator==(const TransformSteps&) const = default;
};
TransformSteps StepsInUse(const TransformOptions& options);

/// What the options of one element make of its part of a name: letter case, cut, replace and add,
/// in this order. Holds a copy of the options.
class PartTransform {
 public:
  /// `title` is where the user finds the options, and a constant; slips name it.
  PartTransform(const TransformOptions& options, std::string_view title);

  /// Appends what becomes of `part` to `name`. An empty part adds nothing, even where a text is to
  /// be added, nor does one that an active replace has left empty. Raises kOverflow when the part
  /// has more than 32,767 characters before or after the replace, and when a cut by K and then N
  /// has something left behind the K, but their sum is beyond a signed 32-bit integer.
  void AppendTo(std::string_view part, std::string& name);

 private:
  std::string_view ChangeCase(std::string_view part);
  std::string_view Cut(std::string_view part);
  Pieces CutByPosition(std::string_view part) const;
  void CheckSum(std::string_view kept, std::string_view part) const;
  void CheckLength(std::string_view part) const;
  [[noreturn]] void Fail(std::string_view slip) const;
  Pieces Add(std::string_view part) const;

  TransformOptions options_;
  std::string_view title_;
  text::Replacer remove_;
  text::Replacer replace_;

  std::string cased_;  ///< the part after each step that can't point into the one before
  std::string after_cut_;
  std::string replaced_;
};

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// What stands in a number field after the user has left it.
struct NumberText {
  std::string text;                   ///< the number written anew
  std::optional<std::int32_t> value;  ///< nothing when it has no room in 32 bits
};

/// Reads `typed` up to its first character that is no part of a number: nothing, or a text that
/// begins otherwise, is 0, leading zeros go. A number with more than 15 digits is written in
/// exponent form, and such a form is read again.
NumberText NormalizeNumber(std::string_view typed);

/// What a number field takes when its text `before` would become `after`, by typing, pasting or
/// any other way: of what came new only the digits, blanks around them and a plus sign before them
/// being dropped. Nothing, when anything else came: a number without its "-" or "," is another one.
std::optional<std::string> TakeDigits(std::string_view before, std::string_view after);

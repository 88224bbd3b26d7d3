#pragma once

#include <string_view>

/// True when `name` holds "*" or "?".
bool HasWildcards(std::string_view name);

/// Whether all of `name` fits `pattern`: "*" is any run of characters, "?" any one, all else
/// itself. A character is a code point here; a byte that is no UTF-8 counts as one.
bool FitsPattern(std::string_view name, std::string_view pattern);

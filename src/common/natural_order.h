#pragma once

#include <string>
#include <string_view>

/// Natural order, in which people expect names: "a", "a 1", "a1", "a01", "a2", "A10", "a10b", "b".
///
/// Letter case aside, texts are compared code point by code point, but a run of the digits 0 to 9
/// counts as its number, however long it is, and stands where digits do against anything else. The
/// path separator comes before all else, so that a folder stands directly above what is in it;
/// bytes that are no UTF-8 come last. Among texts that are equal so far, fewer leading zeros come
/// first, counted over the whole text, then the bytes decide. Only a text itself is its equal.

/// Appends the natural sort key of `t` to `key`, which must not hold `t`: texts are in natural
/// order as their keys are in the order of their bytes. A key takes about twice the bytes of its
/// text.
void AppendNaturalKey(std::string_view t, std::string& key);

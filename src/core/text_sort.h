#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

/// Texts stand in the order of the bytes of their keys; this appends the key of a text to `key`.
using TextOrder = void (*)(std::string_view text, std::string& key);

/// The numbers 0 to `count` - 1 in the order of their texts, ascending or exactly the other way
/// about; numbers of texts with equal keys ascend both ways. Takes 16 to 24 bytes a number beside
/// its answer, and at most 32 MB for keys: where these are too many, they are made again.
///
/// `go_on`, when given, is called every few milliseconds at most; false stops the sort, which then
/// answers nothing.
std::vector<std::uint32_t> SortedByText(
    std::size_t count, const std::function<std::string_view(std::size_t number)>& text_of,
    TextOrder order, bool ascending = true, const std::function<bool()>& go_on = nullptr);

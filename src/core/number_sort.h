#pragma once

#include <cstdint>
#include <vector>

/// A key that stands among others as the number among theirs. Of no number that isn't one (NaN).
std::uint64_t KeyOfNumber(double number);

/// The numbers 0 to the count less one in the order of their `keys`, ascending or exactly the other
/// way about; numbers of equal keys ascend both ways. Takes 16 bytes a number beside keys and
/// answer, and a time that is the same a number however many there are.
std::vector<std::uint32_t> SortedByNumber(std::vector<std::uint64_t> keys, bool ascending = true);

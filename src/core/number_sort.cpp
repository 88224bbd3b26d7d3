#include "core/number_sort.h"

#include <array>
#include <bit>
#include <cstddef>
#include <numeric>

namespace {

constexpr std::size_t kBytes = sizeof(std::uint64_t);

using Counts = std::array<std::uint32_t, 256>;

std::size_t ByteOf(std::uint64_t key, std::size_t byte) {
  return key >> (8 * byte) & 0xFF;
}

/// How often each value of each byte is there.
std::array<Counts, kBytes> CountBytes(const std::vector<std::uint64_t>& keys) {
  std::array<Counts, kBytes> counts = {};
  for (const std::uint64_t key : keys) {
    for (std::size_t byte = 0; byte < kBytes; ++byte) ++counts[byte][ByteOf(key, byte)];
  }
  return counts;
}

}  // namespace

/// The bits of doubles stand as the numbers do, but for the sign (IEEE 754).
std::uint64_t KeyOfNumber(double number) {
  constexpr std::uint64_t kSign = std::uint64_t{1} << 63;
  const auto bits = std::bit_cast<std::uint64_t>(number + 0.0);  // of both zeros, the one
  return (bits & kSign) != 0 ? ~bits : bits | kSign;
}

/// From the last byte to the first, each time keeping the order that there is; a byte that is the
/// same in all keys, as most are, is passed over.
std::vector<std::uint32_t> SortedByNumber(std::vector<std::uint64_t> keys, bool ascending) {
  const std::size_t count = keys.size();
  for (std::uint64_t& key : keys) key = ascending ? key : ~key;
  std::vector<std::uint32_t> numbers(count), next_numbers(count);
  std::iota(numbers.begin(), numbers.end(), 0u);
  std::vector<std::uint64_t> next_keys(count);
  const std::array<Counts, kBytes> counts = CountBytes(keys);
  for (std::size_t byte = 0; byte < kBytes && count > 0; ++byte) {
    if (counts[byte][ByteOf(keys[0], byte)] == count) continue;
    Counts place;
    std::exclusive_scan(counts[byte].begin(), counts[byte].end(), place.begin(), 0u);
    for (std::size_t i = 0; i < count; ++i) {
      const std::uint32_t at = place[ByteOf(keys[i], byte)]++;
      next_keys[at] = keys[i];
      next_numbers[at] = numbers[i];
    }
    keys.swap(next_keys);
    numbers.swap(next_numbers);
  }
  return numbers;
}

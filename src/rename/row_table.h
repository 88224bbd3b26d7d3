#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <vector>

/// Finds rows by a hash in about five bytes a row. A few bits of the hash stand beside the number
/// of each row, so that hardly any other row is offered.
class RowTable {
 public:
  /// For the rows below `rows`, of which at most `adds` are added; a row may be under several
  /// hashes.
  void Reserve(std::size_t rows, std::size_t adds) {
    bits_ = std::bit_width(rows);
    slots_.assign(adds + adds / 4 + 2, 0);
  }

  void Add(std::size_t hash, std::size_t row) {
    std::size_t at = Begin(hash);
    while (slots_[at] != 0) at = Next(at);
    slots_[at] = Tag(hash) | static_cast<std::uint32_t>(row + 1);
  }

  /// Whether `fits` says so of one of the rows under `hash`; it may be asked of others too.
  template <class Fits>
  bool Any(std::size_t hash, const Fits& fits) const {
    if (slots_.empty()) return false;
    const std::uint32_t tag = Tag(hash);
    for (std::size_t at = Begin(hash); slots_[at] != 0; at = Next(at)) {
      const std::uint32_t row = slots_[at] & Mask();
      if ((slots_[at] ^ row) == tag && fits(static_cast<std::size_t>(row - 1))) return true;
    }
    return false;
  }

 private:
  std::uint32_t Mask() const { return static_cast<std::uint32_t>((std::uint64_t{1} << bits_) - 1); }
  std::uint32_t Tag(std::size_t hash) const { return static_cast<std::uint32_t>(hash) & ~Mask(); }
  std::size_t Begin(std::size_t hash) const { return (hash >> 32) * slots_.size() >> 32; }
  std::size_t Next(std::size_t at) const { return at + 1 < slots_.size() ? at + 1 : 0; }

  int bits_ = 0;
  std::vector<std::uint32_t> slots_;  ///< the tag above, the row plus one below; 0 is empty
};

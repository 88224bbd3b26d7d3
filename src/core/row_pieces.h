#pragma once

#include <cstddef>
#include <vector>

/// Rows in pieces of one size. Adding one moves none of the others: a million of them would take a
/// moment, and twice their memory.
template <class Row>
class RowPieces {
 public:
  bool Empty() const { return count_ == 0; }
  std::size_t Count() const { return count_; }
  Row& operator[](std::size_t i) { return pieces_[i / kRows][i % kRows]; }
  const Row& operator[](std::size_t i) const { return pieces_[i / kRows][i % kRows]; }
  const Row& Last() const { return pieces_.back().back(); }

  /// A new one at the end.
  Row& Add() {
    if (count_ % kRows == 0) pieces_.emplace_back().reserve(kRows);
    ++count_;
    return pieces_.back().emplace_back();
  }

  void Clear() {
    pieces_.clear();
    count_ = 0;
  }

 private:
  static constexpr std::size_t kRows = 4096;
  std::vector<std::vector<Row>> pieces_;
  std::size_t count_ = 0;
};

#include "filelist/tick_totals.h"

#include <algorithm>
#include <limits>

namespace {

constexpr std::size_t kBlock = 1024;  ///< rows
constexpr std::uint32_t kNotCounted = std::numeric_limits<std::uint32_t>::max();

}  // namespace

bool TickTotals::IsTicked(std::size_t row) const {
  return !rows_.IsGroupRow(row) && records_[rows_.RecordOf(row)].checked;
}

void TickTotals::TicksChanged(std::size_t first, std::size_t last) {
  const std::size_t end = std::min(last / kBlock + 1, blocks_.size());
  for (std::size_t block = first / kBlock; block < end; ++block) blocks_[block] = kNotCounted;
  last_ = last_group_ = {};
}

void TickTotals::SeeNewRows() {
  if (version_ == rows_.Version()) return;
  version_ = rows_.Version();
  blocks_.assign((rows_.RowCount() + kBlock - 1) / kBlock, kNotCounted);
  last_ = last_group_ = {};
}

std::uint32_t TickTotals::InBlock(std::size_t block) {
  std::uint32_t& ticked = blocks_[block];
  if (ticked != kNotCounted) return ticked;
  ticked = 0;
  const std::size_t end = std::min((block + 1) * kBlock, rows_.RowCount());
  for (std::size_t row = block * kBlock; row < end; ++row) ticked += IsTicked(row) ? 1 : 0;
  return ticked;
}

std::size_t TickTotals::CountAbove(std::size_t row, Place& last) {
  const std::size_t block = row / kBlock;
  if (last.row > row || last.row < block * kBlock) {
    last = {block * kBlock, 0};
    for (std::size_t before = 0; before < block; ++before) last.ticked += InBlock(before);
  }
  for (; last.row < row; ++last.row) last.ticked += IsTicked(last.row) ? 1 : 0;
  return last.ticked;
}

TickTotals::Above TickTotals::AboveRow(std::size_t row) {
  SeeNewRows();
  const std::size_t all = CountAbove(row, last_);
  if (!rows_.IsGrouped()) return {all, all};
  return {all, all - CountAbove(rows_.GroupOf(row).row, last_group_)};
}

std::optional<std::size_t> TickTotals::FirstTicked() {
  SeeNewRows();
  for (std::size_t block = 0; block < blocks_.size(); ++block) {
    if (InBlock(block) == 0) continue;
    std::size_t row = block * kBlock;
    while (!IsTicked(row)) ++row;
    return row;
  }
  return std::nullopt;
}

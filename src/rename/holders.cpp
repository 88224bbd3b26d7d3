#include "rename/holders.h"

#include <algorithm>
#include <string>
#include <utility>

#include "platform/text.h"

HolderIndex::HolderIndex(Records& records, KeyOf key_of, Test gone)
    : records_(records), key_of_(std::move(key_of)), gone_(std::move(gone)) {}

std::optional<std::size_t> HolderIndex::FirstWith(std::size_t key, const Test& holds) {
  if (!made_) Make();
  std::optional<std::size_t> first;
  const auto begin = std::lower_bound(entries_.begin(), entries_.end(), Entry{key, 0});
  for (std::size_t i = NextAlive(static_cast<std::size_t>(begin - entries_.begin()));
       i < entries_.size() && entries_[i].key == key; i = NextAlive(i + 1)) {
    if (!holds(records_[entries_[i].record])) continue;
    first = entries_[i].record;
    break;
  }
  const auto [later, end] = later_.equal_range(key);
  for (auto i = later; i != end; ++i) {
    if ((!first || i->second < *first) && holds(records_[i->second])) first = i->second;
  }
  return first;
}

void HolderIndex::KeyChanged(std::size_t record) {
  if (!made_) return;  // it will be made from the rows as they then stand
  later_.emplace(key_of_(records_[record]), static_cast<std::uint32_t>(record));
}

void HolderIndex::Make() {
  made_ = true;
  for (std::size_t i = 0; i < records_.Count(); ++i) {
    if (gone_(records_[i])) continue;
    entries_.push_back({key_of_(records_[i]), static_cast<std::uint32_t>(i)});
  }
  std::sort(entries_.begin(), entries_.end());
  alive_.resize(entries_.size() + 1);
  for (std::uint32_t i = 0; i < alive_.size(); ++i) alive_[i] = i;
}

/// Passes over rows that are gone, and shortens the way for the next question.
std::size_t HolderIndex::NextAlive(std::size_t entry) {
  std::size_t end = entry;
  while (end < entries_.size()) {
    if (alive_[end] != end) {
      end = alive_[end];
    } else if (gone_(records_[entries_[end].record])) {
      alive_[end] = static_cast<std::uint32_t>(end + 1);
    } else {
      break;
    }
  }
  while (entry < end) entry = std::exchange(alive_[entry], static_cast<std::uint32_t>(end));
  return end;
}

std::size_t HolderKey(std::string_view path, std::string_view name) {
  const std::size_t a = std::hash<std::string_view>()(path);
  const std::size_t b = std::hash<std::string>()(text::ToLower(name));
  return a * 0x9E3779B97F4A7C15u + b;
}

#include "rename/holders.h"

#include <algorithm>
#include <functional>
#include <string>

#include "platform/text.h"

void HolderIndex::Add(std::size_t key, std::size_t record) {
  const auto number = static_cast<std::uint32_t>(record);
  if (asked_) {
    later_.emplace(key, number);
  } else {
    first_.emplace_back(key, number);
  }
}

std::vector<std::size_t> HolderIndex::Under(std::size_t key) {
  if (!asked_) std::sort(first_.begin(), first_.end());
  asked_ = true;
  std::vector<std::size_t> records;
  auto entry = std::lower_bound(first_.begin(), first_.end(), Entry(key, 0));
  for (; entry != first_.end() && entry->first == key; ++entry) records.push_back(entry->second);
  const auto [begin, end] = later_.equal_range(key);
  for (auto added = begin; added != end; ++added) records.push_back(added->second);
  std::sort(records.begin(), records.end());
  return records;
}

std::size_t HolderKey(std::size_t folder, std::string_view name) {
  return folder * 0x9E3779B97F4A7C15u + std::hash<std::string>()(text::NameKey(name));
}

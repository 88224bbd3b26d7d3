#include "rename/holders.h"

#include <algorithm>
#include <functional>
#include <string>

#include "platform/text.h"

void HolderIndex::Add(std::size_t key, std::size_t record) {
  if (room_ > 0) {
    --room_;
    table_.Add(key, record);
  } else {
    more_.emplace(key, record);
  }
}

std::vector<std::size_t> HolderIndex::Under(std::size_t key) const {
  std::vector<std::size_t> records;
  table_.Any(key, [&](std::size_t record) {
    records.push_back(record);
    return false;
  });
  const auto [begin, end] = more_.equal_range(key);
  for (auto added = begin; added != end; ++added) records.push_back(added->second);
  std::sort(records.begin(), records.end());
  records.erase(std::unique(records.begin(), records.end()), records.end());
  return records;
}

std::size_t HolderKey(std::size_t folder, std::string_view name) {
  return folder * 0x9E3779B97F4A7C15u + std::hash<std::string>()(text::NameKey(name));
}

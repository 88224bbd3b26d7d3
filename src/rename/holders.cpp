#include "rename/holders.h"

#include <algorithm>
#include <functional>
#include <string>

#include "platform/text.h"

void HolderIndex::EndOfFirst() {
  std::sort(first_.begin(), first_.end());
}

std::vector<HolderIndex::Entry>::const_iterator HolderIndex::FirstOf(std::size_t key) const {
  return std::lower_bound(first_.begin(), first_.end(), Entry{key, 0});
}

std::size_t HolderKey(std::size_t folder, std::string_view name) {
  return folder * 0x9E3779B97F4A7C15u + std::hash<std::string>()(text::NameKey(name));
}

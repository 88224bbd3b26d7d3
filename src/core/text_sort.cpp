#include "core/text_sort.h"

#include <algorithm>
#include <span>

namespace {

/// How many bytes of the keys are compared at a time.
constexpr std::size_t kHeadBytes = 7;
constexpr std::size_t kAllEqual = std::string::npos;
constexpr std::size_t kKeysBetweenCalls = 1024;
constexpr std::size_t kSortedAtOnce = 1 << 15;

struct Item {
  std::uint64_t head;  ///< a piece of the key, for the descending order each bit turned
  std::uint32_t number;

  bool operator<(const Item& other) const {
    return head != other.head ? head < other.head : number < other.number;
  }
};
using Run = std::span<Item>;

/// The bytes of `key` from `depth` on, and below them how many there are: so a key stands before
/// those that only begin with it.
std::uint64_t HeadAt(std::string_view key, std::size_t depth) {
  const std::size_t size = depth < key.size() ? std::min(key.size() - depth, kHeadBytes) : 0;
  std::uint64_t head = 0;
  for (std::size_t i = 0; i < kHeadBytes; ++i) {
    head = head << 8 | (i < size ? static_cast<unsigned char>(key[depth + i]) : 0);
  }
  return head << 8 | size;
}

/// Sorts by one piece of the keys, then each run of items that are equal so far by the next piece.
class TextSort {
 public:
  TextSort(const std::function<std::string_view(std::size_t)>& text_of, TextOrder order,
           bool ascending, const std::function<bool()>& go_on)
      : text_of_(text_of), order_(order), turn_(ascending ? 0 : ~std::uint64_t{0}), go_on_(go_on) {}

  /// False when stopped. The keys of `run` have the same bytes before `depth`.
  bool Sort(Run run, std::size_t depth) {
    depth = CommonEnd(run, depth);
    if (depth == kAllEqual) return true;
    for (Item& item : run) {
      if (!MakeKey(item, key_)) return false;
      item.head = HeadAt(key_, depth) ^ turn_;
    }
    return SortByHeads(run) && SortEqualHeads(run, depth + kHeadBytes);
  }

 private:
  /// How many first bytes all keys have in common, or `kAllEqual`; less is told where that is not
  /// worth the search.
  std::size_t CommonEnd(Run run, std::size_t depth) {
    if (!MakeKey(run.front(), first_key_)) return depth;
    std::size_t common = first_key_.size();
    bool all_equal = true;
    for (const Item& item : run.subspan(1)) {
      if (!MakeKey(item, key_)) return depth;
      const auto end = static_cast<std::ptrdiff_t>(std::min(common, key_.size()));
      const auto parted = std::mismatch(key_.begin(), key_.begin() + end, first_key_.begin());
      common = static_cast<std::size_t>(parted.first - key_.begin());
      all_equal = all_equal && common == first_key_.size() && common == key_.size();
      if (common < depth + kHeadBytes && !all_equal) return depth;
    }
    return all_equal ? kAllEqual : common;
  }

  /// In pieces, so that a stop needn't wait for the whole.
  bool SortByHeads(Run run) {
    const auto at = [&](std::size_t i) {
      return run.begin() + static_cast<std::ptrdiff_t>(std::min(i, run.size()));
    };
    for (std::size_t i = 0; i < run.size(); i += kSortedAtOnce) {
      std::sort(at(i), at(i + kSortedAtOnce));
      if (!GoOn()) return false;
    }
    for (std::size_t width = kSortedAtOnce; width < run.size(); width *= 2) {
      for (std::size_t i = 0; i + width < run.size(); i += 2 * width) {
        std::inplace_merge(at(i), at(i + width), at(i + 2 * width));
        if (!GoOn()) return false;
      }
    }
    return true;
  }

  bool SortEqualHeads(Run run, std::size_t depth) {
    for (auto begin = run.begin(); begin != run.end();) {
      const std::uint64_t head = begin->head;
      const auto end = std::find_if(begin, run.end(), [&](Item i) { return i.head != head; });
      const bool keys_go_on = ((head ^ turn_) & 0xFF) == kHeadBytes;
      if (keys_go_on && end - begin > 1 && !Sort({begin, end}, depth)) return false;
      begin = end;
    }
    return true;
  }

  bool MakeKey(const Item& item, std::string& key) {
    key.clear();
    order_(text_of_(item.number), key);
    return ++keys_made_ % kKeysBetweenCalls == 0 ? GoOn() : !stopped_;
  }

  bool GoOn() {
    stopped_ = stopped_ || (go_on_ && !go_on_());
    return !stopped_;
  }

  const std::function<std::string_view(std::size_t)>& text_of_;
  const TextOrder order_;
  const std::uint64_t turn_;
  const std::function<bool()>& go_on_;
  bool stopped_ = false;
  std::size_t keys_made_ = 0;
  std::string key_, first_key_;  ///< for their room
};

}  // namespace

std::vector<std::uint32_t> SortedByText(std::size_t count,
                                        const std::function<std::string_view(std::size_t)>& text_of,
                                        TextOrder order, bool ascending,
                                        const std::function<bool()>& go_on) {
  std::vector<Item> items(count);
  for (std::size_t i = 0; i < count; ++i) items[i] = {0, static_cast<std::uint32_t>(i)};
  if (count > 1 && !TextSort(text_of, order, ascending, go_on).Sort(items, 0)) return {};
  std::vector<std::uint32_t> sorted(count);
  std::transform(items.begin(), items.end(), sorted.begin(), [](Item item) { return item.number; });
  return sorted;
}

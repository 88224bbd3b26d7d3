#include "core/text_sort.h"

#include <algorithm>
#include <cstring>
#include <span>

namespace {

/// How many bytes of the keys are compared at a time.
constexpr std::size_t kHeadBytes = 7;
/// A run of at most so many keys, and bytes of them, keeps them until it is sorted.
constexpr std::size_t kMostKept = 1 << 17;
constexpr std::size_t kMostKeptBytes = 32 << 20;
constexpr std::size_t kSamples = 64;
constexpr std::size_t kKeysBetweenCalls = 1024;
constexpr std::size_t kSortedAtOnce = 1 << 15;

struct Item {
  std::uint64_t head;  ///< a piece of the key, for the descending order each bit turned
  std::uint32_t number;
  std::uint32_t kept_at;  ///< where the key is kept, if it is

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

/// How many first bytes both have in common, `most` at most; before `depth` they don't differ.
std::size_t Common(std::string_view a, std::string_view b, std::size_t depth, std::size_t most) {
  const std::size_t end = std::min({a.size(), b.size(), most});
  while (depth < end && a[depth] == b[depth]) ++depth;
  return depth;
}

/// Keys one behind the other, each with its size before it.
class KeptKeys {
 public:
  bool Empty() const { return bytes_.empty(); }
  void Clear() { bytes_.clear(); }
  /// So that many needn't move as they grow; what isn't written takes no memory.
  void Reserve() { bytes_.reserve(kMostKeptBytes + sizeof(std::size_t)); }
  /// Answers where it is; false when there is no more room.
  bool Add(std::string_view key, std::uint32_t& at) {
    const std::size_t size = key.size();
    if (size > kMostKeptBytes || bytes_.size() > kMostKeptBytes - size) return false;
    at = static_cast<std::uint32_t>(bytes_.size());
    bytes_.append(reinterpret_cast<const char*>(&size), sizeof size).append(key);
    return true;
  }
  std::string_view At(std::uint32_t at) const {
    std::size_t size = 0;
    std::memcpy(&size, &bytes_[at], sizeof size);
    return std::string_view(bytes_).substr(at + sizeof size, size);
  }

 private:
  std::string bytes_;
};

/// Sorts by one piece of the keys, then each run of items that are equal so far by the next piece.
class TextSort {
 public:
  TextSort(const std::function<std::string_view(std::size_t)>& text_of, TextOrder order,
           bool ascending, const std::function<bool()>& go_on)
      : text_of_(text_of), order_(order), turn_(ascending ? 0 : ~std::uint64_t{0}), go_on_(go_on) {}

  /// False when stopped. The keys of `run` have the same bytes before `depth`.
  bool Sort(Run run, std::size_t depth) {
    if (kept_.Empty() && run.size() <= kMostKept) {
      const bool sorted = Keep(run, depth) && SortByPieces(run, 0);
      kept_.Clear();
      if (sorted || stopped_) return sorted;
    }
    return SortByPieces(run, depth);
  }

 private:
  /// Keeps the keys from `depth` on; false when they are too long, or stopped.
  bool Keep(Run run, std::size_t depth) {
    if (run.size() > kSortedAtOnce) kept_.Reserve();
    for (Item& item : run) {
      const std::string_view key = MakeKey(item);
      if (!CountKey() || !kept_.Add(key.substr(depth), item.kept_at)) return false;
    }
    return true;
  }

  bool SortByPieces(Run run, std::size_t depth) {
    return MakeHeads(run, depth) && SortByHeads(run) && SortEqualHeads(run, depth + kHeadBytes);
  }

  /// Takes the first piece in which keys differ, and moves `depth` there. A second round is only
  /// needed where some keys part before all samples do.
  bool MakeHeads(Run run, std::size_t& depth) {
    const std::size_t known = depth;
    first_key_ = KeyOf(run.front());
    depth = CommonOfSamples(run, known);
    for (std::size_t taken = depth + 1; taken > depth;) {
      taken = depth;
      for (Item& item : run) {
        const std::string_view key = KeyOf(item);
        depth = Common(key, first_key_, known, depth);
        item.head = HeadAt(key, depth) ^ turn_;
        if (!CountKey()) return false;
      }
    }
    return true;
  }

  std::size_t CommonOfSamples(Run run, std::size_t depth) {
    std::size_t common = first_key_.size();
    const std::size_t step = (run.size() + kSamples - 1) / kSamples;
    for (std::size_t i = run.size() - 1; i >= step; i -= step) {
      common = Common(KeyOf(run[i]), first_key_, depth, common);
    }
    return common;
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

  /// Holds until the next key is asked for.
  std::string_view KeyOf(const Item& item) {
    return kept_.Empty() ? MakeKey(item) : kept_.At(item.kept_at);
  }

  std::string_view MakeKey(const Item& item) {
    key_.clear();
    order_(text_of_(item.number), key_);
    return key_;
  }

  bool CountKey() { return ++keys_ % kKeysBetweenCalls == 0 ? GoOn() : !stopped_; }

  bool GoOn() {
    stopped_ = stopped_ || (go_on_ && !go_on_());
    return !stopped_;
  }

  const std::function<std::string_view(std::size_t)>& text_of_;
  const TextOrder order_;
  const std::uint64_t turn_;
  const std::function<bool()>& go_on_;
  bool stopped_ = false;
  std::size_t keys_ = 0;
  KeptKeys kept_;                ///< those of the run that is being sorted, or none
  std::string key_, first_key_;  ///< for their room
};

}  // namespace

std::vector<std::uint32_t> SortedByText(std::size_t count,
                                        const std::function<std::string_view(std::size_t)>& text_of,
                                        TextOrder order, bool ascending,
                                        const std::function<bool()>& go_on) {
  std::vector<Item> items(count);
  for (std::size_t i = 0; i < count; ++i) items[i] = {0, static_cast<std::uint32_t>(i), 0};
  if (count > 1 && !TextSort(text_of, order, ascending, go_on).Sort(items, 0)) return {};
  std::vector<std::uint32_t> sorted(count);
  std::transform(items.begin(), items.end(), sorted.begin(), [](Item item) { return item.number; });
  return sorted;
}

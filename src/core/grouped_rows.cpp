#include "core/grouped_rows.h"

#include <algorithm>
#include <memory>
#include <numeric>
#include <unordered_map>
#include <utility>

#include "core/number_sort.h"

namespace {

using Numbers = std::vector<std::uint32_t>;
using GoOn = std::function<bool()>;

/// The place of each text in the order; texts with equal keys share it.
Numbers Ranks(const SharedTexts& texts, const GoOn& go_on) {
  const Numbers order = SortedByText(
      texts.count, [&](std::size_t i) { return texts.text(static_cast<std::uint32_t>(i)); },
      AppendNaturalKey, true, go_on);
  Numbers ranks(texts.count);
  std::string key, last_key;
  for (std::size_t i = 0; i < order.size(); ++i) {
    std::swap(key, last_key);
    key.clear();
    AppendNaturalKey(texts.text(order[i]), key);
    if (i > 0) ranks[order[i]] = ranks[order[i - 1]] + (key != last_key ? 1 : 0);
  }
  return ranks;
}

/// What the key answers for each record.
template <class Value, class Of>
std::vector<Value> Values(std::size_t count, Of of) {
  std::vector<Value> values(count);
  for (std::size_t i = 0; i < count; ++i) values[i] = of(i);
  return values;
}

struct Sorter {
  std::size_t count;
  const RowOrder& order;
  const GoOn& go_on;

  Numbers operator()(std::monostate) {
    Numbers numbers(count);
    std::iota(numbers.begin(), numbers.end(), 0u);
    return numbers;
  }
  Numbers operator()(const NumberOf& number_of) {
    const auto key_of = [&](std::size_t i) { return KeyOfNumber(number_of(i)); };
    return SortedByNumber(Values<std::uint64_t>(count, key_of), order.ascending);
  }
  Numbers operator()(const TextOf& text_of) {
    return SortedByText(count, text_of, AppendNaturalKey, order.ascending, go_on);
  }
  Numbers operator()(const SharedTexts& texts) {
    const Numbers ranks = Ranks(texts, go_on);
    const auto rank_of = [&](std::size_t i) { return ranks[texts.number(i)]; };
    return SortedByNumber(Values<std::uint64_t>(count, rank_of), order.ascending);
  }
};

}  // namespace

SharedTexts ShareTexts(std::size_t count, const TextOf& text_of) {
  std::unordered_map<std::string_view, std::uint32_t> known;
  const auto texts = std::make_shared<std::vector<std::string_view>>();
  const auto numbers = std::make_shared<Numbers>(count);
  for (std::size_t i = 0; i < count; ++i) {
    const auto next = static_cast<std::uint32_t>(texts->size());
    const auto [place, is_new] = known.try_emplace(text_of(i), next);
    if (is_new) texts->push_back(place->first);
    (*numbers)[i] = place->second;
  }
  return {texts->size(), [numbers](std::size_t record) { return (*numbers)[record]; },
          [texts](std::uint32_t number) { return (*texts)[number]; }};
}

bool GroupedRows::Populate(std::size_t count, const RowOrder& order, const GoOn& go_on) {
  Clear();
  bool stopped = false;
  const GoOn goes_on = [&] {
    stopped = stopped || (go_on && !go_on());
    return !stopped;
  };
  const Numbers records = std::visit(Sorter{count, order, goes_on}, order.key);
  const Numbers group_ranks = order.groups ? Ranks(*order.groups, goes_on) : Numbers();
  if (stopped) return false;
  if (!order.groups) {
    rows_.assign(records.begin(), records.end());
    return true;
  }
  const auto number_of = Values<std::uint32_t>(count, order.groups->number);
  std::vector<std::size_t> next_row = PlaceGroups(*order.groups, number_of, group_ranks);
  for (const std::uint32_t record : records) {
    rows_[next_row[number_of[record]]++] = static_cast<std::int32_t>(record);
  }
  return true;
}

/// Makes the group rows and room for the file rows; answers where those of each text begin.
std::vector<std::size_t> GroupedRows::PlaceGroups(const SharedTexts& texts,
                                                  const std::vector<std::uint32_t>& number_of,
                                                  const std::vector<std::uint32_t>& ranks) {
  std::vector<std::size_t> file_counts(texts.count);
  Numbers used;  // as their first records stand
  for (const std::uint32_t number : number_of) {
    if (file_counts[number]++ == 0) used.push_back(number);
  }
  std::stable_sort(used.begin(), used.end(),
                   [&](std::uint32_t a, std::uint32_t b) { return ranks[a] < ranks[b]; });

  std::vector<std::size_t> first_rows(texts.count);
  rows_.resize(number_of.size() + used.size());
  std::size_t row = 0;
  for (const std::uint32_t number : used) {
    rows_[row] = -1 - static_cast<std::int32_t>(groups_.size());
    groups_.push_back({std::string(texts.text(number)), row, file_counts[number]});
    first_rows[number] = row + 1;
    row += 1 + file_counts[number];
  }
  return first_rows;
}

void GroupedRows::Clear() {
  rows_.clear();
  groups_.clear();
  ++version_;
}

const GroupedRows::Group& GroupedRows::GroupOf(std::size_t row) const {
  const auto behind =
      std::upper_bound(groups_.begin(), groups_.end(), row,
                       [](std::size_t value, const Group& group) { return value < group.row; });
  return *std::prev(behind);
}

#include "names/drafts.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>

#include "names/preview.h"
#include "support/failure_report.h"
#include "support/fake_services.h"

namespace {

/// Lists, orders, ticks and elements as they come.
class DraftsTest : public testing::Test, protected FakeServices {
 protected:
  int Any(int end) { return static_cast<int>(random() % static_cast<unsigned>(end)); }
  std::string AnyText() {
    static const char* const kTexts[] = {"", "a", "1", ".", "é", "IMG"};
    return kTexts[Any(6)];
  }

  ConstrItem AnyElement() {
    const int far = Any(15) == 0 ? std::numeric_limits<std::int32_t>::max() - Any(3) : 0;
    return {
        .ItemType = static_cast<ItemType>(Any(7) - 1),
        .ItemText = AnyText(),
        .transform = {.Case = Any(4),
                      .Cut = Any(10),
                      .CutN = far == 0 ? Any(5) : far,
                      .CutX = Any(5),
                      .CutText = AnyText(),
                      .Replace1 = AnyText(),
                      .Replace2 = AnyText(),
                      .Add = Any(6),
                      .AddN = Any(4),
                      .AddText1 = AnyText()},
        .date = {.Format = Any(2) == 0 ? "d mmm" : "yyyy-"},
        .counter = {.Start = far == 0 ? Any(99) : far - Any(50), .Reset = Any(2), .Format = "00"}};
  }

  void ListAnew(int count) {
    records.DeleteAll();
    for (int i = 0; i < count; ++i) {
      const std::string folder = std::to_string(Any(count / 20 + 1));
      records.AddRecord(folder, "/" + folder + "/", AnyText() + std::to_string(Any(99)) + AnyText(),
                        FileDate(2024, 1 + Any(3), 1, 0, 0, 0), Any(9), AnyText());
    }
  }

  void ChangeSomething() {
    constructor.ArrConstr.resize(static_cast<std::size_t>(Any(4)));
    for (ConstrItem& item : constructor.ArrConstr) item = AnyElement();
    if (Any(3) != 0) constructor.ArrConstr.push_back({.ItemType = kCounter});
    if (Any(3) == 0) {
      grid.SetGroupsOrder(static_cast<GroupBy>(Any(3)));
      grid.SetSortOrder(Any(8), Any(2) == 0);
      grid.Populate();
    }
    const auto first = static_cast<std::size_t>(Any(static_cast<int>(grid.RowCount())));
    const std::size_t last = std::min(first + 9, grid.RowCount() - 1);
    for (std::size_t row = first; row <= last; ++row) {
      if (!grid.IsGroupRow(row)) records[grid.RecordOf(row)].checked = Any(2) == 0;
    }
    grid.Ticks().TicksChanged(first, last);
    FileRow& row = records[static_cast<std::size_t>(Any(static_cast<int>(records.Count())))];
    row.RowTag = static_cast<std::int16_t>(Any(2));
    row.KeepRollback();
    if (Any(2) == 0) row.MoveAside("aside");
  }

  std::mt19937 random{7};
  Records records;
  Grid grid{records};
  Constructor constructor;
  RunState state;
  Drafts drafts{grid, constructor, clock, locale};
};

}  // namespace

TEST_F(DraftsTest, AreWhatThePreviewStores) {
  int compared = 0;
  for (int round = 0; round < 200; ++round) {
    if (round % 7 == 0) ListAnew(round % 14 == 0 ? 2500 : 40), grid.Populate();
    ChangeSomething();
    std::vector<std::optional<std::string>> given(grid.RowCount());
    const auto any_row = [&] { return std::size_t(Any(int(given.size()))); };
    const std::size_t begin = any_row();
    for (std::size_t i = 0; i < given.size(); ++i) {  // mostly downwards, as lists are painted
      const std::size_t row = (begin + i) % given.size();
      if (Any(60) == 0) drafts.NameOf(any_row());
      given[row] = drafts.NameOf(row);
    }
    Pass pass(records, state, services, grid.RowCount());
    state.panes.progressValue = 0;
    const bool fails = !FailureReport([&] { SetPreview(pass, grid, constructor); }).empty();
    const std::size_t end = std::size_t(state.panes.progressValue) - (fails ? 1 : 0);
    for (std::size_t row = 0; row < end && !constructor.ArrConstr.empty(); ++row, ++compared) {
      const FileRow* file = grid.IsGroupRow(row) ? nullptr : &records[grid.RecordOf(row)];
      const bool named = file != nullptr && file->checked && file->RowTag != 1;
      ASSERT_EQ(given[row], named ? std::optional(file->newFileName) : std::nullopt) << round;
    }
  }
  EXPECT_GT(compared, 200'000);
}

TEST_F(DraftsTest, LeaveOutTheRowThatFailsAndNoOther) {
  constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();
  constructor.ArrConstr = {
      {.ItemType = kExtension, .transform = {.Cut = 4, .CutN = kMost, .CutX = 1}}};
  for (const char* name : {"1.x", "2.yy", "3.x"}) records.AddRecord("", "/", name, {}, 1, "");
  grid.SetGroupsOrder(GroupBy::kNone);
  grid.Populate();
  const std::optional<std::string_view> expected[] = {"x", std::nullopt, "x"};
  for (std::size_t row = 0; row < 3; ++row) EXPECT_EQ(drafts.NameOf(row), expected[row]) << row;
}

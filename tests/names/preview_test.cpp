#include "names/preview.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "support/failure_report.h"
#include "support/fake_services.h"

using ::testing::ElementsAre;

namespace {

ConstrItem CounterFrom(std::int32_t start, bool resets) {
  return {.ItemType = kCounter, .counter = {.Start = start, .Reset = resets, .Format = "00"}};
}

class PreviewTest : public testing::Test, protected FakeServices {
 protected:
  PreviewTest() { grid.SetGroupsOrder(GroupBy::kNone); }

  void AddFile(std::string_view name, std::string_view folder = "Lisbon",
               FileDate date = FileDate(2023, 12, 31, 10, 0, 0)) {
    records.AddRecord(folder, "/p/" + std::string(folder) + "/", name, date, 1, "");
  }

  bool Walk() {
    grid.Populate();
    Pass pass(records, state, services, grid.RowCount());
    return SetPreview(pass, grid, constructor);
  }

  /// The new names that a whole pass gives, in the order of the scan.
  std::vector<std::string> Preview() {
    EXPECT_TRUE(Walk());
    std::vector<std::string> names;
    for (std::size_t i = 0; i < records.Count(); ++i) names.push_back(records[i].newFileName);
    return names;
  }

  std::string NameOf(std::string_view name) {
    records.DeleteAll();
    AddFile(name);
    return Preview()[0];
  }

  /// Whether the pass over one file fails, for what is too large.
  bool Overflows(std::string_view name) {
    return FailureReport([&] { NameOf(name); }).starts_with("Overflow");
  }

  Records records;
  Grid grid{records};
  Constructor constructor;
  std::vector<ConstrItem>& items = constructor.ArrConstr;
  RunState state;
};

}  // namespace

TEST_F(PreviewTest, GivesEveryNameBackWithoutOptions) {
  for (const char* name : {"a.b.c", "abc", ".profile", "two..dots", " a .b", "x\xFF.\xFE"}) {
    EXPECT_EQ(NameOf(name), name);
  }
  EXPECT_EQ(NameOf("trail."), "trail") << "the end of a new name is cleaned";
  records[0].KeepRollback();
  records[0].MoveAside("trail_{1}");
  records[0].SetPlannedName("x");
  EXPECT_THAT(Preview(), ElementsAre("trail")) << "a run moved it aside";
  EXPECT_EQ(records[0].PlannedName(), "");
}

TEST_F(PreviewTest, AddsNothingToAPartThatWasEmptyOrReplacedAway) {
  items[0].transform = items[2].transform = {.Add = 2, .AddText1 = "new"};
  EXPECT_EQ(NameOf("abc"), "abcnew");
  EXPECT_EQ(NameOf(".x"), ".xnew");
  items[0].transform = {};
  items[2].transform = {.Cut = 2, .CutN = 9, .Add = 2, .AddText1 = "new"};
  EXPECT_EQ(NameOf("abc.x"), "abc.new") << "emptied by a cut it still counts";
  items[2].transform.Replace1 = "q";
  EXPECT_EQ(NameOf("abc.x"), "abc") << "with an active replace its end counts";
  items[2].transform = {.Replace1 = "X", .Add = 2, .AddText1 = "new"};
  EXPECT_EQ(NameOf("abc.x"), "abc");
  EXPECT_EQ(NameOf("abc.xy"), "abc.ynew");
}

TEST_F(PreviewTest, ReadsEachKindOfElement) {
  items = {{.ItemType = kParentFolderName, .transform = {.Cut = 7, .CutN = 5}},
           {.ItemText = "~"},
           {.ItemType = kFileDate, .date = {.Format = "d mmm yy"}},
           {.ItemType = kTodaysDate, .date = {.Format = "~yyyy-mm-dd~"}},
           {.ItemType = kFileDate},  // no format derived yet
           {.ItemType = kCounter, .counter = {.Start = 7}},
           {.ItemType = static_cast<ItemType>(77), .ItemText = "~"}};
  AddFile("x", "a.b.cde", FileDate(2023, 2, 1, 0, 0, 0));
  AddFile("y", "", FileDate());
  AddFile("z", "e", FileDate(2023, 2, 2, 0, 0, 0));
  AddFile("z", "e", FileDate(2023, 3, 2, 0, 0, 0));
  EXPECT_THAT(Preview(), ElementsAre("a.b.c~1 Feb 23~2024-03-09~7", "~~2024-03-09~8",
                                     "e~2 Feb 23~2024-03-09~9", "e~2 Mär 23~2024-03-09~10"));
}

TEST_F(PreviewTest, CountsCheckedRowsOnly) {
  items = {CounterFrom(1, true), {.ItemText = "-"}, CounterFrom(0, false)};
  for (const char* name : {"a", "b", "c", "d"}) AddFile(name);
  records[1].checked = false;
  records[2].RowTag = 1;
  records[1].newFileName = records[2].newFileName = "kept";
  records[1].mark = records[2].mark = Mark::kDone;
  records[3].mark = Mark::kFailed;
  for (int pass = 0; pass < 2; ++pass) {
    EXPECT_THAT(Preview(), ElementsAre("01-00", "", "kept", "03-02"));
  }
  EXPECT_TRUE(records[1].mark == Mark::kWaiting && records[2].mark == Mark::kDone);
  EXPECT_EQ(records[3].mark, Mark::kFailed);
  EXPECT_FALSE(state.gPreviewStale);
}

TEST_F(PreviewTest, StartsCountersAgainAtEachGroupWhereAsked) {
  items = {CounterFrom(5, true), {.ItemText = "-"}, CounterFrom(1, false)};
  AddFile("a", "Porto");
  AddFile("b", "Lisbon");
  AddFile("c", "Porto");
  EXPECT_THAT(Preview(), ElementsAre("05-01", "06-02", "07-03"));
  grid.SetGroupsOrder(GroupBy::kPath);
  state.panes.progressValue = 0;
  EXPECT_THAT(Preview(), ElementsAre("05-02", "05-01", "06-03"));
  EXPECT_EQ(state.panes.progressValue, 5) << "group rows count too";
  grid.SetSortOrder(kColumnSourceName, false);
  EXPECT_THAT(Preview(), ElementsAre("06-03", "05-01", "05-02"));
}

TEST_F(PreviewTest, FailsWhereACounterOrAPartPassesItsRange) {
  EXPECT_TRUE(Overflows(std::string(32'768, 'a')));
  std::string accents;
  for (int i = 0; i < 32'767; ++i) accents += "\u00E9";
  EXPECT_FALSE(Overflows(accents)) << "characters count, not bytes";
  items[0].transform = {.Replace1 = "\u00E9", .Replace2 = "ee"};
  EXPECT_TRUE(Overflows(accents));
  items = {CounterFrom(std::numeric_limits<std::int32_t>::max(), false)};
  EXPECT_TRUE(Overflows("a"));
  EXPECT_EQ(records[0].newFileName, "2147483647");
}

TEST_F(PreviewTest, LetsEventsRunAndEndsWhenCancelled) {
  for (int i = 0; i < 600; ++i) AddFile("a" + std::to_string(i));
  events.on_events = [&] { state.gCancelRequested = events.count == 11; };
  EXPECT_FALSE(Walk());
  EXPECT_EQ(records[19].newFileName, "a19");
  EXPECT_EQ(records[20].newFileName, "");
  EXPECT_EQ(state.panes.progressValue, 20);
  state.gCancelRequested = false;
  EXPECT_EQ(Preview()[599], "a599");
  EXPECT_EQ(events.count, 311);
}

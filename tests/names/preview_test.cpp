#include "names/preview.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "names/counter.h"
#include "names/months.h"
#include "support/failure_report.h"
#include "support/fake_services.h"

using ::testing::ElementsAre;

namespace {

class PreviewTest : public testing::Test, protected FakeServices {
 protected:
  PreviewTest() { grid.SetGroupsOrder(GroupBy::kNone); }

  void AddFile(std::string_view name, std::string_view folder = "Lisbon",
               FileDate date = FileDate(2023, 12, 31, 10, 0, 0)) {
    records.AddRecord(folder, "/p/" + std::string(folder) + "/", name, date, 1, "");
  }

  ConstrItem& AddElement(ItemType type, std::string_view item_text = "") {
    constructor.InsertArrConstrItem(constructor.ArrConstr.size(), type, item_text);
    return constructor.ArrConstr.back();
  }

  ConstrItem& AddCounter(std::int32_t start, bool resets) {
    ConstrItem& item = AddElement(kCounter);
    item.CounterStart = start;
    item.ResetCounter = resets ? 1 : 0;
    item.CounterFormat = CounterFormatOfRange(1);
    return item;
  }

  bool Preview() {
    grid.Populate();
    Pass pass(records, state, services, grid.RowCount());
    return SetPreview(pass, grid, constructor);
  }

  std::vector<std::string> NewNames() const {
    std::vector<std::string> names;
    for (std::size_t i = 0; i < records.Count(); ++i) names.push_back(records[i].newFileName);
    return names;
  }

  /// The new name that one file gets.
  std::string NameOf(std::string_view name) {
    records.DeleteAll();
    AddFile(name);
    EXPECT_TRUE(Preview());
    return records[0].newFileName;
  }

  /// What the failure that the pass over one file ends with begins with, or "".
  std::string FailureOf(std::string_view name) {
    const std::string report = FailureReport([&] { NameOf(name); });
    EXPECT_EQ(report.empty(), report.find("Call Stack: Form1.SetPreview()") == report.npos);
    return report.substr(0, report.find(" \r"));
  }

  Records records;
  Grid grid{records};
  Constructor constructor;
  RunState state;
  Months months;
  const Services services = With(files, clock, months);
};

}  // namespace

TEST_F(PreviewTest, GivesEveryNameBackWithoutOptions) {
  const char* const table[] = {"a.b.c", "abc",        ".profile",      "two..dots",
                               " a .b", "x\xFF.\xFE", "e\u0301.\u0416"};
  for (const char* name : table) EXPECT_EQ(NameOf(name), name);
  EXPECT_EQ(NameOf("trail."), "trail") << "the end of a new name is cleaned";
}

TEST_F(PreviewTest, AddsNothingToAPartThatWasEmptyOrReplacedAway) {
  ConstrItem& stem = constructor.ArrConstr[0];
  ConstrItem& extension = constructor.ArrConstr[2];
  stem.AddFile = extension.AddExt = 2;
  stem.AddFileText1 = extension.AddExtText1 = "new";
  EXPECT_EQ(NameOf("abc"), "abcnew");
  EXPECT_EQ(NameOf(".x"), ".xnew");

  stem.AddFile = 0;
  extension.CutExt = 2;
  extension.CutExtN = 9;
  EXPECT_EQ(NameOf("abc.x"), "abc.new") << "emptied by a cut it still counts";

  extension.ReplaceExt1 = "q";
  EXPECT_EQ(NameOf("abc.x"), "abc") << "with an active replace its end counts";

  extension.CutExt = 0;
  extension.ReplaceExt1 = "X";
  EXPECT_EQ(NameOf("abc.x"), "abc");
  EXPECT_EQ(NameOf("abc.xy"), "abc.ynew");
}

TEST_F(PreviewTest, ReadsEachKindOfElement) {
  constructor.ArrConstr.clear();
  AddElement(kParentFolderName).CutParentFolder = 7;
  constructor.ArrConstr.back().CutParentFolderN = 5;
  AddElement(kText, "~");
  AddElement(kFileDate).DateFormat = "d mmm yy";
  AddElement(kText, "~");
  AddElement(kTodaysDate).TDateFormat = "yyyy-mm-dd";
  AddElement(kText, "~");
  AddElement(kFileDate);                  // no format derived yet
  AddElement(kCounter).CounterStart = 7;  // nor here: the plain number
  AddElement(static_cast<ItemType>(6));
  for (ConstrItem& item : constructor.ArrConstr) {  // what its kind doesn't read stays unread
    if (item.ItemType != kFileDate) item.DateFormat = "yyyy";
    if (item.ItemType != kTodaysDate) item.TDateFormat = "yyyy";
  }
  AddFile("x", "a.b.cde", FileDate(2023, 2, 1, 0, 0, 0));
  AddFile("y", "", FileDate());
  AddFile("z", "e", FileDate(2023, 2, 2, 0, 0, 0));
  AddFile("z", "e", FileDate(2023, 3, 2, 0, 0, 0));
  AddFile("z", "e", FileDate(2024, 3, 2, 0, 0, 0));
  ASSERT_TRUE(Preview());
  EXPECT_THAT(NewNames(), ElementsAre("a.b.c~1 Feb 23~2024-03-09~7", "~~2024-03-09~8",
                                      "e~2 Feb 23~2024-03-09~9", "e~2 Mär 23~2024-03-09~10",
                                      "e~2 Mär 24~2024-03-09~11"));
  constructor.ArrConstr.resize(2);
  constructor.ArrConstr[1].ItemText = ". ";
  EXPECT_EQ(NameOf("x"), "Lisbo") << "the end of a new name is cleaned";
}

TEST_F(PreviewTest, MakesEachRowAnew) {
  ConstrItem& stem = constructor.ArrConstr[0];
  stem.CutFile = 9;
  stem.CutFileN = stem.CutFileX = 1;
  stem.Replace1 = "b";
  AddFile("axb.x");
  AddFile("cyd.x");
  ASSERT_TRUE(Preview());
  EXPECT_THAT(NewNames(), ElementsAre("a.x", "cd.x"));
  stem.CutFile = 1;
  stem.CutFileText = "y";
  ASSERT_TRUE(Preview());
  EXPECT_THAT(NewNames(), ElementsAre("ax.x", "cd.x"));
}

TEST_F(PreviewTest, NamesAFileThatARunMovedAsideByItsFormerName) {
  AddFile("a.txt");
  records[0].KeepRollback();
  records[0].MoveAside("a_{1}.txt");
  records[0].SetPlannedName("x");
  Preview();
  EXPECT_THAT(NewNames(), ElementsAre("a.txt"));
  EXPECT_EQ(records[0].PlannedName(), "");
}

TEST_F(PreviewTest, CountsCheckedRowsOnly) {
  constructor.ArrConstr.clear();
  AddCounter(1, true);
  AddElement(kText, "-");
  AddCounter(0, false);
  for (const char* name : {"a", "b", "c", "d"}) AddFile(name);
  records[1].checked = false;
  records[1].newFileName = "stale";
  records[1].mark = Mark::kDone;
  records[2].RowTag = 1;
  records[2].mark = Mark::kDone;
  records[2].newFileName = "kept";
  records[3].mark = Mark::kFailed;
  for (int pass = 0; pass < 2; ++pass) {
    ASSERT_TRUE(Preview());
    EXPECT_THAT(NewNames(), ElementsAre("01-00", "", "kept", "03-02"));
  }
  EXPECT_EQ(records[1].mark, Mark::kWaiting);
  EXPECT_EQ(records[2].mark, Mark::kDone);
  EXPECT_EQ(records[3].mark, Mark::kFailed);
  EXPECT_FALSE(state.gPreviewStale);
}

TEST_F(PreviewTest, StartsCountersAgainAtEachGroupWhereAsked) {
  constructor.ArrConstr.clear();
  AddCounter(5, true);
  AddElement(kText, "-");
  AddCounter(1, false);
  AddFile("a", "Porto");
  AddFile("b", "Lisbon");
  AddFile("c", "Porto");
  ASSERT_TRUE(Preview());
  EXPECT_THAT(NewNames(), ElementsAre("05-01", "06-02", "07-03"));

  grid.SetGroupsOrder(GroupBy::kPath);
  state.panes.progressValue = 0;
  ASSERT_TRUE(Preview());
  EXPECT_THAT(NewNames(), ElementsAre("05-02", "05-01", "06-03"));
  EXPECT_EQ(state.panes.progressValue, 5) << "group rows count too";

  grid.SetSortOrder(kColumnSourceName, false);
  ASSERT_TRUE(Preview());
  EXPECT_THAT(NewNames(), ElementsAre("06-03", "05-01", "05-02"));
}

TEST_F(PreviewTest, FailsWhenACounterPassesItsRange) {
  constructor.ArrConstr.clear();
  AddCounter(std::numeric_limits<std::int32_t>::max(), false);
  EXPECT_EQ(FailureOf("a"), "Overflow");
  EXPECT_EQ(records[0].newFileName, "2147483647");
}

TEST_F(PreviewTest, FailsOnAPartThatIsTooLong) {
  EXPECT_EQ(FailureOf(std::string(32'768, 'a')), "Overflow");
  std::string accents;
  for (int i = 0; i < 32'767; ++i) accents += "\u00E9";
  EXPECT_EQ(FailureOf(accents), "") << "characters count, not bytes";
  constructor.ArrConstr[0].Replace1 = "\u00E9";
  constructor.ArrConstr[0].Replace2 = "ee";
  EXPECT_EQ(FailureOf(accents), "Overflow");
}

TEST_F(PreviewTest, LetsEventsRunAndEndsWhenCancelled) {
  for (int i = 0; i < 600; ++i) AddFile("a" + std::to_string(i));
  events.on_events = [&] {
    if (events.count == 11) state.gCancelRequested = true;
  };
  EXPECT_FALSE(Preview());
  EXPECT_EQ(events.count, 11);
  EXPECT_EQ(records[19].newFileName, "a19");
  EXPECT_EQ(records[20].newFileName, "");
  EXPECT_EQ(state.panes.progressValue, 20);

  state.gCancelRequested = false;
  EXPECT_TRUE(Preview());
  EXPECT_EQ(events.count, 311);
  EXPECT_EQ(records[599].newFileName, "a599");
}

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "names/add.h"
#include "names/cut.h"
#include "support/failure_report.h"

namespace {

constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();

/// A cut by its number in the box; 1 is told by itself.
std::string Cut(int mode, std::string_view t, std::int32_t n, std::int32_t k = 0) {
  switch (mode) {
    case 2:
      return mCut::RemoveFromStart(t, n).Text();
    case 3:
      return mCut::RemoveFromEnd(t, n).Text();
    case 4:
      return mCut::RemoveAfterFirst(t, k, n).Text();
    case 5:
      return mCut::RemoveBeforeLast(t, k, n).Text();
    case 6:
      return mCut::RemoveFromBoth(t, n, k).Text();
    case 7:
      return mCut::KeepFirst(t, n).Text();
    case 8:
      return mCut::KeepLast(t, n).Text();
    default:
      return mCut::RemoveBetween(t, n, k).Text();
  }
}

struct CutRow {
  int mode;
  std::int32_t n, k;
  const char* result;
};

const CutRow kCutsOfSix[] = {
    {2, 2, 0, "cdef"},   {2, 6, 0, ""},       {2, 0, 0, "abcdef"}, {3, 2, 0, "abcd"},
    {3, 7, 0, ""},       {4, 2, 1, "adef"},   {4, 9, 1, "a"},      {4, 2, 6, "abcdef"},
    {4, 0, 0, "abcdef"}, {4, 5, 1, "a"},      {5, 2, 1, "abcf"},   {5, 9, 1, "f"},
    {5, 2, 6, "abcdef"}, {5, 0, 0, "abcdef"}, {6, 1, 2, "bcd"},    {6, 3, 3, ""},
    {6, 6, 0, ""},       {6, 0, 0, "abcdef"}, {7, 2, 0, "ab"},     {7, 0, 0, ""},
    {7, 9, 0, "abcdef"}, {8, 2, 0, "ef"},     {8, 0, 0, ""},       {8, 9, 0, "abcdef"},
    {9, 1, 2, "aef"},    {9, 3, 3, "abcdef"}, {9, 6, 0, "abcdef"}, {9, 5, 0, "abcde"},
    {9, 0, 0, ""},       {9, 0, 1, "f"},      {9, 7, 9, "abcdef"},
};

}  // namespace

TEST(Cut, CountsFromItsEdgeWithinItsBounds) {
  for (const CutRow& row : kCutsOfSix) {
    EXPECT_EQ(Cut(row.mode, "abcdef", row.n, row.k), row.result)
        << row.mode << " " << row.n << " " << row.k;
    EXPECT_EQ(Cut(row.mode, "", row.n, row.k), "") << row.mode;
  }
}

TEST(Cut, CountsCharactersNotBytes) {
  // Six characters that stand for a to f.
  const std::string characters[] = {"e\u0301",
                                    "\U0001F468\u200D\U0001F469",
                                    "\xFF",
                                    "\U0001F1E9\U0001F1EA",
                                    "\U0001F1EB\U0001F1F7",
                                    "\u0416"};
  const auto translated = [&](std::string_view letters) {
    std::string t;
    for (const char c : letters) t += characters[c - 'a'];
    return t;
  };
  for (const CutRow& row : kCutsOfSix) {
    EXPECT_EQ(Cut(row.mode, translated("abcdef"), row.n, row.k), translated(row.result))
        << row.mode << " " << row.n << " " << row.k;
  }
}

TEST(Cut, RemovesATextWhateverItsCase) {
  EXPECT_EQ(mCut::RemoveText("abcABC", "B"), "acAC");
  EXPECT_EQ(mCut::RemoveText("abc", ""), "abc");
  EXPECT_EQ(mCut::RemoveText("\u0416a\u0436", "\u0436"), "a");
}

TEST(Cut, FailsWhereTheSumOfBothIsTooLarge) {
  for (const int mode : {4, 5}) {
    EXPECT_EQ(Cut(mode, "abc", kMost - 1, 1), mode == 4 ? "a" : "c");
    EXPECT_EQ(Cut(mode, "a", kMost, 1), "a") << "nothing to cut, so nothing is added up";
    EXPECT_THAT(FailureReport([&] { Cut(mode, "abc", kMost, 1); }),
                ::testing::HasSubstr("\r\n  Number: 6 = &H6 "));
  }
  EXPECT_EQ(Cut(6, "abc", kMost, kMost), "");
  EXPECT_EQ(Cut(9, "abc", kMost, kMost), "abc");
}

TEST(Add, PutsTheTextWhereToldAndAtTheFarEndBeyond) {
  EXPECT_EQ(mAdd::AddLeft("abc", "X").Text(), "Xabc");
  EXPECT_EQ(mAdd::AddRight("abc", "X").Text(), "abcX");
  EXPECT_EQ(mAdd::AddBoth("abc", "X", "Y").Text(), "XabcY");
  struct Row {
    std::int32_t n;
    const char* after;
    const char* before;
  };
  const Row table[] = {{2, "abXcdef", "abcdXef"},
                       {0, "Xabcdef", "abcdefX"},
                       {6, "abcdefX", "Xabcdef"},
                       {kMost, "abcdefX", "Xabcdef"}};
  for (const Row& row : table) {
    EXPECT_EQ(mAdd::InsertAfterFirst("abcdef", "X", row.n).Text(), row.after);
    EXPECT_EQ(mAdd::InsertBeforeLast("abcdef", "X", row.n).Text(), row.before);
  }
  EXPECT_EQ(mAdd::InsertAfterFirst("e\u0301x", "_", 1).Text(), "e\u0301_x");
  EXPECT_EQ(mAdd::InsertBeforeLast("xe\u0301", "_", 1).Text(), "x_e\u0301");
}

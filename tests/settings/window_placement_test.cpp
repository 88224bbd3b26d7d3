#include "settings/window_placement.h"

#include <gmock/gmock.h>

#include <limits>

#include "support/failure_report.h"
#include "support/memory_settings.h"

namespace {

using testing::HasSubstr;

constexpr ScreenSize kScreen{28800, 16200};

WindowFrame Frame(float left, float top, float width, float height, int state = kNormalWindow) {
  return {left, top, width, height, state};
}

std::string Text(const WindowFrame& f) {
  const auto place = [](const std::optional<float>& v) { return v ? SingleText(*v) : "none"; };
  return place(f.left) + " " + place(f.top) + " " + SingleText(f.width) + " " +
         SingleText(f.height) + " " + std::to_string(f.WindowState);
}

TEST(WindowPlacement, SavesWhatTheStateOfTheWindowAllows) {
  WindowFrame unplaced = Frame(0, 0, 3000, 2000);
  unplaced.left.reset();
  unplaced.top.reset();
  using Written = std::vector<std::string>;
  const struct {
    std::string_view frm;
    WindowFrame window;
    Written written;
  } table[] = {
      {"Form1",
       Frame(15, -30, 13950, 7260),
       {"MainLeft=15", "MainTop=-30", "MainWidth=13950", "MainHeight=7260", "WindowState=0"}},
      {"Form7",
       Frame(7.5, 0, 9705, 8580),
       {"MainLeft=7.5", "MainTop=0", "MainWidth=9705", "MainHeight=8580", "WindowState=0"}},
      {"Form8", Frame(15, 30, 3000, 2000), {"MainLeft=15", "MainTop=30", "WindowState=0"}},
      {"Form1", Frame(0, 0, 28800, 16200, kMaximised), {"WindowState=2"}},
      {"Form1", Frame(0, 0, 3000, 2000, kMinimised), {}},
      {"Form3", unplaced, {"MainWidth=3000", "MainHeight=2000", "WindowState=0"}},
      {"frmShowError", Frame(15, 30, 3000, 2000), {}},
  };
  for (const auto& row : table) {
    MemorySettings store;
    SaveWindowConfig(store, row.frm, row.window);
    EXPECT_EQ(store.written, row.written) << row.frm << " " << Text(row.window);
  }
}

TEST(WindowPlacement, RestoresSizePlaceAndStateWithTheirDefaults) {
  using Stored = std::vector<std::pair<std::string, std::string>>;
  const struct {
    std::string_view frm;
    std::string section;
    Stored stored;
    std::string window;  ///< of one that was 3000 by 2000 twips
  } table[] = {
      {"Form1", "Windows\\Main", {}, "12900 7100 3000 2000 0"},
      {"Form3", "Windows\\FileErrorReport", {}, "9547.5 3810 9705 8580 0"},
      {"Form8", "Windows\\Conflicts", {}, "12900 7100 3000 2000 0"},
      {"Form8", "Windows\\Conflicts", {{"MainWidth", "9"}}, "12900 7100 3000 2000 0"},
      {"Form1",
       "Windows\\Main",
       {{"MainWidth", "6000"}, {"WindowState", "2"}},
       "11400 7100 6000 2000 2"},
      // A screen that has gone since: the window opens where it was.
      {"Form10",
       "Windows\\About",
       {{"MainLeft", "-30000"}, {"MainTop", "1e5"}},
       "-30000 100000 3000 2000 0"},
      {"frmShowError", "", {{"MainLeft", "15"}, {"MainTop", "15"}}, "none none 3000 2000 0"},
  };
  for (const auto& row : table) {
    MemorySettings store;
    for (const auto& [key, text] : row.stored) store.values[{row.section, key}] = text;
    WindowFrame window{std::nullopt, std::nullopt, 3000, 2000, kNormalWindow};
    GetWindowConfig(store, row.frm, kScreen, window);
    EXPECT_EQ(Text(window), row.window) << row.frm;
  }
}

TEST(WindowPlacement, ABadValueEndsTheRestoringWhereItStands) {
  const struct {
    std::string key, text, failure, window;
  } table[] = {
      {"MainWidth", "wide", "Type mismatch", "none none 3000 2000 0"},
      {"MainHeight", "1,5", "Type mismatch", "none none 600 2000 0"},
      {"MainLeft", "nan", "Type mismatch", "none none 600 900 0"},
      {"MainTop", "", "Type mismatch", "15 none 600 900 0"},
      {"MainTop", "1e99", "Overflow", "15 none 600 900 0"},
      {"WindowState", "3", "Invalid property value", "15 30 600 900 0"},
  };
  for (const auto& row : table) {
    MemorySettings store;
    SaveWindowConfig(store, "Form1", Frame(15, 30, 600, 900, kNormalWindow));
    store.values[{"Windows\\Main", row.key}] = row.text;
    WindowFrame window{std::nullopt, std::nullopt, 3000, 2000, kNormalWindow};
    EXPECT_THAT(FailureReport([&] { GetWindowConfig(store, "Form1", kScreen, window); }),
                HasSubstr(row.failure));
    EXPECT_EQ(Text(window), row.window) << row.key;
  }
}

TEST(WindowPlacement, LengthsComeBackFromTheirTextToTheLastBit) {
  for (const float value :
       {0.0F, 7.5F, -0.1F, 100000.0F, 1234567.9F, std::numeric_limits<float>::max(),
        std::numeric_limits<float>::denorm_min()}) {
    EXPECT_EQ(ToSingle(SingleText(value)), value) << SingleText(value);
  }
  EXPECT_EQ(SingleText(100000), "100000");
}

TEST(WindowPlacement, OverTheOwnerButOnTheScreen) {
  const struct {
    WindowFrame owner;
    float width, height;
    float left, top;
  } table[] = {
      {Frame(3000, 1500, 6000, 3000), 2000, 1000, 5000, 2500},
      {Frame(-6000, -3000, 6000, 3000), 2000, 1000, 0, 0},
      {Frame(28000, 16000, 6000, 3000), 2000, 1000, 26800, 15200},
      {Frame(0, 0, 6000, 3000), 40000, 20000, 0, 0},
  };
  for (const auto& row : table) {
    WindowFrame window = Frame(0, 0, row.width, row.height);
    CenterOwner(row.owner, kScreen, window);
    EXPECT_EQ(window.left, row.left);
    EXPECT_EQ(window.top, row.top);
  }
}

}  // namespace

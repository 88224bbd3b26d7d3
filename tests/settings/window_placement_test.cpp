#include "settings/window_placement.h"

#include <gmock/gmock.h>

#include "support/failure_report.h"
#include "support/memory_settings.h"

constexpr ScreenSize kScreen{28800, 16200};
const WindowFrame kNew{std::nullopt, std::nullopt, 3000, 2000, kNormalWindow};

static std::string Text(const WindowFrame& f) {
  const auto place = [](const std::optional<float>& v) { return v ? SingleText(*v) : "none"; };
  return place(f.left) + " " + place(f.top) + " " + SingleText(f.width) + " " +
         SingleText(f.height) + " " + std::to_string(f.WindowState);
}

TEST(WindowPlacement, KeepsWhatTheStateOfTheWindowAllows) {
  const std::tuple<const char*, WindowFrame, const char*> table[] = {
      {"Form1", {15, -30, 13950, 7260}, "15 -30 13950 7260 0"},
      {"Form7", {7.5, 0, 9705, 8580}, "7.5 0 9705 8580 0"},
      {"Form8", {15, 30, 9000, 9000}, "15 30 3000 2000 0"},
      {"Form1", {0, 0, 28800, 16200, kMaximised}, "7430 4470 13940 7260 2"},
      {"Form1", {0, 0, 9000, 9000, kMinimised}, "7430 4470 13940 7260 0"},
      {"Form3", {{}, {}, 4800, 4200}, "12000 6000 4800 4200 0"},
      {"frmShowError", {15, 30, 9000, 9000}, "none none 3000 2000 0"},
  };
  for (const auto& [frm, saved, restored] : table) {
    MemorySettings store;
    SaveWindowConfig(store, frm, saved);
    WindowFrame window = kNew;
    GetWindowConfig(store, frm, kScreen, window);
    EXPECT_EQ(Text(window), restored) << frm;
  }
}

TEST(WindowPlacement, RestoresSizePlaceAndStateUpToABadValue) {
  using Stored = std::vector<std::pair<std::string, std::string>>;
  const Stored full = {
      {"MainWidth", "600"}, {"MainHeight", "900"}, {"MainLeft", "15"}, {"MainTop", "30"}};
  const auto but = [&](const char* key, const char* text) {
    Stored stored = full;
    return stored.emplace_back(key, text), stored;
  };
  const struct {
    const char *frm, *section;
    Stored stored;
    const char *window, *failure = "";
  } table[] = {
      {"Form1", "Main", {}, "7430 4470 13940 7260 0"},
      {"Form3", "FileErrorReport", {}, "9547.5 3810 9705 8580 0"},
      {"Form8", "Conflicts", {{"MainWidth", "9"}}, "12900 7100 3000 2000 0"},
      {"Form1", "Main", {{"MainWidth", "6000"}, {"WindowState", "2"}}, "11400 4470 6000 7260 2"},
      // Whether a screen shows it is not for the store to say.
      {"Form10", "About", {{"MainLeft", "-3e4"}, {"MainTop", "1e5"}}, "-30000 100000 3000 2000 0"},
      {"Form1", "Main", but("MainWidth", "wide"), "none none 3000 2000 0", "Type mismatch"},
      {"Form1", "Main", but("MainHeight", "1,5"), "none none 600 2000 0", "Type mismatch"},
      {"Form1", "Main", but("MainLeft", "nan"), "none none 600 900 0", "Type mismatch"},
      {"Form1", "Main", but("MainTop", ""), "15 none 600 900 0", "Type mismatch"},
      {"Form1", "Main", but("MainTop", "1e99"), "15 none 600 900 0", "Overflow"},
      {"Form1", "Main", but("WindowState", "3"), "15 30 600 900 0", "Invalid property value"},
  };
  for (const auto& row : table) {
    MemorySettings store;
    for (const auto& [key, text] : row.stored) {
      store.values[{std::string("Windows\\") + row.section, key}] = text;
    }
    WindowFrame window = kNew;
    const auto report = FailureReport([&] { GetWindowConfig(store, row.frm, kScreen, window); });
    EXPECT_EQ(Text(window), row.window) << row.frm;
    EXPECT_EQ(report.substr(0, report.find(" \r")), row.failure);
  }
}

TEST(WindowPlacement, ComesBackIntoSightWhenItsScreenHasGone) {
  const ScreenArea kLaptop{0, 0, kScreen};
  const ScreenArea kDesk{-28800, -600, kScreen};
  const struct {
    float left, top;
    const char *both, *laptop;
  } table[] = {
      {100, 90, "100 90", "100 90"},
      {28500, 90, "28500 90", "28500 90"},  // a grip is left
      {28501, 16000, "25800 14200", "25800 14200"},
      {-20000, 5000, "-20000 5000", "0 5000"},
      {-20000, -90000, "0 0", "0 0"},
  };
  for (const auto& row : table) {
    const auto place = [&](std::vector<ScreenArea> screens) {
      WindowFrame window{row.left, row.top, 3000, 2000};
      BringIntoSight(screens, window);
      return SingleText(*window.left) + " " + SingleText(*window.top);
    };
    EXPECT_EQ(place({kLaptop, kDesk}), row.both);
    EXPECT_EQ(place({kLaptop}), row.laptop);
  }
}

#include "settings/window_placement.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "settings/reg_settings.h"
#include "trace/err_trace.h"

namespace {

/// A window whose placement is kept.
struct PlacedWindow {
  std::string_view name;
  std::string_view section;
  bool keeps_size = false;
  float default_width = 0;
  float default_height = 0;
};

/// `Form11` has its row, yet nobody places it: what tells of failures must not depend on the store.
constexpr PlacedWindow kWindows[] = {
    {"Form1", "Windows\\Main", true, gMinFormWidth, gMinFormHeight},
    {"Form2", "Windows\\Template"},
    {"Form3", "Windows\\FileErrorReport", true, 9705, 8580},
    {"Form4", "Windows\\SystemFolderWarning"},
    {"Form5", "Windows\\CustomText"},
    {"Form6", "Windows\\FileListMask"},
    {"Form7", "Windows\\FileConflictReport", true, 9705, 8580},
    {"Form8", "Windows\\Conflicts"},
    {"Form10", "Windows\\About"},
    {"Form11", "Windows\\ErrorMessage"},
    {"Form12", "Windows\\LeftRun", true, 9705, 7200},
};

const PlacedWindow* Find(std::string_view frm) {
  const auto row = std::ranges::find(kWindows, frm, &PlacedWindow::name);
  return row == std::end(kWindows) ? nullptr : row;
}

float ReadSingle(SettingsStore& store, std::string_view section, std::string_view key,
                 std::string_view default_text = {}) {
  const std::string value = mRegSettings::ReadText(store, {section, key, default_text});
  return ErrTrace::inner("mRegSettings.ReadSingle(section,key,value)",
                         ErrTrace::args(section, key, value), [&] { return ToSingle(value); });
}

void ReadSize(SettingsStore& store, const PlacedWindow& row, WindowFrame& window) {
  const float width = std::max(row.default_width, window.width);
  const float height = std::max(row.default_height, window.height);
  window.width = ReadSingle(store, row.section, "MainWidth", SingleText(width));
  window.height = ReadSingle(store, row.section, "MainHeight", SingleText(height));
}

void ReadPlace(SettingsStore& store, const PlacedWindow& row, const ScreenSize& screen,
               WindowFrame& window) {
  if (store.GetSetting(row.section, "MainLeft").empty()) {
    CenterOnScreen(screen, window);
    return;
  }
  window.left = ReadSingle(store, row.section, "MainLeft");
  window.top = ReadSingle(store, row.section, "MainTop");
}

// Along one axis: whether so much as a title is high is seen, or all of what is smaller.
bool Shows(float screen_begin, float screen_size, float begin, float size) {
  constexpr float kGrip = 20 * kTwipsPerPixel;
  const float end = std::min(screen_begin + screen_size, begin + size);
  return end - std::max(screen_begin, begin) >= std::min(kGrip, size);
}

float OntoScreen(float place, float size, float screen) {
  place = std::max(place, 0.0F);
  if (size + place > screen) place = screen - size;
  return std::max(place, 0.0F);
}

}  // namespace

std::string SingleText(float value) {
  char buffer[64];  // the longest float in plain decimals has 47 digits
  const auto end = std::to_chars(buffer, std::end(buffer), value, std::chars_format::fixed).ptr;
  return {buffer, end};
}

float ToSingle(std::string_view text) {
  float value = 0;
  const char* const end = text.data() + text.size();
  const auto [rest, error] = std::from_chars(text.data(), end, value);
  // "inf" and "nan" are read too, but are no lengths.
  if (error == std::errc::invalid_argument || rest != end ||
      (error == std::errc() && !std::isfinite(value))) {
    throw Failure(kTypeMismatch, "Type mismatch");
  }
  if (error == std::errc::result_out_of_range) throw Failure(kOverflow, "Overflow");
  return value;
}

void SaveWindowConfig(SettingsStore& store, std::string_view frm, const WindowFrame& window) {
  ErrTrace::inner("mRegSettings.SaveWindowConfig(frm)", ErrTrace::args(frm), [&] {
    const PlacedWindow* row = Find(frm);
    if (row == nullptr || window.WindowState == kMinimised) return;
    const auto save = [&](std::string_view key, float value) {
      store.SaveSetting(row->section, key, SingleText(value));
    };
    if (window.WindowState != kMaximised) {
      if (window.left && window.top) {
        save("MainLeft", *window.left);
        save("MainTop", *window.top);
      }
      if (row->keeps_size && window.width > 0) {
        save("MainWidth", window.width);
        save("MainHeight", window.height);
      }
    }
    store.SaveSetting(row->section, "WindowState", std::to_string(window.WindowState));
  });
}

void GetWindowConfig(SettingsStore& store, std::string_view frm, const ScreenSize& screen,
                     WindowFrame& window) {
  ErrTrace::inner("mRegSettings.GetWindowConfig(frm)", ErrTrace::args(frm), [&] {
    const PlacedWindow* row = Find(frm);
    if (row == nullptr) return;
    if (row->keeps_size) ReadSize(store, *row, window);
    ReadPlace(store, *row, screen, window);
    window.WindowState = mRegSettings::ReadInteger(store, {row->section, "WindowState", "0"},
                                                   kNormalWindow, kMaximised);
  });
}

bool HasStoredSize(SettingsStore& store, std::string_view frm) {
  const PlacedWindow* row = Find(frm);
  return row != nullptr && !store.GetSetting(row->section, "MainWidth").empty();
}

bool HasStoredPlace(SettingsStore& store, std::string_view frm) {
  const PlacedWindow* row = Find(frm);
  return row != nullptr && !store.GetSetting(row->section, "MainLeft").empty();
}

void CenterOnScreen(const ScreenSize& screen, WindowFrame& window) {
  window.left = screen.width / 2 - window.width / 2;
  window.top = screen.height / 2 - window.height / 2;
}

void BringIntoSight(std::span<const ScreenArea> screens, WindowFrame& window) {
  if (screens.empty() || !window.left || !window.top) return;
  const bool seen = std::ranges::any_of(screens, [&](const ScreenArea& screen) {
    return Shows(screen.left, screen.size.width, *window.left, window.width) &&
           Shows(screen.top, screen.size.height, *window.top, window.height);
  });
  if (seen) return;
  const ScreenArea& first = screens.front();
  window.left = first.left + OntoScreen(*window.left - first.left, window.width, first.size.width);
  window.top = first.top + OntoScreen(*window.top - first.top, window.height, first.size.height);
}

void CenterOwner(const WindowFrame& owner, const ScreenSize& screen, WindowFrame& window) {
  window.left = OntoScreen((owner.width - window.width) / 2 + owner.left.value_or(0), window.width,
                           screen.width);
  window.top = OntoScreen((owner.height - window.height) / 2 + owner.top.value_or(0), window.height,
                          screen.height);
}

#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "platform/settings_store.h"

/// Where the windows stand, kept between two runs. Lengths are twips, 15 to a logical pixel.
inline constexpr float kTwipsPerPixel = 15;

/// The least size of the main window. What its parts need at the font in use may be more.
inline constexpr float gMinFormWidth = 13940;
inline constexpr float gMinFormHeight = 7260;

/// As stored.
enum WindowState : int { kNormalWindow = 0, kMinimised = 1, kMaximised = 2 };

/// A window's place and size in its normal state, and the state it is in.
struct WindowFrame {
  std::optional<float> left;  ///< none: left to the window system, which may be all it allows
  std::optional<float> top;
  float width = 0;  ///< 0: not to be stored, and so the height
  float height = 0;
  int WindowState = kNormalWindow;
};

struct ScreenSize {
  float width;
  float height;
};

/// A screen, and where it stands among the others.
struct ScreenArea {
  float left;
  float top;
  ScreenSize size;
};

/// A stored length: a number with "." as decimal point in every locale. ToSingle raises Failure
/// kTypeMismatch when the whole of `text` isn't one, kOverflow when it is out of range.
std::string SingleText(float value);
float ToSingle(std::string_view text);

/// Stores the placement of the window `frm`; a minimised one isn't written at all, a maximised one
/// only as such, so that its normal place stands. Does nothing for a window outside the table.
/// Does not flush.
void SaveWindowConfig(SettingsStore& store, std::string_view frm, const WindowFrame& window);

/// Sets `window` to what is stored for `frm`: the size, if that window keeps it, then the place
/// (the middle of the screen while none is stored), then the state. While no size is stored, a
/// window has the one of the table, or its own where that is larger. Raises Failure (kTypeMismatch,
/// kOverflow, kInvalidPropertyValue) at the first bad value; what was set before it stands.
void GetWindowConfig(SettingsStore& store, std::string_view frm, const ScreenSize& screen,
                     WindowFrame& window);

/// Whether the user's own size, and whether a place of the window `frm` is stored.
bool HasStoredSize(SettingsStore& store, std::string_view frm);
bool HasStoredPlace(SettingsStore& store, std::string_view frm);

/// Places `window` in the middle of the screen.
void CenterOnScreen(const ScreenSize& screen, WindowFrame& window);

/// Moves `window` onto the first of `screens` when none of them shows enough of it to take hold of,
/// as after its own was taken away.
void BringIntoSight(std::span<const ScreenArea> screens, WindowFrame& window);

/// Places `window` over the middle of `owner`, but on the screen; one that is larger than the
/// screen begins at its left and upper edge.
void CenterOwner(const WindowFrame& owner, const ScreenSize& screen, WindowFrame& window);

#pragma once

#include <QColor>
#include <QPixmap>
#include <QRectF>

class QPainter;

/// The colours of the program's look by what they are for; a skin gives each a light and a dark
/// value, without a skin they follow from the desktop's palette.
enum class Role {
  kWindow,
  kSurface,
  kField,
  kHead,
  kText,
  kMuted,
  kLine,
  kEdge,
  kAccent,
  kAccentText,
  kAccentHover,
  kFocus,
  kLink,
  kSel,
  kGroup,
  kGroupText,
  kChip,
  kChipEdge,
  kChipText,
  kTint,
  kTintText,
  kGone,
  kWait,
  kDone,
  kFailed,
  kDisabled,
  kDisabledFill,
  kWarn,
  kHover,
  kPress,
};

/// The line drawings, 16 units wide.
enum class Drawing { kDown, kLeft, kRight, kTick, kFolder, kWarning };

/// The look in force. One object a program; widgets that paint by hand ask it while painting, and
/// repaint on QEvent::PaletteChange and QEvent::StyleChange.
class Look {
 public:
  static Look& Current();

  bool SkinOn() const { return skin_on_; }
  bool Dark() const { return dark_; }
  QColor Colour(Role role) const;

  /// A drawing in a role's colour, `size` logical pixels wide, sharp at `scale` device pixels a
  /// logical one.
  QPixmap Picture(Drawing drawing, Role role, int size, qreal scale) const;
  /// The same, at a place of `painter`.
  void Draw(QPainter& painter, Drawing drawing, Role role, const QRectF& place) const;

  /// Chooses the colours; the caller sets palette and style of the application.
  void Choose(bool skin_on, bool dark);

 private:
  bool skin_on_ = true;
  bool dark_ = false;
};

/// What a mark of a row stands on: its stored colour, thinned over the list's ground. `mark` is
/// `kDone` or `kFailed`.
QColor PillColour(Role mark);

/// The measures of the grid on which the windows are laid out, in logical pixels.
namespace measure {
inline constexpr int kWindowMargin = 8;
inline constexpr int kBlockGap = 8;
inline constexpr int kControlGap = 6;
inline constexpr int kLabelGap = 8;
inline constexpr int kLeftColumn = 479;
inline constexpr int kControlHeight = 26;
inline constexpr int kCommandHeight = 30;
inline constexpr int kCheckHeight = 22;
inline constexpr int kCardLeft = 10, kCardTop = 5, kCardRight = 10, kCardBottom = 9;
inline constexpr int kFolderLabels = 92;
inline constexpr int kOptionLabels = 56;
inline constexpr int kDialogMargin = 16;
inline constexpr int kDialogButton = 88;
}  // namespace measure

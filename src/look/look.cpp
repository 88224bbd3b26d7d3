#include "look/look.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>
#include <QPen>
#include <algorithm>
#include <array>
#include <charconv>
#include <cstring>
#include <iterator>

namespace {

struct ColourPair {
  Role role;
  QRgb light;
  QRgb dark;
};

/// One row a role, in the order of the roles.
constexpr std::array kPalette = {
    ColourPair{Role::kWindow, 0xFFEDF2F8, 0xFF17202B},
    ColourPair{Role::kSurface, 0xFFFFFFFF, 0xFF1F2A37},
    ColourPair{Role::kField, 0xFFFFFFFF, 0xFF151D27},
    ColourPair{Role::kHead, 0xFFF5F8FC, 0xFF1B2531},
    ColourPair{Role::kText, 0xFF1A2733, 0xFFE3EBF4},
    ColourPair{Role::kMuted, 0xFF4F6076, 0xFFA5B5C7},
    ColourPair{Role::kLine, 0xFFCDD8E5, 0xFF37475A},
    ColourPair{Role::kEdge, 0xFF7289A2, 0xFF7488A0},
    ColourPair{Role::kAccent, 0xFF1D5FA9, 0xFF2F6EBA},
    ColourPair{Role::kAccentText, 0xFFFFFFFF, 0xFFFFFFFF},
    ColourPair{Role::kAccentHover, 0xFF174F8F, 0xFF2964A8},
    ColourPair{Role::kFocus, 0xFF1D5FA9, 0xFF8FC2FF},
    ColourPair{Role::kLink, 0xFF1D5FA9, 0xFF8FC2FF},
    ColourPair{Role::kSel, 0xFFD3E5F9, 0xFF264461},
    ColourPair{Role::kGroup, 0xFFE4EDF8, 0xFF27394F},
    ColourPair{Role::kGroupText, 0xFF1B4A80, 0xFFB7D6F7},
    ColourPair{Role::kChip, 0xFFE1EDFA, 0xFF27405C},
    ColourPair{Role::kChipEdge, 0xFF9CBDE3, 0xFF4A739F},
    ColourPair{Role::kChipText, 0xFF17497F, 0xFFC9E0F8},
    ColourPair{Role::kTint, 0xFFDCEAFB, 0xFF244A73},
    ColourPair{Role::kTintText, 0xFF0F4685, 0xFFD6E9FF},
    ColourPair{Role::kGone, 0xFF536378, 0xFFA1B0C2},
    ColourPair{Role::kWait, 0xFF2450CF, 0xFFA6BFFF},
    ColourPair{Role::kDone, 0xFF1D6F1D, 0xFF8FD88F},
    ColourPair{Role::kFailed, 0xFFB71C1C, 0xFFFFABA4},
    ColourPair{Role::kDisabled, 0xFF7D8B9B, 0xFF77879A},
    ColourPair{Role::kDisabledFill, 0xFFF3F6FA, 0xFF1C2632},
    ColourPair{Role::kWarn, 0xFFB45309, 0xFFF2B35E},
    ColourPair{Role::kHover, 0xFFE6F0FB, 0xFF2A3848},
    ColourPair{Role::kPress, 0xFFD6E6F8, 0xFF33465B},
};

constexpr bool EachRoleStandsAtItsNumber() {
  for (std::size_t i = 0; i < kPalette.size(); ++i) {
    if (kPalette[i].role != static_cast<Role>(i)) return false;
  }
  return kPalette.size() == static_cast<std::size_t>(Role::kPress) + 1;
}
static_assert(EachRoleStandsAtItsNumber());

QColor Mix(const QColor& a, const QColor& b, int percent_of_a) {
  const auto part = [&](int x, int y) {
    return (x * percent_of_a + y * (100 - percent_of_a) + 50) / 100;
  };
  return QColor(part(a.red(), b.red()), part(a.green(), b.green()), part(a.blue(), b.blue()));
}

/// The colours of the marks as they belong to the rows, whatever the look.
QColor StoredColour(Role mark) {
  if (mark == Role::kDone) return QColor(50, 150, 50);
  return mark == Role::kFailed ? QColor(255, 0, 0) : QColor(50, 100, 250);
}

/// What comes nearest to a role in the palette of the desktop: one of its colours, or `percent` of
/// it over another.
struct DesktopRow {
  Role role;
  QPalette::ColorRole colour;
  int percent = 100;
  QPalette::ColorRole ground = QPalette::Base;
  QPalette::ColorGroup group = QPalette::Active;
};

/// One row a role but for the marks, which keep their stored colours, and the warning, which has
/// its own.
constexpr DesktopRow kDesktop[] = {
    {Role::kWindow, QPalette::Window},
    {Role::kSurface, QPalette::Window},
    {Role::kField, QPalette::Base},
    {Role::kHead, QPalette::Button},
    {Role::kText, QPalette::Text},
    {Role::kMuted, QPalette::Text, 70},
    {Role::kLine, QPalette::Text, 20},
    {Role::kEdge, QPalette::Text, 50},
    {Role::kAccent, QPalette::Highlight},
    {Role::kAccentText, QPalette::HighlightedText},
    {Role::kAccentHover, QPalette::Highlight},
    {Role::kFocus, QPalette::Highlight},
    {Role::kLink, QPalette::Link},
    {Role::kSel, QPalette::Highlight},
    {Role::kGroup, QPalette::Text, 8},
    {Role::kGroupText, QPalette::Text},
    {Role::kChip, QPalette::Button},
    {Role::kChipEdge, QPalette::Text, 50},
    {Role::kChipText, QPalette::ButtonText},
    {Role::kTint, QPalette::Highlight, 20},
    {Role::kTintText, QPalette::Text},
    {Role::kGone, QPalette::Text, 70},
    {Role::kDisabled, QPalette::ButtonText, 100, QPalette::Base, QPalette::Disabled},
    {Role::kDisabledFill, QPalette::Window},
    {Role::kHover, QPalette::Highlight, 10, QPalette::Button},
    {Role::kPress, QPalette::Highlight, 20, QPalette::Button},
};

QColor DesktopColour(Role role) {
  const auto* row = std::find_if(std::begin(kDesktop), std::end(kDesktop),
                                 [role](const DesktopRow& r) { return r.role == role; });
  if (row == std::end(kDesktop)) return StoredColour(role);
  const QPalette palette = QGuiApplication::palette();
  return Mix(palette.color(row->group, row->colour), palette.color(row->group, row->ground),
             row->percent);
}

/// The drawings in 16 units, in the letters of SVG's path data (W3C, SVG 2, chapter 9): M, H, V
/// and Z with absolute numbers.
const char* PathText(Drawing drawing) {
  switch (drawing) {
    case Drawing::kDown:
      return "M4.5 6.5 8 10 11.5 6.5";
    case Drawing::kLeft:
      return "M9.5 4.5 6 8 9.5 11.5";
    case Drawing::kRight:
      return "M6.5 4.5 10 8 6.5 11.5";
    case Drawing::kTick:
      return "M4 8.2 6.5 10.7 11.2 5.5";
    case Drawing::kFolder:
      return "M2 4.5H6.2L7.8 6.2H14V13H2Z";
    case Drawing::kWarning:
      return "M8 1.8 14.8 13.8H1.2Z M8 6.2V9.6 M8 11.7";
  }
  return "";
}

/// Reads `text` number by number; a pair of numbers after M or L is one more corner.
QPainterPath ReadPath(const char* text) {
  // A line of no length has no round ends; the dot of the warning gets this much.
  constexpr qreal kDot = 0.01;
  QPainterPath path;
  char letter = 'M';
  bool opened = false;
  // Not strtod: it wants the locale's decimal separator, which may be a comma.
  const auto number = [&text, end = text + std::strlen(text)] {
    while (*text == ' ') ++text;
    double value = 0;
    text = std::from_chars(text, end, value).ptr;
    return value;
  };
  while (*text != '\0') {
    if (*text == ' ') {
      ++text;
    } else if (*text == 'Z') {
      path.closeSubpath();
      ++text;
    } else if (*text >= 'A') {
      letter = *text++;
      opened = letter == 'M';
    } else if (letter == 'H') {
      path.lineTo(number(), path.currentPosition().y());
    } else if (letter == 'V') {
      path.lineTo(path.currentPosition().x(), number());
    } else {
      const qreal x = number();
      const QPointF corner(x, number());
      if (opened) path.moveTo(corner);
      if (opened && *text == '\0') path.lineTo(corner + QPointF(kDot, 0));
      if (!opened) path.lineTo(corner);
      opened = false;
    }
  }
  return path;
}

}  // namespace

Look& Look::Current() {
  static Look look;
  return look;
}

void Look::Choose(bool skin_on, bool dark) {
  skin_on_ = skin_on;
  dark_ = dark;
}

QColor Look::Colour(Role role) const {
  if (!skin_on_ && role != Role::kWarn) return DesktopColour(role);
  const ColourPair& pair = kPalette[static_cast<std::size_t>(role)];
  return QColor::fromRgb(dark_ ? pair.dark : pair.light);
}

QPixmap Look::Picture(Drawing drawing, Role role, int size, qreal scale) const {
  QPixmap picture(QSize(size, size) * scale);
  picture.setDevicePixelRatio(scale);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  Draw(painter, drawing, role, QRectF(0, 0, size, size));
  return picture;
}

void Look::Draw(QPainter& painter, Drawing drawing, Role role, const QRectF& place) const {
  constexpr qreal kUnits = 16;
  constexpr qreal kStroke = 1.5;
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate(place.topLeft());
  painter.scale(place.width() / kUnits, place.height() / kUnits);
  painter.setPen(QPen(Colour(role), kStroke, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.setBrush(Qt::NoBrush);
  painter.drawPath(ReadPath(PathText(drawing)));
  painter.restore();
}

QColor PillColour(Role mark) {
  const Look& look = Look::Current();
  return Mix(StoredColour(mark), look.Colour(Role::kField), look.Dark() ? 20 : 12);
}

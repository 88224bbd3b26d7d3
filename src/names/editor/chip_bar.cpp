#include "names/editor/chip_bar.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QPainter>
#include <algorithm>
#include <string_view>

#include "look/look.h"
#include "look/shortcuts.h"
#include "names/constr_item.h"
#include "names/editor/accessible_chips.h"
#include "platform/qt/text_qt.h"

namespace {

constexpr int kChipGap = 4;
constexpr int kChipPadding = 10;
constexpr int kLeastChip = 30;
constexpr int kGreatestText = 200 - 2 * kChipPadding;
constexpr int kGreatestSigns = 26;  ///< that much with a large font
constexpr int kGreatestTip = 800;
constexpr int kRadius = 4;
constexpr QChar kOpenBox(0x2423);

/// Blanks at the ends of a text can't be seen; they show as open boxes.
QString WithVisibleEnds(QString text) {
  for (qsizetype i = 0; i < text.size() && text.at(i) == u' '; ++i) text[i] = kOpenBox;
  for (qsizetype i = text.size() - 1; i >= 0 && text.at(i) == u' '; --i) text[i] = kOpenBox;
  return text;
}

struct ChipColours {
  Role fill;
  Role edge;
  Role text;
};

ChipColours ColoursOf(bool enabled, bool focused, bool selected, bool is_text) {
  if (!enabled) return {Role::kDisabledFill, Role::kLine, Role::kDisabled};
  // The desktop's own palette has one colour for what is selected, and text for it.
  const bool solid = focused || !Look::Current().SkinOn();
  if (selected && solid) return {Role::kAccent, Role::kAccent, Role::kAccentText};
  if (selected) return {Role::kSel, Role::kFocus, Role::kText};
  if (is_text) return {Role::kField, Role::kEdge, Role::kText};
  return {Role::kChip, Role::kChipEdge, Role::kChipText};
}

int GreatestText(const QFontMetrics& metrics) {
  return std::max(kGreatestText, kGreatestSigns * metrics.averageCharWidth());
}

/// An outline of `width` that lies within `box`.
void StrokeInside(QPainter& painter, const QRectF& box, const QColor& colour, qreal width,
                  qreal radius) {
  const qreal half = width / 2;
  painter.setPen(QPen(colour, width));
  painter.drawRoundedRect(box.adjusted(half, half, -half, -half), radius, radius);
}

}  // namespace

ChipBar::ChipBar(QWidget* parent) : QTabBar(parent) {
  MakeChipsAccessible();  // first of all: a name given to a widget is told at once
  setObjectName(QStringLiteral("tabConstructor"));
  setAccessibleName(tr("New file name constructor"));
  setDrawBase(false);
  setExpanding(false);
  setUsesScrollButtons(false);  // the well has better ones
  setElideMode(Qt::ElideNone);
  setFocusPolicy(Qt::StrongFocus);
  setMinimumHeight(measure::kControlHeight);
}

void ChipBar::InsertChip(int index, std::string_view text, int tag) {
  setTabData(insertTab(index, QString()), tag);
  SetChipText(index, text);
}

void ChipBar::SetChipText(int index, std::string_view text) {
  const QString shown = text::Shown(text);
  // An "&" in a tab's text would make a shortcut of the letter behind it.
  setTabText(index, QString(shown).replace(u'&', QStringLiteral("&&")));
  const bool fits = fontMetrics().horizontalAdvance(shown) <= GreatestText(fontMetrics());
  // Wider than the screen it could not be read either.
  const QString tip = fontMetrics().elidedText(shown, Qt::ElideMiddle, kGreatestTip);
  setTabToolTip(index, shown.trimmed().isEmpty() ? tr("space") : fits ? QString() : tip);
}

QString ChipBar::PlainText(int index) const {
  return tabText(index).replace(QStringLiteral("&&"), QStringLiteral("&"));
}

QRect ChipBar::ChipRect(int index) const {
  return tabRect(index).adjusted(0, 0, -kChipGap, 0);
}

int ChipBar::ChipsWidth() const {
  return count() == 0 ? 0 : ChipRect(count() - 1).right() + 1;
}

bool ChipBar::IsText(int index) const {
  return index >= 0 && tabData(index).toInt() == kText;
}

QString ChipBar::ChipText(int index) const {
  const QString text = PlainText(index);
  const QString shown = IsText(index) ? WithVisibleEnds(text) : text.trimmed();
  return fontMetrics().elidedText(shown, Qt::ElideMiddle, GreatestText(fontMetrics()));
}

QSize ChipBar::tabSizeHint(int index) const {
  const int text = fontMetrics().horizontalAdvance(ChipText(index));
  return QSize(std::max(text + 2 * kChipPadding, kLeastChip) + kChipGap, ChipHeight());
}

int ChipBar::ChipHeight() const {
  return std::max(fontMetrics().height() + 2 * kRadius, measure::kControlHeight);
}

void ChipBar::keyPressEvent(QKeyEvent* event) {
  if (IsPressOf(Keys::kMoveLeft, *event)) {
    emit moveRequested(-1);
  } else if (IsPressOf(Keys::kMoveRight, *event)) {
    emit moveRequested(1);
  } else if (IsPressOf(Keys::kInsertLeft, *event)) {
    emit menuRequested(true);
  } else if (IsPressOf(Keys::kInsertRight, *event)) {
    emit menuRequested(false);
  } else if (IsPressOf(Keys::kDelete, *event)) {
    emit deleteRequested();
  } else if (IsPressOf(Keys::kFirstElement, *event)) {
    setCurrentIndex(0);
  } else if (IsPressOf(Keys::kLastElement, *event)) {
    setCurrentIndex(count() - 1);
  } else if (IsPressOf(Keys::kRowMenu, *event)) {
    AskForMenu();  // Qt itself knows the Menu key only
  } else if (IsPressOf(Keys::kEditText, *event) && IsText(currentIndex())) {
    // Held down, it would go on to accept the dialog that it opened.
    if (!event->isAutoRepeat()) emit editRequested();
  } else {
    QTabBar::keyPressEvent(event);
  }
}

void ChipBar::mouseDoubleClickEvent(QMouseEvent* event) {
  const int chip = tabAt(event->position().toPoint());
  if (event->button() != Qt::LeftButton || chip != currentIndex() || !IsText(chip)) {
    return QTabBar::mouseDoubleClickEvent(event);
  }
  emit editRequested();
}

void ChipBar::contextMenuEvent(QContextMenuEvent* event) {
  if (event->reason() != QContextMenuEvent::Mouse) return AskForMenu();
  const int chip = tabAt(event->pos());
  if (chip >= 0) setCurrentIndex(chip);
  emit contextMenuRequested(event->globalPos());
}

void ChipBar::AskForMenu() {
  QPoint place = (count() == 0 ? rect() : ChipRect(currentIndex())).bottomLeft();
  // The chip may be scrolled out of sight.
  place.setX(std::clamp(place.x(), -x(), -x() + parentWidget()->width()));
  emit contextMenuRequested(mapToGlobal(place));
}

void ChipBar::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  for (int i = 0; i < count(); ++i) PaintChip(painter, i);
}

void ChipBar::PaintChip(QPainter& painter, int index) const {
  const Look& look = Look::Current();
  const bool selected = index == currentIndex();
  const bool focused = selected && hasFocus();
  const ChipColours colours = ColoursOf(isEnabled(), focused, selected, IsText(index));
  const QRectF box = ChipRect(index);
  painter.setPen(Qt::NoPen);
  painter.setBrush(look.Colour(colours.fill));
  painter.drawRoundedRect(box, kRadius, kRadius);
  painter.setBrush(Qt::NoBrush);
  StrokeInside(painter, box, look.Colour(colours.edge), selected ? 2 : 1, kRadius);
  if (focused) {
    StrokeInside(painter, box.adjusted(2, 2, -2, -2), look.Colour(Role::kAccentText), 1, 2);
  }
  painter.setPen(look.Colour(colours.text));
  painter.drawText(box, Qt::AlignCenter | Qt::TextSingleLine, ChipText(index));
}

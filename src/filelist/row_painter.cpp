#include "filelist/row_painter.h"

#include <QGlyphRun>
#include <QHeaderView>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QTableView>
#include <QTextLayout>
#include <QToolTip>
#include <algorithm>
#include <vector>

#include "filelist/list_roles.h"
#include "filelist/record_list.h"
#include "look/look.h"
#include "platform/qt/text_qt.h"

namespace {

constexpr int kPillRadius = 4;
constexpr int kTintRadius = 3;
constexpr int kFolderLeast = 16;
constexpr int kFolderLeft = 5;
constexpr int kFolderGap = 6;
constexpr int kGroupTextRight = 8;
constexpr int kWarningLeast = 14;
constexpr int kWarningGap = 4;

bool Selected(const QStyleOptionViewItem& option) {
  return option.state & QStyle::State_Selected;
}

/// On the desktop's own colour of what is selected, which only its own text colour is made for.
bool OnHighlight(const QStyleOptionViewItem& option) {
  return Selected(option) && !Look::Current().SkinOn();
}

QColor TextColour(const QStyleOptionViewItem& option) {
  return OnHighlight(option) ? option.palette.color(QPalette::Active, QPalette::HighlightedText)
                             : Look::Current().Colour(Role::kText);
}

QRect TextRect(const QRect& cell) {
  return cell.adjusted(kCellInset, 0, -kCellInset, 0);
}

/// How large the sign of a name is beside its letters.
int WarningSize(const QStyleOptionViewItem& option) {
  return qMax(kWarningLeast, option.fontMetrics.ascent());
}

/// What its sign leaves a name.
QRect NameRect(const QStyleOptionViewItem& option, bool warned) {
  const int taken = warned ? WarningSize(option) + kWarningGap : 0;
  return TextRect(option.rect).adjusted(0, 0, -taken, 0);
}

/// The sign at the right end of a name that something is wrong with.
void PaintWarning(QPainter* painter, const QStyleOptionViewItem& option) {
  const QRect room = TextRect(option.rect);
  const int size = WarningSize(option);
  const QPixmap sign = Look::Current().Picture(
      Drawing::kWarning, OnHighlight(option) ? Role::kAccentText : Role::kWarn, size,
      painter->device()->devicePixelRatioF());
  painter->drawPixmap(room.right() + 1 - size, room.top() + (room.height() - size) / 2, sign);
}

int FolderSize(const QStyleOptionViewItem& option) {
  return std::max(kFolderLeast, option.fontMetrics.ascent());
}

int GroupTextLeft(const QStyleOptionViewItem& option, const QModelIndex& index) {
  const bool folder = index.data(kGroupIsFolderRole).toBool();
  return folder ? kFolderLeft + FolderSize(option) + kFolderGap : kCellInset;
}

/// Where a group row's strip lies: it stays in view when the columns are scrolled sideways.
QRect StripRect(const QStyleOptionViewItem& option) {
  QRect strip = option.rect;
  if (const auto* view = qobject_cast<const QTableView*>(option.widget)) {
    const QHeaderView* header = view->horizontalHeader();
    strip.setLeft(0);
    strip.setRight(qMin(view->viewport()->width(), header->length() - header->offset()) - 1);
    strip = QStyle::visualRect(option.direction, view->viewport()->rect(), strip);
  }
  return strip;
}

/// At the side where its desktop has it, but written as it is anywhere: "/a/.b" keeps its signs in
/// their places.
void DrawText(QPainter* painter, const QStyleOptionViewItem& option, const QRect& room,
              Qt::Alignment side, const QString& text) {
  const Qt::Alignment place = QStyle::visualAlignment(option.direction, side | Qt::AlignVCenter);
  painter->drawText(room, static_cast<int>(place) | Qt::TextSingleLine | Qt::TextForceLeftToRight,
                    text);
}

/// The two lines of the row that has the keyboard, for the part of it in this cell.
void PaintFocus(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) {
  const auto* view = qobject_cast<const QAbstractItemView*>(option.widget);
  if (view == nullptr || !view->hasFocus() || view->currentIndex().row() != index.row()) return;
  const Look& look = Look::Current();
  const QColor colour = look.SkinOn() ? look.Colour(Role::kFocus) : TextColour(option);
  const QRect& r = option.rect;
  painter->fillRect(QRect(r.left(), r.top(), r.width(), 1), colour);
  painter->fillRect(QRect(r.left(), r.bottom(), r.width(), 1), colour);
}

void PaintGroup(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) {
  const Look& look = Look::Current();
  const QRect strip = StripRect(option);
  const bool on_highlight = OnHighlight(option);
  const auto part = [&](int left, int right) {
    return QStyle::visualRect(option.direction, strip, strip.adjusted(left, 0, -right, 0));
  };
  painter->setClipRect(option.rect);
  painter->fillRect(strip, look.Colour(Selected(option) ? Role::kSel : Role::kGroup));
  painter->fillRect(QRect(strip.left(), strip.bottom(), strip.width(), 1),
                    look.Colour(Role::kLine));
  if (index.data(kGroupIsFolderRole).toBool()) {
    const int size = FolderSize(option);
    const QPixmap folder =
        look.Picture(Drawing::kFolder, on_highlight ? Role::kAccentText : Role::kGroupText, size,
                     painter->device()->devicePixelRatioF());
    const int right = strip.width() - kFolderLeft - size;
    painter->drawPixmap(part(kFolderLeft, right).left(), strip.top() + (strip.height() - size) / 2,
                        folder);
  }

  const QString count = index.data(kGroupCountRole).toString();
  const int count_width = option.fontMetrics.horizontalAdvance(count);
  painter->setFont(option.font);
  painter->setPen(on_highlight ? TextColour(option) : look.Colour(Role::kMuted));
  DrawText(painter, option, part(0, kGroupTextRight), Qt::AlignRight, count);

  QFont heavy = option.font;
  heavy.setWeight(QFont::DemiBold);
  const QRect room = part(GroupTextLeft(option, index), 2 * kGroupTextRight + count_width);
  painter->setFont(heavy);
  painter->setPen(on_highlight ? TextColour(option) : look.Colour(Role::kGroupText));
  DrawText(painter, option, room, Qt::AlignLeft,
           QFontMetrics(heavy).elidedText(index.data(kGroupTextRole).toString(), Qt::ElideMiddle,
                                          room.width()));
}

void PaintMark(QPainter* painter, const QStyleOptionViewItem& option, Mark mark,
               const QString& words) {
  static constexpr Role kRoleOf[] = {Role::kWait, Role::kDone, Role::kFailed, Role::kText};
  const Look& look = Look::Current();
  const Role role = kRoleOf[static_cast<int>(mark)];
  if (look.SkinOn() && (mark == Mark::kDone || mark == Mark::kFailed)) {
    painter->setPen(Qt::NoPen);
    painter->setBrush(PillColour(role));
    painter->drawRoundedRect(QRectF(option.rect).adjusted(1, 3, -1, -3), kPillRadius, kPillRadius);
  }
  painter->setPen(OnHighlight(option) ? TextColour(option) : look.Colour(role));
  painter->drawText(option.rect, Qt::AlignCenter, words);
}

/// One line of a name, laid out as a whole so that the marks cut no ligature or accent.
class NameLine {
 public:
  NameLine(const MarkedName& name, const QStyleOptionViewItem& option)
      : name_(name),
        option_(option),
        room_(NameRect(option, name.warned)),
        pieces_(ElideMiddle(name.pieces, option.fontMetrics, room_.width())),
        layout_(Join(pieces_), option.font) {
    QTextOption text_option(Qt::AlignLeft | Qt::AlignAbsolute);
    text_option.setWrapMode(QTextOption::NoWrap);
    text_option.setTextDirection(Qt::LeftToRight);  // as in DrawText
    layout_.setTextOption(text_option);
    layout_.beginLayout();
    line_ = layout_.createLine();
    layout_.endLayout();
    top_ = room_.top() + (room_.height() - line_.height()) / 2;
    const bool mirrored = option.direction == Qt::RightToLeft;
    left_ = mirrored ? room_.right() + 1 - line_.naturalTextWidth() : room_.left();
  }

  void Paint(QPainter* painter) {
    if (name_.warned) PaintWarning(painter, option_);
    if (!line_.isValid()) return;
    const bool muted = name_.muted && !OnHighlight(option_);
    const QColor plain = muted ? Look::Current().Colour(Role::kMuted) : TextColour(option_);
    const QColor marked = MarkedColour();
    QRegion marks;
    int start = 0;
    for (const NamePiece& piece : pieces_) {
      const int length = static_cast<int>(piece.text.size());
      for (const QRectF& run : piece.marked ? VisualRuns(start, start + length) : Runs()) {
        PaintMarkOf(painter, run, marked);
        marks += run.toAlignedRect();
      }
      start += length;
    }
    PaintIn(painter, QRegion(option_.rect) - marks, plain);
    if (!marks.isEmpty()) PaintIn(painter, marks, marked);
  }

 private:
  using Runs = std::vector<QRectF>;

  bool IsDraft() const { return name_.is_new && name_.muted; }

  QColor MarkedColour() const {
    if (!name_.is_new && Selected(option_)) return TextColour(option_);
    if (IsDraft()) return Look::Current().Colour(Role::kMuted);
    return Look::Current().Colour(name_.is_new ? Role::kTintText : Role::kGone);
  }

  /// What of the line stands in `place`. By its place, since Qt's own formats of parts lose those
  /// that lie where two directions meet.
  void PaintIn(QPainter* painter, const QRegion& place, const QColor& colour) {
    painter->save();
    painter->setClipRegion(place, Qt::IntersectClip);
    painter->setPen(colour);
    layout_.draw(painter, QPointF(left_, top_));
    painter->restore();
  }

  /// Where the characters `from` to `to` stand: one piece for each run of one direction, since text
  /// that runs the other way may part what is one in the name.
  Runs VisualRuns(int from, int to) const {
    Runs places;
    for (const QGlyphRun& glyphs : line_.glyphRuns(from, to - from)) {
      const QRectF place = glyphs.boundingRect();
      places.emplace_back(left_ + place.left(), room_.top(), place.width(), room_.height());
    }
    std::sort(places.begin(), places.end(),
              [](const QRectF& a, const QRectF& b) { return a.left() < b.left(); });
    Runs runs;
    for (const QRectF& place : places) {
      if (!runs.empty() && place.left() < runs.back().right() + 1) {
        runs.back() |= place;
      } else {
        runs.push_back(place);
      }
    }
    return runs;
  }

  void PaintMarkOf(QPainter* painter, const QRectF& run, const QColor& colour) const {
    const Look& look = Look::Current();
    if (!name_.is_new) {
      // Through the small letters: a line below them would hide underscores.
      const qreal middle = top_ + line_.ascent() - QFontMetricsF(option_.font).xHeight() / 2;
      painter->fillRect(QRectF(run.left(), qRound(middle - 0.5), run.width(), 1), colour);
      return;
    }
    painter->setPen(Selected(option_) ? QPen(look.Colour(Role::kFocus), 1) : QPen(Qt::NoPen));
    painter->setBrush(look.Colour(IsDraft() ? Role::kHover : Role::kTint));
    // The outline keeps off the underscores.
    const bool outline = Selected(option_);
    painter->drawRoundedRect(
        outline ? run.adjusted(-0.5, 1.5, 0.5, -2.5) : run.adjusted(-1, 3, 1, -4), kTintRadius,
        kTintRadius);
  }

  const MarkedName& name_;
  const QStyleOptionViewItem& option_;
  QRect room_;
  NamePieces pieces_;
  QTextLayout layout_;
  QTextLine line_;
  qreal top_ = 0;
  qreal left_ = 0;
};

void PaintText(QPainter* painter, const QStyleOptionViewItem& option) {
  const QRect room = TextRect(option.rect);
  painter->setPen(TextColour(option));
  DrawText(painter, option, room, option.displayAlignment & Qt::AlignHorizontal_Mask,
           option.fontMetrics.elidedText(option.text, Qt::ElideMiddle, room.width()));
}

void PaintCheck(QPainter* painter, const QStyleOptionViewItem& option) {
  const QStyle* style = option.widget->style();
  const QSize size(style->pixelMetric(QStyle::PM_IndicatorWidth, &option, option.widget),
                   style->pixelMetric(QStyle::PM_IndicatorHeight, &option, option.widget));
  QStyleOptionViewItem box = option;
  box.rect = QRect(QPoint(option.rect.left() + kCellInset,
                          option.rect.top() + (option.rect.height() - size.height()) / 2),
                   size);
  box.state &=
      ~(QStyle::State_HasFocus | QStyle::State_Selected | QStyle::State_On | QStyle::State_Off);
  box.state |= option.checkState == Qt::Checked ? QStyle::State_On : QStyle::State_Off;
  style->drawPrimitive(QStyle::PE_IndicatorItemViewItemCheck, &box, painter, option.widget);
}

bool IsCheckCell(const QModelIndex& index) {
  return index.flags() & Qt::ItemIsUserCheckable;
}

}  // namespace

void RowPainter::paint(QPainter* painter, const QStyleOptionViewItem& bare_option,
                       const QModelIndex& index) const {
  QStyleOptionViewItem option = bare_option;
  initStyleOption(&option, index);
  painter->save();
  painter->setRenderHint(QPainter::Antialiasing);
  painter->setFont(option.font);
  if (index.data(kGroupTextRole).isValid()) {
    PaintGroup(painter, option, index);
  } else {
    painter->fillRect(option.rect,
                      Look::Current().Colour(Selected(option) ? Role::kSel : Role::kField));
    if (IsCheckCell(index)) {
      PaintCheck(painter, option);
    } else if (const QVariant mark = index.data(kMarkRole); mark.isValid()) {
      PaintMark(painter, option, static_cast<Mark>(mark.toInt()), option.text);
    } else if (const QVariant name = index.data(kMarkedNameRole); name.isValid()) {
      NameLine(name.value<MarkedName>(), option).Paint(painter);
    } else {
      PaintText(painter, option);
    }
  }
  PaintFocus(painter, option, index);
  painter->restore();
}

bool RowPainter::editorEvent(QEvent* event, QAbstractItemModel* model,
                             const QStyleOptionViewItem& option, const QModelIndex& index) {
  if (!IsCheckCell(index)) return QStyledItemDelegate::editorEvent(event, model, option, index);
  const bool press = event->type() == QEvent::MouseButtonPress;
  // The view keeps the release of a double click to itself.
  const bool click =
      event->type() == QEvent::MouseButtonRelease || event->type() == QEvent::MouseButtonDblClick;
  if (!press && !click) return false;
  const auto* mouse = static_cast<QMouseEvent*>(event);
  if (mouse->button() != Qt::LeftButton || !option.rect.contains(mouse->position().toPoint())) {
    return false;
  }
  if (press) return true;
  const bool on = index.data(Qt::CheckStateRole).toInt() == Qt::Checked;
  return model->setData(index, on ? Qt::Unchecked : Qt::Checked, Qt::CheckStateRole);
}

bool RowPainter::helpEvent(QHelpEvent* event, QAbstractItemView* view,
                           const QStyleOptionViewItem& option, const QModelIndex& index) {
  if (event->type() != QEvent::ToolTip) return false;
  const bool group = index.data(kGroupTextRole).isValid();
  const QString verdict = index.data(kVerdictRole).toString();
  const QString words = index.data(Qt::DisplayRole).toString();
  QFont font = option.font;
  if (group) font.setWeight(QFont::DemiBold);
  const int room = group ? StripRect(option).width() - GroupTextLeft(option, index) - 100
                         : NameRect(option, !verdict.isEmpty()).width();
  const QString reason = index.data(kReasonRole).toString();
  QStringList lines;
  if (QFontMetrics(font).horizontalAdvance(words) > room) lines += words;
  if (!reason.isEmpty() && reason != words) lines += reason;
  if (!verdict.isEmpty()) lines += verdict;
  QToolTip::showText(event->globalPos(), lines.join(u'\n'), view->viewport());
  return true;
}

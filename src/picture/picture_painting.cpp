#include "picture/picture_painting.h"

#include <QPainterPath>
#include <algorithm>

namespace {

constexpr qreal kFarSmaller = 0.5;  // from here on, painting alone would leave pixels out
constexpr int kMostBroken = 40;     // a mark, however large the room
constexpr int kMostPlay = 48;
constexpr qreal kPartOfRoom = 0.6;

// A square in the middle, 16 units wide, of which a drawing takes a part.
void EnterSquare(QPainter& painter, const QRect& room, qreal most) {
  const qreal side = std::min(most, kPartOfRoom * std::min(room.width(), room.height()));
  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate(QRectF(room).center());
  painter.scale(side / 16, side / 16);
  painter.translate(-8, -8);
}

}  // namespace

void PaintFrame(QPainter& painter, const QImage& frame, const QRect& target, const QRect& room) {
  const QSize pixels = target.size() * painter.device()->devicePixelRatioF();
  if (pixels.isEmpty()) return;
  painter.save();
  painter.setClipRect(room);
  if (pixels.width() <= kFarSmaller * frame.width() ||
      pixels.height() <= kFarSmaller * frame.height()) {
    painter.drawImage(target,
                      frame.scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
  } else {
    // By whole numbers, pixels stay as sharp as they were drawn.
    const bool whole = pixels.width() % frame.width() == 0 && pixels.height() % frame.height() == 0;
    painter.setRenderHint(QPainter::SmoothPixmapTransform, !whole);
    painter.drawImage(target, frame);
  }
  painter.restore();
}

void PaintBroken(QPainter& painter, const QRect& room, const QPalette& palette) {
  painter.save();
  EnterSquare(painter, room, kMostBroken);
  painter.setPen(QPen(palette.color(QPalette::PlaceholderText), 1, Qt::SolidLine, Qt::RoundCap,
                      Qt::RoundJoin));
  // A leaf with a corner turned down, torn through.
  painter.drawPolyline(QPolygonF({{3, 8}, {3, 1.5}, {10, 1.5}, {13, 4.5}, {13, 7}}));
  painter.drawPolyline(QPolygonF({{10, 1.5}, {10, 4.5}, {13, 4.5}}));
  painter.drawPolyline(QPolygonF({{3, 8}, {5.5, 6.5}, {8, 8.5}, {10.5, 6}, {13, 7}}));
  painter.drawPolyline(QPolygonF(
      {{3, 11}, {5.5, 9.5}, {8, 11.5}, {10.5, 9}, {13, 10}, {13, 14.5}, {3, 14.5}, {3, 11}}));
  painter.restore();
}

void PaintPlay(QPainter& painter, const QRect& room) {
  painter.save();
  EnterSquare(painter, room, kMostPlay);
  painter.setPen(QPen(QColor(255, 255, 255, 220), 0.8));
  painter.setBrush(QColor(0, 0, 0, 150));
  painter.drawEllipse(QRectF(1, 1, 14, 14));
  painter.setPen(Qt::NoPen);
  painter.setBrush(Qt::white);
  painter.drawPolygon(QPolygonF({{6.2, 4.6}, {11.8, 8}, {6.2, 11.4}}));
  painter.restore();
}

void PaintFocus(QPainter& painter, const QRect& room, const QPalette& palette) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(palette.color(QPalette::Highlight), 2));
  painter.drawRoundedRect(room.adjusted(1, 1, -1, -1), 3, 3);
  painter.restore();
}

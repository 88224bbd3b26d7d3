// How the picture looks: its place in the room, its ground and border, and the painting.
#include <QPainter>
#include <QStyle>
#include <algorithm>

#include "picture/animated_picture.h"
#include "picture/picture_painting.h"
#include "picture/picture_player.h"

namespace {

constexpr QSize kEmptyHint(64, 64);
constexpr QSize kLeastSize(16, 16);
constexpr QSize kMostLeastSize(256, 256);  // a large picture must not force a window open

}  // namespace

void AnimatedPicture::setScaleMode(ScaleMode mode) {
  if (mode == scale_mode_) return;
  scale_mode_ = mode;
  updateGeometry();
  update();
  emit scaleModeChanged(mode);
}

void AnimatedPicture::setAlignment(Qt::Alignment alignment) {
  if (alignment == alignment_) return;
  alignment_ = alignment;
  update();
  emit alignmentChanged(alignment);
}

void AnimatedPicture::setBackground(const QColor& background) {
  if (background == background_) return;
  background_ = background;
  update();
  emit backgroundChanged(background);
}

void AnimatedPicture::setFrameShape(QFrame::Shape shape) {
  setFrameStyle(shape | frameShadow());
}

void AnimatedPicture::setFrameShadow(QFrame::Shadow shadow) {
  setFrameStyle(frameShape() | shadow);
}

void AnimatedPicture::setFrameStyle(int style) {
  if (style == frameStyle()) return;
  QFrame::setFrameStyle(style);
  emit frameStyleChanged();
}

void AnimatedPicture::setLineWidth(int width) {
  width = std::clamp(width, kLineWidth.least, kLineWidth.most);
  if (width == lineWidth()) return;
  QFrame::setLineWidth(width);
  update();
  emit lineWidthChanged(width);
}

QSize AnimatedPicture::Hint() const {
  return player_->Picture() == nullptr ? kEmptyHint : player_->Picture()->Size() / ratio_;
}

QSize AnimatedPicture::sizeHint() const {
  return Hint().grownBy(contentsMargins());
}

QSize AnimatedPicture::minimumSizeHint() const {
  const bool scaled = scale_mode_ != ScaleMode::ActualSize;
  return Hint().boundedTo(scaled ? kLeastSize : kMostLeastSize).grownBy(contentsMargins());
}

QRect AnimatedPicture::Target() const {
  const QRect room = contentsRect();
  QSize size = Hint();
  if (scale_mode_ == ScaleMode::Fit) size.scale(room.size(), Qt::KeepAspectRatio);
  if (scale_mode_ == ScaleMode::Fill) size.scale(room.size(), Qt::KeepAspectRatioByExpanding);
  if (scale_mode_ == ScaleMode::Stretch) size = room.size();
  return QStyle::alignedRect(layoutDirection(), alignment_, size, room);
}

void AnimatedPicture::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  if (background_.isValid())
    painter.fillRect(frameWidth() > 0 ? contentsRect() : rect(), background_);
  if (player_->Picture() != nullptr) {
    PaintPicture(painter);
  } else if (!failure().isEmpty()) {
    PaintBroken(painter, contentsRect(), palette());
  }
  drawFrame(&painter);
  if (hasFocus() && takesClicks()) PaintFocus(painter, rect(), palette());
  player_->Painted();
}

void AnimatedPicture::PaintPicture(QPainter& painter) const {
  const QRect target = Target();
  PaintFrame(painter, player_->Picture()->Frame(), target, contentsRect());
  if (takesClicks() && !playing()) PaintPlay(painter, target & contentsRect());
}

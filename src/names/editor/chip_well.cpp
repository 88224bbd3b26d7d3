#include "names/editor/chip_well.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QPainter>
#include <QToolButton>
#include <algorithm>

#include "look/look.h"
#include "names/editor/chip_bar.h"
#include "names/editor/chip_drag.h"

namespace {

constexpr int kMargin = 5;
constexpr int kArrowWidth = 20;
constexpr int kArrowGap = 4;
constexpr int kRadius = 6;

}  // namespace

ChipWell::ChipWell(ChipBar* bar, QWidget* parent)
    : QWidget(parent),
      bar_(bar),
      view_(new QWidget(this)),
      left_(NewArrow(Qt::LeftArrow, "bnScrollLeft", tr("Scroll left"))),
      right_(NewArrow(Qt::RightArrow, "bnScrollRight", tr("Scroll right"))) {
  bar->setParent(view_);
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  row->setSpacing(kArrowGap);
  row->addWidget(view_, 1);
  row->addWidget(left_);
  row->addWidget(right_);
  view_->setFixedHeight(bar->ChipHeight());
  connect(left_, &QToolButton::clicked, this, [this] { ScrollByOne(-1); });
  connect(right_, &QToolButton::clicked, this, [this] { ScrollByOne(1); });
  connect(new ChipDrag(bar), &ChipDrag::scrollWanted, this,
          [this](int pixels) { ScrollTo(offset_ + pixels); });
}

QToolButton* ChipWell::NewArrow(Qt::ArrowType arrow, const char* name, const QString& tells) {
  auto* button = new QToolButton(this);
  button->setObjectName(QLatin1String(name));
  button->setAccessibleName(tells);
  button->setToolTip(tells);
  button->setProperty("scroll", true);
  button->setArrowType(arrow);
  button->setAutoRepeat(true);
  button->setFocusPolicy(Qt::NoFocus);  // the arrow keys move among the chips
  button->setFixedWidth(kArrowWidth);
  button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Ignored);
  button->hide();
  return button;
}

int ChipWell::Room() const {
  const int arrows = left_->isHidden() ? 0 : 2 * (kArrowWidth + kArrowGap);
  return width() - 2 * kMargin - arrows;
}

void ChipWell::ShowSelected() {
  const int all = bar_->ChipsWidth();
  const bool too_many = all > width() - 2 * kMargin;
  left_->setVisible(too_many);
  right_->setVisible(too_many);
  view_->setFixedHeight(bar_->ChipHeight());
  bar_->resize(std::max(all, Room()), view_->height());
  const QRect chip = bar_->ChipRect(bar_->currentIndex());
  ScrollTo(std::clamp(offset_, std::min(chip.left(), chip.right() + 1 - Room()), chip.left()));
}

void ChipWell::ScrollTo(int offset) {
  const int most = std::max(bar_->ChipsWidth() - Room(), 0);
  offset_ = std::clamp(offset, 0, most);
  bar_->move(-offset_, 0);
  left_->setEnabled(offset_ > 0);
  right_->setEnabled(offset_ < most);
}

void ChipWell::ScrollByOne(int step) {
  const int end = offset_ + Room();
  if (step > 0) {
    int chip = 0;
    while (chip < bar_->count() && bar_->ChipRect(chip).right() < end) ++chip;
    ScrollTo(bar_->ChipRect(chip).right() + 1 - Room());
  } else {
    int chip = bar_->count() - 1;
    while (chip > 0 && bar_->ChipRect(chip).left() >= offset_) --chip;
    ScrollTo(bar_->ChipRect(chip).left());
  }
}

void ChipWell::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) ShowSelected();
}

void ChipWell::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  ShowSelected();
}

void ChipWell::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  ShowSelected();
}

void ChipWell::paintEvent(QPaintEvent*) {
  const Look& look = Look::Current();
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(look.Colour(isEnabled() ? Role::kEdge : Role::kLine));
  painter.setBrush(look.Colour(isEnabled() ? Role::kField : Role::kDisabledFill));
  painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), kRadius, kRadius);
}

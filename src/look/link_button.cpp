#include "look/link_button.h"

#include <QAccessibleWidget>
#include <QFontMetrics>
#include <QKeyEvent>
#include <QPainter>

#include "look/look.h"

namespace {

constexpr int kInsetX = 4;  // the room that the focus outline takes
constexpr int kInsetY = 3;
constexpr int kRounding = 1;  // a text may be a part of a pixel wider than its advance tells
constexpr int kLeastWidth = 120;

/// To a screen reader a link, which can be followed.
class AccessibleLink : public QAccessibleWidget {
 public:
  explicit AccessibleLink(LinkButton* link) : QAccessibleWidget(link, QAccessible::Link) {}

  QStringList actionNames() const override {
    return QStringList(pressAction()) + QAccessibleWidget::actionNames();
  }

  void doAction(const QString& action) override {
    if (action == pressAction()) {
      static_cast<LinkButton*>(widget())->click();
    } else {
      QAccessibleWidget::doAction(action);
    }
  }
};

QAccessibleInterface* MakeAccessible(const QString&, QObject* object) {
  auto* link = qobject_cast<LinkButton*>(object);
  return link != nullptr ? new AccessibleLink(link) : nullptr;
}

}  // namespace

LinkButton::LinkButton(const QString& link, QWidget* parent)
    : QAbstractButton(parent), link_(link) {
  static const bool installed = (QAccessible::installFactory(MakeAccessible), true);
  Q_UNUSED(installed);
  setAccessibleName(link);
  setCursor(Qt::PointingHandCursor);
  setFocusPolicy(Qt::StrongFocus);
  setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
}

QFont LinkButton::LinkFont() const {
  QFont underlined = font();
  underlined.setUnderline(true);
  return underlined;
}

QString LinkButton::Elided() const {
  return QFontMetrics(LinkFont()).elidedText(link_, Qt::ElideMiddle, width() - 2 * kInsetX);
}

QSize LinkButton::sizeHint() const {
  const QFontMetrics metrics(LinkFont());
  return {metrics.horizontalAdvance(link_) + kRounding + 2 * kInsetX,
          metrics.height() + 2 * kInsetY};
}

QSize LinkButton::minimumSizeHint() const {
  return sizeHint().boundedTo({kLeastWidth, sizeHint().height()});
}

void LinkButton::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const Look& look = Look::Current();
  painter.setFont(LinkFont());
  // An address begins at its left, whichever way the desktop runs.
  painter.setLayoutDirection(link_.isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight);
  painter.setPen(look.Colour(underMouse() ? Role::kFocus : Role::kLink));
  painter.drawText(rect().adjusted(kInsetX, 0, -kInsetX, 0), Qt::AlignLeft | Qt::AlignVCenter,
                   Elided());
  if (!hasFocus()) return;
  painter.setPen(QPen(look.Colour(Role::kFocus), 2));
  painter.drawRoundedRect(rect().adjusted(1, 1, -1, -1), 4, 4);
}

void LinkButton::resizeEvent(QResizeEvent* event) {
  QAbstractButton::resizeEvent(event);
  setToolTip(Elided() == link_ ? QString() : link_);
}

void LinkButton::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    click();
  } else {
    QAbstractButton::keyPressEvent(event);
  }
}

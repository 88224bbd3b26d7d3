#include "look/card.h"

#include <QCoreApplication>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QTabBar>
#include <QVBoxLayout>

#include "look/accessible_role.h"
#include "look/look.h"

namespace {

/// The underline of a letter parts a text that is measured whole, without the kerning across the
/// part: it needs a bit more room than a plain label asks for.
class FieldLabel : public QLabel {
 public:
  using QLabel::QLabel;
  QSize sizeHint() const override { return QLabel::sizeHint() + kSlack; }
  QSize minimumSizeHint() const override { return QLabel::minimumSizeHint() + kSlack; }

 protected:
  bool event(QEvent* event) override {
    // Who doesn't know the field rests the mouse on its label.
    if (event->type() != QEvent::ToolTip || buddy() == nullptr) return QLabel::event(event);
    return QCoreApplication::sendEvent(buddy(), event);
  }

 private:
  static constexpr QSize kSlack{2, 0};
};

QString LabelName(QString control) {
  for (const QLatin1String prefix :
       {QLatin1String("fd"), QLatin1String("cmb"), QLatin1String("lnk")}) {
    if (control.startsWith(prefix)) control.remove(0, prefix.size());
  }
  return QStringLiteral("lb") + control;
}

}  // namespace

Card::Card(const QString& name, const QString& title, QWidget* parent)
    : QFrame(parent), head_(new QHBoxLayout), body_(new QVBoxLayout) {
  constexpr int kTitleHeight = 20;
  SetAccessibleRole(*this, QAccessible::Grouping);  // a plain frame is taken for a window
  setObjectName(name);
  setAccessibleName(title);
  setProperty("card", true);
  auto* outer = new QVBoxLayout(this);
  outer->setContentsMargins(measure::kCardLeft, measure::kCardTop, measure::kCardRight,
                            measure::kCardBottom);
  outer->setSpacing(measure::kControlGap);
  auto* label = new QLabel(title, this);
  label->setObjectName(name + QStringLiteral("Title"));
  label->setProperty("title", true);
  // The controls beside a title give way, never the title.
  label->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
  head_->setSpacing(measure::kLabelGap);
  head_->addStrut(kTitleHeight);
  head_->addWidget(label);
  head_->addStretch();
  body_->setSpacing(measure::kControlGap);
  outer->addLayout(head_);
  outer->addLayout(body_, 1);
}

void Card::paintEvent(QPaintEvent* event) {
  QFrame::paintEvent(event);
  if (Look::Current().SkinOn()) return;
  QPainter painter(this);
  painter.setPen(Look::Current().Colour(Role::kLine));
  const int top = head_->geometry().bottom() + measure::kControlGap / 2;
  painter.drawRect(rect().adjusted(0, top, -1, -1));
}

QLabel* NewLabel(const QString& text, QWidget* buddy, QWidget* parent) {
  auto* label = new FieldLabel(text, parent);
  label->setTextFormat(Qt::PlainText);
  label->setBuddy(buddy);
  if (buddy != nullptr) label->setObjectName(LabelName(buddy->objectName()));
  return label;
}

QLabel* LabelOf(const QWidget* field) {
  for (QLabel* label : field->parentWidget()->findChildren<QLabel*>()) {
    if (label->buddy() == field) return label;
  }
  return nullptr;
}

QString CaptionOf(const QWidget* field) {
  const QLabel* label = LabelOf(field);
  return label == nullptr ? QString() : label->text().remove(u'&').remove(u':');
}

void PolishAll(QWidget* widget) {
  for (QWidget* part : widget->findChildren<QWidget*>()) part->ensurePolished();
  for (QTabBar* tabs : widget->findChildren<QTabBar*>()) {
    // By itself, a hidden one keeps the sizes that it had before.
    QEvent event(QEvent::StyleChange);
    QCoreApplication::sendEvent(tabs, &event);
  }
}

void Explain(QWidget* widget, const QString& text) {
  widget->setToolTip(text);
  widget->setAccessibleDescription(text);
}

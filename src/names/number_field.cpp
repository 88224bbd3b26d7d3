#include "names/number_field.h"

#include <QFocusEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <algorithm>
#include <utility>

#include "names/number_text.h"
#include "platform/text_qt.h"
#include "trace/failure.h"

namespace {

constexpr QChar kDelete(0x7F);

bool IsDroppedKey(QChar sign) {
  return sign.unicode() >= u' ' && (sign < u'0' || sign > u'9') && sign != kDelete;
}

}  // namespace

NumberField::NumberField(const NumberControl& control, std::function<void(std::int32_t)> store,
                         QWidget* parent)
    : QLineEdit(parent), validate_(control.validate), store_(std::move(store)) {
  setObjectName(QLatin1String(control.name));
  setText(QStringLiteral("0"));
  connect(this, &QLineEdit::textChanged, this, [this] { pending_ = true; });
  setInputMethodHints(Qt::ImhDigitsOnly);
  connect(this, &QLineEdit::returnPressed, this, &NumberField::HandOver);
}

void NumberField::ShowNumber(std::int32_t number) {
  setText(QString::number(number));
  pending_ = false;
  refused_ = false;
}

void NumberField::HandOver() {
  if (!pending_) return;
  refused_ = !validate_(false, [this] {
    const NumberText number = NormalizeNumber(text::FromQt(text()));
    if (const QString written = text::ToQt(number.text); written != text()) setText(written);
    pending_ = false;
    if (!number.value) throw Failure(kOverflow, "Overflow");
    store_(*number.value);
  });
}

void NumberField::keyPressEvent(QKeyEvent* event) {
  const QString typed = event->text();
  if (typed.size() == 1 && IsDroppedKey(typed.at(0))) return;
  QLineEdit::keyPressEvent(event);
}

void NumberField::inputMethodEvent(QInputMethodEvent* event) {
  const QString typed = event->commitString();
  if (std::any_of(typed.begin(), typed.end(), IsDroppedKey)) return;
  QLineEdit::inputMethodEvent(event);
}

void NumberField::focusOutEvent(QFocusEvent* event) {
  QLineEdit::focusOutEvent(event);
  // Another window or a menu only borrows the focus.
  const Qt::FocusReason reason = event->reason();
  if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason) HandOver();
}

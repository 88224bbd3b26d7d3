#include "look/number_field.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QValidator>
#include <algorithm>
#include <limits>
#include <utility>

#include "common/number_text.h"
#include "look/card.h"
#include "look/handlers.h"
#include "platform/qt/text_qt.h"
#include "trace/failure.h"

namespace {

constexpr QChar kDelete(0x7F);

bool IsDroppedKey(QChar sign) {
  return sign.unicode() >= u' ' && (sign < u'0' || sign > u'9') && sign != kDelete;
}

}  // namespace

class NumberField::Digits : public QValidator {
 public:
  explicit Digits(NumberField* field) : QValidator(field), field_(*field) {}

  State validate(QString& text, int& position) const override {
    if (field_.writing_) return Acceptable;
    const auto taken = TakeDigits(text::FromQt(field_.last_text_), text::FromQt(text));
    if (!taken) return Invalid;
    const QString digits = text::ToQt(*taken);
    position -= static_cast<int>(text.size() - digits.size());
    text = digits;
    return Acceptable;
  }

 private:
  const NumberField& field_;
};

NumberField::NumberField(const char* name, std::function<void(std::int32_t)> store, QWidget* parent)
    : QLineEdit(parent), store_(std::move(store)) {
  setObjectName(QLatin1String(name));
  setValidator(new Digits(this));
  connect(this, &QLineEdit::textChanged, this, &NumberField::KeepDigits);
  ShowNumber(0);
  setInputMethodHints(Qt::ImhDigitsOnly);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  connect(this, &QLineEdit::returnPressed, this, &NumberField::HandOver);
}

QSize NumberField::sizeHint() const {
  // The style's answer is for 17 times this letter.
  constexpr int kSigns = 17, kDigits = 10, kCaret = 4, kLeast = 84;
  const QSize hint = QLineEdit::sizeHint();
  const int around = hint.width() - kSigns * fontMetrics().horizontalAdvance(u'x');
  const int digits = kDigits * fontMetrics().horizontalAdvance(u'0');
  return {std::max(around + digits + kCaret, kLeast), hint.height()};
}

void NumberField::KeepDigits() {
  // A validator doesn't bind who sets the text as a whole, as a screen reader does.
  if (!hasAcceptableInput()) return setText(last_text_);
  last_text_ = text();
  pending_ = true;
}

void NumberField::Write(const QString& text) {
  const QScopedValueRollback writing(writing_, true);
  setText(text);
}

void NumberField::ShowNumber(std::int32_t number) {
  Write(QString::number(number));
  pending_ = false;
  refused_ = false;
}

void NumberField::HandOver() {
  if (!pending_) return;
  const std::string handler = HandlerOf(text::FromQt(objectName()), "_Validate(Cancel)");
  const bool Cancel = false;
  refused_ = !ErrTrace::top(handler, ErrTrace::args(Cancel), [this] {
    const NumberText number = NormalizeNumber(text::FromQt(text()));
    if (const QString written = text::ToQt(number.text); written != text()) Write(written);
    pending_ = false;
    if (!number.value) {
      throw Failure(
          {.number = kOverflow, .description = "Overflow", .slip = text::FromQt(TooLarge())});
    }
    store_(*number.value);
    emit handedOver();
  });
}

QString NumberField::TooLarge() const {
  QString place;
  for (const QWidget* part = parentWidget(); part != nullptr && place.isEmpty();
       part = part->parentWidget()) {
    place = part->accessibleName();
  }
  return tr("The number “%1” in “%2” is too large. The largest that can be used is %3.")
      .arg(CaptionOf(this), place)
      .arg(std::numeric_limits<std::int32_t>::max());
}

void NumberField::keyPressEvent(QKeyEvent* event) {
  const QString typed = event->text();
  if (typed.size() == 1 && IsDroppedKey(typed.at(0))) return;
  QLineEdit::keyPressEvent(event);
}

void NumberField::focusOutEvent(QFocusEvent* event) {
  QLineEdit::focusOutEvent(event);
  // Another window or a menu only borrows the focus.
  const Qt::FocusReason reason = event->reason();
  if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason) HandOver();
}

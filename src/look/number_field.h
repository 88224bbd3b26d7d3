#pragma once

#include <QLineEdit>
#include <cstdint>
#include <functional>

/// A field for a whole number from 0 up. Keys that are no digits do nothing, and no other way puts
/// anything but digits in; see TakeDigits. The number goes to its store not with each key but when
/// the field is left, on Enter, and when `HandOver` is called.
class NumberField : public QLineEdit {
  Q_OBJECT

 public:
  /// `name` is the object's and its handler's; `store` takes each number handed over.
  NumberField(const char* name, std::function<void(std::int32_t)> store, QWidget* parent);

  /// Writes the number anew, so that "007" shows 7 and nothing shows 0, and stores it. One beyond
  /// 32 bits is reported as an overflow and not stored. Does nothing when the text is as it was
  /// shown or last handed over.
  void HandOver();

  /// The text shown is a number that was not stored.
  bool Refused() const { return refused_; }

  /// Room for the ten digits of the largest number.
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

  /// Shows a number that comes from the store.
  void ShowNumber(std::int32_t number);

 signals:
  /// The store has taken a number.
  void handedOver();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  class Digits;
  /// Puts the last text back when something came past the validator.
  void KeepDigits();
  /// What is told of a number that can't be stored; it goes by the nearest part with a name.
  QString TooLarge() const;
  /// Shows what the field itself has to say, digits or not.
  void Write(const QString& text);

  std::function<void(std::int32_t)> store_;
  QString last_text_;
  bool writing_ = false;
  bool pending_ = false;
  bool refused_ = false;
};

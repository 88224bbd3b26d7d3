#pragma once

#include <QObject>
#include <QString>

class QAction;
class QLineEdit;

/// A warning at the right end of a field, out of the way of the Tab key. It says what is wrong with
/// what the field holds, and the field's tooltip and description say it too for as long.
class FieldSign : public QObject {
  Q_OBJECT

 public:
  /// Lives as long as `field`, which has its name, and its own tooltip if it is to have one.
  explicit FieldSign(QLineEdit* field);

  /// Shows the sign with `words`; without any, none, and the field's own tooltip.
  void Warn(const QString& words);
  /// The words alone, without the sign.
  void Note(const QString& words);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void MakePicture();

  QLineEdit* field_;
  QAction* sign_;
  QString own_words_;
};

#pragma once

#include <QFrame>
#include <QString>

class QHBoxLayout;
class QLabel;
class QVBoxLayout;

/// A box of the window: a title line, which may hold a control at its right, and a body below.
/// Under the skin the frame runs around both, without it the title stands above the frame.
class Card : public QFrame {
  Q_OBJECT

 public:
  Card(const QString& name, const QString& title, QWidget* parent);

  /// The title line; what is added stands right of the title.
  QHBoxLayout* Head() { return head_; }
  /// Below the title line; rows are one control gap apart.
  QVBoxLayout* Body() { return body_; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QHBoxLayout* head_;
  QVBoxLayout* body_;
};

/// A label for the control that it is the buddy of, found by Alt and its underlined letter. It is
/// named after its buddy, "lbCutFileN" for "fdCutFileN"; without a buddy it has no name yet. It
/// shows the buddy's tooltip.
QLabel* NewLabel(const QString& text, QWidget* buddy, QWidget* parent);

/// The label whose buddy `field` is; null when it has none.
QLabel* LabelOf(const QWidget* field);
/// What the label of `field` says, without its letter and colon; "" when it has none.
QString CaptionOf(const QWidget* field);

/// Lets the style give all parts of `widget` their sizes, those of hidden pages too, so that
/// nothing moves when such a page shows for the first time.
void PolishAll(QWidget* widget);

/// Gives `widget` its tooltip and the same text for those who listen.
void Explain(QWidget* widget, const QString& text);

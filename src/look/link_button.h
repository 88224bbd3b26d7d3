#pragma once

#include <QAbstractButton>

/// A link in a window: underlined, reached by Tab, followed by a click, Enter or Space. Its text
/// is plain; what has no room is left out in the middle and stands in the tooltip.
class LinkButton : public QAbstractButton {
  Q_OBJECT

 public:
  explicit LinkButton(const QString& link, QWidget* parent = nullptr);

  const QString& link() const { return link_; }
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QFont LinkFont() const;
  QString Elided() const;

  QString link_;  ///< not the button's text, in which "&" would name a key
};

#pragma once

#include <QVBoxLayout>
#include <QWidget>

/// The layout of the main window: gives it the least size that its parts need, at least the told
/// one, and anew with each font and style.
class WindowLayout : public QVBoxLayout {
  Q_OBJECT

 public:
  explicit WindowLayout(QWidget* window);

  QSize minimumSize() const override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  /// Parts that are hidden tell nobody of their new size.
  void AskAllAnew();
};

/// As wide as its widest row needs at the font in use, at least as told, and no wider.
class LeftColumn : public QWidget {
  Q_OBJECT

 public:
  explicit LeftColumn(QWidget* parent);
  QSize sizeHint() const override { return minimumSizeHint(); }
  QSize minimumSizeHint() const override;
};

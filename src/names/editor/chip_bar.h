#pragma once

#include <QTabBar>

/// The elements of a new name as a row of chips, one selected. It only shows and asks: what
/// happens to the elements is its owner's.
class ChipBar : public QTabBar {
  Q_OBJECT

 public:
  explicit ChipBar(QWidget* parent);

  /// Puts in a chip; `text` are raw bytes, `tag` is the kind of its element.
  void InsertChip(int index, std::string_view text, int tag);

  /// The text of a chip, whole and as it was put in.
  QString PlainText(int index) const;
  /// Where a chip is painted; empty where there is none.
  QRect ChipRect(int index) const;
  /// How much room all chips need.
  int ChipsWidth() const;

 signals:
  /// Ctrl and an arrow key: one place to the left (-1) or to the right (1).
  void moveRequested(int step);
  void deleteRequested();
  /// Insert opens the menu that inserts right of the selected chip, Shift+Insert the left one.
  void menuRequested(bool left);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  QSize tabSizeHint(int index) const override;
  QSize minimumTabSizeHint(int index) const override { return tabSizeHint(index); }

 private:
  QString ChipText(int index) const;
  void PaintChip(QPainter& painter, int index) const;
};

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
  void SetChipText(int index, std::string_view text);

  /// The text of a chip, whole and as it was put in.
  QString PlainText(int index) const;
  /// Where a chip is painted; empty where there is none.
  QRect ChipRect(int index) const;
  /// How much room all chips need.
  int ChipsWidth() const;
  /// Of a chip, also while there is none.
  int ChipHeight() const;
  /// Asks for the menu of the selected chip, as the menu key does.
  void AskForMenu();

 signals:
  /// The selected chip is to go that many places to the right, or to the left if below 0.
  void moveRequested(int step);
  void deleteRequested();
  /// Insert opens the menu that inserts right of the selected chip, Shift+Insert the left one.
  void menuRequested(bool left);
  /// The menu of all commands for the selected chip, at a place on the screen.
  void contextMenuRequested(const QPoint& place);
  /// Enter or a double click on a text chip, which is the selected one then.
  void editRequested();

 protected:
  void contextMenuEvent(QContextMenuEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  QSize tabSizeHint(int index) const override;
  QSize minimumTabSizeHint(int index) const override { return tabSizeHint(index); }

 private:
  QString ChipText(int index) const;
  bool IsText(int index) const;
  void PaintChip(QPainter& painter, int index) const;
};

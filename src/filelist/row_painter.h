#pragma once

#include <QStyledItemDelegate>

class QTextLayout;

/// Paints the rows of a list of files by what its model tells in `ListRole`: group rows across all
/// columns, marks as pills, names with their changed part. Check boxes are the style's own; a click
/// anywhere in the cell of one switches it. Works in any QAbstractItemView with a header; only what
/// is visible costs anything.
class RowPainter : public QStyledItemDelegate {
  Q_OBJECT

 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;
  bool editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;
  /// Shows the whole text of a cell that is too narrow for it.
  bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                 const QModelIndex& index) override;
};

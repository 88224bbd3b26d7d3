#pragma once

#include <QWidget>

class QAbstractItemView;
class QLabel;

/// What stands in the middle of a table for as long as it has no rows: a picture, a title, a note,
/// and a control below them. The texts describe the table then, since all that it tells screen
/// readers of is its cells.
class EmptyText : public QWidget {
 public:
  /// Lies over the viewport of `view`, which has its model already.
  explicit EmptyText(QAbstractItemView& view);

  /// Without a title nothing is shown.
  void SetTexts(const QString& title, const QString& note);
  /// A control below the texts; null: none. It is a sibling of the view.
  void SetLink(QWidget* link);

  /// Makes the picture anew, in the colours of the look.
  void MakePicture();
  /// Lays itself over the viewport anew.
  void Place();

 private:
  void LayOut();
  void ShowOrHide();
  void Describe(bool shown);
  void PlaceLink();

  QAbstractItemView& view_;
  QLabel* picture_;
  QLabel* title_;
  QLabel* note_;
  QWidget* room_;  ///< where the link stands
  QWidget* link_ = nullptr;
  QString described_;  ///< how the view is described while it is empty
};

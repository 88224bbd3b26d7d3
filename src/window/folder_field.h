#pragma once

#include <QLineEdit>
#include <QPointer>

class FolderOffers;
class Folders;

/// A field for the path of a folder. While one is typed, the folders are offered with which it may
/// go on; Down and Up select one, Enter, Tab or a click takes it.
class FolderField : public QLineEdit {
  Q_OBJECT

 public:
  /// `folders` outlives it.
  FolderField(QWidget* parent, Folders& folders);

  /// Puts the user's own folder in the place of "~" at the beginning.
  void TakeHome();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  bool focusNextPrevChild(bool next) override;

 private:
  Folders& folders_;
  QPointer<FolderOffers> offers_;  ///< made when something is typed first
};

#pragma once

#include <QObject>
#include <QTimer>
#include <future>
#include <string>

#include "platform/folder_state.h"

class FieldSign;
class Folders;
class QLineEdit;

/// Says at the field of a folder what would keep a command from using it: by a sign at the right
/// end of the field, by its tooltip and its description. It holds nothing back.
///
/// What the text tells is said at once. The disk is looked at beside the window, so a slow one
/// never holds up the keys: when the field is left, is filled from elsewhere, shows, can be used
/// again or its window comes to the front.
class FolderSign : public QObject {
  Q_OBJECT

 public:
  /// Lives as long as `field`, which has its name; `folders` outlives it. A folder to write to has
  /// to be there or to be made, and to be named by a whole path; one to read is not missed while
  /// there is no text.
  FolderSign(QLineEdit* field, Folders& folders, FolderUse use);

  /// Whether nothing is being looked at.
  bool Settled() const { return !answer_.valid(); }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void TextChanged();
  /// The folder as the system knows it.
  std::string Path() const;
  /// What is wrong with the text itself.
  QString WrongWithText() const;
  void LookAtDisk();
  void LookForAnswer();

  QLineEdit* field_;
  Folders& folders_;
  FolderUse use_;
  FieldSign* sign_;
  QTimer look_;
  std::string asked_;  ///< the path whose answer is awaited
  std::future<FolderState> answer_;
};

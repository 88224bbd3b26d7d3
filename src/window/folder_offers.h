#pragma once

#include <QListView>
#include <QTimer>
#include <future>
#include <string>
#include <vector>

class Folders;
class QLineEdit;
class QStandardItemModel;

/// The folders with which a typed path may go on, in a list below its field, each closed by the
/// separator; hidden ones only where the name begins with ".". A folder is read beside the window,
/// so a slow one never holds up the keys. The list takes neither focus nor clicks beside it: while
/// it shows, every button and key of the window works.
class FolderOffers : public QListView {
  Q_OBJECT

 public:
  /// Lives as long as the window of `field`; `folders` outlives it.
  FolderOffers(QLineEdit* field, Folders& folders);

  /// Offers what fits the text of the field, now or when it is known.
  void Follow();
  /// Offers nothing until the next `Follow`, which reads the folder anew.
  void Forget();
  /// Whether nothing is being read.
  bool Settled() const { return !answer_.valid(); }
  /// Does what the key does in the list. False when it means nothing there.
  bool Takes(int key);
  /// Puts the selected folder into the field; false when none is.
  bool TakeSelected();

 private:
  /// The folder whose folders the text of the field may go on with, as the system knows it; empty
  /// where the text is no whole path.
  std::string TypedFolder() const;
  void Ask(const std::string& folder);
  void LookForAnswer();
  void Offer();
  void Step(int by);
  void Place();

  QLineEdit* field_;
  Folders& folders_;
  QStandardItemModel* model_;
  QTimer look_;
  std::string folder_;              ///< asked for last, as the system knows it
  std::vector<std::string> names_;  ///< of the folders in it
  std::future<std::vector<std::string>> answer_;
};

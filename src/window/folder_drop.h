#pragma once

#include <QObject>
#include <functional>
#include <map>
#include <string>

#include "platform/files.h"

class QMimeData;
class QWidget;

/// Takes folders that are dropped on controls: the first entry of the drop, a file for the folder
/// that it is in, always with the closing separator. Anything else that is dropped is the control's
/// own business.
class FolderDrop : public QObject {
  Q_OBJECT

 public:
  using Take = std::function<void(const std::string& folder)>;

  /// `files` outlives it.
  explicit FolderDrop(FileSystem& files, QObject* parent);

  void Watch(QWidget* target, Take take);

  /// The path of the first entry in `data`, in the bytes of the system; empty unless it is a link
  /// to a file of this machine (RFC 8089: no host, or "localhost").
  static std::string FirstPath(const QMimeData& data);

 protected:
  bool eventFilter(QObject* target, QEvent* event) override;

 private:
  FileSystem& files_;
  std::map<QObject*, Take> takes_;
};

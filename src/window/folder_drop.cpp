#include "window/folder_drop.h"

#include <QDropEvent>
#include <QMimeData>
#include <QUrl>
#include <QWidget>
#include <utility>

#include "common/drives.h"
#include "trace/err_trace.h"

FolderDrop::FolderDrop(FileSystem& files, QObject* parent) : QObject(parent), files_(files) {}

void FolderDrop::Watch(QWidget* target, Take take) {
  target->setAcceptDrops(true);
  target->installEventFilter(this);
  takes_[target] = std::move(take);
}

std::string FolderDrop::FirstPath(const QMimeData& data) {
  const QUrl link = data.urls().value(0);
  const bool here = link.host().isEmpty() || link.host() == QLatin1String("localhost");
  if (!link.isLocalFile() || !here) return {};
  return QByteArray::fromPercentEncoding(link.path(QUrl::FullyEncoded).toLatin1()).toStdString();
}

bool FolderDrop::eventFilter(QObject* target, QEvent* event) {
  const bool dropped = event->type() == QEvent::Drop;
  if (!dropped && event->type() != QEvent::DragEnter && event->type() != QEvent::DragMove) {
    return false;
  }
  // A drag that enters is a drop event to Qt as well.
  auto* drop = static_cast<QDropEvent*>(event);
  const std::string path = FirstPath(*drop->mimeData());
  if (path.empty()) return false;
  drop->setDropAction(Qt::CopyAction);  // the entry stays where it is
  drop->accept();
  if (!dropped) return true;
  ErrTrace::top("FolderDrop.Drop", [&] {
    if (const auto folder = mMain::FolderOf(files_, path)) takes_.at(target)(*folder);
  });
  return true;
}

#include "platform/folders_qt.h"

#include <QStandardPaths>

#include "platform/text_qt.h"

std::string QtFolders::Documents() {
  return text::FromQt(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
}

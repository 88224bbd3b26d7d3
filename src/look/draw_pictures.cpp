#include <QDir>
#include <QFile>
#include <QImage>
#include <QTextStream>

#include "look/sheet_pictures.h"

/// A step of the build: draws the pictures of the style sheet into a folder, and the list by which
/// they become resources of the program.
///
///     quorvane_pictures FOLDER
int main(int argc, char** argv) {
  if (argc != 2 || !QDir().mkpath(QFile::decodeName(argv[1]))) return 1;
  const QDir folder(QFile::decodeName(argv[1]));
  QFile list(folder.filePath(QStringLiteral("look.qrc")));
  if (!list.open(QIODevice::WriteOnly)) return 1;
  QTextStream lines(&list);
  lines << "<RCC><qresource prefix=\"/look\">\n";
  for (const bool dark : {false, true}) {
    Look::Current().Choose(true, dark);
    for (const SheetPicture& picture : kSheetPictures) {
      for (int scale = 1; scale <= 3; ++scale) {
        const QString name = picture.FileName(dark, scale);
        const QImage drawn =
            Look::Current().Drawn(picture.drawing, picture.role, picture.size, scale);
        if (!drawn.save(folder.filePath(name))) return 1;
        lines << "<file>" << name << "</file>\n";
      }
    }
  }
  lines << "</qresource></RCC>\n";
}

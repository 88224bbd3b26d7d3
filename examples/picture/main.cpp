// Shows the animated pictures named on the command line in a row; a double click edits one.
#include <QApplication>
#include <QHBoxLayout>
#include <QTextStream>
#include <QWidget>

#include "picture/animated_picture.h"
#include "picture/picture_property_page.h"

namespace {

class Editor : public QObject {
 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() != QEvent::MouseButtonDblClick) return false;
    PicturePropertyPage::edit(static_cast<AnimatedPicture*>(watched), nullptr);
    return true;
  }
};

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  Editor editor;
  QWidget window;
  QHBoxLayout row(&window);
  for (const QString& path : application.arguments().mid(1)) {
    auto* picture = new AnimatedPicture(&window);
    QObject::connect(picture, &AnimatedPicture::failed, [path](const QString& reason) {
      QTextStream(stderr) << path << ": " << reason << '\n';
    });
    picture->setInteractive(true);
    picture->setSource(path);
    picture->installEventFilter(&editor);
    row.addWidget(picture);
  }
  window.show();
  return application.exec();
}

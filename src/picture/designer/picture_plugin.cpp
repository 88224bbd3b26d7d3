#include "picture/designer/picture_plugin.h"

#include <QIcon>
#include <QPainter>
#include <QtDesigner/QDesignerFormEditorInterface>
#include <QtDesigner/QExtensionFactory>
#include <QtDesigner/QExtensionManager>

#include "picture/animated_picture.h"
#include "picture/designer/picture_menu.h"

namespace {

class PictureMenuFactory : public QExtensionFactory {
 public:
  using QExtensionFactory::QExtensionFactory;

 protected:
  QObject* createExtension(QObject* object, const QString& wanted, QObject* parent) const override {
    auto* picture = qobject_cast<AnimatedPicture*>(object);
    if (picture == nullptr || wanted != Q_TYPEID(QDesignerTaskMenuExtension)) return nullptr;
    return new PictureMenu(picture, parent);
  }
};

// Two leaves of a film with a sign to play on the front one.
QPixmap DrawnIcon(int size) {
  QPixmap drawn(size, size);
  drawn.fill(Qt::transparent);
  QPainter painter(&drawn);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.scale(size / 22.0, size / 22.0);
  painter.setPen(QPen(QColor(0x1d, 0x5f, 0xa9), 1.2));
  painter.setBrush(QColor(0xc9, 0xe0, 0xf8));
  painter.drawRoundedRect(QRectF(6, 3, 13, 11), 2, 2);
  painter.setBrush(QColor(0x3a, 0x7c, 0xc9));
  painter.drawRoundedRect(QRectF(3, 7, 13, 11), 2, 2);
  painter.setPen(Qt::NoPen);
  painter.setBrush(Qt::white);
  painter.drawPolygon(QPolygonF({{7.5, 9.5}, {12.5, 12.5}, {7.5, 15.5}}));
  return drawn;
}

}  // namespace

QString PicturePlugin::name() const {
  return QStringLiteral("AnimatedPicture");
}

QString PicturePlugin::group() const {
  return QStringLiteral("Display Widgets");
}

QString PicturePlugin::toolTip() const {
  return tr("Plays an animated picture");
}

QString PicturePlugin::whatsThis() const {
  return tr("Plays an animated picture from a file or a resource, and shows still ones.");
}

QString PicturePlugin::includeFile() const {
  return QStringLiteral("picture/animated_picture.h");
}

QString PicturePlugin::domXml() const {
  return QStringLiteral(
      "<ui language=\"c++\"><widget class=\"AnimatedPicture\" name=\"animatedPicture\">"
      "<property name=\"geometry\"><rect><x>0</x><y>0</y><width>120</width><height>120</height>"
      "</rect></property></widget></ui>");
}

QIcon PicturePlugin::icon() const {
  QIcon icon;
  for (const int size : {22, 44}) icon.addPixmap(DrawnIcon(size));
  return icon;
}

void PicturePlugin::initialize(QDesignerFormEditorInterface* editor) {
  if (initialized_) return;
  initialized_ = true;
  QExtensionManager* manager = editor->extensionManager();
  if (manager == nullptr) return;
  manager->registerExtensions(new PictureMenuFactory(manager),
                              Q_TYPEID(QDesignerTaskMenuExtension));
}

QWidget* PicturePlugin::createWidget(QWidget* parent) {
  return new AnimatedPicture(parent);
}

#pragma once

#include <QObject>
#include <QtUiPlugin/QDesignerCustomWidgetInterface>

/// Offers AnimatedPicture in Designer's widget box, and its property page in the menu of each that
/// stands in a form.
class PicturePlugin : public QObject, public QDesignerCustomWidgetInterface {
  Q_OBJECT
  Q_PLUGIN_METADATA(IID "org.qt-project.Qt.QDesignerCustomWidgetInterface")
  Q_INTERFACES(QDesignerCustomWidgetInterface)

 public:
  QString name() const override;
  QString group() const override;
  QString toolTip() const override;
  QString whatsThis() const override;
  QString includeFile() const override;
  QString domXml() const override;
  QIcon icon() const override;
  bool isContainer() const override { return false; }
  bool isInitialized() const override { return initialized_; }
  void initialize(QDesignerFormEditorInterface* editor) override;
  QWidget* createWidget(QWidget* parent) override;

 private:
  bool initialized_ = false;
};

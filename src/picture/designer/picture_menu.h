#pragma once

#include <QAction>
#include <QObject>
#include <QtDesigner/QDesignerTaskMenuExtension>

class AnimatedPicture;

/// What Designer's menu of a picture in a form has besides: its property page.
class PictureMenu : public QObject, public QDesignerTaskMenuExtension {
  Q_OBJECT
  Q_INTERFACES(QDesignerTaskMenuExtension)

 public:
  PictureMenu(AnimatedPicture* picture, QObject* parent);

  QAction* preferredEditAction() const override { return edit_; }
  QList<QAction*> taskActions() const override { return {edit_}; }

 private:
  void Edit();

  AnimatedPicture* picture_;
  QAction* edit_;
};

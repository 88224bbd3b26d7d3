#pragma once

#include <QAction>
#include <QObject>
#include <QPointer>
#include <QtDesigner/QDesignerTaskMenuExtension>

#include "picture/animated_picture.h"

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

  QPointer<AnimatedPicture> picture_;
  QAction* edit_;
};

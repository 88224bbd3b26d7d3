#include "picture/accessible_picture.h"

#include <QAccessibleWidget>

#include "picture/animated_picture.h"

namespace {

class AccessiblePicture : public QAccessibleWidget, public QAccessibleImageInterface {
 public:
  explicit AccessiblePicture(AnimatedPicture* picture) : QAccessibleWidget(picture) {}

  QAccessible::Role role() const override {
    return Picture().animated() ? QAccessible::Animation : QAccessible::Graphic;
  }

  QAccessible::State state() const override {
    QAccessible::State state = QAccessibleWidget::state();
    state.animated = Picture().playing();
    return state;
  }

  QString text(QAccessible::Text kind) const override {
    const QString own = QAccessibleWidget::text(kind);
    return kind == QAccessible::Description && own.isEmpty() ? Picture().failure() : own;
  }

  QStringList actionNames() const override {
    QStringList names = QAccessibleWidget::actionNames();
    if (IsPressable()) names.prepend(pressAction());
    return names;
  }

  void doAction(const QString& action) override {
    if (action == pressAction()) {
      if (!IsPressable()) return;
      Picture().playing() ? Picture().pause() : Picture().play();
    } else {
      QAccessibleWidget::doAction(action);
    }
  }

  void* interface_cast(QAccessible::InterfaceType type) override {
    if (type == QAccessible::ImageInterface) return static_cast<QAccessibleImageInterface*>(this);
    return QAccessibleWidget::interface_cast(type);
  }

  QString imageDescription() const override { return text(QAccessible::Description); }
  QSize imageSize() const override { return Picture().size(); }
  QPoint imagePosition() const override { return Picture().mapToGlobal(QPoint()); }

 private:
  bool IsPressable() const { return Picture().takesClicks() && Picture().isEnabled(); }
  AnimatedPicture& Picture() const { return *static_cast<AnimatedPicture*>(widget()); }
};

QAccessibleInterface* Made(const QString&, QObject* object) {
  auto* picture = qobject_cast<AnimatedPicture*>(object);
  return picture != nullptr ? new AccessiblePicture(picture) : nullptr;
}

}  // namespace

void MakeAccessible() {
  static const bool installed = (QAccessible::installFactory(Made), true);
  Q_UNUSED(installed);
}

void TellPlaying(AnimatedPicture& picture) {
  QAccessible::State changed;
  changed.animated = true;
  QAccessibleStateChangeEvent event(&picture, changed);
  QAccessible::updateAccessibility(&event);
}

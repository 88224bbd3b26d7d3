#include "look/accessible_role.h"

#include <QAccessibleWidget>
#include <QVariant>
#include <QWidget>

namespace {

constexpr const char* kRole = "accessibleRole";

QAccessibleInterface* Make(const QString&, QObject* object) {
  const QVariant role = object->property(kRole);
  auto* widget = qobject_cast<QWidget*>(object);
  if (widget == nullptr || !role.isValid()) return nullptr;
  return new QAccessibleWidget(widget, static_cast<QAccessible::Role>(role.toInt()));
}

}  // namespace

void SetAccessibleRole(QWidget& widget, QAccessible::Role role) {
  static const bool installed = (QAccessible::installFactory(Make), true);
  Q_UNUSED(installed);
  widget.setProperty(kRole, static_cast<int>(role));
}

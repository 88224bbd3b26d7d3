#include "filelist/row_menu.h"

#include <QAction>
#include <QMenu>

#include "filelist/check_operations.h"
#include "look/menus.h"
#include "look/shortcuts.h"
#include "platform/qt/text_qt.h"

namespace {

/// The first command of a family begins a group, and one that stands apart from its own.
constexpr struct {
  RowCommand id;
  const char* caption;
  bool begin_group;
} kFileCommands[] = {
    {kOpenInExplorer, QT_TRANSLATE_NOOP("QMenu", "Open in Explorer"), true},
    {kExecute, QT_TRANSLATE_NOOP("QMenu", "Execute"), false},
    {kProperties, QT_TRANSLATE_NOOP("QMenu", "Properties"), true},
};

void AddCheckOperations(QMenu& menu, bool in_group) {
  bool begin_group = true;
  for (const CheckOperation& operation : kCheckOperations) {
    if (operation.in_group != in_group) continue;
    QAction* action = AddButton(menu, operation.id, text::ToQt(operation.caption), begin_group);
    begin_group = false;
    // Only told here: the window itself answers to the keys, and twice would be ambiguous.
    action->setShortcut(KeysOf(operation.keys));
    action->setShortcutContext(Qt::WidgetShortcut);
    action->setShortcutVisibleInContextMenu(true);
  }
}

}  // namespace

void FillRowMenu(QMenu& menu, const RowMenuPlace& place, const std::function<void(int)>& execute) {
  if (place.has_boxes) AddCheckOperations(menu, false);
  if (place.grouped) AddCheckOperations(menu, true);
  for (const auto& command : kFileCommands) {
    if (place.on_file) {
      AddButton(menu, command.id, QMenu::tr(command.caption), command.begin_group);
    }
  }
  QObject::connect(&menu, &QMenu::triggered, &menu,
                   [execute](const QAction* action) { execute(action->data().toInt()); });
}

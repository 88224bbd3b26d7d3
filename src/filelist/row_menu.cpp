#include "filelist/row_menu.h"

#include <QAction>
#include <QMenu>

#include "filelist/check_operations.h"
#include "look/menus.h"
#include "look/shortcuts.h"
#include "platform/qt/text_qt.h"

namespace {

void AddCheckOperations(QMenu& menu, bool in_group) {
  bool begin_group = true;
  for (const CheckOperation& operation : kCheckOperations) {
    if (operation.in_group != in_group) continue;
    QAction* action = AddButton(menu, operation.id, text::ToQt(operation.caption), begin_group);
    begin_group = false;
    TellKeys(action, operation.keys);
  }
}

void AddFileCommands(QMenu& menu) {
  for (const FileCommand& command : kFileCommands) {
    AddButton(menu, command.id, text::ToQt(command.caption), command.begin_group);
  }
}

}  // namespace

void PopUpRowMenu(QWidget* parent, const RowMenuPlace& place, const QPoint& at,
                  const std::function<void(int)>& execute) {
  auto* popup = new QMenu(parent);
  popup->setObjectName(QStringLiteral("Popup"));
  popup->setAttribute(Qt::WA_DeleteOnClose);
  if (place.has_boxes) AddCheckOperations(*popup, false);
  if (place.grouped) AddCheckOperations(*popup, true);
  if (place.on_file) AddFileCommands(*popup);
  QObject::connect(popup, &QMenu::triggered, popup,
                   [execute](const QAction* action) { execute(action->data().toInt()); });
  popup->popup(at);
}

#include "filelist/row_menu.h"

#include <QAction>
#include <QMenu>

#include "look/menus.h"

namespace {

constexpr bool RowMenuPlace::*kInGroups = &RowMenuPlace::grouped;
constexpr bool RowMenuPlace::*kOnBoxes = &RowMenuPlace::has_boxes;
constexpr bool RowMenuPlace::*kOnFile = &RowMenuPlace::on_file;

constexpr struct {
  RowCommand id;
  const char* caption;
  bool begin_group;
  bool RowMenuPlace::*offered;
} kCommands[] = {
    {kCheckAll, QT_TRANSLATE_NOOP("QMenu", "Check all"), false, kOnBoxes},
    {kCheckByMask, QT_TRANSLATE_NOOP("QMenu", "Check by mask"), false, kOnBoxes},
    {kUnCheckAll, QT_TRANSLATE_NOOP("QMenu", "Uncheck all"), false, kOnBoxes},
    {kUnCheckByMask, QT_TRANSLATE_NOOP("QMenu", "Uncheck by mask"), false, kOnBoxes},
    {kInvertSelection, QT_TRANSLATE_NOOP("QMenu", "Invert selection"), false, kOnBoxes},
    {kCheckAllInGroup, QT_TRANSLATE_NOOP("QMenu", "Check all in group"), true, kInGroups},
    {kCheckByMaskInGroup, QT_TRANSLATE_NOOP("QMenu", "Check by mask in group"), false, kInGroups},
    {kUnCheckAllInGroup, QT_TRANSLATE_NOOP("QMenu", "Uncheck all in group"), false, kInGroups},
    {kUnCheckByMaskInGroup, QT_TRANSLATE_NOOP("QMenu", "Uncheck by mask in group"), false,
     kInGroups},
    {kInvertSelectionInGroup, QT_TRANSLATE_NOOP("QMenu", "Invert selection in group"), false,
     kInGroups},
    {kOpenInExplorer, QT_TRANSLATE_NOOP("QMenu", "Open in Explorer"), true, kOnFile},
    {kExecute, QT_TRANSLATE_NOOP("QMenu", "Execute"), false, kOnFile},
    {kProperties, QT_TRANSLATE_NOOP("QMenu", "Properties"), true, kOnFile},
};

}  // namespace

void FillRowMenu(QMenu& menu, const RowMenuPlace& place, const std::function<void(int)>& execute) {
  for (const auto& command : kCommands) {
    if (!(place.*command.offered)) continue;
    AddButton(menu, command.id, QMenu::tr(command.caption), command.begin_group);
  }
  QObject::connect(&menu, &QMenu::triggered, &menu,
                   [execute](const QAction* action) { execute(action->data().toInt()); });
}

#include "filelist/row_menu.h"

#include <QAction>
#include <QMenu>

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
    {kCheckAll, "Check all", false, kOnBoxes},
    {kCheckByMask, "Check by mask", false, kOnBoxes},
    {kUnCheckAll, "Uncheck all", false, kOnBoxes},
    {kUnCheckByMask, "Uncheck by mask", false, kOnBoxes},
    {kInvertSelection, "Invert selection", false, kOnBoxes},
    {kCheckAllInGroup, "Check all in group", true, kInGroups},
    {kCheckByMaskInGroup, "Check by mask in group", false, kInGroups},
    {kUnCheckAllInGroup, "Uncheck all in group", false, kInGroups},
    {kUnCheckByMaskInGroup, "Uncheck by mask in group", false, kInGroups},
    {kInvertSelectionInGroup, "Invert selection in group", false, kInGroups},
    {kOpenInExplorer, "Open in Explorer", true, kOnFile},
    {kExecute, "Execute", false, kOnFile},
    {kProperties, "Properties", true, kOnFile},
};

}  // namespace

void FillRowMenu(QMenu& menu, const RowMenuPlace& place, const std::function<void(int)>& execute) {
  for (const auto& command : kCommands) {
    if (!(place.*command.offered)) continue;
    AddButton(menu, command.id, QString::fromLatin1(command.caption), command.begin_group);
  }
  QObject::connect(&menu, &QMenu::triggered, &menu,
                   [execute](const QAction* action) { execute(action->data().toInt()); });
}

QAction* AddButton(QMenu& Controls, int ID, const QString& Caption, bool BeginGroup) {
  if (BeginGroup && !Controls.isEmpty()) Controls.addSeparator();
  QAction* button = Controls.addAction(Caption);
  button->setData(ID);
  return button;
}

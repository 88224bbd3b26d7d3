#include "rename/conflicts_dialog.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <algorithm>

#include "support/memory_settings.h"

TEST(ConflictsDialog, TakesTheTemplateOnOkOnlyAndHidesItWithNumberingOff) {
  const auto template_shown = [](const Form8& dialog) {
    const std::initializer_list<QWidget*> all = {
        dialog.Label2, dialog.fdConflictLeft, dialog.Label4, dialog.fdConflictRight, dialog.Label3};
    return std::ranges::count_if(all, &QWidget::isVisible);
  };
  for (const std::string end : {"OK", "Cancel", "closed"}) {
    SCOPED_TRACE(end);
    const bool taken = end == "OK";
    RunState state;
    MemorySettings settings;
    Form8 dialog(state, settings, nullptr);
    dialog.show();
    const QSize size = dialog.size();
    EXPECT_EQ(dialog.fdConflictLeft->selectedText(), QStringLiteral("_{"));
    EXPECT_EQ(template_shown(dialog), 5);
    dialog.fdConflictLeft->setText(QStringLiteral(" ("));
    dialog.fdConflictRight->clear();
    dialog.chConflict->click();
    EXPECT_EQ(template_shown(dialog), 0);
    EXPECT_EQ(dialog.size(), size);
    if (end == "closed") dialog.close();
    if (end != "closed") (taken ? dialog.bnOK : dialog.bnCancel)->click();
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(state.numbering.gConflictAddNumber, taken ? 0 : 1);
    EXPECT_EQ(state.numbering.gNumberLeft, taken ? " (" : "_{");
    EXPECT_EQ(state.numbering.gNumberRight, taken ? "" : "}");
    EXPECT_EQ(settings.values.contains({"Conflicts", "AddNumber"}), taken);
    EXPECT_EQ((settings.values[{"Conflicts", "NumberLeft"}]), taken ? " (" : "");
    EXPECT_TRUE(settings.values.contains({"Windows\\Conflicts", "MainLeft"}));
    EXPECT_GE(settings.flushes, 1);
    Form8 next(state, settings, nullptr);
    next.show();
    EXPECT_EQ(template_shown(next), taken ? 0 : 5);
    EXPECT_EQ(next.focusWidget() == next.chConflict, taken);
  }
}

#include "rename/conflicts_dialog.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "support/memory_settings.h"

TEST(ConflictsDialog, TakesTheTemplateOnOkOnly) {
  for (const std::string end : {"OK", "Cancel", "closed"}) {
    SCOPED_TRACE(end);
    const bool taken = end == "OK";
    RunState state;
    MemorySettings settings;
    Form8 dialog(state, settings, nullptr);
    dialog.show();
    EXPECT_EQ(dialog.fdConflictLeft->selectedText(), QStringLiteral("_{"));
    dialog.fdConflictLeft->setText(QStringLiteral(" ("));
    dialog.fdConflictRight->clear();
    dialog.chConflict->click();
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
  }
}

TEST(ConflictsDialog, HidesTheTemplateWithNumberingOff) {
  RunState state;
  MemorySettings settings;
  state.numbering.gConflictAddNumber = 0;
  Form8 dialog(state, settings, nullptr);
  dialog.show();
  const QSize size = dialog.size();
  const auto template_shown = [&] {
    return dialog.Label2->isVisible() + dialog.fdConflictLeft->isVisible() +
           dialog.Label4->isVisible() + dialog.fdConflictRight->isVisible() +
           dialog.Label3->isVisible();
  };
  EXPECT_EQ(template_shown(), 0);
  EXPECT_EQ(dialog.focusWidget(), dialog.chConflict);
  dialog.chConflict->click();
  EXPECT_EQ(template_shown(), 5);
  EXPECT_EQ(dialog.fdConflictLeft->text(), QStringLiteral("_{")) << "hidden, it keeps its text";
  EXPECT_EQ(dialog.size(), size);
}

#include "rename/conflicts_dialog.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "support/memory_settings.h"

namespace {

class ConflictsDialogTest : public testing::Test {
 protected:
  RunState state;
  MemorySettings settings;
};

}  // namespace

TEST_F(ConflictsDialogTest, TakesTheTemplateOnOkOnly) {
  const struct {
    const char* what;
    void (*end)(Form8&);
    bool taken;
  } table[] = {
      {"OK", [](Form8& dialog) { dialog.bnOK->click(); }, true},
      {"Cancel", [](Form8& dialog) { dialog.bnCancel->click(); }, false},
      {"closed", [](Form8& dialog) { dialog.close(); }, false},
  };
  for (const auto& row : table) {
    SCOPED_TRACE(row.what);
    state = RunState();
    settings = MemorySettings();
    Form8 dialog(state, settings, nullptr);
    dialog.show();
    EXPECT_EQ(dialog.fdConflictLeft->selectedText(), QStringLiteral("_{"));
    dialog.fdConflictLeft->setText(QStringLiteral(" ("));
    dialog.fdConflictRight->clear();
    dialog.chConflict->click();
    row.end(dialog);
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(state.numbering.gConflictAddNumber, row.taken ? 0 : 1);
    EXPECT_EQ(state.numbering.gNumberLeft, row.taken ? " (" : "_{");
    EXPECT_EQ(state.numbering.gNumberRight, row.taken ? "" : "}");
    std::vector<std::string> written = settings.written;
    if (row.taken) {
      ASSERT_GE(written.size(), 3u);
      EXPECT_EQ(written[0], "AddNumber=0");
      EXPECT_EQ(written[1], "NumberLeft= (");
      EXPECT_EQ(written[2], "NumberRight=");
    }
    EXPECT_EQ(settings.values.contains({"Conflicts", "AddNumber"}), row.taken);
    EXPECT_TRUE(settings.values.contains({"Windows\\Conflicts", "MainLeft"}));
    EXPECT_GE(settings.flushes, 1);
  }
}

TEST_F(ConflictsDialogTest, HidesTheTemplateWithNumberingOff) {
  state.numbering.gConflictAddNumber = 0;
  Form8 dialog(state, settings, nullptr);
  dialog.show();
  const QSize size = dialog.size();
  const auto template_shown = [&] {
    int count = 0;
    for (const QWidget* part :
         std::initializer_list<QWidget*>{dialog.Label2, dialog.fdConflictLeft, dialog.Label4,
                                         dialog.fdConflictRight, dialog.Label3}) {
      count += part->isVisible() ? 1 : 0;
    }
    return count;
  };
  EXPECT_EQ(template_shown(), 0);
  EXPECT_EQ(dialog.focusWidget(), dialog.chConflict);
  dialog.chConflict->click();
  EXPECT_EQ(template_shown(), 5);
  EXPECT_EQ(dialog.fdConflictLeft->text(), QStringLiteral("_{")) << "hidden, it keeps its text";
  EXPECT_EQ(dialog.size(), size);
}

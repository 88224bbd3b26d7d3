#include "filelist/mask_dialog.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QLineEdit>

#include "support/fake_services.h"
#include "support/keys.h"

TEST(MaskDialog, TakesAMaskThatIsNotEmptyAndShowsAFaultAtOnce) {
  FakeServices system;
  for (const bool accepted : {true, false}) {
    Form6 dialog(QStringLiteral("Check by mask"), "*.*", system.services, nullptr);
    dialog.show();
    EXPECT_EQ(dialog.fdMask->selectedText(), QStringLiteral("*.*"));
    dialog.fdMask->setText(QStringLiteral("  "));
    Press(dialog.fdMask, Qt::Key_Return);
    EXPECT_TRUE(dialog.isVisible());
    const QString own_words = dialog.fdMask->toolTip();
    for (const auto& [mask, sign] : {std::pair("*.a [b", true), std::pair(" [ab] ", false)}) {
      dialog.fdMask->setText(QLatin1String(mask));
      EXPECT_EQ(dialog.fdMask->actions().first()->isVisible(), sign);
      EXPECT_EQ(dialog.fdMask->accessibleDescription() == own_words, !sign);
    }
    Press(dialog.fdMask, accepted ? Qt::Key_Return : Qt::Key_Escape);
    EXPECT_EQ(dialog.OK, accepted);
    EXPECT_EQ(dialog.Mask, accepted ? "[ab]" : "");
  }
  EXPECT_EQ(system.prompts.told, std::vector<std::string>(2, "The mask field is empty."));
  EXPECT_TRUE((system.settings.values.contains({"Windows\\FileListMask", "MainLeft"})));
}

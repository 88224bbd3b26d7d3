#include "filelist/system_folder_dialog.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QPlainTextEdit>
#include <QPushButton>

#include "support/keys.h"
#include "support/memory_settings.h"

TEST(SystemFolderDialog, GoesOnByYesAndEnterAndStoresItsBoxAtOnce) {
  MemorySettings settings;
  Form4 dialog("/usr\n/lib\n", settings, nullptr);
  dialog.show();
  EXPECT_EQ(dialog.fdSystemFolders->toPlainText(), QStringLiteral("/usr\n/lib"));
  EXPECT_TRUE(dialog.chAllowSystemRename->isChecked());
  for (const char* stored : {"0", "1", "0"}) {
    dialog.chAllowSystemRename->click();
    EXPECT_EQ((settings.values[{"Settings", "CheckForSystemFolders"}]), stored);
  }
  EXPECT_EQ(settings.flushes, 3);
  for (const auto& [key, result] : {std::pair(Qt::Key_Return, QDialog::Accepted),
                                    std::pair(Qt::Key_Escape, QDialog::Rejected)}) {
    dialog.show();
    Press(dialog.fdSystemFolders, key);
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(dialog.result(), result);
  }
}

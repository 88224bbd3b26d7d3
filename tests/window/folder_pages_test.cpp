#include "window/folder_pages.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <vector>

#include "platform/qt/text_qt.h"
#include "support/keys.h"

namespace {

class FolderPagesTest : public testing::Test {
 protected:
  FolderPagesTest() {
    QObject::connect(&pages, &FolderPages::sourceFolderChanged, [this] { ++changed; });
    QObject::connect(&pages, &FolderPages::folderChosen, [this] { ++chosen; });
  }

  std::string answer;
  std::vector<std::string> starts;
  FolderPages pages{nullptr, [this](const std::string& start) {
                      starts.push_back(start);
                      return answer;
                    }};
  int changed = 0;
  int chosen = 0;
};

TEST_F(FolderPagesTest, ChoosesTheSourceFolderFromTheOneThatStands) {
  pages.SetSourceFolder("/pictures");
  changed = 0;
  pages.Command2->click();
  EXPECT_EQ(pages.Source().fdSourceFolder, "/pictures") << "cancelled";
  EXPECT_EQ(chosen, 0);

  answer = "/music";
  pages.Command2->click();
  EXPECT_EQ(pages.Source().fdSourceFolder, "/music/");
  EXPECT_EQ(changed, 1);
  pages.Command2->click();
  EXPECT_EQ(changed, 1);
  EXPECT_EQ(chosen, 2) << "the same folder again is a choice too";
  EXPECT_EQ(starts, (std::vector<std::string>{"/pictures", "/pictures", "/music/"}));
}

TEST_F(FolderPagesTest, ChoosesTheOutputFolderWithoutASourceSignal) {
  pages.fdDestination->setText(QStringLiteral("/old/"));
  answer = "/";
  pages.bnDestination->click();
  EXPECT_EQ(pages.Output().fdDestination, "/");
  EXPECT_EQ(starts, std::vector<std::string>{"/old/"});
  EXPECT_EQ(changed + chosen, 0);
}

TEST_F(FolderPagesTest, ClosesATypedOutputFolderWhenItIsLeftAndNoOther) {
  const struct {
    const char* typed;
    const char* left;
  } table[] = {{"/sorted", "/sorted/"}, {"/sorted/", "/sorted/"}, {"", ""}, {"sorted", "sorted"}};
  for (const auto& row : table) {
    SCOPED_TRACE(row.typed);
    pages.fdDestination->setText(QLatin1String(row.typed));
    Leave(pages.fdDestination);
    EXPECT_EQ(pages.Output().fdDestination, row.left);
    pages.SetSourceFolder(row.typed);
    Leave(pages.fdSourceFolder);
    EXPECT_EQ(pages.Source().fdSourceFolder, row.typed);
  }
}

TEST_F(FolderPagesTest, HidesTheOutputFolderWhereItIsNotUsed) {
  pages.fdDestination->setText(QStringLiteral("/sorted/"));
  for (const int mode : {0, 1, 2, 0}) {
    SCOPED_TRACE(mode);
    pages.cmbDestination->setCurrentIndex(mode);
    EXPECT_EQ(pages.fdDestination->isHidden(), mode == 0);
    EXPECT_EQ(pages.bnDestination->isHidden(), mode == 0);
    EXPECT_EQ(pages.chDestinationSubfolders->isHidden(), mode == 0);
    EXPECT_EQ(pages.Output().fdDestination, "/sorted/");
  }
}

}  // namespace

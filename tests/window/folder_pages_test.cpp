#include "window/folder_pages.h"

#include <gtest/gtest.h>

#include <QLineEdit>
#include <QPushButton>

#include "support/keys.h"

namespace {

struct FolderPagesTest : testing::Test {
  std::string answer, start;
  FolderPages pages{nullptr, [this](const std::string& from) { return start = from, answer; }};
};

TEST_F(FolderPagesTest, ChooseFoldersFromThoseThatStand) {
  pages.Show(SourceOptions{"/pictures", "", "", true});
  pages.Show(OutputOptions{kUseSourceFolder, "/old/"});
  std::string told;
  QObject::connect(&pages, &FolderPages::sourceFolderChanged, [&] { told += "changed "; });
  QObject::connect(&pages, &FolderPages::folderChosen, [&] { told += "chosen "; });
  const struct {
    QPushButton* button;
    const char *answer, *start, *source, *output, *told;
  } table[] = {
      {pages.Command2, "", "/pictures", "/pictures", "/old/", ""},
      {pages.Command2, "/music", "/pictures", "/music/", "/old/", "changed chosen "},
      {pages.Command2, "/music", "/music/", "/music/", "/old/", "chosen "},
      {pages.bnDestination, "/", "/old/", "/music/", "/", ""},
  };
  for (const auto& row : table) {
    answer = row.answer;
    told = "";
    row.button->click();
    EXPECT_EQ(start, row.start);
    EXPECT_EQ(pages.Source().fdSourceFolder, row.source);
    EXPECT_EQ(pages.Output().fdDestination, row.output);
    EXPECT_EQ(told, row.told);
  }
}

TEST_F(FolderPagesTest, CloseATypedOutputFolderWhenItIsLeftAndNoOther) {
  const std::pair<const char*, const char*> table[] = {
      {"/sorted", "/sorted/"}, {"/sorted/", "/sorted/"}, {"", ""}, {"sorted", "sorted"}};
  for (const auto& [typed, left] : table) {
    pages.fdDestination->setText(QLatin1String(typed));
    Leave(pages.fdDestination);
    EXPECT_EQ(pages.Output().fdDestination, left);
    pages.SetSourceFolder(typed);
    Leave(pages.fdSourceFolder);
    EXPECT_EQ(pages.Source().fdSourceFolder, typed);
  }
}

}  // namespace

#include "window/folder_pages.h"

#include <gtest/gtest.h>

#include <QDeadlineTimer>
#include <QDropEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QPushButton>
#include <QToolButton>
#include <filesystem>

#include "platform/qt/text_qt.h"
#include "support/fake_services.h"
#include "support/keys.h"
#include "support/temp_folder.h"
#include "window/folder_drop.h"
#include "window/folder_field.h"
#include "window/folder_offers.h"
#include "window/folder_sign.h"

/// Waits until a thread of a field has told what it found.
template <class Part>
static Part* Settled(QWidget* field) {
  auto* part = field->findChild<Part*>();
  for (const QDeadlineTimer end(5000); !end.hasExpired() && !part->Settled();) {
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 10);
  }
  return part;
}

struct FolderPagesTest : testing::Test {
  std::string answer, start;
  FakeFolders folders;
  FolderPages pages{folders, nullptr,
                    [this](const std::string& from) { return start = from, answer; }};

  /// What is offered for the text that the field holds, as if it were typed.
  std::string Offered() {
    Press(pages.fdSourceFolder, Qt::Key_unknown, Qt::NoModifier, QStringLiteral("x"));
    Press(pages.fdSourceFolder, Qt::Key_Backspace);
    auto* offers = Settled<FolderOffers>(&pages);
    std::string shown;
    for (int i = 0; offers->isVisible() && i < offers->model()->rowCount(); ++i) {
      shown += offers->model()->index(i, 0).data().toString().toStdString() + " ";
    }
    return shown;
  }
};

TEST_F(FolderPagesTest, ChooseFoldersFromThoseThatStand) {
  pages.Show(SourceOptions{"/pictures", "", "", true});
  pages.Show(OutputOptions{kUseSourceFolder, "/old/"});
  std::string told;
  QObject::connect(&pages, &FolderPages::sourceFolderChanged, [&] { told += "changed "; });
  QObject::connect(&pages, &FolderPages::folderChosen, [&] { told += "chosen "; });
  const std::tuple<QPushButton*, const char*, const char*, const char*, const char*, const char*>
      table[] = {
          {pages.Command2, "", "/pictures", "/pictures", "/old/", ""},
          {pages.Command2, "/music", "/pictures", "/music/", "/old/", "changed chosen "},
          {pages.Command2, "/music", "/music/", "/music/", "/old/", "chosen "},
          {pages.bnDestination, "/", "/old/", "/music/", "/", ""},
      };
  for (const auto& [button, chosen, begun, source, output, expected] : table) {
    answer = chosen;
    told = "";
    button->click();
    EXPECT_EQ(start, begun);
    EXPECT_EQ(pages.Source().fdSourceFolder, source);
    EXPECT_EQ(pages.Output().fdDestination, output);
    EXPECT_EQ(told, expected);
  }
}

TEST_F(FolderPagesTest, CompleteATypedFolderWhenItIsLeft) {
  const char* const table[][3] = {{"/sorted", "/sorted/", "/sorted"},
                                  {"/sorted/", "/sorted/", "/sorted/"},
                                  {"", "", ""},
                                  {"sorted", "sorted", "sorted"},
                                  {"~", "/home/me/", "/home/me/"},
                                  {"~/a", "/home/me/a/", "/home/me/a"}};
  for (const auto& [typed, left, source] : table) {
    pages.fdDestination->setText(QLatin1String(typed));
    Leave(pages.fdDestination);
    EXPECT_EQ(pages.Output().fdDestination, left);
    pages.SetSourceFolder(typed);
    Leave(pages.fdSourceFolder);
    EXPECT_EQ(pages.Source().fdSourceFolder, source);
  }
}

TEST_F(FolderPagesTest, OfferTheFoldersThatATypedOneMayGoOnWith) {
  const TempFolder folder;
  for (const char* name : {"Ab", "a10", "a2", "b\xFF", ".hidden"}) {
    std::filesystem::create_directories(folder / name);
  }
  folder.Write("afile", "");
  const std::pair<const char*, const char*> table[] = {{"/", "a2/ a10/ Ab/ b\xEF\xBF\xBD/ "},
                                                       {"/a", "a2/ a10/ Ab/ "},
                                                       {"/.", ".hidden/ "},
                                                       {"/c", ""}};
  pages.show();
  pages.activateWindow();
  pages.fdSourceFolder->setFocus();
  for (const auto& [typed, offers] : table) {
    pages.SetSourceFolder(folder.path() + typed);
    EXPECT_EQ(Offered(), offers) << typed;
  }
  pages.SetSourceFolder(folder.path() + "/./");
  Press(pages.fdSourceFolder, Qt::Key_unknown, Qt::NoModifier, QStringLiteral("x"));
  pages.SetSourceFolder("elsewhere/");
  EXPECT_EQ(Offered(), "") << "not what was read of the other path";
  int asked = 0;
  QObject::connect(&pages, &FolderPages::listAsked, [&] { ++asked; });
  pages.SetSourceFolder(folder.path() + "/b");
  Offered();
  for (const int key : {Qt::Key_Down, Qt::Key_Return}) Press(pages.fdSourceFolder, key);
  EXPECT_EQ(pages.Source().fdSourceFolder, folder.path() + "/b\xFF/");
  EXPECT_EQ(asked, 0) << "this Enter took the offer";
  Press(pages.fdSourceFolder, Qt::Key_Return);
  EXPECT_EQ(asked, 1);
}

TEST_F(FolderPagesTest, SayAtTheFieldWhatKeepsItsFolderFromUse) {
  const TempFolder folder;
  folder.Write("file", "");
  folder.MakeFolder("there");
  const std::tuple<FolderField*, std::string, std::string, bool> table[] = {
      {pages.fdDestination, "", "No folder given", true},
      {pages.fdDestination, folder / "there/", "", false},
      {pages.fdDestination, "there/", "Not a whole path: begin with “/”", true},
      {pages.fdDestination, folder / "file/", "This is a file", true},
      {pages.fdDestination, folder / "a/b/", "This folder will be made", false},
      {pages.fdDestination, folder / "file/b/", "There is a file where a folder should be.", true},
      {pages.fdSourceFolder, "", "", false},
      {pages.fdSourceFolder, folder / "a/", "The specified folder was not found.", true},
      {pages.fdSourceFolder, folder / "there", "", false},
      {pages.fdSourceFolder, folder / "file", "This is a file", true},
  };
  pages.Show(OutputOptions{kCopyTo, ""});
  pages.show();
  for (const auto& [field, path, words, sign] : table) {
    pages.setCurrentWidget(field->parentWidget());
    field->setText(text::ToQt(path));
    Settled<FolderSign>(field);
    const std::string said = field->accessibleDescription().toStdString();
    const bool own = said.find("; ") != said.npos;  // what the field is for
    EXPECT_EQ(own ? "" : said, words) << path;
    EXPECT_EQ(field->findChild<QToolButton*>()->isVisible(), sign) << path;
  }
}

TEST_F(FolderPagesTest, TakeWhatIsDropped) {
  const TempFolder folder;
  folder.MakeFolder("bad\xFF");
  folder.Write("bad\xFF/a file", "");
  const auto link = "file://" + folder.path();
  const std::pair<std::string, std::string> table[] = {
      {link, folder.path() + "/"},
      {link + "/bad%FF/a%20file\r\n" + link, folder.path() + "/bad\xFF/"},
      {"file://localhost" + folder.path(), folder.path() + "/"},
      {link + "/none", ""},
      {"file://elsewhere" + folder.path(), ""},
      {"https://example.org/", ""}};
  const auto files = MakePosixFileSystem();
  for (const auto& [links, taken] : table) {
    QLineEdit field;
    FolderDrop drops(*files, nullptr);
    std::string took;
    drops.Watch(&field, [&](const std::string& path) { took = path; });
    QMimeData data;
    data.setData(QStringLiteral("text/uri-list"), QByteArray::fromStdString(links));
    QDropEvent drop({}, Qt::MoveAction, &data, Qt::LeftButton, {});
    // Qt itself hands a drop only to where a drag has gone.
    static_cast<QObject&>(drops).eventFilter(&field, &drop);
    EXPECT_EQ(took, taken) << links;
  }
}

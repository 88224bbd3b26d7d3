#include <gtest/gtest.h>

#include <QAccessible>
#include <QComboBox>
#include <QDeadlineTimer>
#include <QLabel>
#include <QPushButton>
#include <QRegularExpression>
#include <QTabBar>
#include <QTabWidget>
#include <map>
#include <string>

#include "look/later.h"
#include "names/editor/option_pane.h"
#include "rename/conflicts_dialog.h"
#include "support/fake_services.h"
#include "window/main_window.h"

namespace {

/// What the user goes through with Tab, and the groups and notes among it, as "kind name caption"
/// in that order; what is hidden by itself begins with "-". A list: its rows, first and last.
const QString kFolders = QStringLiteral(R"(
tabs TabControl2 Source folder/Output folder/Settings; field fdSourceFolder Folder:;
button Command2 Choose the source folder; field fdIncludeMask Include mask:; field fdExcludeMask Exclude mask:;
box chSubfolders Include subfolders; list cmbDestination Output: 3 Use source folder/Move to;
-field fdDestination Folder:; -button bnDestination Choose the output folder;
-box chDestinationSubfolders Create subfolders;
box chSaveSourceFolderOptions Save source folder options;
box chSaveOutputFolderOptions Save output folder options;
box chSaveFileListOptions Save file list options; box chEnableSkin Enable skin;
group fraConstructor New file name constructor;
tabs tabConstructor <Source file name> /./<Extension>; button vbInsertLeft Insert left;
button bnInsertRight Insert right; button bnMoveLeft Move left; button bnMoveRight Move right;
button bnDeletePattern Delete; button Command4 Conflicts...; note lbExample )");
/// Of the element "@", with its case list "#", pages "$", replacements "&" and button "%".
const QString kTransform = QStringLiteral(R"(
list cmbCase# Letter case 4 Unchanged/First letter uppercase only;
tabs $ Remove/Replace/Add / Insert;
list cmbCut@ Cut 10 Do nothing/Remove all between the first N and last K characters;
-field fdCut@N N:; -field fdCut@X K:; -field fdCut@Text Text:; button % reset;
field fdReplace&1 Replace:; field fdReplace&2 With:;
list cmbAdd@ Add 6 Do nothing/Insert Text before the last N characters; -field fdAdd@Text1 Text:;
-field fdAdd@Text2 Text2:; -field fdAdd@N N:)");
const QString kDate = QStringLiteral(R"(
list cmb@(0) First: 9 /yyyy; list cmb@(1) Second: 9 /yyyy; list cmb@(2) Third: 9 /yyyy;
field fd@Separator Separator:; note lb@Sample Example: )");
const QString kCounter = QStringLiteral(R"(
-group pbCounter Counter options; note lbRangeSample Example: ; field fdStartValue Start with:;
list cmbRange Number of digits: 10 1/10;
box chResetCounter Reset counter for each group in file list;
note Label22 Note: counter increment depends on sort order in file list.)");
const QString kRest = QStringLiteral(R"(
-group pbDot No options available; note lbDot No options available;
button bnLoadFileList Prepare file list; button bnPreview Preview; button bnRename Rename;
button bnUndo Undo; button bnCancel Cancel; button bnWideFileList Wide list; box chColumnPath Path;
box chColumnSize Size; box chColumnType Type; box chColumnDate Date;
list cmbGroupBy Group files by 3 None/Type; grid ReportControl1 Files;
-button lnkAddSeparator Add “/” and list; note lbResult ; -note paneStatus ;
note paneTotal Total 0 files; button bnAbout About; button bnHelp Help;
-note lblFontContainer ; -group Frame3 Renaming template:; list cmbTemplate  0 /;
button bnSaveTemplate Save as...; button bnDelete Delete)");

QString Transform(const char* names) {
  const QStringList words = QString::fromLatin1(names).split(u'|');
  QString text = words[0] + kTransform;
  for (int i = 1; i < words.size(); ++i) text.replace(QStringLiteral("@#$&%")[i - 1], words[i]);
  return text;
}

QString Told() {
  const auto date = [](const char* group, const char* part) {
    return QLatin1String(group) + QString(kDate).replace(u'@', QLatin1String(part));
  };
  const QString all =
      kFolders +
      Transform("\ngroup pbFileName Source file name options|File|OldFile|TabControl1||Command1") +
      Transform("\n-group pbExt File extension options|Ext|Ext|TabControl3|Ext|bnResetCutExt") +
      kCounter + date("\n-group pbFileDate File date options", "Date") +
      date("\n-group pbTodayDate Today's date options", "TDate") +
      Transform(
          "\n-group pbParentFolderName Parent folder name options|ParentFolder|ParentFolder|"
          "TabControl4|ParentFolder|bnResetCutParentFolder") +
      kRest;
  return QString(all).replace(QRegularExpression(QStringLiteral(";\\s")), QString(u'\n'));
}

/// Kind, and what it is called by who reads the window aloud; no kind for parts of parts.
std::pair<const char*, QString> Read(QWidget* part) {
  static const QRegularExpression parts(QStringLiteral("^$|^qt_|Scroll|Empty|Title$"));
  const auto* label = qobject_cast<QLabel*>(part);
  if (part->objectName().contains(parts) || (label && label->buddy())) return {"", {}};
  if (auto* box = qobject_cast<QComboBox*>(part)) {
    const QLabel* caption = LabelOf(box);
    return {"list", QStringLiteral("%1 %2 %3/%4")
                        .arg(caption ? caption->text().remove(u'&') : QString())
                        .arg(box->count())
                        .arg(box->itemText(0), box->itemText(box->count() - 1))};
  }
  const auto* pages = qobject_cast<QTabWidget*>(part);
  if (auto* bar = pages ? pages->tabBar() : qobject_cast<QTabBar*>(part)) {
    QStringList texts;
    for (int i = 0; i < bar->count(); ++i) texts += bar->tabText(i);
    return {"tabs", texts.join(u'/')};
  }
  static const std::map<int, const char*> kinds = {
      {QAccessible::EditableText, "field"}, {QAccessible::PushButton, "button"},
      {QAccessible::ButtonMenu, "button"},  {QAccessible::Link, "button"},
      {QAccessible::CheckBox, "box"},       {QAccessible::Table, "grid"},
      {QAccessible::Grouping, "group"},     {QAccessible::StaticText, "note"}};
  const QAccessibleInterface* seen = QAccessible::queryAccessibleInterface(part);
  const auto kind = kinds.find(seen->role());
  return {kind == kinds.end() ? "" : kind->second, seen->text(QAccessible::Name)};
}

/// What Tab doesn't come to has no place on its way: it comes last.
std::string ByTab(QStringList lines) {
  static const QRegularExpression beside(QStringLiteral("^-?(group|note) "));
  QStringList rest = lines.filter(beside);
  rest.sort();
  for (const QString& line : rest) lines.removeOne(line);
  return (lines + rest).join(u'\n').toStdString();
}

struct ControlsTest : testing::Test, FakeServices {
  Session session;
  Later later;
  Form1 window{session, services, nullptr, &later};
};

}  // namespace

TEST_F(ControlsTest, StandAsToldInTheOrderOfTheTabKeyAndHaveNamesInWords) {
  later.BeginAfter(window);
  window.show();
  for (const QDeadlineTimer end(20000);
       window.findChild<QWidget*>(QStringLiteral("Frame3")) == nullptr && !end.hasExpired();) {
    QCoreApplication::processEvents();
  }
  QStringList seen;
  for (QWidget* part = window.nextInFocusChain(); part != &window;
       part = part->nextInFocusChain()) {
    const auto [kind, caption] = Read(part);
    if (!*kind) continue;
    const QString name = part->objectName();
    seen += (part->isHidden() ? QStringLiteral("-") : QString()) + QLatin1String(kind) + u' ' +
            name + u' ' + caption;
    const bool reached = part->focusPolicy() & Qt::TabFocus;
    EXPECT_EQ(reached, std::string("group note").find(kind) == std::string::npos)
        << name.toStdString();
  }
  EXPECT_EQ(ByTab(seen), ByTab(Told().split(u'\n', Qt::SkipEmptyParts)));
  EXPECT_EQ(QAccessible::queryAccessibleInterface(&window)->role(), QAccessible::Window);

  window.close();
  EXPECT_EQ(settings.written.back(), "WindowState=0") << "the placement after the options";
  EXPECT_EQ(settings.flushes, 1);
}

TEST_F(ControlsTest, OfAWindowThatOpensTakeTheFontOfTheContainerIfItHasOne) {
  Form8 dialog(session.state, settings, &window);
  dialog.show();
  EXPECT_FALSE(dialog.testAttribute(Qt::WA_SetFont)) << "the desktop's, also when that changes";
  dialog.hide();
  QFont font;
  font.setItalic(true);
  window.findChild<QLabel*>(QStringLiteral("lblFontContainer"))->setFont(font);
  dialog.show();
  EXPECT_TRUE(dialog.bnOK->font().italic());
}

TEST_F(ControlsTest, HaveTooltipsThatTellMoreThanTheCaptionAndOfAFieldWhatItsModeMakesOfIt) {
  later.DoAll();
  const auto tip_of = [&](const char* name) {
    return window.findChild<QWidget*>(QLatin1String(name))->toolTip();
  };
  for (QComboBox* box : window.findChildren<QComboBox*>()) box->setCurrentIndex(1);
  EXPECT_TRUE(tip_of("fdCutFileText").startsWith(QStringLiteral("The text to remove")));
  for (QComboBox* box : window.findChildren<QComboBox*>()) {
    if (box->count() > 3) box->setCurrentIndex(3);
  }
  EXPECT_TRUE(tip_of("fdCutFileN").endsWith(QStringLiteral("from the end")));
  window.findChild<QComboBox*>(QStringLiteral("cmbDestination"))->setCurrentIndex(2);
  const auto* templates = window.findChild<QWidget*>(QStringLiteral("Frame3"));
  for (const QWidget* control : window.findChildren<QWidget*>()) {
    const auto is = [&](const char* kind) { return control->inherits(kind); };
    const bool tells_all = is("ChipBar") || is("LinkButton") || is("QAbstractItemView");
    const bool is_part = is("QTabWidget") || control->parent()->inherits("QTabBar");
    const bool seen =
        control->window() == &window && !control->isHidden() && !templates->isAncestorOf(control);
    if (tells_all || is_part || !seen || !(control->focusPolicy() & Qt::TabFocus)) continue;
    const auto* tabs = qobject_cast<const QTabBar*>(control);
    const auto* button = qobject_cast<const QAbstractButton*>(control);
    for (int i = 0; i < (tabs ? tabs->count() : 1); ++i) {
      const QString tip = tabs ? tabs->tabToolTip(i) : control->toolTip();
      EXPECT_GT(tip.section(QStringLiteral(" ("), 0, 0).size(), button ? button->text().size() : 0)
          << control->objectName().toStdString() << ": " << tip.toStdString();
    }
  }
}

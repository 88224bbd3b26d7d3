#include "errors/error_windows.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QListView>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStringListModel>
#include <QTimer>
#include <stdexcept>
#include <utility>

#include "errors/error_reporter.h"
#include "look/link_button.h"
#include "platform/build_facts.h"
#include "support/fake_services.h"
#include "support/memory_files.h"
#include "support/temp_folder.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

void Press(QWidget* widget, Qt::Key key) {
  for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
    QKeyEvent event(type, key, Qt::NoModifier);
    QApplication::sendEvent(widget, &event);
  }
}

std::vector<Form11*> OpenWindows() {
  std::vector<Form11*> windows;
  for (QWidget* window : QApplication::topLevelWidgets()) {
    auto* found = qobject_cast<Form11*>(window);
    if (found != nullptr && found->isVisible()) windows.push_back(found);
  }
  return windows;
}

class ErrorWindowsTest : public testing::Test {
 protected:
  ErrorWindowsTest() { files_.contents = {{ReportFile(), ""}}; }
  ~ErrorWindowsTest() override {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }

  std::string Folder() const { return documents_.path() + "/Quorvane"; }
  std::string ReportFile() const { return Folder() + "/ErrorReport.txt"; }
  ErrorWindowParts Parts() { return {files_, prompts_, shell_, Folder()}; }

  TempFolder documents_;
  FakeFolders folders_{documents_.path()};
  FakeSystemFacts facts_;
  PlainLocale locale_;
  MemoryFiles files_;
  FakePrompts prompts_;
  FakeShell shell_;
  ReportSources sources_{facts_, locale_, folders_, {}, [](int) {}};
};

TEST_F(ErrorWindowsTest, TellsThreeWaysToSendTheReport) {
  Form11 window(Parts());
  EXPECT_EQ(window.windowTitle(), QStringLiteral("Program Error"));
  std::vector<std::string> texts;
  for (const QWidget* part : window.findChildren<QWidget*>()) {
    if (const auto* label = qobject_cast<const QLabel*>(part); label && !label->text().isEmpty()) {
      texts.push_back(label->text().toStdString());
    } else if (const auto* link = qobject_cast<const LinkButton*>(part)) {
      texts.push_back(link->objectName().toStdString() + "=" + link->link().toStdString());
    }
  }
  const std::string support = "support@quorvane.example.org";
  const std::vector<std::string> expected = {
      "Sorry, an error has occurred. Try to restart the program.",
      "If the error occurs again, please send a message with an attached ErrorReport.txt file by "
      "following these directions:",
      "1) Go to the folder (click to open folder):",
      "Label56=" + Folder(),
      "2) Locate the ErrorReport.txt file in this folder",
      "3) Right-click on the file and choose \"Send To...\" and \"Mail Recipient\"",
      "4) Send the file to " + support,
      "OR",
      "1) Click the link below and your default email client will create a message",
      "Label5=" + support,
      "2) Attach the ErrorReport.txt file located in the folder (click to open folder):",
      "Label57=" + Folder(),
      "3) Send the mail",
      "OR",
      "1) Open your email client",
      "2) Create a new email document",
      "3) Attach the ErrorReport.txt file located in the folder (click to open folder):",
      "Label58=" + Folder(),
      "4) Send the file to " + support,
  };
  EXPECT_THAT(texts, testing::UnorderedElementsAreArray(expected));
}

TEST_F(ErrorWindowsTest, LinksAreReachedAndFollowedByKeyboard) {
  Form11 window(Parts());
  window.show();
  EXPECT_EQ(window.focusWidget()->objectName(), QStringLiteral("bnOK"));
  const std::string show = "show " + ReportFile();
  const struct {
    const char* name;
    Qt::Key key;
    std::string asked;
  } table[] = {
      {"Label56", Qt::Key_Return, show},
      {"Label5", Qt::Key_Space,
       "link mailto:support@quorvane.example.org?Subject=Quorvane%20v" +
           std::to_string(build_facts::kMajor) + "." + std::to_string(build_facts::kMinor) +
           "%20Error%20report"},
      {"Label57", Qt::Key_Enter, show},
      {"Label58", Qt::Key_Space, show},
  };
  for (const auto& row : table) {
    Press(window.focusWidget(), Qt::Key_Tab);
    ASSERT_EQ(window.focusWidget()->objectName(), QLatin1String(row.name));
    Press(window.focusWidget(), row.key);
    ASSERT_FALSE(shell_.asked.empty());
    EXPECT_EQ(shell_.asked.back(), row.asked) << row.name;
  }
  EXPECT_EQ(shell_.asked.size(), std::size(table));
  EXPECT_TRUE(window.isVisible());
  Press(window.focusWidget(), Qt::Key_Tab);
  Press(window.focusWidget(), Qt::Key_Return);
  EXPECT_FALSE(window.isVisible());
}

TEST_F(ErrorWindowsTest, AScreenReaderFindsLinksByNameAndRole) {
  Form11 window({files_, prompts_, shell_, "/home/R&D <b>"});
  auto* link = window.findChild<LinkButton*>(QStringLiteral("Label56"));
  QAccessibleInterface* seen = QAccessible::queryAccessibleInterface(link);
  ASSERT_NE(seen, nullptr);
  EXPECT_EQ(seen->role(), QAccessible::Link);
  EXPECT_EQ(seen->text(QAccessible::Name), QStringLiteral("/home/R&D <b>"));
  EXPECT_EQ(seen->text(QAccessible::Description),
            QStringLiteral("1) Go to the folder (click to open folder):"));
  ASSERT_NE(seen->actionInterface(), nullptr);
  seen->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
  EXPECT_THAT(prompts_.told, ElementsAre("The specified file was not found."));
}

TEST_F(ErrorWindowsTest, AFailureIsSavedAndShownThoughNoMainWindowIsThere) {
  ErrorReporter reporter(sources_, files_, prompts_, shell_);
  ErrTrace::top("mMain.Main", [] { throw Failure(kOverflow, "Overflow"); });
  ASSERT_EQ(OpenWindows().size(), 1u);
  EXPECT_FALSE(OpenWindows()[0]->isModal());
  EXPECT_THAT(documents_.Read("Quorvane/ErrorReport.txt").value_or(""),
              StartsWith("Overflow \r\n  Time='03/09/24 07:05:02' App='quorvane:1.2.3'"));
  QTimer::singleShot(0, [] { OpenWindows()[0]->accept(); });
  reporter.WaitForWindows();
  EXPECT_TRUE(OpenWindows().empty());
}

TEST_F(ErrorWindowsTest, AUserErrorOpensNothing) {
  ErrorReporter reporter(sources_, files_, prompts_, shell_);
  ErrTrace::top("m.F",
                [] { throw Failure(static_cast<std::int32_t>(0x80041065), "no such name"); });
  EXPECT_TRUE(OpenWindows().empty());
  EXPECT_FALSE(documents_.Has("Quorvane"));
}

TEST_F(ErrorWindowsTest, AFailureInTheErrorWindowOpensAFurtherOne) {
  ErrorReporter reporter(sources_, files_, prompts_, shell_);
  QWidget main_window;
  reporter.MainWindowLoaded(&main_window);
  QApplication::setOverrideCursor(Qt::WaitCursor);
  int open = 0;
  bool modal = true;
  Qt::CursorShape pointer = Qt::WaitCursor;
  const auto close_last = [] { OpenWindows().back()->accept(); };
  QTimer::singleShot(0, [&] {
    shell_.broken = true;
    QTimer::singleShot(0, [&] {
      open = static_cast<int>(OpenWindows().size());
      for (const Form11* window : OpenWindows()) modal = modal && window->isModal();
      pointer = QApplication::overrideCursor()->shape();
      QTimer::singleShot(0, close_last);
      qobject_cast<Form11*>(QApplication::activeModalWidget())->accept();
    });
    OpenWindows()[0]->findChild<LinkButton*>(QStringLiteral("Label5"))->click();
  });
  ErrTrace::top("Form1.bnUndo_Click", [] { throw Failure(1, "first"); });
  EXPECT_EQ(open, 2);
  EXPECT_TRUE(modal);
  EXPECT_EQ(pointer, Qt::ArrowCursor);
  EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
  QApplication::restoreOverrideCursor();
  EXPECT_TRUE(OpenWindows().empty());
  const std::string saved = documents_.Read("Quorvane/ErrorReport.txt").value_or("");
  EXPECT_THAT(saved, StartsWith("first \r\n"));
  EXPECT_THAT(saved, HasSubstr("\r\n \r\nno desktop \r\n"));
  EXPECT_THAT(saved, HasSubstr("Call Stack: Form11.Label5_Click() -"));
}

/// Fails each time it is painted, or shows what a model that fails gives.
class BrokenWidget : public QWidget {
 public:
  void paintEvent(QPaintEvent*) override { throw Failure(kInternalError, "paint " + Count()); }
  std::string Count() { return std::to_string(++painted); }
  int painted = 0;
};

class BrokenModel : public QStringListModel {
 public:
  using QStringListModel::QStringListModel;
  QVariant data(const QModelIndex&, int) const override { throw Failure(kTypeMismatch, "model"); }
};

TEST_F(ErrorWindowsTest, WhatFailsUnderTheEventLoopIsToldAndNotAtEachRepaint) {
  ErrorReporter reporter(sources_, files_, prompts_, shell_);
  QWidget main_window;
  reporter.MainWindowLoaded(&main_window);
  BrokenWidget painter;
  BrokenModel model({QStringLiteral("a"), QStringLiteral("b")});
  QListView list;
  list.setModel(&model);
  QPushButton slot;
  QObject::connect(&slot, &QPushButton::clicked, [] { throw std::runtime_error("slot"); });
  int closed = 0;
  QTimer user;
  QObject::connect(&user, &QTimer::timeout, [&] {
    if (OpenWindows().empty()) return;
    OpenWindows().back()->accept();
    ++closed;
  });
  user.start(0);
  const auto repaint = [&](QWidget& widget) {
    widget.show();
    widget.repaint();
    QCoreApplication::processEvents();
  };
  for (int i = 0; i < 3; ++i) repaint(painter);
  EXPECT_GE(painter.painted, 3);
  EXPECT_EQ(std::exchange(closed, 0), 1) << "another number in its words is no other failure";
  for (int i = 0; i < 3; ++i) repaint(list);
  EXPECT_GE(std::exchange(closed, 0), 1);
  for (int i = 0; i < 2; ++i) Press(&slot, Qt::Key_Space);
  EXPECT_EQ(closed, 2) << "a slot fails at each press";
  const std::string saved = documents_.Read("Quorvane/ErrorReport.txt").value_or("");
  for (const char* words : {"paint 1 \r\n", "model \r\n", "slot \r\n"}) {
    EXPECT_THAT(saved, HasSubstr(words));
  }
  EXPECT_THAT(saved, testing::Not(HasSubstr("paint 2")));
}

/// A desktop that can't even name its folders.
class BrokenFolders : public Folders {
 public:
  std::string Documents() override { throw Failure(kTypeMismatch, "no folders"); }
};

TEST_F(ErrorWindowsTest, WhereTheWindowCanNotBeMadeThereIsAPlainMessage) {
  BrokenFolders folders;
  ErrorReporter reporter({facts_, locale_, folders, {}, [](int) {}}, files_, prompts_, shell_);
  ErrTrace::top("m.F", [] { throw Failure(1, "first"); });
  EXPECT_TRUE(OpenWindows().empty());
  EXPECT_THAT(prompts_.told,
              ElementsAre("Sorry, an error has occurred. Try to restart the program."));
}

TEST_F(ErrorWindowsTest, ADevelopersWindowShowsTheReportAboveAModalOne) {
  frmShowError window;
  window.ShowError("report\r\n  line");
  EXPECT_TRUE(window.isVisible());
  EXPECT_EQ(window.windowModality(), Qt::NonModal);
  EXPECT_EQ(window.findChild<QPlainTextEdit*>(QStringLiteral("txtError"))->toPlainText(),
            QStringLiteral("report\n  line"));
  window.hide();
  QDialog other;
  other.setModal(true);
  other.show();
  window.ShowError("second");
  EXPECT_EQ(window.windowModality(), Qt::ApplicationModal);
}

}  // namespace

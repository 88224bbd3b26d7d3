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
  ErrorWindowsTest() {
    system_.folders.documents = documents_.path();
    system_.files.contents = {{Folder() + "/ErrorReport.txt", ""}};
  }
  ~ErrorWindowsTest() override {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }

  std::string Folder() const { return documents_.path() + "/Quorvane"; }
  std::string Saved() const { return documents_.Read("Quorvane/ErrorReport.txt").value_or(""); }

  TempFolder documents_;
  FakeServices system_;
};

TEST_F(ErrorWindowsTest, TellsThreeWaysToSendTheReport) {
  Form11 window(system_.services);
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
  const std::string send = "4) Send the file to " + support, folder = "=" + Folder();
  const std::vector<std::string> expected = {
      "Sorry, an error has occurred. Try to restart the program.",
      "If the error occurs again, please send a message with an attached ErrorReport.txt file by "
      "following these directions:",
      // The first way, the second, the third.
      "1) Go to the folder (click to open folder):", "Label56" + folder,
      "2) Locate the ErrorReport.txt file in this folder",
      "3) Right-click on the file and choose \"Send To...\" and \"Mail Recipient\"", send, "OR",
      "1) Click the link below and your default email client will create a message",
      "Label5=" + support,
      "2) Attach the ErrorReport.txt file located in the folder (click to open folder):",
      "Label57" + folder, "3) Send the mail", "OR",  //
      "1) Open your email client", "2) Create a new email document",
      "3) Attach the ErrorReport.txt file located in the folder (click to open folder):",
      "Label58" + folder, send};
  EXPECT_THAT(texts, testing::UnorderedElementsAreArray(expected));
}

TEST_F(ErrorWindowsTest, LinksAreReachedAndFollowedByKeyboard) {
  Form11 window(system_.services);
  window.show();
  EXPECT_EQ(window.focusWidget()->objectName(), QStringLiteral("bnOK"));
  const std::string show = "show " + Folder() + "/ErrorReport.txt";
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
    EXPECT_THAT(std::exchange(system_.shell.asked, {}), ElementsAre(row.asked)) << row.name;
  }
  EXPECT_TRUE(window.isVisible());
  Press(window.focusWidget(), Qt::Key_Tab);
  Press(window.focusWidget(), Qt::Key_Return);
  EXPECT_FALSE(window.isVisible());
}

TEST_F(ErrorWindowsTest, AScreenReaderFindsLinksByNameAndRole) {
  system_.folders.documents = "/home/R&D <b>";
  Form11 window(system_.services);
  auto* link = window.findChild<LinkButton*>(QStringLiteral("Label56"));
  QAccessibleInterface* seen = QAccessible::queryAccessibleInterface(link);
  ASSERT_NE(seen, nullptr);
  EXPECT_EQ(seen->role(), QAccessible::Link);
  EXPECT_EQ(seen->text(QAccessible::Name), QStringLiteral("/home/R&D <b>/Quorvane"));
  EXPECT_EQ(seen->text(QAccessible::Description),
            QStringLiteral("1) Go to the folder (click to open folder):"));
  ASSERT_NE(seen->actionInterface(), nullptr);
  seen->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
  EXPECT_THAT(system_.prompts.told, ElementsAre("The specified file was not found."));
}

TEST_F(ErrorWindowsTest, AFailureIsSavedAndShownThoughNoMainWindowIsThere) {
  ErrorReporter reporter(system_.services);
  ErrTrace::top("mMain.Main", [] { throw Failure(kOverflow, "Overflow"); });
  ASSERT_EQ(OpenWindows().size(), 1u);
  EXPECT_FALSE(OpenWindows()[0]->isModal());
  EXPECT_THAT(Saved(), StartsWith("Overflow \r\n  Time='03/09/24 07:05:02' App='quorvane:1.2.3'"));
  QTimer::singleShot(0, [] { OpenWindows()[0]->accept(); });
  reporter.WaitForWindows();
  EXPECT_TRUE(OpenWindows().empty());
}

TEST_F(ErrorWindowsTest, AFailureInTheErrorWindowOpensAFurtherOne) {
  ErrorReporter reporter(system_.services);
  QWidget main_window;
  reporter.MainWindowLoaded(&main_window);
  QApplication::setOverrideCursor(Qt::WaitCursor);
  int open = 0;
  bool modal = true;
  Qt::CursorShape pointer = Qt::WaitCursor;
  const auto close_last = [] { OpenWindows().back()->accept(); };
  QTimer::singleShot(0, [&] {
    system_.shell.broken = true;
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
  EXPECT_THAT(Saved(), StartsWith("first \r\n"));
  EXPECT_THAT(Saved(), HasSubstr("\r\n \r\nno desktop \r\n"));
  EXPECT_THAT(Saved(), HasSubstr("Call Stack: Form11.Label5_Click() -"));
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
  ErrorReporter reporter(system_.services);
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
  for (const char* words : {"paint 1 \r\n", "model \r\n", "slot \r\n"}) {
    EXPECT_THAT(Saved(), HasSubstr(words));
  }
  EXPECT_THAT(Saved(), testing::Not(HasSubstr("paint 2")));
}

/// A desktop that can't even name its folders.
class BrokenFolders : public Folders {
 public:
  std::string Documents() override { throw Failure(kTypeMismatch, "no folders"); }
};

TEST_F(ErrorWindowsTest, WhereTheWindowCanNotBeMadeThereIsAPlainMessage) {
  BrokenFolders folders;
  FakeServices& s = system_;
  const Services services{s.files,      s.clock, s.facts,   s.events, s.locale,
                          s.type_names, folders, s.prompts, s.shell,  s.settings};
  ErrorReporter reporter(services);
  ErrTrace::top("m.F", [] { throw Failure(1, "first"); });
  EXPECT_TRUE(OpenWindows().empty());
  EXPECT_THAT(system_.prompts.told,
              ElementsAre("Sorry, an error has occurred. Try to restart the program."));
}

TEST_F(ErrorWindowsTest, ADevelopersWindowShowsTheReportAboveAModalOne) {
  QDialog other;
  other.setModal(true);
  for (const auto modality : {Qt::NonModal, Qt::ApplicationModal}) {
    frmShowError window;
    other.setVisible(modality != Qt::NonModal);
    window.ShowError("report\r\n  line");
    EXPECT_EQ(window.windowModality(), modality);
    EXPECT_EQ(window.findChild<QPlainTextEdit*>()->toPlainText(), QStringLiteral("report\n  line"));
  }
}

}  // namespace

#include "errors/error_windows.h"

#include <gmock/gmock.h>

#include <QAccessible>
#include <QApplication>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTimer>
#include <stdexcept>
#include <utility>
#ifdef __SANITIZE_ADDRESS__
#include <sanitizer/lsan_interface.h>
#endif

#include "errors/error_reporter.h"
#include "look/link_button.h"
#include "platform/build_facts.h"
#include "support/fake_services.h"
#include "support/keys.h"
#include "support/temp_folder.h"

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

static std::vector<Form11*> OpenWindows() {
  std::vector<Form11*> windows;
  for (QWidget* window : QApplication::topLevelWidgets()) {
    auto* found = qobject_cast<Form11*>(window);
    if (found && found->isVisible()) windows.push_back(found);
  }
  return windows;
}

struct ErrorWindowsTest : testing::Test {
  ErrorWindowsTest() { system_.folders.documents = documents_.path(); }
  ~ErrorWindowsTest() override { QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

  std::string Saved() const { return documents_.Read("Quorvane/ErrorReport.txt").value_or(""); }

  TempFolder documents_;
  FakeServices system_;
  ErrorReporter reporter_{system_.services};
  QWidget main_window_;
};

TEST_F(ErrorWindowsTest, LinksAreReachedAndFollowedByKeyboardAndByAScreenReader) {
  system_.folders.documents = "/home/R&D <b>";
  const std::string folder = "/home/R&D <b>/Quorvane", file = folder + "/ErrorReport.txt";
  system_.files.contents = {{file, ""}};
  const std::string show = "show " + file, support = "support@quorvane.example.org";
  const std::string mail = "link mailto:" + support + "?Subject=Quorvane%20v" +
                           std::to_string(build_facts::kMajor) + "." +
                           std::to_string(build_facts::kMinor) + "%20Error%20report";
  const std::tuple<const char*, Qt::Key, std::string, std::string> table[] = {
      {"Label56", Qt::Key_Return, folder, show},
      {"Label5", Qt::Key_Space, support, mail},
      {"Label57", Qt::Key_Enter, folder, show},
      {"Label58", Qt::Key_Space, folder, show}};
  Form11 window(system_.services);
  window.show();
  EXPECT_EQ(window.focusWidget()->objectName(), QStringLiteral("bnOK"));
  for (const auto& [name, key, text, asked] : table) {
    SCOPED_TRACE(name);
    Press(window.focusWidget(), Qt::Key_Tab);
    QWidget* link = window.focusWidget();
    ASSERT_EQ(link->objectName(), QLatin1String(name));
    Press(link, key);
    QAccessibleInterface* seen = QAccessible::queryAccessibleInterface(link);
    ASSERT_TRUE(seen != nullptr && seen->actionInterface() != nullptr);
    EXPECT_EQ(seen->role(), QAccessible::Link);
    EXPECT_EQ(seen->text(QAccessible::Name).toStdString(), text);
    EXPECT_TRUE(seen->text(QAccessible::Description).contains(QStringLiteral("lick")));
    seen->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_THAT(std::exchange(system_.shell.asked, {}), ElementsAre(asked, asked));
  }
  EXPECT_TRUE(window.isVisible());
  Press(window.focusWidget(), Qt::Key_Tab);
  Press(window.focusWidget(), Qt::Key_Return);
  EXPECT_FALSE(window.isVisible());
}

TEST_F(ErrorWindowsTest, AFailureIsSavedAndShownThoughNoMainWindowIsThere) {
  const std::string sorry = "Sorry, an error has occurred. Try to restart the program.";
  const std::pair<std::string, std::string> table[] = {
      {"", sorry + "! If"},
      {"“<b>[a” is …", "“\u2068<b>[a\u2069” is \u2060…\u2060! " + sorry + " If"}};
  for (const auto& [slip, begins] : table) {
    ErrTrace::top("mMain.Main", [slip = slip] {
      throw Failure({.number = kOverflow, .description = "Overflow", .slip = slip});
    });
    ASSERT_EQ(OpenWindows().size(), 1u);
    EXPECT_FALSE(OpenWindows()[0]->isModal());
    EXPECT_THAT(Saved(), AllOf(StartsWith("Overflow \r\n  Time='03/09/24 07:05:02' App='quorvane:"),
                               testing::Not(HasSubstr("<b>"))));
    std::string seen;
    for (const QLabel* label : OpenWindows()[0]->findChildren<QLabel*>()) {
      if (label->text().isEmpty()) continue;
      const bool strong = label->font().weight() == QFont::DemiBold;
      seen += label->text().toStdString() + (strong ? "! " : " ");
    }
    EXPECT_THAT(seen, StartsWith(begins));
    QTimer::singleShot(0, [] { OpenWindows()[0]->accept(); });
    reporter_.WaitForWindows();
    EXPECT_TRUE(OpenWindows().empty());
  }
}

TEST_F(ErrorWindowsTest, ADeveloperReadsTheReportModalOnlyOverAModalWindow) {
  ErrTrace::SetDeveloper(&system_.prompts);
  for (const bool under_dialog : {false, true}) {
    QDialog dialog;
    dialog.setModal(under_dialog);
    dialog.show();
    ErrTrace::top("Form1.bnUndo_Click", [] { throw Failure(kOverflow, "Overflow"); });
    EXPECT_THAT(Saved(), HasSubstr("Call Stack: Form1.bnUndo_Click() -"));
    std::string shown;
    for (QWidget* window : QApplication::topLevelWidgets()) {
      if (!window->isVisible() || window == &dialog) continue;
      shown += window->objectName().toStdString() + (window->isModal() ? " modal " : " ") +
               window->findChild<QPlainTextEdit*>()->toPlainText().toStdString();
      window->close();
    }
    EXPECT_THAT(shown, StartsWith(under_dialog ? "frmShowError modal Overflow \n  Time="
                                               : "frmShowError Overflow \n  Time="));
  }
  ErrTrace::SetDeveloper(nullptr);
}

TEST_F(ErrorWindowsTest, AFailureInTheErrorWindowOpensAFurtherOne) {
  reporter_.MainWindowLoaded(&main_window_);
  QApplication::setOverrideCursor(Qt::WaitCursor);
  std::vector<bool> modal;  // of all windows, at the most
  Qt::CursorShape pointer = Qt::WaitCursor;
  QTimer::singleShot(0, [&] {
    system_.shell.broken = true;
    QTimer::singleShot(0, [&] {
      for (const Form11* window : OpenWindows()) modal.push_back(window->isModal());
      pointer = QApplication::overrideCursor()->shape();
      QTimer::singleShot(0, [] { OpenWindows().back()->accept(); });
      qobject_cast<Form11*>(QApplication::activeModalWidget())->accept();
    });
    OpenWindows()[0]->findChild<LinkButton*>(QStringLiteral("Label5"))->click();
  });
  ErrTrace::top("Form1.bnUndo_Click", [] { throw Failure(1, "first"); });
  EXPECT_THAT(modal, ElementsAre(true, true));
  EXPECT_EQ(pointer, Qt::ArrowCursor);
  EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
  QApplication::restoreOverrideCursor();
  EXPECT_TRUE(OpenWindows().empty());
  EXPECT_THAT(Saved(), AllOf(StartsWith("first \r\n"), HasSubstr("\r\n \r\nno desktop \r\n"),
                             HasSubstr("Call Stack: Form11.Label5_Click() -")));
}

TEST_F(ErrorWindowsTest, WhatFailsUnderTheEventLoopIsToldAndNotAtEachRepaint) {
  reporter_.MainWindowLoaded(&main_window_);
  struct : QWidget {
    void paintEvent(QPaintEvent*) override {
      throw Failure(kInternalError, "paint " + std::to_string(++painted));
    }
    int painted = 0;
  } painter;
  QPushButton slot;
  QObject::connect(&slot, &QPushButton::clicked, [] { throw std::runtime_error("slot"); });
  int closed = 0;
  QTimer user;
  QObject::connect(&user, &QTimer::timeout, [&] {
    if (!OpenWindows().empty()) OpenWindows().back()->accept(), ++closed;
  });
  user.start(0);
#ifdef __SANITIZE_ADDRESS__
  const __lsan::ScopedDisabler none;  // an exception on its way through Qt frees nothing of Qt's
#endif
  painter.show();
  for (int i = 0; i < 3; ++i) {
    painter.repaint();
    QCoreApplication::processEvents();
  }
  EXPECT_GE(painter.painted, 3);
  EXPECT_EQ(std::exchange(closed, 0), 1) << "another number in its words is no other failure";
  for (int i = 0; i < 2; ++i) Press(&slot, Qt::Key_Space);
  EXPECT_EQ(closed, 2) << "a slot fails at each press";
  EXPECT_THAT(Saved(), AllOf(HasSubstr("paint 1 \r\n"), HasSubstr("slot \r\n"),
                             testing::Not(HasSubstr("paint 2"))));
}

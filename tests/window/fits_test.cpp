#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QHelpEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTabBar>
#include <QTabWidget>
#include <QToolTip>
#include <cerrno>

#include "errors/error_windows.h"
#include "filelist/mask_dialog.h"
#include "filelist/system_folder_dialog.h"
#include "look/skin.h"
#include "names/editor/custom_text_dialog.h"
#include "rename/conflicts_dialog.h"
#include "rename/left_run_dialog.h"
#include "rename/results/result_windows.h"
#include "support/fake_left_run.h"
#include "support/fake_services.h"
#include "window/about_box.h"
#include "window/main_window.h"
#include "window/template_dialog.h"

/// What a control must have to show all of its text. A field scrolls, an elided text and the box
/// beside a card's title give way.
static QSize NeededBy(const QWidget& part) {
  const auto* label = qobject_cast<const QLabel*>(&part);
  if (label && label->wordWrap()) return {0, label->heightForWidth(part.width())};
  if (qobject_cast<const QLineEdit*>(&part)) return part.minimumSizeHint();
  const auto is = [&](const char* kind) { return part.inherits(kind); };
  if (is("LinkButton") || is("ChipBar") || is("QToolButton")) return {};
  if (!label && !is("QAbstractButton") && !is("QComboBox") && !is("QTabBar")) return {};
  const bool gives_way = (label && part.sizePolicy().horizontalPolicy() == QSizePolicy::Ignored) ||
                         part.objectName().startsWith(QLatin1String("cmbCase"));
  return gives_way ? QSize(0, part.sizeHint().height()) : part.sizeHint();
}

/// The visible parts of `window` that are cut, covered or outside of what they lie in.
static std::string Faults(const QWidget& window) {
  std::string faults;
  const auto name = [](const QWidget& part) {
    return part.metaObject()->className() + (" " + part.objectName().toStdString());
  };
  for (const QWidget* part : window.findChildren<QWidget*>()) {
    if (!part->isVisibleTo(&window) || part->window() != &window) continue;
    const QWidget* around = part->parentWidget();
    const QSize needed = NeededBy(*part), has = part->size();
    if (has != has.expandedTo(needed)) faults += "\n  cut: " + name(*part);
    const bool scrolls = part->inherits("ChipBar") || part->inherits("QLineEditIconButton");
    if (!scrolls && !has.isEmpty() && !around->rect().contains(part->geometry())) {
      faults += "\n  outside: " + name(*part) + " in " + name(*around);
    }
    for (const QObject* other : around->children()) {
      const auto* beside = qobject_cast<const QWidget*>(other);
      if (!beside || beside == part || !beside->isVisibleTo(&window)) continue;
      // Tabs share a line with their pages, and what takes the focus after "Cancel" has no extent.
      const QSize both = part->geometry().intersected(beside->geometry()).size();
      if (both.width() > 1 && both.height() > 1) {
        faults += "\n  covered: " + name(*part) + " by " + name(*beside);
      }
    }
  }
  return faults;
}

struct FitsTest : testing::Test, FakeServices {
  FitsTest() {
    for (QWidget* window :
         std::initializer_list<QWidget*>{&Form2_, &Form4_, &Form5_, &Form6_, &Form8_, &Form10_,
                                         &Form11_, &Form3_, &Form7_, &Form12_, &main_}) {
      window->show();
    }
    LeftRun::Facts left{.source_folder = "/in/", .incomplete = true, .renamed = 2, .copied = 9999};
    Form12_.Ask(std::make_unique<FakeLeftRun>(
        left, std::vector<LeftRun::File>{{"/in/a", "/out/b", LeftRun::Change::kMoved, EEXIST}}));
  }
  ~FitsTest() override {
    QApplication::setLayoutDirection(Qt::LayoutDirectionAuto);
    QApplication::setFont(font_);
    ApplySkin(*qApp, false);
  }

  void Check(QWidget& window, const std::string& state) {
    QApplication::sendPostedEvents();
    window.resize(window.minimumSize());
    QApplication::processEvents();
    EXPECT_EQ(Faults(window), "") << window.objectName().toStdString() << ", " << state;
  }

  /// The box of the letter case may give way, and then tells all when it is pointed at.
  void CheckCase(const std::string& state) {
    auto* box = main_.findChild<QComboBox*>(QStringLiteral("cmbCaseOldFile"));
    box->setCurrentIndex(box->count() - 1);
    QHelpEvent point(QEvent::ToolTip, {}, box->mapToGlobal(box->rect().center()));
    QApplication::sendEvent(box, &point);
    const int needs = box->fontMetrics().horizontalAdvance(box->currentText()) + 18;  // the arrow's
    EXPECT_TRUE(box->width() >= needs || QToolTip::text().startsWith(box->currentText())) << state;
  }

  /// Each element's pane, each of its pages, with each mode of each page.
  void CheckPanes(const std::string& state) {
    auto* chips = main_.findChild<QTabBar*>(QStringLiteral("tabConstructor"));
    for (int chip = 0; chip < chips->count(); ++chip) {
      chips->setCurrentIndex(chip);
      Check(main_, state);
      for (QTabWidget* pages : main_.findChildren<QTabWidget*>()) {
        for (int page = 0; pages->isVisible() && page < pages->count(); ++page) {
          pages->setCurrentIndex(page);
          const auto picks = pages->currentWidget()->findChildren<QComboBox*>();
          for (int mode = 0; !picks.empty() && mode < picks.front()->count(); ++mode) {
            picks.front()->setCurrentIndex(mode);
            Check(main_, state + ", " + picks.front()->currentText().toStdString());
          }
          Check(main_, state + ", page " + pages->tabText(page).toStdString());
        }
      }
    }
  }

  const QFont font_ = QApplication::font();
  Session session_;
  Form1 main_{session_, services};
  Form2 Form2_{prompts, settings, nullptr};
  Form4 Form4_{"/etc/", settings, nullptr};
  Form5 Form5_{prompts, settings, nullptr};
  Form6 Form6_{QStringLiteral("Check by mask"), "*", services, nullptr};
  Form8 Form8_{session_.state, settings, nullptr};
  Form10 Form10_{services, nullptr};
  Form11 Form11_{services, nullptr};
  ResultWindow Form3_{kRenamingFailure, session_.reports, services, nullptr};
  Form12 Form12_{services, nullptr};
  ResultWindow Form7_{kResolvedConflicts, session_.reports, services, nullptr};
};

TEST_F(FitsTest, NothingIsCutOrCoveredAtAnyFontAlsoWhenItChangesInOpenWindows) {
  auto* insert = main_.findChild<QPushButton*>(QStringLiteral("bnInsertRight"));
  for (QAction* element : insert->menu()->actions().mid(0, 6)) element->trigger();
  for (const int points : {9, 20, 8, 14, 11}) {
    QApplication::setLayoutDirection(points == 14 ? Qt::RightToLeft : Qt::LeftToRight);
    QFont font = font_;
    font.setPointSize(points);
    QApplication::setFont(font);
    for (const bool skin : {true, false, true}) {
      QApplication::processEvents();
      ApplySkin(*qApp, skin);
      const std::string state = std::to_string(points) + (skin ? " pt, skin" : " pt, no skin");
      for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window->isVisible() && window != &main_) Check(*window, state);
      }
      CheckCase(state);
      CheckPanes(state);
    }
  }
}

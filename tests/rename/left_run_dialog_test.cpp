#include "rename/left_run_dialog.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include <cerrno>

#include "filelist/list_view.h"
#include "look/elided_label.h"
#include "support/fake_left_run.h"
#include "support/fake_services.h"
#include "support/keys.h"

namespace {

using Work = LeftRun::Work;

/// Three files that were renamed of five.
struct LeftRunDialogTest : testing::Test, FakeServices {
  std::unique_ptr<FakeLeftRun> Run() {
    LeftRun::Facts left{.began = 24, .source_folder = "/in/", .cut_off = true, .wanted = 5};
    left.renamed = 3;
    const auto renamed = LeftRun::Change::kRenamed;
    return std::make_unique<FakeLeftRun>(
        left, std::vector<LeftRun::File>{{"/in/a", "/in/x\xff", renamed},
                                         {"/in/b", "/in/x b", renamed},
                                         {"/in/c", "/out/x c", renamed}});
  }
  /// Shows the dialog and lets `act` do what a user would; what it answers in the end.
  bool Show(std::unique_ptr<FakeLeftRun> run, const std::function<void()>& act) {
    QTimer::singleShot(0, &dialog, [&, act] {
      act();
      EXPECT_FALSE(dialog.isVisible());
      dialog.hide();
    });
    return dialog.ShowLeftRun([&](const GoOn&) { return std::move(run); });
  }
  std::string Told() const {
    return (dialog.lbHeading->text() + QLatin1Char('|') + dialog.lbCounts->text()).toStdString();
  }
  std::string Cell(int row, int column) const {
    const auto* list = dialog.ReportControl1;
    return list->isColumnHidden(column)
               ? "hidden"
               : list->model()->index(row, column).data().toString().toStdString();
  }

  Form12 dialog{services, nullptr};
};

}  // namespace

TEST_F(LeftRunDialogTest, TellsWhatIsLeftOfARun) {
  constexpr auto kCutOff = "Quorvane was ended before all files were ";
  const struct {
    LeftRun::Facts left;
    std::string told;
  } table[] = {
      {{.source_folder = "/in/", .output_mode = 1, .cut_off = true, .wanted = 1, .copied = 1},
       "A run was cut off|" + std::string(kCutOff) +
           "copied. The run began on 2 Januar 2000 at 03:04.|1 of 1 file was copied. “Put back” "
           "deletes the copies, but none that was changed; the originals stay."},
      {{.source_folder = "/in/",
        .work = Work::kUndo,
        .cut_off = true,
        .wanted = 9000,
        .renamed = 1000,
        .moved = 1},
       "An undo was cut off|" + std::string(kCutOff) +
           "put back. The run began on 2 Januar 2000 at 03:04.|1,000 files are still renamed, 1 "
           "moved. “Put back” brings them back to their former folders and names."},
      {{.source_folder = "/in/", .output_mode = 2, .wanted = 2, .moved = 1},
       "A run was not completed|Quorvane was ended with only a part of the files moved. The run "
       "began on 2 Januar 2000 at 03:04.|1 of 2 files was moved. “Put back” brings them back to "
       "their former folders and names."},
      {{.source_folder = "/in/", .incomplete = true, .wanted = 2, .renamed = 3},
       "An earlier run can still be taken back|Quorvane was ended unexpectedly after a run. What "
       "that did can still be taken back. The run began on 2 Januar 2000 at 03:04.|3 files were "
       "renamed. “Put back” gives them their former names back. Not all that the run did could be "
       "written down, so other files may be renamed too."},
  };
  for (const auto& [left, told] : table) {
    const LeftRunTexts texts = TextsOf(left, clock, locale);
    EXPECT_EQ(texts.heading + "|" + texts.story + "|" + texts.counts, told);
  }
}

TEST_F(LeftRunDialogTest, ChangesNothingUnlessThatIsChosen) {
  EXPECT_FALSE(Show(Run(), [&] { Press(dialog.focusWidget(), Qt::Key_Return); }));
  EXPECT_FALSE(Show(Run(), [&] { Press(&dialog, Qt::Key_Escape); }));
  prompts.answer = true;
  EXPECT_TRUE(Show(Run(), [&] { dialog.bnKeep->click(); }));
  auto stays = Run();
  stays->deletable = false;
  EXPECT_FALSE(Show(std::move(stays), [&] { dialog.bnKeep->click(); })) << "told of again";
  prompts.answer = false;
  EXPECT_FALSE(Show(Run(), [&] {
    dialog.bnKeep->click();
    EXPECT_TRUE(dialog.isVisible());
    dialog.bnOK->click();
  }));
  EXPECT_EQ(prompts.icons, "!!!!");
  EXPECT_TRUE(dialog.ShowLeftRun([](const GoOn&) { return nullptr; })) << "nothing to be told";
  // Reading that takes long shows the dialog, and is left with it.
  clock.step_ms = 200;
  events.on_events = [&] { dialog.close(); };
  EXPECT_FALSE(dialog.ShowLeftRun([&](const GoOn& go_on) {
    EXPECT_TRUE(go_on());
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_FALSE(go_on());
    return Run();
  }));
}

TEST_F(LeftRunDialogTest, PutsBackUntilAllFilesAre) {
  auto run = Run();
  run->reasons = {EEXIST};
  EXPECT_TRUE(Show(std::move(run), [&] {
    EXPECT_EQ(Told().substr(0, 51), "A run was cut off|3 of 5 files were renamed. “Put");
    EXPECT_EQ(Cell(1, kLeftPresent), "x\xEF\xBF\xBD");
    EXPECT_EQ(Cell(3, kLeftFolder), "/out/");
    EXPECT_EQ(Cell(1, kLeftReason), "hidden");
    events.on_events = [&, looks = 0]() mutable {
      EXPECT_TRUE(dialog.focusWidget() == dialog.bnCancel && !dialog.bnPutBack->isVisible());
      EXPECT_EQ(dialog.lbFilesCount->text().toStdString(), std::to_string(looks) + " of 3");
      if (++looks == 2) Press(&dialog, Qt::Key_Escape);
    };
    dialog.bnPutBack->click();
    EXPECT_EQ(Told(),
              "Some files are not back yet|0 of 3 files are back. “Put back” goes on with "
              "the others.");
    EXPECT_EQ(Cell(1, kLeftReason), "The name is already taken.");
    events.on_events = nullptr;
    dialog.bnPutBack->click();
    EXPECT_EQ(Told(), "All files are back|3 of 3 files are back.");
    EXPECT_EQ(dialog.ReportControl1->model()->rowCount(), 0);
    EXPECT_FALSE(dialog.bnPutBack->isVisible() || dialog.bnKeep->isVisible());
    dialog.bnOK->click();
  }));
  events.on_events = [&] { dialog.close(); };
  EXPECT_FALSE(Show(Run(), [&] { dialog.bnPutBack->click(); })) << "ended, the rest is for later";
}

#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "commands/commands.h"
#include "support/fake_services.h"

/// What the commands show, and what the user answers.
struct FakeView : CommandView, ListSurface {
  explicit FakeView(Session& session) : grid_(session.grid), reports_(session.reports) {}

  void EnableElements(bool pEnable) override { elements = pEnable; }
  void SetWaitPointer(bool wait) override { waiting = wait; }
  void EnableButton(CommandButton button, bool enable) override {
    buttons[static_cast<std::size_t>(button)] = enable ? '1' : '0';
  }
  void ShowPanes() override {}
  void RepaintRows() override { ++repaints; }
  void WorkInPauses() override {}
  Options ReadOptions() const override { return {{}, source, output, {}, {}}; }
  void SetSourceFolder(const std::string& folder) override { source.fdSourceFolder = folder; }
  bool AskAboutSystemFolders(const std::string& folders) override {
    return asked += folders, goes_on;
  }
  void ListRepopulated(EmptyList reason) override {
    empty = grid_.RowCount() == 0 ? reason : empty;
  }
  void ShowAnew() override {
    if (grid_.RowCount() > 0) grid_.Populate();
  }
  std::vector<int> SelectedRows() const override {
    EXPECT_TRUE(waiting) << "its rows are about to be worked on";
    return selected;
  }
  std::optional<std::string> AskForMask(std::string_view caption, std::string_view mask) override {
    EXPECT_FALSE(waiting);
    shown += std::string(caption).append(" (").append(mask).append(") ");
    return mask_given;
  }
  void RowsChanged() override {}
  void FocusAfterCancel() override { focus_away = true; }
  void Show(std::size_t count, const char* what) { shown += std::to_string(count) + what; }
  void ShowFailureReport() override { Show(reports_.gFailureReport.size(), " failed "); }
  void ShowConflictReport() override { Show(reports_.gConflictReport.size(), " numbered "); }

  SourceOptions source{"/in/", "", "", false};
  OutputOptions output;
  std::vector<int> selected;
  std::optional<std::string> mask_given;  ///< none: the user cancels
  bool elements = false, waiting = false, focus_away = false;
  int repaints = 0;
  std::string buttons = "-----";  ///< list, preview, rename, undo, cancel
  EmptyList empty = EmptyList::kListing;
  std::string asked;  ///< about these folders
  bool goes_on = false;
  std::string shown;  ///< the report windows, with their counts
  Grid& grid_;
  const RunReports& reports_;
};

/// Two files, and elements that put "x " before their names.
struct CommandsTest : testing::Test, FakeServices {
  CommandsTest() {
    files.folders = {"/in", "/out"};
    files.contents = {{"/in/a.txt", "a"}, {"/in/b.txt", "b"}};
    constructor.InsertArrConstrItem(0, kText, "x ");
    commands.EnableDisable(ModeFolderChosen);
  }

  /// Presses the buttons, a letter each, and answers the mode that each ends in. With a number, it
  /// is cancelled when events run for that time.
  std::string Walk(const std::string& road) {
    std::string modes;
    for (std::size_t i = 0; i < road.size(); ++i) {
      if (road[i] == ' ') continue;
      const bool cancelled = i + 1 < road.size() && road[i + 1] != ' ';
      events.on_events = [&, at = cancelled ? events.count + road[i + 1] - '0' : 0] {
        if (events.count == at) commands.bnCancel_Click();
      };
      if (road[i] == 'l') commands.bnLoadFileList_Click();
      if (road[i] == 'p') commands.bnPreview_Click();
      if (road[i] == 'r') commands.bnRename_Click();
      if (road[i] == 'u') commands.bnUndo_Click();
      if (road[i] == 's') commands.MarkStale();
      modes += (modes.empty() ? "" : " ") + std::to_string(commands.Mode());
      EXPECT_FALSE(state.gCancelRequested);
      EXPECT_TRUE(view.elements && !view.waiting && !commands.Busy());
      i += cancelled;
    }
    return modes;
  }

  Session session;
  RunState& state = session.state;
  Records& records = session.records;
  Grid& grid = session.grid;
  Constructor& constructor = session.constructor;
  RunReports& reports = session.reports;
  FakeView view{session};
  Commands commands{session, services, view, view};
};

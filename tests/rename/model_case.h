#pragma once

#include <cstdint>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "rename/model_world.h"

/// Draws that are the same on every machine.
class Draw {
 public:
  explicit Draw(std::uint32_t seed) : random_(seed) {}

  int Below(int n) { return static_cast<int>(random_() % static_cast<std::uint32_t>(n)); }
  bool OneIn(int n) { return Below(n) == 0; }
  template <class List>
  const auto& From(const List& list) {
    return list[static_cast<std::size_t>(Below(static_cast<int>(list.size())))];
  }

 private:
  std::mt19937 random_;
};

/// What may happen in a case.
struct CaseKind {
  bool real = false;        ///< on a real disk
  bool case_blind = false;  ///< in memory only
  bool faults = false;      ///< operations fail, and somebody else changes files
};

/// One random tree, a plan for its files, and what a user does then: runs, cancels, goes on, takes
/// back, chooses another output or numbering. The two worlds are compared after every step. Without
/// faults every undo that ran to its end must have brought back all files, folders and rows; with
/// faults an undo without further ones must.
class ModelCase {
 public:
  ModelCase(std::uint32_t seed, ModelDisk& disk, const CaseKind& kind);

  /// False when the worlds differ, a file was lost or an undo left something; `story` then ends
  /// with how.
  bool Play();

  std::string story;  ///< readable, one line a step
  int undone = 0;     ///< runs that were taken back whole

 private:
  enum Stage { kPlanned, kRunDone, kRunCancelled, kUndone, kUndoCancelled };

  void ChooseNames();
  void MakeTree();
  void FillFolder(const std::string& folder, int most);
  void ListFiles();
  void MakePlan();
  std::string PlannedName(int kind, std::size_t row);
  void ChooseOptions();
  void ChooseNumbering();
  PlainTrouble ChooseTrouble(bool more_faults);
  void Run();
  void Undo(const PlainTrouble& trouble);
  void TakeAStep();
  bool Agree();
  bool IsWhole();
  void Meddle();
  bool IsAFoldersName(const std::string& name) const;
  void SpoilACopy();
  void Tell(const std::string& line) { story += line + "\n"; }
  void TellPass(const std::string& pass, const PlainTrouble& trouble);

  ModelDisk& disk_;
  TwoWorlds worlds_;
  Draw draw_;
  const CaseKind kind_;
  std::vector<std::string> names_;    ///< for files and plans
  std::vector<std::string> folders_;  ///< of the tree, with closing separators
  std::vector<std::string> outputs_;  ///< to choose from
  Stage stage_ = kPlanned;
  int strangers_ = 0;
  std::map<std::string, std::string> files_before_;  ///< as it all stood before the first run
  std::vector<std::string> rows_before_;
};

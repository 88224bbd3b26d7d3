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

/// How a run and its undo ended, both without a failing operation, a change of the output choice
/// or a hand from outside.
struct RoundTrip {
  int mode = 0;
  bool exact = false;
  std::string kind;  ///< why a rest may stay; empty when nothing explains one
};

/// One random tree, a plan for its files, and what a user does then: runs, cancels, goes on, takes
/// back, chooses another output, meddles. The two worlds are compared after every step.
class ModelCase {
 public:
  ModelCase(std::uint32_t seed, ModelDisk& disk, bool real);

  /// False when the worlds differ or a file was lost; `story` then ends with how.
  bool Play();

  std::string story;  ///< readable, one line a step
  std::vector<RoundTrip> round_trips;

 private:
  enum Stage { kPlanned, kRunDone, kRunCancelled, kUndone, kUndoCancelled };
  using Contents = std::map<std::string, std::string>;

  void ChooseNames();
  void MakeTree();
  void FillFolder(const std::string& folder, int most);
  void ListFiles();
  void MakePlan();
  std::string PlannedName(int kind, std::size_t row);
  void ChooseOptions();
  void ChooseNumbering();
  PlainTrouble ChooseTrouble();
  void Run();
  void Undo();
  void TakeAStep();
  void Meddle();
  bool IsAFoldersName(const std::string& name) const;
  void SpoilACopy();
  void NoteRoundTrip();
  std::string KindOfRest() const;
  bool HasTwins() const;
  Contents Files() const;
  void Tell(const std::string& line) { story += line + "\n"; }
  void TellPass(const std::string& pass, const PlainTrouble& trouble);

  ModelDisk& disk_;
  TwoWorlds worlds_;
  Draw draw_;
  const bool real_;
  std::vector<std::string> names_;    ///< for files and plans
  std::vector<std::string> folders_;  ///< of the tree, with closing separators
  Stage stage_ = kPlanned;
  int strangers_ = 0;
  bool undisturbed_ = true;  ///< no failure and no other choice since `before_`
  bool meddled_ = false;     ///< rows may stand for files that are gone
  Contents before_;
  std::vector<std::string> planned_;  ///< the new names of `before_`
};

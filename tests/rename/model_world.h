#pragma once

#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "core/records.h"
#include "core/run_state.h"
#include "rename/plain_model.h"
#include "rename/result_rows.h"
#include "rename/run_output.h"
#include "support/fake_services.h"
#include "support/memory_files.h"
#include "support/temp_folder.h"

/// The disk that the real passes work on, and how a test writes to it and reads it.
class ModelDisk {
 public:
  virtual ~ModelDisk() = default;
  virtual FileSystem& Files() = 0;
  virtual void MakeFolder(const std::string& path) = 0;
  virtual void Write(const std::string& path, const std::string& content) = 0;
  /// `leads_to` is a folder or nothing.
  virtual void MakeLink(const std::string& path, const std::string& leads_to) = 0;
  virtual void Remove(const std::string& path) = 0;
  /// `between` is called between the pieces of a copy, where the disk can tell.
  virtual void OnCopy(std::function<void()> between) = 0;
  /// All below the folders that the case works in: a folder as "<folder>", a link as "-> target".
  virtual std::map<std::string, std::string> Everything() = 0;

  std::string root;      ///< the case's folder, without a closing separator
  std::string out_root;  ///< where output folders are; may be on another file system
};

inline const std::string kFolderContent = "<folder>";

/// `case_blind`: takes names that differ in letter case only for one.
std::unique_ptr<ModelDisk> MakeMemoryDisk(bool case_blind);
/// Two temporary folders, on two file systems with `two_devices`.
std::unique_ptr<ModelDisk> MakeRealDisk(bool two_devices);

/// The real passes over a disk, beside the plain model over one in memory. What is done to one is
/// done to the other.
class TwoWorlds {
 public:
  TwoWorlds(ModelDisk& disk, bool case_blind);

  bool Has(const std::string& path) { return plain_files_.Look(path).has_value(); }
  bool IsFile(const std::string& path) { return plain_files_.contents.contains(path); }
  void MakeFolder(const std::string& path);
  void Write(const std::string& path, const std::string& content);
  void MakeLink(const std::string& path, const std::string& leads_to);
  void Remove(const std::string& path);

  void AddRow(const std::string& folder, const std::string& name, bool checked);
  void Plan(std::size_t row, const std::string& new_name);
  /// What the mode after a preview does.
  void CountAnew();
  void SetOptions(const PlainOptions& options);

  void Run(const PlainTrouble& trouble);
  void Undo(const PlainTrouble& trouble);

  /// Where the two differ, in words; empty when they agree and nothing was lost.
  std::string Differences();
  /// All files, links and folders below the folders of the case, by path.
  std::map<std::string, std::string> Everything();
  /// The items of each row.
  std::vector<std::string> Rows() const;

  PlainModel model;
  bool meddled = false;  ///< somebody else took or changed files
  /// The contents that must still be there, and how often at least.
  std::map<std::string, int> owned;

 private:
  template <class Pass>
  void Do(const PlainTrouble& trouble, Pass&& pass);
  std::string RowDifferences() const;
  std::string DiskDifferences();
  std::string Losses() const;
  std::string FalseMarks();

  ModelDisk& disk_;
  MemoryFiles plain_files_;
  Records records_;
  RunState state_;
  RunOutput output_;
  RunReports reports_;
  FakeEvents events_;
  FakeClock clock_;
};

/// `t` with every byte that can't be read shown by its number.
std::string Readable(const std::string& t);

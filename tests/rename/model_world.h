#pragma once

#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "core/records.h"
#include "core/run_state.h"
#include "rename/output_options.h"
#include "rename/plain_model.h"
#include "rename/result_rows.h"
#include "support/fakes.h"
#include "support/memory_files.h"
#include "support/temp_folder.h"

/// The disk that the real passes work on, and how a test writes to it and reads it.
class ModelDisk {
 public:
  virtual ~ModelDisk() = default;
  virtual FileSystem& Files() = 0;
  virtual void MakeFolder(const std::string& path) = 0;
  virtual void Write(const std::string& path, const std::string& content) = 0;
  virtual void MakeDanglingLink(const std::string& path) = 0;
  virtual void Remove(const std::string& path) = 0;
  /// `between` is called between the pieces of a copy, where the disk can tell.
  virtual void OnCopy(std::function<void()> between) = 0;
  /// All below the folders that the case works in: a folder as "<folder>", a link as kLinkContent.
  virtual std::map<std::string, std::string> Everything() = 0;

  std::string root;      ///< the case's folder, without a closing separator
  std::string out_root;  ///< where output folders are; may be on another file system
};

inline const std::string kFolderContent = "<folder>";
inline const std::string kLinkContent = "-> nowhere";

std::unique_ptr<ModelDisk> MakeMemoryDisk();
/// Two temporary folders, on two file systems with `two_devices`.
std::unique_ptr<ModelDisk> MakeRealDisk(bool two_devices);

/// The real passes over a disk, beside the plain model over its map. What is done to one is done to
/// the other.
class TwoWorlds {
 public:
  explicit TwoWorlds(ModelDisk& disk);

  void MakeFolder(const std::string& path);
  void Write(const std::string& path, const std::string& content);
  void MakeDanglingLink(const std::string& path);
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

  PlainModel model;
  /// The files that must still be there, by their serial in the model.
  std::set<int> owned;

 private:
  template <class Pass>
  void Do(const PlainTrouble& trouble, Pass&& pass);
  std::string RowDifferences() const;
  std::string DiskDifferences();

  ModelDisk& disk_;
  Records records_;
  RunState state_;
  OutputOptions output_;
  RunReports reports_;
  FakeEvents events_;
  FakeClock clock_;
};

/// `t` with every byte that can't be read shown by its number.
std::string Readable(const std::string& t);

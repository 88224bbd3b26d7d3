#pragma once

#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "core/pass.h"
#include "core/records.h"
#include "core/run_state.h"
#include "rename/plain_model.h"
#include "rename/result_rows.h"
#include "rename/run_output.h"
#include "support/fake_services.h"
#include "support/temp_folder.h"

inline const std::string kFolderContent = "<folder>";

/// What goes wrong during one pass; all counted from 1, 0 is never.
struct Trouble {
  int cancel_at = 0;         ///< at which letting of events the user cancels
  bool slow_copies = false;  ///< events run inside each copy too; in memory only
  std::set<int> failing;     ///< which changes of the disk fail; in memory only
};

/// The real passes over a disk, beside the plain model over one in memory.
class TwoWorlds {
 public:
  enum Disk { kMemory, kCaseBlind, kReal, kTwoDevices };
  explicit TwoWorlds(Disk disk);

  bool Has(const std::string& path) { return plain_files_.Look(path).has_value(); }
  bool IsFile(const std::string& path) { return plain_files_.contents.contains(path); }
  void MakeFolder(const std::string& path);
  void Write(const std::string& path, const std::string& content);
  /// `leads_to` is a folder or nothing.
  void MakeLink(const std::string& path, const std::string& leads_to);
  void Remove(const std::string& path);

  void AddRow(const std::string& folder, const std::string& name, bool checked);
  void Plan(std::size_t row, const std::string& new_name);
  void CountAnew();  ///< as the mode after a preview does
  void SetOptions(const PlainOptions& options);

  void Run(const Trouble& trouble);
  void Undo(const Trouble& trouble);

  /// Where the two differ, in words, and which files are lost; empty when all is well.
  std::string Differences();
  /// All files, links and folders of the case, by path: a link as "-> target".
  std::map<std::string, std::string> Everything() const { return AllOf(plain_files_); }
  /// The items of each row, and everything.
  std::vector<std::string> RowsAndFiles() const;

  std::string root = "/m";        ///< the case's folder, without a closing separator
  std::string out_root = "/m/o";  ///< where output folders are; may be on another file system

 private:
  void Do(const Trouble& trouble, const std::function<void(Pass&)>& real_pass);
  bool IsReal() const { return in_ != nullptr; }
  std::map<std::string, std::string> AllOf(const MemoryFiles& files) const;
  std::map<std::string, std::string> OnDisk() const;
  std::vector<std::string> Told() const;

  MemoryFiles plain_files_;
  MemoryFiles memory_;  ///< the disk of the passes, unless they work on a real one
  MemoryFiles* const both_[2] = {&plain_files_, &memory_};
  std::unique_ptr<TempFolder> in_, out_;
  std::unique_ptr<FileSystem> files_;
  std::set<std::string> owned_;  ///< contents that must still be there
  Records records_;
  RunState state_;
  RunOutput output_;
  RunReports reports_;
  FakeServices fakes_;

 public:
  PlainModel model{plain_files_};
};

#pragma once

#include <string>
#include <vector>

/// A file whose operation failed.
struct FailureRecord {
  std::string path;
  std::string source_name;
  std::string new_name;
  int problem = 0;  ///< errno or a FileProblem; 0 when it isn't known
};

/// A file that got a numbered name in place of the planned one.
struct ConflictRecord {
  std::string path;
  std::string new_path;  ///< the output folder; empty for a rename in place
  std::string source_name;
  std::string final_name;
  std::string planned_name;
};

/// What a run could not do as planned.
struct RunReports {
  std::vector<FailureRecord> gFailureReport;
  std::vector<ConflictRecord> gConflictReport;

  void DeleteAll() {
    gFailureReport.clear();
    gConflictReport.clear();
  }
};

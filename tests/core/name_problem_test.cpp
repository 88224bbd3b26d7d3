#include "core/name_problem.h"

#include <gtest/gtest.h>

TEST(NameProblem, IsToldOfNamesThatARunWouldTake) {
  const char* const table[][3] = {{"a.jpg", "b.jpg", ""},
                                  {"a.jpg", "", "empty name: will fail"},
                                  {"a.jpg", ".jpg", "only an extension"},
                                  {"README", ".bak", "only an extension"},
                                  {"a.jpg", "\u00E9\u00E9.jpg", ""},
                                  {"a.jpg", ".\u00E9\u00E9.jpg", "too long: 9 of 8 bytes"},
                                  {"a.jpg", ".longlong", "too long: 9 of 8 bytes"},
                                  {"a.jpg", ".tar.gz", ""},
                                  {".bashrc", ".bashrc", ""},
                                  {".a", "", "empty name: will fail"}};
  for (const auto& [old_name, new_name, words] : table) {
    FileRow row;
    row.sourceFileName = old_name;
    row.newFileName = new_name;
    EXPECT_EQ(VerdictText(JudgeNewName(row, 8)), words) << old_name << " " << new_name;
    row.KeepRollback();
    row.MoveAside(".aside");
    EXPECT_EQ(VerdictText(JudgeNewName(row, 8)), words) << "moved aside";
    row.RowTag = 1;
    EXPECT_EQ(JudgeNewName(row, 8), NameVerdict()) << "done";
    row.RowTag = 0;
    row.checked = false;
    EXPECT_EQ(JudgeNewName(row, 8), NameVerdict()) << "passed over";
  }
}

#include "settings/reg_settings.h"

#include <gmock/gmock.h>

#include "support/failure_report.h"
#include "support/memory_settings.h"

namespace {

using testing::HasSubstr;

TEST(RegSettings, NumbersAreReadStrictlyAndAReportNamesTheKey) {
  const std::pair<std::string, const char*> table[] = {
      {"-12", "-12"},
      {"2147483647", "2147483647"},
      {"2147483648", "Overflow"},
      {"", "Type mismatch"},
      {" 12", "Type mismatch"},
      {"99999999999999999999x", "Type mismatch"},
      {std::string("1\0", 2), "Type mismatch"},
      {std::string(65536, '1'), "Overflow"},
      {std::string(65537, '1'), "Invalid property value"}};
  MemorySettings store;
  std::string answer;
  const auto read = [&] {
    answer = std::to_string(mRegSettings::ReadInteger(store, {"Section", "Key", "7"}));
  };
  EXPECT_EQ(FailureReport(read) + answer, "7") << "not stored";
  for (const auto& [text, expected] : table) {
    store.values[{"Section", "Key"}] = text;
    const std::string report = FailureReport(read);
    EXPECT_THAT(report.empty() ? answer : report, testing::StartsWith(expected));
    if (report.empty()) continue;
    EXPECT_THAT(report, AllOf(HasSubstr("'Section'"), HasSubstr("'Key'")));
  }
}

TEST(RegSettings, DeletingWhatIsNotThereIsAFailure) {
  MemorySettings store;
  store.values[{"Templates", "1"}] = "Report";
  const auto delete_key = [&] { mRegSettings::DeleteSetting(store, "Templates", "1"); };
  const auto delete_section = [&] { mRegSettings::DeleteSetting(store, "Templates\\1"); };
  EXPECT_THAT(FailureReport(delete_section), HasSubstr("Invalid procedure call or argument"));
  EXPECT_EQ(FailureReport(delete_key), "");
  EXPECT_THAT(FailureReport(delete_key), HasSubstr("Number: 5"));
}

TEST(RegSettings, TheVersionIsOnDiskWhenItIsSaved) {
  MemorySettings store;
  const auto save = [&] { mRegSettings::SaveVersion(store, {1, 20, 3}, "/usr/bin"); };
  EXPECT_EQ(FailureReport(save), "");
  EXPECT_THAT(store.written,
              testing::ElementsAre("Major=1", "Minor=20", "Revision=3", "AppPath=/usr/bin"));
  EXPECT_EQ(store.flushes, 1);
  store.problem = {"can't be written: /conf", ENOSPC};
  const auto check = [&] { mRegSettings::CheckReadable(store); };
  for (const std::string& report : {FailureReport(save), FailureReport(check)}) {
    EXPECT_THAT(report, AllOf(HasSubstr("/conf"), HasSubstr("(28) No space left on device")));
  }
}

}  // namespace

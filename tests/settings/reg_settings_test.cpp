#include "settings/reg_settings.h"

#include <gmock/gmock.h>

#include "support/failure_report.h"
#include "support/memory_settings.h"

namespace {

using testing::HasSubstr;

constexpr mRegSettings::Setting kNumber{"S", "N", "7"};

/// The number read from a store that holds `text`, or the head of the report.
std::string ReadBack(const std::string& text) {
  MemorySettings store;
  store.values[{"S", "N"}] = text;
  std::string answer;
  const std::string report =
      FailureReport([&] { answer = std::to_string(mRegSettings::ReadInteger(store, kNumber)); });
  return report.empty() ? answer : report.substr(0, report.find(" \r"));
}

TEST(RegSettings, NumbersAreReadStrictly) {
  const struct {
    std::string text, answer;
  } table[] = {
      {"0", "0"},
      {"-12", "-12"},
      {"2147483647", "2147483647"},
      {"-2147483648", "-2147483648"},
      {"2147483648", "Overflow"},
      {"99999999999999999999", "Overflow"},
      {"", "Type mismatch"},
      {"12 ", "Type mismatch"},
      {" 12", "Type mismatch"},
      {"1,000", "Type mismatch"},
      {"99999999999999999999x", "Type mismatch"},
      {"True", "Type mismatch"},
      {std::string("1\0", 2), "Type mismatch"},
      {std::string(65536, '1'), "Overflow"},
      {std::string(65537, '1'), "Invalid property value"},
  };
  for (const auto& row : table) EXPECT_EQ(ReadBack(row.text), row.answer) << row.text;
}

TEST(RegSettings, AnAbsentNumberIsItsDefaultAndAReportNamesTheKeyOfABadOne) {
  MemorySettings store;
  EXPECT_EQ(mRegSettings::ReadInteger(store, kNumber), 7);
  store.values[{"S", "N"}] = "many";
  const std::string report = FailureReport([&] { mRegSettings::ReadInteger(store, kNumber); });
  for (const char* part : {"'S'", "'N'", "'many'"}) EXPECT_THAT(report, HasSubstr(part));
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
  mRegSettings::SaveVersion(store, {1, 20, 3}, "/usr/bin");
  EXPECT_THAT(store.written,
              testing::ElementsAre("Major=1", "Minor=20", "Revision=3", "AppPath=/usr/bin"));
  EXPECT_EQ(store.flushes, 1);
  store.problem = {"can't be written: /conf", ENOSPC};
  const auto save = [&] { mRegSettings::SaveVersion(store, {1, 20, 3}, "/usr/bin"); };
  EXPECT_THAT(FailureReport(save), HasSubstr("API Error: (28) No space left on device"));
  const auto check = [&] { mRegSettings::CheckReadable(store); };
  EXPECT_THAT(FailureReport(check), AllOf(HasSubstr("/conf"), HasSubstr("API Error: (28)")));
}

}  // namespace

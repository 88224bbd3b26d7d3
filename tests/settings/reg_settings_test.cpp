#include "settings/reg_settings.h"

#include <gmock/gmock.h>

#include "support/failure_report.h"
#include "support/memory_settings.h"

namespace {

using testing::HasSubstr;

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

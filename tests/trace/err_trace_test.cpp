#include "trace/err_trace.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cerrno>
#include <ios>
#include <optional>
#include <stdexcept>
#include <system_error>
#include <vector>

#include "support/failure_report.h"
#include "support/fake_services.h"
#include "trace/report_text.h"

namespace {

using testing::AllOf;
using testing::AnyOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

/// Gives the engine facts and sections, for the length of one test.
class ErrTraceTest : public testing::Test {
 protected:
  ErrTraceTest() { ErrTrace::SetFacts(&facts_); }
  ~ErrTraceTest() override {
    ErrTrace::SetFacts(nullptr);
    ErrTrace::SetSections({});
  }

  FakeSystemFacts facts_;
};

void Open(const std::string& path, int mode) {
  ErrTrace::inner("mLow.Open(path,mode)", ErrTrace::args(path, mode),
                  [] { throw Failure(kTypeMismatch, "100% wrong type", ENOENT); });
}

int Middle(const std::string& path) {
  return ErrTrace::inner("mMiddle.Middle(path)", ErrTrace::args(path), [&] {
    Open(path, 3);
    return 1;
  });
}

std::string ArgumentLine(auto&& argument) {
  return FailureReport(
      [&] { ErrTrace::inner("m.F(a)", ErrTrace::args(argument), [] { throw Failure(1, "x"); }); });
}

TEST_F(ErrTraceTest, AFailureThreeLevelsDeepGivesOneReport) {
  EXPECT_EQ(FailureReport([] { Middle("/home/q"); }),
            "100% wrong type \r\n"
            "  Time='03/09/24 07:05:02' App='quorvane:1.2.3' ADO-version='?' Computer='attic' \r\n"
            "  Method: mLow.Open \r\n"
            "  Number: 13 = &HD = vbObjectError + 2147221517 = ERRMAP_APP_FIRST + 2147216319 \r\n"
            "  Source: Quorvane \r\n"
            "  Description: 100% wrong type\r\n"
            "  API Error: (2) No such file or directory\r\n"
            "  Call Stack: mLow.Open(path='/home/q', mode=3) "
            "----------------------------------------------------\r\n"
            "  Call Stack: mMiddle.Middle(path='/home/q') "
            "-------------------------------------------------------\r\n"
            "  Call Stack: Test() "
            "-------------------------------------------------------------------------------\r\n");
}

TEST_F(ErrTraceTest, ACallStackLineIsFilledToAHundredCharactersAndNeverCut) {
  const std::string umlauts =
      ErrTrace::CallStackLine("m.F(a)", std::vector{ErrTrace::MakeArgument("\xC3\xA4\xC3\xB6")}, 7);
  EXPECT_THAT(umlauts, StartsWith("  Call Stack: m.F(a='\xC3\xA4\xC3\xB6')  at Line 7 ---"));
  EXPECT_EQ(umlauts.size(), 100u + 2 + 2);  // two letters of two bytes, CR LF
  const std::string longer(200, 'p');
  EXPECT_THAT(ArgumentLine(longer), HasSubstr("m.F(a='" + longer + "') \r\n"));
}

TEST_F(ErrTraceTest, ArgumentsAreWrittenByTheirKind) {
  const std::string text = "it's";
  const int number = 1;
  const std::string report = FailureReport([&] {
    ErrTrace::inner("m.F(a,b,c,d,e,f,g,h,i,j,k)",
                    ErrTrace::args(text, true, -5L, 0.5, std::vector<int>{1}, std::optional<int>(),
                                   std::optional<int>(4), nullptr,
                                   static_cast<const char*>(nullptr), facts_, &number),
                    [] { throw Failure(1, "x"); });
  });
  EXPECT_THAT(report, HasSubstr("m.F(a='it's', b=True, c=-5, d=0.5, e={Array}, f={Empty}, g=4, "
                                "h={Null}, i={Null}, j={FakeSystemFacts}, k={?})"));
  EXPECT_THAT(ArgumentLine(&facts_), HasSubstr("(a={FakeSystemFacts})"));
}

TEST_F(ErrTraceTest, LongTextsStandBelowTheLine) {
  const std::pair<std::string, bool> table[] = {{"one\ntwo", true}, {"one\rtwo", true},
                                                {"<a/>", true},     {"xml", true},
                                                {"a <b>", false},   {"", false}};
  for (const auto& [text, below] : table) {
    const std::string report = ArgumentLine(text);
    const std::string block = "    Value Of a:\r\n" + text + "\r\n  Call Stack: Test()";
    EXPECT_EQ(report.find(block) != report.npos, below) << text;
    EXPECT_EQ(report.find("m.F(a={Text}) -") != report.npos, below) << text;
  }
}

TEST_F(ErrTraceTest, ExceptionsOfOthersBecomeFailures) {
  const struct {
    void (*raise)();
    const char* head;
    const char* more;
  } table[] = {
      {[] { throw std::bad_alloc(); }, "Out of memory \r\n", "Number: 7 "},
      {[] { throw std::out_of_range("index 9"); }, "index 9 \r\n",
       "Source: std::out_of_range \r\n"},
      {[] { throw std::system_error(ENOSPC, std::generic_category(), "copy"); },
       "copy: No space left on device \r\n", "API Error: (28) No space left on device"},
      {[] { throw 5; }, "Internal error \r\n", "Number: 51 "},
      {[] { throw std::ios_base::failure("cut"); }, "cut: iostream error \r\n",
       "iostream error\r\n  Call Stack"},  // its code is no number of the system
  };
  for (const auto& row : table) {
    EXPECT_THAT(FailureReport(row.raise), AllOf(StartsWith(row.head), HasSubstr(row.more)));
  }
}

TEST_F(ErrTraceTest, AUserErrorPassesSilentlyAndUnchanged) {
  const std::pair<std::uint32_t, bool> table[] = {
      {0x80041064, false}, {0x80041065, true}, {0x8004144D, true}, {0x8004144E, false}};
  for (const auto& [number, silent] : table) {
    const auto fail = [n = static_cast<std::int32_t>(number)] {
      ErrTrace::inner("m.F", [&] { throw Failure(n, "no such name"); });
    };
    EXPECT_EQ(FailureReport(fail).empty(), silent) << std::hex << number;
    try {
      fail();
    } catch (const Failure& climbed) {
      EXPECT_EQ(climbed.Description() == "no such name", silent);
    }
  }
}

TEST_F(ErrTraceTest, AFailureThatWasLostSaysSoAndAPreservedOneOutlivesItsHandler) {
  const std::string report = ErrTrace::ErrorIn("m.F(a)", {}, ErrTrace::kTop);
  EXPECT_THAT(report, StartsWith("ErrorIn: Error information was lost. To fix: call ErrPreserve "
                                 "before doing anything in error handler. \r\n"));
  EXPECT_THAT(report, HasSubstr("Number: -2147216306 = &H8004144E = vbObjectError + 5198 = "
                                "ERRMAP_APP_FIRST + 0 = ERR_GENERAL\r\n"));
  try {
    throw Failure(kOverflow, "Overflow");
  } catch (...) {
    EXPECT_FALSE(ErrTrace::ErrMustStop());
  }
  EXPECT_THAT(ErrTrace::ErrorIn("m.F", {}, ErrTrace::kTop), StartsWith("Overflow \r\n"));
}

TEST_F(ErrTraceTest, SectionsStandAtTheirPlaces) {
  ErrTrace::SetSections({.database = [](std::string& report, int) { report += "  ADO \r\n"; },
                         .web = [](std::string& report, int) { report += "  Web \r\n"; },
                         .transaction =
                             [](std::string& report, int actions) {
                               report += "    Transaction: " + std::to_string(actions) + "\r\n";
                             }});
  const std::string report = ArgumentLine(1);
  EXPECT_THAT(report, HasSubstr("Description: x\r\n  ADO \r\n  Web \r\n  Call Stack: "));
  EXPECT_THAT(report, HasSubstr("-\r\n    Transaction: 35\r\n  Call Stack: Test() -"));
  EXPECT_THAT(report, EndsWith("-\r\n    Transaction: 42\r\n"));
}

TEST_F(ErrTraceTest, ASecondFailureWhileComposingCostsItsOwnPartOnly) {
  facts_.broken = true;
  ErrTrace::SetSections({.database = [](std::string& report, int) {
    report = "half";
    ErrTrace::top("mNested.Top", [] { Middle("/nested"); });
    Middle("/nested");
  }});
  const std::string report = FailureReport([] { Middle("/home/q"); });
  EXPECT_THAT(report, StartsWith("100% wrong type \r\n  Time='?' App='quorvane:1.2.3'"));
  EXPECT_THAT(report, Not(AnyOf(HasSubstr("nested"), HasSubstr("half"))));
  EXPECT_THAT(report, HasSubstr("Call Stack: mMiddle.Middle(path='/home/q')"));
}

TEST_F(ErrTraceTest, AFailureThatIsCaughtLeavesNothingBehind) {
  EXPECT_THROW(Middle("/first"), Failure);
  EXPECT_THAT(FailureReport([] { Middle("/second"); }), Not(HasSubstr("/first")));
}

TEST(ErrTrace, KnowsNothingOfTheMachineBeforeItIsTold) {
  EXPECT_THAT(ArgumentLine(1), HasSubstr("Time='?' App='?:?' ADO-version='?' Computer='?'"));
}

}  // namespace

#include "trace/err_trace.h"

#include <gmock/gmock.h>

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

using namespace testing;

/// Gives the engine facts and sections, for the length of one test.
struct ErrTraceTest : Test {
  ErrTraceTest() { ErrTrace::SetFacts(&facts_); }
  ~ErrTraceTest() override {
    ErrTrace::SetFacts(nullptr);
    ErrTrace::SetSections({});
    ErrTrace::SetDeveloper(nullptr);
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
            "  Call Stack: mLow.Open(path='/home/q', mode=3) " +
                std::string(52, '-') + "\r\n  Call Stack: mMiddle.Middle(path='/home/q') " +
                std::string(55, '-') + "\r\n  Call Stack: Test() " + std::string(79, '-') + "\r\n");
}

TEST_F(ErrTraceTest, ArgumentsAreWrittenByTheirKindInALineOfAHundredCharactersThatIsNeverCut) {
  const std::string umlauts =
      ErrTrace::CallStackLine("m.F(a)", std::vector{ErrTrace::MakeArgument("\xC3\xA4\xC3\xB6")}, 7);
  EXPECT_THAT(umlauts, StartsWith("  Call Stack: m.F(a='\xC3\xA4\xC3\xB6')  at Line 7 ---"));
  EXPECT_EQ(umlauts.size(), 100u + 2 + 2);  // two letters of two bytes, CR LF
  const std::string text = "it's", longer(200, 'p');
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
  EXPECT_THAT(ArgumentLine(longer), HasSubstr("m.F(a='" + longer + "') \r\n"));
  for (const std::string below : {"one\ntwo", "one\rtwo", "<a/>", "xml"}) {
    EXPECT_THAT(ArgumentLine(below),
                AllOf(HasSubstr("m.F(a={Text}) -"),
                      HasSubstr("    Value Of a:\r\n" + below + "\r\n  Call Stack: Test()")));
  }
  EXPECT_THAT(ArgumentLine(std::string("a <b>")), Not(HasSubstr("{Text}")));
}

TEST_F(ErrTraceTest, ExceptionsOfOthersBecomeFailures) {
  const std::tuple<void (*)(), const char*, const char*> table[] = {
      {[] { throw std::bad_alloc(); }, "Out of memory \r\n", "Number: 7 "},
      {[] { throw std::out_of_range("index 9"); }, "index 9 \r\n", "Source: std::out_of_range \r"},
      {[] { throw std::system_error(ENOSPC, std::generic_category(), "copy"); },
       "copy: No space left on device \r\n", "API Error: (28) No space left on device"},
      {[] { throw 5; }, "Internal error \r\n", "Number: 51 "},
      {[] { throw std::ios_base::failure("cut"); }, "cut: iostream error \r\n",
       "iostream error\r\n  Call Stack"}};  // its code is no number of the system
  for (const auto& [raise, head, more] : table) {
    EXPECT_THAT(FailureReport(raise), AllOf(StartsWith(head), HasSubstr(more)));
  }
}

TEST_F(ErrTraceTest, AUserErrorPassesSilentlyAndUnchanged) {
  for (const std::uint32_t number : {0x80041064, 0x80041065, 0x8004144D, 0x8004144E}) {
    const bool silent = number == 0x80041065 || number == 0x8004144D;  // the ends of their range
    const auto fail = [=] { ErrTrace::inner("m.F", [=] { throw Failure(int(number), "none"); }); };
    EXPECT_EQ(FailureReport(fail).empty(), silent) << std::hex << number;
    const auto as_thrown = [=](auto& text) { return (text == "none") == silent; };
    EXPECT_THAT(fail, Throws<Failure>(Property(&Failure::Description, Truly(as_thrown))));
  }
}

TEST_F(ErrTraceTest, ASecondFailureWhileComposingCostsItsOwnPartOnly) {
  facts_.broken = true;
  ErrTrace::SetSections({.database = [](std::string& report, int) {
    report = "half";
    ErrTrace::top("mNested.Top", [] { Middle("/nested"); });
    Middle("/nested");
  }});
  EXPECT_THROW(Middle("/caught"), Failure);  // which leaves nothing behind
  const std::string report = FailureReport([] { Middle("/home/q"); });
  EXPECT_THAT(report, StartsWith("100% wrong type \r\n  Time='?' App='quorvane:1.2.3'"));
  EXPECT_THAT(report, HasSubstr("Call Stack: mMiddle.Middle(path='/home/q')"));
  EXPECT_THAT(report, Not(ContainsRegex("nested|half|/caught")));
}

TEST_F(ErrTraceTest, ADeveloperIsAskedAtEachLevelAndMayHaveItRunAgain) {
  using enum PromptAnswer;
  const struct {
    std::vector<PromptAnswer> answers;  // in the order of the questions
    int failing_runs, runs;
    const char* report;
    std::uint32_t number = 1;
  } table[] = {{{kYes, kYes}, 2, 3, "meanwhile "},
               {{kNo, kYes, kNo, kNo}, 9, 2, "one "},
               {{kNo, kCancel}, 9, 1, "one "},
               {{kCancel}, 9, 1, "one "},
               {{}, 9, 1, "", 0x80041065}};
  for (const auto& [answers, failing_runs, runs, begins, number] : table) {
    FakePrompts prompts;
    ErrTrace::SetDeveloper(&prompts);
    prompts.on_tell = [&] {
      ErrTrace::top("mPaint.F", [] { throw Failure(5, "meanwhile"); });
      prompts.stop_answer = answers.at(prompts.told.size() - 1);
    };
    int run = 0;
    const std::string report = FailureReport([&] {
      ErrTrace::inner("mLow.F", [&] {
        if (++run <= failing_runs) throw Failure(int(number), "one");
      });
    });
    EXPECT_EQ(run, runs);
    EXPECT_EQ(prompts.told.size(), answers.size());
    EXPECT_THAT(report, StartsWith(begins));
    const std::string head = "Stopped on Error: Error: one",
                      asked =
                          "\nDo you want to retry the operation in step mode?\n"
                          "Click YES to retry, NO to move to the caller, CANCEL for no more stops";
    if (prompts.told.size() < 2 || answers[0] != kNo) continue;
    EXPECT_EQ(prompts.told[0], head + asked);
    EXPECT_EQ(prompts.told[1], head + "  (Propagated)" + asked);
    EXPECT_THAT(report, ContainsRegex("Call Stack: mLow.F.. -+\r\n  Call Stack: Test.. -+\r\n$"));
  }
}

}  // namespace

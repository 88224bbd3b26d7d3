#pragma once

#include <cstdint>
#include <exception>
#include <string>
#include <utility>

/// The standard numbers of failures.
enum FailureNumber : std::int32_t {
  kInvalidCall = 5,
  kOverflow = 6,
  kOutOfMemory = 7,
  kDivisionByZero = 11,
  kTypeMismatch = 13,
  kInternalError = 51,
  kPathFileAccess = 75,
  kBadPattern = 93,
  kInvalidPropertyValue = 380,
};

/// All that a failure tells.
struct FailureFacts {
  std::int32_t number = 0;
  std::string description = {};
  std::string source = {};        ///< where it comes from; "" is the program itself
  std::int32_t system_error = 0;  ///< errno of the call that failed, 0 if none did
  std::int32_t line = 0;          ///< of the text that was being read, 0 if none
  std::string help_file = {};
  std::int32_t help_context = 0;
  std::string slip = {};  ///< what the user gave amiss, as a sentence for the user; "" if nothing
};

/// The one exception of the program: a fault. A mistake of the user is one only where nothing could
/// tell it before; then it has its `slip`.
class Failure : public std::exception {
 public:
  explicit Failure(FailureFacts facts) : facts_(std::move(facts)) {}
  Failure(std::int32_t number, std::string description, std::int32_t system_error = 0)
      : facts_{.number = number,
               .description = std::move(description),
               .system_error = system_error} {}

  const FailureFacts& Facts() const { return facts_; }
  std::int32_t Number() const { return facts_.number; }
  const std::string& Description() const { return facts_.description; }
  const char* what() const noexcept override { return facts_.description.c_str(); }

 private:
  FailureFacts facts_;
};

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

/// The one exception of the program: a fault, never a mistake of the user.
class Failure : public std::exception {
 public:
  Failure(std::int32_t number, std::string description)
      : number_(number), description_(std::move(description)) {}

  std::int32_t Number() const { return number_; }
  const std::string& Description() const { return description_; }
  const char* what() const noexcept override { return description_.c_str(); }

 private:
  std::int32_t number_;
  std::string description_;
};

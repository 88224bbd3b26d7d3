#pragma once

#include <iterator>
#include <string_view>
#include <type_traits>
#include <typeinfo>

namespace ErrTrace {

/// The value of one argument of a procedure that failed. Refers to it and is made without any
/// allocation, so that making it can't fail.
struct Argument {
  enum Kind { kText, kInteger, kReal, kBoolean, kArray, kEmpty, kNull, kObject, kOther };

  Kind kind = kOther;
  std::string_view text;  ///< of an object the mangled name of its type
  long long integer = 0;
  double real = 0;
};

template <class T>
Argument MakeArgument(const T& value) noexcept {
  if constexpr (std::is_same_v<T, bool>) {
    return {Argument::kBoolean, {}, value, 0};
  } else if constexpr (std::is_integral_v<T> || std::is_enum_v<T>) {
    return {Argument::kInteger, {}, static_cast<long long>(value), 0};
  } else if constexpr (std::is_floating_point_v<T>) {
    return {Argument::kReal, {}, 0, static_cast<double>(value)};
  } else if constexpr (std::is_null_pointer_v<T>) {
    return {Argument::kNull, {}, 0, 0};
  } else if constexpr (std::is_pointer_v<T>) {
    if (value == nullptr) return {Argument::kNull, {}, 0, 0};
    if constexpr (std::is_convertible_v<T, std::string_view>) {
      return {Argument::kText, value, 0, 0};
    } else if constexpr (std::is_class_v<std::remove_pointer_t<T>>) {
      return MakeArgument(*value);
    }
    return {};
  } else if constexpr (std::is_convertible_v<const T&, std::string_view>) {
    return {Argument::kText, std::string_view(value), 0, 0};
  } else if constexpr (requires { value.has_value() ? MakeArgument(*value) : Argument(); }) {
    return value.has_value() ? MakeArgument(*value) : Argument{Argument::kEmpty, {}, 0, 0};
  } else if constexpr (requires { std::begin(value) != std::end(value); }) {
    return {Argument::kArray, {}, 0, 0};
  } else if constexpr (std::is_class_v<T>) {
    return {Argument::kObject, typeid(T).name(), 0, 0};
  } else {
    return {};
  }
}

}  // namespace ErrTrace

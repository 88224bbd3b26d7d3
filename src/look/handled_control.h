#pragma once

#include <algorithm>
#include <cstddef>
#include <functional>
#include <string_view>
#include <type_traits>

#include "trace/err_trace.h"

/// Runs the body of a control's handler; a failure in it is reported under the handler's name.
/// `argument` is the value of the handler's one parameter, if it has one.
using HandlerFrame = bool (*)(int argument, const std::function<void()>& body);

namespace detail {

template <ErrTrace::TraceString kControl, ErrTrace::TraceString kEvent>
consteval auto HandlerTrace() {
  constexpr std::string_view kForm = "Form1.";
  char text[kForm.size() + sizeof(kControl.text) + sizeof(kEvent.text) - 1] = {};
  char* end = std::copy(kForm.begin(), kForm.end(), text);
  end = std::copy_n(kControl.text, sizeof(kControl.text) - 1, end);
  std::copy_n(kEvent.text, sizeof(kEvent.text), end);
  return ErrTrace::TraceString(text);
}

/// Its text has a plain address, which a template argument's has not under the sanitizers.
template <ErrTrace::TraceString kControl>
inline constexpr auto kControlName = kControl;

}  // namespace detail

template <ErrTrace::TraceString kControl, ErrTrace::TraceString kEvent, class Argument = void>
bool RunHandler(int argument, const std::function<void()>& body) {
  constexpr auto kTrace = detail::HandlerTrace<kControl, kEvent>();
  if constexpr (std::is_void_v<Argument>) {
    static_cast<void>(argument);
    return ErrTrace::top<kTrace>(ErrTrace::args(), body);
  } else {
    const Argument value = static_cast<Argument>(argument);
    return ErrTrace::top<kTrace>(ErrTrace::args(value), body);
  }
}

/// A control by its name, with the frames of its handlers.
struct PickControl {
  const char* name;
  HandlerFrame click;
};
struct TextControl {
  const char* name;
  HandlerFrame change;
};
struct NumberControl {
  const char* name;
  HandlerFrame change;
  HandlerFrame validate;
};
struct PagesControl {
  const char* name;
  HandlerFrame selected_changed;
};

template <ErrTrace::TraceString kControl>
inline constexpr PickControl kPick{detail::kControlName<kControl>.text,
                                   &RunHandler<kControl, "_Click">};
template <ErrTrace::TraceString kControl>
inline constexpr PickControl kPickOfSeveral{detail::kControlName<kControl>.text,
                                            &RunHandler<kControl, "_Click(Index)", int>};
template <ErrTrace::TraceString kControl>
inline constexpr TextControl kTextField{detail::kControlName<kControl>.text,
                                        &RunHandler<kControl, "_Change">};
template <ErrTrace::TraceString kControl>
inline constexpr NumberControl kNumberField{detail::kControlName<kControl>.text,
                                            &RunHandler<kControl, "_Change">,
                                            &RunHandler<kControl, "_Validate(Cancel)", bool>};
template <ErrTrace::TraceString kControl>
inline constexpr PagesControl kPages{detail::kControlName<kControl>.text,
                                     &RunHandler<kControl, "_SelectedChanged(Item)", int>};

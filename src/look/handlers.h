#pragma once

#include <QObject>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

#include "trace/err_trace.h"

/// The trace string of a handler of the main window: "Form1.", control and event.
inline std::string HandlerOf(std::string_view control, std::string_view event) {
  return std::string("Form1.").append(control).append(event);
}

namespace detail {

/// Calls `body` with all of the values or, if it takes none, without.
template <class Body, class... T>
void Call(const Body& body, const T&... values) {
  if constexpr (std::is_invocable_v<const Body&, const T&...>) {
    body(values...);
  } else {
    body();
  }
}

}  // namespace detail

/// Runs `body` whenever `sender` emits `signal`, for as long as both live; a failure in it is
/// reported under the trace string `handler`. The body takes the values of the signal or none; a
/// handler that names a parameter is reported with them.
template <class Sender, class Signal, class Body>
void OnSignal(Sender* sender, Signal signal, const QObject* context, std::string handler,
              Body body) {
  QObject::connect(
      sender, signal, context,
      [handler = std::move(handler), body = std::move(body)](const auto&... values) -> void {
        const auto run = [&] { detail::Call(body, values...); };
        if (handler.ends_with(')')) {
          ErrTrace::top(handler, ErrTrace::args(values...), run);
        } else {
          ErrTrace::top(handler, run);
        }
      });
}
template <class Sender, class Signal, class Body>
void OnSignal(Sender* sender, Signal signal, std::string handler, Body body) {
  OnSignal(sender, signal, sender, std::move(handler), std::move(body));
}

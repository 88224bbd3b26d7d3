#pragma once

#include <string>
#include <string_view>

/// A text in up to three pieces that stand one behind the other and are not copied yet; they point
/// into the texts that it was made from.
struct Pieces {
  std::string_view first;
  std::string_view second;
  std::string_view third;

  void AppendTo(std::string& out) const {
    out += first;
    out += second;
    out += third;
  }

  /// The pieces as one text.
  std::string Text() const {
    std::string t;
    AppendTo(t);
    return t;
  }
};

#pragma once

#include <string_view>

enum class PromptIcon { kExclamation, kCritical };

/// Message boxes. Texts are plain UTF-8; "\n" breaks lines.
class Prompts {
 public:
  virtual ~Prompts() = default;

  /// Shows `message` and returns when the user has closed it.
  virtual void Tell(std::string_view message, PromptIcon icon) = 0;
};

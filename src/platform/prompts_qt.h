#pragma once

#include "platform/prompts.h"

/// Message boxes over the window that is active, or over none.
class QtPrompts : public Prompts {
 public:
  void Tell(std::string_view message, PromptIcon icon) override;
};

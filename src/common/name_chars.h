#pragma once

#include <string_view>

#include "platform/services.h"

namespace mMain {

/// True when `text` holds one of the nine characters that a file name can't hold on every system,
/// after telling the user which they are. Without one, nothing is shown.
bool HasBadFileNameChars(std::string_view text, Prompts& prompts);

}  // namespace mMain

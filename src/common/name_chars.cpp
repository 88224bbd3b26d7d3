#include "common/name_chars.h"

#include "trace/err_trace.h"

namespace mMain {

bool HasBadFileNameChars(std::string_view text, Prompts& prompts) {
  return ErrTrace::inner("mMain.HasBadFileNameChars(text)", ErrTrace::args(text), [&] {
    if (text.find_first_of("/\\:*?\"<>|") == text.npos) return false;
    prompts.Tell(
        "A filename cannot contain any of the following characters:\n"
        "\\ / : * ? \" < > |",
        PromptIcon::kExclamation);
    return true;
  });
}

}  // namespace mMain

#include "common/name_chars.h"

#include "common/language.h"
#include "trace/err_trace.h"

namespace mMain {

bool HasBadFileNameChars(std::string_view text, Prompts& prompts) {
  return ErrTrace::inner("mMain.HasBadFileNameChars(text)", ErrTrace::args(text), [&] {
    if (text.find_first_of("/\\:*?\"<>|") == text.npos) return false;
    prompts.Tell(mLanguageGobals::kBadNameChars, PromptIcon::kExclamation);
    return true;
  });
}

}  // namespace mMain

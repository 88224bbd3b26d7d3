#pragma once

#include <string>

namespace mCommon {

/// Why a file operation was not done, in plain words, a whole sentence: of an errno value or a
/// `FileProblem`. "" for 0.
std::string ProblemText(int problem);

}  // namespace mCommon

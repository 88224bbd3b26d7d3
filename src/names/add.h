#pragma once

#include <cstdint>
#include <string_view>

#include "names/pieces.h"

/// The five ways to add to a part of a name. N counts characters; below 0 it counts as 0. The
/// pieces point into the arguments.
namespace mAdd {

Pieces AddLeft(std::string_view T, std::string_view Text1);
Pieces AddRight(std::string_view T, std::string_view Text1);
Pieces AddBoth(std::string_view T, std::string_view Text1, std::string_view Text2);

/// `Text1` behind the first `N`; at the end when there are no more.
Pieces InsertAfterFirst(std::string_view T, std::string_view Text1, std::int32_t N);

/// `Text1` before the last `N`; at the front when there are no more.
Pieces InsertBeforeLast(std::string_view T, std::string_view Text1, std::int32_t N);

}  // namespace mAdd

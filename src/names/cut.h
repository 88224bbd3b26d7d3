#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "names/pieces.h"

/// The nine ways to cut a part of a name. N and K count characters; below 0 they count as 0. The
/// pieces point into `T`.
namespace mCut {

/// `T` without every occurrence of `Text`, whatever its letter case; `T` when `Text` is empty.
std::string RemoveText(std::string_view T, std::string_view Text);

/// Without the first `N`; empty when there are no more.
Pieces RemoveFromStart(std::string_view T, std::int32_t N);

/// Without the last `N`; empty when there are no more.
Pieces RemoveFromEnd(std::string_view T, std::int32_t N);

/// The first `K` stay, the next `N` go.
Pieces RemoveAfterFirst(std::string_view T, std::int32_t K, std::int32_t N);

/// The last `K` stay, the `N` before them go.
Pieces RemoveBeforeLast(std::string_view T, std::int32_t K, std::int32_t N);

/// Without the first `N` and, of the rest, the last `K`.
Pieces RemoveFromBoth(std::string_view T, std::int32_t N, std::int32_t K);

/// The first `N` alone.
Pieces KeepFirst(std::string_view T, std::int32_t N);

/// The last `N` alone.
Pieces KeepLast(std::string_view T, std::int32_t N);

/// The first `N` and, of the rest, the last `K`; so all of `T` when they cover it.
Pieces RemoveBetween(std::string_view T, std::int32_t N, std::int32_t K);

}  // namespace mCut

#include "names/cut.h"

#include <algorithm>
#include <cstddef>

#include "platform/text.h"

namespace mCut {
namespace {

std::size_t Count(std::int32_t n) {
  return static_cast<std::size_t>(std::max(n, 0));
}

std::string_view Head(std::string_view t, std::int32_t n) {
  return text::Left(t, Count(n));
}
std::string_view Tail(std::string_view t, std::int32_t n) {
  return text::Right(t, Count(n));
}

/// What stands behind the first `n`.
std::string_view BehindHead(std::string_view t, std::int32_t n) {
  return t.substr(Head(t, n).size());
}

/// What stands before the last `n`.
std::string_view BeforeTail(std::string_view t, std::int32_t n) {
  return t.substr(0, t.size() - Tail(t, n).size());
}

}  // namespace

std::string RemoveText(std::string_view T, std::string_view Text) {
  return text::ReplaceIgnoringCase(T, Text, "");
}

Pieces RemoveFromStart(std::string_view T, std::int32_t N) {
  return {BehindHead(T, N), {}, {}};
}

Pieces RemoveFromEnd(std::string_view T, std::int32_t N) {
  return {BeforeTail(T, N), {}, {}};
}

Pieces RemoveAfterFirst(std::string_view T, std::int32_t K, std::int32_t N) {
  return {Head(T, K), BehindHead(BehindHead(T, K), N), {}};
}

Pieces RemoveBeforeLast(std::string_view T, std::int32_t K, std::int32_t N) {
  return {BeforeTail(BeforeTail(T, K), N), Tail(T, K), {}};
}

Pieces RemoveFromBoth(std::string_view T, std::int32_t N, std::int32_t K) {
  return {BeforeTail(BehindHead(T, N), K), {}, {}};
}

Pieces KeepFirst(std::string_view T, std::int32_t N) {
  return {Head(T, N), {}, {}};
}

Pieces KeepLast(std::string_view T, std::int32_t N) {
  return {Tail(T, N), {}, {}};
}

Pieces RemoveBetween(std::string_view T, std::int32_t N, std::int32_t K) {
  return {Head(T, N), Tail(BehindHead(T, N), K), {}};
}

}  // namespace mCut

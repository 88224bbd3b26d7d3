#include "names/add.h"

#include <algorithm>
#include <cstddef>

#include "platform/text.h"

namespace mAdd {
namespace {

std::size_t Count(std::int32_t n) {
  return static_cast<std::size_t>(std::max(n, 0));
}

}  // namespace

Pieces AddLeft(std::string_view T, std::string_view Text1) {
  return {Text1, T, {}};
}

Pieces AddRight(std::string_view T, std::string_view Text1) {
  return {T, Text1, {}};
}

Pieces AddBoth(std::string_view T, std::string_view Text1, std::string_view Text2) {
  return {Text1, T, Text2};
}

Pieces InsertAfterFirst(std::string_view T, std::string_view Text1, std::int32_t N) {
  const std::string_view head = text::Left(T, Count(N));
  return {head, Text1, T.substr(head.size())};
}

Pieces InsertBeforeLast(std::string_view T, std::string_view Text1, std::int32_t N) {
  const std::string_view tail = text::Right(T, Count(N));
  return {T.substr(0, T.size() - tail.size()), Text1, tail};
}

}  // namespace mAdd

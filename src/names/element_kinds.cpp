#include "names/element_kinds.h"

#include <algorithm>
#include <iterator>

std::optional<InsertCommand> FindInsertCommand(int id) {
  for (const ElementKind& kind : kElementKinds) {
    if (id == kind.insert_left) return InsertCommand{kind, Side::kLeft};
    if (id == kind.insert_right) return InsertCommand{kind, Side::kRight};
  }
  return std::nullopt;
}

std::string_view PaneTitle(ItemType number) {
  const auto* kind = std::ranges::find(kElementKinds, number, &ElementKind::number);
  return kind == std::end(kElementKinds) ? "" : kind->title;
}

std::string_view ElementCaption(const ConstrItem& item) {
  for (const ElementKind& kind : kElementKinds) {
    if (kind.number == item.ItemType && kind.number != kText) return kind.caption;
  }
  return item.ItemText;
}

#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "names/constr_item.h"

/// The row of elements that a new name is put together from, left to right.
class Constructor {
 public:
  /// The three start items: source name, dot, extension. Every new name equals the old one.
  Constructor();

  std::vector<ConstrItem> ArrConstr;

  /// Inserts an element of `pType` at `pIndex`, which must be at most the count; those from there
  /// on move up by one. Its options are those that a new element of its kind has.
  void InsertArrConstrItem(std::size_t pIndex, ItemType pType, std::string_view pText);

  /// Removes the element at `pIndex`.
  void DeleteArrConstrItem(std::size_t pIndex);

  /// Exchanges the element at `pIndex` with its left or right neighbour, which must be there.
  void MoveArrConstrItemLeft(std::size_t pIndex);
  void MoveArrConstrItemRight(std::size_t pIndex);

  /// True when an element of `type` is among them; a counter makes names depend on row order.
  bool Holds(ItemType type) const;

  bool operator==(const Constructor&) const = default;
};

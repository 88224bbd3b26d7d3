#pragma once

#include <array>
#include <cstdint>
#include <string>

/// The kinds of elements of a new name. The numbers are stored.
enum ItemType : std::int32_t {
  kText = -1,
  kSourceFileName = 0,
  kExtension = 1,
  kParentFolderName = 2,
  kFileDate = 3,
  kTodaysDate = 4,
  kCounter = 5,
};

/// The options of an element that rewrites a part of the old name. Modes are the positions in
/// their combo boxes, from 0.
struct TransformOptions {
  std::int32_t Case = 0;
  std::int32_t Cut = 0;
  std::int32_t CutN = 0;
  std::int32_t CutX = 0;  ///< shown as K
  std::string CutText = {};
  std::string Replace1 = {};
  std::string Replace2 = {};
  std::int32_t Add = 0;
  std::int32_t AddN = 0;
  std::string AddText1 = {};
  std::string AddText2 = {};

  std::int32_t OptionsTab = 0;  ///< the option page last shown
  bool operator==(const TransformOptions&) const = default;
};

/// The options of a date element.
struct DateOptions {
  std::array<std::int32_t, 3> Parts = {8, 4, 2};  ///< positions in `kDateParts`
  std::string Separator = "-";
  std::string Format = {};  ///< derived from the two above
  bool operator==(const DateOptions&) const = default;
};

/// The options of a counter.
struct CounterOptions {
  std::int32_t Start = 1;
  std::int32_t Range = 3;   ///< digits less one
  std::int32_t Reset = 1;   ///< 1: starts again at each group
  std::string Format = {};  ///< as many zeros as digits, derived from Range
  std::int32_t Value = 0;   ///< runs during a preview
  bool operator==(const CounterOptions&) const = default;
};

/// One element of a new name with its options; only those that fit its kind are read.
struct ConstrItem {
  ::ItemType ItemType = kText;
  std::string ItemText = {};  ///< of a text element
  TransformOptions transform = {};
  DateOptions date = {};
  CounterOptions counter = {};
  bool operator==(const ConstrItem&) const = default;
};

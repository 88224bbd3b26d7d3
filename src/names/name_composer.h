#pragma once

#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "core/file_row.h"
#include "names/constructor.h"
#include "names/date_format.h"
#include "names/transform.h"
#include "platform/clock.h"
#include "platform/services.h"

/// Composes new names from the elements of a constructor. Made once for a pass: the options are
/// taken then, but the running values of the counters are read for each name.
class NameComposer {
 public:
  /// `constructor` and `clock` must outlive this, the constructor with its elements unchanged.
  NameComposer(const Constructor& constructor, Clock& clock, const LocaleFacts& locale);

  /// The new name of a file, from its name, the name of its folder and its date, cleaned at its
  /// end; valid until the next call. Today's date is read anew. Fails as `PartTransform` does.
  std::string_view Compose(std::string_view source_file_name, std::string_view folder_name,
                           const FileDate& date);

 private:
  struct Counter {
    const ConstrItem* item;
  };
  // Neighbours in the list mostly share folder, extension and day, so these elements keep what
  // they made last.
  struct DateElement {
    bool today;
    DateFormatter formatter;
    int last_year = 0, last_month = 0, last_day = 0;
    std::string last_text;
  };
  struct TransformElement {
    ItemType source;
    PartTransform transform;
    std::string last_part;
    std::string last_text;
  };
  using Element = std::variant<std::string, TransformElement, DateElement, Counter>;

  struct Row;
  void Append(const std::string& fixed, const Row& row);
  void Append(TransformElement& element, const Row& row);
  void Append(DateElement& element, const Row& row);
  void AppendDate(DateElement& element, int year, int month, int day);
  void Append(const Counter& counter, const Row& row);

  Clock& clock_;
  std::vector<Element> elements_;
  bool needs_today_ = false;
  std::string name_;
};

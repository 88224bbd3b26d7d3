#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "core/file_row.h"
#include "core/records.h"
#include "names/constructor.h"
#include "platform/clock.h"
#include "platform/services.h"

/// What a new name is made from.
struct NameSource {
  std::string_view file_name;  ///< its old name, of the file that is meant
  std::string_view folder_name;
  const FileDate& date;
  LocalTime today = {};
};

/// What the name of a file of the list is made from.
NameSource SourceOf(const FileRow& row, const Records& records);

/// Whether the preview gives a row a new name: one that is ticked and not yet done.
inline bool IsToBeNamed(const FileRow& row) {
  return row.checked && row.RowTag != 1;
}

/// Composes new names from the elements of a constructor. Made once for a pass: the options are
/// taken then, but the running values of the counters are read for each name.
class NameComposer {
 public:
  /// `constructor` and `clock` must outlive this, the constructor with its elements unchanged.
  NameComposer(const Constructor& constructor, Clock& clock, const LocaleFacts& locale);

  /// The new name made from `source`, cleaned at its end; valid until the next call. Today's date
  /// is read anew, whatever `source` says. Fails as `PartTransform` does; other names can be made
  /// then.
  std::string_view Compose(NameSource source);

 private:
  /// Appends what one element gives.
  using Element = std::function<void(const NameSource& source, std::string& name)>;
  static Element ElementOf(const ConstrItem& item, const LocaleFacts& locale);

  Clock& clock_;
  std::vector<Element> elements_;
  const bool needs_today_;
  std::string name_;
};

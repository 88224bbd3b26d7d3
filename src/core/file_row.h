#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "platform/files.h"

/// A file date to the second, in local time; sorts as its text does.
class FileDate {
 public:
  /// The date of a file without a time stamp; its text is empty.
  FileDate() = default;
  /// A calendar date of the years 1 to 9999.
  FileDate(int year, int month, int day, int hour, int minute, int second)
      : digits_(((((year * 100LL + month) * 100 + day) * 100 + hour) * 100 + minute) * 100 +
                second) {}

  /// "yyyy.mm.dd hh:mm:ss", or empty.
  std::string Text() const;

  int Year() const { return static_cast<int>(digits_ / 10'000'000'000LL); }
  int Month() const { return static_cast<int>(digits_ / 100'000'000LL % 100); }
  int Day() const { return static_cast<int>(digits_ / 1'000'000LL % 100); }
  bool Empty() const { return digits_ == 0; }
  /// The digits of the text as one number.
  std::int64_t Digits() const { return digits_; }
  auto operator<=>(const FileDate&) const = default;

 private:
  std::int64_t digits_ = 0;  ///< yyyymmddhhmmss as one decimal number
};

/// The state mark of a row: item 6 with its colour.
enum class Mark : std::uint8_t {
  kWaiting,  ///< ">>" in its colour
  kDone,
  kFailed,
  kEmptied,  ///< ">>" in the colour of plain text: what undo needs was dropped
};

/// The text of a mark: ">>", "Done" or "Failed".
std::string_view MarkText(Mark mark);

/// One file of the list: the one store of its names and of what undo needs. Texts that many rows
/// share (folder, type, output folder) are numbers into the tables of `Records`.
///
/// The rollback name is kept without a second copy for as long as it equals the source name, which
/// is so for nearly every row of a run; therefore it has functions and no field.
class FileRow {
 public:
  std::string sourceFileName;  ///< item 5, with extension
  std::string newFileName;     ///< item 7
  double size = 0;             ///< item 1, bytes
  FileDate date;               ///< item 3
  /// Of the file that the row stands for, wherever a run put it, as far as it is known; of a row
  /// whose file was copied, that of the original.
  Fingerprint fingerprint = 0;
  std::uint32_t folder = 0;     ///< items 0 and 8: number in the folder table
  std::uint32_t type = 0;       ///< item 2: number in the text table
  std::uint32_t outcome = 0;    ///< item 11 and the copy made, as `Records` knows them
  std::int16_t problem = 0;     ///< why its run or undo failed: errno, a FileProblem, or 0
  std::int8_t mode = -1;        ///< item 12: output mode when the row was processed, -1 is empty
  std::uint8_t RowTag : 1 = 0;  ///< 1 once the row's operation succeeded in a run, else empty (0)
  Mark mark : 2 = Mark::kWaiting;  ///< item 6
  bool checked : 1 = true;         ///< item 4

  /// Item 9, the name before the run touched the file; empty until then.
  std::string_view Rollback() const;
  /// The name that the user knows the file by: one that was moved aside bears a name that nobody
  /// gave it.
  std::string_view GivenName() const;
  /// Item 9 takes the source name, unless it holds a name already.
  void KeepRollback();
  void ClearRollback();

  /// Item 5 takes `temporary`; item 9 keeps what it holds.
  void MoveAside(std::string temporary);
  /// Item 5 takes item 9.
  void ShowRollbackName();

  /// Undo has something to take back: a done operation, or a file that was only moved aside.
  bool TakesPartInUndo() const { return RowTag == 1 || !Rollback().empty(); }

  std::string_view Temp() const { return rare_ ? std::string_view(rare_->temp) : ""; }
  std::string_view PlannedName() const { return rare_ ? std::string_view(rare_->planned) : ""; }
  void SetTemp(std::string_view name) { Rare().temp = name; }
  void SetPlannedName(std::string_view name) { Rare().planned = name; }
  /// Item 7 takes item 13, if that is set, and item 13 is emptied.
  void ShowPlannedName();
  /// Item 7 takes item 10, if that is set, and item 10 is emptied.
  void ShowTemp();

 private:
  struct RareTexts {
    std::string rollback;  ///< item 9, where it differs from item 5
    std::string temp;      ///< item 10
    std::string planned;   ///< item 13
  };
  RareTexts& Rare();

  bool rollback_is_source_ : 1 = false;
  std::unique_ptr<RareTexts> rare_;
};
static_assert(sizeof(FileRow) <= 112, "a list may hold a million rows");

#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <variant>

#include "settings/options.h"

/// Where an option is held: a check box, a choice from a list, a number, a text.
using HeldOption = std::variant<bool*, int*, std::int16_t*, std::string*>;

/// An option that is remembered. Check boxes are stored as 0 or 1, choices as the position from 0.
struct OptionRow {
  std::string_view section;
  std::string_view key;
  HeldOption (*in)(Options& options);
  bool SaveOptions::*save = nullptr;  ///< the box that says whether it is stored; null: always
  bool reset = false;                 ///< takes its default while that box is off
  int most = 0;                       ///< of a choice, its last position
};

namespace option_table {

template <class Group, class Value>
Value* In(Options& o, Value Group::*member) {
  return &(std::get<Group&>(std::tie(o.save, o.source, o.output, o.list, o.numbering)).*member);
}

/// Finds a member of one of the groups.
template <auto Member>
HeldOption At(Options& options) {
  return In(options, Member);
}

inline constexpr std::string_view kSave = "Settings\\Save";
inline constexpr std::string_view kFolders = "Settings\\Folders";
inline constexpr std::string_view kFileList = "Settings\\FileList";
/// Written by the dialog that changes it.
inline constexpr std::string_view kConflicts = "Conflicts";

inline constexpr bool SaveOptions::*kSource = &SaveOptions::chSaveSourceFolderOptions;
inline constexpr bool SaveOptions::*kOutput = &SaveOptions::chSaveOutputFolderOptions;
inline constexpr bool SaveOptions::*kList = &SaveOptions::chSaveFileListOptions;
inline constexpr int kLastGrouping = 2;

/// In the order of the reading and of the writing; the save boxes stand before their groups.
inline constexpr OptionRow kRows[] = {
    {kSave, "SaveSourceFolderOptions", At<kSource>},
    {kSave, "SaveOutputFolderOptions", At<kOutput>},
    {kSave, "SaveFileListOptions", At<kList>},
    {kFolders, "SourceFolderPath", At<&SourceOptions::fdSourceFolder>, kSource},
    {kFolders, "SourceFolderSubfolders", At<&SourceOptions::chSubfolders>, kSource, true},
    {kFolders, "IncludeMask", At<&SourceOptions::fdIncludeMask>, kSource},
    {kFolders, "ExcludeMask", At<&SourceOptions::fdExcludeMask>, kSource},
    {kFolders, "OutputFolderMode", At<&OutputOptions::cmbDestination>, kOutput, true,
     kLastOutputMode},
    {kFolders, "OutputFolderPath", At<&OutputOptions::fdDestination>, kOutput},
    {kFolders, "OutputFolderSubfolders", At<&OutputOptions::chDestinationSubfolders>, kOutput,
     true},
    {kFileList, "ColumnPath", At<&ListOptions::chColumnPath>, kList},
    {kFileList, "ColumnSize", At<&ListOptions::chColumnSize>, kList},
    {kFileList, "ColumnType", At<&ListOptions::chColumnType>, kList},
    {kFileList, "ColumnDate", At<&ListOptions::chColumnDate>, kList},
    {kFileList, "GroupBy", At<&ListOptions::cmbGroupBy>, kList, true, kLastGrouping},
    {kConflicts, "AddNumber", At<&NumberingOptions::gConflictAddNumber>},
    {kConflicts, "NumberLeft", At<&NumberingOptions::gNumberLeft>},
    {kConflicts, "NumberRight", At<&NumberingOptions::gNumberRight>},
};

/// As it is stored. Takes a copy, for a row points into options that can be written.
inline std::string TextOf(const OptionRow& row, Options options) {
  const auto as_text = [](const auto* held) -> std::string {
    if constexpr (std::is_same_v<decltype(held), const std::string*>) {
      return *held;
    } else {
      return std::to_string(*held);
    }
  };
  return std::visit(as_text, row.in(options));
}

}  // namespace option_table

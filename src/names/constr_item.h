#pragma once

#include <cstdint>
#include <string>

/// The kinds of elements of a new name.
enum ItemType : std::int32_t {
  kText = -1,
  kSourceFileName = 0,
  kExtension = 1,
  kParentFolderName = 2,
  kFileDate = 3,
  kTodaysDate = 4,
  kCounter = 5,
};

/// One element of a new name with all its options; only the group that fits its kind is read.
/// Modes are the positions in their combo boxes, from 0.
struct ConstrItem {
  std::int32_t ItemType = kText;
  std::string ItemText;  ///< of a text element

  std::int32_t OptionsTab = 0;  ///< the option page last shown

  std::int32_t CaseOldFile = 0;
  std::int32_t CutFile = 0;
  std::int32_t CutFileN = 0;
  std::int32_t CutFileX = 0;
  std::string CutFileText;
  std::string Replace1;
  std::string Replace2;
  std::int32_t AddFile = 0;
  std::int32_t AddFileN = 0;
  std::string AddFileText1;
  std::string AddFileText2;

  std::int32_t CaseExt = 0;
  std::int32_t CutExt = 0;
  std::int32_t CutExtN = 0;
  std::int32_t CutExtX = 0;
  std::string CutExtText;
  std::string ReplaceExt1;
  std::string ReplaceExt2;
  std::int32_t AddExt = 0;
  std::int32_t AddExtN = 0;
  std::string AddExtText1;
  std::string AddExtText2;

  std::int32_t CaseParentFolder = 0;
  std::int32_t CutParentFolder = 0;
  std::int32_t CutParentFolderN = 0;
  std::int32_t CutParentFolderX = 0;
  std::string CutParentFolderText;
  std::string ReplaceParentFolder1;
  std::string ReplaceParentFolder2;
  std::int32_t AddParentFolder = 0;
  std::int32_t AddParentFolderN = 0;
  std::string AddParentFolderText1;
  std::string AddParentFolderText2;

  std::int32_t Date0 = 0;
  std::int32_t Date1 = 0;
  std::int32_t Date2 = 0;
  std::string DateSeparator;
  std::string DateFormat;  ///< derived from the four above

  std::int32_t TDate0 = 0;
  std::int32_t TDate1 = 0;
  std::int32_t TDate2 = 0;
  std::string TDateSeparator;
  std::string TDateFormat;  ///< derived from the four above

  std::int32_t CounterStart = 0;
  std::int32_t CounterRange = 0;  ///< digits less one
  std::int32_t ResetCounter = 0;  ///< 1: starts again at each group
  std::string CounterFormat;      ///< as many zeros as digits, derived from CounterRange
  std::int32_t CounterValue = 0;  ///< runs during a preview
};

/// The members that hold the options of one of the three transformed kinds.
struct TransformFields {
  std::int32_t ConstrItem::*Case;
  std::int32_t ConstrItem::*Cut;
  std::int32_t ConstrItem::*CutN;
  std::int32_t ConstrItem::*CutX;
  std::string ConstrItem::*CutText;
  std::string ConstrItem::*Replace1;
  std::string ConstrItem::*Replace2;
  std::int32_t ConstrItem::*Add;
  std::int32_t ConstrItem::*AddN;
  std::string ConstrItem::*AddText1;
  std::string ConstrItem::*AddText2;
};

/// By kind: kSourceFileName, kExtension, kParentFolderName.
inline constexpr TransformFields kTransformFields[3] = {
    {&ConstrItem::CaseOldFile, &ConstrItem::CutFile, &ConstrItem::CutFileN, &ConstrItem::CutFileX,
     &ConstrItem::CutFileText, &ConstrItem::Replace1, &ConstrItem::Replace2, &ConstrItem::AddFile,
     &ConstrItem::AddFileN, &ConstrItem::AddFileText1, &ConstrItem::AddFileText2},
    {&ConstrItem::CaseExt, &ConstrItem::CutExt, &ConstrItem::CutExtN, &ConstrItem::CutExtX,
     &ConstrItem::CutExtText, &ConstrItem::ReplaceExt1, &ConstrItem::ReplaceExt2,
     &ConstrItem::AddExt, &ConstrItem::AddExtN, &ConstrItem::AddExtText1, &ConstrItem::AddExtText2},
    {&ConstrItem::CaseParentFolder, &ConstrItem::CutParentFolder, &ConstrItem::CutParentFolderN,
     &ConstrItem::CutParentFolderX, &ConstrItem::CutParentFolderText,
     &ConstrItem::ReplaceParentFolder1, &ConstrItem::ReplaceParentFolder2,
     &ConstrItem::AddParentFolder, &ConstrItem::AddParentFolderN, &ConstrItem::AddParentFolderText1,
     &ConstrItem::AddParentFolderText2},
};

#pragma once

#include "look/handled_control.h"

/// What differs between the three panes of a transformed element: the names of their controls.
/// Labels are named by the rule: "lb" for "fd".
struct TransformControls {
  const char* pane;
  const char* title;
  PagesControl pages;
  PickControl letter_case;
  PickControl cut;
  NumberControl cut_n;
  NumberControl cut_x;
  TextControl cut_text;
  PickControl reset;
  TextControl replace1;
  TextControl replace2;
  PickControl add;
  NumberControl add_n;
  TextControl add_text1;
  TextControl add_text2;
};

/// By kind of element.
inline constexpr TransformControls kTransformControls[3] = {
    {
        .pane = "pbFileName",
        .title = "Source file name options",
        .pages = kPages<"TabControl1">,
        .letter_case = kPick<"cmbCaseOldFile">,
        .cut = kPick<"cmbCutFile">,
        .cut_n = kNumberField<"fdCutFileN">,
        .cut_x = kNumberField<"fdCutFileX">,
        .cut_text = kTextField<"fdCutFileText">,
        .reset = kPick<"Command1">,
        .replace1 = kTextField<"fdReplace1">,
        .replace2 = kTextField<"fdReplace2">,
        .add = kPick<"cmbAddFile">,
        .add_n = kNumberField<"fdAddFileN">,
        .add_text1 = kTextField<"fdAddFileText1">,
        .add_text2 = kTextField<"fdAddFileText2">,
    },
    {
        .pane = "pbExt",
        .title = "File extension options",
        .pages = kPages<"TabControl3">,
        .letter_case = kPick<"cmbCaseExt">,
        .cut = kPick<"cmbCutExt">,
        .cut_n = kNumberField<"fdCutExtN">,
        .cut_x = kNumberField<"fdCutExtX">,
        .cut_text = kTextField<"fdCutExtText">,
        .reset = kPick<"bnResetCutExt">,
        .replace1 = kTextField<"fdReplaceExt1">,
        .replace2 = kTextField<"fdReplaceExt2">,
        .add = kPick<"cmbAddExt">,
        .add_n = kNumberField<"fdAddExtN">,
        .add_text1 = kTextField<"fdAddExtText1">,
        .add_text2 = kTextField<"fdAddExtText2">,
    },
    {
        .pane = "pbParentFolderName",
        .title = "Parent folder name options",
        .pages = kPages<"TabControl4">,
        .letter_case = kPick<"cmbCaseParentFolder">,
        .cut = kPick<"cmbCutParentFolder">,
        .cut_n = kNumberField<"fdCutParentFolderN">,
        .cut_x = kNumberField<"fdCutParentFolderX">,
        .cut_text = kTextField<"fdCutParentFolderText">,
        .reset = kPick<"bnResetCutParentFolder">,
        .replace1 = kTextField<"fdReplaceParentFolder1">,
        .replace2 = kTextField<"fdReplaceParentFolder2">,
        .add = kPick<"cmbAddParentFolder">,
        .add_n = kNumberField<"fdAddParentFolderN">,
        .add_text1 = kTextField<"fdAddParentFolderText1">,
        .add_text2 = kTextField<"fdAddParentFolderText2">,
    },
};

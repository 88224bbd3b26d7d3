#pragma once

/// What differs between the three panes of a transformed element: the names of their controls.
/// Labels are named by the rule: "lb" for "fd".
struct TransformControls {
  const char* pane;
  const char* title;
  const char* pages;
  const char* letter_case;
  const char* cut;
  const char* cut_n;
  const char* cut_x;
  const char* cut_text;
  const char* reset;
  const char* replace1;
  const char* replace2;
  const char* add;
  const char* add_n;
  const char* add_text1;
  const char* add_text2;
};

/// By kind of element.
inline constexpr TransformControls kTransformControls[3] = {
    {
        .pane = "pbFileName",
        .title = "Source file name options",
        .pages = "TabControl1",
        .letter_case = "cmbCaseOldFile",
        .cut = "cmbCutFile",
        .cut_n = "fdCutFileN",
        .cut_x = "fdCutFileX",
        .cut_text = "fdCutFileText",
        .reset = "Command1",
        .replace1 = "fdReplace1",
        .replace2 = "fdReplace2",
        .add = "cmbAddFile",
        .add_n = "fdAddFileN",
        .add_text1 = "fdAddFileText1",
        .add_text2 = "fdAddFileText2",
    },
    {
        .pane = "pbExt",
        .title = "File extension options",
        .pages = "TabControl3",
        .letter_case = "cmbCaseExt",
        .cut = "cmbCutExt",
        .cut_n = "fdCutExtN",
        .cut_x = "fdCutExtX",
        .cut_text = "fdCutExtText",
        .reset = "bnResetCutExt",
        .replace1 = "fdReplaceExt1",
        .replace2 = "fdReplaceExt2",
        .add = "cmbAddExt",
        .add_n = "fdAddExtN",
        .add_text1 = "fdAddExtText1",
        .add_text2 = "fdAddExtText2",
    },
    {
        .pane = "pbParentFolderName",
        .title = "Parent folder name options",
        .pages = "TabControl4",
        .letter_case = "cmbCaseParentFolder",
        .cut = "cmbCutParentFolder",
        .cut_n = "fdCutParentFolderN",
        .cut_x = "fdCutParentFolderX",
        .cut_text = "fdCutParentFolderText",
        .reset = "bnResetCutParentFolder",
        .replace1 = "fdReplaceParentFolder1",
        .replace2 = "fdReplaceParentFolder2",
        .add = "cmbAddParentFolder",
        .add_n = "fdAddParentFolderN",
        .add_text1 = "fdAddParentFolderText1",
        .add_text2 = "fdAddParentFolderText2",
    },
};

#pragma once

/// What has keys of its own, beside the underlined letters of the captions.
enum class Keys {
  kNone,
  kPrepare,
  kPreview,
  kRename,
  kUndo,
  kCancel,
  kChooseFolder,
  kSourcePage,
  kOutputPage,
  kSettingsPage,
  kRemovePage,
  kReplacePage,
  kAddPage,
  kColumnPath,
  kColumnSize,
  kColumnType,
  kColumnDate,
  kWideList,
  kRowMenu,
  kCheckAll,
  kUnCheckAll,
  kInvertSelection,
  kCheckByMask,
  kUnCheckByMask,
  kInsertLeft,
  kInsertRight,
  kMoveLeft,
  kMoveRight,
  kDelete,
  kFirstElement,
  kLastElement,
  kEditText,
  kAbout,
  kHelp,
  kCount,  ///< of those above
};

/// The one that goes `further` rows behind `keys`: the pages and the columns stand in their order.
constexpr Keys Behind(Keys keys, int further) {
  return static_cast<Keys>(static_cast<int>(keys) + further);
}

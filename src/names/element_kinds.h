#pragma once

#include <optional>
#include <string_view>

#include "names/constr_item.h"

/// What the insert menus offer: a kind of element, or a text element with a text that is often
/// wanted.
struct ElementKind {
  ItemType number;
  const char* caption;  ///< in the menus; of the element's chip too, unless it is a text
  int insert_left;      ///< the numbers of the commands that insert it
  int insert_right;
  const char* text = "";   ///< of a text element; null: the user is asked for it
  const char* pane = "";   ///< the name of its option pane; texts have none
  const char* title = "";  ///< of that pane
};

/// In the order of the menus, texts last. No number of a command stands twice.
inline constexpr ElementKind kElementKinds[] = {
    {kSourceFileName, "<Source file name>", 10, 22, "", "pbFileName", "Source file name options"},
    {kExtension, "<Extension>", 11, 1, "", "pbExt", "File extension options"},
    {kCounter, "<Counter>", 15, 5, "", "pbCounter", "Counter options"},
    {kFileDate, "<File date>", 13, 3, "", "pbFileDate", "File date options"},
    {kTodaysDate, "<Today's date>", 14, 4, "", "pbTodayDate", "Today's date options"},
    {kParentFolderName, "<Parent folder name>", 12, 2, "", "pbParentFolderName",
     "Parent folder name options"},
    {kText, ". (dot)", 16, 6, "."},
    {kText, "- (dash)", 17, 7, "-"},
    {kText, "_ (underscore)", 18, 8, "_"},
    {kText, "  (space)", 19, 9, " "},
    {kText, "Custom text", 21, 20, nullptr},
};

/// Commands of the insert menus have numbers below this one.
inline constexpr int kInsertCommandsEnd = 100;

/// On which side of the selected element a new one is put.
enum class Side { kLeft, kRight };

struct InsertCommand {
  const ElementKind& kind;
  Side side;
};

/// What the command `id` of an insert menu inserts; nothing for any other number.
std::optional<InsertCommand> FindInsertCommand(int id);

/// The title of the pane with the options of such an element; "" for a text.
std::string_view PaneTitle(ItemType number);

/// The caption of an element's chip: "<Counter>" and the like, of a text element its text.
std::string_view ElementCaption(const ConstrItem& item);

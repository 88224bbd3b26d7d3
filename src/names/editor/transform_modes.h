#pragma once

/// A way to cut or to add: its entry in the box, and what the fields mean under it; null: the field
/// is hidden.
struct TransformMode {
  const char* caption;
  const char* fields[3] = {};
};

/// By number; the fields are N, K and Text.
inline constexpr TransformMode kCuts[] = {
    {"Do nothing"},
    {"Remove Text",
     {nullptr, nullptr, "The text to remove, wherever it stands, in upper or lower case"}},
    {"Remove N characters from the start", {"How many characters to remove from the start"}},
    {"Remove N characters from the end", {"How many characters to remove from the end"}},
    {"Remove N characters after the first K",
     {"How many characters to remove after the first K",
      "How many characters to skip at the start"}},
    {"Remove N characters before the last K",
     {"How many characters to remove before the last K", "How many characters to skip at the end"}},
    {"Remove N characters from the start and K from the end",
     {"How many characters to remove from the start",
      "How many characters to remove from the end"}},
    {"Remove all after the first N characters", {"How many characters to keep at the start"}},
    {"Remove all before the last N characters", {"How many characters to keep at the end"}},
    {"Remove all between the first N and last K characters",
     {"How many characters to keep at the start", "How many characters to keep at the end"}},
};

/// By number; the fields are Text1, Text2 and N.
inline constexpr TransformMode kAdds[] = {
    {"Do nothing"},
    {"Add Text to the left", {"The text to put in front"}},
    {"Add Text to the right", {"The text to put behind"}},
    {"Add Text1 to the left and Text2 to the right",
     {"The text to put in front", "The text to put behind"}},
    {"Insert Text after the first N characters",
     {"The text to insert", nullptr, "After how many characters to insert it"}},
    {"Insert Text before the last N characters",
     {"The text to insert", nullptr, "Before how many of the last characters to insert it"}},
};

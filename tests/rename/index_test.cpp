#include <gtest/gtest.h>

#include <random>

#include "platform/text.h"
#include "rename/holders.h"

namespace {

const char* const kFolders[] = {"/d/", "/d/sub/"};
const char* const kNames[] = {"a", "A", "b", "\xC3\xA9", "\xC3\x89", "bad\xFF", "c.txt"};

std::size_t KeyOf(const Records& records, const FileRow& row) {
  return HolderKey(records.Path(row), row.sourceFileName);
}

}  // namespace

TEST(HolderIndex, AnswersAsLookingThroughAllRowsWhileNamesChangeAndRowsGo) {
  std::mt19937 random(11);
  const auto below = [&](std::size_t n) { return random() % n; };
  for (int round = 0; round < 60; ++round) {
    Records records;
    const std::size_t count = 1 + below(60);
    for (std::size_t i = 0; i < count; ++i) {
      records.AddRecord("", kFolders[below(2)], kNames[below(7)], FileDate(), 0, "");
    }
    HolderIndex index(
        records, [&](const FileRow& row) { return KeyOf(records, row); },
        [](const FileRow& row) { return row.RowTag == 1; });
    for (int step = 0; step < 200; ++step) {
      const std::string path = kFolders[below(2)], name = kNames[below(7)];
      const auto holds = [&](const FileRow& row) {
        return row.RowTag != 1 && row.checked && records.Path(row) == path &&
               text::EqualIgnoringCase(row.sourceFileName, name);
      };
      std::optional<std::size_t> first;
      for (std::size_t i = count; i-- > 0;) {
        if (holds(records[i])) first = i;
      }
      ASSERT_EQ(index.FirstWith(HolderKey(path, name), holds), first)
          << "round " << round << " step " << step << " " << path << name;
      const std::size_t changed = below(count);
      if (random() % 4 == 0) records[changed].RowTag = 1;
      records[changed].checked = random() % 8 != 0;
      records[changed].sourceFileName = kNames[below(7)];
      index.KeyChanged(changed);
    }
  }
}

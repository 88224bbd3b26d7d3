#include <gtest/gtest.h>

#include <random>

#include "picture/picture_reader.h"
#include "tests/picture/gif_writer.h"

// Whatever is done to a picture, it gives some frames or a reason, within its limits.
TEST(PictureReader, EndsWellWithTenThousandBrokenFiles) {
  constexpr unsigned kSeed = 20261123;
  constexpr PictureLimits kLimits = {.bytes = 4096, .pixels = 4096, .frames = 100};
  SCOPED_TRACE("seed " + std::to_string(kSeed));
  std::mt19937 random(kSeed);
  const auto below = [&](qsizetype end) { return static_cast<qsizetype>(random() % end); };
  const QByteArray good =
      Gif({4, 4},
          {{0, 0, "rrrr/gggg/bbbb/kkkk", 5, 3}, {1, 1, "r./.g", 0, 2}, {3, 0, "b/r/g/k", 7}}, 3);
  int shown = 0;
  for (int file = 0; file < 10'000; ++file) {
    QByteArray bytes = good;
    for (auto edits = below(6); edits >= 0; --edits) {
      const qsizetype at = below(bytes.size());
      const qsizetype kind = below(8);
      if (kind == 0) bytes.truncate(at + 1);
      if (kind == 1) bytes.insert(at, bytes.mid(below(bytes.size()), below(40)));
      if (kind == 2) bytes.remove(at, below(20)), bytes += ';';
      if (kind > 2) bytes[at] = static_cast<char>(random());
    }
    PictureReader reader(bytes, kLimits);
    for (int pass = 0; pass < 2; ++pass) {
      while (reader.Next()) {
        ASSERT_LE(reader.Frame().width() * reader.Frame().height(), kLimits.pixels);
        ++shown;
      }
      if (!reader.Problem().isEmpty()) break;
      ASSERT_GT(reader.Count(), 0);
      reader.Rewind();
    }
  }
  RecordProperty("seed", static_cast<int>(kSeed));
  EXPECT_GT(shown, 5'000) << "too broken to test anything";
}

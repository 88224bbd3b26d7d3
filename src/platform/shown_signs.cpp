#include "platform/shown_signs.h"

#include <utf8proc.h>

#include "platform/utf8.h"

namespace text {
namespace {

constexpr utf8proc_propval_t kVirama = 9;  // its combining class

const utf8proc_property_t& PropertiesOf(char32_t point) {
  return *utf8proc_get_property(static_cast<utf8proc_int32_t>(point));
}

/// Letters, marks, digits and symbols, which emoji are; not blanks, punctuation or controls.
bool IsOfWord(char32_t point) {
  if (point >= utf8::kBadByte) return false;
  const auto category = PropertiesOf(point).category;
  return (category >= UTF8PROC_CATEGORY_LU && category <= UTF8PROC_CATEGORY_NO) ||
         (category >= UTF8PROC_CATEGORY_SM && category <= UTF8PROC_CATEGORY_SO);
}

/// After a virama a joiner chooses the form of the letter, at the end of a word too (RFC 5892,
/// appendix A).
bool Joins(char32_t before, char32_t behind) {
  if (!IsOfWord(before)) return false;
  return PropertiesOf(before).combining_class == kVirama || IsOfWord(behind);
}

}  // namespace

bool IsShown(char32_t before, char32_t point, char32_t behind) {
  // Control characters of ASCII and of Latin-1; few fonts have the pictures of them.
  if (point < 0xA0) return point >= 0x20 && point < 0x7F;
  switch (point) {
    case 0x200C:  // zero width non-joiner
    case 0x200D:  // zero width joiner
      return Joins(before, behind);
    case 0x061C:  // Arabic letter mark
    case 0x200B:  // zero width space
    case 0x200E:  // left-to-right mark
    case 0x200F:  // right-to-left mark
    case 0xFEFF:  // zero width no-break space, the byte order mark
      return false;
    default:
      break;
  }
  // Separators of lines and paragraphs, embeddings and overrides.
  if (point >= 0x2028 && point <= 0x202E) return false;
  // The word joiner, operators that are not seen, isolates, outdated format marks.
  if (point >= 0x2060 && point <= 0x206F) return false;
  return point < utf8::kBadByte;
}

}  // namespace text

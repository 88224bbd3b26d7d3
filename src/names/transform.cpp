#include "names/transform.h"

#include <cstddef>
#include <limits>

#include "common/language.h"
#include "names/add.h"
#include "names/cut.h"
#include "trace/failure.h"

namespace {

constexpr std::size_t kLongestPart = 32'767;

bool CutIsInUse(std::int32_t mode, bool has_text, std::int32_t n, std::int32_t k) {
  switch (mode) {
    case 1:
      return has_text;
    case 2:
    case 3:
    case 4:
    case 5:
      return n > 0;
    case 6:
      return n > 0 || k > 0;
    default:
      return mode >= 7 && mode <= 9;
  }
}

}  // namespace

TransformSteps StepsInUse(const TransformOptions& options) {
  const bool adds1 = options.Add >= 1 && options.Add <= 5 && !options.AddText1.empty();
  const bool adds2 = options.Add == 3 && !options.AddText2.empty();
  return {.cut = CutIsInUse(options.Cut, !options.CutText.empty(), options.CutN, options.CutX),
          .replace = !options.Replace1.empty(),
          .add = adds1 || adds2};
}

PartTransform::PartTransform(const TransformOptions& options, std::string_view title)
    : options_(options),
      title_(title),
      remove_(options.CutText, ""),
      replace_(options.Replace1, options.Replace2) {}

void PartTransform::AppendTo(std::string_view part, std::string& name) {
  CheckLength(part);
  if (part.empty()) return;
  // A part that the cut has emptied still counts: what is added then stands alone.
  part = Cut(ChangeCase(part));
  if (!options_.Replace1.empty()) {
    replaced_.clear();
    replace_.AppendTo(part, replaced_);
    part = replaced_;
    CheckLength(part);
    if (part.empty()) return;
  }
  Add(part).AppendTo(name);
}

std::string_view PartTransform::ChangeCase(std::string_view part) {
  cased_.clear();
  switch (options_.Case) {
    case kCaseUpper:
      text::AppendUpper(part, cased_);
      return cased_;
    case kCaseLower:
      text::AppendLower(part, cased_);
      return cased_;
    case kCaseFirstUpper: {
      const std::string_view first = text::Left(part, 1);
      text::AppendUpper(first, cased_);
      text::AppendLower(part.substr(first.size()), cased_);
      return cased_;
    }
    default:
      return part;
  }
}

std::string_view PartTransform::Cut(std::string_view part) {
  if (options_.Cut == 1) {
    after_cut_.clear();
    remove_.AppendTo(part, after_cut_);
    return after_cut_;
  }
  const Pieces left = CutByPosition(part);
  if (left.second.empty()) return left.first;
  if (left.first.empty()) return left.second;
  after_cut_.clear();
  left.AppendTo(after_cut_);
  return after_cut_;
}

Pieces PartTransform::CutByPosition(std::string_view part) const {
  switch (options_.Cut) {
    case 2:
      return mCut::RemoveFromStart(part, options_.CutN);
    case 3:
      return mCut::RemoveFromEnd(part, options_.CutN);
    case 4: {
      const Pieces left = mCut::RemoveAfterFirst(part, options_.CutX, options_.CutN);
      CheckSum(left.first, part);
      return left;
    }
    case 5: {
      const Pieces left = mCut::RemoveBeforeLast(part, options_.CutX, options_.CutN);
      CheckSum(left.second, part);
      return left;
    }
    case 6:
      return mCut::RemoveFromBoth(part, options_.CutN, options_.CutX);
    case 7:
      return mCut::KeepFirst(part, options_.CutN);
    case 8:
      return mCut::KeepLast(part, options_.CutN);
    case 9:
      return mCut::RemoveBetween(part, options_.CutN, options_.CutX);
    default:
      return {part, {}, {}};
  }
}

/// `kept` is what K keeps of `part`.
void PartTransform::CheckSum(std::string_view kept, std::string_view part) const {
  const std::int64_t sum = std::int64_t{options_.CutX} + options_.CutN;
  const bool too_large = sum > std::numeric_limits<std::int32_t>::max();
  if (too_large && kept.size() < part.size()) Fail(mLanguageGobals::kSumTooLarge);
}

void PartTransform::CheckLength(std::string_view part) const {
  if (part.size() > kLongestPart && text::Length(part) > kLongestPart) {
    Fail(mLanguageGobals::kNameTooLongHere);
  }
}

void PartTransform::Fail(std::string_view slip) const {
  throw Failure({.number = kOverflow,
                 .description = "Overflow",
                 .slip = std::string("In “").append(title_).append("”").append(slip)});
}

Pieces PartTransform::Add(std::string_view part) const {
  switch (options_.Add) {
    case 1:
      return mAdd::AddLeft(part, options_.AddText1);
    case 2:
      return mAdd::AddRight(part, options_.AddText1);
    case 3:
      return mAdd::AddBoth(part, options_.AddText1, options_.AddText2);
    case 4:
      return mAdd::InsertAfterFirst(part, options_.AddText1, options_.AddN);
    case 5:
      return mAdd::InsertBeforeLast(part, options_.AddText1, options_.AddN);
    default:
      return {part, {}, {}};
  }
}

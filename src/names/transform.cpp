#include "names/transform.h"

#include <cstddef>

#include "names/add.h"
#include "names/cut.h"
#include "trace/failure.h"

namespace {

constexpr std::size_t kLongestPart = 32'767;

void CheckLength(std::string_view part) {
  if (part.size() > kLongestPart && text::Length(part) > kLongestPart) {
    throw Failure(kOverflow, "Overflow");
  }
}

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

TransformSteps StepsInUse(const ConstrItem& item, const TransformFields& fields) {
  const std::int32_t add = item.*fields.Add;
  const bool adds1 = add >= 1 && add <= 5 && !(item.*fields.AddText1).empty();
  const bool adds2 = add == 3 && !(item.*fields.AddText2).empty();
  const bool cut_text = !(item.*fields.CutText).empty();
  return {.cut = CutIsInUse(item.*fields.Cut, cut_text, item.*fields.CutN, item.*fields.CutX),
          .replace = !(item.*fields.Replace1).empty(),
          .add = adds1 || adds2};
}

PartTransform::PartTransform(const ConstrItem& item, const TransformFields& fields)
    : case_(item.*fields.Case),
      cut_(item.*fields.Cut),
      cut_n_(item.*fields.CutN),
      cut_k_(item.*fields.CutX),
      remove_(item.*fields.CutText, ""),
      replaces_(!(item.*fields.Replace1).empty()),
      replace_(item.*fields.Replace1, item.*fields.Replace2),
      add_(item.*fields.Add),
      add_n_(item.*fields.AddN),
      add_text1_(item.*fields.AddText1),
      add_text2_(item.*fields.AddText2) {}

void PartTransform::AppendTo(std::string_view part, std::string& name) {
  CheckLength(part);
  if (part.empty()) return;
  // A part that the cut has emptied still counts: what is added then stands alone.
  part = Cut(ChangeCase(part));
  if (replaces_) {
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
  switch (case_) {
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
  if (cut_ == 1) {
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
  switch (cut_) {
    case 2:
      return mCut::RemoveFromStart(part, cut_n_);
    case 3:
      return mCut::RemoveFromEnd(part, cut_n_);
    case 4:
      return mCut::RemoveAfterFirst(part, cut_k_, cut_n_);
    case 5:
      return mCut::RemoveBeforeLast(part, cut_k_, cut_n_);
    case 6:
      return mCut::RemoveFromBoth(part, cut_n_, cut_k_);
    case 7:
      return mCut::KeepFirst(part, cut_n_);
    case 8:
      return mCut::KeepLast(part, cut_n_);
    case 9:
      return mCut::RemoveBetween(part, cut_n_, cut_k_);
    default:
      return {part, {}, {}};
  }
}

Pieces PartTransform::Add(std::string_view part) const {
  switch (add_) {
    case 1:
      return mAdd::AddLeft(part, add_text1_);
    case 2:
      return mAdd::AddRight(part, add_text1_);
    case 3:
      return mAdd::AddBoth(part, add_text1_, add_text2_);
    case 4:
      return mAdd::InsertAfterFirst(part, add_text1_, add_n_);
    case 5:
      return mAdd::InsertBeforeLast(part, add_text1_, add_n_);
    default:
      return {part, {}, {}};
  }
}

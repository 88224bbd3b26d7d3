#include "rename/find_and_rename.h"

#include <functional>
#include <utility>

#include "trace/err_trace.h"

std::string NameFreer::MoveAside(const RowPlace& place) {
  const NumberTexts users{state_.numbering.gNumberLeft, state_.numbering.gNumberRight};
  std::string aside = MoveAside(place, users);
  return aside.empty() && users != kSafeNumberTexts ? MoveAside(place, kSafeNumberTexts) : aside;
}

std::string NameFreer::MoveAside(const RowPlace& place, const NumberTexts& texts) {
  std::string candidate = numbering_.FreeAsideName(place.folder, place.name, texts);
  if (candidate.empty()) return {};
  const std::string from = place.Path();
  if (!files_.MoveFile(from, std::string(place.folder).append(candidate), {})) return {};
  numbering_.Freed(from);
  return candidate;
}

// The run.

std::optional<std::size_t> RunNameFreer::FindAndRename(std::string_view pPath,
                                                       std::string_view pName,
                                                       std::string& CorrectedNewName) {
  const bool pRollback = false;
  return ErrTrace::inner("Form1.FindAndRename(pPath,pName,pRollback,CorrectedNewName)",
                         ErrTrace::args(pPath, pName, pRollback, CorrectedNewName), [&] {
                           std::optional<std::size_t> holder = Holder(pPath, pName);
                           if (holder && MakeWay(*holder)) return holder;
                           CorrectedNewName = numbering_.FreeNumberedName(pPath, pName);
                           return std::optional<std::size_t>();
                         });
}

std::size_t RunNameFreer::Key(std::string_view path, std::string_view name) const {
  return HolderKey(std::hash<std::string_view>()(path), name);
}

std::optional<std::size_t> RunNameFreer::Holder(std::string_view pPath, std::string_view pName) {
  const auto still_to_rename = [](const FileRow& row) { return row.checked && row.RowTag != 1; };
  if (!holders_) {
    holders_.emplace();
    for (std::size_t i = 0; i < records_.Count(); ++i) {
      const FileRow& row = records_[i];
      if (still_to_rename(row)) {
        holders_->AddFirst(Key(records_.Path(row), row.sourceFileName), i);
      }
    }
    holders_->EndOfFirst();
  }
  const std::string wanted = std::string(pPath).append(pName);
  const auto first = [&](auto&& is_held_by) {
    return holders_->First(Key(pPath, pName), [&](std::size_t record) {
      const FileRow& row = records_[record];
      return still_to_rename(row) && records_.Path(row) == pPath &&
             is_held_by(row.sourceFileName) && WantsAnotherName(row);
    });
  };
  const auto exact = first([&](const std::string& name) { return name == pName; });
  if (exact) return exact;
  return first([&](const std::string& name) {
    return IsOneEntry(files_, wanted, std::string(pPath).append(name));
  });
}

bool RunNameFreer::WantsAnotherName(const FileRow& row) {
  const std::string& path = records_.Path(row);
  return !IsOneEntry(files_, path + row.sourceFileName, path + row.newFileName);
}

bool RunNameFreer::MakeWay(std::size_t record) {
  FileRow& row = records_[record];
  std::string aside = MoveAside({records_.Path(row), row.sourceFileName});
  if (aside.empty()) return false;
  row.KeepRollback();
  row.MoveAside(std::move(aside));
  holders_->Add(Key(records_.Path(row), row.sourceFileName), record);
  return true;
}

// The undo.

void UndoNameFreer::FindAndRename(std::size_t asker) {
  const RowPlace wanted = FormerPlace(records_, records_[asker]);
  const std::string_view pPath = wanted.folder, pName = wanted.name, CorrectedNewName;
  const bool pRollback = true;
  ErrTrace::inner("Form1.FindAndRename(pPath,pName,pRollback,CorrectedNewName)",
                  ErrTrace::args(pPath, pName, pRollback, CorrectedNewName), [&] {
                    if (!made_) MakeIndex();
                    if (!MoveHolderAside(asker, wanted, true))
                      MoveHolderAside(asker, wanted, false);
                  });
}

void UndoNameFreer::MakeIndex() {
  made_ = true;
  for (std::size_t i = 0; i < records_.Count(); ++i) {
    for (const RowFile file : {RowFile::kResult, RowFile::kSource}) {
      if (const auto place = PlaceOf(records_, records_[i], file)) {
        holders_.AddFirst(keys_(*place), i);
      }
    }
  }
  holders_.EndOfFirst();
}

/// Answers whether there is such a holder.
bool UndoNameFreer::MoveHolderAside(std::size_t asker, const RowPlace& wanted, bool by_exact_name) {
  RowFile held = RowFile::kResult;
  const auto holds = [&](std::size_t record) {
    if (record == asker) return false;
    for (const RowFile file : {RowFile::kResult, RowFile::kSource}) {
      const auto place = PlaceOf(records_, records_[record], file);
      if (!place) continue;
      held = file;
      if (by_exact_name ? keys_.AreEqual(*place, wanted)
                        : IsOneEntry(files_, place->Path(), wanted.Path())) {
        return true;
      }
    }
    return false;
  };
  const auto holder = holders_.First(keys_(wanted), holds);
  if (!holder) return false;
  holds(*holder);  // a later record may have been asked since
  MakeWay(*holder, held);
  return true;
}

void UndoNameFreer::MakeWay(std::size_t record, RowFile file) {
  FileRow& row = records_[record];
  std::string aside = MoveAside(*PlaceOf(records_, row, file));
  if (aside.empty()) return;
  if (file == RowFile::kSource) {
    row.MoveAside(std::move(aside));
  } else {
    if (row.Temp().empty()) row.SetTemp(row.newFileName);
    row.newFileName = std::move(aside);
  }
  holders_.Add(keys_(*PlaceOf(records_, row, file)), record);
}

#include "settings/saved_options.h"

#include "settings/option_table.h"
#include "settings/reg_settings.h"
#include "trace/failure.h"

namespace {

using option_table::kRows;
using option_table::TextOf;

void Read(SettingsStore& store, const OptionRow& row, Options& options) {
  const std::string first_start = TextOf(row, Options());
  const mRegSettings::Setting stored{row.section, row.key, first_start};
  const struct {
    void operator()(bool* held) const { *held = mRegSettings::ReadCheck(store, stored); }
    void operator()(int* held) const { *held = mRegSettings::ReadInteger(store, stored, 0, most); }
    void operator()(std::int16_t* held) const {
      *held = mRegSettings::ToShort(mRegSettings::ReadInteger(store, stored));
    }
    void operator()(std::string* held) const { *held = mRegSettings::ReadText(store, stored); }

    SettingsStore& store;
    const mRegSettings::Setting& stored;
    int most;
  } reader{store, stored, row.most};
  std::visit(reader, row.in(options));
}

void Reset(const OptionRow& row, Options& options) {
  Options first_start;
  std::visit([&](auto* held) { *held = *std::get<decltype(held)>(row.in(first_start)); },
             row.in(options));
}

void Write(SettingsStore& store, const OptionRow& row, const Options& options) {
  store.SaveSetting(row.section, row.key, TextOf(row, options));
}

bool IsSaved(const OptionRow& row, const Options& options) {
  return row.save == nullptr || options.save.*row.save;
}

bool HasOwnDialog(const OptionRow& row) {
  return row.section == option_table::kConflicts;
}

}  // namespace

void ReadSavedOptions(SettingsStore& store, Options& options, std::size_t& read) {
  for (read = 0; read < std::size(kRows); ++read) {
    const OptionRow& row = kRows[read];
    if (IsSaved(row, options)) {
      Read(store, row, options);
    } else if (row.reset) {
      Reset(row, options);
    }
  }
}

void WriteSavedOptions(SettingsStore& store, const Options& options, const OptionsAtStart& start) {
  for (std::size_t i = 0; i < std::size(kRows); ++i) {
    const OptionRow& row = kRows[i];
    const bool shown = start.could_read && i <= start.read;
    const bool unread = !shown && IsSaved(row, start.shown);
    const bool changed = TextOf(row, options) != TextOf(row, start.shown);
    const bool due = HasOwnDialog(row) ? i == start.read : changed || !unread;
    if (due && IsSaved(row, options)) Write(store, row, options);
  }
}

void WriteConflictOptions(SettingsStore& store, const NumberingOptions& numbering) {
  Options options;
  options.numbering = numbering;
  for (const OptionRow& row : kRows) {
    if (HasOwnDialog(row)) Write(store, row, options);
  }
}

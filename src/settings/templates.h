#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/settings_store.h"

// Renaming templates in the store. The section "Templates" is their directory: the highest number
// ever given, the numbers of those there are, and the name of each under its number. The options of
// a template stand in the section below it that bears its number. No function here flushes.

/// The names of the controls that a template keeps, in the order in which they are stored: of a
/// field the text, of a box the position of its entry.
std::vector<std::string> TemplateControls();

/// What a template keeps.
struct TemplateOptions {
  std::vector<std::string> controls;  ///< what each of TemplateControls holds
  int SortColumn = -1;                ///< of the list; -1: it isn't sorted
  bool SortOrder = true;              ///< ascending
};

/// What stands in the directory for the number of the first template of that name, whatever its
/// letter case; none if there is none.
std::optional<std::string> FindTemplate(SettingsStore& store, std::string_view name);

/// The number that stands in the directory as `element`. Raises Failure (kTypeMismatch, kOverflow)
/// when it is none.
std::int16_t TemplateNumber(std::string_view element);

/// Enters a new template into the directory and answers its number, which no other has had before.
/// Raises Failure (kTypeMismatch, kOverflow), with nothing written, when the numbers are used up or
/// what is stored is no number.
std::int16_t AddTemplate(SettingsStore& store, std::string_view name);

/// Stores the options of a template over those that it had. Raises Failure kInvalidCall when the
/// list isn't sorted; the controls are stored then.
void WriteTemplate(SettingsStore& store, std::int16_t number, const TemplateOptions& options);

/// Takes all templates of that name, whatever its letter case, out of the directory, and deletes
/// the last of them. Raises Failure kInvalidCall, with the directory written, when there is none;
/// kTypeMismatch or kOverflow, with nothing written, when what stands for its number is none.
void DeleteTemplate(SettingsStore& store, std::string_view name);

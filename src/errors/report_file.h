#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "platform/services.h"

/// What the start found of files that may stand beside the program.
struct StartFlags {
  bool gHasManifestFile = false;
  bool gHasRuntimeFile = false;
};

/// Stops the program for so many milliseconds, without letting events run.
using Wait = std::function<void(int milliseconds)>;
Wait SystemWait();

/// Where a saved report takes its facts from.
struct ReportSources {
  const Services& services;
  StartFlags flags = {};
  Wait wait = SystemWait();
};

namespace ErrTrace {

inline constexpr std::string_view kReportFileName = "ErrorReport.txt";

/// The folder of the reports, without a closing separator.
std::string ReportFolder(Folders& folders);

/// Appends `report`, with facts of program and system, to the file `pFileName`: a path, or a name
/// in the report folder, which is made when it isn't there. A file that another program holds is
/// tried again for a second. Whatever else fails is silent at once: what AppendFile doesn't take,
/// too. Nothing happens for an empty report.
void SaveErrorReport(std::string_view pFileName, std::string_view report,
                     const ReportSources& sources) noexcept;

}  // namespace ErrTrace

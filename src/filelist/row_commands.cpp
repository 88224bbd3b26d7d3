#include "filelist/row_commands.h"

#include "common/shell_actions.h"

void ExecuteOnFile(int id, const Services& s, std::string_view path) {
  if (id == kOpenInExplorer) mMain::OpenInExplorerList(s.files, s.prompts, s.shell, path);
  if (id == kExecute) mMain::ExecuteFile(s.files, s.prompts, s.shell, path);
  if (id == kProperties) mFileProperties::ShowFileProperties(s.prompts, s.shell, path);
}

#include "filelist/file_type.h"

#include "common/language.h"
#include "common/path_text.h"
#include "platform/text.h"
#include "trace/err_trace.h"

const std::string& FileTypes::GetFileType(std::string_view ElementName) {
  return ErrTrace::inner(
      "mScanCD.GetFileType(ElementName)", ErrTrace::args(ElementName), [&]() -> const std::string& {
        std::string extension = mCommon::Spliting(ElementName, ".");
        if (last_ != nullptr && last_->first == extension) return last_->second;
        const auto known = by_extension_.find(extension);
        if (known != by_extension_.end()) return (last_ = &*known)->second;
        std::string name = names_.TypeName(extension);
        if (name.empty()) {
          if (!extension.empty()) name = text::ToUpper(extension.substr(1)) + " ";
          name += mLanguageGobals::kFile;
        }
        last_ = &*by_extension_.emplace(std::move(extension), std::move(name)).first;
        return last_->second;
      });
}

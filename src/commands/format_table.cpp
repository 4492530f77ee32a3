#include "commands/format_table.h"

#include <algorithm>

#include "foundations/file_util.h"
#include "foundations/str_parse.h"

namespace quillan {

const FileFormat* Format_of(std::string_view sDataFile) {
  const std::string CExt = Str_UpCase(File_Ext(sDataFile));
  const auto h = std::ranges::find(hFileFormat, CExt, &FileFormat::CExt);
  return CExt.empty() || h == std::end(hFileFormat) ? nullptr : h;
}

std::string Output_Name(const FileFormat& hFormat, std::string_view sDataFile) {
  if (hFormat.sNameEnd.empty()) return std::string(sDataFile);
  return std::string(File_Stem(sDataFile)).append(hFormat.sNameEnd);
}

}  // namespace quillan

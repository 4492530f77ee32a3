#include "commands/export_amira.h"

#include <string>

#include "files/amr_file.h"
#include "foundations/file_util.h"
#include "toolkit/window/messages.h"

namespace quillan {
namespace {

std::string Name_to_Write(const std::string& sTrnFile) {
  if (!IOsFileExists(sTrnFile)) return sTrnFile;
  const std::string sQuestion = std::string(File_Name(sTrnFile)) + " already exists, do you want to overwrite it?";
  if (WMessageBox(BoxButtons::YesNo, BoxIcon::Question, sQuestion, "File already exists")) return sTrnFile;
  return WSelectFile2("TEM AMRIA file output|*.tem|", iSelectSave, "Select name for AMIRA file", sTrnFile);
}

}  // namespace

I4 Export_AMIRA(std::string_view sAmrFile) {
  return AMR_Write(sAmrFile, Name_to_Write);
}

}  // namespace quillan

#include "files/column_file.h"

#include "base/text.h"
#include "foundations/str_write.h"
#include "foundations/user.h"
#include "platform/file_names.h"

namespace quillan {

namespace {

constexpr std::size_t NRecordLeast = 3;  // shorter records are passed over
constexpr std::string_view sCommentMarks = "$\\/!\"";

}  // namespace

ColumnRecord Kind_of_Column_Record(std::string_view& sRecord) {
  sRecord = Trimmed(sRecord);
  if (sRecord.size() < NRecordLeast) return ColumnRecord::Ignored;
  sRecord = Left_Adjusted(sRecord);
  const char cFirst = sRecord.front();
  if (sCommentMarks.find(cFirst) != std::string_view::npos) return ColumnRecord::Ignored;
  return cFirst >= 'A' && cFirst <= 'z' ? ColumnRecord::Labels : ColumnRecord::Row;
}

bool Find_Optional_File(std::string& sPath, L4 bAuto, const OptionalFileWords& hWords) {
  LogText("");
  LogText("Searching for file");
  LogText(sPath);
  sPath = IOsFindCompanion(sPath);
  if (IOsFileExists(sPath)) return true;
  if (bAuto) {
    for (const std::string& sLine : hWords.sMissing) LogText(sLine);
  } else {
    const std::string sChosen = hUser.Choose_File(hWords.sFilter, hWords.sTitle);
    if (!sChosen.empty()) {
      sPath = sChosen;
      return true;
    }
  }
  LogText(hWords.sCanceled);
  return false;
}

void LogErr_or_File(bool bFileOnly, const ErrorLines& sError) {
  if (bFileOnly) {
    LogErr_File(sError);
  } else {
    LogErr(sError);
  }
}

std::string On_Line_of_File(std::string_view sFileName, I4 iRecord) {
  return " on " + std::string(sFileName) + " line " + Str_Write_I4(iRecord).str();
}

ErrorLines Beyond_Limit(std::string_view sWord, R8 dValue, std::string_view sFileName, I4 iRecord) {
  return {"ERROR: |" + std::string(sWord) + "|=|" + Str_Write_R8(dValue, "(ES12.4)").str() + "| > 1.0E12" +
              On_Line_of_File(sFileName, iRecord),
          sSpuriousDropped};
}

ErrorLines No_Value(std::string_view sWord, std::string_view sFileName, I4 iRecord) {
  return {"ERROR: no " + std::string(sWord) + On_Line_of_File(sFileName, iRecord), sSpuriousDropped};
}

}  // namespace quillan

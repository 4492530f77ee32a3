#include "commands/edit_list.h"

#include <algorithm>

#include "base/program.h"
#include "foundations/file_util.h"
#include "foundations/log_file.h"
#include "foundations/str_write.h"
#include "foundations/text_file.h"
#include "platform/clock.h"

namespace quillan {
namespace {

constexpr std::string_view sGap = "  ";

constexpr std::string EditRow::*hColumn[] = {&EditRow::sTime, &EditRow::sEdit, &EditRow::sWhat, &EditRow::sWhere};

std::string Two_Digits(I4 iValue) {
  return Str_Write_I4F22(iValue).str();
}

std::string Time_Text(I8 iTime) {
  const Moment h = IOsMoment(iTime);
  return Str_Write_I4(h.hDate.iYear).str() + "-" + Two_Digits(h.hDate.iMonth) + "-" + Two_Digits(h.hDate.iDay) + " " +
         Two_Digits(h.iHour) + ":" + Two_Digits(h.iMinute) + ":" + Two_Digits(h.iSecond);
}

std::vector<EditRow> Rows_in_Force() {
  std::vector<EditRow> hRow;
  for (const EditWords& h : History_Gone()) hRow.push_back(Edit_Row(h));
  for (I4 K = 1; K <= History_Position(); ++K) hRow.push_back(Edit_Row(History_Edit(K).hWords));
  return hRow;
}

/// Columns stand under each other; a line has no blanks at its end.
std::vector<std::string> Lines(const std::vector<EditRow>& hRow) {
  std::vector<std::string> sLine(hRow.size());
  std::size_t iEnd = 0;  // where the column before ends
  for (const auto hField : hColumn) {
    const std::size_t iBegin = iEnd == 0 ? 0 : iEnd + sGap.size();
    for (std::size_t I = 0; I < hRow.size(); ++I) {
      if ((hRow[I].*hField).empty()) continue;
      sLine[I].resize(iBegin, ' ');
      sLine[I] += hRow[I].*hField;
      iEnd = std::max(iEnd, sLine[I].size());
    }
  }
  return sLine;
}

}  // namespace

EditRow Edit_Row(const EditWords& h) {
  return {Time_Text(h.iTime), h.sEdit, h.sWhat, h.sWhere};
}

std::vector<EditRow> Edit_Rows() {
  const bool bGone = !History_Gone().empty();
  std::vector<EditRow> hRow{
      {"", bGone ? "as before the edits below" : "as opened", "", ""}
  };
  for (I4 K = 1; K <= History_Count(); ++K) {
    hRow.push_back(Edit_Row(History_Edit(K).hWords));
    if (K > History_Position()) hRow.back().sEdit = "(" + hRow.back().sEdit + ")";
  }
  return hRow;
}

std::string Edit_List_Name(std::string_view sDataFile) {
  return std::string(File_Stem(sDataFile)) + ".edits.txt";
}

I4 Write_Edit_List(std::string_view sListFile, std::string_view sDataFile) {
  TextWriter out(sListFile);
  out.Line("Edits of " + std::string(File_Name(sDataFile)) + ", " + std::string(CPrgName) + " v" +
           std::string(sVersion));
  out.Line("");
  for (const std::string& sLine : Lines(Rows_in_Force())) out.Line(sLine);
  out.Commit();
  if (!out.Has_Failed()) return 0;
  LogErr({"ERROR: The list of edits is not written.", std::string(sListFile), out.Reason()});
  return 1;
}

}  // namespace quillan

#include "files/mde_file.h"

#include <algorithm>
#include <cmath>
#include <iterator>

#include "base/program.h"
#include "base/text.h"
#include "files/save_report.h"
#include "foundations/file_util.h"
#include "foundations/log_file.h"
#include "foundations/str_parse.h"
#include "foundations/str_value.h"
#include "foundations/str_write.h"
#include "foundations/text_file.h"
#include "foundations/user.h"
#include "metadata/mdp_data.h"
#include "metadata/stn_md.h"
#include "model/survey_keywords.h"
#include "platform/file_names.h"

namespace quillan {

namespace {

constexpr std::size_t NLineMin = 3;  // shorter lines are passed over

constexpr R8 dStnUnset = -1.0E30;  // a station value below it was not given
constexpr R8 dStnIncMin = 1.0E-6;  // no increment is smaller
constexpr R8 dStnKvrBegDefault = 0.0;
constexpr R8 dStnKvrIncDefault = 1.0;

constexpr std::string_view sReadComment = "\\/!'";
constexpr std::string_view sUpdateComment = "!\"\\/";

// An older program with the same survey keywords: its lines were once written by our updates.
constexpr std::string_view CLegacyProgram = "NARVO";

// Marks of the comment block that earlier versions wrote above their records.
constexpr std::string_view sOwnComment[] = {
    "Kvr-to-final stn # scaling",
    "Legacy keywords for narvo",
};

/// Position of a character, from 1; 0 if there is none.
std::size_t Index(std::string_view sText, char c) {
  return sText.find(c) + 1;
}

/// The characters I1 to I2, from 1; blank where I2 lies before I1.
std::string_view Part(std::string_view sText, std::size_t I1, std::size_t I2) {
  return I2 < I1 ? std::string_view{} : sText.substr(I1 - 1, I2 - I1 + 1);
}

void Read_Line(I4 iRecord, std::string_view sRecord) {
  if (Trimmed(sRecord).size() < NLineMin) return;
  sRecord = Left_Adjusted(Trimmed(sRecord));
  if (sReadComment.find(sRecord.front()) != std::string_view::npos) return;
  static_cast<void>(MDP_from_MDE(iRecord, sRecord, iPriorityMde));  // a line that is no record of ours is passed over
}

I4 Read_Lines(const std::string& sMdeFile) {
  LogText("");
  LogText("Reading data from");
  LogText(sMdeFile);
  RecordReader in(sMdeFile, MMdeRecord);
  if (!in.Is_Open()) {
    LogErr({"ERROR while trying to open ", sMdeFile, in.Reason()});
    return 1;
  }
  Fld_Begin_File();
  while (in.Next()) Read_Line(in.iRecord(), in.Record());
  if (in.Has_Failed()) {
    LogErr({"ERROR while reading record # " + Str_Write_I4(in.iRecord()).str(), std::string(in.Record())});
  }
  LogText("Project annotation and stn # scaling read from " + std::string(File_Name(sMdeFile)));
  return 0;
}

/// Without other word recorded numbers count from 0 in steps of 1, and the rescaled numbers are the recorded ones.
void Settle_Station_Scaling(StnGroup& hStn) {
  const auto Is_No_Step = [](R8 dInc) { return dInc < dStnUnset || std::abs(dInc) < dStnIncMin; };
  if (hStn.dStnKvrBeg < dStnUnset) hStn.dStnKvrBeg = dStnKvrBegDefault;
  if (Is_No_Step(hStn.dStnKvrInc)) hStn.dStnKvrInc = dStnKvrIncDefault;
  if (hStn.dStnBeg < dStnUnset) hStn.dStnBeg = hStn.dStnKvrBeg;
  if (Is_No_Step(hStn.dStnInc)) hStn.dStnInc = hStn.dStnKvrInc;
}

/// Whether a program's name stands in the text between "$" and ":", but not right after the "$": lines of that form
/// were typed by a user, ours have a blank there.
bool Is_Program(const Text<32>& CProgram, std::string_view CName) {
  const std::size_t iName = CProgram.trimmed().find(CName);
  return iName != std::string_view::npos && iName > 0;
}

/// Whether an update keeps a line of the old file. sLine: left-adjusted, without trailing blanks.
bool Keeps_Line(std::string_view sLine) {
  if (sUpdateComment.find(sLine.front()) != std::string_view::npos) {
    return std::none_of(std::begin(sOwnComment), std::end(sOwnComment),
                        [&](std::string_view sMark) { return sLine.find(sMark) != std::string_view::npos; });
  }

  // Where the program's name or the keyword begins, where the program's name ends, where the value begins.
  const std::size_t I1 = Index(sLine.substr(0, 4), '$') + 1;
  const std::size_t I2 = std::max(I1, std::max<std::size_t>(Index(sLine, ':'), 1) - 1);
  const std::size_t I3 = Index(sLine, '=') + 1;
  if (I1 > I3 || I3 > sLine.size()) return true;
  if (I1 < I2) {
    const Text<32> CProgram = Str_UpCase(Part(sLine, I1, I2));
    if (Is_Program(CProgram, CPrgName)) return false;
    if (!Is_Program(CProgram, CLegacyProgram)) return true;
  }
  const Text<32> CKeyword = Str_UpCase(Part(sLine, I2, I3));
  return !Replaced_by_Survey(CKeyword.trimmed());
}

/// The lines of the old file that are not ours. Returns 0; 1 it could not be read to its end, which is reported.
I4 Carry_Over(RecordReader& in, const std::string& sMdeFile, TextWriter& out) {
  while (in.Next()) {
    if (Trimmed(in.Record()).size() < NLineMin) continue;
    const std::string_view sLine = Left_Adjusted(Trimmed(in.Record()));
    if (!sLine.empty() && Keeps_Line(sLine)) out.Line(sLine);
  }
  if (!in.Has_Failed()) return 0;
  // What could not be read would be lost with the old file.
  return Report_Not_Saved(
      {"ERROR while reading " + std::string(File_Name(sMdeFile)) + " near line:", std::string(in.Record())}, sMdeFile,
      "");
}

}  // namespace

I4 MDE_Read(std::string& sMdeFile) {
  I4 iError = 0;
  sMdeFile = IOsFindCompanion(sMdeFile);
  if (!IOsFileExists(sMdeFile)) {
    const std::string sChosen =
        hUser.Choose_File("Optional *.mde files|*.mde|", "Select optional survey information *.mde file.");
    if (!sChosen.empty()) sMdeFile = sChosen;
    iError = sChosen.empty() ? 1 : 0;
  }
  if (iError == 0) iError = Read_Lines(sMdeFile);
  Settle_Station_Scaling(MdStn);
  return iError;
}

I4 MDE_Update(std::string_view sMdeFile) {
  if (Trimmed(sMdeFile).empty()) return 1;
  const std::string sFound = IOsFindCompanion(sMdeFile);
  if (IOsFileExists(sFound) &&
      !hUser.Says_Yes(std::string(File_Name(sFound)) + " already exists, do you want to update it?",
                      "File already exists"))
    return 1;
  return MDE_Rewrite(sFound);
}

I4 MDE_Rewrite(std::string_view sMdeFile) {
  const std::string sPath(sMdeFile);
  const bool bExists = IOsFileExists(sPath);
  MdEntryList hEntry;
  static_cast<void>(TMD_Survey_Append_MD(hEntry));  // an empty list has room
  LogText("");
  LogText((bExists ? "Updating keyword records in " : "Writing QUILLAN keyword records into ") +
          std::string(File_Name(sPath)));

  RecordReader in(sPath, MMdeUpdate);
  TextWriter out(sPath);
  if ((bExists && !in.Is_Open()) || out.Has_Failed()) {
    const std::string sReason = out.Has_Failed() ? out.Reason() : in.Reason();
    return Report_Not_Saved({"ERROR while trying to open ", sPath}, sPath, sReason);
  }
  for (const MdEntry& hOne : hEntry) out.Line(MD_Entry_Line(hOne));
  if (Carry_Over(in, sPath, out) != 0) return 1;
  out.Commit();
  return out.Has_Failed() ? Report_Not_Saved({"ERROR while trying to write ", sPath}, sPath, out.Reason()) : 0;
}

}  // namespace quillan

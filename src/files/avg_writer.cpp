#include "files/avg_writer.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>
#include <vector>

#include "base/program.h"
#include "files/avg_columns.h"
#include "files/save_report.h"
#include "foundations/file_util.h"
#include "foundations/log_file.h"
#include "foundations/str_write.h"
#include "metadata/enm_data.h"
#include "model/derived.h"
#include "model/station_scale.h"
#include "model/survey_keywords.h"
#include "platform/clock.h"

namespace quillan {
namespace {

constexpr R8 dStnIncLeast = 1.0E-20;  // a recorded increment below it cannot be divided by
constexpr R4 fT0DelayLeast = 0.005f;  // usec, what two decimals can show

// ---- rows

bool Has_Any(WindowValues Transient::*hValue) {
  for (I4 j = 1; j <= NTrn; ++j) {
    const R4* const fFirst = (hTrn(j).*hValue).data();
    if (std::any_of(fFirst, fFirst + hTrn(j).NTW, [](R4 fValue) { return fValue > fNoValueLimit; })) return true;
  }
  return false;
}

/// The columns of the whole file, chosen by what the store holds.
std::vector<const AvgColumn*> Choose_Columns() {
  std::vector<const AvgColumn*> hChosen;
  for (const AvgColumn& h : hAvgColumn) {
    if (h.hCurrent.NWidth == 0) continue;
    if (h.hNeed == nullptr || Has_Any(h.hNeed)) hChosen.push_back(&h);
  }
  return hChosen;
}

/// A row grows here: fields are written where they stay, for there are millions of them in a file.
class RowText {
 public:
  void Add(char c) { sChar[NText++] = c; }
  void Add(std::string_view sText) {
    for (const char c : sText) Add(c);
  }
  void Pad_To(std::size_t N) {
    while (NText < N) Add(' ');
  }
  /// False when the value does not fit into its form; nothing is added then.
  bool Add_Number(R4 fValue, const EditForm& form) {
    const std::size_t NNumber = Write_Form(fValue, form, sChar.data() + NText).size();
    NText += NNumber;
    return NNumber > 0;
  }
  std::size_t Size() const { return NText; }
  std::string_view View() const { return {sChar.data(), NText}; }

 private:
  std::array<char, 2 * MFormText> sChar;  // the row, and room for any number after it
  std::size_t NText = 0;
};

/// A value in its form; the mark at its place where there is none or it is too wide.
void Add_Value(const Transient& h, I4 I, const AvgColumn& hColumn, RowText& row) {
  if (AVG_Has_Value(hColumn, h, I) && row.Add_Number((h.*hColumn.hValue)(I), hColumn.hCurrent.form)) return;
  row.Pad_To(row.Size() + static_cast<std::size_t>(hColumn.hCurrent.iMark - 1));
  row.Add('*');
}

void Add_Index(I4 I, RowText& row) {
  if (I < 10) row.Add(' ');
  row.Add(Str_Write_I4(I).trimmed());
}

void Write_Row(const Transient& h, I4 I, const std::vector<const AvgColumn*>& hChosen, TextWriter& out) {
  RowText row;
  for (const AvgColumn* hColumn : hChosen) {
    const std::size_t N0 = row.Size();
    switch (hColumn->iContent) {
      case AvgContent::Index: Add_Index(I, row); break;
      case AvgContent::Weight: row.Add(Is_Skipped(h, I) ? " 0.0" : " 1.0"); break;
      default: Add_Value(h, I, *hColumn, row); break;
    }
    if (hColumn == hChosen.back()) break;
    row.Add(',');
    row.Pad_To(N0 + static_cast<std::size_t>(hColumn->hCurrent.NWidth));
  }
  out.Line(row.View());
}

std::string Label_Line(const std::vector<const AvgColumn*>& hChosen) {
  std::string sLabels;
  for (const AvgColumn* h : hChosen) {
    if (!sLabels.empty()) sLabels += ',';
    sLabels += h->sLabel;
  }
  return sLabels;
}

// ---- metadata of a transient

/// The block of one transient grows here line by line.
struct Block {
  TextWriter& out;
  void Line(std::string_view sName, const std::string& sValue) { out.Line(std::string(sName) + sValue); }
};

std::string Usec(R4 fDelay) {
  return Str_Write_R4(fDelay, "(F12.2)").str() + " usec";
}

std::string Plain(R8 dValue, const EditForm& form) {
  char sText[MFormText];
  return std::string(Write_Form(dValue, form, sText));
}

void Write_Kvr(const Transient& h, Block& block) {
  if (h.dKvrBlk(1) > 0.0 && h.dKvrBlk(2) > 0.0) {
    block.Line("$Kvr.Blk=", Plain(h.dKvrBlk(1), "F0.2") + "," + Plain(h.dKvrBlk(2), "F0.2"));
  }
  if (!h.sKvrDate.Is_Blank()) block.Line("$Kvr.Date=", h.sKvrDate.str());
  if (!h.sKvrTime.Is_Blank()) block.Line("$Kvr.Time=", h.sKvrTime.str());
  block.Line("$Kvr.AcqMethod=", std::string(Held_Entry(sAcqMethod, h.iAcqMethod)));
}

void Write_Station(std::string_view sGroup, R8 dKvrStn, const StationScale& Rescaled, Block& block) {
  if (!Is_Present(dKvrStn)) return;
  block.Line("$" + std::string(sGroup) + ".KvrStn=", Str_Write_R8(dKvrStn, "(F12.3)").str());
  block.Line("$" + std::string(sGroup) + ".Stn=", Str_Write_R8(Rescaled(dKvrStn), "(F12.3)").str());
}

void Write_Tx(const Transient& h, const StationScale& Rescaled, Block& block) {
  Write_Station("Tx", h.dTxKvrStn, Rescaled, block);
  if (h.fTxFreq > 0.0f) block.Line("$Tx.Freq=", Str_Write_R4(h.fTxFreq, "(1P,G14.4E1)").str() + " hertz");
  if (h.NCycle > 0) block.Line("$Tx.NCycle=", Str_Write_I4(h.NCycle).str());
  if (h.fTxAmp > 0.0f) block.Line("$Tx.Amp=", Str_Write_R4(h.fTxAmp, "(F12.3)").str() + " amp");
  if (h.fTxRamp >= 0.0f) block.Line("$Tx.Ramp=", Str_Write_R4(h.fTxRamp, "(F12.3)").str() + " usec");
}

template <class Real, class Write>
std::string Triple(const Array1<Real, 3>& hValue, Write Str_Write, const EditForm& form) {
  std::string sTriple = Str_Write(hValue(1), form).str();
  for (I4 I = 2; I <= 3; ++I) sTriple += "," + Str_Write(hValue(I), form).str();
  return sTriple;
}

void Write_Rx(const Transient& h, const StationScale& Rescaled, Block& block) {
  Write_Station("Rx", h.dRxKvrStn, Rescaled, block);
  if (Is_Present(*std::min_element(h.dRxXYZ.begin(), h.dRxXYZ.end()))) {
    block.Line("$Rx.Center=", Triple(h.dRxXYZ, Str_Write_R8, "(F14.3)") + " " +
                                  std::string(Held_Entry(sLengthUnit, hTemSurvey.iLengthUnit)));
  }
  if (Is_Present(*std::min_element(h.fRxHPR.begin(), h.fRxHPR.end()))) {
    block.Line("$Rx.HPR=", Triple(h.fRxHPR, Str_Write_R4, "(F14.1)"));
  }
  if (h.fRxArea > 0.0f && h.iRxCmp >= iCmpHx && h.iRxCmp <= iCmpHz) {
    const std::string_view sAxis = std::string_view("XYZ").substr(static_cast<std::size_t>(h.iRxCmp - iCmpHx), 1);
    block.Line("$Rx.Area" + std::string(sAxis) + "=", Str_Write_R4(h.fRxArea, "(1P,G14.4)").str());
  }
  if (h.iRxCmp >= 1 && h.iRxCmp <= 8) {
    block.Line("$Rx.Cmp=", std::string(sChnCmp(h.iRxCmp)));
  }
}

void Write_Delays(const Transient& h, Block& block) {
  block.Line("$Rx.AntDelay  = ", Usec(h.fAntDelay));
  block.Line("$Rx.AliasDelay= ", Usec(h.fAliasDelay));
  if (h.fADDelay != 0.0f) block.Line("$Rx.ADDelay= ", Usec(h.fADDelay));
  if (h.fADRamp != 0.0f) block.Line("$Rx.ADRamp= ", Usec(h.fADRamp));
  if (std::abs(h.fT0Delay) > fT0DelayLeast) block.Line("$Rx.T0Delay= ", Usec(h.fT0Delay));
  block.Line("$Tx.Delay= ", Usec(h.fTxDelay));
}

// ---- the file

void Write_Header(TextWriter& out) {
  for (I4 I = 1; I <= hAvgKept.NAvgCmt; ++I) out.Line(hAvgKept.sAvgCmt(I).trimmed());
  out.Line("\\ TEM data reviewed with " + AVG_Signature());
  AVG_Write_TEM_Line_MD(out);
  for (I4 I = 1; I <= hAvgKept.NAvgMde; ++I) out.Line(hAvgKept.sAvgMde(I).trimmed());
}

/// False when the user has stopped it.
bool Write_Transients(Progress work, TextWriter& out) {
  const std::vector<const AvgColumn*> hChosen = Choose_Columns();
  const std::string sLabels = Label_Line(hChosen);
  for (I4 j = 1; j <= NTrn; ++j) {
    if (!work.Goes_On(j)) return false;
    const Transient& h = hTrn(j);
    AVG_Write_TEM_Trns_MD(h, out);
    out.Line(sLabels);
    for (I4 I = 1; I <= h.NTW; ++I) Write_Row(h, I, hChosen, out);
  }
  return true;
}

/// Station numbers are divided by the recorded increment: without one a file would hold rows that nobody can place, so
/// none is written. Returns 0; 1 when there is none, which is reported.
I4 Check_Station_Scale(std::string_view sFile) {
  const R8 dStnKvrInc = std::abs(hTemSurvey.dStnKvrInc);
  if (dStnKvrInc >= dStnIncLeast) return 0;
  return Report_Not_Saved({"AVG_Write.ERROR: " + std::string(File_Name(sFile)) + " is not written,",
                           "ABS(Stn.KvrInc) = " + Plain(dStnKvrInc, "ES10.4") + " < 1.0E-20"},
                          sFile, "give a recorded station increment other than 0");
}

}  // namespace

I4 AVG_Write(std::string_view sFile) {
  if (AVG_Begin_Write("AVG_Write", sFile, "Writing header block.") != 0) return 1;
  if (Check_Station_Scale(sFile) != 0) return 1;
  TextWriter out(sFile);
  if (AVG_Report_Write(out, "opening", sFile) != 0) return 1;

  Write_Header(out);
  if (!Write_Transients(Writing(sFile, NTrn), out)) return 1;
  out.Commit();
  if (AVG_Report_Write(out, "writing", sFile) != 0) return 1;
  LogText(Str_Write_I4(NTrn).str() + " transients written to");
  LogText(File_Name(sFile));
  return 0;
}

void AVG_Write_TEM_Line_MD(TextWriter& out) {
  MdEntryList hEntry;
  static_cast<void>(TMD_Survey_Append_MD(hEntry));  // an empty list has room
  out.Line(" ");
  for (const MdEntry& h : hEntry) out.Line(MD_Entry_Line(h));
}

void AVG_Write_TEM_Trns_MD(const Transient& hTrnsK, TextWriter& out) {
  const StationScale Rescaled = Stn_Scale();
  out.Line(" ");
  Block block{out};
  Write_Kvr(hTrnsK, block);
  Write_Tx(hTrnsK, Rescaled, block);
  Write_Rx(hTrnsK, Rescaled, block);
  Write_Delays(hTrnsK, block);
}

std::string AVG_Signature() {
  const Date hDate = IOsDate();
  return std::string(CPrgName) + " v" + std::string(sVersion) + " on " + Str_Write_I4F22(hDate.iDay).str() + "/" +
         Str_Write_I4F22(hDate.iMonth).str() + "/" + Str_Write_I4(hDate.iYear).str();
}

I4 AVG_Begin_Write(std::string_view sRoutine, std::string_view sFile, std::string_view sHeaderLine) {
  if (NTrn < 1) {
    LogErr({std::string(sRoutine) + ".ERROR: No valid data present, NTrn<1"});
    return 1;
  }
  LogText("");
  LogText("Writing data to " + std::string(File_Name(sFile)));
  LogText(sHeaderLine);
  return 0;
}

I4 AVG_Report_Write(const TextWriter& out, std::string_view sWhat, std::string_view sFile) {
  if (!out.Has_Failed()) return 0;
  return Report_Not_Saved({"ERROR " + std::string(sWhat) + " file " + std::string(sFile)}, sFile, out.Reason());
}

}  // namespace quillan

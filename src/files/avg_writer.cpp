#include "files/avg_writer.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>
#include <vector>

#include "base/program.h"
#include "foundations/file_util.h"
#include "foundations/log_file.h"
#include "foundations/str_write.h"
#include "metadata/enm_data.h"
#include "model/tmd_exchange.h"
#include "platform/clock.h"

namespace quillan {
namespace {

constexpr I4 iTimeMsec = 2;           // code in sTimeUnit
constexpr R4 fDepthFactor = 28.0f;    // m per sqrt(msec ohm-m)
constexpr R8 dStnIncLeast = 1.0E-20;  // a recorded increment below it cannot be divided by
constexpr R4 fT0DelayLeast = 0.005f;  // usec, what two decimals can show

// ---- rows

enum class AvgContent { Index, Value, Depth, Weight };

struct AvgColumn {
  std::string_view sLabel;
  AvgContent iContent;
  WindowValues Transient::*hValue;
  EditForm form;
  I4 LFldMin;  // characters, comma included
  I4 iMark;    // place of the "*" that stands for no value
  R4 fNone;    // at or below it there is no value
};

constexpr AvgColumn hAvgColumn[] = {
    {"TWin.Index",  AvgContent::Index,  nullptr,            "F0.0",     3,  0,  0.0f         },
    {"TWin.Center", AvgContent::Value,  &Transient::fTWCen, "ES10.4E1", 11, 10, fDummyLimit  },
    {"TWin.Beg",    AvgContent::Value,  &Transient::fTWBeg, "ES10.4E1", 11, 10, fDummyLimit  },
    {"TWin.End",    AvgContent::Value,  &Transient::fTWEnd, "ES10.4E1", 11, 10, fDummyLimit  },
    {"dBdt.Mag",    AvgContent::Value,  &Transient::fuVmag, "ES12.5",   13, 12, fDummyLimit  },
    {"dBdt.Err",    AvgContent::Value,  &Transient::fuVerr, "ES9.2",    10, 9,  fDummyLimit  },
    {"dBdt.%Err",   AvgContent::Value,  &Transient::fuVpct, "F7.1",     8,  7,  fDummyLimit  },
    {"dBdt.Wgt",    AvgContent::Weight, nullptr,            "F0.0",     8,  0,  0.0f         },
    {"ARes.Mag",    AvgContent::Value,  &Transient::fARes,  "ES10.3",   11, 12, fNoValueLimit},
    {"Depth.Image", AvgContent::Depth,  &Transient::fDepth, "ES9.3E1",  10, 11, fDummyLimit  },
    {"B.Mag",       AvgContent::Value,  &Transient::fBmag,  "ES12.5",   13, 12, fDummyLimit  },
};

bool Any_Above(WindowValues Transient::*hValue, R4 fLimit) {
  for (I4 j = 1; j <= NTrn; ++j) {
    for (I4 I = 1; I <= hTrn(j).NTW; ++I) {
      if ((hTrn(j).*hValue)(I) > fLimit) return true;
    }
  }
  return false;
}

/// The columns of the whole file, chosen by what the store holds.
std::vector<AvgColumn> Choose_Columns() {
  const bool bHaveARes = Any_Above(&Transient::fARes, fNoValueLimit);
  const bool bHaveBmag = Any_Above(&Transient::fBmag, fNoValueLimit);
  std::vector<AvgColumn> hColumn;
  for (const AvgColumn& h : hAvgColumn) {
    const bool bARes = h.hValue == &Transient::fARes || h.hValue == &Transient::fDepth;
    const bool bBmag = h.hValue == &Transient::fBmag;
    if ((bHaveARes || !bARes) && (bHaveBmag || !bBmag)) hColumn.push_back(h);
  }
  return hColumn;
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
  std::array<char, 2 * MFormText> sChar;  // the row, and room for any number behind it
  std::size_t NText = 0;
};

/// A value in its form; the mark at its place where there is none or it is too wide.
void Add_Value(R4 fValue, bool bHave, const AvgColumn& hColumn, RowText& row) {
  if (bHave && row.Add_Number(fValue, hColumn.form)) return;
  row.Pad_To(row.Size() + static_cast<std::size_t>(hColumn.iMark - 1));
  row.Add('*');
}

void Add_Index(I4 I, RowText& row) {
  if (I < 10) row.Add(' ');
  row.Add(Str_Write_I4(I).trimmed());
}

void Add_Field(const Transient& h, I4 I, const AvgColumn& hColumn, RowText& row) {
  const R4 fValue = hColumn.hValue != nullptr ? (h.*hColumn.hValue)(I) : fDummy;
  switch (hColumn.iContent) {
    case AvgContent::Index: Add_Index(I, row); break;
    case AvgContent::Value: Add_Value(fValue, !(fValue <= hColumn.fNone), hColumn, row); break;
    case AvgContent::Depth: Add_Value(fValue, h.fARes(I) > fNoValueLimit, hColumn, row); break;
    case AvgContent::Weight: row.Add(AVG_Is_Skipped(h, I) ? " 0.0" : " 1.0"); break;
  }
}

void Write_Row(const Transient& h, I4 I, const std::vector<AvgColumn>& hColumn, TextWriter& out) {
  RowText row;
  for (const AvgColumn& hField : hColumn) {
    const std::size_t N0 = row.Size();
    Add_Field(h, I, hField, row);
    if (&hField == &hColumn.back()) break;
    row.Add(',');
    row.Pad_To(N0 + static_cast<std::size_t>(hField.LFldMin));
  }
  out.Line(row.View());
}

std::string Label_Line(const std::vector<AvgColumn>& hColumn) {
  std::string sLabels;
  for (const AvgColumn& h : hColumn) {
    if (!sLabels.empty()) sLabels += ',';
    sLabels += h.sLabel;
  }
  return sLabels;
}

/// Depths follow the resistivities that are written beside them.
void Set_Depths(Transient& h) {
  for (I4 I = 1; I <= h.NTW; ++I) {
    if (h.fARes(I) > fNoValueLimit) h.fDepth(I) = AVG_Depth(h, I);
  }
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

void Write_Station(std::string_view sGroup, R8 dKvrStn, R8 dStnScale, Block& block) {
  if (!Is_Present(dKvrStn)) return;
  const R8 dStn = (dKvrStn - hTemSurvey.dStnKvrBeg) * dStnScale + hTemSurvey.dStnBeg;
  block.Line("$" + std::string(sGroup) + ".KvrStn=", Str_Write_R8(dKvrStn, "(F12.3)").str());
  block.Line("$" + std::string(sGroup) + ".Stn=", Str_Write_R8(dStn, "(F12.3)").str());
}

void Write_Tx(const Transient& h, R8 dStnScale, Block& block) {
  Write_Station("Tx", h.dTxKvrStn, dStnScale, block);
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

void Write_Rx(const Transient& h, R8 dStnScale, Block& block) {
  Write_Station("Rx", h.dRxKvrStn, dStnScale, block);
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

void Write_Header(TextWriter& out, I4& iError) {
  for (I4 I = 1; I <= NAvgCmt; ++I) out.Line(sAvgCmt(I).trimmed());
  out.Line("\\ TEM data reviewed with " + std::string(CPrgName) + " v" + std::string(sVersion) + " on " + AVG_Date());
  AVG_Write_TEM_Line_MD(out, iError);
  for (I4 I = 1; I <= NAvgMde; ++I) out.Line(sAvgMde(I).trimmed());
}

void Write_Transients(TextWriter& out, I4& iError) {
  const std::vector<AvgColumn> hColumn = Choose_Columns();
  const std::string sLabels = Label_Line(hColumn);
  for (I4 j = 1; j <= NTrn; ++j) {
    AVG_Write_TEM_Trns_MD(hTrn(j), out, iError);
    Set_Depths(hTrn(j));
    out.Line(sLabels);
    for (I4 I = 1; I <= hTrn(j).NTW; ++I) Write_Row(hTrn(j), I, hColumn, out);
  }
}

}  // namespace

void AVG_Write(std::string_view sFile, I4& iError) {
  AVG_Begin_Write("AVG_Write", sFile, "Writing header block.", iError);
  if (iError != 0) return;
  TextWriter out(sFile);
  AVG_Report_Write(out, "opening", sFile, iError);
  if (iError != 0) return;

  Write_Header(out, iError);
  Write_Transients(out, iError);
  out.Commit();
  AVG_Report_Write(out, "writing", sFile, iError);
  if (out.Has_Failed()) return;
  LogText(Str_Write_I4(NTrn).str() + " transients written to");
  LogText(File_Name(sFile));
}

void AVG_Write_TEM_Line_MD(TextWriter& out, I4& iError) {
  hTemSurvey.iTimeUnit = iTimeMsec;
  MdEntryList hEntry;
  TMD_Survey_Append_MD(hEntry, iError);
  out.Line(" ");
  for (const MdEntry& h : hEntry) out.Line(MD_Entry_Line(h));
}

void AVG_Write_TEM_Trns_MD(const Transient& hTrnsK, TextWriter& out, I4& iError) {
  iError = 0;
  const R8 dStnKvrInc = hTemSurvey.dStnKvrInc;
  if (std::abs(dStnKvrInc) < dStnIncLeast) {
    LogErr({"AVG_Write_TEM_Trns_MD.ERROR:", "ABS(Stn.KvrInc)=" + Plain(std::abs(dStnKvrInc), "ES12.4") + " < 1.0E-20"});
    iError = 1;
    return;
  }
  const R8 dStnScale = hTemSurvey.dStnInc / dStnKvrInc;
  out.Line(" ");
  Block block{out};
  Write_Kvr(hTrnsK, block);
  Write_Tx(hTrnsK, dStnScale, block);
  Write_Rx(hTrnsK, dStnScale, block);
  Write_Delays(hTrnsK, block);
}

std::string AVG_Date() {
  const Date hDate = IOsDate();
  return Str_Write_I4F22(hDate.iDay).str() + "/" + Str_Write_I4F22(hDate.iMonth).str() + "/" +
         Str_Write_I4(hDate.iYear).str();
}

R4 AVG_Depth(const Transient& h, I4 I) {
  return fDepthFactor * std::sqrt(h.fTWCen(I) * h.fARes(I));
}

bool AVG_Is_Skipped(const Transient& h, I4 I) {
  return h.bSkip(I) || h.bSkipTrn;
}

void AVG_Begin_Write(std::string_view sRoutine, std::string_view sFile, std::string_view sHeaderLine, I4& iError) {
  iError = NTrn < 1 ? 1 : 0;
  if (iError != 0) {
    LogErr({std::string(sRoutine) + ".ERROR: No valid data present, NTrn<1"});
    return;
  }
  LogText("");
  LogText("Writing data to " + std::string(File_Name(sFile)));
  LogText(sHeaderLine);
}

void AVG_Report_Write(const TextWriter& out, std::string_view sWhat, std::string_view sFile, I4& iError) {
  if (!out.Has_Failed()) return;
  iError = 1;
  LogErr({"ERROR " + std::string(sWhat) + " file " + std::string(sFile), out.Reason(),
          "The data are not saved; choose Save again."});
}

}  // namespace quillan

#include "files/avg_legacy_writer.h"

#include <algorithm>
#include <cmath>

#include "base/program.h"
#include "files/avg_writer.h"
#include "foundations/file_util.h"
#include "foundations/log_file.h"
#include "foundations/str_write.h"
#include "metadata/enm_data.h"

namespace quillan {
namespace {

constexpr std::string_view sHeaderLine =
    "skp     Tx   Station  Freq Cmp Amps Win Time   Magnitude  RampAppRes    Depth    %Mag";
constexpr std::string_view sRuleLine =
    "\\-++-------++-------++----++-++----++-++-----++---------++---------++---------++-----+";

// ---- fields

std::string Mark(I4 iPlace) {
  return std::string(static_cast<std::size_t>(iPlace - 1), ' ') + "*";
}

/// A value in its form, left-adjusted; the mark at its place for one that is missing or too wide.
std::string Value_or_Mark(R4 fValue, const EditForm& form, R4 fNone, I4 iMark) {
  const Text<16> sValue = fValue <= fNone ? Text<16>("*") : Str_Write_R4(fValue, form);
  return sValue == "*" ? Mark(iMark) : sValue.str();
}

std::string Right_Justified(I4 iValue, std::size_t NWidth) {
  const std::string sValue = Str_Write_I4(iValue).str();
  return sValue.size() < NWidth ? std::string(NWidth - sValue.size(), ' ') + sValue : sValue;
}

std::string Skip_Field(const Transient& h, I4 I) {
  return AVG_Is_Skipped(h, I) ? " 1" : " 2";
}
std::string Tx_Field(const Transient& h, I4) {
  return Str_Write_R8(h.dTxKvrStn, "(F14.2)").str();
}
std::string Station_Field(const Transient& h, I4) {
  return Str_Write_R8(h.dRxKvrStn, "(F14.2)").str();
}
std::string Freq_Field(const Transient& h, I4) {
  return Str_Write_R4(h.fTxFreq, "(1P,G11.4E1)").str();
}
std::string Cmp_Field(const Transient& h, I4) {
  return " " + std::string(Held_Entry(sChnCmp, h.iRxCmp).substr(0, 2));
}
std::string Amps_Field(const Transient& h, I4) {
  return Str_Write_R4(h.fTxAmp, "(1P,G11.4E1)").str();
}
std::string Win_Field(const Transient&, I4 I) {
  return Right_Justified(I, 3);
}
std::string Time_Field(const Transient& h, I4 I) {
  std::string sTime;
  AVG_Write_TWC0(sTime, h.fTWCen(I));
  return sTime;
}
std::string Magnitude_Field(const Transient& h, I4 I) {
  return Value_or_Mark(h.fuVmag(I), "(ES12.4E1)", fDummyLimit, 5);
}
std::string ARes_Field(const Transient& h, I4 I) {
  return Value_or_Mark(h.fARes(I), "(ES10.3E1)", fNoValueLimit, 4);
}
std::string Depth_Field(const Transient& h, I4 I) {
  return h.fARes(I) <= fNoValueLimit ? Mark(4) : Value_or_Mark(h.fDepth(I), "(ES9.3E1)", fDummyLimit, 4);
}
std::string Percent_Field(const Transient& h, I4 I) {
  char sText[MFormText];
  if (h.fuVpct(I) <= fDummyLimit) return Mark(7);
  const std::string_view sValue = Write_Form(h.fuVpct(I), "F6.1", sText);
  return sValue.empty() ? Mark(7) : std::string(sValue);
}

struct LegacyColumn {
  std::string (*Field)(const Transient& h, I4 I);
  I4 NWidth;  // characters, the blank behind the field included
};

constexpr LegacyColumn hLegacyColumn[] = {
    {Skip_Field,      3 },
    {Tx_Field,        9 },
    {Station_Field,   9 },
    {Freq_Field,      6 },
    {Cmp_Field,       3 },
    {Amps_Field,      5 },
    {Win_Field,       3 },
    {Time_Field,      7 },
    {Magnitude_Field, 11},
    {ARes_Field,      11},
    {Depth_Field,     11},
    {Percent_Field,   6 },
};

void Write_Row(const Transient& h, I4 I, TextWriter& out) {
  std::string sRow;
  for (const LegacyColumn& hColumn : hLegacyColumn) {
    std::string sField(Trimmed(hColumn.Field(h, I)));
    if (&hColumn != std::end(hLegacyColumn) - 1) {
      sField.resize(std::max(sField.size() + 1, static_cast<std::size_t>(hColumn.NWidth)), ' ');
    }
    sRow += sField;
  }
  out.Line(sRow);
}

// ---- the file

void Write_Header(TextWriter& out) {
  const R4 fUnit = Held_Entry(fLengthUnit, hTemSurvey.iLengthUnit);
  out.Line("\\ Dorval format from " + std::string(CPrgName) + " v" + std::string(sVersion) + " on " + AVG_Date());
  out.Line("$ TEM: Array=" + std::string(Held_Entry(sTemArray, hTemSurvey.iTemArray)));
  out.Line("$ TEM: TxRamp=" + Str_Write_R4(hTrn(1).fTxDelay, "(F12.3)").str());
  out.Line("$ TEM: TxDX=" + Str_Write_R4(hTemSurvey.fTxLength(1) / fUnit, "(F12.2)").str());
  out.Line("$ TEM: TxDY=" + Str_Write_R4(hTemSurvey.fTxLength(2) / fUnit, "(F12.2)").str());
  out.Line("$ TEM: TxArea=" + Str_Write_R4(hTemSurvey.fTxArea, "(F12.1)").str());
  out.Line("$ TEM: RxArea=" + Str_Write_R4(hTrn(1).fRxArea, "(F12.1)").str());
  out.Line(sHeaderLine);
  out.Line(sRuleLine);
}

void Write_Transient(Transient& h, TextWriter& out) {
  for (I4 I = 1; I <= h.NTW; ++I) {
    if (h.fARes(I) > fNoValueLimit) h.fDepth(I) = AVG_Depth(h, I);
    Write_Row(h, I, out);
  }
}

}  // namespace

void AVG_Write0(std::string_view sFile, I4& iError) {
  AVG_Begin_Write("AVG_Write0", sFile, "Writing header block", iError);
  if (iError != 0) return;
  TextWriter out(sFile);
  AVG_Report_Write(out, "opening", sFile, iError);
  if (iError != 0) return;

  Write_Header(out);
  for (I4 j = 1; j <= NTrn; ++j) Write_Transient(hTrn(j), out);
  out.Commit();
  AVG_Report_Write(out, "writing", sFile, iError);
  if (iError == 0) LogText(Str_Write_I4(NTrn).str() + " transients written to" + std::string(File_Name(sFile)));
}

void AVG_Write_TWC0(std::string& sOutput, R4 fTWC) {
  struct TimeForm {
    R4 fBelow;  // msec
    EditForm form;
  };
  constexpr TimeForm hTimeForm[] = {
      {0.001f, "(F0.3)"},
      {9.999f, "(F6.3)"},
      {99.99f, "(F6.2)"},
      {999.9f, "(F6.1)"}
  };
  sOutput = "*";
  if (fTWC < fDummyLimit) return;
  for (const TimeForm& h : hTimeForm) {
    if (!(std::abs(fTWC) < h.fBelow)) continue;
    sOutput = Str_Write_R4(fTWC, h.form).str();
    return;
  }
  sOutput = Str_Write_I4(Nint(fTWC)).str();
}

}  // namespace quillan

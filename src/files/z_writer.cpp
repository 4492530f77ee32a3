#include "files/z_file.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <span>
#include <string>

#include "files/avg_writer.h"
#include "foundations/file_util.h"
#include "foundations/log_file.h"
#include "foundations/str_write.h"
#include "foundations/text_file.h"
#include "metadata/enm_data.h"
#include "model/station_scale.h"
#include "model/tmd_data.h"

namespace quillan {
namespace {

constexpr std::string_view sRuler = "IIxxxxxxxxYYYYYYYYzzzzzzzzzzzz";
constexpr std::string_view sEndMark = " 9999.00";

// ---- the rows of a block

/// A section of the file: blocks of one kind of data.
struct ZSection {
  WindowValues Transient::*hValue;
  std::string_view sBefore, sAfter;         // of the component's letter: "dBz/dt"; blank where it is not named
  std::string_view sUnit;                   // with the blank ahead of it; blank: the survey's unit of B
  std::string_view sStyle;                  // the codes below "Cl Cn Ce Ns Nd Yl" of the head
  std::span<const std::string_view> sPlot;  // settings of the plotting program
  bool bLogTime;                            // rows stand at the logarithm of the time
};

constexpr std::string_view sCurveStyle = "  0  1  0  3  1  0";
constexpr std::string_view sContourStyle = "  1  5  0  3  1  1";
constexpr std::string_view sCurvePlot[] = {"$ CONTOUR= NONE", "$ PROFILE= 0d", "$ POST   = NONE"};
constexpr std::string_view sContourPlot[] = {"$ DATA= TLOG", "$ DOTY= 0.5", "$ CONTOUR= YES", "$ PROFILE= NONE",
                                             "$ POST   = NO"};

constexpr ZSection hDbdtSection = {&Transient::fuVmag, "dB", "/dt", " uV/amp", sCurveStyle, sCurvePlot, false};
constexpr ZSection hBSection = {&Transient::fBmag, "B", "", "", sCurveStyle, sCurvePlot, false};
constexpr ZSection hAResSection = {&Transient::fARes, "",           "",  "Apparent Resistivity ohm-m",
                                   sContourStyle,     sContourPlot, true};

constexpr R4 fAResLeast = 1.0E-20f;  // ohm-m
constexpr R4 fTimeLeast = 1.0E-5f;   // msec, below it there is no logarithm to plot
constexpr R4 fLogTimeZero = 10.0f;   // added to the logarithm, so that it is positive
constexpr R4 fLogTimeTop = 7.0f;     // where the contours of a station begin

constexpr EditForm formValue = "ES12.4";

/// The later the time, the fewer decimals it needs.
const EditForm& Time_Form(R4 fTWCen) {
  static constexpr struct {
    R4 fFrom;  // msec
    EditForm form;
  } hTimeForm[] = {
      {0.9999f,  "F8.3"},
      {0.09999f, "F8.4"}
  };
  static constexpr EditForm formEarly = "F8.5";
  for (const auto& h : hTimeForm) {
    if (fTWCen >= h.fFrom) return h.form;
  }
  return formEarly;
}

/// A row grows here: there are millions of them in a file.
using RowText = std::array<char, NZRow>;

/// A number in its column; a column of "*" where it is too wide, which no reader takes for a number.
template <class Real>
void Put_Column(Real xValue, const EditForm& form, const ZColumn& h, RowText& sRow) {
  char sText[MFormText];
  const std::string_view sNumber = Write_Form(xValue, form, sText);
  char* const pColumn = sRow.data() + h.iFirst;
  if (sNumber.size() == h.NWidth)
    std::copy(sNumber.begin(), sNumber.end(), pColumn);
  else
    std::fill_n(pColumn, h.NWidth, '*');
}

void Put_Skip_Code(I4 iSkipCode, RowText& sRow) {
  sRow[0] = ' ';
  sRow[1] = static_cast<char>('0' + iSkipCode);
}

bool Has_Value(const Transient& h, I4 I, const ZSection& hSection) {
  const R4 fValue = (h.*hSection.hValue)(I);
  if (!hSection.bLogTime) return fValue >= fDummyLimit;
  return fValue >= fAResLeast && h.fTWCen(I) >= fTimeLeast;
}

void Write_Rows(const Transient& h, const ZSection& hSection, const EditForm& formStn, TextWriter& out) {
  RowText sRow;
  Put_Column(h.dRxStn, formStn, hZStnColumn, sRow);
  for (I4 I = 1; I <= h.NTW; ++I) {
    if (!Has_Value(h, I, hSection)) continue;
    const R4 fTWCen = h.fTWCen(I);
    Put_Skip_Code(h.bSkip(I) ? iZSkipOut : iZSkipInUse, sRow);
    Put_Column(hSection.bLogTime ? fLogTimeZero + std::log10(fTWCen) : fTWCen, Time_Form(fTWCen), hZTimeColumn, sRow);
    Put_Column((h.*hSection.hValue)(I), formValue, hZValueColumn, sRow);
    out.Line({sRow.data(), NZRow});
  }
}

/// The row without a value with which a block of resistivities begins.
void Write_Top_Row(const Transient& h, const EditForm& formStn, TextWriter& out) {
  RowText sRow;
  Put_Skip_Code(iZSkipNoPoint, sRow);
  Put_Column(h.dRxStn, formStn, hZStnColumn, sRow);
  Put_Column(fLogTimeTop, Time_Form(fLogTimeTop), hZTimeColumn, sRow);
  out.Line({sRow.data(), hZValueColumn.iFirst});
}

// ---- its head

/// All decimals of a form, without blanks; "*" for no value.
std::string Plain(R8 dValue, const EditForm& form) {
  char sText[MFormText];
  const std::string_view sNumber = Is_Present(dValue) ? Write_Form(dValue, form, sText) : std::string_view{};
  return sNumber.empty() ? "*" : std::string(Left_Adjusted(sNumber));
}

/// "dBz/dt"; blank where the section does not name its component.
std::string Quantity(const ZSection& h, I4 JCmp) {
  if (h.sBefore.empty()) return "";
  return std::string(h.sBefore).append(sXYZ(JCmp)).append(h.sAfter);
}

std::string Title(const ZSection& h, I4 JCmp) {
  const std::string_view sUnit = Held_Entry(sBUnit, hTemSurvey.iBUnit);
  return " " + Quantity(h, JCmp) + (h.sUnit.empty() ? " " + std::string(sUnit) : std::string(h.sUnit));
}

void Write_Head(const ZSection& h, I4 KBlock, I4 JCmp, R8 dOffset, TextWriter& out) {
  const std::string sTxStn = Plain(dOffset, "F12.1");
  const std::string sWhat = Quantity(h, JCmp);
  // One line a section for the window: of a moving transmitter each sounding is a block.
  if (!sWhat.empty()) (KBlock == 1 ? LogText : LogText_File)("Writing " + sWhat + ", Tx " + sTxStn);
  out.Line(" Cl Cn Ce Ns Nd Yl  Plot file" + Str_Write_I4(KBlock).str());
  out.Line(h.sStyle);
  out.Line(" TEM SURVEY DATA");
  out.Line(Title(h, JCmp));
  out.Line("    Tx " + sTxStn);
  for (const std::string_view s : h.sPlot) out.Line(s);
  out.Line(sRuler);
}

// ---- the file

/// The transmitter's place by which blocks are told apart: where it moves along, its distance to the receiver.
R8 Offset_of(const Transient& h) {
  return hTemSurvey.iTemArray == iArrayMVL ? h.dRxStn - h.dTxStn : h.dTxStn;
}

void Write_Section(const ZSection& hSection, const EditForm& formStn, TextWriter& out) {
  I4 KBlock = 0;
  R8 dOffset0 = dDummy;
  I4 JCmp0 = 0;
  for (I4 j = 1; j <= NTrn; ++j) {
    const Transient& h = hTrn(j);
    if (h.bSkipTrn) continue;
    const R8 dOffset = Offset_of(h);
    const I4 JCmp = Z_Axis(h.iRxCmp);
    if (!Is_Same_Stn(dOffset0, dOffset) || JCmp != JCmp0) {
      dOffset0 = dOffset;
      JCmp0 = JCmp;
      // By the transient's number: where the first one is skipped, the first block too has a mark ahead of it, which
      // readers of these files pass over.
      if (j > 1) out.Line(sEndMark);
      Write_Head(hSection, ++KBlock, JCmp, dOffset, out);
      if (hSection.bLogTime) Write_Top_Row(h, formStn, out);
    }
    Write_Rows(h, hSection, formStn, out);
  }
  out.Line(sEndMark);
}

R4 Back_Azimuth(R4 fAzimuth) {
  if (!Is_Present(fAzimuth)) return fDummy;
  return fAzimuth >= 180.0f ? fAzimuth - 180.0f : fAzimuth + 180.0f;
}

void Write_Header(TextWriter& out) {
  const Survey& h = hTemSurvey;
  const auto Line = [&out](std::string_view sName, std::string_view sValue) {
    out.Line(std::string("$ Narvo: ").append(sName).append(sValue));
  };
  Line("Project = ", h.sJobName.trimmed());
  Line("Client  = ", h.sJobFor.trimmed());
  Line("JobNumb = ", h.sJobNumber.trimmed());
  Line("JobDate = ", h.sJobDate.trimmed());
  Line("JobLine = ", h.sLineName.trimmed());
  Line("BrgLine= ", Str_Write_Brg(h.fLineAzimuth).trimmed());
  Line("BrgBack= ", Str_Write_Brg(Back_Azimuth(h.fLineAzimuth)).trimmed());
  Line("STNLOW = ", Plain(h.dStnKvrBeg, "F12.2"));
  Line("STNDELT = ", Plain(h.dStnKvrInc, "F12.2"));
  Line("LBLFRST = ", Plain(h.dStnBeg, "F12.2"));
  Line("LBLDELT = ", Plain(h.dStnInc, "F12.2"));
  Line("DATA= TIME", "");
  out.Line(" Dorval Contour File");
}

/// As many decimals as the station numbers need.
EditForm Station_Form() {
  I4 NSDEC = 1;
  for (I4 j = 1; j <= NTrn; ++j) NSDEC = std::max(NSDEC, NReqDecR8(hTrn(j).dRxStn));
  EditForm form = "F8.1";
  form.NDecimal = NSDEC;
  return form;
}

bool Has_B(const Transient& h) {
  return !h.bSkipTrn && std::any_of(h.fBmag.begin(), h.fBmag.begin() + h.NTW, [](R4 f) { return Is_Present(f); });
}

void Write_Sections(TextWriter& out) {
  const EditForm formStn = Station_Form();
  Write_Section(hDbdtSection, formStn, out);
  if (std::any_of(hTrn.begin(), hTrn.begin() + NTrn, Has_B)) Write_Section(hBSection, formStn, out);
  LogText("Writing apparent resistivity data.");
  Write_Section(hAResSection, formStn, out);
}

}  // namespace

I4 Z_Write(std::string_view sZFile) {
  const std::string sFileName(File_Name(sZFile));
  LogText("");
  LogText("Writing data to " + sFileName);
  if (NTrn < 1) {
    LogErr({"ERROR: No valid data present"});
    return 1;
  }
  TextWriter out(sZFile);
  if (AVG_Report_Write(out, "opening", sZFile) != 0) return 1;

  Write_Header(out);
  Write_Sections(out);
  out.Commit();
  if (AVG_Report_Write(out, "writing", sZFile) != 0) return 1;
  const auto NWritten =
      std::count_if(hTrn.begin(), hTrn.begin() + NTrn, [](const Transient& h) { return !h.bSkipTrn; });
  LogText(Str_Write_I4(static_cast<I4>(NWritten)).str() + " transients have been written into " + sFileName);
  return 0;
}

}  // namespace quillan

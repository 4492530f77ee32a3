#include "files/z_file.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "files/avg_writer.h"
#include "foundations/file_util.h"
#include "foundations/free_read.h"
#include "foundations/log_file.h"
#include "foundations/str_parse.h"
#include "foundations/str_value.h"
#include "foundations/str_write.h"
#include "foundations/text_file.h"
#include "foundations/user.h"
#include "metadata/enm_data.h"
#include "metadata/mdp_data.h"
#include "model/station_scale.h"
#include "model/survey_keywords.h"
#include "model/tmd_data.h"

namespace quillan {
namespace {

// ---- the format

constexpr I4 iSkipCodeOut = 1;
constexpr I4 iSkipCodeInUse = 2;
constexpr I4 iSkipCodeNoPoint = 5;  // of the row that keeps a place on the axis without a value

/// A column of the rows, as the ruler shows it.
struct ZColumn {
  std::size_t iFirst;  // place, from 0
  std::size_t NWidth;
};
constexpr ZColumn hSkipColumn = {0, 2};
constexpr ZColumn hStnColumn = {2, 8};
constexpr ZColumn hTimeColumn = {10, 8};
constexpr ZColumn hValueColumn = {18, 12};
constexpr std::size_t NRow = 30;  // characters of a row

constexpr std::string_view sRuler = "IIxxxxxxxxYYYYYYYYzzzzzzzzzzzz";
constexpr std::string_view sEndMark = " 9999.00";

bool Is_Ruler(std::string_view CLine) {
  return CLine.starts_with("IIX");
}

bool Is_End_Mark(std::string_view sLine) {
  return sLine.substr(0, 10).find("9999.0") != std::string_view::npos;
}

I4 Axis_of(I4 iRxCmp) {
  return (iRxCmp - 1) % 3 + 1;
}

// ---- reading: the header of a block

constexpr R8 dStnApart = 0.001;       // stations further apart than this are two
constexpr I4 NRecordsPerLook = 8192;  // between looks at the user's messages

/// What a file's answers and rows leave for those below.
struct ZReadState {
  struct Answer {
    ZDataType hFound, hGiven;
  };
  std::vector<Answer> hAnswer;  // that stand for all blocks of which the file says the same
  bool bSkip = false;           // state of the row before
  bool bOpen = false;           // the last transient of the store takes rows of this block
};

struct ZHeader {
  std::vector<std::string> sLine;  // those that are for people
  ZDataType hType;                 // by the words in it
};

enum class HeaderEnd { Ruler, Mark, TooLong, File };

bool Is_Metadata(std::string_view sLine) {
  return sLine.size() > 2 && sLine.substr(0, 2).find('$') != std::string_view::npos;
}

void Find_Data_Words(std::string_view CLine, ZDataType& hType) {
  struct DataWord {
    std::string_view CWord;
    I4 iRxCmp;  // 0: it does not say
  };
  constexpr DataWord hDataWord[] = {
      {"MAGNITUDE", 0         },
      {"DBX/DT",    iCmpHx    },
      {"DBY/DT",    iCmpHx + 1},
      {"DBZ/DT",    iCmpHz    }
  };
  for (const DataWord& h : hDataWord) {
    if (CLine.find(h.CWord) == std::string_view::npos) continue;
    hType.iDataType = iZDataDbdt;
    if (h.iRxCmp != 0) hType.iRxCmp = h.iRxCmp;
  }
}

/// Reads as far as the ruler. A mark without one ends a block that has no rows; its lines say nothing of the next.
HeaderEnd Read_Header(RecordReader& in, ZHeader& hHeader) {
  LogText("   Reading header lines.");
  while (in.Next()) {
    const std::string_view sLine = Trimmed(in.Record());
    const std::string CLine = Str_UpCase(sLine);
    Find_Data_Words(CLine, hHeader.hType);
    if (Is_Metadata(sLine)) {
      static_cast<void>(MDP_from_MDE(in.iRecord(), sLine, iPriorityData));  // many are other programs' lines
      continue;
    }
    if (Is_End_Mark(sLine)) return HeaderEnd::Mark;
    const bool bRoom = static_cast<I4>(hHeader.sLine.size()) < MZHeader;
    if (bRoom) hHeader.sLine.emplace_back(sLine);
    if (Is_Ruler(CLine)) return HeaderEnd::Ruler;
    if (!bRoom) return HeaderEnd::TooLong;
  }
  return HeaderEnd::File;
}

/// What the user takes a block for; nothing when cancelled.
std::optional<ZDataType> Verified_Type(const ZHeader& hHeader, ZReadState& hRead) {
  const auto hKnown = std::ranges::find(hRead.hAnswer, hHeader.hType, &ZReadState::Answer::hFound);
  if (hKnown != hRead.hAnswer.end()) return hKnown->hGiven;
  const ZTypeAnswer hAnswer = hUser.Which_Z_Data({hHeader.sLine, MZHeader, hHeader.hType});
  if (hAnswer.hType && hAnswer.bForAll) hRead.hAnswer.push_back({hHeader.hType, *hAnswer.hType});
  return hAnswer.hType;
}

// ---- reading: its rows

struct ZRow {
  I4 iSkipCode = 0;
  R8 dRxKvrStn = 0.0;
  R4 fTWCen = 0.0f;  // msec
  R4 fuVmag = 0.0f;
};

/// False unless the column holds a number and nothing else.
template <class Number>
bool Read_Column(std::string_view sRow, const ZColumn& h, Number& xValue) {
  if (sRow.size() <= h.iFirst) return false;
  const std::string_view sField = Trimmed(Left_Adjusted(sRow.substr(h.iFirst, h.NWidth)));
  return sField.find_first_of(" \t,/") == std::string_view::npos && List_Read(sField, xValue) == Outcome::Value;
}

std::optional<ZRow> Read_Row(std::string_view sRow) {
  ZRow hRow;
  const bool bNoCode = Trimmed(sRow.substr(0, hSkipColumn.NWidth)).empty();
  const bool bRead = (bNoCode || Read_Column(sRow, hSkipColumn, hRow.iSkipCode)) &&
                     Read_Column(sRow, hStnColumn, hRow.dRxKvrStn) && Read_Column(sRow, hTimeColumn, hRow.fTWCen) &&
                     Read_Column(sRow, hValueColumn, hRow.fuVmag);
  return bRead ? std::optional(hRow) : std::nullopt;
}

bool Begins_Transient(const ZRow& hRow, const ZReadState& hRead) {
  if (!hRead.bOpen) return true;
  const Transient& h = hTrn(NTrn);
  // A time that falls back is a repeat at the same station, or another frequency: windows of a transient rise.
  return std::abs(hRow.dRxKvrStn - h.dRxKvrStn) > dStnApart || hRow.fTWCen < h.fTWCen(h.NTW);
}

void Begin_Transient(const ZRow& hRow, I4 iRxCmp) {
  Transient& h = hTrn(++NTrn);
  h = Transient{};
  h.dRxKvrStn = hRow.dRxKvrStn;
  h.dRxStn = Stn_Scale_of_Rows()(hRow.dRxKvrStn);
  h.dRxXYZ = MdRx.dUTMC;
  h.fRxHPR = MdRx.fHPR;
  h.iRxCmp = iRxCmp;
  const R4 fRxArea = MdRx.fArea(Axis_of(iRxCmp));
  h.fRxArea = fRxArea < fRxAreaLeast ? fRxAreaDefault : fRxArea;
  h.dTxKvrStn = MdTx.dKvrStn;
  h.dTxStn = MdTx.dStn;
  h.fTxFreq = MdTx.fFreq;
  h.fTxAmp = MdTx.fAmp;
  h.fTxRamp = MdTx.fRamp;
}

/// Stores a row as the next window of the transient; a 65th has no place.
void Add_Window(const ZRow& hRow, bool bSkip) {
  Transient& h = hTrn(NTrn);
  if (h.NTW == MTW) return;
  const I4 I = ++h.NTW;
  h.bSkip(I) = bSkip;
  h.fTWCen(I) = hRow.fTWCen;
  h.fuVmag(I) = hRow.fuVmag;
}

/// Takes one row, the next window of a transient. False, with a report, when the rest of the block cannot be taken.
bool Take_Row(const RecordReader& in, std::string_view sZFile, I4 iRxCmp, ZReadState& hRead) {
  const auto hRow = Read_Row(in.Record());
  if (!hRow) {
    LogErr({"Z_Read.ERROR while reading data from line " + Str_Write_I4(in.iRecord()).str(), std::string(in.Record())});
    return false;
  }
  if (hRow->iSkipCode == iSkipCodeOut || hRow->iSkipCode == iSkipCodeInUse)
    hRead.bSkip = hRow->iSkipCode == iSkipCodeOut;
  if (Begins_Transient(*hRow, hRead)) {
    if (NTrn == MTrn) {
      LogErr({"Z_Read.WARNING: More than 4096 transients in " + std::string(File_Name(sZFile)),
              "Excess data will be dropped."});
      return false;
    }
    Begin_Transient(*hRow, iRxCmp);
    hRead.bOpen = true;
  }
  Add_Window(*hRow, hRead.bSkip);
  return true;
}

/// Reads as far as the end mark, also where the rows cannot be taken: what follows a block is a header.
void Read_Rows(RecordReader& in, std::string_view sZFile, const ZDataType& hType, ZReadState& hRead) {
  bool bTake = hType.iDataType == iZDataDbdt;
  if (bTake) {
    LogText(" Reading dB/dt magnitude data, cmp = " + std::string(Held_Entry(sChnCmp, hType.iRxCmp)));
    LogText("Reading numerical data.");
    TMD_Survey_from_MD();
  } else {
    LogText(" Skipping data block");
  }
  hRead.bOpen = false;
  while (in.Next()) {
    if (Is_End_Mark(in.Record())) return;
    if (bTake && !Trimmed(in.Record()).empty()) bTake = Take_Row(in, sZFile, hType.iRxCmp, hRead);
    if (in.iRecord() % NRecordsPerLook == 0) hUser.Look();
  }
  LogText(" The file ends within a block; its last row may be cut.");
}

// ---- reading: the file

void Forget_Last_File() {
  NTrn = 0;
  hAvgKept = AvgKeptLines{};
  Fld_Begin_File();
}

I4 Report_Not_Open(const RecordReader& in, std::string_view sZFile) {
  if (in.Is_Missing())
    LogErr({"ERROR: Could not find " + std::string(sZFile)});
  else
    LogErr({"ERROR opening file " + std::string(sZFile), in.Reason()});
  return 1;
}

/// Reads block after block. Returns 0; 1 for a header that is too long, which is reported, or when the user cancelled.
I4 Read_Blocks(RecordReader& in, std::string_view sZFile) {
  ZReadState hRead;
  for (;;) {
    ZHeader hHeader;
    switch (Read_Header(in, hHeader)) {
      case HeaderEnd::File: return 0;
      case HeaderEnd::Mark: continue;
      case HeaderEnd::TooLong:
        LogErr({"Z_Read.ERROR: More than " + Str_Write_I4(MZHeader).str() + " header lines."});
        return 1;
      case HeaderEnd::Ruler: break;
    }
    const auto hType = Verified_Type(hHeader, hRead);
    if (!hType) return 1;
    Read_Rows(in, sZFile, *hType, hRead);
  }
}

// ---- writing: its rows

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
using RowText = std::array<char, NRow>;

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
  Put_Column(h.dRxStn, formStn, hStnColumn, sRow);
  for (I4 I = 1; I <= h.NTW; ++I) {
    if (!Has_Value(h, I, hSection)) continue;
    const R4 fTWCen = h.fTWCen(I);
    Put_Skip_Code(h.bSkip(I) ? iSkipCodeOut : iSkipCodeInUse, sRow);
    Put_Column(hSection.bLogTime ? fLogTimeZero + std::log10(fTWCen) : fTWCen, Time_Form(fTWCen), hTimeColumn, sRow);
    Put_Column((h.*hSection.hValue)(I), formValue, hValueColumn, sRow);
    out.Line({sRow.data(), NRow});
  }
}

/// The row without a value with which a block of resistivities begins.
void Write_Top_Row(const Transient& h, const EditForm& formStn, TextWriter& out) {
  RowText sRow;
  Put_Skip_Code(iSkipCodeNoPoint, sRow);
  Put_Column(h.dRxStn, formStn, hStnColumn, sRow);
  Put_Column(fLogTimeTop, Time_Form(fLogTimeTop), hTimeColumn, sRow);
  out.Line({sRow.data(), hValueColumn.iFirst});
}

// ---- writing: the head of a block

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
  if (const std::string sWhat = Quantity(h, JCmp); !sWhat.empty()) LogText("Writing " + sWhat + ", Tx " + sTxStn);
  out.Line(" Cl Cn Ce Ns Nd Yl  Plot file" + Str_Write_I4(KBlock).str());
  out.Line(h.sStyle);
  out.Line(" TEM SURVEY DATA");
  out.Line(Title(h, JCmp));
  out.Line("    Tx " + sTxStn);
  for (const std::string_view s : h.sPlot) out.Line(s);
  out.Line(sRuler);
}

// ---- writing: the file

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
    const I4 JCmp = Axis_of(h.iRxCmp);
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

I4 Z_Read(std::string_view sZFile) {
  Forget_Last_File();
  RecordReader in(sZFile, MZRecord);
  if (!in.Is_Open()) return Report_Not_Open(in, sZFile);
  LogText("");
  LogText("Reading TEM data from file " + std::string(File_Name(sZFile)));

  if (Read_Blocks(in, sZFile) != 0) {
    NTrn = 0;
    return 1;
  }
  if (in.Has_Failed()) {
    LogErr({"ERROR while reading file near line " + Str_Write_I4(in.iRecord()).str(), std::string(in.Record())});
    return 1;
  }
  if (NTrn < 1) {
    LogText("Found no valid dB/dt data in " + std::string(File_Name(sZFile)));
    return 1;
  }
  LogText(Str_Write_I4(NTrn).str() + " transients have been read from " + std::string(File_Name(sZFile)));
  return 0;
}

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

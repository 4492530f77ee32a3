#include "stations/stn_file.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <deque>
#include <iterator>
#include <limits>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "files/column_file.h"
#include "foundations/file_util.h"
#include "foundations/free_read.h"
#include "foundations/log_file.h"
#include "foundations/plain_row.h"
#include "foundations/progress.h"
#include "foundations/str_parse.h"
#include "foundations/str_value.h"
#include "foundations/str_write.h"
#include "foundations/text_file.h"
#include "stations/line_stats.h"

namespace quillan {

namespace {

/// One row of the file, as it stands there.
struct StnRow {
  R8 dStn, dX, dY;                     // station, easting, northing
  R4 fZ;                               // elevation
  R4 fH = 0.0f, fP = 0.0f, fR = 0.0f;  // heading, pitch, roll
  R8 dLine = 0.0;                      // line
  R4 fD = 0.0f;                        // depth
  I4 iMuxBox = 0, iMuxChn = 0;         // multiplexer box and electrode
};

struct StnVariable {
  std::string_view CLabel;
  std::variant<R8 StnRow::*, R4 StnRow::*, I4 StnRow::*> hField;
  const char* sWord = nullptr;         // what a required one is called
  I4 StationTable::*lGiven = nullptr;  // says of an optional one whether the file gives it
};
constexpr StnVariable hVariable[] = {
    {"STATION",   &StnRow::dStn,    "Station",   nullptr               },
    {"EAST",      &StnRow::dX,      "Easting",   nullptr               },
    {"NORTH",     &StnRow::dY,      "Northing",  nullptr               },
    {"ELEV",      &StnRow::fZ,      "Elevation", nullptr               },
    {"HEADING",   &StnRow::fH,      nullptr,     &StationTable::lStnAzm},
    {"PITCH",     &StnRow::fP,      nullptr,     &StationTable::lPitch },
    {"ROLL",      &StnRow::fR,      nullptr,     &StationTable::lRoll  },
    {"LINE",      &StnRow::dLine,   nullptr,     &StationTable::lLine  },
    {"DEPTH",     &StnRow::fD,      nullptr,     &StationTable::lDepth },
    {"MUXBOX",    &StnRow::iMuxBox, nullptr,     &StationTable::lMuxBox},
    {"ELECTRODE", &StnRow::iMuxChn, nullptr,     &StationTable::lMuxChn},
};
constexpr std::size_t NVariable = std::size(hVariable);
constexpr std::size_t NRequired = 4;
constexpr auto CStnLabel = [] {
  std::array<std::string_view, NVariable> C;
  for (std::size_t J = 0; J < NVariable; ++J) C[J] = hVariable[J].CLabel;
  return C;
}();
constexpr I4 iGiven = 2;  // of lGiven: by a column of the file

constexpr R8 dOriginStep = 10000.0;  // origins are multiples of it
constexpr I4 MOriginStep = 214748;   // multiples that an I4 holds
constexpr R8 dLineSpacings = 10.0;   // within so many spacings two numbers are of one line
constexpr R4 fStnApart = 1.0E-4f;    // stations that are nearer are one
constexpr R4 fDXY2Apart = 1.0E-4f;   // the same for their places
constexpr I4 MRepeatReport = 2;      // reports on stations at one place

/// What is known of the file so far.
struct StnImport {
  std::string_view sFileName;
  L4 bAuto = false;
  L4 bValidLabels = true;  // the columns of the rows are known
  L4 bLabels = false;      // from labels of the file
  std::vector<I4> KCol;    // of each variable its column
  std::vector<I4> JPlain;  // of each column its variable, from 1
  FieldList hField{MStnCol};
  StnRow hDefault{};        // what a row takes that does not state it
  std::deque<StnRow> hRow;  // which may be many, and are never moved
  I4 NLine = 0;             // how often the line changes down the file; never fewer than there are lines
  R8 dSumStn = 0.0, dSumLine = 0.0, dSumX = 0.0, dSumY = 0.0;
  std::array<L4, NVariable> bGiven{};  // the file has a column for it
  I4 NErrLimit = 0;                    // rows with a value beyond the limit
  I4 NErrLabel = 0;                    // label records that lack a required label
};

StnImport Begin_Import(std::string_view sFileName, R8 dLineNumber, const Array1<R4, 3>& fLineHPR, L4 bAuto) {
  StnImport h;
  h.sFileName = sFileName;
  h.bAuto = bAuto;
  h.KCol.assign(NVariable, 0);
  for (std::size_t J = 0; J < NRequired; ++J) h.KCol[J] = static_cast<I4>(J) + 1;
  h.JPlain = {1, 2, 3, 4};
  // A required value that stays not-a-number was not in the row: no coordinate is taken from another one.
  h.hDefault.dStn = h.hDefault.dX = h.hDefault.dY = std::numeric_limits<R8>::quiet_NaN();
  h.hDefault.fZ = std::numeric_limits<R4>::quiet_NaN();
  h.hDefault.fH = fLineHPR(1);
  h.hDefault.fP = fLineHPR(2);
  h.hDefault.fR = fLineHPR(3);
  h.hDefault.dLine = dLineNumber;
  return h;
}

/// The file that is to be read. False when there is none.
bool Locate(std::string& sStnFile, L4 bAuto) {
  return Find_Optional_File(sStnFile, bAuto,
                            {.sMissing = {"Did not find stn file " + std::string(File_Name(sStnFile))},
                             .sFilter = "Select optional station location file or select Cancel|*.stn|",
                             .sTitle = "Select optional .stn file",
                             .sCanceled = "Stn file import canceled."});
}

// ---- records

void Take_Labels(StnImport& h, I4 iRecord, std::string_view sRecord) {
  ColumnMap hColumn;
  // The report below says what is missing, so the matching itself is silent.
  static_cast<void>(Str_Column_Labels(sRecord, false, false, CStnLabel, MStnCol, hColumn));
  h.KCol = hColumn.KCol;
  h.JPlain = hColumn.JCol;
  while (!h.JPlain.empty() && h.JPlain.back() == 0) h.JPlain.pop_back();
  h.bValidLabels = std::all_of(h.KCol.begin(), h.KCol.begin() + NRequired, [](I4 K) { return K > 0; });
  if (!h.bValidLabels) {
    LogErr_or_File(
        h.bAuto || ++h.NErrLabel > 1,
        {"ERROR: Missing station, easting, northing or elevation data on record " + Str_Write_I4(iRecord).str(),
         std::string(sRecord)});
    return;
  }
  h.bLabels = true;
  for (std::size_t J = 0; J < NVariable; ++J) h.bGiven[J] = h.bGiven[J] || h.KCol[J] > 0;
}

// The value of a field where it has one, quietly; the report of one that cannot be read.
I4 Str_to(std::string_view sField, R8& dValue) {
  return Str_to_R8(sField, dValue, dValue);
}
I4 Str_to(std::string_view sField, R4& fValue) {
  return Str_to_R4(sField, fValue, fValue);
}
I4 Str_to(std::string_view sField, I4& iValue) {
  return Str_to_I4(sField, iValue, iValue);
}
void Report_Unreadable(const FieldContext& hAt, std::string_view sField, R8& dValue) {
  static_cast<void>(Fld_to_R8(hAt, sField, dValue, dValue));
}
void Report_Unreadable(const FieldContext& hAt, std::string_view sField, R4& fValue) {
  static_cast<void>(Fld_to_R4(hAt, sField, fValue, fValue));
}
void Report_Unreadable(const FieldContext& hAt, std::string_view sField, I4& iValue) {
  static_cast<void>(Fld_to_I4(hAt, sField, iValue, iValue));
}

/// Missing and unreadable values share one box a file.
void Report_Missing(const StnImport& h, I4 iRecord, const StnVariable& hWhat) {
  LogErr_or_File(bFldReported, No_Value(hWhat.sWord, h.sFileName, iRecord));
  bFldReported = true;
}

/// Reads one variable of a row. False when the row cannot be used.
bool Read_Value(const StnImport& h, I4 iRecord, std::string_view sRecord, std::size_t J, StnRow& hRow) {
  const StnVariable& hWhat = hVariable[J];
  const std::string_view sField = h.hField(h.KCol[J]);
  return std::visit(
      [&](auto hField) {
        auto& xValue = hRow.*hField;
        if (Str_to(sField, xValue) > 0) {
          Report_Unreadable({iRecord, sRecord, hWhat.CLabel}, sField, xValue);
          return false;
        }
        if (J >= NRequired || !std::isnan(R8(xValue))) return true;
        Report_Missing(h, iRecord, hWhat);
        return false;
      },
      hWhat.hField);
}

bool Is_Within_Limit(StnImport& h, I4 iRecord, const StnRow& hRow) {
  const R8 dValue[NRequired] = {hRow.dStn, hRow.dX, hRow.dY, R8{hRow.fZ}};
  for (std::size_t J = 0; J < NRequired; ++J) {
    if (std::abs(dValue[J]) <= dColumnValueMax) continue;
    LogErr_or_File(h.bAuto || ++h.NErrLimit > 1, Beyond_Limit(hVariable[J].sWord, dValue[J], h.sFileName, iRecord));
    return false;
  }
  return true;
}

bool Is_Other_Line(R8 dLine0, R8 dLineK) {
  return dLineK != dLine0 && std::abs(dLineK - dLine0) > dLineSpacings * Spacing(dLine0);
}

void Keep_Row(StnImport& h, const StnRow& hRow) {
  if (h.hRow.empty() || Is_Other_Line(h.hRow.back().dLine, hRow.dLine)) ++h.NLine;
  h.dSumStn += hRow.dStn;
  h.dSumLine += hRow.dLine;
  h.dSumX += hRow.dX;
  h.dSumY += hRow.dY;
  h.hRow.push_back(hRow);
}

/// The length of the number at p, 0 when the field there is spelled otherwise or counts electrodes.
std::size_t Take_Number(const char* p, const StnVariable& hWhat, StnRow& hRow) {
  if (const auto* dField = std::get_if<R8 StnRow::*>(&hWhat.hField)) return Read_Next(p, hRow.**dField);
  if (const auto* fField = std::get_if<R4 StnRow::*>(&hWhat.hField)) return Read_Next(p, hRow.**fField);
  return 0;
}

/// False when the row cannot be used.
bool Read_Fields(StnImport& h, I4 iRecord, std::string_view sRecord, StnRow& hRow) {
  Str_Parse_Fld(sRecord, h.hField);
  hRow = h.hDefault;
  for (std::size_t J = 0; J < NVariable; ++J) {
    if (h.KCol[J] > 0 && !Read_Value(h, iRecord, sRecord, J, hRow)) return false;
  }
  return true;
}

void Take_Row(StnImport& h, I4 iRecord, std::string_view sRecord) {
  StnRow hRow = h.hDefault;
  const auto Take = [&hRow](const char* p, I4 J) { return Take_Number(p, hVariable[J - 1], hRow); };
  if (!Read_Plain_Row(sRecord, h.JPlain, Take) && !Read_Fields(h, iRecord, sRecord, hRow)) return;
  if (Is_Within_Limit(h, iRecord, hRow)) Keep_Row(h, hRow);
}

/// All rows are kept before the first is stored, since the origins follow from all of them. False when the user has
/// stopped it: the table is the one before.
bool Take_Records(StnImport& h, RecordReader& in, ReadProgress work) {
  while (in.Next()) {
    std::string_view sRecord = in.Record();
    switch (Kind_of_Column_Record(sRecord)) {
      case ColumnRecord::Labels: Take_Labels(h, in.iRecord(), sRecord); break;
      case ColumnRecord::Row:
        if (h.bValidLabels) Take_Row(h, in.iRecord(), sRecord);
        break;
      case ColumnRecord::Ignored: break;
    }
    if (!work.Goes_On(in.NBytes())) return false;
  }
  if (in.Has_Failed()) {
    LogErr_or_File(
        h.bAuto, {"ERROR while reading file near line " + Str_Write_I4(in.iRecord()).str(), std::string(in.Record())});
  }
  return true;
}

void Report_No_Row(const StnImport& h) {
  const std::string sLine = Str_Write_R8(h.hDefault.dLine, "(F15.3)").str();
  LogErr_or_File(h.bAuto,
                 {"ERROR: No valid line " + sLine + " data recovered from " + std::string(h.sFileName),
                  "Expecting space or comma separated columns of station,easting,northing,elevation for line " + sLine,
                  "(and optional heading, pitch, roll, depth, line columns)."});
}

// ---- the table

/// The multiple of 10000 nearest to a mean.
I4 Origin(R8 dSum, std::size_t N) {
  const I4 NStep = Nint(dSum / static_cast<R8>(N) / dOriginStep);
  return std::clamp(NStep, -MOriginStep, MOriginStep) * static_cast<I4>(dOriginStep);
}

void Set_Origins(const StnImport& h) {
  hStn.iStnS0 = Origin(h.dSumStn, h.hRow.size());
  hStn.iStnL0 = Origin(h.dSumLine, h.hRow.size());
  hStn.iStnX0 = Origin(h.dSumX, h.hRow.size());
  hStn.iStnY0 = Origin(h.dSumY, h.hRow.size());
}

/// The difference is taken before the rounding: map coordinates have more digits than R4. Lines that no number of a
/// survey reaches are held to what R4 can say.
R4 Offset(R8 dValue, I4 iOrigin) {
  constexpr R8 dMost = std::numeric_limits<R4>::max();
  return static_cast<R4>(std::clamp(dValue - iOrigin, -dMost, dMost));
}

void Store_Row(I4 I, const StnRow& h) {
  hStn.fStnS(I) = Offset(h.dStn, hStn.iStnS0);
  hStn.fStnL(I) = Offset(h.dLine, hStn.iStnL0);
  hStn.fStnX(I) = Offset(h.dX, hStn.iStnX0);
  hStn.fStnY(I) = Offset(h.dY, hStn.iStnY0);
  hStn.fStnZ(I) = h.fZ;
  hStn.fStnH(I) = h.fH;
  hStn.fStnP(I) = h.fP;
  hStn.fStnR(I) = h.fR;
  hStn.fStnD(I) = 0.0f - std::abs(h.fD);  // no negative zero
  hStn.iMuxBox(I) = h.iMuxBox;
  hStn.iMuxChn(I) = h.iMuxChn;
}

void Widen(R4 fValue, R4& fMin, R4& fMax) {
  fMin = std::min(fMin, fValue);
  fMax = std::max(fMax, fValue);
}

void Widen_Ranges(I4 I) {
  Widen(hStn.fStnS(I), hStn.fSSmin, hStn.fSSmax);
  Widen(hStn.fStnL(I), hStn.fSLmin, hStn.fSLmax);
  Widen(hStn.fStnX(I), hStn.fSXmin, hStn.fSXmax);
  Widen(hStn.fStnY(I), hStn.fSYmin, hStn.fSYmax);
  Widen(hStn.fStnZ(I), hStn.fSZmin, hStn.fSZmax);
  Widen(hStn.fStnD(I), hStn.fSDmin, hStn.fSDmax);
}

void Store_Rows(const StnImport& h) {
  Set_Origins(h);
  Stn_Initialize(static_cast<I4>(h.hRow.size()), h.NLine);
  I4 I = 0;
  for (const StnRow& hRow : h.hRow) {
    Store_Row(++I, hRow);
    Widen_Ranges(I);
  }
  for (std::size_t J = NRequired; J < NVariable; ++J) {
    if (h.bGiven[J]) hStn.*hVariable[J].lGiven = iGiven;
  }
}

/// Lines are runs of one number in the sorted table.
void Split_into_Lines() {
  hStn.NStnLine = 0;
  R8 dLine0 = dDummy;
  for (I4 I = 1; I <= hStn.NStn; ++I) {
    const R8 dLineK = R8{hStn.fStnL(I)} + hStn.iStnL0;
    if (hStn.NStnLine == 0 || Is_Other_Line(dLine0, dLineK)) {
      Stn_Add_Line(dLineK, I);
      dLine0 = dLineK;
    }
    hStn.iStnEnd(hStn.NStnLine) = I;
  }
}

/// "Stn 1025 at 350125 E, 6240019.5 N"
std::string Point_Text(I4 I) {
  return "Stn " + Str_Write_XYZR8(R8{hStn.fStnS(I)} + hStn.iStnS0).str() + " at " +
         Str_Write_XYZR8(R8{hStn.fStnX(I)} + hStn.iStnX0).str() + " E, " +
         Str_Write_XYZR8(R8{hStn.fStnY(I)} + hStn.iStnY0).str() + " N";
}

void Report_One_Place(L4 bAuto, I4 iLine, I4 J, I4 I) {
  LogErr_or_File(
      bAuto, {"WARNING: Line " + Str_Write_XYZR8(hStn.dStnLine(iLine)).str() + ", Near zero station separation between",
              Point_Text(J) + " and", Point_Text(I) + ", will drop this data."});
  LogText("Dropping (stn,x,y,z) data due to near 0 stn separation.");
}

/// How far a point is from the one kept before it. Depth enters as it always has in this program, within the northing;
/// it is no distance.
R4 Separation(I4 J, I4 I) {
  const R4 fDX = hStn.fStnX(I) - hStn.fStnX(J);
  const R4 fDY = hStn.fStnY(I) - hStn.fStnY(J);
  const R4 fDD = hStn.fStnD(I) - hStn.fStnD(J);
  return fDX * fDX + (fDY + fDD * fDD) * (fDY + fDD * fDD);
}

/// Of points with one station, or at one place, the first stays.
void Thin_Line(L4 bAuto, I4 iLine, I4& NError1) {
  I4 J = hStn.iStnBeg(iLine);
  for (I4 I = J + 1; I <= hStn.iStnEnd(iLine); ++I) {
    if (std::abs(hStn.fStnS(I) - hStn.fStnS(J)) < fStnApart) continue;
    if (Separation(J, I) >= fDXY2Apart) {
      if (++J != I) Stn_Copy_Point(I, J);
    } else if (++NError1 <= MRepeatReport) {
      Report_One_Place(bAuto, iLine, J, I);
    }
  }
  hStn.iStnEnd(iLine) = J;
}

void Order_Table(L4 bAuto) {
  Stn_Sort();
  Split_into_Lines();
  I4 NError1 = 0;  // of all lines
  for (I4 iLine = 1; iLine <= hStn.NStnLine; ++iLine) Thin_Line(bAuto, iLine, NError1);
  Stn_Line_Stats();
  if (hStn.lStnAzm < 1) Stn_Heading_Update();
}

}  // namespace

I4 Stn_Read(std::string& sStnFile, R8 dLineNumber, const Array1<R4, 3>& fLineHPR, L4 bAuto) {
  Stn_Forget();  // stations of an earlier file must not stand under the name of this one
  if (!Locate(sStnFile, bAuto)) return 1;
  RecordReader in(sStnFile, MStnRecord);
  if (!in.Is_Open()) {
    LogErr_or_File(bAuto, {"Stn_Read.ERROR: unable to open", sStnFile, in.Reason()});
    return 1;
  }

  Fld_Begin_File();
  bFldReported = bAuto;  // without a box
  LogText("Counting station location data in");
  LogText(sStnFile);
  StnImport hImport = Begin_Import(File_Name(sStnFile), dLineNumber, fLineHPR, bAuto);
  if (!Take_Records(hImport, in, ReadProgress(sStnFile))) return 1;
  if (hImport.hRow.empty()) {
    Report_No_Row(hImport);
    return 1;
  }
  LogText("Reading station location data.");
  if (hImport.bLabels) {
    LogText("Have found correct column labels, now reading numerical data.");
    LogText(sSpuriousDropped);
  }
  Store_Rows(hImport);
  Order_Table(bAuto);
  LogText(Str_Write_I4(hStn.NStn).str() + " distinct points read from " + std::string(hImport.sFileName));
  return 0;
}

}  // namespace quillan

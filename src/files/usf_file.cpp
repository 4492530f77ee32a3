#include "files/usf_file.h"

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

#include "files/avg_writer.h"
#include "files/save_report.h"
#include "foundations/file_util.h"
#include "foundations/log_file.h"
#include "foundations/str_write.h"
#include "foundations/text_file.h"
#include "metadata/enm_data.h"
#include "model/derived.h"
#include "model/station_scale.h"
#include "platform/clock.h"

namespace quillan {
namespace {

constexpr R4 fRadPerDegree = 0.0174532924f;
constexpr R4 fSecPerUsec = 1.0E-6f;
constexpr R8 dMetersPerFoot = 0.3048;

// By iTemArray: the names are this format's view of the arrays, and the programs that take the file know this pairing.
// The arrays after them have none.
constexpr auto sArrayName = Words("SEGMENTED LOOP TEM", "FIXED LOOP TEM", "CENTRAL LOOP TEM", "COINCIDENT LOOP TEM");

/// How a layout says things.
struct UsfStyle {
  bool bSweeps;
  std::string_view sDummy;  // stands for a number that is missing or too wide
  I4 iLengthUnit;           // of the file
  R8 dTimes;                // turns a position of the store into that unit
};

UsfStyle Style_of(UsfLayout iLayout) {
  const I4 iUnit = std::clamp(hTemSurvey.iLengthUnit, iUnitMeters, iUnitFeet);
  if (iLayout == UsfLayout::Soundings) return {false, "*", iUnit, 1.0};
  return {true, "99999", iUnitMeters, iUnit == iUnitFeet ? dMetersPerFoot : 1.0};
}

// ---- soundings

bool Is_Sounding(const Transient& h) {
  return !h.bSkipTrn && h.iRxCmp == iCmpHz;
}

/// A table of the file. Without sweeps each is a sounding of its own.
struct UsfTable {
  const Transient* hTrns;
  I4 iSweep = 1;
  I4 NSweep = 1;
};
struct UsfTables {
  std::vector<UsfTable> hTable;
  I4 NSounding = 0;
};

/// Brings the tables of one receiver and transmitter station together and numbers them as its sweeps.
void Number_Sweeps(UsfTables& hTables) {
  std::vector<UsfTable>& hTable = hTables.hTable;
  std::ranges::stable_sort(hTable, {}, [](const UsfTable& h) { return std::pair(h.hTrns->dTxStn, h.hTrns->dRxStn); });
  hTables.NSounding = 0;
  for (auto hBeg = hTable.begin(); hBeg != hTable.end();) {
    const auto hEnd = std::find_if(hBeg, hTable.end(), [&](const UsfTable& h) {
      return !Is_Same_Stn(hBeg->hTrns->dRxStn, h.hTrns->dRxStn) || !Is_Same_Stn(hBeg->hTrns->dTxStn, h.hTrns->dTxStn);
    });
    ++hTables.NSounding;
    for (auto h = hBeg; h != hEnd; ++h) {
      h->iSweep = static_cast<I4>(h - hBeg) + 1;
      h->NSweep = static_cast<I4>(hEnd - hBeg);
    }
    hBeg = hEnd;
  }
}

UsfTables Take_Tables(const UsfStyle& style) {
  UsfTables hTables;
  for (I4 j = 1; j <= NTrn; ++j) {
    if (Is_Sounding(hTrn(j))) hTables.hTable.push_back({&hTrn(j)});
  }
  hTables.NSounding = static_cast<I4>(hTables.hTable.size());
  if (style.bSweeps) Number_Sweeps(hTables);
  return hTables;
}

/// Whether a window is in the table.
bool Has_Row(const Transient& h, I4 I, const UsfStyle& style) {
  return h.fuVmag(I) >= fDummyLimit && (style.bSweeps || !h.bSkip(I));
}

// ---- keywords

std::string Number(const Text<16>& sNumber, const UsfStyle& style) {
  return sNumber == "*" ? std::string(style.sDummy) : sNumber.str();
}

/// A position of the store in the unit of the file.
std::string Place(R8 dPlace, const EditForm& form, const UsfStyle& style) {
  return Number(Str_Write_R8(Is_Present(dPlace) ? dPlace * style.dTimes : dDummy, form), style);
}

void Write_Job(std::string_view sName, std::string_view sValue, TextWriter& out) {
  if (!sValue.empty()) out.Line("! " + std::string(sName).append(sValue));
}

void Write_Comments(const UsfStyle& style, TextWriter& out) {
  out.Line("! TEM data reviewed with " + AVG_Signature());
  Write_Job("Job.Name:  ", hTemSurvey.sJobName.trimmed(), out);
  Write_Job("Job.Area:  ", hTemSurvey.sJobArea.trimmed(), out);
  Write_Job("Job.For:   ", hTemSurvey.sJobFor.trimmed(), out);
  Write_Job("Job.By:    ", hTemSurvey.sJobBy.trimmed(), out);
  Write_Job("Job.Number:", hTemSurvey.sJobNumber.trimmed(), out);
  Write_Job("Job.Date:  ", hTemSurvey.sJobDate.trimmed(), out);
  if (style.bSweeps) out.Line("! QUALITY: 1 in use, 0 skipped");
  out.Line("");
}

/// The corners of the survey's rectangle, in the unit of the file.
void Write_Corners(const UsfStyle& style, TextWriter& out) {
  const Survey& h = hTemSurvey;
  const auto fTxXYV = TMD_Get_fTxXYV(h.fTxLength, h.fTxHPR(1), h.iLengthUnit);
  const I4 NTxXYV = 4;
  const EditForm form("(F14.1)");
  out.Line("//ARRAY: " + std::string(sArrayName(h.iTemArray)));
  out.Line("//NO_TX_CORNERS: " + Str_Write_I4(NTxXYV).str());
  for (I4 I = 1; I <= NTxXYV; ++I) {
    out.Line("//TX_CORNER: " + Str_Write_I4(I).str() + "," + Place(h.dTxXYZC(1) + R8{fTxXYV(1, I)}, form, style) + "," +
             Place(h.dTxXYZC(2) + R8{fTxXYV(2, I)}, form, style) + "," + Place(h.dTxXYZC(3), form, style));
  }
}

void Write_Header(I4 NSounding, const UsfStyle& style, TextWriter& out) {
  const Survey& h = hTemSurvey;
  out.Line("//USF: Universal Sounding Format");
  out.Line("//SOUNDINGS: " + Str_Write_I4(NSounding).str());
  out.Line("//PROFILE: " + h.sLineName.str());
  out.Line("//AZIMUTH: " + Number(Str_Write_R4(h.fLineAzimuth, "(F12.1)"), style));
  out.Line(h.fRxHPR(3) < 0.0f ? "//Z_DIRECTION: DOWN" : "//Z_DIRECTION: UP");
  out.Line("//LENGTH_UNITS:  " + std::string(sLengthUnit(style.iLengthUnit)));
  out.Line("//VOLTAGE_UNITS: V/AM2");
  out.Line("//DUMMY: " + std::string(style.sDummy));
  out.Line("//INSTRUMENT: 'Torvo TEM'");
  if (h.iTemArray == iArrayFXL) Write_Corners(style, out);
  out.Line("//END");
  out.Line("");
}

/// The position of a coil in the coordinates of the line, from the centre of the loop: along and across.
Array1<R8, 2> Coil_Location(const Transient& h) {
  if (!Is_Present(h.dRxXYZ(1)) || !Is_Present(h.dRxXYZ(2)) || !Is_Present(hTemSurvey.fLineAzimuth)) {
    return {dDummy, dDummy};
  }
  const R4 fAngle = fRadPerDegree * (90.0f - hTemSurvey.fLineAzimuth);
  const R4 fC = std::cos(fAngle);
  const R4 fS = std::sin(fAngle);
  const R4 fE = static_cast<R4>(h.dRxXYZ(1) - hTemSurvey.dTxXYZC(1));
  const R4 fN = static_cast<R4>(h.dRxXYZ(2) - hTemSurvey.dTxXYZC(2));
  return {R8{fC * fE + fS * fN}, R8{-fS * fE + fC * fN}};
}

void Write_Place(const Transient& h, const UsfStyle& style, TextWriter& out) {
  const EditForm form("(F14.3)");
  if (Is_Present(*std::max_element(h.dRxXYZ.begin(), h.dRxXYZ.end()))) {
    out.Line("/LOCATION: " + Place(h.dRxXYZ(1), form, style) + "," + Place(h.dRxXYZ(2), form, style) + "," +
             Place(h.dRxXYZ(3), form, style));
  }
  if (hTemSurvey.iTemArray != iArrayMVL) return;
  const Array1<R8, 2> dXY = Coil_Location(h);
  if (style.bSweeps && !Is_Present(dXY(1))) return;  // such readers would take the dummy for a place
  out.Line("/COIL_LOCATION: " + Place(dXY(1), form, style) + "," + Place(dXY(2), form, style));
}

/// The day of the run: 20201113.
std::string Run_Date() {
  const Date hDate = IOsDate();
  return Str_Write_I4(10000 * hDate.iYear + 100 * hDate.iMonth + hDate.iDay).str();
}

void Write_Sweep(const UsfTable& hTable, const UsfStyle& style, TextWriter& out) {
  if (!style.bSweeps) return out.Line("/SWEEPS: 1,");
  out.Line("/LENGTH_UNITS: " + std::string(sLengthUnit(style.iLengthUnit)));
  out.Line("/VOLTAGE_UNITS: V/AM2");
  out.Line("/SWEEPS: " + Str_Write_I4(hTable.NSweep).str());
  out.Line("/SWEEP_NUMBER: " + Str_Write_I4(hTable.iSweep).str());
  out.Line("/CHANNEL: 1");  // readers take 0 for no channel
}

void Write_Keywords(const UsfTable& hTable, I4 NPoint, const UsfStyle& style, TextWriter& out) {
  const Transient& h = *hTable.hTrns;
  const R4 fUnit = fLengthUnit(style.iLengthUnit);
  const auto Write = [&](std::string_view sName, R4 fValue, const EditForm& form) {
    out.Line(std::string(sName) + Number(Str_Write_R4(fValue, form), style));
  };
  out.Line("");
  out.Line("/ARRAY: " + std::string(sArrayName(hTemSurvey.iTemArray)));
  out.Line("/SOUNDING_NAME: " + Number(Str_Write_R8(h.dRxStn, "(F12.3)"), style));
  out.Line("/DATE:    " + Run_Date());
  Write_Sweep(hTable, style, out);
  out.Line("/LOOP_SIZE: " + Number(Str_Write_R4(hTemSurvey.fTxLength(1) / fUnit, "(F12.3)"), style) + "," +
           Number(Str_Write_R4(hTemSurvey.fTxLength(2) / fUnit, "(F12.3)"), style));
  out.Line("/LOOP_TURNS: " + Str_Write_I4(hTemSurvey.NTxTurn).str());
  Write_Place(h, style, out);
  Write("/FREQUENCY: ", h.fTxFreq, "(F12.3)");
  Write("/CURRENT: ", h.fTxAmp, "(F12.3)");
  Write("/RAMP_TIME: ", h.fTxRamp * fSecPerUsec, "(ES12.4)");
  Write("/COIL_SIZE: ", h.fRxArea, "(1P,G12.4E1)");
  out.Line("/POINTS: " + Str_Write_I4(NPoint).str());
  out.Line("/END");
  out.Line("");
}

// ---- rows

constexpr std::string_view sLabels = "  TIME,       WIDTH,      VOLTAGE,     ERROR_BAR";
constexpr std::string_view sQualityLabel = ", QUALITY";
constexpr EditForm formTime("(ES10.4E1)"), formVoltage("(ES12.5)"), formError("(F8.2)");

void Add_Value(R4 fValue, const EditForm& form, const UsfStyle& style, std::string& sRow) {
  char sText[MFormText];
  const std::string_view sNumber = Is_Present(fValue) ? Write_Form(fValue, form, sText) : std::string_view{};
  sRow += sNumber.empty() ? style.sDummy : sNumber;
}

void Write_Row(const Transient& h, I4 I, const UsfStyle& style, TextWriter& out) {
  const R4 fTurn = static_cast<R4>(hTemSurvey.NTxTurn);
  const bool bEdges = Is_Present(h.fTWBeg(I)) && Is_Present(h.fTWEnd(I));
  std::string sRow;
  Add_Value(h.fTxRamp * fSecPerUsec + 0.0005f * (h.fTWBeg(I) + h.fTWEnd(I)), formTime, style, sRow);
  sRow += ',';
  Add_Value(bEdges ? 0.001f * (h.fTWEnd(I) - h.fTWBeg(I)) : fDummy, formTime, style, sRow);
  sRow += ',';
  Add_Value(1.0E-6f * h.fuVmag(I) / (h.fRxArea * fTurn), formVoltage, style, sRow);
  sRow += ',';
  Add_Value(h.fuVpct(I), formError, style, sRow);
  if (style.bSweeps) sRow += h.bSkip(I) ? ", 0" : ", 1";
  out.Line(sRow);
}

void Write_Table(const UsfTable& hTable, const UsfStyle& style, TextWriter& out) {
  const Transient& h = *hTable.hTrns;
  I4 NPoint = 0;
  for (I4 I = 1; I <= h.NTW; ++I) NPoint += Has_Row(h, I, style) ? 1 : 0;
  Write_Keywords(hTable, NPoint, style, out);
  out.Line(style.bSweeps ? std::string(sLabels).append(sQualityLabel) : sLabels);
  for (I4 I = 1; I <= h.NTW; ++I) {
    if (Has_Row(h, I, style)) Write_Row(h, I, style, out);
  }
  out.Line("/END");
  out.Line("");
}

/// False when the user has stopped it.
bool Write_Tables(const UsfTables& hTables, const UsfStyle& style, Progress work, TextWriter& out) {
  I8 NDone = 0;
  for (const UsfTable& hTable : hTables.hTable) {
    if (!work.Goes_On(NDone++)) return false;
    Write_Table(hTable, style, out);
  }
  return true;
}

}  // namespace

I4 USF_Check() {
  if (NTrn < 1) {
    LogErr({"USF_Write.ERROR: No valid data present, NTrn<1"});
    return 1;
  }
  if (hTemSurvey.iTemArray > sArrayName.NSize) {
    LogErr({"USF_Write.Warning: TEM " + std::string(Held_Entry(sTemArray, hTemSurvey.iTemArray)) +
                " data storage not implemented for USF files.",
            "USF (Universal Sounding Format) files only store dBz/dt TEM \"soundings\"."});
    return 1;
  }
  if (std::any_of(hTrn.begin(), hTrn.begin() + NTrn, Is_Sounding)) return 0;
  LogErr({"USF_Write.Warning: No dBz/dt transients available to save as TEM sounding data.",
          "USF (Universal Sounding Format) files only store z-component TEM data."});
  return 1;
}

I4 USF_Write(std::string_view sUsfFile, UsfLayout iLayout) {
  const UsfStyle style = Style_of(iLayout);
  const UsfTables hTables = Take_Tables(style);
  LogText("");
  LogText("Writing data to " + std::string(File_Name(sUsfFile)));
  TextWriter out(sUsfFile);
  if (AVG_Report_Write(out, "opening", sUsfFile) != 0) return 1;

  LogText("Writing header block.");
  Write_Comments(style, out);
  Write_Header(hTables.NSounding, style, out);
  if (!Write_Tables(hTables, style, Writing(sUsfFile, static_cast<I8>(hTables.hTable.size())), out)) return 1;
  out.Commit();
  if (AVG_Report_Write(out, "writing", sUsfFile) != 0) return 1;
  const I4 NZTrn = static_cast<I4>(hTables.hTable.size());
  LogText(Str_Write_I4(NZTrn).str() + " sounding transients written to " + std::string(File_Name(sUsfFile)));
  return 0;
}

}  // namespace quillan

#include "review/qcs_export.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "foundations/file_util.h"
#include "foundations/log_file.h"
#include "foundations/progress.h"
#include "foundations/str_write.h"
#include "metadata/enm_data.h"
#include "model/tmd_data.h"
#include "review/qcs_sections.h"
#include "review/table_file.h"

namespace quillan {
namespace {

constexpr EditForm hStnForm = "(F14.3)";
constexpr EditForm hXYZForm = "(F14.1)";
constexpr EditForm hValueForm = "(ES14.5)";
constexpr EditForm hTimeForm = "(F12.1)";

const Transient& First_Transient(I4 iSection) {
  return hTrn(hSection(iSection).iTrnBeg);
}

// ---- table

/// The centre time in a unit that keeps it short: "100usec", "2.5msec", "1.5sec".
std::string Time_with_Unit(R4 fMsec) {
  constexpr R4 fThousand = 1000.0f;
  const auto Write = [](R4 fTime, std::string_view sUnit) {
    return Str_Write_R4(fTime, hTimeForm).str().append(sUnit);
  };
  if (fMsec < 1.0f) return Write(fMsec * fThousand, sTimeUnit(1));
  if (fMsec < fThousand) return Write(fMsec, sTimeUnit(2));
  return Write(fMsec / fThousand, sTimeUnit(3));
}

void Write_Header(const Transient& hFirst, TextWriter& out) {
  for (const std::string_view sField : {"Station", "East", "North", "Elevation"}) Put_Field(out, sField);
  for (I4 I = 1; I <= hFirst.NTW; ++I) {
    Put_Field(out, "TW" + Str_Write_I4F22(I).str() + "_" + Time_with_Unit(hFirst.fTWCen(I)));
  }
  out.Line("");
}

void Write_Transient(const Transient& h, I4 iPlotType, TextWriter& out) {
  Put_Field(out, Str_Write_R8(h.dRxStn, hStnForm).trimmed());
  for (const R8 dXYZ : h.dRxXYZ) Put_Field(out, Str_Write_R8(dXYZ, hXYZForm).trimmed());
  const WindowValues& fValue = Plot_Values(h, iPlotType);
  for (I4 I = 1; I <= h.NTW; ++I) Put_Field(out, Str_Write_R4(fValue(I), hValueForm).trimmed());
  out.Line("");
}

// ---- plot control

/// A record of the file; an empty keyword gives the blank line between its blocks.
struct ControlRecord {
  std::string sKeyword, sValue;
};

std::vector<ControlRecord> Titles() {
  return {
      {},
      {"TBTitle1", hTemSurvey.sJobName.str() + " Line " + hTemSurvey.sLineName.str()},
      {"TBTitle2", hTemSurvey.sJobFor.str()},
      {"TBTitle3", std::string(Held_Entry(sTemArray, hTemSurvey.iTemArray)) + " TEM Profile Plot"},
      {},
      {"TBGloss1", ""},
      {"TBGloss2", ""},
      {"TBGloss3", ""},
      {"TBGloss4", ""},
      {"TBGloss5", ""},
      {"TBGloss6", ""},
      {},
  };
}

/// Bearings and stations of both ends of the line, and the columns of the table: station, and the first window after
/// the coordinates.
std::vector<ControlRecord> Line_and_Columns(const SectionRecord& h) {
  const R4 fAzimuth = hTemSurvey.fLineAzimuth;
  const R4 fReversed = Is_Present(fAzimuth) ? std::fmod(720.0f + fAzimuth - 180.0f, 360.0f) : fDummy;
  return {
      {"BrgLeft", Str_Write_Brg(fReversed).str()},
      {"BrgRight", Str_Write_Brg(fAzimuth).str()},
      {},
      {"Stn.Left", Str_Write_R8(hTrn(h.iTrnBeg).dRxStn, hStnForm).str()},
      {"Stn.Right", Str_Write_R8(hTrn(h.iTrnEnd).dRxStn, hStnForm).str()},
      {},
      {"XCol", "1"},
      {"YCol", "5"},
      {},
  };
}

/// First and last windows of the panels. There is always a first panel.
std::vector<ControlRecord> Panels(I4 NTW) {
  std::vector<ControlRecord> hBeg, hEnd;
  for (I4 iPanel = 1, ITWBeg = 1; iPanel <= MPanel; ++iPanel, ITWBeg += NTWPanel) {
    const I4 ITWEnd = std::min(ITWBeg + NTWPanel - 1, NTW);
    const std::string sPanel = "Panel" + Str_Write_I4(iPanel).str();
    hBeg.push_back({sPanel + ".TWBeg", Str_Write_I4(ITWBeg).str()});
    hEnd.push_back({sPanel + ".TWEnd", Str_Write_I4(ITWEnd).str()});
    if (ITWEnd >= NTW) break;
  }
  hBeg.push_back({});
  hBeg.insert(hBeg.end(), hEnd.begin(), hEnd.end());
  hBeg.push_back({});
  return hBeg;
}

void Write_Records(const std::vector<ControlRecord>& hRecord, TextWriter& out) {
  for (const ControlRecord& h : hRecord) {
    out.Line(h.sKeyword.empty() ? " " : "$" + h.sKeyword + "=" + h.sValue);
  }
}

}  // namespace

std::string QCS_Export_Path(std::string_view sDataFile, I4 iSection, I4 iPlotType, std::string_view sExtension) {
  const std::string sPlotted = Export_Part(First_Transient(iSection).iRxCmp, iPlotType);
  return std::string(File_Stem(sDataFile)).append(sPlotted).append(sExtension);
}

I4 QCS_Section_Write_CSV(std::string_view sCsvFile, I4 iSection, I4 iPlotType) {
  if (QCS_Check_Section("QCS_Section_Write_CSV", iSection, iPlotType) != 0) return 1;
  if (QCS_Section_Write_MDE(std::string(File_Stem(sCsvFile)) + ".mde", iSection, iPlotType) != 0) return 1;
  Begin_Table("Exporting TEM profile-plot data to", sCsvFile);
  TextWriter out(sCsvFile);
  Write_Header(First_Transient(iSection), out);
  const SectionRecord& h = hSection(iSection);
  // The plot control stands already: the table has to follow.
  Progress work("Exporting", "soundings", h.iTrnEnd - h.iTrnBeg + 1, 1, Stoppable::No);
  for (I4 j = h.iTrnBeg; j <= h.iTrnEnd; ++j) {
    static_cast<void>(work.Goes_On(j - h.iTrnBeg));
    Write_Transient(hTrn(j), iPlotType, out);
  }
  return End_Table(out, sCsvFile, " data export is complete.");
}

I4 QCS_Section_Write_MDE(std::string_view sMdeFile, I4 iSection, I4 iPlotType) {
  if (QCS_Check_Section("QCS_Section_Write_MDE", iSection, iPlotType) != 0) return 1;
  Begin_Table("Exporting TEM profile-plot annotation and plot-control to", sMdeFile);
  TextWriter out(sMdeFile);
  Write_Records(Titles(), out);
  Write_Records(Line_and_Columns(hSection(iSection)), out);
  Write_Records(Panels(First_Transient(iSection).NTW), out);
  out.Line("$Auto=No");
  return End_Table(out, sMdeFile, " plot-control export is complete.");
}

}  // namespace quillan

#include "files/avg_legacy_writer.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "files/avg_columns.h"
#include "files/avg_writer.h"
#include "files/save_report.h"
#include "foundations/file_util.h"
#include "foundations/log_file.h"
#include "foundations/str_write.h"
#include "metadata/enm_data.h"
#include "model/derived.h"

namespace quillan {
namespace {

constexpr std::string_view sHeaderLine =
    "skp     Tx   Station  Freq Cmp Amps Win Time   Magnitude  RampAppRes    Depth    %Mag";
constexpr std::string_view sRuleLine =
    "\\-++-------++-------++----++-++----++-++-----++---------++---------++---------++-----+";

// ---- rows

/// The columns in the order of the table.
std::vector<const AvgColumn*> Legacy_Columns() {
  std::vector<const AvgColumn*> hLegacy;
  for (const AvgColumn& h : hAvgColumn) {
    if (h.hLegacy.iPlace > 0) hLegacy.push_back(&h);
  }
  std::sort(hLegacy.begin(), hLegacy.end(),
            [](const AvgColumn* h1, const AvgColumn* h2) { return h1->hLegacy.iPlace < h2->hLegacy.iPlace; });
  return hLegacy;
}

/// A value in its form, the mark at its place for one that is missing or too wide. Exponents are left-adjusted; a
/// fixed form keeps its points below each other.
std::string Value_or_Mark(const Transient& h, I4 I, const AvgColumn& hColumn) {
  const EditForm& form = hColumn.hLegacy.form;
  char sText[MFormText];
  std::string_view sValue;
  if (AVG_Has_Value(hColumn, h, I)) sValue = Write_Form((h.*hColumn.hValue)(I), form, sText);
  if (sValue.empty()) return std::string(static_cast<std::size_t>(hColumn.hLegacy.iMark - 1), ' ') + "*";
  return std::string(form.iKind == EditKind::Fixed ? sValue : Left_Adjusted(sValue));
}

/// Two characters, which the reader completes. A blank one needs a mark, else the columns after it would move.
std::string Short_Component(I4 iRxCmp) {
  const std::string_view sCmp = Held_Entry(sChnCmp, iRxCmp);
  return sCmp.empty() ? " *" : " " + std::string(sCmp.substr(0, NLegacyCmp));
}

std::string Field(const Transient& h, I4 I, const AvgColumn& hColumn) {
  const EditForm& form = hColumn.hLegacy.form;
  switch (hColumn.iContent) {
    case AvgContent::Skip: return " " + Str_Write_I4(Is_Skipped(h, I) ? iSkipOut : iSkipInUse).str();
    case AvgContent::TxStation: return Str_Write_R8(h.dTxKvrStn, form).str();
    case AvgContent::RxStation: return Str_Write_R8(h.dRxKvrStn, form).str();
    case AvgContent::Frequency: return Str_Write_R4(h.fTxFreq, form).str();
    case AvgContent::Current: return Str_Write_R4(h.fTxAmp, form).str();
    case AvgContent::Component: return Short_Component(h.iRxCmp);
    case AvgContent::Index: return (I < 10 ? "  " : " ") + Str_Write_I4(I).str();
    default: return form == EditForm{} ? AVG_Write_TWC0((h.*hColumn.hValue)(I)) : Value_or_Mark(h, I, hColumn);
  }
}

void Write_Row(const Transient& h, I4 I, const std::vector<const AvgColumn*>& hLegacy, TextWriter& out) {
  std::string sRow;
  for (const AvgColumn* hColumn : hLegacy) {
    std::string sField(Trimmed(Field(h, I, *hColumn)));
    if (hColumn != hLegacy.back()) {
      sField.resize(std::max(sField.size() + 1, static_cast<std::size_t>(hColumn->hLegacy.NWidth)), ' ');
    }
    sRow += sField;
  }
  out.Line(sRow);
}

// ---- the file

void Write_Header(TextWriter& out) {
  const R4 fUnit = Held_Entry(fLengthUnit, hTemSurvey.iLengthUnit);
  const auto Line = [&out](std::string_view sName, R4 fValue, const EditForm& form) {
    out.Line("$ TEM: " + std::string(sName) + "=" + Str_Write_R4(fValue, form).str());
  };
  out.Line("\\ Dorval format from " + AVG_Signature());
  out.Line("$ TEM: Array=" + std::string(Held_Entry(sTemArray, hTemSurvey.iTemArray)));
  Line("TxRamp", hTrn(1).fTxDelay, "(F12.3)");
  Line("TxDX", hTemSurvey.fTxLength(1) / fUnit, "(F12.2)");
  Line("TxDY", hTemSurvey.fTxLength(2) / fUnit, "(F12.2)");
  Line("TxArea", hTemSurvey.fTxArea, "(F12.1)");
  Line("RxArea", hTrn(1).fRxArea, "(F12.1)");
  out.Line(sHeaderLine);
  out.Line(sRuleLine);
}

/// False when the user has stopped it.
bool Write_Transients(Progress work, TextWriter& out) {
  const std::vector<const AvgColumn*> hLegacy = Legacy_Columns();
  for (I4 j = 1; j <= NTrn; ++j) {
    if (!work.Goes_On(j)) return false;
    const Transient& h = hTrn(j);
    for (I4 I = 1; I <= h.NTW; ++I) Write_Row(h, I, hLegacy, out);
  }
  return true;
}

}  // namespace

I4 AVG_Write0(std::string_view sFile) {
  if (AVG_Begin_Write("AVG_Write0", sFile, "Writing header block") != 0) return 1;
  TextWriter out(sFile);
  if (AVG_Report_Write(out, "opening", sFile) != 0) return 1;

  Write_Header(out);
  if (!Write_Transients(Writing(sFile, NTrn), out)) return 1;
  out.Commit();
  if (AVG_Report_Write(out, "writing", sFile) != 0) return 1;
  LogText(Str_Write_I4(NTrn).str() + " transients written to " + std::string(File_Name(sFile)));
  return 0;
}

std::string AVG_Write_TWC0(R4 fTWC) {
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
  if (fTWC < fDummyLimit) return "*";
  for (const TimeForm& h : hTimeForm) {
    if (std::abs(fTWC) < h.fBelow) return Str_Write_R4(fTWC, h.form).str();
  }
  return Str_Write_I4(Nint(fTWC)).str();
}

}  // namespace quillan

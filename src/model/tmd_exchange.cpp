#include "model/tmd_exchange.h"

#include <algorithm>
#include <cmath>

#include "foundations/log_file.h"
#include "foundations/str_write.h"
#include "metadata/enm_data.h"
#include "metadata/job_md.h"
#include "metadata/line_md.h"
#include "metadata/rx_md.h"
#include "metadata/stn_md.h"
#include "metadata/survey_md.h"
#include "metadata/tx_md.h"
#include "metadata/unit_md.h"
#include "model/tmd_data.h"
#include "model/txw_data.h"

namespace quillan {

namespace {

constexpr EditForm formLine = "(F12.3)";
constexpr EditForm formStn = "(F14.3)";
constexpr EditForm formLength = "(F12.3)";
constexpr EditForm formArea = "(1P,G14.4)";
constexpr EditForm formAngle = "(F12.1)";

constexpr R8 dStnSpacings = 100.0;     // within so many spacings two stations are one
constexpr R4 fRadian = 0.0174532924f;  // radians in a degree

template <I4 N>
bool Has_Value(const Text<N>& sText) {
  return !sText.Is_Blank();
}
bool Has_Value(R4 fValue) {
  return Is_Present(fValue);
}
bool Has_Value(R8 dValue) {
  return Is_Present(dValue);
}
bool Has_Value(I4 iCode) {
  return iCode > 0;
}
template <class T, I4 N>
bool Has_Value(const Array1<T, N>& hValue) {
  return Has_Value(*std::max_element(hValue.begin(), hValue.end()));
}

/// The fields of the survey record and of the groups that hold the same fact. Move takes both; an area that is not
/// above 0 is none, though the number is there.
template <class Step, class AreaStep>
void For_Each_Pair(Step Move, AreaStep Move_Area) {
  Survey& h = hTemSurvey;
  Move(h.sJobName, MdJob.sName);
  Move(h.sJobArea, MdJob.sArea);
  Move(h.sJobFor, MdJob.sFor);
  Move(h.sJobBy, MdJob.sBy);
  Move(h.sJobNumber, MdJob.sNumber);
  Move(h.sJobDate, MdJob.sDate);
  Move(h.iTemArray, MdSurvey.iTemArray);
  Move(h.sLineName, MdLine.sName);
  Move(h.dLineNumber, MdLine.dNumber);
  Move(h.fLineAzimuth, MdLine.fAzimuth);
  Move(h.NTxTurn, MdTx.NTurn);
  Move_Area(h.fTxArea, MdTx.fArea);
  Move(h.fTxLength, MdTx.fLength);
  Move(h.dTxXYZC, MdTx.dUTMC);
  Move(h.fTxHPR, MdTx.fHPR);
  Move(h.fRxHPR, MdRx.fHPR);
  Move(h.dStnBeg, MdStn.dStnBeg);
  Move(h.dStnInc, MdStn.dStnInc);
  Move(h.dStnKvrBeg, MdStn.dStnKvrBeg);
  Move(h.dStnKvrInc, MdStn.dStnKvrInc);
  Move(h.dStnLeft, MdStn.dStnLeft);
  Move(h.dStnRight, MdStn.dStnRight);
  Move(h.iLengthUnit, MdUnit.iLength);
  Move(h.iTimeUnit, MdUnit.iTime);
  Move(h.idBdtUnit, MdUnit.idBdt);
  Move(h.iEUnit, MdUnit.iEfield);
  Move(h.iBUnit, MdUnit.iBfield);
}

/// The entry of a table of words; a code outside the table takes the nearer end.
template <class Table>
std::string_view Word(const Table& sTable, I4 iCode) {
  return sTable(std::clamp(iCode, Table::iLow, Table::iHigh));
}

bool Has_Fixed_Tx() {
  return hTemSurvey.iTemArray == iArrayFXL || hTemSurvey.iTemArray == iArrayLOT;
}

void Append(MdEntryList& hEntry, std::string_view sName, std::string_view sValue) {
  hEntry.push_back({sName, sValue});
}

void Append_Quoted(MdEntryList& hEntry, std::string_view sName, std::string_view sText) {
  if (!sText.empty()) Append(hEntry, sName, '"' + std::string(sText) + '"');
}

void Append_R8(MdEntryList& hEntry, std::string_view sName, R8 dValue, const EditForm& form) {
  if (Is_Present(dValue)) Append(hEntry, sName, Str_Write_R8(dValue, form).trimmed());
}

/// "350100,6240020,*": a missing element is a star.
template <class T>
std::string Join(const Array1<T, 3>& hValue, const EditForm& form) {
  std::string sJoined;
  for (I4 I = 1; I <= 3; ++I) {
    const R8 dValue = static_cast<R8>(hValue(I));
    if (I > 1) sJoined += ',';
    sJoined += Is_Present(hValue(I)) ? Str_Write_R8(dValue, form).trimmed() : "*";
  }
  return sJoined;
}

void Append_Job(MdEntryList& hEntry) {
  const Survey& h = hTemSurvey;
  Append_Quoted(hEntry, "Job.Name", h.sJobName.trimmed());
  Append_Quoted(hEntry, "Job.Area", h.sJobArea.trimmed());
  Append_Quoted(hEntry, "Job.For", h.sJobFor.trimmed());
  Append_Quoted(hEntry, "Job.By", h.sJobBy.trimmed());
  Append_Quoted(hEntry, "Job.Number", h.sJobNumber.trimmed());
  if (!h.sJobDate.Is_Blank()) Append(hEntry, "Job.Date", h.sJobDate.trimmed());
}

void Append_Line(MdEntryList& hEntry) {
  const Survey& h = hTemSurvey;
  Append(hEntry, "Survey.Type", sSurveyType(iSurveyTEM));
  Append(hEntry, "Survey.Array", Word(sTemArray, h.iTemArray));
  Append_Quoted(hEntry, "Line.Name", h.sLineName.trimmed());
  Append_R8(hEntry, "Line.Number", h.dLineNumber, formLine);
  if (Is_Present(h.fLineAzimuth)) Append(hEntry, "Line.Azimuth", Str_Write_R4(h.fLineAzimuth, formLine).trimmed());
  Append_R8(hEntry, "Stn.KvrBeg", h.dStnKvrBeg, formStn);
  Append_R8(hEntry, "Stn.KvrInc", h.dStnKvrInc, formStn);
  Append_R8(hEntry, "Stn.Beg", h.dStnBeg, formStn);
  Append_R8(hEntry, "Stn.Inc", h.dStnInc, formStn);
  Append_R8(hEntry, "Stn.Left", h.dStnLeft, formStn);
  Append_R8(hEntry, "Stn.Right", h.dStnRight, formStn);
}

/// A side of the loop in the survey's length unit.
std::string Length_Text(R4 fLength) {
  const R4 fUnit = fLengthUnit(std::clamp(hTemSurvey.iLengthUnit, iUnitMeters, iUnitFeet));
  return fLength > 0.0f ? Str_Write_R4(fLength / fUnit, formLength).str() : "*";
}

void Append_Tx(MdEntryList& hEntry) {
  const Survey& h = hTemSurvey;
  const std::string sUnit = " " + std::string(Word(sLengthUnit, h.iLengthUnit));
  if (h.NTxTurn > 0) Append(hEntry, "Tx.Turns", Str_Write_I4(h.NTxTurn).trimmed());
  if (std::max(h.fTxLength(1), h.fTxLength(2)) > 0.0f) {
    Append(hEntry, "Tx.Length", Length_Text(h.fTxLength(1)) + "," + Length_Text(h.fTxLength(2)) + sUnit);
  }
  if (h.fTxArea > 0.0f) Append(hEntry, "Tx.Area", Str_Write_R4(h.fTxArea, formArea).str() + " m^2");
  if (!Has_Fixed_Tx()) return;  // a moving transmitter has no one place
  if (Has_Value(h.dTxXYZC)) Append(hEntry, "Tx.Center", Join(h.dTxXYZC, formLength) + sUnit);
  if (Has_Value(h.fTxHPR)) Append(hEntry, "Tx.HPR", Join(h.fTxHPR, formAngle));
}

void Append_Units(MdEntryList& hEntry) {
  Append(hEntry, "Unit.Length", Word(sLengthUnit, hTemSurvey.iLengthUnit));
  Append(hEntry, "Unit.Time", Word(sTimeUnit, hTemSurvey.iTimeUnit));
  Append(hEntry, "Unit.E", Word(sEUnit, hTemSurvey.iEUnit));
  Append(hEntry, "Unit.B", Word(sBUnit, hTemSurvey.iBUnit));
  Append(hEntry, "Unit.dBdt", Word(sdBdtUnit, hTemSurvey.idBdtUnit));
}

/// The first loop stands for the survey's transmitter.
void Take_First_Loop(I4& iError) {
  Array1<R4, 2> fTxLength{};
  Txw_Get_Length(hTxw(1), hTemSurvey.fLineAzimuth, fTxLength, iError);
  hTemSurvey.fTxLength = fTxLength;
  hTemSurvey.fTxArea = hTxw(1).fTxArea;
  hTemSurvey.dTxXYZC = hTxw(1).dTxUTMC;
  hTemSurvey.fTxHPR = {
      {hTemSurvey.fLineAzimuth, 0.0f, 0.0f}
  };
}

}  // namespace

void TMD_Survey_from_MD(I4& iError) {
  iError = 0;
  I4 IMERR = 0;
  if (MdTx.NUTMN >= 2) Tx_MD_UTMN_to_UTMC(MdTx, IMERR);  // corners that were never read change nothing
  For_Each_Pair(
      [](auto& hSurvey, const auto& hGroup) {
        if (Has_Value(hGroup)) hSurvey = hGroup;
      },
      [](R4& fSurvey, R4 fGroup) {
        if (fGroup > 0.0f) fSurvey = fGroup;
      });
}

void TMD_Survey_to_MD(I4& iError) {
  iError = 0;
  For_Each_Pair(
      [](const auto& hSurvey, auto& hGroup) {
        if (Has_Value(hSurvey)) hGroup = hSurvey;
      },
      [](R4 fSurvey, R4& fGroup) {
        if (fSurvey > 0.0f) fGroup = fSurvey;
      });
}

void TMD_Survey_Append_MD(MdEntryList& hEntry, I4& IOERR, I4 MEntry) {
  IOERR = 0;
  if (MEntry - static_cast<I4>(hEntry.size()) < MMdEntryFree) {
    IOERR = -1;
    // Users find this report in their logs by the words as they stand.
    LogErr({"TMD_to_MdRecords.ERROR: Not enougMd room left in sName(:) & sValue(:) buffers."});
    return;
  }
  Append_Job(hEntry);
  Append_Line(hEntry);
  Append_Tx(hEntry);
  Append_Units(hEntry);
}

std::string MD_Entry_Line(const MdEntry& hEntry) {
  return "$ " + hEntry.sName.str() + " = " + hEntry.sValue.str();
}

void TMD_TxUTMC_from_hTxw(I4& iError) {
  iError = 0;
  if (!hTemSurvey.bTxwFile) return;
  if (NTxw < 1) {
    iError = 1;
    return;
  }
  Take_First_Loop(iError);

  I4 iTxw = 1;
  R8 dTxStn = hTxw(1).dTxStn;
  for (I4 j = 1; j <= NTrn; ++j) {
    if (!(std::abs(hTrn(j).dTxStn - dTxStn) <= dStnSpacings * Spacing(dTxStn))) {
      dTxStn = hTrn(j).dTxStn;
      Txw_Get_iTxw(dTxStn, iTxw, iError);
    }
    if (iTxw >= 1 && iTxw <= NTxw) hTrn(j).dTxXYZC = hTxw(iTxw).dTxUTMC;
  }
}

void TMD_Get_fTxXYV(const Array1<R4, 2>& fTxLength, R4 fTxAzm, I4 iLengthUnit, I4& NTxXYV, Array2<R4, 2, 4>& fTxXYV,
                    I4& iError) {
  // Corners in sides of the loop, anticlockwise.
  constexpr R4 fCorner[4][2] = {
      {-0.5f, -0.5f},
      {0.5f,  -0.5f},
      {0.5f,  0.5f },
      {-0.5f, 0.5f }
  };
  iError = 0;
  NTxXYV = 4;
  const R4 fUnit = fLengthUnit(std::clamp(iLengthUnit, iUnitMeters, iUnitFeet));
  const R4 fS = std::sin(fTxAzm * fRadian);
  const R4 fC = std::cos(fTxAzm * fRadian);
  for (I4 J = 1; J <= NTxXYV; ++J) {
    const R4 fXX = fCorner[J - 1][0] * fTxLength(1) / fUnit;
    const R4 fYY = fCorner[J - 1][1] * fTxLength(2) / fUnit;
    fTxXYV(1, J) = fS * fXX - fC * fYY;
    fTxXYV(2, J) = fC * fXX + fS * fYY;
  }
}

}  // namespace quillan

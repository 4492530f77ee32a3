#include "metadata/survey_md.h"

#include <span>
#include <string_view>

namespace quillan {

namespace {

using Srv = SurveyGroup;

I4 Read_Type(const MdRecord& hRecord, SurveyGroup& hSurvey) {
  if (!MD_Passes(hRecord, hSurvey.lType)) return 0;
  hSurvey.sType = Str_UpCase(hRecord.sField(1));
  const std::string_view CType = hSurvey.sType.trimmed();
  I4 iStatus = 0;
  if (CType == "NSAMT" || CType == "AMT" || CType == "MT") {
    hSurvey.iType = iSurveyNSAMT;
  } else {
    iStatus = MD_Take_Value(hRecord, hRecord.sField(1), "Survey.Type", {.CEnum = CSurveyType}, hSurvey.iType,
                            hSurvey.NErrType);
  }
  return MD_Status(iStatus,
                   Fld_to_I4Version(hRecord.At(hRecord.sName), hRecord.sField(1), hSurvey.iVersion, hSurvey.iVersion));
}

/// The type in force decides which arrays there are.
I4 Read_Array(const MdRecord& hRecord, SurveyGroup& hSurvey) {
  if (!MD_Passes(hRecord, hSurvey.lArray)) return 0;
  hSurvey.sArray = hRecord.sField(1);
  const auto Take_Code = [&](std::span<const std::string_view> CEnum, I4& iArray) {
    return MD_Take_Value(hRecord, hRecord.sField(1), "Survey.Array", {.CEnum = CEnum}, iArray, hSurvey.NErrArray);
  };
  switch (hSurvey.iType) {
    case iSurveyLOTEM:
    case iSurveyTEM: return Take_Code(CTemArray, hSurvey.iTemArray);
    case iSurveyCSAMT:
    case iSurveyNSAMT: return Take_Code(CCsamtArray, hSurvey.iCsamtArray);
    default: return Take_Code(CIPArray, hSurvey.iIPArray);
  }
}

constexpr MdLimits hZoneLimits = {.dLow = 1,
                                  .dHigh = 60,
                                  .sWhat = "{name} = abs|{value}| < 1 or > 60",
                                  .iTest = MdTest::Magnitude,
                                  .iRepair = MdRepair::Reset,
                                  .sHead = "{reader}.WARNING: at record {record}"};

// clang-format off
constexpr MdRow<Srv> hSurveyRow[] = {
    // keyword            value             priority          warnings              words or blank
    {"ACQMETHOD", MD_Into<&Srv::iAcqMethod, &Srv::lAcqMethod, &Srv::NErrAcqMethod>, CAcqMethod, "Survey.AcqMethod"},
    {"TYPE",      Read_Type},
    {"ARRAY",     Read_Array},
    {"SPREAD",    MD_Into<&Srv::sSpread,    &Srv::lSpread>},
    {"DATUM",     MD_Into<&Srv::sUTMDatum,  &Srv::lUTMDatum>},
    {"PROJ",      MD_Into<&Srv::sUTMProj,   &Srv::lUTMProj>},
    {"UTMZONE",   MD_Into<&Srv::iUTMZone,   &Srv::lUTMZone,   &Srv::NErrUTMZone>,   0, hZoneLimits},
    {"DIRECTION"},
};
// clang-format on

}  // namespace

I4 Survey_MD_Read(const MdRecord& hRecord, SurveyGroup& hSurvey) {
  return MD_Read("Survey_MD_Read", hSurveyRow, hRecord, hSurvey);
}

}  // namespace quillan

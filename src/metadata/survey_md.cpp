#include "metadata/survey_md.h"

#include <span>
#include <string_view>

namespace quillan {

namespace {

using Srv = SurveyGroup;

void Read_Type(const MdRecord& hRecord, SurveyGroup& hSurvey, I4& IMERR) {
  if (!MD_Passes(hRecord, hSurvey.lType)) return;
  hSurvey.sType = Str_UpCase(hRecord.sField(1));
  const std::string_view CType = hSurvey.sType.trimmed();
  if (CType == "NSAMT" || CType == "AMT" || CType == "MT") {
    hSurvey.iType = iSurveyNSAMT;
  } else {
    MD_Take_Value(hRecord, hRecord.sField(1), "Survey.Type", {.CEnum = CSurveyType}, hSurvey.iType, hSurvey.NErrType,
                  IMERR);
  }
  I4 IOERR = 0;
  Fld_to_I4Version(hRecord.At(hRecord.sName), hRecord.sField(1), hSurvey.iVersion, hSurvey.iVersion, IOERR);
  if (IOERR != 0) IMERR = IOERR;
}

/// The type in force decides which arrays there are.
void Read_Array(const MdRecord& hRecord, SurveyGroup& hSurvey, I4& IMERR) {
  if (!MD_Passes(hRecord, hSurvey.lArray)) return;
  hSurvey.sArray = hRecord.sField(1);
  const auto Take_Code = [&](std::span<const std::string_view> CEnum, I4& iArray) {
    MD_Take_Value(hRecord, hRecord.sField(1), "Survey.Array", {.CEnum = CEnum}, iArray, hSurvey.NErrArray, IMERR);
  };
  switch (hSurvey.iType) {
    case iSurveyLOTEM:
    case iSurveyTEM: Take_Code(CTemArray, hSurvey.iTemArray); break;
    case iSurveyCSAMT:
    case iSurveyNSAMT: Take_Code(CCsamtArray, hSurvey.iCsamtArray); break;
    default: Take_Code(CIPArray, hSurvey.iIPArray); break;
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
    // keyword     value             priority          warnings             words or blank
    {"ACQMETHOD", &Srv::iAcqMethod, &Srv::lAcqMethod, &Srv::NErrAcqMethod, CAcqMethod, "Survey.AcqMethod"},
    {"TYPE",      Read_Type,                          &Srv::NErrType},
    {"ARRAY",     Read_Array,                         &Srv::NErrArray},
    {"SPREAD",    &Srv::sSpread,    &Srv::lSpread},
    {"DATUM",     &Srv::sUTMDatum,  &Srv::lUTMDatum},
    {"PROJ",      &Srv::sUTMProj,   &Srv::lUTMProj},
    {"UTMZONE",   &Srv::iUTMZone,   &Srv::lUTMZone,   &Srv::NErrUTMZone,   0, hZoneLimits},
    {"DIRECTION"},
};
// clang-format on

}  // namespace

void Survey_MD_Initialize(SurveyGroup& hSurvey, bool bResetError) {
  MD_Initialize(hSurveyRow, hSurvey, bResetError);
}

void Survey_MD_Read(const MdRecord& hRecord, SurveyGroup& hSurvey, I4& IMERR) {
  MD_Read("Survey_MD_Read", hSurveyRow, hRecord, hSurvey, IMERR);
}

}  // namespace quillan

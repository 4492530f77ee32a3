// survey_md.h: metadata group SURVEY: kind of survey, its array, and the frame of its coordinates.
//
//   $ Survey.Type= TEM2        digits after the type are the version of the format
//   $ Survey.Array= INL        read against the arrays of the type that is in force, so the type stands first
//   $ Survey.UTMZone= -13      south of the equator negative
#pragma once

#include "base/text.h"
#include "base/types.h"
#include "metadata/enm_data.h"
#include "metadata/md_engine.h"

namespace quillan {

/// The warnings so far about each keyword, and about keywords that are unknown.
struct SurveyWarnings {
  I4 NErrAcqMethod = 0, NErrType = 0, NErrArray = 0, NErrUTMZone = 0, NErrUnknown = 0;
};

/// One value a keyword, and the priority l... of the record that gave it (0: none).
struct SurveyGroup : SurveyWarnings {
  I4 iAcqMethod = 4;             // acquisition method, code in CAcqMethod: Transient
  Text<8> sType = "TEM";         // survey type as read, in upper case
  I4 iType = iSurveyTEM;         // survey type, code in CSurveyType
  I4 iVersion = 0;               // version of the survey's format
  Text<8> sArray = "INL";        // array as read
  I4 iTemArray = 3;              // array of a TEM survey, code in CTemArray: INL
  I4 iCsamtArray = 1;            // array of a CSAMT survey, code in CCsamtArray: Scalar
  I4 iIPArray = 1;               // array of other surveys, code in CIPArray: D-D
  Text<16> sSpread = "1";        // spread identifier
  Text<32> sUTMDatum = "WGS84";  // datum, free text
  Text<32> sUTMProj = "UTM";     // projection, free text
  I4 iUTMZone = 0;               // UTM zone with its sign; 0 not set

  I4 lAcqMethod = 0, lType = 0, lArray = 0, lSpread = 0, lUTMDatum = 0, lUTMProj = 0, lUTMZone = 0;
};

// Module state. Survey_MD_Read fills it, Survey_MD_Initialize restores it.
inline SurveyGroup MdSurvey;

/// (hGroup, bResetError): every value gets its default, as MD_Initialize says.
inline constexpr auto Survey_MD_Initialize = MD_Initialize<SurveyGroup, SurveyWarnings>;

/// Applies one record. Returns the status of MD_Read.
[[nodiscard]] I4 Survey_MD_Read(const MdRecord& hRecord, SurveyGroup& hSurvey);

}  // namespace quillan

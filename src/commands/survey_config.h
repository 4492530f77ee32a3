// survey_config.h: the dialog in which the user verifies the survey configuration, after each read and on command.
#pragma once

#include <string>

#include "base/array.h"
#include "base/types.h"
#include "model/tmd_data.h"

namespace quillan {

// Controls of dialog 103.
inline constexpr I4 iDlgSurveyConfig = 103;
inline constexpr I4 iFldJobName = 1025;
inline constexpr I4 iFldJobFor = 1026;
inline constexpr I4 iFldJobBy = 1027;
inline constexpr I4 iFldLineName = 1028;
inline constexpr I4 iFldJobDate = 1029;
inline constexpr I4 iFldStnKvrBeg = 1030;
inline constexpr I4 iFldStnKvrInc = 1031;
inline constexpr I4 iFldStnBeg = 1032;
inline constexpr I4 iGrdRxArea = 1038;
inline constexpr I4 iFldJobNumber = 1039;
inline constexpr I4 iMnuLengthUnit = 1040;
inline constexpr I4 iFldTxLengthX = 1045;
inline constexpr I4 iFldTxLengthY = 1046;
inline constexpr I4 iFldTxCenterX = 1047;
inline constexpr I4 iFldTxCenterY = 1048;
inline constexpr I4 iFldLineAzimuth = 1049;
inline constexpr I4 iFldLineNumber = 1051;
inline constexpr I4 iMnuTemArray = 1054;
inline constexpr I4 iFldStnInc = 1056;
inline constexpr I4 iFldJobArea = 1069;
inline constexpr I4 iFldXAzimuth = 1096;
inline constexpr I4 iMnuZPositive = 1097;
inline constexpr I4 iFldYAzimuth = 1098;
inline constexpr I4 iFldTxTurns = 1101;
inline constexpr I4 iChkTxwFile = 1105;
inline constexpr I4 iFldTxwName = 1106;
inline constexpr I4 iBtnSelectTxw = 1107;

/// What dialog 103 shows and changes: the survey, the receiver areas and attitude.
struct SurveyConfig {
  Survey hSurvey;
  Array1<R4, 3> fCmpArea = Filled<Array1<R4, 3>>(10000.0f);  // m^2 by axis x, y, z
  R4 fXazm = 0.0f;                                           // degrees, azimuth of the receivers' x axis
  I4 iZPositive = 1;                                         // code in sZpositive: 1 up, 2 down
};

// Module state: whether Z points up (1) or down (2); Edit_Cfg keeps the user's choice for the next survey.
inline I4 iZPositive = 1;

/// Dialog 103 over hTemSurvey. The status bar names the numbers that Continue kept because the entry cannot be taken.
/// Returns 0 Continue, 2 Cancel, 3 the window's close request. Only Continue changes the survey, the areas of the
/// transients and the metadata.
[[nodiscard]] I4 Edit_Cfg();

// The rules around the dialog, apart from it.

/// The values that the dialog begins with: codes held to their tables, azimuth brought into 0 to 360, the area of the
/// last transient of each axis.
SurveyConfig Config_from_Survey();
/// Whether the receivers of a survey look up (1) or down (2).
inline I4 Z_Positive(const Survey& h) {
  return h.fRxHPR(3) == 180.0f ? 2 : 1;
}
/// Azimuth of the receivers' y axis: 90 degrees to the left of x with Z up, to the right with Z down.
R4 Y_Azimuth(R4 fXazm, I4 iZPos);
/// Puts the values back: survey, metadata, one area for each axis of the transients, attitudes of receivers and loop.
void Config_to_Survey(const SurveyConfig& hConfig);

}  // namespace quillan

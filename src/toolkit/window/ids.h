// ids.h: menus, commands, dialogs and their controls, by name.
#pragma once

#include "base/types.h"

namespace quillan {

// Menus.
inline constexpr I4 iNoMenu = 0;
inline constexpr I4 iMenuMain = 30001;
inline constexpr I4 iMenuSection = 30003;

// Commands.
inline constexpr I4 iCmdOpen = 40005;
inline constexpr I4 iCmdAverageRepeats = 40007;
inline constexpr I4 iCmdSave = 40009;
inline constexpr I4 iCmdSaveAs = 40010;
inline constexpr I4 iCmdExit = 40011;
inline constexpr I4 iCmdAutoSkip = 40016;
inline constexpr I4 iCmdMerge = 40017;
inline constexpr I4 iCmdReadStn = 40018;
inline constexpr I4 iCmdZoomIn = 40021;
inline constexpr I4 iCmdZoomAll = 40022;
inline constexpr I4 iCmdFlipTransient = 40023;
inline constexpr I4 iCmdFlipAll = 40024;
inline constexpr I4 iCmdViewCurve = 40025;
inline constexpr I4 iCmdExportWmf = 40027;
inline constexpr I4 iCmdExportPng = 40028;
inline constexpr I4 iCmdSaveData = 40029;
inline constexpr I4 iCmdExportCsv = 40034;

// Dialogs.
inline constexpr I4 iDlgAutoSkip = 101;
inline constexpr I4 iDlgSurveyConfig = 103;
inline constexpr I4 iDlgSaveTypes = 104;
inline constexpr I4 iDlgMatchLabel = 112;
inline constexpr I4 iDlgMatchColumns = 113;
inline constexpr I4 iDlgReviewCurve = 115;
inline constexpr I4 iDlgReviewSection = 118;

// Dialog 101, the rules of Auto Skip.
inline constexpr I4 iFldTWBeg = 1002;
inline constexpr I4 iFldTWEnd = 1003;

// Dialog 103, the survey configuration.
inline constexpr I4 iFldJobName = 1025;
inline constexpr I4 iFldJobArea = 1069;
inline constexpr I4 iFldLineNumber = 1051;
inline constexpr I4 iFldLineAzimuth = 1049;
inline constexpr I4 iFldTxLengthX = 1045;
inline constexpr I4 iMnuLengthUnit = 1040;
inline constexpr I4 iFldTxCenterX = 1047;
inline constexpr I4 iFldTxTurns = 1101;
inline constexpr I4 iChkTxwFile = 1105;
inline constexpr I4 iFldTxwName = 1106;
inline constexpr I4 iGrdRxArea = 1038;

// Dialog 104, the file types of Save.
inline constexpr I4 iChkPutAvg = 1059;

// Dialog 112, the match of an unknown word.
inline constexpr I4 iFldMatchWord = 1072;
inline constexpr I4 iMnuMatchList = 1076;

// Dialog 113, the match of column labels.
inline constexpr I4 iGrdColumns = 1078;

// Dialogs 115 and 118, the tool windows of the reviews.
inline constexpr I4 iTrkCurve = 1081;
inline constexpr I4 iBtnZoomAll = 1085;
inline constexpr I4 iBtnExitReview = 1087;
inline constexpr I4 iLblHint1 = 1088;
inline constexpr I4 iLblHint2 = 1089;
inline constexpr I4 iTrkSection = 1109;
inline constexpr I4 iFldNoiseFloor = 1111;

}  // namespace quillan

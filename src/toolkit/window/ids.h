// ids.h: every number that the toolkit and its callers agree on, by name: messages, keys, menus and commands,
// dialogs and their controls, selectors of the queries.
#pragma once

#include "base/types.h"
#include "toolkit/draw/last_error.h"

namespace quillan {

/// What WMessage reports.
enum class MessageType : I4 {
  None = -1,         // WMessagePeek: nothing waits
  Key = 1,           // VALUE1: the character or a key code below
  Menu = 2,          // VALUE1: the command
  Button = 3,        // VALUE1: the control
  MouseDown = 4,     // VALUE1: the mouse button; VALUE3: 0 in the main window; GX, GY; X, Y; WIN
  MouseUp = 5,       // as MouseDown
  MouseMove = 6,     // GX, GY; only when enabled
  Expose = 7,        // the window must be drawn anew
  Resize = 8,        // the window has another size
  Close = 9,         // the user wants the window closed
  Field = 10,        // VALUE1: a control whose edit is complete; only when enabled
  FileDropped = 12,  // a data file was dropped on the main window; WDroppedFile tells its path
  Timer = 13,        // VALUE1: the timer's number
};

// Keys that have no character.
inline constexpr I4 iKeyEsc = 27;
inline constexpr I4 iKeyEnter = 13;
inline constexpr I4 iKeyTab = 9;
inline constexpr I4 iKeyUp = 258;
inline constexpr I4 iKeyDown = 259;
inline constexpr I4 iKeyRight = 260;
inline constexpr I4 iKeyLeft = 261;

// Menus.
inline constexpr I4 iNoMenu = 0;
inline constexpr I4 iMenuMain = 30001;
inline constexpr I4 iMenuSection = 30003;

// Commands.
inline constexpr I4 iCmdOpen = 40005;
inline constexpr I4 iCmdMovingAverage = 40006;
inline constexpr I4 iCmdAverageRepeats = 40007;
inline constexpr I4 iCmdReview = 40008;
inline constexpr I4 iCmdSave = 40009;
inline constexpr I4 iCmdSaveAs = 40010;
inline constexpr I4 iCmdExit = 40011;
inline constexpr I4 iCmdAutoSkip = 40016;
inline constexpr I4 iCmdMerge = 40017;
inline constexpr I4 iCmdReadStn = 40018;
inline constexpr I4 iCmdSurveyConfig = 40020;
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

// Controls that several dialogs share.
inline constexpr I4 iBtnContinue = 1009;
inline constexpr I4 iBtnCancel = 1010;

// Dialog 101, the rules of Auto Skip.
inline constexpr I4 iFldTWBeg = 1002;
inline constexpr I4 iFldTWEnd = 1003;
inline constexpr I4 iChkErrorFloor = 1005;
inline constexpr I4 iFldErrorFloor = 1006;
inline constexpr I4 iChkNegativeData = 1007;
inline constexpr I4 iChkPositiveSlope = 1008;

// Dialog 103, the survey configuration.
inline constexpr I4 iFldJobName = 1025;
inline constexpr I4 iFldJobArea = 1069;
inline constexpr I4 iFldJobFor = 1026;
inline constexpr I4 iFldJobBy = 1027;
inline constexpr I4 iFldJobNumber = 1039;
inline constexpr I4 iFldJobDate = 1029;
inline constexpr I4 iFldLineName = 1028;
inline constexpr I4 iFldLineNumber = 1051;
inline constexpr I4 iFldLineAzimuth = 1049;
inline constexpr I4 iFldStnKvrBeg = 1030;
inline constexpr I4 iFldStnKvrInc = 1031;
inline constexpr I4 iFldStnBeg = 1032;
inline constexpr I4 iFldStnInc = 1056;
inline constexpr I4 iMnuTemArray = 1054;
inline constexpr I4 iFldTxLengthX = 1045;
inline constexpr I4 iFldTxLengthY = 1046;
inline constexpr I4 iMnuLengthUnit = 1040;
inline constexpr I4 iFldTxCenterX = 1047;
inline constexpr I4 iFldTxCenterY = 1048;
inline constexpr I4 iFldTxTurns = 1101;
inline constexpr I4 iChkTxwFile = 1105;
inline constexpr I4 iFldTxwName = 1106;
inline constexpr I4 iBtnSelectTxw = 1107;
inline constexpr I4 iGrdRxArea = 1038;
inline constexpr I4 iFldXAzimuth = 1096;
inline constexpr I4 iMnuZPositive = 1097;
inline constexpr I4 iFldYAzimuth = 1098;

// Dialog 104, the file types of Save.
inline constexpr I4 iChkPutAvg = 1059;
inline constexpr I4 iChkPutAvg0 = 1103;
inline constexpr I4 iChkPutAmr = 1061;
inline constexpr I4 iChkPutUsf = 1050;

// Dialog 112, the match of an unknown word.
inline constexpr I4 iLblMatchWhat = 1104;
inline constexpr I4 iFldMatchWord = 1072;
inline constexpr I4 iMnuMatchList = 1076;

// Dialog 113, the match of column labels.
inline constexpr I4 iLblColumnsPrompt = 1077;
inline constexpr I4 iGrdColumns = 1078;

// Dialogs 115 and 118, the tool windows of the reviews.
inline constexpr I4 iTrkCurve = 1081;
inline constexpr I4 iBtnZoomAll = 1085;
inline constexpr I4 iBtnExitReview = 1087;
inline constexpr I4 iLblHint1 = 1088;
inline constexpr I4 iLblHint2 = 1089;
inline constexpr I4 iTrkSection = 1109;
inline constexpr I4 iFldNoiseFloor = 1111;

// Mouse buttons of the messages, and the wheel, which comes as a press of the extra buttons with VALUE2 = 1.
inline constexpr I4 iMouseLeft = 1;
inline constexpr I4 iMouseRight = 3;
inline constexpr I4 iMouseBack = 4;
inline constexpr I4 iMouseForward = 5;
inline constexpr I4 iByWheel = 1;

// Shapes of the pointer.
inline constexpr I4 iCursorArrow = 0;
inline constexpr I4 iCursorTwoWay = 8;
inline constexpr I4 iCursorPick = 2003;
inline constexpr I4 iCursorCorner = 2004;
inline constexpr I4 iCursorBox = 2008;

// How a dialog is shown.
inline constexpr I4 iShowModal = 1;
inline constexpr I4 iShowSemiModeless = 2;
inline constexpr I4 iShowTool = 3;  // a tool window: never takes the focus, stays above the main window
inline constexpr I4 iCentred = -1;  // for the position in x or y

// Message boxes: the set of buttons, the icon, and the answers that WInfoDialog(iExitButtonCommon) gives.
enum class BoxButtons : I4 { Ok = 0, OkCancel = 1, YesNo = 2 };
enum class BoxIcon : I4 { None = 0, Stop = 1, Question = 2, Warning = 3, Information = 4 };
inline constexpr I4 iAnswerNo = 0;   // No, Cancel, Esc, or the box's close button
inline constexpr I4 iAnswerYes = 1;  // Yes or OK

// Selectors of WInfoWindow.
inline constexpr I4 iWindowWidth = 1;
inline constexpr I4 iWindowHeight = 2;
inline constexpr I4 iWindowDrawable = 9;  // 0: no window to draw on

// Selectors of WInfoDialog.
inline constexpr I4 iExitButton = 1;        // control that ended the last modal dialog
inline constexpr I4 iCurrentDialog = 3;     // 0: none
inline constexpr I4 iExitButtonCommon = 4;  // answer of the last message box or file dialog
inline constexpr I4 iDialogWidth = 8;       // pixels

// Selectors of WInfoScreen.
inline constexpr I4 iScreenWidth = 1;
inline constexpr I4 iScreenHeight = 2;

// Selectors of InfoGraphics and WInfoGrReal, in graphics units.
inline constexpr I4 iCharWidth = 3;
inline constexpr I4 iCharHeight = 4;
inline constexpr I4 iUnitXMin = 11;
inline constexpr I4 iUnitYMin = 12;
inline constexpr I4 iUnitXMax = 13;
inline constexpr I4 iUnitYMax = 14;

// File selection: what the flags ask for.
inline constexpr I4 iSelectOpen = 10;       // an existing file
inline constexpr I4 iSelectSave = 15;       // a file to write; the dialog asks before it replaces one
inline constexpr I4 iSelectOptional = 130;  // an existing file that the user may also leave out

}  // namespace quillan

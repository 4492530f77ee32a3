#include "commands/survey_config.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>
#include <vector>

#include "files/txw_file.h"
#include "foundations/file_util.h"
#include "foundations/log_file.h"
#include "metadata/enm_data.h"
#include "model/tmd_exchange.h"
#include "model/txw_data.h"
#include "toolkit/dialog/dialog.h"
#include "toolkit/dialog/grid.h"
#include "toolkit/draw/last_error.h"
#include "toolkit/window/log_text.h"
#include "toolkit/window/menus.h"
#include "toolkit/window/messages.h"

namespace quillan {
namespace {

constexpr R4 fSizeLeast = 1.0E-9f;  // m and m^2
constexpr R4 fSizeMost = 1.0E9f;
constexpr I4 MTxTurn = 1024;

/// Whether the transmitter stays while the receivers move, so that its centre is one place.
bool Has_Fixed_Transmitter(const Survey& h) {
  return h.iTemArray == iArrayFXL || h.iTemArray == iArrayLOT;
}

/// Metres in the survey's length unit.
R4 Metres_per_Unit(I4 iLengthUnit) {
  return Held_Entry(fLengthUnit, iLengthUnit);
}

// ---- fields as rows

struct TextField {
  I4 iField;
  void (*Put)(I4 iField, const Survey& h);
  void (*Take)(const std::string& sText, Survey& h);
};

template <auto sMember>
void Put_Text(I4 iField, const Survey& h) {
  WDialogPutString(iField, (h.*sMember).trimmed());
}

template <auto sMember>
void Take_Text(const std::string& sText, Survey& h) {
  h.*sMember = sText;
}

template <auto sMember>
constexpr TextField Text_Row(I4 iField) {
  return {iField, Put_Text<sMember>, Take_Text<sMember>};
}

constexpr TextField hTextField[] = {
    Text_Row<&Survey::sJobName>(iFldJobName),     Text_Row<&Survey::sJobArea>(iFldJobArea),
    Text_Row<&Survey::sJobFor>(iFldJobFor),       Text_Row<&Survey::sJobBy>(iFldJobBy),
    Text_Row<&Survey::sJobNumber>(iFldJobNumber), Text_Row<&Survey::sJobDate>(iFldJobDate),
    Text_Row<&Survey::sLineName>(iFldLineName),
};

struct DoubleField {
  I4 iField;
  R8 Survey::*dValue;
  EditForm form;
};

constexpr DoubleField hDoubleField[] = {
    {iFldLineNumber, &Survey::dLineNumber, "(F12.1)"},
    {iFldStnKvrBeg,  &Survey::dStnKvrBeg,  "(F12.1)"},
    {iFldStnKvrInc,  &Survey::dStnKvrInc,  "(F12.2)"},
    {iFldStnBeg,     &Survey::dStnBeg,     "(F12.1)"},
    {iFldStnInc,     &Survey::dStnInc,     "(F12.2)"},
};

constexpr I4 iFldTxLength[] = {iFldTxLengthX, iFldTxLengthY};
constexpr I4 iFldTxCenter[] = {iFldTxCenterX, iFldTxCenterY};

/// The lengths as they stand in their fields: metres are computed from them only when the user has changed a length or
/// the unit, so that no length is rounded on its way through the dialog.
struct ShownLengths {
  Array1<R4, 2> fLength{};
  I4 iLengthUnit = 1;
};

template <class Value>
bool Read_Field(void (*Get)(I4, Value&), I4 iField, Value& hValue) {
  Value hRead = hValue;
  InfoError();
  Get(iField, hRead);
  const bool bRead = InfoError() == iErrNone;
  if (bRead) hValue = std::move(hRead);
  return bRead;
}

std::vector<std::string> Entries(const auto& sTable) {
  return {std::begin(sTable), std::end(sTable)};
}

// ---- showing

void Put_Lengths(const Survey& h, ShownLengths& hShown) {
  hShown.iLengthUnit = h.iLengthUnit;
  for (I4 I = 1; I <= 2; ++I) {
    hShown.fLength(I) = h.fTxLength(I) / Metres_per_Unit(h.iLengthUnit);
    WDialogPutReal(iFldTxLength[I - 1], hShown.fLength(I), "(F12.1)");
  }
}

void Put_Transmitter(const Survey& h, ShownLengths& hShown) {
  Put_Lengths(h, hShown);
  for (I4 I = 1; I <= 2; ++I) WDialogPutDouble(iFldTxCenter[I - 1], h.dTxXYZC(I), "(F12.1)");
}

void Put_TxwFile(const Survey& h) {
  WDialogPutCheckBox(iChkTxwFile, h.bTxwFile);
  WDialogPutString(iFldTxwName, File_Name(h.sTxwFile));
}

void Put_Ranges() {
  WDialogRangeReal(iFldLineAzimuth, -360.0, 360.0);
  for (const I4 iField : iFldTxLength) WDialogRangeReal(iField, 1.0E-9, 1.0E9);
  for (const I4 iField : iFldTxCenter) WDialogRangeReal(iField, -9.9E9, 9.9E9);
  WDialogRangeInteger(iFldTxTurns, 1, MTxTurn);
  WGridRangeReal(iGrdRxArea, 1, 0.01, 1.0E9);
}

void Put_Receiver(const SurveyConfig& hConfig) {
  WGridPutReal(iGrdRxArea, 1, hConfig.fCmpArea.hItem, "(1P,G12.4E1)");
  WDialogPutReal(iFldXAzimuth, hConfig.fXazm, "(F12.1)");
  WDialogPutMenu1(iMnuZPositive, Entries(sZpositive), hConfig.iZPositive);
}

void Put_Fields(const SurveyConfig& hConfig, ShownLengths& hShown) {
  const Survey& h = hConfig.hSurvey;
  Put_Ranges();
  for (const TextField& hField : hTextField) hField.Put(hField.iField, h);
  for (const DoubleField& hField : hDoubleField) WDialogPutDouble(hField.iField, h.*hField.dValue, hField.form);
  WDialogPutReal(iFldLineAzimuth, h.fLineAzimuth, "(F12.1)");
  WDialogPutMenu1(iMnuTemArray, Entries(sTemArray), h.iTemArray);
  WDialogPutMenu1(iMnuLengthUnit, Entries(sLengthUnit), h.iLengthUnit);
  WDialogPutInteger(iFldTxTurns, h.NTxTurn);
  Put_Transmitter(h, hShown);
  Put_TxwFile(h);
  Put_Receiver(hConfig);
}

/// What follows from other fields.
void Show_Consequences(const SurveyConfig& hConfig) {
  WDialogPutReal(iFldYAzimuth, Y_Azimuth(hConfig.fXazm, hConfig.iZPositive), "(F8.0)");
  for (const I4 iField : iFldTxCenter) WDialogFieldState(iField, Has_Fixed_Transmitter(hConfig.hSurvey) ? 1 : 0);
}

// ---- reading

void Read_Texts(Survey& h) {
  for (const TextField& hField : hTextField) {
    std::string sText;
    if (Read_Field(WDialogGetString, hField.iField, sText)) hField.Take(sText, h);
  }
}

void Read_Lengths(Survey& h, ShownLengths& hShown) {
  const bool bUnitChanged = h.iLengthUnit != hShown.iLengthUnit;
  hShown.iLengthUnit = h.iLengthUnit;
  for (I4 I = 1; I <= 2; ++I) {
    const R4 fShown0 = hShown.fLength(I);
    Read_Field(WDialogGetReal, iFldTxLength[I - 1], hShown.fLength(I));
    if (!bUnitChanged && hShown.fLength(I) == fShown0) continue;
    h.fTxLength(I) = hShown.fLength(I) * Metres_per_Unit(h.iLengthUnit);
  }
}

void Read_Fixed_Transmitter(Survey& h) {
  for (I4 I = 1; I <= 2; ++I) Read_Field(WDialogGetDouble, iFldTxCenter[I - 1], h.dTxXYZC(I));
  Read_Field(WDialogGetInteger, iFldTxTurns, h.NTxTurn);
  Read_Field(WDialogGetCheckBox, iChkTxwFile, h.bTxwFile);
}

void Read_Receiver(SurveyConfig& hConfig) {
  Array1<R4, 3> fArea = hConfig.fCmpArea;
  WGridGetReal(iGrdRxArea, 1, fArea.hItem);
  InfoError();  // a cell that cannot be read has left its area as it was
  for (I4 I = 1; I <= 3; ++I) {
    if (fArea(I) > 0.0f) hConfig.fCmpArea(I) = fArea(I);
  }
  Read_Field(WDialogGetReal, iFldXAzimuth, hConfig.fXazm);
  Read_Field(WDialogGetMenu1, iMnuZPositive, hConfig.iZPositive);
}

void Read_Fields(SurveyConfig& hConfig, ShownLengths& hShown) {
  Survey& h = hConfig.hSurvey;
  Read_Texts(h);
  for (const DoubleField& hField : hDoubleField) Read_Field(WDialogGetDouble, hField.iField, h.*hField.dValue);
  Read_Field(WDialogGetReal, iFldLineAzimuth, h.fLineAzimuth);
  Read_Field(WDialogGetMenu1, iMnuTemArray, h.iTemArray);
  Read_Field(WDialogGetMenu1, iMnuLengthUnit, h.iLengthUnit);
  Read_Lengths(h, hShown);
  if (Has_Fixed_Transmitter(h)) Read_Fixed_Transmitter(h);
  Read_Receiver(hConfig);
}

// ---- the wire file

void Take_First_Loop(Survey& h) {
  h.dTxXYZC = hTxw(1).dTxUTMC;
  I4 iError = 0;
  Txw_Get_Length(hTxw(1), h.fLineAzimuth, h.fTxLength, iError);
}

void Select_TxwFile(Survey& h, ShownLengths& hShown) {
  std::string sTxwFile;
  WSelectFile2("Select txw file|*.txw|", iSelectOptional, sTxwFile, "Select optional Tx wire endpoints file");
  h.bTxwFile = WInfoDialog(iExitButtonCommon) == iAnswerYes;
  h.sTxwFile = h.bTxwFile ? sTxwFile : std::string();
  if (h.bTxwFile) {
    I4 iError = 0;
    Txw_Read(h.sTxwFile, false, iError);
    if (NTxw >= 1) Take_First_Loop(h);
  }
  Put_TxwFile(h);
  Put_Transmitter(h, hShown);
}

// ---- the dialog's loop

constexpr I4 iStay = -1;

I4 On_Button(I4 iButton, SurveyConfig& hConfig, ShownLengths& hShown) {
  switch (iButton) {
    case iBtnContinue: Read_Fields(hConfig, hShown); return 0;
    case iBtnCancel: return 2;
    case iBtnSelectTxw:
      Read_Fields(hConfig, hShown);
      Select_TxwFile(hConfig.hSurvey, hShown);
      return iStay;
    default: return iStay;
  }
}

/// Runs the dialog until the user leaves it. iExit: 0 Continue, 2 Cancel, 3 close request.
void Run_Dialog(SurveyConfig& hConfig, ShownLengths& hShown, I4& iExit) {
  iExit = iStay;
  while (iExit == iStay) {
    Show_Consequences(hConfig);
    InqWintError("Edit_Cfg 2");
    MessageType iType = MessageType::None;
    Message hMessage;
    WMessage(iType, hMessage);
    switch (iType) {
      case MessageType::Button: iExit = On_Button(hMessage.VALUE1, hConfig, hShown); break;
      case MessageType::Field: Read_Fields(hConfig, hShown); break;
      case MessageType::Expose:
      case MessageType::Resize: LogText_Update(); break;
      case MessageType::Close: iExit = 3; break;
      default: break;
    }
  }
}

}  // namespace

void Edit_Cfg(I4& iError) {
  SurveyConfig hConfig = Config_from_Survey();
  ShownLengths hShown;
  WDialogLoad(iDlgSurveyConfig);
  Put_Fields(hConfig, hShown);
  InqWintError("Edit_Cfg 1");
  WMenuBarState(0);
  WMessageEnable(MessageType::Field, true);
  WDialogShow(iCentred, iCentred, iShowSemiModeless);

  Run_Dialog(hConfig, hShown, iError);

  WDialogUnload();
  WMessageEnable(MessageType::Field, false);
  WMenuBarState(1);
  if (iError == 0) Config_to_Survey(hConfig);
}

SurveyConfig Config_from_Survey() {
  SurveyConfig hConfig;
  Survey& h = hConfig.hSurvey = hTemSurvey;
  h.iTemArray = std::clamp(h.iTemArray, 1, static_cast<I4>(std::size(sTemArray)));
  h.iLengthUnit = std::clamp(h.iLengthUnit, 1, static_cast<I4>(std::size(sLengthUnit)));
  h.fLineAzimuth = std::fmod(h.fLineAzimuth + 360.0f, 360.0f);
  h.NTxTurn = std::clamp(h.NTxTurn, 1, MTxTurn);
  for (R4& fLength : h.fTxLength) fLength = std::clamp(fLength, fSizeLeast, fSizeMost);
  for (I4 j = 1; j <= NTrn; ++j) {
    if (hTrn(j).fRxArea > 0.0f) hConfig.fCmpArea((hTrn(j).iRxCmp - 1) % 3 + 1) = hTrn(j).fRxArea;
  }
  for (R4& fArea : hConfig.fCmpArea) fArea = std::clamp(fArea, fSizeLeast, fSizeMost);
  hConfig.fXazm = h.fRxHPR(1) <= -360.0f ? h.fLineAzimuth : std::fmod(360.0f + h.fRxHPR(1), 360.0f);
  hConfig.iZPositive = iZPositive = std::clamp(iZPositive, 1, static_cast<I4>(std::size(sZpositive)));
  return hConfig;
}

R4 Y_Azimuth(R4 fXazm, I4 iZPos) {
  return std::fmod(fXazm + (iZPos == 1 ? 630.0f : 450.0f), 360.0f);
}

void Config_to_Survey(const SurveyConfig& hConfig) {
  for (I4 j = 1; j <= NTrn; ++j) hTrn(j).fRxArea = hConfig.fCmpArea((hTrn(j).iRxCmp - 1) % 3 + 1);
  iZPositive = hConfig.iZPositive;
  hTemSurvey = hConfig.hSurvey;
  hTemSurvey.fRxHPR = {
      {hConfig.fXazm, 0.0f, hConfig.iZPositive == 1 ? 0.0f : 180.0f}
  };
  hTemSurvey.fTxHPR = {
      {hTemSurvey.fLineAzimuth, hTemSurvey.fRxHPR(2), hTemSurvey.fRxHPR(3)}
  };
  I4 iError = 0;
  if (Has_Fixed_Transmitter(hTemSurvey) && hTemSurvey.bTxwFile) TMD_TxUTMC_from_hTxw(iError);
  TMD_Survey_to_MD(iError);
}

}  // namespace quillan

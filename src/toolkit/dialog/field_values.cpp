// Values of fields, into the screen and back: the puts and reads of dialog.h.
#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QSlider>

#include "toolkit/dialog/private_dialog.h"

namespace quillan {

using namespace toolkit;

namespace {

// What is not there sets the error status; a caller that is given null has nothing to do.

Field* No_Field() {
  Set_Error(iErrNoField);
  return nullptr;
}

Field* Find_Number(I4 iField) {
  Field* hField = Find_Field(iField);
  return hField && hField->rule.iKind == FieldKind::Text ? No_Field() : hField;
}

/// A text field or a label.
Field* Find_Text(I4 iField) {
  Field* hField = Find_Field(iField);
  if (!hField || qobject_cast<QLabel*>(hField->hWidget)) return hField;
  return Line_Edit(hField->hWidget) && hField->rule.iKind == FieldKind::Text ? hField : No_Field();
}

template <class Control>
Control* Find_Control(I4 iField) {
  const Field* hField = Find_Field(iField);
  auto* hControl = hField ? qobject_cast<Control*>(hField->hWidget) : nullptr;
  if (hField && !hControl) No_Field();
  return hControl;
}

/// What a field shows after a put is complete: it raises no message.
void Accept_Text(I4 iField) {
  Field& hField = *Find_Field(iField);
  hField.sComplete = Field_Text(hField);
}

void Put_Number(Field* hField, R8 dValue) {
  if (hField && Field_Show(*hField, Number_Text(dValue, hField->rule))) hField->dPut = dValue;
}

std::optional<R8> Get_Number(I4 iField) {
  const Field* hField = Find_Number(iField);
  if (!hField) return {};
  const QString sText = Field_Text(*hField);
  return Field_Is_Unchanged(*hField) && !sText.isEmpty() ? hField->dPut : Read_Number(sText, hField->rule);
}

}  // namespace

void WDialogPutString(I4 iField, std::string_view sText) {
  Field* hField = Find_Text(iField);
  if (hField && Field_Show(*hField, To_QString(sText))) hField->sPut = sText;
}

std::optional<std::string> WDialogGetString(I4 iField) {
  const Field* hField = Find_Text(iField);
  if (!hField) return {};
  return Field_Is_Unchanged(*hField) ? hField->sPut : To_Bytes(Field_Text(*hField));
}

void WDialogPutInteger(I4 iField, I4 iValue) {
  Put_Number(Find_Number(iField), iValue);
}

std::optional<I4> WDialogGetInteger(I4 iField) {
  const auto dRead = Get_Number(iField);
  return dRead ? std::optional(static_cast<I4>(*dRead)) : std::nullopt;
}

void WDialogRangeInteger(I4 iField, I4 iLow, I4 iHigh) {
  WDialogRangeReal(iField, iLow, iHigh);
}

void WDialogPutReal(I4 iField, R4 fValue, const EditForm& form) {
  WDialogPutDouble(iField, static_cast<R8>(fValue), form);
}

std::optional<R4> WDialogGetReal(I4 iField) {
  const auto dRead = Get_Number(iField);
  return dRead ? std::optional(static_cast<R4>(*dRead)) : std::nullopt;
}

void WDialogPutDouble(I4 iField, R8 dValue, const EditForm& form) {
  Field* hField = Find_Number(iField);
  if (hField) hField->rule.form = form;
  Put_Number(hField, dValue);
}

std::optional<R8> WDialogGetDouble(I4 iField) {
  return Get_Number(iField);
}

void WDialogRangeReal(I4 iField, R8 dLow, R8 dHigh) {
  if (Field* hField = Find_Number(iField)) Field_Set_Range(*hField, dLow, dHigh);
}

void WDialogRefuseZero(I4 iField) {
  if (Field* hField = Find_Number(iField)) Field_Refuse_Zero(*hField);
}

void WDialogPutCheckBox(I4 iField, bool bOn) {
  auto* hBox = Find_Control<QCheckBox>(iField);
  if (!hBox) return;
  hBox->setChecked(bOn);
  Accept_Text(iField);
}

std::optional<bool> WDialogGetCheckBox(I4 iField) {
  const auto* hBox = Find_Control<QCheckBox>(iField);
  return hBox ? std::optional(hBox->isChecked()) : std::nullopt;
}

void WDialogPutRadioButton(I4 iField) {
  auto* hButton = Find_Control<QRadioButton>(iField);
  if (!hButton) return;
  hButton->setChecked(true);
  Accept_Text(iField);
}

std::optional<bool> WDialogGetRadioButton(I4 iField) {
  const auto* hButton = Find_Control<QRadioButton>(iField);
  return hButton ? std::optional(hButton->isChecked()) : std::nullopt;
}

void WDialogPutMenu1(I4 iField, std::span<const std::string> sEntry, I4 iSelect) {
  auto* hDropDown = Find_Control<QComboBox>(iField);
  if (!hDropDown || hDropDown->view()->isVisible()) return;  // the user is just choosing
  hDropDown->clear();
  for (const std::string& sText : sEntry) hDropDown->addItem(To_QString(sText));
  hDropDown->setCurrentIndex(iSelect - 1);
  Accept_Text(iField);
}

std::optional<I4> WDialogGetMenu1(I4 iField) {
  const auto* hDropDown = Find_Control<QComboBox>(iField);
  return hDropDown && hDropDown->currentIndex() >= 0 ? std::optional(hDropDown->currentIndex() + 1) : std::nullopt;
}

void WDialogRangeTrackbar(I4 iField, I4 iLow, I4 iHigh, I4 iStep) {
  auto* hTrackbar = Find_Control<QSlider>(iField);
  if (!hTrackbar) return;
  const QSignalBlocker hNoMessage(hTrackbar);
  hTrackbar->setRange(iLow, iHigh);
  hTrackbar->setPageStep(iStep);
  Accept_Text(iField);
}

void WDialogPutTrackbar(I4 iField, I4 iValue) {
  auto* hTrackbar = Find_Control<QSlider>(iField);
  if (!hTrackbar || hTrackbar->isSliderDown()) return;
  const QSignalBlocker hNoMessage(hTrackbar);
  hTrackbar->setValue(iValue);
  Field* hField = Find_Field(iField);
  if (Field_Show(*hField, {})) hField->dPut = iValue;
}

std::optional<I4> WDialogGetTrackbar(I4 iField) {
  const auto* hTrackbar = Find_Control<QSlider>(iField);
  if (!hTrackbar) return {};
  const Field& hField = *Find_Field(iField);
  return Field_Is_Unchanged(hField) ? static_cast<I4>(hField.dPut) : hTrackbar->value();
}

void WDialogFieldState(I4 iField, I4 iState) {
  const Field* hField = Find_Field(iField);
  if (!hField) return;
  hField->hWidget->setEnabled(iState != 0);
  for (QLabel* hLabel : hField->hWidget->window()->findChildren<QLabel*>())
    if (hLabel->buddy() == hField->hWidget) hLabel->setEnabled(iState != 0);
}

void WDialogPutNote(I4 iField, std::string_view sNote) {
  const DialogRecord* hDialog = Current_Record();
  if (!hDialog) return;
  auto* hNote = hDialog->hWindow->findChild<QLabel*>(QString("n%1").arg(iField));
  if (hNote)
    hNote->setText(To_QString(sNote));
  else
    Set_Error(iErrNoField);
}

}  // namespace quillan

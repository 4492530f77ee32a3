// form.h: the fields of a dialog as rows, each a control and the member of a record that it shows.
//
//   constexpr FormRow<Survey> hLineRow[] = {
//       {iFldLineName,    &Survey::sLineName},
//       {iFldLineAzimuth, &Survey::fLineAzimuth, "(F12.1)", {-360.0, 360.0}},
//       {iMnuTemArray,    &Survey::iTemArray, sTemArray},
//       {iFldTxCenterX,   FormElement{&Survey::dTxXYZC, 1}, "(F12.1)"},
//   };
//
// The kind of the member says what the control is: a text field for a Text or string, a number field for an I4, R4 or
// R8, a drop-down for an I4 with entries, a check box for an L4. What the user has not touched comes back exactly as it
// was put (dialog.h).
#pragma once

#include <limits>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <variant>
#include <vector>

#include "base/array.h"
#include "base/edit_form.h"
#include "base/text.h"
#include "base/types.h"
#include "toolkit/dialog/dialog.h"

namespace quillan {

/// Makes a dialog current for as long as it lives, then takes it away and makes the dialog of before current again.
class LoadedDialog {
 public:
  explicit LoadedDialog(I4 iDialog);
  ~LoadedDialog();
  LoadedDialog(const LoadedDialog&) = delete;
  LoadedDialog& operator=(const LoadedDialog&) = delete;

  /// False where no dialog can be shown: there is nobody to ask.
  bool Is_There() const { return bThere; }

 private:
  I4 iDialog;
  I4 iBefore;  // 0: none
  bool bThere;
};

/// While it lives, commands of the menu are greyed and changes of fields arrive as messages: for dialogs that leave the
/// window usable and are read after each change.
class FieldsAlone {
 public:
  FieldsAlone();
  ~FieldsAlone();
  FieldsAlone(const FieldsAlone&) = delete;
  FieldsAlone& operator=(const FieldsAlone&) = delete;
};

/// The limits of a number. A value beyond them is not taken; without limits every number is.
struct FormLimits {
  R8 dLow = -std::numeric_limits<R8>::infinity();
  R8 dHigh = std::numeric_limits<R8>::infinity();
  friend bool operator==(const FormLimits&, const FormLimits&) = default;
};

/// Element I of an array in a record.
template <class Record, class Value, I4 N>
struct FormElement {
  Array1<Value, N> Record::*hArray;
  I4 I;
};
template <class Record, class Value, I4 N>
FormElement(Array1<Value, N> Record::*, I4) -> FormElement<Record, Value, N>;

template <class Record>
using FormMember =
    std::variant<Text<16> Record::*, Text<128> Record::*, std::string Record::*, I4 Record::*, R4 Record::*,
                 R8 Record::*, L4 Record::*, FormElement<Record, R4, 2>, FormElement<Record, R8, 3>>;

template <class Record>
struct FormRow {
  constexpr FormRow(I4 iControl, FormMember<Record> hShown, EditForm hForm = {}, FormLimits hHeld = {})
      : iField(iControl), hMember(hShown), form(hForm), hLimits(hHeld) {}
  constexpr FormRow(I4 iControl, I4 Record::*iCode, std::span<const std::string_view> sWord)
      : iField(iControl), hMember(iCode), sEntry(sWord) {}

  I4 iField;
  FormMember<Record> hMember;
  EditForm form;                             // of an R4 or R8
  FormLimits hLimits;                        // of a number
  std::span<const std::string_view> sEntry;  // of a drop-down: the words of the codes 1, 2, ...
};

namespace form_detail {

template <class Record, class Value>
auto& Member(Record& h, Value std::remove_const_t<Record>::*hMember) {
  return h.*hMember;
}

template <class Record, class Value, I4 N>
auto& Member(Record& h, const FormElement<std::remove_const_t<Record>, Value, N>& hElement) {
  return (h.*hElement.hArray)(hElement.I);
}

inline void Put_Code(I4 iField, std::span<const std::string_view> sEntry, I4 iCode) {
  if (sEntry.empty()) return WDialogPutInteger(iField, iCode);
  WDialogPutMenu1(iField, std::vector<std::string>(sEntry.begin(), sEntry.end()), iCode);
}

template <class Value>
void Put(const auto& hRow, const Value& hValue) {
  if constexpr (std::is_same_v<Value, L4>) {
    WDialogPutCheckBox(hRow.iField, hValue);
  } else if constexpr (std::is_same_v<Value, I4>) {
    Put_Code(hRow.iField, hRow.sEntry, hValue);
  } else if constexpr (std::is_same_v<Value, R4>) {
    WDialogPutReal(hRow.iField, hValue, hRow.form);
  } else if constexpr (std::is_same_v<Value, R8>) {
    WDialogPutDouble(hRow.iField, hValue, hRow.form);
  } else if constexpr (std::is_same_v<Value, std::string>) {
    WDialogPutString(hRow.iField, hValue);
  } else {
    WDialogPutString(hRow.iField, hValue.trimmed());
  }
}

/// What the control holds; nothing where it cannot be read or is out of range.
template <class Value>
auto Read(const auto& hRow) {
  if constexpr (std::is_same_v<Value, L4>) {
    return WDialogGetCheckBox(hRow.iField);
  } else if constexpr (std::is_same_v<Value, I4>) {
    return hRow.sEntry.empty() ? WDialogGetInteger(hRow.iField) : WDialogGetMenu1(hRow.iField);
  } else if constexpr (std::is_same_v<Value, R4>) {
    return WDialogGetReal(hRow.iField);
  } else if constexpr (std::is_same_v<Value, R8>) {
    return WDialogGetDouble(hRow.iField);
  } else {
    return WDialogGetString(hRow.iField);
  }
}

}  // namespace form_detail

/// Shows a record in the fields of the current dialog, and gives the fields their limits.
template <class Record>
void Form_Put(const auto& hRows, const Record& h) {
  for (const FormRow<Record>& hRow : hRows) {
    if (hRow.hLimits != FormLimits{}) WDialogRangeReal(hRow.iField, hRow.hLimits.dLow, hRow.hLimits.dHigh);
    std::visit([&](const auto& hMember) { form_detail::Put(hRow, form_detail::Member(h, hMember)); }, hRow.hMember);
  }
}

/// The controls of the current dialog that Form_Take would leave unread.
template <class Record>
std::vector<I4> Form_Unread(const auto& hRows, const Record& h) {
  std::vector<I4> iField;
  for (const FormRow<Record>& hRow : hRows) {
    std::visit(
        [&](const auto& hMember) {
          using Value = std::remove_cvref_t<decltype(form_detail::Member(h, hMember))>;
          if (!form_detail::Read<Value>(hRow)) iField.push_back(hRow.iField);
        },
        hRow.hMember);
  }
  return iField;
}

/// Takes the fields of the current dialog into a record. A field that cannot be read or is out of range leaves its
/// member as it was.
template <class Record>
void Form_Take(const auto& hRows, Record& h) {
  for (const FormRow<Record>& hRow : hRows) {
    std::visit(
        [&](const auto& hMember) {
          auto& hValue = form_detail::Member(h, hMember);
          if (const auto hRead = form_detail::Read<std::remove_reference_t<decltype(hValue)>>(hRow)) hValue = *hRead;
        },
        hRow.hMember);
  }
}

}  // namespace quillan

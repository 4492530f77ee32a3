// dialog.h: dialogs by number, their fields by control number.
//
// A dialog is a designer file, dialogs/NUMBER.ui, whose controls are named "c" + their number. WDialogLoad makes a
// dialog current; every other call acts on the current one. A call for a dialog or field that is not there sets the
// last-error status of InfoError.
//
// A numeric field shows its value in the field's form but gives back the exact value that was put as long as the
// user has not changed the text; a missing value (-1.0E32) shows as an empty field. A put never raises a message. A
// text that is no number, or lies outside the field's range, has a red frame and is not read, so that the caller keeps
// the old value; a value that was put is given back as put, whatever the range. A put is dropped while the user is
// typing in the field.
//
// A field reports a change (MessageType::Field) when its edit is complete: the focus has left it, Enter, a box
// ticked, an entry chosen, a trackbar moved, a cell edited. Marked "live" in its designer file it reports each letter,
// marked "liveSteps" each step of its arrows. A button completes the edit under way before it reports itself.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "base/edit_form.h"
#include "base/types.h"
#include "toolkit/draw/last_error.h"

namespace quillan {

// Controls that several dialogs share.
inline constexpr I4 iBtnContinue = 1009;
inline constexpr I4 iBtnCancel = 1010;

// How a dialog is shown.
inline constexpr I4 iShowModal = 1;
inline constexpr I4 iShowSemiModeless = 2;
inline constexpr I4 iShowTool = 3;  // a tool window: never takes the focus, stays above the main window
inline constexpr I4 iCentred = -1;  // for the position in x or y

/// Makes a dialog current; one that is loaded already stays as it is.
void WDialogLoad(I4 iDialog);
void WDialogSelect(I4 iDialog);  // 0: none is current
/// Shows the current dialog at pixels iX, iY of the main window, iCentred for the middle of it. Modal: returns when a
/// push button is pressed, and which. Semi-modeless: returns 0 at once, and its buttons and fields arrive as messages.
/// Esc and the title bar's close button push Cancel; Enter pushes Continue.
/// A tool window (iShowTool) is semi-modeless, but the keyboard stays with the plot: keys that none of its text fields
/// wants arrive as Key messages, Esc among them. It opens beside the main window, level with its top, where the screen
/// has room, so that it hides nothing of the plot; else at pixels iX, iY of the drawing area; where the user has moved
/// it, it is shown there for the rest of the run. A double click on its title bar rolls it up to the bar and down
/// again. Its close button pushes the button that its designer file marks with the property "leaves", else Cancel.
I4 WDialogShow(I4 iX, I4 iY, I4 iMode);
void WDialogHide();
/// Rolls a tool window up to its title bar, or down again.
void WDialogRoll();
void WDialogUnload();
void WDialogTitle(std::string_view sTitle);

// Selectors of WInfoDialog.
inline constexpr I4 iCurrentDialog = 3;  // 0: none
inline constexpr I4 iDialogX = 5;        // pixels of the drawing area, of its upper left corner with its frame
inline constexpr I4 iDialogY = 6;
inline constexpr I4 iDialogWidth = 8;  // pixels
inline constexpr I4 iDialogHeight = 9;
I4 WInfoDialog(I4 iSelect);

// The reads below give what the field holds; nothing where it is empty or bad, which is no error of the program, or
// not there.

/// A text field or a label.
void WDialogPutString(I4 iField, std::string_view sText);
/// The bytes that were put, if the user has not changed the text; otherwise the text in UTF-8.
[[nodiscard]] std::optional<std::string> WDialogGetString(I4 iField);

void WDialogPutInteger(I4 iField, I4 iValue);
[[nodiscard]] std::optional<I4> WDialogGetInteger(I4 iField);
void WDialogRangeInteger(I4 iField, I4 iLow, I4 iHigh);

/// The screen shows no point after a number without decimals, and the scientific form where a number is wider than
/// the form.
void WDialogPutReal(I4 iField, R4 fValue, const EditForm& form);
[[nodiscard]] std::optional<R4> WDialogGetReal(I4 iField);
void WDialogPutDouble(I4 iField, R8 dValue, const EditForm& form);
[[nodiscard]] std::optional<R8> WDialogGetDouble(I4 iField);
/// Limits of a real or double field, for its red frame, its reads and its tool tip.
void WDialogRangeReal(I4 iField, R8 dLow, R8 dHigh);
/// The same for a field without such limits that takes any number but 0.
void WDialogRefuseZero(I4 iField);

void WDialogPutCheckBox(I4 iField, bool bOn);
[[nodiscard]] std::optional<bool> WDialogGetCheckBox(I4 iField);

/// A radio button: a put selects it, which clears the others of its group.
void WDialogPutRadioButton(I4 iField);
[[nodiscard]] std::optional<bool> WDialogGetRadioButton(I4 iField);

/// A drop-down: its entries and the selected one, counted from 1; 0 selects none.
void WDialogPutMenu1(I4 iField, std::span<const std::string> sEntry, I4 iSelect);
[[nodiscard]] std::optional<I4> WDialogGetMenu1(I4 iField);

/// A trackbar: its ends and the step of a click beside its knob, which moves to any value between the ends. It gives
/// back exactly what was put, even beyond its ends, until the user moves it, and reports each move. A put is dropped
/// while the user holds the knob.
void WDialogRangeTrackbar(I4 iField, I4 iLow, I4 iHigh, I4 iStep);
void WDialogPutTrackbar(I4 iField, I4 iValue);
[[nodiscard]] std::optional<I4> WDialogGetTrackbar(I4 iField);

/// Enables (1) or greys (0) a field and its label.
void WDialogFieldState(I4 iField, I4 iState);

/// The grey remark beside a control: the label named "n" + the control's number.
void WDialogPutNote(I4 iField, std::string_view sNote);

}  // namespace quillan

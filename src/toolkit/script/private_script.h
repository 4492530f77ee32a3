// private_script.h: the steps of a session script, and what they ask about the screen.
#pragma once

#include <QDialog>
#include <QPointF>
#include <QString>
#include <charconv>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "base/types.h"
#include "toolkit/script/script.h"
#include "toolkit/window/messages.h"

class QKeyEvent;
class QMessageBox;
class QMouseEvent;

namespace quillan::toolkit {

/// Carries out one step. Empty, or the reason why it does not fit what is on the screen (script_steps.cpp).
std::string Script_Carry_Out(const ScriptStep& hStep);

/// The box or dialog that waits for an answer, the innermost one, null where there is none; and its name in words
/// (dialog_steps.cpp).
QDialog* Waits_First();
std::string What_Waits();
/// A text as the user reads it, and the same in double quotes: line ends and runs of blanks are one blank, and the
/// places where a long path may be broken are none.
QString As_Read(QString sText);
std::string Quoted(const QString& sText);

// Words were held against the step's pattern before the steps read them.
template <class Number>
bool Reads_As(const std::string& sWord, Number& hValue) {
  const char* hEnd = sWord.data() + sWord.size();
  const auto hRead = std::from_chars(sWord.data(), hEnd, hValue);
  return hRead.ec == std::errc() && hRead.ptr == hEnd;
}
inline I4 Whole(const std::string& sWord) {
  I4 iValue = 0;
  Reads_As(sWord, iValue);
  return iValue;
}
inline R8 Number(const std::string& sWord) {
  R8 dValue = 0.0;
  Reads_As(sWord, dValue);
  return dValue;
}

// Each gives an empty text, or why it cannot be done. The widgets get the events that a user's hands would cause, and
// an edit is completed.
using Arguments = std::span<const std::string>;

/// What Play_Key and the steps of the mouse call a key and a button; blank for what has no name.
std::string Key_Name(const QKeyEvent& hKey);
std::string_view Button_Name(Qt::MouseButton iButton);
/// The words after the places of a mouse step, each with a blank before it: the button but for the left one, and the
/// keys that were held as it went down.
std::string Hand_Words(const QMouseEvent& hPress);
/// The pixel that a step in graphics units means: a whole one, as mice report them, where its decimals come so near.
QPointF Step_Pixel(QPointF hUnit);
/// The way back (recorded_place.cpp): a pixel of the drawing area in graphics units, held to the area, with as many
/// digits as it takes to meet it again; a click as a step, `point` where there is a plot, else, and where a corner of a
/// box is set, `click`.
std::string Place_Words(QPointF hPixel);
/// The same in the numbers of the axes; nothing where there is no plot, or no number for the place.
std::optional<std::string> Plot_Words(QPointF hPixel);
std::string Click_Words(const QMouseEvent& hPress);
/// Whether a drag between two pixels was meant as a box.
bool Spans_Box(QPointF hFrom, QPointF hTo);
/// Where the pointer has put the ring of a review, or from where it has taken it away, as steps `hover`: they stand
/// ahead of a key that goes on from the ring (recorded_ring.cpp). Follow_Ring hears each message that the program
/// takes.
void Follow_Ring(const Message& hTaken);
std::vector<std::string> Steps_to_Ring(const QKeyEvent& hKey);
void Forget_Ring();
/// How Play_Answer gives the answer that was given to a box.
std::string Answer_Words(const QMessageBox& hBox);

// Menus, keys and the mouse in the drawing area (hand_steps.cpp).
std::string Play_Menu(Arguments sArgument);
std::string Play_Key(Arguments sArgument);
std::string Play_Click(Arguments sArgument);
std::string Play_Drag(Arguments sArgument);
std::string Play_Point(Arguments sArgument);
std::string Play_Hover(Arguments sArgument);
std::string Play_Wheel(Arguments sArgument);

// The current dialog, boxes and the file dialog (dialog_steps.cpp).
std::string Play_Press(Arguments sArgument);
std::string Play_Set(Arguments sArgument);
std::string Play_Check(Arguments sArgument);
std::string Play_Radio(Arguments sArgument);
std::string Play_Choose(Arguments sArgument);
std::string Play_Slide(Arguments sArgument);
std::string Play_Cell(Arguments sArgument);
std::string Play_Field(Arguments sArgument);
std::string Play_Answer(Arguments sArgument);
std::string Play_File(Arguments sArgument);

// The window (window_steps.cpp).
std::string Play_Expect(Arguments sArgument);
std::string Play_Close(Arguments sArgument);
std::string Play_Stop(Arguments sArgument);
std::string Play_Resize(Arguments sArgument);
std::string Play_Drop(Arguments sArgument);
std::string Play_Snapshot(Arguments sArgument);

}  // namespace quillan::toolkit

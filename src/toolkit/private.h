// private.h: what the toolkit's own source files share. The only header that knows Qt.
//
// Events of the window system become messages in messages.cpp alone. Waiting is done by Wait_Until alone, which also
// lets a session script play its next step when the program has come to rest.
#pragma once

#include <QImage>
#include <QMainWindow>
#include <QString>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "base/types.h"
#include "toolkit/ids.h"
#include "toolkit/messages.h"

class QDialog;
class QMessageBox;
class QFileDialog;
class QWidget;

namespace quillan::toolkit {

// Text is bytes: UTF-8 where it is well formed, else Latin-1.
QString To_QString(std::string_view sBytes);
std::string To_Bytes(const QString& sText);

/// Sets the last-error status (system.cpp).
void Set_Error(I4 iCode, I4 iIOCode = 0, I4 iOSCode = 0);

/// The main window, null when none is open (window.cpp), and its drawing area.
QMainWindow* Main_Window();
QWidget* Drawing_Area();
/// The backing image of the drawing area, of its size at the screen's pixel ratio (draw.cpp). Resize keeps what is
/// drawn, white elsewhere.
QImage& Backing_Image();
void Resize_Backing_Image();

/// Adds a message to the queue (messages.cpp). Types that are switched off are dropped.
void Push_Message(MessageType iType, const Message& hMessage);
/// Runs the event loop until bDone gives true. While it waits, a playing script carries out its next step.
void Wait_Until(const std::function<bool()>& bDone);
/// Whether a message waits.
bool Has_Message();

/// The dialog that is current and shown, and what else waits for an answer; null where there is none (dialog.cpp,
/// boxes.cpp).
QDialog* Current_Dialog();
QMessageBox* Open_Box();
QFileDialog* Open_File_Dialog();

// How a script uses the current dialog (dialog.cpp, grid.cpp). Each gives an empty text, or why it cannot be done.
// The widgets get the events that a user's hands would cause, and the edit is completed.
std::string Dialog_Press(I4 iButton);
std::string Dialog_Set(I4 iField, std::string_view sValue);
std::string Dialog_Check(I4 iField, bool bOn);
std::string Dialog_Radio(I4 iField);
std::string Dialog_Choose(I4 iField, I4 iEntry);
std::string Dialog_Slide(I4 iField, I4 iValue);
std::string Dialog_Cell(I4 iGrid, I4 iRow, I4 iColumn, std::string_view sValue);
std::string Dialog_Field_Is(I4 iField, std::string_view sValue);
// How a script answers a box and a file dialog (boxes.cpp). sAnswer: ok, cancel, yes, no. sPath: cancel, or a path.
std::string Box_Answer(std::string_view sAnswer);
std::string File_Dialog_Answer(std::string_view sPath);

// The script (script.cpp).
void Script_Load(std::string_view sPath);
/// Carries out the next step; called by Wait_Until when all events are handled. At the end of the steps it sends the
/// close request.
void Script_Play_Step();

}  // namespace quillan::toolkit

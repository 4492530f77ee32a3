#include "toolkit/script/recorder.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QMainWindow>
#include <QMessageBox>
#include <QMouseEvent>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QTableWidget>
#include <fstream>
#include <utility>
#include <vector>

#include "platform/arguments.h"
#include "toolkit/dialog/private_dialog.h"
#include "toolkit/script/private_names.h"
#include "toolkit/script/private_script.h"
#include "toolkit/window/private_window.h"
#include "toolkit/window/window.h"

namespace quillan {

using namespace toolkit;

namespace {

constexpr std::string_view sFirstWords = "# To play it: quillan";  // of every record
constexpr std::string_view sRecordFailed = "The record of steps has ended: its file cannot be written.";

// A mouse button that is down. What it does shows when it goes up: a click, or a drag from here.
struct HeldButton {
  Qt::MouseButton iButton = Qt::NoButton;  // none: all buttons are up
  QPointF hPixel;
  std::string sPlace;              // where the drag would begin
  std::string sHand;               // its words after the places
  std::vector<std::string> sStep;  // the click, and keys after it
};

// What was done so far, and the file that it goes to. The listening procedures fill it.
struct Recorder {
  std::vector<std::string> sStep;
  std::ofstream out;  // closed: no record is being written
  std::string sPath;  // of that file
  QSize hWindow;      // of the main window, as the steps so far leave it
  QPointer<QMainWindow> hChild;
  QSize hChildSize;  // the same of that child window
  HeldButton hHeld;
  std::string sSlide;     // a trackbar on its way: only where the program sees it is a step
  bool bInField = false;  // a script that has come here would have the keyboard in a field of a tool window
  I4 NPause = 0;
};
Recorder hRecorder;

void Write_Line(const std::string& sLine) {
  if (!hRecorder.out.is_open()) return;
  hRecorder.out << sLine << std::endl;
  if (hRecorder.out) return;
  Record_End();
  WindowOutStatusBar(iStatusProgress, sRecordFailed);
}

void Add_Line(const std::string& sLine) {
  hRecorder.sStep.push_back(sLine);
  Write_Line(sLine);
}

/// The size of the window that the user works in, as the steps so far leave it.
QSize& Known_Size() {
  if (!Child_Window()) return hRecorder.hWindow;
  if (hRecorder.hChild != Child_Window()) hRecorder.hChildSize = {};
  hRecorder.hChild = Child_Window();
  return hRecorder.hChildSize;
}

void Add_Step(const std::string& sStep) {
  QSize& hKnown = Known_Size();
  const QSize hWindow = Active_Window() ? Active_Window()->size() : hKnown;
  if (hWindow != hKnown) Add_Line("resize " + std::to_string(hWindow.width()) + ' ' + std::to_string(hWindow.height()));
  hKnown = hWindow;
  Add_Line(sStep);
}

void End_Slide() {
  const std::string sSlide = std::exchange(hRecorder.sSlide, {});
  if (!sSlide.empty()) Add_Step(sSlide);
}

/// Takes down what waited for its end.
void End_Held() {
  End_Slide();
  const std::vector<std::string> sStep = std::exchange(hRecorder.hHeld, {}).sStep;
  for (const std::string& s : sStep) Add_Step(s);
}

/// Takes down a step that leaves the keyboard where it is.
void Take_Down(const std::string& sStep) {
  if (hRecorder.NPause > 0) return;
  End_Held();
  Add_Step(sStep);
}

/// The same for one that gives the keyboard back to the plot.
void Take_Down_at_Plot(const std::string& sStep) {
  Take_Down(sStep);
  hRecorder.bInField = false;
}

/// Keys and close requests do not end a drag by themselves.
void Take_Down_Under_Drag(const std::string& sStep) {
  if (hRecorder.hHeld.iButton == Qt::NoButton) return Take_Down(sStep);
  hRecorder.hHeld.sStep.push_back(sStep);
}

// ---- main window and boxes

void On_Menu(I4 iCommand) {
  Take_Down_at_Plot("menu " + Script_Word(Word_for(iCommand, Named_Commands())));
}

void On_Key(const QKeyEvent& hKey) {
  const std::string sName = Key_Name(hKey);
  if (sName.empty() || hRecorder.NPause > 0) return;
  QWidget* hFocus = QApplication::focusWidget();
  const bool bLeft = !hFocus || !Is_Line(hFocus);
  if (hRecorder.bInField && bLeft) Take_Down_at_Plot("key Enter");  // by which the user has left the field, or a click
  for (const std::string& sHover : Steps_to_Ring(hKey)) Take_Down_Under_Drag(sHover);
  Take_Down_Under_Drag("key " + Script_Word(sName));
}

/// The click is taken down where it goes: what it does may take the plot away before the button goes up.
void On_Press(const QMouseEvent& hPress) {
  if (hRecorder.NPause > 0 || Button_Name(hPress.button()).empty()) return;
  End_Held();
  hRecorder.bInField = false;
  const QPointF hPixel = hPress.position();
  hRecorder.hHeld = {hPress.button(), hPixel, Place_Words(hPixel), Hand_Words(hPress), {Click_Words(hPress)}};
}

void On_Release(const QMouseEvent& hRelease) {
  HeldButton& hHeld = hRecorder.hHeld;
  if (hHeld.iButton == Qt::NoButton || hHeld.iButton != hRelease.button()) return;
  const bool bDrags = hHeld.iButton == Qt::LeftButton || hHeld.iButton == Qt::RightButton;
  // What hits a point is a click also of an unsteady hand; else any move may be meant, such as that to a far corner.
  const bool bPoint = !hHeld.sStep.empty() && hHeld.sStep.front().starts_with("point ");
  const bool bMoved = bPoint ? Spans_Box(hHeld.hPixel, hRelease.position()) : hRelease.position() != hHeld.hPixel;
  if (bDrags && hHeld.sStep.size() == 1 && bMoved)
    hHeld.sStep = {"drag " + hHeld.sPlace + ' ' + Place_Words(hRelease.position()) + hHeld.sHand};
  End_Held();
}

/// The press and the Esc have done nothing, and a script cannot do them in parts.
void On_Box_Given_Up(bool bClose) {
  if (hRecorder.hHeld.iButton == Qt::NoButton) return;
  hRecorder.hHeld.sStep.clear();
  if (bClose) hRecorder.hHeld.sStep.push_back("close");
  End_Held();
}

void On_Taken(const Message& h) {
  Follow_Ring(h);
  if (h.iType == MessageType::Field) End_Slide();
  if (h.iType != MessageType::MouseDown || h.VALUE2 != iByWheel) return;
  const QPointF hPixel = Units_to_Pixels(QPointF(R8{h.GX}, R8{h.GY}));
  Take_Down(std::string("wheel ") + (h.VALUE1 == iMouseForward ? "1 " : "-1 ") + Place_Words(hPixel));
}

void On_Close() {
  Take_Down_Under_Drag("close");
}

/// A file as seen from the working folder. The word cancel would mean none.
std::string Path_Word(const QString& sFile) {
  const std::string sPath = To_Bytes(QDir::current().relativeFilePath(sFile));
  return Script_Word(sPath == "cancel" ? "./" + sPath : sPath);
}

void On_Drop(const QString& sFile) {
  Take_Down("drop " + Path_Word(sFile));
}

void On_Answer(const QMessageBox& hBox) {
  const std::string sAnswer = Answer_Words(hBox);
  if (!sAnswer.empty()) Take_Down("answer " + sAnswer);
}

void On_File(const QString& sFile) {
  Take_Down("file " + (sFile.isEmpty() ? "cancel" : Path_Word(sFile)));
}

// ---- dialogs

/// The name of a control among those of its kind, as a word of a step.
std::string Control_Word(I4 iField, bool (*bFits)(QWidget*)) {
  return Script_Word(Word_for(iField, Named_Controls(bFits)));
}

/// A dialog without a Cancel button takes its Esc.
void On_Button(I4 iButton) {
  Take_Down_at_Plot(Known_Field(iButton) ? "press " + Control_Word(iButton, Is_a<QPushButton>) : "key Esc");
}

std::string Entry_Word(const QComboBox& hDropDown) {
  return Script_Word(Word_for(hDropDown.currentIndex() + 1, Named_Entries(hDropDown)));
}

void Move_Trackbar(const std::string& sStep, const std::string& sValue) {
  if (hRecorder.NPause > 0) return;
  if (!hRecorder.sSlide.starts_with(sStep)) End_Held();
  hRecorder.sSlide = sStep + sValue;
}

void On_Edit(const Field& hField) {
  const std::string sValue = Script_Word(To_Bytes(Field_Text(hField)));
  if (Is_Line(hField.hWidget)) {
    Take_Down("set " + Control_Word(hField.iField, Is_Line) + ' ' + sValue);
    hRecorder.bInField = !hField.hWidget->window()->isModal();
  } else if (Is_a<QCheckBox>(hField.hWidget)) {
    Take_Down("check " + Control_Word(hField.iField, Is_a<QCheckBox>) + ' ' + sValue);
  } else if (Is_a<QRadioButton>(hField.hWidget)) {
    if (sValue == "on") Take_Down("radio " + Control_Word(hField.iField, Is_a<QRadioButton>));
  } else if (const auto* hDropDown = qobject_cast<const QComboBox*>(hField.hWidget)) {
    Take_Down_at_Plot("choose " + Control_Word(hField.iField, Is_Chosen_From) + ' ' + Entry_Word(*hDropDown));
  } else if (Is_a<QSlider>(hField.hWidget)) {
    Move_Trackbar("slide " + Control_Word(hField.iField, Is_a<QSlider>) + ' ', sValue);
  }
}

std::string Cell_Value(const QTableWidget& hGrid, I4 iRow, I4 iColumn) {
  if (const auto* hDropDown = qobject_cast<const QComboBox*>(hGrid.cellWidget(iRow - 1, iColumn - 1)))
    return Entry_Word(*hDropDown);
  const QTableWidgetItem* hItem = hGrid.item(iRow - 1, iColumn - 1);
  if (!hItem->data(Qt::CheckStateRole).isValid()) return Script_Word(To_Bytes(hItem->text()));
  return hItem->checkState() == Qt::Checked ? "on" : "off";
}

void On_Cell(const QTableWidget& hGrid, I4 iRow, I4 iColumn) {
  Take_Down_at_Plot("cell " + Control_Word(hGrid.objectName().mid(1).toInt(), Is_a<QTableWidget>) + ' ' +
                    std::to_string(iRow) + ' ' + Script_Word(Word_for(iColumn, Named_Columns(hGrid))) + ' ' +
                    Cell_Value(hGrid, iRow, iColumn));
}

void On_Row(const QTableWidget& hGrid, I4 iRow) {
  Take_Down_at_Plot("choose " + Control_Word(hGrid.objectName().mid(1).toInt(), Is_Chosen_From) + ' ' +
                    Script_Word(Word_for(iRow, Named_Rows(hGrid))));
}

}  // namespace

void Record_Listen() {
  hRecorder = {};
  Forget_Ring();
  hWindowListener = {On_Menu,  On_Key,   On_Press, On_Release, On_Box_Given_Up,
                     On_Taken, On_Close, On_Drop,  On_Answer,  On_File};
  hDialogListener = {On_Button, On_Edit, On_Cell, On_Row};
}

bool Record_Would_Destroy(std::string_view sPath) {
  std::ifstream in{std::string(sPath)};
  std::string sLine;
  return std::getline(in, sLine) && !sLine.starts_with(sFirstWords);
}

I4 Record_Begin(std::string_view sPath) {
  Record_End();
  const std::string sName(sPath);
  hRecorder.sPath = sName;
  hRecorder.out.open(sName);
  if (!hRecorder.out) return 1;
  std::string sCommand(sFirstWords);
  for (I4 I = 1; I <= IOsArguments(); ++I) sCommand += ' ' + Script_Word(IOsArgument(I));
  Write_Line(sCommand + " --script " + Path_Word(To_QString(sName)));
  for (const std::string& sStep : hRecorder.sStep) Write_Line(sStep);
  return Record_Is_On() ? 0 : 1;
}

void Record_End() {
  hRecorder.out.close();
  hRecorder.out.clear();
}

bool Record_Is_On() {
  return hRecorder.out.is_open();
}

void Record_Menu(I4 iCommand) {
  On_Menu(iCommand);
}

void Record_File(std::string_view sFile) {
  On_File(To_QString(sFile));
}

void Record_Stop() {
  End_Held();
  hRecorder.sStep.insert(hRecorder.sStep.empty() ? hRecorder.sStep.end() : hRecorder.sStep.end() - 1, "stop");
  if (!Record_Is_On() || Record_Begin(std::string(hRecorder.sPath)) == 0) return;
  WindowOutStatusBar(iStatusProgress, sRecordFailed);
}

RecordPause::RecordPause() {
  ++hRecorder.NPause;
}

RecordPause::~RecordPause() {
  --hRecorder.NPause;
}

}  // namespace quillan

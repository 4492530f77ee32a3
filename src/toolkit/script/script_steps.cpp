// script_steps.cpp: how each step of a session script is carried out on the widgets.
#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QKeyEvent>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QUrl>
#include <QWheelEvent>
#include <algorithm>
#include <charconv>
#include <iterator>
#include <span>

#include "toolkit/draw/plot_axes.h"
#include "toolkit/script/script.h"
#include "toolkit/window/private.h"

namespace quillan {

using namespace toolkit;

namespace {

constexpr int NDragMoves = 8;        // mouse moves of a drag
constexpr int NWheelStep = 120;      // angle of one step of a wheel, as mice report it
constexpr QRgb iFrame = 0xFF808080;  // line around a dialog in a picture

using Arguments = std::span<const std::string>;

// What must be on the screen for a step.
enum class Needs { Nothing, Window, Dialog, Box, FileDialog };

struct StepKind {
  std::string_view sName;
  std::string_view sUsage;    // its arguments in words
  std::string_view sPattern;  // one letter an argument: i whole number, n number, s text; behind "?" optional
  Needs iNeeds;
  std::string (*Play)(Arguments sArgument);  // gives an empty text, or why the step cannot be carried out
};

template <class Number>
bool Reads_As(const std::string& sWord, Number& hValue) {
  const char* hEnd = sWord.data() + sWord.size();
  const auto hRead = std::from_chars(sWord.data(), hEnd, hValue);
  return hRead.ec == std::errc() && hRead.ptr == hEnd;
}

// Words were held against the step's pattern before these are called.
I4 Whole(const std::string& sWord) {
  I4 iValue = 0;
  Reads_As(sWord, iValue);
  return iValue;
}

R8 Number(const std::string& sWord) {
  R8 dValue = 0.0;
  Reads_As(sWord, dValue);
  return dValue;
}

// ---- What is on the screen

/// Line ends and runs of blanks count as one blank, and the places where a long path may be broken do not count.
QString As_Read(QString sText) {
  return sText.remove(QChar(0x200B)).simplified();
}

std::string Quoted(const QString& sText) {
  return "\"" + To_Bytes(As_Read(sText)) + "\"";
}

QDialog* Modal_Dialog() {
  QDialog* hDialog = Current_Dialog();
  return hDialog && hDialog->isModal() ? hDialog : nullptr;
}

/// Empty when the screen has what a step needs, else what is in the way.
std::string Lacks(Needs iNeeds) {
  const QDialog* hFirst = Waits_First();
  const std::string sWaits = hFirst ? What_Waits() + " waits for an answer" : "";
  switch (iNeeds) {
    case Needs::Nothing: return "";
    case Needs::Window: return hFirst ? sWaits : Main_Window() ? "" : "no window is open";
    case Needs::Dialog:
      return hFirst && hFirst != Modal_Dialog() ? sWaits : Current_Dialog() ? "" : "no dialog is open";
    case Needs::Box: return Open_Box() ? "" : hFirst ? sWaits : "no message box is open";
    case Needs::FileDialog: return Open_Box() ? sWaits : Open_File_Dialog() ? "" : "no file dialog is open";
  }
  return "";
}

// ---- Menus and keys

std::string Play_Menu(Arguments sArgument) {
  const std::vector<QAction*> hEntry = Menu_Entries(Whole(sArgument[0]));
  if (hEntry.empty()) return "the menu on show has no command " + sArgument[0];
  if (!hEntry.front()->isEnabled()) return "command " + sArgument[0] + " is greyed";
  hEntry.front()->trigger();
  return "";
}

constexpr struct {
  std::string_view sName;
  Qt::Key iKey;
} hKeyName[] = {
    {"Esc",   Qt::Key_Escape},
    {"Up",    Qt::Key_Up    },
    {"Down",  Qt::Key_Down  },
    {"Left",  Qt::Key_Left  },
    {"Right", Qt::Key_Right },
    {"Enter", Qt::Key_Return},
    {"Tab",   Qt::Key_Tab   },
};

constexpr struct {
  std::string_view sName;
  Qt::KeyboardModifier iModifier;
} hModifierName[] = {
    {"Ctrl+",  Qt::ControlModifier},
    {"Shift+", Qt::ShiftModifier  },
    {"Alt+",   Qt::AltModifier    }
};

struct KeyStroke {
  int iKey = 0;
  Qt::KeyboardModifiers iModifiers;
  QString sText;
};

KeyStroke Key_Stroke(std::string_view sName) {
  KeyStroke hKey;
  for (const auto& hRow : hModifierName) {
    if (!sName.starts_with(hRow.sName) || sName == hRow.sName) continue;
    hKey.iModifiers |= hRow.iModifier;
    sName.remove_prefix(hRow.sName.size());
  }
  for (const auto& hRow : hKeyName) {
    if (sName == hRow.sName) hKey.iKey = hRow.iKey;
  }
  const QString sCharacter = To_QString(sName);
  if (hKey.iKey == 0 && sCharacter.toUcs4().size() == 1) {
    hKey.iKey = static_cast<int>(sCharacter.toUpper().toUcs4().front());
    hKey.sText = sCharacter;
  }
  return hKey;
}

/// Where the keyboard goes: an open drop-down menu, what waits for an answer, the field with the focus, the plot.
QWidget* Key_Target() {
  if (QWidget* hMenu = QApplication::activePopupWidget()) return hMenu;
  if (QDialog* hFirst = Waits_First()) return hFirst->focusWidget() ? hFirst->focusWidget() : hFirst;
  QWidget* hFocus = QApplication::focusWidget();
  return hFocus ? hFocus : Drawing_Area();
}

/// Ctrl+S and the like choose their entry, Alt and a marked letter choose or open theirs, as the window system does
/// before a key reaches the focus.
bool Takes_Shortcut(const KeyStroke& hKey) {
  if (!Main_Window() || Waits_First() || !hKey.iModifiers) return false;
  const QKeySequence hSequence(QKeyCombination(hKey.iModifiers, static_cast<Qt::Key>(hKey.iKey)));
  QMenuBar* hBar = Main_Window()->menuBar();
  const auto hEntries = hBar->findChildren<QAction*>();
  for (QAction* hEntry : hEntries) {
    const bool bMarked = hBar->actions().contains(hEntry) && QKeySequence::mnemonic(hEntry->text()) == hSequence;
    if (!hEntry->isEnabled() || (hEntry->shortcut() != hSequence && !bMarked)) continue;
    if (hEntry->menu())
      hBar->setActiveAction(hEntry);
    else
      hEntry->trigger();
    return true;
  }
  return false;
}

std::string Play_Key(Arguments sArgument) {
  const KeyStroke hKey = Key_Stroke(sArgument[0]);
  if (hKey.iKey == 0) return "there is no key " + sArgument[0];
  if (Takes_Shortcut(hKey)) return "";
  QWidget* hTarget = Key_Target();
  if (!hTarget) return "no window is open";
  for (const auto iType : {QEvent::KeyPress, QEvent::KeyRelease}) {
    QKeyEvent hEvent(iType, hKey.iKey, hKey.iModifiers, hKey.sText);
    QCoreApplication::sendEvent(hTarget, &hEvent);
    if (hTarget != Key_Target()) break;  // the key closed it
  }
  return "";
}

// ---- The mouse, in the drawing area

constexpr struct {
  std::string_view sName;
  Qt::MouseButton iButton;
} hButtonName[] = {
    {"left",    Qt::LeftButton   },
    {"right",   Qt::RightButton  },
    {"back",    Qt::BackButton   },
    {"forward", Qt::ForwardButton}
};

/// The button that argument iArgument names; left without one; none for a word that names none.
Qt::MouseButton Button(Arguments sArgument, std::size_t iArgument) {
  if (sArgument.size() <= iArgument) return Qt::LeftButton;
  for (const auto& hRow : hButtonName) {
    if (sArgument[iArgument] == hRow.sName) return hRow.iButton;
  }
  return Qt::NoButton;
}

QPointF Pixel(const std::string& sX, const std::string& sY) {
  return Units_to_Pixels(QPointF(Number(sX), Number(sY)));
}

bool Is_in_Area(QPointF hPixel) {
  return QRectF(Drawing_Area()->rect()).contains(hPixel);
}

void Send_Mouse(QEvent::Type iType, QPointF hPixel, Qt::MouseButton iButton, Qt::MouseButtons iHeld) {
  QMouseEvent hEvent(iType, hPixel, Drawing_Area()->mapToGlobal(hPixel), iButton, iHeld, Qt::NoModifier);
  QCoreApplication::sendEvent(Drawing_Area(), &hEvent);
}

std::string Click_at(QPointF hPixel, Qt::MouseButton iButton) {
  if (iButton == Qt::NoButton) return "the button is left, right, back or forward";
  if (!Is_in_Area(hPixel)) return "the position lies outside the drawing area";
  Send_Mouse(QEvent::MouseMove, hPixel, Qt::NoButton, Qt::NoButton);
  Send_Mouse(QEvent::MouseButtonPress, hPixel, iButton, iButton);
  Send_Mouse(QEvent::MouseButtonRelease, hPixel, iButton, Qt::NoButton);
  return "";
}

std::string Play_Click(Arguments sArgument) {
  return Click_at(Pixel(sArgument[0], sArgument[1]), Button(sArgument, 2));
}

std::string Play_Drag(Arguments sArgument) {
  const QPointF hFrom = Pixel(sArgument[0], sArgument[1]);
  const QPointF hTo = Pixel(sArgument[2], sArgument[3]);
  const Qt::MouseButton iButton = Button(sArgument, 4);
  if (iButton != Qt::LeftButton && iButton != Qt::RightButton) return "the button is left or right";
  if (!Is_in_Area(hFrom) || !Is_in_Area(hTo)) return "the position lies outside the drawing area";
  Send_Mouse(QEvent::MouseMove, hFrom, Qt::NoButton, Qt::NoButton);
  Send_Mouse(QEvent::MouseButtonPress, hFrom, iButton, iButton);
  for (int I = 1; I <= NDragMoves; ++I) {
    Send_Mouse(QEvent::MouseMove, hFrom + (hTo - hFrom) * I / NDragMoves, Qt::NoButton, iButton);
  }
  Send_Mouse(QEvent::MouseButtonRelease, hTo, iButton, Qt::NoButton);
  return "";
}

std::string Play_Point(Arguments sArgument) {
  if (!IPg_Is_Plotting()) return "there are no plot axes";
  const Qt::MouseButton iButton = Button(sArgument, 2);
  if (iButton != Qt::LeftButton && iButton != Qt::RightButton) return "the button is left or right";
  R4 fXGr = 0.0f, fYGr = 0.0f;
  IPgUnitsToGrUnits(static_cast<R4>(Number(sArgument[0])), static_cast<R4>(Number(sArgument[1])), fXGr, fYGr);
  return Click_at(Units_to_Pixels(QPointF(static_cast<R8>(fXGr), static_cast<R8>(fYGr))), iButton);
}

std::string Play_Wheel(Arguments sArgument) {
  const QPointF hPixel = Pixel(sArgument[1], sArgument[2]);
  if (!Is_in_Area(hPixel)) return "the position lies outside the drawing area";
  QWheelEvent hEvent(hPixel, Drawing_Area()->mapToGlobal(hPixel), QPoint(),
                     QPoint(0, -NWheelStep * Whole(sArgument[0])), Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                     false);
  QCoreApplication::sendEvent(Drawing_Area(), &hEvent);
  return "";
}

// ---- Dialogs and boxes

std::string Play_Press(Arguments sArgument) {
  return Dialog_Press(Whole(sArgument[0]));
}

std::string Play_Set(Arguments sArgument) {
  return Dialog_Set(Whole(sArgument[0]), sArgument[1]);
}

std::string Play_Check(Arguments sArgument) {
  if (sArgument[1] != "on" && sArgument[1] != "off") return "a box is on or off";
  return Dialog_Check(Whole(sArgument[0]), sArgument[1] == "on");
}

std::string Play_Radio(Arguments sArgument) {
  return Dialog_Radio(Whole(sArgument[0]));
}

std::string Play_Choose(Arguments sArgument) {
  return Dialog_Choose(Whole(sArgument[0]), Whole(sArgument[1]));
}

std::string Play_Slide(Arguments sArgument) {
  return Dialog_Slide(Whole(sArgument[0]), Whole(sArgument[1]));
}

std::string Play_Cell(Arguments sArgument) {
  return Dialog_Cell(Whole(sArgument[0]), Whole(sArgument[1]), Whole(sArgument[2]), sArgument[3]);
}

std::string Play_Field(Arguments sArgument) {
  return Dialog_Field_Is(Whole(sArgument[0]), sArgument[1]);
}

std::string Play_Answer(Arguments sArgument) {
  return Box_Answer(sArgument[0]);
}

std::string Play_File(Arguments sArgument) {
  return File_Dialog_Answer(sArgument[0]);
}

/// Texts and titles that the user can read.
QStringList Shown_Texts() {
  QStringList sShown;
  if (Open_Box()) sShown << Open_Box()->text() << Open_Box()->windowTitle();
  if (Open_File_Dialog()) sShown << Open_File_Dialog()->windowTitle();
  if (Current_Dialog()) sShown << Current_Dialog()->windowTitle();
  if (Main_Window()) sShown << Main_Window()->windowTitle();
  for (QString& sText : sShown) sText = As_Read(sText);
  return sShown;
}

std::string Play_Expect(Arguments sArgument) {
  const QString sWanted = As_Read(To_QString(sArgument[0]));
  const QStringList sShown = Shown_Texts();
  for (const QString& sText : sShown) {
    if (sText.contains(sWanted)) return "";
  }
  return Quoted(sWanted) + " is not on the screen, which shows " + Quoted(sShown.join("\", \""));
}

// ---- The window

std::string Play_Close(Arguments) {
  Main_Window()->close();
  return "";
}

std::string Play_Resize(Arguments sArgument) {
  if (!Main_Window()) return "no window is open";
  Main_Window()->resize(Whole(sArgument[0]), Whole(sArgument[1]));
  return "";
}

std::string Play_Drop(Arguments sArgument) {
  const QFileInfo hFile(To_QString(sArgument[0]));
  if (!hFile.exists()) return "there is no file " + sArgument[0];
  QMimeData hData;
  hData.setUrls({QUrl::fromLocalFile(hFile.absoluteFilePath())});
  const QPoint hMiddle = Main_Window()->rect().center();
  QDragEnterEvent hEnter(hMiddle, Qt::CopyAction, &hData, Qt::LeftButton, Qt::NoModifier);
  QCoreApplication::sendEvent(Main_Window(), &hEnter);
  if (!hEnter.isAccepted()) return "the window does not take " + sArgument[0];
  QDropEvent hDrop(hMiddle, Qt::CopyAction, &hData, Qt::LeftButton, Qt::NoModifier);
  QCoreApplication::sendEvent(Main_Window(), &hDrop);
  return "";
}

/// Windows over the main window, the lowest first: tool windows, dialogs, boxes, open drop-down lists and tool tips.
std::vector<QWidget*> Windows_Above() {
  const auto iLevel = [](const QWidget* hWindow) {
    if (hWindow->windowType() == Qt::Popup || hWindow->windowType() == Qt::ToolTip) return 3;
    return hWindow == Waits_First() ? 2 : hWindow->isModal() ? 1 : 0;
  };
  std::vector<QWidget*> hAbove;
  const QWidgetList hAll = QApplication::topLevelWidgets();
  std::ranges::copy_if(hAll, std::back_inserter(hAbove),
                       [](QWidget* hWindow) { return hWindow->isVisible() && hWindow != Main_Window(); });
  std::ranges::stable_sort(hAbove, {}, iLevel);
  return hAbove;
}

QImage Picture() {
  const std::vector<QWidget*> hAbove = Windows_Above();
  const QPoint hOrigin = Main_Window()->geometry().topLeft();
  QRect hCanvas = Main_Window()->rect();
  for (const QWidget* hWindow : hAbove) {
    hCanvas |= hWindow->geometry().translated(-hOrigin).adjusted(-1, -1, 1, 1) & QRect(-10000, -10000, 20000, 20000);
  }
  const R8 dRatio = Main_Window()->devicePixelRatioF();
  QImage hPicture((QSizeF(hCanvas.size()) * dRatio).toSize(), QImage::Format_RGB32);
  hPicture.setDevicePixelRatio(dRatio);
  hPicture.fill(Qt::white);
  QPainter hPainter(&hPicture);
  hPainter.translate(-hCanvas.topLeft());
  hPainter.drawPixmap(0, 0, Main_Window()->grab());
  for (QWidget* hWindow : hAbove) {
    const QRect hPlace = hWindow->geometry().translated(-hOrigin);
    hPainter.fillRect(hPlace.adjusted(-1, -1, 1, 1), QColor(iFrame));
    hPainter.drawPixmap(hPlace.topLeft(), hWindow->grab());
  }
  return hPicture;
}

std::string Play_Snapshot(Arguments sArgument) {
  if (!Main_Window()) return "no window is open";
  return Picture().save(To_QString(sArgument[0]), "PNG") ? "" : "cannot write " + sArgument[0];
}

// clang-format off
constexpr StepKind hStepKind[] = {
    // name      arguments                          pattern  needs              procedure
    {"menu",     "ID",                              "i",     Needs::Window,     Play_Menu},
    {"press",    "ID",                              "i",     Needs::Dialog,     Play_Press},
    {"set",      "ID VALUE",                        "is",    Needs::Dialog,     Play_Set},
    {"check",    "ID on|off",                       "is",    Needs::Dialog,     Play_Check},
    {"radio",    "ID",                              "i",     Needs::Dialog,     Play_Radio},
    {"choose",   "ID N",                            "ii",    Needs::Dialog,     Play_Choose},
    {"slide",    "ID N",                            "ii",    Needs::Dialog,     Play_Slide},
    {"cell",     "ID ROW COL VALUE",                "iiis",  Needs::Dialog,     Play_Cell},
    {"field",    "ID VALUE",                        "is",    Needs::Dialog,     Play_Field},
    {"key",      "NAME",                            "s",     Needs::Nothing,    Play_Key},
    {"click",    "X Y [left|right|back|forward]",   "nn?s",  Needs::Window,     Play_Click},
    {"drag",     "X1 Y1 X2 Y2 [left|right]",        "nnnn?s", Needs::Window,    Play_Drag},
    {"point",    "X Y [left|right]",                "nn?s",  Needs::Window,     Play_Point},
    {"wheel",    "N X Y",                           "inn",   Needs::Window,     Play_Wheel},
    {"answer",   "ok|cancel|yes|no",                "s",     Needs::Box,        Play_Answer},
    {"file",     "PATH|cancel",                     "s",     Needs::FileDialog, Play_File},
    {"close",    "",                                "",      Needs::Window,     Play_Close},
    {"expect",   "TEXT",                            "s",     Needs::Nothing,    Play_Expect},
    {"resize",   "W H",                             "ii",    Needs::Nothing,    Play_Resize},
    {"drop",     "PATH",                            "s",     Needs::Window,     Play_Drop},
    {"snapshot", "FILE.png",                        "s",     Needs::Nothing,    Play_Snapshot},
};
// clang-format on

// ---- The arguments of a step

bool Fits(char cKind, const std::string& sWord) {
  I4 iValue;
  R8 dValue;
  return cKind == 'i' ? Reads_As(sWord, iValue) : cKind == 'n' ? Reads_As(sWord, dValue) : true;
}

/// Whether the arguments are as many and of the kinds that the step takes.
bool Fits_Pattern(std::string_view sPattern, Arguments sArgument) {
  bool bOptional = false;
  std::size_t NTaken = 0;
  for (const char cKind : sPattern) {
    if (cKind == '?') {
      bOptional = true;
    } else if (NTaken == sArgument.size()) {
      return bOptional;
    } else if (!Fits(cKind, sArgument[NTaken++])) {
      return false;
    }
  }
  return NTaken == sArgument.size();
}

}  // namespace

QDialog* toolkit::Waits_First() {
  if (Open_Box()) return Open_Box();
  if (Open_File_Dialog()) return Open_File_Dialog();
  return Modal_Dialog();
}

std::string toolkit::What_Waits() {
  if (Open_Box()) return "the message box " + Quoted(Open_Box()->text());
  if (Open_File_Dialog()) return "the file dialog " + Quoted(Open_File_Dialog()->windowTitle());
  return "the dialog " + Quoted(Modal_Dialog()->windowTitle());
}

std::string toolkit::Script_Carry_Out(const ScriptStep& hStep) {
  const auto hKind = std::ranges::find(hStepKind, std::string_view(hStep.sWord[0]), &StepKind::sName);
  if (hKind == std::end(hStepKind)) return "there is no step " + hStep.sWord[0];
  const Arguments sArgument = Arguments(hStep.sWord).subspan(1);
  if (!Fits_Pattern(hKind->sPattern, sArgument)) {
    return "the step is written: " + std::string(hKind->sName) + " " + std::string(hKind->sUsage);
  }
  const std::string sLacks = Lacks(hKind->iNeeds);
  return sLacks.empty() ? hKind->Play(sArgument) : sLacks;
}

}  // namespace quillan

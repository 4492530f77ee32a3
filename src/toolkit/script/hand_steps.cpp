// What the user's hands do: menus, keys, and the mouse in the drawing area.
#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QMenuBar>
#include <QMouseEvent>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>
#include <iterator>

#include "toolkit/draw/plot_axes.h"
#include "toolkit/script/private_names.h"
#include "toolkit/script/private_script.h"
#include "toolkit/window/private_window.h"

namespace quillan::toolkit {

namespace {

constexpr int NDragMoves = 8;    // mouse moves of a drag
constexpr int NWheelStep = 120;  // angle of one step of a wheel, as mice report it

}  // namespace

std::string Play_Menu(Arguments sArgument) {
  const Meant hMeant = Number_Meant(sArgument[0], Named_Commands(), "the menu on show has no", "command");
  if (!hMeant.sReason.empty()) return hMeant.sReason;
  const std::vector<QAction*> hEntry = Menu_Entries(hMeant.iNumber);
  if (hEntry.empty()) return "the menu on show has no command " + sArgument[0];
  if (!hEntry.front()->isEnabled()) return "command " + sArgument[0] + " is greyed";
  hEntry.front()->trigger();
  return "";
}

namespace {

constexpr struct {
  std::string_view sName;
  Qt::Key iKey;
} hKeyName[] = {
    {"Esc",    Qt::Key_Escape  },
    {"Up",     Qt::Key_Up      },
    {"Down",   Qt::Key_Down    },
    {"Left",   Qt::Key_Left    },
    {"Right",  Qt::Key_Right   },
    {"Enter",  Qt::Key_Return  },
    {"Tab",    Qt::Key_Tab     },
    {"PgDown", Qt::Key_PageDown},
    {"PgUp",   Qt::Key_PageUp  },
    {"Space",  Qt::Key_Space   },
    {"F1",     Qt::Key_F1      },
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
  if (hKey.iKey == Qt::Key_Space) hKey.sText = " ";
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

/// Ctrl+S, F1 and the like choose their entry, Alt and a marked letter choose or open theirs, as the window system does
/// before a key reaches the focus.
bool Takes_Shortcut(const KeyStroke& hKey) {
  if (!Main_Window() || Child_Window() || Waits_First()) return false;
  const QKeySequence hSequence(QKeyCombination(hKey.iModifiers, static_cast<Qt::Key>(hKey.iKey)));
  QMenuBar* hBar = Main_Window()->menuBar();
  if (!hBar->isEnabled()) return false;
  const auto hEntries = hBar->findChildren<QAction*>();
  for (QAction* hEntry : hEntries) {
    const bool bMarked = hBar->actions().contains(hEntry) && QKeySequence::mnemonic(hEntry->text()) == hSequence;
    if (!hEntry->isEnabled() || (!hEntry->shortcuts().contains(hSequence) && !bMarked)) continue;
    if (hEntry->menu())
      hBar->setActiveAction(hEntry);
    else
      hEntry->trigger();
    return true;
  }
  return false;
}

}  // namespace

std::string Key_Name(const QKeyEvent& hKey) {
  std::string sName;
  for (const auto& hRow : hKeyName) {
    if (hKey.key() == hRow.iKey || (hKey.key() == Qt::Key_Enter && hRow.iKey == Qt::Key_Return)) sName = hRow.sName;
  }
  // The case of a letter says whether Shift was held.
  const bool bNamed = !sName.empty();
  const bool bCommand = hKey.modifiers() & (Qt::ControlModifier | Qt::AltModifier);
  const bool bCharacter = hKey.key() <= 0xFFFF;  // the keys without one have their codes above
  if (sName.empty()) sName = To_Bytes(bCommand && bCharacter ? QString(QChar(hKey.key())) : hKey.text());
  if (sName.empty()) return "";
  std::string sHeld;
  for (const auto& hRow : hModifierName) {
    const bool bSays = hRow.iModifier != Qt::ShiftModifier || bNamed || bCommand;
    if (bSays && (hKey.modifiers() & hRow.iModifier)) sHeld += hRow.sName;
  }
  return sHeld + sName;
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

namespace {

struct ButtonName {
  std::string_view sName;
  Qt::MouseButton iButton;
};
constexpr ButtonName hButtonName[] = {
    {"left",    Qt::LeftButton   },
    {"right",   Qt::RightButton  },
    {"middle",  Qt::MiddleButton },
    {"back",    Qt::BackButton   },
    {"forward", Qt::ForwardButton}
};

/// The words after the places of a mouse step.
struct Hand {
  Qt::MouseButton iButton = Qt::LeftButton;
  Qt::KeyboardModifiers iHeld;  // keys
};

/// The row of a name; null where there is none.
const auto* Row_of(const auto& hTable, std::string_view sName) {
  const auto* hFound = std::ranges::find_if(hTable, [&](const auto& h) { return h.sName == sName; });
  return hFound == std::end(hTable) ? nullptr : hFound;
}

/// Buttons and keys in any order; a word that names neither leaves no button.
Hand Hand_of(Arguments sWord) {
  Hand h;
  for (const std::string& s : sWord) {
    const auto* hButton = Row_of(hButtonName, s);
    const auto* hKey = Row_of(hModifierName, s + "+");
    if (hKey)
      h.iHeld |= hKey->iModifier;
    else
      h.iButton = hButton ? hButton->iButton : Qt::NoButton;
    if (h.iButton == Qt::NoButton) break;
  }
  return h;
}

QPointF Pixel(const std::string& sX, const std::string& sY) {
  return Step_Pixel(QPointF(Number(sX), Number(sY)));
}

bool Is_in_Area(QPointF hPixel) {
  return QRectF(Drawing_Area()->rect()).contains(hPixel);
}

struct MouseAct {
  QEvent::Type iType;
  Qt::MouseButton iButton;    // that acts
  Qt::MouseButtons iPressed;  // that are down
};

void Send_Mouse(const MouseAct& h, QPointF hPixel, Qt::KeyboardModifiers iHeld) {
  QMouseEvent hEvent(h.iType, hPixel, Drawing_Area()->mapToGlobal(hPixel), h.iButton, h.iPressed, iHeld);
  QCoreApplication::sendEvent(Drawing_Area(), &hEvent);
}

std::string Click_at(QPointF hPixel, const Hand& h) {
  if (h.iButton == Qt::NoButton) return "the button is left, right, middle, back or forward";
  if (!Is_in_Area(hPixel)) return "the position lies outside the drawing area";
  Send_Mouse({QEvent::MouseMove, Qt::NoButton, Qt::NoButton}, hPixel, h.iHeld);
  Send_Mouse({QEvent::MouseButtonPress, h.iButton, h.iButton}, hPixel, h.iHeld);
  Send_Mouse({QEvent::MouseButtonRelease, h.iButton, Qt::NoButton}, hPixel, h.iHeld);
  return "";
}

}  // namespace

std::string_view Button_Name(Qt::MouseButton iButton) {
  const auto hRow = std::ranges::find(hButtonName, iButton, &ButtonName::iButton);
  return hRow == std::end(hButtonName) ? "" : hRow->sName;
}

std::string Hand_Words(const QMouseEvent& hPress) {
  const bool bPlain = hPress.button() == Qt::LeftButton;
  std::string sWords = bPlain ? "" : ' ' + std::string(Button_Name(hPress.button()));
  if (hPress.modifiers() & Qt::ShiftModifier) sWords += " Shift";
  if (hPress.modifiers() & Qt::ControlModifier) sWords += " Ctrl";
  return sWords;
}

QPointF Step_Pixel(QPointF hUnit) {
  constexpr R8 dWhole = 1.0E-3;  // pixels
  const auto Snapped = [](R8 d) { return std::abs(d - std::round(d)) < dWhole ? std::round(d) : d; };
  const QPointF hPixel = Units_to_Pixels(hUnit);
  return {Snapped(hPixel.x()), Snapped(hPixel.y())};
}

std::string Play_Click(Arguments sArgument) {
  return Click_at(Pixel(sArgument[0], sArgument[1]), Hand_of(sArgument.subspan(2)));
}

std::string Play_Drag(Arguments sArgument) {
  const QPointF hFrom = Pixel(sArgument[0], sArgument[1]);
  const QPointF hTo = Pixel(sArgument[2], sArgument[3]);
  const Hand h = Hand_of(sArgument.subspan(4));
  if (h.iButton != Qt::LeftButton && h.iButton != Qt::RightButton) return "the button is left or right";
  if (!Is_in_Area(hFrom) || !Is_in_Area(hTo)) return "the position lies outside the drawing area";
  Send_Mouse({QEvent::MouseMove, Qt::NoButton, Qt::NoButton}, hFrom, h.iHeld);
  Send_Mouse({QEvent::MouseButtonPress, h.iButton, h.iButton}, hFrom, h.iHeld);
  for (int I = 1; I <= NDragMoves; ++I) {
    Send_Mouse({QEvent::MouseMove, Qt::NoButton, h.iButton}, hFrom + (hTo - hFrom) * I / NDragMoves, h.iHeld);
  }
  Send_Mouse({QEvent::MouseButtonRelease, h.iButton, Qt::NoButton}, hTo, h.iHeld);
  return "";
}

namespace {

constexpr std::string_view sNoAxes = "there are no plot axes";

/// The pixel of the numbers that the axes show.
QPointF Plot_Pixel(Arguments sArgument) {
  const GrPoint h = IPgNumbersToGrUnits(Number(sArgument[0]), Number(sArgument[1]));
  return Step_Pixel(QPointF(R8{h.fX}, R8{h.fY}));
}

}  // namespace

std::string Play_Point(Arguments sArgument) {
  if (!IPg_Is_Plotting()) return std::string(sNoAxes);
  const Hand hHand = Hand_of(sArgument.subspan(2));
  if (hHand.iButton != Qt::LeftButton && hHand.iButton != Qt::RightButton) return "the button is left or right";
  return Click_at(Plot_Pixel(sArgument), hHand);
}

std::string Play_Hover(Arguments sArgument) {
  if (!IPg_Is_Plotting()) return std::string(sNoAxes);
  const QPointF hPixel = Plot_Pixel(sArgument);
  if (!Is_in_Area(hPixel)) return "the position lies outside the drawing area";
  Send_Mouse({QEvent::MouseMove, Qt::NoButton, Qt::NoButton}, hPixel, Qt::NoModifier);
  return "";
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

}  // namespace quillan::toolkit

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

}  // namespace

std::string Key_Name(const QKeyEvent& hKey) {
  std::string sName;
  for (const auto& hRow : hKeyName) {
    if (hKey.key() == hRow.iKey || (hKey.key() == Qt::Key_Enter && hRow.iKey == Qt::Key_Return)) sName = hRow.sName;
  }
  // The case of a letter says whether Shift was held.
  const bool bNamed = !sName.empty() || hKey.text() == " ";
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

/// The button that argument iArgument names; left without one; none for a word that names none.
Qt::MouseButton Button(Arguments sArgument, std::size_t iArgument) {
  if (sArgument.size() <= iArgument) return Qt::LeftButton;
  for (const auto& hRow : hButtonName) {
    if (sArgument[iArgument] == hRow.sName) return hRow.iButton;
  }
  return Qt::NoButton;
}

QPointF Pixel(const std::string& sX, const std::string& sY) {
  return Step_Pixel(QPointF(Number(sX), Number(sY)));
}

bool Is_in_Area(QPointF hPixel) {
  return QRectF(Drawing_Area()->rect()).contains(hPixel);
}

void Send_Mouse(QEvent::Type iType, QPointF hPixel, Qt::MouseButton iButton, Qt::MouseButtons iHeld) {
  QMouseEvent hEvent(iType, hPixel, Drawing_Area()->mapToGlobal(hPixel), iButton, iHeld, Qt::NoModifier);
  QCoreApplication::sendEvent(Drawing_Area(), &hEvent);
}

std::string Click_at(QPointF hPixel, Qt::MouseButton iButton) {
  if (iButton == Qt::NoButton) return "the button is left, right, middle, back or forward";
  if (!Is_in_Area(hPixel)) return "the position lies outside the drawing area";
  Send_Mouse(QEvent::MouseMove, hPixel, Qt::NoButton, Qt::NoButton);
  Send_Mouse(QEvent::MouseButtonPress, hPixel, iButton, iButton);
  Send_Mouse(QEvent::MouseButtonRelease, hPixel, iButton, Qt::NoButton);
  return "";
}

}  // namespace

std::string_view Button_Name(Qt::MouseButton iButton) {
  const auto hRow = std::ranges::find(hButtonName, iButton, &ButtonName::iButton);
  return hRow == std::end(hButtonName) ? "" : hRow->sName;
}

QPointF Step_Pixel(QPointF hUnit) {
  constexpr R8 dWhole = 1.0E-3;  // pixels
  const auto Snapped = [](R8 d) { return std::abs(d - std::round(d)) < dWhole ? std::round(d) : d; };
  const QPointF hPixel = Units_to_Pixels(hUnit);
  return {Snapped(hPixel.x()), Snapped(hPixel.y())};
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
  const GrPoint h = IPgUnitsToGrUnits(static_cast<R4>(Number(sArgument[0])), static_cast<R4>(Number(sArgument[1])));
  return Click_at(Step_Pixel(QPointF(R8{h.fX}, R8{h.fY})), iButton);
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

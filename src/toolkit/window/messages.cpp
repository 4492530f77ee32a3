#include "toolkit/window/messages.h"

#include <QAction>
#include <QApplication>
#include <QDeadlineTimer>
#include <QDropEvent>
#include <QEventLoop>
#include <QFile>
#include <QFileInfo>
#include <QKeyEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QStatusTipEvent>
#include <QThread>
#include <QTimer>
#include <QUrl>
#include <QWheelEvent>
#include <QWindow>
#include <algorithm>
#include <deque>
#include <map>
#include <memory>
#include <new>
#include <utility>

#include "toolkit/draw/draw.h"
#include "toolkit/window/log_text.h"
#include "toolkit/window/private_window.h"

namespace quillan {

using namespace toolkit;

namespace {

// What the user did and the program has not yet asked for. Push_Message fills it, WMessage takes from it.
struct MessageQueue {
  std::deque<Message> hWaiting;  // oldest first
  bool bMoves = false;           // whether MouseMove messages are wanted
  bool bFields = false;          // whether Field messages are wanted
  std::map<I4, std::unique_ptr<QTimer>> hTimer;
  I4 iWheelAngle = 0;    // turned, less than a step, up is positive
  std::string sDropped;  // path of the last file dropped
};
MessageQueue hQueue;

/// The waiting message that a new one takes the place of, null where there is none: one redraw serves any number of
/// exposures, and of mouse moves in a row, or moves of one trackbar, only the last one counts.
Message* Same_Waiting(const Message& hNew) {
  auto& hWaiting = hQueue.hWaiting;
  if (hWaiting.empty()) return nullptr;
  Message& hLast = hWaiting.back();
  switch (hNew.iType) {
    case MessageType::MouseMove: return hLast.iType == hNew.iType ? &hLast : nullptr;
    case MessageType::Field: return hLast.iType == hNew.iType && hLast.VALUE1 == hNew.VALUE1 ? &hLast : nullptr;
    case MessageType::Expose:
    case MessageType::Resize:
    case MessageType::Close: {
      const auto hFound = std::ranges::find(hWaiting, hNew.iType, &Message::iType);
      return hFound == hWaiting.end() ? nullptr : &*hFound;
    }
    default: return nullptr;
  }
}

/// The message that waits longest; of type None where none waits.
Message Take_Message() {
  if (hQueue.hWaiting.empty()) return {};
  const Message hMessage = hQueue.hWaiting.front();
  hQueue.hWaiting.pop_front();
  hWindowListener.Taken(hMessage);
  return hMessage;
}

constexpr auto iAnyModifier = Qt::KeyboardModifiers::fromInt(-1);

/// Keys that have no character of their own. The first row of a code gives its name.
constexpr struct NamedKey {
  Qt::Key iQtKey;
  Qt::KeyboardModifiers iModifiers;  // iAnyModifier: the key means the same with all of them
  I4 iKey;
  std::string_view sName;
} hNamedKey[] = {
    {Qt::Key_Z,      Qt::ControlModifier,                     iKeyUndo,       "Ctrl+Z"     },
    {Qt::Key_Y,      Qt::ControlModifier,                     iKeyRedo,       "Ctrl+Y"     },
    {Qt::Key_Z,      Qt::ControlModifier | Qt::ShiftModifier, iKeyRedo,       ""           },
    {Qt::Key_Y,      Qt::ControlModifier | Qt::ShiftModifier, iKeyRedo,       ""           },
    {Qt::Key_E,      Qt::ControlModifier,                     iKeyCtrlE,      "Ctrl+E"     },
    {Qt::Key_H,      Qt::ControlModifier,                     iKeyCtrlH,      "Ctrl+H"     },
    {Qt::Key_T,      Qt::ControlModifier,                     iKeyCtrlT,      "Ctrl+T"     },
    {Qt::Key_Up,     Qt::ControlModifier,                     iKeyCtrlUp,     "Ctrl+Up"    },
    {Qt::Key_Down,   Qt::ControlModifier,                     iKeyCtrlDown,   "Ctrl+Down"  },
    {Qt::Key_Left,   Qt::ControlModifier,                     iKeyCtrlLeft,   "Ctrl+Left"  },
    {Qt::Key_Right,  Qt::ControlModifier,                     iKeyCtrlRight,  "Ctrl+Right" },
    {Qt::Key_Space,  Qt::ShiftModifier,                       iKeyShiftSpace, "Shift+Space"},
    {Qt::Key_Space,  Qt::NoModifier,                          iKeySpace,      "Space"      },
    {Qt::Key_F1,     Qt::NoModifier,                          iKeyF1,         "F1"         },
    {Qt::Key_Escape, iAnyModifier,                            iKeyEsc,        "Esc"        },
    {Qt::Key_Return, iAnyModifier,                            iKeyEnter,      "Enter"      },
    {Qt::Key_Enter,  iAnyModifier,                            iKeyEnter,      ""           },
    {Qt::Key_Tab,    iAnyModifier,                            iKeyTab,        "Tab"        },
    {Qt::Key_Up,     iAnyModifier,                            iKeyUp,         "Up"         },
    {Qt::Key_Down,   iAnyModifier,                            iKeyDown,       "Down"       },
    {Qt::Key_Left,   iAnyModifier,                            iKeyLeft,       "Left"       },
    {Qt::Key_Right,  iAnyModifier,                            iKeyRight,      "Right"      },
};

/// The arrows of a number block come with a mark of their own.
bool Is_Meant(const NamedKey& hRow, const QKeyEvent& hEvent) {
  const auto iModifiers = hEvent.modifiers() & ~Qt::KeypadModifier;
  return hEvent.key() == hRow.iQtKey && (hRow.iModifiers == iAnyModifier || iModifiers == hRow.iModifiers);
}

/// The character or the code of a key; 0 for keys that mean nothing to the program.
I4 Key_Code(const QKeyEvent& hEvent) {
  for (const auto& hRow : hNamedKey) {
    if (Is_Meant(hRow, hEvent)) return hRow.iKey;
  }
  if (hEvent.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) return 0;
  const auto hCharacter = hEvent.text().toUcs4();
  return hCharacter.isEmpty() || !QChar::isPrint(hCharacter[0]) ? 0 : static_cast<I4>(hCharacter[0]);
}

I4 Button_Number(Qt::MouseButton iButton) {
  switch (iButton) {
    case Qt::LeftButton: return iMouseLeft;
    case Qt::MiddleButton: return iMouseMiddle;
    case Qt::RightButton: return iMouseRight;
    case Qt::BackButton: return iMouseBack;
    case Qt::ForwardButton: return iMouseForward;
    default: return 0;
  }
}

Message At_Pixel(MessageType iType, QPointF hPixel) {
  const QPointF hUnit = Pixels_to_Units(hPixel);
  Message hMessage{.iType = iType};
  hMessage.X = qFloor(hPixel.x());
  hMessage.Y = qFloor(hPixel.y());
  hMessage.GX = static_cast<R4>(hUnit.x());
  hMessage.GY = static_cast<R4>(hUnit.y());
  hMessage.VALUE3 = Child_Window() ? iInChild : 0;
  return hMessage;
}

void On_Mouse(MessageType iType, const QMouseEvent& hEvent) {
  Message hMessage = At_Pixel(iType, hEvent.position());
  hMessage.VALUE1 = Button_Number(hEvent.button());
  hMessage.bShift = hEvent.modifiers().testFlag(Qt::ShiftModifier);
  hMessage.bCtrl = hEvent.modifiers().testFlag(Qt::ControlModifier);
  if (hMessage.VALUE1 == 0 && iType != MessageType::MouseMove) return;
  if (iType == MessageType::MouseDown) {
    hDialogs.Focus_Plot();
    hWindowListener.Press(hEvent);
  } else if (iType == MessageType::MouseUp) {
    hWindowListener.Release(hEvent);
  }
  Push_Message(hMessage);
}

constexpr I4 NWheelStep = 120;  // angle of one step, as mice report it; trackpads report parts of it

/// Whole steps that the wheel has turned, down is positive. What is less than a step waits for the rest of it.
I4 Wheel_Steps(const QWheelEvent& hEvent) {
  const I4 iAngle = hEvent.angleDelta().y();
  const bool bNew = hEvent.phase() == Qt::ScrollBegin || (iAngle > 0) != (hQueue.iWheelAngle > 0);
  if (iAngle != 0) hQueue.iWheelAngle = (bNew ? 0 : hQueue.iWheelAngle) + iAngle;
  const I4 NStep = hQueue.iWheelAngle / NWheelStep;
  hQueue.iWheelAngle -= NStep * NWheelStep;
  return -NStep;
}

/// Paging by the wheel ends when the user stops: what is turned while the steps before it still wait is dropped, and
/// a turn the other way takes their place.
void Push_Wheel(Message hMessage, I4 NStep) {
  hMessage.VALUE1 = NStep > 0 ? iMouseForward : iMouseBack;
  hMessage.VALUE2 = iByWheel;
  const auto Is_Wheel = [](const Message& h) { return h.iType == MessageType::MouseDown && h.VALUE2 == iByWheel; };
  const auto hFound = std::ranges::find_if(hQueue.hWaiting, Is_Wheel);
  if (hFound != hQueue.hWaiting.end() && hFound->VALUE1 == hMessage.VALUE1) return;
  std::erase_if(hQueue.hWaiting, Is_Wheel);
  for (I4 I = 1; I <= std::abs(NStep); ++I) Push_Message(hMessage);
}

/// The data file that is dragged over the window, blank for anything else or while the program could not open it.
QString Dragged_File(const QDropEvent& hEvent) {
  if (!Main_Menu_Is_Ready() || hDialogs.Top_Dialog() || Open_Box() || Open_File_Dialog()) return {};
  const QList<QUrl> hUrls = hEvent.mimeData()->urls();
  if (hUrls.size() != 1 || !hUrls[0].isLocalFile()) return {};
  const QString sExt = QFileInfo(hUrls[0].toLocalFile()).suffix().toLower();
  return sExt == "avg" || sExt == "xdb" || sExt == "z" ? hUrls[0].toLocalFile() : QString();
}

void On_Drag(QDropEvent& hEvent) {
  const QString sFile = Dragged_File(hEvent);
  if (sFile.isEmpty()) return hEvent.ignore();
  hEvent.acceptProposedAction();
  if (hEvent.type() != QEvent::Drop) return;
  hWindowListener.Drop(sFile);
  hQueue.sDropped = QFile::encodeName(sFile).toStdString();
  Push_Message({.iType = MessageType::FileDropped});
}

class AreaWatch : public QObject {
 public:
  using QObject::QObject;

 protected:
  bool eventFilter(QObject* hWatched, QEvent* hEvent) override {
    if (hWatched != Drawing_Area()) return false;  // a child window lies over it
    switch (hEvent->type()) {
      case QEvent::KeyPress: return Key_to_Plot(*static_cast<QKeyEvent*>(hEvent));
      case QEvent::MouseButtonPress:
      case QEvent::MouseButtonDblClick:
        On_Mouse(MessageType::MouseDown, *static_cast<QMouseEvent*>(hEvent));
        return true;
      case QEvent::MouseButtonRelease: On_Mouse(MessageType::MouseUp, *static_cast<QMouseEvent*>(hEvent)); return true;
      case QEvent::MouseMove: On_Mouse(MessageType::MouseMove, *static_cast<QMouseEvent*>(hEvent)); return true;
      case QEvent::Wheel: Wheel_to_Plot(*static_cast<QWheelEvent*>(hEvent)); return true;
      case QEvent::Resize: Follow_Size(MessageType::Resize); return false;
      case QEvent::Show: Follow_Size(MessageType::Expose); return false;
      default: return false;
    }
  }
};

class WindowWatch : public QObject {
 public:
  using QObject::QObject;

 protected:
  bool eventFilter(QObject* hWatched, QEvent* hEvent) override {
    switch (hEvent->type()) {
      case QEvent::Close:
        hEvent->ignore();  // the program decides
        hWindowListener.Close();
        Push_Message({.iType = MessageType::Close, .VALUE3 = hWatched == Child_Window() ? iInChild : 0});
        return true;
      case QEvent::StatusTip: Show_Hint(static_cast<QStatusTipEvent*>(hEvent)->tip()); return true;
      case QEvent::DragEnter:
      case QEvent::DragMove:
      case QEvent::Drop: On_Drag(*static_cast<QDropEvent*>(hEvent)); return true;
      default: return false;
    }
  }
};

// What WAfter was given.
struct Later {
  void (*Carry_Out)() = nullptr;
  QDeadlineTimer hWhen;
};
Later hLater;

void Do_What_Is_Due() {
  Help_if_Wanted();
  if (hLater.Carry_Out && hLater.hWhen.hasExpired()) std::exchange(hLater.Carry_Out, nullptr)();
}

constexpr int MSettle = 1000;        // rounds of events before a step is played in any case
constexpr int NMsecOnScreen = 2000;  // for a window system to show the window

/// Handles events until there are none: what a step caused is done before the next one is played.
void Settle() {
  QEventLoop hLoop;
  for (int I = 0; I < MSettle && hLoop.processEvents(); ++I) {
  }
}

/// A window system shows a window in its own time, and only then do sizes and focus hold.
void Await_Window() {
  const QWindow* hWindow = Active_Window() ? Active_Window()->windowHandle() : nullptr;
  for (int I = 0; hWindow && hWindow->isVisible() && !hWindow->isExposed() && I < NMsecOnScreen; ++I) {
    QCoreApplication::processEvents();
    QThread::msleep(1);
  }
}

}  // namespace

bool toolkit::Is_Wanted(MessageType iType) {
  return iType == MessageType::MouseMove ? hQueue.bMoves : iType == MessageType::Field ? hQueue.bFields : true;
}

void toolkit::Push_Message(Message hMessage) {
  if (!Is_Wanted(hMessage.iType)) return;
  if (Message* hSame = Same_Waiting(hMessage))
    *hSame = hMessage;
  else
    hQueue.hWaiting.push_back(hMessage);
}

bool toolkit::Key_to_Plot(const QKeyEvent& hEvent) {
  const I4 iKey = Key_Code(hEvent);
  if (iKey == 0) return false;
  // Paging with a key held down ends when it is released: a repeat is dropped while the key before it still waits.
  const bool bSame = !hQueue.hWaiting.empty() && hQueue.hWaiting.back().iType == MessageType::Key &&
                     hQueue.hWaiting.back().VALUE1 == iKey;
  if (hEvent.isAutoRepeat() && bSame) return true;
  hDialogs.Complete_Edits();
  hWindowListener.Key(hEvent);
  Push_Message({.iType = MessageType::Key, .VALUE1 = iKey});
  return true;
}

void toolkit::Wheel_to_Plot(const QWheelEvent& hEvent) {
  if (hEvent.phase() == Qt::ScrollMomentum) return;  // the fingers have left the trackpad
  const I4 NStep = Wheel_Steps(hEvent);
  if (NStep == 0) return;
  hDialogs.Complete_Edits();
  Push_Wheel(At_Pixel(MessageType::MouseDown, Drawing_Area()->mapFromGlobal(hEvent.globalPosition())), NStep);
}

void toolkit::Wait_Until(const std::function<bool()>& bDone) {
  if (!QCoreApplication::instance()) return;
  if (!bDone()) Flush_Screen();
  Suspend_Busy(true);
  Do_What_Is_Due();
  while (!bDone()) {
    if (hPlayStep) {
      Await_Window();
      Settle();
    } else {
      QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    Do_What_Is_Due();
    if (!bDone()) {
      LogText_Follow();
      if (hPlayStep) hPlayStep();
    }
    // What widgets gave up would be kept to the end: an event loop of the application, which deletes it, never runs.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    if (Memory_Has_Ended()) {
      Suspend_Busy(false);
      throw std::bad_alloc();
    }
  }
  Suspend_Busy(false);
}

void toolkit::Drop_Messages() {
  hQueue = {};
}

void toolkit::Drop_Child_Messages() {
  std::erase_if(hQueue.hWaiting, [](const Message& h) {
    switch (h.iType) {
      case MessageType::Menu:
      case MessageType::Button:
      case MessageType::Field:
      case MessageType::FileDropped: return false;
      case MessageType::Close: return h.VALUE3 == iInChild;
      default: return true;
    }
  });
}

void toolkit::Follow_Size(MessageType iType) {
  Resize_Backing_Image();
  Push_Message({.iType = iType, .WPIX = Drawing_Area()->width(), .HPIX = Drawing_Area()->height()});
}

void toolkit::Watch_Window(QMainWindow* hWindow, QWidget* hArea) {
  hArea->installEventFilter(new AreaWatch(hArea));
  hWindow->installEventFilter(new WindowWatch(hWindow));
  hWindow->setAcceptDrops(true);
}

void toolkit::Press_Esc_at_Look() {
  if (!std::exchange(bEscAtLook, false) || !Drawing_Area()) return;
  QKeyEvent hEvent(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
  QCoreApplication::sendEvent(Drawing_Area(), &hEvent);
}

void toolkit::Watch_Entry(QAction* hEntry, I4 iCommand, bool bIsStep) {
  QObject::connect(hEntry, &QAction::triggered, hEntry, [iCommand, bIsStep] {
    hDialogs.Focus_Plot();
    if (bIsStep) hWindowListener.Menu(iCommand);
    Push_Message({.iType = MessageType::Menu, .VALUE1 = iCommand});
  });
}

std::string Key_Name(I4 iKey) {
  const auto h = std::ranges::find(hNamedKey, iKey, &NamedKey::iKey);
  return h == std::end(hNamedKey) ? std::string(1, static_cast<char>(iKey)) : std::string(h->sName);
}

Message WMessage() {
  Wait_Until([] { return !hQueue.hWaiting.empty() || !Main_Window(); });
  if (!hQueue.hWaiting.empty()) return Take_Message();
  // Without a window no message can come: a loop that waits for one must end.
  Set_Error(iErrNoWindow);
  return {.iType = MessageType::Close};
}

Message WMessagePeek() {
  Do_What_Is_Due();
  Flush_Screen();
  if (QCoreApplication::instance()) QCoreApplication::processEvents();
  return Take_Message();
}

void WAfter(I4 NMsec, void (*Carry_Out)()) {
  if (Carry_Out && hLater.Carry_Out) return;
  hLater = {Carry_Out, QDeadlineTimer(NMsec)};
  if (!Carry_Out || !QCoreApplication::instance()) return;
  // The event alone wakes the wait up; the work is not done inside it. Ahead of its time it would wake it for nothing.
  constexpr I4 NMsecLater = 5;
  QTimer::singleShot(NMsec + NMsecLater, Qt::PreciseTimer, QCoreApplication::instance(), [] {});
}

void WMessagePutBack(const Message& hMessage) {
  if (Main_Window()) hQueue.hWaiting.push_front(hMessage);
}

void WMessageEnable(MessageType iType, bool bOn) {
  switch (iType) {
    case MessageType::MouseMove:
      hQueue.bMoves = bOn;
      if (Drawing_Area()) Drawing_Area()->setMouseTracking(bOn);
      break;
    case MessageType::Field: hQueue.bFields = bOn; break;
    default: Set_Error(iErrBadArgument);
  }
}

void WMessageTimer(I4 NMsec, I4 iTimer) {
  hQueue.hTimer.erase(iTimer);
  std::erase_if(hQueue.hWaiting,
                [iTimer](const Message& h) { return h.iType == MessageType::Timer && h.VALUE1 == iTimer; });
  if (NMsec <= 0) return;
  if (!Main_Window()) return Set_Error(iErrNoWindow);
  auto& hTimer = hQueue.hTimer[iTimer] = std::make_unique<QTimer>();
  hTimer->setSingleShot(true);
  QObject::connect(hTimer.get(), &QTimer::timeout,
                   [iTimer] { Push_Message({.iType = MessageType::Timer, .VALUE1 = iTimer}); });
  hTimer->start(NMsec);
}

std::string WDroppedFile() {
  return hQueue.sDropped;
}

}  // namespace quillan

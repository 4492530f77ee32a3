// Points and boxes that the user sets with the mouse.
#include <algorithm>
#include <cmath>
#include <utility>

#include "review/plot/igr_util.h"
#include "toolkit/draw/draw.h"

namespace quillan {
namespace {

constexpr R4 fPlacedPixels = 8.0f;  // size of a box before its first corner is set
constexpr R4 fBegunPixels = 4.0f;   // and of one that begins at a corner
constexpr I4 MClickPixels = 4;      // a release farther from its press ends a drag

/// What the user does while a mouse routine waits.
enum class Gesture { Press, Release, Move, Leave };

/// Waits with a pointer of its own, and gives back what it borrowed.
class MouseRoutine {
 public:
  explicit MouseRoutine(I4 iMouseCursor) { WCursorShape(iMouseCursor); }
  ~MouseRoutine() {
    WMessageEnable(MessageType::MouseMove, false);
    WCursorShape(iCursorArrow);
    // The image was stretched meanwhile; the loop that called draws it anew.
    if (bResized) WMessagePutBack(MessageType::Resize, hResize);
  }
  MouseRoutine(const MouseRoutine&) = delete;
  MouseRoutine& operator=(const MouseRoutine&) = delete;

  Gesture Next(Message& hMessage) {
    for (;;) {
      MessageType iType = MessageType::None;
      WMessage(iType, hMessage);
      switch (iType) {
        case MessageType::Key:
          if (hMessage.VALUE1 == iKeyEsc) return Gesture::Leave;
          break;
        case MessageType::Close: WMessagePutBack(iType, hMessage); return Gesture::Leave;
        case MessageType::MouseDown:
          if (hMessage.VALUE2 != iByWheel) return Gesture::Press;
          break;
        case MessageType::MouseUp: return Gesture::Release;
        case MessageType::MouseMove: return Gesture::Move;
        case MessageType::Resize:
          bResized = true;
          hResize = hMessage;
          break;
        default: break;  // nothing else is of use before the point or the box is set
      }
    }
  }

 private:
  bool bResized = false;
  Message hResize;
};

/// A box between two corners, and its rubber band.
struct Box {
  R4 fX1, fY1, fX2, fY2;
  R4 fDXPIX, fDYPIX;  // size of a pixel
  bool bDrawn = false;

  /// In the middle of the graphics area.
  Box() {
    IGrPixelSize(fDXPIX, fDYPIX);
    Begin(0.5f * (WInfoGrReal(iUnitXMin) + WInfoGrReal(iUnitXMax)),
          0.5f * (WInfoGrReal(iUnitYMin) + WInfoGrReal(iUnitYMax)));
    fX1 = fX1 - 0.5f * fPlacedPixels * fDXPIX;
    fX2 = fX1 + fPlacedPixels * fDXPIX;
    fY1 = fY1 - 0.5f * fPlacedPixels * fDYPIX;
    fY2 = fY1 + fPlacedPixels * fDYPIX;
  }
  void Begin(R4 fX, R4 fY) {
    fX1 = fX;
    fY1 = fY;
    fX2 = fX + fBegunPixels * fDXPIX;
    fY2 = fY - fBegunPixels * fDYPIX;
  }
  bool Has_Size() const { return std::abs(fX2 - fX1) > std::abs(fDXPIX) && std::abs(fY2 - fY1) > std::abs(fDYPIX); }
  void Draw() {
    bDrawn = Has_Size();
    if (bDrawn) IGrRectangle(fX1, fY1, fX2, fY2);
  }
  void Erase() {
    if (bDrawn) IGrRectangle(fX1, fY1, fX2, fY2);
    bDrawn = false;
  }
  void Stretch(R4 fX, R4 fY) {
    Erase();
    fX2 = fX;
    fY2 = fY;
    Draw();
  }
};

/// Two places in rising order within the limits of the graphics area.
void Sort_and_Limit(R4& f1, R4& f2, I4 iLow, I4 iHigh) {
  if (f1 > f2) std::swap(f1, f2);
  const R4 fLow = std::min(WInfoGrReal(iLow), WInfoGrReal(iHigh));
  const R4 fHigh = std::max(WInfoGrReal(iLow), WInfoGrReal(iHigh));
  f1 = std::clamp(f1, fLow, fHigh);
  f2 = std::clamp(f2, fLow, fHigh);
}

void Sort_and_Limit_Box(R4& fXGr1, R4& fYGr1, R4& fXGr2, R4& fYGr2) {
  Sort_and_Limit(fXGr1, fXGr2, iUnitXMin, iUnitXMax);
  Sort_and_Limit(fYGr1, fYGr2, iUnitYMin, iUnitYMax);
}

bool Is_Drag(const Message& hPress, const Message& hRelease) {
  const I4 iDX = hRelease.X - hPress.X;
  const I4 iDY = hRelease.Y - hPress.Y;
  return iDX * iDX + iDY * iDY > MClickPixels * MClickPixels;
}

/// Waits for the press that sets the first corner; false on Esc.
bool Set_First_Corner(MouseRoutine& hMouse, Box& hBox, Message& hPress) {
  for (;;) {
    switch (hMouse.Next(hPress)) {
      case Gesture::Leave: return false;
      case Gesture::Press: hBox.Begin(hPress.GX, hPress.GY); return true;
      default: break;
    }
  }
}

/// Follows the pointer to the second corner; false on Esc, and where the box has no size.
bool Set_Second_Corner(MouseRoutine& hMouse, Box& hBox, const Message& hPress) {
  WCursorShape(iCursorBox);
  WMessageEnable(MessageType::MouseMove, true);
  hBox.Draw();
  for (;;) {
    Message hMessage;
    const Gesture iGesture = hMouse.Next(hMessage);
    if (iGesture == Gesture::Release && !Is_Drag(hPress, hMessage)) continue;  // of the click at the first corner
    if (iGesture != Gesture::Leave) hBox.Stretch(hMessage.GX, hMessage.GY);
    if (iGesture == Gesture::Move) continue;
    hBox.Erase();
    return iGesture != Gesture::Leave && hBox.Has_Size();
  }
}

/// As every mouse routine leaves the drawing.
void End_Drawing() {
  IGrColour("BLACK");
  IGrPlotMode1("N");
}

}  // namespace

void IGr_GetMousePoint(I4 iMouseCursor, R4& fXGr1, R4& fYGr1, I4& iError) {
  iError = 0;
  MouseRoutine hMouse(iMouseCursor);
  for (bool bWaiting = true; bWaiting;) {
    Message hMessage;
    const Gesture iGesture = hMouse.Next(hMessage);
    if (iGesture == Gesture::Leave) iError = 1;
    if (iGesture == Gesture::Press) {
      fXGr1 = hMessage.GX;
      fYGr1 = hMessage.GY;
    }
    bWaiting = iGesture != Gesture::Leave && iGesture != Gesture::Press;
  }
  End_Drawing();
}

void IGr_ZoomMouseBox(I4 iMouseCursor, R4& fXGr1, R4& fYGr1, R4& fXGr2, R4& fYGr2, I4& iError) {
  {
    const GraphicsKeeper hKeep;
    MouseRoutine hMouse(iMouseCursor);
    IGrColour("RED");
    IGrPlotMode1("E");
    Box hBox;
    Message hPress;
    const bool bSet = Set_First_Corner(hMouse, hBox, hPress) && Set_Second_Corner(hMouse, hBox, hPress);
    iError = bSet ? 0 : 1;
    fXGr1 = hBox.fX1;
    fYGr1 = hBox.fY1;
    fXGr2 = hBox.fX2;
    fYGr2 = hBox.fY2;
  }
  Sort_and_Limit_Box(fXGr1, fYGr1, fXGr2, fYGr2);
  End_Drawing();
}

void IGr_SelectMouseBox(const Message& hMessage, R4& fXGr1, R4& fYGr1, R4& fXGr2, R4& fYGr2, I4& IOERR) {
  fXGr1 = hMessage.GX;
  fYGr1 = hMessage.GY;
  fXGr2 = hMessage.GX;
  fYGr2 = hMessage.GY;
  {
    const GraphicsKeeper hKeep;
    IGrLineType(LineType::Solid);
    IGrColour("RED");
    MessageType iType = MessageType::None;
    WGrInputBox(hMessage, fXGr2, fYGr2, iType);
    IOERR = iType == MessageType::MouseUp ? 0 : 1;
  }
  Sort_and_Limit_Box(fXGr1, fYGr1, fXGr2, fYGr2);
  End_Drawing();
}

}  // namespace quillan

#include "review/plot/plot_mouse.h"

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

namespace quillan {
namespace {

constexpr R4 fPlacedPixels = 8.0f;  // size of a box before its first corner is set
constexpr R4 fBegunPixels = 4.0f;   // and of one that begins at a corner
constexpr I4 MClickPixels = 4;      // a release farther from its press ends a drag

/// What the user does while a mouse routine waits.
enum class MouseAct { Press, Release, Move, Leave };

/// Waits with a pointer of its own, and gives back what it borrowed.
class MouseRoutine {
 public:
  explicit MouseRoutine(I4 iMouseCursor) { WCursorShape(iMouseCursor); }
  ~MouseRoutine() {
    WMessageEnable(MessageType::MouseMove, false);
    WCursorShape(iCursorArrow);
    for (; !hAside.empty(); hAside.pop_back()) WMessagePutBack(hAside.back());
  }
  MouseRoutine(const MouseRoutine&) = delete;
  MouseRoutine& operator=(const MouseRoutine&) = delete;

  MouseAct Next(Message& hMessage) {
    for (;;) {
      hMessage = WMessage();
      switch (hMessage.iType) {
        case MessageType::Key:
          if (hMessage.VALUE1 == iKeyEsc) return MouseAct::Leave;
          break;
        case MessageType::Close: WMessagePutBack(hMessage); return MouseAct::Leave;
        case MessageType::MouseDown:
          if (hMessage.VALUE2 != iByWheel) return MouseAct::Press;
          break;
        case MessageType::MouseUp: return MouseAct::Release;
        case MessageType::MouseMove: return MouseAct::Move;
        case MessageType::Expose:
        case MessageType::Resize:
        case MessageType::Field: Put_Aside(hMessage); break;
        default: break;  // nothing else is of use before the point or the box is set
      }
    }
  }

 private:
  /// The loop that called answers when the gesture is over: it draws the stretched image again, and takes what was
  /// chosen in the tool window. The last one counts of each kind and control.
  void Put_Aside(const Message& hMessage) {
    std::erase_if(hAside, [&](const Message& h) { return h.iType == hMessage.iType && h.VALUE1 == hMessage.VALUE1; });
    hAside.push_back(hMessage);
  }

  std::vector<Message> hAside;  // in the order in which they came
};

/// A box between two corners, and its rubber band.
struct Band : GrBox {
  GrPoint hPixel = IGrPixelSize();
  bool bDrawn = false;

  /// In the middle of the graphics area.
  Band() {
    fX1 = 0.5f * (WInfoGrReal(iUnitXMin) + WInfoGrReal(iUnitXMax)) - 0.5f * fPlacedPixels * hPixel.fX;
    fY1 = 0.5f * (WInfoGrReal(iUnitYMin) + WInfoGrReal(iUnitYMax)) - 0.5f * fPlacedPixels * hPixel.fY;
    fX2 = fX1 + fPlacedPixels * hPixel.fX;
    fY2 = fY1 + fPlacedPixels * hPixel.fY;
  }
  void Begin(R4 fX, R4 fY) {
    fX1 = fX;
    fY1 = fY;
    fX2 = fX + fBegunPixels * hPixel.fX;
    fY2 = fY - fBegunPixels * hPixel.fY;
  }
  bool Has_Size() const {
    return std::abs(fX2 - fX1) > std::abs(hPixel.fX) && std::abs(fY2 - fY1) > std::abs(hPixel.fY);
  }
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

bool Is_Drag(const Message& hPress, const Message& hRelease) {
  const I4 iDX = hRelease.X - hPress.X;
  const I4 iDY = hRelease.Y - hPress.Y;
  return iDX * iDX + iDY * iDY > MClickPixels * MClickPixels;
}

/// Waits for the next press; false on Esc.
bool Next_Press(MouseRoutine& hMouse, Message& hPress) {
  for (;;) {
    const MouseAct iAct = hMouse.Next(hPress);
    if (iAct == MouseAct::Press || iAct == MouseAct::Leave) return iAct == MouseAct::Press;
  }
}

/// Follows the pointer to the second corner; false on Esc, and where the box has no size.
bool Set_Second_Corner(MouseRoutine& hMouse, Band& hBand, const Message& hPress) {
  WCursorShape(iCursorBox);
  WMessageEnable(MessageType::MouseMove, true);
  hBand.Draw();
  for (;;) {
    Message hMessage;
    const MouseAct iAct = hMouse.Next(hMessage);
    if (iAct == MouseAct::Release && !Is_Drag(hPress, hMessage)) continue;  // of the click at the first corner
    if (iAct != MouseAct::Leave) hBand.Stretch(hMessage.GX, hMessage.GY);
    if (iAct == MouseAct::Move) continue;
    hBand.Erase();
    return iAct != MouseAct::Leave && hBand.Has_Size();
  }
}

/// As every mouse routine leaves the drawing.
void End_Drawing() {
  IGrColour("BLACK");
  IGrPlotMode1("N");
}

MouseBox Finished(MouseBox h) {
  Sort_and_Limit(h.hBox.fX1, h.hBox.fX2, iUnitXMin, iUnitXMax);
  Sort_and_Limit(h.hBox.fY1, h.hBox.fY2, iUnitYMin, iUnitYMax);
  End_Drawing();
  return h;
}

}  // namespace

L4 Is_Box(const GrBox& h) {
  return std::abs(h.fX2 - h.fX1) * std::abs(h.fY2 - h.fY1) >= fLeastBox;
}

MousePoint IGr_GetMousePoint(I4 iMouseCursor) {
  MouseRoutine hMouse(iMouseCursor);
  Message hPress;
  const bool bSet = Next_Press(hMouse, hPress);
  End_Drawing();
  return {
      {hPress.GX, hPress.GY},
      bSet ? 0 : 1
  };
}

MouseBox IGr_ZoomMouseBox(I4 iMouseCursor) {
  MouseBox h;
  {
    const GraphicsKeeper hKeep;
    MouseRoutine hMouse(iMouseCursor);
    IGrColour("RED");
    IGrPlotMode1("E");
    Band hBand;
    Message hPress;
    bool bSet = Next_Press(hMouse, hPress);
    if (bSet) {
      hBand.Begin(hPress.GX, hPress.GY);
      bSet = Set_Second_Corner(hMouse, hBand, hPress);
    }
    h = {hBand, bSet ? 0 : 1};
  }
  return Finished(h);
}

MouseBox IGr_SelectMouseBox(const Message& hPress) {
  MouseBox h;
  {
    const GraphicsKeeper hKeep;
    IGrLineType(LineType::Solid);
    IGrColour("RED");
    const InputBox hInput = WGrInputBox(hPress);
    h = {
        {hPress.GX, hPress.GY, hInput.fX2, hInput.fY2},
        hInput.bReleased ? 0 : 1
    };
  }
  return Finished(h);
}

}  // namespace quillan

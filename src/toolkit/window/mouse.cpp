// mouse.cpp: the routines of messages.h that follow the pointer.
#include <vector>

#include "toolkit/draw/draw.h"
#include "toolkit/window/private_window.h"

namespace quillan {

using namespace toolkit;

namespace {

/// A rubber band from a corner to the pointer. It is gone when it is no longer needed, whichever way that ends.
class RubberBand {
 public:
  RubberBand(R4 fX, R4 fY) : fX1(fX), fY1(fY), fX2(fX), fY2(fY) {}
  ~RubberBand() { Follow(fX1, fY1); }
  RubberBand(const RubberBand&) = delete;
  RubberBand& operator=(const RubberBand&) = delete;

  void Follow(R4 fX, R4 fY) {
    Draw();  // the same once more takes it away
    fX2 = fX;
    fY2 = fY;
    Draw();
  }

 private:
  void Draw() const {
    if (fX1 == fX2 && fY1 == fY2) return;
    const GraphicsKeeper hKeeper;
    IGrPlotMode1("E");
    IGrRectangle(fX1, fY1, fX2, fY2);
  }

  R4 fX1, fY1, fX2, fY2;
};

/// Mouse moves are wanted as long as it lives.
class MovesWanted {
 public:
  MovesWanted() { WMessageEnable(MessageType::MouseMove, true); }
  ~MovesWanted() { WMessageEnable(MessageType::MouseMove, bBefore); }
  MovesWanted(const MovesWanted&) = delete;
  MovesWanted& operator=(const MovesWanted&) = delete;

 private:
  bool bBefore = Is_Wanted(MessageType::MouseMove);
};

/// Messages that the caller's loop must answer, given back to it when it waits again.
class PutAside {
 public:
  PutAside() = default;
  ~PutAside() {
    for (; !hAside.empty(); hAside.pop_back()) WMessagePutBack(hAside.back());
  }
  PutAside(const PutAside&) = delete;
  PutAside& operator=(const PutAside&) = delete;

  void Take(const Message& hMessage) { hAside.push_back(hMessage); }

 private:
  std::vector<Message> hAside;
};

}  // namespace

InputBox WGrInputBox(const Message& hPress) {
  RubberBand hBand(hPress.GX, hPress.GY);
  const MovesWanted hMoves;
  PutAside hAside;
  InputBox hBox{hPress.GX, hPress.GY, false};
  for (;;) {
    const Message hMessage = WMessage();
    switch (hMessage.iType) {
      case MessageType::MouseMove: hBand.Follow(hBox.fX2 = hMessage.GX, hBox.fY2 = hMessage.GY); break;
      case MessageType::MouseUp: return {hMessage.GX, hMessage.GY, true};
      case MessageType::Key:
        if (hMessage.VALUE1 == iKeyEsc) return hBox;
        break;
      case MessageType::Close: hAside.Take(hMessage); return hBox;
      case MessageType::Expose:
      case MessageType::Resize:
      case MessageType::Field: hAside.Take(hMessage); break;
      default: break;  // other buttons, the wheel, the menu: not while a button is held
    }
  }
}

}  // namespace quillan

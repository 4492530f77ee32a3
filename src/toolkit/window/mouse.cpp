// mouse.cpp: the routines of messages.h that follow the pointer.
#include <utility>
#include <vector>

#include "toolkit/draw/draw.h"
#include "toolkit/window/messages.h"
#include "toolkit/window/private.h"

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
    for (; !hAside.empty(); hAside.pop_back()) WMessagePutBack(hAside.back().first, hAside.back().second);
  }
  PutAside(const PutAside&) = delete;
  PutAside& operator=(const PutAside&) = delete;

  void Take(MessageType iType, const Message& hMessage) { hAside.emplace_back(iType, hMessage); }

 private:
  std::vector<std::pair<MessageType, Message>> hAside;
};

}  // namespace

void WGrInputBox(const Message& hPress, R4& fX2, R4& fY2, MessageType& iType) {
  RubberBand hBand(hPress.GX, hPress.GY);
  const MovesWanted hMoves;
  PutAside hAside;
  fX2 = hPress.GX;
  fY2 = hPress.GY;
  iType = MessageType::None;
  while (iType == MessageType::None) {
    MessageType iNext = MessageType::None;
    Message hMessage;
    WMessage(iNext, hMessage);
    switch (iNext) {
      case MessageType::MouseMove: hBand.Follow(fX2 = hMessage.GX, fY2 = hMessage.GY); break;
      case MessageType::MouseUp:
        fX2 = hMessage.GX;
        fY2 = hMessage.GY;
        iType = iNext;
        break;
      case MessageType::Key:
        if (hMessage.VALUE1 == iKeyEsc) iType = iNext;
        break;
      case MessageType::Close: iType = MessageType::Key; [[fallthrough]];
      case MessageType::Expose:
      case MessageType::Resize:
      case MessageType::Field: hAside.Take(iNext, hMessage); break;
      default: break;  // other buttons, the wheel, the menu: not while a button is held
    }
  }
}

}  // namespace quillan

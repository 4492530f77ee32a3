// mouse.cpp: the routines of messages.h that follow the pointer.
#include <vector>

#include "toolkit/draw/draw.h"
#include "toolkit/window/private_window.h"

namespace quillan {

using namespace toolkit;

namespace {

/// A box being drawn: a rubber band from a corner to the pointer, whose moves are wanted. Whichever way it ends, the
/// band is gone, and the messages put aside are given back to the caller's loop.
class DrawnBox {
 public:
  explicit DrawnBox(const Message& hPress) : hBox{hPress.GX, hPress.GY, false}, fX1(hPress.GX), fY1(hPress.GY) {
    WMessageEnable(MessageType::MouseMove, true);
  }
  ~DrawnBox() {
    for (; !hAside.empty(); hAside.pop_back()) WMessagePutBack(hAside.back());
    WMessageEnable(MessageType::MouseMove, bMovesBefore);
    Draw();
  }
  DrawnBox(const DrawnBox&) = delete;
  DrawnBox& operator=(const DrawnBox&) = delete;

  void Follow(const Message& hMove) {
    Draw();  // the same once more takes it away
    hBox.fX2 = hMove.GX;
    hBox.fY2 = hMove.GY;
    Draw();
  }

  InputBox hBox;
  std::vector<Message> hAside;

 private:
  void Draw() const {
    if (fX1 == hBox.fX2 && fY1 == hBox.fY2) return;
    const GraphicsKeeper hKeeper;
    IGrPlotMode1("E");
    IGrRectangle(fX1, fY1, hBox.fX2, hBox.fY2);
  }

  R4 fX1, fY1;
  bool bMovesBefore = Is_Wanted(MessageType::MouseMove);
};

}  // namespace

InputBox WGrInputBox(const Message& hPress) {
  DrawnBox hDrawn(hPress);
  for (;;) {
    const Message hMessage = WMessage();
    switch (hMessage.iType) {
      case MessageType::MouseMove: hDrawn.Follow(hMessage); break;
      case MessageType::MouseUp: return {hMessage.GX, hMessage.GY, true};
      case MessageType::Key:
        if (hMessage.VALUE1 != iKeyEsc) break;
        hWindowListener.Box_Given_Up(false);
        return hDrawn.hBox;
      case MessageType::Close:
        hWindowListener.Box_Given_Up(true);
        hDrawn.hAside.push_back(hMessage);
        return hDrawn.hBox;
      case MessageType::Expose:
      case MessageType::Resize:
      case MessageType::Field: hDrawn.hAside.push_back(hMessage); break;
      default: break;  // other buttons, the wheel, the menu: not while a button is held
    }
  }
}

}  // namespace quillan

// What a key that goes on from the ring of a review goes on from, as steps.
#include <QKeyEvent>
#include <QWidget>
#include <optional>
#include <utility>

#include "toolkit/draw/private_draw.h"
#include "toolkit/script/private_script.h"
#include "toolkit/window/private_window.h"

namespace quillan::toolkit {
namespace {

// What the pointer has made of the ring since a key went on from it. Follow_Ring fills it.
struct RingTrail {
  std::optional<QPointF> hRing;  // as the last message but one left it
  Message hLast;
  QPointF hAt, hBefore;             // the last two moves, in pixels
  bool bByPointer = false;          // the ring is where the pointer took it
  std::vector<std::string> sHover;  // the moves that did it, as long as the plot is the same
};
RingTrail hTrail;

void Add_Hover(QPointF hPixel) {
  if (const auto sPlace = Plot_Words(hPixel)) hTrail.sHover.push_back("hover " + *sPlace);
}

void Note_Move_of_Ring() {
  hTrail.bByPointer = hTrail.hRing.has_value();
  hTrail.sHover.clear();
  if (!hTrail.hRing) Add_Hover(hTrail.hBefore);  // only from its point does the pointer take the ring away
  Add_Hover(hTrail.hAt);
}

/// The wheel and the side buttons go to another plot.
bool Is_Click(const Message& h) {
  return (h.iType == MessageType::MouseDown || h.iType == MessageType::MouseUp) &&
         (h.VALUE1 == iMouseLeft || h.VALUE1 == iMouseRight);
}

/// What the last message has done to the ring.
void Note_Ring() {
  const std::optional<QPointF> hRingBefore = std::exchange(hTrail.hRing, Ring_Place());
  const bool bChanged = hRingBefore != hTrail.hRing;
  if (hTrail.hLast.iType == MessageType::MouseMove) {
    if (bChanged) Note_Move_of_Ring();
  } else if (!Is_Click(hTrail.hLast)) {
    if (hTrail.hLast.iType != MessageType::Expose) hTrail.sHover.clear();
  } else if (bChanged && hTrail.hRing) {  // the click has taken it
    hTrail.sHover.clear();
    hTrail.bByPointer = false;
  }
}

bool Goes_on_from_Ring(const QKeyEvent& hKey) {
  const bool bArrow = hKey.key() >= Qt::Key_Left && hKey.key() <= Qt::Key_Down;
  return hKey.key() == Qt::Key_Space || (bArrow && hKey.modifiers().testFlag(Qt::ControlModifier));
}

}  // namespace

void Forget_Ring() {
  hTrail = {};
}

void Follow_Ring(const Message& hTaken) {
  Note_Ring();
  hTrail.hLast = hTaken;
  if (hTaken.iType != MessageType::MouseMove) return;
  hTrail.hBefore = std::exchange(hTrail.hAt, Units_to_Pixels(QPointF(R8{hTaken.GX}, R8{hTaken.GY})));
}

std::vector<std::string> Steps_to_Ring(const QKeyEvent& hKey) {
  if (!Goes_on_from_Ring(hKey)) return {};
  Note_Ring();
  const bool bByPointer = std::exchange(hTrail.bByPointer, false);
  const QSizeF hSize = Drawing_Area()->size();
  if (bByPointer && hTrail.sHover.empty() && hTrail.hRing)
    Add_Hover({hTrail.hRing->x() * hSize.width(), hTrail.hRing->y() * hSize.height()});
  return std::exchange(hTrail.sHover, {});
}

}  // namespace quillan::toolkit

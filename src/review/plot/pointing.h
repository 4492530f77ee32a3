// pointing.h: the point that a review is about just now: near the pointer, clicked, or reached by the keys. It has a
// ring, and the status bar names it.
//
// The pointer takes the ring to each point that it comes near, and away from it again. A point that was clicked or
// reached by the keys keeps the ring until another one gets it.
#pragma once

#include <optional>
#include <string>

#include "base/types.h"
#include "model/edits.h"
#include "review/plot/mode_hint.h"
#include "review/plot/read_out.h"
#include "toolkit/draw/draw.h"
#include "toolkit/window/messages.h"
#include "toolkit/window/window.h"

namespace quillan {

/// What every review knows of it.
struct PointedAt {
  PickedPoint hPoint;    // iTrn 0: none
  bool bHeld = false;    // clicked or reached by the keys
  bool bNamed = false;   // the status bar names it
  PickedPoint hClicked;  // by the press that is carried out; iTrn 0: none
  std::string sRest;     // what the status bar says when there is nothing else to say
};

/// How a review answers. Without Near there is no pointing, without Step none by the keys.
template <class View>
struct PointProcedures {
  PickedPoint (*Near)(const View& hView, const GrPoint& hPointer) = nullptr;           // what a click there would take
  std::optional<GrPoint> (*Place)(const View& hView, const PickedPoint& h) = nullptr;  // nothing: not on show
  std::string (*In_Words)(const View& hView, const PickedPoint& h) = nullptr;
  /// The point that lies NWindow time windows or NSounding soundings on, 1 or -1; from none the first one.
  PickedPoint (*Step)(View& hView, const PickedPoint& h, I4 NWindow, I4 NSounding) = nullptr;
};

/// Moves of the pointer are wanted as long as it lives; at its end the ring is gone.
class PointerWatch {
 public:
  PointerWatch() = default;
  ~PointerWatch() {
    WMessageEnable(MessageType::MouseMove, false);
    IGrRingOff();
  }
  PointerWatch(const PointerWatch&) = delete;
  PointerWatch& operator=(const PointerWatch&) = delete;
};

template <class View>
void Name_Point(View& hView, const PointProcedures<View>& hPoints) {
  hView.bNamed = true;
  WindowOutStatusBar(iStatusProgress, hPoints.In_Words(hView, hView.hPoint));
}

template <class View>
void Say_Rest(View& hView) {
  hView.bNamed = false;
  WindowOutStatusBar(iStatusProgress, hView.sRest);
}

/// A point that is named and keeps the ring.
template <class View>
void Hold_Point(View& hView, const PointProcedures<View>& hPoints, const PickedPoint& h) {
  hView.hPoint = h;
  hView.bHeld = true;
  Name_Point(hView, hPoints);
}

/// After the plot was drawn, which takes the ring away.
template <class View>
void Put_Ring(const View& hView, const PointProcedures<View>& hPoints) {
  if (!hPoints.Near) return;
  const auto hAt = hView.hPoint.iTrn == 0 ? std::nullopt : hPoints.Place(hView, hView.hPoint);
  if (hAt)
    IGrRing(hAt->fX, hAt->fY);
  else
    IGrRingOff();
}

template <class View>
void Follow_Pointer(View& hView, const PointProcedures<View>& hPoints, const Message& hMove) {
  if (!hPoints.Near || hMove.VALUE3 != 0) return;
  const PickedPoint hNear = hPoints.Near(hView, {hMove.GX, hMove.GY});
  if (hNear.iTrn == 0 && (hView.bHeld || hView.hPoint.iTrn == 0)) return;
  if (hNear == hView.hPoint && hView.bNamed) return;
  hView.hPoint = hNear;
  hView.bHeld = false;
  if (hNear.iTrn == 0) return Say_Rest(hView);
  Name_Point(hView, hPoints);
}

template <class View>
void Step_Point(View& hView, const PointProcedures<View>& hPoints, I4 NWindow, I4 NSounding) {
  const PickedPoint h = hPoints.Step(hView, hView.hPoint, NWindow, NSounding);
  if (h.iTrn == 0) return Say_No_Point();
  Hold_Point(hView, hPoints, h);
}

/// The point with the ring is skipped or cleared; so are the later windows of its sounding with bLater. A point that is
/// not on show stays as it is.
template <class View>
void Flag_Point(View& hView, const PointProcedures<View>& hPoints, bool bLater) {
  const PickedPoint h = hView.hPoint;
  if (h.iTrn == 0 || !hPoints.Place(hView, h)) return Say_No_Point();
  const L4 bSkip = !hTrn(h.iTrn).bSkip(h.iTwc);
  const I4 IEnd = bLater ? hTrn(h.iTrn).NTW : h.iTwc;
  for (I4 I = h.iTwc; I <= IEnd; ++I) Edit_Window_Flag(h.iTrn, I, bSkip);
  hView.bRedraw = true;
  Hold_Point(hView, hPoints, h);
}

}  // namespace quillan

// plan_view.h: the survey seen from above: the transmitter loop with its direction, the receivers, their distance.
//
// It shows at once whether the coordinates and the loop are where they should be. The loop of a fixed array stands at
// the survey's transmitter centre; that of a moving loop is drawn for the first receiver that has a position, at the
// survey's offset along and across the line, and the loop of the other arrays around that receiver.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/array.h"
#include "base/types.h"
#include "review/plot/map_plot.h"
#include "toolkit/window/messages.h"

namespace quillan {

// Module state. TEM_Map_View_Plot fills it.
inline std::string sPlanStnFile;  // where the positions on show are from
// TEM_Map_View_Follow keeps it, a new command clears it: the status bar names a receiver.
inline bool bReceiverNamed = false;

/// What the view shows, apart from drawing, in the survey's length unit.
struct PlanView {
  std::vector<MapPoint> hReceiver;   // those of all transients that have a position
  I4 jFirst = 0;                     // the transient of the first of them; 0: none has one
  MapPoint hCentre;                  // of the loop
  Array1<MapPoint, 5> hVertex{};     // its corners, the first again as the last
  MapPoint hArrow;                   // end of the arrow from the centre: the direction along the loop
  R8 dFirst = 0.0;                   // from the centre to the first receiver
  R8 dNearest = 0.0, dFarthest = 0;  // and to any of them
};
[[nodiscard]] PlanView Plan_View();

/// What is written beside it: the survey, the data file, the loop, the distance.
[[nodiscard]] std::vector<std::string> Plan_Notes(const PlanView& h, std::string_view sFileName);

/// Draws the view in place of the log lines of the main window, with the name of the file that the positions are from;
/// it stays until the next line of the log.
/// Returns 0; 1 there are no transients, or the window has no room.
[[nodiscard]] I4 TEM_Map_View_Plot(std::string_view sStnFile);

/// The receiver of transient j in words: its sounding, its place, of a fixed loop its distance from the centre.
[[nodiscard]] std::string Plan_Words(I4 j, const PlanView& h);

/// While the view is on show: the receiver near the pointer has a ring, and the status bar names it.
void TEM_Map_View_Follow(const Message& hMove);

}  // namespace quillan

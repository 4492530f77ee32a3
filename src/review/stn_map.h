// stn_map.h: the stations of the table on a map in a window of its own, for a quick look at what a file gave.
//
// Each station is a disc in the colour of its elevation, over a black arrow along its heading. Beside the plot stands
// the scale of elevations, on it the statistics of the survey's line. The status bar says where the pointer is and
// which station is nearest to it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/types.h"
#include "review/plot/map_plot.h"
#include "stations/color_scale.h"

namespace quillan {

inline constexpr I4 iTimerMap = 30000;  // number of the timer that closes the map

// Module state. The program leaves it as it is.
inline I4 NMsecMap = 30000;  // milliseconds for which the map stays if the user does nothing

/// Shows the map until a key, a click, the window's close button or the timer; a close request of the program is put
/// back for the caller's loop. Empties the screen text. sFileName: where the stations come from; dLineNumber: whose
/// statistics are shown, which also go into the log file.
/// Returns 0, also without stations; 1 there was no window to show it in.
[[nodiscard]] I4 Stn_Plot_Map(std::string_view sFileName, R8 dLineNumber);

// What the map shows, apart from drawing.

/// The statistics of a line, from the lowest line of text up; nothing where the table has no such line.
[[nodiscard]] std::vector<std::string> Stn_Annotation(R8 dLineNumber);

/// The texts beside a scale of colours, fewer than 11, with their places: 0 at its lower end, 1 at its upper one.
struct ColorLabel {
  R4 fPlace;
  std::string sLabel;
};
[[nodiscard]] std::vector<ColorLabel> Stn_Color_Labels(const ColorScale& h);

/// Where the pointer is, and the station nearest to it.
[[nodiscard]] std::string Stn_Pointer_Text(const MapPoint& hPointer);

}  // namespace quillan

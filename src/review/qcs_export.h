// qcs_export.h: a pseudosection as a CSV table with a plot-control file, for a profile plotting program.
//
// The table has a header and one line a transient; each field is followed by a comma, the last one as well:
//
//   Station,East,North,Elevation,TW01_100usec,TW02_2.5msec,
//   100,451020,6012340,12.5,3.40512E+02,*,
//
// The header has the windows of the section's first transient with their centre times, in usec below 1 msec, in sec
// from 1000 msec on. A line has the transient's own windows, skipped ones as well; a missing value is "*". Numbers:
// station (F14.3), coordinates (F14.1), values (ES14.5).
//
// The plot-control file has the table's name with the extension .mde and lines of the form $Keyword=value: titles,
// bearings of both ends of the line, stations at both ends, and the panels of seven windows that are plotted together:
//
//   $TBTitle1=Orrin basin Line 12
//   $BrgLeft=W
//   $Stn.Left=100
//   $Panel1.TWBeg=1
//
// Both replace files of their names without a question, and whole or not at all.
#pragma once

#include <string>
#include <string_view>

#include "base/types.h"

namespace quillan {

inline constexpr I4 MPanel = 6;    // panels that the plot-control file can hold
inline constexpr I4 NTWPanel = 7;  // windows in a panel

/// Path of an export of a section: the data file's path without its extension, what is plotted with the letter of the
/// section's component, and the extension: "line1dBzdt.csv", "line1Bz.png".
/// iPlotType: 1 or 2; sExtension: ".csv", ".png" or ".wmf".
std::string QCS_Export_Path(std::string_view sDataFile, I4 iSection, I4 iPlotType, std::string_view sExtension);

/// Writes the table and, before it, its plot-control file. iPlotType: 1 fuVmag, 2 fBmag, 3 fARes.
/// Returns 0; 1 there is no such section or plot type, or one of the files could not be written; both are reported.
[[nodiscard]] I4 QCS_Section_Write_CSV(std::string_view sCsvFile, I4 iSection, I4 iPlotType);

/// Writes the plot-control file. Returns as above.
[[nodiscard]] I4 QCS_Section_Write_MDE(std::string_view sMdeFile, I4 iSection, I4 iPlotType);

}  // namespace quillan

// plot_file.h: a plot as a picture in a file: 24 by 17.8 centimetres, or 5 millimetres higher with a line of small
// print below it.
#pragma once

#include <functional>
#include <string_view>

#include "base/types.h"
#include "toolkit/draw/hardcopy.h"

namespace quillan {

struct PictureKind {
  std::string_view sExtension;
  std::string_view sWords;  // in a choice of files
  HardCopyDriver iDriver;
  I4 NWidth, NHeight;     // pixels or units
  I4 NFoot;               // the same, of the strip for the small print
  std::string_view sTag;  // in reports
};
// clang-format off
inline constexpr PictureKind hPictureKind[] = {
    // 100 units a centimetre, 400 pixels an inch, 120 units a centimetre
    {".svg", "Scalable vector graphics",  HardCopyDriver::Svg,      2400, 1780, 50, "TS_Plot_Profile_SVG"},
    {".pdf", "Portable document",         HardCopyDriver::Pdf,      2400, 1780, 50, "TS_Plot_Profile_PDF"},
    {".png", "Portable network graphics", HardCopyDriver::Png,      3780, 2803, 79, "TS_Plot_Profile_PNG"},
    {".wmf", "Windows metafile",          HardCopyDriver::Metafile, 2880, 2136, 60, "TS_Plot_Profile_WMF"},
};
// clang-format on
inline constexpr const PictureKind& hPngKind = hPictureKind[2];
inline constexpr const PictureKind& hWmfKind = hPictureKind[3];

/// The kind that the extension of a file stands for, in either case; null: none.
[[nodiscard]] const PictureKind* Picture_Kind(std::string_view sFile);

/// Draws into a file, which replaces an earlier one as a whole or not at all. sSmallPrint: what the plot is of; blank:
/// no small print. Draw is called twice: what it draws is counted first. Returns 0; 1 the file could not be written,
/// which is reported, with the reason; 2 the user has stopped it.
[[nodiscard]] I4 Plot_into_File(const PictureKind& hKind, std::string_view sFile, const std::function<void()>& Draw,
                                std::string_view sSmallPrint = {});

}  // namespace quillan

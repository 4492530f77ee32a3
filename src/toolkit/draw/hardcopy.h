// hardcopy.h: pictures in files: while a hardcopy is open, all drawing goes to it.
//
// A placeable Windows metafile of vector records (metafile.cpp), SVG and PDF with true lines and letters
// (page_file.cpp), and PNG. The picture has the shape of the window it stands for: areas, units and text sizes are
// fractions of it. A file takes the place of an earlier one only when it is complete (SafeFile).
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "base/types.h"

namespace quillan {

enum class HardCopyDriver : I4 { Png = 6, Metafile = 11, Svg = 12, Pdf = 13 };

/// Chooses the driver of the next hardcopy.
void IGrHardCopySelect(HardCopyDriver iDriver);
/// Size of the next hardcopy: pixels for PNG (at 400 dots an inch), device units for a metafile (120 a centimetre) and
/// for SVG and PDF (100 a centimetre).
void IGrHardCopySize(I4 NWidth, I4 NHeight);
/// Adds a strip of that height below the next hardcopy; 0: none. Areas are fractions of what is above it, so that it
/// is the area from -NHeight / height to 0.
void IGrHardCopyFoot(I4 NHeight);

/// How many strokes (lines, points, texts) Draw would give the next hardcopy.
[[nodiscard]] I8 IGrHardCopyStrokes(const std::function<void()>& Draw);
/// Opens a hardcopy of so many strokes (0: nobody knows). Where it takes long the user sees how far it has come and may
/// stop it. Where it cannot be opened or was stopped, IGrHardCopyEnd says so; what is drawn until then goes nowhere.
void IGrHardCopy(std::string_view sPath, I8 NStroke = 0);

/// What became of a hardcopy.
struct HardCopyStatus {
  I4 iError = 0;           // 0: the file is in its place; 1, 2: nothing was replaced, it failed or the user stopped it
  std::string_view sStep;  // which failed: "open", "draw", "close"
  std::string sReason;     // in words
};
/// Closes it and puts the file in its place, if every step went well: opening, all that was drawn, encoding, writing.
/// An error of drawing since it was opened is in the status, and no longer InfoError's.
[[nodiscard]] HardCopyStatus IGrHardCopyEnd();
/// Gives an open hardcopy up; nothing without one. Drawing goes to the screen again.
void IGrHardCopyDrop();

}  // namespace quillan

#include "review/plot_file.h"

#include <algorithm>
#include <new>
#include <string>

#include "foundations/file_util.h"
#include "foundations/log_file.h"
#include "foundations/str_parse.h"
#include "review/plot/plot_title.h"
#include "toolkit/draw/draw.h"

namespace quillan {
namespace {

// Small print, as fractions of its strip: letters of 2.5 and 1.8 millimetres.
constexpr TextSize hPrintSize[] = {
    {0.0058f, 0.50f},
    {0.0042f, 0.36f}
};
constexpr R4 fPrintLeft = 0.02f, fPrintRight = 0.98f;

void Write_Small_Print(const PictureKind& h, std::string_view sText) {
  IGrArea(0.0f, -static_cast<R4>(h.NFoot) / static_cast<R4>(h.NHeight), 1.0f, 0.0f);
  IGrUnits(0.0f, 0.0f, 1.0f, 1.0f);
  IGrColour("BLACK");
  const TitleRoom hRoom{fPrintLeft, fPrintRight};
  Draw_Plot_Title(sText, {.fMiddle = 0.0f, .fY = 0.5f, .fLeft = fPrintLeft, .hRoom = hRoom}, hPrintSize);
}

/// Without the memory for it the earlier file stays.
HardCopyStatus Plotted(const PictureKind& h, std::string_view sFile, const std::function<void()>& Draw,
                       std::string_view sSmallPrint) {
  const GraphicsKeeper keeper;
  IGrHardCopySelect(h.iDriver);
  IGrHardCopySize(h.NWidth, h.NHeight);
  IGrHardCopyFoot(sSmallPrint.empty() ? 0 : h.NFoot);
  try {
    IGrHardCopy(sFile, IGrHardCopyStrokes(Draw));
    Draw();
    if (!sSmallPrint.empty()) Write_Small_Print(h, sSmallPrint);
    return IGrHardCopyEnd();
  } catch (const std::bad_alloc&) {
    IGrHardCopyDrop();
    return {1, "draw", "Not enough memory"};
  }
}

}  // namespace

const PictureKind* Picture_Kind(std::string_view sFile) {
  const std::string sExtension = Str_UpCase(File_Ext(sFile));
  const auto* hKind =
      std::ranges::find_if(hPictureKind, [&](const PictureKind& h) { return Str_UpCase(h.sExtension) == sExtension; });
  return hKind == std::end(hPictureKind) ? nullptr : hKind;
}

I4 Plot_into_File(const PictureKind& hKind, std::string_view sFile, const std::function<void()>& Draw,
                  std::string_view sSmallPrint) {
  const HardCopyStatus h = Plotted(hKind, sFile, Draw, sSmallPrint);
  if (h.iError != 1) return h.iError;
  LogErr({"Graphics ERROR: from " + std::string(hKind.sTag).append(" ").append(h.sStep),
          "writing file " + std::string(sFile), h.sReason, "The plot is not exported."});
  return 1;
}

}  // namespace quillan

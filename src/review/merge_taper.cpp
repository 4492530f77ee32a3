#include "review/merge_taper.h"

#include <algorithm>
#include <string>

#include "foundations/str_write.h"
#include "processing/tmd_merge.h"
#include "toolkit/dialog/picture.h"
#include "toolkit/draw/draw.h"

namespace quillan {
namespace {

constexpr R4 fCharWidth = 0.01881481f;  // fractions of the picture
constexpr R4 fCharHeight = 0.08466666f;
constexpr R4 fTextY = 0.065f;
constexpr R4 fCurveBottom = 0.14f;  // the text stands below the curve, wherever the taper is
constexpr R4 fCurveTop = 0.95f;
constexpr R4 fCurveWidth = 1.5f;  // pixels

void Write_Settings() {
  IGrArea(0.0f, 0.0f, 1.0f, 1.0f);
  IGrUnits(0.0f, 0.0f, 1.0f, 1.0f);
  IGrRectangle(0.0f, 0.0f, 1.0f, 1.0f);
  WGrTextFont(fCharWidth, fCharHeight);
  WGrTextOrientation(Justify::Centre, 0.0f);
  WGrTextString(0.5f, fTextY,
                "Taper center = " + Str_Write_I4(hMerge.iMergeFltCenter).str() +
                    ", width = " + Str_Write_I4(hMerge.iMergeFltWidth).str());
}

/// Grey lines say where no and full weight are.
void Draw_Curve(I4 NTW) {
  const R4 fTWmax = static_cast<R4>(std::max(NTW, 2));
  IGrArea(0.0f, fCurveBottom, 1.0f, fCurveTop);
  IGrUnits(1.0f, 0.0f, fTWmax, 1.0f);
  IGrColour("GREY");
  for (const R4 fWgt : {0.0f, 1.0f}) IGrSegment(1.0f, fWgt, fTWmax, fWgt);
  IGrColour("BLACK");
  IGrLineWidth(fCurveWidth);
  const auto fWgt_at = [](I4 ITW) { return fMergeFilter(ITW, hMerge.iMergeFltCenter, hMerge.iMergeFltWidth); };
  IGrMoveTo(1.0f, fWgt_at(1));
  for (I4 ITW = 2; ITW <= NTW; ++ITW) IGrLineTo(static_cast<R4>(ITW), fWgt_at(ITW));
}

}  // namespace

void MergeFltPlot(I4 NTW) {
  const SelectedPicture picture(iPicTaper);
  WindowClear();
  IGrColour("BLACK");
  IGrLineType(LineType::Solid);
  IGrLineWidth(1.0f);
  Write_Settings();
  Draw_Curve(NTW);
  InqWintError("MergeFltPlot");
}

}  // namespace quillan

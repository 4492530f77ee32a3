// qcs_review.h: the interactive review of pseudosections: paging, zoom, skip flags by click, polarity, noise floor,
// exports, and the way to the decay curve of a point.
#pragma once

#include "base/types.h"
#include "review/qcs_sections.h"

namespace quillan {

/// Shows sections, beginning with that of transient iTrn, until the user leaves. iTrn: in and out, the transient that a
/// curve review would begin with; 0 after a click that met no point. iFlag: where the user wants to go, 2 the curve
/// review, 4 save, 5 exit. iError: 0; 1 there is nothing to show; 3 the close request.
void QCS_Review(I4& iTrn, I4& iFlag, I4& iError);

/// A zoom box, in graphics units, made at least 2 wide and 1.4 high about its middle, its shorter side enlarged to the
/// shape of the area. fYXArea: height of the area over its width.
void QCS_Shape_Box(R4 fYXArea, R4& fXGr1, R4& fYGr1, R4& fXGr2, R4& fYGr2);
/// A box in plot units shifted back inside the full range where it leaves it.
PlotRange QCS_Zoom_Range(const PlotRange& hBox, const PlotRange& hFull);

}  // namespace quillan

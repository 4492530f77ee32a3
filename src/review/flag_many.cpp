#include "review/flag_many.h"

#include <string>

#include "foundations/str_write.h"
#include "model/edits.h"
#include "review/plot/mode_hint.h"
#include "review/qcs_sections.h"

namespace quillan {

I4 Flag_Later_Windows(L4 bSkip, I4 j, I4 I) {
  const I4 NWindow = hTrn(j).NTW - I + 1;
  for (; I <= hTrn(j).NTW; ++I) Edit_Window_Flag(j, I, bSkip);
  return NWindow;
}

I4 QCS_Flag_Window(L4 bSkip, I4 iSection, I4 I) {
  if (QCS_Check_Section("QCS_Flag_Window", iSection, 1) != 0) return 0;
  I4 NWindow = 0;
  for (I4 j = hSection(iSection).iTrnBeg; j <= hSection(iSection).iTrnEnd; ++j) {
    if (I > hTrn(j).NTW) continue;
    Edit_Window_Flag(j, I, bSkip);
    ++NWindow;
  }
  return NWindow;
}

I4 QCS_Flag_Box(L4 bSkip, const GrBox& hBox, const PlotRange& hRange) {
  const PlotRange hInside = Range_of_Box(hBox);
  I4 NWindow = 0;
  QCS_Visit_Points(hRange, [&](const SectionPoint& h) {
    if (!hInside.Has(h.fX, h.fY)) return;
    Edit_Window_Flag(h.iTrn, h.iTwc, bSkip);
    ++NWindow;
  });
  return NWindow;
}

void Say_Flagged(L4 bSkip, I4 NWindow) {
  if (NWindow < 1) return Say_No_Point();
  const std::string sWindows = NWindow == 1 ? "1 window " : Str_Write_I4(NWindow).str() + " windows ";
  WindowOutStatusBar(2, sWindows + (bSkip ? "skipped" : "cleared"));
}

}  // namespace quillan

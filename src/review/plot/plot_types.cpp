#include "review/plot/plot_types.h"

#include <algorithm>

#include "metadata/enm_data.h"

namespace quillan {
namespace {

std::string With_Letter(std::string_view sPattern, I4 iRxCmp) {
  std::string s(sPattern);
  if (const auto K = s.find('#'); K != std::string::npos) s.replace(K, 1, Component_Letter(iRxCmp));
  return s;
}

/// The text of a magnetic component or of another one.
std::string Text_of(I4 iRxCmp, std::string_view sMagnetic, std::string_view sOther) {
  return With_Letter(Is_Magnetic(iRxCmp) ? sMagnetic : sOther, iRxCmp);
}

std::string_view Other_Section_Type(I4 iRxCmp) {
  if (iRxCmp >= 1 && iRxCmp < iCmpHx) return "E#(t) (uV/Am)";
  return iRxCmp == iCmpOff ? "Tx Current (amps" : "Unknown Cmp";  // so in the reports of earlier surveys
}

}  // namespace

const PlotType& Plot_Type(I4 iPlotType) {
  return hPlotTypeRow[std::clamp(iPlotType, 1, MPlotType) - 1];
}

const WindowValues& Plot_Values(const Transient& h, I4 iPlotType) {
  return h.*Plot_Type(iPlotType).hValue;
}

bool Is_Magnetic(I4 iRxCmp) {
  return iRxCmp >= iCmpHx && iRxCmp <= iCmpHz;
}

std::string_view Component_Letter(I4 iRxCmp) {
  return iRxCmp >= 1 && iRxCmp <= iCmpHz ? sXYZ((iRxCmp - 1) % 3 + 1) : "R";
}

std::string Section_Type(I4 iRxCmp, I4 iPlotType) {
  return Text_of(iRxCmp, Plot_Type(iPlotType).sSectionType, Other_Section_Type(iRxCmp));
}

std::string Curve_Type(I4 iRxCmp, I4 iPlotType) {
  return Text_of(iRxCmp, Plot_Type(iPlotType).sCurveType, sChnCmp(iRxCmp));
}

std::string Curve_Label(I4 iRxCmp, I4 iPlotType) {
  return Text_of(iRxCmp, Plot_Type(iPlotType).sCurveLabel, sChnCmp(iRxCmp));
}

std::string Export_Part(I4 iRxCmp, I4 iPlotType) {
  return With_Letter(Plot_Type(iPlotType).sFilePart, iRxCmp);
}

}  // namespace quillan

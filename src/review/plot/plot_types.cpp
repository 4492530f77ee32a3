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

/// Of components that are not magnetic.
std::string_view Only_Section_Type(I4 iRxCmp) {
  if (iRxCmp >= 1 && iRxCmp < iCmpHx) return "E#(t) (uV/Am)";
  return iRxCmp == iCmpOff ? "Tx Current (amps" : "Unknown Cmp";  // plots of earlier surveys carry it so
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
  return With_Letter(Is_Magnetic(iRxCmp) ? Plot_Type(iPlotType).sSectionType : Only_Section_Type(iRxCmp), iRxCmp);
}

std::string Curve_Type(I4 iRxCmp, I4 iPlotType) {
  return Is_Magnetic(iRxCmp) ? With_Letter(Plot_Type(iPlotType).sCurveType, iRxCmp) : std::string(sChnCmp(iRxCmp));
}

std::string Curve_Label(I4 iRxCmp, I4 iPlotType) {
  return Is_Magnetic(iRxCmp) ? With_Letter(Plot_Type(iPlotType).sCurveLabel, iRxCmp) : std::string(sChnCmp(iRxCmp));
}

std::string Export_Part(I4 iRxCmp, I4 iPlotType) {
  return With_Letter(Plot_Type(iPlotType).sFilePart, iRxCmp);
}

}  // namespace quillan

// plot_types.h: what can be plotted of a transient, one row a plot type, for all plots.
//
// The magnetic components Hx, Hy and Hz have all plot types; of any other component the decay value alone is plotted,
// under a name of its own.
#pragma once

#include <iterator>
#include <string>
#include <string_view>

#include "base/types.h"
#include "model/tmd_data.h"

namespace quillan {

// Components beside those of tmd_data.h, codes in CChnCmp.
inline constexpr I4 iCmpRef = 7;  // no axis; stands for a code that is no component
inline constexpr I4 iCmpOff = 8;  // transmitter current

/// A plot type. "#" in a text stands for the letter of the component. Sections and curves name their units each in
/// their own way, which users know from their reports.
struct PlotType {
  WindowValues Transient::*hValue;           // what is plotted
  R4 Transient::*fMin, Transient::*fMax;     // its range
  R4 fRangeLeast;                            // a transient with no value above it has no range in a section
  R4 fCurveLeast;                            // a value at or above it is plotted in a curve
  std::string_view sSectionType;             // name and unit in a section; blank: sections do not offer it
  std::string_view sCurveType, sCurveLabel;  // in a curve: entry of the drop-down, label of the Y axis
  std::string_view sFilePart;                // in the names of exports
};

// clang-format off
inline constexpr PlotType hPlotTypeRow[] = {
    {&Transient::fuVmag, &Transient::fuVmin, &Transient::fuVmax, fDummyLimit, fDummyLimit,
     "dB#/dt (uV/A)", "dB#/dt", "dB#/dt (uV/amp)", "dB#dt"},
    {&Transient::fBmag, &Transient::fBmin, &Transient::fBmax, fDummyLimit, fDummyLimit,
     "B#(t) (nT/A)", "B#(t)", "B#(t) (pT/amp)", "B#"},
    {&Transient::fARes, &Transient::fARmin, &Transient::fARmax, 1.0E-6f, 0.001f,
     "", "App.Res.", "Apparent Resistivity (ohm-m)", "B#"},
};
// clang-format on

inline constexpr I4 MPlotType = static_cast<I4>(std::size(hPlotTypeRow));

/// The row of iPlotType, 1..MPlotType; of one beyond, the nearest.
const PlotType& Plot_Type(I4 iPlotType);
/// The values that a plot type shows: fuVmag, fBmag or fARes.
const WindowValues& Plot_Values(const Transient& h, I4 iPlotType);

/// Whether a component has all plot types.
bool Is_Magnetic(I4 iRxCmp);
/// Letter of a component: "x", "y", "z", and "R" for those without an axis.
std::string_view Component_Letter(I4 iRxCmp);

// The texts of a plot type for a component.
std::string Section_Type(I4 iRxCmp, I4 iPlotType);
std::string Curve_Type(I4 iRxCmp, I4 iPlotType);
std::string Curve_Label(I4 iRxCmp, I4 iPlotType);
std::string Export_Part(I4 iRxCmp, I4 iPlotType);

}  // namespace quillan

#include "review/plot/plot_types.h"

#include <gtest/gtest.h>

#include "support/survey_builder.h"

namespace quillan {
namespace {

TEST(PlotTypes, AreNamedByTheComponentInEachReviewAndInExports) {
  const struct {
    I4 iRxCmp, iPlotType;
    const char *sSection, *sCurve, *sLabel, *sExport;
  } hCases[] = {
      {4, 1, "dBx/dt (uV/A)",    "dBx/dt",   "dBx/dt (uV/amp)",              "dBxdt"},
      {5, 2, "By(t) (nT/A)",     "By(t)",    "By(t) (pT/amp)",               "By"   },
      {6, 1, "dBz/dt (uV/A)",    "dBz/dt",   "dBz/dt (uV/amp)",              "dBzdt"},
      {6, 3, "",                 "App.Res.", "Apparent Resistivity (ohm-m)", "Bz"   },
      {1, 1, "Ex(t) (uV/Am)",    "Ex",       "Ex",                           "dBxdt"},
      {3, 1, "Ez(t) (uV/Am)",    "Ez",       "Ez",                           "dBzdt"},
      {7, 1, "Unknown Cmp",      "Ref",      "Ref",                          "dBRdt"},
      {8, 1, "Tx Current (amps", "Off",      "Off",                          "dBRdt"},
  };
  for (const auto& c : hCases) {
    EXPECT_EQ(Section_Type(c.iRxCmp, c.iPlotType), c.sSection) << c.iRxCmp;
    EXPECT_EQ(Curve_Type(c.iRxCmp, c.iPlotType), c.sCurve) << c.iRxCmp;
    EXPECT_EQ(Curve_Label(c.iRxCmp, c.iPlotType), c.sLabel) << c.iRxCmp;
    EXPECT_EQ(Export_Part(c.iRxCmp, c.iPlotType), c.sExport) << c.iRxCmp;
  }
  for (const I4 iRxCmp : {0, 9}) EXPECT_EQ(Section_Type(iRxCmp, 1), "Unknown Cmp");
}

}  // namespace
}  // namespace quillan

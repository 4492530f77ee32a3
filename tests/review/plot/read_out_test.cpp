#include "review/plot/read_out.h"

#include <gtest/gtest.h>

#include "review/plot/plot_types.h"
#include "support/survey_builder.h"

namespace quillan {
namespace {

Transient Sounding(R8 dStn, R8 dRecorded, I4 iRxCmp, std::initializer_list<R4> fValue) {
  Transient h =
      TransientBuilder().Station(dStn).Component(iRxCmp).Frequency(4.0f).Values(fValue).Errors_Percent({0.4f});
  h.dRxKvrStn = dRecorded;
  h.fTWCen(1) = 0.56f;
  return h;
}

TEST(ReadOut, SaysWhatAPointIs) {
  constexpr I4 iCmpEy = 2, iField = 2, iResistivity = 3;
  const struct {
    const char* sCase;
    Transient h;
    I4 iPlotType;
    L4 bSkip, bSkipTrn;
    std::string sWords;
  } hCase[] = {
      {"as the survey has it",                      Sounding(1400, 200, iCmpHz,  {4710}),     1,            true,  false,
       "Stn 1400 (recorded 200) Hz 4 Hz, window 1, 0.56 msec, 4.71E3 uV/A +- 0.4 %, skipped"                                                                                   },
      {"one numbering, the whole sounding skipped", Sounding(200,  200, iCmpHz,  {-0.0471f}), 1,            false, true,
       "Stn 200 Hz 4 Hz, window 1, 0.56 msec, -4.71E-2 uV/A +- 0.4 %, transient skipped"                                                                                       },
      {"rounded up to the next power",              Sounding(1,    1,   iCmpHz,  {999.9f}),   1,            false, false,
       "Stn 1 Hz 4 Hz, window 1, 0.56 msec, 1.00E3 uV/A +- 0.4 %"                                                                                                              },
      {"plain digits",                              Sounding(1,    1,   iCmpHz,  {0.1f}),     1,            false, false,
       "Stn 1 Hz 4 Hz, window 1, 0.56 msec, 0.100 uV/A +- 0.4 %"                                                                                                               },
      {"zero",                                      Sounding(1,    1,   iCmpHz,  {0.0f}),     1,            false, false, "Stn 1 Hz 4 Hz, window 1, 0.56 msec, 0 uV/A +- 0.4 %"},
      {"an electric component",                     Sounding(1,    1,   iCmpEy,  {25}),       1,            false, false,
       "Stn 1 Ey 4 Hz, window 1, 0.56 msec, 25.0 uV/Am +- 0.4 %"                                                                                                               },
      {"a component without a unit",                Sounding(1,    1,   iCmpRef, {25}),       1,            false, false,
       "Stn 1 Ref 4 Hz, window 1, 0.56 msec, 25.0 +- 0.4 %"                                                                                                                    },
      {"the current",                               Sounding(1,    1,   iCmpOff, {25}),       1,            false, false,
       "Stn 1 Off 4 Hz, window 1, 0.56 msec, 25.0 amp +- 0.4 %"                                                                                                                },
      {"a field, which has no error",               Sounding(1,    1,   iCmpHz,  {25}),       iField,       false, false,
       "Stn 1 Hz 4 Hz, window 1, 0.56 msec, no value"                                                                                                                          },
      {"no resistivity",                            Sounding(1,    1,   iCmpHz,  {25}),       iResistivity, false, false,
       "Stn 1 Hz 4 Hz, window 1, 0.56 msec, no value"                                                                                                                          },
  };
  for (const auto& hOf : hCase) {
    SCOPED_TRACE(hOf.sCase);
    Begin_Test();
    Transient h = hOf.h;
    hTemSurvey.idBdtUnit = 1;
    h.bSkip(1) = hOf.bSkip;
    h.bSkipTrn = hOf.bSkipTrn;
    EXPECT_EQ(Point_Words(h, 1, hOf.iPlotType), hOf.sWords);
  }
}

}  // namespace
}  // namespace quillan

#include "toolkit/dialog/form.h"

#include <gtest/gtest.h>

#include "commands/auto_skip_command.h"
#include "commands/survey_config.h"
#include "support/played_session.h"

namespace quillan {
namespace {

struct Job {
  Text<16> sNumber;
  std::string sName;
  I4 iUnit = 2;
  I4 NTurn = 7;
  R4 fAzimuth = 412.0917f;
  R8 dLine = 482310.123456789;
  L4 bWire = false;
  Array1<R8, 3> dCentre{
      {dDummy, 1.0E-7, 3.0}
  };
  friend bool operator==(const Job&, const Job&) = default;
};

constexpr std::string_view sUnit[] = {"m", "ft"};

// Controls of dialog 103.
constexpr FormRow<Job> hRow[] = {
    {1039, &Job::sNumber},
    {1025, &Job::sName},
    {1040, &Job::iUnit, sUnit},
    {1101, &Job::NTurn, {}, {1.0, 1024.0}},
    {1049, &Job::fAzimuth, "(F12.1)", {-360.0, 360.0}},
    {1051, &Job::dLine, "(F12.1)"},
    {1105, &Job::bWire},
    {1047, FormElement{&Job::dCentre, 1}, "(F12.1)"},
    {1048, FormElement{&Job::dCentre, 2}, "(F12.1)"},
};

/// What the record holds after the user has pressed Continue.
Job Edited(const Job& h0, std::string_view sSteps) {
  PlayedSession hSession(std::string(sSteps) + "press 1009\n");
  const LoadedDialog form(iDlgSurveyConfig);
  Form_Put(hRow, h0);
  Job h = h0;
  EXPECT_EQ(WDialogShow(iCentred, iCentred, iShowModal), iBtnContinue);
  Form_Take(hRow, h);
  EXPECT_EQ(hSession.Errors(), "");
  return h;
}

TEST(Form, WhatTheUserLeavesAloneComesBackExactly) {
  Job h0;
  h0.sNumber = "K\xF6nig";  // bytes of another encoding
  h0.sName = " two blanks  ";
  EXPECT_EQ(Edited(h0, "field 1040 ft\n"), h0) << "the azimuth is out of its range, but it was put";
}

TEST(Form, WhatTheUserEntersIsTakenIfItCanBeRead) {
  const Job h = Edited(Job{},
                       "set 1039 \"7 b\"\nset 1025 Lake\nchoose 1040 1\nset 1101 1025\nset 1049 -361\nset 1051 2.5\n"
                       "check 1105 on\nset 1047 12\nset 1048 \"\"\n");
  Job hWanted;
  hWanted.sNumber = "7 b";
  hWanted.sName = "Lake";
  hWanted.iUnit = 1;
  hWanted.dLine = 2.5;
  hWanted.bWire = true;
  hWanted.dCentre(1) = 12.0;
  EXPECT_EQ(h, hWanted) << "7 turns, the azimuth and the second coordinate stay as they were";
}

TEST(Form, AnUnknownDialogLeavesTheCurrentOneAlone) {
  PlayedSession hSession("");
  const LoadedDialog form(iDlgAutoSkip);
  EXPECT_TRUE(form.Is_There());
  EXPECT_FALSE(LoadedDialog(99).Is_There());
  EXPECT_EQ(WInfoDialog(iCurrentDialog), iDlgAutoSkip);
}

}  // namespace
}  // namespace quillan

// The words on the screen as the names of commands, controls and entries.
#include <gtest/gtest.h>

#include "support/played_session.h"
#include "toolkit/dialog/dialog.h"

namespace quillan {
namespace {

struct Case {
  const char* sStep;
  I4 iMeant;            // 0: none
  const char* sReason;  // part of it
};

TEST(StepNames, AWordMeansWhatTheScreenCallsSoOrNothing) {
  const Case hCases[] = {
      {"menu \"auto  SKIP\"",     40016, ""                                                                  },
      {"menu Save",               40009, ""                                                                  },
      {"menu as",                 40010, ""                                                                  },
      {"menu Exit",               40011, ""                                                                  },
      {"menu 40005",              40005, ""                                                                  },
      {"menu Skip:",              40016, ""                                                                  },
      {"menu sa",                 0,     "command \"sa\" may be Save (40009), Save As (40010)"               },
      {"menu opne",               0,     "no command \"opne\"; there are Open (40005), Save (40009), Save As"},
      {"menu \"\"",               0,     "the menu on show has no command \"\""                              },
      {"menu \"merge data\"",     0,     "command merge data is greyed"                                      },
      {"press \"Zoom in...\"",    1084,  ""                                                                  },
      {"press zoom",              0,     "button \"zoom\" may be Zoom In (1084), Zoom All (1085)"            },
      {"press Continue",          0,     "no button \"Continue\"; there are Save Data (1060), Skip All"      },
      {"slide Curve 2",           1081,  ""                                                                  },
      {"check \"Skip All\" on",   0,     "the dialog has no check box \"Skip All\""                          },
      {"choose view \"two One\"", 1090,  ""                                                                  },
      {"choose View 3",           0,     "the drop-down has 2 entries"                                       },
      {"choose View t",           0,     "entry \"t\" may be One two (1), Two-one (2)"                       },
  };
  for (const Case& h : hCases) {
    PlayedSession hSession(h.sStep);
    Show_Test_Menu();
    WMessageEnable(MessageType::Field, true);
    WDialogLoad(115);
    WDialogPutMenu1(1090, std::vector<std::string>{"One two", "Two-one"}, 1);
    WDialogRangeTrackbar(1081, 1, 3, 1);
    WDialogShow(0, 0, iShowTool);
    const std::vector<Message> hAll = hSession.Rest();
    EXPECT_EQ(hAll.empty() ? 0 : hAll.front().VALUE1, h.iMeant) << h.sStep << hSession.Errors();
    EXPECT_NE(hSession.Errors().find(h.sReason), std::string::npos) << h.sStep << ": " << hSession.Errors();
    WDialogUnload();
  }
}

}  // namespace
}  // namespace quillan

// The bar of long work, and the key that stops it.
#include <gtest/gtest.h>

#include "support/played_session.h"
#include "toolkit/window/log_text.h"
#include "toolkit/window/private_window.h"

namespace quillan {
namespace {

TEST(ProgressBar, StandsInTheStatusBarForAsLongAsTheWorkRuns) {
  PlayedSession hSession(
      "expect \"3400 of 15000 kB\"\nsnapshot bar.png\nkey x\nexpect \"as before\"\nsnapshot no_bar.png\nkey y\n");
  WindowStatusBarParts(32);
  WindowOutStatusBar(iStatusProgress, "as before");
  WindowOutStatusBar(iStatusStanding, "NOT SAVED: line7.avg");
  WindowProgress(0.1, "Reading line7.avg: 1500 of 15000 kB. Esc stops.");
  WindowProgress(3.4 / 15.0, "Reading line7.avg: 3400 of 15000 kB. Esc stops.");
  EXPECT_EQ(hSession.Next().iType, MessageType::Key);
  WindowProgressEnd();
  WindowProgressEnd();
  hSession.Rest();
  EXPECT_EQ(Script_Exit_Status(), 0) << hSession.Errors();
}

TEST(Look, OnlyEscStopsWork) {
  PlayedSession hSession("key a\nstop\nkey b\n");
  EXPECT_EQ(hSession.Next().VALUE1, 'a');
  EXPECT_EQ(hSession.Next().VALUE1, 'b');
  EXPECT_EQ(Message_Check(), iLookEsc);
  EXPECT_NE(Message_Check(), iLookEsc) << "it was pressed once";
  hSession.Rest();
}

TEST(Look, InAReviewACloseRequestStopsWorkAndIsForTheReview) {
  PlayedSession hSession("");
  Show_Test_Menu();
  toolkit::Main_Window()->close();
  EXPECT_EQ(Message_Check(), iLookEsc);
  EXPECT_EQ(Message_Check(), iLookEsc) << "it waits";
  EXPECT_EQ(hSession.Next().iType, MessageType::Close);
}

}  // namespace
}  // namespace quillan

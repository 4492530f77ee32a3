// The tool windows of the reviews, off-screen, used by a script's events beside a plot.
#include <gtest/gtest.h>

#include "support/played_session.h"
#include "toolkit/dialog/dialog.h"
#include "toolkit/draw/last_error.h"

namespace quillan {
namespace {

/// A session with a tool window at the upper right corner of the drawing area.
class ToolSession : public PlayedSession {
 public:
  ToolSession(I4 iDialog, std::string_view sSteps, I4 NBeyond = 0) : PlayedSession(sSteps) {
    WMessageEnable(MessageType::Field, true);
    WDialogLoad(iDialog);
    WDialogRangeTrackbar(Trackbar(iDialog), 1, 20, 4);
    WDialogShow(WInfoWindow(iWindowWidth) - WInfoDialog(iDialogWidth) - 1 + NBeyond, 0, iShowTool);
    InfoError();
  }
  static I4 Trackbar(I4 iDialog) { return iDialog == iDlgReviewCurve ? iTrkCurve : iTrkSection; }

  /// All messages in short: "n" and "Up" for keys, "1082!" for a button, "1111" for a field, "m40016" for the menu,
  /// "d1" and "u1" for a mouse button.
  std::string Told() {
    std::string sTold;
    for (const Came& hCame : Rest()) sTold += (sTold.empty() ? "" : " ") + In_Short(hCame);
    return sTold;
  }

 private:
  static std::string In_Short(const Came& hCame) {
    const I4 iValue = hCame.hMessage.VALUE1;
    switch (hCame.iType) {
      case MessageType::Key:
        return iValue > ' ' && iValue < 127 ? std::string(1, static_cast<char>(iValue)) : Code(iValue);
      case MessageType::Button: return std::to_string(iValue) + "!";
      case MessageType::Field: return std::to_string(iValue);
      case MessageType::Menu: return "m" + std::to_string(iValue);
      case MessageType::MouseDown: return "d" + std::to_string(iValue);
      case MessageType::MouseUp: return "u" + std::to_string(iValue);
      default: return "?";
    }
  }
  static std::string Code(I4 iKey) { return "<" + std::to_string(iKey) + ">"; }
};

R4 Noise_Floor() {
  R4 fNoise = -1.0f;
  WDialogGetReal(iFldNoiseFloor, fNoise);
  return fNoise;
}

TEST(ToolWindow, LeavesTheKeyboardToThePlot) {
  for (const I4 iDialog : {iDlgReviewCurve, iDlgReviewSection}) {
    SCOPED_TRACE(iDialog);
    ToolSession hSession(iDialog,
                         "key n\nkey Esc\nkey Enter\nkey Tab\nkey Down\npress 1084\nkey 5\nchoose 1090 2\nkey P\n");
    EXPECT_EQ(hSession.Told(), "n <27> <13> <9> <259> 1084! 5 1090 P") << "no key closes it or pushes a button";
    EXPECT_EQ(Script_Exit_Status(), 0) << "a tool window does not wait for an answer";
  }
}

TEST(ToolWindow, DoesNotStandInTheWayOfMenuAndMouse) {
  ToolSession hSession(iDlgReviewCurve, "menu 40016\nclick 9.9 9.9\nkey Ctrl+S\nwheel 1 9.9 9.9\n");
  EXPECT_EQ(hSession.Told(), "m40016 d1 u1 m40009 d5");
}

TEST(ToolWindow, ATextFieldKeepsTheKeysOfItsNumber) {
  struct Case {
    const char* sSteps;
    const char* sTold;
    R4 fNoise;
  };
  for (const Case& hCase : {
           Case{"key 2\nkey Enter\nkey 7\n",                      "1111 1111 7",              52.0f },
           Case{"key .\nkey 2\nkey E\nkey -\nkey 1\nkey Enter\n", "1111 1111",                0.52f },
           Case{"key 2\nkey Left\nkey 1\nkey Enter\n",            "1111 1111",                512.0f},
           Case{"key 2\nkey n\nkey Up\nkey 1\nkey P\n",           "1111 1111 n <258> 1111 P", 521.0f},
           Case{"key 2\nkey Esc\nkey 7\n",                        "1111 7",                   5.0f  },
           Case{"key 2\nkey Tab\nkey 7\n",                        "1111 1111 7",              52.0f },
  }) {
    SCOPED_TRACE(hCase.sSteps);
    ToolSession hSession(iDlgReviewSection, "set 1111 5\n" + std::string(hCase.sSteps));
    WDialogPutReal(iFldNoiseFloor, 1.0f, "(1P,G14.3)");
    EXPECT_EQ(hSession.Told(), hCase.sTold);
    EXPECT_EQ(Noise_Floor(), hCase.fNoise);
  }
}

// Paging with a number half typed would else store it for another section.
TEST(ToolWindow, AnEditIsCompleteBeforeWhatFollowsIt) {
  for (const auto& [sStep, sTold] : {
           std::pair{"slide 1109 3",  "1109"  },
           {"choose 1090 3", "1090"  },
           {"press 1085",    "1085!" },
           {"click 5 5",     "d1 u1" },
           {"wheel -1 5 5",  "d4"    },
           {"menu 40016",    "m40016"},
           {"key Ctrl+S",    "m40009"},
           {"key F",         "F"     }
  }) {
    ToolSession hSession(iDlgReviewSection, "set 1111 5\nkey 2\n" + std::string(sStep) + "\n");
    EXPECT_EQ(hSession.Told(), "1111 1111 " + std::string(sTold)) << sStep;
    EXPECT_EQ(Noise_Floor(), 52.0f) << sStep;
  }
}

TEST(ToolWindow, APutLeavesAHalfTypedNumberAndNothingElse) {
  ToolSession hSession(iDlgReviewSection, "set 1111 5\nkey 2\nresize 800 500\nkey Enter\n");
  EXPECT_EQ(hSession.Next().iType, MessageType::Field);
  Came hCame;
  while (hCame.iType != MessageType::Resize || hCame.hMessage.WPIX != 800) WMessage(hCame.iType, hCame.hMessage);
  WDialogPutReal(iFldNoiseFloor, 9.0f, "(1P,G14.3)");
  EXPECT_EQ(hSession.Next().iType, MessageType::Field);
  EXPECT_EQ(Noise_Floor(), 52.0f);
  WDialogPutReal(iFldNoiseFloor, 9.0f, "(1P,G14.3)");
  EXPECT_EQ(Noise_Floor(), 9.0f);
  EXPECT_EQ(hSession.Next().iType, MessageType::Close) << "a put raises no message";
}

TEST(ToolWindow, ATrackbarGivesBackWhatWasPutUntilItIsMoved) {
  ToolSession hSession(iDlgReviewCurve, "slide 1081 7\nfield 1081 7\nslide 1081 7\nslide 1081 20\nslide 1081 21\n");
  for (const I4 iPut : {3, 20, 21, 5000, -4}) {  // a step of 4, and values beyond the ends
    I4 iGot = 0;
    WDialogPutTrackbar(iTrkCurve, iPut);
    WDialogGetTrackbar(iTrkCurve, iGot);
    EXPECT_EQ(iGot, iPut);
  }
  for (const I4 iMoved : {7, 20}) {
    I4 iGot = 0;
    EXPECT_EQ(hSession.Next().hMessage.VALUE1, iTrkCurve);
    WDialogGetTrackbar(iTrkCurve, iGot);
    EXPECT_EQ(iGot, iMoved);
  }
  EXPECT_EQ(hSession.Next().iType, MessageType::Close);
  EXPECT_EQ(hSession.Errors(), "steps.txt:5: the trackbar goes from 1 to 20\n");
  I4 iKept = 77;
  WDialogGetTrackbar(iFldNoiseFloor, iKept);
  EXPECT_EQ(InfoError(), iErrNoField);
  EXPECT_EQ(iKept, 77);
}

/// Width of a PNG file, which stands in its first record.
I4 Width_of_Png(const char* sPath) {
  std::ifstream hFile(sPath, std::ios::binary);
  unsigned char c[20] = {};
  hFile.read(reinterpret_cast<char*>(c), sizeof c);
  return c[16] << 24 | c[17] << 16 | c[18] << 8 | c[19];
}

TEST(ToolWindow, StandsWhereItIsToldAndKeepsItsWidth) {
  for (const I4 iDialog : {iDlgReviewCurve, iDlgReviewSection}) {
    ToolSession hInside(iDialog, "snapshot inside.png\n", 0);
    const I4 NWidth = WInfoDialog(iDialogWidth);
    EXPECT_LT(NWidth, 300) << "compact";
    WDialogPutString(iLblHint1, "Move mouse cursor to box corner,");
    WDialogPutString(iLblHint2, "then left-click so set corner location.");
    EXPECT_EQ(hInside.Told(), "");
    EXPECT_EQ(Width_of_Png("inside.png"), 900);
    EXPECT_EQ(WInfoDialog(iDialogWidth), NWidth) << "other hints do not make it jump";
  }
  ToolSession hBeyond(iDlgReviewCurve, "snapshot beyond.png\n", 51);
  EXPECT_EQ(hBeyond.Told(), "");
  EXPECT_EQ(Width_of_Png("beyond.png"), 900 + 51);
}

}  // namespace
}  // namespace quillan

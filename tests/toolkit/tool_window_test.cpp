// The tool windows of the reviews, off-screen, used by a script's events beside a plot.
#include <gtest/gtest.h>

#include <QImage>
#include <array>

#include "support/played_session.h"
#include "toolkit/dialog/dialog.h"
#include "toolkit/dialog/grid.h"

namespace quillan {
namespace {

// Controls of the tool windows 115 and 118.
constexpr I4 iTrackbar115 = 1081, iTrackbar118 = 1109, iNoiseFloor = 1111;

/// A session with a tool window at the upper right corner of the drawing area.
class ToolSession : public PlayedSession {
 public:
  ToolSession(I4 iDialog, std::string_view sSteps) : PlayedSession(sSteps) {
    Show_Test_Menu();
    WMessageEnable(MessageType::Field, true);
    WDialogLoad(iDialog);
    WDialogRangeTrackbar(iDialog == 115 ? iTrackbar115 : iTrackbar118, 1, 20, 4);
    WDialogShow(WInfoWindow(iWindowWidth) - WInfoDialog(iDialogWidth) - 1, 0, iShowTool);
  }

  /// All messages in short: "n" and "Up" for keys, "1082!" for a button, "1111" for a field, "m40016" for the menu,
  /// "d1" and "u1" for a mouse button.
  std::string All() {
    std::string sAll;
    for (const Message& h : Rest()) sAll += (sAll.empty() ? "" : " ") + In_Short(h);
    return sAll;
  }

 private:
  static std::string In_Short(const Message& h) {
    const std::string sValue = std::to_string(h.VALUE1);
    switch (h.iType) {
      case MessageType::Key:
        return h.VALUE1 > ' ' && h.VALUE1 < 127 ? std::string(1, static_cast<char>(h.VALUE1)) : "<" + sValue + ">";
      case MessageType::Button: return sValue + "!";
      case MessageType::Field: return sValue;
      case MessageType::Menu: return "m" + sValue;
      case MessageType::MouseDown: return "d" + sValue;
      case MessageType::MouseUp: return "u" + sValue;
      default: return "?";
    }
  }
};

TEST(ToolWindow, LeavesTheKeyboardToThePlot) {
  for (const I4 iDialog : {115, 118}) {
    SCOPED_TRACE(iDialog);
    ToolSession hSession(iDialog,
                         "key n\nkey Esc\nkey Enter\nkey Tab\nkey Down\npress 1084\nkey 5\nchoose 1090 2\nkey P\n");
    EXPECT_EQ(hSession.All(), "n <27> <13> <9> <259> 1084! 5 1090 P") << "no key closes it or pushes a button";
    EXPECT_EQ(Script_Exit_Status(), 0) << "a tool window does not wait for an answer";
  }
}

TEST(ToolWindow, ATableBesideThePlotTakesItsKeysOnlyWhileACellIsEdited) {
  constexpr I4 iGrid = 1073, iSpin = 1057;
  PlayedSession hSession("cell 1073 1 2 on\nkey n\ncell 1073 1 3 5\nkey p\nset 1057 12\nkey f\npress 1053\nkey l\n");
  WMessageEnable(MessageType::Field, true);
  WDialogLoad(109);
  WDialogPutInteger(iSpin, 1);
  WGridRows(iGrid, 2);
  WGridPutCheckBox(iGrid, 2, std::array<L4, 2>{});
  WGridPutReal(iGrid, 3, std::vector<R4>{1.0f, 1.0f}, "(F10.2)");
  WDialogShow(0, 0, iShowTool);
  std::string sAll;
  for (const Message& h : hSession.Rest())
    sAll += h.iType == MessageType::Key ? std::string(1, static_cast<char>(h.VALUE1)) : std::to_string(h.VALUE1);
  EXPECT_EQ(sAll, "1073n1073p1057f1053l");
  EXPECT_EQ(WGridGetCheckBox(iGrid, 2), (std::vector<L4>{true, false}));
  EXPECT_EQ(WGridGetReal(iGrid, 3).front(), 5.0f);
  EXPECT_EQ(WDialogGetInteger(iSpin), 12);
}

TEST(ToolWindow, ATextFieldKeepsTheKeysOfItsNumber) {
  struct Case {
    const char* sSteps;
    const char* sAll;
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
    ToolSession hSession(118, "set 1111 5\n" + std::string(hCase.sSteps));
    WDialogPutReal(iNoiseFloor, 1.0f, "(1P,G14.3)");
    EXPECT_EQ(hSession.All(), hCase.sAll);
    EXPECT_EQ(WDialogGetReal(iNoiseFloor), hCase.fNoise);
  }
}

// Paging with a number half typed would else store it for another section.
TEST(ToolWindow, AnEditIsCompleteBeforeWhatFollowsIt) {
  for (const auto& [sStep, sAll] : {
           std::pair{"slide 1109 3",  "1109"  },
           {"choose 1090 3", "1090"  },
           {"press 1085",    "1085!" },
           {"click 5 5",     "d1 u1" },
           {"wheel -1 5 5",  "d4"    },
           {"menu 40016",    "m40016"},
           {"key Ctrl+S",    "m40009"},
           {"key F",         "F"     }
  }) {
    ToolSession hSession(118, "set 1111 5\nkey 2\n" + std::string(sStep) + "\n");
    EXPECT_EQ(hSession.All(), "1111 1111 " + std::string(sAll)) << sStep;
    EXPECT_EQ(WDialogGetReal(iNoiseFloor), 52.0f) << sStep;
  }
}

TEST(ToolWindow, APutLeavesAHalfTypedNumberAndNothingElse) {
  ToolSession hSession(118, "set 1111 5\nkey 2\nresize 800 500\nkey Enter\n");
  EXPECT_EQ(hSession.Next().iType, MessageType::Field);
  for (Message h; h.iType != MessageType::Resize || h.WPIX != 800;) h = WMessage();
  WDialogPutReal(iNoiseFloor, 9.0f, "(1P,G14.3)");
  EXPECT_EQ(hSession.Next().iType, MessageType::Field);
  EXPECT_EQ(WDialogGetReal(iNoiseFloor), 52.0f);
  WDialogPutReal(iNoiseFloor, 9.0f, "(1P,G14.3)");
  EXPECT_EQ(WDialogGetReal(iNoiseFloor), 9.0f);
  EXPECT_EQ(hSession.Next().iType, MessageType::Close) << "a put raises no message";
}

TEST(ToolWindow, ATrackbarGivesBackWhatWasPutUntilItIsMoved) {
  ToolSession hSession(115, "slide 1081 7\nfield 1081 7\nslide 1081 7\nslide 1081 20\nslide 1081 21\n");
  for (const I4 iPut : {3, 20, 21, 5000, -4}) {  // a step of 4, and values beyond the ends
    WDialogPutTrackbar(iTrackbar115, iPut);
    EXPECT_EQ(WDialogGetTrackbar(iTrackbar115), iPut);
  }
  for (const I4 iMoved : {7, 20}) {
    EXPECT_EQ(hSession.Next().VALUE1, iTrackbar115);
    EXPECT_EQ(WDialogGetTrackbar(iTrackbar115), iMoved);
  }
  EXPECT_EQ(hSession.Next().iType, MessageType::Close);
  EXPECT_EQ(hSession.Errors(), "steps.txt:5: the trackbar goes from 1 to 20\n");
  EXPECT_FALSE(WDialogGetTrackbar(iNoiseFloor));
  EXPECT_EQ(InfoError(), iErrNoField);
}

TEST(ToolWindow, IsInThePictureBesideTheMainWindowAndKeepsItsWidth) {
  for (const I4 iDialog : {115, 118}) {
    ToolSession hSession(iDialog, "snapshot beside.png\n");
    const I4 NWidth = WInfoDialog(iDialogWidth);
    EXPECT_LT(NWidth, 300) << "compact";
    WDialogPutString(1088, "Move mouse cursor to box corner,");
    WDialogPutString(1089, "then left-click so set corner location.");
    EXPECT_EQ(hSession.All(), "");
    EXPECT_EQ(QImage("beside.png").size(), QSize(900 + NWidth, 600)) << "its edge adds no line to the window's height";
    EXPECT_EQ(WInfoDialog(iDialogWidth), NWidth) << "other hints do not make it jump";
  }
}

}  // namespace
}  // namespace quillan

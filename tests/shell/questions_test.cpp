// What the readers ask of the user, through the dialogs.
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "commands/auto_skip_command.h"
#include "foundations/log_file.h"
#include "foundations/str_parse.h"
#include "shell/user_at_window.h"
#include "support/files.h"
#include "support/played_session.h"
#include "toolkit/dialog/dialog.h"

namespace quillan {
namespace {

using Labels = std::vector<std::string_view>;
using Fields = std::vector<std::string>;

class Questions : public testing::Test {
 protected:
  void SetUp() override {
    bAutoErr = true;
    (void)Log_Initialize("quillan");
    hUser = User_at_Window();
  }
  void TearDown() override { hUser = No_User(); }
};

TEST_F(Questions, TheUserCompletesAMatchOfColumns) {
  // Continue is refused as long as the required column is missing.
  PlayedSession hSession("expect \"Verify column labels in f.stn\"\npress 1009\ncell 1078 1 3 1\npress 1009\n");
  const I4 JCheck[] = {1};
  ColumnMap hColumn;
  EXPECT_EQ(Str_Column_Labels_Dialog("f.stn", "x,b", true, {}, Labels{"A", "B", "C"}, Labels{"a", "b", "c"}, JCheck, 9,
                                     hColumn),
            0);
  EXPECT_EQ(Script_Exit_Status(), 0) << hSession.Errors();
  EXPECT_EQ(hColumn.KCol, (std::vector<I4>{1, 2, 0}));
  EXPECT_EQ(hColumn.JCol[0], 1);
  EXPECT_EQ(hColumn.JCol[1], 2);
  EXPECT_EQ(hColumn.JCol[2], 0) << "the entry for none is no column";
  EXPECT_NE(Read_Whole_File(sErrFile).find(" ERROR: Missing required data-column labels\n A in\n x,b\n"),
            std::string::npos);
  EXPECT_EQ(WInfoDialog(iCurrentDialog), 0);
}

TEST_F(Questions, ACancelledMatchOfColumnsIsTheAutomaticOne) {
  PlayedSession hSession("cell 1078 2 3 1\npress 1010\n");
  ColumnMap hColumn;
  const auto Match = [&](std::string_view sRecord) {
    return Str_Column_Labels_Dialog("f.stn", sRecord, true, {}, Labels{"A", "B"}, Labels{"a", "b"}, {}, 9, hColumn);
  };
  EXPECT_EQ(Match("a,b"), 0) << "a complete match asks nobody";
  EXPECT_EQ(Match("x,b"), 2);
  EXPECT_EQ(hColumn.KCol, (std::vector<I4>{0, 2}));
  EXPECT_EQ(hColumn.sLabel, (Fields{"x", "b"}));
}

TEST_F(Questions, TheUserIsAskedForAnUnknownWord) {
  const Labels CTable{"EAST", "NORTH", "SOUTH"};
  PlayedSession hSession("field 1072 UP\nchoose 1076 3\npress 1009\nchoose 1076 1\npress 1010\n");
  WDialogLoad(iDlgAutoSkip);
  I4 iFound = 99;
  EXPECT_EQ(Str_to_iEnumeration("up", "LINE.DIRECTION", CTable, iFound), 0);
  EXPECT_EQ(iFound, 3);
  EXPECT_EQ(WInfoDialog(iCurrentDialog), iDlgAutoSkip) << "the dialog that was current is current again";
  WDialogUnload();
  EXPECT_EQ(Str_to_iEnumeration("down", "LINE.DIRECTION", CTable, iFound), 2);
  EXPECT_EQ(iFound, 3) << "Cancel changes nothing";
  EXPECT_EQ(Script_Exit_Status(), 0) << hSession.Errors();
}

}  // namespace
}  // namespace quillan

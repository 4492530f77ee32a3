// The list of edits as the user reads it.
#include "commands/edit_list.h"

#include <gtest/gtest.h>

#include "model/edits.h"
#include "support/files.h"
#include "support/reports.h"
#include "support/survey_builder.h"

namespace quillan {
namespace {

void Flag(I4 j) {
  Edit_Window_Flag(j, 1, true);
  static_cast<void>(History_Keep(""));
}

TEST(EditList, NamesWhatIsGoneAndBracketsWhatIsTakenBack) {
  Load({TransientBuilder().Station(1).Values({5, 4}), TransientBuilder().Station(2).Values({3}),
        TransientBuilder().Station(3.25).Values({3})});
  History_Begin();
  Flag(1);
  NHistoryLimit = 2 * History_Memory();
  Flag(2);
  Flag(3);
  NHistoryLimit = NHistoryMost;
  static_cast<void>(History_Undo());
  const std::vector<EditRow> hRow = Edit_Rows();
  ASSERT_EQ(hRow.size(), 3U);
  EXPECT_EQ(hRow[0].sEdit, "as before the edits below");
  EXPECT_EQ(hRow[1].sEdit + hRow[1].sWhat + hRow[1].sWhere, "Skipwindow 1Stn 2");
  EXPECT_EQ(hRow[2].sEdit + hRow[2].sWhat + hRow[2].sWhere, "(Skip)window 1Stn 3.25");

  ASSERT_EQ(Write_Edit_List(Edit_List_Name("some/line.avg").substr(5), "some/line.avg"), 0);
  const std::vector<std::string> sLine = Read_Lines("line.edits.txt");
  ASSERT_EQ(sLine.size(), 4U);
  EXPECT_TRUE(sLine[0].starts_with("Edits of line.avg, "));
  EXPECT_TRUE(sLine[2].ends_with("  Skip  window 1  Stn 1")) << sLine[2];
  EXPECT_TRUE(sLine[3].ends_with("  Skip  window 1  Stn 2")) << sLine[3];

  LogText_Reset();
  EXPECT_EQ(Write_Edit_List("no/such/folder.txt", "line.avg"), 1);
  EXPECT_EQ(Shown("ERROR: The list of edits is not written."), 1);
}

}  // namespace
}  // namespace quillan

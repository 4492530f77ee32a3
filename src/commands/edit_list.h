// edit_list.h: the edits as a table, for dialog 120 and for the file that Write List makes of it.
//
//   Edits of small.avg, QUILLAN v3.30n
//
//   2020-11-13 00:00:00  Auto Skip              4 windows   2 soundings
//   2020-11-13 00:00:00  Moving Average Filter  14 values   3 soundings
//
// The file holds what is in force, also what can no longer be taken back.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/types.h"
#include "model/history.h"

namespace quillan {

/// A row of the dialog or the file.
struct EditRow {
  std::string sTime, sEdit, sWhat, sWhere;
};
EditRow Edit_Row(const EditWords& h);

/// The rows of the dialog: the state before all edits, then one an edit; those taken back in brackets.
std::vector<EditRow> Edit_Rows();

/// The file beside a data file: "small.avg" has "small.edits.txt".
std::string Edit_List_Name(std::string_view sDataFile);

/// Writes it. Returns 0; 1 it could not be written, which is reported.
[[nodiscard]] I4 Write_Edit_List(std::string_view sListFile, std::string_view sDataFile);

}  // namespace quillan

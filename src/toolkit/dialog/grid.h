// grid.h: tables in dialogs. Rows and columns are counted from 1; a whole column is put and read at once.
//
// Numbers follow the rules of the fields in dialog.h: exact read-back, empty where a value is missing, a red mark where
// a text is no number or out of range. A grid or column that is not there sets the error status. A click anywhere in a
// cell with a check box switches the box, and so does the space bar.
#pragma once

#include <algorithm>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/edit_form.h"
#include "base/types.h"
#include "toolkit/draw/last_error.h"

namespace quillan {

void WGridRows(I4 iGrid, I4 NRow);
/// The words before the rows, from the first row on.
void WGridLabelRows(I4 iGrid, std::span<const std::string> sLabel);
/// The word above those words.
void WGridLabelCorner(I4 iGrid, std::string_view sLabel);
/// Limits of the numbers in a column.
void WGridRangeReal(I4 iGrid, I4 iColumn, R8 dLow, R8 dHigh);

void WGridPutString(I4 iGrid, I4 iColumn, std::span<const std::string> sText);
void WGridPutReal(I4 iGrid, I4 iColumn, std::span<const R4> fValue, const EditForm& form);
void WGridPutMenu(I4 iGrid, I4 iColumn, std::span<const std::string> sEntry, std::span<const I4> iSelect);
void WGridPutCheckBox(I4 iGrid, I4 iColumn, std::span<const L4> bOn);

// States of a cell.
inline constexpr I4 iCellInUse = 1;
inline constexpr I4 iCellUnused = 2;  // the user cannot change it; it is greyed and shows no check box
/// The states of the cells of a column, from the first row on.
void WGridStateColumn(I4 iGrid, I4 iColumn, std::span<const I4> iState);

/// A table whose rows are chosen as a whole: which one is, from 1; 0: none.
void WGridSelectRow(I4 iGrid, I4 iRow);
[[nodiscard]] I4 WGridSelectedRow(I4 iGrid);

/// The cells of a column from the first row on; nothing where one is empty or bad.
[[nodiscard]] std::vector<std::optional<R4>> WGridGetReal(I4 iGrid, I4 iColumn);
/// The entries chosen, counted from 1; 0 where none is.
[[nodiscard]] std::vector<I4> WGridGetMenu(I4 iGrid, I4 iColumn);
/// False where a cell has no box.
[[nodiscard]] std::vector<L4> WGridGetCheckBox(I4 iGrid, I4 iColumn);

}  // namespace quillan

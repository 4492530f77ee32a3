// grid.h: tables in dialogs. Rows and columns are counted from 1; a whole column is put and read at once.
//
// Numbers follow the rules of the fields in dialog.h: exact read-back, empty where a value is missing, a red mark where
// a text is no number or out of range. A grid or column that is not there sets the error status.
#pragma once

#include <algorithm>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "base/edit_form.h"
#include "base/types.h"
#include "toolkit/draw/last_error.h"

namespace quillan {

void WGridRows(I4 iGrid, I4 NRow);
/// Limits of the numbers in a column.
void WGridRangeReal(I4 iGrid, I4 iColumn, R8 dLow, R8 dHigh);

void WGridPutString(I4 iGrid, I4 iColumn, std::span<const std::string> sText);
void WGridPutReal(I4 iGrid, I4 iColumn, std::span<const R4> fValue, const EditForm& form);
void WGridPutMenu(I4 iGrid, I4 iColumn, std::span<const std::string> sEntry, std::span<const I4> iSelect);

/// A table whose rows are chosen as a whole: which one is, from 1; 0: none.
void WGridSelectRow(I4 iGrid, I4 iRow);
[[nodiscard]] I4 WGridSelectedRow(I4 iGrid);

/// The cells of a column from the first row on; nothing where one is empty or bad.
[[nodiscard]] std::vector<std::optional<R4>> WGridGetReal(I4 iGrid, I4 iColumn);
/// The entries chosen, counted from 1; 0 where none is.
[[nodiscard]] std::vector<I4> WGridGetMenu(I4 iGrid, I4 iColumn);

}  // namespace quillan

// grid.h: tables in dialogs. Rows and columns are counted from 1; a whole column is put and read at once.
//
// Numbers follow the rules of the fields in dialog.h: exact read-back, empty where a value is missing, a red mark
// and an error where a text is no number or out of range.
#pragma once

#include <span>
#include <string>

#include "base/edit_form.h"
#include "base/types.h"

namespace quillan {

void WGridRows(I4 iGrid, I4 NRow);
void WGridLabelRow(I4 iGrid, I4 iRow, std::string_view sLabel);
void WGridLabelColumn(I4 iGrid, I4 iColumn, std::string_view sLabel);
/// Limits of the numbers in a column.
void WGridRangeReal(I4 iGrid, I4 iColumn, R8 dLow, R8 dHigh);

void WGridPutString(I4 iGrid, I4 iColumn, std::span<const std::string> sText);
void WGridPutReal(I4 iGrid, I4 iColumn, std::span<const R4> fValue, const EditForm& form);
void WGridPutMenu(I4 iGrid, I4 iColumn, std::span<const std::string> sEntry, std::span<const I4> iSelect);

/// A cell that is empty or bad leaves its element as it is and sets the error status.
void WGridGetReal(I4 iGrid, I4 iColumn, std::span<R4> fValue);
void WGridGetMenu(I4 iGrid, I4 iColumn, std::span<I4> iSelect);

}  // namespace quillan

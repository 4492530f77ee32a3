// last_error.h: the status of the toolkit's last call that failed.
#pragma once

#include <string>
#include <string_view>

#include "base/types.h"

namespace quillan {

// Errors, as WInfoErrorMessage words them.
inline constexpr I4 iErrNone = 0;
inline constexpr I4 iErrNoDialog = 1;     // no such dialog, or none is current
inline constexpr I4 iErrNoField = 2;      // the current dialog has no such field
inline constexpr I4 iErrFieldBad = 4;     // a field or cell is empty, no number or out of range
inline constexpr I4 iErrFile = 5;         // a file could not be read or written
inline constexpr I4 iErrNoWindow = 6;     // there is no window to draw on
inline constexpr I4 iErrBadArgument = 7;  // a call made no sense

/// The error of the last call that failed; asking clears it.
I4 InfoError();
std::string WInfoErrorMessage(I4 iCode);

/// Reports the last error, if there is one; more than 20 of them end the run. sTraceBack: routine and a number.
void InqWintError(std::string_view sTraceBack = {});

// Module state: how many errors InqWintError has reported. Last_Error_Initialize restores both.
inline I4 NWErr = 0;
void Last_Error_Initialize();

}  // namespace quillan

namespace quillan::toolkit {

/// Every operation of the toolkit that fails calls this.
void Set_Error(I4 iCode);

}  // namespace quillan::toolkit

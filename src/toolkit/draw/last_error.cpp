#include "toolkit/draw/last_error.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "base/text.h"
#include "foundations/log_file.h"

namespace quillan {

namespace {

constexpr I4 MWErr = 20;  // errors that a run may have

I4 iLastError = iErrNone;

struct ErrorWords {
  I4 iCode;
  std::string_view sWords;
};
constexpr ErrorWords hErrorWords[] = {
    {iErrNone,        "No error"                                      },
    {iErrNoDialog,    "There is no such dialog, or none is current"   },
    {iErrNoField,     "The dialog has no such field"                  },
    {iErrFieldBad,    "The field holds no number, or one out of range"},
    {iErrFile,        "A file could not be read or written"           },
    {iErrNoWindow,    "There is no window to draw on"                 },
    {iErrBadArgument, "A call had an argument that makes no sense"    },
};

}  // namespace

void toolkit::Set_Error(I4 iCode) {
  iLastError = iCode;
}

I4 InfoError() {
  return std::exchange(iLastError, iErrNone);
}

std::string WInfoErrorMessage(I4 iCode) {
  const auto* hRow = std::ranges::find(hErrorWords, iCode, &ErrorWords::iCode);
  if (hRow == std::end(hErrorWords)) return "Toolkit error " + std::to_string(iCode);
  return std::string(hRow->sWords);
}

void InqWintError(std::string_view sTraceBack) {
  const I4 iCode = InfoError();
  if (iCode == iErrNone) return;
  std::string sWhere = "Graphics ERROR";
  if (!Trimmed(sTraceBack).empty()) sWhere.append(": from ").append(Trimmed(sTraceBack));
  LogErr({sWhere, WInfoErrorMessage(iCode)});
  if (++NWErr <= MWErr) return;
  LogErr_File({" Program run aborted, more than 20 graphics errors."});
  Stop_Program();
}

void Last_Error_Initialize() {
  iLastError = iErrNone;
  NWErr = 0;
}

}  // namespace quillan

// system.h: what the program asks of the operating system: arguments, variables, folders, the date, the safe
// replacement of files; and the toolkit's last error.
#pragma once

#include <string>
#include <string_view>

#include "base/types.h"
#include "toolkit/ids.h"

namespace quillan {

/// The error status of the last toolkit call that failed; iInfoLastError clears it.
I4 InfoError(I4 iSelect);
std::string WInfoErrorMessage(I4 iCode);

/// Selector iNumberOfArguments: the arguments behind the program's name, options taken out.
I4 WInfoSystem(I4 iSelect);

/// Argument iArg; 0 is the program's own path; blank for a negative or missing one.
void IOsArgument(I4 iArg, std::string& sValue);
/// An environment variable; blank where it is not set.
void IOsVariable(std::string_view sName, std::string& sValue);
/// The working folder, without a separator at its end.
void IOsDirName(std::string& sDir);

struct Date {
  I4 iYear, iMonth, iDay;
};
/// Today, or the day of SOURCE_DATE_EPOCH (UTC) where that is set, so that files can be reproduced.
Date IOsDate();

bool IOsFileExists(std::string_view sPath);

/// The path of a companion file. The name as given if it exists, else the first in byte order of the names in its
/// folder that differ from it in case only, else the name as given.
std::string IOsFindCompanion(std::string_view sPath);

/// Copies a file, replacing the target as SafeFile does. Failure sets the error status: iInfoLastError, iInfoIOError,
/// iInfoOSError.
void IOsCopyFile(std::string_view sFrom, std::string_view sTo);

/// A file that takes the place of another only when it is complete.
///
/// Bytes go to a hidden temporary file with a unique name in the target's folder. Commit flushes it to the disk, gives
/// it the target's mode, renames it over the target and flushes the folder. Until then the target is untouched; a
/// file that is not committed is removed. Links are resolved; a target that is not writable or no regular file is
/// refused. After a failure every further call does nothing.
class SafeFile {
 public:
  explicit SafeFile(std::string_view sPath);
  ~SafeFile();
  SafeFile(const SafeFile&) = delete;
  SafeFile& operator=(const SafeFile&) = delete;

  bool Has_Failed() const { return iOSError != 0; }
  /// Why, in words: "No space left on device".
  std::string Reason() const;
  I4 OSError() const { return iOSError; }

  void Write(std::string_view sBytes);
  void Commit();

 private:
  void Fail(int iSystemError);
  void Discard();

  std::string sTarget;     // with links resolved
  std::string sTemporary;  // blank: there is none
  int iHandle = -1;
  int iMode = 0;
  int iOSError = 0;
};

}  // namespace quillan

// system.h: what the program asks of the operating system: arguments, variables, folders, the date, the safe
// replacement of files; and the toolkit's last error.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/types.h"
#include "toolkit/ids.h"

namespace quillan {

// Kinds of a failed copy, as iInfoIOError tells them.
inline constexpr I4 iIOErrOpen = 1;   // the source is missing, no regular file, or may not be read
inline constexpr I4 iIOErrRead = 2;   // the source could not be read to its end
inline constexpr I4 iIOErrWrite = 3;  // the target could not be written

// Module state: the last call that failed. Every operation of the toolkit that fails fills it.
struct LastError {
  I4 iCode = iErrNone;
  I4 iIOCode = 0;
  I4 iOSCode = 0;
};
inline LastError hLastError;

/// The error status of the last toolkit call that failed. Asking iInfoLastError clears it; the two figures behind it,
/// iInfoIOError and iInfoOSError, stay until the next failure.
I4 InfoError(I4 iSelect);
/// An error number iErr... in words.
std::string WInfoErrorMessage(I4 iCode);

/// Prepares the process: a file that meets a size limit is a failed write, told in words, and not the end of the run.
void System_Initialize();

// Module state: the command line that IOsArgument tells. System_Set_Arguments fills it.
inline std::vector<std::string> sCommandLine;

/// The command line without the options: the program's name, then the arguments.
void System_Set_Arguments(std::vector<std::string> sLine);

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

/// Whether there is a file of that name. A folder is none.
bool IOsFileExists(std::string_view sPath);

/// The path of a companion file. The name as given if it exists, else the first in byte order of the names in its
/// folder that differ from it in case only, else the name as given.
std::string IOsFindCompanion(std::string_view sPath);

/// Copies a file, replacing the target as SafeFile does; a new target gets the mode of the source. Failure sets the
/// error status: iInfoLastError is iErrFile, iInfoIOError the kind, iInfoOSError the system's error number.
void IOsCopyFile(std::string_view sFrom, std::string_view sTo);

/// A file that takes the place of another only when it is complete.
///
/// Bytes go to a hidden temporary file with a unique name in the target's folder, which has the target's mode. Commit
/// flushes it to the disk, renames it over the target and flushes the folder. Until then the target is untouched; a
/// file that is not committed is removed. Links are resolved; a target that is not writable or no regular file is
/// refused. After a failure every further call does nothing.
class SafeFile {
 public:
  /// iNewMode: permissions of a file that is not there yet, before the user's mask.
  explicit SafeFile(std::string_view sPath, I4 iNewMode = 0666);
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
  void Find_Target(std::string_view sPath);
  void Open_Temporary();
  void Close();
  void Fail(I4 iSystemError);
  void Discard();

  std::string sTarget;     // with links resolved
  std::string sTemporary;  // blank: there is none
  I4 iMode;                // permissions
  bool bReplaces = false;  // there is an earlier file
  int iHandle = -1;        // -1: not open
  I4 iOSError = 0;
};

}  // namespace quillan

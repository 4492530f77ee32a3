// safe_file.h: files that take the place of others only when they are complete, and copies made that way.
#pragma once

#include <string>
#include <string_view>

#include "base/types.h"

namespace quillan {

/// Prepares the process: a file that meets a size limit is a failed write, reported in words, and not the end of the
/// run.
void System_Initialize();

/// A file that takes the place of another only when it is complete.
///
/// Bytes go to a hidden temporary file with a unique name in the target's folder, which has the target's mode. Commit
/// flushes it to the disk, renames it over the target and flushes the folder. Until then the target is untouched; a
/// file that is not committed is removed, and so is one that an earlier run left for the same target because it was
/// killed. Links are resolved; a target that is not writable or no regular file is
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
  void Rename();
  void Fail(I4 iSystemError);
  void Discard();

  std::string sTarget;     // with links resolved
  std::string sTemporary;  // blank: there is none
  I4 iMode;                // permissions
  bool bReplaces = false;  // there is an earlier file
  int iHandle = -1;        // -1: not open
  I4 iOSError = 0;
};

/// Why a copy failed; both 0 when it was made.
struct CopyStatus {
  I4 iIOError = 0;  // one of the kinds below
  I4 iOSError = 0;  // the system's error number
};
inline constexpr I4 iIOErrOpen = 1;   // the source is missing, no regular file, or may not be read
inline constexpr I4 iIOErrRead = 2;   // the source could not be read to its end
inline constexpr I4 iIOErrWrite = 3;  // the target could not be written

/// Copies a file, replacing the target as SafeFile does; a new target gets the mode of the source.
[[nodiscard]] CopyStatus IOsCopyFile(std::string_view sFrom, std::string_view sTo);

}  // namespace quillan

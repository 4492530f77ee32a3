// input_file.h: a regular file, read in blocks.
#pragma once

#include <string>
#include <string_view>

#include "base/types.h"

namespace quillan {

/// A folder, a pipe and a device are no files to read.
class InputFile {
 public:
  explicit InputFile(std::string_view sPath);
  ~InputFile();
  InputFile(const InputFile&) = delete;
  InputFile& operator=(const InputFile&) = delete;

  bool Is_Open() const { return iHandle >= 0; }
  /// The system's error number, 0 where nothing failed.
  I4 OSError() const { return iOSError; }
  /// The same in words: "Permission denied".
  std::string Reason() const;
  /// Whether there is no such file at all.
  bool Is_Missing() const;
  /// Permissions.
  I4 Mode() const { return iMode; }
  /// Bytes, and nsec since 1970 of the last change, when it was opened.
  I8 Size() const { return NByte; }
  I8 Time() const { return iTime; }

  /// Bytes read, 0 at the end of the file, -1 after an error.
  [[nodiscard]] I8 Read(char* sBytes, std::size_t NBytes);

 private:
  int iHandle = -1;  // -1: not open
  I4 iMode = 0;
  I8 NByte = 0, iTime = 0;
  I4 iOSError = 0;
};

}  // namespace quillan

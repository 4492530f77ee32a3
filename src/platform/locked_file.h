// locked_file.h: a file that one running program at a time has open, and adds to at its end.
//
// The lock ends with the program, however that ends. Only the user may read the file.
#pragma once

#include <string>
#include <string_view>

#include "base/types.h"

namespace quillan {

class LockedFile {
 public:
  enum class Opened { Yes, InUse, Failed };

  LockedFile() = default;
  ~LockedFile() { Close(); }
  LockedFile(const LockedFile&) = delete;
  LockedFile& operator=(const LockedFile&) = delete;

  /// Opens the file, or makes it. InUse: another running program has it open.
  [[nodiscard]] Opened Open(const std::string& sFile);
  bool Is_Open() const { return iHandle >= 0; }
  const std::string& Path() const { return sPath; }
  /// Why the last call failed, in words.
  std::string Reason() const;

  /// All of the file, right after Open. Returns 0; 1 it could not be read.
  [[nodiscard]] I4 Read(std::string& sBytes);
  /// Leaves the first N bytes; what is added next follows them. Returns 0; 1 failed.
  [[nodiscard]] I4 Cut(I8 N);
  /// The bytes have reached the system when it returns. Returns 0; 1 failed, and the file is as it was.
  [[nodiscard]] I4 Append(std::string_view sBytes);
  /// Brings what was added to the disk. Returns 0; 1 failed.
  [[nodiscard]] I4 Flush();

  void Close();
  /// Removes the file and closes it.
  void Remove();
  /// Gives the file a name that no other has, and closes it. Returns 0; 1 failed, it has kept its name.
  [[nodiscard]] I4 Set_Aside(const std::string& sNewPath);

 private:
  std::string sPath;
  int iHandle = -1;  // -1: not open
  I8 NByte = 0;      // size, as far as it is known to be whole
  I4 iOSError = 0;
};

}  // namespace quillan

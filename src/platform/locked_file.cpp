#include "platform/locked_file.h"

#include <cerrno>
#include <cstdio>
#include <utility>

#include "platform/file_names.h"
#include "platform/system_calls.h"

namespace quillan {

LockedFile::Opened LockedFile::Open(const std::string& sFile) {
  constexpr I4 iOnlyUser = 0600;
  Close();
  sPath = sFile;
  NByte = 0;
  iHandle = Sys_Open_Alone(sPath, iOnlyUser);
  iOSError = iHandle < 0 ? errno : Sys_Status(iHandle).bRegular ? 0 : EINVAL;
  if (iOSError == 0) return Opened::Yes;
  Close();
  return iOSError == EWOULDBLOCK ? Opened::InUse : Opened::Failed;
}

std::string LockedFile::Reason() const {
  return Sys_Reason(iOSError);
}

I4 LockedFile::Read(std::string& sBytes) {
  sBytes.resize(static_cast<std::size_t>(Sys_Status(iHandle).NByte));
  std::size_t N = 0;
  while (N < sBytes.size()) {
    const I8 NRead = Sys_Read(iHandle, sBytes.data() + N, sBytes.size() - N);
    if (NRead < 0) iOSError = errno;
    if (NRead < 0) return 1;
    if (NRead == 0) break;
    N += static_cast<std::size_t>(NRead);
  }
  sBytes.resize(N);
  NByte = static_cast<I8>(N);
  return 0;
}

I4 LockedFile::Cut(I8 N) {
  if (!Sys_Cut(iHandle, N)) {
    iOSError = errno;
    return 1;
  }
  NByte = N;
  return 0;
}

I4 LockedFile::Append(std::string_view sBytes) {
  for (std::string_view sLeft = sBytes; !sLeft.empty();) {
    const I8 NWritten = Sys_Write(iHandle, sLeft.data(), sLeft.size());
    if (NWritten <= 0) {
      iOSError = NWritten == 0 ? EIO : errno;
      static_cast<void>(Sys_Cut(iHandle, NByte));  // where that fails too, the torn end is known by its length
      return 1;
    }
    sLeft.remove_prefix(static_cast<std::size_t>(NWritten));
  }
  NByte += static_cast<I8>(sBytes.size());
  return 0;
}

I4 LockedFile::Flush() {
  if (Sys_Flush(iHandle)) return 0;
  iOSError = errno;
  return 1;
}

void LockedFile::Close() {
  if (Is_Open()) Sys_Close(std::exchange(iHandle, -1));
}

/// Some systems remove no file that is open. Where one does, a file that has the name after Close is another's.
void LockedFile::Remove() {
  const bool bGone = std::remove(sPath.c_str()) == 0;
  Close();
  if (!bGone) std::remove(sPath.c_str());
}

I4 LockedFile::Set_Aside(const std::string& sNewPath) {
  if (IOsFileExists(sNewPath)) {
    iOSError = EEXIST;
    return 1;
  }
  const bool bWhileOpen = Sys_Replace(sPath, sNewPath);
  Close();
  if (bWhileOpen || Sys_Replace(sPath, sNewPath)) return 0;  // some systems rename no file that is open
  iOSError = errno;
  return 1;
}

}  // namespace quillan

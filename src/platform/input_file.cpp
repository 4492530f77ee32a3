#include "platform/input_file.h"

#include <cerrno>
#include <utility>

#include "platform/system_calls.h"

namespace quillan {

InputFile::InputFile(std::string_view sPath) {
  iOSError = ENOENT;
  if (sPath.find('\0') != std::string_view::npos) return;
  iHandle = Sys_Open_to_Read(std::string(sPath));
  iOSError = iHandle < 0 ? errno : 0;
  if (iHandle < 0) return;
  const HandleStatus hStatus = Sys_Status(iHandle);
  iMode = hStatus.iMode;
  NByte = hStatus.NByte;
  iTime = hStatus.iTime;
  if (hStatus.bRegular) return;
  iOSError = hStatus.bFolder ? EISDIR : EINVAL;
  Sys_Close(std::exchange(iHandle, -1));
}

InputFile::~InputFile() {
  if (Is_Open()) Sys_Close(iHandle);
}

std::string InputFile::Reason() const {
  return Sys_Reason(iOSError);
}

bool InputFile::Is_Missing() const {
  return iOSError == ENOENT;
}

I8 InputFile::Read(char* sBytes, std::size_t NBytes) {
  const I8 NRead = Sys_Read(iHandle, sBytes, NBytes);
  if (NRead < 0) iOSError = errno;
  return NRead;
}

}  // namespace quillan

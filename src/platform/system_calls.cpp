#include "platform/system_calls.h"

#include <fcntl.h>
#ifdef _WIN32
#include <io.h>
#include <share.h>
#else
#include <sys/file.h>
#endif
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <system_error>

namespace quillan {

namespace {

/// Makes a call again for as long as signals interrupt it.
template <class Call>
auto Uninterrupted(Call Make) {
  auto iResult = Make();
  while (iResult < 0 && errno == EINTR) iResult = Make();
  return iResult;
}

}  // namespace

bool Sys_Close(int iHandle) {
  return ::close(iHandle) == 0 || errno == EINTR;
}

std::string Sys_Reason(I4 iOSError) {
  if (iOSError == EINVAL) return "Not a regular file";
  return iOSError == 0 ? std::string() : std::generic_category().message(iOSError);
}

#ifdef _WIN32

namespace {

constexpr std::size_t MOnce = 1 << 30;  // bytes that one call takes
constexpr I8 NsecPerSec = 1'000'000'000;

}  // namespace

std::string Sys_Program_Path() {
  char* sPath = nullptr;
  return ::_get_pgmptr(&sPath) == 0 && sPath != nullptr ? std::string(sPath) : std::string();
}

int Sys_Open_to_Read(const std::string& sPath) {
  return ::_open(sPath.c_str(), _O_RDONLY | _O_BINARY | _O_NOINHERIT);
}

int Sys_Open_New(const std::string& sPath, I4 iMode) {
  return ::_open(sPath.c_str(), _O_WRONLY | _O_CREAT | _O_EXCL | _O_BINARY | _O_NOINHERIT, iMode & _S_IWRITE);
}

int Sys_Open_Alone(const std::string& sPath, I4 iMode) {
  constexpr int iToUse = _O_RDWR | _O_CREAT | _O_BINARY | _O_NOINHERIT;
  const int iHandle = ::_sopen(sPath.c_str(), iToUse, _SH_DENYRW, iMode & (_S_IREAD | _S_IWRITE));
  if (iHandle < 0 && errno == EACCES && ::_access(sPath.c_str(), 0) == 0) errno = EWOULDBLOCK;
  return iHandle;
}

int Sys_Duplicate(int) {
  return -1;  // a file that is open twice could not be renamed
}

void Sys_Remove_Left_Over(const std::string& sPath) {
  std::remove(sPath.c_str());  // the system removes no file that is open
}

HandleStatus Sys_Status(int iHandle) {
  struct _stat64 h {};
  if (::_fstat64(iHandle, &h) != 0) return {};
  return {(h.st_mode & _S_IFMT) == _S_IFREG, (h.st_mode & _S_IFMT) == _S_IFDIR, h.st_mode & 0777, h.st_size,
          h.st_mtime * NsecPerSec};
}

I8 Sys_Read(int iHandle, char* sBytes, std::size_t NBytes) {
  return ::_read(iHandle, sBytes, static_cast<unsigned>(std::min(NBytes, MOnce)));
}

I8 Sys_Write(int iHandle, const char* sBytes, std::size_t NBytes) {
  return ::_write(iHandle, sBytes, static_cast<unsigned>(std::min(NBytes, MOnce)));
}

bool Sys_Cut(int iHandle, I8 NByte) {
  return ::_chsize_s(iHandle, NByte) == 0 && ::_lseeki64(iHandle, NByte, SEEK_SET) == NByte;
}

bool Sys_Flush(int iHandle) {
  return Uninterrupted([&] { return ::_commit(iHandle); }) == 0;
}

void Sys_Set_Mode(int, I4) {}

bool Sys_May_Write(const std::string& sPath) {
  constexpr int iToWrite = 2;
  return ::_access(sPath.c_str(), iToWrite) == 0;
}

bool Sys_Replace(const std::string& sFrom, const std::string& sTo) {
  std::error_code hProblem;
  std::filesystem::rename(sFrom, sTo, hProblem);
  if (hProblem) errno = hProblem.default_error_condition().value();
  return !hProblem;
}

#else

std::string Sys_Program_Path() {
  std::error_code hProblem;
  return std::filesystem::read_symlink("/proc/self/exe", hProblem).string();
}

int Sys_Open_to_Read(const std::string& sPath) {
  return ::open(sPath.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
}

namespace {

/// A lock ends with the process that holds it, however that ends.
bool Is_Locked(int iHandle) {
  return ::flock(iHandle, LOCK_EX | LOCK_NB) == 0;
}

/// Whether another process found the new file before it was locked, and takes it for one that was left over.
bool Is_Taken_for_Left_Over(int iHandle) {
  if (!Is_Locked(iHandle)) return errno == EWOULDBLOCK;
  struct stat h {};
  return ::fstat(iHandle, &h) == 0 && h.st_nlink == 0;
}

}  // namespace

int Sys_Open_New(const std::string& sPath, I4 iMode) {
  const int iHandle = ::open(sPath.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, static_cast<mode_t>(iMode));
  if (iHandle < 0 || !Is_Taken_for_Left_Over(iHandle)) return iHandle;
  ::close(iHandle);
  errno = EEXIST;
  return -1;
}

int Sys_Open_Alone(const std::string& sPath, I4 iMode) {
  constexpr int iToUse = O_RDWR | O_CREAT | O_CLOEXEC | O_NONBLOCK | O_NOFOLLOW;
  constexpr I4 MTry = 10;  // times that another process may remove the file between the two calls
  for (I4 N = 0; N < MTry; ++N) {
    const int iHandle = ::open(sPath.c_str(), iToUse, static_cast<mode_t>(iMode));
    if (iHandle < 0) return -1;
    struct stat h {};
    const bool bAlone = Is_Locked(iHandle);
    if (bAlone && ::fstat(iHandle, &h) == 0 && h.st_nlink > 0) return iHandle;
    const int iProblem = errno;
    ::close(iHandle);
    errno = iProblem;
    if (!bAlone) return -1;
  }
  errno = EWOULDBLOCK;
  return -1;
}

int Sys_Duplicate(int iHandle) {
  return ::fcntl(iHandle, F_DUPFD_CLOEXEC, 0);
}

void Sys_Remove_Left_Over(const std::string& sPath) {
  const int iHandle = ::open(sPath.c_str(), O_WRONLY | O_CLOEXEC | O_NONBLOCK | O_NOFOLLOW);
  if (iHandle < 0) return;
  if (Sys_Status(iHandle).bRegular && Is_Locked(iHandle)) ::unlink(sPath.c_str());
  ::close(iHandle);
}

namespace {

I8 Changed_at(const struct stat& h) {
  constexpr I8 NsecPerSec = 1'000'000'000;
#ifdef __APPLE__
  return h.st_mtimespec.tv_sec * NsecPerSec + h.st_mtimespec.tv_nsec;
#else
  return h.st_mtim.tv_sec * NsecPerSec + h.st_mtim.tv_nsec;
#endif
}

}  // namespace

HandleStatus Sys_Status(int iHandle) {
  struct stat h {};
  if (::fstat(iHandle, &h) != 0) return {};
  return {S_ISREG(h.st_mode), S_ISDIR(h.st_mode), static_cast<I4>(h.st_mode & 0777U), h.st_size, Changed_at(h)};
}

I8 Sys_Read(int iHandle, char* sBytes, std::size_t NBytes) {
  return Uninterrupted([&] { return ::read(iHandle, sBytes, NBytes); });
}

I8 Sys_Write(int iHandle, const char* sBytes, std::size_t NBytes) {
  return Uninterrupted([&] { return ::write(iHandle, sBytes, NBytes); });
}

bool Sys_Cut(int iHandle, I8 NByte) {
  return Uninterrupted([&] { return ::ftruncate(iHandle, NByte); }) == 0 && ::lseek(iHandle, NByte, SEEK_SET) == NByte;
}

bool Sys_Flush(int iHandle) {
  return Uninterrupted([&] { return ::fsync(iHandle); }) == 0 || errno == EINVAL || errno == ENOTSUP;
}

void Sys_Set_Mode(int iHandle, I4 iMode) {
  static_cast<void>(::fchmod(iHandle, static_cast<mode_t>(iMode)));  // see the header
}

bool Sys_May_Write(const std::string& sPath) {
  return ::faccessat(AT_FDCWD, sPath.c_str(), W_OK, AT_EACCESS) == 0;
}

namespace {

/// Makes the new name of a file last. A folder that may be written but not read cannot be flushed.
bool Is_Folder_Flushed(const std::string& sFolder) {
  const int iFolder = ::open(sFolder.c_str(), O_RDONLY | O_CLOEXEC | O_DIRECTORY);
  if (iFolder < 0) return errno == EACCES;
  const bool bFlushed = Sys_Flush(iFolder);
  const int iProblem = errno;
  ::close(iFolder);
  errno = iProblem;
  return bFlushed;
}

}  // namespace

bool Sys_Replace(const std::string& sFrom, const std::string& sTo) {
  if (::rename(sFrom.c_str(), sTo.c_str()) != 0) return false;
  const std::string sFolder = std::filesystem::path(sTo).parent_path().string();
  return Is_Folder_Flushed(sFolder.empty() ? "." : sFolder);
}

#endif

}  // namespace quillan

#include "platform/safe_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <random>
#include <utility>

#include "base/text.h"

namespace quillan {

namespace fs = std::filesystem;

void System_Initialize() {
#ifdef SIGXFSZ
  std::signal(SIGXFSZ, SIG_IGN);
#endif
}

namespace {

constexpr I4 MLink = 40;               // links that lead to links, as many as the system itself follows
constexpr I4 MTry = 100;               // names tried for the temporary file
constexpr std::size_t MNamePart = 32;  // bytes of the target's name in the temporary one, which has to fit a folder

/// The file that a chain of links ends at, whether it exists or not. iOSError: 0, or why the chain has no end.
std::string Follow_Links(std::string_view sPath, I4& iOSError) {
  fs::path hPath{std::string(sPath)};
  std::error_code hProblem;
  for (I4 N = 0; N < MLink; ++N) {
    if (!fs::is_symlink(fs::symlink_status(hPath, hProblem))) return hPath.string();
    hPath = hPath.parent_path() / fs::read_symlink(hPath, hProblem);
  }
  iOSError = ELOOP;
  return {};
}

std::string Folder_of(const std::string& sPath) {
  const fs::path hFolder = fs::path(sPath).parent_path();
  return hFolder.empty() ? "." : hFolder.string();
}

/// ".NAME.XXXXXX" in the target's folder, the last part by chance.
std::string Temporary_Name(const std::string& sTarget, std::minstd_rand& hChance) {
  constexpr std::string_view sLetters = "abcdefghijklmnopqrstuvwxyz0123456789";
  const fs::path hTarget(sTarget);
  std::string sName = ".";
  sName.append(Cut_Text(hTarget.filename().string(), MNamePart)).append(".");
  for (I4 N = 0; N < 6; ++N) sName += sLetters[hChance() % sLetters.size()];
  return (hTarget.parent_path() / sName).string();
}

/// File systems that cannot flush say so by "invalid argument"; all that can be done is done then.
bool Is_Flushed(int iHandle) {
  int iResult = 0;
  do iResult = ::fsync(iHandle);
  while (iResult != 0 && errno == EINTR);
  return iResult == 0 || errno == EINVAL || errno == ENOTSUP;
}

/// Makes the new name of a file last. A folder that may be written but not read cannot be flushed.
bool Is_Folder_Flushed(const std::string& sFolder) {
  const int iFolder = ::open(sFolder.c_str(), O_RDONLY | O_CLOEXEC | O_DIRECTORY);
  if (iFolder < 0) return errno == EACCES;
  const bool bFlushed = Is_Flushed(iFolder);
  const int iProblem = errno;
  ::close(iFolder);
  errno = iProblem;
  return bFlushed;
}

}  // namespace

SafeFile::SafeFile(std::string_view sPath, I4 iNewMode) : iMode(iNewMode) {
  Find_Target(sPath);
  if (!Has_Failed()) Open_Temporary();
}

SafeFile::~SafeFile() {
  Discard();
}

std::string SafeFile::Reason() const {
  if (iOSError == EINVAL) return "Not a regular file";
  return iOSError == 0 ? std::string() : std::generic_category().message(iOSError);
}

void SafeFile::Find_Target(std::string_view sPath) {
  if (sPath.find('\0') != std::string_view::npos) return Fail(ENOENT);
  sTarget = Follow_Links(sPath, iOSError);
  if (Has_Failed()) return;
  struct stat hStatus {};
  if (::stat(sTarget.c_str(), &hStatus) != 0) {
    if (errno != ENOENT) Fail(errno);
    return;
  }
  if (!S_ISREG(hStatus.st_mode)) return Fail(S_ISDIR(hStatus.st_mode) ? EISDIR : EINVAL);
  if (::faccessat(AT_FDCWD, sTarget.c_str(), W_OK, AT_EACCESS) != 0) return Fail(errno);
  iMode = static_cast<I4>(hStatus.st_mode & 07777U);
  bReplaces = true;
}

void SafeFile::Open_Temporary() {
  // Two programs that save into one folder begin with other names.
  const auto NTicks = std::chrono::steady_clock::now().time_since_epoch().count();
  std::minstd_rand hChance(static_cast<std::uint32_t>(NTicks ^ (I8{::getpid()} << 16)));
  for (I4 N = 0; N < MTry && iHandle < 0; ++N) {
    sTemporary = Temporary_Name(sTarget, hChance);
    iHandle = ::open(sTemporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, static_cast<mode_t>(iMode & 0777));
    if (iHandle < 0 && errno != EEXIST && errno != EINTR) break;
  }
  if (iHandle < 0) {
    sTemporary.clear();  // another's file, or none
    return Fail(errno);
  }
  // Where the file system keeps no modes this fails; the mode is then none that lets more users in.
  if (bReplaces) static_cast<void>(::fchmod(iHandle, static_cast<mode_t>(iMode)));
}

void SafeFile::Write(std::string_view sBytes) {
  while (!sBytes.empty() && iHandle >= 0) {
    const ssize_t NWritten = ::write(iHandle, sBytes.data(), sBytes.size());
    if (NWritten > 0) {
      sBytes.remove_prefix(static_cast<std::size_t>(NWritten));
    } else if (NWritten == 0 || errno != EINTR) {
      Fail(NWritten == 0 ? EIO : errno);
    }
  }
}

void SafeFile::Commit() {
  if (iHandle < 0) return;
  if (!Is_Flushed(iHandle)) return Fail(errno);
  Close();
  if (Has_Failed()) return;
  if (::rename(sTemporary.c_str(), sTarget.c_str()) != 0) return Fail(errno);
  sTemporary.clear();
  if (!Is_Folder_Flushed(Folder_of(sTarget))) Fail(errno);
}

/// The handle is gone also where closing fails, as it does where a file server finds its disk full only then.
void SafeFile::Close() {
  if (::close(std::exchange(iHandle, -1)) != 0 && errno != EINTR) Fail(errno);
}

void SafeFile::Fail(I4 iSystemError) {
  iOSError = iSystemError;
  Discard();
}

void SafeFile::Discard() {
  if (iHandle >= 0) ::close(std::exchange(iHandle, -1));
  if (!sTemporary.empty()) ::unlink(sTemporary.c_str());
  sTemporary.clear();
}

namespace {

constexpr std::size_t MCopy = 1 << 18;  // bytes copied at a time

/// Copies to the end of the source; false after a read error, which is then in errno.
bool Copy_Bytes(int iSource, SafeFile& out) {
  const auto hBlock = std::make_unique_for_overwrite<char[]>(MCopy);
  while (!out.Has_Failed()) {
    const ssize_t NRead = ::read(iSource, hBlock.get(), MCopy);
    if (NRead == 0) return true;
    if (NRead > 0) out.Write({hBlock.get(), static_cast<std::size_t>(NRead)});
    if (NRead < 0 && errno != EINTR) return false;
  }
  return true;
}

CopyStatus Copy_Open_File(int iSource, std::string_view sTo) {
  struct stat hStatus {};
  if (::fstat(iSource, &hStatus) != 0 || !S_ISREG(hStatus.st_mode)) {
    return {iIOErrOpen, S_ISDIR(hStatus.st_mode) ? EISDIR : EINVAL};
  }
  SafeFile out(sTo, static_cast<I4>(hStatus.st_mode & 0777U));
  if (!Copy_Bytes(iSource, out)) return {iIOErrRead, errno};
  out.Commit();
  if (out.Has_Failed()) return {iIOErrWrite, out.OSError()};
  return {};
}

}  // namespace

CopyStatus IOsCopyFile(std::string_view sFrom, std::string_view sTo) {
  const int iSource = ::open(std::string(sFrom).c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
  if (iSource < 0) return {iIOErrOpen, errno};
  const CopyStatus hStatus = Copy_Open_File(iSource, sTo);
  ::close(iSource);
  return hStatus;
}

}  // namespace quillan

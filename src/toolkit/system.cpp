#include "toolkit/system.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <memory>
#include <random>
#include <utility>

#include "base/text.h"
#include "toolkit/private.h"

namespace quillan {

namespace fs = std::filesystem;

namespace {

struct ErrorWords {
  I4 iCode;
  std::string_view sWords;
};
constexpr ErrorWords hErrorWords[] = {
    {iErrNone,        "No error"                                      },
    {iErrNoDialog,    "There is no such dialog, or none is current"   },
    {iErrNoField,     "The dialog has no such field"                  },
    {iErrFieldEmpty,  "The field is empty"                            },
    {iErrFieldBad,    "The field holds no number, or one out of range"},
    {iErrFile,        "A file could not be read or written"           },
    {iErrNoWindow,    "There is no window to draw on"                 },
    {iErrBadArgument, "A call had an argument that makes no sense"    },
};

}  // namespace

void toolkit::Set_Error(I4 iCode, I4 iIOCode, I4 iOSCode) {
  hLastError = {iCode, iIOCode, iOSCode};
}

I4 InfoError(I4 iSelect) {
  switch (iSelect) {
    case iInfoLastError: return std::exchange(hLastError.iCode, iErrNone);
    case iInfoIOError: return hLastError.iIOCode;
    case iInfoOSError: return hLastError.iOSCode;
    default: return 0;
  }
}

std::string WInfoErrorMessage(I4 iCode) {
  const auto* hRow = std::ranges::find(hErrorWords, iCode, &ErrorWords::iCode);
  if (hRow == std::end(hErrorWords)) return "Toolkit error " + std::to_string(iCode);
  return std::string(hRow->sWords);
}

void System_Initialize() {
#ifdef SIGXFSZ
  std::signal(SIGXFSZ, SIG_IGN);
#endif
}

void System_Set_Arguments(std::vector<std::string> sLine) {
  sCommandLine = std::move(sLine);
}

I4 WInfoSystem(I4 iSelect) {
  if (iSelect != iNumberOfArguments || sCommandLine.empty()) return 0;
  return static_cast<I4>(sCommandLine.size() - 1);
}

namespace {

/// The full path where the system tells it, else the name that the program was called by.
std::string Program_Path() {
  std::error_code hProblem;
  const fs::path hPath = fs::read_symlink("/proc/self/exe", hProblem);
  if (!hProblem) return hPath.string();
  return sCommandLine.empty() ? std::string() : sCommandLine.front();
}

}  // namespace

void IOsArgument(I4 iArg, std::string& sValue) {
  sValue.clear();
  if (iArg == 0) sValue = Program_Path();
  if (iArg > 0 && iArg <= WInfoSystem(iNumberOfArguments)) sValue = sCommandLine[static_cast<std::size_t>(iArg)];
}

void IOsVariable(std::string_view sName, std::string& sValue) {
  const char* sFound = std::getenv(std::string(Trimmed(sName)).c_str());
  sValue = sFound == nullptr ? "" : sFound;
}

void IOsDirName(std::string& sDir) {
  std::error_code hProblem;
  sDir = fs::current_path(hProblem).string();
}

namespace {

Date Day_of(const std::tm& hTime) {
  return {hTime.tm_year + 1900, hTime.tm_mon + 1, hTime.tm_mday};
}

/// The day that a reproducible run is to have; false where none is asked for.
bool Fixed_Date(Date& hDate) {
  std::string sSeconds;
  IOsVariable("SOURCE_DATE_EPOCH", sSeconds);
  I8 NSeconds = 0;
  const char* sEnd = sSeconds.data() + sSeconds.size();
  const auto hRead = std::from_chars(sSeconds.data(), sEnd, NSeconds);
  if (sSeconds.empty() || hRead.ec != std::errc{} || hRead.ptr != sEnd) return false;
  const std::time_t hSeconds = NSeconds;
  std::tm hTime{};
  if (::gmtime_r(&hSeconds, &hTime) == nullptr) return false;
  hDate = Day_of(hTime);
  return true;
}

}  // namespace

Date IOsDate() {
  Date hDate{};
  if (Fixed_Date(hDate)) return hDate;
  const std::time_t hNow = std::time(nullptr);
  std::tm hTime{};
  ::localtime_r(&hNow, &hTime);
  return Day_of(hTime);
}

bool IOsFileExists(std::string_view sPath) {
  std::error_code hProblem;
  const fs::file_status hStatus = fs::status(std::string(sPath), hProblem);
  return fs::exists(hStatus) && !fs::is_directory(hStatus);
}

namespace {

bool Differs_in_Case_Only(std::string_view s1, std::string_view s2) {
  const auto CLetter = [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; };
  return std::ranges::equal(s1, s2, {}, CLetter, CLetter);
}

}  // namespace

std::string IOsFindCompanion(std::string_view sPath) {
  if (IOsFileExists(sPath)) return std::string(sPath);
  const fs::path hPath{std::string(sPath)};
  const std::string sName = hPath.filename().string();
  std::string sFound;
  std::error_code hProblem;
  const fs::path hFolder = hPath.has_parent_path() ? hPath.parent_path() : fs::path(".");
  for (fs::directory_iterator hEntry(hFolder, hProblem), hEnd; !hProblem && hEntry != hEnd;
       hEntry.increment(hProblem)) {
    const std::string sEntry = hEntry->path().filename().string();
    const bool bFirst = sFound.empty() || sEntry < sFound;
    if (bFirst && Differs_in_Case_Only(sEntry, sName) && IOsFileExists(hEntry->path().string())) sFound = sEntry;
  }
  return sFound.empty() ? std::string(sPath) : (hPath.parent_path() / sFound).string();
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

void Copy_Open_File(int iSource, std::string_view sTo) {
  struct stat hStatus {};
  if (::fstat(iSource, &hStatus) != 0 || !S_ISREG(hStatus.st_mode)) {
    toolkit::Set_Error(iErrFile, iIOErrOpen, S_ISDIR(hStatus.st_mode) ? EISDIR : EINVAL);
    return;
  }
  SafeFile out(sTo, static_cast<I4>(hStatus.st_mode & 0777U));
  if (!Copy_Bytes(iSource, out)) {
    toolkit::Set_Error(iErrFile, iIOErrRead, errno);
    return;
  }
  out.Commit();
  if (out.Has_Failed()) toolkit::Set_Error(iErrFile, iIOErrWrite, out.OSError());
}

}  // namespace

void IOsCopyFile(std::string_view sFrom, std::string_view sTo) {
  const int iSource = ::open(std::string(sFrom).c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
  if (iSource < 0) {
    toolkit::Set_Error(iErrFile, iIOErrOpen, errno);
    return;
  }
  Copy_Open_File(iSource, sTo);
  ::close(iSource);
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

}  // namespace quillan

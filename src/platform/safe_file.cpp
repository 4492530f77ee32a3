#include "platform/safe_file.h"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <random>
#include <utility>
#include <vector>

#include "base/text.h"
#include "platform/input_file.h"
#include "platform/system_calls.h"

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

// The name of a temporary file is ".NAME.quillan-XXXXXX", the last part by chance. A user's own hidden copy of a file
// has no such name.
constexpr std::string_view sMark = ".quillan-";
constexpr std::string_view sLetters = "abcdefghijklmnopqrstuvwxyz0123456789";
constexpr std::size_t NLetter = 6;

std::string Temporary_Head(const fs::path& hTarget) {
  return std::string(".").append(Cut_Text(hTarget.filename().string(), MNamePart)).append(sMark);
}

/// A name in the target's folder.
std::string Temporary_Name(const fs::path& hTarget, std::minstd_rand& hChance) {
  std::string sName = Temporary_Head(hTarget);
  for (std::size_t N = 0; N < NLetter; ++N) sName += sLetters[hChance() % sLetters.size()];
  return (hTarget.parent_path() / sName).string();
}

bool Is_Temporary(std::string_view sName, std::string_view sHead) {
  return sName.size() == sHead.size() + NLetter && sName.starts_with(sHead) &&
         sName.find_first_not_of(sLetters, sHead.size()) == std::string_view::npos;
}

/// A run that was killed while it wrote could not remove its file. A folder that cannot be listed keeps what it has.
void Remove_Left_Over(const fs::path& hTarget) {
  const std::string sHead = Temporary_Head(hTarget);
  const fs::path hFolder = hTarget.has_parent_path() ? hTarget.parent_path() : fs::path(".");
  std::vector<std::string> sLeft;
  std::error_code hProblem;
  for (fs::directory_iterator hFile(hFolder, hProblem), hEnd; !hProblem && hFile != hEnd; hFile.increment(hProblem)) {
    if (Is_Temporary(hFile->path().filename().string(), sHead)) sLeft.push_back(hFile->path().string());
  }
  for (const std::string& sPath : sLeft) Sys_Remove_Left_Over(sPath);
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
  return Sys_Reason(iOSError);
}

void SafeFile::Find_Target(std::string_view sPath) {
  if (sPath.find('\0') != std::string_view::npos) return Fail(ENOENT);
  sTarget = Follow_Links(sPath, iOSError);
  if (Has_Failed()) return;
  std::error_code hProblem;
  const fs::file_status hStatus = fs::status(sTarget, hProblem);
  if (hStatus.type() == fs::file_type::not_found) return;
  if (hStatus.type() == fs::file_type::none) return Fail(hProblem.value());
  if (!fs::is_regular_file(hStatus)) return Fail(fs::is_directory(hStatus) ? EISDIR : EINVAL);
  if (!Sys_May_Write(sTarget)) return Fail(errno);
  iMode = static_cast<I4>(hStatus.permissions());
  bReplaces = true;
}

void SafeFile::Open_Temporary() {
  Remove_Left_Over(sTarget);
  std::minstd_rand hChance(std::random_device{}());  // two programs that save into one folder use other names
  for (I4 N = 0; N < MTry && iHandle < 0; ++N) {
    sTemporary = Temporary_Name(sTarget, hChance);
    iHandle = Sys_Open_New(sTemporary, iMode & 0777);
    if (iHandle < 0 && errno != EEXIST && errno != EINTR) break;
  }
  if (iHandle < 0) {
    sTemporary.clear();  // another's file, or none
    return Fail(errno);
  }
  if (bReplaces) Sys_Set_Mode(iHandle, iMode);
}

void SafeFile::Write(std::string_view sBytes) {
  while (!sBytes.empty() && iHandle >= 0) {
    const I8 NWritten = Sys_Write(iHandle, sBytes.data(), sBytes.size());
    if (NWritten <= 0) return Fail(NWritten == 0 ? EIO : errno);
    sBytes.remove_prefix(static_cast<std::size_t>(NWritten));
  }
}

void SafeFile::Commit() {
  if (iHandle < 0) return;
  if (!Sys_Flush(iHandle)) return Fail(errno);
  const int iGuard = Sys_Duplicate(iHandle);  // until it has its name, the file is not to be taken for a left one
  Close();
  if (!Has_Failed()) Rename();
  if (iGuard >= 0) Sys_Close(iGuard);
}

void SafeFile::Rename() {
  if (!Sys_Replace(sTemporary, sTarget)) return Fail(errno);
  sTemporary.clear();
}

/// The handle is gone also where closing fails, as it does where a file server finds its disk full only then.
void SafeFile::Close() {
  if (!Sys_Close(std::exchange(iHandle, -1))) Fail(errno);
}

void SafeFile::Fail(I4 iSystemError) {
  iOSError = iSystemError;
  Discard();
}

void SafeFile::Discard() {
  if (iHandle >= 0) Sys_Close(std::exchange(iHandle, -1));
  if (!sTemporary.empty()) std::remove(sTemporary.c_str());
  sTemporary.clear();
}

CopyStatus IOsCopyFile(std::string_view sFrom, std::string_view sTo) {
  constexpr std::size_t MCopy = 1 << 18;  // bytes copied at a time
  InputFile in(sFrom);
  if (!in.Is_Open()) return {iIOErrOpen, in.OSError()};
  SafeFile out(sTo, in.Mode());
  const auto hBlock = std::make_unique_for_overwrite<char[]>(MCopy);
  I8 NRead = 1;
  while (NRead > 0 && !out.Has_Failed()) {
    NRead = in.Read(hBlock.get(), MCopy);
    if (NRead > 0) out.Write({hBlock.get(), static_cast<std::size_t>(NRead)});
  }
  if (NRead < 0) return {iIOErrRead, in.OSError()};
  out.Commit();
  if (out.Has_Failed()) return {iIOErrWrite, out.OSError()};
  return {};
}

}  // namespace quillan

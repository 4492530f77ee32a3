#include "commands/recent_files.h"

#include <algorithm>
#include <filesystem>

#include "base/text.h"
#include "foundations/file_util.h"
#include "foundations/str_write.h"
#include "foundations/text_file.h"
#include "platform/arguments.h"
#include "platform/folders.h"
#include "toolkit/window/menus.h"

namespace quillan {
namespace {

namespace fs = std::filesystem;

constexpr I4 MPathText = 4096;           // bytes of a path in the list
constexpr std::size_t MFolderText = 48;  // characters of a folder in the menu
constexpr std::string_view sLeftOut = "...";

// ---- the list

void Read_List() {
  hRecent.sFile.clear();
  if (hRecent.sListFile.empty()) return;
  RecordReader in(hRecent.sListFile, MPathText);
  while (in.Next() && static_cast<I4>(hRecent.sFile.size()) < MRecent) {
    if (!in.Record().empty()) hRecent.sFile.emplace_back(in.Record());
  }
}

/// The list is a help: where it cannot be written the user has still opened the file, and is not told of it.
void Write_List() {
  if (!IOsMakeDir(File_Dir(hRecent.sListFile))) return;
  TextWriter out(hRecent.sListFile);
  for (const std::string& s : hRecent.sFile) out.Line(s);
  out.Commit();
}

/// One file has one path, however it was named.
std::string Full_Path(std::string_view sFile) {
  std::error_code hProblem;
  const fs::path hFull = fs::absolute(std::string(sFile), hProblem);
  return hProblem ? std::string(sFile) : hFull.lexically_normal().string();
}

bool Fits_a_Line(std::string_view sPath) {
  return !sPath.empty() && sPath.find_first_of("\r\n") == std::string_view::npos &&
         sPath.size() <= static_cast<std::size_t>(MPathText);
}

// ---- the menu

/// A folder as the user knows it: "~" for the own one, and of a long path the end.
std::string Short_Folder(const std::string& sFile) {
  std::string sFolder = fs::path(sFile).parent_path().string();
  if (const std::string sHome = IOsVariable("HOME"); sHome.size() > 1 && sFolder.starts_with(sHome))
    sFolder.replace(0, sHome.size(), "~");
  if (sFolder.size() <= MFolderText) return sFolder;
  std::size_t K = sFolder.find('/', sFolder.size() - MFolderText);
  if (K == std::string::npos) K = sFolder.rfind('/');  // one long name is shown whole
  return std::string(sLeftOut) + sFolder.substr(K);
}

std::string Recent_Text(I4 I) {
  const std::string sFile = Recent_File(I);
  if (sFile.empty()) return {};
  return "&" + Str_Write_I4(I).str() + " " +
         As_Menu_Text(std::string(File_Name(sFile)) + "  in " + Short_Folder(sFile));
}

void Show_Offered(I4 iCommand, std::string_view sWord, I4 I) {
  const bool bThere = I >= 1 && I <= static_cast<I4>(hRecent.sOffered.size());
  std::string sText(sWord);
  if (bThere) sText += " (" + As_Menu_Text(File_Name(hRecent.sOffered[static_cast<std::size_t>(I - 1)])) + ")";
  WMenuEntry(iCommand, sText, bThere);
}

}  // namespace

void Recent_Begin(bool bKept) {
  hRecent = {};
  if (bKept) hRecent.sListFile = Config_File("recent.txt");
  Read_List();
  Show_Recent();
}

void Offer_Files(std::vector<std::string> sOffered) {
  hRecent.sOffered = sOffered.size() > 1 ? std::move(sOffered) : std::vector<std::string>{};
  for (std::string& s : hRecent.sOffered) s = Full_Path(s);
  hRecent.iOffered = 1;
  Show_Recent();
}

void Recent_Add(std::string_view sFile) {
  const std::string sPath = Full_Path(sFile);
  const auto hFound = std::ranges::find(hRecent.sOffered, sPath);
  if (hFound != hRecent.sOffered.end()) hRecent.iOffered = static_cast<I4>(hFound - hRecent.sOffered.begin()) + 1;
  if (!hRecent.sListFile.empty() && Fits_a_Line(sPath)) {
    Read_List();  // what another window has added since
    std::erase(hRecent.sFile, sPath);
    hRecent.sFile.insert(hRecent.sFile.begin(), sPath);
    if (static_cast<I4>(hRecent.sFile.size()) > MRecent) hRecent.sFile.pop_back();
    Write_List();
  }
  Show_Recent();
}

std::string Recent_File(I4 I) {
  return I >= 1 && I <= static_cast<I4>(hRecent.sFile.size()) ? hRecent.sFile[static_cast<std::size_t>(I - 1)]
                                                              : std::string();
}

std::string Recent_Folder() {
  std::error_code hProblem;
  for (const std::string& s : hRecent.sFile) {
    const fs::path hFolder = fs::path(s).parent_path();
    if (fs::is_directory(hFolder, hProblem)) return hFolder.string();
  }
  return {};
}

std::string Step_Offered(I4 iStep) {
  const I4 I = hRecent.iOffered + iStep;
  if (I < 1 || I > static_cast<I4>(hRecent.sOffered.size())) return {};
  hRecent.iOffered = I;
  Show_Recent();
  return hRecent.sOffered[static_cast<std::size_t>(I - 1)];
}

void Show_Recent() {
  for (I4 I = 1; I <= MRecent; ++I) WMenuEntry(iCmdRecent + I - 1, Recent_Text(I), IOsFileExists(Recent_File(I)));
  Show_Offered(iCmdNextFile, "&Next File", hRecent.iOffered + 1);
  Show_Offered(iCmdPreviousFile, "&Previous File", hRecent.iOffered - 1);
}

}  // namespace quillan

#include "review/review_export.h"

#include <algorithm>
#include <filesystem>
#include <vector>

#include "foundations/file_util.h"
#include "foundations/log_file.h"
#include "foundations/str_parse.h"
#include "foundations/str_write.h"
#include "model/tmd_data.h"
#include "platform/clock.h"
#include "toolkit/dialog/form.h"
#include "toolkit/window/messages.h"
#include "toolkit/window/window.h"

namespace quillan {
namespace {

constexpr std::string_view sTableExtension = ".csv";
constexpr std::string_view sTitle = "Export";

/// What the dialog shows.
struct ExportForm {
  std::string sName;  // a path, or a name in the folder of the data file
  L4 bSmallPrint;
  std::string sAgreed;  // path of a file that the user agreed to replace when it was selected
};
constexpr FormRow<ExportForm> hExportRow[] = {
    {iFldExportFile, &ExportForm::sName      },
    {iChkSmallPrint, &ExportForm::bSmallPrint},
};

bool Is_Table(std::string_view sFile) {
  return Str_UpCase(File_Ext(sFile)) == Str_UpCase(sTableExtension);
}

std::string Control_File(std::string_view sTable) {
  return std::string(File_Stem(sTable)) + ".mde";
}

std::vector<std::string> Files_of(const ReviewExport& h, const std::string& sFile) {
  if (Is_Table(sFile) && h.bControl) return {sFile, Control_File(sFile)};
  return {sFile};
}

/// The date as it sorts, which no reader takes for another day.
std::string Today() {
  const Date h = IOsDate();
  return Str_Write_I4(h.iYear).str() + "-" + Str_Write_I4F22(h.iMonth).str() + "-" + Str_Write_I4F22(h.iDay).str();
}

std::string Small_Print(const ReviewExport& h) {
  return std::string(File_Name(sAvgFile)) + "    " + h.sSubject + "    " + Today();
}

// ---- the name

std::string Path_of(std::string_view sName) {
  return (std::filesystem::path(File_Dir(sAvgFile)) / sName).string();  // a path of its own stays
}

/// As the dialog shows it: what the user reads first is the name.
std::string Name_of(const std::string& sFile) {
  const std::string_view sFolder = File_Dir(sAvgFile);
  return sFile.substr(sFile.starts_with(sFolder) ? sFolder.size() : 0);
}

/// The kind of the name that stands in the dialog comes first: a name that is typed without an extension gets its.
std::string Filter(std::string_view sFile) {
  std::string sFilter, sFirst;
  const auto Add = [&](std::string_view sWords, std::string_view sExtension) {
    std::string& s = Str_UpCase(File_Ext(sFile)) == Str_UpCase(sExtension) ? sFirst : sFilter;
    s.append(sWords).append("|*").append(sExtension).append("|");
  };
  for (const PictureKind& h : hPictureKind) Add(h.sWords, h.sExtension);
  Add("Table", sTableExtension);
  return sFirst + sFilter;
}

void Select_File(ExportForm& hForm) {
  const std::string sFile = WSelectFile2(Filter(hForm.sName), iSelectSave, sTitle, Path_of(hForm.sName));
  if (sFile.empty()) return;
  hForm.sAgreed = std::filesystem::absolute(sFile).string();
  hForm.sName = Name_of(hForm.sAgreed);
}

bool Refuse(std::string_view sWhy) {
  WMessageBox(BoxButtons::Ok, BoxIcon::Warning, sWhy, sTitle);
  return false;
}

/// Whether a plot-control file would take the place of the survey's own metadata.
bool Is_Own_Metadata(const std::string& sFile) {
  std::error_code hNone;
  return std::filesystem::equivalent(sFile, IOsFindCompanion(Control_File(sAvgFile)), hNone);
}

/// Whether the files may be written; what stands in the way is said.
bool May_Write(const ReviewExport& h, const ExportForm& hForm) {
  const std::string sPath = Path_of(hForm.sName);
  if (!Is_Table(sPath) && !Picture_Kind(sPath)) {
    return Refuse("The name of the file must end in .svg, .pdf, .png, .wmf or .csv.");
  }
  for (const std::string& sFile : Files_of(h, sPath)) {
    if (Is_Own_Metadata(sFile)) {
      return Refuse("The plot-control file of the table would replace " + std::string(File_Name(sFile)) +
                    ", which holds the metadata of the survey. Choose another name.");
    }
    const bool bAsk = IOsFileExists(sFile) && sFile != hForm.sAgreed;
    const std::string sQuestion = std::string(File_Name(sFile)) + " is there already. Replace it?";
    if (bAsk && !WMessageBox(BoxButtons::YesNo, BoxIcon::Question, sQuestion, sTitle)) return false;
  }
  return true;
}

/// While it lives, the fields of the dialog tell the review nothing.
struct NoFieldMessages {
  NoFieldMessages() { WMessageEnable(MessageType::Field, false); }
  ~NoFieldMessages() { WMessageEnable(MessageType::Field, true); }
  NoFieldMessages(const NoFieldMessages&) = delete;
  NoFieldMessages& operator=(const NoFieldMessages&) = delete;
};

/// Dialog 122. Whether the user wants the export.
bool Ask_File(const ReviewExport& h, ExportForm& hForm) {
  const NoFieldMessages quiet;
  const LoadedDialog dialog(iDlgExport);
  for (;;) {
    Form_Put<ExportForm>(hExportRow, hForm);
    const I4 iButton = WDialogShow(iCentred, iCentred, iShowModal);
    Form_Take<ExportForm>(hExportRow, hForm);
    hForm.sName = Trimmed(hForm.sName);
    if (iButton == iBtnExportSelect) {
      Select_File(hForm);
    } else if (iButton != iBtnContinue || May_Write(h, hForm)) {
      return iButton == iBtnContinue;
    }
  }
}

I4 Write(const ReviewExport& h, const std::string& sFile) {
  const PictureKind* hKind = Picture_Kind(sFile);
  if (!hKind) return h.Write_Table(sFile);
  return h.Write_Picture(sFile, *hKind, hExportChoice.bSmallPrint ? Small_Print(h) : "");
}

}  // namespace

void Review_Export(const ReviewExport& h) {
  ExportForm hForm{Name_of(h.sStem) + hExportChoice.sExtension, hExportChoice.bSmallPrint, {}};
  if (!Ask_File(h, hForm)) return;
  const std::string sPath = Path_of(hForm.sName);
  hExportChoice = {std::string(File_Ext(sPath)), hForm.bSmallPrint};
  std::string sNames;
  bool bReplaces = false;
  for (const std::string& sFile : Files_of(h, sPath)) {
    sNames += (sNames.empty() ? "" : " and ") + std::string(File_Name(sFile));
    bReplaces = bReplaces || IOsFileExists(sFile);
  }
  Say_Exported(sNames, bReplaces, Write(h, sPath));
}

void Say_Exported(const std::string& sNames, L4 bReplaces, I4 iError) {
  const std::string_view sEarlier = bReplaces ? "; an earlier file was replaced." : "; no file was replaced.";
  WindowOutStatusBar(2, iError == 0   ? "Written: " + sNames + std::string(sEarlier)
                        : iError == 2 ? "The export was stopped. The files are as they were."
                                      : sNames + " could not be written.");
}

}  // namespace quillan

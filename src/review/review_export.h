// review_export.h: what a review shows, in a file that the user names in dialog 122: a picture (plot_file.h) at the
// present zoom or a table, by the extension of the name.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "base/types.h"
#include "review/plot_file.h"

namespace quillan {

// Dialog 122.
inline constexpr I4 iDlgExport = 122;
inline constexpr I4 iFldExportFile = 1201;
inline constexpr I4 iBtnExportSelect = 1202;
inline constexpr I4 iChkSmallPrint = 1203;

/// What a review offers to export.
struct ReviewExport {
  std::string sStem;     // of the name that is offered
  std::string sSubject;  // which section or curve, for the small print
  std::function<I4(std::string_view sFile, const PictureKind& hKind, std::string_view sSmallPrint)> Write_Picture;
  std::function<I4(std::string_view sFile)> Write_Table;
  L4 bControl = false;  // the table comes with a plot-control file, .mde
};

// Module state: what the user chose last, for the next export of the run. Review_Export keeps it.
struct ExportChoice {
  std::string sExtension = ".svg";
  L4 bSmallPrint = true;
};
inline ExportChoice hExportChoice;

/// Asks for a file and writes it. The status bar says what became of it.
void Review_Export(const ReviewExport& hExport);

/// In the status bar: whether an export was written (0), failed (1) or was stopped (2), and whether it took the place
/// of an earlier one.
void Say_Exported(const std::string& sNames, L4 bReplaces, I4 iError);

}  // namespace quillan

// column_file.h: what the files of survey coordinates (.txw, .stn) have in common.
//
// Their records are comments, labels that name the columns of the rows below, or rows. Such a file is optional: the
// user may choose another or go on without.
#pragma once

#include <string>
#include <string_view>

#include "base/types.h"
#include "foundations/log_file.h"

namespace quillan {

/// Said of values and rows that are left out.
inline constexpr const char* sSpuriousDropped = "Spurious data will be dropped.";

/// Largest number that is taken from such a file: no coordinate of the earth is larger.
inline constexpr R8 dColumnValueMax = 1.0E12;

enum class ColumnRecord { Ignored, Labels, Row };

/// What a record is: nothing of use in fewer than three characters or after one of $ \ / ! ", labels after a letter,
/// else a row. Leading blanks are taken off.
[[nodiscard]] ColumnRecord Kind_of_Column_Record(std::string_view& sRecord);

/// What is said about a file that is looked for.
struct OptionalFileWords {
  ErrorLines sMissing;  // lines of the log where nobody can be asked
  std::string_view sFilter, sTitle;
  std::string_view sCanceled;
};
/// Looks for a file by its name in any case; the user may choose another where it is missing, unless bAuto. sPath is
/// then the path of the file. False when there is none.
[[nodiscard]] bool Find_Optional_File(std::string& sPath, L4 bAuto, const OptionalFileWords& hWords);

/// A report for the user, or with bFileOnly for the error file alone.
void LogErr_or_File(bool bFileOnly, const ErrorLines& sError);

/// " on line1.txw line 12"
[[nodiscard]] std::string On_Line_of_File(std::string_view sFileName, I4 iRecord);

/// The report of a value that is above dColumnValueMax in size.
[[nodiscard]] ErrorLines Beyond_Limit(std::string_view sWord, R8 dValue, std::string_view sFileName, I4 iRecord);

/// The report of a required value that is not there.
[[nodiscard]] ErrorLines No_Value(std::string_view sWord, std::string_view sFileName, I4 iRecord);

}  // namespace quillan

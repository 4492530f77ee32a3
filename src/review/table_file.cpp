#include "review/table_file.h"

#include <string>

#include "foundations/log_file.h"

namespace quillan {

void Begin_Table(std::string_view sWhat, std::string_view sFile) {
  LogText("");
  LogText(sWhat);
  LogText(sFile);
}

void Put_Field(TextWriter& out, std::string_view sField) {
  out.Put(sField);
  out.Put(",");
}

I4 End_Table(TextWriter& out, std::string_view sFile, std::string_view sDone) {
  out.Commit();
  if (out.Has_Failed()) {
    LogErr({"ERROR while trying to write ", std::string(sFile), out.Reason(),
            "The export is not written; choose it again."});
    return 1;
  }
  LogText(std::string(sFile).append(sDone));
  return 0;
}

}  // namespace quillan

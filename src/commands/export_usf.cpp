#include "commands/export_usf.h"

namespace quillan {

I4 Export_USF(std::string_view sUsfFile) {
  if (USF_Check() != 0) return 1;
  return USF_Write(sUsfFile, iUsfLayout);
}

}  // namespace quillan

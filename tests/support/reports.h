// reports.h: what a user saw of the reports of a test.
#pragma once

#include <string_view>

#include "foundations/log_file.h"

namespace quillan {

/// Lines on the screen that hold a text.
inline I4 Shown(std::string_view sPart) {
  I4 NShown = 0;
  for (I4 I = 1; I <= NTextBuffer; ++I) {
    if (sTextBuffer(I).trimmed().find(sPart) != std::string_view::npos) ++NShown;
  }
  return NShown;
}

}  // namespace quillan

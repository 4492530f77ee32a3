#include "foundations/user.h"

#include <iostream>

namespace quillan {

User No_User() {
  User h;
  h.Tell = [](std::string_view sReport) {
    std::cerr << sReport << std::endl;
    return AfterReport::GoOn;
  };
  h.Which_Word = [](const WordQuestion&) { return 0; };
  h.Which_Columns = [](const ColumnQuestion&) { return false; };
  h.Which_Z_Data = [](const ZTypeQuestion&) { return ZTypeAnswer{}; };
  h.Choose_File = [](std::string_view, std::string_view) { return std::string(); };
  h.Says_Yes = [](std::string_view, std::string_view) { return false; };
  h.Show_Line = [](std::string_view) {};
  h.Look = [](const WorkDone&) { return true; };
  h.Work_Ends = [] {};
  h.Leave = [] {};
  return h;
}

}  // namespace quillan

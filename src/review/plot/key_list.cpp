#include "review/plot/key_list.h"

#include "toolkit/window/messages.h"

namespace quillan {

void Add_Key(std::vector<KeyRow>& hRow, std::string_view sKey, std::string_view sHelp) {
  if (sHelp.empty() && !hRow.empty())
    hRow.back().sKeys.append(", ").append(sKey);
  else
    hRow.push_back({std::string(sKey), std::string(sHelp)});
}

void Show_Keys(const std::vector<KeyRow>& hRow) {
  std::string sText;
  for (const KeyRow& h : hRow) sText += (sText.empty() ? "" : "\n") + h.sKeys + ":  " + h.sHelp;
  WMessageBox(BoxButtons::Ok, BoxIcon::None, sText, "Keys");
}

}  // namespace quillan

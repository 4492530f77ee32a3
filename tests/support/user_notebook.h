// user_notebook.h: a person at the program who notes what is asked and gives prepared answers.
#pragma once

#include <algorithm>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "foundations/user.h"

namespace quillan {

/// Takes the place of the user while it lives. Without prepared answers every question counts as cancelled.
struct UserNotebook {
  std::vector<std::string> sNote;  // reports and questions, in turn

  AfterReport iAfterReport = AfterReport::GoOn;
  I4 iWord = 0;                          // entry that was meant
  std::vector<std::vector<I4>> KChoice;  // entries chosen at each question about columns in turn; then it is cancelled

  UserNotebook() {
    hUser.Tell = [this](std::string_view sReport) {
      sNote.emplace_back(sReport);
      return iAfterReport;
    };
    hUser.Which_Word = [this](const WordQuestion& h) {
      sNote.push_back(std::string(h.CWord).append(" of ").append(h.sKeyword) + Listed(h.sEntry) + " at " +
                      h.sEntry[static_cast<std::size_t>(h.iSelect - 1)]);
      return iWord;
    };
    hUser.Which_Columns = [this](const ColumnQuestion& h) {
      sNote.push_back(std::string(h.sFileName) + Listed(h.sVariable) + Listed(h.sStatus) + Listed(h.sLabel));
      if (NColumnQuestion == KChoice.size()) return false;
      std::copy(KChoice[NColumnQuestion].begin(), KChoice[NColumnQuestion].end(), h.KCol.begin());
      ++NColumnQuestion;
      return true;
    };
    hUser.Leave = [this] { sNote.emplace_back("left"); };
  }
  ~UserNotebook() { hUser = No_User(); }
  UserNotebook(const UserNotebook&) = delete;
  UserNotebook& operator=(const UserNotebook&) = delete;

 private:
  static std::string Listed(std::span<const std::string> sItem) {
    std::string sList = ":";
    for (const std::string& s : sItem) sList += " " + s;
    return sList;
  }
  std::size_t NColumnQuestion = 0;  // answered
};

}  // namespace quillan

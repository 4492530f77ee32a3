// gestures.h: the loop of a review: show, wait, and carry out what the user wants, by a table of gestures.
//
// A review is a view (all that it knows, from ReviewView), a table with one row a gesture, and the procedures of
// ReviewProcedures. A gesture may have a place in the menu bar, a button of the tool window, and a key; one that has
// several keys has a row for each.
#pragma once

#include <cstddef>
#include <vector>

#include "base/types.h"
#include "foundations/log_file.h"
#include "toolkit/window/menus.h"
#include "toolkit/window/messages.h"
#include "toolkit/window/window.h"

namespace quillan {

inline constexpr I4 iStay = 0;  // iFlag while a review goes on

/// What every review knows.
struct ReviewView {
  bool bRedraw = true;  // the window does not show the plot as it is
  I4 iFlag = iStay;     // where the user wants to go, review_flag.h
};

template <class View>
struct Gesture {
  I4 iButton;                      // of the tool window; 0: none
  I4 iKey;                         // capital letter or code; 0: none
  void (*Carry_Out)(View& hView);  // null for the head of a drop-down menu
  MenuRow hMenu{};                 // its row in the menu bar; without a text it has none
};

template <class View>
struct ReviewProcedures {
  void (*Show)(View& hView);                             // brings fields and picture up to date
  void (*On_Press)(View& hView, const Message& hPress);  // of the mouse, in the main window
  void (*On_Field)(View& hView, I4 iField);              // of the tool window
  void (*On_Resize)();                                   // the main window has another size
  void (*On_Close)(View& hView);                         // the user wants it closed
};

/// Gives the menu bar the rows of a table.
template <class View, std::size_t N>
void Define_Menu(I4 iMenu, const Gesture<View> (&hTable)[N]) {
  std::vector<MenuRow> hRow;
  for (const Gesture<View>& h : hTable) {
    if (!h.hMenu.sText.empty()) hRow.push_back(h.hMenu);
  }
  WMenuDefine(iMenu, hRow);
}

/// Carries out the gesture that a key, a menu entry or a button stands for; letters in either case.
template <class View, std::size_t N>
void Carry_Out(View& hView, const Gesture<View> (&hTable)[N], const Message& hMessage) {
  const auto Is_Meant = [iChosen = hMessage.VALUE1, iType = hMessage.iType](const Gesture<View>& h) {
    if (iType == MessageType::Menu) return h.hMenu.iCommand == iChosen;
    if (iType == MessageType::Button) return h.iButton == iChosen;
    return h.iKey == (iChosen >= 'a' && iChosen <= 'z' ? iChosen - 'a' + 'A' : iChosen);
  };
  for (const Gesture<View>& h : hTable) {
    if (hMessage.VALUE1 == 0 || !Is_Meant(h)) continue;
    if (h.hMenu.iCommand != 0) LogErr_Begin_Command();
    return h.Carry_Out(hView);
  }
}

/// What the status bar says of the last gesture goes away with the next.
inline void Forget_Last_Gesture(MessageType iType) {
  const bool bGesture = iType == MessageType::Key || iType == MessageType::Menu || iType == MessageType::Button ||
                        iType == MessageType::MouseDown || iType == MessageType::Field;
  if (bGesture) WindowOutStatusBar(2, "");
}

/// Goes on until a gesture sets iFlag.
template <class View, std::size_t N>
void Review_Loop(View& hView, const Gesture<View> (&hTable)[N], const ReviewProcedures<View>& hReview) {
  while (hView.iFlag == iStay) {
    hReview.Show(hView);
    const Message hMessage = WMessage();
    Forget_Last_Gesture(hMessage.iType);
    switch (hMessage.iType) {
      case MessageType::Key:
      case MessageType::Menu:
      case MessageType::Button: Carry_Out(hView, hTable, hMessage); break;
      case MessageType::MouseDown:
        if (hMessage.VALUE3 == 0) hReview.On_Press(hView, hMessage);
        break;
      case MessageType::Field: hReview.On_Field(hView, hMessage.VALUE1); break;
      case MessageType::Resize: hReview.On_Resize(); [[fallthrough]];
      case MessageType::Expose: hView.bRedraw = true; break;
      case MessageType::Close: hReview.On_Close(hView); break;
      default: break;
    }
  }
}

}  // namespace quillan

// gestures.h: the loop of a review: show, wait, and carry out what the user wants, by a table of gestures.
//
// A review is a view (all that it knows, from ReviewView), a table with one row a gesture, and the procedures of
// ReviewProcedures. A gesture may have a place in the menu bar, a button of the tool window, and a key; one that has
// several keys has a row for each. One that changes data has a name for the list of edits, and is kept as one. Ctrl+Z
// and Ctrl+Y (or Ctrl+Shift+Z) take edits back and do them again in a review that shows the store.
#pragma once

#include <cstddef>
#include <vector>

#include "base/types.h"
#include "foundations/log_file.h"
#include "review/plot/review_edits.h"
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
  std::string_view sEdit{};        // what the edit is called; blank: it changes no data
};

template <class View>
struct ReviewProcedures {
  void (*Show)(View& hView);                             // brings fields and picture up to date
  void (*On_Press)(View& hView, const Message& hPress);  // of the mouse, in the main window
  void (*On_Field)(View& hView, I4 iField);              // of the tool window
  void (*On_Resize)();                                   // the main window has another size
  void (*On_Close)(View& hView);                         // the user wants it closed
  bool bFlagsByMouse = false;                            // the left and right buttons set and clear flags
  // What is on show, and the way to an edit that was taken back. Without them nothing is: the review works on what it
  // has gathered from the store, which must stay as it is.
  TransientRange (*Shown)(const View& hView) = nullptr;
  void (*Go_To)(View& hView, const TakenBack& hBack) = nullptr;
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
    h.Carry_Out(hView);
    if (!h.sEdit.empty()) hReviewEdits.Keep(h.sEdit);
    return;
  }
}

/// Undo and redo, by the keys or by the menu of the review.
inline bool Is_Step(const Message& h, I4 iKey, I4 iCommand) {
  return (h.iType == MessageType::Key && h.VALUE1 == iKey) || (h.iType == MessageType::Menu && h.VALUE1 == iCommand);
}

template <class View>
void Take_Back(View& hView, const ReviewProcedures<View>& hReview, TakenBack (*Step)(const TransientRange& hShown)) {
  if (!hReview.Shown || !hReview.Go_To) return;
  const TakenBack hBack = Step(hReview.Shown(hView));
  if (!hBack.bDone) return;
  hView.bRedraw = true;
  hReview.Go_To(hView, hBack);
}

template <class View>
void Press(View& hView, const ReviewProcedures<View>& hReview, const Message& hPress) {
  if (hPress.VALUE3 != 0) return;
  hReview.On_Press(hView, hPress);
  const bool bFlags = hPress.VALUE1 == iMouseLeft || hPress.VALUE1 == iMouseRight;
  if (hReview.bFlagsByMouse && bFlags) hReviewEdits.Keep("");
}

/// What a key, a menu entry or a button stands for.
template <class View, std::size_t N>
void Choose(View& hView, const Gesture<View> (&hTable)[N], const ReviewProcedures<View>& hReview, const Message& h) {
  if (Is_Step(h, iKeyUndo, iCmdUndo)) return Take_Back(hView, hReview, hReviewEdits.Undo);
  if (Is_Step(h, iKeyRedo, iCmdRedo)) return Take_Back(hView, hReview, hReviewEdits.Redo);
  Carry_Out(hView, hTable, h);
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
      case MessageType::Button: Choose(hView, hTable, hReview, hMessage); break;
      case MessageType::MouseDown: Press(hView, hReview, hMessage); break;
      case MessageType::Field: hReview.On_Field(hView, hMessage.VALUE1); break;
      case MessageType::Resize: hReview.On_Resize(); [[fallthrough]];
      case MessageType::Expose: hView.bRedraw = true; break;
      case MessageType::Close: hReview.On_Close(hView); break;
      default: break;
    }
  }
}

}  // namespace quillan

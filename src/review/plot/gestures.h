// gestures.h: the loop of a review: show, wait, and carry out what the user wants, by a table of gestures.
//
// A review is a view (all that it knows, from ReviewView), a table with one row a gesture, and the procedures of
// ReviewProcedures. A gesture may have a place in the menu bar, a button of the tool window, and a key; one that has
// several keys has a row for each. One that changes data has a name for the list of edits, and is kept as one. The keys
// that all reviews share, as far as a review has what they need, are the rows of hCommonKey; "?" lists both tables.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "base/types.h"
#include "foundations/log_file.h"
#include "review/plot/guide.h"
#include "review/plot/key_list.h"
#include "review/plot/pointing.h"
#include "review/plot/review_edits.h"
#include "toolkit/dialog/dialog.h"
#include "toolkit/window/menus.h"
#include "toolkit/window/messages.h"
#include "toolkit/window/window.h"

namespace quillan {

inline constexpr I4 iStay = 0;  // iFlag while a review goes on

/// What every review knows.
struct ReviewView : PointedAt {
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
  std::string_view sHelp{};        // for the list of keys; blank: a further key of the row above, or a menu entry
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
  PointProcedures<View> hPoints{};
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

template <class View>
void Take_Back(View& hView, const ReviewProcedures<View>& hReview, TakenBack (*Step)(const TransientRange& hShown)) {
  if (!hReview.Shown || !hReview.Go_To) return;
  const TakenBack hBack = Step(hReview.Shown(hView));
  if (!hBack.bDone) return;
  hView.bRedraw = true;
  hReview.Go_To(hView, hBack);
}

// ---- the keys that reviews share

template <class View>
using Review = ReviewProcedures<View>;

template <class View>
void Undo(View& hView, const Review<View>& hReview) {
  Take_Back(hView, hReview, hReviewEdits.Undo);
}

template <class View>
void Redo(View& hView, const Review<View>& hReview) {
  Take_Back(hView, hReview, hReviewEdits.Redo);
}

template <class View, I4 NWindow, I4 NSounding>
void Move_Ring(View& hView, const Review<View>& hReview) {
  Step_Point(hView, hReview.hPoints, NWindow, NSounding);
}

template <class View, bool bLater>
void Flag_at_Ring(View& hView, const Review<View>& hReview) {
  Flag_Point(hView, hReview.hPoints, bLater);
  hReviewEdits.Keep("");
}

template <class View>
void Hide_Skipped(View& hView, const Review<View>&) {
  bHideSkipped = !bHideSkipped;
  hView.sRest = bHideSkipped ? sHiddenHint : "";
  hView.bRedraw = true;
  Say_Rest(hView);
}

template <class View>
void Roll_Tool_Window(View&, const Review<View>&) {
  WDialogRoll();
}

template <class View>
void Open_Guide(View&, const Review<View>&) {
  (void)Show_Guide();  // a guide that is not there has been reported
}

template <class View>
bool Has_Edits(const Review<View>& h) {
  return h.Shown && h.Go_To;
}

template <class View>
bool Has_Steps(const Review<View>& h) {
  return h.hPoints.Step != nullptr;
}

template <class View>
bool Is_Always(const Review<View>&) {
  return true;
}

template <class View>
struct CommonKey {
  I4 iKey;
  I4 iCommand;  // of the menu; 0: none
  bool (*Is_There)(const Review<View>& hReview);
  void (*Carry_Out)(View& hView, const Review<View>& hReview);
  std::string_view sHelp;
};

// clang-format off
template <class View>
inline constexpr CommonKey<View> hCommonKey[] = {
    {iKeyUndo,       iCmdUndo, Has_Edits<View>, Undo<View>,                "take the last edit back"},
    {iKeyRedo,       iCmdRedo, Has_Edits<View>, Redo<View>,                "do it again"},
    {iKeyCtrlUp,     0,        Has_Steps<View>, Move_Ring<View, -1, 0>,    "ring to the window before"},
    {iKeyCtrlDown,   0,        Has_Steps<View>, Move_Ring<View, 1, 0>,     "ring to the next window"},
    {iKeyCtrlLeft,   0,        Has_Steps<View>, Move_Ring<View, 0, -1>,    "ring to the sounding before"},
    {iKeyCtrlRight,  0,        Has_Steps<View>, Move_Ring<View, 0, 1>,     "ring to the next sounding"},
    {iKeySpace,      0,        Has_Steps<View>, Flag_at_Ring<View, false>, "skip or clear the point in the ring"},
    {iKeyShiftSpace, 0,        Has_Steps<View>, Flag_at_Ring<View, true>,  "the same with all later windows"},
    {iKeyCtrlH,      0,        Has_Steps<View>, Hide_Skipped<View>,        "hide or show skipped points"},
    {iKeyCtrlT,      0,        Is_Always<View>, Roll_Tool_Window<View>,    "roll the tool window up or down"},
    {iKeyF1,         0,        Is_Always<View>, Open_Guide<View>,          "the guide, in the browser"},
};
// clang-format on

/// The keys of a review, from its table and from those above.
template <class View, std::size_t N>
std::vector<KeyRow> Key_Rows(const Gesture<View> (&hTable)[N], const Review<View>& hReview) {
  std::vector<KeyRow> hRow;
  for (const Gesture<View>& h : hTable) {
    if (!h.Carry_Out) continue;
    if (h.iKey != 0) Add_Key(hRow, Key_Name(h.iKey), h.sHelp);
    if (!h.hMenu.sKeys.empty()) Add_Key(hRow, h.hMenu.sKeys, h.hMenu.sText);
  }
  for (const CommonKey<View>& h : hCommonKey<View>) {
    if (h.Is_There(hReview)) Add_Key(hRow, Key_Name(h.iKey), h.sHelp);
  }
  return hRow;
}

template <class View>
bool Carried_Out_for_All(View& hView, const Review<View>& hReview, const Message& hMessage) {
  for (const CommonKey<View>& h : hCommonKey<View>) {
    const I4 iMeant = hMessage.iType == MessageType::Key    ? h.iKey
                      : hMessage.iType == MessageType::Menu ? h.iCommand
                                                            : 0;
    if (iMeant == 0 || iMeant != hMessage.VALUE1 || !h.Is_There(hReview)) continue;
    h.Carry_Out(hView, hReview);
    return true;
  }
  return false;
}

template <class View>
void Press(View& hView, const ReviewProcedures<View>& hReview, const Message& hPress) {
  if (hPress.VALUE3 != 0) return;
  hView.hClicked = {};
  hReview.On_Press(hView, hPress);
  const bool bFlags = hPress.VALUE1 == iMouseLeft || hPress.VALUE1 == iMouseRight;
  if (hReview.bFlagsByMouse && bFlags) hReviewEdits.Keep("");
  if (hView.hClicked.iTrn != 0) Hold_Point(hView, hReview.hPoints, hView.hClicked);
}

/// What a key, a menu entry or a button stands for.
template <class View, std::size_t N>
void Choose(View& hView, const Gesture<View> (&hTable)[N], const ReviewProcedures<View>& hReview, const Message& h) {
  if (h.iType == MessageType::Key && h.VALUE1 == iKeyHelp) return Show_Keys(Key_Rows(hTable, hReview));
  if (!Carried_Out_for_All(hView, hReview, h)) Carry_Out(hView, hTable, h);
}

/// What the status bar says of the last gesture goes away with the next.
template <class View>
void Forget_Last_Gesture(View& hView, MessageType iType) {
  const bool bGesture = iType == MessageType::Key || iType == MessageType::Menu || iType == MessageType::Button ||
                        iType == MessageType::MouseDown || iType == MessageType::Field;
  if (bGesture) Say_Rest(hView);
}

/// Goes on until a gesture sets iFlag.
template <class View, std::size_t N>
void Review_Loop(View& hView, const Gesture<View> (&hTable)[N], const ReviewProcedures<View>& hReview) {
  const PointerWatch hWatch;
  if (!hView.sRest.empty()) Say_Rest(hView);
  while (hView.iFlag == iStay) {
    hReview.Show(hView);
    Put_Ring(hView, hReview.hPoints);
    WMessageEnable(MessageType::MouseMove, hReview.hPoints.Near != nullptr);  // a gesture may have turned them off
    const Message hMessage = WMessage();
    Forget_Last_Gesture(hView, hMessage.iType);
    switch (hMessage.iType) {
      case MessageType::Key:
      case MessageType::Menu:
      case MessageType::Button: Choose(hView, hTable, hReview, hMessage); break;
      case MessageType::MouseDown: Press(hView, hReview, hMessage); break;
      case MessageType::MouseMove: Follow_Pointer(hView, hReview.hPoints, hMessage); break;
      case MessageType::Field: hReview.On_Field(hView, hMessage.VALUE1); break;
      case MessageType::Resize: hReview.On_Resize(); [[fallthrough]];
      case MessageType::Expose: hView.bRedraw = true; break;
      case MessageType::Close: hReview.On_Close(hView); break;
      default: break;
    }
  }
}

}  // namespace quillan

// history.h: what was done to the data since they were opened, edit by edit, to be taken back and done again.
//
// An edit is what one command, button or gesture did. Nobody reports one: whoever carries out a row that can change
// data calls History_Keep after it, which finds the difference from a shadow of the data as the last edit left them.
// Only what differs is kept, before and after; a row that changed nothing leaves no edit.
//
//   History_Begin    after a file was opened: no edits yet, and the data are those of the file
//   History_Keep     after each command and gesture that can change data
//   History_Follow   after work that completes the data and is no edit, such as that of a save
//   History_Saved    when the data have been saved
//
// Edits are numbered from 1, the oldest first. The position is how many of them are in force: an undo takes it down by
// one, a redo up, and a new edit drops those above it. The oldest ones go when the edits hold more than NHistoryMost
// bytes.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "base/types.h"
#include "model/history_image.h"
#include "model/history_words.h"

namespace quillan {

inline constexpr std::size_t NHistoryMost = std::size_t{256} << 20U;  // bytes

struct Edit {
  EditWords hWords;            // which command or gesture, when, what it changed, where
  bool bOnlyFlags = false;     // no more than skip flags
  DataChange hBefore, hAfter;  // the data on both sides of it
};

/// What became of an edit, for those who record it.
enum class EditEvent {
  Kept,
  Undone,
  Redone,
  Lost  // the data have changed, and there was no memory to say how: the edit is an empty one
};

// Module state.
/// Called with each event and its edit; empty: nobody listens.
inline std::function<void(EditEvent, const Edit&)> hOnEdit;
inline std::size_t NHistoryLimit = NHistoryMost;  // bytes that the edits may hold

/// No edits, and the data of the store are those of the file.
void History_Begin();

/// Keeps what has changed since the last call as an edit. sEdit: what the command or gesture is called; blank: flags by
/// hand, whose name follows from what they did. Returns whether anything has changed. An edit for which there is no
/// memory cannot be taken back, nor can those before it: the history then begins after it.
bool History_Keep(std::string_view sEdit);

/// The shadow follows the data, and no edit is kept.
void History_Follow();

/// The data are those of the file now. Follows them as well.
void History_Saved();

/// Takes the data one edit back or on. Returns the edit; null where there is none. What follows from the data
/// (sections, titles) is the caller's.
const Edit* History_Undo();
const Edit* History_Redo();

/// Puts a state that was recorded elsewhere into the data and keeps it as an edit. Returns false, and changes nothing,
/// where the state is none of these data.
[[nodiscard]] bool History_Apply(const DataChange& hAfter, std::string_view sEdit);

/// The transient at which an edit is to be looked at, by a window that shows jFrom to jTo: the first of them that it
/// changed, else the first that it changed at all and that is there; jFrom where it changed none.
I4 Edit_Place(const Edit& hEdit, I4 jFrom, I4 jTo);

I4 History_Count();
I4 History_Position();
/// Edit K, 1..History_Count().
const Edit& History_Edit(I4 K);
/// What is left of the edits that had to go for want of room, oldest first.
const std::vector<EditWords>& History_Gone();

/// Whether the data differ from those last read or saved.
bool History_Differs_from_File();

/// Bytes that the edits hold, the shadow not counted.
std::size_t History_Memory();

/// The data as the last edit left them: what a command did that could not be finished is taken back, and is no edit.
/// Needs no more memory than History_Put_Back_Room() says.
void History_Put_Back();
std::size_t History_Put_Back_Room();

}  // namespace quillan

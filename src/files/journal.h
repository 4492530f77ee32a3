// journal.h: the edits that were made since a data file was read or saved, on the disk, for the day when the program
// does not come to its end.
//
// A journal belongs to one data file and stands in a folder of its own, named after the path of the file:
// "line7-0123456789abcdef.journal". It is binary, in the byte order of the machine and the layout of the program that
// wrote it:
//
//   QUILLAN JOURNAL        16 bytes, the last one a line end
//   record                 head: format, layout, data file, and what it and its metadata file were on the disk
//   record                 base: all of the data as they were before the first edit
//   record                 an edit, an undo or a redo: its name, its time, and what it touched as it was afterwards
//   ...
//
//   a record is            I8 bytes of the content, U8 their sum (with their length), content
//
// The base is there because what was read depends on more than the file: on what the user confirmed, and after a save
// on digits and flags that no file keeps. A record that is not complete is the torn end of the run that was killed, and
// is passed over; one whose sum is wrong ends the journal there. No value of a journal reaches the data before it was
// held against its range (Fits, model/history_image.h).
//
// A change of Transient, of History_Parts or of a record is a new iJournalFormat: a journal of another format is none
// of ours, and is left alone.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/types.h"
#include "files/file_stamp.h"
#include "model/history.h"
#include "platform/locked_file.h"

namespace quillan {

inline constexpr I4 iJournalFormat = 1;

struct JournalHead {
  std::string sDataFile;  // full path
  FileStamp hData, hMde;  // of the data file and its metadata file
};

struct JournalRecord {
  EditEvent iEvent = EditEvent::Kept;
  std::string sEdit;     // name as History_Apply takes it
  I8 iTime = 0;          // sec since 1970
  std::string sState;    // what the edit touched, afterwards
  std::size_t NEnd = 0;  // bytes of the journal up to its end
};

enum class JournalState {
  Empty,      // no edit was made
  Readable,   // at least one record
  Damaged,    // head or base cannot be read
  OtherKind,  // no journal, or one of another format or layout
};

struct Journal {
  JournalState iState = JournalState::Empty;
  JournalHead hHead;
  std::string sBase;                   // the data before the first record
  std::vector<JournalRecord> hRecord;  // those that can be read, in order
  bool bCut = false;                   // what follows them is damaged, and not only torn
};

/// The journal of a data file in a folder. Files of one name in two folders have two.
std::string Journal_Path(std::string_view sFolder, std::string_view sDataFile);

// ---- writing

/// The bytes with which a journal begins: head, and the data as they are as base.
std::string Journal_Begin(const JournalHead& hHead);
/// The record of an edit that was kept, undone or redone. sRoom: a record that is done with, whose memory is used
/// again.
std::string Journal_Entry(EditEvent iEvent, const Edit& hEdit, std::string sRoom = {});

// ---- reading

/// Takes a journal apart. Never fails: iState says what it is.
Journal Journal_Read(std::string_view sBytes);

/// How many edits are in force after the records: an undo takes one away, a redo brings it back. The undo of an edit
/// from before the journal is an edit itself.
I4 Journal_Count(const Journal& h);

/// Puts the data as they were before the first record, where they are not, and does again what the records say. Each is
/// kept as an edit, and what was undone can be redone. Returns how many records were taken: fewer than there are where
/// one holds what the data cannot be; the data are then as the record before it left them.
std::size_t Journal_Replay(const Journal& h);

}  // namespace quillan

#include "commands/recovery.h"

#include <algorithm>
#include <new>
#include <string_view>
#include <utility>

#include "commands/history_commands.h"
#include "commands/session.h"
#include "files/file_stamp.h"
#include "files/journal.h"
#include "foundations/file_util.h"
#include "foundations/log_file.h"
#include "foundations/str_write.h"
#include "model/history.h"
#include "model/tmd_data.h"
#include "platform/clock.h"
#include "platform/folders.h"
#include "platform/locked_file.h"
#include "toolkit/window/messages.h"
#include "toolkit/window/window.h"

namespace quillan {
namespace {

constexpr I4 NMsecToDisk = 1500;  // so that an edit is on the disk within two seconds
constexpr std::string_view sNotKept = "Edits are not kept for recovery: ";

// The journal of the file that is open. Recovery_Begin fills it.
struct Recovery {
  LockedFile hFile;
  std::string sRecord;     // the last record, whose memory the next one uses
  bool bDeclined = false;  // the user does not want what is in it
  bool bEnds = false;      // the data are those of their file: nothing in it is needed
  bool bStopped = false;   // an edit is missing in it: it gets no more
};
Recovery hRecovery;

/// A note, and no further edits in the journal until it begins again. What it holds already is right, and stays.
void Give_Up(const std::string& sReason) {
  hRecovery.bStopped = true;
  WindowOutStatusBar(iStatusProgress, std::string(sNotKept) + sReason + ".");
}

// ---- the journal of the run

void Flush() {
  if (hRecovery.hFile.Is_Open() && !hRecovery.bStopped && hRecovery.hFile.Flush() != 0)
    Give_Up(hRecovery.hFile.Reason());
}

/// The first edit that is not on the disk decides when it gets there.
void Append_to_Journal(std::string_view sBytes) {
  if (hRecovery.hFile.Append(sBytes) != 0) return Give_Up(hRecovery.hFile.Reason());
  WAfter(NMsecToDisk, Flush);
}

/// Records after an edit that is in none would be put upon other data.
void On_Edit(EditEvent iEvent, const Edit& hEdit) {
  hRecovery.bDeclined = hRecovery.bEnds = false;
  if (hRecovery.bStopped) return;
  if (iEvent == EditEvent::Lost) return Give_Up("out of memory");
  try {
    hRecovery.sRecord = Journal_Entry(iEvent, hEdit, std::move(hRecovery.sRecord));
    Append_to_Journal(hRecovery.sRecord);
  } catch (const std::bad_alloc&) {
    Give_Up("out of memory");
  }
}

void Listen() {
  hRecovery.bDeclined = hRecovery.bEnds = hRecovery.bStopped = false;
  hOnEdit = On_Edit;
}

std::string Metadata_File() {
  return IOsFindCompanion(std::string(File_Stem(sAvgFile)) + ".mde");
}

JournalHead Head_of_Data() {
  return {IOsFullPath(sAvgFile), Noted_Stamp(sAvgFile), Noted_Stamp(Metadata_File())};
}

/// An empty journal in the file that is open.
void Begin_Journal() {
  Listen();
  if (hRecovery.hFile.Cut(0) != 0) return Give_Up(hRecovery.hFile.Reason());
  Append_to_Journal(Journal_Begin(Head_of_Data()));
}

void Leave_Journal() {
  WAfter(0, nullptr);
  hOnEdit = nullptr;
  if (!hRecovery.hFile.Is_Open()) return;
  if (hRecovery.bDeclined || hRecovery.bEnds) return hRecovery.hFile.Remove();
  static_cast<void>(hRecovery.hFile.Flush());  // nothing more can be done for it
  hRecovery.hFile.Close();
}

/// False: there is none, which has been said.
bool Open_Journal() {
  const std::string sPath = Journal_Path(sJournalFolder, sAvgFile);
  if (!IOsMakeDir(sJournalFolder)) {
    Give_Up("the folder " + sJournalFolder + " cannot be made");
    return false;
  }
  switch (hRecovery.hFile.Open(sPath)) {
    case LockedFile::Opened::Yes: return true;
    case LockedFile::Opened::InUse:
      WindowOutStatusBar(
          iStatusProgress,
          hSession.sFileName + " is open in another Quillan: edits made here are not kept for recovery.");
      return false;
    case LockedFile::Opened::Failed: Give_Up(hRecovery.hFile.Reason()); return false;
  }
  return false;
}

// ---- a journal of an earlier run

/// "21 Nov 2026 at 14:03"
std::string Time_in_Words(I8 iTime) {
  constexpr std::string_view sMonth[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                         "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
  const Moment h = IOsMoment(iTime);
  const auto iMonth = static_cast<std::size_t>(std::clamp(h.hDate.iMonth, 1, 12) - 1);
  return Str_Write_I4(h.hDate.iDay).str() + " " + std::string(sMonth[iMonth]) + " " +
         Str_Write_I4(h.hDate.iYear).str() + " at " + Str_Write_I4F22(h.iHour).str() + ":" +
         Str_Write_I4F22(h.iMinute).str();
}

std::string Counted_Edits(I4 N) {
  return Str_Write_I4(N).str() + (N == 1 ? " edit" : " edits");
}

bool Wants_Edits(const Journal& h) {
  const I4 N = Journal_Count(h);
  return WMessageBox(BoxButtons::YesNo, BoxIcon::Question,
                     Counted_Edits(N) + " made on " + Time_in_Words(h.hRecord.back().iTime) +
                         (N == 1 ? " was not saved. Take it up again?" : " were not saved. Take them up again?"),
                     "");
}

/// The journal goes on after the last record that was taken.
void Take_Up_Edits(Journal& h) {
  const std::size_t NTaken = Journal_Replay(h);
  End_of_Edits();
  const bool bAll = NTaken == h.hRecord.size() && !h.bCut;
  h.hRecord.resize(NTaken);
  if (NTaken == 0)
    Begin_Journal();
  else if (hRecovery.hFile.Cut(static_cast<I8>(h.hRecord.back().NEnd)) == 0)
    Listen();
  else
    return Give_Up(hRecovery.hFile.Reason());
  WindowOutStatusBar(iStatusProgress, Counted_Edits(Journal_Count(h)) + " taken up again" +
                                          (bAll ? "." : "; the rest of the journal is damaged."));
}

/// A name beside the journal's own that is not in use.
std::string Name_Aside(const std::string& sPath) {
  I4 N = 1;
  const auto Name = [&sPath, &N] { return std::string(File_Stem(sPath)) + "." + Str_Write_I4(N).str() + ".journal"; };
  while (IOsFileExists(Name())) ++N;
  return Name();
}

/// What cannot be taken up is not thrown away either. False: it is where it was, and there is no other.
bool Set_Aside(std::string_view sWhy) {
  const std::string sAside = Name_Aside(hRecovery.hFile.Path());
  if (hRecovery.hFile.Set_Aside(sAside) != 0) {
    Give_Up(hRecovery.hFile.Reason());
    return false;
  }
  const std::string sText = std::string(sWhy) + "\nThey are kept in " + sAside;
  LogText_File(sText);
  static_cast<void>(WMessageBox(BoxButtons::Ok, BoxIcon::Warning, sText, ""));
  return Open_Journal();
}

bool Is_of_This_File(const JournalHead& h) {
  const JournalHead hNow = Head_of_Data();
  return Has_Same_Bytes(h.hData, hNow.hData) && Has_Same_Bytes(h.hMde, hNow.hMde);
}

bool Set_Aside_Changed(const Journal& h) {
  const I4 N = Journal_Count(h);
  return Set_Aside(Counted_Edits(N) + " made on " + Time_in_Words(h.hRecord.back().iTime) +
                   (N == 1 ? " was not saved, and " : " were not saved, and ") + hSession.sFileName +
                   " or its metadata file has changed since.");
}

/// A journal without an edit in force has nothing to tell.
bool Is_Empty(const Journal& h) {
  return h.iState == JournalState::Empty || (h.iState == JournalState::Readable && Journal_Count(h) == 0);
}

/// bSaved: the data are those that were saved just now, and what the file held before is gone.
void Take_Up_Journal(bool bSaved) {
  std::string sBytes;
  if (hRecovery.hFile.Read(sBytes) != 0) {
    Give_Up(hRecovery.hFile.Reason());
    return hRecovery.hFile.Close();  // what it holds is not known, and so it stays
  }
  Journal h = Journal_Read(sBytes);
  if (Is_Empty(h)) return Begin_Journal();
  if (h.iState != JournalState::Readable) {
    if (Set_Aside("Edits of " + hSession.sFileName + " that were not saved cannot be read.")) Begin_Journal();
    return;
  }
  if (bSaved || !Is_of_This_File(h.hHead)) {
    if (Set_Aside_Changed(h)) Begin_Journal();
    return;
  }
  if (Wants_Edits(h)) return Take_Up_Edits(h);
  Begin_Journal();
}

bool Has_Journal() {
  return !sJournalFolder.empty() && NTrn >= 1;
}

}  // namespace

std::string Journal_Folder_of_User() {
  const std::string sState = IOsStateDir();
  if (sState.empty()) return {};
  return sState + sSlash + "quillan" + sSlash + "journal";
}

void Recovery_Begin() {
  Leave_Journal();
  if (Has_Journal() && Open_Journal()) Take_Up_Journal(false);
}

void Recovery_Saved() {
  if (!Has_Journal()) return;
  if (hRecovery.hFile.Is_Open() && hRecovery.hFile.Path() == Journal_Path(sJournalFolder, sAvgFile))
    return Begin_Journal();
  hRecovery.bEnds = true;
  Leave_Journal();
  if (Open_Journal()) Take_Up_Journal(true);
}

void Recovery_Declined() {
  hRecovery.bDeclined = true;
}

void Recovery_Leave() {
  hRecovery.bEnds = !History_Differs_from_File();
}

void Recovery_End() {
  Recovery_Leave();
  Leave_Journal();
}

}  // namespace quillan

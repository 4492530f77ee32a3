#include "files/journal.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>
#include <utility>

#include "foundations/bytes.h"
#include "foundations/file_util.h"

namespace quillan {
namespace {

constexpr std::string_view sMark = "QUILLAN JOURNAL\n";
constexpr std::size_t NRecordHead = sizeof(I8) + sizeof(std::uint64_t);
constexpr std::string_view sBaseName = "Recovered data";

/// Never 0 for no bytes: a hole that a power cut left in a file is no record.
std::uint64_t Sum_of(std::string_view sContent) {
  return Mixed(sContent.size() + 1, sContent);
}

/// A record with room for NContent bytes after its head, which End_Record writes when the content is there.
std::string Begin_Record(std::size_t NContent, std::string sRecord = {}) {
  sRecord.clear();
  sRecord.reserve(NRecordHead + NContent);
  sRecord.resize(NRecordHead);
  return sRecord;
}

void End_Record(std::string& sRecord) {
  const std::string_view sContent = std::string_view(sRecord).substr(NRecordHead);
  const auto NContent = static_cast<I8>(sContent.size());
  const std::uint64_t iSum = Sum_of(sContent);
  std::memcpy(sRecord.data(), &NContent, sizeof NContent);
  std::memcpy(sRecord.data() + sizeof NContent, &iSum, sizeof iSum);
}

// ---- a state as bytes

void Append_State(std::string& sBytes, const DataChange& h) {
  Append(sBytes, h.NTrn);
  Append(sBytes, h.hRun.size());
  sBytes.append(reinterpret_cast<const char*>(h.hRun.data()), h.hRun.size() * sizeof(DataChange::Run));
  Append(sBytes, h.sRun);
  Append(sBytes, h.hPart.size());
  for (const DataChange::Part& hPart : h.hPart) {
    Append(sBytes, hPart.K);
    Append(sBytes, hPart.sBytes);
  }
}

bool Take_Runs(std::string_view& sBytes, DataChange& h) {
  std::size_t NRun = 0;
  if (!Take(sBytes, NRun) || NRun > sBytes.size() / sizeof(DataChange::Run)) return false;
  h.hRun.resize(NRun);
  for (DataChange::Run& hRun : h.hRun) static_cast<void>(Take(sBytes, hRun));
  return Take(sBytes, h.sRun);
}

bool Take_Parts(std::string_view& sBytes, DataChange& h) {
  std::size_t NPart = 0;
  if (!Take(sBytes, NPart) || NPart > sBytes.size() / sizeof(I4)) return false;
  h.hPart.resize(NPart);
  return std::ranges::all_of(
      h.hPart, [&sBytes](DataChange::Part& hPart) { return Take(sBytes, hPart.K) && Take(sBytes, hPart.sBytes); });
}

std::optional<DataChange> State_from(std::string_view sBytes) {
  DataChange h;
  if (!Take(sBytes, h.NTrn) || !Take_Runs(sBytes, h) || !Take_Parts(sBytes, h) || !sBytes.empty()) return {};
  return h;
}

/// All of the data.
DataChange Whole_State() {
  DataChange h;
  h.NTrn = NTrn;
  h.sRun.reserve(static_cast<std::size_t>(NTrn) * sizeof(Transient));
  for (I4 j = 1; j <= NTrn; ++j) Add_Run(h, {j, 0, static_cast<I4>(sizeof(Transient))}, hTrn(j));
  I4 K = 0;
  for (const HistoryPart& hPart : History_Parts()) h.hPart.push_back({++K, hPart.Bytes()});
  return h;
}

// ---- the head

/// What a program must share with the one that wrote a journal.
struct JournalLayout {
  I4 iFormat = iJournalFormat;
  I4 iByteOrder = 0x01020304;
  I8 NTransient = sizeof(Transient);
  I8 NPart = static_cast<I8>(History_Parts().size());
  friend bool operator==(const JournalLayout&, const JournalLayout&) = default;
};

std::string Head_Record(const JournalHead& h) {
  std::string sRecord =
      Begin_Record(sizeof(JournalLayout) + sizeof(std::size_t) + h.sDataFile.size() + 2 * sizeof(FileStamp));
  Append(sRecord, JournalLayout{});
  Append(sRecord, h.sDataFile);
  Append(sRecord, h.hData);
  Append(sRecord, h.hMde);
  End_Record(sRecord);
  return sRecord;
}

JournalState Take_Head(std::string_view sContent, JournalHead& h) {
  JournalLayout hLayout;
  if (!Take(sContent, hLayout)) return JournalState::Damaged;
  if (hLayout != JournalLayout{}) return JournalState::OtherKind;
  const bool bWhole = Take(sContent, h.sDataFile) && Take(sContent, h.hData) && Take(sContent, h.hMde);
  return bWhole && sContent.empty() ? JournalState::Readable : JournalState::Damaged;
}

// ---- records

enum class Piece { Whole, Torn, Damaged };

/// Takes the next record from the front of sBytes.
Piece Take_Record(std::string_view& sBytes, std::string_view& sContent) {
  I8 NByte = 0;
  std::uint64_t iSum = 0;
  if (!Take(sBytes, NByte) || !Take(sBytes, iSum)) return Piece::Torn;
  if (NByte <= 0) return Piece::Damaged;
  if (static_cast<std::uint64_t>(NByte) > sBytes.size()) return Piece::Torn;
  sContent = sBytes.substr(0, static_cast<std::size_t>(NByte));
  sBytes.remove_prefix(sContent.size());
  return Sum_of(sContent) == iSum ? Piece::Whole : Piece::Damaged;
}

bool Take_Entry(std::string_view sContent, JournalRecord& h) {
  I4 iEvent = 0;
  if (!Take(sContent, iEvent) || !Take(sContent, h.iTime) || !Take(sContent, h.sEdit)) return false;
  if (iEvent < static_cast<I4>(EditEvent::Kept) || iEvent > static_cast<I4>(EditEvent::Redone)) return false;
  h.iEvent = static_cast<EditEvent>(iEvent);
  h.sState = sContent;
  return true;
}

void Take_Entries(std::string_view sBytes, std::size_t NWhole, Journal& h) {
  while (!sBytes.empty()) {
    std::string_view sContent;
    const Piece iPiece = Take_Record(sBytes, sContent);
    JournalRecord hRecord;
    h.bCut = iPiece == Piece::Damaged || (iPiece == Piece::Whole && !Take_Entry(sContent, hRecord));
    if (iPiece != Piece::Whole || h.bCut) return;
    hRecord.NEnd = NWhole - sBytes.size();
    h.hRecord.push_back(std::move(hRecord));
  }
}

// ---- doing it again

bool Apply(std::string_view sState, std::string_view sEdit) {
  const std::optional<DataChange> h = State_from(sState);
  return h && History_Apply(*h, sEdit);
}

/// Gives the runs of a change in turn.
class RunReader {
 public:
  explicit RunReader(const DataChange& hOf) : h(hOf) {}

  /// Transient of the next run, beyond all others where there is none.
  I4 Next() const { return K < h.hRun.size() ? h.hRun[K].j : MTrn + 1; }
  /// Transient j with the next run put over it, if that is of j.
  Transient Over(I4 j) {
    Transient hAfter = hTrn(j);
    if (Next() != j) return hAfter;
    const auto NByte = static_cast<std::size_t>(h.hRun[K].NByte);
    std::memcpy(reinterpret_cast<char*>(&hAfter) + h.hRun[K].iByte0, h.sRun.data() + N, NByte);
    N += NByte;
    ++K;
    return hAfter;
  }

 private:
  const DataChange& h;
  std::size_t K = 0, N = 0;  // runs and bytes taken
};

bool Gives_Same_Transients(const DataChange& h1, const DataChange& h2) {
  RunReader in1(h1), in2(h2);
  for (I4 j = std::min(in1.Next(), in2.Next()); j <= MTrn; j = std::min(in1.Next(), in2.Next())) {
    if (Differing_Bytes(j, in1.Over(j), in2.Over(j)).NByte != 0) return false;
  }
  return true;
}

std::string Part_after(const DataChange& h, I4 K) {
  const auto hPart = std::ranges::find(h.hPart, K, &DataChange::Part::K);
  return hPart == h.hPart.end() ? History_Parts()[static_cast<std::size_t>(K - 1)].Bytes() : hPart->sBytes;
}

/// Whether two changes that fit would make the same of the data as they are. What lies between the fields in memory
/// does not count, and differs from run to run.
bool Gives_Same(const DataChange& h1, const DataChange& h2) {
  const auto Is_Same_Part = [&](const DataChange::Part& h) { return Part_after(h1, h.K) == Part_after(h2, h.K); };
  return h1.NTrn == h2.NTrn && Gives_Same_Transients(h1, h2) && std::ranges::all_of(h1.hPart, Is_Same_Part) &&
         std::ranges::all_of(h2.hPart, Is_Same_Part);
}

/// The undo of an edit that is in force here too is an undo; any other is an edit that gives the same data.
bool Undo(const JournalRecord& h) {
  const std::optional<DataChange> hState = State_from(h.sState);
  const I4 K = History_Position();
  if (!hState || !Fits(*hState)) return false;
  if (K >= 1 && Gives_Same(*hState, History_Edit(K).hBefore)) return History_Undo() != nullptr;
  return History_Apply(*hState, "Undo " + h.sEdit);
}

bool Redo(const JournalRecord& h) {
  const std::optional<DataChange> hState = State_from(h.sState);
  const I4 K = History_Position() + 1;
  if (!hState || !Fits(*hState)) return false;
  if (K <= History_Count() && Gives_Same(*hState, History_Edit(K).hAfter)) return History_Redo() != nullptr;
  return History_Apply(*hState, h.sEdit);
}

bool Do_Again(const JournalRecord& h) {
  switch (h.iEvent) {
    case EditEvent::Kept: return Apply(h.sState, h.sEdit);
    case EditEvent::Undone: return Undo(h);
    case EditEvent::Redone: return Redo(h);
    case EditEvent::Lost: return false;  // is in no journal
  }
  return false;
}

std::string In_Hexadecimal(std::uint64_t iNumber) {
  std::array<char, 16> sDigit{};
  const auto hEnd = std::to_chars(sDigit.data(), sDigit.data() + sDigit.size(), iNumber, 16).ptr;
  const std::string sShort(sDigit.data(), hEnd);
  return std::string(sDigit.size() - sShort.size(), '0') + sShort;
}

}  // namespace

std::string Journal_Path(std::string_view sFolder, std::string_view sDataFile) {
  constexpr std::size_t MNamePart = 64;  // bytes of the file's own name, which only helps who looks into the folder
  const std::string sFull = IOsFullPath(sDataFile);
  std::string sName(Cut_Text(File_Stem(File_Name(sFull)), MNamePart));
  return std::string(sFolder) + sSlash + sName + "-" + In_Hexadecimal(Sum_of(sFull)) + ".journal";
}

std::string Journal_Begin(const JournalHead& hHead) {
  const DataChange hBase = Whole_State();
  std::string sBase = Begin_Record(hBase.Memory());
  Append_State(sBase, hBase);
  End_Record(sBase);
  return std::string(sMark) + Head_Record(hHead) + sBase;
}

std::string Journal_Entry(EditEvent iEvent, const Edit& hEdit, std::string sRoom) {
  constexpr std::size_t NWords = 128;  // event, time and name, or a little more
  const DataChange& hState = iEvent == EditEvent::Undone ? hEdit.hBefore : hEdit.hAfter;
  std::string sRecord = Begin_Record(NWords + hState.Memory(), std::move(sRoom));
  Append(sRecord, static_cast<I4>(iEvent));
  Append(sRecord, hEdit.hWords.iTime);
  Append(sRecord, hEdit.hWords.bByHand ? std::string() : hEdit.hWords.sEdit);
  Append_State(sRecord, hState);
  End_Record(sRecord);
  return sRecord;
}

Journal Journal_Read(std::string_view sBytes) {
  Journal h;
  const std::size_t NWhole = sBytes.size();
  if (sBytes.empty()) return h;
  h.iState = JournalState::OtherKind;
  if (!sBytes.starts_with(sMark)) return h;
  sBytes.remove_prefix(sMark.size());
  std::string_view sHead, sBase;
  h.iState = JournalState::Damaged;
  if (Take_Record(sBytes, sHead) != Piece::Whole) return h;
  h.iState = Take_Head(sHead, h.hHead);
  if (h.iState != JournalState::Readable) return h;
  h.iState = JournalState::Damaged;
  if (Take_Record(sBytes, sBase) != Piece::Whole) return h;
  h.sBase = sBase;
  Take_Entries(sBytes, NWhole, h);
  h.iState = !h.hRecord.empty() ? JournalState::Readable : h.bCut ? JournalState::Damaged : JournalState::Empty;
  return h;
}

I4 Journal_Count(const Journal& h) {
  I4 N = 0, NMost = 0;  // edits in force, and with those that can be redone
  for (const JournalRecord& hRecord : h.hRecord) {
    const bool bBack = hRecord.iEvent == EditEvent::Undone && N > 0;
    const bool bAgain = hRecord.iEvent == EditEvent::Redone && N < NMost;
    N += bBack ? -1 : 1;
    if (!bBack && !bAgain) NMost = N;
  }
  return N;
}

std::size_t Journal_Replay(const Journal& h) {
  if (!Apply(h.sBase, sBaseName)) return 0;
  const auto hEnd = std::ranges::find_if_not(h.hRecord, Do_Again);
  return static_cast<std::size_t>(hEnd - h.hRecord.begin());
}

}  // namespace quillan

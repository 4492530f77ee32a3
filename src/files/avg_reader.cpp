#include "files/avg_reader.h"

#include <algorithm>
#include <string>

#include "files/avg_columns.h"
#include "foundations/file_util.h"
#include "foundations/free_read.h"
#include "foundations/log_file.h"
#include "foundations/plain_row.h"
#include "foundations/progress.h"
#include "foundations/str_value.h"
#include "foundations/str_write.h"
#include "foundations/text_file.h"
#include "metadata/enm_data.h"
#include "metadata/mdp_data.h"
#include "model/derived.h"
#include "model/station_scale.h"
#include "model/survey_keywords.h"

namespace quillan {
namespace {

constexpr R4 fTxLeast = 1.0E-6f;    // hertz and amp, below it a row cannot be used
constexpr std::size_t MPlain = 32;  // characters of a number that is read where it stands

constexpr I4 JTxFreq = AVG_Column_of(AvgContent::Frequency);
constexpr I4 JTxAmp = AVG_Column_of(AvgContent::Current);
constexpr I4 JTWCen = AVG_Column_of(AvgContent::Window);  // the first of them
static_assert(AVG_Column(JTWCen).hValue == &Transient::fTWCen);

constexpr auto fAbsent = [] {
  Array1<R4, MAvgColumn> fValue{};
  for (I4 J = 1; J <= MAvgColumn; ++J) fValue(J) = AVG_Column(J).fAbsent;
  return fValue;
}();

/// The values of one row. What has no column of its own is said by the metadata or absent.
struct AvgRow {
  AvgRow() {
    fValue(JTxFreq) = MdTx.fFreq;
    fValue(JTxAmp) = MdTx.fAmp;
  }

  I4 iSkip = iSkipInUse;
  R8 dTxKvrStn = MdTx.dKvrStn;
  R8 dRxKvrStn = MdRx.dKvrStn;
  std::string_view sRxCmp = MdRx.sCmp.trimmed();
  Array1<R4, MAvgColumn> fValue = fAbsent;  // of the columns that hold an R4
};

bool Holds_R4(const AvgColumn& h) {
  return h.iContent == AvgContent::Window || h.iContent == AvgContent::Weight || h.iContent == AvgContent::Frequency ||
         h.iContent == AvgContent::Current;
}

// ---- lines by kind

enum class LineKind { Ignored, Metadata, Comment, Labels, Row };

bool Begins_Comment(char c) {
  return c == '\\' || c == '/' || c == '!' || c == '"';
}

LineKind Kind_of(std::string_view sLine) {
  if (sLine.size() < 3) return LineKind::Ignored;
  if (sLine[0] == '$' || sLine[1] == '$') return LineKind::Metadata;
  if (Begins_Comment(sLine[0])) return LineKind::Comment;
  // The range takes in the few signs between "Z" and "a"; no row begins with one.
  return sLine[0] >= 'A' && sLine[0] <= 'z' ? LineKind::Labels : LineKind::Row;
}

constexpr std::string_view sLegacyMark = "TEM:";  // legacy files mark their lines so

/// A line of a legacy file without its mark.
std::string Unmarked(std::string_view sLine, std::size_t KMark) {
  std::string sPlain(sLine);
  return sPlain.replace(KMark, sLegacyMark.size(), sLegacyMark.size(), ' ');
}

void Take_Metadata(std::string_view sLine, I4 iRecord) {
  hAvgRead.bNewMD = true;
  const std::size_t KMark = sLine.find(sLegacyMark);
  const bool bLegacy = KMark != std::string_view::npos;
  const std::string sUnmarked = bLegacy ? Unmarked(sLine, KMark) : std::string();
  const std::string_view sPlain = bLegacy ? std::string_view(sUnmarked) : sLine;
  if (!MDP_from_MDE(iRecord, sPlain, iPriorityData).bForeign || hAvgKept.NAvgMde >= MAvgMde) return;
  // The next file is no legacy file, and has no mark at the head of its lines.
  const bool bAtHead = bLegacy && Trimmed(sLine.substr(0, KMark)) == "$";
  hAvgKept.sAvgMde(++hAvgKept.NAvgMde) = bAtHead ? sPlain : sLine;
}

/// Comments of the user go into the next file; those that our writers make do not pile up from file to file.
void Keep_Comment(std::string_view sLine) {
  for (const std::string_view sOurs : {"QUILLAN", "+------", "|------", "\\TW"}) {
    if (sLine.find(sOurs) != std::string_view::npos) return;
  }
  if (hAvgKept.NAvgCmt < MAvgCmt) hAvgKept.sAvgCmt(++hAvgKept.NAvgCmt) = sLine;
}

// ---- labels

/// Which columns a row has, in the order in which they are read; and by place for a plain row, which must hold R4
/// alone.
void Find_Columns(AvgReadState& hRead) {
  hRead.JRead.clear();
  hRead.JPlain.clear();
  bool bPlain = true;
  for (I4 J = 1; J <= MAvgColumn; ++J) {
    const auto K = static_cast<std::size_t>(hRead.hColumn.KCol[static_cast<std::size_t>(J - 1)]);
    if (K == 0 || AVG_Column(J).iContent == AvgContent::Index) continue;
    hRead.JRead.push_back(J);
    bPlain = bPlain && Holds_R4(AVG_Column(J));
    if (K > hRead.JPlain.size()) hRead.JPlain.resize(K, 0);
    hRead.JPlain[K - 1] = J;
  }
  if (!bPlain) hRead.JPlain.clear();
}

/// False when a required column is missing, which is reported.
bool Match_Labels(std::string_view sLine, AvgReadState& hRead) {
  // What it reports by its status, a label without a match, is what the required columns are asked for below.
  static_cast<void>(Str_Column_Labels_Alias_List(sLine, false, true, CAvgAlias, CAvgLabel, MAvgCol, hRead.hColumn));
  Find_Columns(hRead);
  ErrorLines sError;
  for (std::size_t K = 0; K < CAvgLabel.size(); ++K) {
    if (!hAvgColumn[K].bRequired || hRead.hColumn.KCol[K] != 0) continue;
    sError.push_back("AVG_Read_Labels.WARNING: Could not find required column " + std::string(CAvgLabel[K]));
  }
  if (sError.empty()) return true;
  sError.push_back("In: " + std::string(Cut_Text(sLine, 124)));
  LogErr(sError);
  return false;
}

void Take_Labels(std::string_view sLine, I4 iRecord) {
  if (hAvgRead.bValidData && sLine == hAvgRead.sLabels) return;  // most files repeat it ahead of every transient
  hAvgRead.sLabels = sLine;
  hAvgRead.bValidData = Match_Labels(sLine, hAvgRead);
  if (hAvgRead.bValidData) return;
  LogText("Missing critical columns, skipping data section beginning at line " + Str_Write_I4(iRecord).str());
  LogText(sLine);
}

// ---- one row

/// Reads a field into its place in the row; what cannot be read gets the value of a blank field, and the field's reader
/// reports it.
void Take_Column(const FieldContext& hAt, std::string_view sField, I4 J, AvgRow& hRow) {
  switch (AVG_Column(J).iContent) {
    case AvgContent::Skip: static_cast<void>(Fld_to_I4(hAt, sField, I4{hRow.iSkip}, hRow.iSkip)); break;
    case AvgContent::TxStation: static_cast<void>(Fld_to_R8(hAt, sField, R8{hRow.dTxKvrStn}, hRow.dTxKvrStn)); break;
    case AvgContent::RxStation: static_cast<void>(Fld_to_R8(hAt, sField, R8{hRow.dRxKvrStn}, hRow.dRxKvrStn)); break;
    case AvgContent::Component:
      if (!sField.empty()) hRow.sRxCmp = sField.substr(0, 8);
      break;
    default: static_cast<void>(Fld_to_R4(hAt, sField, AVG_Column(J).fBlank, hRow.fValue(J))); break;
  }
}

void Read_Fields(std::string_view sRecord, I4 iRecord, AvgReadState& hRead, AvgRow& hRow) {
  Str_Parse_Fld(sRecord, hRead.hField);
  for (const I4 J : hRead.JRead) {
    const auto KLabel = static_cast<std::size_t>(J - 1);
    Take_Column({iRecord, sRecord, CAvgLabel[KLabel]}, hRead.hField(hRead.hColumn.KCol[KLabel]), J, hRow);
  }
}

/// The length of the number or "*" at p, 0 when the field there is spelled otherwise.
std::size_t Take_Plain_Field(const char* p, I4 J, R4& fValue) {
  if (*p == '*') {
    fValue = AVG_Column(J).fBlank;
    return 1;
  }
  const std::size_t NField = Read_Next(p, fValue);
  return NField <= MPlain ? NField : 0;
}

/// Why a row cannot be used; blank when it can.
std::string_view Fault_of(const AvgRow& hRow) {
  if (hRow.dRxKvrStn < dDummyLimit) return "Rx.KvrStn undefined for record ";
  if (hRow.fValue(JTxFreq) < fTxLeast) return "Tx.Freq < 1.0E-6 on record ";
  if (hRow.fValue(JTxAmp) < fTxLeast) return "Tx.Amp < 1.0E-6 on record ";
  if (hRow.fValue(JTWCen) < fDummyLimit) return "TWIN.Center < -1.0E32 on record ";
  return {};
}

/// Whether a row begins a transient; remembers its stations and time for the next row.
bool Begins_Transient(const AvgRow& hRow, AvgReadState& hRead) {
  const bool bTx = !Is_Same_Stn(hRead.dTxKvrStn0, hRow.dTxKvrStn);
  const bool bRx = !Is_Same_Stn(hRead.dRxKvrStn0, hRow.dRxKvrStn);
  // A time that falls back is a repeat at the same stations; only this tells repeats apart.
  const bool bRepeat = hRow.fValue(JTWCen) < hRead.fTWCen0;
  if (bTx) hRead.dTxKvrStn0 = hRow.dTxKvrStn;
  if (bRx) hRead.dRxKvrStn0 = hRow.dRxKvrStn;
  hRead.fTWCen0 = hRow.fValue(JTWCen);
  return bTx || bRx || bRepeat;
}

I4 Component_of(std::string_view sRxCmp) {
  if (sRxCmp == "*") return iCmpNone;
  const std::string CRxCmp = Str_UpCase(sRxCmp);
  for (I4 iRxCmp = 1; iRxCmp < iCmpNone; ++iRxCmp) {
    if (CRxCmp == CChnCmp(iRxCmp).substr(0, NLegacyCmp)) return iRxCmp;
  }
  I4 iRxCmp = iCmpHz;
  // A blank leaves Hz in place; every other word is a component or the blank one.
  static_cast<void>(Str_to_iEnumeration(CRxCmp, "EM.Cmp", CChnCmp, iRxCmp));
  return iRxCmp;
}

void Set_Receiver(const AvgRow& hRow, const StationScale& Rescaled, Transient& h) {
  h.dRxKvrStn = hRow.dRxKvrStn;
  h.dRxStn = Rescaled(hRow.dRxKvrStn);
  h.dRxXYZ = MdRx.dUTMC;
  h.fRxHPR = MdRx.fHPR;
  h.fRxArea = MdRx.fArea0 < fRxAreaLeast ? fRxAreaDefault : MdRx.fArea0;
  h.iRxCmp = Component_of(hRow.sRxCmp);
  h.fAntDelay = MdRx.fAntDelay;
  h.fAliasDelay = MdRx.fAliasDelay;
  h.fADDelay = MdRx.fADDelay;
  h.fADRamp = MdRx.fADRamp;
  h.fT0Delay = MdRx.fT0Delay;
}

void Set_Transmitter(const AvgRow& hRow, const StationScale& Rescaled, Transient& h) {
  h.dTxKvrStn = hRow.dTxKvrStn;
  h.dTxStn = MdTx.dStn;
  if (Has_Fixed_Transmitter(hTemSurvey)) {
    h.dTxStn = hRow.dTxKvrStn;
  } else if (Is_Present(hRow.dTxKvrStn)) {
    h.dTxStn = Rescaled(hRow.dTxKvrStn);
  }
  h.dTxXYZC = MdTx.dUTMC;
  h.fTxFreq = hRow.fValue(JTxFreq);
  h.fTxAmp = hRow.fValue(JTxAmp);
  h.fTxRamp = MdTx.fRamp;
  h.fTxDelay = MdTx.fDelay;
  h.NCycle = MdTx.NCycle;
}

void Begin_Transient(const AvgRow& hRow, AvgReadState& hRead) {
  Transient& h = TMD_Add_Transient();
  const StationScale Rescaled = Stn_Scale_of_Rows();
  Set_Receiver(hRow, Rescaled, h);
  Set_Transmitter(hRow, Rescaled, h);
  h.dKvrBlk = MdKvr.dBlk;
  h.sKvrDate = MdKvr.sDate;
  h.sKvrTime = MdKvr.sTime;
  h.iAcqMethod = MdKvr.iAcqMethod;
  hRead.ITW = 0;
}

/// Stores a row as the next window of the transient; a 65th has no place.
void Add_Window(const AvgRow& hRow, AvgReadState& hRead) {
  const I4 I = ++hRead.ITW;
  if (I > MTW) return;
  Transient& h = hTrn(NTrn);
  h.NTW = std::max(h.NTW, I);
  h.bSkip(I) = hRow.iSkip != iSkipInUse;
  for (I4 J = JTWCen; J <= MAvgColumn; ++J) {
    if (AVG_Column(J).hValue != nullptr) (h.*AVG_Column(J).hValue)(I) = hRow.fValue(J);
  }
}

/// Takes one row, the next window of a transient; one that cannot be used is dropped. False when the store is full.
bool Add_Row(std::string_view sRecord, I4 iRecord, AvgReadState& hRead) {
  if (NTrn == 0) hRead.dRxKvrStn0 = dDummy;
  AvgRow hRow;
  const auto Take = [&hRow](const char* p, I4 J) { return Take_Plain_Field(p, J, hRow.fValue(J)); };
  if (!Read_Plain_Row(sRecord, hRead.JPlain, Take)) Read_Fields(sRecord, iRecord, hRead, hRow);

  if (const std::string_view sFault = Fault_of(hRow); !sFault.empty()) {
    LogErr_File({"AVG_Read_Data.ERROR: " + std::string(sFault) + Str_Write_I4(iRecord).str(), std::string(sRecord),
                 "Dropping this data record."});
    return true;
  }
  if (Begins_Transient(hRow, hRead)) {
    if (NTrn == MTrn) {
      LogErr({"AVG_Read_Data.ERROR: More than 4096 transients at avg file record", std::string(sRecord)});
      return false;
    }
    Begin_Transient(hRow, hRead);
  }
  Add_Window(hRow, hRead);
  return true;
}

/// The same with what has to stand ahead of it: labels and a metadata line.
bool Take_Row(std::string_view sLine, I4 iRecord) {
  if (!hAvgRead.bValidData) return true;
  if (hAvgRead.bNewMD) {
    hAvgRead.bNewMD = false;
    hAvgRead.bHaveMD = true;
    TMD_Survey_from_MD();
  }
  return !hAvgRead.bHaveMD || Add_Row(sLine, iRecord, hAvgRead);
}

// ---- the file

void Forget_Last_File() {
  NTrn = 0;
  hAvgKept = AvgKeptLines{};
  hAvgRead.bValidData = false;
  hAvgRead.bNewMD = false;
  hAvgRead.bHaveMD = false;
  Fld_Begin_File();
}

/// Returns 1. That there is no file is the caller's to tell: it knows who asked for it.
I4 Report_Not_Open(const RecordReader& in, std::string_view sFile) {
  if (!in.Is_Missing()) LogErr({"ERROR opening file " + std::string(sFile), in.Reason()});
  return 1;
}

}  // namespace

I4 AVG_Read(std::string_view sFile) {
  Forget_Last_File();
  RecordReader in(sFile, MAvgRecord);
  if (!in.Is_Open()) return Report_Not_Open(in, sFile);
  LogText("");
  LogText("Reading TEM data from file " + std::string(File_Name(sFile)));
  LogText(sFile);

  ReadProgress work(sFile);
  bool bRoom = true;
  while (bRoom && in.Next()) {
    const std::string_view sLine = Trimmed(Left_Adjusted(in.Record()));
    switch (Kind_of(sLine)) {
      case LineKind::Metadata: Take_Metadata(sLine, in.iRecord()); break;
      case LineKind::Comment: Keep_Comment(sLine); break;
      case LineKind::Labels: Take_Labels(sLine, in.iRecord()); break;
      case LineKind::Row: bRoom = Take_Row(sLine, in.iRecord()); break;
      case LineKind::Ignored: break;
    }
    if (!work.Goes_On(in.NBytes())) return 1;
  }
  if (in.Has_Failed()) {
    LogErr({"ERROR while reading file near line " + Str_Write_I4(in.iRecord()).str(), std::string(in.Record())});
    return 1;
  }
  LogText(Str_Write_I4(NTrn).str() + " data transients have been read from");
  LogText(File_Name(sFile));
  return NTrn >= 1 && hAvgRead.bValidData ? 0 : 1;
}

}  // namespace quillan

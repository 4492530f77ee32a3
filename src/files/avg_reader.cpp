#include "files/avg_reader.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <string>
#include <variant>

#include "foundations/file_util.h"
#include "foundations/log_file.h"
#include "foundations/str_value.h"
#include "foundations/str_write.h"
#include "foundations/text_file.h"
#include "foundations/user.h"
#include "metadata/enm_data.h"
#include "metadata/mdp_data.h"
#include "model/tmd_exchange.h"

namespace quillan {
namespace {

constexpr I4 iSkipInUse = 2;         // what the SKIP column holds for a window in use
constexpr R4 fRxAreaLeast = 0.001f;  // m^2, below it no area was given
constexpr R4 fRxAreaDefault = 10000.0f;
constexpr R4 fTxLeast = 1.0E-6f;      // hertz and amp, below it a row cannot be used
constexpr R8 dStnTolerance = 100.0;   // spacings within which two stations are the same
constexpr I4 NRecordsPerLook = 8192;  // between looks at the user's messages
constexpr std::size_t MPlain = 32;    // characters of a number that is read where it stands

constexpr AliasRow CAvgAlias[] = {
    {"%MAG",        "DBDT.%ERR"  },
    {"AMP",         "TX.AMP"     },
    {"AMPS",        "TX.AMP"     },
    {"BMAG",        "B.MAG"      },
    {"CMP",         "RX.CMP"     },
    {"DEPTH",       "DEPTH.IMAGE"},
    {"E.%ERR",      "DBDT.%ERR"  },
    {"E.ERR",       "DBDT.ERR"   },
    {"E.MAG",       "DBDT.MAG"   },
    {"E.WGT",       "DBDT.WGT"   },
    {"EFIELD.ERR",  "DBDT.ERR"   },
    {"EFIELD.MAG",  "DBDT.MAG"   },
    {"EFIELD.WGT",  "DBDT.WGT"   },
    {"FREQ",        "TX.FREQ"    },
    {"MAGNITUDE",   "DBDT.MAG"   },
    {"RAMPAPPRES",  "ARES.MAG"   },
    {"REF.%ERR",    "DBDT.%ERR"  },
    {"REF.ERR",     "DBDT.ERR"   },
    {"REF.MAG",     "DBDT.MAG"   },
    {"REF.WGT",     "DBDT.WGT"   },
    {"RESISTIVITY", "ARES.MAG"   },
    {"SKP",         "SKIP"       },
    {"STATION",     "RX.KVRSTN"  },
    {"TIME",        "TWIN.CENTER"},
    {"TX",          "TX.KVRSTN"  },
    {"TX-COORD",    "TX.KVRSTN"  },
    {"TXAMP.%ERR",  "DBDT.%ERR"  },
    {"TXAMP.ERR",   "DBDT.ERR"   },
    {"TXAMP.MAG",   "DBDT.MAG"   },
    {"TXAMP.WGT",   "DBDT.WGT"   },
    {"WIN",         "TWIN.INDEX" },
};

/// The values of one row.
struct AvgRow {
  I4 iSkip = iSkipInUse;
  R8 dTxKvrStn = MdTx.dKvrStn;
  R8 dRxKvrStn = MdRx.dKvrStn;
  std::string_view sRxCmp = MdRx.sCmp.trimmed();
  R4 fTxFreq = MdTx.fFreq;
  R4 fTxAmp = MdTx.fAmp;
  R4 fTWCen = fDummy;
  R4 fTWBeg = fDummy;
  R4 fTWEnd = fDummy;
  R4 fuVmag = fDummy;
  R4 fuVerr = fDummy;
  R4 fuVpct = 1.0f;
  R4 fuVwgt = 1.0f;  // read for its errors; the flags of the current format do not come back
  R4 fARes = fDummy;
  R4 fDepth = fDummy;
  R4 fBmag = fDummy;
};

struct NotRead {};       // the column is known and passed over
struct FromMetadata {};  // a blank field means what the metadata say

using AvgTarget = std::variant<NotRead, I4 AvgRow::*, R4 AvgRow::*, R8 AvgRow::*, std::string_view AvgRow::*>;
using AvgBlank = std::variant<FromMetadata, R4>;

struct AvgColumn {
  std::string_view CLabel;
  AvgTarget hTarget;
  AvgBlank hBlank;  // value of a blank or unreadable field
};

// An absent column leaves the value of AvgRow; a blank field in a column that is there is another matter.
constexpr AvgColumn hAvgColumn[] = {
    {"SKIP",        &AvgRow::iSkip,     FromMetadata{}},
    {"TX.KVRSTN",   &AvgRow::dTxKvrStn, FromMetadata{}},
    {"RX.KVRSTN",   &AvgRow::dRxKvrStn, FromMetadata{}},
    {"RX.CMP",      &AvgRow::sRxCmp,    FromMetadata{}},
    {"TX.FREQ",     &AvgRow::fTxFreq,   0.0f          },
    {"TX.AMP",      &AvgRow::fTxAmp,    fDummy        },
    {"TWIN.INDEX",  NotRead{},          FromMetadata{}}, // the row's place in the transient tells the window
    {"TWIN.CENTER", &AvgRow::fTWCen,    fDummy        },
    {"TWIN.BEG",    &AvgRow::fTWBeg,    fDummy        },
    {"TWIN.END",    &AvgRow::fTWEnd,    fDummy        },
    {"DBDT.MAG",    &AvgRow::fuVmag,    0.0f          },
    {"DBDT.ERR",    &AvgRow::fuVerr,    0.0f          },
    {"DBDT.%ERR",   &AvgRow::fuVpct,    0.0f          },
    {"DBDT.WGT",    &AvgRow::fuVwgt,    1.0f          },
    {"ARES.MAG",    &AvgRow::fARes,     0.0f          },
    {"DEPTH.IMAGE", &AvgRow::fDepth,    0.0f          },
    {"B.MAG",       &AvgRow::fBmag,     0.0f          },
};
constexpr I4 MAvgID = static_cast<I4>(std::size(hAvgColumn));
constexpr I4 JRequired[] = {8, 11};  // TWIN.CENTER, DBDT.MAG

constexpr auto CAvgID = [] {
  std::array<std::string_view, std::size(hAvgColumn)> CID{};
  std::transform(std::begin(hAvgColumn), std::end(hAvgColumn), CID.begin(),
                 [](const AvgColumn& h) { return h.CLabel; });
  return CID;
}();

const AvgColumn& Column(I4 J) {
  return hAvgColumn[J - 1];
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

void Keep_Metadata(std::string_view sLine) {
  if (NAvgMde < MAvgMde) sAvgMde(++NAvgMde) = sLine;
}

void Take_Metadata(std::string_view sLine, I4 iRecord) {
  hAvgRead.bNewMD = true;
  I4 IOERR = 0;
  bool bForeign = false;
  if (const auto K = sLine.find("TEM:"); K == std::string_view::npos) {
    MDP_from_MDE(iRecord, sLine, 2, IOERR, &bForeign);
  } else {
    MDP_from_MDE(iRecord, std::string(sLine).replace(K, 4, 4, ' '), 2, IOERR, &bForeign);
  }
  if (bForeign) Keep_Metadata(sLine);
}

/// Comments of the user go into the next file; those that our writers make do not pile up from file to file.
void Keep_Comment(std::string_view sLine) {
  for (const std::string_view sOurs : {"QUILLAN", "+------", "|------", "\\TW"}) {
    if (sLine.find(sOurs) != std::string_view::npos) return;
  }
  if (NAvgCmt < MAvgCmt) sAvgCmt(++NAvgCmt) = sLine;
}

/// Most files repeat one line of labels ahead of every transient.
bool Repeats_Labels(std::string_view sLine) {
  return hAvgRead.bValidData && sLine == hAvgRead.sLabels;
}

void Take_Labels(std::string_view sLine, I4 iRecord, I4& iError) {
  iError = 0;
  if (Repeats_Labels(sLine)) return;
  AVG_Read_Labels(sLine, hAvgRead, iError);
  hAvgRead.sLabels = sLine;
  hAvgRead.bValidData = iError == 0;
  if (hAvgRead.bValidData) return;
  LogText("Missing critical columns, skipping data section beginning at line " + Str_Write_I4(iRecord).str());
  LogText(sLine);
}

void Take_Row(std::string_view sLine, I4 iRecord, I4& iError, bool& bStoreFull) {
  if (!hAvgRead.bValidData) return;
  if (hAvgRead.bNewMD) {
    hAvgRead.bNewMD = false;
    hAvgRead.bHaveMD = true;
    TMD_Survey_from_MD(iError);
  }
  if (!hAvgRead.bHaveMD) return;
  I4 IOERR = 0;
  AVG_Read_Data(sLine, iRecord, hAvgRead, IOERR);
  bStoreFull = IOERR < 0;
}

// ---- one row

template <class Value>
void Take_Field(const FieldContext& hAt, std::string_view sField, Value hDefault, Value& hValue,
                void (*Fld_to)(const FieldContext&, std::string_view, Value, Value&, I4&)) {
  I4 IOERR = 0;
  Fld_to(hAt, sField, hDefault, hValue, IOERR);
}

/// Reads a field into its place in the row; what cannot be read gets the value of a blank field.
void Take_Column(const FieldContext& hAt, std::string_view sField, const AvgColumn& hColumn, AvgRow& hRow) {
  if (const auto* fPlace = std::get_if<R4 AvgRow::*>(&hColumn.hTarget)) {
    Take_Field(hAt, sField, std::get<R4>(hColumn.hBlank), hRow.**fPlace, Fld_to_R4);
  } else if (const auto* dPlace = std::get_if<R8 AvgRow::*>(&hColumn.hTarget)) {
    Take_Field(hAt, sField, R8{hRow.**dPlace}, hRow.**dPlace, Fld_to_R8);
  } else if (const auto* iPlace = std::get_if<I4 AvgRow::*>(&hColumn.hTarget)) {
    Take_Field(hAt, sField, I4{hRow.**iPlace}, hRow.**iPlace, Fld_to_I4);
  } else if (const auto* sPlace = std::get_if<std::string_view AvgRow::*>(&hColumn.hTarget)) {
    if (!sField.empty()) hRow.** sPlace = sField.substr(0, 8);
  }
}

void Read_Fields(std::string_view sRecord, I4 iRecord, AvgReadState& hRead, AvgRow& hRow) {
  Str_Parse_Fld(sRecord, hRead.hField);
  for (const I4 J : hRead.JRead) {
    const I4 K = hRead.hColumn.KCol[static_cast<std::size_t>(J - 1)];
    Take_Column({iRecord, sRecord, Column(J).CLabel}, hRead.hField(K), Column(J), hRow);
  }
}

bool Begins_Number(std::string_view sText) {
  const std::size_t K = sText.starts_with('-') ? 1 : 0;
  return sText.size() > K && ((sText[K] >= '0' && sText[K] <= '9') || sText[K] == '.');
}

bool Ends_Field(char c) {
  return c == ' ' || c == ',';
}

/// The length of the number or "*" at the head of a row, 0 when the field there is spelled otherwise.
std::size_t Take_Plain_Field(std::string_view sRest, const AvgColumn& hColumn, AvgRow& hRow) {
  R4& fValue = hRow.**std::get_if<R4 AvgRow::*>(&hColumn.hTarget);
  if (sRest.starts_with('*')) {
    fValue = *std::get_if<R4>(&hColumn.hBlank);
    return 1;
  }
  if (!Begins_Number(sRest)) return 0;
  const auto hNumber = std::from_chars(sRest.data(), sRest.data() + sRest.size(), fValue);
  const auto NField = static_cast<std::size_t>(hNumber.ptr - sRest.data());
  return hNumber.ec == std::errc{} && NField <= MPlain ? NField : 0;
}

/// The length of the field at the head of a row, 0 when quotes or a tab have a say in it.
std::size_t Pass_Over_Field(std::string_view sRest) {
  std::size_t NField = 0;
  for (; NField < sRest.size() && !Ends_Field(sRest[NField]); ++NField) {
    if (sRest[NField] == '"' || sRest[NField] == '\t') return 0;
  }
  return NField;
}

/// Nearly every row is plain: numbers and "*" with blanks or one comma between them. Such a row is read where it
/// stands, in half the time. False for any other row, which has to be cut into fields.
bool Read_Plain_Row(std::string_view sRest, const AvgReadState& hRead, AvgRow& hRow) {
  for (const I4 J : hRead.JPlain) {
    sRest = Left_Adjusted(sRest);
    const std::size_t NField = J > 0 ? Take_Plain_Field(sRest, Column(J), hRow) : Pass_Over_Field(sRest);
    sRest.remove_prefix(NField);
    if (NField == 0 || (!sRest.empty() && !Ends_Field(sRest.front()))) return false;
    sRest = Left_Adjusted(sRest);
    if (sRest.starts_with(',')) sRest.remove_prefix(1);
  }
  return !hRead.JPlain.empty();
}

/// Why a row cannot be used; blank when it can.
std::string_view Fault_of(const AvgRow& hRow) {
  if (hRow.dRxKvrStn < dDummyLimit) return "Rx.KvrStn undefined for record ";
  if (hRow.fTxFreq < fTxLeast) return "Tx.Freq < 1.0E-6 on record ";
  if (hRow.fTxAmp < fTxLeast) return "Tx.Amp < 1.0E-6 on record ";
  if (hRow.fTWCen < fDummyLimit) return "TWIN.Center < -1.0E32 on record ";
  return {};
}

bool Differs(R8 dStn0, R8 dStn) {
  return dStn0 != dStn && std::abs(dStn0 - dStn) > dStnTolerance * Spacing(dStn0);
}

/// Whether a row begins a transient; remembers its stations and time for the next row.
bool Begins_Transient(const AvgRow& hRow, AvgReadState& hRead) {
  const bool bTx = Differs(hRead.dTxKvrStn0, hRow.dTxKvrStn);
  const bool bRx = Differs(hRead.dRxKvrStn0, hRow.dRxKvrStn);
  // A time that falls back is a repeat at the same stations; only this tells repeats apart.
  const bool bRepeat = hRow.fTWCen < hRead.fTWCen0;
  if (bTx) hRead.dTxKvrStn0 = hRow.dTxKvrStn;
  if (bRx) hRead.dRxKvrStn0 = hRow.dRxKvrStn;
  hRead.fTWCen0 = hRow.fTWCen;
  return bTx || bRx || bRepeat;
}

R8 Rescaled(R8 dKvrStn) {
  return (dKvrStn - hTemSurvey.dStnKvrBeg) * hTemSurvey.dStnInc / hTemSurvey.dStnKvrInc + hTemSurvey.dStnBeg;
}

I4 Component_of(std::string_view sRxCmp) {
  I4 iRxCmp = iCmpHz;
  I4 IOERR = 0;
  Str_to_iEnumeration(Str_UpCase(sRxCmp), "EM.Cmp", CChnCmp, iRxCmp, IOERR);
  return iRxCmp;
}

void Set_Receiver(const AvgRow& hRow, Transient& h) {
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

void Set_Transmitter(const AvgRow& hRow, Transient& h) {
  h.dTxKvrStn = hRow.dTxKvrStn;
  h.dTxStn = MdTx.dStn;
  if (hTemSurvey.iTemArray == iArrayFXL || hTemSurvey.iTemArray == iArrayLOT) {
    h.dTxStn = hRow.dTxKvrStn;
  } else if (Is_Present(hRow.dTxKvrStn)) {
    h.dTxStn = Rescaled(hRow.dTxKvrStn);
  }
  h.dTxXYZC = MdTx.dUTMC;
  h.fTxFreq = hRow.fTxFreq;
  h.fTxAmp = hRow.fTxAmp;
  h.fTxRamp = MdTx.fRamp;
  h.fTxDelay = MdTx.fDelay;
  h.NCycle = MdTx.NCycle;
}

void Set_Instrument(Transient& h) {
  h.dKvrBlk = MdKvr.dBlk;
  h.sKvrDate = MdKvr.sDate;
  h.sKvrTime = MdKvr.sTime;
  h.iAcqMethod = MdKvr.iAcqMethod;
}

void Begin_Transient(const AvgRow& hRow, AvgReadState& hRead) {
  Transient& h = hTrn(++NTrn);
  Set_Receiver(hRow, h);
  Set_Transmitter(hRow, h);
  Set_Instrument(h);
  h.NTW = 0;
  hRead.ITW = 0;
}

/// Stores a row as the next window of the transient; a 65th has no place.
void Add_Window(const AvgRow& hRow, AvgReadState& hRead) {
  const I4 I = ++hRead.ITW;
  if (I > MTW) return;
  Transient& h = hTrn(NTrn);
  h.NTW = std::max(h.NTW, I);
  h.bSkip(I) = hRow.iSkip != iSkipInUse;
  h.fTWCen(I) = hRow.fTWCen;
  h.fTWBeg(I) = hRow.fTWBeg;
  h.fTWEnd(I) = hRow.fTWEnd;
  h.fuVmag(I) = hRow.fuVmag;
  h.fuVerr(I) = hRow.fuVerr;
  h.fuVpct(I) = hRow.fuVpct;
  h.fARes(I) = hRow.fARes;
  h.fDepth(I) = hRow.fDepth;
  h.fBmag(I) = hRow.fBmag;
}

/// The columns that a plain row must have: none where a variable is no R4.
void Find_Plain_Columns(AvgReadState& hRead) {
  hRead.JPlain.clear();
  for (const I4 J : hRead.JRead) {
    const auto K = static_cast<std::size_t>(hRead.hColumn.KCol[static_cast<std::size_t>(J - 1)]);
    if (!std::holds_alternative<R4 AvgRow::*>(Column(J).hTarget)) return hRead.JPlain.clear();
    if (K > hRead.JPlain.size()) hRead.JPlain.resize(K, 0);
    hRead.JPlain[K - 1] = J;
  }
}

// ---- the file

void Forget_Last_File() {
  NTrn = 0;
  NAvgCmt = 0;
  NAvgMde = 0;
  sAvgCmt.fill({});
  sAvgMde.fill({});
  hAvgRead.bValidData = false;
  hAvgRead.bNewMD = false;
  hAvgRead.bHaveMD = false;
  Fld_Begin_File();
}

void Report_Read_Error(const RecordReader& in, I4& iError) {
  LogErr({"ERROR while reading file near line " + Str_Write_I4(in.iRecord()).str(), std::string(in.Record())});
  iError = 1;
}

void Report_Transients(std::string_view sFileName, I4& iError) {
  LogText(Str_Write_I4(NTrn).str() + " data transients have been read from");
  LogText(sFileName);
  if (NTrn < 1) iError = 1;
}

void Look_at_User(I4 iRecord) {
  if (iRecord % NRecordsPerLook == 0) hUser.Look();
}

}  // namespace

void AVG_Read(std::string_view sFile, I4& iError) {
  iError = 0;
  Forget_Last_File();
  RecordReader in(sFile, MAvgRecord);
  if (!in.Is_Open()) {
    iError = 1;  // the caller tells the user
    return;
  }
  LogText("");
  LogText("Reading TEM data from file " + std::string(File_Name(sFile)));
  LogText(sFile);

  bool bStoreFull = false;
  while (!bStoreFull && in.Next()) {
    const std::string_view sLine = Trimmed(Left_Adjusted(in.Record()));
    switch (Kind_of(sLine)) {
      case LineKind::Metadata: Take_Metadata(sLine, in.iRecord()); break;
      case LineKind::Comment: Keep_Comment(sLine); break;
      case LineKind::Labels: Take_Labels(sLine, in.iRecord(), iError); break;
      case LineKind::Row: Take_Row(sLine, in.iRecord(), iError, bStoreFull); break;
      case LineKind::Ignored: break;
    }
    Look_at_User(in.iRecord());
  }
  if (in.Has_Failed()) {
    Report_Read_Error(in, iError);
    return;
  }
  Report_Transients(File_Name(sFile), iError);
}

void AVG_Read_Labels(std::string_view sRecord, AvgReadState& hRead, I4& iError) {
  Str_Column_Labels_Alias_List(sRecord, false, true, CAvgAlias, CAvgID, MAvgCol, hRead.hColumn, iError);
  const std::vector<I4>& KCol = hRead.hColumn.KCol;
  ErrorLines sError;
  for (const I4 J : JRequired) {
    if (KCol[static_cast<std::size_t>(J - 1)] != 0) continue;
    sError.push_back("AVG_Read_Labels.WARNING: Could not find required column " + std::string(Column(J).CLabel));
  }
  hRead.JRead.clear();
  for (I4 J = 1; J <= MAvgID; ++J) {
    const bool bRead = !std::holds_alternative<NotRead>(Column(J).hTarget);
    if (bRead && KCol[static_cast<std::size_t>(J - 1)] != 0) hRead.JRead.push_back(J);
  }
  Find_Plain_Columns(hRead);
  iError = sError.empty() ? 0 : 1;
  if (iError == 0) return;
  sError.push_back("In: " + std::string(Cut_Text(sRecord, 124)));
  LogErr(sError);
}

void AVG_Read_Data(std::string_view sRecord, I4 iRecord, AvgReadState& hRead, I4& IOERR) {
  IOERR = 0;
  if (NTrn == 0) hRead.dRxKvrStn0 = dDummy;
  AvgRow hRow;
  if (!Read_Plain_Row(sRecord, hRead, hRow)) Read_Fields(sRecord, iRecord, hRead, hRow);

  if (const std::string_view sFault = Fault_of(hRow); !sFault.empty()) {
    LogErr_File({"AVG_Read_Data.ERROR: " + std::string(sFault) + Str_Write_I4(iRecord).str(), std::string(sRecord),
                 "Dropping this data record."});
    IOERR = 1;
    return;
  }
  if (Begins_Transient(hRow, hRead)) {
    if (NTrn == MTrn) {
      LogErr({"AVG_Read_Data.ERROR: More than 4096 transients at avg file record", std::string(sRecord)});
      IOERR = -1;
      return;
    }
    Begin_Transient(hRow, hRead);
  }
  Add_Window(hRow, hRead);
}

void sRecord_to_JCmp(std::string_view sRecord, I4& JCMP, I4& JFLD) {
  struct ComponentName {
    std::string_view sName;
    I4 JCMP, JFLD;
  };
  constexpr ComponentName hName[] = {
      {"Hx", 1, 2},
      {"Hy", 2, 2},
      {"Hz", 3, 2},
      {"Ex", 1, 1},
      {"Ey", 2, 1},
      {"Ez", 3, 1}
  };
  JCMP = 3;
  JFLD = 3;
  for (const ComponentName& h : hName) {
    if (sRecord.find(h.sName) == std::string_view::npos) continue;
    JCMP = h.JCMP;
    JFLD = h.JFLD;
    return;
  }
}

}  // namespace quillan

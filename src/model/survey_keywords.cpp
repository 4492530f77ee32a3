#include "model/survey_keywords.h"

#include <algorithm>
#include <span>
#include <type_traits>
#include <variant>

#include "foundations/log_file.h"
#include "foundations/str_write.h"
#include "metadata/enm_data.h"
#include "metadata/job_md.h"
#include "metadata/line_md.h"
#include "metadata/rx_md.h"
#include "metadata/stn_md.h"
#include "metadata/survey_md.h"
#include "metadata/tx_md.h"
#include "metadata/unit_md.h"
#include "model/derived.h"

namespace quillan {
namespace {

/// The two homes of one fact.
template <class Value>
struct Homes {
  Value* hSurvey;
  Value* hGroup;
};
template <class Value>
Homes(Value*, Value*) -> Homes<Value>;  // which not every compiler finds for itself

using KeywordHomes = std::variant<Homes<Text<128>>, Homes<Text<16>>, Homes<I4>, Homes<R4>, Homes<R8>,
                                  Homes<Array1<R4, 2>>, Homes<Array1<R4, 3>>, Homes<Array1<R8, 3>>>;

enum class KeywordForm {
  Unwritten,
  Plain,
  Quoted,
  Word,     // the entry of a table for a code; always there
  Lengths,  // in the survey's length unit, which follows
  Area,     // m^2; one that is not above 0 is none, though the number is there
  FixedTx,  // only where the transmitter stays in one place
  Place,    // the same, with the length unit
};

/// How a value stands in a file.
struct KeywordStyle {
  KeywordForm iForm = KeywordForm::Plain;
  EditForm form = {};                            // of its numbers
  std::span<const std::string_view> sWord = {};  // of a code
};

template <class Table>
constexpr KeywordStyle Words_of(const Table& sTable) {
  return {KeywordForm::Word, {}, sTable.hItem};
}

constexpr KeywordStyle hUnwritten = {KeywordForm::Unwritten};
constexpr KeywordStyle hQuoted = {KeywordForm::Quoted};
constexpr KeywordStyle hPlain = {};
constexpr KeywordStyle hLine = {KeywordForm::Plain, "(F12.3)"};
constexpr KeywordStyle hStn = {KeywordForm::Plain, "(F14.3)"};
constexpr KeywordStyle hSides = {KeywordForm::Lengths, "(F12.3)"};
constexpr KeywordStyle hArea = {KeywordForm::Area, "(1P,G14.4)"};
constexpr KeywordStyle hPlace = {KeywordForm::Place, "(F12.3)"};
constexpr KeywordStyle hAngles = {KeywordForm::FixedTx, "(F12.1)"};

struct SurveyKeyword {
  std::string_view sName;
  KeywordHomes hHomes;
  KeywordStyle hStyle;
  std::string_view CReplaced;  // words that tell an older record of the fact, blanks between
};

I4 iOwnType = iSurveyTEM;  // the one survey type of this program, at home in no record

// In the order of the files. Users type the ends of the line into their metadata files by hand, where they stay. There
// is no JOBBY, so a record of that name stays as well.
constexpr SurveyKeyword hSurveyKeyword[] = {
    {"Job.Name",     Homes{&hTemSurvey.sJobName, &MdJob.sName},         hQuoted,               "PROJECT JOBNAME JOB.NAME"  },
    {"Job.Area",     Homes{&hTemSurvey.sJobArea, &MdJob.sArea},         hQuoted,               "JOBAREA JOB.AREA"          },
    {"Job.For",      Homes{&hTemSurvey.sJobFor, &MdJob.sFor},           hQuoted,               "CLIENT JOBFOR JOB.FOR"     },
    {"Job.By",       Homes{&hTemSurvey.sJobBy, &MdJob.sBy},             hQuoted,               "COMPANY JOB.BY"            },
    {"Job.Number",   Homes{&hTemSurvey.sJobNumber, &MdJob.sNumber},     hQuoted,               "JOBNUM JOB.NUMBER"         },
    {"Job.Date",     Homes{&hTemSurvey.sJobDate, &MdJob.sDate},         hPlain,                "JOBDATE JOB.DATE"          },
    {"Survey.Type",  Homes{&iOwnType, &iOwnType},                       Words_of(sSurveyType), "SURVEY.TYPE"               },
    {"Survey.Array", Homes{&hTemSurvey.iTemArray, &MdSurvey.iTemArray}, Words_of(sTemArray),   "ARRAY SURVEY.ARRAY"        },
    {"Line.Name",    Homes{&hTemSurvey.sLineName, &MdLine.sName},       hQuoted,               "LINE LINE.NAME"            },
    {"Line.Number",  Homes{&hTemSurvey.dLineNumber, &MdLine.dNumber},   hLine,                 "LINE.NUMBER"               },
    {"Line.Azimuth", Homes{&hTemSurvey.fLineAzimuth, &MdLine.fAzimuth}, hLine,                 "BRGBACK LINE.AZIMUTH"      },
    {"Stn.KvrBeg",   Homes{&hTemSurvey.dStnKvrBeg, &MdStn.dStnKvrBeg},  hStn,                  "LBLFRST STN.KVRBEG"        },
    {"Stn.KvrInc",   Homes{&hTemSurvey.dStnKvrInc, &MdStn.dStnKvrInc},  hStn,                  "LBLDELT STN.KVRINC"        },
    {"Stn.Beg",      Homes{&hTemSurvey.dStnBeg, &MdStn.dStnBeg},        hStn,                  "STNLO STN.BEG"             },
    {"Stn.Inc",      Homes{&hTemSurvey.dStnInc, &MdStn.dStnInc},        hStn,                  "STNDELT STN.INC"           },
    {"Stn.Left",     Homes{&hTemSurvey.dStnLeft, &MdStn.dStnLeft},      hStn,                  ""                          },
    {"Stn.Right",    Homes{&hTemSurvey.dStnRight, &MdStn.dStnRight},    hStn,                  ""                          },
    {"Tx.Turns",     Homes{&hTemSurvey.NTxTurn, &MdTx.NTurn},           hPlain,                "TX.TURNS"                  },
    {"Tx.Length",    Homes{&hTemSurvey.fTxLength, &MdTx.fLength},       hSides,                "TXDX TXDY TX.LENGTH"       },
    {"Tx.Area",      Homes{&hTemSurvey.fTxArea, &MdTx.fArea},           hArea,                 "TX.AREA"                   },
    {"Tx.Center",    Homes{&hTemSurvey.dTxXYZC, &MdTx.dUTMC},           hPlace,                "TXCX TXCY TX.CENTER TX.UTM"},
    {"Tx.HPR",       Homes{&hTemSurvey.fTxHPR, &MdTx.fHPR},             hAngles,               "TX.HPR"                    },
    {"Rx.HPR",       Homes{&hTemSurvey.fRxHPR, &MdRx.fHPR},             hUnwritten,            "RX.AZIMUTH RX.PITCH RX.HPR"},
    {"Unit.Length",  Homes{&hTemSurvey.iLengthUnit, &MdUnit.iLength},   Words_of(sLengthUnit), "UNIT UNIT.LENGTH"          },
    {"Unit.Time",    Homes{&hTemSurvey.iTimeUnit, &MdUnit.iTime},       Words_of(sTimeUnit),   "UNIT.TIME"                 },
    {"Unit.E",       Homes{&hTemSurvey.iEUnit, &MdUnit.iEfield},        Words_of(sEUnit),      ""                          },
    {"Unit.B",       Homes{&hTemSurvey.iBUnit, &MdUnit.iBfield},        Words_of(sBUnit),      ""                          },
    {"Unit.dBdt",    Homes{&hTemSurvey.idBdtUnit, &MdUnit.idBdt},       Words_of(sdBdtUnit),   "UNIT.DBDT"                 },
};

// ---- between the survey record and the groups

/// Whether a value is one: a text that is not blank, a code or count above 0, a number that is present, an array with
/// any such element.
template <class Value>
bool Has_Value(const KeywordStyle& hStyle, const Value& hValue) {
  if constexpr (std::is_same_v<Value, I4>) {
    return hValue > 0;
  } else if constexpr (std::is_arithmetic_v<Value>) {
    return hStyle.iForm == KeywordForm::Area ? hValue > 0 : Is_Present(hValue);
  } else if constexpr (requires { hValue.Is_Blank(); }) {
    return !hValue.Is_Blank();
  } else {
    return Has_Value(hStyle, *std::max_element(hValue.begin(), hValue.end()));
  }
}

template <class Value>
void Move(const SurveyKeyword& h, const Value& hFrom, Value& hTo) {
  if (Has_Value(h.hStyle, hFrom)) hTo = hFrom;
}

// ---- into a file

template <I4 N>
std::string Shown(const KeywordStyle&, const Text<N>& sText) {
  return sText.str();
}
std::string Shown(const KeywordStyle& hStyle, I4 iValue) {
  if (hStyle.sWord.empty()) return Str_Write_I4(iValue).str();
  const I4 iWord = std::clamp(iValue, 1, static_cast<I4>(hStyle.sWord.size()));  // the nearer end
  return std::string(hStyle.sWord[static_cast<std::size_t>(iWord - 1)]);
}
std::string Shown(const KeywordStyle& hStyle, R4 fValue) {
  return Str_Write_R4(fValue, hStyle.form).str();
}
std::string Shown(const KeywordStyle& hStyle, R8 dValue) {
  return Str_Write_R8(dValue, hStyle.form).str();
}
/// "350100,6240020,*": a missing element is a star.
template <class Real>
std::string Shown(const KeywordStyle& hStyle, const Array1<Real, 3>& hValue) {
  std::string sJoined;
  for (const Real hElement : hValue) {
    if (!sJoined.empty()) sJoined += ',';
    sJoined += Is_Present(hElement) ? Shown(hStyle, R8{hElement}) : "*";
  }
  return sJoined;
}
/// "200,100" in the survey's length unit: a side that is not above 0 is a star; nothing without sides.
std::string Shown(const KeywordStyle& hStyle, const Array1<R4, 2>& fLength) {
  const R4 fUnit = Held_Entry(fLengthUnit, hTemSurvey.iLengthUnit);
  const auto Side = [&](R4 fSide) { return fSide > 0.0f ? Shown(hStyle, fSide / fUnit) : std::string("*"); };
  if (!(std::max(fLength(1), fLength(2)) > 0.0f)) return {};
  return Side(fLength(1)) + "," + Side(fLength(2));
}

/// What a record says of a value; blank when there is no such record.
template <class Value>
std::string Record_Text(const KeywordStyle& hStyle, const Value& hValue) {
  const std::string sShown = Shown(hStyle, hValue);
  if (hStyle.iForm == KeywordForm::Word) return sShown;
  if (!Has_Value(hStyle, hValue) || sShown.empty()) return {};
  const std::string sUnit = " " + std::string(Held_Entry(sLengthUnit, hTemSurvey.iLengthUnit));
  const bool bFixedTx = Has_Fixed_Transmitter(hTemSurvey);
  switch (hStyle.iForm) {
    case KeywordForm::Quoted: return '"' + sShown + '"';
    case KeywordForm::Lengths: return sShown + sUnit;
    case KeywordForm::Area: return sShown + " m^2";
    case KeywordForm::FixedTx: return bFixedTx ? sShown : "";
    case KeywordForm::Place: return bFixedTx ? sShown + sUnit : "";
    case KeywordForm::Unwritten: return {};
    default: return sShown;
  }
}

}  // namespace

void TMD_Survey_from_MD() {
  // Corners that were never read change nothing.
  if (MdTx.NUTMN >= 2) static_cast<void>(Tx_MD_UTMN_to_UTMC(MdTx));
  for (const SurveyKeyword& h : hSurveyKeyword) {
    std::visit([&](const auto& hHomes) { Move(h, *hHomes.hGroup, *hHomes.hSurvey); }, h.hHomes);
  }
}

void TMD_Survey_to_MD() {
  for (const SurveyKeyword& h : hSurveyKeyword) {
    std::visit([&](const auto& hHomes) { Move(h, *hHomes.hSurvey, *hHomes.hGroup); }, h.hHomes);
  }
}

I4 TMD_Survey_Append_MD(MdEntryList& hEntry, I4 MEntry) {
  if (MEntry - static_cast<I4>(hEntry.size()) < MMdEntryFree) {
    // Users find this report in their logs by the words as they stand.
    LogErr({"TMD_to_MdRecords.ERROR: Not enougMd room left in sName(:) & sValue(:) buffers."});
    return -1;
  }
  for (const SurveyKeyword& h : hSurveyKeyword) {
    const std::string sText =
        std::visit([&](const auto& hHomes) { return Record_Text(h.hStyle, *hHomes.hSurvey); }, h.hHomes);
    if (!sText.empty()) hEntry.push_back({h.sName, sText});
  }
  return 0;
}

std::string MD_Entry_Line(const MdEntry& hEntry) {
  return "$ " + hEntry.sName.str() + " = " + hEntry.sValue.str();
}

bool Replaced_by_Survey(std::string_view CKeyword) {
  const auto Holds_Word = [CKeyword](std::string_view CWords) {
    while (!CWords.empty()) {
      const std::string_view CWord = CWords.substr(0, CWords.find(' '));
      if (CKeyword.find(CWord) != std::string_view::npos) return true;
      CWords.remove_prefix(std::min(CWord.size() + 1, CWords.size()));
    }
    return false;
  };
  return std::any_of(std::begin(hSurveyKeyword), std::end(hSurveyKeyword),
                     [&](const SurveyKeyword& h) { return Holds_Word(h.CReplaced); });
}

}  // namespace quillan

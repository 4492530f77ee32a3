#include "metadata/mdp_data.h"

#include <algorithm>
#include <iterator>
#include <string>

#include "base/program.h"
#include "base/text.h"
#include "foundations/log_file.h"

namespace quillan {

namespace {

// Older names, ascending, and what each is today. A target is not looked up again: NCYCLE ends in the group TS, which
// no reader serves, and only TS.NCYCLE leads to the transmitter.
// clang-format off
constexpr AliasRow CAlias[] = {
    {"ADCARDSN",            "KVR.ADCARDSN"},
    {"ADFRQ",               "TS.ADFREQ"},
    {"ALIASDELAY",          "RX.ALIASDELAY"},
    {"ANTDELAY",            "RX.ANTDELAY"},
    {"ARRAY",               "SURVEY.ARRAY"},
    {"ARRAYTYPE",           "SURVEY.ARRAY"},
    {"ASPACE",              "RX.LENGTH"},
    {"BRGLINE",             "LINE.AZIMUTH"},
    {"CARDSN",              "KVR.ADCARDSN"},
    {"CH.COIL",             "CH.ANTSN"},
    {"CH.RES",              "CH.CRES"},
    {"CHCMP",               "CH.CMP"},
    {"CHFACTOR",            "CH.FACTOR"},
    {"CHGAIN",              "CH.GAIN"},
    {"CHNUMBER",            "CH.NUMBER"},
    {"CHSP",                "CH.SP"},
    {"CHSTATUS",            "CH.STATUS"},
    {"CLIENT",              "JOB.FOR"},
    {"CMP",                 "RX.CMP"},
    {"COMPANY",             "JOB.BY"},
    {"DATAKIND",            "DATA.KIND"},
    {"DATE",                "KVR.DATE"},
    {"DATE0",               "KVR.DATE"},
    {"DECFAC",              "TS.DECFAC"},
    {"DELAY.ALIAS",         "RX.ALIASDELAY"},
    {"DELAY.ANT",           "RX.ANTDELAY"},
    {"EAST",                "RX.EAST"},
    {"ELEV",                "RX.ELEV"},
    {"ELEVATION",           "RX.ELEV"},
    {"EXAZM",               "RX.AZIMUTH"},
    {"FLINE",               "LINE.NUMBER"},
    {"HEADERTYPE",          "HEADER.TYPE"},
    {"JOBDATE",             "JOB.DATE"},
    {"JOBFOR",              "JOB.FOR"},
    {"JOBLINE",             "LINE.NAME"},
    {"JOBNUMB",             "JOB.NUMBER"},
    {"JOBNUMBER",           "JOB.NUMBER"},
    {"KVR.CARDSN",          "KVR.ADCARDSN"},
    {"KVR.NCARD",           "KVR.NUMCARD"},
    {"KVR.NUMCH",           "KVR.NUMCARD"},
    {"KVR.OPER",            "KVR.OPERATOR"},
    {"KVR.RXSTN",           "RX.KVRSTN"},
    {"KVR.TXSTN",           "TX.KVRSTN"},
    {"KVRBAT",              "KVR.BAT"},
    {"KVRCHN",              "KVR.CH"},
    {"KVRHUMID",            "KVR.HUMID"},
    {"KVRNUMCH",            "KVR.NUMCARD"},
    {"KVROPER",             "KVR.OPERATOR"},
    {"KVRSN",               "KVR.SN"},
    {"KVRTEMP",             "KVR.TEMP"},
    {"LAB.AREA",            "CH.LABAREA"},
    {"LAB.ID",              "CH.LABID"},
    {"LAB.LENGTH",          "CH.LABLENGTH"},
    {"LAB.NAME",            "CH.LABID"},
    {"LBLDELT",             "STN.INC"},
    {"LBLFRST",             "STN.BEG"},
    {"LENGTH.UNITS",        "UNIT.LENGTH"},
    {"LENGTHUNIT",          "UNIT.LENGTH"},
    {"LENGTHUNITS",         "UNIT.LENGTH"},
    {"LINE",                "LINE.NAME"},
    {"LINE.STNDEC",         "STN.DEC"},
    {"LINE.STNINC",         "STN.INC"},
    {"LINEBRG",             "LINE.AZIMUTH"},
    {"NCYCLE",              "TS.NCYCLE"},
    {"NORTH",               "RX.NORTH"},
    {"NPNT",                "TS.NPNT"},
    {"NTXTURN",             "TX.TURNS"},
    {"NWAVEFORM",           "TS.NWAVEFORM"},
    {"PROJECT",             "JOB.NAME"},
    {"RHEADERTYPE",         "HEADER.TYPE"},
    {"RX.ANTNUMBER",        "RX.ANTSN"},
    {"RX.LABAREA",          "CH.LABAREA"},
    {"RX.LABID",            "CH.LABID"},
    {"RX.LABLENGTH",        "CH.LABLENGTH"},
    {"RX1",                 "RX.XYZ1"},
    {"RX2",                 "RX.XYZ2"},
    {"RXAREA",              "RX.AREA"},
    {"RXAREAX",             "RX.AREAX"},
    {"RXAREAY",             "RX.AREAY"},
    {"RXAREAZ",             "RX.AREAZ"},
    {"RXAZM",               "RX.AZIMUTH"},
    {"RXBRG",               "RX.AZIMUTH"},
    {"RXSTATION",           "RX.STN"},
    {"RXSTN",               "RX.STN"},
    {"SKIP",                "DATA.SKIP"},
    {"SLINE",               "LINE.NAME"},
    {"SPREAD",              "SURVEY.SPREAD"},
    {"STACK.COUNT",         "STACK.NCYCLE"},
    {"STACK.SHAPE",         "STACK.TAPER"},
    {"STATION",             "RX.KVRSTN"},
    {"STN",                 "RX.KVRSTN"},
    {"STN.KVREND",          ""},  // withdrawn: the record is reported and not read
    {"STNBEG",              "STN.BEG"},
    {"STNDEC",              "STN.DEC"},
    {"STNDELT",             "STN.KVRINC"},
    {"STNFIRST",            "STN.LEFT"},
    {"STNHIGH",             "STN.KVREND"},
    {"STNINC",              "STN.INC"},
    {"STNLAST",             "STN.RIGHT"},
    {"STNLEFT",             "STN.LEFT"},
    {"STNLO",               "STN.KVRBEG"},
    {"STNLOW",              "STN.KVRBEG"},
    {"STNRIGHT",            "STN.RIGHT"},
    {"SURVEY.ACQMODE",      "SURVEY.ACQMETHOD"},
    {"SURVEY.ASPACE",       "RX.LENGTH"},
    {"SURVEY.CLIENT",       "JOB.FOR"},
    {"SURVEY.COMMENT",      "JOB.COMMENT"},
    {"SURVEY.FLINE",        "LINE.NUMBER"},
    {"SURVEY.FOR",          "JOB.FOR"},
    {"SURVEY.JOB",          "JOB.NUMBER"},
    {"SURVEY.LENGTHUNITS",  "UNIT.LENGTH"},
    {"SURVEY.SLINE",        "LINE.NAME"},
    {"SURVEYTYPE",          "SURVEY.TYPE"},
    {"TCARDSN",             "KVR.TCARDSN"},
    {"TIME0",               "KVR.TIME"},
    {"TS.ADFRQ",            "TS.ADFREQ"},
    {"TS.NCYCLE",           "TX.NCYCLE"},
    {"TS.NWAVEFORM",        "TX.NWAVEFORM"},
    {"TX",                  "TX.KVRSTN"},
    {"TX.FRQ",              "TX.FREQ"},
    {"TX.SHUNT",            "TX.SENSE"},
    {"TX1",                 "TX.XYZ1"},
    {"TX2",                 "TX.XYZ2"},
    {"TXAMP",               "TX.AMP"},
    {"TXAREA",              "TX.AREA"},
    {"TXAZM",               "TX.AZIMUTH"},
    {"TXBRG",               "TX.AZIMUTH"},
    {"TXCX",                "TX.CENTERX"},
    {"TXCY",                "TX.CENTERY"},
    {"TXDUTY",              "TX.DUTY"},
    {"TXDX",                "TX.LENGTHX"},
    {"TXDY",                "TX.LENGTHY"},
    {"TXFREQ",              "TX.FREQ"},
    {"TXFRQ",               "TX.FREQ"},
    {"TXID",                "TX.KVRSTN"},
    {"TXLEN",               "TX.LENGTH"},
    {"TXRAMP",              "TX.RAMP"},
    {"TXSHUNT",             "TX.SENSE"},
    {"TXSTN",               "TX.STN"},
    {"TXTYPE",              "TX.TYPE"},
    {"UNIT",                "UNIT.LENGTH"},
    {"UNITS",               "UNIT.LENGTH"},
    {"XMTR",                "TX.KVRSTN"},
};
// clang-format on
static_assert(std::size(CAlias) == NAlias);
static_assert(std::ranges::is_sorted(CAlias, {}, &AliasRow::sSpelling));

/// An upper-case name, or what it is today.
std::string_view Resolved_Name(std::string_view CName) {
  const auto* hAlias = std::ranges::lower_bound(CAlias, CName, {}, &AliasRow::sSpelling);
  return hAlias != std::end(CAlias) && hAlias->sSpelling == CName ? hAlias->sLabel : CName;
}

/// A metadata group: its name, and its reader and its initialiser for the live record.
struct GroupRow {
  std::string_view CGroup;
  I4 (*Read)(const MdRecord& hRecord);
  void (*Initialize)(bool bResetError);
};
template <auto Read, auto Initialize, auto& hGroup>
constexpr GroupRow Group(std::string_view CGroup) {
  return {CGroup, [](const MdRecord& hRecord) { return Read(hRecord, hGroup); },
          [](bool bResetError) { Initialize(hGroup, bResetError); }};
}
// clang-format off
constexpr GroupRow hGroupRow[] = {
    Group<Job_MD_Read,    Job_MD_Initialize,    MdJob>("JOB"),
    Group<Survey_MD_Read, Survey_MD_Initialize, MdSurvey>("SURVEY"),
    Group<Unit_MD_Read,   Unit_MD_Initialize,   MdUnit>("UNIT"),
    Group<Grid_MD_Read,   Grid_MD_Initialize,   MdGrid>("GRID"),
    Group<Line_MD_Read,   Line_MD_Initialize,   MdLine>("LINE"),
    Group<Stn_MD_Read,    Stn_MD_Initialize,    MdStn>("STN"),
    Group<Kvr_MD_Read,    Kvr_MD_Initialize,    MdKvr>("KVR"),
    Group<Gps_MD_Read,    Gps_MD_Initialize,    MdGps>("GPS"),
    Group<Tx_MD_Read,     Tx_MD_Initialize,     MdTx>("TX"),
    Group<Rx_MD_Read,     Rx_MD_Initialize,     MdRx>("RX"),
    Group<Ch_MD_Read,     Ch_MD_Initialize,     MdChn>("CH"),
};
// clang-format on

/// A $ line cut at its signs.
struct LineParts {
  I4 IOERR = iMdpNoRecord;  // 0, iMdpNoRecord, iMdpForeign
  Text<MMdName> sName;
  std::string_view sValue;
};
LineParts Split_Line(std::string_view sRecord) {
  LineParts h;
  const std::size_t iDollar = sRecord.find('$');
  const std::size_t iEqual = sRecord.find('=');
  if (iDollar == std::string_view::npos || iEqual == std::string_view::npos || iEqual < iDollar) return h;

  std::size_t iName = iDollar + 1;
  const std::size_t iColon = sRecord.substr(0, iEqual).find(':');
  std::string sProgram;
  if (iColon != std::string_view::npos) {
    h.IOERR = iMdpForeign;
    if (iColon < iDollar) return h;
    const Text<MMdName> CProgram = Str_UpCase(Left_Adjusted(sRecord.substr(iName, iColon - iName)));
    if (!(CProgram == CPrgName)) return h;
    sProgram = CProgram.str() + ".";
    iName = iColon + 1;
  }
  h.sName = sProgram.append(Left_Adjusted(sRecord.substr(iName, iEqual - iName)));
  h.sValue = Cut_Text(Left_Adjusted(sRecord.substr(iEqual + 1)), MMdValue);
  // A value of nothing but stars and separators says that it is not set.
  const bool bSet = Trimmed(h.sValue).find_first_not_of("*,;:") != std::string_view::npos;
  h.IOERR = bSet ? 0 : iMdpNoRecord;
  return h;
}

}  // namespace

void MDP_Initialize() {
  MDP_Initialize_MD(true);
}

void MDP_Initialize_MD(bool bResetError) {
  for (const GroupRow& hGroup : hGroupRow) hGroup.Initialize(bResetError);
}

MdpStatus MDP_from_MDE(I4 iRecord, std::string_view sRecord, I4 iPriority) {
  const LineParts h = Split_Line(sRecord);
  if (h.IOERR != 0) return {h.IOERR, h.IOERR == iMdpForeign};
  return MDP_Read_Value(iRecord, sRecord, h.sName.trimmed(), h.sValue, iPriority);
}

MdpStatus MDP_Read_Value(I4 iRecord, std::string_view sRecord, std::string_view sName, std::string_view sValue,
                         I4 iPriority) {
  const std::string_view sShort = Cut_Text(sName, MMdName);
  Str_to_Fld(Cut_Text(sValue, MMdValue), ",;", hMdpField);
  if (hMdpField.NFld() < 1) return {};

  // Group and keyword stand before and after the first point. A name without a group is one of this program's own, of
  // which it has none today.
  const std::string CWritten = Str_UpCase(Trimmed(sShort));
  const std::string_view CName = Resolved_Name(CWritten);
  const std::size_t iPoint = CName.find('.');
  const bool bGroup = iPoint != std::string_view::npos && iPoint > 0;
  const std::string_view CGroup = bGroup ? CName.substr(0, iPoint) : CPrgName;
  const std::string_view CKeyword = bGroup ? CName.substr(iPoint + 1) : CName;
  if (CKeyword.empty()) {
    LogErr({"MDP_Read_Value.WARNING: No keyword name in " + std::string(Trimmed(sShort)) + " from line",
            std::string(Cut_Text(sRecord, MErr))});
    return {.IOERR = 1};
  }
  if (CGroup == "HEADER") return {};  // known to every program that reads such lines, and of no use to this one
  const auto* hGroup = std::ranges::find(hGroupRow, CGroup, &GroupRow::CGroup);
  if (hGroup == std::end(hGroupRow)) return {.bForeign = true};
  const I4 iStatus = hGroup->Read({iRecord, sRecord, sShort, CKeyword, hMdpField, iPriority, MdUnit.iLength});
  return {iStatus, iStatus == iMdUnknownKeyword};
}

}  // namespace quillan

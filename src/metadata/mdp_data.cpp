#include "metadata/mdp_data.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <type_traits>

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

/// Whether a value is there: a value of nothing but stars and separators says that it is not set.
bool Has_Value(std::string_view sValue) {
  return Trimmed(sValue).find_first_not_of("*,;:") != std::string_view::npos;
}

/// The upper-case name of a record with its alias resolved.
Text<MMdName> Resolved_Name(std::string_view sName) {
  const Text<MMdName> CName = Str_UpCase(sName);
  const auto* hAlias = std::ranges::lower_bound(CAlias, CName.trimmed(), {}, &AliasRow::sSpelling);
  const bool bFound = hAlias != std::end(CAlias) && hAlias->sSpelling == CName.trimmed();
  return bFound ? Text<MMdName>(hAlias->sLabel) : CName;
}

/// A record for the live record of its group; the readers of positions look at the units as well.
template <auto Read, auto& hGroup>
void Into(const MdRecord& hRecord, I4& IMERR) {
  if constexpr (std::is_invocable_v<decltype(Read), const MdRecord&, decltype(hGroup), I4&>) {
    Read(hRecord, hGroup, IMERR);
  } else {
    Read(hRecord, hGroup, MdUnit, IMERR);
  }
}

/// HEADER is known to every program that reads such lines, and of no use to this one.
void Drop(const MdRecord&, I4&) {}

struct GroupReader {
  std::string_view CGroup;
  void (*Read)(const MdRecord& hRecord, I4& IMERR);
};
// clang-format off
constexpr GroupReader hGroupReader[] = {
    {"HEADER", Drop},
    {"JOB",    Into<Job_MD_Read,     MdJob>},
    {"SURVEY", Into<Survey_MD_Read,  MdSurvey>},
    {"UNIT",   Into<Unit_MD_Read,    MdUnit>},
    {"GRID",   Into<Grid_MD_Read,    MdGrid>},
    {"LINE",   Into<Line_MD_Read,    MdLine>},
    {"STN",    Into<Stn_MD_Read,     MdStn>},
    {"KVR",    Into<Kvr_MD_Read,     MdKvr>},
    {"GPS",    Into<Gps_MD_Read,     MdGps>},
    {"CH",     Into<Ch_MD_Read,      MdChn>},
    {"TX",     Into<Tx_MD_Read,      MdTx>},
    {"RX",     Into<Rx_MD_Read,      MdRx>},
};
// clang-format on

/// Name and value of a $ line. IOERR: 0, iMdpNoRecord, iMdpForeign.
void Split_Line(std::string_view sRecord, Text<MMdName>& sName, std::string_view& sValue, I4& IOERR) {
  IOERR = iMdpNoRecord;
  const std::size_t iDollar = sRecord.find('$');
  const std::size_t iEqual = sRecord.find('=');
  if (iDollar == std::string_view::npos || iEqual == std::string_view::npos || iEqual < iDollar) return;

  std::size_t iName = iDollar + 1;
  const std::size_t iColon = sRecord.substr(0, iEqual).find(':');
  std::string sProgram;
  if (iColon != std::string_view::npos) {
    IOERR = iMdpForeign;
    if (iColon < iDollar) return;
    const Text<MMdName> CProgram = Str_UpCase(Left_Adjusted(sRecord.substr(iName, iColon - iName)));
    if (!(CProgram == CPrgName)) return;
    sProgram = CProgram.str() + ".";
    iName = iColon + 1;
  }
  sName = sProgram + std::string(Left_Adjusted(sRecord.substr(iName, iEqual - iName)));
  sValue = Cut_Text(Left_Adjusted(sRecord.substr(iEqual + 1)), MMdValue);
  IOERR = Has_Value(sValue) ? 0 : iMdpNoRecord;
}

/// Group and keyword of a resolved name, at its first point. A name without a group is one of this program's own, of
/// which it has none today.
void Split_Name(std::string_view CName, std::string_view& CGroup, std::string_view& CKeyword) {
  const std::size_t iPoint = CName.find('.');
  const bool bGroup = iPoint != std::string_view::npos && iPoint > 0;
  CGroup = bGroup ? CName.substr(0, iPoint) : CPrgName;
  CKeyword = bGroup ? CName.substr(iPoint + 1) : CName;
}

void Set_Flag(bool* bFlag, bool bValue) {
  if (bFlag != nullptr) *bFlag = bValue;
}

}  // namespace

void MDP_Initialize(I4& IMERR) {
  MDP_Initialize_MD(IMERR, true);
}

void MDP_Initialize_MD(I4& IMERR, bool bResetError) {
  IMERR = 0;
  Job_MD_Initialize(MdJob, bResetError);
  Survey_MD_Initialize(MdSurvey, bResetError);
  Unit_MD_Initialize(MdUnit, bResetError);
  Grid_MD_Initialize(MdGrid, bResetError);
  Line_MD_Initialize(MdLine, bResetError);
  Stn_MD_Initialize(MdStn, bResetError);
  Kvr_MD_Initialize(MdKvr, bResetError);
  Gps_MD_Initialize(MdGps, bResetError);
  Tx_MD_Initialize(MdTx, bResetError);
  Rx_MD_Initialize(MdRx, bResetError);
  Ch_MD_Initialize(MdChn, bResetError);
}

void MDP_from_MDE(I4 iRecord, std::string_view sRecord, I4 iPriority, I4& IOERR, bool* bForeign) {
  Text<MMdName> sName;
  std::string_view sValue;
  Split_Line(sRecord, sName, sValue, IOERR);
  Set_Flag(bForeign, IOERR == iMdpForeign);
  if (IOERR == 0) MDP_Read_Value(iRecord, sRecord, sName.trimmed(), sValue, iPriority, IOERR, bForeign);
}

void MDP_Read_Value(I4 iRecord, std::string_view sRecord, std::string_view sName, std::string_view sValue, I4 iPriority,
                    I4& IMERR, bool* bForeign) {
  IMERR = 0;
  Set_Flag(bForeign, false);
  const std::string_view sShort = Cut_Text(sName, MMdName);
  Str_to_Fld(Cut_Text(sValue, MMdValue), ",;", hMdpField);
  if (hMdpField.NFld() < 1) return;

  const Text<MMdName> CName = Resolved_Name(sShort);
  std::string_view CGroup, CKeyword;
  Split_Name(CName.trimmed(), CGroup, CKeyword);
  if (CKeyword.empty()) {
    LogErr({"MDP_Read_Value.WARNING: No keyword name in " + std::string(Trimmed(sShort)) + " from line",
            std::string(Cut_Text(sRecord, MErr))});
    IMERR = 1;
    return;
  }
  const auto* hReader = std::ranges::find(hGroupReader, CGroup, &GroupReader::CGroup);
  if (hReader == std::end(hGroupReader)) return Set_Flag(bForeign, true);
  hReader->Read({iRecord, sRecord, sShort, CKeyword, hMdpField, iPriority}, IMERR);
  Set_Flag(bForeign, IMERR == iMdUnknownKeyword);
}

}  // namespace quillan

#include "metadata/kvr_md.h"

#include "metadata/enm_data.h"

namespace quillan {

namespace {

using Kvr = KvrGroup;

constexpr MdLimits hVolts{0, 20, "{name} = {value} < 0 or > {high} volts"};
// A battery of 0 volts is warned about, since no receiver runs on it, yet stays 0: the clamp has no least voltage.
constexpr MdLimits hBattery{0, 20, "{name} = {value} <= 0 or > {high} volts", MdTest::AboveLow};
constexpr MdLimits hAmps{0, 100, "{name} = {value} < 0 or > {high} amp"};
constexpr MdLimits hCelsius{-100, 100, "{name} = {value} < {low} or > {high} deg C"};
constexpr MdLimits hPercent{0, 100, "{name} = {value} < {low} or > {high} %"};
constexpr MdLimits hCards{1, MXChn, "{name} = {value} < 1 or > {high}"};
constexpr MdLimits hBox{0, 2147483647.0};
constexpr MdLimits hChn{0, MXChn};
constexpr MdLimits hBlock{0, 1.0E32, "{name} = {value} <= 0 or > {high}", MdTest::AboveLow};

// The hours are read under the name that the GPS group gives them: warnings are searched for by that name.
constexpr MdMore<Kvr> hClock{.sLabel = "Gps.Time", .iParse = MdParse::Time};
constexpr MdRow<Kvr> hTimeText{"TIME", MD_Into<&Kvr::sTime, &Kvr::lTime>};
constexpr MdRow<Kvr> hTimeHours{"TIME", MD_Into<&Kvr::dHour, &Kvr::lHour, &Kvr::NErrTime>, 0.0, {}, hClock};

I4 Read_Time(const MdRecord& hRecord, KvrGroup& hKvr) {
  const I4 iText = MD_Take_Row(hTimeText, hRecord, hKvr);
  return MD_Status(iText, MD_Take_Row(hTimeHours, hRecord, hKvr));
}

/// Every record with a field a card tells the number of cards, so the last of them decides it.
constexpr MdMore<Kvr> Per_Card(std::string_view sLabel = {}) {
  return {.sLabel = sLabel, .NSet = &Kvr::NCard};
}

// clang-format off
constexpr MdRow<Kvr> hKvrRow[] = {
    // keyword             value                priority          warnings              words, or blank and limits
    {"TYPE",       MD_Into<&Kvr::iType,         &Kvr::lType,      &Kvr::NErrType>,      CKvrType, "KVR.Type"},
    {"FILE",       MD_Into<&Kvr::sFile,         &Kvr::lFile>},
    {"PROGVER",    MD_Into<&Kvr::sSWVersion,    &Kvr::lSWVersion>},
    {"SN",         MD_Into<&Kvr::sSN,           &Kvr::lSN>},
    {"FPSN",       MD_Into<&Kvr::sFPSN,         &Kvr::lFPSN>},
    {"OPERATOR",   MD_Into<&Kvr::sOperator,     &Kvr::lOperator>},
    {"TCARDSN",    MD_Into<&Kvr::sTCardSN,      &Kvr::lTCardSN>},
    {"ADCARDSN",   MD_Into<&Kvr::sADCardSN,     &Kvr::lADCardSN>,  Per_Card()},
    {"ADCARDSND",  MD_Into<&Kvr::iADCardSN,     &Kvr::lADCardSN>,  0, {}, Per_Card("KVR.ADCardSND")},
    {"ADCARDVER",  MD_Into<&Kvr::sADCardVR,     &Kvr::lADCardVR>,  Per_Card()},
    {"ADCARDFEAT", MD_Into<&Kvr::sADCardFE,     &Kvr::lADCardAT>,  Per_Card()},
    {"CARDTYPE",   MD_Into<&Kvr::sCardType,     &Kvr::lCardType>,  Per_Card()},
    {"SYNC",       MD_Into<&Kvr::sSync,         &Kvr::lSync>},
    {"SIGSOURCE",  MD_Into<&Kvr::iSignalSource, &Kvr::lSigSrc,    &Kvr::NErrSigSrc>,    CKvrSigSrc, "KVR.SigSource"},
    {"CALVOLTS",   MD_Into<&Kvr::fCalVolt,      &Kvr::lCalVolt,   &Kvr::NErrCalVolt>,   1.0, hVolts},
    {"BAT",        MD_Into<&Kvr::fBat,          &Kvr::lBat,       &Kvr::NErrBat>,       1.0, hBattery},
    {"AMP",        MD_Into<&Kvr::fAmp,          &Kvr::lAmp,       &Kvr::NErrAmp>,       1.0, hAmps},
    {"TEMP",       MD_Into<&Kvr::fTemp,         &Kvr::lTemp,      &Kvr::NErrTemp>,      0.0, hCelsius},
    {"HUMID",      MD_Into<&Kvr::fHumid,        &Kvr::lHumid,     &Kvr::NErrHumid>,     0.0, hPercent},
    {"NUMCARD",    MD_Into<&Kvr::NCard,         &Kvr::lNCard,     &Kvr::NErrNCard>,     1, hCards},
    {"NUMBER",     MD_Into<&Kvr::iBox,          &Kvr::lBox,       &Kvr::NErrBox>,       0, hBox, Per_Card("KVR.NUMBER")},
    {"CH",         MD_Into<&Kvr::iChn,          &Kvr::lChn,       &Kvr::NErrChn>,       0, hChn, Per_Card("KVR.Ch")},
    {"DATE",       MD_Into<&Kvr::sDate,         &Kvr::lDate>},
    {"TIME",       Read_Time},
    {"BLK",        MD_Into<&Kvr::dBlk,          &Kvr::lBlk,       &Kvr::NErrBlk>,       0.0, hBlock, {"KVR.Blk"}},
    {"SETUP",      MD_Into<&Kvr::iSetup,        &Kvr::lSetup,     &Kvr::NErrSetup>,     iSetupNone},
    {"ACQMETHOD",  MD_Into<&Kvr::iAcqMethod,    &Kvr::lAcqMethod, &Kvr::NErrAcqMethod>, CAcqMethod, "KVR.AcqMethod"},
    {"GAINMODE",   MD_Into<&Kvr::iGainMode,     &Kvr::lGainMode,  &Kvr::NErrGainMode>,  CGainMode, "KVR.GainMode"},
    {"GAINMETHOD", MD_Into<&Kvr::sGainMethod,   &Kvr::lGainMethod>},
};
// clang-format on

}  // namespace

I4 Kvr_MD_Read(const MdRecord& hRecord, KvrGroup& hKvr) {
  return MD_Read("Kvr_MD_Read", hKvrRow, hRecord, hKvr);
}

}  // namespace quillan

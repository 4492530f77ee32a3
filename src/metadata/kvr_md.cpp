#include "metadata/kvr_md.h"

#include "metadata/enm_data.h"

namespace quillan {

namespace {

using Kvr = KvrGroup;

constexpr R8 dMostI4 = 2147483647.0;

constexpr MdLimits hVolts{0, 20, "{name} = {value} < 0 or > {high} volts"};
// A battery of 0 volts is warned about, since no receiver runs on it, yet stays 0: the clamp has no least voltage.
constexpr MdLimits hBattery{0, 20, "{name} = {value} <= 0 or > {high} volts", MdTest::AboveLow};
constexpr MdLimits hAmps{0, 100, "{name} = {value} < 0 or > {high} amp"};
constexpr MdLimits hCelsius{-100, 100, "{name} = {value} < {low} or > {high} deg C"};
constexpr MdLimits hPercent{0, 100, "{name} = {value} < {low} or > {high} %"};
constexpr MdLimits hCards{1, MXChn, "{name} = {value} < 1 or >{high}"};
constexpr MdLimits hBlock{0, 1.0E32, "{name} = {value} <= 0 or > {high}", MdTest::AboveLow};

// The hours are read under the name that the GPS group gives them: warnings are searched for by that name.
constexpr MdMore<Kvr> hClock{.sLabel = "Gps.Time", .iParse = MdParse::Time};
constexpr MdRow<Kvr> hTimeText{"TIME", &Kvr::sTime, &Kvr::lTime};
constexpr MdRow<Kvr> hTimeHours{"TIME", &Kvr::dHour, &Kvr::lHour, &Kvr::NErrTime, 0.0, {}, hClock};

void Read_Time(const MdRecord& hRecord, KvrGroup& hKvr, I4& IMERR) {
  MD_Take_Row(hTimeText, hRecord, hKvr, IMERR);
  MD_Take_Row(hTimeHours, hRecord, hKvr, IMERR);
}

/// Every record with a field a card tells the number of cards, so the last of them decides it.
constexpr MdMore<Kvr> Per_Card(std::string_view sLabel = {}) {
  return {.sLabel = sLabel, .NSet = &Kvr::NCard};
}

// clang-format off
constexpr MdRow<Kvr> hKvrRow[] = {
    // keyword     value                priority          warnings             words, or blank and limits
    {"TYPE",       &Kvr::iType,         &Kvr::lType,      &Kvr::NErrType,      CKvrType, "KVR.Type"},
    {"FILE",       &Kvr::sFile,         &Kvr::lFile},
    {"PROGVER",    &Kvr::sSWVersion,    &Kvr::lSWVersion},
    {"SN",         &Kvr::sSN,           &Kvr::lSN},
    {"FPSN",       &Kvr::sFPSN,         &Kvr::lFPSN},
    {"OPERATOR",   &Kvr::sOperator,     &Kvr::lOperator},
    {"TCARDSN",    &Kvr::sTCardSN,      &Kvr::lTCardSN},
    {"ADCARDSN",   &Kvr::sADCardSN,     &Kvr::lADCardSN,  Per_Card()},
    {"ADCARDSND",  &Kvr::iADCardSN,     &Kvr::lADCardSN,  nullptr,             0, {}, Per_Card("KVR.ADCardSND")},
    {"ADCARDVER",  &Kvr::sADCardVR,     &Kvr::lADCardVR,  Per_Card()},
    {"ADCARDFEAT", &Kvr::sADCardFE,     &Kvr::lADCardAT,  Per_Card()},
    {"CARDTYPE",   &Kvr::sCardType,     &Kvr::lCardType,  Per_Card()},
    {"SYNC",       &Kvr::sSync,         &Kvr::lSync},
    {"SIGSOURCE",  &Kvr::iSignalSource, &Kvr::lSigSrc,    &Kvr::NErrSigSrc,    CKvrSigSrc, "KVR.SigSource"},
    {"CALVOLTS",   &Kvr::fCalVolt,      &Kvr::lCalVolt,   &Kvr::NErrCalVolt,   1.0, hVolts},
    {"BAT",        &Kvr::fBat,          &Kvr::lBat,       &Kvr::NErrBat,       1.0, hBattery},
    {"AMP",        &Kvr::fAmp,          &Kvr::lAmp,       &Kvr::NErrAmp,       1.0, hAmps},
    {"TEMP",       &Kvr::fTemp,         &Kvr::lTemp,      &Kvr::NErrTemp,      0.0, hCelsius},
    {"HUMID",      &Kvr::fHumid,        &Kvr::lHumid,     &Kvr::NErrHumid,     0.0, hPercent},
    {"NUMCARD",    &Kvr::NCard,         &Kvr::lNCard,     &Kvr::NErrNCard,     1, hCards},
    {"NUMBER",     &Kvr::iBox,          &Kvr::lBox,       &Kvr::NErrBox,       0, {0, dMostI4}, Per_Card("KVR.NUMBER")},
    {"CH",         &Kvr::iChn,          &Kvr::lChn,       &Kvr::NErrChn,       0, {0, MXChn}, Per_Card("KVR.Ch")},
    {"DATE",       &Kvr::sDate,         &Kvr::lDate},
    {"TIME",       Read_Time,                             &Kvr::NErrTime},
    {"BLK",        &Kvr::dBlk,          &Kvr::lBlk,       &Kvr::NErrBlk,       0.0, hBlock, {.sLabel = "KVR.Blk"}},
    {"SETUP",      &Kvr::iSetup,        &Kvr::lSetup,     &Kvr::NErrSetup,     iSetupNone},
    {"ACQMETHOD",  &Kvr::iAcqMethod,    &Kvr::lAcqMethod, &Kvr::NErrAcqMethod, CAcqMethod, "KVR.AcqMethod"},
    {"GAINMODE",   &Kvr::iGainMode,     &Kvr::lGainMode,  &Kvr::NErrGainMode,  CGainMode, "KVR.GainMode"},
    {"GAINMETHOD", &Kvr::sGainMethod,   &Kvr::lGainMethod},
};
// clang-format on

}  // namespace

void Kvr_MD_Initialize(KvrGroup& hKvr, bool bResetError) {
  MD_Initialize(hKvrRow, hKvr, bResetError);
}

void Kvr_MD_Read(const MdRecord& hRecord, KvrGroup& hKvr, I4& IMERR) {
  MD_Read("Kvr_MD_Read", hKvrRow, hRecord, hKvr, IMERR);
}

}  // namespace quillan

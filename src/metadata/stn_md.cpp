#include "metadata/stn_md.h"

namespace quillan {

namespace {

using Stn = StnGroup;

constexpr MdLimits hStation{-9.9E9, 9.9E9};
// Steps divide: their sign is free, but not their size. The unit stands in the warning of a scale alone.
constexpr MdLimits hStep{1.0E-6, 9.9E9, "Abs|{name}| = {value} < {low} or > {high}", MdTest::Magnitude};
constexpr MdLimits hScale{.dLow = 1.0E-6,
                          .dHigh = 9.9E9,
                          .sWhat = "Abs|{name}| = {value} < {low} or > {high} m/stn#",
                          .iTest = MdTest::Magnitude,
                          .sDone = "{name} will be set = {value} m/stn#"};

// clang-format off
constexpr MdRow<Stn> hStnRow[] = {
    // keyword               value              priority           warnings               words, or blank and limits
    {"NUMBER",       MD_Into<&Stn::dNumber,     &Stn::lNumber,     &Stn::NErrNumber>,     0.0, hStation},
    {"NAME",         MD_Into<&Stn::sName,       &Stn::lName>},
    {"KVRBEG",       MD_Into<&Stn::dStnKvrBeg,  &Stn::lStnKvrBeg,  &Stn::NErrStnKvrBeg>,  0.0, hStation},
    {"KVREND",       MD_Into<&Stn::dStnKvrEnd,  &Stn::lStnKvrEnd,  &Stn::NErrStnKvrEnd>,  0.0, hStation},
    {"KVRINC",       MD_Into<&Stn::dStnKvrInc,  &Stn::lStnKvrInc,  &Stn::NErrStnKvrInc>,  1.0, hStep},
    {"KVRUNITSCALE", MD_Into<&Stn::dStnKvrUnit, &Stn::lStnKvrUnit, &Stn::NErrStnKvrUnit>, 1.0, hScale},
    {"BEG",          MD_Into<&Stn::dStnBeg,     &Stn::lStnBeg,     &Stn::NErrStnBeg>,     0.0, hStation},
    {"INC",          MD_Into<&Stn::dStnInc,     &Stn::lStnInc,     &Stn::NErrStnInc>,     1.0, hStep},
    {"UNITSCALE",    MD_Into<&Stn::dStnUnit,    &Stn::lStnUnit,    &Stn::NErrStnUnit>,    1.0, hScale},
    {"LEFT",         MD_Into<&Stn::dStnLeft,    &Stn::lStnLeft,    &Stn::NErrStnLeft>,    0.0, hStation},
    {"RIGHT",        MD_Into<&Stn::dStnRight,   &Stn::lStnRight,   &Stn::NErrStnRight>,   0.0, hStation},
};
// clang-format on

}  // namespace

I4 Stn_MD_Read(const MdRecord& hRecord, StnGroup& hStn) {
  return MD_Read("Stn_MD_Read", hStnRow, hRecord, hStn);
}

}  // namespace quillan

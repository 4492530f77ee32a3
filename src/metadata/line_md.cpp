#include "metadata/line_md.h"

#include "metadata/enm_data.h"

namespace quillan {

namespace {

using Line = LineGroup;

constexpr MdLimits hBearing{-360, 360};
constexpr MdMore<Line> hAzimuth{.iParse = MdParse::Azimuth};

// clang-format off
constexpr MdRow<Line> hLineRow[] = {
    // keyword            value              priority         warnings             blank or words, limits
    {"NAME",      MD_Into<&Line::sName,      &Line::lName>},
    {"DIRECTION", MD_Into<&Line::sDirection, &Line::lDirection>},
    {"SPREAD",    MD_Into<&Line::sSpread,    &Line::lSpread>},
    {"NUMBER",    MD_Into<&Line::dNumber,    &Line::lNumber,  &Line::NErrNumber>,  0.0,  {-9.9E9, 9.9E9}},
    {"AZIMUTH",   MD_Into<&Line::fAzimuth,   &Line::lAzimuth, &Line::NErrAzimuth>, 90.0, hBearing, hAzimuth},
    {"TYPE",      MD_Into<&Line::iType,      &Line::lType,    &Line::NErrType>,    CLineType, "Line.Type"},
};
// clang-format on

}  // namespace

I4 Line_MD_Read(const MdRecord& hRecord, LineGroup& hLine) {
  return MD_Read("Line_MD_Read", hLineRow, hRecord, hLine);
}

}  // namespace quillan

#include "metadata/line_md.h"

#include "metadata/enm_data.h"

namespace quillan {

namespace {

using Line = LineGroup;

// clang-format off
constexpr MdRow<Line> hLineRow[] = {
    // keyword     value              priority           warnings            blank or words, limits
    {"NAME",      &Line::sName,      &Line::lName},
    {"DIRECTION", &Line::sDirection, &Line::lDirection},
    {"SPREAD",    &Line::sSpread,    &Line::lSpread},
    {"NUMBER",    &Line::dNumber,    &Line::lNumber,  &Line::NErrNumber,  0.0,  {-9.9E9, 9.9E9}},
    {"AZIMUTH",   &Line::fAzimuth,   &Line::lAzimuth, &Line::NErrAzimuth, 90.0, {-360, 360}, {.iParse = MdParse::Azimuth}},
    {"TYPE",      &Line::iType,      &Line::lType,    &Line::NErrType,    CLineType, "Line.Type"},
};
// clang-format on

}  // namespace

void Line_MD_Initialize(LineGroup& hLine, bool bResetError) {
  MD_Initialize(hLineRow, hLine, bResetError);
}

void Line_MD_Read(const MdRecord& hRecord, LineGroup& hLine, I4& IMERR) {
  MD_Read("Line_MD_Read", hLineRow, hRecord, hLine, IMERR);
}

}  // namespace quillan

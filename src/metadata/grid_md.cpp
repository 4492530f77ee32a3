#include "metadata/grid_md.h"

#include <algorithm>

namespace quillan {

namespace {

constexpr I4 MGridField = 14;  // parts of a record that are kept
constexpr I4 MGridWidth = 16;  // characters of a part
constexpr MdLimits hNumber{-9.9E9, 9.9E9};
constexpr MdLimits hBearing{-360, 360};
constexpr MdRule hNumberRule{.hLimits = hNumber};
constexpr MdRule hAzimuthRule{.dDefault = 90.0, .hLimits = hBearing, .iParse = MdParse::Azimuth};

/// The parts of a record between commas, semicolons and colons.
FieldList Grid_Fields(const MdRecord& hRecord) {
  FieldList hAll(MGridField, MGridWidth), hPart(MGridField, MGridWidth);
  for (I4 I = 1; I <= hRecord.NField() && !hAll.Is_Full(); ++I) {
    const std::string_view sField = hRecord.sField(I);
    if (sField.find(':') == std::string_view::npos) {
      hAll.Add(sField);
      continue;
    }
    Str_to_Fld(sField, ":", hPart);
    for (I4 K = 1; K <= hPart.NFld() && !hAll.Is_Full(); ++K) hAll.Add(hAll.Keep(std::string(hPart(K))));
  }
  return hAll;
}

/// A label after the NValue numbers of an item; it stays as it was where the record has none.
void Take_Label(const FieldList& hPart, I4 NValue, Text<16>& sLabel) {
  if (hPart.NFld() > NValue) sLabel = Str_Strip_Quotes(hPart(NValue + 1));
}

I4 Read_Pairs(const MdRecord& hRecord, std::string_view sName, Text<16>& sLabel, GridPairs& dPair, I4& lPair,
              I4& NWarn) {
  if (!MD_Passes(hRecord, lPair)) return 0;
  const FieldList hPart = Grid_Fields(hRecord);
  Take_Label(hPart, 4, sLabel);
  I4 iStatus = 0;
  for (I4 K = 1; K <= std::min(hPart.NFld(), 4); ++K) {
    const I4 I = (K - 1) % 2 + 1;
    const I4 J = (K - 1) / 2 + 1;
    const std::string sValue = MD_Label(sName, I, J);
    iStatus = MD_Status(iStatus, MD_Take_Value(hRecord, hPart(K), sValue, hNumberRule, dPair(I, J), NWarn));
  }
  return iStatus;
}

I4 Read_Ref1(const MdRecord& hRecord, GridGroup& h) {
  return Read_Pairs(hRecord, "Grid.Ref1", h.sRef1, h.dRef1, h.lRef1, h.NErrRef1);
}

I4 Read_Ref2(const MdRecord& hRecord, GridGroup& h) {
  return Read_Pairs(hRecord, "Grid.Ref2", h.sRef2, h.dRef2, h.lRef2, h.NErrRef2);
}

I4 Read_Calc(const MdRecord& hRecord, GridGroup& h) {
  return Read_Pairs(hRecord, "Grid.Calc", h.sCalc, h.dCalc, h.lCalc, h.NErrCalc);
}

I4 Read_XYOffset(const MdRecord& hRecord, GridGroup& h) {
  if (!MD_Passes(hRecord, h.lXYOffset)) return 0;
  const FieldList hPart = Grid_Fields(hRecord);
  Take_Label(hPart, 2, h.sXYOffset);
  I4 iStatus = 0;
  for (I4 I = 1; I <= std::min(hPart.NFld(), 2); ++I) {
    const std::string sValue = MD_Label("Grid.XYOffset", I);
    iStatus = MD_Status(iStatus, MD_Take_Value(hRecord, hPart(I), sValue, hNumberRule, h.dXYOffset(I), h.NErrXYOffset));
  }
  return iStatus;
}

I4 Read_XAzimuth(const MdRecord& hRecord, GridGroup& h) {
  if (!MD_Passes(hRecord, h.lXAzimuth)) return 0;
  const FieldList hPart = Grid_Fields(hRecord);
  return MD_Take_Value(hRecord, hPart(1), hRecord.sName, hAzimuthRule, h.fXAzimuth, h.NErrXAzimuth);
}

// clang-format off
constexpr MdRow<GridGroup> hGridRow[] = {
    {"REF1",     Read_Ref1},
    {"REF2",     Read_Ref2},
    {"CALC",     Read_Calc},
    {"XYOFFSET", Read_XYOffset},
    {"XAZIMUTH", Read_XAzimuth},
};
// clang-format on

}  // namespace

I4 Grid_MD_Read(const MdRecord& hRecord, GridGroup& hGrid) {
  return MD_Read("Grid_MD_Read", hGridRow, hRecord, hGrid);
}

}  // namespace quillan

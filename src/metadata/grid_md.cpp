#include "metadata/grid_md.h"

#include <algorithm>

namespace quillan {

namespace {

constexpr I4 MGridField = 14;  // parts of a record that are kept
constexpr MdRule hNumberRule = {
    .dDefault = 0.0, .hLimits = {-9.9E9, 9.9E9}
};
constexpr MdRule hAzimuthRule = {
    .dDefault = 90.0, .hLimits = {-360, 360},
         .iParse = MdParse::Azimuth
};

/// The parts of a record between commas, semicolons and colons.
struct GridFields {
  Array1<Text<16>, MGridField> sFld;
  I4 NFld = 0;

  explicit GridFields(const MdRecord& hRecord) {
    FieldList hPart(MGridField, 16);
    for (I4 I = 1; I <= hRecord.NField(); ++I) {
      const std::string_view sField = hRecord.sField(I);
      if (sField.find(':') == std::string_view::npos) {
        Add(sField);
        continue;
      }
      Str_to_Fld(sField, ":", hPart);
      for (I4 K = 1; K <= hPart.NFld(); ++K) Add(hPart(K));
    }
  }
  void Add(std::string_view sPart) {
    if (NFld < MGridField) sFld(++NFld) = sPart;
  }
};

/// A label behind the NValue numbers of an item; it stays as it was where the record has none.
void Take_Label(const GridFields& hPart, I4 NValue, Text<16>& sLabel) {
  if (hPart.NFld > NValue) sLabel = Str_Strip_Quotes(hPart.sFld(NValue + 1).trimmed());
}

void Read_Pairs(const MdRecord& hRecord, std::string_view sName, Text<16>& sLabel, GridPairs& dPair, I4& lPair,
                I4& NWarn, I4& IMERR) {
  if (!MD_Passes(hRecord, lPair)) return;
  const GridFields hPart(hRecord);
  Take_Label(hPart, 4, sLabel);
  for (I4 K = 1; K <= std::min(hPart.NFld, 4); ++K) {
    const I4 I = (K - 1) % 2 + 1;
    const I4 J = (K - 1) / 2 + 1;
    MD_Take_Value(hRecord, hPart.sFld(K).trimmed(), MD_Label(sName, I, J), hNumberRule, dPair(I, J), NWarn, IMERR);
  }
}

void Read_Ref1(const MdRecord& hRecord, GridGroup& h, I4& IMERR) {
  Read_Pairs(hRecord, "Grid.Ref1", h.sRef1, h.dRef1, h.lRef1, h.NErrRef1, IMERR);
}

void Read_Ref2(const MdRecord& hRecord, GridGroup& h, I4& IMERR) {
  Read_Pairs(hRecord, "Grid.Ref2", h.sRef2, h.dRef2, h.lRef2, h.NErrRef2, IMERR);
}

void Read_Calc(const MdRecord& hRecord, GridGroup& h, I4& IMERR) {
  Read_Pairs(hRecord, "Grid.Calc", h.sCalc, h.dCalc, h.lCalc, h.NErrCalc, IMERR);
}

void Read_XYOffset(const MdRecord& hRecord, GridGroup& hGrid, I4& IMERR) {
  if (!MD_Passes(hRecord, hGrid.lXYOffset)) return;
  const GridFields hPart(hRecord);
  Take_Label(hPart, 2, hGrid.sXYOffset);
  for (I4 I = 1; I <= std::min(hPart.NFld, 2); ++I) {
    MD_Take_Value(hRecord, hPart.sFld(I).trimmed(), MD_Label("Grid.XYOffset", I), hNumberRule, hGrid.dXYOffset(I),
                  hGrid.NErrXYOffset, IMERR);
  }
}

void Read_XAzimuth(const MdRecord& hRecord, GridGroup& hGrid, I4& IMERR) {
  if (!MD_Passes(hRecord, hGrid.lXAzimuth)) return;
  const GridFields hPart(hRecord);
  MD_Take_Value(hRecord, hPart.sFld(1).trimmed(), hRecord.sName, hAzimuthRule, hGrid.fXAzimuth, hGrid.NErrXAzimuth,
                IMERR);
}

// clang-format off
constexpr MdRow<GridGroup> hGridRow[] = {
    // keyword    procedure      warnings
    {"REF1",     Read_Ref1,     &GridGroup::NErrRef1},
    {"REF2",     Read_Ref2,     &GridGroup::NErrRef2},
    {"CALC",     Read_Calc,     &GridGroup::NErrCalc},
    {"XYOFFSET", Read_XYOffset, &GridGroup::NErrXYOffset},
    {"XAZIMUTH", Read_XAzimuth, &GridGroup::NErrXAzimuth},
};
// clang-format on

}  // namespace

void Grid_MD_Initialize(GridGroup& hGrid, bool bResetError) {
  MD_Initialize(hGridRow, hGrid, bResetError);
}

void Grid_MD_Read(const MdRecord& hRecord, GridGroup& hGrid, I4& IMERR) {
  MD_Read("Grid_MD_Read", hGridRow, hRecord, hGrid, IMERR);
}

}  // namespace quillan

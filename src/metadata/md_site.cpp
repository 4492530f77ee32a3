#include "metadata/md_site.h"

#include <algorithm>

namespace quillan {

namespace {

struct SensorWord {
  std::string_view CWord;
  I4 iSensor;
};

// The first word that the text holds decides: "Bfield" is a B sensor, and so is every other text with a B in it.
constexpr SensorWord CSensorWord[] = {
    {"DBDT",   iSensordBdt   },
    {"B",      iSensorB      },
    {"DIPOLE", iSensorDipole },
    {"ANT",    iSensorAntenna},
    {"TXREF",  iSensorTxRef  },
};

bool Holds(std::string_view sText, std::string_view sWord) {
  return sText.find(sWord) != std::string_view::npos;
}

}  // namespace

I4 MD_Vertex_Index(const MdRecord& hRecord, std::string_view sHead, std::string_view sIndex, I4 MVertex, I4& iVertex,
                   I4& NWarn) {
  const std::string sWarning = std::string(sHead) + ".WARNING: ";
  const I4 iStatus = Str_to_I4Index(hRecord.CKeyword, iVertex);
  if (iStatus != 0) {
    MD_Warn({sWarning + "unable to read " + std::string(sIndex) + " from ", std::string(hRecord.sName)}, NWarn);
    return iStatus;
  }
  if (iVertex >= 0 && iVertex <= MVertex) return 0;
  MD_Warn({sWarning + "out-of-range index value in ", std::string(hRecord.sName),
           "Index = " + MD_Number(iVertex) + " < 0 or > " + MD_Number(MVertex)},
          NWarn);
  return 1;
}

I4 MD_Take_Point(const MdRecord& hRecord, const MdRule& hRule, Array1<R8, 3>& dPoint, I4& lPoint, I4& NWarn) {
  if (!MD_Passes(hRecord, lPoint)) return 0;
  FieldList hPart(3);
  MD_Split_Channel(hRecord, 1, hPart);
  const std::string_view sName = hRule.sLabel.empty() ? hRecord.sName : hRule.sLabel;
  I4 iStatus = 0;
  for (I4 I = 1; I <= hPart.NFld(); ++I) {
    iStatus = MD_Status(iStatus, MD_Take_Value(hRecord, hPart(I), MD_Label(sName, I), hRule, dPoint(I), NWarn));
  }
  return iStatus;
}

I4 MD_Channels_of_Points(const MdRecord& hRecord) {
  const I4 NField = hRecord.NField();
  return std::min(Holds(hRecord.sField(1), ":") ? NField : (NField + 2) / 3, MXChn);
}

void MD_Split_Channel(const MdRecord& hRecord, I4 J, FieldList& hPart) {
  if (Holds(hRecord.sField(1), ":")) return Str_to_Fld(hRecord.sField(J), ":", hPart);
  hPart.Clear();
  for (I4 I = 3 * J - 2; I <= std::min(3 * J, hRecord.NField()); ++I) hPart.Add(hRecord.sField(I));
}

I4 MD_Take_Sensor(const MdRecord& hRecord, std::string_view sField, std::string_view sLabel, I4& iSensor, I4& iAntSN,
                  I4& lAntSN) {
  const std::string CSensor = Str_UpCase(sField);
  for (const SensorWord& hWord : CSensorWord) {
    if (!Holds(CSensor, hWord.CWord)) continue;
    iSensor = hWord.iSensor;
    return 0;
  }
  if (Trimmed(CSensor).find_first_not_of("0123456789-") != std::string_view::npos) {
    iSensor = iSensordBdt;  // no serial number either: the sensor of nearly all surveys
    return 0;
  }
  I4 iNumber = 0;
  const I4 iStatus = Fld_to_I4(hRecord.At(sLabel), sField, 0, iNumber);
  if (iStatus != 0) return iStatus;
  iSensor = iSensorAntenna;
  iAntSN = iNumber;
  lAntSN = hRecord.iPriority;
  return 0;
}

}  // namespace quillan

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

/// Whether the text has nothing but what a serial number has.
bool Is_Serial_Number(std::string_view sText) {
  return Trimmed(sText).find_first_not_of("0123456789-") == std::string_view::npos;
}

}  // namespace

bool MD_Vertex_Index(const MdRecord& hRecord, std::string_view sHead, std::string_view sIndex, I4 MVertex, I4& iVertex,
                     I4& IMERR) {
  Str_to_I4Index(hRecord.CKeyword, iVertex, IMERR);
  const std::string sWarning = std::string(sHead) + ".WARNING: ";
  if (IMERR != 0) {
    LogErr({sWarning + "unable to read " + std::string(sIndex) + " from ", std::string(hRecord.sName)});
    return false;
  }
  if (iVertex >= 0 && iVertex <= MVertex) return true;
  LogErr({sWarning + "out-of-range index value in ", std::string(hRecord.sName),
          "Index=" + MD_Number(iVertex) + " <0 or >" + MD_Number(MVertex)});
  IMERR = 1;
  return false;
}

void MD_Take_Point(const MdRecord& hRecord, const MdRule& hRule, Array1<R8, 3>& dPoint, I4& lPoint, I4& NWarn,
                   I4& IMERR) {
  FieldList hPart(3);
  MD_Split_Colon(hRecord, hPart);
  const MdRecord hParts{hRecord.iRecord, hRecord.sRecord,   hRecord.sName,   hRecord.CKeyword,
                        hPart,           hRecord.iPriority, hRecord.iLength, hRecord.sReader};
  const std::span<R8> dElement(dPoint.data(), dPoint.size());
  MD_Take_Fields(hParts,
                 {
                     dElement, {&lPoint, 1},
                      NWarn
  },
                 hRule, IMERR);
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

void MD_Take_Sensor(const MdRecord& hRecord, std::string_view sField, std::string_view sLabel, I4& iSensor, I4& iAntSN,
                    I4& lAntSN, I4& IMERR) {
  const std::string CSensor = Str_UpCase(sField);
  for (const SensorWord& hWord : CSensorWord) {
    if (!Holds(CSensor, hWord.CWord)) continue;
    iSensor = hWord.iSensor;
    return;
  }
  if (!Is_Serial_Number(CSensor)) {
    iSensor = iSensordBdt;  // the sensor of nearly all surveys
    return;
  }
  I4 iNumber = 0, IOERR = 0;
  Fld_to_I4(hRecord.At(sLabel), sField, 0, iNumber, IOERR);
  if (IOERR != 0) {
    IMERR = IOERR;
    return;
  }
  iSensor = iSensorAntenna;
  iAntSN = iNumber;
  lAntSN = hRecord.iPriority;
}

}  // namespace quillan

// md_site.h: what several groups read alike: vertices and points of a site, and sensors.
//
//   vertices   Tx.XYZ2, Rx.UTM1: the keyword holds the index of the vertex, the value its coordinates
//   points     x, y, z as fields, or x:y:z in one field; for several channels one such point after the other
//   sensors    a word or the serial number of an antenna
//
// Coordinate index: 1 east (x), 2 north (y), 3 elevation (z).
#pragma once

#include "base/array.h"
#include "base/types.h"
#include "metadata/enm_data.h"
#include "metadata/md_engine.h"

namespace quillan {

// Kinds of sensor.
inline constexpr I4 iSensorDipole = 1;
inline constexpr I4 iSensordBdt = 2;
inline constexpr I4 iSensorB = 3;
inline constexpr I4 iSensorAntenna = 4;  // an antenna known by its serial number
inline constexpr I4 iSensorTxRef = 5;    // reference of the transmitter current

/// Heading (of the x axis), pitch and roll of a site before they are read, in degrees: level, its x axis to the east.
inline constexpr Array1<R4, 3> fHPRLevelEast{
    {90.0f, 0.0f, 0.0f}
};

/// Local vertices before any is read: x and y missing, z on the ground.
template <I4 MVertex>
constexpr Array2<R8, 3, 0, MVertex> Unset_Local_Vertices() {
  Array2<R8, 3, 0, MVertex> dVertex{};
  dVertex.hColumn.fill({
      {dDummy, dDummy, 0.0}
  });
  return dVertex;
}

/// The index in a vertex keyword ("XYZ2": 2). sHead, sIndex: "Tx_MD_READ" and "index value", as reports name them.
/// Returns 0; -1 when the keyword has no index, 1 when it lies beyond 0..MVertex, with a report that NWarn counts.
[[nodiscard]] I4 MD_Vertex_Index(const MdRecord& hRecord, std::string_view sHead, std::string_view sIndex, I4 MVertex,
                                 I4& iVertex, I4& NWarn);

/// Reads one point, x:y:z or x, y, z, into the leading elements of an array of three. It gates by lPoint. Returns the
/// status of the record.
[[nodiscard]] I4 MD_Take_Point(const MdRecord& hRecord, const MdRule& hRule, Array1<R8, 3>& dPoint, I4& lPoint,
                               I4& NWarn);

/// How many channels a record of points has, at most MXChn, and the parts of the point of channel J: field J where
/// the first field has a colon, else fields 3J-2 to 3J.
I4 MD_Channels_of_Points(const MdRecord& hRecord);
void MD_Split_Channel(const MdRecord& hRecord, I4 J, FieldList& hPart);

/// Reads one vertex of those channels into dVertex(J)(I, iVertex). Labels: sLabel[I,J]. The caller gates. Returns the
/// status of the record.
template <class Vertices>
[[nodiscard]] I4 MD_Take_Channel_Points(const MdRecord& hRecord, std::string_view sLabel, const MdRule& hRule,
                                        I4 iVertex, Vertices& dVertex, I4& NWarn) {
  I4 iStatus = 0;
  FieldList hPart(3);
  for (I4 J = 1; J <= MD_Channels_of_Points(hRecord); ++J) {
    MD_Split_Channel(hRecord, J, hPart);
    for (I4 I = 1; I <= hPart.NFld(); ++I) {
      const std::string sValue = MD_Label(sLabel, I, J);
      iStatus = MD_Status(iStatus, MD_Take_Value(hRecord, hPart(I), sValue, hRule, dVertex(J)(I, iVertex), NWarn));
    }
  }
  return iStatus;
}

/// The kind of sensor that a text means. The serial number of an antenna is a kind as well, and goes to iAntSN with
/// the record's priority. Returns 0; not 0 when a number cannot be read or the text is blank; then nothing changes.
[[nodiscard]] I4 MD_Take_Sensor(const MdRecord& hRecord, std::string_view sField, std::string_view sLabel, I4& iSensor,
                                I4& iAntSN, I4& lAntSN);

}  // namespace quillan

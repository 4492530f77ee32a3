// What KVR and GPS do beyond their keywords.
#include "metadata/metadata_fixture.h"

namespace quillan {
namespace {

class InstrumentGroups : public Metadata {};

TEST_F(InstrumentGroups, TheLastRecordOfCardsTellsTheirNumber) {
  Expect({
      {"$ ADCARDSN= 0A01, 0A02, 0A03", MdKvr.NCard, "3"},
      {"$ Kvr.ADCardVer= 2, 2", MdKvr.NCard, "2"},
      {"", MdKvr.sADCardSN(3), "0A03"}, // fewer fields leave the other cards as they were
      {"$ Kvr.Blk= 8", MdKvr.NCard, "2"}, // blocks are no cards
      {"$ Kvr.CardType= 1,2,3,4,5,6,7,8,9,10,11,12,13,14,15,16,17", MdKvr.NCard, "16"},
      {"$ Kvr.Number= 5, 6, 7", MdKvr.iBox(2), "6"},
      {"$ Kvr.Number= 8, *, 9", MdKvr.iBox(2), "0", "", -1},
      {"", MdKvr.iBox(3), "9"},
  });
}

TEST_F(InstrumentGroups, ATimeIsKeptAsTextAndAsHours) {
  Expect({
      {"$ Kvr.Time= 13:30:00", MdKvr.dHour, "13.5"},
      {"$ Kvr.Time= 12:00:00", MdKvr.dHour, "13.5", "", 0, iPriorityMde},
      {"", MdKvr.sTime, "13:30:00"},
      {"$ Kvr.Time= noon", MdKvr.dHour, "0", "ERROR reading hh:mm:ss Gps.Time value from \"noon\"", 1},
  });
}

TEST_F(InstrumentGroups, APositionStandsInOneFieldOrInThree) {
  Expect({
      {"$ Gps.UTMXYZ= 3501:62400:120", MdGps.dUTMXYZ, "3501 62400 120"},
      {"$ Gps.UTMXYZ= 1, 2", MdGps.dUTMXYZ, "1 2 120"},
      {"$ Gps.UTMXYZ= 1.0E10, 5, 6", MdGps.dUTMXYZ, "0 5 6", "GPS_MD_Read.WARNING: at record 3"},
      {"$ Gps.UTMXYZ= *, 7, 8", MdGps.dUTMXYZ, "0 7 8", "", -1}, // a good field does not hide the missing one
  });
}

TEST_F(InstrumentGroups, ATimeOffsetIsCompletedToSeconds) {
  Expect({
      {"$ Gps.LocalTimeOffset= -7", MdGps.dTimeOffset, "-7"},
      {"$ Gps.LocalTimeOffset= 9:30", MdGps.dTimeOffset, "9.5"},
      {"$ Gps.LocalTimeOffset= 5:30:36", MdGps.dTimeOffset, "5.51"},
 // No place is that far from Greenwich by our limits.
      {"$ GPS.LOCALTIMEOFFSET= 13", MdGps.dTimeOffset, "0",
       "GPS.LOCALTIMEOFFSET = 1.3000E+01 < -1.2000E+01 or > 1.2000E+01 hours"},
  });
}

}  // namespace
}  // namespace quillan

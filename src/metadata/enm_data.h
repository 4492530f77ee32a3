// enm_data.h: the words that metadata values are chosen from, and the size limits.
//
// Input is matched against C..., in upper case (Str_to_iEnumeration); s... has the spelling that is shown and written,
// for values that are. The code of a value is its place in the table, from 1, and every i... field of the metadata
// holds such a code: sChnCmp(hChn.iCmp(I)) is the name of a component. The order of a table is part of the file
// formats, and it decides which word a misspelled value is taken for.
#pragma once

#include <string_view>

#include "base/array.h"
#include "base/types.h"

namespace quillan {

inline constexpr I4 MXChn = 16;   // most channels in a CH record
inline constexpr I4 MTxXYZ = 32;  // highest transmitter vertex; vertices count from 0
inline constexpr I4 MRxXYZ = 4;   // highest receiver vertex; vertices count from 0

/// A table of words as long as its list.
template <class... Word>
constexpr auto Words(const Word&... sWord) {
  return Array1<std::string_view, static_cast<I4>(sizeof...(Word))>{{std::string_view(sWord)...}};
}

// The instrument.
inline constexpr auto CKvrType = Words("KVRA", "KVRB", "KVRC", "KVRD", "TARN", "OTHER");
inline constexpr auto sAcqMethod = Words("TimeSeries", "Stack", "Decay", "Transient", "Frequency");
inline constexpr auto CAcqMethod = Words("TIMESERIES", "STACK", "DECAY", "TRANSIENT", "FREQUENCY");
inline constexpr auto CKvrSigSrc = Words("FIELD", "ISYS", "ESYS");
inline constexpr auto CGainMode = Words("NOISY", "QUIET", "STANDARD", "HIGHGAIN", "UNKNOWN");

// The survey, its lines and its arrays.
inline constexpr auto sSurveyType = Words("LOTEM", "TEM", "CSAMT", "NSAMT", "TDIP", "CR", "RPIP");
inline constexpr auto CSurveyType = sSurveyType;
inline constexpr I4 iSurveyLOTEM = 1;  // the codes of CSurveyType that rules name
inline constexpr I4 iSurveyTEM = 2;
inline constexpr I4 iSurveyCSAMT = 3;
inline constexpr I4 iSurveyNSAMT = 4;
inline constexpr auto CLineType = Words("STRAIGHT", "MEANDER", "POINTS");
inline constexpr auto sTemArray = Words("FXL", "MVL", "INL", "COL", "LOT", "CNT");
inline constexpr auto CTemArray = sTemArray;
inline constexpr auto CCsamtArray = Words("SCALAR", "VECTOR", "TENSOR");
inline constexpr auto CIPArray = Words("D-D", "P-D", "P-P", "GRD", "SCH", "D-H", "LAB", "GEN");

// Components and axes. The blank component at the end of its table takes every word that is no component.
inline constexpr auto sChnCmp = Words("Ex", "Ey", "Ez", "Hx", "Hy", "Hz", "Ref", "Off", "");
inline constexpr auto CChnCmp = Words("EX", "EY", "EZ", "HX", "HY", "HZ", "REF", "OFF", "");
inline constexpr auto sZpositive = Words("up", "down");
inline constexpr auto sXYZ = Words("x", "y", "z");

// What the number columns of channels count.
inline constexpr auto CChNumberType = Words("STN NUMBER", "STN # OFFSET", "ANTENNA #", "CHN INDEX #");

// Units. The factor f... turns a length in the unit into metres.
inline constexpr auto sLengthUnit = Words("m", "ft");
inline constexpr auto CLengthUnit = Words("M", "F");
inline constexpr Array1<R4, 2> fLengthUnit{
    {1.0f, 0.3048f}
};
inline constexpr I4 iUnitMeters = 1;  // codes of CLengthUnit
inline constexpr I4 iUnitFeet = 2;

inline constexpr auto sTimeUnit = Words("usec", "msec", "sec");
inline constexpr auto CTimeUnit = Words("USEC", "MSEC", "SEC");

inline constexpr auto CVUnit = Words("NV/A", "UV/A", "MV/A", "V/A", "NV", "UV", "MV", "V");

// The third entry of CEUnit ends in a small letter, so no input equals it: "mV/Am" falls to the entry that it holds,
// V/Am, and files written for this reader count on that.
inline constexpr auto sEUnit = Words("nV/Am", "uV/Am", "mV/Am", "V/Am", "nV/m", "uV/m", "mV/m", "V/m");
inline constexpr auto CEUnit = Words("NV/AM", "UV/AM", "MV/Am", "V/AM", "NV/M", "UV/M", "MV/M", "V/M");

inline constexpr auto sBUnit = Words("pT/A", "nT/A", "T/A", "pT", "nT", "T");
inline constexpr auto CBunit = Words("PT/A", "NT/A", "T/A", "PT", "NT", "T");

inline constexpr auto CPhaseUnit = Words("MRAD", "DEG");
inline constexpr auto CPhaseSign = Words("EM", "IP");

inline constexpr auto sdBdtUnit = Words("uV/A", "nV/Am2");
inline constexpr auto CdBdTUnit = Words("UV/A", "NV/AM2");

// Four characters on purpose: "ohm-m" and "ohm-ft" both hold them.
inline constexpr auto CResUnit = Words("OHM-");
inline constexpr auto CIPUnit = Words("MRAD", "MSEC", "PFE");

}  // namespace quillan

// Runs every reader of a field on any bytes. A reader gives a value only when its status is 0, and the default
// otherwise; what it gives is finite; what it reads it reads again from its own text.
#include <cmath>
#include <cstdint>
#include <functional>
#include <string_view>
#include <type_traits>

#include "foundations/date_time.h"
#include "foundations/log_file.h"
#include "foundations/str_value.h"
#include "foundations/str_write.h"
#include "fuzz/fuzz_file.h"

using namespace quillan;

namespace {

template <class Number>
Number Default() {
  return static_cast<Number>(77);
}

template <class Number>
Number Check(std::type_identity_t<std::function<void(std::string_view, Number, Number&, I4&)>> Read,
             std::string_view sField) {
  Number x{};
  I4 IOERR = 12345;
  Read(sField, Default<Number>(), x, IOERR);
  Require(IOERR >= -1 && IOERR <= 1);
  Require(IOERR == 0 || x == Default<Number>());
  Require(std::isfinite(static_cast<R8>(x)));
  return x;
}

template <class Number>
using ReportingReader = void (*)(const FieldContext&, std::string_view, Number, Number&, I4&);

template <class Number>
void Check_Reporting(std::type_identity_t<ReportingReader<Number>> Read, std::string_view sField) {
  Check<Number>(
      [&](std::string_view sText, Number xDefault, Number& x, I4& IOERR) {
        Read(FieldContext{1, sField, "Label"}, sText, xDefault, x, IOERR);
      },
      sField);
}

template <class Number>
void Check_Free_Read(std::string_view sField) {
  Number x = Default<Number>();
  if (!Free_Read(sField, x)) Require(x == Default<Number>());
}

void Check_Quiet(std::string_view sField) {
  Check<I8>(Str_to_I8, sField);
  Check<L4>([](std::string_view sText, L4, L4& b, I4& IOERR) { Str_to_L4(sText, true, b, IOERR); }, sField);
  Check<R4>(Str_to_R4, sField);
  Check<R8>([](std::string_view sText, R8 d0, R8& d, I4& IOERR) { Str_to_R8(sText, d0, d, IOERR); }, sField);
  Check<R4>(Str_to_R4Line, sField);
  Check<R8>(Str_to_R8Time, sField);
  Check<I4>(Str_to_I4Version, sField);
  Check<I4>(Str_to_JulianDay, sField);
  Check<I4>(JDay_from_sMMDDYYYY, sField);
  Check<R8>(dHours_from_sHHMMSS, sField);
  const R4 fAzimuth = Check<R4>(Str_to_R4Azimuth, sField);
  Str_Write_Brg(fAzimuth);

  const I4 iValue = Check<I4>(Str_to_I4, sField);
  const Text<16> sWritten = Str_Write_I4(iValue);
  Require(sWritten == "*" || Check<I4>(Str_to_I4, sWritten.trimmed()) == iValue);

  I4 I4Index = 0;
  I4 IOERR = 12345;
  Str_to_I4Index(sField, I4Index, IOERR);
  Require(I4Index >= 0 && (IOERR == 0 || I4Index == 1));
  R8 dLine = 0.0;
  Str_to_R8Line(sField, Default<R8>(), dLine, IOERR);  // a letter is used although the status is positive
  Require(std::isfinite(dLine));
}

void Check_Reports(std::string_view sField) {
  Check_Reporting<I4>(Fld_to_I4, sField);
  Check_Reporting<R4>(Fld_to_R4, sField);
  Check_Reporting<R4>(Fld_to_R4Pitch, sField);
  Check_Reporting<R8>(Fld_NMEA_to_R8Time, sField);
  Check_Reporting<R8>(Fld_NMEA_to_R8Deg, sField);
  Check_Reporting<R4>([](const FieldContext& hAt, std::string_view sText, R4 fDefault, R4& f,
                         I4& IOERR) { Fld_to_R4Meters(hAt, sText, 1, fDefault, f, IOERR); },
                      sField);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pData, std::size_t NData) {
  Begin_Fuzzing();
  NErr = MErr;  // the reports are made, but none is written to the disk
  bFldReported = true;
  Date_Time_Initialize();
  const std::string_view sField(reinterpret_cast<const char*>(pData), NData);
  Check_Free_Read<I4>(sField);
  Check_Free_Read<I8>(sField);
  Check_Free_Read<R4>(sField);
  Check_Free_Read<R8>(sField);
  Check_Quiet(sField);
  Check_Reports(sField);
  return 0;
}

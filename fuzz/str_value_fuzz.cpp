// Runs every reader of a field on any bytes. A reader gives a value only when its status is 0, and the default
// otherwise; what it gives is finite; what it reads it reads again from its own text.
#include <cmath>
#include <cstdint>
#include <functional>
#include <string_view>
#include <type_traits>

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
using Reader = std::type_identity_t<std::function<I4(std::string_view, Number, Number&)>>;

template <class Number>
Number Check(const Reader<Number>& Read, std::string_view sField) {
  Number x{};
  const I4 IOERR = Read(sField, Default<Number>(), x);
  Require(IOERR >= -1 && IOERR <= 1);
  Require(IOERR == 0 || x == Default<Number>());
  Require(std::isfinite(static_cast<R8>(x)));
  return x;
}

template <class Number>
void Check_Free_Read(std::string_view sField) {
  Number x = Default<Number>();
  if (!Free_Read(sField, x)) Require(x == Default<Number>());
}

void Check_Quiet(std::string_view sField) {
  Check<L4>(Str_to_L4, sField);
  Check<R4>(Str_to_R4, sField);
  Check<R8>([](std::string_view sText, R8 d0, R8& d) { return Str_to_R8(sText, d0, d); }, sField);
  Check<R8>(Str_to_R8Time, sField);
  Check<I4>(Str_to_I4Version, sField);
  const R4 fAzimuth = Check<R4>(Str_to_R4Azimuth, sField);
  Str_Write_Brg(fAzimuth);

  const I4 iValue = Check<I4>(Str_to_I4, sField);
  const Text<16> sWritten = Str_Write_I4(iValue);
  Require(sWritten == "*" || Check<I4>(Str_to_I4, sWritten.trimmed()) == iValue);

  I4 I4Index = 0;
  const I4 IOERR = Str_to_I4Index(sField, I4Index);
  Require(I4Index >= 0 && (IOERR == 0 || I4Index == 1));
}

void Check_Reports(std::string_view sField) {
  const FieldContext hAt{1, sField, "Label"};
  Check<I4>([&](std::string_view sText, I4 i0, I4& i) { return Fld_to_I4(hAt, sText, i0, i); }, sField);
  Check<R4>([&](std::string_view sText, R4 f0, R4& f) { return Fld_to_R4(hAt, sText, f0, f); }, sField);
  Check<R4>([&](std::string_view sText, R4 f0, R4& f) { return Fld_to_R4Meters(hAt, sText, 1, f0, f); }, sField);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pData, std::size_t NData) {
  Begin_Fuzzing();
  NErr = MErr;  // the reports are made, but none is written to the disk
  bFldReported = true;
  const std::string_view sField(reinterpret_cast<const char*>(pData), NData);
  Check_Free_Read<I4>(sField);
  Check_Free_Read<I8>(sField);
  Check_Free_Read<R4>(sField);
  Check_Free_Read<R8>(sField);
  Check_Quiet(sField);
  Check_Reports(sField);
  return 0;
}

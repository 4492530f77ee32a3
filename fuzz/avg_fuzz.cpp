// avg_fuzz.cpp: the reader of averaged data files, with all that it calls, on any bytes.
#include "fuzz/avg_store.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* hData, std::size_t NData) {
  using namespace quillan;
  Begin_Fuzzing();
  Check_Store(Read_First(Fuzz_File(hData, NData)));
  return 0;
}

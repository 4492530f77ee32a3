// read_bench.cpp: reading the full store, and a file of which most rows have no place in it.
#include <charconv>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

#include "benches.h"
#include "files/avg_reader.h"

namespace quillan {
namespace {

bool Begins_Row(char c) {
  return c == ' ' || (c >= '0' && c <= '9');
}

/// Sums the fields of a row, which blanks and commas separate.
R4 Sum_of_Row(const char* p, const char* pEnd) {
  R4 fSum = 0.0f;
  while (p < pEnd) {
    if (*p == ' ' || *p == ',') {
      ++p;
      continue;
    }
    R4 fValue = 0.0f;
    const char* const pField = p;
    p = std::from_chars(p, pEnd, fValue).ptr;
    if (p == pField) ++p;  // no number
    fSum += fValue;
  }
  return fSum;
}

R4 Sum_of_File(std::string_view sRest) {
  R4 fSum = 0.0f;
  while (!sRest.empty()) {
    const std::size_t NLine = sRest.find('\n');
    if (NLine > 1 && Begins_Row(sRest[0])) fSum += Sum_of_Row(sRest.data(), sRest.data() + NLine);
    sRest.remove_prefix(NLine + 1);
  }
  return fSum;
}

/// The first transient of the full store, its last row over and over: rows without a place in the store.
std::string Long_Transient() {
  constexpr std::size_t NBytes = 100000000;  // a tenth of the largest files: every further row costs the same
  const std::string_view sAll = hBench.sBytes;
  const std::size_t KLast = sAll.find("\n64,") + 1;
  const std::string_view sLast = sAll.substr(KLast, sAll.find('\n', KLast) + 1 - KLast);
  std::string sLong(sAll.substr(0, KLast));
  sLong.reserve(NBytes + sLast.size());
  while (sLong.size() < NBytes) sLong += sLast;
  return sLong;
}

}  // namespace

/// What any reader has to do: find the ends of the lines, turn each field of a row into a number.
void Floor_Read(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(Sum_of_File(hBench.sBytes));
}

void Floor_Dropped(benchmark::State& state) {
  const std::string sLong = Long_Transient();
  for (auto _ : state) benchmark::DoNotOptimize(Sum_of_File(sLong));
}

/// A row beyond the last window is read like any other: its stations and its time may begin a transient.
void Bench_Dropped(benchmark::State& state) {
  const std::string sFile = hBench.sOut + ".long.avg";
  std::ofstream(sFile, std::ios::binary) << Long_Transient();
  I4 iError = 0;
  for (auto _ : state) iError = AVG_Read(sFile);
  if (iError != 0 || NTrn != 1 || hTrn(1).NTW != MTW) state.SkipWithError("AVG_Read has not read one transient");
  std::filesystem::remove(sFile);
}

void Bench_Read(benchmark::State& state) {
  I4 iError = 0;
  for (auto _ : state) iError = AVG_Read(hBench.sFile);
  if (iError != 0 || NTrn != MTrn) state.SkipWithError("AVG_Read has not read the whole file");
}

}  // namespace quillan

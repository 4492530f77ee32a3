// read_bench.cpp: reading the full store.
#include <charconv>
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

}  // namespace

/// What any reader has to do: find the ends of the lines, turn each field of a row into a number.
void Floor_Read(benchmark::State& state) {
  for (auto _ : state) {
    R4 fSum = 0.0f;
    std::string_view sRest = hBench.sBytes;
    while (!sRest.empty()) {
      const std::size_t NLine = sRest.find('\n');
      if (NLine > 1 && Begins_Row(sRest[0])) fSum += Sum_of_Row(sRest.data(), sRest.data() + NLine);
      sRest.remove_prefix(NLine + 1);
    }
    benchmark::DoNotOptimize(fSum);
  }
}

void Bench_Read(benchmark::State& state) {
  I4 iError = 0;
  for (auto _ : state) iError = AVG_Read(hBench.sFile);
  if (iError != 0 || NTrn != MTrn) state.SkipWithError("AVG_Read has not read the whole file");
}

}  // namespace quillan

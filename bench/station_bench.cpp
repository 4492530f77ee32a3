// station_bench.cpp: reading a station file and giving the stations of the full store their positions.
//
// 100 lines of 500 stations with every column that positions and attitudes are taken from, scattered by half a metre,
// in no order: the rows must be sorted, and every line wants a fit with weights.
#include <algorithm>
#include <charconv>
#include <cstdio>
#include <fstream>
#include <random>
#include <string_view>
#include <utility>
#include <vector>

#include "benches.h"
#include "foundations/user.h"
#include "stations/stn_file.h"
#include "stations/stn_lookup.h"

namespace quillan {
namespace {

constexpr I4 NLine = 100;
constexpr I4 NStnOfLine = 500;
constexpr I4 NColumn = 8;

std::string Row(I4 iLine, I4 iStn, R8 dScatterX, R8 dScatterY) {
  char sRow[128];
  const int N = std::snprintf(sRow, sizeof sRow, "%d %d %.2f %.2f %.2f %.1f %.1f %.1f\n", 1000 + 100 * iLine, 25 * iStn,
                              482310.125 + 25.0 * iStn + dScatterX, 5176420.5 + 100.0 * iLine + dScatterY,
                              312.4 + 0.01 * iStn, 90.0 + 0.1 * (iStn % 7), 0.1 * (iStn % 5), -0.1 * (iStn % 3));
  return {sRow, static_cast<std::size_t>(N)};
}

/// The file, made once.
const std::string& Station_Bytes() {
  static const std::string sBytes = [] {
    std::mt19937 hRandom(1);
    std::normal_distribution<R8> hScatter(0.0, 0.5);
    std::vector<std::string> sRow;
    for (I4 iLine = 0; iLine < NLine; ++iLine) {
      for (I4 iStn = 0; iStn < NStnOfLine; ++iStn)
        sRow.push_back(Row(iLine, iStn, hScatter(hRandom), hScatter(hRandom)));
    }
    std::shuffle(sRow.begin(), sRow.end(), hRandom);
    std::string sText = "Line Station East North Elev Heading Pitch Roll\n";
    for (const std::string& s : sRow) sText += s;
    return sText;
  }();
  return sBytes;
}

}  // namespace

/// What any reader has to do: find the ends of the lines, turn each field into a number, sort by line and station.
void Floor_Stations(benchmark::State& state) {
  const std::string& sBytes = Station_Bytes();
  for (auto _ : state) {
    std::vector<std::pair<std::pair<R8, R8>, I4>> hKey;
    R8 dSum = 0.0;
    std::string_view sRest = std::string_view(sBytes).substr(sBytes.find('\n') + 1);
    while (!sRest.empty()) {
      const std::size_t NLength = sRest.find('\n');
      const char *p = sRest.data(), *const pEnd = p + NLength;
      R8 dValue[NColumn] = {};
      for (R8& d : dValue) {
        while (p < pEnd && *p == ' ') ++p;
        p = std::from_chars(p, pEnd, d).ptr;
        dSum += d;
      }
      hKey.push_back({
          {dValue[0], dValue[1]},
          static_cast<I4>(hKey.size())
      });
      sRest.remove_prefix(NLength + 1);
    }
    std::sort(hKey.begin(), hKey.end());
    benchmark::DoNotOptimize(dSum);
    benchmark::DoNotOptimize(hKey.data());
  }
}

void Bench_Stations(benchmark::State& state) {
  const std::string sPath = hBench.sFile + ".stn";
  std::ofstream(sPath, std::ios::binary) << Station_Bytes();
  Put_Store(hBench.hMade);
  for (I4 j = 1; j <= NTrn; ++j) hTrn(j).dRxStn = 6.1 * ((j - 1) % 2048);
  const User hAtWindow = std::exchange(hUser, No_User());  // the lines of the log are not drawn
  I4 iError = 0, NPlaced = 0;
  for (auto _ : state) {
    std::string sStnFile = sPath;
    iError = Stn_Read(sStnFile, 1000.0, {0.0f, 0.0f, 0.0f}, true);
    NPlaced = Stn_Positions(5050.0);
  }
  hUser = hAtWindow;
  if (iError != 0 || hStn.NStnLine != NLine || NPlaced != MTrn) state.SkipWithError("stations were not read or placed");
}

}  // namespace quillan

// benches.h: the benchmarks, and what they work on.
#pragma once

#include <benchmark/benchmark.h>

#include <string>

#include "full_store.h"

namespace quillan {

/// What every benchmark finds: the full store in three forms. bench_main.cpp fills it.
struct BenchData {
  std::string sFile;      // as a file that AVG_Write made, on a memory file system where there is one
  std::string sBytes;     // the bytes of that file
  KeptStore hMade;        // as it was made
  KeptStore hRead;        // as AVG_Read gives it
  KeptStore hSection;     // one section
  std::string sOut;       // where to write, beside sFile
  std::string sDiskFile;  // where to write on a disk
};
inline BenchData hBench;

using Bench = void(benchmark::State& state);

// read_bench.cpp
Bench Floor_Read, Bench_Read, Floor_Dropped, Bench_Dropped;
// open_bench.cpp
Bench Bench_Initialize, Bench_MDE, Bench_Widths, Bench_Complete, Bench_TWCfg, Bench_Sort, Bench_B, Bench_Ranges,
    Bench_Open, Bench_Open_One;
// station_bench.cpp
Bench Floor_Stations, Bench_Stations;
// write_bench.cpp
Bench Floor_Write, Bench_Write, Bench_Write_Z, Bench_Write_Disk, Bench_Sync, Bench_Write_AMR, Bench_Write_USF,
    Bench_Write_Sweeps;
// average_bench.cpp
Bench Bench_Average_Save, Bench_Average;
// merge_bench.cpp
Bench Bench_Merge, Bench_Merge_None;
// review_bench.cpp
Bench Floor_Section_Small, Bench_Section_Small, Floor_Section_Large, Bench_Section_Large, Floor_Nearest, Bench_Nearest,
    Bench_Read_Out, Floor_Curve_Small, Bench_Curve_Small, Floor_Curve_Large, Bench_Curve_Large;
// history_bench.cpp
Bench Floor_Click, Bench_Click, Bench_Many_Clicks, Floor_Auto_Skip, Bench_Auto_Skip, Bench_Rule, Bench_Keep_Rule,
    Bench_Undo, Bench_Click_Journal, Bench_Auto_Skip_Journal, Bench_Begin_Journal, Bench_Replay_Journal;

}  // namespace quillan

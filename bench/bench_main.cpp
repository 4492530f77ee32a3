// bench_main.cpp: runs the benchmarks and ends with their medians as multiples of their floors.
//
//   quillan_bench [--benchmark_filter=REGEX] [--benchmark_repetitions=N]
//
// Repetitions of all benchmarks are mixed at random, so that a busy minute of the machine falls on floors and others
// alike.
#include <stdlib.h>  // setenv

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <map>
#include <string>
#include <vector>

#include "benches.h"
#include "files/avg_reader.h"
#include "files/avg_writer.h"
#include "files/mde_file.h"
#include "foundations/log_file.h"
#include "model/derived.h"
#include "shell/user_at_window.h"
#include "toolkit/script/script.h"
#include "toolkit/window/menus.h"
#include "toolkit/window/window.h"

namespace {

using namespace quillan;

constexpr I4 MOpen = 1000;  // times that the script presses Continue

/// Ahead of the user's own options, which overrule them.
constexpr const char* sOption[] = {"--benchmark_enable_random_interleaving=true", "--benchmark_repetitions=15"};

struct BenchRow {
  const char* sName;
  Bench* Run;
  const char* sFloor;
  double fTarget;  // multiple of the floor that is wanted at most; 0 none
  double fLimit;   // msec that are wanted at most; 0 none
};

constexpr BenchRow hBenchRow[] = {
    {"read/floor",                         Floor_Read,              "read/floor",              0.0, 0.0  },
    {"read/AVG_Read",                      Bench_Read,              "read/floor",              1.6, 0.0  },
    {"read/dropped_floor",                 Floor_Dropped,           "read/dropped_floor",      0.0, 0.0  },
    {"read/dropped_rows",                  Bench_Dropped,           "read/dropped_floor",      1.2, 0.0  },
    {"open/TEM_Read_Data",                 Bench_Open,              "read/floor",              2.5, 0.0  },
    {"open/one_transient",                 Bench_Open_One,          "read/floor",              0.0, 0.0  },
    {"open/initialize",                    Bench_Initialize,        "read/floor",              0.0, 0.0  },
    {"open/MDE_Read",                      Bench_MDE,               "read/floor",              0.0, 0.0  },
    {"open/Get_TWWidth",                   Bench_Widths,            "read/floor",              0.0, 0.0  },
    {"open/TEM_Complete_Transients",       Bench_Complete,          "read/floor",              0.0, 0.0  },
    {"open/TMD_Trns_Set_iTWCfg",           Bench_TWCfg,             "read/floor",              0.0, 0.0  },
    {"open/Sort_TEM_Data",                 Bench_Sort,              "read/floor",              0.0, 0.0  },
    {"open/dBdt_2_B",                      Bench_B,                 "read/floor",              0.0, 0.0  },
    {"open/TEM_Trn_Data_Range",            Bench_Ranges,            "read/floor",              0.0, 0.0  },
    {"stations/floor",                     Floor_Stations,          "stations/floor",          0.0, 0.0  },
    {"stations/Stn_Read_Stn_Positions",    Bench_Stations,          "stations/floor",          2.0, 0.0  },
    {"write/floor",                        Floor_Write,             "write/floor",             0.0, 0.0  },
    {"write/AVG_Write",                    Bench_Write,             "write/floor",             1.2, 0.0  },
    {"write/Z_Write",                      Bench_Write_Z,           "write/AVG_Write",         2.0, 0.0  },
    {"write/AVG_Write_disk",               Bench_Write_Disk,        "write/floor",             0.0, 0.0  },
    {"write/SafeFile_disk",                Bench_Sync,              "write/floor",             0.0, 0.0  },
    {"average/AVG_Write",                  Bench_Average_Save,      "average/AVG_Write",       0.0, 0.0  },
    {"average/TMD_Average",                Bench_Average,           "average/AVG_Write",       1.0, 0.0  },
    {"merge/TMD_Merge",                    Bench_Merge,             "",                        0.0, 200.0},
    {"merge/no_pairs",                     Bench_Merge_None,        "",                        0.0, 200.0},
    {"write/AMR_Write",                    Bench_Write_AMR,         "write/AVG_Write",         2.0, 0.0  },
    {"write/USF_Write",                    Bench_Write_USF,         "write/AVG_Write",         2.0, 0.0  },
    {"write/USF_Write_sweeps",             Bench_Write_Sweeps,      "write/AVG_Write",         2.0, 0.0  },
    {"section_1200x900/floor",             Floor_Section_Small,     "section_1200x900/floor",  0.0, 0.0  },
    {"section_1200x900/QCS_Section_Plot",  Bench_Section_Small,     "section_1200x900/floor",  1.4, 60.0 },
    {"section_3840x2160/floor",            Floor_Section_Large,     "section_3840x2160/floor", 0.0, 0.0  },
    {"section_3840x2160/QCS_Section_Plot", Bench_Section_Large,     "section_3840x2160/floor", 1.4, 250.0},
    {"nearest/floor",                      Floor_Nearest,           "nearest/floor",           0.0, 0.0  },
    {"nearest/QCS_Section_Point",          Bench_Nearest,           "nearest/floor",           0.0, 8.0  },
    {"curve_1200x900/floor",               Floor_Curve_Small,       "curve_1200x900/floor",    0.0, 0.0  },
    {"curve_1200x900/QCC_Plot_Trns",       Bench_Curve_Small,       "curve_1200x900/floor",    0.0, 5.0  },
    {"curve_3840x2160/floor",              Floor_Curve_Large,       "curve_3840x2160/floor",   0.0, 0.0  },
    {"curve_3840x2160/QCC_Plot_Trns",      Bench_Curve_Large,       "curve_3840x2160/floor",   0.0, 10.0 },
    {"flag_click/floor",                   Floor_Click,             "flag_click/floor",        0.0, 0.0  },
    {"flag_click/History_Keep",            Bench_Click,             "flag_click/floor",        0.0, 10.0 },
    {"flag_click/1000",                    Bench_Many_Clicks,       "flag_click/floor",        0.0, 0.0  },
    {"auto_skip/floor",                    Floor_Auto_Skip,         "auto_skip/floor",         0.0, 0.0  },
    {"auto_skip/with_history",             Bench_Auto_Skip,         "auto_skip/floor",         1.3, 0.0  },
    {"auto_skip/AutoSkip_Apply",           Bench_Rule,              "auto_skip/floor",         0.0, 0.0  },
    {"auto_skip/History_Keep",             Bench_Keep_Rule,         "auto_skip/floor",         0.0, 0.0  },
    {"auto_skip/History_Undo",             Bench_Undo,              "auto_skip/floor",         0.0, 0.0  },
    {"flag_click/with_journal",            Bench_Click_Journal,     "flag_click/floor",        0.0, 10.0 },
    {"auto_skip/with_journal",             Bench_Auto_Skip_Journal, "auto_skip/floor",         1.3, 0.0  },
    {"journal/Recovery_Begin",             Bench_Begin_Journal,     "flag_click/floor",        0.0, 0.0  },
    {"journal/Journal_Replay",             Bench_Replay_Journal,    "flag_click/floor",        0.0, 0.0  },
    {"nearest/read_out",                   Bench_Read_Out,          "",                        0.0, 8.0  },
};

/// The usual report, then the table of multiples.
class FloorReporter : public benchmark::ConsoleReporter {
 public:
  FloorReporter() : ConsoleReporter(OO_None) {}

  void ReportRuns(const std::vector<Run>& hRun) override {
    ConsoleReporter::ReportRuns(hRun);
    for (const Run& h : hRun) {
      const bool bMedian = h.aggregate_name == "median" && !h.error_occurred;
      if (bMedian) hMedian[h.run_name.function_name] = {h.GetAdjustedCPUTime(), h.GetAdjustedRealTime()};
    }
  }

  void Finalize() override {
    std::fprintf(stderr, "\n%-36s %9s %9s %9s %7s %9s\n", "medians", "cpu ms", "clock ms", "x floor", "target",
                 "limit ms");
    for (const BenchRow& h : hBenchRow) Print(h);
  }

 private:
  struct Times {
    double fCpu, fClock;  // msec
  };

  void Print(const BenchRow& h) {
    const auto hOwn = hMedian.find(h.sName);
    const auto hFloor = hMedian.find(h.sFloor);
    if (hOwn == hMedian.end()) return;
    std::fprintf(stderr, "%-36s %9.2f %9.2f", h.sName, hOwn->second.fCpu, hOwn->second.fClock);
    if (hFloor != hMedian.end()) std::fprintf(stderr, " %9.2f", hOwn->second.fCpu / hFloor->second.fCpu);
    if (h.fTarget > 0.0) std::fprintf(stderr, " %7.1f", h.fTarget);
    if (h.fLimit > 0.0) std::fprintf(stderr, " %*.1f", h.fTarget > 0.0 ? 9 : 17, h.fLimit);
    std::fputc('\n', stderr);
  }

  std::map<std::string, Times> hMedian;
};

std::string Memory_Folder() {
  return std::filesystem::is_directory("/dev/shm") ? "/dev/shm" : std::filesystem::temp_directory_path().string();
}

void Open_Window(const OwnFolder& hFolder, char* sProgram) {
  const std::string sScript = hFolder.File("steps.txt");
  std::ofstream out(sScript);
  for (I4 I = 1; I <= MOpen; ++I) out << "press 1009\n";
  out.close();
  char* hArgument[] = {sProgram, nullptr};
  Script_Load(sScript);
  WInitialise(1, hArgument);
  WindowOpen2(0, 0, 1275, 1020, iMenuMain, "benchmark");
  WindowStatusBarParts(32);
  hUser = User_at_Window();              // the lines of the log are drawn, as in the program
  std::cout.setstate(std::ios::badbit);  // the log lines of a scripted run
}

void Prepare(const OwnFolder& hMemory, const OwnFolder& hDisk) {
  bAutoErr = true;
  (void)Log_Initialize(hMemory.File("bench"));
  hBench.sFile = hMemory.File("full.avg");
  hBench.sOut = hMemory.File("out.avg");
  hBench.sDiskFile = hDisk.File("out.avg");
  Make_Full_Store();
  Prepare_Output(true);
  (void)AVG_Write(hBench.sFile);  // each benchmark looks at what it reads
  (void)MDE_Rewrite(hMemory.File("full.mde"));
  hBench.hMade = Keep_Store();
  (void)AVG_Read(hBench.sFile);
  hBench.hRead = Keep_Store();
  Make_Full_Section();
  hBench.hSection = Keep_Store();
  std::ifstream in(hBench.sFile, std::ios::binary);
  hBench.sBytes.assign(std::istreambuf_iterator<char>(in), {});
}

}  // namespace

int main(int argc, char** argv) {
  setenv("QT_QPA_PLATFORM", "offscreen", 1);
  std::vector<std::string> sArgument(std::begin(sOption), std::end(sOption));
  sArgument.insert(sArgument.begin(), argv[0]);
  sArgument.insert(sArgument.end(), argv + 1, argv + argc);
  std::vector<char*> hArgument;
  for (std::string& s : sArgument) hArgument.push_back(s.data());
  int NArgument = static_cast<int>(hArgument.size());
  benchmark::Initialize(&NArgument, hArgument.data());
  const OwnFolder hMemory(Memory_Folder());
  const OwnFolder hDisk(std::filesystem::temp_directory_path().string());
  Open_Window(hMemory, argv[0]);
  Prepare(hMemory, hDisk);
  for (const BenchRow& h : hBenchRow) {
    benchmark::RegisterBenchmark(h.sName, h.Run)->Unit(benchmark::kMillisecond)->Iterations(1)->ReportAggregatesOnly();
  }
  FloorReporter hReporter;
  hReporter.SetOutputStream(&std::cerr);
  benchmark::RunSpecifiedBenchmarks(&hReporter);
  WindowClose();
  return 0;
}

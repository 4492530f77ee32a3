// open_bench.cpp: what else happens between the choice of a file and its data on the screen.
#include <filesystem>
#include <fstream>
#include <type_traits>

#include "benches.h"
#include "commands/open_survey.h"
#include "files/mde_file.h"
#include "foundations/file_util.h"
#include "metadata/mdp_data.h"
#include "model/derived.h"
#include "processing/b_field.h"
#include "processing/moving_average.h"
#include "processing/sort_data.h"

namespace quillan {
namespace {

/// Each run of a step begins with the store as the reader left it.
template <class Step>
void Run_Step(benchmark::State& state, Step Carry_Out) {
  I4 iError = 0;
  for (auto _ : state) {
    state.PauseTiming();
    Put_Store(hBench.hRead);
    state.ResumeTiming();
    if constexpr (std::is_void_v<decltype(Carry_Out())>) {
      Carry_Out();
    } else {
      iError = Carry_Out();
    }
  }
  if (iError != 0 || NTrn != MTrn) state.SkipWithError("the step has failed");
}

void Initialize() {
  TMD_Initialize();
  MDP_Initialize_MD(true);
  NTrn = MTrn;
}

I4 Read_Metadata() {
  std::string sMdeFile = std::string(File_Stem(hBench.sFile)) + ".mde";
  return MDE_Read(sMdeFile);
}

}  // namespace

void Bench_Initialize(benchmark::State& state) {
  Run_Step(state, Initialize);
}

void Bench_MDE(benchmark::State& state) {
  Run_Step(state, Read_Metadata);
}

void Bench_Widths(benchmark::State& state) {
  Run_Step(state, Get_TWWidth);
}

void Bench_Complete(benchmark::State& state) {
  Run_Step(state, TEM_Complete_Transients);
}

void Bench_TWCfg(benchmark::State& state) {
  Run_Step(state, TMD_Trns_Set_iTWCfg);
}

void Bench_Sort(benchmark::State& state) {
  Run_Step(state, Sort_TEM_Data);
}

void Bench_B(benchmark::State& state) {
  Run_Step(state, dBdt_2_B);
}

void Bench_Ranges(benchmark::State& state) {
  Run_Step(state, [] { TEM_Trn_Data_Range(); });
}

/// All of Open, through the real dialog, in which the script of bench_main.cpp presses Continue.
void Bench_Open(benchmark::State& state) {
  I4 iError = 0;
  for (auto _ : state) iError = TEM_Read_Data(hBench.sFile);
  if (iError != 0 || NTrn != MTrn) state.SkipWithError("TEM_Read_Data has not read the whole file");
}

/// The same with the first transient alone: the dialog, the repaints and whatever else does not depend on the data.
void Bench_Open_One(benchmark::State& state) {
  const std::string sStem = std::string(File_Stem(hBench.sFile)) + "_one";
  std::string sFile = sStem + ".avg";
  std::filesystem::copy(std::string(File_Stem(hBench.sFile)) + ".mde", sStem + ".mde");
  const std::size_t KSecond = hBench.sBytes.find("\n \n", hBench.sBytes.find("\n64,"));
  std::ofstream(sFile, std::ios::binary) << hBench.sBytes.substr(0, KSecond + 1);
  I4 iError = 0;
  for (auto _ : state) iError = TEM_Read_Data(sFile);
  if (iError != 0 || NTrn != 1) state.SkipWithError("TEM_Read_Data has not read one transient");
  std::filesystem::remove(sFile);
  std::filesystem::remove(sStem + ".mde");
}

}  // namespace quillan

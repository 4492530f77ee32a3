// history_bench.cpp: what the history and the journal add to a click and to a rule over the full store.
#include <algorithm>
#include <cstring>
#include <vector>

#include "benches.h"
#include "commands/auto_skip_command.h"
#include "commands/recovery.h"
#include "files/journal.h"
#include "foundations/file_util.h"
#include "model/edits.h"
#include "model/history.h"
#include "processing/auto_skip.h"

namespace quillan {
namespace {

constexpr I4 NClick = 1000;
constexpr std::size_t NClickMost = std::size_t{20} << 20U;  // bytes that so many clicks may hold
constexpr AutoSkipLimits hLimits{.ErrorFloor = 5.0f};

void Begin() {
  Put_Store(hBench.hMade);
  History_Begin();
}

/// A journal on a disk for as long as it lives, empty as after a save: its first edit is the next one.
class WithJournal {
 public:
  WithJournal() {
    sAvgFile = hBench.sFile;
    sJournalFolder = std::string(File_Dir(hBench.sDiskFile)) + "journal";
    Recovery_Begin();
    static_cast<void>(History_Keep(""));  // the store is in the caches again, as it is without a journal
  }
  ~WithJournal() {
    Recovery_Declined();
    sJournalFolder.clear();
    Recovery_Begin();
  }
  WithJournal(const WithJournal&) = delete;
  WithJournal& operator=(const WithJournal&) = delete;
};

/// Flags another window with each call, somewhere in the store.
void Click() {
  static I4 N = 0;
  ++N;
  const I4 j = N * 37 % NTrn + 1, I = N % MTW + 1;
  Edit_Window_Flag(j, I, !hTrn(j).bSkip(I));
}

/// The command, whose dialog the script answers.
void Skip_by_Rule() {
  hAutoSkip = hLimits;
  benchmark::DoNotOptimize(AutoSkip_Filter());
}

void Click_and_Keep(benchmark::State& state) {
  for (auto _ : state) {
    Click();
    if (!History_Keep("")) state.SkipWithError("the click changed nothing");
    benchmark::DoNotOptimize(History_Differs_from_File());
  }
}

void Skip_and_Keep(benchmark::State& state) {
  for (auto _ : state) {
    Skip_by_Rule();
    if (!History_Keep("Auto Skip")) state.SkipWithError("the rule skipped nothing");
    benchmark::DoNotOptimize(History_Differs_from_File());
  }
}

}  // namespace

/// Every byte of the store is looked at beside its copy.
void Floor_Click(benchmark::State& state) {
  Begin();
  const std::vector<Transient> hCopy(hTrn.begin(), hTrn.begin() + NTrn);
  for (auto _ : state) benchmark::DoNotOptimize(std::memcmp(hTrn.data(), hCopy.data(), hCopy.size() * sizeof hCopy[0]));
}

void Bench_Click(benchmark::State& state) {
  Begin();
  Click_and_Keep(state);
}

void Bench_Click_Journal(benchmark::State& state) {
  Begin();
  const WithJournal hJournal;
  Click_and_Keep(state);
}

void Bench_Many_Clicks(benchmark::State& state) {
  Begin();
  for (auto _ : state) {
    for (I4 N = 1; N <= NClick; ++N) {
      Click();
      static_cast<void>(History_Keep(""));
    }
  }
  state.counters["bytes"] = static_cast<double>(History_Memory());
  if (History_Count() != NClick || History_Memory() > NClickMost) state.SkipWithError("the clicks hold too much");
}

void Bench_Rule(benchmark::State& state) {
  Begin();
  for (auto _ : state) AutoSkip_Apply(hLimits);
}

void Floor_Auto_Skip(benchmark::State& state) {
  Begin();
  for (auto _ : state) Skip_by_Rule();
}

void Bench_Keep_Rule(benchmark::State& state) {
  Begin();
  AutoSkip_Apply(hLimits);
  for (auto _ : state) benchmark::DoNotOptimize(History_Keep("Auto Skip"));
}

void Bench_Auto_Skip(benchmark::State& state) {
  Begin();
  Skip_and_Keep(state);
}

void Bench_Auto_Skip_Journal(benchmark::State& state) {
  Begin();
  const WithJournal hJournal;
  Skip_and_Keep(state);
}

/// What a journal costs when a file is opened or saved: all of the data go into it.
void Bench_Begin_Journal(benchmark::State& state) {
  Begin();
  for (auto _ : state) const WithJournal hJournal;
}

/// What a killed run costs the next one: the data of the journal and the edits of a rule are put into the store.
void Bench_Replay_Journal(benchmark::State& state) {
  Begin();
  std::string sJournal = Journal_Begin({});
  hOnEdit = [&sJournal](EditEvent iEvent, const Edit& hEdit) { sJournal += Journal_Entry(iEvent, hEdit); };
  AutoSkip_Apply(hLimits);
  static_cast<void>(History_Keep("Auto Skip"));
  hOnEdit = nullptr;
  Begin();
  for (auto _ : state) {
    if (Journal_Replay(Journal_Read(sJournal)) != 1) state.SkipWithError("the edit is not taken up");
  }
}

void Bench_Undo(benchmark::State& state) {
  Begin();
  AutoSkip_Apply(hLimits);
  static_cast<void>(History_Keep("Auto Skip"));
  for (auto _ : state) benchmark::DoNotOptimize(History_Undo());
}

}  // namespace quillan

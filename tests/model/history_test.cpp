// The history of edits, from the side of whoever takes one back.
#include "model/history.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "files/avg_writer.h"
#include "metadata/mdp_data.h"
#include "model/derived.h"
#include "model/edits.h"
#include "model/txw_data.h"
#include "processing/auto_skip.h"
#include "processing/moving_average.h"
#include "support/files.h"
#include "support/survey_builder.h"

namespace quillan {
namespace {

constexpr I4 NSounding = 6;

/// A freshly opened survey whose history begins.
void Open_Survey() {
  Begin_Test();
  MDP_Initialize();
  Txw_Initialize();
  sAvgFile = "line.avg";
  for (I4 j = 1; j <= NSounding; ++j) {
    hTrn(++NTrn) = TransientBuilder()
                       .Station(100.0 * j)
                       .Values({500, 90, 16, 3, 0, -0.5f})
                       .Errors_Percent({1, 1, 6, 33, 29, 999})
                       .Resistivities({50, 48, 47, 45, 20, 90});
  }
  NHistoryLimit = NHistoryMost;
  hOnEdit = nullptr;
  History_Begin();
}

/// What a save puts into its files, and all that it does to the data.
std::string Saved_Text() {
  Prepare_Output(true);
  EXPECT_EQ(AVG_Write("saved.avg"), 0);
  History_Follow();
  std::string sText = Read_Whole_File("saved.avg") + sAvgFile + std::to_string(hTxw.MLoop());
  return sText + MdLine.sName.str() + std::to_string(MdTx.lAmp);
}

using Dice = std::mt19937;

I4 Roll(Dice& hDice, I4 N) {
  return static_cast<I4>(hDice() % static_cast<unsigned>(N)) + 1;
}

/// One command or gesture of any kind, with what it happens to meet.
void Edit_Anything(Dice& hDice) {
  const I4 j = Roll(hDice, NTrn), I = Roll(hDice, hTrn(j).NTW);
  switch (Roll(hDice, 12)) {
    case 1: return Edit_Window_Flag(j, I, Roll(hDice, 2) == 1);
    case 2: return Edit_Transient_Flag(j, Roll(hDice, 2) == 1);
    case 3: return Edit_Value(j, I, &Transient::fuVmag, static_cast<R4>(Roll(hDice, 3)));
    case 4: return Edit_Polarity(j);
    case 5: return AutoSkip_Apply({.ErrorFloor = static_cast<R4>(Roll(hDice, 40))});
    case 6: return static_cast<void>(GMA_Time());
    case 7: return Edit_Transient(j, hTrn(Roll(hDice, NTrn)));
    case 8: return Edit_Count(std::max(1, NTrn - Roll(hDice, 2)));
    case 9: hTemSurvey.sJobName = "job " + std::to_string(Roll(hDice, 3)); return;
    case 10: MdLine.sName = std::to_string(Roll(hDice, 3)); return;
    case 11: ++MdTx.lAmp; return;
    default: sAvgFile = "line" + std::to_string(Roll(hDice, 3)) + ".avg"; return hTxw.Add();
  }
}

TEST(History, WhatIsSavedAfterUndosAndRedosIsWhatWasSavedThen) {
  for (unsigned iSeed = 1; iSeed <= 8; ++iSeed) {
    Dice hDice(iSeed);
    Open_Survey();
    std::vector<std::string> sSaved{Saved_Text()};  // by position
    for (I4 K = 1; K <= 20; ++K) {
      const I4 iWay = Roll(hDice, 4);
      if (iWay == 1) static_cast<void>(History_Undo());
      if (iWay == 2) static_cast<void>(History_Redo());
      if (iWay >= 3) {
        Edit_Anything(hDice);
        if (History_Keep("Edit")) sSaved.resize(static_cast<std::size_t>(History_Position()));
      }
      const std::string sText = Saved_Text();
      const auto iPosition = static_cast<std::size_t>(History_Position());
      if (iPosition == sSaved.size()) sSaved.push_back(sText);
      ASSERT_EQ(sText, sSaved[iPosition]) << "seed " << iSeed << ", step " << K;
    }
    while (History_Undo()) {
    }
    EXPECT_EQ(Saved_Text(), sSaved.front()) << "seed " << iSeed;
    while (History_Redo()) {
    }
    EXPECT_EQ(Saved_Text(), sSaved.back()) << "seed " << iSeed;
  }
}

TEST(History, WhatOneProgramRecordedAnotherOneTakesUp) {
  Dice hDice(7);
  Open_Survey();
  std::vector<DataChange> hRecord;
  hOnEdit = [&hRecord](EditEvent iEvent, const Edit& h) {
    hRecord.push_back(iEvent == EditEvent::Undone ? h.hBefore : h.hAfter);
  };
  for (I4 K = 1; K <= 20; ++K) {
    Edit_Anything(hDice);
    static_cast<void>(History_Keep("Edit"));
    if (K % 5 == 0) static_cast<void>(History_Undo());
    if (K % 10 == 0) static_cast<void>(History_Redo());
  }
  const std::string sText = Saved_Text();
  const I4 NRecord = static_cast<I4>(hRecord.size());
  Open_Survey();
  for (const DataChange& h : hRecord) EXPECT_TRUE(History_Apply(h, "Edit"));
  EXPECT_EQ(Saved_Text(), sText);
  EXPECT_LE(History_Count(), NRecord);

  const DataChange hBad[] = {
      {.NTrn = MTrn + 1},
      {.NTrn = 1, .hRun = {{1, 0, 4}}, .sRun = "abc"},
      {.NTrn = 1, .hRun = {{MTrn + 1, 0, 1}}, .sRun = "a"},
      {.NTrn = 1, .hRun = {{1, static_cast<I4>(sizeof(Transient)), 1}}, .sRun = "a"},
      {.NTrn = 1, .hPart = {{99, "a"}}},
      {.NTrn = 1, .hPart = {{3, "other.avg"}, {4, "a"}}}
  };
  for (const DataChange& h : hBad) EXPECT_FALSE(History_Apply(h, "Edit"));
  EXPECT_EQ(Saved_Text(), sText);
}

TEST(History, AnEditIsNamedByWhatItDid) {
  const auto Flag = [](I4 j, I4 I, bool bSkip) { return [=] { Edit_Window_Flag(j, I, bSkip); }; };
  const struct {
    std::string_view sEdit;
    std::function<void()> Do;
    std::string_view sName;
  } hCase[] = {
      {"", Flag(4, 2, true), "Skip window 2, Stn 400"},
      {"", Flag(4, 2, false), "Clear window 2, Stn 400"},
      {"", [] { hTrn(2).bSkip.fill(true); }, "Skip 6 windows, Stn 200"},
      {"Skip All", [] { Edit_Transient_Flag(1, true); }, "Skip All (Stn 100)"},
      {"Auto Skip", [] { AutoSkip_Apply({.ErrorFloor = 30.0f}); }, "Auto Skip (18 windows in 6 soundings)"},
      {"Flip All",
       [] {
         Edit_Polarity(1);
         Edit_Polarity(2);
       }, "Flip All (12 values in 2 soundings)"},
      {"Edit Configuration",
       [] {
         hTemSurvey.iTemArray = 2;
         ++MdTx.lAmp;
         ++MdRx.lCmp;
       }, "Edit Configuration (survey, metadata)"},
      {"Edit Configuration",
       [] {
         hTemSurvey.iTemArray = 1;
         hTrn(1).fRxArea = hTrn(2).fRxArea = 2.0f;
       }, "Edit Configuration (survey, 2 soundings)"},
      {"Merge Repeats", [] { Edit_Count(2); }, "Merge Repeats (6 to 2 transients)"},
  };
  Open_Survey();
  for (const auto& h : hCase) {
    h.Do();
    ASSERT_TRUE(History_Keep(h.sEdit)) << h.sName;
    EXPECT_EQ(Edit_Name(History_Edit(History_Count()).hWords), h.sName);
  }
  EXPECT_TRUE(History_Edit(4).bOnlyFlags);
  EXPECT_FALSE(History_Edit(6).bOnlyFlags);
}

TEST(History, WhatChangedNothingIsNoEdit) {
  Open_Survey();
  Edit_Transient(1, Transient(hTrn(1)));
  hTemSurvey = Survey(hTemSurvey);
  EXPECT_FALSE(History_Keep("Edit"));
  hTrn(NTrn + 1).fuVmag(1) = 3.0f;  // beyond what is in use
  EXPECT_FALSE(History_Keep("Edit"));
  EXPECT_EQ(History_Undo(), nullptr);
  EXPECT_EQ(History_Redo(), nullptr);
}

TEST(History, TheSignOfAZeroIsTakenBack) {
  Open_Survey();
  hTrn(1).fuVmag.fill(0.0f);
  static_cast<void>(History_Keep("Edit"));
  Edit_Value(1, 1, &Transient::fuVmag, -0.0f);
  EXPECT_TRUE(History_Keep("Edit"));
  static_cast<void>(History_Undo());
  EXPECT_FALSE(std::signbit(hTrn(1).fuVmag(1)));
}

TEST(History, KnowsWhenTheDataAreThoseOfTheFile) {
  Open_Survey();
  const auto Flag = [](I4 I, bool bSkip) {
    Edit_Window_Flag(2, I, bSkip);
    static_cast<void>(History_Keep(""));
    return History_Differs_from_File();
  };
  EXPECT_TRUE(Flag(1, true));
  EXPECT_FALSE(Flag(1, false)) << "taken back by hand";
  EXPECT_TRUE(Flag(2, true));
  Prepare_Output(true);
  History_Saved();
  EXPECT_FALSE(History_Differs_from_File());
  static_cast<void>(History_Undo());
  EXPECT_TRUE(History_Differs_from_File());
  static_cast<void>(History_Redo());
  EXPECT_FALSE(History_Differs_from_File());
  static_cast<void>(History_Undo());
  EXPECT_TRUE(Flag(3, true)) << "the state that was saved cannot be reached any more";
  Edit_Count(2);
  static_cast<void>(History_Keep("Merge"));
  EXPECT_TRUE(History_Differs_from_File());
}

TEST(History, OldestEditsGoWhenThereIsNoRoomAndKeepTheirWords) {
  Open_Survey();
  Edit_Window_Flag(1, 1, true);
  static_cast<void>(History_Keep(""));
  NHistoryLimit = 3 * History_Memory();
  for (const I4 j : {2, 3, 4, 5}) {
    Edit_Window_Flag(j, 1, true);
    static_cast<void>(History_Keep(""));
    EXPECT_LE(History_Memory(), NHistoryLimit);
  }
  EXPECT_EQ(History_Count(), 3);
  ASSERT_EQ(History_Gone().size(), 2U);
  EXPECT_EQ(Edit_Name(History_Gone()[1]), "Skip window 1, Stn 200");
  while (History_Undo()) {
  }
  EXPECT_TRUE(hTrn(2).bSkip(1));
  EXPECT_FALSE(hTrn(3).bSkip(1));
  EXPECT_TRUE(History_Differs_from_File()) << "the oldest edit that is left is not the first";
}

TEST(History, AWindowGoesToTheEditUnlessItShowsIt) {
  Open_Survey();
  for (const I4 j : {2, 4, 5}) Edit_Window_Flag(j, 1, true);
  static_cast<void>(History_Keep("Auto Skip"));
  const Edit& h = History_Edit(1);
  EXPECT_EQ(Edit_Place(h, 4, 6), 4);
  EXPECT_EQ(Edit_Place(h, 6, 6), 2);
  EXPECT_EQ(Edit_Place(h, 1, 0), 2);
  hTemSurvey.iTemArray = 2;
  static_cast<void>(History_Keep("Edit Configuration"));
  EXPECT_EQ(Edit_Place(History_Edit(2), 3, 3), 3);
}

}  // namespace
}  // namespace quillan

// Edits on the disk: what a journal gives back, whole, cut or damaged; and files that another program has changed.
#include "files/journal.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "foundations/bytes.h"
#include "metadata/mdp_data.h"
#include "model/edits.h"
#include "model/txw_data.h"
#include "platform/folders.h"
#include "support/files.h"
#include "support/survey_builder.h"

namespace quillan {
namespace {

constexpr auto NWhole = static_cast<I4>(sizeof(Transient));

/// All of the data, field by field.
std::string State() {
  std::string sState(Bytes_of(NTrn));
  for (I4 j = 1; j <= NTrn; ++j) Append(sState, Fingerprint(hTrn(j)));
  for (const HistoryPart& h : History_Parts()) Append(sState, h.Bytes());
  return sState;
}

/// A run whose edits go into a journal, and the data after each of its records.
class JournalTest : public testing::Test {
 protected:
  void SetUp() override {
    Open();
    sJournal = Journal_Begin({
        "line.avg", {1, 2, 3},
         {}
    });
    sState = {State()};
    hOnEdit = [this](EditEvent iEvent, const Edit& hEdit) {
      sJournal += Journal_Entry(iEvent, hEdit);
      sState.push_back(State());
      NEnd.push_back(sJournal.size());
    };
  }
  void TearDown() override {
    hOnEdit = nullptr;
    TMD_Initialize();
    MDP_Initialize();
    Txw_Initialize();
    History_Begin();
  }

  /// The data as they are when the file is opened.
  static void Open() {
    Load({TransientBuilder().Values({5, 4, 3}).Station(1), TransientBuilder().Values({6, 5}).Station(2),
          TransientBuilder().Values({7}).Station(3)});
    MDP_Initialize();
    Txw_Initialize();
    sAvgFile = "line.avg";
    History_Begin();
  }
  static void Skip(I4 j, I4 I) {
    Edit_Window_Flag(j, I, true);
    ASSERT_TRUE(History_Keep(""));
  }
  /// One edit of every kind of data, with undo and redo between them.
  static void Edit_All() {
    Skip(1, 2);
    Edit_Value(2, 1, &Transient::fuVmag, -0.0f);
    Edit_Count(2);
    ASSERT_TRUE(History_Keep("Merge Data"));
    static_cast<void>(History_Undo());
    static_cast<void>(History_Redo());
    static_cast<void>(History_Undo());
    hTemSurvey.sTxwFile = "loops.txw";
    MdTx.fAmp = 3.0f;
    hTxw.Add();
    hAvgKept.NAvgCmt = 1;
    ASSERT_TRUE(History_Keep("Edit Survey Configuration"));
    Skip(3, 1);
  }
  /// The program is started again, and the journal is taken up.
  std::size_t Recover(std::string_view sBytes) {
    hOnEdit = nullptr;
    Open();
    return Journal_Replay(Journal_Read(sBytes));
  }

  std::string sJournal;
  std::vector<std::string> sState;  // element 0: before the first record
  std::vector<std::size_t> NEnd;    // bytes of the journal after each record
};

TEST_F(JournalTest, EveryRecordIsDoneAgainAndCanBeUndone) {
  Edit_All();
  const std::vector<std::string> sAfter = sState;
  ASSERT_EQ(sAfter.size(), 8U);
  EXPECT_EQ(Journal_Count(Journal_Read(sJournal)), 3);
  EXPECT_EQ(Recover(sJournal), 7U);
  EXPECT_EQ(State(), sAfter.back());
  EXPECT_EQ(History_Count(), 3);
  EXPECT_EQ(Edit_Name(History_Edit(2).hWords), "Edit Survey Configuration (survey, kept lines, wire loops, metadata)");
  while (History_Undo() != nullptr) {
  }
  EXPECT_EQ(State(), sAfter.front());
}

TEST_F(JournalTest, DataThatWereOpenedOtherwiseBecomeThoseOfTheJournal) {
  Skip(1, 2);
  const std::string sAfter = sState.back();
  hOnEdit = nullptr;
  Open();
  hTemSurvey.dStnInc = 50.0;  // what the user confirmed this time
  Edit_Count(1);
  History_Begin();
  EXPECT_EQ(Journal_Replay(Journal_Read(sJournal)), 1U);
  EXPECT_EQ(State(), sAfter);
  EXPECT_EQ(History_Count(), 2);
}

TEST_F(JournalTest, AnUndoOfWhatTheJournalDoesNotHoldIsAnEdit) {
  Skip(1, 2);
  Skip(1, 3);
  sJournal = Journal_Begin({});  // a save
  static_cast<void>(History_Undo());
  static_cast<void>(History_Redo());
  static_cast<void>(History_Undo());
  static_cast<void>(History_Undo());
  const std::string sAfter = sState.back();
  const Journal h = Journal_Read(sJournal);
  EXPECT_EQ(h.hRecord.size(), 4U);
  hOnEdit = nullptr;
  Open();
  EXPECT_EQ(Journal_Replay(h), 4U);
  EXPECT_EQ(State(), sAfter);
}

TEST_F(JournalTest, CutAtAnyByteItGivesTheEditsThatAreWhole) {
  Edit_All();
  std::size_t NRecord = 0;
  for (std::size_t N = 0; N <= sJournal.size(); ++N) {
    const Journal h = Journal_Read(std::string_view(sJournal).substr(0, N));
    while (NRecord < NEnd.size() && NEnd[NRecord] <= N) ++NRecord;
    ASSERT_EQ(h.hRecord.size(), NRecord) << N;
    ASSERT_FALSE(h.bCut) << N;
    ASSERT_EQ(h.iState == JournalState::Readable, NRecord > 0) << N;
  }
  const std::vector<std::string> sAfter = sState;
  for (std::size_t K = 1; K <= NEnd.size(); ++K) {
    EXPECT_EQ(Recover(std::string_view(sJournal).substr(0, NEnd[K - 1] + 5)), K);
    EXPECT_EQ(State(), sAfter[K]) << K;
  }
}

TEST_F(JournalTest, AFlippedBitIsRefusedOrEndsTheJournal) {
  Edit_All();
  const Journal hWhole = Journal_Read(sJournal);
  const std::size_t NBase = NEnd[0] - hWhole.hRecord[0].sState.size();  // where the entries begin, or a little after it
  constexpr std::size_t NHead = 256;
  for (std::size_t N = 0; N < sJournal.size(); N += N < NHead || N > NBase ? 1 : 7) {
    std::string sDamaged = sJournal;
    sDamaged[N] = static_cast<char>(sDamaged[N] ^ (1 << N % 8));
    const Journal h = Journal_Read(sDamaged);
    const auto K = static_cast<std::size_t>(std::ranges::upper_bound(NEnd, N) - NEnd.begin());  // records before it
    ASSERT_EQ(h.hRecord.size(), N < NBase ? 0 : K) << N;
    for (std::size_t I = 0; I < h.hRecord.size(); ++I) ASSERT_EQ(h.hRecord[I].sState, hWhole.hRecord[I].sState);
  }
}

TEST_F(JournalTest, AHoleThatAPowerCutLeftIsNoRecord) {
  Skip(1, 2);
  const Journal h = Journal_Read(sJournal + std::string(4096, '\0'));
  EXPECT_EQ(h.hRecord.size(), 1U);
  EXPECT_TRUE(h.bCut);
}

TEST_F(JournalTest, OfAnotherFormatItIsNoneOfOurs) {
  EXPECT_EQ(Journal_Read("any other file of that name").iState, JournalState::OtherKind);
  constexpr std::size_t NMark = 16, NRecordHead = 16;
  I8 NHead = 0;
  std::memcpy(&NHead, sJournal.data() + NMark, sizeof NHead);
  std::string sHead = sJournal.substr(NMark + NRecordHead, static_cast<std::size_t>(NHead));
  sHead[0] = iJournalFormat + 1;
  const std::uint64_t iSum = Mixed(sHead.size() + 1, sHead);
  sJournal.replace(NMark + sizeof NHead, sizeof iSum + sHead.size(), std::string(Bytes_of(iSum)) + sHead);
  EXPECT_EQ(Journal_Read(sJournal).iState, JournalState::OtherKind);
}

// ---- values that no reader of ours gives

struct Unsound {
  const char* sWhat;
  void (*Damage)(DataChange& h);
};

/// Puts a value over the bytes of the one run, which holds all of transient 1.
template <class Value, class Field>
void Overwrite(DataChange& h, const Field Transient::*hField, Value hValue) {
  const auto iByte = reinterpret_cast<const char*>(&(hTrn(1).*hField)) - reinterpret_cast<const char*>(&hTrn(1));
  const std::string_view sValue = Bytes_of(hValue);
  std::ranges::copy(sValue, h.sRun.begin() + iByte);
}

constexpr Unsound hUnsound[] = {
    {"windows",           [](DataChange& h) { Overwrite(h, &Transient::NTW, MTW + 1); }        },
    {"component",         [](DataChange& h) { Overwrite(h, &Transient::iRxCmp, 0); }           },
    {"flag",              [](DataChange& h) { Overwrite(h, &Transient::bSkip, char{2}); }      },
    {"station",           [](DataChange& h) { Overwrite(h, &Transient::dRxStn, std::nan("")); }},
    {"too many",          [](DataChange& h) { h.NTrn = MTrn + 1; }                             },
    {"fewer than none",   [](DataChange& h) { h.NTrn = -1; }                                   },
    {"transient missing", [](DataChange& h) { h.NTrn = 5; }                                    },
    {"transient 0",       [](DataChange& h) { h.hRun[0].j = 0; }                               },
    {"beyond the last",   [](DataChange& h) { h.hRun[0].j = 4; }                               },
    {"before its bytes",  [](DataChange& h) { h.hRun[0].iByte0 = -1; }                         },
    {"after its bytes",   [](DataChange& h) { h.hRun[0].iByte0 = 1; }                          },
    {"bytes missing",     [](DataChange& h) { h.sRun.pop_back(); }                             },
    {"no such part",
     [](DataChange& h) {
       h.hPart.push_back({100, ""});
     }                                                                                         },
    {"part too short",
     [](DataChange& h) {
       h.hPart.push_back({5, "short"});
     }                                                                                         },
    {"kept lines",
     [](DataChange& h) {
       h.hPart.push_back({2, std::string(sizeof hAvgKept, '\x7f')});
     }                                                                                         },
    {"loop corners",
     [](DataChange& h) {
       h.hPart.push_back({4, std::string(8, '\0') + std::string(sizeof(WireLoop), '\x7f')});
     }                                                                                         },
};

TEST_F(JournalTest, ValuesOutOfTheirRangesDoNotReachTheData) {
  Skip(1, 2);
  const std::string sBefore = State();
  for (const Unsound& hCase : hUnsound) {
    DataChange h;
    h.NTrn = NTrn;
    Add_Run(h, {1, 0, NWhole}, hTrn(1));
    ASSERT_TRUE(Fits(h));
    hCase.Damage(h);
    Edit hEdit;
    hEdit.hAfter = h;
    EXPECT_EQ(Recover(sJournal + Journal_Entry(EditEvent::Kept, hEdit)), 1U) << hCase.sWhat;
    EXPECT_EQ(State(), sBefore) << hCase.sWhat;
  }
}

// ---- files

TEST(JournalPath, IsOnePerFileHoweverTheFileIsCalled) {
  std::filesystem::create_directory("other");
  Write_File("line 7.avg", "");
  Write_File("other/line 7.avg", "");
  std::filesystem::create_symlink("line 7.avg", "link.avg");
  const std::string sPath = Journal_Path("state", "line 7.avg");
  EXPECT_TRUE(sPath.starts_with("state/line 7-") && sPath.ends_with(".journal")) << sPath;
  EXPECT_EQ(Journal_Path("state", IOsDirName() + "/other/../line 7.avg"), sPath);
  EXPECT_EQ(Journal_Path("state", "link.avg"), sPath);
  EXPECT_NE(Journal_Path("state", "other/line 7.avg"), sPath);
  EXPECT_LT(Journal_Path("", std::string(250, 'a') + ".avg").size(), 120U);
}

TEST(FileStamp, OnlyOtherBytesAreAChange) {
  const std::vector<std::string> sPath{"a.avg", "gone.avg", "b.avg", "new.avg"};
  Stamps_Forget();
  for (const char* sFile : {"a.avg", "gone.avg", "b.avg"}) Write_File(sFile, "as read");
  for (const char* sFile : {"./a.avg", "gone.avg", "b.avg"}) Stamp_Note(sFile);
  EXPECT_TRUE(Changed_on_Disk(sPath).empty());
  std::filesystem::remove("gone.avg");
  Write_File("new.avg", "was never read");
  std::filesystem::last_write_time("b.avg", std::filesystem::file_time_type::clock::now() + std::chrono::hours(1));
  EXPECT_TRUE(Changed_on_Disk(sPath).empty());
  Write_File("a.avg", "at read");
  std::filesystem::last_write_time("a.avg", std::filesystem::file_time_type::clock::now() + std::chrono::hours(1));
  EXPECT_EQ(Changed_on_Disk(sPath), std::vector<std::string>{"a.avg"});
  Stamp_Note("a.avg");
  EXPECT_TRUE(Changed_on_Disk(sPath).empty());
}

}  // namespace
}  // namespace quillan

#include "files/z_file.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <string>
#include <vector>

#include "foundations/file_util.h"
#include "foundations/free_read.h"
#include "foundations/log_file.h"
#include "foundations/progress.h"
#include "foundations/str_parse.h"
#include "foundations/str_value.h"
#include "foundations/str_write.h"
#include "foundations/text_file.h"
#include "foundations/user.h"
#include "metadata/enm_data.h"
#include "metadata/mdp_data.h"
#include "model/station_scale.h"
#include "model/survey_keywords.h"
#include "model/tmd_data.h"

namespace quillan {
namespace {

// ---- the header of a block

constexpr R8 dStnApart = 0.001;  // stations further apart than this are two

bool Is_Ruler(std::string_view CLine) {
  return CLine.starts_with("IIX");
}

bool Is_End_Mark(std::string_view sLine) {
  return sLine.substr(0, 10).find("9999.0") != std::string_view::npos;
}

/// What a file's answers and rows leave for those below.
struct ZReadState {
  struct Answer {
    ZDataType hFound, hGiven;
  };
  std::vector<Answer> hAnswer;  // that stand for all blocks of which the file says the same
  bool bSkip = false;           // state of the row before
  bool bOpen = false;           // the last transient of the store takes rows of this block
};

/// A line of progress about a block. Once the answers stand, blocks come faster than lines can be drawn.
void Log_Block(const ZReadState& hRead, std::string_view sText) {
  (hRead.hAnswer.empty() ? LogText : LogText_File)(sText);
}

struct ZHeader {
  std::vector<std::string> sLine;  // those that are for people
  ZDataType hType;                 // by the words in it
};

enum class HeaderEnd { Ruler, Mark, TooLong, File };

bool Is_Metadata(std::string_view sLine) {
  return sLine.size() > 2 && sLine.substr(0, 2).find('$') != std::string_view::npos;
}

void Find_Data_Words(std::string_view CLine, ZDataType& hType) {
  struct DataWord {
    std::string_view CWord;
    I4 iRxCmp;  // 0: it does not say
  };
  constexpr DataWord hDataWord[] = {
      {"MAGNITUDE", 0         },
      {"DBX/DT",    iCmpHx    },
      {"DBY/DT",    iCmpHx + 1},
      {"DBZ/DT",    iCmpHz    }
  };
  for (const DataWord& h : hDataWord) {
    if (CLine.find(h.CWord) == std::string_view::npos) continue;
    hType.iDataType = iZDataDbdt;
    if (h.iRxCmp != 0) hType.iRxCmp = h.iRxCmp;
  }
}

/// Reads as far as the ruler. A mark without one ends a block that has no rows; its lines say nothing of the next.
HeaderEnd Read_Header(RecordReader& in, const ZReadState& hRead, ZHeader& hHeader) {
  Log_Block(hRead, "   Reading header lines.");
  while (in.Next()) {
    const std::string_view sLine = Trimmed(in.Record());
    const std::string CLine = Str_UpCase(sLine);
    Find_Data_Words(CLine, hHeader.hType);
    if (Is_Metadata(sLine)) {
      static_cast<void>(MDP_from_MDE(in.iRecord(), sLine, iPriorityData));  // many are other programs' lines
      continue;
    }
    if (Is_End_Mark(sLine)) return HeaderEnd::Mark;
    const bool bRoom = static_cast<I4>(hHeader.sLine.size()) < MZHeader;
    if (bRoom) hHeader.sLine.emplace_back(sLine);
    if (Is_Ruler(CLine)) return HeaderEnd::Ruler;
    if (!bRoom) return HeaderEnd::TooLong;
  }
  return HeaderEnd::File;
}

/// What the user takes a block for; nothing when cancelled.
std::optional<ZDataType> Verified_Type(const ZHeader& hHeader, ZReadState& hRead) {
  const auto hKnown = std::ranges::find(hRead.hAnswer, hHeader.hType, &ZReadState::Answer::hFound);
  if (hKnown != hRead.hAnswer.end()) return hKnown->hGiven;
  const ZTypeAnswer hAnswer = hUser.Which_Z_Data({hHeader.sLine, MZHeader, hHeader.hType});
  if (hAnswer.hType && hAnswer.bForAll) hRead.hAnswer.push_back({hHeader.hType, *hAnswer.hType});
  return hAnswer.hType;
}

// ---- the rows of a block

struct ZRow {
  I4 iSkipCode = 0;
  R8 dRxKvrStn = 0.0;
  R4 fTWCen = 0.0f;  // msec
  R4 fuVmag = 0.0f;
};

/// False unless the column holds a number and nothing else.
template <class Number>
bool Read_Column(std::string_view sRow, const ZColumn& h, Number& xValue) {
  if (sRow.size() <= h.iFirst) return false;
  const std::string_view sField = Trimmed(Left_Adjusted(sRow.substr(h.iFirst, h.NWidth)));
  return sField.find_first_of(" \t,/") == std::string_view::npos && List_Read(sField, xValue) == Outcome::Value;
}

std::optional<ZRow> Read_Row(std::string_view sRow) {
  ZRow hRow;
  const bool bNoCode = Trimmed(sRow.substr(0, hZSkipColumn.NWidth)).empty();
  const bool bRead = (bNoCode || Read_Column(sRow, hZSkipColumn, hRow.iSkipCode)) &&
                     Read_Column(sRow, hZStnColumn, hRow.dRxKvrStn) && Read_Column(sRow, hZTimeColumn, hRow.fTWCen) &&
                     Read_Column(sRow, hZValueColumn, hRow.fuVmag);
  return bRead ? std::optional(hRow) : std::nullopt;
}

bool Begins_Transient(const ZRow& hRow, const ZReadState& hRead) {
  if (!hRead.bOpen) return true;
  const Transient& h = hTrn(NTrn);
  // A time that falls back is a repeat at the same station, or another frequency: windows of a transient rise.
  return std::abs(hRow.dRxKvrStn - h.dRxKvrStn) > dStnApart || hRow.fTWCen < h.fTWCen(h.NTW);
}

void Begin_Transient(const ZRow& hRow, I4 iRxCmp) {
  Transient& h = TMD_Add_Transient();
  h.dRxKvrStn = hRow.dRxKvrStn;
  h.dRxStn = Stn_Scale_of_Rows()(hRow.dRxKvrStn);
  h.dRxXYZ = MdRx.dUTMC;
  h.fRxHPR = MdRx.fHPR;
  h.iRxCmp = iRxCmp;
  const R4 fRxArea = MdRx.fArea(Z_Axis(iRxCmp));
  h.fRxArea = fRxArea < fRxAreaLeast ? fRxAreaDefault : fRxArea;
  h.dTxKvrStn = MdTx.dKvrStn;
  h.dTxStn = MdTx.dStn;
  h.fTxFreq = MdTx.fFreq;
  h.fTxAmp = MdTx.fAmp;
  h.fTxRamp = MdTx.fRamp;
}

/// Stores a row as the next window of the transient; a 65th has no place.
void Add_Window(const ZRow& hRow, bool bSkip) {
  Transient& h = hTrn(NTrn);
  if (h.NTW == MTW) return;
  const I4 I = ++h.NTW;
  h.bSkip(I) = bSkip;
  h.fTWCen(I) = hRow.fTWCen;
  h.fuVmag(I) = hRow.fuVmag;
}

/// Takes one row, the next window of a transient. False, with a report, when the rest of the block cannot be taken.
bool Take_Row(const RecordReader& in, std::string_view sZFile, I4 iRxCmp, ZReadState& hRead) {
  const auto hRow = Read_Row(in.Record());
  if (!hRow) {
    LogErr({"Z_Read.ERROR while reading data from line " + Str_Write_I4(in.iRecord()).str(), std::string(in.Record())});
    return false;
  }
  if (hRow->iSkipCode == iZSkipOut || hRow->iSkipCode == iZSkipInUse) hRead.bSkip = hRow->iSkipCode == iZSkipOut;
  if (Begins_Transient(*hRow, hRead)) {
    if (NTrn == MTrn) {
      LogErr({"Z_Read.WARNING: More than 4096 transients in " + std::string(File_Name(sZFile)),
              "Excess data will be dropped."});
      return false;
    }
    Begin_Transient(*hRow, iRxCmp);
    hRead.bOpen = true;
  }
  Add_Window(*hRow, hRead.bSkip);
  return true;
}

/// Reads as far as the end mark, also where the rows cannot be taken: what follows a block is a header.
void Read_Rows(RecordReader& in, std::string_view sZFile, const ZDataType& hType, ReadProgress& work,
               ZReadState& hRead) {
  bool bTake = hType.iDataType == iZDataDbdt;
  if (bTake) {
    Log_Block(hRead, " Reading dB/dt magnitude data, cmp = " + std::string(Held_Entry(sChnCmp, hType.iRxCmp)));
    Log_Block(hRead, "Reading numerical data.");
    TMD_Survey_from_MD();
  } else {
    Log_Block(hRead, " Skipping data block");
  }
  hRead.bOpen = false;
  while (in.Next()) {
    if (Is_End_Mark(in.Record())) return;
    if (bTake && !Trimmed(in.Record()).empty()) bTake = Take_Row(in, sZFile, hType.iRxCmp, hRead);
    if (!work.Goes_On(in.NBytes())) return;
  }
  LogText(" The file ends within a block; its last row may be cut.");
}

// ---- the file

void Forget_Last_File() {
  NTrn = 0;
  hAvgKept = AvgKeptLines{};
  Fld_Begin_File();
}

I4 Report_Not_Open(const RecordReader& in, std::string_view sZFile) {
  if (in.Is_Missing())
    LogErr({"ERROR: Could not find " + std::string(sZFile)});
  else
    LogErr({"ERROR opening file " + std::string(sZFile), in.Reason()});
  return 1;
}

/// Reads block after block. Returns 0; 1 for a header that is too long, which is reported, or when the user cancelled
/// or stopped.
I4 Read_Blocks(RecordReader& in, std::string_view sZFile) {
  ZReadState hRead;
  ReadProgress work(sZFile);
  for (;;) {
    ZHeader hHeader;
    switch (Read_Header(in, hRead, hHeader)) {
      case HeaderEnd::File: return 0;
      case HeaderEnd::Mark: continue;
      case HeaderEnd::TooLong:
        LogErr({"Z_Read.ERROR: More than " + Str_Write_I4(MZHeader).str() + " header lines."});
        return 1;
      case HeaderEnd::Ruler: break;
    }
    const auto hType = Verified_Type(hHeader, hRead);
    if (!hType) return 1;
    Read_Rows(in, sZFile, *hType, work, hRead);
    if (bWorkStopped) return 1;
  }
}

}  // namespace

I4 Z_Read(std::string_view sZFile) {
  Forget_Last_File();
  RecordReader in(sZFile, MZRecord);
  if (!in.Is_Open()) return Report_Not_Open(in, sZFile);
  LogText("");
  LogText("Reading TEM data from file " + std::string(File_Name(sZFile)));

  if (Read_Blocks(in, sZFile) != 0) {
    NTrn = 0;
    return 1;
  }
  if (in.Has_Failed()) {
    LogErr({"ERROR while reading file near line " + Str_Write_I4(in.iRecord()).str(), std::string(in.Record())});
    return 1;
  }
  if (NTrn < 1) {
    LogText("Found no valid dB/dt data in " + std::string(File_Name(sZFile)));
    return 1;
  }
  LogText(Str_Write_I4(NTrn).str() + " transients have been read from " + std::string(File_Name(sZFile)));
  return 0;
}

}  // namespace quillan

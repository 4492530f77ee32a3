#include "files/amr_file.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <vector>

#include "files/avg_writer.h"
#include "files/save_report.h"
#include "foundations/file_util.h"
#include "foundations/log_file.h"
#include "foundations/progress.h"
#include "foundations/str_parse.h"
#include "foundations/str_write.h"
#include "foundations/text_file.h"
#include "metadata/enm_data.h"
#include "model/derived.h"
#include "model/txw_data.h"

namespace quillan {
namespace {

constexpr EditForm formWindow("(1P,G12.4E1)");
constexpr R4 fMsecPerUsec = 0.001f;

I4 Report_Failure(const TextWriter& out, std::string_view sWhat, const std::string& sFile) {
  if (!out.Has_Failed()) return 0;
  return Report_Not_Saved({"Error " + std::string(sWhat) + " file " + sFile}, sFile, out.Reason());
}

// ---- window sets

/// Whether a transient gives a row: some window of it is in use.
bool Has_Row(const Transient& h) {
  return !h.bSkipTrn && std::any_of(h.bSkip.begin(), h.bSkip.begin() + h.NTW, [](L4 bSkip) { return !bSkip; });
}

/// The sets that are not written, by their numbers, and how many soundings they hold.
std::string Left_Out(const std::vector<I4>& iOut) {
  I4 NOut = 0;
  for (I4 j = 1; j <= NTrn; ++j) {
    if (Has_Row(hTrn(j)) && std::ranges::find(iOut, hTrn(j).iTWCfg) != iOut.end()) ++NOut;
  }
  std::string sSets;
  for (const I4 iTWCfg : iOut) sSets += (sSets.empty() ? " " : ", ") + Str_Write_I4(iTWCfg).str();
  return "Soundings left out: " + Str_Write_I4(NOut).str() + ", those of the time-window sets" + sSets + ".";
}

/// One set: its windows, and the transient which they and the header's values come from.
struct AmrSet {
  I4 iTWCfg;                         // its number in the store
  I4 NTrnOut = 0;                    // transients
  I4 NTW = 0;                        // windows of its longest transient
  const Transient* hHead = nullptr;  // the first one that is so long
  WindowValues fTWcen{};             // msec, arithmetic centres
};

AmrSet Take_Set(I4 iTWCfg) {
  AmrSet hSet{.iTWCfg = iTWCfg};
  for (I4 j = 1; j <= NTrn; ++j) {
    const Transient& h = hTrn(j);
    if (h.iTWCfg != iTWCfg) continue;
    ++hSet.NTrnOut;
    if (hSet.hHead != nullptr && h.NTW <= hSet.NTW) continue;
    hSet.NTW = h.NTW;
    hSet.hHead = &h;
  }
  for (I4 I = 1; I <= hSet.NTW; ++I) hSet.fTWcen(I) = (hSet.hHead->fTWEnd(I) + hSet.hHead->fTWBeg(I)) / 2.0f;
  return hSet;
}

/// Widths of windows in msec, missing where an edge is.
WindowValues Widths(I4 NTW, const WindowValues& fTWbeg, const WindowValues& fTWend) {
  WindowValues fWidth = Filled<WindowValues>(fDummy);
  for (I4 I = 1; I <= NTW; ++I) {
    if (Is_Present(fTWbeg(I)) && Is_Present(fTWend(I))) fWidth(I) = fTWend(I) - fTWbeg(I);
  }
  return fWidth;
}

// ---- header

// By iTemArray. The format has no word for the others.
constexpr auto sConfig = Words("FIXEDLOOP", "INOUT", "INLOOP", "COINCIDENT");

void Write_Corner(I4 V, R8 dEast, R8 dNorth, TextWriter& out) {
  const std::string sCorner = "LV" + Str_Write_I4(V).str();
  out.Line(sCorner + "X:" + Str_Write_XYZR8(dEast).str());
  out.Line(sCorner + "Y:" + Str_Write_XYZR8(dNorth).str());
}

/// The corners of a fixed loop: as surveyed where the wire file in use has the transmitter's loop, else those of the
/// survey's rectangle.
void Write_Corners(const Transient& h, TextWriter& out) {
  const LoopFound hFound = hTemSurvey.bTxwFile && NTxw > 0 ? Txw_Get_iTxw(h.dTxStn) : LoopFound{};
  if (hFound.iTxw >= 1) {
    const WireLoop& hLoop = hTxw(hFound.iTxw);
    for (I4 V = 1; V <= hLoop.NTxUTMV; ++V) Write_Corner(V, hLoop.dTxUTMV(1, V), hLoop.dTxUTMV(2, V), out);
    return;
  }
  const auto fTxXYV = TMD_Get_fTxXYV(hTemSurvey.fTxLength, hTemSurvey.fTxHPR(1), hTemSurvey.iLengthUnit);
  for (I4 V = 1; V <= 4; ++V) {
    Write_Corner(V, hTemSurvey.dTxXYZC(1) + R8{fTxXYV(1, V)}, hTemSurvey.dTxXYZC(2) + R8{fTxXYV(2, V)}, out);
  }
}

void Write_Keywords(const AmrSet& hSet, const std::string& sChnFile, TextWriter& out) {
  const I4 iTemArray = hTemSurvey.iTemArray;
  out.Line("DATATYPE:TEM");
  out.Line("INSTRUMENT:TORVO");
  out.Line("UNITS:(uV/A)");
  out.Line("CHANNELFILE:" + std::string(File_Name(sChnFile)));
  out.Line("INITDELAY:" + Str_Write_R4(fMsecPerUsec * hSet.hHead->fTxRamp, "(F0.4)").str());
  out.Line("BASEFREQ:" + Str_Write_R4(hSet.hHead->fTxFreq, "(1P,G14.4E1)").str());
  if (iTemArray >= 1 && iTemArray <= sConfig.NSize) out.Line("CONFIG:" + std::string(sConfig(iTemArray)));
  out.Line("F:U");
  if (iTemArray == iArrayFXL) Write_Corners(*hSet.hHead, out);
}

void Write_List(std::string_view sName, const WindowValues& fValue, I4 NTW, TextWriter& out) {
  std::string sList(sName);
  for (I4 I = 1; I <= NTW; ++I) {
    if (I > 1) sList += ',';
    sList += Str_Write_R4(fValue(I), formWindow).trimmed();
  }
  out.Line(sList);
}

void Write_Remarks(const AmrSet& hSet, TextWriter& out) {
  const Transient& h = *hSet.hHead;
  out.Line("/PROJECT:" + hTemSurvey.sJobName.str());
  out.Line("/AREA:" + hTemSurvey.sJobArea.str());
  out.Line("/JOBFOR:" + hTemSurvey.sJobFor.str());
  out.Line("/JOBBY:" + hTemSurvey.sJobBy.str());
  out.Line("/DATE:" + hTemSurvey.sJobDate.str());
  Write_List("/TIMES(ms)=", hSet.fTWcen, hSet.NTW, out);
  Write_List("/TIMESWIDTH(ms)=", Widths(hSet.NTW, h.fTWBeg, h.fTWEnd), hSet.NTW, out);
  Write_List("/TIMESSTART(ms)=", h.fTWBeg, hSet.NTW, out);
  Write_List("/TIMESEND(ms)=", h.fTWEnd, hSet.NTW, out);
  Write_List("/ Time-Window Arithmetic Centers=", hSet.fTWcen, hSet.NTW, out);
}

// ---- rows

struct AmrColumn {
  std::string_view sLabel;
  std::size_t LFldMin;  // characters, the blank after it included
  Text<16> (*Field)(const Transient& h);
};

/// A blank name needs a mark, else the columns after it would move.
Text<16> Line_Field(const Transient&) {
  const std::string sLine = Str_Squish(hTemSurvey.sLineName.trimmed());
  return sLine.empty() ? "*" : sLine;
}

Text<16> Component_Field(const Transient& h) {
  return sXYZ((h.iRxCmp - 1) % sXYZ.NSize + 1);
}

// A column begins as wide as its label, with room for what it usually holds where that is longer.
constexpr AmrColumn hAmrColumn[] = {
    {"LOOP",      5,  [](const Transient& h) { return Str_Write_XYZR8(h.dTxStn); }                        },
    {"LINE",      5,  Line_Field                                                                          },
    {"STN",       4,  [](const Transient& h) { return Str_Write_R8(h.dRxStn, "(F12.3)"); }                },
    {"EAST",      5,  [](const Transient& h) { return Str_Write_XYZR8(h.dRxXYZ(1)); }                     },
    {"NORTH",     6,  [](const Transient& h) { return Str_Write_XYZR8(h.dRxXYZ(2)); }                     },
    {"ELEV",      5,  [](const Transient& h) { return Str_Write_XYZR8(h.dRxXYZ(3)); }                     },
    {"RXAREA",    9,  [](const Transient& h) { return Str_Write_R4(h.fRxArea, "(ES9.3E1)"); }             },
    {"TXCENX",    9,  [](const Transient& h) { return Str_Write_XYZR8(h.dTxXYZC(1)); }                    },
    {"TXCENY",    9,  [](const Transient& h) { return Str_Write_XYZR8(h.dTxXYZC(2)); }                    },
    {"TXAREA",    9,  [](const Transient&) { return Str_Write_R4(hTemSurvey.fTxArea, "(ES9.3E1)"); }      },
    {"CUR",       6,  [](const Transient& h) { return Str_Write_R4(h.fTxAmp, "(F12.3)"); }                },
    {"RMP",       7,  [](const Transient& h) { return Str_Write_R4(fMsecPerUsec * h.fTxRamp, "(F12.4)"); }},
    {"COMPONENT", 10, Component_Field                                                                     },
    {"NCH",       4,  [](const Transient& h) { return Str_Write_I4(h.NTW); }                              },
};
constexpr std::size_t NAmrColumn = std::size(hAmrColumn);
constexpr std::size_t LChannel = 11;  // characters of a channel's column, the blank included
constexpr EditForm formChannel("(ES10.4E1)");

/// A field at the end of a row, padded to its column, which grows where it is too narrow.
void Add_Field(std::string_view sField, std::size_t& LFld, std::string& sRow) {
  LFld = std::max(LFld, sField.size() + 1);
  const std::size_t NEnd = sRow.size() + LFld;
  sRow += sField;
  sRow.resize(NEnd, ' ');
}

/// The labels in the least widths, which LFld takes; rows widen it.
void Write_Labels(I4 NTW, std::vector<std::size_t>& LFld, TextWriter& out) {
  std::string sRow;
  for (const AmrColumn& h : hAmrColumn) Add_Field(h.sLabel, LFld.emplace_back(h.LFldMin), sRow);
  for (I4 I = 1; I <= NTW; ++I) Add_Field("CH" + Str_Write_I4(I).str(), LFld.emplace_back(LChannel), sRow);
  out.Line(sRow);
}

void Write_Row(const Transient& h, I4 NTW, std::vector<std::size_t>& LFld, TextWriter& out) {
  std::string sRow;
  sRow.reserve(LChannel * LFld.size());
  for (std::size_t K = 0; K < NAmrColumn; ++K) Add_Field(hAmrColumn[K].Field(h).trimmed(), LFld[K], sRow);
  for (I4 I = 1; I <= NTW; ++I) {
    const bool bHasValue = I <= h.NTW && !h.bSkip(I);
    const Text<16> sField = bHasValue ? Str_Write_R4(h.fuVmag(I), formChannel) : Text<16>("*");
    Add_Field(sField.trimmed(), LFld[NAmrColumn - 1 + static_cast<std::size_t>(I)], sRow);
  }
  out.Line(sRow);
}

/// What all soundings of a file should share.
struct AmrShared {
  R4 Transient::*hValue;
  std::string_view sName, sUnit;
  EditForm form;
};
constexpr AmrShared hShared[] = {
    {&Transient::fTxRamp, "fTxRamp",      " us", "(F12.3)"     },
    {&Transient::fTxFreq, "Tx Frequency", " Hz", "(1P,G14.4E1)"},
};

constexpr R4 NSpacing = 100.0f;  // by so many last digits equal values may differ

/// The values since the last change, at first those of the first transient in the store.
struct AmrReference {
  Array1<R4, 2> fValue{
      {hTrn(1).*hShared[0].hValue, hTrn(1).*hShared[1].hValue}
  };
  I4 NWarn = 0;  // changes so far; the first one is reported
};

void Compare_Shared(const Transient& h, AmrReference& hReference) {
  for (I4 K = 1; K <= 2; ++K) {
    const AmrShared& hRow = hShared[K - 1];
    const R4 fOld = hReference.fValue(K);
    const R4 fNew = h.*hRow.hValue;
    if (std::abs(fNew - fOld) <= NSpacing * Spacing(fOld)) continue;
    hReference.fValue(K) = fNew;
    if (++hReference.NWarn > 1) continue;
    LogErr({"WARNING: " + std::string(hRow.sName) + " has changed from " + Str_Write_R4(fOld, hRow.form).str() +
                " to " + Str_Write_R4(fNew, hRow.form).str() + std::string(hRow.sUnit),
            "causing a shift in KVR time windows,", "but AMIRA file format assumes a uniform time window set."});
  }
}

/// The file of the windows stands already: the rows have to follow.
void Write_Rows(const AmrSet& hSet, Progress work, TextWriter& out) {
  std::vector<std::size_t> LFld;
  Write_Labels(hSet.NTW, LFld, out);
  LogText("Writing numerical data.");
  AmrReference hReference;
  for (I4 j = 1; j <= NTrn; ++j) {
    static_cast<void>(work.Goes_On(j));
    const Transient& h = hTrn(j);
    if (h.iTWCfg != hSet.iTWCfg || h.bSkipTrn) continue;
    Compare_Shared(h, hReference);
    if (Has_Row(h)) Write_Row(h, hSet.NTW, LFld, out);
  }
}

// ---- the files

I4 Write_Set(const AmrSet& hSet, const std::string& sTrnFile) {
  const std::string sChnFile = std::string(File_Stem(sTrnFile)) + ".chn.tem";
  if (AMR_Write_Chn(sChnFile, hSet.NTW, hSet.hHead->fTWBeg, hSet.hHead->fTWEnd) != 0) return 1;
  TextWriter out(sTrnFile);
  if (Report_Failure(out, "opening", sTrnFile) != 0) return 1;

  const std::string sName(File_Name(sTrnFile));
  LogText("");
  LogText("Writing data to AMIRA-format " + sName);
  LogText("Writing header lines.");
  out.Line("TEM data reviewed with " + AVG_Signature());
  Write_Keywords(hSet, sChnFile, out);
  Write_Remarks(hSet, out);
  Write_Rows(hSet, Progress("Writing " + sName, "soundings", NTrn, 1, Stoppable::No), out);
  out.Commit();
  if (Report_Failure(out, "writing", sTrnFile) != 0) return 1;
  LogText(Str_Write_I4(hSet.NTrnOut).str() + " transients written to " + sName);
  return 0;
}

}  // namespace

AmrSetList AMR_TWCfg_List() {
  AmrSetList hList;
  std::vector<I4> iOut;
  I4 jOut = 0;  // the first transient that is left out
  for (I4 j = 1; j <= NTrn; ++j) {
    const I4 iTWCfg = hTrn(j).iTWCfg;
    const auto hEnd = hList.iTWCfg.begin() + hList.NTWCfgList;
    if (std::find(hList.iTWCfg.begin(), hEnd, iTWCfg) != hEnd || std::ranges::find(iOut, iTWCfg) != iOut.end())
      continue;
    if (hList.NTWCfgList < MAmrSet) {
      hList.iTWCfg(++hList.NTWCfgList) = iTWCfg;
    } else {
      if (jOut == 0) jOut = j;
      iOut.push_back(iTWCfg);
    }
  }
  if (jOut > 0) {
    LogErr({"AMR_TWCfg_List.WARNING:",
            "More than " + Str_Write_I4(MAmrSet).str() + " distinct time-window sets at transient " +
                Str_Write_I4(jOut).str(),
            "Will not write remaining data to Amira format output files.", Left_Out(iOut)});
  }
  LogText("Found " + Str_Write_I4(hList.NTWCfgList).str() + " distinct time-window sets.");
  return hList;
}

I4 AMR_Write(std::string_view sAmrFile, const AmrQuestion& Name_to_Write) {
  if (NTrn < 1) {
    LogErr({"No valid data to save in " + std::string(File_Name(sAmrFile))});
    return 1;
  }
  const AmrSetList hList = AMR_TWCfg_List();
  for (I4 J = 1; J <= hList.NTWCfgList; ++J) {
    const std::string sSet = hList.NTWCfgList > 1 ? Str_Write_I4(J).str() : "";
    const std::string sTrnFile = Name_to_Write(std::string(File_Stem(sAmrFile)) + sSet + ".tem");
    if (sTrnFile.empty()) return 1;
    if (Write_Set(Take_Set(hList.iTWCfg(J)), sTrnFile) != 0) return 1;
  }
  return 0;
}

I4 AMR_Write_Chn(const std::string& sChnFile, I4 NTW, const WindowValues& fTWbeg, const WindowValues& fTWend) {
  const std::string sName(File_Name(sChnFile));
  LogText("");
  LogText("Writing time-window values to " + sName);
  TextWriter out(sChnFile);
  if (Report_Failure(out, "opening", sChnFile) != 0) return 1;

  out.Line("Torvo KVR delay times w.r.t. end of Tx ramp (msec).");
  out.Line("NUMTIMES:" + Str_Write_I4(NTW).str());
  out.Line("DELAY WIDTHS");
  const WindowValues fWidth = Widths(NTW, fTWbeg, fTWend);
  for (I4 I = 1; I <= NTW; ++I) {
    const R4 fDelay = (fTWend(I) + fTWbeg(I)) / 2.0f;
    out.Line(Str_Write_R4(fDelay, formWindow).str() + " " + Str_Write_R4(fWidth(I), formWindow).str());
  }
  out.Commit();
  if (Report_Failure(out, "writing", sChnFile) != 0) return 1;
  LogText(Str_Write_I4(NTW).str() + " time-window values written to " + sName);
  return 0;
}

}  // namespace quillan

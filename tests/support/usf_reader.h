// usf_reader.h: reads a file by the rules of the Universal Sounding Format alone, and says where it breaks them.
//
//   ! remark                        anywhere; blank lines count for nothing
//   //KEYWORD: value                of the file, "//USF" first, up to "//END"
//   /KEYWORD: value                 of a table, up to "/END"
//   label, label                    then as many rows of as many numbers as "/POINTS" says, up to "/END"
#pragma once

#include <cmath>
#include <cstdlib>
#include <fstream>
#include <limits>
#include <map>
#include <sstream>
#include <string>
#include <vector>

namespace quillan {

struct UsfSection {
  std::map<std::string, std::string> sKey;
  std::map<std::string, std::vector<double>> dColumn;  // by label; what is the dummy is not a number
};

struct UsfReading {
  std::map<std::string, std::string> sKey;
  std::vector<std::string> sCorner;
  std::vector<UsfSection> hSection;
  std::string sFault;  // the first one
};

class UsfReader {
 public:
  explicit UsfReader(const std::string& sFile) : in(sFile) {}

  UsfReading Read() {
    Read_File_Keywords();
    while (hRead.sFault.empty() && Next()) Read_Section();
    Check_Counts();
    return hRead;
  }

 private:
  void Fault(const std::string& sWhat) {
    if (hRead.sFault.empty()) hRead.sFault = "line " + std::to_string(iLine) + ": " + sWhat;
  }
  bool Next() {
    while (std::getline(in, sLine)) {
      ++iLine;
      if (sLine.find_first_not_of(' ') != std::string::npos && sLine[0] != '!') return true;
    }
    return false;
  }
  static std::string Bare(const std::string& s) {
    const auto K = s.find_first_not_of(' ');
    return K == std::string::npos ? "" : s.substr(K, s.find_last_not_of(' ') - K + 1);
  }
  static std::vector<std::string> Parts(const std::string& s) {
    std::vector<std::string> sPart;
    std::istringstream all(s + ",");
    for (std::string sOne; std::getline(all, sOne, ',');) sPart.push_back(Bare(sOne));
    return sPart;
  }
  double Value(const std::string& s) {
    if (s == hRead.sKey["DUMMY"]) return std::numeric_limits<double>::quiet_NaN();
    char* pEnd = nullptr;
    const double d = std::strtod(s.c_str(), &pEnd);
    if (s.empty() || *pEnd != '\0') Fault("no number: \"" + s + "\"");
    return d;
  }

  /// One "KEYWORD: value" after its slashes; false at END.
  bool Keyword(const std::string& sSlashes, std::string& sName, std::string& sText) {
    const bool bSlashes = sLine.rfind(sSlashes, 0) == 0 && sLine[sSlashes.size()] != '/';
    if (!bSlashes) Fault("no keyword");
    if (!bSlashes || Bare(sLine) == sSlashes + "END") return false;
    const auto K = sLine.find(':');
    if (K == std::string::npos) Fault("no colon");
    sName = sLine.substr(sSlashes.size(), K - sSlashes.size());
    sText = K == std::string::npos ? "" : Bare(sLine.substr(K + 1));
    return true;
  }

  void Read_File_Keywords() {
    std::string sName, sText;
    bool bMore = Next();
    if (!bMore || sLine.rfind("//USF:", 0) != 0) Fault("does not begin with //USF:");
    for (; bMore && Keyword("//", sName, sText); bMore = Next()) {
      if (sName == "TX_CORNER")
        hRead.sCorner.push_back(sText);
      else if (!hRead.sKey.emplace(sName, sText).second)
        Fault("twice: " + sName);
    }
    if (!bMore) Fault("no //END");
  }

  void Read_Section() {
    UsfSection h;
    std::string sName, sText;
    bool bMore = true;
    for (; bMore && Keyword("/", sName, sText); bMore = Next()) {
      if (!h.sKey.emplace(sName, sText).second) Fault("twice: " + sName);
    }
    if (!bMore || !Next()) return Fault("no table");
    const std::vector<std::string> sLabel = Parts(sLine);
    for (const std::string& s : sLabel) h.dColumn[s];
    int NRow = 0;
    for (bMore = Next(); bMore && Bare(sLine) != "/END"; bMore = Next(), ++NRow) Read_Row(sLabel, h);
    if (!bMore) Fault("no /END after a table");
    if (std::to_string(NRow) != h.sKey["POINTS"]) Fault("rows do not agree with /POINTS");
    Check_Section(h);
    hRead.hSection.push_back(h);
  }

  void Read_Row(const std::vector<std::string>& sLabel, UsfSection& h) {
    const std::vector<std::string> sField = Parts(sLine);
    if (sField.size() != sLabel.size()) return Fault("fields do not agree with labels");
    for (std::size_t K = 0; K < sField.size(); ++K) h.dColumn[sLabel[K]].push_back(Value(sField[K]));
  }

  void Check_Section(UsfSection& h) {
    for (const char* sNeed : {"ARRAY", "SOUNDING_NAME", "SWEEPS", "LOOP_SIZE", "FREQUENCY", "CURRENT", "RAMP_TIME"}) {
      if (h.sKey[sNeed].empty()) Fault(std::string("no /") + sNeed);
    }
    if (!h.dColumn.contains("TIME") || !h.dColumn.contains("VOLTAGE")) Fault("no TIME or VOLTAGE");
    const std::string sUnit = h.sKey["LENGTH_UNITS"].empty() ? hRead.sKey["LENGTH_UNITS"] : h.sKey["LENGTH_UNITS"];
    if (sUnit != "m" && sUnit != "ft") Fault("length unit " + sUnit);
    const std::vector<double>& dTime = h.dColumn["TIME"];
    for (std::size_t I = 1; I < dTime.size(); ++I) {
      if (!(dTime[I] > dTime[I - 1])) Fault("times do not rise");
    }
    if (!h.dColumn.contains("QUALITY")) return;
    for (const double d : h.dColumn["QUALITY"]) {
      if (d != 0.0 && d != 1.0) Fault("QUALITY is neither 0 nor 1");
    }
  }

  /// Sweeps are numbered, and the first of each makes a sounding.
  void Check_Counts() {
    int NSounding = 0;
    int NLeft = 0;
    for (UsfSection& h : hRead.hSection) {
      const int NSweep = std::atoi(h.sKey["SWEEPS"].c_str());
      const int iSweep = h.sKey["SWEEP_NUMBER"].empty() ? 1 : std::atoi(h.sKey["SWEEP_NUMBER"].c_str());
      if (iSweep == 1) {
        ++NSounding;
        if (NLeft != 0) Fault("sweeps are missing");
        NLeft = NSweep;
      }
      if (iSweep != NSweep - NLeft + 1) Fault("sweeps are out of order");
      --NLeft;
    }
    if (NLeft != 0) Fault("sweeps are missing at the end");
    if (std::to_string(NSounding) != hRead.sKey["SOUNDINGS"]) Fault("tables do not agree with //SOUNDINGS");
    const std::string sCorners = hRead.sKey["NO_TX_CORNERS"];
    if (std::to_string(hRead.sCorner.size()) != (sCorners.empty() ? "0" : sCorners)) Fault("corners do not agree");
    for (std::size_t I = 0; I < hRead.sCorner.size(); ++I) {
      const std::vector<std::string> sPart = Parts(hRead.sCorner[I]);
      if (sPart.size() != 4 || sPart[0] != std::to_string(I + 1)) Fault("corner " + std::to_string(I + 1));
    }
  }

  std::ifstream in;
  std::string sLine;
  int iLine = 0;
  UsfReading hRead;
};

}  // namespace quillan

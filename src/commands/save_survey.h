// save_survey.h: the one road by which the store goes back into files.
#pragma once

#include <string>
#include <string_view>

#include "base/types.h"

namespace quillan {

/// Which file types a save writes.
struct OutputFormats {
  L4 bPutAVG = true;    // .avg of the current format
  L4 bPutAVG0 = false;  // .avg of the legacy format
  L4 bPutAMR = false;   // AMIRA .tem
  L4 bPutUSF = false;   // Interpex .usf
};

// Module state: the choice of the last save, which the next one begins with. Output_Initialize restores it.
inline OutputFormats hOutput;
void Output_Initialize();

/// The files of a save beside a data file, named after its stem.
struct OutputNames {
  explicit OutputNames(std::string_view sDataFile);
  std::string sAvg;     // the data file itself, whatever its extension
  std::string sAvg0;    // stem + "o.avg"
  std::string sTem;     // stem + ".tem"
  std::string sUsf;     // stem + ".usf"
  std::string sMde;     // stem + ".mde"
  std::string sBackup;  // stem + ".$" + extension
};

/// Saves the store: keeps the data file of the first save as a backup, asks for the file types, writes them and brings
/// the metadata file up to date. bUpdateAVG becomes false as soon as the types are chosen, whatever happens then.
/// iError: 0; 1 failed or cancelled; 2 the program is to stop.
void TEM_Write_Data(std::string_view sDataFile, L4& bUpdateAVG, I4& iError);

/// Dialog 104. iError: 0; 1 the user cancelled.
void Select_Output_Formats(const OutputNames& hName, OutputFormats& hFormats, I4& iError);

}  // namespace quillan

// open_survey.h: the one road by which data get into the store.
#pragma once

#include <string>

#include "base/types.h"

namespace quillan {

/// Reads a data file into the store: the metadata of its .mde first, then the data by the reader of its extension, then
/// the user's confirmation of the survey configuration; stations are rescaled and the derived data completed.
/// Without data NTrn is 0. iError: 0; 1 nothing was read, which is reported; 2 or 3 the user cancelled or closed the
/// configuration dialog.
void TEM_Read_Data(std::string& sDataFile, I4& iError);

/// The ranges of every transient over its windows, skipped ones included: fuVmin, fuVmax, fBmin, fBmax of present
/// values, fARmin, fARmax of values above 0.001 ohm-m; fTWCmin and fTWCmax are the first and the last centre. A range
/// without a value stays at 1.0E32 and -9.9E31. iError: 0.
void TEM_Trn_Data_Range(I4& iError);

/// Rescaled station numbers, attitudes and transmitter stations that the data file left to the survey.
void TEM_Complete_Transients();

}  // namespace quillan

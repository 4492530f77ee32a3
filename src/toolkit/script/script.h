// script.h: a session script played as the user's input, one step each time the program waits.
//
// Plain text, one step a line; "#" begins a comment line; words are separated by blanks, double quotes protect
// blanks. docs/scripts.md lists the steps. A step drives the real widgets by real events.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/types.h"

namespace quillan {

/// A word as it is written in a script: in double quotes where it needs them.
std::string Script_Word(std::string_view sWord);

struct ScriptStep {
  I4 iLine = 0;                    // in the file, from 1
  std::vector<std::string> sWord;  // the step's name and its arguments
};

/// Cuts the text of a script into its steps.
std::vector<ScriptStep> Script_Parse(std::string_view sText);

/// Reads a script, which then plays; a blank path: none does. To be called before WInitialise.
void Script_Load(std::string_view sPath);

/// Whether a script is being played.
bool Script_Is_Playing();
/// Whether its step "stop" waits for the program to look at the user in the middle of work.
bool Script_Wants_to_Stop();

/// Exit status of the run: 0, or 3 after a step that did not fit what was on the screen (the reason, with file and
/// line, has then gone to standard error).
I4 Script_Exit_Status();

/// The program has ended: steps that are left were meant for something, so the first one is named as one that did not
/// fit. Gives the exit status.
[[nodiscard]] I4 Script_End();

}  // namespace quillan

#include "toolkit/script/script.h"

#include <QFile>
#include <algorithm>
#include <iostream>
#include <utility>

#include "toolkit/script/private_script.h"
#include "toolkit/window/private_window.h"
#include "toolkit/window/window.h"

namespace quillan {

using namespace toolkit;

namespace {

enum class Phase {
  Playing,  // steps are left
  Closing,  // the steps are at their end: the program is asked to end
  Failed    // a step did not fit: whatever waits is cancelled until the program ends
};

// The script of the run. Script_Load fills it.
struct Script {
  Phase iPhase = Phase::Playing;
  std::string sPath;
  std::vector<ScriptStep> hStep;
  std::size_t NPlayed = 0;
  I4 iStatus = 0;
};
Script hScript;

constexpr I4 iStatusFailed = 3;
constexpr std::string_view sByteOrderMark = "\xEF\xBB\xBF";  // which some editors put before the text

bool Is_Blank(char c) {
  return c == ' ' || c == '\t';
}

/// Takes a word of a line; two double quotes within double quotes are one that belongs to the word.
std::string Take_Word(std::string_view& sLine) {
  std::string sWord;
  bool bQuoted = false;
  while (!sLine.empty() && (bQuoted || !Is_Blank(sLine.front()))) {
    if (bQuoted && sLine.starts_with("\"\"")) {
      sWord += '"';
      sLine.remove_prefix(1);
    } else if (sLine.front() == '"') {
      bQuoted = !bQuoted;
    } else {
      sWord += sLine.front();
    }
    sLine.remove_prefix(1);
  }
  return sWord;
}

std::vector<std::string> Words_of(std::string_view sLine) {
  std::vector<std::string> sWord;
  while (true) {
    while (!sLine.empty() && Is_Blank(sLine.front())) sLine.remove_prefix(1);
    if (sLine.empty()) return sWord;
    if (sWord.empty() && sLine.front() == '#') return sWord;
    sWord.push_back(Take_Word(sLine));
  }
}

void Fail(std::string_view sWhy) {
  std::cerr << sWhy << std::endl;
  hScript.iPhase = Phase::Failed;
  hScript.iStatus = iStatusFailed;
  Drop_Messages();
}

void Fail_at(I4 iLine, const std::string& sReason) {
  Fail(hScript.sPath + ":" + std::to_string(iLine) + ": " + sReason);
}

std::string Step_Text(const ScriptStep& hStep) {
  std::string sText = hStep.sWord[0];
  for (std::size_t i = 1; i < hStep.sWord.size(); ++i) sText += ' ' + hStep.sWord[i];
  return sText;
}

void Play_Next() {
  const ScriptStep& hStep = hScript.hStep[hScript.NPlayed];
  ++hScript.NPlayed;
  if (hScript.NPlayed == hScript.hStep.size()) hScript.iPhase = Phase::Closing;
  const std::string sReason = Script_Carry_Out(hStep);
  if (!sReason.empty()) Fail_at(hStep.iLine, sReason);
}

/// A tool window asks nothing; any other dialog waits for an answer that the steps do not give.
void Ask_to_End() {
  if (!Waits_First() && !hDialogs.Top_Dialog()) return Push_Message({.iType = MessageType::Close});
  const I4 iLine = hScript.hStep.empty() ? 1 : hScript.hStep.back().iLine;
  Fail_at(iLine, "the steps are at their end, and " + What_Waits() + " waits for an answer");
}

void Cancel_and_End() {
  if (QDialog* hFirst = Waits_First())
    hFirst->reject();
  else if (Main_Window())
    Main_Window()->close();  // as the user would, for a record of the steps
  else
    Push_Message({.iType = MessageType::Close});
}

/// Carries out the next step, when all events are handled. At the end of the steps it sends the close request. After a
/// step that failed it cancels whatever waits.
void Play_Step() {
  switch (hScript.iPhase) {
    case Phase::Playing: return Play_Next();
    case Phase::Closing: return Ask_to_End();
    case Phase::Failed: return Cancel_and_End();
  }
}

}  // namespace

void Script_Load(std::string_view sPath) {
  hScript = {};
  hPlayStep = sPath.empty() ? nullptr : Play_Step;
  if (sPath.empty()) return;
  hScript.sPath = sPath;
  QFile hFile(QFile::decodeName(hScript.sPath.c_str()));
  if (!hFile.open(QIODevice::ReadOnly)) return Fail(hScript.sPath + ": the script cannot be read");
  hScript.hStep = Script_Parse(hFile.readAll().toStdString());
  if (hScript.hStep.empty()) hScript.iPhase = Phase::Closing;
}

std::string Script_Word(std::string_view sWord) {
  if (!sWord.empty() && std::ranges::none_of(sWord, [](char c) { return Is_Blank(c) || c == '"'; }))
    return std::string(sWord);
  std::string sQuoted = "\"";
  for (const char c : sWord) sQuoted.append(c == '"' ? 2 : 1, c);
  return sQuoted + '"';
}

std::vector<ScriptStep> Script_Parse(std::string_view sText) {
  std::vector<ScriptStep> hStep;
  if (sText.starts_with(sByteOrderMark)) sText.remove_prefix(sByteOrderMark.size());
  for (I4 iLine = 1; !sText.empty(); ++iLine) {
    const std::size_t NLine = std::min(sText.find('\n'), sText.size());
    std::string_view sLine = sText.substr(0, NLine);
    sText.remove_prefix(std::min(NLine + 1, sText.size()));
    if (sLine.ends_with('\r')) sLine.remove_suffix(1);
    std::vector<std::string> sWord = Words_of(sLine);
    if (!sWord.empty()) hStep.push_back({iLine, std::move(sWord)});
  }
  return hStep;
}

bool Script_Is_Playing() {
  return hPlayStep != nullptr;
}

bool Script_Wants_to_Stop() {
  return bEscAtLook;
}

I4 Script_Exit_Status() {
  return hScript.iStatus;
}

I4 Script_End() {
  if (hScript.iPhase == Phase::Playing && hScript.NPlayed < hScript.hStep.size()) {
    const ScriptStep& hLeft = hScript.hStep[hScript.NPlayed];
    Fail_at(hLeft.iLine, "the program has ended before the step " + Step_Text(hLeft));
  }
  return hScript.iStatus;
}

}  // namespace quillan

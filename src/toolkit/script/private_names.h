// private_names.h: what the steps of a script call controls, menu entries and entries of lists: the words on the
// screen, or numbers.
//
// Mnemonic marks, colons, dots that announce a question, hyphens, runs of blanks and case do not count. A control is
// known by its own text, by that of the label that belongs to it, and by the property "stepName" of its designer file,
// which those have that the screen shows without a text of their own. All the words come first, then the beginning of
// any word: "Error" finds "Skip data after error is >" where nothing else has that word.
#pragma once

#include <QString>
#include <QStringList>
#include <string>
#include <vector>

#include "base/types.h"

class QComboBox;
class QTableWidget;
class QWidget;

namespace quillan::toolkit {

/// A thing that a step may mean.
struct Named {
  I4 iNumber = 0;
  QStringList sName;  // as on the screen; a recorded script takes the first
};

/// What a word of a step means: a number, or why it means none. A word that reads as a whole number is that number.
struct Meant {
  I4 iNumber = 0;
  std::string sReason;
};
/// sNone and sKind begin the reason: "the dialog has no", "button".
Meant Number_Meant(const std::string& sWord, const std::vector<Named>& hNamed, const std::string& sNone,
                   const std::string& sKind);
/// The words that mean that number and no other; the number itself where there are none.
std::string Word_for(I4 iNumber, const std::vector<Named>& hNamed);

// Kinds of control, for Named_Controls.
template <class Control>
bool Is_a(QWidget* hWidget) {
  return qobject_cast<Control*>(hWidget) != nullptr;
}
/// A field that text or a number is typed into.
bool Is_Line(QWidget* hWidget);
/// A drop-down, or a table whose rows are chosen as a whole.
bool Is_Chosen_From(QWidget* hWidget);

/// What the screen offers: the commands of the menu bar on show; the controls of the current dialog that bFits accepts;
/// from 1, the entries of a drop-down, the rows and the columns of a table.
std::vector<Named> Named_Commands();
std::vector<Named> Named_Controls(bool (*bFits)(QWidget* hWidget));
std::vector<Named> Named_Entries(const QComboBox& hDropDown);
std::vector<Named> Named_Rows(const QTableWidget& hGrid);
std::vector<Named> Named_Columns(const QTableWidget& hGrid);

}  // namespace quillan::toolkit

// picture.h: a picture in a dialog, on which is drawn as on the main window.
//
// It has a backing image of its own, at the screen's pixel ratio, from which exposure is served. When it gets another
// size it is blank, and an Expose message asks the program to draw it again.
#pragma once

#include "base/types.h"
#include "toolkit/draw/last_error.h"

namespace quillan {

/// Lets all drawing go into a picture of the current dialog for as long as it lives; then the main window is drawn on
/// again, in the graphics state of before. Whoever draws sets area, units, colour and font. A picture that is not there
/// sets the error status, and what is drawn goes nowhere.
class SelectedPicture {
 public:
  explicit SelectedPicture(I4 iField);
  ~SelectedPicture();
  SelectedPicture(const SelectedPicture&) = delete;
  SelectedPicture& operator=(const SelectedPicture&) = delete;

 private:
  I4 iField;
};

}  // namespace quillan

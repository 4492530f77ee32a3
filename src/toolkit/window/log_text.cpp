#include "toolkit/window/log_text.h"

#include <algorithm>
#include <string>

#include "foundations/log_file.h"
#include "toolkit/draw/draw.h"
#include "toolkit/window/messages.h"
#include "toolkit/window/private_window.h"
#include "toolkit/window/window.h"

namespace quillan {

namespace {

/// Bytes of the longest beginning of sText, in whole characters and at least one, that is at most fWidth long.
std::size_t Longest_Beginning(std::string_view sText, R4 fWidth, const std::function<R4(std::string_view)>& fLength) {
  std::size_t NFit = 1;
  while (Cut_Text(sText, NFit).empty()) ++NFit;  // the first character
  std::size_t NTooLong = sText.size();
  while (NTooLong > NFit + 1) {
    const std::size_t NHalf = (NFit + NTooLong) / 2;
    (fLength(Cut_Text(sText, NHalf)) <= fWidth ? NFit : NTooLong) = NHalf;
  }
  return std::max(Cut_Text(sText, NFit).size(), std::size_t{1});
}

/// The first piece of a line: it ends before a blank where there is one, and the blanks between go.
std::string_view Take_Piece(std::string_view& sRest, R4 fWidth, const std::function<R4(std::string_view)>& fLength) {
  std::size_t NPiece = sRest.size();
  if (fLength(sRest) > fWidth) {
    NPiece = Longest_Beginning(sRest, fWidth, fLength);
    const std::size_t iWord = sRest.find_first_not_of(' ');
    const std::size_t iBlank = sRest.rfind(' ', NPiece);
    if (iBlank != std::string_view::npos && iBlank > iWord) NPiece = iBlank;
  }
  const std::string_view sPiece = Trimmed(sRest.substr(0, NPiece));
  sRest = Left_Adjusted(sRest.substr(NPiece));
  return sPiece;
}

}  // namespace

std::vector<std::string_view> Lines_That_Fit(std::span<const Text<128>> sLine, I4 NRow, R4 fWidth,
                                             const std::function<R4(std::string_view)>& fLength) {
  std::vector<std::string_view> sRow;
  for (const Text<128>& sText : sLine) {
    std::string_view sRest = sText.trimmed();
    do sRow.push_back(Take_Piece(sRest, fWidth, fLength));
    while (!sRest.empty());
  }
  const std::ptrdiff_t NHidden = static_cast<std::ptrdiff_t>(sRow.size()) - std::max(NRow, 0);
  if (NHidden > 0) sRow.erase(sRow.begin(), sRow.begin() + NHidden);
  return sRow;
}

namespace {

constexpr R4 fTenPoints = 0.3528f;       // cm, height of a letter
constexpr R4 fDigitWidth = 5.0f / 9.0f;  // of the height: letters keep their shape in a window of any shape

// What the drawing area shows while the main menu is there. LogText_Update and LogText_Show_Picture fill it.
struct OnShow {
  QSize hLaidOut;               // of the image, when it was last drawn
  void (*Draw_Picture)() = {};  // null: the lines
};
OnShow hOnShow;

/// Units of the drawing area: centimetres of a screen of the assumed width.
struct TextArea {
  R4 fXCMT, fYCMT;
};

TextArea Text_Area() {
  const R4 fXWindow = static_cast<R4>(WInfoWindow(iWindowWidth));
  const R4 fYWindow = static_cast<R4>(WInfoWindow(iWindowHeight));
  const R4 fXScreen = static_cast<R4>(WInfoScreen(iScreenWidth));
  const R4 fXCMT = fXCMScreen * fXWindow / fXScreen;
  return {fXCMT, fXCMT * fYWindow / fXWindow};
}

void Draw_Text(const TextArea& hArea) {
  WGrTextFont(fTenPoints * fDigitWidth / hArea.fXCMT, fTenPoints / hArea.fYCMT);
  WGrTextOrientation(Justify::Left, 0.0f);
  IGrColour("BLACK");
  const R4 fDXGr = InfoGraphics(iCharWidth);
  const R4 fDYGr = InfoGraphics(iCharHeight);
  if (!(fDYGr > 0.0f)) return;
  const I4 NRow = static_cast<I4>(hArea.fYCMT / fDYGr);
  const std::span<const Text<128>> sLine(sTextBuffer.data(), static_cast<std::size_t>(NTextBuffer));
  R4 fYGr = hArea.fYCMT + 0.5f * fDYGr;  // a text stands about the middle of its row: the first row is whole
  for (const std::string_view sRow : Lines_That_Fit(sLine, NRow, hArea.fXCMT - 2.0f * fDXGr, WGrTextLength)) {
    fYGr -= fDYGr;
    if (!sRow.empty()) WGrTextString(fDXGr, fYGr, sRow);
  }
}

}  // namespace

void LogText_Update() {
  if (toolkit::Child_Window()) return;  // a later line shows these too
  if (WInfoWindow(iWindowDrawable) == 0 || WInfoWindow(iWindowWidth) <= 0 || WInfoWindow(iWindowHeight) <= 0) return;
  if (WInfoScreen(iScreenWidth) <= 0) return;
  const R4 fXMin = InfoGraphics(iUnitXMin), fYMin = InfoGraphics(iUnitYMin);
  const R4 fXMax = InfoGraphics(iUnitXMax), fYMax = InfoGraphics(iUnitYMax);
  const TextArea hArea = Text_Area();
  hOnShow = {toolkit::Backing_Image().size()};
  IGrArea(0.0f, 0.0f, 1.0f, 1.0f);
  IGrUnits(0.0f, 0.0f, hArea.fXCMT, hArea.fYCMT);
  WindowClear();
  Draw_Text(hArea);
  IGrUnits(fXMin, fYMin, fXMax, fYMax);  // the reviews use the whole area as well: only the units are theirs
}

void LogText_Update_Later() {
  if (toolkit::Child_Window() || WInfoWindow(iWindowDrawable) == 0) return;
  hOnShow.Draw_Picture = nullptr;
  IGrLater(LogText_Update);
}

void LogText_Show_Picture(void (*Draw)()) {
  if (WInfoWindow(iWindowDrawable) == 0) return;
  hOnShow = {toolkit::Backing_Image().size(), Draw};
  Draw();
}

bool LogText_Shows_Picture() {
  return hOnShow.Draw_Picture != nullptr;
}

void LogText_Redraw() {
  if (hOnShow.Draw_Picture)
    LogText_Show_Picture(hOnShow.Draw_Picture);
  else
    LogText_Update_Later();  // a window that is opened tells of its size and of its paper one after the other
}

void LogText_Renew_Picture() {
  if (hOnShow.Draw_Picture) LogText_Redraw();
}

void LogText_Follow() {
  if (hOnShow.hLaidOut.isEmpty() || !toolkit::Drawing_Area() || !toolkit::Main_Menu_Is_on_Show()) return;
  if (toolkit::Child_Window() || toolkit::Backing_Image().size() == hOnShow.hLaidOut) return;
  LogText_Redraw();
  IGrFlush();
}

namespace {

/// What a review must hear of when the work is done: its plot is drawn by itself, and it is left before the program
/// ends.
bool Is_for_Review(const Message& h) {
  const bool bConcernsPlot =
      h.iType == MessageType::Expose || h.iType == MessageType::Resize || h.iType == MessageType::Close;
  return bConcernsPlot && !toolkit::Main_Menu_Is_on_Show();
}

I4 Look_at_Messages(std::vector<Message>& hKept) {
  I4 iFlag = 0;
  for (;;) {
    const Message hMessage = WMessagePeek();
    if (Is_for_Review(hMessage)) {
      hKept.push_back(hMessage);
      if (hMessage.iType == MessageType::Close) return iLookEsc;
      continue;
    }
    switch (hMessage.iType) {
      case MessageType::Key: return hMessage.VALUE1 == iKeyEsc ? iLookEsc : iFlag;
      case MessageType::None:
      case MessageType::MouseDown: return iFlag;
      case MessageType::Expose:
      case MessageType::Resize:
        LogText_Redraw();
        iFlag = 1;
        break;
      case MessageType::Close: Stop_Program();
      case MessageType::FileDropped: iFlag = 2; break;
      default: break;
    }
  }
}

}  // namespace

I4 Message_Check() {
  toolkit::Press_Esc_at_Look();
  std::vector<Message> hKept;
  const I4 iFlag = Look_at_Messages(hKept);
  for (const Message& h : hKept) toolkit::Push_Message(h);
  return iFlag;
}

}  // namespace quillan

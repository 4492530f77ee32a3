#include "toolkit/draw/hardcopy.h"

#include <QGuiApplication>
#include <QImage>
#include <algorithm>
#include <new>
#include <optional>

#include "foundations/file_util.h"
#include "platform/safe_file.h"
#include "toolkit/draw/last_error.h"
#include "toolkit/draw/private_state.h"
#include "toolkit/draw/private_watched.h"

namespace quillan {

using namespace toolkit;

namespace {

constexpr I4 MPictureSize = 32000;  // so that markers at the edge have coordinates of 16 bits
constexpr R8 dScreenDots = 96.0;    // pixels of line width an inch
constexpr R8 dPngDots = 400.0;
constexpr R8 dMetafileUnits = 304.8;  // an inch: 120 a centimetre
constexpr I4 NPageUnits = 254;        // an inch: 100 a centimetre
constexpr R8 dInch = 0.0254;          // m
constexpr R8 dMinEm = 1.0;            // in a metafile, which can be enlarged at will
constexpr std::string_view sNoMemory = "Not enough memory";

/// A picture that is being drawn, and the file that it goes to. Without memory for its pixels nothing is drawn.
struct OpenHardcopy {
  explicit OpenHardcopy(std::string_view sPath) : hFile(sPath), sTitle(File_Name(sPath)) {}
  SafeFile hFile;
  std::string sTitle;
  QImage hImage;
  std::unique_ptr<BackEnd> hPainter;
  std::optional<Metafile> hMetafile;
  std::unique_ptr<PageFile> hPage;
  std::optional<WatchedPicture> hWatched;
};

// Module state. IGrHardCopySelect, IGrHardCopySize and IGrHardCopyFoot choose the next hardcopy, IGrHardCopy opens it.
struct Hardcopy {
  HardCopyDriver iDriver = HardCopyDriver::Png;
  I4 NWidth = 3780, NHeight = 2803;
  I4 NFoot = 0;
  std::unique_ptr<OpenHardcopy> hOpen;

  I4 NWhole() const { return NHeight + NFoot; }
  QSizeF Size() const { return QSizeF(NWidth, NWhole()); }
};
Hardcopy hHardcopy;

/// The smallest letters of a PNG: as large beside the plot as those on the screen.
R8 Png_Min_Em() {
  const R8 dScreen = hDraw.hScreenSize.height();
  return dScreen > 0.0 ? dMinScreenEm * hHardcopy.NHeight / dScreen : dMinEm;
}

Canvas Open_Png(OpenHardcopy& h) {
  h.hImage = QImage(hHardcopy.NWidth, hHardcopy.NWhole(), QImage::Format_RGB32);
  h.hImage.setDotsPerMeterX(qRound(dPngDots / dInch));
  h.hImage.setDotsPerMeterY(qRound(dPngDots / dInch));
  h.hImage.fill(Qt::white);
  const R8 dPixel = dPngDots / dScreenDots;
  h.hPainter = New_Painter(h.hImage, dPixel);
  return {h.hPainter.get(), hHardcopy.Size(), dPixel, Png_Min_Em()};
}

Canvas Open_Metafile(OpenHardcopy& h) {
  h.hMetafile.emplace(hHardcopy.NWidth, hHardcopy.NWhole(), Nint(dMetafileUnits));
  return {&*h.hMetafile, hHardcopy.Size(), dMetafileUnits / dScreenDots, dMinEm};
}

template <auto New_Page>
Canvas Open_Page(OpenHardcopy& h) {
  h.hPage = New_Page({hHardcopy.Size(), NPageUnits, h.sTitle});
  return {h.hPage.get(), hHardcopy.Size(), NPageUnits / dScreenDots, dMinEm};
}

constexpr struct {
  HardCopyDriver iDriver;
  Canvas (*Open)(OpenHardcopy& h);
} hDriverRow[] = {
    {HardCopyDriver::Png,      Open_Png               },
    {HardCopyDriver::Metafile, Open_Metafile          },
    {HardCopyDriver::Svg,      Open_Page<New_Svg_Page>},
    {HardCopyDriver::Pdf,      Open_Page<New_Pdf_Page>},
};

/// The whole file; blank when it could not be made.
std::string File_Bytes(OpenHardcopy& h) {
  if (h.hMetafile) return h.hMetafile->Bytes();
  if (h.hPage) return h.hPage->Bytes();
  WatchedBytes hBytes;
  hBytes.Watch(h.sTitle);
  if (h.hImage.isNull() || !hBytes.open(QIODevice::WriteOnly) || !h.hImage.save(&hBytes, "PNG")) return {};
  return hBytes.data().toStdString();
}

HardCopyStatus Stopped() {
  return {2, "stop", "The export was stopped"};
}

/// Ends the drawing and writes the file; the first step that failed fails it.
HardCopyStatus Finish(OpenHardcopy& h) {
  if (bWorkStopped) return Stopped();
  h.hWatched.reset();
  if (h.hFile.Has_Failed()) return {1, "open", h.hFile.Reason()};
  if (h.hPainter && h.hImage.isNull()) return {1, "open", std::string(sNoMemory)};
  if (const I4 iError = InfoError(); iError != iErrNone) return {1, "draw", WInfoErrorMessage(iError)};
  const std::string sBytes = File_Bytes(h);
  if (bWorkStopped) return Stopped();
  if (sBytes.empty()) return {1, "close", "The picture could not be encoded"};
  h.hFile.Write(sBytes);
  h.hFile.Commit();
  if (h.hFile.Has_Failed()) return {1, "close", h.hFile.Reason()};
  return {};
}

/// All drawing goes into a picture while one of these lives.
class PictureForNow {
 public:
  explicit PictureForNow(const Canvas& hPicture) { Enter_Picture(hPicture); }
  ~PictureForNow() {
    hDraw.hCollected.hLine.clear();  // left over where memory has ended in the middle
    Leave_Picture();
  }
  PictureForNow(const PictureForNow&) = delete;
  PictureForNow& operator=(const PictureForNow&) = delete;
};

}  // namespace

void IGrHardCopySelect(HardCopyDriver iDriver) {
  hHardcopy.iDriver = iDriver;
}

void IGrHardCopySize(I4 NWidth, I4 NHeight) {
  if (std::min(NWidth, NHeight) < 1 || std::max(NWidth, NHeight) > MPictureSize) return Set_Error(iErrBadArgument);
  hHardcopy.NWidth = NWidth;
  hHardcopy.NHeight = NHeight;
}

void IGrHardCopyFoot(I4 NHeight) {
  if (NHeight < 0 || NHeight > MPictureSize - hHardcopy.NHeight) return Set_Error(iErrBadArgument);
  hHardcopy.NFoot = NHeight;
}

I8 IGrHardCopyStrokes(const std::function<void()>& Draw) {
  if (hHardcopy.hOpen || !QGuiApplication::instance()) return 0;  // IGrHardCopy says why
  InqWintError("IGrHardCopyStrokes");
  StrokeCount hCount;
  {
    const PictureForNow hPicture({&hCount, hHardcopy.Size(), 1.0, dMinEm});
    Draw();
    IGrFlush();
  }
  InfoError();  // an error comes again when it is drawn
  return hCount.NStroke;
}

void IGrHardCopy(std::string_view sPath, I8 NStroke) {
  if (hHardcopy.hOpen) return Set_Error(iErrBadArgument);
  if (!QGuiApplication::instance()) return Set_Error(iErrNoWindow);  // there are no fonts
  InqWintError("IGrHardCopy");                                       // an error from before is not the picture's
  hHardcopy.hOpen = std::make_unique<OpenHardcopy>(sPath);
  const auto* hRow = std::ranges::find_if(hDriverRow, [](const auto& h) { return h.iDriver == hHardcopy.iDriver; });
  OpenHardcopy& h = *hHardcopy.hOpen;
  Canvas hCanvas = hRow->Open(h);
  h.hWatched.emplace(*hCanvas.hBackEnd, h.sTitle, NStroke);
  hCanvas.hBackEnd = &*h.hWatched;
  hCanvas.dFoot = hHardcopy.NFoot;
  Enter_Picture(hCanvas);
}

HardCopyStatus IGrHardCopyEnd() {
  if (!hHardcopy.hOpen) {
    Set_Error(iErrBadArgument);
    return {1, "open", "No picture is open"};
  }
  Leave_Picture();
  HardCopyStatus hStatus;
  try {
    hStatus = Finish(*hHardcopy.hOpen);
  } catch (const std::bad_alloc&) {
    hStatus = {1, "close", std::string(sNoMemory)};
  }
  if (hStatus.iError != 0) InfoError();  // the status says it
  hHardcopy.hOpen.reset();
  return hStatus;
}

void IGrHardCopyDrop() {
  if (!hHardcopy.hOpen) return;
  hDraw.hCollected.hLine.clear();  // to draw them may be what there is no memory for
  Leave_Picture();
  hHardcopy.hOpen.reset();
}

}  // namespace quillan

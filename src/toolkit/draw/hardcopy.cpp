#include "toolkit/draw/hardcopy.h"

#include <QBuffer>
#include <QGuiApplication>
#include <QImage>
#include <optional>

#include "platform/safe_file.h"
#include "toolkit/draw/last_error.h"
#include "toolkit/draw/private_draw.h"

namespace quillan {

using namespace toolkit;

namespace {

constexpr I4 MPictureSize = 32000;  // so that markers at the edge have coordinates of 16 bits
constexpr R8 dScreenDots = 96.0;    // pixels of line width an inch
constexpr R8 dPngDots = 400.0;
constexpr R8 dMetafileUnits = 304.8;  // an inch: 120 a centimetre
constexpr R8 dInch = 0.0254;          // m
constexpr R8 dMinEm = 1.0;            // on paper small letters can be read

/// A picture that is being drawn, and the file that it goes to.
struct OpenHardcopy {
  explicit OpenHardcopy(std::string_view sPath) : hFile(sPath) {}
  SafeFile hFile;
  QImage hImage;
  std::unique_ptr<BackEnd> hPainter;
  std::optional<Metafile> hMetafile;
};

// Module state. IGrHardCopySelect and IGrHardCopySize choose the next hardcopy, IGrHardCopy opens it.
struct Hardcopy {
  HardCopyDriver iDriver = HardCopyDriver::Png;
  I4 NWidth = 3780, NHeight = 2803;
  std::unique_ptr<OpenHardcopy> hOpen;
};
Hardcopy hHardcopy;

Canvas Open_Png(OpenHardcopy& h) {
  h.hImage = QImage(hHardcopy.NWidth, hHardcopy.NHeight, QImage::Format_RGB32);
  h.hImage.setDotsPerMeterX(qRound(dPngDots / dInch));
  h.hImage.setDotsPerMeterY(qRound(dPngDots / dInch));
  h.hImage.fill(Qt::white);
  const R8 dPixel = dPngDots / dScreenDots;
  h.hPainter = New_Painter(h.hImage, dPixel);
  return {h.hPainter.get(), QSizeF(h.hImage.size()), dPixel, dMinEm};
}

Canvas Open_Metafile(OpenHardcopy& h) {
  h.hMetafile.emplace(hHardcopy.NWidth, hHardcopy.NHeight, Nint(dMetafileUnits));
  const QSizeF hSize(hHardcopy.NWidth, hHardcopy.NHeight);
  return {&*h.hMetafile, hSize, dMetafileUnits / dScreenDots, dMinEm};
}

std::string File_Bytes(const OpenHardcopy& h) {
  if (h.hMetafile) return h.hMetafile->Bytes();
  QBuffer hBytes;
  hBytes.open(QIODevice::WriteOnly);
  h.hImage.save(&hBytes, "PNG");
  return hBytes.data().toStdString();
}

}  // namespace

void toolkit::Drop_Hardcopy() {
  hHardcopy.hOpen.reset();
}

void IGrHardCopySelect(HardCopyDriver iDriver) {
  hHardcopy.iDriver = iDriver;
}

void IGrHardCopySize(I4 NWidth, I4 NHeight) {
  if (std::min(NWidth, NHeight) < 1 || std::max(NWidth, NHeight) > MPictureSize) return Set_Error(iErrBadArgument);
  hHardcopy.NWidth = NWidth;
  hHardcopy.NHeight = NHeight;
}

void IGrHardCopy(std::string_view sPath) {
  if (hHardcopy.hOpen) return Set_Error(iErrBadArgument);
  if (!QGuiApplication::instance()) return Set_Error(iErrNoWindow);  // there are no fonts
  hHardcopy.hOpen = std::make_unique<OpenHardcopy>(sPath);
  OpenHardcopy& h = *hHardcopy.hOpen;
  // After a failure drawing goes into a picture that nobody sees.
  if (h.hFile.Has_Failed()) Set_Error(iErrFile);
  Enter_Picture(hHardcopy.iDriver == HardCopyDriver::Png ? Open_Png(h) : Open_Metafile(h));
}

bool IGrHardCopyEnd() {
  if (!hHardcopy.hOpen) {
    Set_Error(iErrBadArgument);
    return false;
  }
  Leave_Picture();
  SafeFile& hFile = hHardcopy.hOpen->hFile;
  if (!hFile.Has_Failed()) hFile.Write(File_Bytes(*hHardcopy.hOpen));
  hFile.Commit();
  const bool bDone = !hFile.Has_Failed();
  if (!bDone) Set_Error(iErrFile);
  hHardcopy.hOpen.reset();
  return bDone;
}

}  // namespace quillan

#include "toolkit/dialog/picture.h"

#include <QImage>
#include <QPainter>
#include <QWidget>

#include "toolkit/dialog/private_dialog.h"
#include "toolkit/window/private_window.h"

namespace quillan {

using namespace toolkit;

namespace {

class PictureArea : public QWidget {
 public:
  using QWidget::QWidget;

  Canvas New_Canvas() { return {hPainter.get(), QSizeF(size()), 1.0, dMinScreenEm, false}; }

 protected:
  void paintEvent(QPaintEvent*) override { QPainter(this).drawImage(rect(), hImage); }

  void resizeEvent(QResizeEvent*) override {
    const R8 dRatio = devicePixelRatioF();
    hImage = QImage((QSizeF(size()) * dRatio).toSize().expandedTo(QSize(1, 1)), QImage::Format_RGB32);
    hImage.setDevicePixelRatio(dRatio);
    hImage.fill(Qt::white);
    Push_Message({.iType = MessageType::Expose});
  }

 private:
  QImage hImage{1, 1, QImage::Format_RGB32};
  std::unique_ptr<BackEnd> hPainter = New_Painter(hImage, 1.0);
};

PictureArea* Area_of(const Field* hField) {
  return hField ? dynamic_cast<PictureArea*>(hField->hWidget) : nullptr;
}

}  // namespace

QWidget* toolkit::New_Picture(QWidget* hParent) {
  return new PictureArea(hParent);
}

SelectedPicture::SelectedPicture(I4 iPicture) : iField(iPicture) {
  const Field* hField = Find_Field(iField);
  PictureArea* hArea = Area_of(hField);
  if (hField && !hArea) Set_Error(iErrNoField);
  Enter_Picture(hArea ? hArea->New_Canvas() : Canvas{});
}

SelectedPicture::~SelectedPicture() {
  Leave_Picture();
  if (PictureArea* hArea = Area_of(Known_Field(iField))) hArea->update();
}

}  // namespace quillan

// The look of a dialog that was just loaded from its designer file.
#include <QDialogButtonBox>
#include <QFontDatabase>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

#include "toolkit/dialog/private_dialog.h"

namespace quillan {

using namespace toolkit;

namespace {

/// The button box has the platform's order; its two buttons get the names that the program knows them by.
void Name_Buttons(QDialog& hWindow) {
  auto* hBox = hWindow.findChild<QDialogButtonBox*>();
  if (!hBox) return;
  const auto Name = [hBox](QDialogButtonBox::StandardButton iStandard, I4 iButton, const char* sText) {
    QPushButton* hButton = hBox->button(iStandard);
    if (!hButton) return;
    hButton->setObjectName(QString("c%1").arg(iButton));
    hButton->setText(sText);
    hButton->setIcon({});
    hButton->setDefault(iButton == iBtnContinue);
  };
  Name(QDialogButtonBox::Ok, iBtnContinue, "Continue");
  Name(QDialogButtonBox::Cancel, iBtnCancel, "Cancel");
}

void Set_Fixed_Font(QWidget* hWidget) {
  if (!hWidget->property("fixedFont").toBool()) return;
  QFont hFont = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  hFont.setPointSizeF(hWidget->font().pointSizeF());
  hWidget->setFont(hFont);
}

/// A field that only shows has the colour of what surrounds it.
void Set_Read_Only_Look(QWidget* hWidget) {
  const auto* hLine = qobject_cast<QLineEdit*>(hWidget);
  if (!hLine || !hLine->isReadOnly()) return;
  QPalette hPalette = hWidget->palette();
  hPalette.setColor(QPalette::Base, hPalette.color(QPalette::Window));
  hWidget->setPalette(hPalette);
}

/// Grey remarks beside controls, in the theme's own grey, so that a dark theme shows them too.
void Grey_Notes(QDialog& hWindow) {
  for (QLabel* hNote : Numbered<QLabel>(hWindow, cRemark)) {
    QPalette hPalette = hNote->palette();
    hPalette.setColor(QPalette::WindowText, hPalette.color(QPalette::PlaceholderText));
    hNote->setPalette(hPalette);
  }
}

/// Width of the labels in the first column of a group.
I4 Label_Width(const QGridLayout& hGrid) {
  I4 NWidth = 0;
  for (I4 iRow = 0; iRow < hGrid.rowCount(); ++iRow) {
    const QLayoutItem* hItem = hGrid.itemAtPosition(iRow, 0);
    const bool bAlone = hItem && hItem != hGrid.itemAtPosition(iRow, 1);  // a heading goes on into the next column
    if (bAlone && qobject_cast<QLabel*>(hItem->widget())) NWidth = std::max(NWidth, hItem->sizeHint().width());
  }
  return NWidth;
}

/// Fields of groups that stand one above the other begin at the same place.
void Align_Groups(QDialog& hWindow) {
  for (const QVBoxLayout* hColumn : hWindow.findChildren<QVBoxLayout*>()) {
    std::vector<QGridLayout*> hGroup;
    for (I4 I = 0; I < hColumn->count(); ++I) {
      const QWidget* hBox = hColumn->itemAt(I)->widget();
      if (auto* hGrid = hBox ? qobject_cast<QGridLayout*>(hBox->layout()) : nullptr) hGroup.push_back(hGrid);
    }
    I4 NWidth = 0;
    for (const QGridLayout* hGrid : hGroup) NWidth = std::max(NWidth, Label_Width(*hGrid));
    for (QGridLayout* hGrid : hGroup) hGrid->setColumnMinimumWidth(0, NWidth);
  }
}

}  // namespace

void toolkit::Give_Look(QDialog& hWindow) {
  Name_Buttons(hWindow);
  Grey_Notes(hWindow);
  Align_Groups(hWindow);
  if (hWindow.property("toolWindow").toBool()) Add_Title_Bar(hWindow);
  for (QWidget* hWidget : Numbered<QWidget>(hWindow, cControl)) {
    Set_Fixed_Font(hWidget);
    Set_Read_Only_Look(hWidget);
  }
}

}  // namespace quillan

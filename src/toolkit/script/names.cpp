#include "toolkit/script/private_names.h"

#include <QAbstractButton>
#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QTableWidget>
#include <algorithm>
#include <iterator>

#include "toolkit/dialog/private_dialog.h"
#include "toolkit/script/private_script.h"
#include "toolkit/window/private_window.h"

namespace quillan::toolkit {
namespace {

/// A text as it stands in a script: without what only helps the eye.
QString As_Written(QString sText) {
  sText = As_Read(sText.remove('&'));
  if (sText.endsWith("...")) sText.chop(3);
  if (sText.endsWith(':')) sText.chop(1);
  return sText.trimmed();
}

/// A text as it is compared.
QString Compared(const QString& sText) {
  return As_Written(QString(sText).remove(':').replace('-', ' ')).toCaseFolded();
}

bool Has_Name(const Named& hNamed, const QString& sWanted) {
  return std::ranges::any_of(hNamed.sName, [&](const QString& sName) { return Compared(sName) == sWanted; });
}

bool Has_Words(const Named& hNamed, const QString& sWanted) {
  return std::ranges::any_of(hNamed.sName,
                             [&](const QString& sName) { return (' ' + Compared(sName)).contains(' ' + sWanted); });
}

/// Those that a word may mean: of that name, or else with these words in it.
std::vector<Named> Candidates(const QString& sWord, const std::vector<Named>& hNamed) {
  const QString sWanted = Compared(sWord);
  std::vector<Named> hFound;
  if (sWanted.isEmpty()) return hFound;
  for (const auto bFits : {Has_Name, Has_Words}) {
    std::ranges::copy_if(hNamed, std::back_inserter(hFound), [&](const Named& h) { return bFits(h, sWanted); });
    if (!hFound.empty()) break;
  }
  return hFound;
}

std::string Listed(const std::vector<Named>& hNamed) {
  std::string sAll;
  for (const Named& h : hNamed) {
    const std::string sName = h.sName.isEmpty() ? "" : To_Bytes(As_Written(h.sName.front())) + ' ';
    sAll += (sAll.empty() ? "" : ", ") + sName + '(' + std::to_string(h.iNumber) + ')';
  }
  return sAll;
}

/// A control that the user cannot see has no name either.
bool Is_Offered(const Field& hField, bool (*bFits)(QWidget*)) {
  const QWidget& hWidget = *hField.hWidget;
  return bFits(hField.hWidget) && hWidget.isVisibleTo(hWidget.window());
}

QStringList Names_of(const QWidget& hWidget) {
  QStringList sName;
  const QString sGiven = hWidget.property("stepName").toString();
  if (!sGiven.isEmpty()) sName << sGiven;
  if (const auto* hButton = qobject_cast<const QAbstractButton*>(&hWidget)) sName << hButton->text();
  for (const QLabel* hLabel : hWidget.window()->findChildren<QLabel*>())
    if (hLabel->buddy() == &hWidget) sName << hLabel->text();
  return sName;
}

template <class Header>
std::vector<Named> Named_Headers(I4 NHeader, const Header& Item) {
  std::vector<Named> hNamed;
  for (I4 I = 1; I <= NHeader; ++I) {
    const QTableWidgetItem* hItem = Item(I - 1);
    hNamed.push_back({I, hItem ? QStringList(hItem->text()) : QStringList()});
  }
  return hNamed;
}

}  // namespace

Meant Number_Meant(const std::string& sWord, const std::vector<Named>& hNamed, const std::string& sNone,
                   const std::string& sKind) {
  I4 iNumber = 0;
  if (Reads_As(sWord, iNumber)) return {iNumber, ""};
  const std::vector<Named> hFound = Candidates(To_QString(sWord), hNamed);
  if (hFound.size() == 1) return {hFound.front().iNumber, ""};
  if (!hFound.empty()) return {0, sKind + " \"" + sWord + "\" may be " + Listed(hFound)};
  const std::string sThere = hNamed.empty() ? "" : "; there are " + Listed(hNamed);
  return {0, sNone + ' ' + sKind + " \"" + sWord + '"' + sThere};
}

std::string Word_for(I4 iNumber, const std::vector<Named>& hNamed) {
  const auto hFound = std::ranges::find(hNamed, iNumber, &Named::iNumber);
  if (hFound == hNamed.end()) return std::to_string(iNumber);
  for (const QString& sName : hFound->sName) {
    const std::string sWord = To_Bytes(As_Written(sName));
    const Meant hMeant = Number_Meant(sWord, hNamed, "", "");
    I4 iNoWord = 0;
    if (hMeant.sReason.empty() && hMeant.iNumber == iNumber && !Reads_As(sWord, iNoWord)) return sWord;
  }
  return std::to_string(iNumber);
}

bool Is_Line(QWidget* hWidget) {
  return Line_Edit(hWidget) != nullptr;
}

bool Is_Chosen_From(QWidget* hWidget) {
  const auto* hGrid = qobject_cast<QTableWidget*>(hWidget);
  return Is_a<QComboBox>(hWidget) || (hGrid && hGrid->selectionBehavior() == QAbstractItemView::SelectRows);
}

std::vector<Named> Named_Commands() {
  std::vector<Named> hNamed;
  for (const QAction* hEntry : Menu_Entries()) {
    if (!hEntry->isVisible()) continue;
    const I4 iCommand = hEntry->data().toInt();
    const QString sGiven = hEntry->property("stepName").toString();
    const QString sName = sGiven.isEmpty() ? hEntry->text() : sGiven;
    const auto hKnown = std::ranges::find(hNamed, iCommand, &Named::iNumber);
    if (hKnown == hNamed.end())
      hNamed.push_back({iCommand, {sName}});
    else
      hKnown->sName << sName;  // a command may stand in the bar twice
  }
  return hNamed;
}

std::vector<Named> Named_Controls(bool (*bFits)(QWidget* hWidget)) {
  std::vector<Named> hNamed;
  const DialogRecord* hDialog = Known_Dialog();
  if (!hDialog) return hNamed;
  for (const auto& [iField, hField] : hDialog->hField)
    if (Is_Offered(hField, bFits)) hNamed.push_back({iField, Names_of(*hField.hWidget)});
  return hNamed;
}

std::vector<Named> Named_Entries(const QComboBox& hDropDown) {
  std::vector<Named> hNamed;
  for (I4 I = 1; I <= hDropDown.count(); ++I) hNamed.push_back({I, {hDropDown.itemText(I - 1)}});
  return hNamed;
}

std::vector<Named> Named_Rows(const QTableWidget& hGrid) {
  return Named_Headers(hGrid.rowCount(), [&](int iRow) { return hGrid.verticalHeaderItem(iRow); });
}

std::vector<Named> Named_Columns(const QTableWidget& hGrid) {
  return Named_Headers(hGrid.columnCount(), [&](int iColumn) { return hGrid.horizontalHeaderItem(iColumn); });
}

}  // namespace quillan::toolkit

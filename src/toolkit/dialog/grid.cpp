#include "toolkit/dialog/grid.h"

#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QPainter>
#include <QStyledItemDelegate>
#include <QTableWidget>
#include <algorithm>

#include "toolkit/draw/last_error.h"
#include "toolkit/window/private.h"

namespace quillan {

using namespace toolkit;

namespace {

// What a cell remembers of a put value.
constexpr I4 iPutRole = Qt::UserRole;        // the value
constexpr I4 iShownRole = Qt::UserRole + 1;  // the text that it was shown as

I4 Cell_Status(const QString& sText, const QVariant& hShown, const QVariant& hPut, const NumberRule& rule, R8& dValue) {
  if (sText.isEmpty() || !hShown.isValid() || sText != hShown.toString()) return Read_Number(sText, rule, dValue);
  dValue = hPut.toDouble();
  return iErrNone;
}

class GridTable;

/// Numbers in cells: right-aligned, framed in red where they are bad, also while the user types.
class NumberDelegate : public QStyledItemDelegate {
 public:
  explicit NumberDelegate(QObject* hParent) : QStyledItemDelegate(hParent) {}
  NumberRule rule;

  bool Is_Bad(const QString& sText, const QModelIndex& hCell) const {
    R8 dIgnored = 0.0;
    return Cell_Status(sText, hCell.data(iShownRole), hCell.data(iPutRole), rule, dIgnored) == iErrFieldBad;
  }

  QWidget* createEditor(QWidget* hParent, const QStyleOptionViewItem&, const QModelIndex& hCell) const override {
    auto* hLine = new QLineEdit(hParent);
    hLine->setFrame(false);
    hLine->setAlignment(Qt::AlignRight);
    hLine->setToolTip(hParent->parentWidget()->toolTip());
    const QPersistentModelIndex hKept(hCell);
    QObject::connect(hLine, &QLineEdit::textChanged, hLine,
                     [this, hLine, hKept] { Mark_Bad(hLine, Is_Bad(hLine->text(), hKept)); });
    return hLine;
  }

  void paint(QPainter* hPainter, const QStyleOptionViewItem& hOption, const QModelIndex& hCell) const override {
    QStyledItemDelegate::paint(hPainter, hOption, hCell);
    if (!Is_Bad(hCell.data().toString(), hCell)) return;
    hPainter->save();
    hPainter->setPen(QPen(Qt::red, 2));
    hPainter->drawRect(hOption.rect.adjusted(1, 1, -1, -1));
    hPainter->restore();
  }
};

/// A table of a dialog. Tab goes to the next control, not round and round the cells.
class GridTable : public QTableWidget {
 public:
  using QTableWidget::QTableWidget;

  QLineEdit* Open_Editor() const { return viewport()->findChild<QLineEdit*>(); }

  void Complete() {
    QLineEdit* hLine = Open_Editor();
    if (!hLine) return;
    commitData(hLine);
    closeEditor(hLine, QAbstractItemDelegate::NoHint);
  }

  NumberDelegate* Number_Column(I4 iColumn) {
    if (auto* hKnown = dynamic_cast<NumberDelegate*>(itemDelegateForColumn(iColumn))) return hKnown;
    auto* hNew = new NumberDelegate(this);
    hNew->rule.iKind = FieldKind::Real;
    setItemDelegateForColumn(iColumn, hNew);
    return hNew;
  }

 protected:
  /// Tab in an open cell goes on to the next row; behind the last one it leaves the table.
  void closeEditor(QWidget* hEditor, QAbstractItemDelegate::EndEditHint iHint) override {
    const bool bLeaves = (iHint == QAbstractItemDelegate::EditNextItem && currentRow() == rowCount() - 1) ||
                         (iHint == QAbstractItemDelegate::EditPreviousItem && currentRow() == 0);
    QTableWidget::closeEditor(hEditor, bLeaves ? QAbstractItemDelegate::NoHint : iHint);
    if (bLeaves) focusNextPrevChild(iHint == QAbstractItemDelegate::EditNextItem);
  }
};

void Tell_Change(I4 iGrid) {
  Message hMessage;
  hMessage.VALUE1 = iGrid;
  Push_Message(MessageType::Field, hMessage);
}

I4 Id_of(const QWidget* hGrid) {
  return hGrid->objectName().mid(1).toInt();
}

GridTable* Find_Grid(I4 iGrid) {
  const Field* hField = Find_Field(iGrid);
  if (!hField) return nullptr;
  auto* hGrid = dynamic_cast<GridTable*>(hField->hWidget);
  if (!hGrid) Set_Error(iErrNoField);
  return hGrid;
}

/// The grid, if it has that column (from 1).
GridTable* Find_Column(I4 iGrid, I4 iColumn) {
  GridTable* hGrid = Find_Grid(iGrid);
  if (!hGrid || (iColumn >= 1 && iColumn <= hGrid->columnCount())) return hGrid;
  Set_Error(iErrBadArgument);
  return nullptr;
}

QTableWidgetItem* Cell(GridTable& hGrid, I4 iRow, I4 iColumn) {
  if (QTableWidgetItem* hItem = hGrid.item(iRow, iColumn)) return hItem;
  auto* hItem = new QTableWidgetItem;
  hGrid.setItem(iRow, iColumn, hItem);
  return hItem;
}

template <class Value>
I4 Rows(const GridTable& hGrid, std::span<Value> hValue) {
  return std::min(hGrid.rowCount(), static_cast<I4>(hValue.size()));
}

void Show_Real(GridTable& hGrid, I4 iRow, I4 iColumn, R4 fValue, const NumberRule& rule) {
  QTableWidgetItem* hItem = Cell(hGrid, iRow, iColumn);
  if (hGrid.isPersistentEditorOpen(hItem)) return;  // the user is typing there
  const QString sText = Number_Text(static_cast<R8>(fValue), rule);
  hItem->setData(iPutRole, static_cast<R8>(fValue));
  hItem->setData(iShownRole, sText);
  hItem->setText(sText);
  hItem->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
}

QComboBox* New_Drop_Down(std::span<const std::string> sEntry, I4 iSelect, I4 iGrid) {
  auto* hDropDown = new QComboBox;
  for (const std::string& sText : sEntry) hDropDown->addItem(To_QString(sText));
  hDropDown->setCurrentIndex(iSelect - 1);
  Ignore_Wheel(hDropDown);
  QObject::connect(hDropDown, &QComboBox::activated, hDropDown, [iGrid] { Tell_Change(iGrid); });
  return hDropDown;
}

}  // namespace

namespace toolkit {

QWidget* New_Grid(QWidget* hParent) {
  auto* hGrid = new GridTable(hParent);
  hGrid->setTabKeyNavigation(false);
  hGrid->setSizeAdjustPolicy(QAbstractScrollArea::AdjustToContents);
  hGrid->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
  hGrid->horizontalHeader()->setHighlightSections(false);
  hGrid->verticalHeader()->setHighlightSections(false);
  hGrid->setSelectionMode(QAbstractItemView::SingleSelection);
  hGrid->setEditTriggers(QAbstractItemView::AnyKeyPressed | QAbstractItemView::DoubleClicked |
                         QAbstractItemView::EditKeyPressed | QAbstractItemView::SelectedClicked);
  QObject::connect(hGrid, &QTableWidget::cellChanged, hGrid, [hGrid] { Tell_Change(Id_of(hGrid)); });
  return hGrid;
}

void Grid_Complete(QWidget* hGrid) {
  if (auto* hTable = dynamic_cast<GridTable*>(hGrid)) hTable->Complete();
}

}  // namespace toolkit

void WGridRows(I4 iGrid, I4 NRow) {
  if (GridTable* hGrid = Find_Grid(iGrid)) hGrid->setRowCount(std::max(NRow, 0));
}

void WGridLabelRow(I4 iGrid, I4 iRow, std::string_view sLabel) {
  if (GridTable* hGrid = Find_Grid(iGrid))
    hGrid->setVerticalHeaderItem(iRow - 1, new QTableWidgetItem(To_QString(sLabel)));
}

void WGridLabelColumn(I4 iGrid, I4 iColumn, std::string_view sLabel) {
  if (GridTable* hGrid = Find_Column(iGrid, iColumn))
    hGrid->setHorizontalHeaderItem(iColumn - 1, new QTableWidgetItem(To_QString(sLabel)));
}

void WGridRangeReal(I4 iGrid, I4 iColumn, R8 dLow, R8 dHigh) {
  GridTable* hGrid = Find_Column(iGrid, iColumn);
  if (!hGrid) return;
  NumberRule& rule = hGrid->Number_Column(iColumn - 1)->rule;
  rule.dLow = dLow;
  rule.dHigh = dHigh;
  Set_Tip(hGrid, Find_Field(iGrid)->sTip + Range_Words(rule));
}

void WGridPutString(I4 iGrid, I4 iColumn, std::span<const std::string> sText) {
  GridTable* hGrid = Find_Column(iGrid, iColumn);
  if (!hGrid) return;
  const QSignalBlocker hQuiet(hGrid);
  for (I4 iRow = 0; iRow < Rows(*hGrid, sText); ++iRow) {
    QTableWidgetItem* hItem = Cell(*hGrid, iRow, iColumn - 1);
    hItem->setText(To_QString(sText[static_cast<std::size_t>(iRow)]));
    hItem->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
  }
}

void WGridPutReal(I4 iGrid, I4 iColumn, std::span<const R4> fValue, const EditForm& form) {
  GridTable* hGrid = Find_Column(iGrid, iColumn);
  if (!hGrid) return;
  NumberRule& rule = hGrid->Number_Column(iColumn - 1)->rule;
  rule.form = form;
  const QSignalBlocker hQuiet(hGrid);
  for (I4 iRow = 0; iRow < Rows(*hGrid, fValue); ++iRow)
    Show_Real(*hGrid, iRow, iColumn - 1, fValue[static_cast<std::size_t>(iRow)], rule);
  hGrid->viewport()->update();
}

void WGridPutMenu(I4 iGrid, I4 iColumn, std::span<const std::string> sEntry, std::span<const I4> iSelect) {
  GridTable* hGrid = Find_Column(iGrid, iColumn);
  if (!hGrid) return;
  hGrid->setFocusPolicy(Qt::ClickFocus);  // Tab goes from one drop-down to the next
  QWidget* hBefore = hGrid;
  for (I4 iRow = 0; iRow < Rows(*hGrid, iSelect); ++iRow) {
    QComboBox* hDropDown = New_Drop_Down(sEntry, iSelect[static_cast<std::size_t>(iRow)], iGrid);
    hGrid->setCellWidget(iRow, iColumn - 1, hDropDown);
    QWidget::setTabOrder(hBefore, hDropDown);
    hBefore = hDropDown;
  }
}

void WGridGetReal(I4 iGrid, I4 iColumn, std::span<R4> fValue) {
  GridTable* hGrid = Find_Column(iGrid, iColumn);
  if (!hGrid) return;
  const NumberRule& rule = hGrid->Number_Column(iColumn - 1)->rule;
  for (I4 iRow = 0; iRow < Rows(*hGrid, fValue); ++iRow) {
    const QTableWidgetItem* hItem = Cell(*hGrid, iRow, iColumn - 1);
    R8 dValue = 0.0;
    const I4 iStatus = Cell_Status(hItem->text(), hItem->data(iShownRole), hItem->data(iPutRole), rule, dValue);
    if (iStatus == iErrNone)
      fValue[static_cast<std::size_t>(iRow)] = static_cast<R4>(dValue);
    else
      Set_Error(iStatus);
  }
}

void WGridGetMenu(I4 iGrid, I4 iColumn, std::span<I4> iSelect) {
  GridTable* hGrid = Find_Column(iGrid, iColumn);
  if (!hGrid) return;
  for (I4 iRow = 0; iRow < Rows(*hGrid, iSelect); ++iRow) {
    const auto* hDropDown = qobject_cast<QComboBox*>(hGrid->cellWidget(iRow, iColumn - 1));
    if (hDropDown && hDropDown->currentIndex() >= 0)
      iSelect[static_cast<std::size_t>(iRow)] = hDropDown->currentIndex() + 1;
    else
      Set_Error(iErrFieldEmpty);
  }
}

}  // namespace quillan

#include "toolkit/dialog/grid.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPainter>
#include <QStyledItemDelegate>
#include <QTableWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "toolkit/dialog/private_dialog.h"
#include "toolkit/window/private_window.h"

namespace quillan {

using namespace toolkit;

namespace {

// What a cell remembers of a put value.
constexpr I4 iPutRole = Qt::UserRole;        // the value
constexpr I4 iShownRole = Qt::UserRole + 1;  // the text that it was shown as

constexpr I4 NBesideWord = 4;  // pixels on either side of the word in the corner

/// Whether a cell still shows the value that was put.
bool Is_as_Put(const QString& sText, const QVariant& hShown) {
  return !sText.isEmpty() && hShown.isValid() && sText == hShown.toString();
}

/// Numbers in cells: right-aligned, framed in red where they are bad, also while the user types.
class NumberDelegate : public QStyledItemDelegate {
 public:
  explicit NumberDelegate(QObject* hParent) : QStyledItemDelegate(hParent) {}
  NumberRule rule;

  bool Is_Bad(const QString& sText, const QModelIndex& hCell) const {
    return !Is_as_Put(sText, hCell.data(iShownRole)) && Is_Bad_Number(sText, rule);
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

/// Check boxes in the middle of their cells, which are switched by a click anywhere in the cell.
class CheckDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter* hPainter, const QStyleOptionViewItem& hOption, const QModelIndex& hCell) const override {
    QStyleOptionViewItem hBox(hOption);
    const bool bInUse = hCell.flags() & Qt::ItemIsEnabled;
    const bool bOn = hCell.data(Qt::CheckStateRole).toInt() == Qt::Checked;
    hBox.state |= bOn ? QStyle::State_On : QStyle::State_Off;
    const QStyle* hStyle = hOption.widget->style();
    hStyle->drawPrimitive(QStyle::PE_PanelItemViewItem, &hBox, hPainter, hOption.widget);
    if (!bInUse || !hCell.data(Qt::CheckStateRole).isValid()) return;
    const QSize hSize(hStyle->pixelMetric(QStyle::PM_IndicatorWidth, &hBox, hOption.widget),
                      hStyle->pixelMetric(QStyle::PM_IndicatorHeight, &hBox, hOption.widget));
    hBox.rect = QStyle::alignedRect(hOption.direction, Qt::AlignCenter, hSize, hOption.rect);
    hStyle->drawPrimitive(QStyle::PE_IndicatorItemViewItemCheck, &hBox, hPainter, hOption.widget);
  }

  bool editorEvent(QEvent* hEvent, QAbstractItemModel* hModel, const QStyleOptionViewItem&,
                   const QModelIndex& hCell) override {
    if (!Switches(*hEvent)) return false;
    const QVariant hState = hCell.data(Qt::CheckStateRole);
    if (!hState.isValid() || !(hCell.flags() & Qt::ItemIsEnabled)) return false;
    return hModel->setData(hCell, hState.toInt() == Qt::Checked ? Qt::Unchecked : Qt::Checked, Qt::CheckStateRole);
  }

 private:
  static bool Switches(const QEvent& hEvent) {
    if (hEvent.type() == QEvent::KeyPress) return static_cast<const QKeyEvent&>(hEvent).key() == Qt::Key_Space;
    return hEvent.type() == QEvent::MouseButtonRelease &&
           static_cast<const QMouseEvent&>(hEvent).button() == Qt::LeftButton;
  }
};

/// A table of a dialog. Tab goes to the next control, not round and round the cells.
class GridTable : public QTableWidget {
 public:
  using QTableWidget::QTableWidget;

  /// Editors that were closed are there, hidden, until their deletion is due.
  QLineEdit* Open_Editor() const {
    const auto hAll = viewport()->findChildren<QLineEdit*>();
    const auto hOpen = std::ranges::find_if(hAll, [](const QLineEdit* hLine) { return !hLine->isHidden(); });
    return hOpen == hAll.end() ? nullptr : *hOpen;
  }

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

  void Check_Column(I4 iColumn) {
    if (!dynamic_cast<CheckDelegate*>(itemDelegateForColumn(iColumn)))
      setItemDelegateForColumn(iColumn, new CheckDelegate(this));
  }

 protected:
  /// Tab in an open cell goes on to the next row; after the last one it leaves the table. In a tool window the
  /// keyboard goes back to the plot.
  void closeEditor(QWidget* hEditor, QAbstractItemDelegate::EndEditHint iHint) override {
    const bool bLeaves = (iHint == QAbstractItemDelegate::EditNextItem && currentRow() == rowCount() - 1) ||
                         (iHint == QAbstractItemDelegate::EditPreviousItem && currentRow() == 0);
    QTableWidget::closeEditor(hEditor, bLeaves ? QAbstractItemDelegate::NoHint : iHint);
    if (bLeaves) focusNextPrevChild(iHint == QAbstractItemDelegate::EditNextItem);
    if (!Open_Editor())
      QMetaObject::invokeMethod(
          this, [] { Focus_Plot(); }, Qt::QueuedConnection);
  }
};

/// The user has changed a cell (from 1).
void Report_Change(const GridTable& hGrid, I4 iRow, I4 iColumn) {
  hDialogListener.Cell(hGrid, iRow, iColumn);
  Push_Message({.iType = MessageType::Field, .VALUE1 = hGrid.objectName().mid(1).toInt()});
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

QComboBox* New_Drop_Down(std::span<const std::string> sEntry, I4 iSelect) {
  auto* hDropDown = new QComboBox;
  for (const std::string& sText : sEntry) hDropDown->addItem(To_QString(sText));
  hDropDown->setCurrentIndex(iSelect - 1);
  Ignore_Wheel(hDropDown);
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
  QObject::connect(hGrid, &QTableWidget::cellChanged, hGrid,
                   [hGrid](I4 iRow, I4 iColumn) { Report_Change(*hGrid, iRow + 1, iColumn + 1); });
  QObject::connect(hGrid, &QTableWidget::currentCellChanged, hGrid, [hGrid](I4 iRow) {
    if (iRow >= 0 && hGrid->selectionBehavior() == QAbstractItemView::SelectRows) hDialogListener.Row(*hGrid, iRow + 1);
  });
  return hGrid;
}

void Grid_Complete(QWidget* hGrid) {
  if (auto* hTable = dynamic_cast<GridTable*>(hGrid)) hTable->Complete();
}

QWidget* Grid_Cells(QWidget* hGrid) {
  auto* hTable = dynamic_cast<GridTable*>(hGrid);
  return hTable ? hTable->viewport() : nullptr;
}

bool Grid_Is_Edited(QWidget* hGrid) {
  const auto* hTable = dynamic_cast<GridTable*>(hGrid);
  return hTable && hTable->Open_Editor();
}

}  // namespace toolkit

void WGridRows(I4 iGrid, I4 NRow) {
  GridTable* hGrid = Find_Grid(iGrid);
  if (!hGrid) return;
  const QSignalBlocker hQuiet(hGrid);
  hGrid->setRowCount(std::max(NRow, 0));
}

void WGridLabelRows(I4 iGrid, std::span<const std::string> sLabel) {
  GridTable* hGrid = Find_Grid(iGrid);
  if (!hGrid) return;
  const QSignalBlocker hQuiet(hGrid);
  for (I4 iRow = 0; iRow < Rows(*hGrid, sLabel); ++iRow)
    hGrid->setVerticalHeaderItem(iRow, new QTableWidgetItem(To_QString(sLabel[static_cast<std::size_t>(iRow)])));
}

void WGridLabelCorner(I4 iGrid, std::string_view sLabel) {
  const GridTable* hGrid = Find_Grid(iGrid);
  auto* hCorner = hGrid ? hGrid->findChild<QAbstractButton*>(QString(), Qt::FindDirectChildrenOnly) : nullptr;
  if (!hCorner) return;
  auto* hWord = new QLabel(To_QString(sLabel), hCorner);
  hWord->setAlignment(Qt::AlignCenter);
  hWord->setContentsMargins(NBesideWord, 0, NBesideWord, 0);
  auto* hWhole = new QVBoxLayout(hCorner);
  hWhole->setContentsMargins(0, 0, 0, 0);
  hWhole->addWidget(hWord);
  hGrid->verticalHeader()->setMinimumWidth(hWord->sizeHint().width());
}

void WGridRangeReal(I4 iGrid, I4 iColumn, R8 dLow, R8 dHigh) {
  GridTable* hGrid = Find_Column(iGrid, iColumn);
  if (!hGrid) return;
  NumberRule& rule = hGrid->Number_Column(iColumn - 1)->rule;
  rule.dLow = dLow;
  rule.dHigh = dHigh;
  Set_Tip(hGrid, Find_Field(iGrid)->sTip + Range_Words(rule));
}

void WGridSelectRow(I4 iGrid, I4 iRow) {
  GridTable* hGrid = Find_Grid(iGrid);
  if (!hGrid) return;
  if (iRow > hGrid->rowCount()) return Set_Error(iErrBadArgument);
  const QSignalBlocker hQuiet(hGrid);
  hGrid->setCurrentCell(iRow - 1, 0);
  if (iRow >= 1) hGrid->scrollToItem(hGrid->item(iRow - 1, 0));
}

I4 WGridSelectedRow(I4 iGrid) {
  const GridTable* hGrid = Find_Grid(iGrid);
  return hGrid ? hGrid->currentRow() + 1 : 0;
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
    QComboBox* hDropDown = New_Drop_Down(sEntry, iSelect[static_cast<std::size_t>(iRow)]);
    QObject::connect(hDropDown, &QComboBox::activated, hGrid,
                     [hGrid, iRow, iColumn] { Report_Change(*hGrid, iRow + 1, iColumn); });
    hGrid->setCellWidget(iRow, iColumn - 1, hDropDown);
    QWidget::setTabOrder(hBefore, hDropDown);
    hBefore = hDropDown;
  }
}

void WGridPutCheckBox(I4 iGrid, I4 iColumn, std::span<const L4> bOn) {
  GridTable* hGrid = Find_Column(iGrid, iColumn);
  if (!hGrid) return;
  hGrid->Check_Column(iColumn - 1);
  const QSignalBlocker hQuiet(hGrid);
  for (I4 iRow = 0; iRow < Rows(*hGrid, bOn); ++iRow) {
    QTableWidgetItem* hItem = Cell(*hGrid, iRow, iColumn - 1);
    hItem->setFlags(hItem->flags() & ~Qt::ItemIsEditable);
    hItem->setCheckState(bOn[static_cast<std::size_t>(iRow)] ? Qt::Checked : Qt::Unchecked);
  }
  hGrid->viewport()->update();
}

void WGridStateColumn(I4 iGrid, I4 iColumn, std::span<const I4> iState) {
  GridTable* hGrid = Find_Column(iGrid, iColumn);
  if (!hGrid) return;
  const QSignalBlocker hQuiet(hGrid);
  for (I4 iRow = 0; iRow < Rows(*hGrid, iState); ++iRow) {
    QTableWidgetItem* hItem = Cell(*hGrid, iRow, iColumn - 1);
    const bool bInUse = iState[static_cast<std::size_t>(iRow)] == iCellInUse;
    hItem->setFlags(hItem->flags().setFlag(Qt::ItemIsEnabled, bInUse));
  }
  hGrid->viewport()->update();
}

std::vector<std::optional<R4>> WGridGetReal(I4 iGrid, I4 iColumn) {
  std::vector<std::optional<R4>> fValue;
  GridTable* hGrid = Find_Column(iGrid, iColumn);
  if (!hGrid) return fValue;
  const NumberRule& rule = hGrid->Number_Column(iColumn - 1)->rule;
  for (I4 iRow = 0; iRow < hGrid->rowCount(); ++iRow) {
    const QTableWidgetItem* hItem = Cell(*hGrid, iRow, iColumn - 1);
    const bool bAsPut = Is_as_Put(hItem->text(), hItem->data(iShownRole));
    const auto dRead = bAsPut ? hItem->data(iPutRole).toDouble() : Read_Number(hItem->text(), rule);
    fValue.push_back(dRead ? std::optional(static_cast<R4>(*dRead)) : std::nullopt);
  }
  return fValue;
}

std::vector<I4> WGridGetMenu(I4 iGrid, I4 iColumn) {
  std::vector<I4> iSelect;
  GridTable* hGrid = Find_Column(iGrid, iColumn);
  for (I4 iRow = 0; hGrid && iRow < hGrid->rowCount(); ++iRow) {
    const auto* hDropDown = qobject_cast<QComboBox*>(hGrid->cellWidget(iRow, iColumn - 1));
    iSelect.push_back(hDropDown ? hDropDown->currentIndex() + 1 : 0);
  }
  return iSelect;
}

std::vector<L4> WGridGetCheckBox(I4 iGrid, I4 iColumn) {
  std::vector<L4> bOn;
  GridTable* hGrid = Find_Column(iGrid, iColumn);
  for (I4 iRow = 0; hGrid && iRow < hGrid->rowCount(); ++iRow)
    bOn.push_back(Cell(*hGrid, iRow, iColumn - 1)->checkState() == Qt::Checked);
  return bOn;
}

}  // namespace quillan

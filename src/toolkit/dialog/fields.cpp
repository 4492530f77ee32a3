// The controls of dialogs: exact read-back, completion of an edit, the mark of a bad number.
#include <QAbstractSpinBox>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QRadioButton>
#include <QSlider>
#include <QVariant>
#include <algorithm>
#include <functional>

#include "toolkit/dialog/private_dialog.h"
#include "toolkit/window/private_window.h"

namespace quillan::toolkit {
namespace {

class RedFrame : public QWidget {
 public:
  explicit RedFrame(QWidget* hField) : QWidget(hField) {
    setObjectName("redFrame");
    setAttribute(Qt::WA_TransparentForMouseEvents);
    hField->installEventFilter(this);
    setGeometry(hField->rect());
  }

 protected:
  bool eventFilter(QObject* hField, QEvent* hEvent) override {
    if (hEvent->type() == QEvent::Resize) setGeometry(parentWidget()->rect());
    return QWidget::eventFilter(hField, hEvent);
  }
  void paintEvent(QPaintEvent*) override {
    QPainter hPainter(this);
    hPainter.setPen(QPen(Qt::red, 2));
    hPainter.drawRect(rect().adjusted(1, 1, -1, -1));
  }
};

class WheelGuard : public QObject {
 public:
  using QObject::QObject;

 protected:
  bool eventFilter(QObject* hWidget, QEvent* hEvent) override {
    if (hEvent->type() != QEvent::Wheel) return QObject::eventFilter(hWidget, hEvent);
    hEvent->ignore();  // what lies below may scroll
    return true;
  }
};

class IntegerSpin : public QAbstractSpinBox {
 public:
  using QAbstractSpinBox::lineEdit;
  using QAbstractSpinBox::QAbstractSpinBox;
  std::function<void(I4)> Step;

  void stepBy(int NStep) override {
    if (Step) Step(NStep);
  }

 protected:
  StepEnabled stepEnabled() const override { return StepUpEnabled | StepDownEnabled; }
};

void Step_Integer(Field& hField, I4 NStep) {
  const bool bAsPut = Field_Is_Unchanged(hField);
  const R8 dFrom = bAsPut ? hField.dPut : Read_Number(Field_Text(hField), hField.rule).value_or(hField.dPut);
  const R8 dTo = std::clamp(dFrom + NStep, hField.rule.dLow, hField.rule.dHigh);
  Line_Edit(hField.hWidget)->setText(Number_Text(dTo, hField.rule));
}

QString Without_Mnemonic(QString sText) {
  return sText.remove('&');
}

void Update_Mark(const Field& hField) {
  if (hField.rule.iKind == FieldKind::Text) return;
  Mark_Bad(hField.hWidget, !Field_Is_Unchanged(hField) && Is_Bad_Number(Field_Text(hField), hField.rule));
}

void Update_Tip(const Field& hField) {
  const QString sRange = hField.rule.iKind == FieldKind::Text ? QString() : Range_Words(hField.rule);
  Set_Tip(hField.hWidget, hField.sTip + sRange);
}

/// Sets the width of a field to that of its text. A number gets no wider, a text may. A label has room for texts that
/// are put into it later.
void Set_Width(const Field& hField) {
  const I4 NChar = hField.hWidget->property("chars").toInt();
  if (NChar == 0) return;
  if (qobject_cast<QLabel*>(hField.hWidget))
    hField.hWidget->setMinimumWidth(NChar * hField.hWidget->fontMetrics().averageCharWidth());
  QLineEdit* hLine = Line_Edit(hField.hWidget);
  if (!hLine) return;
  constexpr I4 NCharHint = 17;  // letters x in the width that a line edit asks for by itself
  const QFontMetrics hFont = hLine->fontMetrics();
  const I4 NFrame = hLine == hField.hWidget ? hLine->sizeHint().width() - NCharHint * hFont.horizontalAdvance('x')
                                            : hField.hWidget->sizeHint().width();
  const I4 NWidth = NFrame + (NChar + 1) * hFont.horizontalAdvance('0');
  hField.hWidget->setMinimumWidth(NWidth);
  if (!hField.hWidget->property("stretches").toBool()) hField.hWidget->setMaximumWidth(NWidth);
}

FieldKind Kind_of(const QWidget* hWidget) {
  const QString sKind = hWidget->property("kind").toString();
  if (sKind == "integer" || dynamic_cast<const IntegerSpin*>(hWidget)) return FieldKind::Integer;
  if (sKind == "real") return FieldKind::Real;
  if (sKind == "double") return FieldKind::Double;
  return FieldKind::Text;
}

void Take_Limits(Field& hField) {
  hField.rule.iKind = Kind_of(hField.hWidget);
  const QVariant hLow = hField.hWidget->property("minimum");
  const QVariant hHigh = hField.hWidget->property("maximum");
  if (hLow.isValid()) hField.rule.dLow = hLow.toDouble();
  if (hHigh.isValid()) hField.rule.dHigh = hHigh.toDouble();
}

/// Whether each letter completes an edit: what follows from the field is shown while the user types.
bool Is_Live(const QWidget* hWidget) {
  return hWidget->property("live").toBool();
}

void Connect_Signals(Field& hField) {
  QWidget* const hWidget = hField.hWidget;
  const auto Complete = [&hField] { Field_Complete(hField); };
  if (auto* hLine = Line_Edit(hWidget)) {
    QObject::connect(hLine, &QLineEdit::textChanged, hWidget, [&hField] { Update_Mark(hField); });
    QObject::connect(hLine, &QLineEdit::editingFinished, hWidget, Complete);
    if (Is_Live(hWidget)) QObject::connect(hLine, &QLineEdit::textEdited, hWidget, Complete);
  }
  if (auto* hSpin = dynamic_cast<IntegerSpin*>(hWidget)) {
    hSpin->Step = [&hField](I4 NStep) {
      Step_Integer(hField, NStep);
      if (Is_Live(hField.hWidget) || hField.hWidget->property("liveSteps").toBool()) Field_Complete(hField);
    };
    QObject::connect(hSpin, &QAbstractSpinBox::editingFinished, hWidget, Complete);
    Ignore_Wheel(hSpin);
  } else if (auto* hDropDown = qobject_cast<QComboBox*>(hWidget)) {
    QObject::connect(hDropDown, &QComboBox::activated, hWidget, Complete);
    Ignore_Wheel(hDropDown);
  } else if (auto* hTrackbar = qobject_cast<QSlider*>(hWidget)) {
    QObject::connect(hTrackbar, &QSlider::valueChanged, hWidget, Complete);
    Ignore_Wheel(hTrackbar);
  } else if (qobject_cast<QCheckBox*>(hWidget) || qobject_cast<QRadioButton*>(hWidget)) {
    QObject::connect(qobject_cast<QAbstractButton*>(hWidget), &QAbstractButton::clicked, hWidget, Complete);
  }
}

}  // namespace

void Mark_Bad(QWidget* hWidget, bool bBad) {
  auto* hFrame = hWidget->findChild<QWidget*>("redFrame", Qt::FindDirectChildrenOnly);
  if (!hFrame && bBad) hFrame = new RedFrame(hWidget);
  if (!hFrame) return;
  hFrame->setVisible(bBad);
  hFrame->raise();
}

void Field_Watch(Field& hField) {
  Take_Limits(hField);
  hField.sTip = hField.hWidget->toolTip();
  Set_Width(hField);
  if (!hField.sTip.isEmpty()) Update_Tip(hField);
  Connect_Signals(hField);
  hField.sComplete = Field_Text(hField);
}

QString Field_Text(const Field& hField) {
  if (const auto* hLine = Line_Edit(hField.hWidget)) return hLine->text();
  if (const auto* hLabel = qobject_cast<QLabel*>(hField.hWidget))
    return hLabel->buddy() ? Without_Mnemonic(hLabel->text()) : hLabel->text();
  if (const auto* hDropDown = qobject_cast<QComboBox*>(hField.hWidget)) return hDropDown->currentText();
  if (const auto* hTrackbar = qobject_cast<QSlider*>(hField.hWidget)) return QString::number(hTrackbar->value());
  const auto* hButton = qobject_cast<QAbstractButton*>(hField.hWidget);
  if (!hButton) return {};
  if (!hButton->isCheckable()) return Without_Mnemonic(hButton->text());
  return hButton->isChecked() ? "on" : "off";
}

bool Field_Is_Unchanged(const Field& hField) {
  return hField.bPut && Field_Text(hField) == hField.sShown;
}

bool Field_Show(Field& hField, const QString& sText) {
  QLineEdit* hLine = Line_Edit(hField.hWidget);
  const bool bBeingEdited = hLine && hLine->hasFocus() && Field_Text(hField) != hField.sComplete;
  if (bBeingEdited) return false;
  hField.bPut = true;
  hField.sShown = sText;
  if (hLine) {
    hLine->setText(sText);
    hLine->setCursorPosition(0);  // a long text shows its beginning
    if (hLine->hasFocus()) hLine->selectAll();
  } else if (auto* hLabel = qobject_cast<QLabel*>(hField.hWidget)) {
    hLabel->setText(sText);
    // Its room was for texts of the usual length: a longer one widens the dialog.
    if (!hLabel->wordWrap()) hLabel->setMinimumWidth(std::max(hLabel->minimumWidth(), hLabel->sizeHint().width()));
  }
  hField.sShown = Field_Text(hField);  // the line may have no room for all of it
  hField.sComplete = hField.sShown;
  Update_Mark(hField);
  return true;
}

void Field_Complete(Field& hField) {
  const QString sText = Field_Text(hField);
  if (sText == hField.sComplete) return;
  hField.sComplete = sText;
  hDialogListener.Edit(hField);
  Push_Message({.iType = MessageType::Field, .VALUE1 = hField.iField});
}

void Field_Set_Range(Field& hField, R8 dLow, R8 dHigh) {
  hField.rule.dLow = dLow;
  hField.rule.dHigh = dHigh;
  Update_Tip(hField);
  Update_Mark(hField);
}

void Field_Refuse_Zero(Field& hField) {
  hField.rule.bNotZero = true;
  Update_Tip(hField);
  Update_Mark(hField);
}

QLineEdit* Line_Edit(QWidget* hWidget) {
  if (auto* hSpin = dynamic_cast<IntegerSpin*>(hWidget)) return hSpin->lineEdit();
  return qobject_cast<QLineEdit*>(hWidget);
}

QWidget* New_Integer_Spin(QWidget* hParent) {
  return new IntegerSpin(hParent);
}

bool Field_Wants(const Field& hField, const QKeyEvent& hKey) {
  constexpr std::string_view sOfNumbers = "0123456789+-.eE";
  if (hKey.key() == Qt::Key_Up || hKey.key() == Qt::Key_Down) return false;
  const QString sText = hKey.text();
  const bool bCommand = hKey.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
  if (bCommand || sText.isEmpty() || !sText[0].isPrint() || hField.rule.iKind == FieldKind::Text) return true;
  return sOfNumbers.find(sText[0].toLatin1()) != std::string_view::npos;
}

void Set_Tip(QWidget* hWidget, const QString& sTip) {
  hWidget->setToolTip("<qt>" + sTip.toHtmlEscaped() + "</qt>");  // only marked-up tips are wrapped
}

void Ignore_Wheel(QWidget* hWidget) {
  hWidget->installEventFilter(new WheelGuard(hWidget));
}

}  // namespace quillan::toolkit

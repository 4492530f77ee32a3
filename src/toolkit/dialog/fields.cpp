// fields.cpp: the controls of dialogs: numbers on the screen, exact read-back, completion of an edit.
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
#include <array>
#include <charconv>
#include <cmath>

#include "toolkit/draw/last_error.h"
#include "toolkit/window/private.h"

namespace quillan::toolkit {
namespace {

constexpr I4 MDecimal = 100;  // more digits than a screen has room for

std::string Digits(R8 dValue, std::chars_format iFormat, I4 NDecimal) {
  std::array<char, 512> hBuffer;  // the longest fixed number has 309 digits before the point
  const auto hEnd = std::to_chars(hBuffer.data(), hBuffer.data() + hBuffer.size(), dValue, iFormat,
                                  std::clamp(NDecimal, 0, MDecimal));
  return {hBuffer.data(), hEnd.ptr};
}

/// The digits and the exponent of "1.25e+04"; the exponent with at least NExponent digits, two where none are told.
std::string With_Exponent(const std::string& sDigits, I4 NExponent) {
  const auto iExponent = sDigits.find('e');
  if (iExponent == std::string::npos) return sDigits;
  std::string sExponent = sDigits.substr(iExponent + 2);
  const std::size_t NLeast = NExponent > 0 ? static_cast<std::size_t>(NExponent) : 2;
  while (sExponent.size() > NLeast && sExponent.front() == '0') sExponent.erase(0, 1);
  return sDigits.substr(0, iExponent) + 'E' + sDigits[iExponent + 1] + sExponent;
}

std::string Scientific(R8 dValue, I4 NDecimal, I4 NExponent) {
  return With_Exponent(Digits(dValue, std::chars_format::scientific, NDecimal), NExponent);
}

/// Fixed as long as that fits the width: a value out of all proportion must not fill the screen.
std::string Fixed(R8 dValue, const EditForm& form) {
  const std::string sText = Digits(dValue, std::chars_format::fixed, form.NDecimal);
  const bool bFits = form.NWidth == 0 || sText.size() <= static_cast<std::size_t>(form.NWidth);
  return bFits ? sText : Scientific(dValue, 4, 0);
}

std::string General(R8 dValue, const EditForm& form) {
  const std::string sDigits = Digits(dValue, std::chars_format::scientific, form.NDecimal - 1);
  const auto iPlace = sDigits.find('e');
  I4 iExponent = 0;  // after rounding: 9999.96 has five digits before the point
  const char* sExponent = sDigits.data() + iPlace + (sDigits[iPlace + 1] == '+' ? 2 : 1);
  std::from_chars(sExponent, sDigits.data() + sDigits.size(), iExponent);
  if (iExponent < -1 || iExponent >= form.NDecimal) return Scientific(dValue, form.NDecimal, form.NExponent);
  return Digits(dValue, std::chars_format::fixed, form.NDecimal - 1 - iExponent);
}

std::string Shortest(R8 dValue) {
  std::array<char, 64> hBuffer;
  const auto hEnd = std::to_chars(hBuffer.data(), hBuffer.data() + hBuffer.size(), dValue);
  return With_Exponent({hBuffer.data(), hEnd.ptr}, 1);
}

std::string Real_Text(R8 dValue, const EditForm& form) {
  if (!std::isfinite(dValue)) return Shortest(dValue);
  switch (form.iKind) {
    case EditKind::Fixed: return Fixed(dValue, form);
    case EditKind::Scientific: return Scientific(dValue, form.NDecimal, form.NExponent);
    case EditKind::General: return General(dValue, form);
    case EditKind::Bad: break;
  }
  return Shortest(dValue);
}

/// The whole text as one number.
template <class Number>
bool Parse(std::string_view sText, Number& x) {
  const auto hEnd = std::from_chars(sText.data(), sText.data() + sText.size(), x);
  return hEnd.ec == std::errc{} && hEnd.ptr == sText.data() + sText.size();
}

/// Parses as a value of the field's own type and gives it in R8, where each type is exact.
bool Parse_Kind(std::string_view sText, FieldKind iKind, R8& dValue) {
  I4 iValue = 0;
  R4 fValue = 0.0f;
  switch (iKind) {
    case FieldKind::Integer:
      if (!Parse(sText, iValue)) return false;
      dValue = iValue;
      return true;
    case FieldKind::Real:
      if (!Parse(sText, fValue)) return false;
      dValue = static_cast<R8>(fValue);
      return std::isfinite(fValue);
    default: return Parse(sText, dValue) && std::isfinite(dValue);
  }
}

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
  R8 dValue = hField.dPut;
  if (!Field_Is_Unchanged(hField)) Read_Number(Field_Text(hField), hField.rule, dValue);
  dValue = std::clamp(dValue + NStep, hField.rule.dLow, hField.rule.dHigh);
  Line_Edit(hField.hWidget)->setText(Number_Text(dValue, hField.rule));
}

QString Without_Mnemonic(QString sText) {
  return sText.remove('&');
}

void Update_Mark(const Field& hField) {
  if (hField.rule.iKind == FieldKind::Text) return;
  R8 dIgnored = 0.0;
  const bool bBad =
      !Field_Is_Unchanged(hField) && Read_Number(Field_Text(hField), hField.rule, dIgnored) == iErrFieldBad;
  Mark_Bad(hField.hWidget, bBad);
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

void Connect_Signals(Field& hField) {
  QWidget* const hWidget = hField.hWidget;
  const auto Complete = [&hField] { Field_Complete(hField); };
  if (auto* hLine = Line_Edit(hWidget)) {
    QObject::connect(hLine, &QLineEdit::textChanged, hWidget, [&hField] { Update_Mark(hField); });
    QObject::connect(hLine, &QLineEdit::editingFinished, hWidget, Complete);
  }
  if (auto* hSpin = dynamic_cast<IntegerSpin*>(hWidget)) {
    hSpin->Step = [&hField](I4 NStep) { Step_Integer(hField, NStep); };
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

QString Number_Text(R8 dValue, const NumberRule& rule) {
  if (rule.iKind == FieldKind::Integer) return QString::number(static_cast<I4>(dValue));
  return Is_Present(dValue) ? QString::fromStdString(Real_Text(dValue, rule.form)) : QString();
}

I4 Read_Number(const QString& sText, const NumberRule& rule, R8& dValue) {
  const std::string sTrimmed = sText.trimmed().toStdString();
  std::string_view sNumber = sTrimmed;
  if (sNumber.empty()) return iErrFieldEmpty;
  if (sNumber.front() == '+' && !sNumber.starts_with("+-")) sNumber.remove_prefix(1);
  // The range is compared with the number as typed: 1E-9 rounds to an R4 just below 1E-9.
  R8 dTyped = 0.0;
  R8 dOwn = 0.0;
  if (!Parse(sNumber, dTyped) || !Parse_Kind(sNumber, rule.iKind, dOwn)) return iErrFieldBad;
  if (dTyped < rule.dLow || dTyped > rule.dHigh) return iErrFieldBad;
  dValue = dOwn;
  return iErrNone;
}

QString Range_Words(const NumberRule& rule) {
  const bool bRange = std::isfinite(rule.dLow) && std::isfinite(rule.dHigh);
  const QString sLeaves = " leaves the old value, and so does an empty field.";
  if (!bRange) return " A text that is no number" + sLeaves;
  return QString(" Range: %1 to %2. A text that is no number or out of range")
             .arg(Shortest(rule.dLow).c_str(), Shortest(rule.dHigh).c_str()) +
         sLeaves;
}

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
  Message hMessage;
  hMessage.VALUE1 = hField.iField;
  Push_Message(MessageType::Field, hMessage);
}

void Field_Set_Range(Field& hField, R8 dLow, R8 dHigh) {
  hField.rule.dLow = dLow;
  hField.rule.dHigh = dHigh;
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

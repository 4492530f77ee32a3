// boxes.cpp: message boxes and the file dialog of messages.h.
#include <QApplication>
#include <QCheckBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QKeyEvent>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>

#include "base/program.h"
#include "toolkit/window/private_window.h"

namespace quillan {

using namespace toolkit;

namespace {

QPointer<QMessageBox> hOpenBox;
QPointer<QFileDialog> hOpenFile;
bool bBoxQuiet = false;
QString sScriptFile;  // the choice of Choose_File; blank: what the dialog itself gives

/// A box that is gone when it is no longer waited for, whichever way that ends.
template <class Box>
class Owned {
 public:
  explicit Owned(Box* hNew) : hBox(hNew) {}
  ~Owned() { delete hBox; }
  Owned(const Owned&) = delete;
  Owned& operator=(const Owned&) = delete;
  Box* operator->() const { return hBox; }
  Box* get() const { return hBox; }

 private:
  QPointer<Box> hBox;
};

/// A question to which neither Yes nor No is an answer to fall back on: a key hit in haste or a closed box must not
/// throw away data. Esc and the close button do nothing.
class YesNoBox : public QMessageBox {
 public:
  using QMessageBox::QMessageBox;

 protected:
  void keyPressEvent(QKeyEvent* hEvent) override {
    if (!hEvent->matches(QKeySequence::Cancel)) QMessageBox::keyPressEvent(hEvent);
  }
  void closeEvent(QCloseEvent* hEvent) override { hEvent->ignore(); }
};

struct BoxRow {
  QMessageBox::StandardButton iYes, iNo;  // NoButton: there is none
};

constexpr BoxRow hBoxRow[] = {
    {QMessageBox::Ok,  QMessageBox::NoButton}, // BoxButtons::Ok
    {QMessageBox::Ok,  QMessageBox::Cancel  }, // OkCancel
    {QMessageBox::Yes, QMessageBox::No      }, // YesNo
};

constexpr QMessageBox::Icon hBoxIcon[] = {
    QMessageBox::NoIcon, QMessageBox::Critical, QMessageBox::Question, QMessageBox::Warning, QMessageBox::Information,
};

constexpr qsizetype MWord = 80;  // characters that fit in a row of a box

/// A path that is longer than a row may be broken after its separators and, at the worst, anywhere.
QString With_Breaks(const QString& sWord) {
  if (sWord.size() <= MWord) return sWord;
  QString sBroken;
  for (qsizetype i = 0; i < sWord.size(); ++i) {
    sBroken += sWord[i];
    if (sWord[i] == '/' || sWord[i] == '\\' || i % MWord == MWord - 1) sBroken += QChar(0x200B);  // of no width
  }
  return sBroken;
}

/// Lines of a report end in carriage returns.
QString Box_Text(std::string_view sText) {
  QString sLines = To_QString(sText);
  sLines.replace("\r\n", "\n").replace('\r', '\n');
  QString sBox;
  for (qsizetype i = 0; i < sLines.size(); ++i) {
    qsizetype iEnd = i;
    while (iEnd < sLines.size() && !sLines[iEnd].isSpace()) ++iEnd;
    sBox += With_Breaks(sLines.sliced(i, iEnd - i)) + sLines.sliced(iEnd, iEnd < sLines.size() ? 1 : 0);
    i = iEnd;
  }
  return sBox;
}

QString Box_Title(std::string_view sTitle) {
  const QString sGiven = To_QString(sTitle).trimmed();
  return sGiven.isEmpty() ? To_QString(CPrgName) : sGiven;
}

QMessageBox* New_Box(BoxButtons iButtons, BoxIcon iIcon, std::string_view sText, std::string_view sTitle) {
  const BoxRow& hRow = hBoxRow[static_cast<std::size_t>(iButtons)];
  auto* hBox = iButtons == BoxButtons::YesNo ? new YesNoBox(Front_Window()) : new QMessageBox(Front_Window());
  hBox->setIcon(hBoxIcon[static_cast<std::size_t>(iIcon)]);
  hBox->setWindowTitle(Box_Title(sTitle));
  hBox->setTextFormat(Qt::PlainText);
  hBox->setText(Box_Text(sText));
  hBox->setTextInteractionFlags(Qt::TextSelectableByMouse);
  hBox->setStandardButtons(hRow.iYes | hRow.iNo);
  hBox->setDefaultButton(hRow.iYes);
  hBox->setEscapeButton(hRow.iNo == QMessageBox::NoButton ? hRow.iYes : hRow.iNo);
  hBox->setWindowModality(Qt::ApplicationModal);
  return hBox;
}

/// Runs a box until the user has answered it. False: it was taken away under the user's hands.
template <class Box>
bool Ask(QPointer<Box>& hOpen, const Owned<Box>& hBox) {
  bool bAnswered = false;
  QObject::connect(hBox.get(), &QDialog::finished, hBox.get(), [&bAnswered] { bAnswered = true; });
  hOpen = hBox.get();
  hBox->show();
  hBox->activateWindow();
  Wait_Until([&] { return bAnswered || !hBox.get(); });
  hOpen = nullptr;
  if (hBox.get()) hBox->hide();
  Hand_Back_Focus();
  return bAnswered && hBox.get();
}

/// "*.avg" as it is written and in capitals, since field media hold both.
QString Both_Cases(const QString& sPatterns) {
  QStringList sAll;
  for (const QString& sPattern : sPatterns.split(';', Qt::SkipEmptyParts)) {
    sAll << sPattern.trimmed();
    if (sPattern.trimmed().toUpper() != sPattern.trimmed()) sAll << sPattern.trimmed().toUpper();
  }
  return sAll.join(' ');
}

/// "words|*.a;*.b|" as name filters.
QStringList Name_Filters(std::string_view sFilter) {
  const QStringList sPart = To_QString(sFilter).split('|', Qt::SkipEmptyParts);
  QStringList sFilters;
  for (qsizetype i = 0; i + 1 < sPart.size(); i += 2)
    sFilters << QString("%1 (%2)").arg(sPart[i].trimmed(), Both_Cases(sPart[i + 1]));
  sFilters << "All files (*)";
  return sFilters;
}

/// The extension of the first pattern, without its point.
QString First_Suffix(std::string_view sFilter) {
  const QString sPatterns = To_QString(sFilter).section('|', 1, 1).section(';', 0, 0);
  return sPatterns.startsWith("*.") ? sPatterns.mid(2).trimmed() : QString();
}

QFileDialog* New_File_Dialog(std::string_view sFilter, I4 iFlags, std::string_view sFile, std::string_view sTitle) {
  auto* hDialog = new QFileDialog(Front_Window(), Box_Title(sTitle), QDir::currentPath());
  const bool bSave = iFlags == iSelectSave;
  // The platform's own dialog can neither be played by a script nor be shown without a screen.
  hDialog->setOption(QFileDialog::DontUseNativeDialog, hPlayStep || QGuiApplication::platformName() == "offscreen");
  hDialog->setOption(QFileDialog::HideNameFilterDetails);  // the words name the patterns
  hDialog->setAcceptMode(bSave ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
  hDialog->setFileMode(bSave ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
  hDialog->setNameFilters(Name_Filters(sFilter));
  if (bSave) hDialog->setDefaultSuffix(First_Suffix(sFilter));
  const QFileInfo hBegin(To_QString(sFile).trimmed());
  if (hBegin.isDir())
    hDialog->setDirectory(hBegin.absoluteFilePath());
  else if (!hBegin.filePath().isEmpty())
    hDialog->selectFile(hBegin.absoluteFilePath());
  hDialog->setWindowModality(Qt::ApplicationModal);
  return hDialog;
}

}  // namespace

QMessageBox* toolkit::Open_Box() {
  return hOpenBox;
}

QFileDialog* toolkit::Open_File_Dialog() {
  return hOpenFile;
}

void toolkit::Choose_File(const QString& sPath) {
  sScriptFile = sPath;
  static_cast<QDialog&>(*hOpenFile).done(QDialog::Accepted);
}

bool WMessageBox(BoxButtons iButtons, BoxIcon iIcon, std::string_view sText, std::string_view sTitle,
                 bool bQuietOption) {
  if (!qApp) {
    Set_Error(iErrNoWindow);
    return false;
  }
  const Owned<QMessageBox> hBox(New_Box(iButtons, iIcon, sText, sTitle));
  QPointer<QCheckBox> hQuiet;
  if (bQuietOption) hBox->setCheckBox(hQuiet = new QCheckBox("&Do not show further errors of this operation"));
  if (!Ask(hOpenBox, hBox)) return false;
  hWindowListener.Answer(*hBox.get());
  const auto iClicked = hBox->standardButton(hBox->clickedButton());
  const bool bYes = iClicked == QMessageBox::Ok || iClicked == QMessageBox::Yes;
  if (hQuiet) bBoxQuiet = hQuiet->isChecked();
  return bYes;
}

bool WMessageBoxQuiet() {
  return bBoxQuiet;
}

std::string WSelectFile2(std::string_view sFilter, I4 iFlags, std::string_view sTitle, std::string_view sBegin) {
  if (!qApp) {
    Set_Error(iErrNoWindow);
    return {};
  }
  sScriptFile.clear();
  const Owned<QFileDialog> hDialog(New_File_Dialog(sFilter, iFlags, sBegin, sTitle));
  if (!Ask(hOpenFile, hDialog)) return {};
  const QString sChosen = sScriptFile.isEmpty() ? hDialog->selectedFiles().value(0) : sScriptFile;
  const QString sFile = hDialog->result() == QDialog::Accepted ? sChosen : QString();
  hWindowListener.File(sFile);
  return To_Bytes(sFile);
}

}  // namespace quillan

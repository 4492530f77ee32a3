#include "toolkit/window/menus.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <algorithm>
#include <map>
#include <set>
#include <vector>

#include "toolkit/draw/plot_axes.h"
#include "toolkit/window/private_window.h"

namespace quillan {

using namespace toolkit;

namespace {

// The bar on show. WMenu restores it.
struct MenuBar {
  I4 iMenu = iNoMenu;
  bool bUsable = true;   // false: greyed as a whole
  std::set<I4> iGreyed;  // commands greyed one by one
};
MenuBar hMenuBar;

std::map<I4, std::vector<MenuRow>> hDefined;  // rows by menu

// Entries whose text changes, by command. WMenuEntry fills it.
struct LiveEntry {
  QString sText;
  bool bUsable;
};
std::map<I4, LiveEntry> hLive;

QString Text_of(std::string_view sText) {
  return QString::fromLatin1(sText.data(), static_cast<qsizetype>(sText.size()));
}

void Take_Away_Entries(QMenuBar& hBar) {
  const QList<QAction*> hEntries = hBar.actions();
  for (QAction* hEntry : hEntries) {
    if (hEntry->menu())
      delete hEntry->menu();
    else
      delete hEntry;
  }
}

void Put_Text(QAction& hEntry, const QString& sText) {
  hEntry.setText(sText);
  hEntry.setVisible(!sText.isEmpty());
}

void Add_Entry(QWidget& hParent, const MenuRow& hRow) {
  auto* hEntry = new QAction(Text_of(hRow.sText), &hParent);
  hEntry->setData(hRow.iCommand);
  hEntry->setStatusTip(Text_of(hRow.sTip));
  hEntry->setShortcuts(QKeySequence::listFromString(Text_of(hRow.sKeys)));
  if (const auto h = hLive.find(hRow.iCommand); h != hLive.end()) Put_Text(*hEntry, h->second.sText);
  hEntry->setProperty("stepName", Text_of(hRow.sText));  // a script calls it so, whatever it would do at the moment
  hParent.addAction(hEntry);
  Watch_Entry(hEntry, hRow.iCommand, hRow.bIsStep);
}

void Add_Rows(QMenuBar& hBar, std::span<const MenuRow> hRows) {
  constexpr I4 MDepth = 2;
  QMenu* hMenu[MDepth + 1] = {};  // the last head of each depth
  for (const MenuRow& hRow : hRows) {
    QMenu* hAbove = hRow.iDepth > 0 ? hMenu[hRow.iDepth - 1] : nullptr;
    if (hRow.iCommand != 0)
      Add_Entry(hAbove ? static_cast<QWidget&>(*hAbove) : hBar, hRow);
    else
      hMenu[hRow.iDepth] = hAbove ? hAbove->addMenu(Text_of(hRow.sText)) : hBar.addMenu(Text_of(hRow.sText));
  }
}

bool Is_Enabled(I4 iCommand) {
  const auto h = hLive.find(iCommand);
  return hMenuBar.bUsable && !hMenuBar.iGreyed.contains(iCommand) && (h == hLive.end() || h->second.bUsable) &&
         std::ranges::none_of(hDefined[hMenuBar.iMenu],
                              [&](const MenuRow& hRow) { return hRow.iCommand == iCommand && !hRow.bThere; });
}

bool Shows_Any(const QMenu& hMenu) {
  return std::ranges::any_of(hMenu.actions(), [](const QAction* h) { return h->isVisible(); });
}

/// A bar that is not usable is greyed by itself: one step, where each of its entries would be measured and laid out.
void Grey_Entries(QWidget& hParent) {
  const QList<QAction*> hEntries = hParent.actions();
  for (QAction* hEntry : hEntries) {
    if (hEntry->menu()) {
      hEntry->setEnabled(Shows_Any(*hEntry->menu()));
      Grey_Entries(*hEntry->menu());
    } else {
      hEntry->setEnabled(Is_Enabled(hEntry->data().toInt()));
    }
  }
}

/// The entries of a command; 0: all entries.
void Collect_Entries(QWidget& hParent, I4 iCommand, std::vector<QAction*>& hFound) {
  const QList<QAction*> hEntries = hParent.actions();
  for (QAction* hEntry : hEntries) {
    if (hEntry->menu())
      Collect_Entries(*hEntry->menu(), iCommand, hFound);
    else if (iCommand == 0 || hEntry->data().toInt() == iCommand)
      hFound.push_back(hEntry);
  }
}

}  // namespace

std::vector<QAction*> toolkit::Menu_Entries() {
  return Menu_Entries(0);
}

std::vector<QAction*> toolkit::Menu_Entries(I4 iCommand) {
  std::vector<QAction*> hFound;
  if (Main_Window()) Collect_Entries(*Main_Window()->menuBar(), iCommand, hFound);
  return hFound;
}

bool toolkit::Main_Menu_Is_on_Show() {
  return hMenuBar.iMenu == iMenuMain;
}

bool toolkit::Main_Menu_Is_Ready() {
  return Main_Menu_Is_on_Show() && hMenuBar.bUsable;
}

bool toolkit::Menu_Bar_Is_Usable() {
  return hMenuBar.bUsable;
}

void WMenuDefine(I4 iMenu, std::span<const MenuRow> hRow) {
  hDefined[iMenu].assign(hRow.begin(), hRow.end());
}

void WMenu(I4 iMenu) {
  if (!Main_Window()) return Set_Error(iErrNoWindow);
  QMenuBar& hBar = *Main_Window()->menuBar();
  Take_Away_Entries(hBar);
  IPgForget();  // another part of the program draws now
  hMenuBar = {};
  hMenuBar.iMenu = iMenu;
  Add_Rows(hBar, hDefined[iMenu]);
  hBar.setEnabled(true);
  Grey_Entries(hBar);
  hBar.setVisible(!hBar.actions().isEmpty());
}

void WMenuSetState(I4 iCommand, I4 iState) {
  if (!Main_Window()) return Set_Error(iErrNoWindow);
  if (Menu_Entries(iCommand).empty()) return Set_Error(iErrBadArgument);
  if (iState == 0)
    hMenuBar.iGreyed.insert(iCommand);
  else
    hMenuBar.iGreyed.erase(iCommand);
  Grey_Entries(*Main_Window()->menuBar());
}

void WMenuSetCheck(I4 iCommand, bool bOn) {
  if (!Main_Window()) return Set_Error(iErrNoWindow);
  const std::vector<QAction*> hEntry = Menu_Entries(iCommand);
  if (hEntry.empty()) return Set_Error(iErrBadArgument);
  for (QAction* h : hEntry) {
    h->setCheckable(true);
    h->setChecked(bOn);
  }
}

void WMenuEntry(I4 iCommand, std::string_view sText, bool bUsable) {
  hLive[iCommand] = {To_QString(sText), bUsable};
  for (QAction* hEntry : Menu_Entries(iCommand)) Put_Text(*hEntry, To_QString(sText));
  if (Main_Window()) Grey_Entries(*Main_Window()->menuBar());
}

std::string As_Menu_Text(std::string_view sText) {
  return To_Bytes(To_QString(sText).replace('&', "&&"));
}

void WMenuBarState(I4 iState) {
  if (!Main_Window()) return Set_Error(iErrNoWindow);
  hMenuBar.bUsable = iState != 0;
  Main_Window()->menuBar()->setEnabled(hMenuBar.bUsable);
  Grey_Entries(*Main_Window()->menuBar());
}

}  // namespace quillan

#include "services/ui/qt/menu_builder.h"

#include <QMenu>
#include <QMenuBar>

#include "services/ui/application.h"
#include "services/ui/menu.h"
#include "services/ui/qt/edit_commands.h"
#include "services/ui/qt/strings.h"

namespace celestrix {

namespace {

/// "Cmd+Q" as the toolkit writes it: its "Ctrl" is the platform's key for commands.
QKeySequence ToKeySequence(const String& shortcut) {
  return QKeySequence(ToQString(shortcut).replace(QLatin1String("Cmd+"), QLatin1String("Ctrl+")));
}

void BuildItem(QMenu& menu, const MenuItem& item, EditCommands& editCommands) {
  if (item.Text == "-"_s) {
    menu.addSeparator();
    return;
  }
  QAction* action = menu.addAction(ToQString(item.Text));
  action->setObjectName(ToQString(item.Name));
  action->setShortcut(ToKeySequence(item.KeyboardShortcut));
  if (dynamic_cast<const QuitMenuItem*>(&item) != nullptr) {
    action->setMenuRole(QAction::QuitRole);
    QObject::connect(action, &QAction::triggered, action, RequestQuit);
  } else if (IsEditCommand(item.Name)) {
    editCommands.Add(action, item.Name);
  }
}

}  // namespace

void BuildMenuBar(QMenuBar& toolkitBar, const MenuBar& bar) {
  auto* editCommands = new EditCommands(&toolkitBar);
  for (const Ref<MenuItem>& title : bar.Items()) {
    QMenu* menu = toolkitBar.addMenu(ToQString(title->Text));
    menu->setObjectName(ToQString(title->Name));
    for (const Ref<MenuItem>& item : title->Items()) BuildItem(*menu, *item, *editCommands);
  }
}

}  // namespace celestrix

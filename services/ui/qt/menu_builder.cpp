#include "services/ui/qt/menu_builder.h"

#include <QApplication>
#include <QClipboard>
#include <QMenu>
#include <QMenuBar>
#include <QPointer>

#include "services/ui/application.h"
#include "services/ui/menu.h"
#include "services/ui/qt/strings.h"
#include "services/ui/qt/text_field.h"

namespace celestrix {

namespace {

// ---- The standard edit commands, on the text field that has the focus

struct StandardCommand {
  String name;
  void (*run)(TextField& field);
  bool (*applies)(const TextField& field);
};

bool HasUndo(const TextField& field) { return field.document()->isUndoAvailable(); }
bool HasSelection(const TextField& field) { return field.textCursor().hasSelection(); }
bool ClipboardHasText(const TextField& /*field*/) {
  return TextField::HasText(QGuiApplication::clipboard()->mimeData());
}
bool HasText(const TextField& field) { return !field.IsEmpty(); }

const StandardCommand kStandardCommands[] = {
    {"EditUndo"_s, [](TextField& field) { field.undo(); }, HasUndo},
    {"EditCut"_s, [](TextField& field) { field.cut(); }, HasSelection},
    {"EditCopy"_s, [](TextField& field) { field.copy(); }, HasSelection},
    {"EditPaste"_s, [](TextField& field) { field.paste(); }, ClipboardHasText},
    {"EditClear"_s, [](TextField& field) { field.textCursor().removeSelectedText(); }, HasSelection},
    {"EditSelectAll"_s, [](TextField& field) { field.selectAll(); }, HasText},
};

const StandardCommand* Find(const String& itemName) {
  for (const StandardCommand& command : kStandardCommands)
    if (command.name == itemName) return &command;
  return nullptr;
}

/// Turns menu actions into edit commands, and enables those that apply whenever their menu opens. Nothing is asked
/// before that: if the program that owns the clipboard hangs, its answer takes seconds, and may differ the next time.
/// (The field itself handles the commands' keys.) Its parent, a menu bar, owns it.
class EditCommands final : public QObject {
 public:
  explicit EditCommands(QObject* parent) : QObject(parent) {
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) {
      const bool inMenu = now == nullptr || qobject_cast<QMenuBar*>(now) || qobject_cast<QMenu*>(now);
      if (!inMenu) field_ = dynamic_cast<TextField*>(now);
    });
  }

  void Add(QMenu& menu, QAction* action, const StandardCommand& command) {
    connect(&menu, &QMenu::aboutToShow, action,
            [this, action, &command] { action->setEnabled(field_ && command.applies(*field_)); });
    connect(action, &QAction::triggered, this, [this, &command] {
      if (!field_) return;
      field_->Settle();
      command.run(*field_);
    });
  }

 private:
  QPointer<TextField> field_;  // the field that has the focus; opening a menu does not take it away
};

// ---- The menus

/// "Cmd+Q" as Qt writes it: Qt's "Ctrl" is the platform's key for commands.
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
  action->setEnabled(false);
  if (!item.AutoEnable) return;
  if (const StandardCommand* command = Find(item.Name)) return editCommands.Add(menu, action, *command);
  action->setEnabled(true);
  if (dynamic_cast<const QuitMenuItem*>(&item) == nullptr) return;
  action->setMenuRole(QAction::QuitRole);
  QObject::connect(action, &QAction::triggered, action, RequestQuit);
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

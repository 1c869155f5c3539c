#include "services/ui/qt/edit_commands.h"

#include <QApplication>
#include <QClipboard>
#include <QMenu>
#include <QMenuBar>
#include <QTextDocument>
#include <algorithm>
#include <iterator>

namespace celestrix {

namespace {

struct StandardCommand {
  String name;
  void (*run)(TextField& field);
  bool (*applies)(const TextField& field);
};

bool HasSelection(const TextField& field) { return field.textCursor().hasSelection(); }

const StandardCommand kStandardCommands[] = {
    {"EditUndo"_s, [](TextField& f) { f.undo(); }, [](const TextField& f) { return f.document()->isUndoAvailable(); }},
    {"EditCut"_s, [](TextField& f) { f.cut(); }, HasSelection},
    {"EditCopy"_s, [](TextField& f) { f.copy(); }, HasSelection},
    {"EditPaste"_s, [](TextField& f) { f.paste(); }, [](const TextField& f) { return f.canPaste(); }},
    {"EditClear"_s, [](TextField& f) { f.textCursor().removeSelectedText(); }, HasSelection},
    {"EditSelectAll"_s, [](TextField& f) { f.selectAll(); }, [](const TextField& f) { return !f.IsEmpty(); }},
};

const StandardCommand* Find(const String& itemName) {
  const auto* const found = std::find_if(std::begin(kStandardCommands), std::end(kStandardCommands),
                                         [&](const StandardCommand& command) { return command.name == itemName; });
  return found != std::end(kStandardCommands) ? found : nullptr;
}

}  // namespace

bool IsEditCommand(const String& itemName) { return Find(itemName) != nullptr; }

EditCommands::EditCommands(QObject* parent) : QObject(parent) {
  connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) { FollowFocus(now); });
  connect(QGuiApplication::clipboard(), &QClipboard::dataChanged, this, &EditCommands::Update);
}

void EditCommands::Add(QAction* action, const String& itemName) {
  const StandardCommand* standard = Find(itemName);
  commands_.push_back({action, standard->applies});
  action->setEnabled(false);
  connect(action, &QAction::triggered, this, [this, run = standard->run] {
    if (field_) field_->WhenWhole([field = field_, run] { run(*field); });
  });
}

void EditCommands::FollowFocus(QWidget* now) {
  const bool inMenu = now == nullptr || qobject_cast<QMenuBar*>(now) != nullptr || qobject_cast<QMenu*>(now) != nullptr;
  if (inMenu || now == field_) return;
  if (field_) disconnect(field_, nullptr, this, nullptr);
  field_ = dynamic_cast<TextField*>(now);
  if (field_) {
    connect(field_, &TextField::copyAvailable, this, &EditCommands::Update);
    connect(field_, &TextField::undoAvailable, this, &EditCommands::Update);
    connect(field_, &TextField::textChanged, this, &EditCommands::Update);
  }
  Update();
}

void EditCommands::Update() {
  for (const Command& command : commands_) command.action->setEnabled(field_ && command.applies(*field_));
}

}  // namespace celestrix

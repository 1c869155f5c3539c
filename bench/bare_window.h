// BareWindow: the program's window as the toolkit alone makes it: the same controls at the same places, and
// nothing behind them. What the program's window is measured against.
#pragma once

#include <QFont>
#include <QGroupBox>
#include <QLabel>
#include <QMainWindow>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>

class BareWindow : public QMainWindow {
 public:
  BareWindow() {
    QMenu* file = menuBar()->addMenu("&File");
    file->addAction("&Quit");
    QMenu* edit = menuBar()->addMenu("&Edit");
    for (const char* command : {"&Undo", "Cu&t", "&Copy", "&Paste", "&Delete", "Select &All"}) edit->addAction(command);

    auto* content = new QWidget;
    setCentralWidget(content);
    auto* instructions = Place(new QLabel(content), {20, 14, 466, 55});
    instructions->setWordWrap(true);
    instructions->setText(
        "Drag and drop a text file containing satellite elements onto the field below, or use the Browse... button, "
        "or copy and paste the text file contents into the field. Then click the Save... button.");
    field = Place(new QPlainTextEdit(content), {20, 81, 466, 275});
    field->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    field->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    field->setTabChangesFocus(true);
    Place(new QPushButton("Browse...", content), {20, 380, 80, 20});
    Place(new QPushButton("Save...", content), {406, 380, 80, 20});
    auto* format = Place(new QGroupBox("File format", content), {143, 360, 221, 46});
    Place(new QRadioButton("Palm (PDB)", format), {10, 20, 81, 20})->setChecked(true);
    Place(new QRadioButton("Pocket PC (PPC)", format), {103, 20, 110, 20});
    resize(506, 426 + menuBar()->sizeHint().height());
  }

  QPlainTextEdit* field;

 private:
  template <class Widget>
  static Widget* Place(Widget* widget, const QRect& place) {
    QFont font = widget->font();
    font.setPixelSize(11);
    widget->setFont(font);
    widget->setGeometry(place);
    return widget;
  }
};

// The window's controls: where they are, how they look, and how they are read aloud.
#include "tests/window/fixture.h"

namespace {

const QString kInstructions =
    "Drag and drop a text file containing satellite elements onto the field below, or use the Browse... button, or "
    "copy and paste the text file contents into the field. Then click the Save... button to create the Celestrix file.";

}  // namespace

class TestLayout : public QObject {
  Q_OBJECT

 private slots:
  void controls() {
    // clang-format off
    // name, member of its set, place, which of its edges (left, top, right, bottom) move with the window's right or
    // bottom edge, what it is for a screen reader
    const std::tuple<const char*, int, QRect, QList<int>, QAccessible::Role, QString> controls[] = {
        {"StaticText1", 0, {20, 14, 466, 55}, {0, 0, 1, 0}, QAccessible::StaticText, kInstructions},
        {"txt", 0, {20, 81, 466, 275}, {0, 0, 1, 1}, QAccessible::EditableText, kInstructions},
        {"BrowseBtn", 0, {20, 380, 80, 20}, {0, 1, 0, 1}, QAccessible::Button, "Browse..."},
        {"SaveBtn", 0, {406, 380, 80, 20}, {1, 1, 1, 1}, QAccessible::Button, "Save..."},
        {"GroupBox1", 0, {143, 360, 221, 46}, {0, 1, 0, 1}, QAccessible::Grouping, "Celestrix file format"},
        {"FileFormat", 0, {153, 380, 81, 20}, {0, 1, 0, 1}, QAccessible::RadioButton, "Palm (PDB)"},
        {"FileFormat", 1, {246, 380, 110, 20}, {0, 1, 0, 1}, QAccessible::RadioButton, "Pocket PC (PPC)"}};
    // clang-format on
    TestedWindow w;
    QWidget* content = w.frame->centralWidget();
    const QSize frame = w.frame->size();
    for (const QSize& growth : {QSize(0, 0), QSize(100, 100), QSize(-999, -999), QSize(2000, 0)}) {
      w.frame->resize(frame + growth);
      const QSize real = growth.expandedTo(QSize(64 - 506, 64 - 426));
      QTRY_COMPARE(content->size(), QSize(506, 426) + real);
      for (const auto& [name, member, at, moves, role, heard] : controls) {
        auto* control = content->findChildren<QWidget*>(name).at(member);
        if (role != QAccessible::RadioButton)  // whose captions are too wide in some fonts, and become smaller
          QCOMPARE(std::pair(heard, control->font().pixelSize()), std::pair(heard, 11));
        QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(control);
        QCOMPARE(std::pair(accessible->text(QAccessible::Name), accessible->role()), std::pair(heard, role));
        const int wider = real.width(), higher = real.height();
        QRect expected = at.adjusted(moves[0] * wider, moves[1] * higher, moves[2] * wider, moves[3] * higher);
        expected.setSize(expected.size().expandedTo(QSize(0, 0)));
        const QRect place(control->mapTo(content, QPoint()), control->size());
        QCOMPARE(std::pair(name, place), std::pair(name, expected));
      }
    }
  }

  void inDarkColoursAndWideLetters() {
    QFont wide = QApplication::font();
    wide.setLetterSpacing(QFont::PercentageSpacing, 160);
    QApplication::setFont(wide);
    QApplication::setPalette(QPalette(Qt::darkGray, Qt::black));
    TestedWindow w;
    QCOMPARE(w.frame->maximumSize(), QSize(32000, 32000 + w.frame->menuBar()->height()));
    auto* label = w.frame->findChild<QLabel*>("StaticText1");
    QCOMPARE(label->alignment(), Qt::AlignLeft | Qt::AlignTop);
    QCOMPARE(label->palette().color(QPalette::WindowText), QColor(0x7F, 0x7F, 0x7F));
    QCOMPARE(w.txt->palette().color(QPalette::Text), QColor(Qt::black));
    QCOMPARE(w.txt->palette().color(QPalette::Base), QColor(Qt::white));
    QVERIFY(label->heightForWidth(466) <= 55);
    QVERIFY(w.frame->findChild<QGroupBox*>()->minimumSizeHint().width() <= 221);
    for (const QAbstractButton* button : w.frame->findChildren<QAbstractButton*>())
      QVERIFY2(button->fontMetrics().horizontalAdvance(button->text()) < button->width(), qPrintable(button->text()));
  }
};

int main(int argc, char** argv) { return RunTest<TestLayout>(argc, argv); }
#include "test_layout.moc"

// The window's controls: where they are, how they look, and how they are read aloud.
#include "tests/window/fixture.h"

namespace {

const QString kInstructions =
    "Drag and drop a text file containing satellite elements onto the field below, or use the Browse... button, or "
    "copy and paste the text file contents into the field. Then click the Save... button to create the Celestrix file.";

struct LaidOut {
  const char* name;
  int index = 0;  // in its set
  QRect at;
  unsigned locks;
  QString said;  // its name, as a screen reader says it

  QWidget* In(const TestedWindow& w) const { return w.frame->findChildren<QWidget*>(name).at(index); }
};

const LaidOut kControls[] = {
    {.name = "StaticText1", .at = {20, 14, 466, 55}, .locks = kLeft | kTop | kRight, .said = kInstructions},
    {.name = "txt", .at = {20, 81, 466, 275}, .locks = kLeft | kTop | kRight | kBottom, .said = kInstructions},
    {.name = "BrowseBtn", .at = {20, 380, 80, 20}, .locks = kLeft | kBottom, .said = "Browse..."},
    {.name = "SaveBtn", .at = {406, 380, 80, 20}, .locks = kRight | kBottom, .said = "Save..."},
    {.name = "GroupBox1", .at = {143, 360, 221, 46}, .locks = kLeft | kBottom, .said = "Celestrix file format"},
    {.name = "FileFormat", .at = {153, 380, 81, 20}, .locks = kLeft | kBottom, .said = "Palm (PDB)"},
    {.name = "FileFormat", .index = 1, .at = {246, 380, 110, 20}, .locks = kLeft | kBottom, .said = "Pocket PC (PPC)"}};

}  // namespace

class TestLayout : public QObject {
  Q_OBJECT

 private slots:
  void controlsKeepTheirDistances_data() {
    QTest::addColumn<LaidOut>("control");
    QTest::addColumn<QSize>("growth");
    for (const LaidOut& control : kControls) {
      QTest::addRow("%s %d enlarged", control.name, control.index) << control << QSize(1000, 100);
      QTest::addRow("%s %d as small as can be", control.name, control.index) << control << QSize(64 - 506, 64 - 426);
    }
  }
  void controlsKeepTheirDistances() {
    QFETCH(LaidOut, control);
    QFETCH(QSize, growth);
    TestedWindow w;
    w.frame->resize(w.frame->size() + (growth.width() < 0 ? QSize(-999, -999) : growth));
    QWidget* content = w.frame->centralWidget();
    QTRY_COMPARE(content->size(), QSize(506, 426) + growth);
    const auto moved = [&](unsigned edge, int by) { return (control.locks & edge) != 0 ? by : 0; };
    const int wider = growth.width(), higher = growth.height();
    QRect expected = control.at.adjusted(wider - moved(kLeft, wider), higher - moved(kTop, higher),
                                         moved(kRight, wider), moved(kBottom, higher));
    expected.setSize(expected.size().expandedTo(QSize(0, 0)));
    const QWidget* widget = control.In(w);
    QCOMPARE(QRect(widget->mapTo(content, QPoint()), widget->size()), expected);
  }

  void controlsAreReadAloud() {
    TestedWindow w;
    for (const LaidOut& control : kControls)
      QCOMPARE(QAccessible::queryAccessibleInterface(control.In(w))->text(QAccessible::Name), control.said);
  }

  void textsLookAsTheLayoutSays() {
    QApplication::setPalette(QPalette(Qt::darkGray, Qt::black));
    TestedWindow w;
    const auto* label = w.frame->findChild<QLabel*>("StaticText1");
    QVERIFY(label->wordWrap());
    QCOMPARE(label->alignment(), Qt::AlignLeft | Qt::AlignTop);
    QCOMPARE(label->palette().color(QPalette::WindowText), QColor(0x7F, 0x7F, 0x7F));
    QCOMPARE(w.txt->palette().color(QPalette::Text), QColor(Qt::black));
    QCOMPARE(w.txt->palette().color(QPalette::Base), QColor(Qt::white));
  }

  void captionsFitTheirBoxesInEveryFont() {
    SpaceLetters(160);
    TestedWindow w;
    ExpectThatCaptionsFit(w);
    SpaceLetters(100);
    for (const LaidOut& control : kControls)  // but the choices, whose captions are too wide in some fonts
      if (!control.In(w)->inherits("QRadioButton")) QVERIFY2(control.In(w)->font().pixelSize() == 11, control.name);
    SpaceLetters(160);
    ExpectThatCaptionsFit(w);
  }

  void contentHasItsSizeWhereTheMenuBarIsNotAsHighAsItsHint() {
    QApplication::setStyle("windows");
    TestedWindow w;
    QCOMPARE(w.frame->centralWidget()->size(), QSize(506, 426));
    QCOMPARE(w.frame->maximumSize(), QSize(32000, 32000 + w.frame->menuBar()->height()));
  }

 private:
  static void SpaceLetters(int percent) {
    QFont font = QApplication::font();
    font.setLetterSpacing(QFont::PercentageSpacing, percent);
    QApplication::setFont(font);
    QCoreApplication::processEvents();  // which is how the controls hear of it
  }

  static void ExpectThatCaptionsFit(const TestedWindow& w) {
    QVERIFY(w.frame->findChild<QLabel*>("StaticText1")->heightForWidth(466) <= 55);
    QVERIFY(w.frame->findChild<QGroupBox*>()->minimumSizeHint().width() <= 221);
    for (const QAbstractButton* button : w.frame->findChildren<QAbstractButton*>())
      QVERIFY2(button->fontMetrics().horizontalAdvance(button->text()) < button->width(), qPrintable(button->text()));
  }
};

int main(int argc, char** argv) { return RunTest<TestLayout>(argc, argv); }
#include "test_layout.moc"

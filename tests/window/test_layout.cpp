// The window's controls: where they are, how they look, and how they are read aloud.
#include "tests/window/fixture.h"

namespace {

const QString kInstructions =
    "Drag and drop a text file containing satellite elements onto the field below, or use the Browse... button, or "
    "copy and paste the text file contents into the field. Then click the Save... button to create the Celestrix file.";

constexpr Qt::Edges kAtLeft = Qt::LeftEdge, kAtTop = Qt::TopEdge, kAtRight = Qt::RightEdge, kAtBottom = Qt::BottomEdge;

struct LaidOut {
  const char* name;
  int member = 0;  // of its set
  QRect place;
  Qt::Edges locks;
  QAccessible::Role role;
  QString heard;

  QWidget* In(const TestedWindow& w) const { return w.frame->findChildren<QWidget*>(name).at(member); }
};

// clang-format off
const LaidOut kControls[] = {
    {.name = "StaticText1", .place = {20, 14, 466, 55}, .locks = kAtLeft | kAtTop | kAtRight,
     .role = QAccessible::StaticText, .heard = kInstructions},
    {.name = "txt", .place = {20, 81, 466, 275}, .locks = kAtLeft | kAtTop | kAtRight | kAtBottom,
     .role = QAccessible::EditableText, .heard = kInstructions},
    {.name = "BrowseBtn", .place = {20, 380, 80, 20}, .locks = kAtLeft | kAtBottom,
     .role = QAccessible::Button, .heard = "Browse..."},
    {.name = "SaveBtn", .place = {406, 380, 80, 20}, .locks = kAtRight | kAtBottom,
     .role = QAccessible::Button, .heard = "Save..."},
    {.name = "GroupBox1", .place = {143, 360, 221, 46}, .locks = kAtLeft | kAtBottom,
     .role = QAccessible::Grouping, .heard = "Celestrix file format"},
    {.name = "FileFormat", .member = 0, .place = {153, 380, 81, 20}, .locks = kAtLeft | kAtBottom,
     .role = QAccessible::RadioButton, .heard = "Palm (PDB)"},
    {.name = "FileFormat", .member = 1, .place = {246, 380, 110, 20}, .locks = kAtLeft | kAtBottom,
     .role = QAccessible::RadioButton, .heard = "Pocket PC (PPC)"}};
// clang-format on

}  // namespace

class TestLayout : public QObject {
  Q_OBJECT

 private slots:
  void init() {
    QApplication::setFont(font_);
    QApplication::setStyle("fusion");
  }

  void controlsKeepTheirDistances_data() {
    QTest::addColumn<LaidOut>("control");
    QTest::addColumn<QSize>("growth");
    for (const LaidOut& control : kControls) {
      QTest::addRow("%s %d as designed", control.name, control.member) << control << QSize(0, 0);
      QTest::addRow("%s %d enlarged", control.name, control.member) << control << QSize(100, 100);
      QTest::addRow("%s %d only wider", control.name, control.member) << control << QSize(2000, 0);
      QTest::addRow("%s %d as small as can be", control.name, control.member) << control << QSize(64 - 506, 64 - 426);
    }
  }
  void controlsKeepTheirDistances() {
    QFETCH(LaidOut, control);
    QFETCH(QSize, growth);
    TestedWindow w;
    w.frame->resize(w.frame->size() + (growth.width() < 0 ? QSize(-999, -999) : growth));
    QWidget* content = w.frame->centralWidget();
    QTRY_COMPARE(content->size(), QSize(506, 426) + growth);
    const auto moved = [&](Qt::Edge edge, int by) { return control.locks.testFlag(edge) ? by : 0; };
    const int wider = growth.width(), higher = growth.height();
    QRect expected = control.place.adjusted(wider - moved(Qt::LeftEdge, wider), higher - moved(Qt::TopEdge, higher),
                                            moved(Qt::RightEdge, wider), moved(Qt::BottomEdge, higher));
    expected.setSize(expected.size().expandedTo(QSize(0, 0)));
    const QWidget* widget = control.In(w);
    QCOMPARE(QRect(widget->mapTo(content, QPoint()), widget->size()), expected);
  }

  void controlsAreReadAloud_data() {
    QTest::addColumn<LaidOut>("control");
    for (const LaidOut& control : kControls) QTest::addRow("%s %d", control.name, control.member) << control;
  }
  void controlsAreReadAloud() {
    QFETCH(LaidOut, control);
    TestedWindow w;
    QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(control.In(w));
    QCOMPARE(accessible->text(QAccessible::Name), control.heard);
    QCOMPARE(accessible->role(), control.role);
  }

  void contentHasItsSizeInEveryStyle_data() {
    QTest::addColumn<QString>("style");
    QTest::newRow("fusion") << "fusion";
    QTest::newRow("windows, whose menu bar is not as high as its hint") << "windows";
  }
  void contentHasItsSizeInEveryStyle() {
    QFETCH(QString, style);
    QApplication::setStyle(style);
    TestedWindow w;
    QCOMPARE(w.frame->centralWidget()->size(), QSize(506, 426));
    QCOMPARE(w.frame->maximumSize(), QSize(32000, 32000 + w.frame->menuBar()->height()));
  }

  void coloursAreThoseOfTheLayout() {
    QApplication::setPalette(QPalette(Qt::darkGray, Qt::black));
    TestedWindow w;
    const auto* label = w.frame->findChild<QLabel*>("StaticText1");
    QCOMPARE(label->alignment(), Qt::AlignLeft | Qt::AlignTop);
    QCOMPARE(label->palette().color(QPalette::WindowText), QColor(0x7F, 0x7F, 0x7F));
    QCOMPARE(w.txt->palette().color(QPalette::Text), QColor(Qt::black));
    QCOMPARE(w.txt->palette().color(QPalette::Base), QColor(Qt::white));
  }

  void captionsFitTheirBoxes_data() {
    QTest::addColumn<int>("spacingAtStart");
    QTest::addColumn<int>("spacingLater");
    QTest::newRow("wide letters") << 160 << 160;
    QTest::newRow("wide letters while it runs") << 100 << 160;
  }
  void captionsFitTheirBoxes() {
    QFETCH(int, spacingAtStart);
    QFETCH(int, spacingLater);
    SpaceLetters(spacingAtStart);
    TestedWindow w;
    SpaceLetters(spacingLater);
    QVERIFY(w.frame->findChild<QLabel*>("StaticText1")->heightForWidth(466) <= 55);
    QVERIFY(w.frame->findChild<QGroupBox*>()->minimumSizeHint().width() <= 221);
    for (const QAbstractButton* button : w.frame->findChildren<QAbstractButton*>())
      QVERIFY2(button->fontMetrics().horizontalAdvance(button->text()) < button->width(), qPrintable(button->text()));
  }

  void lettersAreAsLargeAsTheyCanBe() {
    SpaceLetters(160);
    TestedWindow w;
    SpaceLetters(100);
    for (const LaidOut& control : kControls)
      if (control.role != QAccessible::RadioButton)  // whose captions are too wide in some fonts
        QVERIFY2(control.In(w)->font().pixelSize() == 11, control.name);
  }

 private:
  static void SpaceLetters(int percent) {
    QFont font = QApplication::font();
    font.setLetterSpacing(QFont::PercentageSpacing, percent);
    QApplication::setFont(font);
    QCoreApplication::processEvents();  // which is how the controls hear of it
  }

  const QFont font_ = QApplication::font();
};

int main(int argc, char** argv) { return RunTest<TestLayout>(argc, argv); }
#include "test_layout.moc"

// The window's controls: where they are, how they look, and how they are read aloud.
#include "tests/window/fixture.h"

namespace {

const QString kInstructions =
    "Drag and drop a text file containing satellite elements onto the field below, or use the Browse... button, or "
    "copy and paste the text file contents into the field. Then click the Save... button to create the Celestrix file.";

QWidgetList Controls(const TestedWindow& w) {
  QWidgetList controls;
  for (const char* name : {"StaticText1", "txt", "BrowseBtn", "SaveBtn", "GroupBox1", "FileFormat"})
    controls += w.frame->findChildren<QWidget*>(name);
  return controls;
}

/// The size of the window's content, and where in it the controls are.
QString Places(const TestedWindow& w) {
  const QWidget* content = w.frame->centralWidget();
  QString places = QDebug::toString(content->size());
  for (const QWidget* control : Controls(w))
    places +=
        ", " + control->objectName() + QDebug::toString(QRect(control->mapTo(content, QPoint()), control->size()));
  return places.remove("QSize").remove("QRect");
}

}  // namespace

class TestLayout : public QObject {
  Q_OBJECT

 private slots:
  void controlsKeepTheirDistances() {
    const QString opened =
        "(506, 426), StaticText1(20,14 466x55), txt(20,81 466x275), BrowseBtn(20,380 80x20), SaveBtn(406,380 80x20), "
        "GroupBox1(143,360 221x46), FileFormat(153,380 81x20), FileFormat(246,380 110x20)";
    const QString enlarged =
        "(1506, 526), StaticText1(20,14 1466x55), txt(20,81 1466x375), BrowseBtn(20,480 80x20), "
        "SaveBtn(1406,480 80x20), GroupBox1(143,460 221x46), FileFormat(153,480 81x20), FileFormat(246,480 110x20)";
    const QString smallest =
        "(64, 64), StaticText1(20,14 24x55), txt(20,81 24x0), BrowseBtn(20,18 80x20), SaveBtn(-36,18 80x20), "
        "GroupBox1(143,-2 221x46), FileFormat(153,18 81x20), FileFormat(246,18 110x20)";
    TestedWindow w;
    QCOMPARE(TextDifference(Places(w), opened), "");
    w.frame->resize(w.frame->size() + QSize(1000, 100));
    QTRY_COMPARE(TextDifference(Places(w), enlarged), "");
    w.frame->resize(0, 0);
    QTRY_COMPARE(TextDifference(Places(w), smallest), "");
  }

  void controlsAreReadAloud() {
    TestedWindow w;
    QStringList said;
    for (QWidget* control : Controls(w))
      said += QAccessible::queryAccessibleInterface(control)->text(QAccessible::Name);
    const QStringList expected = {kInstructions,           "Satellite elements", "Browse...",      "Save...",
                                  "Celestrix file format", "Palm (PDB)",         "Pocket PC (PPC)"};
    QCOMPARE(said, expected);
    QCOMPARE(QAccessible::queryAccessibleInterface(w.txt)->text(QAccessible::Description), kInstructions);
  }

  void textsLookAsTheLayoutSays() {
    QApplication::setPalette(QPalette(Qt::darkGray, Qt::black));
    TestedWindow w;
    const auto* label = w.frame->findChild<QLabel*>("StaticText1");
    QVERIFY(label->wordWrap());
    QCOMPARE(label->alignment(), Qt::AlignLeft | Qt::AlignTop);
    QCOMPARE(label->palette().color(QPalette::WindowText), QColor(0x7F, 0x7F, 0x7F));
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
      QCOMPARE(w.txt->palette().color(group, QPalette::Text), QColor(Qt::black));
      QCOMPARE(w.txt->palette().color(group, QPalette::Base), QColor(Qt::white));
    }
  }

  void theWindowIsLeftToRightInEveryLanguage() { QCOMPARE(QGuiApplication::layoutDirection(), Qt::LeftToRight); }

  void captionsFitTheirBoxesInEveryFont() {
    SpaceLetters(160);
    TestedWindow w;
    QVERIFY(w.frame->findChild<QLabel*>("StaticText1")->heightForWidth(466) <= 55);
    QVERIFY(w.frame->findChild<QGroupBox*>()->minimumSizeHint().width() <= 221);
    for (const QAbstractButton* button : w.frame->findChildren<QAbstractButton*>())
      QVERIFY2(button->fontMetrics().horizontalAdvance(button->text()) < button->width(), qPrintable(button->text()));
    SpaceLetters(100);
    for (const QWidget* control : Controls(w))  // but the choices, whose captions are too wide in some fonts
      if (!control->inherits("QRadioButton"))
        QVERIFY2(control->font().pixelSize() == 11, qPrintable(control->objectName()));
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
};

int main(int argc, char** argv) { return RunTest<TestLayout>(argc, argv); }
#include "test_layout.moc"

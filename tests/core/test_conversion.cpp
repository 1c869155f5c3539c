// From a text to both files, byte for byte.
#include "app/file_types.h"
#include "core/element_file.h"
#include "core/element_lines.h"
#include "services/base/background_task.h"
#include "services/base/folder_item.h"
#include "tests/files.h"
#include "tests/model.h"

using namespace celestrix;

class TestConversion : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase() { FileTypes1::_Initialize(); }

  void everyTextIsSavedAsTheModelSays() {
    const QStringList ends = {"",       "  ", "\t", "\v\f", "\r",     "\u00A0",          "\u2003",    "\u3000",
                              "\u200B", "é",  "éé", "x",    "\u0085", QString(QChar(0)), "\U0001F6F0"};
    const int widths[] = {0, 0, 0, 1, 30, 67, 68, 69, 70, 71, 72, 200};
    QRandomGenerator random(1);                                           // always the same texts
    QStringList texts = {QString("even\nodd\n \n").repeated(3 * 32769)};  // more sets than the Palm count holds
    while (texts.size() < 500) {
      QString text;
      for (int lines = random.bounded(12); lines > 0; --lines)
        text += ends[random.bounded(15)] + QString(widths[random.bounded(12)], 'x') + ends[random.bounded(15)] + "\n";
      text.chop(random.bounded(2));
      texts += text;
    }
    for (const QString& text : texts) {
      QVERIFY2(Saved(text, true) == model::SavedFile(text, true), qUtf8Printable("Palm: " + text));
      QVERIFY2(Saved(text, false) == model::SavedFile(text, false), qUtf8Printable("Pocket PC: " + text));
    }
  }

  void everyPassYieldsOnce() {
    int runs = 0;
    BackgroundTask::Install([&runs] { ++runs; });
    Saved("abc\n\n" + (QString(71, 'x') + "\n").repeated(4096), true);
    BackgroundTask::Install(nullptr);
    // Lines, their NUL bytes, lines of the data area; name and list.
    QCOMPARE(runs, 1 + (4099 + 68 + 4095 + 13 + 1365) / 1024);
  }

 private:
  QByteArray Saved(const QString& text, bool palm) {
    const Ref<BinaryStream> stream = FolderItem(path_.toStdString()).CreateBinaryFile(*FileTypes1::PDBFile());
    stream->LittleEndian(palm);  // the other format's order, which must not matter
    const auto format = palm ? ElementFileFormat::kPalmDatabase : ElementFileFormat::kPocketPcFile;
    WriteElementFile(stream, ElementLines(String(text.toStdString())), format);
    stream->Close();
    return ReadFile(path_);
  }

  QTemporaryDir folder_;
  QString path_ = folder_.filePath("file");
};

QTEST_APPLESS_MAIN(TestConversion)
#include "test_conversion.moc"

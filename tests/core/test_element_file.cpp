// From a text to both files, byte for byte.
#include "core/element_file.h"

#include "app/file_types.h"
#include "core/element_lines.h"
#include "core/palm_database.h"
#include "services/base/background_task.h"
#include "services/base/folder_item.h"
#include "tests/files.h"
#include "tests/model.h"

using namespace celestrix;

class TestElementFile : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase() { FileTypes1::_Initialize(); }

  void oneSetIsSavedAsItsDumpsShow() {
    const QString text = ReadFile(TEST_DATA "one-set.txt");
    QCOMPARE(Difference(Saved(text, kPalm), Dump("one-set.pdb.txt").bytes), "");
    QCOMPARE(Difference(Saved(text, kPocketPc), Dump("one-set.ppc.txt").bytes), "");
  }

  void aLineFillsItsSlotOrIsDropped() {
    const QString x60(60, 'x');
    const QStringList kept = {"short", "71 bytes   " + x60, "before CR " + x60 + "\r"};
    const QStringList dropped = {"72 bytes    " + x60, "spaces" + QString(66, ' '), "é: 72 bytes" + x60, " \t\u3000"};
    for (const QString& line : kept + dropped) CompareWithModel(line + "\n1\n2\n3");
  }

  void moreSetsAreSavedThanThePalmCountHolds() {
    CompareWithModel(QString("even\nodd\n \n").repeated(3 * 32769) + "left over\n\nlikewise");
  }

  void thePalmNameFillsItsField() {
    for (const int size : {0, 30, 31, 32, 60}) {
      WriteDatabaseName(NewFile(), Text(QByteArray(size, 'x')));
      QCOMPARE(ReadFile(path_).left(32), QByteArray(std::min(size, 31), 'x').leftJustified(32, '\0'));
    }
  }

  // The window lives on this task while it saves. An exception in it ends one save, not the task of the next one.
  void everyLoopRunsTheTask() {
    BackgroundTask::Install([] { throw RuntimeException("from the task"); });
    const int passes = BackgroundTask::kPassesPerRun + 10;
    const Ref<StringArray> lines = Split(Text((QByteArray(71, 'x') + "\n").repeated(passes)), "\n"_s);
    const Ref<BinaryStream> stream = NewFile();
    QCOMPARE(ErrorOf([&] { Normalise(lines); }), "from the task");
    QCOMPARE(ErrorOf([&] { WriteRecordData(stream, lines, passes / 3, 0); }), "from the task");
    QCOMPARE(ErrorOf([&] { WritePalmHeader(stream, passes); }), "from the task");
    BackgroundTask::Install(nullptr);
  }

 private:
  static constexpr std::size_t kPalm = 0, kPocketPc = 1;  // as the radio buttons are numbered

  Ref<BinaryStream> NewFile() { return FolderItem(path_.toStdString()).CreateBinaryFile(*FileTypes1::PDBFile()); }

  QByteArray Saved(const QString& text, std::size_t format) {
    const Ref<BinaryStream> stream = NewFile();
    stream->LittleEndian(format == kPalm);  // the other format's order, which must not matter
    WriteElementFile(stream, ElementLines(Text(text.toUtf8())), kElementFileFormats[format]);
    stream->Close();
    return ReadFile(path_);
  }

  void CompareWithModel(const QString& text) {
    for (const auto format : {kPalm, kPocketPc})
      QCOMPARE(Difference(Saved(text, format), model::SavedFile(text, format == kPalm)), "");
  }

  QTemporaryDir folder_;
  QString path_ = folder_.filePath("file");
};

QTEST_APPLESS_MAIN(TestElementFile)
#include "test_element_file.moc"

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
    QCOMPARE(Difference(Saved(text, true), Dump("one-set.pdb.txt").bytes), "");
    QCOMPARE(Difference(Saved(text, false), Dump("one-set.ppc.txt").bytes), "");
  }

  void ofNoSetsTheHeaderIsSaved() { CompareWithModel(""); }

  void moreSetsAreSavedThanThePalmCountHolds() {
    CompareWithModel(QString("even\nodd\n \n").repeated(3 * 32769) + "left over\n\nlikewise");
  }

  void thePalmNameFillsItsField() {
    for (const int size : {0, 30, 31, 32, 60}) {
      WriteDatabaseName(NewFile(), Text(QByteArray(size, 'x')));
      QCOMPARE(ReadFile(path_).left(32), QByteArray(std::min(size, 31), 'x').leftJustified(32, '\0'));
    }
  }

  // The window lives on these yields while it saves.
  void everyLoopYieldsOnceInEachPass() {
    const Ref<StringArray> lines = Split(Text("abc\n \n" + QByteArray(71, 'x') + "\n" + QByteArray(70, 'x')), "\n"_s);
    QCOMPARE(YieldsOf([&] { Normalise(lines); }), 4 + 68 + 1);  // lines, and their NUL bytes
    QCOMPARE(YieldsOf([&] { WriteRecordData(NewFile(), lines, 1, 0); }), 3);
    QCOMPARE(YieldsOf([&] { WritePalmHeader(NewFile(), 5000); }), 32 - 20 + 5000);  // NUL bytes of the name, sets
  }

 private:
  Ref<BinaryStream> NewFile() { return FolderItem(path_.toStdString()).CreateBinaryFile(*FileTypes1::PDBFile()); }

  QByteArray Saved(const QString& text, bool palm) {
    const Ref<BinaryStream> stream = NewFile();
    stream->LittleEndian(palm);  // the other format's order, which must not matter
    WriteElementFile(stream, ElementLines(Text(text.toUtf8())),
                     palm ? ElementFileFormat::kPalmDatabase : ElementFileFormat::kPocketPcFile);
    stream->Close();
    return ReadFile(path_);
  }

  void CompareWithModel(const QString& text) {
    for (const bool palm : {true, false}) QCOMPARE(Difference(Saved(text, palm), model::SavedFile(text, palm)), "");
  }

  /// The task runs at the first yield and then at every so many: what is left until its next run tells the number.
  static int YieldsOf(const std::function<void()>& loop) {
    int runs = 0, left = 0;
    BackgroundTask::Install([&runs] { ++runs; });
    loop();
    for (const int before = runs; runs == before; ++left) RuntimeBackgroundTask();
    BackgroundTask::Install(nullptr);
    return (runs - 1) * BackgroundTask::kPassesPerRun + 1 - left;
  }

  QTemporaryDir folder_;
  QString path_ = folder_.filePath("file");
};

QTEST_APPLESS_MAIN(TestElementFile)
#include "test_element_file.moc"

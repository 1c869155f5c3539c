#include "services/base/text_decoder.h"

#include "tests/files.h"
#include "tests/model.h"

using namespace celestrix;

class TestTextDecoder : public QObject {
  Q_OBJECT

 private slots:
  void theBytesTellTheEncoding_data() {
    AddRows({{"UTF-8, its mark", "\xEF\xBB\xBF\xC3\xA9", "é"},
             {"UTF-8, four bytes", "\xF0\x9F\x9B\xB0", "\U0001F6F0"},
             {"half a character: Windows-1252", "\x80\xC3", "€Ã"},
             {"Windows-1252, an undefined byte", "\x81", "\u0081"},
             {"UTF-16, least significant byte first", {"\xFF\xFE\xE9\0", 4}, "é"},
             {"UTF-16, most significant byte first", {"\xFE\xFF\0\xE9", 4}, "é"},
             {"UTF-16, two units", "\xFE\xFF\xD8\x3D\xDE\xF0", "\U0001F6F0"},
             {"UTF-16, one of two units", {"\xFE\xFF\xD8\x3D\0a", 6}, "\uFFFDa"},
             {"UTF-16, half a unit", "\xFF\xFE\xE9", "\uFFFD"}});
  }
  void theBytesTellTheEncoding() {
    QFETCH(const QByteArray, in);
    QTEST(Bytes(DecodeText(Text(in))), "out");
  }

  // Every first byte, second ones at the limits of the rules, and what may come next; at the start, behind each mark,
  // and behind ASCII, which is skipped many bytes at a time.
  void allBytesAreDecodedAsTheModelSays() {
    const QByteArrayList starts = {"",         "\xEF\xBB\xBF",      "\xFE\xFF",
                                   "\xFF\xFE", QByteArray(63, 'a'), QByteArray(64, 'a')};
    const QByteArray seconds("\0\x07\x7F\x80\x8F\x90\x9F\xA0\xBF\xC0\xD8\xDC", 12);
    const QByteArray ends("|\x7F|\x80|\xBF\xBF|\xDC\0|\0\xDC|\xD8\0|\x80\x7F|", 20);
    const QByteArrayList tails = (ends + QByteArray(62, 'a')).split('|');
    for (const QByteArray& start : starts)
      for (qsizetype i = 0; i < 256 * 12 * tails.size(); ++i) {
        const QByteArray bytes = start + char(i % 256) + seconds[i / 256 % 12] + tails[i / 256 / 12];
        const QByteArray text = Bytes(ReplaceLineEndings(DecodeText(Text(bytes)), EndOfLine()));
        const QByteArray expected = model::TextOfFile(bytes).toUtf8();
        QVERIFY2(text == expected, bytes.toHex(' ') + " became " + text.toHex(' ') + ", not " + expected.toHex(' '));
      }
  }
};

QTEST_APPLESS_MAIN(TestTextDecoder)
#include "test_text_decoder.moc"

// What the program does to a text, written a second time by other means: Qt's conversions, string lists and data
// streams. The two have no code in common. The tests and the fuzzer compare the program with it.
#pragma once

#include <QDataStream>
#include <QStringConverter>
#include <QStringList>

namespace model {

/// Qt itself supports Windows-1252 on some systems only.
inline QString FromWindows1252(const QByteArray& bytes) {
  const QString from80 = "€\u0081‚ƒ„…†‡ˆ‰Š‹Œ\u008DŽ\u008F\u0090‘’“”•–—˜™š›œ\u009DžŸ";
  QString text = QString::fromLatin1(bytes);
  for (QChar& c : text)
    if (c >= QChar(0x80) && c < QChar(0xA0)) c = from80[c.unicode() - 0x80];
  return text;
}

/// The text of a file of these bytes, as the field shows it.
inline QString TextOfFile(const QByteArray& bytes) {
  const QByteArray unmarked = bytes.mid(bytes.startsWith("\xEF\xBB\xBF") ? 3 : 0);
  QString text = QString::fromUtf8("x" + unmarked).mid(1);  // a mark at the start would be lost
  if (bytes.startsWith("\xFF\xFE") || bytes.startsWith("\xFE\xFF"))
    text = QStringDecoder(QStringDecoder::Utf16, QStringDecoder::Flag::Stateless)(bytes);
  else if (text.toUtf8() != unmarked)
    text = FromWindows1252(unmarked);
  // A unit of UTF-16 without its partner becomes U+FFFD.
  text = QString::fromStdU32String(std::u32string(U"x").append(text.toStdU32String())).mid(1);
  return text.replace("\r\n", "\n").replace('\r', '\n');
}

/// The file that is made when the text is saved.
inline QByteArray SavedFile(const QString& text, bool palm) {
  QByteArray data, header;
  for (const QString& line : text.split('\n')) {
    const QByteArray bytes = line.toUtf8();
    if (!line.trimmed().isEmpty() && bytes.size() <= 71) data += bytes.leftJustified(71, '\0');
  }
  const auto sets = static_cast<qint32>(data.size() / 213);
  data.truncate(qsizetype{213} * sets);
  QDataStream stream(&header, QIODeviceBase::WriteOnly);
  if (palm) {
    stream.writeRawData("Celestrix Satellite\0\0\0\0\0\0\0\0\0\0\0\0", 32);
    stream << 0x08080003 << 0xBBF81E02 << 0xBBF81E02 << 0xBBF81E02 << 0 << 0 << 0;
    stream.writeRawData("pl12RZQ4\0\0\0\0\0\0\0", 16);
    stream << static_cast<quint16>(sets);
    for (qint32 k = 0; k < sets; ++k) stream << 78 + 8 * sets + 213 * k << 0;
  } else {
    stream.setByteOrder(QDataStream::LittleEndian);
    stream << 24 << 0x706C3132 << sets << 213;
  }
  return header + data;
}

}  // namespace model

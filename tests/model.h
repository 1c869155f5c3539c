// What the program does to a text, said a second time by other means: the toolkit's decoders, lists of lines and data
// streams, no code in common. The tests and the fuzzer compare with it.
#pragma once

#include <QDataStream>
#include <QIODevice>
#include <QStringConverter>
#include <QStringList>
#include <string>

namespace model {

/// The text of UTF-8, with its marks; null where it is not valid.
inline QString FromUtf8(const std::string& bytes) {
  QStringDecoder decoder(QStringDecoder::Utf8,
                         QStringDecoder::Flag::ConvertInitialBom | QStringDecoder::Flag::Stateless);
  const QString text = QString("") + decoder(QByteArray::fromStdString(bytes));
  return decoder.hasError() ? QString() : text;
}

/// The text of UTF-16. A unit without its partner, or half a unit at the end, is U+FFFD.
inline QString FromUtf16(const QByteArray& bytes, bool littleEndian) {
  QString units, text;
  for (qsizetype i = 0; i + 1 < bytes.size(); i += 2)
    units += QChar(uchar(bytes[littleEndian ? i : i + 1]), uchar(bytes[littleEndian ? i + 1 : i]));
  for (const uint point : units.toUcs4()) text += QChar::fromUcs4(point);
  return bytes.size() % 2 == 0 ? text : text + QChar(0xFFFD);
}

inline QString FromWindows1252(const QByteArray& bytes) {
  QString text = QString::fromLatin1(bytes);
  for (QChar& c : text)
    if (c >= u'\u0080' && c < u'\u00A0')
      c = u"€\u0081‚ƒ„…†‡ˆ‰Š‹Œ\u008DŽ\u008F\u0090‘’“”•–—˜™š›œ\u009DžŸ"[c.unicode() - 0x80];
  return text;
}

/// The text of a file of these bytes, as the field shows it.
inline std::string TextOfFile(const std::string& bytes) {
  const std::string unmarked = bytes.substr(bytes.starts_with("\xEF\xBB\xBF") ? 3 : 0);
  const bool littleEndian = bytes.starts_with("\xFF\xFE");
  QString text = FromUtf8(unmarked);
  if (littleEndian || bytes.starts_with("\xFE\xFF"))
    text = FromUtf16(QByteArray::fromStdString(bytes.substr(2)), littleEndian);
  else if (text.isNull())
    text = FromWindows1252(QByteArray::fromStdString(unmarked));
  return text.replace("\r\n", "\n").replace('\r', '\n').toStdString();
}

/// The file that saving the text makes.
inline std::string SavedFile(const std::string& text, bool palm) {
  QByteArray data, header;
  for (const QString& line : FromUtf8(text).split('\n')) {
    const QByteArray bytes = line.toUtf8();
    if (!line.trimmed().isEmpty() && bytes.size() <= 71) data += bytes.leftJustified(71, '\0');
  }
  const auto sets = static_cast<qint32>(data.size() / 213);
  data.truncate(qsizetype{213} * sets);
  QDataStream stream(&header, QIODevice::WriteOnly);
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
  return (header + data).toStdString();
}

}  // namespace model

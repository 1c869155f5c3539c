// Whether two element files are the same, and if not, where they differ: the offset, the field, the bytes there.
//
// The names of the fields come from the dumps in tests/data, one file in each format, explained byte by byte. In a file
// of more sets, each set has the names of the first one, with its own number.
#pragma once

#include <QFile>
#include <QStringList>

inline QByteArray ReadFile(const QString& path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : "cannot be read";
}

/// A file as a dump of tests/data shows it.
struct Dump {
  QByteArray bytes;
  QStringList fields;  // the name of each byte's field

  explicit Dump(const QString& name) {
    for (const QString& row : QString(ReadFile(TEST_DATA + name)).split('\n')) {
      const QStringList columns = row.split('|');
      if (columns.size() != 3 || columns[0] == "offset ") continue;
      if (columns[0].toInt() != bytes.size()) qFatal("wrong offset in %s: %s", qPrintable(name), qPrintable(row));
      bytes += QByteArray::fromHex(columns[1].toLatin1());
      const QString field = columns[2].contains(':') ? columns[2].section(':', 0, 0).trimmed() : fields.last();
      while (fields.size() < bytes.size()) fields += field;
    }
  }
};

/// What an offset of a file is: "Palm, version", "Pocket PC, set 3, line 2, column 70".
inline QString FieldAt(qsizetype offset, const QByteArray& file) {
  const bool palm = file.startsWith("Celestrix");
  const qsizetype header = palm ? 78 : 16, entry = palm ? 8 : 0;
  const qsizetype sets = (file.size() - header) / (entry + 213), listed = offset - header, data = listed - entry * sets;
  const Dump dump(palm ? "one-set.pdb.txt" : "one-set.ppc.txt");
  const QString format = palm ? "Palm, " : "Pocket PC, ";
  if (listed < 0) return format + dump.fields.value(offset);
  if (data < 0) return format + QString("%1, set %2").arg(dump.fields.value(header + listed % 8)).arg(listed / 8 + 1);
  return format + QString("set %1, line %2, column %3").arg(data / 213 + 1).arg(data % 213 / 71 + 1).arg(data % 71 + 1);
}

/// The first difference, in words; "" if there is none.
inline QByteArray Difference(const QByteArray& actual, const QByteArray& expected) {
  if (actual == expected) return "";
  const qsizetype at = std::ranges::mismatch(actual, expected).in1 - actual.begin();
  const auto from = [at](const QByteArray& file) {
    QByteArray part = file.mid(at, 8);
    const QByteArray hex = part.toHex(' ');
    for (char& c : part)
      if (c < ' ' || c > '~') c = '.';
    return hex + " |" + part + (file.size() > at + 8 ? "| ..." : "| and the end");
  };
  return QString("offset %1, %2: %3, expected %4")
      .arg(QString::number(at), FieldAt(at, expected), from(actual), from(expected))
      .toUtf8();
}

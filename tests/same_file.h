// Whether two element files are the same, and if not, where they differ: the offset, the field, the bytes around it.
//
// The names of the fields come from the dumps in tests/data, one file in each format that anybody can follow byte by
// byte. In a file of more sets the names are those of the first one, with the number of the set.
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

/// The name of the field at an offset of a file: "version", "set 3, line 2, column 70".
inline QString FieldAt(qsizetype offset, const QByteArray& file, bool palm) {
  const qsizetype header = palm ? 78 : 16, entry = palm ? 8 : 0;
  const qsizetype sets = (file.size() - header) / (entry + 213), listed = offset - header, data = listed - entry * sets;
  if (data >= 0)
    return QString("set %1, line %2, column %3").arg(data / 213 + 1).arg(data % 213 / 71 + 1).arg(data % 71 + 1);
  const Dump dump(palm ? "one-set.pdb.txt" : "one-set.ppc.txt");
  if (listed < 0) return dump.fields.value(offset);
  return QString("%1, set %2").arg(dump.fields.value(header + listed % entry)).arg(listed / entry + 1);
}

/// The first difference, in words; "" where there is none.
inline QByteArray Difference(const QByteArray& actual, const QByteArray& expected) {
  if (actual == expected) return "";
  const qsizetype at = std::ranges::mismatch(actual, expected).in1 - actual.begin(),
                  start = std::max(at, qsizetype{6}) - 6;
  const auto byteOf = [at](const QByteArray& file) { return at < file.size() ? file.mid(at, 1).toHex() : "the end"; };
  const auto around = [start](const QByteArray& file) { return file.mid(start, 13).toHex(' '); };
  const bool palm = expected.startsWith("Celestrix");
  return QString("%1, offset %2, %3: %4, expected %5 (from %6 on: %7; expected: %8)")
      .arg(palm ? "Palm" : "Pocket PC")
      .arg(at)
      .arg(FieldAt(at, expected, palm), byteOf(actual), byteOf(expected))
      .arg(start)
      .arg(around(actual), around(expected))
      .toUtf8();
}

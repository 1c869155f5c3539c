// Files, as the tests read and write them: whole, and not by the program's own means.
#pragma once

#include <QtTest>
#include <string>

inline std::string ReadFile(const QString& path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : "cannot be read";
}

inline QString WriteFile(const QString& path, const std::string& bytes) {
  QFile file(path);
  if (!file.open(QIODevice::WriteOnly)) qFatal("cannot write a file of the test");
  file.write(bytes.data(), static_cast<qint64>(bytes.size()));
  return path;
}

/// Shows the bytes of a failed comparison.
template <>
inline char* QTest::toString(const std::string_view& bytes) {
  return QTest::toString(QByteArray(bytes.data(), static_cast<qsizetype>(bytes.size())));
}
template <>
inline char* QTest::toString(const std::string& bytes) {
  return QTest::toString(std::string_view(bytes));
}

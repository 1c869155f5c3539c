// Files and texts, as the tests read and write them: whole, and not by the program's own means.
#pragma once

#include <QtTest>

#include "services/base/string.h"
#include "tests/same_file.h"

inline QString WriteFile(const QString& path, const QByteArray& bytes) {
  QFile file(path);
  if (!file.open(QIODevice::WriteOnly)) qFatal("cannot write a file of the test");
  file.write(bytes);
  return path;
}

/// The bytes of a text; a comparison that fails shows them.
inline QByteArray Bytes(const celestrix::String& text) { return {text.Bytes().data(), LenB(text)}; }
/// The text of these bytes.
inline celestrix::String Text(const QByteArray& bytes) { return celestrix::String(bytes.toStdString()); }

/// Where two texts begin to differ, and how; "" if they are the same. For texts too long to be shown whole.
inline QString TextDifference(const QString& actual, const QString& expected) {
  if (actual == expected) return "";
  const auto at = std::ranges::mismatch(actual, expected).in1 - actual.begin(), from = qMax(at - 20, 0);
  const auto shown = [from](const QString& text) { return QDebug::toString(text.mid(from, 60)); };
  return QString("from character %1 on: %2, expected %3").arg(QString::number(at), shown(actual), shown(expected));
}

/// What an error says; "no error" where nothing goes wrong.
inline QByteArray ErrorOf(const std::function<void()>& use) try {
  use();
  return "no error";
} catch (const std::exception& error) {
  return error.what();
}

/// A row of a test: its name, what goes in, and what is to come out.
struct Row {
  const char* name;
  QByteArray in, out;
};

inline void AddRows(std::initializer_list<Row> rows) {
  QTest::addColumn<QByteArray>("in");
  QTest::addColumn<QByteArray>("out");
  for (const Row& row : rows) QTest::newRow(row.name) << row.in << row.out;
}

// Files, as the tests read and write them: whole, and not by the program's own means.
#pragma once

#include <QtTest>

#include "services/base/string.h"

inline QByteArray ReadFile(const QString& path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : "cannot be read";
}

inline QString WriteFile(const QString& path, const QByteArray& bytes) {
  QFile file(path);
  if (!file.open(QIODevice::WriteOnly)) qFatal("cannot write a file of the test");
  file.write(bytes);
  return path;
}

/// The bytes of a text; a comparison that fails shows them.
inline QByteArray Bytes(const celestrix::String& text) { return {text.Bytes().data(), LenB(text)}; }

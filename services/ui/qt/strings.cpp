#include "services/ui/qt/strings.h"

#include <QStringEncoder>

namespace celestrix {

String FromQString(QStringView text) {
  QStringEncoder encoder(QStringEncoder::Utf8, QStringEncoder::Flag::Stateless);
  const auto room = static_cast<std::size_t>(encoder.requiredSpace(text.size()));
  return String::Build(room,
                       [&](char* out) { return static_cast<std::size_t>(encoder.appendToBuffer(out, text) - out); });
}

}  // namespace celestrix

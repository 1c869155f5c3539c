#include "services/ui/qt/strings.h"

#include <QStringDecoder>

namespace celestrix {

QString ToQString(std::string_view utf8) {
  QStringDecoder decoder(QStringDecoder::Utf8,
                         QStringDecoder::Flag::Stateless | QStringDecoder::Flag::ConvertInitialBom);
  return decoder(QByteArrayView(utf8.data(), static_cast<qsizetype>(utf8.size())));
}

String FromQString(QStringView text) {
  const QByteArray utf8 = text.toUtf8();
  return String(std::string_view(utf8.data(), static_cast<std::size_t>(utf8.size())));
}

}  // namespace celestrix

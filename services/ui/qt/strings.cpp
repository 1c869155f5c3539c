#include "services/ui/qt/strings.h"

#include <QStringDecoder>

namespace celestrix {

QString ToQString(std::string_view utf8) {
  using Flag = QStringDecoder::Flag;
  return QStringDecoder(QStringDecoder::Utf8, Flag::Stateless | Flag::ConvertInitialBom)(QByteArrayView(utf8));
}

String FromQString(QStringView text) {
  const QByteArray utf8 = text.toUtf8();
  return String(std::string_view(utf8.data(), static_cast<std::size_t>(utf8.size())));
}

}  // namespace celestrix

#include "services/ui/qt/strings.h"

#include <QStringDecoder>
#include <QStringEncoder>
#include <numeric>

namespace celestrix {

namespace {

/// Enough bytes for the UTF-8 form of the text: exact but for surrogate pairs, of which each half counts three bytes
/// and not two. (The toolkit's own estimate is three bytes for every unit.)
std::size_t Utf8Room(QStringView text) {
  return std::accumulate(text.utf16(), text.utf16() + text.size(), std::size_t{0},
                         [](std::size_t sum, char16_t unit) { return sum + 1 + (unit >= 0x80) + (unit >= 0x800); });
}

}  // namespace

QString ToQString(std::string_view utf8) {
  QStringDecoder decoder(QStringDecoder::Utf8,
                         QStringDecoder::Flag::Stateless | QStringDecoder::Flag::ConvertInitialBom);
  return decoder(QByteArrayView(utf8.data(), static_cast<qsizetype>(utf8.size())));
}

String FromQString(QStringView text) {
  return String::Build(Utf8Room(text), [text](char* room) {
    QStringEncoder encoder(QStringEncoder::Utf8, QStringEncoder::Flag::Stateless);
    return static_cast<std::size_t>(encoder.appendToBuffer(room, text) - room);
  });
}

}  // namespace celestrix

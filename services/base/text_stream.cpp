#include "services/base/text_stream.h"

#include <algorithm>

namespace celestrix {

String TextInputStream::ReadLine() {
  const std::string_view bytes = rest_.Bytes();
  const std::size_t end = std::min({bytes.find('\r'), bytes.find('\n'), bytes.size()});
  const std::size_t next = end + (bytes.substr(end).starts_with("\r\n") ? 2 : 1);
  String line = rest_.Slice(0, end);
  rest_ = rest_.Slice(std::min(next, bytes.size()));
  return line;
}

}  // namespace celestrix

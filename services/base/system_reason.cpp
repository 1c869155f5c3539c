// The C library has a text for each error; Windows' error numbers are translated into its own first. On Windows and
// macOS its texts are always in English; on Linux English has to be asked for.
#include "services/base/system_reason.h"

#include <cstring>

#ifdef __linux__
#include <clocale>
#endif

namespace celestrix {

std::string SystemReason(const std::error_code& error) {
  const std::error_condition condition = error.default_error_condition();
  if (condition.category() != std::generic_category()) return "Error " + std::to_string(error.value());
#ifdef __linux__
  static const locale_t english = newlocale(LC_ALL_MASK, "C", nullptr);
  return strerror_l(condition.value(), english);
#else
  return std::strerror(condition.value());
#endif
}

}  // namespace celestrix

#include "services/base/errors.h"

#include <new>

namespace celestrix {

void RaiseNilObjectException(const std::string* whyNull) {
  throw NilObjectException(whyNull != nullptr ? *whyNull : "An object that does not exist was used.");
}

void RaiseOutOfBoundsException(int index, int upperBound) {
  throw OutOfBoundsException("There is no element " + std::to_string(index) + " in an array that ends at " +
                             std::to_string(upperBound) + ".");
}

std::string ErrorText(const std::exception& error) {
  // The standard library's own text for this one is a type name.
  if (dynamic_cast<const std::bad_alloc*>(&error) != nullptr) return "There is not enough memory.";
  return error.what();
}

}  // namespace celestrix

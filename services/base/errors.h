// Errors of the framework. Every error is an exception derived from RuntimeException; a handler of
// the program catches none of them, so each one ends in RuntimeUnhandledException.
#pragma once

#include <stdexcept>
#include <string>

namespace celestrix {

/// The base of all errors. what() is a sentence in UTF-8 that can be shown to the user as it is.
class RuntimeException : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Raised when a null reference is used. what() says why the reference was null, if the operation
/// that returned it knew ("“/tmp/a.pdb” could not be created: Permission denied.").
class NilObjectException : public RuntimeException {
 public:
  using RuntimeException::RuntimeException;
};

/// Raised when an array is asked for an element that it does not have.
class OutOfBoundsException : public RuntimeException {
 public:
  using RuntimeException::RuntimeException;
};

[[noreturn]] inline void RaiseNilObjectException(const std::string* whyNull) {
  throw NilObjectException(whyNull != nullptr ? *whyNull : "Internal error: an object that does not exist was used.");
}

[[noreturn]] inline void RaiseOutOfBoundsException(int index, int upperBound) {
  throw OutOfBoundsException("There is no element " + std::to_string(index) + " in an array that ends at " +
                             std::to_string(upperBound) + ".");
}

}  // namespace celestrix

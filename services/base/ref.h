// Ref<T>: how the program holds the objects of the framework.
//
// Ownership is shared: the object lives exactly as long as some Ref holds it. A Ref may be null; using
// a null one raises NilObjectException, so a caller need not test a result before it uses it. Null is tested
// for, with `if (!ref)`, only where it has a meaning of its own (a cancelled dialog).
//
// An operation that fails returns Ref<T>::Nil(why). The reason stays with the null reference and
// becomes the text of the exception if the reference is used.
#pragma once

#include <cstddef>
#include <memory>
#include <utility>

#include "services/base/errors.h"

namespace celestrix {

template <class T>
class Ref {
 public:
  Ref() = default;
  Ref(std::nullptr_t) {}
  Ref(std::shared_ptr<T> object) : object_(std::move(object)) {}

  /// From a reference to a derived class; keeps the reason of a null one.
  template <class Derived>
  Ref(const Ref<Derived>& other) : object_(other.object_), whyNull_(other.whyNull_) {}

  /// A null reference that knows why it is null.
  static Ref Nil(std::string why) {
    Ref nil;
    nil.whyNull_ = std::make_shared<const std::string>(std::move(why));
    return nil;
  }

  explicit operator bool() const { return object_ != nullptr; }

  T* operator->() const { return &**this; }
  T& operator*() const {
    RaiseIfNull();
    return *object_;
  }

  /// Raises NilObjectException if it is null, as any use would.
  void RaiseIfNull() const {
    if (!object_) RaiseNilObjectException(whyNull_.get());
  }

  /// The same object as a T2; null if it is not one. A null reference keeps its reason.
  template <class T2>
  Ref<T2> As() const {
    Ref<T2> other(std::dynamic_pointer_cast<T2>(object_));
    other.whyNull_ = whyNull_;
    return other;
  }

 private:
  template <class>
  friend class Ref;

  std::shared_ptr<T> object_;
  std::shared_ptr<const std::string> whyNull_;
};

/// Makes an object and returns the first reference to it.
template <class T, class... Arguments>
Ref<T> New(Arguments&&... arguments) {
  return Ref<T>(std::make_shared<T>(std::forward<Arguments>(arguments)...));
}

}  // namespace celestrix

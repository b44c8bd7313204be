#pragma once

#include <atomic>
#include <cstdint>

#include "platform/plugins_manager/object.h"

namespace x3 {

/// Makes a counted object of a class that implements its interfaces and says by
/// `static bool Answers(InterfaceId)` which of them it hands out.
template <typename Class>
class NormalObject final : public Class {
 public:
  /// The object with one count for the caller, or null when it does not answer the interface.
  static IObject* Create(InterfaceId id) {
    auto* object = new NormalObject;
    IObject* result = nullptr;
    object->Query(id, &result);
    object->Release();
    return result;
  }

  std::int32_t Retain() override { return ++count; }

  std::int32_t Release() override {
    const std::int32_t left = --count;
    if (left == 0) delete this;
    return left;
  }

  bool Query(InterfaceId id, IObject** out) override { return Answer(this, id, out); }

  /// Query for an object that may be missing: a null object answers and writes nothing.
  static bool Answer(NormalObject* object, InterfaceId id, IObject** out) {
    if (!Class::Answers(id)) return false;
    if (object == nullptr) return true;
    *out = object;
    object->Retain();
    return true;
  }

 private:
  NormalObject() = default;
  ~NormalObject() override = default;

  std::atomic<std::int32_t> count = 1;
};

}  // namespace x3

#include "shell/objects/Object.h"

#include <limits>
#include <memory>

#include "shell/objects/ClassRecord.h"

namespace veldrin {
namespace {

std::int64_t liveObjects = 0;

/// Far from 0 on both sides, so that a step of an object's end may lock and unlock the object.
constexpr std::int32_t CountOfTheDying = std::numeric_limits<std::int32_t>::max() / 2;

}  // namespace

Object::Object() {
  ++liveObjects;
}

Object::~Object() {
  --liveObjects;
}

std::int64_t liveObjectCount() {
  return liveObjects;
}

void destroyObject(Object* object) noexcept {
  struct End {
    void operator()(Object* last) const { delete last; }
  };
  const std::unique_ptr<Object, End> owner(object);
  object->count_ = CountOfTheDying;
  for (const ClassRecord* record = object->classRecord(); record != nullptr;
       record = record->baseClass) {
    if (record->Destructor != nullptr) record->Destructor(*object);
    if (record->__Exit != nullptr) record->__Exit(*object);
  }
}

}  // namespace veldrin

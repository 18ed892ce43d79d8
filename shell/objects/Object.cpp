#include "shell/objects/Object.h"

#include <limits>
#include <memory>
#include <vector>

#include "shell/objects/ClassRecord.h"
#include "shell/objects/Stack.h"

namespace veldrin {
namespace {

std::int64_t liveObjects = 0;

/// Far from 0 and from overflow, so that `Destructor` and `__Exit` may lock and unlock the object.
constexpr std::int32_t CountDuringDestruction = std::numeric_limits<std::int32_t>::max() / 2;

/// Objects whose destruction is postponed; nil until the first. Never destroyed, because objects
/// may be released after static destructors have run.
constinit std::vector<Object*>* postponed = nullptr;

void runHook(Hook hook, Object& object) noexcept {
  if (hook == nullptr) return;
  try {
    hook(object);
  } catch (...) {  // NOLINT(bugprone-empty-catch): no caller could handle it
  }
}

/// Returns whether the destruction was postponed.
bool postponeIfStackIsLow(Object* object) noexcept {
  if (!RuntimeStackIsLow()) return false;
  try {
    if (postponed == nullptr) postponed = std::make_unique<std::vector<Object*>>().release();
    postponed->push_back(object);
    return true;
  } catch (...) {
    return false;  // out of memory: destroy the object now, in the stack reserve
  }
}

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
  object->count_ = CountDuringDestruction;
  if (postponeIfStackIsLow(object)) return;
  destroyNow(object);
  destroyPostponedObjects();
}

void destroyPostponedObjects() noexcept {
  while (postponed != nullptr && !postponed->empty() && !RuntimeStackIsLow()) {
    Object* const next = postponed->back();
    postponed->pop_back();
    destroyNow(next);
  }
}

void destroyNow(Object* object) noexcept {
  struct Delete {
    void operator()(Object* owned) const { delete owned; }
  };
  std::unique_ptr<Object, Delete> owner(object);
  const ClassRecord* record = object->haveHooksRun_ ? nullptr : object->classRecord();
  for (object->haveHooksRun_ = true; record != nullptr; record = record->baseClass) {
    runHook(record->Destructor, *object);
    runHook(record->__Exit, *object);
  }
  if (object->count_ == CountDuringDestruction) return;
  object->count_ -= CountDuringDestruction;
  static_cast<void>(owner.release());
}

}  // namespace veldrin

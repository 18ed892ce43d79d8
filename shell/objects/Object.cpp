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
constinit std::vector<Object*>* waiting = nullptr;

void runStep(LifeStep step, Object& object) noexcept {
  if (step == nullptr) return;
  try {
    step(object);
  } catch (...) {  // NOLINT(bugprone-empty-catch): no caller could handle it
  }
}

/// Returns whether the destruction was postponed.
bool postponeIfStackIsLow(Object* object) noexcept {
  if (!RuntimeStackIsLow()) return false;
  try {
    if (waiting == nullptr) waiting = std::make_unique<std::vector<Object*>>().release();
    waiting->push_back(object);
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
  endObject(object);
  endObjectsThatWait();
}

void endObjectsThatWait() noexcept {
  while (waiting != nullptr && !waiting->empty() && !RuntimeStackIsLow()) {
    Object* const next = waiting->back();
    waiting->pop_back();
    endObject(next);
  }
}

void endObject(Object* object) noexcept {
  struct End {
    void operator()(Object* last) const { delete last; }
  };
  std::unique_ptr<Object, End> owner(object);
  const ClassRecord* record = object->hasEnded_ ? nullptr : object->classRecord();
  for (object->hasEnded_ = true; record != nullptr; record = record->baseClass) {
    runStep(record->Destructor, *object);
    runStep(record->__Exit, *object);
  }
  if (object->count_ == CountDuringDestruction) return;
  object->count_ -= CountDuringDestruction;
  static_cast<void>(owner.release());
}

}  // namespace veldrin

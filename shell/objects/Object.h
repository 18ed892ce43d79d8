#pragma once

#include <cstddef>
#include <cstdint>

#include "shell/objects/BlockPool.h"

namespace veldrin {

struct ClassRecord;
template <class Self>
class ClassTable;

/// The root class. Objects are reference-counted; a new object has the count 1, owned by its
/// creator. Not thread-safe: Veldrin has one thread.
class Object {
 public:
  Object(const Object&) = delete;
  Object& operator=(const Object&) = delete;

  // NOLINTNEXTLINE(misc-new-delete-overloads): the matching delete is the sized one.
  static void* operator new(std::size_t size) { return allocateBlock(size); }
  static void operator delete(void* object, std::size_t size) noexcept { freeBlock(object, size); }

  /// The record of the object's class; nil for `Object` itself and for arrays.
  [[nodiscard]] virtual ClassRecord* classRecord() const { return nullptr; }

  /// Defaults for a class that does not declare its own; see `Described`.
  static void fillTable(ClassTable<Object>& /*table*/) {}
  void __Init() {}
  void Destructor() {}
  void __Exit() {}

  /// For tests.
  [[nodiscard]] std::int32_t referenceCount() const { return count_; }

 protected:
  Object();
  virtual ~Object();

 private:
  friend void RuntimeLockObject(Object* object) noexcept;
  friend void RuntimeUnlockObject(Object* object) noexcept;
  friend void destroyObject(Object* object) noexcept;
  friend void destroyNow(Object* object) noexcept;

  std::int32_t count_ = 1;
  bool haveHooksRun_ = false;  ///< the hooks `Destructor` and `__Exit`
};

/// The number of existing objects.
std::int64_t liveObjectCount();

/// Runs `Destructor` and `__Exit` of each class, derived class first, then frees the object. Only
/// `RuntimeUnlockObject` calls it. Exceptions from the hooks are ignored: no caller could handle
/// them. If a hook stores a reference to the object, the object lives until that reference is
/// released, with its fields cleared by `__Exit`. No hook runs twice. If little stack is left, the
/// destruction is postponed, so that a long chain of objects cannot overflow the stack.
void destroyObject(Object* object) noexcept;

/// Destroys the postponed objects, unless the stack is still low.
void destroyPostponedObjects() noexcept;

/// Increments the count. Nil is allowed.
inline void RuntimeLockObject(Object* object) noexcept {
  if (object != nullptr) ++object->count_;
}

/// Decrements the count and destroys the object at 0. Nil is allowed.
inline void RuntimeUnlockObject(Object* object) noexcept {
  if (object != nullptr && --object->count_ == 0) destroyObject(object);
}

/// Locks `added`, then unlocks `removed`, so self-assignment is safe.
inline void RuntimeLockUnlockObjects(Object* added, Object* removed) noexcept {
  RuntimeLockObject(added);
  RuntimeUnlockObject(removed);
}

}  // namespace veldrin

#pragma once

#include <cstddef>
#include <cstdint>

#include "shell/objects/BlockPool.h"

namespace veldrin {

struct ClassRecord;
template <class Self>
class ClassTable;

/// The root of all classes. An object lives exactly as long as somebody holds a count of it: it
/// starts with one, which belongs to whoever made it. The program has one thread, so the count is a
/// plain integer.
class Object {
 public:
  Object(const Object&) = delete;
  Object& operator=(const Object&) = delete;

  // NOLINTNEXTLINE(misc-new-delete-overloads): the delete below is the one that knows the size.
  static void* operator new(std::size_t size) { return takeBlock(size); }
  static void operator delete(void* object, std::size_t size) noexcept { giveBlock(object, size); }

  /// The record of the object's class; nil only for the root, which has none.
  [[nodiscard]] virtual ClassRecord* classRecord() const { return nullptr; }

  /// What a class may declare again for itself: rows for its table, and steps of its objects' life.
  /// These do nothing and stand in no record.
  static void fillTable(ClassTable<Object>& /*table*/) {}
  void __Init() {}
  void Destructor() {}
  void __Exit() {}

  /// The number of counts held, for tests.
  [[nodiscard]] std::int32_t referenceCount() const { return count_; }

 protected:
  Object();
  virtual ~Object();

 private:
  friend void RuntimeLockObject(Object* object) noexcept;
  friend void RuntimeUnlockObject(Object* object) noexcept;
  friend void destroyObject(Object* object) noexcept;
  friend void endObject(Object* object) noexcept;

  std::int32_t count_ = 1;
};

/// How many objects exist at this moment; 0 when everything has been given up.
std::int64_t liveObjectCount();

/// Runs the object's `Destructor` and `__Exit`, class by class from the derived to the base, and
/// frees it; only `RuntimeUnlockObject` calls it. What a step raises is dropped, since there is
/// no caller to pass it to. Objects that hold each other in a chain of any length are freed without
/// overflowing the stack: where it runs low, the next one waits until those in hand are done.
void destroyObject(Object* object) noexcept;

/// Ends the objects that wait, unless the stack is low still.
void endObjectsThatWait() noexcept;

/// Adds a count. Nil is allowed.
inline void RuntimeLockObject(Object* object) noexcept {
  if (object != nullptr) ++object->count_;
}

/// Takes a count; at 0 the object is destroyed. Nil is allowed.
inline void RuntimeUnlockObject(Object* object) noexcept {
  if (object != nullptr && --object->count_ == 0) destroyObject(object);
}

/// One assignment: locks the new value first, so that assigning a variable to itself is safe.
inline void RuntimeLockUnlockObjects(Object* added, Object* removed) noexcept {
  RuntimeLockObject(added);
  RuntimeUnlockObject(removed);
}

}  // namespace veldrin

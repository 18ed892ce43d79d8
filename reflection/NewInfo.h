#pragma once

#include <utility>

#include "shell/objects/ClassRecord.h"

namespace veldrin::Introspection {

/// Creates a description and calls its `Constructor` with these arguments.
template <class Info, class... Arguments>
Ref<Info> NewInfo(Arguments&&... arguments) {
  Ref<Info> info = New<Info>();
  info->Constructor(std::forward<Arguments>(arguments)...);
  return info;
}

}  // namespace veldrin::Introspection

#pragma once

#include <span>
#include <vector>

#include "shell/objects/Array.h"
#include "shell/objects/NewArray.h"

namespace veldrin::Introspection {

/// A list of descriptions. Nil is an empty list.
template <class Info>
using InfoList = Ref<Array<Ref<Info>>>;

template <class Info, class Derived>
void append(InfoList<Info>& list, const Ref<Derived>& info) {
  if (!list) list = newArray(std::vector<Ref<Info>>());
  list->elements.push_back(info);
}

template <class Info>
std::span<const Ref<Info>> itemsOf(const InfoList<Info>& list) {
  return list ? std::span<const Ref<Info>>(list->elements) : std::span<const Ref<Info>>();
}

/// A new array, which the caller may change; an empty one for nil.
template <class Info>
InfoList<Info> copyOf(const InfoList<Info>& list) {
  const auto items = itemsOf(list);
  return newArray(std::vector<Ref<Info>>(items.begin(), items.end()));
}

}  // namespace veldrin::Introspection

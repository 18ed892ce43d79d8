#include "shell/window/Placard.h"

namespace veldrin {

void Placard::fillTable(ClassTable<Placard>& table) {
  table.property<&Placard::Value>("Value"_s);
}

}  // namespace veldrin

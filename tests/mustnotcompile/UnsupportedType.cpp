#include "shell/objects/Described.h"

namespace veldrin::test {

/// Has a row that does not compile in it where `VELDRIN_UNSUPPORTED` is defined: no type code names
/// a `long double`. Without that it compiles.
class Unsupported final : public Described<Unsupported, Object> {
 public:
  static constexpr FixedString FullName = "Unsupported";
  static void fillTable(ClassTable<Unsupported>& table) {
    table.property<&Unsupported::narrow>("narrow"_s);
#ifdef VELDRIN_UNSUPPORTED
    table.property<&Unsupported::wide>("wide"_s);
#endif
  }

  double narrow = 0.0;
  long double wide = 0.0L;
};

void build() {
  Unsupported::__ctblinit();
}

}  // namespace veldrin::test

#include "shell/objects/Described.h"

namespace veldrin::test {

// Compiled with `REFUSED` as the number of a case, which must not compile; with 0 everything does.
#ifndef REFUSED
#define REFUSED 0
#endif

struct Interface : DescribedInterface<Interface> {
  static constexpr FixedString FullName = "Interface";
  using Operations = std::tuple<MethodShape<void, String>>;
};

struct Other {
  void stray() {}
};

class Refused final : public Described<Refused, Object> {
 public:
  static constexpr FixedString FullName = "Refused";
  static constexpr Event<bool(String)> Asked{"Asked"_s};

#if REFUSED == 7
 private:
#endif
#if REFUSED == 11
  static void fillTable(ClassTable<Object>& /*table*/) {}
  static void fill(ClassTable<Refused>& table)
#else
  static void fillTable(ClassTable<Refused>& table)
#endif
#if REFUSED == 8
      noexcept
#endif
  {
    table.event(Asked);
    table.property<&Refused::narrow>("narrow"_s);
    table.handles<&Refused::answer>(Asked);
    table.implements<Interface, &Refused::take>();
#if REFUSED == 1
    table.property<&Refused::wide>("wide"_s);
#elif REFUSED == 9
    table.handles<&Refused::take>(Asked);
#elif REFUSED == 10
    table.implements<Interface, &Refused::answer>();
#elif REFUSED == 12
    table.method<&Other::stray>("stray"_s);
#endif
  }

#if REFUSED == 7
 public:
#endif

#if REFUSED == 2
 private:
  void __Init() {}
#elif REFUSED == 3
  void __Init() noexcept {}
#elif REFUSED == 4
  bool Destructor() {
    return true;
  }
#elif REFUSED == 5
  static void __Exit() {}
#elif REFUSED == 6
  void __Exit() {}
  void __Exit(int) {}
#else
  void __Init() {}
  void Destructor() {}
  void __Exit() {}
#endif

 public:
  bool answer(const String& /*text*/) {
    return true;
  }
  void take(const String& /*text*/) {}

  double narrow = 0.0;
  long double wide = 0.0L;
};

void build() {
  Refused::__ctblinit();
}

}  // namespace veldrin::test

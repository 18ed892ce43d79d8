#include "shell/objects/Described.h"

namespace veldrin::test {

// tests/CMakeLists.txt defines one of the macros below at a time; then this file must not compile.
// Without a macro it compiles.

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

#ifdef PrivateFillTable
 private:
#endif
#ifdef FillTableOfOtherClass
  static void fillTable(ClassTable<Object>& /*table*/) {}
  static void fill(ClassTable<Refused>& table)
#else
  static void fillTable(ClassTable<Refused>& table)
#endif
#ifdef FillTableWithNoexcept
      noexcept
#endif
  {
    table.event(Asked);
    table.property<&Refused::narrow>("narrow"_s);
    table.handles<&Refused::answer>(Asked);
    table.implements<Interface, &Refused::take>();
#ifdef PropertyWithoutTypeCode
    table.property<&Refused::wide>("wide"_s);
#elif defined(ArrayOfArrays)
    table.property<&Refused::nested>("nested"_s);
#elif defined(HandlerOfOtherSignature)
    table.handles<&Refused::take>(Asked);
#elif defined(OperationOfOtherSignature)
    table.implements<Interface, &Refused::answer>();
#elif defined(MethodOfOtherClass)
    table.method<&Other::stray>("stray"_s);
#endif
  }

#ifdef PrivateFillTable
 public:
#endif

#ifdef PrivateInit
 private:
  void __Init() {}
#elif defined(InitWithNoexcept)
  void __Init() noexcept {}
#elif defined(DestructorWithResult)
  bool Destructor() {
    return true;
  }
#elif defined(StaticExit)
  static void __Exit() {}
#elif defined(OverloadedExit)
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
  Ref<Array<Ref<Array<double>>>> nested;
};

void build() {
  Refused::__ctblinit();
}

}  // namespace veldrin::test

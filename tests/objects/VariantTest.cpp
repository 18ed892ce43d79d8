#include "shell/objects/Variant.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <string>
#include <tuple>
#include <type_traits>
#include <typeinfo>
#include <vector>

#include "shell/objects/Dictionary.h"
#include "tests/support/ValuesTest.h"

namespace veldrin::test {
namespace {

using Numbers = std::tuple<std::int8_t, std::int16_t, std::int32_t, std::int64_t, std::uint8_t,
                           std::uint16_t, std::uint32_t, std::uint64_t, float, double>;

/// Calls the function with a value of each numeric type.
template <class Function>
void forEachType(const Function& function) {
  std::apply([&](const auto&... types) { (function(types), ...); }, Numbers());
}

/// Limits of the types and neighbours of powers of two, all exact in a 64-bit significand.
std::vector<long double> edges() {
  constexpr long double Infinity = std::numeric_limits<long double>::infinity();
  std::vector<long double> all = {0.0L, -0.0L,    0.5L,  0.1, -1.5L,        Infinity,     -Infinity,
                                  1e39, 0x1p-149, 1e-60, NAN, 0x1.000001p0, 0x1.0000001p0};
  for (int power = 0; power <= 64; ++power) {
    for (const long double step : {-1.0L, 0.0L, 1.0L}) {
      all.push_back(std::ldexp(1.0L, power) + step);
      all.push_back(-all.back());
    }
  }
  return all;
}

template <class T>
bool isExactIn(long double value) {
  if constexpr (std::is_floating_point_v<T>) {
    return std::isnan(value) || static_cast<long double>(static_cast<T>(value)) == value;
  } else {
    return std::trunc(value) == value && (value != 0.0L || !std::signbit(value)) &&
           value >= static_cast<long double>(std::numeric_limits<T>::min()) &&
           value <= static_cast<long double>(std::numeric_limits<T>::max());
  }
}

TEST(VariantTest, ANumberConvertsToEachTypeThatHoldsIt) {
  for (const long double value : edges()) {
    forEachType([value](auto from) {
      using From = decltype(from);
      if (!isExactIn<From>(value)) return;
      const Variant held(static_cast<From>(value));
      forEachType([&](auto to) {
        using To = decltype(to);
        SCOPED_TRACE(std::to_string(value) + " " + typeid(From).name() + typeid(To).name());
        if (!isExactIn<To>(value)) {
          EXPECT_EQ(raisedBy([&] { fromVariant<To>(held); }), "TypeMismatchException");
          return;
        }
        const To converted = fromVariant<To>(held);
        EXPECT_TRUE(std::isnan(value) || static_cast<long double>(converted) == value);
        EXPECT_EQ(std::isnan(static_cast<long double>(converted)), std::isnan(value));
        EXPECT_EQ(std::signbit(static_cast<long double>(converted)), std::signbit(value));
      });
    });
  }
}

TEST(VariantTest, ANaNIsOneKeyOfADictionary) {
  const Ref<Dictionary> map = New<Dictionary>();
  const double other = std::copysign(std::nan("1"), -1.0);
  map->Value(std::nan(""), 1);
  map->Value(other, 2);
  map->Value(std::nanf(""), 3);
  EXPECT_EQ(map->Count(), 2);
  EXPECT_EQ(map->Value(std::nan("")), Variant(2));
  map->Remove(other);
  EXPECT_FALSE(map->HasKey(std::nan("")));
  EXPECT_EQ(map->Lookup(std::nanf("1"), {}), Variant(3));
  EXPECT_EQ(map->Lookup(0.0, {}), Variant());
}

}  // namespace
}  // namespace veldrin::test

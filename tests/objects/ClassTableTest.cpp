#include <gmock/gmock.h>

#include <new>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/Documents.h"
#include "tests/support/RuntimeTest.h"

namespace veldrin::test {
namespace {

using testing::ElementsAreArray;
using testing::IsSupersetOf;
using Lines = std::vector<std::string>;

/// " NAME" or " NAME=VALUE" for each attribute.
std::string namesOf(std::span<const AttributeRow> rows) {
  std::string all;
  for (const AttributeRow& row : rows) {
    all.append(" ").append(row.name.view());
    if (row.hasValue) all.append("=").append(row.value.view());
  }
  return all;
}

/// " NAME" for each method; " ?" for a function that the class does not list.
std::string namesOf(const ClassRecord& record, std::span<const Function> functions) {
  std::string all;
  for (const Function each : functions) {
    const auto row = std::ranges::find(record.methodRows, each, &MethodRow::function);
    all += row == record.methodRows.end() ? " ?" : " " + text(row->name);
  }
  return all;
}

/// Adds the handlers that the class does not inherit, and the events that it declares.
void addEvents(Lines& lines, const ClassRecord& record) {
  const auto inherited =
      record.baseClass == nullptr ? std::vector<EventRow>() : record.baseClass->eventRows;
  std::string declared = "events";
  for (std::size_t place = 0; place < record.eventRows.size(); ++place) {
    const EventRow& row = record.eventRows[place];
    const bool isOwn = place >= inherited.size();
    if (isOwn) declared += " " + text(row.name);
    if (row.handler == (isOwn ? nullptr : inherited[place].handler)) continue;
    lines.push_back("handler " + text(row.name) + namesOf(record, std::span(&row.handler, 1)));
  }
  lines.push_back(declared);
}

/// Adds the methods of the class, each with its index among the slots that the class adds. "over"
/// means a slot of the base, "-" no slot.
void addMethods(Lines& lines, const ClassRecord& record) {
  const std::size_t inherited =
      record.baseClass == nullptr ? 0 : record.baseClass->virtualTable.size();
  for (const MethodRow& row : record.ownMethods()) {
    const auto slot = static_cast<std::size_t>(
        std::ranges::find(record.virtualTable, row.function) - record.virtualTable.begin());
    const std::string place = slot == record.virtualTable.size() ? "-"
                              : slot < inherited                 ? "over"
                                                                 : std::to_string(slot - inherited);
    lines.push_back("method " + text(row.name) + " " + text(row.signature) +
                    (row.signature.encoding() == Encoding::ASCII ? " ascii " : " ") + place + " " +
                    std::to_string(row.flags) + namesOf(row.attributes));
  }
  lines.push_back("slots " + std::to_string(record.virtualTable.size() - inherited));
}

/// The differences between a class and its base.
Lines linesOf(const ClassRecord& record) {
  Lines lines;
  if (record.baseClass != nullptr) lines.push_back("base " + text(record.baseClass->name));
  lines.push_back("attributes" + namesOf(record.attributeRows));
  lines.push_back(std::string("hooks") + (record.__Init == nullptr ? "" : " __Init") +
                  (record.Destructor == nullptr ? "" : " Destructor") +
                  (record.__Exit == nullptr ? "" : " __Exit"));
  for (const InterfaceRow& row : record.interfaceRows) {
    lines.push_back("interface " + text(row.interface->name) + namesOf(record, row.operations));
  }
  addEvents(lines, record);
  for (const PropertyRow& row : record.ownProperties()) {
    lines.push_back("property " + text(row.name) + " " + text(row.type) + " " +
                    std::to_string(row.flags) + namesOf(row.attributes));
  }
  addMethods(lines, record);
  return lines;
}

class ClassTableTest : public RuntimeTest {
 protected:
  static void SetUpTestSuite() { initializeClasses(); }
};

TEST_F(ClassTableTest, TablesMatchTheFile) {
  std::istringstream file(golden("classes.txt"));
  std::string line;
  while (std::getline(file, line) && line.starts_with('#')) {
  }
  for (std::string heading = line; !heading.empty(); heading = line) {
    SCOPED_TRACE(heading);
    const ClassRecord* record = RuntimeGetClassList();
    while (record != nullptr && !heading.ends_with(" of " + text(record->name))) {
      record = record->nextClass;
    }
    ASSERT_NE(record, nullptr);
    Lines expected;
    for (line.clear(); std::getline(file, line) && line.starts_with("  "); line.clear()) {
      expected.push_back(line.substr(2));
    }
    if (heading.starts_with("all of ")) {
      EXPECT_THAT(linesOf(*record), ElementsAreArray(expected));
    } else {
      EXPECT_THAT(linesOf(*record), IsSupersetOf(expected));
    }
  }
}

/// After a failure, compare `veldrin-inspect class NAME` of the old and the new program.
TEST_F(ClassTableTest, EachTableHasItsChecksumAndItsPlaceInTheOrderOfBuilding) {
  Lines sums;
  for (const ClassRecord* each = RuntimeGetClassList(); each != nullptr; each = each->nextClass) {
    std::string table;
    for (const std::string& line : linesOf(*each)) table.append(line).append("\n");
    const std::string name = text(each->name);
    if (!name.starts_with("ClassTableTest.")) sums.push_back(name + " " + checksumOf(table));
  }
  std::string all;
  for (; !sums.empty(); sums.pop_back()) all.append(sums.back()).append("\n");
  EXPECT_EQ(all, golden("tables.txt"));
}

class Root : public Described<Root, Object> {
 public:
  static constexpr FixedString FullName = "ClassTableTest.Root";
  static void fillTable(ClassTable<Root>& table) {
    table.method<&Root::f>("f"_s);
    table.method<&Root::g>("g"_s);
    table.method<&Root::assign>("assign"_s, Public, Flags::Assigns);
  }
  void f() {}
  void g() {}
  void assign(std::int32_t /*value*/) {}
};

/// Overrides `f` and `g` by one method.
class Both : public Described<Both, Root> {
 public:
  static constexpr FixedString FullName = "ClassTableTest.Both";
  static void fillTable(ClassTable<Both>& table) {
    if (std::exchange(isFirstCall, false)) throw std::bad_alloc();
    table.overriding<&Both::both>("f"_s);
    table.overriding<&Both::both>("g"_s);
    table.overriding<&Both::assign>("assign"_s);
  }
  void both() {}
  void assign(std::int32_t /*value*/) {}
  static inline bool isFirstCall = true;
};

class Last final : public Described<Last, Both> {
 public:
  static constexpr FixedString FullName = "ClassTableTest.Last";
  static void fillTable(ClassTable<Last>& table) { table.overriding<&Last::g>("g"_s); }
  void g() {}
};

TEST_F(ClassTableTest, AnOverrideKeepsSlotAndFlags) {
  // The first call to `Both::fillTable` throws, so the list of classes must not contain `Both`.
  const ClassRecord* const newest = RuntimeGetClassList();
  EXPECT_THROW(Last::__ctblinit(), std::bad_alloc);
  EXPECT_EQ(RuntimeGetClassList()->baseClass, nullptr);
  EXPECT_EQ(RuntimeGetClassList()->nextClass, newest);
  const ClassRecord& last = *Last::__Lookup();
  EXPECT_EQ(FindVirtualOperation(last, "f"_s), functionOf<&Both::both>());
  EXPECT_EQ(FindVirtualOperation(last, "g"_s), functionOf<&Last::g>());
  EXPECT_EQ(FindVirtualOperation(last, "=assign"_s), functionOf<&Both::assign>());
  EXPECT_EQ(FindVirtualOperation(last, "assign"_s), nullptr);
  EXPECT_EQ(last.virtualTable.size(), 3U);
  const ClassRecord& type = *FileType::__Lookup();
  EXPECT_EQ(FindVirtualOperation(type, "Extensions.Set"_s), type.virtualTable.at(2));
  EXPECT_EQ(FindVirtualOperation(type, "Register"_s), nullptr);
}

class OtherQuit final : public Described<OtherQuit, QuitMenuItem> {
 public:
  static constexpr FixedString FullName = "ClassTableTest.OtherQuit";
  static void fillTable(ClassTable<OtherQuit>& table) {
    table.handles<&OtherQuit::answer>(Events::Action);
    table.method<&OtherQuit::answer>("answer"_s);
  }
  bool answer() { return true; }
};

TEST_F(ClassTableTest, ARedeclaredEventIsAnotherEventForDerivedClasses) {
  const std::vector<EventRow>& rows = OtherQuit::__Lookup()->eventRows;
  ASSERT_EQ(rows.size(), 2U);
  EXPECT_EQ(rows[0].handler, functionOf<&QuitMenuItem::Event_Action>());
  EXPECT_EQ(rows[1].handler, functionOf<&OtherQuit::answer>());
}

class Overriding final : public Described<Overriding, Window> {
 public:
  static constexpr FixedString FullName = "ClassTableTest.Overriding";
  static void fillTable(ClassTable<Overriding>& table) {
    table.overriding<&Overriding::__New>("__New"_s);
    table.overriding<&Overriding::_UnifiedClose>("_UnifiedClose"_s);
  }
  [[nodiscard]] Ref<Object> __New(ClassRecord* /*record*/) const override { return New<Date>(); }
  bool _UnifiedClose(bool quitting) override {
    ++closings;
    return Window::_UnifiedClose(quitting);
  }
  int closings = 0;
};

TEST_F(ClassTableTest, AnOverrideIsCalled) {
  const Ref<Overriding> window = New<Overriding>();
  const Ref<Window> base = window;
  EXPECT_TRUE(CheckCast<Date>(base->__New(nullptr)));
  base->Close();
  EXPECT_EQ(window->closings, 1);
}

TEST_F(ClassTableTest, OverridingOrHandlingAMissingMemberIsAFault) {
  ClassRecord record = *Root::__Lookup();
  ClassTable<Both> table(record);
  EXPECT_THROW(table.overriding<&Both::both>("h"_s), FatalFault);
  EXPECT_THROW(table.overriding<&Both::both>("assign"_s), FatalFault);  // another signature
  ClassTable<OtherQuit> quit(record);
  EXPECT_THROW(quit.handles<&OtherQuit::answer>(OtherQuit::Events::Action), FatalFault);
  record.eventRows.push_back({"Action"_s, "%%"_s, nullptr});  // another signature
  EXPECT_THROW(quit.handles<&OtherQuit::answer>(OtherQuit::Events::Action), FatalFault);
}

}  // namespace
}  // namespace veldrin::test

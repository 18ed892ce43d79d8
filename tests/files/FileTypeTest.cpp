#include "shell/files/FileType.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "tests/support/RuntimeTest.h"

namespace veldrin::test {
namespace {

using testing::ElementsAre;

class FileTypeTest : public RuntimeTest {
 protected:
  static Ref<FileType> named(const String& name) {
    Ref<FileType> type = New<FileType>();
    type->Name(name);
    return type;
  }

  std::vector<std::string> registered() {
    std::vector<std::string> names;
    for (const RegisteredFileType& type : registeredFileTypes()) names.push_back(text(type.name));
    return names;
  }
};

TEST_F(FileTypeTest, UseAsAFilterRegistersItOnce) {
  const Ref<FileType> type = named("calendar"_s);
  type->Extensions("ics"_s);
  type->MacType("text"_s);
  type->MacCreator("made"_s);
  EXPECT_THAT(registered(), ElementsAre());
  EXPECT_EQ(text(type->Operator_Convert()), "calendar");
  EXPECT_EQ(text(type->Operator_Convert()), "calendar");
  type->Register();
  ASSERT_THAT(registered(), ElementsAre("calendar"));
  const RegisteredFileType* const found = findRegisteredFileType("calendar"_s);
  ASSERT_NE(found, nullptr);
  EXPECT_EQ(text(found->creator), "made");
  EXPECT_EQ(text(found->macType), "text");
  EXPECT_EQ(text(found->extensions), "ics");
  EXPECT_EQ(findRegisteredFileType("ics"_s), nullptr);
}

TEST_F(FileTypeTest, EveryWriteAndTheDestructorDeregisterIt) {
  using Write = void (FileType::*)(String);
  for (const Write write : {Write(&FileType::Name), Write(&FileType::Extensions),
                            Write(&FileType::MacType), Write(&FileType::MacCreator)}) {
    const Ref<FileType> other = named("other"_s);
    const Ref<FileType> type = named("before"_s);
    other->Register();
    type->Register();
    ((*type).*write)("after"_s);
    EXPECT_THAT(registered(), ElementsAre("other"));
    type->Operator_Convert();
    EXPECT_THAT(registered(), ElementsAre("other", text(type->Name())));
  }
  EXPECT_THAT(registered(), ElementsAre());
}

TEST_F(FileTypeTest, TypesOfOneNameAreRegisteredSeparately) {
  const Ref<FileType> first = named("calendar"_s);
  const Ref<FileType> second = named("calendar"_s);
  first->MacCreator("first"_s);
  second->MacCreator("second"_s);
  first->Register();
  second->Register();
  first->Deregister();
  ASSERT_THAT(registered(), ElementsAre("calendar"));
  EXPECT_EQ(text(findRegisteredFileType("calendar"_s)->creator), "second");
}

TEST(FileTypeEndTest, ATypeMayOutliveTheRuntime) {
  Ref<FileType> type;
  for (int time = 0; time < 2; ++time) {
    const std::unique_ptr<Person> person = newPerson();
    FakeHost host;
    const Runtime runtime(host, person->toolkit());
    if (!type) type = New<FileType>();
    type->Register();
    type->Register();
    EXPECT_EQ(registeredFileTypes().size(), 1U);
  }
  type = nullptr;
}

TEST_F(FileTypeTest, SumsNameBothTypesInOrderAndRegisterThem) {
  const Ref<FileType> own = named("own"_s);
  const Ref<FileType> other = named("other"_s);
  EXPECT_EQ(text(own->Operator_Add("a;b"_s)), "own;a;b");
  EXPECT_EQ(text(own->Operator_AddRight("a;b"_s)), "a;b;own");
  EXPECT_THAT(registered(), ElementsAre("own"));
  EXPECT_EQ(text(own->Operator_Add(other)), "own;other");
  EXPECT_EQ(text(own->Operator_AddRight(other)), "other;own");
  EXPECT_THAT(registered(), ElementsAre("own", "other"));
  const Ref<FileType> nil;
  EXPECT_EQ(raisedBy([&] { own->Operator_Add(nil); }), "NilObjectException");
}

}  // namespace
}  // namespace veldrin::test

#include "reflection/ReflectionClasses.h"

#include "reflection/ArrayInfo.h"
#include "reflection/ClassInfo.h"
#include "reflection/ConstructorInfo.h"
#include "reflection/EnumInfo.h"
#include "reflection/MethodInfo.h"
#include "reflection/PointerTypeInfo.h"
#include "reflection/PropertyInfo.h"
#include "reflection/StructureInfo.h"
#include "reflection/VariantInfo.h"

namespace veldrin {

void initializeReflectionClasses() {
  using namespace Introspection;
  AttributeInfo::__ctblinit();
  AttributeInfoImp::__ctblinit();
  MemberInfo::__ctblinit();
  TypeInfo::__ctblinit();
  ClassInfo::__ctblinit();
  ArrayInfo::__ctblinit();
  GenericPrimitiveTypeInfo::__ctblinit();
  PointerTypeInfo::__ctblinit();
  StructureInfo::__ctblinit();
  EnumInfo::__ctblinit();
  VariantInfo::__ctblinit();
  PropertyInfo::__ctblinit();
  PropertyInfoImp::__ctblinit();
  ParameterInfo::__ctblinit();
  ParameterInfoImp::__ctblinit();
  MethodBase::__ctblinit();
  MethodInfo::__ctblinit();
  MethodInfoImp::__ctblinit();
  ConstructorInfo::__ctblinit();
  ConstructorInfoImp::__ctblinit();
}

}  // namespace veldrin

#include "brenvale/lists/SalesRep.hpp"

namespace brenvale {
namespace {
struct F {
  static constexpr FieldDef Initial = field::Text("Initial");
  static constexpr FieldDef SalesRepEntityRef = field::Ref("SalesRepEntityRef", zqListTypeEntity);
};
constexpr auto kFields = ListFields(F::Initial, F::SalesRepEntityRef);
constexpr auto kAdd = kFields.Order(F::Initial, ListBase::IsActive, F::SalesRepEntityRef);
constexpr auto kRead = ListRead(kFields, F::Initial, F::SalesRepEntityRef);
// The entity must be one QuickBooks knows (2204), and an employee, a vendor or an other name (2203).
constexpr std::string_view kEntityKinds[] = {"EmployeeRet", "VendorRet", "OtherNameRet"};
constexpr Rule kRules[] = {
    kFields.MaxLength(F::Initial, 5, 2200, "Initial"),
    kFields.NotEmpty(F::SalesRepEntityRef, 2202, "SalesRepEntity"),
    kFields.MaxLength(F::SalesRepEntityRef, 31, 2201, "SalesRepEntity:FullName"),
    kFields.Exists(F::SalesRepEntityRef, 2204, "SalesRepEntity").OfKinds(kEntityKinds, 2203),
};
constexpr ListFacts kFacts{.listType = zqListTypeSalesRep, .nameField = kFields.Id(F::Initial)};
constexpr RecordDecl kDecl{.label = "SalesRep",
                           .xmlName = "SalesRep",
                           .objectType = zqObjectTypeSalesRep,
                           .fields = kFields.fields,
                           .add = kAdd,
                           .read = kRead,
                           .rules = kRules,
                           .modRefusal = "XMLModify not supported",
                           .list = &kFacts};
}  // namespace

const RecordDecl& SalesRep::Declaration() { return kDecl; }

std::string SalesRep::Initial() const { return Text(kFields.Id(F::Initial)); }
void SalesRep::Initial(std::string_view value) { SetText(kFields.Id(F::Initial), value); }
zkListObjectRef SalesRep::SalesRepEntityRef() const { return Ref(kFields.Id(F::SalesRepEntityRef)); }
void SalesRep::SalesRepEntityRef(std::string_view fullName) {
  SetRefName(kFields.Id(F::SalesRepEntityRef), fullName);
}

}  // namespace brenvale

#include "brenvale/lists/OtherName.hpp"

namespace brenvale {
namespace {
// The fields in the order QuickBooks writes them in an OtherNameRet. The suffix, mobile and pager are
// only read: the schema's OtherNameAdd and OtherNameMod have no such elements in any edition.
struct F {
  static constexpr FieldDef CompanyName = field::Text("CompanyName");
  static constexpr FieldDef Salutation = field::Text("Salutation");
  static constexpr FieldDef FirstName = field::Text("FirstName");
  static constexpr FieldDef MiddleName = field::Text("MiddleName");
  static constexpr FieldDef LastName = field::Text("LastName");
  static constexpr FieldDef Suffix = field::Text("Suffix");
  static constexpr FieldDef OtherNameAddress = field::Aggregate("OtherNameAddress", &Address::Declaration);
  static constexpr FieldDef Phone = field::Text("Phone");
  static constexpr FieldDef Mobile = field::Text("Mobile");
  static constexpr FieldDef Pager = field::Text("Pager");
  static constexpr FieldDef AltPhone = field::Text("AltPhone");
  static constexpr FieldDef Email = field::Text("Email");
  static constexpr FieldDef Contact = field::Text("Contact");
  static constexpr FieldDef AltContact = field::Text("AltContact");
  static constexpr FieldDef AccountNumber = field::Text("AccountNumber");
};
constexpr auto kFields =
    ListFields(F::CompanyName, F::Salutation, F::FirstName, F::MiddleName, F::LastName, F::Suffix,
               F::OtherNameAddress, F::Phone, F::Mobile, F::Pager, F::AltPhone, F::Email, F::Contact, F::AltContact,
               F::AccountNumber);
constexpr auto kAdd = kFields.Order(ListBase::Name, ListBase::IsActive, F::CompanyName, F::Salutation, F::FirstName,
                                    F::MiddleName, F::LastName, F::OtherNameAddress, F::Phone, F::AltPhone, F::Email,
                                    F::Contact, F::AltContact, F::AccountNumber);
// A modify request does not carry the active flag.
constexpr auto kMod = kFields.Order(ListBase::Name, F::CompanyName, F::Salutation, F::FirstName, F::MiddleName,
                                    F::LastName, F::OtherNameAddress, F::Phone, F::AltPhone, F::Email, F::Contact,
                                    F::AltContact, F::AccountNumber);
constexpr auto kRead =
    ListRead(kFields, F::CompanyName, F::Salutation, F::FirstName, F::MiddleName, F::LastName, F::Suffix,
             F::OtherNameAddress, F::Phone, F::Mobile, F::Pager, F::AltPhone, F::Email, F::Contact, F::AltContact,
             F::AccountNumber);
constexpr ListFacts kFacts{.listType = zqListTypeOtherName, .key = ListKey::Name};
constexpr EntityFieldIds kIds = EntityIds(kFields);
}  // namespace

struct OtherNameDecl {
  static constexpr Rule kRules[] = {
      kFields.NotEmpty(ListBase::Name, 1012, "Name"),
      kFields.MaxLength(ListBase::Name, 31, 1013, "Name"),
      kFields.MaxLength(F::CompanyName, 41, 1700, "Company Name"),
      kFields.MaxLength(F::Salutation, 15, 1501, "Salutation"),
      kFields.MaxLength(F::FirstName, 25, 1502, "First Name"),
      kFields.MaxLength(F::MiddleName, 5, 1503, "Middle Name"),
      rule::Own<&Entity::CheckNamesDiffer>(),
      kFields.NestedRules(F::OtherNameAddress, "OtherName Address", 1201),
      kFields.MaxLength(F::Phone, 21, 1504, "Phone"),
      kFields.MaxLength(F::AltPhone, 21, 1504, "Alt Phone"),
      kFields.MaxLength(F::Email, 99, 1505, "Email"),
      kFields.MaxLength(F::Contact, 41, 1701, "Contact"),
      kFields.MaxLength(F::AltContact, 41, 1701, "Alt Contact"),
      kFields.MaxLength(F::AccountNumber, 99, 1507, "Account Number"),
  };
  static constexpr RecordDecl kDecl{.label = "OtherName",
                                    .xmlName = "OtherName",
                                    .objectType = zqObjectTypeOtherName,
                                    .fields = kFields.fields,
                                    .add = kAdd,
                                    .mod = kMod,
                                    .read = kRead,
                                    .rules = kRules,
                                    .list = &kFacts,
                                    .dataExt = true};
};

const RecordDecl& OtherName::Declaration() { return OtherNameDecl::kDecl; }
const EntityFieldIds& OtherName::Ids() const { return kIds; }
Address& OtherName::OtherNameAddress() {
  return static_cast<Address&>(Nested(kFields.Id(F::OtherNameAddress)));
}

}  // namespace brenvale

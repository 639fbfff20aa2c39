#include "brenvale/lists/Employee.hpp"

#include "brenvale/model/EditionGates.hpp"

namespace brenvale {
namespace {
// The social security number is "NiNumber" in the versions of British editions ("UK2.0").
std::string_view SsnTag(const WriteContext& c) {
  return c.In("UK") && std::string_view(c.versionText).starts_with("UK") ? "NiNumber" : "SSN";
}
constexpr std::string_view kOtherSsnTags[] = {"NiNumber"};
constexpr FieldTags kSsnTags{.pick = &SsnTag, .also = kOtherSsnTags};

// The fields in the order QuickBooks writes them in an EmployeeRet. The suffix is the online
// edition's; pager and PIN, type, gender and birth date a desktop's.
struct F {
  static constexpr FieldDef Salutation = field::Text("Salutation");
  static constexpr FieldDef FirstName = field::Text("FirstName");
  static constexpr FieldDef MiddleName = field::Text("MiddleName");
  static constexpr FieldDef LastName = field::Text("LastName");
  static constexpr FieldDef Suffix = field::Text("Suffix").When(gate::OnlineOnly).FixedAfterAdd();
  static constexpr FieldDef EmployeeAddress = field::Aggregate("EmployeeAddress", &Address::EmployeeForm);
  static constexpr FieldDef PrintAs = field::Text("PrintAs");
  static constexpr FieldDef Phone = field::Text("Phone");
  static constexpr FieldDef Mobile = field::Text("Mobile").Since(2, 1);
  static constexpr FieldDef Pager = field::Text("Pager").Since(2, 1);
  static constexpr FieldDef PagerPIN = field::Text("PagerPIN").Since(2, 1);
  static constexpr FieldDef AltPhone = field::Text("AltPhone");
  static constexpr FieldDef SSN = field::Text("SSN").TagBy(kSsnTags).FixedAfterAdd();
  static constexpr FieldDef Email = field::Text("Email");
  static constexpr FieldDef EmployeeType = field::Enum("EmployeeType", zqeEmployeeType).FixedAfterAdd();
  static constexpr FieldDef Gender = field::Enum("Gender", zqeGenderType).FixedAfterAdd();
  static constexpr FieldDef HiredDate = field::Date("HiredDate").FixedAfterAdd();
  static constexpr FieldDef ReleasedDate = field::Date("ReleasedDate").FixedAfterAdd();
  static constexpr FieldDef BirthDate = field::Date("BirthDate").Since(2, 0);
  static constexpr FieldDef AccountNumber = field::Text("AccountNumber");
  static constexpr FieldDef Notes = field::Text("Notes").Since(3, 0);
  static constexpr FieldDef EmployeePayrollInfo =
      field::Aggregate("EmployeePayrollInfo", &empPayrollInfo::Declaration).InMod("EmployeePayrollInfoMod").Since(2, 0);
};
constexpr auto kFields =
    ListFields(F::Salutation, F::FirstName, F::MiddleName, F::LastName, F::Suffix, F::EmployeeAddress, F::PrintAs,
               F::Phone, F::Mobile, F::Pager, F::PagerPIN, F::AltPhone, F::SSN, F::Email, F::EmployeeType, F::Gender,
               F::HiredDate, F::ReleasedDate, F::BirthDate, F::AccountNumber, F::Notes, F::EmployeePayrollInfo);
constexpr auto kAdd = kFields.Order(
    ListBase::Name, ListBase::IsActive, F::Salutation, F::FirstName, F::MiddleName, F::LastName, F::Suffix,
    F::EmployeeAddress, F::PrintAs, F::Phone, F::Mobile, F::Pager, F::PagerPIN, F::AltPhone, F::SSN, F::Email,
    F::EmployeeType, F::Gender, F::HiredDate, F::ReleasedDate, F::BirthDate, F::AccountNumber, F::Notes,
    F::EmployeePayrollInfo);
// No name, type, gender, number or dates of hire and release.
constexpr auto kMod = kFields.Order(ListBase::IsActive, F::Salutation, F::FirstName, F::MiddleName, F::LastName,
                                    F::EmployeeAddress, F::PrintAs, F::Phone, F::Mobile, F::Pager, F::PagerPIN,
                                    F::AltPhone, F::Email, F::BirthDate, F::AccountNumber, F::Notes,
                                    F::EmployeePayrollInfo);
// QuickBooks reports the number hidden: it is not read back.
constexpr auto kRead = ListRead(kFields, F::Salutation, F::FirstName, F::MiddleName, F::LastName, F::Suffix,
                                F::EmployeeAddress, F::PrintAs, F::Phone, F::Mobile, F::Pager, F::PagerPIN,
                                F::AltPhone, F::Email, F::EmployeeType, F::Gender, F::HiredDate, F::ReleasedDate,
                                F::BirthDate, F::AccountNumber, F::Notes, F::EmployeePayrollInfo);
// A desktop's EmployeeAdd has no name: QuickBooks makes it of the first, middle and last names.
constexpr ListFacts kFacts{.listType = zqListTypeEmployee, .key = ListKey::Name, .nameGate = &gate::OnlineOnly};
constexpr EntityFieldIds kIds = EntityIds(kFields);

}  // namespace

struct EmployeeDecl {
  static constexpr Rule kRules[] = {
      rule::Own<&Employee::CheckName>(),
      kFields.MaxLength(ListBase::Name, 31, 1013, "Name"),
      kFields.MaxLength(F::Salutation, 15, 1501, "Salutation"),
      kFields.MaxLength(F::FirstName, 25, 1502, "First Name"),
      kFields.MaxLength(F::MiddleName, 5, 1503, "Middle Name"),
      rule::Own<&Entity::CheckNamesDiffer>(),
      kFields.NestedRules(F::EmployeeAddress, "Employee Address", 1201),
      kFields.MaxLength(F::PrintAs, 41, 2100, "Print As"),
      kFields.MaxLength(F::Phone, 21, 1504, "Phone"),
      kFields.MaxLength(F::AltPhone, 21, 1504, "Alt Phone"),
      kFields.MaxLength(F::SSN, 15, 2101, "SSN"),
      kFields.MaxLength(F::Email, 99, 1505, "Email"),
      kFields.MaxLength(F::AccountNumber, 99, 1507, "Account Number"),
  };
  static constexpr RecordDecl kDecl{.label = "Employee",
                                    .xmlName = "Employee",
                                    .objectType = zqObjectTypeEmployee,
                                    .fields = kFields.fields,
                                    .add = kAdd,
                                    .mod = kMod,
                                    .read = kRead,
                                    .rules = kRules,
                                    .list = &kFacts,
                                    .dataExt = true};
};

const RecordDecl& Employee::Declaration() { return EmployeeDecl::kDecl; }
const EntityFieldIds& Employee::Ids() const { return kIds; }

void Employee::CheckName(zkErrors& errors, ValidateContext&) {
  if (TextView(kName).empty() && FirstName().empty() && LastName().empty()) errors.AddCode(1012, "Name");
}

Address& Employee::EmployeeAddress() { return static_cast<Address&>(Nested(kFields.Id(F::EmployeeAddress))); }
std::string Employee::PagerPIN() const { return Text(kFields.Id(F::PagerPIN)); }
void Employee::PagerPIN(std::string_view value) { SetText(kFields.Id(F::PagerPIN), value); }
std::string Employee::SSN() const { return Text(kFields.Id(F::SSN)); }
void Employee::SSN(std::string_view value) { SetText(kFields.Id(F::SSN), value); }
qbEnumEmployeeType Employee::EmployeeType() const {
  return static_cast<qbEnumEmployeeType>(EnumCode(kFields.Id(F::EmployeeType)));
}
void Employee::EmployeeType(qbEnumEmployeeType value) { SetEnum(kFields.Id(F::EmployeeType), static_cast<Integer>(value)); }
qbEnumGenderType Employee::Gender() const { return static_cast<qbEnumGenderType>(EnumCode(kFields.Id(F::Gender))); }
void Employee::Gender(qbEnumGenderType value) { SetEnum(kFields.Id(F::Gender), static_cast<Integer>(value)); }
Date Employee::HiredDate() const { return DateValue(kFields.Id(F::HiredDate)); }
void Employee::HiredDate(Date value) { SetDate(kFields.Id(F::HiredDate), value); }
Date Employee::ReleasedDate() const { return DateValue(kFields.Id(F::ReleasedDate)); }
void Employee::ReleasedDate(Date value) { SetDate(kFields.Id(F::ReleasedDate), value); }
Date Employee::BirthDate() const { return DateValue(kFields.Id(F::BirthDate)); }
void Employee::BirthDate(Date value) { SetDate(kFields.Id(F::BirthDate), value); }
empPayrollInfo& Employee::EmployeePayrollInfo() {
  return static_cast<empPayrollInfo&>(Nested(kFields.Id(F::EmployeePayrollInfo)));
}

}  // namespace brenvale

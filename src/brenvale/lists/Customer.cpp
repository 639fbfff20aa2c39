#include "brenvale/lists/Customer.hpp"

#include "brenvale/model/EditionGates.hpp"

namespace brenvale {
namespace {
// The fields in the order QuickBooks writes them in a CustomerRet; those later versions dropped come
// last. Suffix, Mobile, Pager, IsStatementWithParent and DeliveryMethod are the online edition's (a
// desktop refuses them); the tax code and its flag belong to editions outside the US, and the item
// sales tax is not the Canadian or British editions'.
struct F {
  static constexpr FieldDef CompanyName = field::Text("CompanyName");
  static constexpr FieldDef Salutation = field::Text("Salutation");
  static constexpr FieldDef FirstName = field::Text("FirstName");
  static constexpr FieldDef MiddleName = field::Text("MiddleName");
  static constexpr FieldDef LastName = field::Text("LastName");
  static constexpr FieldDef Suffix = field::Text("Suffix").When(gate::OnlineOnly).FixedAfterAdd();
  static constexpr FieldDef BillAddress = field::Aggregate("BillAddress", &Address::Declaration);
  static constexpr FieldDef BillAddressBlock = field::Aggregate("BillAddressBlock", &Address::BlockForm);
  static constexpr FieldDef ShipAddress = field::Aggregate("ShipAddress", &Address::Declaration);
  static constexpr FieldDef ShipAddressBlock = field::Aggregate("ShipAddressBlock", &Address::BlockForm);
  static constexpr FieldDef PrintAs = field::Text("PrintAs");
  static constexpr FieldDef Phone = field::Text("Phone");
  static constexpr FieldDef Mobile = field::Text("Mobile").When(gate::OnlineOnly).FixedAfterAdd();
  static constexpr FieldDef Pager = field::Text("Pager").When(gate::OnlineOnly).FixedAfterAdd();
  static constexpr FieldDef AltPhone = field::Text("AltPhone");
  static constexpr FieldDef Email = field::Text("Email");
  static constexpr FieldDef Contact = field::Text("Contact");
  static constexpr FieldDef AltContact = field::Text("AltContact");
  static constexpr FieldDef CustomerTypeRef = field::Ref("CustomerTypeRef", zqListTypeCustomerType);
  static constexpr FieldDef TermsRef = field::Ref("TermsRef", zqListTypeTerms);
  static constexpr FieldDef SalesRepRef = field::Ref("SalesRepRef", zqListTypeSalesRep);
  static constexpr FieldDef Balance = field::Amount("Balance");
  static constexpr FieldDef TotalBalance = field::Amount("TotalBalance");
  static constexpr FieldDef SalesTaxCodeRef = field::Ref("SalesTaxCodeRef", zqListTypeSalesTaxCode);
  static constexpr FieldDef ItemSalesTaxRef =
      field::Ref("ItemSalesTaxRef", zqListTypeItem).When(gate::DesktopButCAUK);
  static constexpr FieldDef ResaleNumber = field::Text("ResaleNumber");
  static constexpr FieldDef AccountNumber = field::Text("AccountNumber");
  static constexpr FieldDef CreditLimit = field::Amount("CreditLimit");
  static constexpr FieldDef PreferredPaymentMethodRef =
      field::Ref("PreferredPaymentMethodRef", zqListTypePaymentMethod).Since(3, 0);
  static constexpr FieldDef CreditCardInfo =
      field::Aggregate("CreditCardInfo", &brenvale::CreditCardInfo::Declaration).Since(3, 0);
  static constexpr FieldDef JobStatus = field::Enum("JobStatus", zqeJobStatus);
  static constexpr FieldDef JobStartDate = field::Date("JobStartDate");
  static constexpr FieldDef JobProjectedEndDate = field::Date("JobProjectedEndDate");
  static constexpr FieldDef JobEndDate = field::Date("JobEndDate");
  static constexpr FieldDef JobDesc = field::Text("JobDesc");
  static constexpr FieldDef JobTypeRef = field::Ref("JobTypeRef", zqListTypeJobType);
  static constexpr FieldDef Notes = field::Text("Notes").Since(3, 0);
  static constexpr FieldDef IsStatementWithParent =
      field::Bool("IsStatementWithParent").When(gate::OnlineOnly).FixedAfterAdd();
  static constexpr FieldDef DeliveryMethod =
      field::Enum("DeliveryMethod", zqeDeliveryMethod).When(gate::OnlineOnly).FixedAfterAdd();
  static constexpr FieldDef PriceLevelRef = field::Ref("PriceLevelRef", zqListTypePriceLevel).Since(4, 0);
  static constexpr FieldDef CurrencyRef =
      field::Ref("CurrencyRef", zqListTypeCurrency).Since(8, 0).FixedAfterAdd();
  static constexpr FieldDef OpenBalance = field::Amount("OpenBalance").FixedAfterAdd();
  static constexpr FieldDef OpenBalanceDate = field::Date("OpenBalanceDate").FixedAfterAdd();
  static constexpr FieldDef TaxCodeRef = field::Ref("TaxCodeRef", zqListTypeTaxCode).When(gate::OutsideUS);
  static constexpr FieldDef IsUsingCustomerTaxCode = field::Bool("IsUsingCustomerTaxCode").When(gate::OutsideUS);
};
constexpr auto kFields = ListFields(
    F::CompanyName, F::Salutation, F::FirstName, F::MiddleName, F::LastName, F::Suffix, F::BillAddress,
    F::BillAddressBlock, F::ShipAddress, F::ShipAddressBlock, F::PrintAs, F::Phone, F::Mobile, F::Pager,
    F::AltPhone, F::Email, F::Contact, F::AltContact, F::CustomerTypeRef, F::TermsRef, F::SalesRepRef, F::Balance,
    F::TotalBalance, F::SalesTaxCodeRef, F::ItemSalesTaxRef, F::ResaleNumber, F::AccountNumber, F::CreditLimit,
    F::PreferredPaymentMethodRef, F::CreditCardInfo, F::JobStatus, F::JobStartDate, F::JobProjectedEndDate,
    F::JobEndDate, F::JobDesc, F::JobTypeRef, F::Notes, F::IsStatementWithParent, F::DeliveryMethod,
    F::PriceLevelRef, F::CurrencyRef, F::OpenBalance, F::OpenBalanceDate, F::TaxCodeRef, F::IsUsingCustomerTaxCode);

// The schema puts the tax code of other editions nowhere in 13.0; it goes where their versions took
// it: after the opening balance in an add, after the item sales tax in a modify.
constexpr auto kAdd = kFields.Order(
    ListBase::Name, ListBase::IsActive, ListBase::ParentRef, F::CompanyName, F::Salutation, F::FirstName,
    F::MiddleName, F::LastName, F::Suffix, F::BillAddress, F::ShipAddress, F::Phone, F::Mobile, F::Pager,
    F::AltPhone, F::Email, F::Contact, F::AltContact, F::CustomerTypeRef, F::TermsRef, F::SalesRepRef,
    F::OpenBalance, F::OpenBalanceDate, F::TaxCodeRef, F::SalesTaxCodeRef, F::ItemSalesTaxRef, F::ResaleNumber,
    F::AccountNumber, F::CreditLimit, F::PreferredPaymentMethodRef, F::CreditCardInfo, F::JobStatus,
    F::JobStartDate, F::JobProjectedEndDate, F::JobEndDate, F::JobDesc, F::JobTypeRef, F::Notes,
    F::IsStatementWithParent, F::DeliveryMethod, F::IsUsingCustomerTaxCode, F::PriceLevelRef, F::CurrencyRef);
// Neither the parent, the suffix, mobile and pager, the opening balance, the statement and delivery
// settings nor the currency: those are set when the customer is added.
constexpr auto kMod = kFields.Order(
    ListBase::Name, ListBase::IsActive, F::CompanyName, F::Salutation, F::FirstName, F::MiddleName, F::LastName,
    F::BillAddress, F::ShipAddress, F::Phone, F::AltPhone, F::Email, F::Contact, F::AltContact, F::CustomerTypeRef,
    F::TermsRef, F::SalesRepRef, F::SalesTaxCodeRef, F::ItemSalesTaxRef, F::TaxCodeRef, F::ResaleNumber,
    F::AccountNumber, F::CreditLimit, F::PreferredPaymentMethodRef, F::CreditCardInfo, F::JobStatus,
    F::JobStartDate, F::JobProjectedEndDate, F::JobEndDate, F::JobDesc, F::JobTypeRef, F::Notes,
    F::IsUsingCustomerTaxCode, F::PriceLevelRef);
constexpr auto kRead = ListRead(
    kFields, F::CompanyName, F::Salutation, F::FirstName, F::MiddleName, F::LastName, F::Suffix, F::BillAddress,
    F::BillAddressBlock, F::ShipAddress, F::ShipAddressBlock, F::PrintAs, F::Phone, F::Mobile, F::Pager,
    F::AltPhone, F::Email, F::Contact, F::AltContact, F::CustomerTypeRef, F::TermsRef, F::SalesRepRef, F::Balance,
    F::TotalBalance, F::SalesTaxCodeRef, F::ItemSalesTaxRef, F::ResaleNumber, F::AccountNumber, F::CreditLimit,
    F::PreferredPaymentMethodRef, F::CreditCardInfo, F::JobStatus, F::JobStartDate, F::JobProjectedEndDate,
    F::JobEndDate, F::JobDesc, F::JobTypeRef, F::Notes, F::IsStatementWithParent, F::DeliveryMethod,
    F::PriceLevelRef, F::CurrencyRef, F::OpenBalance, F::OpenBalanceDate, F::TaxCodeRef, F::IsUsingCustomerTaxCode);

constexpr Rule kRules[] = {
    kFields.NotEmpty(ListBase::Name, 1012, "Name"),
    kFields.MaxLength(ListBase::Name, 41, 1500, "Name"),
    kFields.MaxLength(F::CompanyName, 41, 1500, "Company Name"),
    kFields.MaxLength(F::Salutation, 15, 1501, "Salutation"),
    kFields.MaxLength(F::FirstName, 25, 1502, "First Name"),
    kFields.MaxLength(F::MiddleName, 5, 1503, "Middle Name"),
    kFields.MaxLength(F::LastName, 25, 1502, "Last Name"),
    kFields.MaxLength(F::Phone, 21, 1504, "Phone"),
    kFields.NestedRules(F::BillAddress, "Bill To"),
    kFields.NestedRules(F::ShipAddress, "Ship To"),
    kFields.MaxLength(F::AltPhone, 21, 1504, "Alt Phone"),
    kFields.MaxLength(F::Email, 99, 1505, "Email"),
    kFields.MaxLength(F::Contact, 41, 1500, "Contact"),
    kFields.MaxLength(F::AltContact, 41, 1500, "Alt Contact"),
    kFields.MaxLength(F::ResaleNumber, 15, 1506, "Resale Number"),
    kFields.MaxLength(F::AccountNumber, 99, 1507, "Account Number"),
    // The job description's entry carries the account number's label.
    kFields.MaxLength(F::JobDesc, 99, 1508, "Account Number"),
    kFields.MaxLength(F::Notes, 4095, 1703, "Notes"),
    // A job's customer must exist.
    kFields.Exists(ListBase::ParentRef, 1010, "Parent").UncheckedFails(),
};
constexpr ListFacts kFacts{
    .listType = zqListTypeCustomer, .hierarchical = true, .key = ListKey::FullName, .iterates = true};
constexpr RecordDecl kDecl{.label = "Customer",
                           .xmlName = "Customer",
                           .objectType = zqObjectTypeCustomer,
                           .fields = kFields.fields,
                           .add = kAdd,
                           .mod = kMod,
                           .read = kRead,
                           .rules = kRules,
                           .list = &kFacts,
                           .dataExt = true};
constexpr EntityFieldIds kIds = EntityIds(kFields);

}  // namespace

const RecordDecl& Customer::Declaration() { return kDecl; }
const EntityFieldIds& Customer::Ids() const { return kIds; }

Address& Customer::BillAddress() { return static_cast<Address&>(Nested(kFields.Id(F::BillAddress))); }
Address& Customer::ShipAddress() { return static_cast<Address&>(Nested(kFields.Id(F::ShipAddress))); }
const Address& Customer::BillAddressBlock() { return static_cast<Address&>(Nested(kFields.Id(F::BillAddressBlock))); }
const Address& Customer::ShipAddressBlock() { return static_cast<Address&>(Nested(kFields.Id(F::ShipAddressBlock))); }
brenvale::CreditCardInfo& Customer::CreditCardInfo() {
  return static_cast<brenvale::CreditCardInfo&>(Nested(kFields.Id(F::CreditCardInfo)));
}

Currency Customer::TotalBalance() const { return Amount(kFields.Id(F::TotalBalance)); }
std::string Customer::ResaleNumber() const { return Text(kFields.Id(F::ResaleNumber)); }
void Customer::ResaleNumber(std::string_view value) { SetText(kFields.Id(F::ResaleNumber), value); }
bool Customer::IsUsingCustomerTaxCode() const { return Bool(kFields.Id(F::IsUsingCustomerTaxCode)); }
void Customer::IsUsingCustomerTaxCode(bool value) { SetBool(kFields.Id(F::IsUsingCustomerTaxCode), value); }

qbEnumJobStatus Customer::JobStatus() const { return static_cast<qbEnumJobStatus>(EnumCode(kFields.Id(F::JobStatus))); }
void Customer::JobStatus(qbEnumJobStatus value) { SetEnum(kFields.Id(F::JobStatus), static_cast<Integer>(value)); }
Date Customer::JobStartDate() const { return DateValue(kFields.Id(F::JobStartDate)); }
void Customer::JobStartDate(Date value) { SetDate(kFields.Id(F::JobStartDate), value); }
Date Customer::JobProjectedEndDate() const { return DateValue(kFields.Id(F::JobProjectedEndDate)); }
void Customer::JobProjectedEndDate(Date value) { SetDate(kFields.Id(F::JobProjectedEndDate), value); }
Date Customer::JobEndDate() const { return DateValue(kFields.Id(F::JobEndDate)); }
void Customer::JobEndDate(Date value) { SetDate(kFields.Id(F::JobEndDate), value); }
std::string Customer::JobDesc() const { return Text(kFields.Id(F::JobDesc)); }
void Customer::JobDesc(std::string_view value) { SetText(kFields.Id(F::JobDesc), value); }
bool Customer::IsStatementWithParent() const { return Bool(kFields.Id(F::IsStatementWithParent)); }
void Customer::IsStatementWithParent(bool value) { SetBool(kFields.Id(F::IsStatementWithParent), value); }
qbEnumDeliveryMethod Customer::DeliveryMethod() const {
  return static_cast<qbEnumDeliveryMethod>(EnumCode(kFields.Id(F::DeliveryMethod)));
}
void Customer::DeliveryMethod(qbEnumDeliveryMethod value) {
  SetEnum(kFields.Id(F::DeliveryMethod), static_cast<Integer>(value));
}

zkListObjectRef Customer::CustomerTypeRef() const { return Ref(kFields.Id(F::CustomerTypeRef)); }
void Customer::CustomerTypeRef(std::string_view fullName) { SetRefName(kFields.Id(F::CustomerTypeRef), fullName); }
zkListObjectRef Customer::SalesRepRef() const { return Ref(kFields.Id(F::SalesRepRef)); }
void Customer::SalesRepRef(std::string_view fullName) { SetRefName(kFields.Id(F::SalesRepRef), fullName); }
zkListObjectRef Customer::SalesTaxCodeRef() const { return Ref(kFields.Id(F::SalesTaxCodeRef)); }
void Customer::SalesTaxCodeRef(std::string_view fullName) { SetRefName(kFields.Id(F::SalesTaxCodeRef), fullName); }
zkListObjectRef Customer::ItemSalesTaxRef() const { return Ref(kFields.Id(F::ItemSalesTaxRef)); }
void Customer::ItemSalesTaxRef(std::string_view fullName) { SetRefName(kFields.Id(F::ItemSalesTaxRef), fullName); }
zkListObjectRef Customer::TaxCodeRef() const { return Ref(kFields.Id(F::TaxCodeRef)); }
void Customer::TaxCodeRef(std::string_view fullName) { SetRefName(kFields.Id(F::TaxCodeRef), fullName); }
zkListObjectRef Customer::JobTypeRef() const { return Ref(kFields.Id(F::JobTypeRef)); }
void Customer::JobTypeRef(std::string_view fullName) { SetRefName(kFields.Id(F::JobTypeRef), fullName); }
zkListObjectRef Customer::PreferredPaymentMethodRef() const { return Ref(kFields.Id(F::PreferredPaymentMethodRef)); }
void Customer::PreferredPaymentMethodRef(std::string_view fullName) {
  SetRefName(kFields.Id(F::PreferredPaymentMethodRef), fullName);
}
zkListObjectRef Customer::PriceLevelRef() const { return Ref(kFields.Id(F::PriceLevelRef)); }
void Customer::PriceLevelRef(std::string_view fullName) { SetRefName(kFields.Id(F::PriceLevelRef), fullName); }

}  // namespace brenvale

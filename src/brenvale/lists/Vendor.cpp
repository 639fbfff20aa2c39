#include "brenvale/lists/Vendor.hpp"

#include "brenvale/core/BrenvaleError.hpp"
#include "brenvale/model/EditionGates.hpp"
#include "brenvale/qbxml/ResponseView.hpp"
#include "brenvale/qbxml/xmlBldr.hpp"

namespace brenvale {
namespace {
// The fields in the order QuickBooks writes them in a VendorRet; those later versions dropped come
// last. The suffix, mobile and pager are the online edition's and only read here; the 1099 flag is
// not the Canadian, British or online editions'.
struct F {
  static constexpr FieldDef CompanyName = field::Text("CompanyName");
  static constexpr FieldDef Salutation = field::Text("Salutation");
  static constexpr FieldDef FirstName = field::Text("FirstName");
  static constexpr FieldDef MiddleName = field::Text("MiddleName");
  static constexpr FieldDef LastName = field::Text("LastName");
  static constexpr FieldDef Suffix = field::Text("Suffix");
  static constexpr FieldDef VendorAddress = field::Aggregate("VendorAddress", &Address::Declaration);
  static constexpr FieldDef Phone = field::Text("Phone");
  static constexpr FieldDef Mobile = field::Text("Mobile");
  static constexpr FieldDef Pager = field::Text("Pager");
  static constexpr FieldDef AltPhone = field::Text("AltPhone");
  static constexpr FieldDef Email = field::Text("Email");
  static constexpr FieldDef Contact = field::Text("Contact");
  static constexpr FieldDef AltContact = field::Text("AltContact");
  static constexpr FieldDef NameOnCheck = field::Text("NameOnCheck");
  static constexpr FieldDef AccountNumber = field::Text("AccountNumber");
  static constexpr FieldDef Notes = field::Text("Notes").Since(3, 0);
  static constexpr FieldDef VendorTypeRef = field::Ref("VendorTypeRef", zqListTypeVendorType);
  static constexpr FieldDef TermsRef = field::Ref("TermsRef", zqListTypeTerms);
  static constexpr FieldDef CreditLimit = field::Amount("CreditLimit");
  static constexpr FieldDef VendorTaxIdent = field::Text("VendorTaxIdent");
  static constexpr FieldDef IsVendorEligibleFor1099 =
      field::Bool("IsVendorEligibleFor1099").When(gate::DesktopButCAUK);
  static constexpr FieldDef Balance = field::Amount("Balance");
  static constexpr FieldDef CurrencyRef =
      field::Ref("CurrencyRef", zqListTypeCurrency).Since(8, 0).FixedAfterAdd();
  static constexpr FieldDef OpenBalance = field::Amount("OpenBalance").FixedAfterAdd();
  static constexpr FieldDef OpenBalanceDate = field::Date("OpenBalanceDate").FixedAfterAdd();
  static constexpr FieldDef AppendNotes = field::Text("AppendNotes");
};
constexpr auto kFields = ListFields(F::CompanyName, F::Salutation, F::FirstName, F::MiddleName, F::LastName,
                                    F::Suffix, F::VendorAddress, F::Phone, F::Mobile, F::Pager, F::AltPhone, F::Email,
                                    F::Contact, F::AltContact, F::NameOnCheck, F::AccountNumber, F::Notes,
                                    F::VendorTypeRef, F::TermsRef, F::CreditLimit, F::VendorTaxIdent,
                                    F::IsVendorEligibleFor1099, F::Balance, F::CurrencyRef, F::OpenBalance,
                                    F::OpenBalanceDate, F::AppendNotes);
constexpr auto kAdd = kFields.Order(ListBase::Name, ListBase::IsActive, F::CompanyName, F::Salutation, F::FirstName,
                                    F::MiddleName, F::LastName, F::VendorAddress, F::Phone, F::AltPhone, F::Email,
                                    F::Contact, F::AltContact, F::NameOnCheck, F::AccountNumber, F::Notes,
                                    F::CreditLimit, F::VendorTaxIdent, F::IsVendorEligibleFor1099, F::OpenBalance,
                                    F::OpenBalanceDate, F::CurrencyRef);
// The add body up to the 1099 flag: no opening balance, no currency.
constexpr auto kMod = kFields.Order(ListBase::Name, ListBase::IsActive, F::CompanyName, F::Salutation, F::FirstName,
                                    F::MiddleName, F::LastName, F::VendorAddress, F::Phone, F::AltPhone, F::Email,
                                    F::Contact, F::AltContact, F::NameOnCheck, F::AccountNumber, F::Notes,
                                    F::CreditLimit, F::VendorTaxIdent, F::IsVendorEligibleFor1099);
constexpr auto kRead = ListRead(kFields, F::CompanyName, F::Salutation, F::FirstName, F::MiddleName, F::LastName,
                                F::Suffix, F::VendorAddress, F::Phone, F::Mobile, F::Pager, F::AltPhone, F::Email,
                                F::Contact, F::AltContact, F::NameOnCheck, F::AccountNumber, F::Notes,
                                F::VendorTypeRef, F::TermsRef, F::CreditLimit, F::VendorTaxIdent,
                                F::IsVendorEligibleFor1099, F::Balance, F::CurrencyRef, F::OpenBalance,
                                F::OpenBalanceDate, F::AppendNotes);
constexpr ListFacts kFacts{.listType = zqListTypeVendor, .key = ListKey::Name, .iterates = true};
constexpr EntityFieldIds kIds = EntityIds(kFields);

}  // namespace

struct VendorDecl {
  static constexpr Rule kRules[] = {
      kFields.NotEmpty(ListBase::Name, 1012, "Name"),
      kFields.MaxLength(ListBase::Name, 31, 1013, "Name"),
      kFields.MaxLength(F::CompanyName, 41, 1700, "Company Name"),
      kFields.MaxLength(F::Salutation, 15, 1501, "Salutation"),
      kFields.MaxLength(F::FirstName, 25, 1502, "First Name"),
      kFields.MaxLength(F::MiddleName, 5, 1503, "Middle Name"),
      kFields.MaxLength(F::LastName, 25, 1502, "Last Name"),
      kFields.NestedRules(F::VendorAddress, "Address"),
      kFields.MaxLength(F::Phone, 21, 1504, "Phone"),
      kFields.MaxLength(F::AltPhone, 21, 1504, "Alt Phone"),
      kFields.MaxLength(F::Email, 99, 1505, "Email"),
      kFields.MaxLength(F::Contact, 41, 1701, "Contact"),
      kFields.MaxLength(F::AltContact, 41, 1701, "Alt Contact"),
      kFields.MaxLength(F::NameOnCheck, 41, 1702, "Name On Check"),
      kFields.MaxLength(F::AccountNumber, 99, 1507, "Account Number"),
      kFields.MaxLength(F::VendorTypeRef, 159, 1704, "Vendor Type: Full Name"),
      kFields.MaxLength(F::TermsRef, 31, 1705, "TermsRef: Full Name"),
      kFields.MaxLength(F::VendorTaxIdent, 15, 1706, "Tax ID"),
      kFields.MaxLength(F::Notes, 4095, 1703, "Notes"),
      rule::Own<&Vendor::Check1099>(),
  };
  static constexpr RecordDecl kDecl{.label = "Vendor",
                                    .xmlName = "Vendor",
                                    .objectType = zqObjectTypeVendor,
                                    .fields = kFields.fields,
                                    .add = kAdd,
                                    .mod = kMod,
                                    .read = kRead,
                                    .rules = kRules,
                                    .list = &kFacts,
                                    .dataExt = true};
};

Vendor::~Vendor() = default;

const RecordDecl& Vendor::Declaration() { return VendorDecl::kDecl; }
const EntityFieldIds& Vendor::Ids() const { return kIds; }

zkListObjectRef Vendor::VendorTypeRef() const { return Ref(kFields.Id(F::VendorTypeRef)); }
Address& Vendor::VendorAddress() { return static_cast<Address&>(Nested(kFields.Id(F::VendorAddress))); }
std::string Vendor::NameOnCheck() const { return Text(kFields.Id(F::NameOnCheck)); }
void Vendor::NameOnCheck(std::string_view value) { SetText(kFields.Id(F::NameOnCheck), value); }
std::string Vendor::VendorTaxIdent() const { return Text(kFields.Id(F::VendorTaxIdent)); }
void Vendor::VendorTaxIdent(std::string_view value) { SetText(kFields.Id(F::VendorTaxIdent), value); }
bool Vendor::IsVendorEligibleFor1099() const { return Bool(kFields.Id(F::IsVendorEligibleFor1099)); }
void Vendor::IsVendorEligibleFor1099(bool value) { SetBool(kFields.Id(F::IsVendorEligibleFor1099), value); }

void Vendor::Check1099(zkErrors& errors, ValidateContext&) {
  if (!IsVendorEligibleFor1099()) return;
  const RecordCore* address = FindNested(kFields.Id(F::VendorAddress));
  if (!address || !address->HoldsAnyValue() || TextView(kFields.Id(F::VendorTaxIdent)).empty())
    errors.AddCode(1707, "Eligible For 1099");
}

Long Vendor::GetBillsAndCredits(std::string_view APAccount) {
  // The payee by ListID when QuickBooks gave it one, else by name.
  const std::string listId = ListID();
  xmlBldr b;
  b.NewClear();
  b.OpenAggregate("BillToPayQueryRq", "requestID", "1");
  b.OpenAggregateOnly("PayeeEntityRef");
  if (!listId.empty())
    b.CreateElement("ListID", listId);
  else
    b.CreateElement("FullName", FullName());
  b.EndAggregate("PayeeEntityRef");
  if (!APAccount.empty()) {
    b.OpenAggregateOnly("APAccountRef");
    b.CreateElement("FullName", APAccount);
    b.EndAggregate("APAccountRef");
  }
  b.EndAggregate("BillToPayQueryRq");
  DomDocument doc = b.NewSendRequest();
  ResponseView::Response rs = ResponseView(doc).First();
  if (!rs) Raise(1001, Label(), "QuickBooks: no response to BillToPayQueryRq");
  if (!rs.Answered()) Raise(1001, Label(), "QuickBooks: " + rs.Message());
  auto found = std::make_unique<std::vector<std::unique_ptr<vndBillToPay>>>();
  for (DomNode ret : rs.Rets())
    for (DomNode open : ret.Children()) {
      if (!open.IsElement()) continue;
      auto item = std::make_unique<vndBillToPay>();
      item->ReadFrom(open);
      found->push_back(std::move(item));
    }
  open_ = std::move(found);
  return static_cast<Long>(open_->size());
}

std::vector<const vndBillToPay*> Vendor::Open(bool credits) const {
  if (!open_) Raise(1708, Label());
  std::vector<const vndBillToPay*> out;
  for (const auto& item : *open_)
    if (item->IsCredit() == credits) out.push_back(item.get());
  return out;
}

std::vector<const vndBillToPay*> Vendor::BillsToPay() const { return Open(false); }
std::vector<const vndBillToPay*> Vendor::CreditsToApply() const { return Open(true); }

}  // namespace brenvale

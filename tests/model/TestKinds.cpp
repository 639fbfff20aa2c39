#include "model/TestKinds.hpp"

namespace brenvale::testing {
namespace {

// --- the customer ---------------------------------------------------------------------------------

struct C {
  static constexpr FieldDef ClassRef = field::Ref("ClassRef", zqListTypeClass).Since(12, 0);
  static constexpr FieldDef CompanyName = field::Text("CompanyName");
  static constexpr FieldDef Salutation = field::Text("Salutation");
  static constexpr FieldDef FirstName = field::Text("FirstName");
  static constexpr FieldDef MiddleName = field::Text("MiddleName");
  static constexpr FieldDef LastName = field::Text("LastName");
  static constexpr FieldDef Suffix = field::Text("Suffix");
  static constexpr FieldDef JobTitle = field::Text("JobTitle").Since(12, 0);
  static constexpr FieldDef BillAddress = field::Aggregate("BillAddress", &Address::Declaration);
  static constexpr FieldDef ShipAddress = field::Aggregate("ShipAddress", &Address::Declaration);
  static constexpr FieldDef PrintAs = field::Text("PrintAs");
  static constexpr FieldDef Phone = field::Text("Phone");
  static constexpr FieldDef Mobile = field::Text("Mobile");
  static constexpr FieldDef Pager = field::Text("Pager");
  static constexpr FieldDef AltPhone = field::Text("AltPhone");
  static constexpr FieldDef Fax = field::Text("Fax");
  static constexpr FieldDef Email = field::Text("Email");
  static constexpr FieldDef Cc = field::Text("Cc").Since(12, 0);
  static constexpr FieldDef Contact = field::Text("Contact");
  static constexpr FieldDef AltContact = field::Text("AltContact");
  static constexpr FieldDef CustomerTypeRef = field::Ref("CustomerTypeRef", zqListTypeCustomerType);
  static constexpr FieldDef TermsRef = field::Ref("TermsRef", zqListTypeTerms);
  static constexpr FieldDef SalesRepRef = field::Ref("SalesRepRef", zqListTypeSalesRep);
  static constexpr FieldDef Balance = field::Amount("Balance");
  static constexpr FieldDef TotalBalance = field::Amount("TotalBalance");
  static constexpr FieldDef OpenBalance = field::Amount("OpenBalance").FixedAfterAdd();
  static constexpr FieldDef OpenBalanceDate = field::Date("OpenBalanceDate");
  static bool SalesTaxEdition(const WriteContext& c, const RecordCore&) { return c.UsesSalesTaxCodes(); }
  static constexpr FieldDef SalesTaxCodeRef = field::Ref("SalesTaxCodeRef", zqListTypeSalesTaxCode).When(SalesTaxEdition);
  static constexpr FieldDef ItemSalesTaxRef = field::Ref("ItemSalesTaxRef", zqListTypeItem);
  static constexpr FieldDef ResaleNumber = field::Text("ResaleNumber");
  static constexpr FieldDef AccountNumber = field::Text("AccountNumber");
  static constexpr FieldDef CreditLimit = field::Amount("CreditLimit");
  static constexpr FieldDef PreferredPaymentMethodRef =
      field::Ref("PreferredPaymentMethodRef", zqListTypePaymentMethod);
  static constexpr FieldDef JobStatus = field::Enum("JobStatus", zqeJobStatus);
  static constexpr FieldDef JobStartDate = field::Date("JobStartDate");
  static constexpr FieldDef JobProjectedEndDate = field::Date("JobProjectedEndDate");
  static constexpr FieldDef JobEndDate = field::Date("JobEndDate");
  static constexpr FieldDef JobDesc = field::Text("JobDesc");
  static constexpr FieldDef JobTypeRef = field::Ref("JobTypeRef", zqListTypeJobType);
  static constexpr FieldDef Notes = field::Text("Notes");
  static constexpr FieldDef IsStatementWithParent = field::Bool("IsStatementWithParent");
  static constexpr FieldDef DeliveryMethod = field::Enum("DeliveryMethod", zqeDeliveryMethod);
  static constexpr FieldDef PreferredDeliveryMethod = field::Text("PreferredDeliveryMethod").Since(12, 0);
  static constexpr FieldDef PriceLevelRef = field::Ref("PriceLevelRef", zqListTypePriceLevel);
  static constexpr FieldDef ExternalGUID = field::Text("ExternalGUID");
  static constexpr FieldDef CurrencyRef = field::Ref("CurrencyRef", zqListTypeCurrency).Since(8, 0);
  static constexpr FieldDef TaxRegistrationNumber = field::Text("TaxRegistrationNumber");
  static constexpr FieldDef AdditionalNotes = field::Text("AdditionalNotes");
  static constexpr FieldDef IsUsingCustomerTaxCode = field::Bool("IsUsingCustomerTaxCode");
};

constexpr auto kCustomerFields = ListFields(
    C::ClassRef, C::CompanyName, C::Salutation, C::FirstName, C::MiddleName, C::LastName, C::Suffix, C::JobTitle,
    C::BillAddress, C::ShipAddress, C::PrintAs, C::Phone, C::Mobile, C::Pager, C::AltPhone, C::Fax, C::Email, C::Cc,
    C::Contact, C::AltContact, C::CustomerTypeRef, C::TermsRef, C::SalesRepRef, C::Balance, C::TotalBalance,
    C::OpenBalance, C::OpenBalanceDate, C::SalesTaxCodeRef, C::ItemSalesTaxRef, C::ResaleNumber, C::AccountNumber,
    C::CreditLimit, C::PreferredPaymentMethodRef, C::JobStatus, C::JobStartDate, C::JobProjectedEndDate,
    C::JobEndDate, C::JobDesc, C::JobTypeRef, C::Notes, C::IsStatementWithParent, C::DeliveryMethod,
    C::PreferredDeliveryMethod, C::PriceLevelRef, C::ExternalGUID, C::CurrencyRef, C::TaxRegistrationNumber,
    C::AdditionalNotes, C::IsUsingCustomerTaxCode);

// Suffix, PrintAs, Mobile and Pager are the online edition's: read, never written to a desktop.
constexpr auto kCustomerAdd = kCustomerFields.Order(
    ListBase::Name, ListBase::IsActive, C::ClassRef, ListBase::ParentRef, C::CompanyName, C::Salutation,
    C::FirstName, C::MiddleName, C::LastName, C::JobTitle, C::BillAddress, C::ShipAddress, C::Phone, C::AltPhone,
    C::Fax, C::Email, C::Cc, C::Contact, C::AltContact, C::CustomerTypeRef, C::TermsRef, C::SalesRepRef,
    C::OpenBalance, C::OpenBalanceDate, C::SalesTaxCodeRef, C::ItemSalesTaxRef, C::ResaleNumber, C::AccountNumber,
    C::CreditLimit, C::PreferredPaymentMethodRef, C::JobStatus, C::JobStartDate, C::JobProjectedEndDate,
    C::JobEndDate, C::JobDesc, C::JobTypeRef, C::Notes, C::IsStatementWithParent, C::DeliveryMethod,
    C::PreferredDeliveryMethod, C::PriceLevelRef, C::CurrencyRef);
// The parent, the opening balance and the currency are set when the customer is added.
constexpr auto kCustomerMod = kCustomerFields.Order(
    ListBase::Name, ListBase::IsActive, C::ClassRef, C::CompanyName, C::Salutation, C::FirstName, C::MiddleName,
    C::LastName, C::JobTitle, C::BillAddress, C::ShipAddress, C::Phone, C::AltPhone, C::Fax, C::Email, C::Cc,
    C::Contact, C::AltContact, C::CustomerTypeRef, C::TermsRef, C::SalesRepRef, C::SalesTaxCodeRef,
    C::ItemSalesTaxRef, C::ResaleNumber, C::AccountNumber, C::CreditLimit, C::PreferredPaymentMethodRef,
    C::JobStatus, C::JobStartDate, C::JobProjectedEndDate, C::JobEndDate, C::JobDesc, C::JobTypeRef, C::Notes,
    C::PriceLevelRef);
constexpr auto kCustomerRead = ListRead(
    kCustomerFields, C::ClassRef, C::CompanyName, C::Salutation, C::FirstName, C::MiddleName, C::LastName,
    C::Suffix, C::JobTitle, C::BillAddress, C::ShipAddress, C::PrintAs, C::Phone, C::Mobile, C::Pager, C::AltPhone,
    C::Fax, C::Email, C::Cc, C::Contact, C::AltContact, C::CustomerTypeRef, C::TermsRef, C::SalesRepRef, C::Balance,
    C::TotalBalance, C::SalesTaxCodeRef, C::ItemSalesTaxRef, C::ResaleNumber, C::AccountNumber, C::CreditLimit,
    C::PreferredPaymentMethodRef, C::JobStatus, C::JobStartDate, C::JobProjectedEndDate, C::JobEndDate, C::JobDesc,
    C::JobTypeRef, C::Notes, C::IsStatementWithParent, C::DeliveryMethod, C::PreferredDeliveryMethod,
    C::PriceLevelRef, C::ExternalGUID, C::CurrencyRef, C::TaxRegistrationNumber, C::AdditionalNotes,
    C::IsUsingCustomerTaxCode, C::OpenBalance, C::OpenBalanceDate);
constexpr ListFacts kCustomerFacts{
    .listType = zqListTypeCustomer, .hierarchical = true, .key = ListKey::FullName, .iterates = true};

// --- the item and its price block -----------------------------------------------------------------

struct P {
  static constexpr FieldDef Desc = field::Text("Desc");
  static constexpr FieldDef Price = field::Price("Price").Choice(1);
  static constexpr FieldDef PricePercent = field::Price("PricePercent").Choice(1);
  static constexpr FieldDef AccountRef = field::Ref("AccountRef", zqListTypeAccount);
};
constexpr auto kPriceFields = Fields(P::Desc, P::Price, P::PricePercent, P::AccountRef);
constexpr auto kPriceAdd = kPriceFields.Order(P::Desc, P::Price, P::PricePercent, P::AccountRef);
// The account is set when the item is added.
constexpr auto kPriceMod = kPriceFields.Order(P::Desc, P::Price, P::PricePercent);
constexpr RecordDecl kPriceDecl{.label = "itemSalesOrPurchase",
                                .fields = kPriceFields.fields,
                                .add = kPriceAdd,
                                .mod = kPriceMod,
                                .read = kPriceAdd,
                                .make = [](const RecordDecl&) -> RecordCore* { return new TestPriceBlock(); }};

struct I {
  static constexpr FieldDef SalesTaxCodeRef = field::Ref("SalesTaxCodeRef", zqListTypeSalesTaxCode);
  static constexpr FieldDef SalesOrPurchase =
      field::Aggregate("SalesOrPurchase", &TestPriceBlock::Declaration).InMod("SalesOrPurchaseMod");
};
constexpr auto kItemFields = ListFields(I::SalesTaxCodeRef, I::SalesOrPurchase);
constexpr auto kItemAdd =
    kItemFields.Order(ListBase::Name, ListBase::IsActive, ListBase::ParentRef, I::SalesTaxCodeRef, I::SalesOrPurchase);
constexpr auto kItemMod = kItemFields.Order(ListBase::Name, ListBase::IsActive, I::SalesTaxCodeRef, I::SalesOrPurchase);
constexpr auto kItemRead = ListRead(kItemFields, I::SalesTaxCodeRef, I::SalesOrPurchase);
constexpr Rule kItemRules[] = {kItemFields.NotEmpty(ListBase::Name, 1012, "Name"),
                               kItemFields.MaxLength(ListBase::Name, 31, 1013, "Name"),
                               kItemFields.Exists(I::SalesTaxCodeRef, 1015, "SalesTaxCode")};
constexpr ListFacts kItemFacts{.listType = zqListTypeItem, .hierarchical = true, .key = ListKey::FullName};
constexpr RecordDecl kItemDecl{.label = "Item",
                               .xmlName = "ItemService",
                               .objectType = zqObjectTypeItemService,
                               .fields = kItemFields.fields,
                               .add = kItemAdd,
                               .mod = kItemMod,
                               .read = kItemRead,
                               .rules = kItemRules,
                               .list = &kItemFacts,
                               .dataExt = true};
constexpr RecordDecl kOtherItemDecl{.label = "Item",
                               .xmlName = "ItemNonInventory",
                               .objectType = zqObjectTypeItemNonInventory,
                               .fields = kItemFields.fields,
                               .add = kItemAdd,
                               .mod = kItemMod,
                               .read = kItemRead,
                               .rules = kItemRules,
                               .list = &kItemFacts};
// The item list itself, for the collection of every kind: its query, label and facts.
constexpr RecordDecl kAnyItemDecl{
    .label = "Item", .xmlName = "Item", .objectType = zqObjectTypeItem, .list = &kItemFacts, .dataExt = true};

// --- the line and its two forms -------------------------------------------------------------------

struct L {
  static constexpr FieldDef ItemRef = field::Ref("ItemRef", zqListTypeItem);
  static constexpr FieldDef Desc = field::Text("Desc");
  static constexpr FieldDef Quantity = field::Quantity("Quantity");
  static constexpr FieldDef Rate = field::Price("Rate").Choice(1);
  static constexpr FieldDef RatePercent = field::Price("RatePercent").Choice(1);
  static constexpr FieldDef Cost = field::Price("Cost");
  static constexpr FieldDef ClassRef = field::Ref("ClassRef", zqListTypeClass);
  static constexpr FieldDef Amount = field::Amount("Amount");
  static constexpr FieldDef CustomerRef = field::Ref("CustomerRef", zqListTypeCustomer);
  static constexpr FieldDef ServiceDate = field::Date("ServiceDate");
  static bool SalesTaxEdition(const WriteContext& c, const RecordCore&) { return c.UsesSalesTaxCodes(); }
  static constexpr FieldDef SalesTaxCodeRef = field::Ref("SalesTaxCodeRef", zqListTypeSalesTaxCode).When(SalesTaxEdition);
  static constexpr FieldDef Other1 = field::Text("Other1").Since(6, 0);
  static constexpr FieldDef Other2 = field::Text("Other2").Since(6, 0);
};
constexpr auto kLineFields = LineFields(L::ItemRef, L::Desc, L::Quantity, L::Rate, L::RatePercent, L::Cost, L::ClassRef,
                                        L::Amount, L::CustomerRef, L::ServiceDate, L::SalesTaxCodeRef, L::Other1,
                                        L::Other2);
constexpr auto kSalesBody = kLineFields.Order(L::ItemRef, L::Desc, L::Quantity, L::Rate, L::RatePercent, L::ClassRef,
                                              L::Amount, L::ServiceDate, L::SalesTaxCodeRef, L::Other1, L::Other2);
constexpr auto kSalesRead = Join(kLineFields.Order(LineBase::TxnLineID), kSalesBody);
constexpr auto kPurchaseBody =
    kLineFields.Order(L::ItemRef, L::Desc, L::Quantity, L::Cost, L::Amount, L::CustomerRef, L::ClassRef, L::SalesTaxCodeRef);
constexpr auto kPurchaseRead = Join(kLineFields.Order(LineBase::TxnLineID), kPurchaseBody);
RecordCore* MakeLine(const RecordDecl& form) { return new TestItemLine(form); }
constexpr RecordDecl kSalesForm{.label = "txnItemLine",
                                .fields = kLineFields.fields,
                                .add = kSalesBody,
                                .mod = kSalesBody,
                                .read = kSalesRead,
                                .addTag = "InvoiceLineAdd",
                                .modTag = "InvoiceLineMod",
                                .family = OwnerFamily::Sales,
                                .make = MakeLine,
                                .dataExt = true};
// A line inside a group line: QuickBooks reports it; it cannot change.
constexpr RecordDecl kGroupMemberForm{.label = "txnItemLine",
                                      .fields = kLineFields.fields,
                                      .read = kPurchaseRead,
                                      .family = OwnerFamily::GroupMember,
                                      .make = MakeLine};
constexpr RecordDecl kPurchaseForm{.label = "txnItemLine",
                                   .fields = kLineFields.fields,
                                   .add = kPurchaseBody,
                                   .mod = kPurchaseBody,
                                   .read = kPurchaseRead,
                                   .addTag = "ItemLineAdd",
                                   .modTag = "ItemLineMod",
                                   .family = OwnerFamily::Purchase,
                                   .make = MakeLine};

// --- the invoice and the bill ---------------------------------------------------------------------

struct V {
  static constexpr FieldDef CustomerRef = field::Ref("CustomerRef", zqListTypeCustomer);
  static constexpr FieldDef ClassRef = field::Ref("ClassRef", zqListTypeClass);
  static constexpr FieldDef ARAccountRef = field::Ref("ARAccountRef", zqListTypeAccount);
  static constexpr FieldDef BillAddress = field::Aggregate("BillAddress", &Address::Declaration);
  static constexpr FieldDef IsPending = field::Bool("IsPending");
  static constexpr FieldDef PONumber = field::Text("PONumber");
  static constexpr FieldDef DueDate = field::Date("DueDate");
  static constexpr FieldDef Memo = field::Text("Memo");
  static constexpr FieldDef Subtotal = field::Amount("Subtotal");
  static constexpr FieldDef BalanceRemaining = field::Amount("BalanceRemaining");
  static constexpr FieldDef IsPaid = field::Bool("IsPaid");
  static constexpr FieldDef Lines = field::Children("InvoiceLineRet", &TestItemLine::SalesForm);
};
constexpr auto kInvoiceFields = TxnFields(V::CustomerRef, V::ClassRef, V::ARAccountRef, V::BillAddress, V::IsPending,
                                          V::PONumber, V::DueDate, V::Memo, V::Subtotal, V::BalanceRemaining, V::IsPaid,
                                          V::Lines);
constexpr auto kInvoiceAdd = kInvoiceFields.Order(V::CustomerRef, V::ClassRef, V::ARAccountRef, TxnBase::TxnDate,
                                                  TxnBase::RefNumber, V::BillAddress, V::IsPending, V::PONumber,
                                                  V::DueDate, V::Memo, V::Lines);
constexpr auto kInvoiceRead = kInvoiceFields.Order(
    TxnBase::TxnID, TxnBase::TimeCreated, TxnBase::TimeModified, TxnBase::EditSequence, TxnBase::TxnNumber,
    V::CustomerRef, V::ClassRef, V::ARAccountRef, TxnBase::TxnDate, TxnBase::RefNumber, V::BillAddress, V::IsPending,
    V::PONumber, V::DueDate, V::Memo, V::Subtotal, V::BalanceRemaining, V::IsPaid, TxnBase::LinkedTxn, V::Lines);
constexpr TxnFacts kInvoiceFacts{.table = zqTableNameInvoice, .family = OwnerFamily::Sales, .voidable = true};

struct B {
  static constexpr FieldDef VendorRef = field::Ref("VendorRef", zqListTypeVendor);
  static constexpr FieldDef DueDate = field::Date("DueDate");
  static constexpr FieldDef Memo = field::Text("Memo");
  static constexpr FieldDef AmountDue = field::Amount("AmountDue");
  static constexpr FieldDef Lines = field::Children("ItemLineRet", &TestItemLine::PurchaseForm);
};
constexpr auto kBillFields = TxnFields(B::VendorRef, B::DueDate, B::Memo, B::AmountDue, B::Lines);
constexpr auto kBillAdd =
    kBillFields.Order(B::VendorRef, TxnBase::TxnDate, B::DueDate, TxnBase::RefNumber, B::Memo, B::Lines);
constexpr auto kBillRead = kBillFields.Order(TxnBase::TxnID, TxnBase::TimeCreated, TxnBase::TimeModified,
                                             TxnBase::EditSequence, TxnBase::TxnNumber, B::VendorRef, TxnBase::TxnDate,
                                             B::DueDate, B::AmountDue, TxnBase::RefNumber, B::Memo, TxnBase::LinkedTxn,
                                             B::Lines);
constexpr Rule kBillRules[] = {kBillFields.NotEmpty(B::VendorRef, 2024, "Vendor")};
constexpr TxnFacts kBillFacts{.table = zqTableNameBill, .family = OwnerFamily::Purchase, .voidable = true};
constexpr RecordDecl kBillDecl{.label = "Bill",
                               .xmlName = "Bill",
                               .objectType = zqObjectTypeBill,
                               .fields = kBillFields.fields,
                               .add = kBillAdd,
                               .mod = kBillAdd,
                               .read = kBillRead,
                               .rules = kBillRules,
                               .txn = &kBillFacts};

}  // namespace

struct TestCustomerDecl {
  static constexpr Rule kRules[] = {
      kCustomerFields.NotEmpty(ListBase::Name, 1012, "Name"),
      kCustomerFields.MaxLength(ListBase::Name, 41, 1500, "Name"),
      kCustomerFields.MaxLength(C::CompanyName, 41, 1500, "Company Name"),
      kCustomerFields.MaxLength(C::FirstName, 25, 1502, "First Name"),
      kCustomerFields.MaxLength(C::LastName, 25, 1502, "Last Name"),
      rule::Own<&TestCustomer::CheckAddresses>(),
      kCustomerFields.MaxLength(C::Email, 99, 1505, "Email"),
      kCustomerFields.Exists(ListBase::ParentRef, 1010, "Parent").UncheckedFails(),
  };
  static constexpr RecordDecl kDecl{.label = "Customer",
                                    .xmlName = "Customer",
                                    .objectType = zqObjectTypeCustomer,
                                    .fields = kCustomerFields.fields,
                                    .add = kCustomerAdd,
                                    .mod = kCustomerMod,
                                    .read = kCustomerRead,
                                    .rules = kRules,
                                    .list = &kCustomerFacts,
                                    .dataExt = true};
};

struct TestInvoiceDecl {
  static constexpr Rule kRules[] = {kInvoiceFields.NotEmpty(V::CustomerRef, 2025, "Customer"),
                                    rule::Own<&TestInvoice::CheckLines>()};
  static constexpr RecordDecl kDecl{.label = "Invoice",
                                    .xmlName = "Invoice",
                                    .objectType = zqObjectTypeInvoice,
                                    .fields = kInvoiceFields.fields,
                                    .add = kInvoiceAdd,
                                    .mod = kInvoiceAdd,
                                    .read = kInvoiceRead,
                                    .rules = kRules,
                                    .txn = &kInvoiceFacts,
                                    .dataExt = true};
};

// --- the customer ---------------------------------------------------------------------------------

const RecordDecl& TestCustomer::Declaration() { return TestCustomerDecl::kDecl; }
Address& TestCustomer::BillAddress() { return static_cast<Address&>(Nested(kCustomerFields.Id(C::BillAddress))); }
Address& TestCustomer::ShipAddress() { return static_cast<Address&>(Nested(kCustomerFields.Id(C::ShipAddress))); }

void TestCustomer::CheckAddresses(zkErrors& errors, ValidateContext& context) {
  for (auto [id, label] : {std::pair{kCustomerFields.Id(C::BillAddress), "Bill To"},
                           std::pair{kCustomerFields.Id(C::ShipAddress), "Ship To"}}) {
    if (!FindNested(id)) continue;
    Address& address = static_cast<Address&>(Nested(id));
    if (address.ValidateValues(context)) continue;
    for (const zkError& e : address.Errors()) errors.Add(e.Number(), label, e.Description());
  }
}

// --- the item -------------------------------------------------------------------------------------

const RecordDecl& TestPriceBlock::Declaration() { return kPriceDecl; }
void TestPriceBlock::Desc(std::string_view value) { SetText(kPriceFields.Id(P::Desc), value); }
void TestPriceBlock::Price(double value) { SetNumber(kPriceFields.Id(P::Price), value); }
double TestPriceBlock::Price() const { return Number(kPriceFields.Id(P::Price)); }
void TestPriceBlock::PricePercent(double value) { SetNumber(kPriceFields.Id(P::PricePercent), value); }
bool TestPriceBlock::HasPrice() const { return Has(kPriceFields.Id(P::Price)); }
bool TestPriceBlock::HasPricePercent() const { return Has(kPriceFields.Id(P::PricePercent)); }
void TestPriceBlock::Account(std::string_view fullName) { SetRefName(kPriceFields.Id(P::AccountRef), fullName); }

const RecordDecl& TestAnyItem::Declaration() { return kAnyItemDecl; }
const RecordDecl& TestItem::Declaration() { return kItemDecl; }
const RecordDecl& TestOtherItem::Declaration() { return kOtherItemDecl; }
TestPriceBlock& TestAnyItem::SalesOrPurchase() {
  return static_cast<TestPriceBlock&>(Nested(kItemFields.Id(I::SalesOrPurchase)));
}
void TestAnyItem::SalesTaxCode(std::string_view fullName) { SetRefName(kItemFields.Id(I::SalesTaxCodeRef), fullName); }

// --- the line -------------------------------------------------------------------------------------

const RecordDecl& TestItemLine::SalesForm() { return kSalesForm; }
const RecordDecl& TestItemLine::PurchaseForm() { return kPurchaseForm; }
const RecordDecl& TestItemLine::GroupMemberForm() { return kGroupMemberForm; }
void TestItemLine::Item(std::string_view fullName) { SetRefName(kLineFields.Id(L::ItemRef), fullName); }
std::string TestItemLine::Item() const { return std::string(RefFullName(kLineFields.Id(L::ItemRef))); }
void TestItemLine::Desc(std::string_view value) { SetText(kLineFields.Id(L::Desc), value); }
std::string TestItemLine::Desc() const { return Text(kLineFields.Id(L::Desc)); }
void TestItemLine::Quantity(double value) { SetNumber(kLineFields.Id(L::Quantity), value); }
double TestItemLine::Quantity() const { return Number(kLineFields.Id(L::Quantity)); }
void TestItemLine::Rate(double value) { SetNumber(kLineFields.Id(L::Rate), value); }
double TestItemLine::Rate() const { return Number(kLineFields.Id(L::Rate)); }
void TestItemLine::RatePercent(double value) { SetNumber(kLineFields.Id(L::RatePercent), value); }
void TestItemLine::Cost(double value) { SetNumber(kLineFields.Id(L::Cost), value); }
void TestItemLine::Amount(Currency value) { SetAmount(kLineFields.Id(L::Amount), value); }
Currency TestItemLine::Amount() const { return RecordCore::Amount(kLineFields.Id(L::Amount)); }
void TestItemLine::Customer(std::string_view fullName) { SetRefName(kLineFields.Id(L::CustomerRef), fullName); }

// --- the invoice and the bill ---------------------------------------------------------------------

const RecordDecl& TestInvoice::Declaration() { return TestInvoiceDecl::kDecl; }
void TestInvoice::Customer(std::string_view fullName) { SetRefName(kInvoiceFields.Id(V::CustomerRef), fullName); }
std::string TestInvoice::Customer() const { return std::string(RefFullName(kInvoiceFields.Id(V::CustomerRef))); }
void TestInvoice::Memo(std::string_view value) { SetText(kInvoiceFields.Id(V::Memo), value); }
Address& TestInvoice::BillTo() { return static_cast<Address&>(Nested(kInvoiceFields.Id(V::BillAddress))); }
ChildList<TestItemLine> TestInvoice::ItemLines() {
  return ChildList<TestItemLine>(ChildrenOf(kInvoiceFields.Id(V::Lines)));
}
Currency TestInvoice::Subtotal() const { return Amount(kInvoiceFields.Id(V::Subtotal)); }

void TestInvoice::CheckLines(zkErrors& errors, ValidateContext&) {
  const ChildListBase* lines = FindChildren(kInvoiceFields.Id(V::Lines));
  if (!lines || lines->Count() == 0) errors.AddCode(2022, "");
}

const RecordDecl& TestBill::Declaration() { return kBillDecl; }
void TestBill::Vendor(std::string_view fullName) { SetRefName(kBillFields.Id(B::VendorRef), fullName); }
ChildList<TestItemLine> TestBill::ItemLines() { return ChildList<TestItemLine>(ChildrenOf(kBillFields.Id(B::Lines))); }

}  // namespace brenvale::testing

#include "brenvale/lists/Account.hpp"

#include <unordered_set>
#include <vector>

#include "brenvale/model/Lists.hpp"

namespace brenvale {
namespace {

// The tax line QuickBooks reports an account on: read only.
struct T {
  static constexpr FieldDef TaxLineID = field::Int("TaxLineID");
  static constexpr FieldDef TaxLineName = field::Text("TaxLineName");
};
constexpr auto kTaxLineFields = Fields(T::TaxLineID, T::TaxLineName);
constexpr auto kTaxLineRead = kTaxLineFields.Order(T::TaxLineID, T::TaxLineName);
constexpr RecordDecl kTaxLineDecl{.label = "Account",
                                  .fields = kTaxLineFields.fields,
                                  .read = kTaxLineRead,
                                  .make = [](const RecordDecl& d) { return new RecordCore(d); }};
const RecordDecl& TaxLineInfo() { return kTaxLineDecl; }

bool OutsideUS(const WriteContext& c, const RecordCore&) { return c.UsesTaxCodes(); }

struct F {
  static constexpr FieldDef AccountType = field::Enum("AccountType", zqeAccountType);
  // QuickBooks Online's: read, never written to a desktop edition.
  static constexpr FieldDef DetailAccountType = field::Text("DetailAccountType");
  static constexpr FieldDef SpecialAccountType = field::Enum("SpecialAccountType", zqeSpecialAcountType);
  static constexpr FieldDef AccountNumber = field::Text("AccountNumber");
  static constexpr FieldDef BankNumber = field::Text("BankNumber");
  static constexpr FieldDef LastCheckNumber = field::Text("LastCheckNumber");
  static constexpr FieldDef Desc = field::Text("Desc");
  static constexpr FieldDef Balance = field::Amount("Balance");
  static constexpr FieldDef TotalBalance = field::Amount("TotalBalance");
  // The US desktop has no tax code on an account: written only to the other editions.
  static constexpr FieldDef SalesTaxCodeRef =
      field::Ref("SalesTaxCodeRef", zqListTypeSalesTaxCode).Since(6, 0).When(OutsideUS);
  static constexpr FieldDef TaxLineInfoRet = field::Aggregate("TaxLineInfoRet", &TaxLineInfo);
  static constexpr FieldDef CashFlowClassification = field::Enum("CashFlowClassification", zqeCashFlowClassification);
  static constexpr FieldDef CurrencyRef = field::Ref("CurrencyRef", zqListTypeCurrency).Since(8, 0).FixedAfterAdd();
  static constexpr FieldDef OpenBalance = field::Amount("OpenBalance").FixedAfterAdd();
  static constexpr FieldDef OpenBalanceDate = field::Date("OpenBalanceDate").FixedAfterAdd();
};

constexpr auto kFields =
    ListFields(F::AccountType, F::DetailAccountType, F::SpecialAccountType, F::AccountNumber, F::BankNumber,
               F::LastCheckNumber, F::Desc, F::Balance, F::TotalBalance, F::SalesTaxCodeRef, F::TaxLineInfoRet,
               F::CashFlowClassification, F::CurrencyRef, F::OpenBalance, F::OpenBalanceDate);
// The tax code and the currency come after the opening balance, as the schema orders them.
constexpr auto kAdd = kFields.Order(ListBase::Name, ListBase::IsActive, ListBase::ParentRef, F::AccountType,
                                    F::AccountNumber, F::BankNumber, F::Desc, F::OpenBalance, F::OpenBalanceDate,
                                    F::SalesTaxCodeRef, F::CurrencyRef);
// What QuickBooks lets change: the opening balance (a posting of its own) and the currency are
// given when the account is added.
constexpr auto kMod = kFields.Order(ListBase::Name, ListBase::IsActive, ListBase::ParentRef, F::AccountType,
                                    F::AccountNumber, F::BankNumber, F::Desc, F::SalesTaxCodeRef);
constexpr auto kRead =
    ListRead(kFields, F::AccountType, F::DetailAccountType, F::SpecialAccountType, F::AccountNumber, F::BankNumber,
             F::LastCheckNumber, F::Desc, F::Balance, F::TotalBalance, F::SalesTaxCodeRef, F::TaxLineInfoRet,
             F::CashFlowClassification, F::CurrencyRef, F::OpenBalance, F::OpenBalanceDate);
// The parent must exist (1010) and be an account of the same type (1303). An account without a
// type cannot be written at all: QuickBooks requires one.
constexpr Rule kRules[] = {
    kFields.NotEmpty(ListBase::Name, 1012, "Name"),
    kFields.MaxLength(ListBase::Name, 31, 1013, "Name"),
    kFields.Exists(ListBase::ParentRef, 1010, "Parent").UncheckedFails().Alike(kFields.Id(F::AccountType), 1303),
    kFields.MaxLength(F::AccountNumber, 7, 1300, "Number"),
    kFields.MaxLength(F::BankNumber, 25, 1301, "BankNumber"),
    kFields.MaxLength(F::Desc, 29, 1302, "Description"),
    kFields.NotEmpty(F::AccountType, 1007, "AccountType"),
};
constexpr ListFacts kFacts{.listType = zqListTypeAccount, .hierarchical = true, .key = ListKey::FullName};
constexpr RecordDecl kDecl{.label = "Account",
                           .xmlName = "Account",
                           .objectType = zqObjectTypeAccount,
                           .fields = kFields.fields,
                           .add = kAdd,
                           .mod = kMod,
                           .read = kRead,
                           .rules = kRules,
                           .list = &kFacts,
                           .dataExt = true};

constexpr FieldId kTaxLine = kFields.Id(F::TaxLineInfoRet);

}  // namespace

const RecordDecl& Account::Declaration() { return kDecl; }

qbEnumAccountType Account::AccountType() const {
  return static_cast<qbEnumAccountType>(EnumCode(kFields.Id(F::AccountType)));
}
void Account::AccountType(qbEnumAccountType value) { SetEnum(kFields.Id(F::AccountType), NarrowEnumCode(value)); }
std::string Account::AccountNumber() const { return Text(kFields.Id(F::AccountNumber)); }
void Account::AccountNumber(std::string_view value) { SetText(kFields.Id(F::AccountNumber), value); }
std::string Account::BankNumber() const { return Text(kFields.Id(F::BankNumber)); }
void Account::BankNumber(std::string_view value) { SetText(kFields.Id(F::BankNumber), value); }
std::string Account::Desc() const { return Text(kFields.Id(F::Desc)); }
void Account::Desc(std::string_view value) { SetText(kFields.Id(F::Desc), value); }
Currency Account::OpenBalance() const { return Amount(kFields.Id(F::OpenBalance)); }
void Account::OpenBalance(Currency value) { SetAmount(kFields.Id(F::OpenBalance), value); }
Date Account::OpenBalanceDate() const { return DateValue(kFields.Id(F::OpenBalanceDate)); }
void Account::OpenBalanceDate(Date value) { SetDate(kFields.Id(F::OpenBalanceDate), value); }
zkListObjectRef Account::TaxCodeRef() const { return Ref(kFields.Id(F::SalesTaxCodeRef)); }
void Account::TaxCodeRef(std::string_view fullName) { SetRefName(kFields.Id(F::SalesTaxCodeRef), fullName); }
zkListObjectRef Account::CurrencyRef() const { return Ref(kFields.Id(F::CurrencyRef)); }
void Account::CurrencyRef(std::string_view fullName) { SetRefName(kFields.Id(F::CurrencyRef), fullName); }

Currency Account::Balance() const { return Amount(kFields.Id(F::Balance)); }
Currency Account::TotalBalance() const { return Amount(kFields.Id(F::TotalBalance)); }
std::string Account::DetailAccountType() const { return Text(kFields.Id(F::DetailAccountType)); }
std::string Account::LastCheckNumber() const { return Text(kFields.Id(F::LastCheckNumber)); }
qbEnumSpecialAccountType Account::SpecialAccountType() const {
  return static_cast<qbEnumSpecialAccountType>(EnumCode(kFields.Id(F::SpecialAccountType)));
}
qbEnumCashFlowClassification Account::CashFlowClassification() const {
  return static_cast<qbEnumCashFlowClassification>(EnumCode(kFields.Id(F::CashFlowClassification)));
}
Long Account::TaxLineID() const {
  const RecordCore* line = FindNested(kTaxLine);
  const FieldValue id = line ? line->Value(kTaxLineFields.Id(T::TaxLineID)) : FieldValue();
  const auto* number = std::get_if<std::int64_t>(&id);
  return number ? static_cast<Long>(*number) : 0;
}
std::string Account::TaxLineName() const {
  const RecordCore* line = FindNested(kTaxLine);
  return line ? line->ValueText(kTaxLineFields.Id(T::TaxLineName)) : std::string();
}

Currency Account::SumSubAccountBalances() {
  zkList* master = TheLists().Master(zqListTypeAccount);
  return master ? SumSubAccountBalances(*master) : Balance();
}

Currency Account::SumSubAccountBalances(zkList& within) {
  // Depth first through the children the collection linked; a record is counted once even if a
  // damaged hierarchy named it twice.
  Currency sum = Balance();
  std::vector<Account*> pending{this};
  std::unordered_set<const Account*> counted{this};
  while (!pending.empty()) {
    Account* account = pending.back();
    pending.pop_back();
    for (const zkListObjectRef& child : account->Children()) {
      auto* sub = dynamic_cast<Account*>(within.Find(child.FullName()));
      if (!sub || !counted.insert(sub).second) continue;
      sum += sub->Balance();
      pending.push_back(sub);
    }
  }
  return sum;
}

}  // namespace brenvale

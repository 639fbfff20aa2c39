#include "brenvale/lists/vndBillToPay.hpp"

namespace brenvale {
namespace {
struct F {
  static constexpr FieldDef TxnID = field::Text("TxnID");
  static constexpr FieldDef TxnType = field::Text("TxnType");
  static constexpr FieldDef APAccountRef = field::Ref("APAccountRef", zqListTypeAccount);
  static constexpr FieldDef TxnDate = field::Date("TxnDate");
  static constexpr FieldDef RefNumber = field::Text("RefNumber");
  static constexpr FieldDef DueDate = field::Date("DueDate");
  static constexpr FieldDef AmountDue = field::Amount("AmountDue");
  static constexpr FieldDef CreditRemaining = field::Amount("CreditRemaining");
};
constexpr auto kFields = Fields(F::TxnID, F::TxnType, F::APAccountRef, F::TxnDate, F::RefNumber, F::DueDate,
                                F::AmountDue, F::CreditRemaining);
// A "BillToPay" or a "CreditToApply": the same elements, the amount under its own name.
constexpr auto kRead = kFields.Order(F::TxnID, F::TxnType, F::APAccountRef, F::TxnDate, F::RefNumber, F::DueDate,
                                     F::AmountDue, F::CreditRemaining);
constexpr RecordDecl kDecl{.label = "Vendor", .fields = kFields.fields, .read = kRead};
}  // namespace

const RecordDecl& vndBillToPay::Declaration() { return kDecl; }

bool vndBillToPay::IsCredit() const { return Has(kFields.Id(F::CreditRemaining)); }
std::string vndBillToPay::TxnID() const { return Text(kFields.Id(F::TxnID)); }
std::string vndBillToPay::TxnType() const { return Text(kFields.Id(F::TxnType)); }
zkListObjectRef vndBillToPay::APAccountRef() const { return Ref(kFields.Id(F::APAccountRef)); }
Date vndBillToPay::TxnDate() const { return DateValue(kFields.Id(F::TxnDate)); }
std::string vndBillToPay::RefNumber() const { return Text(kFields.Id(F::RefNumber)); }
Date vndBillToPay::DueDate() const { return DateValue(kFields.Id(F::DueDate)); }
Currency vndBillToPay::AmountDue() const {
  return IsCredit() ? Amount(kFields.Id(F::CreditRemaining)) : Amount(kFields.Id(F::AmountDue));
}

}  // namespace brenvale

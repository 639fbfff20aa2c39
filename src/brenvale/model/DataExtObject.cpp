#include "brenvale/model/DataExtObject.hpp"

#include <array>

namespace brenvale {
namespace {

using F = DataExtRefForm;

// QuickBooks' "AssignToObject" values the library has a kind for (it has none for the credit card
// refund, "ARRefundCreditCard"). List objects are named by "ListDataExtType", the company by
// "OtherDataExtType", the others by "TxnDataExtType".
constexpr std::array<DataExtObject, 28> kObjects{{
    {zqObjectTypeAccount, "Account", F::List},
    {zqObjectTypeBill, "Bill", F::Txn},
    {zqObjectTypeBillPaymentCheck, "BillPaymentCheck", F::Txn},
    {zqObjectTypeBillPaymentCreditCard, "BillPaymentCreditCard", F::Txn},
    {zqObjectTypeBuildAssembly, "BuildAssembly", F::Txn},
    {zqObjectTypeCharge, "Charge", F::Txn},
    {zqObjectTypeCheck, "Check", F::Txn},
    {zqObjectTypeCompany, "Company", F::Company},
    {zqObjectTypeCreditCardCharge, "CreditCardCharge", F::Txn},
    {zqObjectTypeCreditCardCredit, "CreditCardCredit", F::Txn},
    {zqObjectTypeCreditMemo, "CreditMemo", F::Txn},
    {zqObjectTypeCustomer, "Customer", F::List},
    {zqObjectTypeDeposit, "Deposit", F::Txn},
    {zqObjectTypeEmployee, "Employee", F::List},
    {zqObjectTypeEstimate, "Estimate", F::Txn},
    {zqObjectTypeInventoryAdjustment, "InventoryAdjustment", F::Txn},
    {zqObjectTypeInvoice, "Invoice", F::Txn},
    {zqObjectTypeItem, "Item", F::List},
    {zqObjectTypeItemReceipt, "ItemReceipt", F::Txn},
    {zqObjectTypeJournalEntry, "JournalEntry", F::Txn},
    {zqObjectTypeOtherName, "OtherName", F::List},
    {zqObjectTypePurchaseOrder, "PurchaseOrder", F::Txn},
    {zqObjectTypeReceivePayment, "ReceivePayment", F::Txn},
    {zqObjectTypeSalesOrder, "SalesOrder", F::Txn},
    {zqObjectTypeSalesReceipt, "SalesReceipt", F::Txn},
    {zqObjectTypeSalesTaxPaymentCheck, "SalesTaxPaymentCheck", F::Txn},
    {zqObjectTypeVendor, "Vendor", F::List},
    {zqObjectTypeVendorCredit, "VendorCredit", F::Txn},
}};

}  // namespace

std::span<const DataExtObject> DataExtObjects() { return kObjects; }

DataExtObject DataExtObjectOf(zqEnumListObjectType type) {
  if (IsItemObjectType(type)) type = zqObjectTypeItem;
  for (const DataExtObject& o : kObjects)
    if (o.type == type) return o;
  return {};
}

DataExtObject DataExtObjectNamed(std::string_view tag) {
  for (const DataExtObject& o : kObjects)
    if (o.tag == tag) return o;
  return {};
}

}  // namespace brenvale

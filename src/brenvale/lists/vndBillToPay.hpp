#pragma once
// One of a vendor's open bills, or a credit the vendor has given that a bill payment can apply, as
// Vendor::GetBillsAndCredits reads them from QuickBooks' bills-to-pay answer.
#include <string>

#include "brenvale/model/RecordCore.hpp"

namespace brenvale {

class vndBillToPay : public RecordCore {
 public:
  vndBillToPay() : RecordCore(Declaration()) {}
  static const RecordDecl& Declaration();

  // A credit to apply rather than a bill to pay.
  bool IsCredit() const;
  std::string TxnID() const;
  // "Bill", "VendorCredit", "Check" ...
  std::string TxnType() const;
  zkListObjectRef APAccountRef() const;
  Date TxnDate() const;
  std::string RefNumber() const;
  // A bill's due date; the null date for a credit.
  Date DueDate() const;
  // What is left to pay on a bill, or left to apply of a credit.
  Currency AmountDue() const;
};

}  // namespace brenvale

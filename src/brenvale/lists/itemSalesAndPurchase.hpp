#pragma once
// The price block of an item both sold and bought: the sales description, price and income account,
// the purchase description, cost and expense account, and the preferred vendor. Written as
// "SalesAndPurchase" in an add and as "SalesAndPurchaseMod", without the accounts, in a modify.
#include <string>
#include <string_view>

#include "brenvale/model/RecordCore.hpp"

namespace brenvale {

class itemSalesAndPurchase : public RecordCore {
 public:
  itemSalesAndPurchase() : RecordCore(Declaration()) {}
  static const RecordDecl& Declaration();

  std::string SalesDesc() const;
  void SalesDesc(std::string_view value);
  double SalesPrice() const;
  void SalesPrice(double value);
  // The accounts are given when the item is added (1002 once it exists).
  zkListObjectRef IncomeAccountRef() const;
  void IncomeAccountRef(std::string_view fullName);
  std::string PurchaseDesc() const;
  void PurchaseDesc(std::string_view value);
  double PurchaseCost() const;
  void PurchaseCost(double value);
  // The tax code of purchases, in editions that keep tax codes (outside the US); never written to a
  // US company.
  zkListObjectRef PurchaseTaxCodeRef() const;
  void PurchaseTaxCodeRef(std::string_view fullName);
  zkListObjectRef ExpenseAccountRef() const;
  void ExpenseAccountRef(std::string_view fullName);
  zkListObjectRef PrefVendorRef() const;
  void PrefVendorRef(std::string_view fullName);
};

}  // namespace brenvale

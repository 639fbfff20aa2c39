#pragma once
// An account of the chart of accounts: hierarchical (a sub-account has a parent of its own type),
// typed, with balances QuickBooks reports.
#include <string>
#include <string_view>

#include "brenvale/core/Currency.hpp"
#include "brenvale/core/Date.hpp"
#include "brenvale/core/EnumTypes.hpp"
#include "brenvale/model/ListRecord.hpp"

namespace brenvale {

class zkList;

class Account : public HierarchicalRecord {
 public:
  Account() : HierarchicalRecord(Declaration()) {}
  static const RecordDecl& Declaration();

  // 0 while unset; an unknown code raises 1007.
  qbEnumAccountType AccountType() const;
  void AccountType(qbEnumAccountType value);
  std::string AccountNumber() const;
  void AccountNumber(std::string_view value);
  std::string BankNumber() const;
  void BankNumber(std::string_view value);
  std::string Desc() const;
  void Desc(std::string_view value);
  // Set when the account is added (1002 afterwards); QuickBooks posts it against Opening Balance
  // Equity on that date.
  Currency OpenBalance() const;
  void OpenBalance(Currency value);
  Date OpenBalanceDate() const;
  void OpenBalanceDate(Date value);
  // The sales tax code of editions outside the US (written there only).
  zkListObjectRef TaxCodeRef() const;
  void TaxCodeRef(std::string_view fullName);
  // The account's currency (multicurrency companies); set when the account is added.
  zkListObjectRef CurrencyRef() const;
  void CurrencyRef(std::string_view fullName);

  // --- what QuickBooks reports ----------------------------------------------------------------
  // The account's own balance, and with its sub-accounts.
  Currency Balance() const;
  Currency TotalBalance() const;
  std::string DetailAccountType() const;
  std::string LastCheckNumber() const;
  // 0 when QuickBooks keeps no such account for its own use.
  qbEnumSpecialAccountType SpecialAccountType() const;
  qbEnumCashFlowClassification CashFlowClassification() const;
  // The tax line the account is reported on (0 and empty when none).
  Long TaxLineID() const;
  std::string TaxLineName() const;

  // The account's Balance plus the Balance of every sub-account beneath it, to any depth, as the
  // collection `within` holds them (the master collection of accounts when none is given).
  Currency SumSubAccountBalances();
  Currency SumSubAccountBalances(zkList& within);
};

}  // namespace brenvale

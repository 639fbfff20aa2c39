#pragma once
#include <string_view>

#include "brenvale/lists/Account.hpp"
#include "brenvale/model/ListCollection.hpp"

namespace brenvale {

// The chart of accounts, filed by full name.
class Accounts : public ListCollection<Account> {
 public:
  using ListCollection::ListCollection;

  // A new account; a type of 0 leaves it unset, an opening balance of 0 is not written.
  Account& Add(std::string_view Name = {}, bool IsActive = true, std::string_view ParentFullName = {},
               qbEnumAccountType AccountType = qbEnumAccountType{}, std::string_view AccountNumber = {},
               std::string_view BankNumber = {}, std::string_view Desc = {}, Currency OpenBalance = {},
               Date OpenBalanceDate = Date());
  // The account's balance with its sub-accounts', as this collection holds them.
  Currency SumSubAccountBalances(Account& account) { return account.SumSubAccountBalances(*this); }
};

}  // namespace brenvale

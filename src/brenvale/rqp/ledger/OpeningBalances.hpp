#pragma once
// Opening balances, posted as QuickBooks posts them: one transaction per record, dated the
// opening-balance date. A customer's is owed on Accounts Receivable against Uncategorized Income, a
// vendor's owed on Accounts Payable against Uncategorized Expenses, an account's set against
// Opening Balance Equity, and the stock an inventory item starts with is put on its asset account
// against Opening Balance Equity.
#include <cstdint>
#include <string>
#include <string_view>

#include "brenvale/rqp/ledger/Ledger.hpp"

namespace brenvale::rqp::detail {

// The transaction type of opening balances; the transaction's ID is the record's ListID.
inline constexpr std::string_view kOpeningBalance = "OpeningBalance";

struct OpeningBalance {
  enum class Of { Customer, Vendor, Account, Stock };
  Of of = Of::Customer;
  std::string listId;        // the customer, vendor, account or item
  std::string date;          // "2024-01-31"
  std::int64_t amount = 0;   // the balance (on the account type's side), or the stock's value
  std::string accountType;   // Account: its type
  std::string assetAccount;  // Stock: the item's asset account
  std::int64_t quantity = 0;  // Stock: how many
};

// Posts `ob` in place of the record's earlier opening balance; nothing when it is zero.
void PostOpeningBalance(Ledger& ledger, const OpeningBalance& ob);

}  // namespace brenvale::rqp::detail

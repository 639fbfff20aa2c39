#pragma once
// The ledger: what every transaction moves, as postings to accounts (debits positive, credits
// negative), written in the same SQLite transaction as the record that caused them. The postings of
// one transaction always sum to zero. Balances, quantities on hand and average costs are sums over
// postings, computed by SQL when they are asked for; nothing keeps a running total.
//
// The ledger knows the company file's tables and nothing of requests or of how records are kept:
// lists and transactions post through it and take the SQL of their balances from it.
#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "brenvale/rqp/store/Store.hpp"

namespace brenvale::rqp::detail {

// Amounts and quantities are in hundred-thousandths, like every number the engine reads.
struct Posting {
  std::string account;                   // the account's ListID
  std::int64_t amount = 0;               // debit positive, credit negative
  std::optional<std::int64_t> quantity;  // stock moved in (positive) or out: inventory postings only
  std::string entity;                    // the customer, vendor, employee or other name it is for
  std::string item;
  std::string cls;
};

// What one transaction posts.
struct LedgerEntry {
  std::string txnType;  // "OpeningBalance", "Invoice" ...
  std::string txnId;    // with the type, the transaction
  std::string date;     // "2024-01-31"
  std::vector<Posting> postings;
};

// What one transaction leaves open on an account for an entity: the sum of its postings there.
struct OpenAmount {
  std::string txnType, txnId, account, date;
  std::int64_t amount = 0;  // debit positive, credit negative
};

// Postings that do not sum to zero, or a company without an account QuickBooks always has: a fault
// of the engine, never of a request.
class LedgerError : public std::logic_error {
 public:
  using std::logic_error::logic_error;
};

class Ledger {
 public:
  explicit Ledger(Store& store) : store_(store) {}

  // Writes what `entry` posts in place of everything its transaction posted before (an entry
  // without postings takes the transaction out of the ledger). Throws LedgerError, writing nothing,
  // when the postings do not sum to zero or name no account.
  void Post(const LedgerEntry& entry);
  // The date of a transaction's postings; nullopt when it posted nothing.
  std::optional<std::string> DateOf(std::string_view txnType, std::string_view txnId);
  // Moves every posting of a transaction to `date`.
  void Redate(std::string_view txnType, std::string_view txnId, std::string_view date);
  // The ListID of the account QuickBooks keeps for `special` ("AccountsReceivable",
  // "OpeningBalanceEquity"). Throws LedgerError when the company has none.
  std::string SpecialAccount(std::string_view special);
  // What each transaction leaves open for `entity` on each of `accounts` (ListIDs), oldest first;
  // transactions that left nothing open are not listed.
  std::vector<OpenAmount> OpenAmounts(std::string_view entity, const std::vector<std::string>& accounts);
  // "type id: sum" of every transaction whose postings do not sum to zero (there are none).
  std::vector<std::string> Unbalanced();

 private:
  Store& store_;
};

// Account types: the side a balance is on (assets and expenses debit, liabilities, equity and
// income credit), and whether QuickBooks' chart of accounts shows a balance for the type (balance
// sheet accounts; income, cost, expense and non-posting accounts show none).
bool CreditNormal(std::string_view accountType);
bool CarriesBalance(std::string_view accountType);

// SQL expressions over one row of the `records` table (named `records` in the statement), for what
// QuickBooks computes in a Ret and for the query filters on it. Amounts in hundred-thousandths.
//
// An entity's balance: its postings to accounts of `accountType` (with its sub-records' when
// `withSubRecords`: a customer's jobs), on that type's side.
std::string EntityBalanceSql(std::string_view accountType, bool withSubRecords);
// An account's balance (with its sub-accounts' to any depth when `withSubAccounts`), on its type's
// side; 0 for a type that carries no balance.
std::string AccountBalanceSql(bool withSubAccounts);
// An item's quantity on hand and the average cost of it.
std::string QuantityOnHandSql();
std::string AverageCostSql();

}  // namespace brenvale::rqp::detail

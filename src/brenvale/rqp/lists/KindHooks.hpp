#pragma once
// What some list kinds compute on their own, as hooks on their declaration (ListKinds.cpp).
#include "brenvale/rqp/records/Kind.hpp"

namespace brenvale::rqp::detail {

// Customers, vendors and accounts: an opening balance is posted to the ledger.
void PostsOpeningBalance(RecordChange& c);
// Accounts: a sub-account has its parent's type, and what QuickBooks keeps for its own purposes
// keeps its type.
void AccountTree(RecordChange& c);
// Accounts: a tax line ID becomes the tax line aggregate.
void AccountTaxLine(RecordChange& c);
// Accounts: listed by type in chart-of-accounts order, with the cash flow classification of the type.
void AccountOrderAndCashFlow(RecordChange& c);
// Employees are named by their name parts.
void EmployeeName(RecordChange& c);
// Items: the bar code given becomes the bar code value.
void ItemBarCode(RecordChange& c);
// Inventory: its accounts default to the company's inventory asset and cost of goods sold accounts,
// and the stock it starts with is posted to the ledger.
void InventoryStart(RecordChange& c);
// Assemblies: no assembly is built from itself, through its components or directly.
void AssemblyComponents(RecordChange& c);
// Price levels and billing rates: which form they take, and per-item adjustments turned into prices.
void PerItemPrices(RecordChange& c);

// Accounts QuickBooks uses for its own purposes cannot be deleted.
std::optional<std::string> KeepSpecialAccounts(const Record& r);

}  // namespace brenvale::rqp::detail

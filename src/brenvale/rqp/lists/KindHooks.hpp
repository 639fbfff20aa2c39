#pragma once
// What some list kinds compute on their own, as hooks on their declaration (ListKinds.cpp).
#include "brenvale/rqp/records/Kind.hpp"

namespace brenvale::rqp::detail {

// Customers, vendors and accounts: an opening balance becomes the balance.
void OpeningBalance(RecordChange& c);
// Accounts: a tax line ID becomes the tax line aggregate.
void AccountTaxLine(RecordChange& c);
// Accounts: listed by type in chart-of-accounts order, with the cash flow classification of the type.
void AccountOrderAndCashFlow(RecordChange& c);
// Employees are named by their name parts.
void EmployeeName(RecordChange& c);
// Items: the bar code given becomes the bar code value.
void ItemBarCode(RecordChange& c);
// Inventory starts with the average cost of its starting quantity and value.
void InventoryStart(RecordChange& c);
// Price levels and billing rates: which form they take, and per-item adjustments turned into prices.
void PerItemPrices(RecordChange& c);

// Accounts QuickBooks uses for its own purposes cannot be deleted.
std::optional<std::string> KeepSpecialAccounts(const Record& r);

}  // namespace brenvale::rqp::detail

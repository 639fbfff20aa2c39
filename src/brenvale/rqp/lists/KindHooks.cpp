#include "brenvale/rqp/lists/KindHooks.hpp"

#include <algorithm>
#include <cmath>

#include "brenvale/rqp/ledger/OpeningBalances.hpp"
#include "brenvale/rqp/records/Records.hpp"

namespace brenvale::rqp::detail {
namespace {

std::string Text(pugi::xml_node n) { return n.text().get(); }

// The text of a simple element at the top of a stored Ret element.
std::string StoredValue(std::string_view ret, std::string_view element) {
  std::string open = "<" + std::string(element) + ">";
  auto at = ret.find(open);
  if (at == std::string_view::npos) return {};
  at += open.size();
  return std::string(ret.substr(at, ret.find('<', at) - at));
}

// Account types in chart-of-accounts order, with the section of a statement of cash flows QuickBooks
// puts each in (cash itself and the profit-and-loss accounts are in none).
struct AccountTypeRow {
  std::string_view type;
  std::string_view cashFlow;
};
constexpr AccountTypeRow kAccountTypes[] = {
    {"Bank", "NotApplicable"},
    {"AccountsReceivable", "Operating"},
    {"OtherCurrentAsset", "Operating"},
    {"FixedAsset", "Investing"},
    {"OtherAsset", "Investing"},
    {"AccountsPayable", "Operating"},
    {"CreditCard", "Operating"},
    {"OtherCurrentLiability", "Operating"},
    {"LongTermLiability", "Financing"},
    {"Equity", "Financing"},
    {"Income", "NotApplicable"},
    {"CostOfGoodsSold", "NotApplicable"},
    {"Expense", "NotApplicable"},
    {"OtherIncome", "NotApplicable"},
    {"OtherExpense", "NotApplicable"},
    {"NonPosting", "NotApplicable"},
};

}  // namespace

void PostsOpeningBalance(RecordChange& c) {
  auto amount = c.in.child("OpenBalance"), date = c.in.child("OpenBalanceDate");
  if (c.rebuilding || (!amount && !date)) return;
  using Of = OpeningBalance::Of;
  OpeningBalance ob;
  ob.of = c.kind.base == "Customer" ? Of::Customer : c.kind.base == "Vendor" ? Of::Vendor : Of::Account;
  ob.listId = c.row.listId;
  ob.amount = Amount(amount).value_or(0);
  if (ob.of == Of::Account) {
    ob.accountType = Text(c.ret.child("AccountType"));
    // Receivables and payables are owed by someone: their balances come from invoices and bills.
    if (ob.amount != 0 && (ob.accountType == "AccountsReceivable" || ob.accountType == "AccountsPayable" ||
                           ob.accountType == "NonPosting"))
      throw ListError(c.kind, c.isAdd, Text(c.ret.child("Name")), 3180,
                      "An opening balance cannot be entered for an account of this type.");
  }
  Ledger ledger(c.co.Data());
  auto posted = ledger.DateOf(kOpeningBalance, ob.listId);
  ob.date = !Text(date).empty() ? Text(date) : posted ? *posted : c.co.TodayText();
  if (amount) PostOpeningBalance(ledger, ob);
  else if (posted) ledger.Redate(kOpeningBalance, ob.listId, ob.date);
}

void AccountTree(RecordChange& c) {
  if (c.rebuilding) return;
  std::string type = Text(c.ret.child("AccountType"));
  auto refuse = [&](const char* why) { throw ListError(c.kind, c.isAdd, Text(c.ret.child("Name")), 3180, why); };
  std::string parentId = Text(c.ret.child("ParentRef").child("ListID"));
  if (auto parent = parentId.empty() ? std::nullopt : c.co.Data().ById(parentId);
      parent && StoredValue(parent->ret, "AccountType") != type)
    refuse("A subaccount must be of the same type as its parent account.");
  if (c.isAdd || StoredValue(c.row.ret, "AccountType") == type) return;
  if (c.ret.child("SpecialAccountType")) refuse("QuickBooks uses this account for its own purposes; its type cannot be changed.");
  for (auto& child : c.co.Data().Children(c.row.listId))
    if (StoredValue(child.ret, "AccountType") != type)
      refuse("The type of an account with subaccounts cannot be changed.");
}

void AccountTaxLine(RecordChange& c) {
  auto line = c.in.child("TaxLineID");
  if (!line) return;
  if (auto old = c.ret.child("TaxLineInfoRet")) c.ret.remove_child(old);
  if (!Text(line).empty()) c.ret.append_child("TaxLineInfoRet").append_child("TaxLineID").text().set(Text(line).c_str());
}

void AccountOrderAndCashFlow(RecordChange& c) {
  std::string type = Text(c.ret.child("AccountType"));
  auto row = std::find_if(std::begin(kAccountTypes), std::end(kAccountTypes), [&](auto& r) { return r.type == type; });
  c.row.sortGroup = static_cast<int>(row - std::begin(kAccountTypes));
  if (row != std::end(kAccountTypes)) SetChild(c.ret, "CashFlowClassification", std::string(row->cashFlow));
}

void EmployeeName(RecordChange& c) {
  std::string name;
  for (const char* part : {"FirstName", "MiddleName", "LastName"}) {
    std::string v = Text(c.ret.child(part));
    if (v.empty()) continue;
    if (!name.empty()) name += ' ';
    name += v;
  }
  if (!name.empty()) SetChild(c.ret, "Name", name);
}

void ItemBarCode(RecordChange& c) {
  if (auto bc = c.in.child("BarCode")) SetChild(c.ret, "BarCodeValue", Text(bc.child("BarCodeValue")));
}

void InventoryStart(RecordChange& c) {
  if (!c.isAdd || c.rebuilding) return;
  Ledger ledger(c.co.Data());
  for (auto [ref, special] : {std::pair{"AssetAccountRef", "InventoryAssets"}, {"COGSAccountRef", "CostOfGoodsSold"}})
    if (!c.ret.child(ref)) c.ret.append_child(ref).append_child("ListID").text().set(ledger.SpecialAccount(special).c_str());
  OpeningBalance ob;
  ob.of = OpeningBalance::Of::Stock;
  ob.listId = c.row.listId;
  ob.quantity = Amount(c.in.child("QuantityOnHand")).value_or(0);
  // Without a value the stock is worth its quantity at the purchase cost, to the cent.
  auto value = Amount(c.in.child("TotalValue"));
  ob.amount = value ? *value
                    : static_cast<std::int64_t>(std::llround(static_cast<long double>(ob.quantity) *
                                                             Amount(c.ret.child("PurchaseCost")).value_or(0) /
                                                             100000.0L / 1000.0L)) * 1000;
  ob.assetAccount = Text(c.ret.child("AssetAccountRef").child("ListID"));
  ob.date = Text(c.in.child("InventoryDate"));
  if (ob.date.empty()) ob.date = c.co.TodayText();
  PostOpeningBalance(ledger, ob);
}

void AssemblyComponents(RecordChange& c) {
  if (c.isAdd || c.rebuilding || !c.in.child("ItemInventoryAssemblyLine")) return;
  std::vector<std::string> parts;
  for (auto line : c.ret.children("ItemInventoryAssemblyLine"))
    parts.push_back(Text(line.child("ItemInventoryRef").child("ListID")));
  if (std::find(parts.begin(), parts.end(), c.row.listId) == parts.end()) {
    // The components of the components, to any depth, as the stored assemblies name them.
    auto& s = c.co.Data().Db().Prepare(
        "WITH RECURSIVE part(id) AS (SELECT value FROM json_each(?1) UNION SELECT f.target FROM part "
        "JOIN records r ON r.list_id = part.id JOIN refs f ON f.source = r.id AND f.field = 'ItemInventoryRef') "
        "SELECT 1 FROM part WHERE id = ?2 LIMIT 1");
    s.Bind(1, JsonArray(parts)).Bind(2, c.row.listId);
    bool cycle = s.Step();
    s.Reset();
    if (!cycle) return;
  }
  throw ListError(c.kind, false, Text(c.ret.child("Name")), 3180, "An assembly cannot be one of its own components.");
}

void PerItemPrices(RecordChange& c) {
  bool price = c.kind.base == "PriceLevel";
  bool fixed = c.ret.child(price ? "PriceLevelFixedPercentage" : "FixedBillingRate");
  SetChild(c.ret, price ? "PriceLevelType" : "BillingRateType",
           fixed ? (price ? "FixedPercentage" : "FixedRate") : "PerItem");
  const char* inLine = price ? "PriceLevelPerItem" : "BillingRatePerItem";
  const char* outLine = price ? "PriceLevelPerItemRet" : "BillingRatePerItemRet";
  auto outIt = c.ret.children(outLine).begin();
  for (auto line : c.in.children(inLine)) {
    if (outIt == c.ret.children(outLine).end()) break;
    pugi::xml_node target = *outIt++;
    auto pct = Amount(line.child("AdjustPercentage"));
    if (!pct) continue;
    std::string relative = Text(line.child(price ? "AdjustRelativeTo" : "AdjustBillingRateRelativeTo"));
    auto item = c.co.Data().ById(Text(target.child("ItemRef").child("ListID")));
    long long basis = 0;
    if (item) {
      pugi::xml_document idoc;
      idoc.load_string(item->ret.c_str());
      for (const char* n : {"SalesPrice", "Price", "PurchaseCost"}) {
        if (relative == "Cost" && std::string_view(n) != "PurchaseCost") continue;
        auto node = idoc.first_child().select_node((std::string(".//") + n).c_str()).node();
        if (auto v = Amount(node)) {
          basis = *v;
          break;
        }
      }
    }
    long long result = static_cast<long long>(static_cast<long double>(basis) * (1.0L + *pct / 10000000.0L));
    SetChild(target, price ? "CustomPrice" : "CustomRate", FormatDecimal(result, 2));
  }
}

std::optional<std::string> KeepSpecialAccounts(const Record& r) {
  if (r.ret.find("<SpecialAccountType>") == std::string::npos) return std::nullopt;
  return "QuickBooks uses this account for its own purposes; it cannot be deleted.";
}

}  // namespace brenvale::rqp::detail

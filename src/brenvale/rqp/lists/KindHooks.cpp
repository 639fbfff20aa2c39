#include "brenvale/rqp/lists/KindHooks.hpp"

#include <algorithm>

#include "brenvale/rqp/records/Records.hpp"

namespace brenvale::rqp::detail {
namespace {

std::string Text(pugi::xml_node n) { return n.text().get(); }

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

void OpeningBalance(RecordChange& c) {
  if (auto ob = c.in.child("OpenBalance")) SetChild(c.ret, "Balance", Text(ob).empty() ? "0.00" : Text(ob));
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
  if (!c.isAdd) return;
  auto qty = Amount(c.in.child("QuantityOnHand"));
  auto value = Amount(c.in.child("TotalValue"));
  if (qty && value && *qty != 0)
    SetChild(c.ret, "AverageCost",
             FormatDecimal(static_cast<long long>((static_cast<long double>(*value) / *qty) * 100000.0L), 2));
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

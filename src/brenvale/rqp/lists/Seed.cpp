// What a new QuickBooks company starts with in its lists: the accounts QuickBooks uses for its own
// purposes, currencies, payment methods, terms, customer messages, ship methods, sales tax codes and
// form templates.
#include "brenvale/rqp/lists/ListKinds.hpp"
#include "brenvale/rqp/protocol/Text.hpp"
#include "brenvale/rqp/records/Records.hpp"

namespace brenvale::rqp::detail {
namespace {

Record Seed(Context& co, std::string_view base, const std::string& body,
            const std::vector<std::pair<std::string, std::string>>& extra = {}) {
  pugi::xml_document doc;
  doc.load_string(("<Seed>" + body + "</Seed>").c_str());
  return AddListRecord(co, *KindByBase(base), doc.first_child(), extra);
}

std::string E(std::string_view tag, std::string_view text) {
  std::string out;
  AppendElement(out, tag, text);
  return out;
}

}  // namespace

void SeedStandardLists(Context& co) {
  const HostFacts& f = co.Facts();

  struct Account {
    const char* name;
    const char* type;
    const char* special;
  };
  static const Account accounts[] = {
      {"Accounts Receivable", "AccountsReceivable", "AccountsReceivable"},
      {"Undeposited Funds", "OtherCurrentAsset", "UndepositedFunds"},
      {"Inventory Asset", "OtherCurrentAsset", "InventoryAssets"},
      {"Accounts Payable", "AccountsPayable", "AccountsPayable"},
      {"Payroll Liabilities", "OtherCurrentLiability", "PayrollLiabilities"},
      {"Sales Tax Payable", "OtherCurrentLiability", "SalesTaxPayable"},
      {"Opening Balance Equity", "Equity", "OpeningBalanceEquity"},
      {"Retained Earnings", "Equity", "RetainedEarnings"},
      {"Uncategorized Income", "Income", "UncategorizedIncome"},
      {"Cost of Goods Sold", "CostOfGoodsSold", "CostOfGoodsSold"},
      {"Payroll Expenses", "Expense", "PayrollExpenses"},
      {"Reconciliation Discrepancies", "Expense", "ReconciliationDifferences"},
      {"Uncategorized Expenses", "Expense", "UncategorizedExpenses"},
      {"Estimates", "NonPosting", "Estimates"},
      {"Purchase Orders", "NonPosting", "PurchaseOrders"},
      {"Sales Orders", "NonPosting", "SalesOrders"},
  };
  for (auto& a : accounts)
    Seed(co, "Account", E("Name", a.name) + E("AccountType", a.type), {{"SpecialAccountType", a.special}});

  struct Currency {
    const char* name;
    const char* code;
  };
  static const Currency currencies[] = {
      {"US Dollar", "USD"},       {"Canadian Dollar", "CAD"}, {"British Pound Sterling", "GBP"},
      {"Euro", "EUR"},            {"Australian Dollar", "AUD"}, {"Mexican Peso", "MXN"},
      {"Japanese Yen", "JPY"},    {"Swiss Franc", "CHF"},      {"Chinese Yuan Renminbi", "CNY"},
      {"Indian Rupee", "INR"}};
  std::string home = f.Country == "CA" ? "CAD" : f.Country == "UK" ? "GBP" : "USD";
  for (auto& c : currencies) {
    Record r = Seed(co, "Currency", E("Name", c.name) + E("CurrencyCode", c.code), {{"IsUserDefinedCurrency", "false"}});
    if (home == c.code) co.Data().SetMeta("home currency", r.listId);
  }

  for (const char* m : {"American Express", "Cash", "Check", "Debit Card", "Discover", "E-Check", "Gift Card",
                        "MasterCard", "Visa"})
    Seed(co, "PaymentMethod", E("Name", m));
  for (const char* t : {"1% 10 Net 30", "2% 10 Net 30", "Due on receipt", "Net 15", "Net 30", "Net 60"}) {
    std::string_view n = t;
    std::string body = E("Name", t);
    if (n == "1% 10 Net 30" || n == "2% 10 Net 30")
      body += E("StdDueDays", "30") + E("StdDiscountDays", "10") + E("DiscountPct", std::string(n.substr(0, 1)) + ".00");
    else if (n != "Due on receipt")
      body += E("StdDueDays", n.substr(4));
    Seed(co, "StandardTerms", body);
  }
  for (const char* m : {"All work is complete!", "It's been a pleasure working with you!",
                        "Please remit to above address.", "Thank you for your business.",
                        "We appreciate your prompt payment."})
    Seed(co, "CustomerMsg", E("Name", m));
  for (const char* m : {"DHL", "Federal Express", "UPS", "USPS"}) Seed(co, "ShipMethod", E("Name", m));
  Seed(co, "SalesTaxCode", E("Name", "Tax") + E("IsTaxable", "true") + E("Desc", "Taxable Sales"));
  Seed(co, "SalesTaxCode", E("Name", "Non") + E("IsTaxable", "false") + E("Desc", "Non-Taxable Sales"));
  struct Template {
    const char* name;
    const char* type;
  };
  static const Template templates[] = {
      {"Attorney's Invoice", "Invoice"},        {"Custom Credit Memo", "CreditMemo"},
      {"Custom Estimate", "Estimate"},          {"Custom Purchase Order", "PurchaseOrder"},
      {"Custom Sales Order", "SalesOrder"},     {"Custom Sales Receipt", "SalesReceipt"},
      {"Intuit Product Invoice", "Invoice"},    {"Intuit Professional Invoice", "Invoice"},
      {"Intuit Service Invoice", "Invoice"},    {"Build Assembly", "BuildAssembly"}};
  for (auto& t : templates) Seed(co, "Template", E("Name", t.name) + E("TemplateType", t.type));
}

}  // namespace brenvale::rqp::detail

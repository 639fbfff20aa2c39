// HostQuery, CompanyQuery, CompanyActivityQuery and PreferencesQuery, and what a new company file
// starts with.
#include <filesystem>

#include "brenvale/rqp/detail/ListRecords.hpp"
#include "brenvale/rqp/detail/Text.hpp"

namespace brenvale::rqp::detail {
namespace {


void HandleHostQuery(Company& co, const Request& rq, Reply& reply) {
  const HostFacts& f = co.Facts();
  std::string ret = "<HostRet>";
  AppendElement(ret, "ProductName", f.ProductName);
  AppendElement(ret, "MajorVersion", std::to_string(f.MajorVersion));
  AppendElement(ret, "MinorVersion", std::to_string(f.MinorVersion));
  AppendElement(ret, "Country", f.Country);
  for (auto& v : f.SupportedVersions) AppendElement(ret, "SupportedQBXMLVersion", v);
  AppendElement(ret, "IsAutomaticLogin", f.IsAutomaticLogin ? "true" : "false");
  AppendElement(ret, "QBFileMode", co.SingleUser() ? "SingleUser" : "MultiUser");
  if (rq.node.child("IncludeListMetaData")) {
    ret += "<ListMetaData>";
    static const std::pair<const char*, int> capacities[] = {
        {"Account", 10000},     {"BillingRate", 10000}, {"Class", 10000},        {"CustomerMsg", 10000},
        {"CustomerType", 10000}, {"Entity", 14500},     {"Item", 14500},         {"JobType", 10000},
        {"PaymentMethod", 10000}, {"PayrollItem", 10000}, {"PriceLevel", 100},    {"SalesRep", 10000},
        {"SalesTaxCode", 10000}, {"ShipMethod", 10000}, {"Template", 10000},     {"Terms", 10000},
        {"ToDo", 10000},        {"Vehicle", 10000},     {"VendorType", 10000}};
    for (auto [name, max] : capacities)
      ret += std::string("<") + name + "MetaData><MaxCapacity>" + std::to_string(max) + "</MaxCapacity></" + name +
             "MetaData>";
    ret += "</ListMetaData>";
  }
  ret += "</HostRet>";
  WriteRecord(co, {}, ret, ChildTexts(rq.node, "IncludeRetElement"), {}, reply.body);
}

void HandleCompanyQuery(Company& co, const Request& rq, Reply& reply) {
  WriteRecord(co, "COMPANY", co.Data().Meta("CompanyRet").value_or("<CompanyRet></CompanyRet>"),
              ChildTexts(rq.node, "IncludeRetElement"), ChildTexts(rq.node, "OwnerID"), reply.body);
}

void HandleCompanyActivityQuery(Company& co, const Request& rq, Reply& reply) {
  std::string created = DateTimeText(std::stoll(co.Data().Meta("created").value_or("0")));
  std::string ret = "<CompanyActivityRet>";
  AppendElement(ret, "LastRestoreTime", created);
  AppendElement(ret, "LastCondenseTime", created);
  ret += "</CompanyActivityRet>";
  WriteRecord(co, {}, ret, ChildTexts(rq.node, "IncludeRetElement"), {}, reply.body);
}

void HandlePreferencesQuery(Company& co, const Request& rq, Reply& reply) {
  WriteRecord(co, {}, co.Data().Meta("PreferencesRet").value_or("<PreferencesRet></PreferencesRet>"),
              ChildTexts(rq.node, "IncludeRetElement"), {}, reply.body);
}

Record Seed(Company& co, std::string_view base, const std::string& body,
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

void SeedNewCompany(Company& co) {
  const HostFacts& f = co.Facts();
  co.Data().SetMeta("created", std::to_string(co.Now()));
  std::string name = std::filesystem::path(co.Path()).stem().string();

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
  Record homeCurrency;
  for (auto& c : currencies) {
    Record r = Seed(co, "Currency", E("Name", c.name) + E("CurrencyCode", c.code), {{"IsUserDefinedCurrency", "false"}});
    if (home == c.code) homeCurrency = r;
  }

  for (const char* m : {"American Express", "Cash", "Check", "Debit Card", "Discover", "E-Check", "Gift Card",
                        "MasterCard", "Visa"})
    Seed(co, "PaymentMethod", E("Name", m));
  for (const char* t : {"1% 10 Net 30", "2% 10 Net 30", "Due on receipt", "Net 15", "Net 30", "Net 60"}) {
    std::string_view n = t;
    std::string body = E("Name", t);
    if (n == "1% 10 Net 30" || n == "2% 10 Net 30")
      body += E("StdDueDays", "30") + E("StdDiscountDays", "10") + E("DiscountPct", n.substr(0, 1));
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

  std::string company = "<CompanyRet>" + E("IsSampleCompany", "false") + E("CompanyName", name) +
                        E("LegalCompanyName", name) + "<Address>" + E("Country", f.Country) + "</Address>" +
                        E("FirstMonthFiscalYear", "January") + E("FirstMonthIncomeTaxYear", "January") +
                        E("TaxForm", "OtherOrNone") + "<AccountantCopy>" + E("AccountantCopyExists", "false") +
                        "</AccountantCopy></CompanyRet>";
  co.Data().SetMeta("CompanyRet", company);

  std::string prefs =
      "<PreferencesRet><AccountingPreferences>" + E("IsUsingAccountNumbers", "false") +
      E("IsRequiringAccounts", "true") + E("IsUsingClassTracking", "false") + E("AssignClassesTo", "None") +
      E("IsUsingAuditTrail", "true") + E("IsAssigningJournalEntryNumbers", "true") +
      "</AccountingPreferences><FinanceChargePreferences>" + E("AnnualInterestRate", "0") +
      E("MinFinanceCharge", "0.00") + E("GracePeriod", "0") + E("IsAssessingForOverdueCharges", "false") +
      E("CalculateChargesFrom", "DueDate") + E("IsMarkedToBePrinted", "false") +
      "</FinanceChargePreferences><JobsAndEstimatesPreferences>" + E("IsUsingEstimates", "true") +
      E("IsUsingProgressInvoicing", "false") + E("IsPrintingItemsWithZeroAmounts", "false") +
      "</JobsAndEstimatesPreferences><MultiCurrencyPreferences>" + E("IsMultiCurrencyOn", "false") +
      "<HomeCurrencyRef>" + E("ListID", homeCurrency.listId) + E("FullName", homeCurrency.fullName) +
      "</HomeCurrencyRef></MultiCurrencyPreferences><MultiLocationInventoryPreferences>" +
      E("IsMultiLocationInventoryAvailable", "false") + E("IsMultiLocationInventoryEnabled", "false") +
      "</MultiLocationInventoryPreferences><PurchasesAndVendorsPreferences>" + E("IsUsingInventory", "true") +
      E("DaysBillsAreDue", "10") + E("IsAutomaticallyUsingDiscounts", "false") +
      "</PurchasesAndVendorsPreferences><ReportsPreferences>" + E("AgingReportBasis", "AgeFromDueDate") +
      E("SummaryReportBasis", "Accrual") + "</ReportsPreferences><SalesAndCustomersPreferences>" +
      E("IsTrackingReimbursedExpensesAsIncome", "false") + E("IsAutoApplyingPayments", "true") + "<PriceLevels>" +
      E("IsUsingPriceLevels", "true") + E("IsRoundingSalesPriceUp", "false") +
      "</PriceLevels></SalesAndCustomersPreferences><TimeTrackingPreferences>" + E("FirstDayOfWeek", "Monday") +
      "</TimeTrackingPreferences><CurrentAppAccessRights>" + E("IsAutomaticLoginAllowed", "false") +
      E("IsPersonalDataAccessAllowed", "true") + "</CurrentAppAccessRights></PreferencesRet>";
  co.Data().SetMeta("PreferencesRet", prefs);
}

void DeclareHostRequests(DeclBuilder& b) {
  b.Request("HostQueryRq", "IncludeListMetaData{IncludeMaxCapacity:b} IncludeRetElement*:s50");
  b.Request("CompanyQueryRq", "IncludeRetElement*:s50 OwnerID*:guid");
  b.Request("CompanyActivityQueryRq", "IncludeRetElement*:s50");
  b.Request("PreferencesQueryRq", "IncludeRetElement*:s50");
}

void AddHostHandlers(std::map<std::string, Handler, std::less<>>& table) {
  table["HostQueryRq"] = HandleHostQuery;
  table["CompanyQueryRq"] = HandleCompanyQuery;
  table["CompanyActivityQueryRq"] = HandleCompanyActivityQuery;
  table["PreferencesQueryRq"] = HandlePreferencesQuery;
}

}  // namespace brenvale::rqp::detail

// HostQuery, CompanyQuery, CompanyActivityQuery and PreferencesQuery, and the company and
// preferences a new company file starts with.
#include "brenvale/rqp/host/Host.hpp"

#include <filesystem>

#include "brenvale/rqp/protocol/Text.hpp"
#include "brenvale/rqp/protocol/Times.hpp"
#include "brenvale/rqp/records/RecordWriter.hpp"

namespace brenvale::rqp::detail {
namespace {

std::string E(std::string_view tag, std::string_view text) {
  std::string out;
  AppendElement(out, tag, text);
  return out;
}

// The lists QuickBooks reports a capacity for, with the capacity of the desktop editions.
constexpr std::pair<const char*, int> kCapacities[] = {
    {"Account", 10000},     {"BillingRate", 10000},   {"Class", 10000},      {"CustomerMsg", 10000},
    {"CustomerType", 10000}, {"Entity", 14500},       {"Item", 14500},       {"JobType", 10000},
    {"PaymentMethod", 10000}, {"PayrollItem", 10000}, {"PriceLevel", 100},   {"SalesRep", 10000},
    {"SalesTaxCode", 10000}, {"ShipMethod", 10000},   {"Template", 10000},   {"Terms", 10000},
    {"ToDo", 10000},        {"Vehicle", 10000},       {"VendorType", 10000}};

// The services a desktop company lists, none of them subscribed in a new one.
constexpr std::pair<const char*, const char*> kServices[] = {
    {"QuickBooks Online Banking", "banking.qb"},
    {"QuickBooks Online Billing", "billing.qb"},
    {"QuickBooks Online Billing Level 1 Service", "qbob1.qbn"},
    {"QuickBooks Online Billing Level 2 Service", "qbob2.qbn"},
    {"QuickBooks Online Billing Payment Service", "qbobpay.qbn"},
    {"QuickBooks Bill Payment", "billpay.qbn"},
    {"QuickBooks Payroll Service", "payroll.qb"},
    {"QuickBooks Basic Payroll Service", "payrollbsc.qb"},
    {"QuickBooks Basic Disk Payroll Service", "payrollbscdisk.qb"},
    {"QuickBooks Deluxe Payroll Service", "payrolldlx.qb"},
    {"QuickBooks Premier Payroll Service", "payrollprm.qb"},
    {"Basic Plus Federal", "basic_plus_fed.qb"},
    {"Basic Plus Federal and State", "basic_plus_fed_state.qb"},
    {"Basic Plus Direct Deposit", "basic_plus_dd.qb"},
    {"Merchant Account Service", "mas.qbn"},
};

void HandleHostQuery(Context& co, const Request& rq, Reply& reply) {
  const HostFacts& f = co.Facts();
  std::string ret = "<HostRet>";
  ret += E("ProductName", f.ProductName) + E("MajorVersion", std::to_string(f.MajorVersion)) +
         E("MinorVersion", std::to_string(f.MinorVersion)) + E("Country", f.Country);
  for (auto& v : f.SupportedVersions) ret += E("SupportedQBXMLVersion", v);
  ret += E("IsAutomaticLogin", f.IsAutomaticLogin ? "true" : "false");
  ret += E("QBFileMode", co.SingleUser() ? "SingleUser" : "MultiUser");
  if (rq.node.child("IncludeListMetaData")) {
    ret += "<ListMetaData>";
    for (auto [name, max] : kCapacities)
      ret += std::string("<") + name + "MetaData>" + E("MaxCapacity", std::to_string(max)) + "</" + name + "MetaData>";
    ret += "</ListMetaData>";
  }
  ret += "</HostRet>";
  WriteRecord(co, {}, ret, OptionsOf(rq.node, rq.version), reply.body);
}

void HandleCompanyQuery(Context& co, const Request& rq, Reply& reply) {
  WriteRecord(co, "COMPANY", co.Data().Meta("CompanyRet").value_or("<CompanyRet></CompanyRet>"),
              OptionsOf(rq.node, rq.version), reply.body);
}

void HandleCompanyActivityQuery(Context& co, const Request& rq, Reply& reply) {
  std::string created = DateTimeText(std::stoll(co.Data().Meta("created").value_or("0")));
  WriteRecord(co, {}, "<CompanyActivityRet>" + E("LastRestoreTime", created) + E("LastCondenseTime", created) +
                          "</CompanyActivityRet>",
              OptionsOf(rq.node, rq.version), reply.body);
}

void HandlePreferencesQuery(Context& co, const Request& rq, Reply& reply) {
  WriteRecord(co, {}, co.Data().Meta("PreferencesRet").value_or("<PreferencesRet></PreferencesRet>"),
              OptionsOf(rq.node, rq.version), reply.body);
}

}  // namespace

void SeedCompany(Context& co) {
  const HostFacts& f = co.Facts();
  co.Data().SetMeta("created", std::to_string(co.Now()));
  std::string name = std::filesystem::path(co.Path()).stem().string();
  std::string services;
  for (auto [service, domain] : kServices)
    services += "<Service>" + E("Name", service) + E("Domain", domain) + E("ServiceStatus", "Never") + "</Service>";
  co.Data().SetMeta("CompanyRet",
                    "<CompanyRet>" + E("IsSampleCompany", "false") + E("CompanyName", name) +
                        E("LegalCompanyName", name) + "<Address>" + E("Country", f.Country) + "</Address>" +
                        E("FirstMonthFiscalYear", "January") + E("FirstMonthIncomeTaxYear", "January") +
                        E("TaxForm", "OtherOrNone") + "<SubscribedServices>" + services +
                        "</SubscribedServices><AccountantCopy>" + E("AccountantCopyExists", "false") +
                        "</AccountantCopy></CompanyRet>");
  std::string home = co.Data().Meta("home currency").value_or("");
  co.Data().SetMeta(
      "PreferencesRet",
      "<PreferencesRet><AccountingPreferences>" + E("IsUsingAccountNumbers", "false") +
          E("IsRequiringAccounts", "true") + E("IsUsingClassTracking", "false") + E("AssignClassesTo", "None") +
          E("IsUsingAuditTrail", "true") + E("IsAssigningJournalEntryNumbers", "true") +
          "</AccountingPreferences><FinanceChargePreferences>" + E("AnnualInterestRate", "0.00") +
          E("MinFinanceCharge", "0.00") + E("GracePeriod", "0") + E("IsAssessingForOverdueCharges", "false") +
          E("CalculateChargesFrom", "DueDate") + E("IsMarkedToBePrinted", "false") +
          "</FinanceChargePreferences><JobsAndEstimatesPreferences>" + E("IsUsingEstimates", "true") +
          E("IsUsingProgressInvoicing", "false") + E("IsPrintingItemsWithZeroAmounts", "false") +
          "</JobsAndEstimatesPreferences><MultiCurrencyPreferences>" + E("IsMultiCurrencyOn", "false") +
          (home.empty() ? "" : "<HomeCurrencyRef>" + E("ListID", home) + "</HomeCurrencyRef>") +
          "</MultiCurrencyPreferences><MultiLocationInventoryPreferences>" +
          E("IsMultiLocationInventoryAvailable", "false") + E("IsMultiLocationInventoryEnabled", "false") +
          "</MultiLocationInventoryPreferences><PurchasesAndVendorsPreferences>" + E("IsUsingInventory", "true") +
          E("DaysBillsAreDue", "10") + E("IsAutomaticallyUsingDiscounts", "false") +
          "</PurchasesAndVendorsPreferences><ReportsPreferences>" + E("AgingReportBasis", "AgeFromDueDate") +
          E("SummaryReportBasis", "Accrual") + "</ReportsPreferences><SalesAndCustomersPreferences>" +
          E("IsTrackingReimbursedExpensesAsIncome", "false") + E("IsAutoApplyingPayments", "true") +
          "<PriceLevels>" + E("IsUsingPriceLevels", "true") + E("IsRoundingSalesPriceUp", "false") +
          "</PriceLevels></SalesAndCustomersPreferences><TimeTrackingPreferences>" + E("FirstDayOfWeek", "Monday") +
          "</TimeTrackingPreferences><CurrentAppAccessRights>" + E("IsAutomaticLoginAllowed", "false") +
          E("IsPersonalDataAccessAllowed", "true") + "</CurrentAppAccessRights><ItemsAndInventoryPreferences>" +
          E("EnhancedInventoryReceivingEnabled", "false") + E("IsTrackingSerialOrLotNumber", "None") +
          E("isTrackingOnSalesTransactionsEnabled", "false") + E("isTrackingOnPurchaseTransactionsEnabled", "false") +
          E("isTrackingOnInventoryAdjustmentEnabled", "false") + E("isTrackingOnBuildAssemblyEnabled", "false") +
          E("FIFOEnabled", "false") + E("IsRSBEnabled", "false") + E("IsBarcodeEnabled", "false") +
          "</ItemsAndInventoryPreferences></PreferencesRet>");
}

void UpgradeCompany(Context& co) {
  // Company files of the first engine kept the home currency's name in the preferences and lacked
  // what a company reports since; they get what a new company has.
  auto prefs = co.Data().Meta("PreferencesRet");
  if (prefs && prefs->find("<ItemsAndInventoryPreferences>") != std::string::npos) return;
  std::string created = co.Data().Meta("created").value_or(std::to_string(co.Now()));
  auto home = [&]() -> std::string {
    if (!prefs) return {};
    auto at = prefs->find("<HomeCurrencyRef><ListID>");
    if (at == std::string::npos) return {};
    at += 25;
    return prefs->substr(at, prefs->find('<', at) - at);
  }();
  if (!home.empty()) co.Data().SetMeta("home currency", home);
  SeedCompany(co);
  co.Data().SetMeta("created", created);
}

void DeclareHost(DeclBuilder& b) {
  b.Request("HostQueryRq", "IncludeListMetaData^6.0{IncludeMaxCapacity!:b} IncludeRetElement^4.0*:s50");
  b.Request("CompanyQueryRq", "IncludeRetElement^4.0*:s50 OwnerID^2.0*:guid");
  b.Request("CompanyActivityQueryRq", "IncludeRetElement^4.0*:s50", "requestID", "2.0");
  b.Request("PreferencesQueryRq", "IncludeRetElement^4.0*:s50", "requestID", "1.1");
  std::string metaData;
  for (auto [name, max] : kCapacities) metaData += std::string(name) + "MetaData!{MaxCapacity!:int} ";
  b.Element("HostRet",
            "ProductName!:s255 MajorVersion!:s5 MinorVersion!:s5 Country^3.0:s2 SupportedQBXMLVersion+:s10 "
            "IsAutomaticLogin^3.0:b QBFileMode^3.0!:e(SingleUser|MultiUser) ListMetaData^6.0{" + metaData + "}",
            'r');
  b.Element("CompanyRet",
            "IsSampleCompany^3.0!:b CompanyName:s59 LegalCompanyName:s59 Address=Address "
            "AddressBlock^6.0=AddressBlock LegalAddress=Address CompanyAddressForCustomer=Address "
            "CompanyAddressBlockForCustomer^6.0=AddressBlock Phone:s51 Fax:s51 Email:s1023 CompanyWebSite:s128 "
            "FirstMonthFiscalYear:s FirstMonthIncomeTaxYear:s CompanyType:s255 EIN^2.0:s20 SSN^2.1:s11 "
            "TaxForm^2.1:s SubscribedServices^7.0{Service*{Name!:s50 Domain!:s50 ServiceStatus!:s}} "
            "AccountantCopy^8.0{AccountantCopyExists!:b DividingDate:d} DataExtRet^2.0*=DataExtRet",
            'r');
  b.Element("CompanyActivityRet", "LastRestoreTime!:dt LastCondenseTime^3.0!:dt", 'r');
  b.Element("PreferencesRet",
            "AccountingPreferences!{IsUsingAccountNumbers!:b IsRequiringAccounts!:b IsUsingClassTracking!:b "
            "AssignClassesTo^12.0:s IsUsingAuditTrail!:b IsAssigningJournalEntryNumbers!:b ClosingDate:d} "
            "FinanceChargePreferences!{AnnualInterestRate:pct MinFinanceCharge:amt GracePeriod!:int "
            "FinanceChargeAccountRef:ref159 IsAssessingForOverdueCharges!:b CalculateChargesFrom!:s "
            "IsMarkedToBePrinted!:b} "
            "JobsAndEstimatesPreferences!{IsUsingEstimates!:b IsUsingProgressInvoicing!:b "
            "IsPrintingItemsWithZeroAmounts!:b} "
            "MultiCurrencyPreferences^8.0{IsMultiCurrencyOn:b HomeCurrencyRef:ref64} "
            "MultiLocationInventoryPreferences^10.0{IsMultiLocationInventoryAvailable:b "
            "IsMultiLocationInventoryEnabled:b} "
            "PurchasesAndVendorsPreferences!{IsUsingInventory!:b DaysBillsAreDue!:int IsAutomaticallyUsingDiscounts!:b "
            "DefaultDiscountAccountRef:ref159} "
            "ReportsPreferences!{AgingReportBasis!:s SummaryReportBasis!:s} "
            "SalesAndCustomersPreferences!{DefaultShipMethodRef:ref15 DefaultFOB:s13 DefaultMarkup:pct "
            "IsTrackingReimbursedExpensesAsIncome!:b IsAutoApplyingPayments!:b "
            "PriceLevels^4.0{IsUsingPriceLevels!:b IsRoundingSalesPriceUp:b}} "
            "SalesTaxPreferences{DefaultItemSalesTaxRef!:ref31 PaySalesTax!:s DefaultTaxableSalesTaxCodeRef!:ref3 "
            "DefaultNonTaxableSalesTaxCodeRef!:ref3 IsUsingVendorTaxCode:b IsUsingCustomerTaxCode:b "
            "IsUsingAmountsIncludeTax:b} "
            "TimeTrackingPreferences{FirstDayOfWeek!:s} "
            "CurrentAppAccessRights!{IsAutomaticLoginAllowed!:b AutomaticLoginUserName:s29 "
            "IsPersonalDataAccessAllowed!:b} "
            "ItemsAndInventoryPreferences^11.0{EnhancedInventoryReceivingEnabled:b IsTrackingSerialOrLotNumber:s "
            "isTrackingOnSalesTransactionsEnabled:b isTrackingOnPurchaseTransactionsEnabled:b "
            "isTrackingOnInventoryAdjustmentEnabled:b isTrackingOnBuildAssemblyEnabled:b FIFOEnabled:b "
            "FIFOEffectiveDate:d IsRSBEnabled^12.0:b IsBarcodeEnabled^12.0:b}",
            'r');
}

void AddHostHandlers(HandlerTable& table) {
  table["HostQueryRq"] = HandleHostQuery;
  table["CompanyQueryRq"] = HandleCompanyQuery;
  table["CompanyActivityQueryRq"] = HandleCompanyActivityQuery;
  table["PreferencesQueryRq"] = HandlePreferencesQuery;
}

}  // namespace brenvale::rqp::detail

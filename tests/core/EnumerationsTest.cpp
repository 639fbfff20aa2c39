#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include "brenvale/core/BrenvaleError.hpp"
#include "brenvale/core/EnumTypes.hpp"
#include "brenvale/core/Enumerations.hpp"
#include "brenvale/core/detail/EnumCatalogueData.hpp"
#include "brenvale/core/zkErrors.hpp"

using namespace brenvale;

namespace {

// The number of the error that `f` raises, or 0 when it raises none.
template <class F>
std::int32_t RaisedNumber(F&& f) {
  try {
    f();
  } catch (const BrenvaleError& e) {
    return e.Number();
  }
  return 0;
}

std::string NoBlanks(std::string s) {
  std::erase(s, ' ');
  return s;
}

// The enumerated values of every named element of the qbXML schema, read with a plain text scan;
// several definitions of one name add up. Empty when the schema is not there.
std::map<std::string, std::set<std::string>> SchemaEnumerations() {
  std::map<std::string, std::set<std::string>> out;
  std::string text;
  for (const char* file : {"/qbxml130.xsd", "/qbxmlops130.xsd"}) {
    std::ifstream f(std::string(BRENVALE_SCHEMA_DIR) + file);
    text.append(std::istreambuf_iterator<char>(f), std::istreambuf_iterator<char>()).append("\n");
  }
  std::istringstream in(text);
  std::string line, element;
  auto attribute = [](const std::string& l, const char* name) {
    std::string key = std::string(name) + "=\"";
    auto p = l.find(key);
    if (p == std::string::npos) return std::string();
    p += key.size();
    return l.substr(p, l.find('"', p) - p);
  };
  while (std::getline(in, line)) {
    if (line.find("<xsd:element name=") != std::string::npos) element = attribute(line, "name");
    else if (line.find("<xsd:enumeration value=") != std::string::npos && !element.empty())
      out[element].insert(attribute(line, "value"));
    else if (line.find("</xsd:restriction>") != std::string::npos) element.clear();
  }
  return out;
}

}  // namespace

// Codes that other records and QuickBooks itself rely on.
static_assert(qbItemTypeService == 1 && qbItemTypeSubtotal == 5 && qbItemTypePayment == 8 &&
              qbItemTypeSalesTaxGroup == 10 && qbItemTypeAssembly == 11 && qbItemTypeFixedAsset == 12);
static_assert(qbAccountsPayable == 1 && qbAccountsReceivable == 2 && qbBank == 3 && qbCreditCard == 5);
static_assert(zqTableNameItemGroup == 8 && zqTableNameBill == 23 && zqTableNameEmployee == 26 &&
              zqTableNameCheck == 27 && zqTableNamePurchaseOrder == 29 && zqTableNameVendorCredit == 32 &&
              zqTableNameCreditCardCharge == 33 && zqTableNameCreditCardCredit == 34 &&
              zqTableNameInvoice == 36 && zqTableNameSalesReceipt == 38 && zqTableNameCreditMemo == 39 &&
              zqTableNameEstimate == 40 && zqTableNameSalesOrder == 52 &&
              zqTableNameBillPaymentCreditCard == 59);
static_assert(qbFldAccount == 1 && qbFldBlank == 11 && qbFldClass == 12 && qbFldCredit == 14 &&
              qbFldDate == 16 && qbFldDebit == 17 && qbFldMemo == 24 && qbFldName == 27 &&
              qbFldOpenBalance == 28 && qbFldSplitAccount == 51 && qbFldTxnNumber == 57 &&
              qbFldTxnType == 58 && qbFldClearedStatus == 62);
static_assert(DateMacroNextYear == 24 && DateMacroCustom == 25 && qbMnuAccountantCopyExists == 14 &&
              qbMnuBanking == 6 && qbRptProfitAndLossStandard == 52 && qbRptTransactionSummary == 89 &&
              qbDataExtTypeSTR1024TYPE == 8 && qbrptRowTypeData == 2 && ReportTypePayrollSummary == 10);

TEST(ZKEnum, KeysLoseBlanksOnlyAndLookupIgnoresCase) {
  ZKEnum e;
  const zkEnumValue& ap = e.Add(1, "Accounts Payable");
  EXPECT_EQ(ap.CollectionKey(), "AccountsPayable");
  EXPECT_EQ(ap.XMLTag(), "AccountsPayable");
  EXPECT_EQ(ap.Description(), "Accounts Payable");
  const zkEnumValue& cc = e.Add(5, "Credit Card", "CC");
  EXPECT_EQ(cc.XMLTag(), "CC");
  EXPECT_EQ(cc.CollectionKey(), "CreditCard");
  e.Add(7, "Tab\tKept");
  e.AddObject(zkEnumValue(9, " Other  Income "));

  EXPECT_EQ(&e.Item("Accounts Payable"), &e.Item("AccountsPayable"));
  EXPECT_EQ(&e.Item("ACCOUNTS payable"), &e.Item(1));
  EXPECT_EQ(e.Item(2).Code(), 5);
  EXPECT_EQ(e["Other Income"].Code(), 9);
  EXPECT_EQ(e.Count(), 4);
  std::vector<int> order;
  for (const auto& v : e) order.push_back(v.Code());
  EXPECT_EQ(order, (std::vector<int>{1, 5, 7, 9}));

  // Only U+0020 goes: a tab or a no-break space is part of the key.
  EXPECT_TRUE(e.ItemExists("Tab\tKept"));
  EXPECT_FALSE(e.ItemExists("Tab Kept"));
  EXPECT_FALSE(e.ItemExists("Accounts\xC2\xA0Payable"));
  for (std::string_view k : {"", "  ", "Nope"}) EXPECT_FALSE(e.ItemExists(k)) << k;
  EXPECT_FALSE(e.ItemExists(std::size_t{0}));
  EXPECT_FALSE(e.ItemExists(std::size_t{5}));
  EXPECT_TRUE(e.ItemExists(std::size_t{4}));

  EXPECT_EQ(RaisedNumber([&] { e.Item("Nope"); }), platform::kInvalidProcedureCall);
  EXPECT_EQ(RaisedNumber([&] { e.Item(5); }), platform::kSubscriptOutOfRange);
  EXPECT_EQ(RaisedNumber([&] { e.Add(2, "accounts  payable"); }), platform::kDuplicateKey);
}

TEST(ZKEnum, ConvertsCodesAndTextsAndRejectsUnknownOnes) {
  ZKEnum e;
  e.Add(1, "Starts With");
  e.Add(2, "Contains");
  e.Add(3, "Legacy", "Contains");
  e.Add(4, "Ends With", "EndsWith");
  EXPECT_EQ(e.CodeOf("StartsWith"), 1);
  EXPECT_EQ(e.CodeOf("Contains"), 2);  // the first match wins
  EXPECT_EQ(e.CodeOf("Legacy", true), 3);
  EXPECT_EQ(e.XMLTagOf(3), "Contains");
  EXPECT_EQ(e.ItemByCode(4).Description(), "Ends With");

  for (std::string_view text : {"Legacy", "startswith", "", "Starts With"}) {
    try {
      e.CodeOf(text);
      ADD_FAILURE() << "no error for " << text;
    } catch (const BrenvaleError& err) {
      EXPECT_EQ(err.Number(), ErrorNumber(1008));
      EXPECT_EQ(err.Source(), "Brenvale");
      EXPECT_EQ(err.Description(), "An invalid enumeration string was supplied.");
    }
  }
  for (Integer code : {0, 5, -1, 32767}) {
    EXPECT_EQ(RaisedNumber([&] { e.ItemByCode(code); }), ErrorNumber(1007)) << code;
    EXPECT_EQ(RaisedNumber([&] { e.XMLTagOf(code); }), ErrorNumber(1007)) << code;
  }
  EXPECT_EQ(ErrorMessage(1007), "An invalid enumeration value was supplied.");
}

TEST(Enumerations, LongCodesAreNarrowedTo16BitsBeforeTheLookup) {
  EXPECT_EQ(EnumDescription(qbAccountsPayable, zqeAccountType), "Accounts Payable");
  EXPECT_EQ(EnumXMLText(qbCreditCard, zqeAccountType), "CreditCard");
  EXPECT_EQ(EnumCodeOfDescription("cost of goods sold", zqeAccountType), qbCostOfGoodsSold);
  EXPECT_EQ(RaisedNumber([] { EnumCodeOfDescription("Cost Of Goods", zqeAccountType); }),
            platform::kInvalidProcedureCall);
  EXPECT_EQ(RaisedNumber([] { EnumXMLText(32767, zqeAccountType); }), ErrorNumber(1007));
  EXPECT_EQ(RaisedNumber([] { EnumXMLText(-32768, zqeAccountType); }), ErrorNumber(1007));
  for (Long code : {32768, -32769, 65536 + 5, 1 << 30}) {
    EXPECT_EQ(RaisedNumber([&] { EnumXMLText(code, zqeAccountType); }), platform::kOverflow) << code;
    EXPECT_EQ(RaisedNumber([&] { EnumDescription(code, zqeAccountType); }), platform::kOverflow) << code;
  }
  EXPECT_EQ(RaisedNumber([] { TheEnumerations().Item(static_cast<zqEnumerationType>(57)); }),
            ErrorNumber(1007));
}

TEST(Enumerations, EveryCatalogueIsFilledWithUniqueCodesKeysAndTexts) {
  const Enumerations& all = TheEnumerations();
  ASSERT_EQ(all.Count(), kEnumerationTypeCount);
  int type = 0;
  for (const auto& cat : all) {
    ++type;
    SCOPED_TRACE("catalogue " + std::to_string(type));
    ASSERT_EQ(cat.get(), &all.Item(static_cast<zqEnumerationType>(type)));  // filed in type order
    EXPECT_GT(cat->Count(), 0);
    std::set<int> codes;
    std::set<std::string> tags;
    for (const auto& v : *cat) {
      EXPECT_TRUE(codes.insert(v.Code()).second) << "code " << v.Code();
      EXPECT_EQ(v.CollectionKey(), NoBlanks(v.Description()));
      EXPECT_FALSE(v.XMLTag().empty());
      EXPECT_EQ(v.XMLTag().find(' '), std::string::npos) << v.XMLTag();
      EXPECT_EQ(&cat->Item(v.Description()), &v);
      // A text read back gives the code it was written for.
      EXPECT_TRUE(tags.insert(v.XMLTag()).second) << v.XMLTag();
      EXPECT_EQ(cat->CodeOf(v.XMLTag()), v.Code()) << v.XMLTag();
    }
  }
}

TEST(Enumerations, EachThreadBuildsItsOwnCatalogues) {
  const Enumerations* mine = &TheEnumerations();
  const Enumerations* other = nullptr;
  std::int32_t otherReports = 0;
  std::thread([&] {
    other = &TheEnumerations();
    otherReports = EnumCatalogue(zqeReport).Count();
  }).join();
  EXPECT_NE(mine, other);
  EXPECT_EQ(otherReports, 89);
  EXPECT_EQ(mine, &TheEnumerations());
}

TEST(Enumerations, PublicEnumerationsAgreeWithTheirCatalogues) {
  struct Case {
    zqEnumerationType type;
    int code;
    const char* tag;
    bool last = false;  // the enumeration's highest code: the catalogue holds exactly 1..code
  };
  const Case cases[] = {
      {zqeObjectState, zqObjectStateDirty, "Dirty", true},
      {zqeJobStatus, qbJobStatusPending, "Pending", true},
      {zqeDeliveryMethod, qbDeliveryMethodPrint, "Print", true},
      {zqeItemType, qbItemTypeAssembly, "Assembly"},
      {zqeItemType, qbItemTypeSales, "Sales", true},
      {zqeAccountType, qbAccountsReceivable, "AccountsReceivable"},
      {zqeAccountType, qbOtherIncome, "OtherIncome", true},
      {zqeActiveStatus, qbActiveStatusAll, "All", true},
      {zqeTaxForm, qbTaxForm990PF, "Form990PF"},
      {zqeTaxForm, qbTaxFormOtherOrNone, "OtherOrNone", true},
      {zqeMonth, qbMonthDecember, "December", true},
      {zqeOperator, qbLessThanOrEqual, "LessThanEqual"},
      {zqeOperator, qbGreaterThanOrEqual, "GreaterThanEqual", true},
      {zqeField, zqFldTxnCustomer, "CustomerRef", true},
      {zqeDateMacro, qbDateMacroNextFiscalYear, "NextFiscalYear", true},
      {zqeTxnPaymentType, qbBillPaymentMethodCreditCard, "BillPaymentCreditCard", true},
      {zqeTxnLineType, zqTxnLineTypeJournalCredit, "JournalCreditLine", true},
      {zqeGenderType, qbGenderFemale, "Female", true},
      {zqeEmployeeType, qbEmployeeTypeStatutory, "Statutory", true},
      {zqeWageType, qbWageTypeSalaryRegular, "SalaryRegular"},
      {zqeWageType, qbWageTypeHourlyRegular, "HourlyRegular"},
      {zqeWageType, qbWageTypeSalaryVacation, "SalaryVacation", true},
      {zqeMatchType, qbMatchEndsWith, "EndsWith", true},
      {zqePaidStatus, qbPaidStatusNotPaidOnly, "NotPaidOnly", true},
      {zqeWarnings, zqWarningJournalEntryDebitCreditError, "JournalEntryDebitCreditError", true},
      {zqeTxnState, zqTxnStateVoided, "Voided", true},
      {zqeCalculateChargesFrom, qbCalculateChargesFromInvoiceOrBilledDate, "InvoiceOrBilledDate", true},
      {zqeAgingReportBasis, qbAgingReportBasisAgeFromTransactionDate, "AgeFromTransactionDate", true},
      {zqeSummaryReportBasis, qbSummaryReportBasisCash, "Cash", true},
      {zqePaySalesTax, qbPaySalesTaxAnnually, "Annually", true},
      {zqeDayOfWeek, qbDayOfWeekSunday, "Sunday", true},
      {zqeLinkedTxnType, qbLinkTypeQuantity, "QUANTYPE", true},
      {zqeReport, qbRpt1099Detail, "1099Detail"},
      {zqeReport, qbRptOpenPurchaseOrders, "OpenPOs"},
      {zqeReport, qbRptProfitAndLossStandard, "ProfitAndLossStandard"},
      {zqeReport, qbRptTransactionDetail, "CustomTxnDetail"},
      {zqeReport, qbRptTransactionSummary, "CustomSummary", true},
      {zqeReportField, qbFldBlank, "Blank"},
      {zqeReportField, qbFldSplitAccount, "SplitAccount"},
      {zqeReportField, qbFldClearedStatus, "ClearedStatus"},
      {zqeReportField, qbFldTotal, "Total", true},
      {zqeReportDateMacro, DateMacroNextYear, "NextYear"},
      {zqeReportDateMacro, DateMacroCustom, "Custom", true},
      {zqeTxnType, qbTxnTypeYTDAdjustment, "YTDAdjustment", true},
      {zqeEntityType, qbEntityTypeVendor, "Vendor", true},
      {zqeBillableStatus, qbBillableStatusHasBeenBilled, "HasBeenBilled", true},
      {zqeReportGroup, qbReportGroupCustom, "Custom", true},
      {zqeReportCalendar, qbReportCalendarTaxYear, "TaxYear", true},
      {zqeReportRowColReturn, qbReturnNonZero, "NonZero"},
      {zqeReportColSortFields, qbSummarizeByYear, "Year", true},
      {zqeDataExtDataTypes, qbDataExtTypeSTR1024TYPE, "STR1024TYPE", true},
      {zqeClearedStatus, qbClearedStatusPending, "Pending", true},
      {zqePayrollAccrualPeriod, qbAccrualPeriodEveryPaycheck, "EveryPaycheck", true},
      {zqePayrollPayFrequency, qbPayFrequencyYearly, "Yearly", true},
      {zqeReportAccountFilters, qbAccountFilterOtherIncomeOrExpense, "OtherIncomeOrExpense", true},
      {zqeReportBudgetCriterion, qbBudgetCriterionAccountsAndCustomers, "AccountsAndCustomers", true},
      {zqeReportBudgetSumColsByEnum, qbBudgetColsByDate, "Date", true},
      {zqeReportBudgetSumRowsByEnum, qbBudgetRowsByCustomer, "Customer", true},
      {zqeReportDetailLevelFilterEnum, qbDetailLevelSummaryOnly, "SummaryOnly", true},
      {zqeReportPostingStatusFilter, qbPostingStatusPosting, "Posting", true},
      {zqeCashFlowClassification, qbCashFlowNotApplicable, "NotApplicable", true},
      {zqeSpecialAcountType, qbSpecialAccountUndepositedFunds, "UndepositedFunds", true},
      {zqePayrollItemNonWage, qbNonWageTypeTax, "Tax", true},
      {zqeDataBaseTableName, zqTableNameInvoice, "Invoice"},
      {zqeDataBaseTableName, zqTableNameItemGroup, "ItemGroup"},
      {zqeDataBaseTableName, zqTableNameDataExtDef, "DataExtDef", true},
      {zqeMenuConditions, qbMnuMultiUserMode, "MultiUserMode"},
      {zqeMenuConditions, qbMnuAccountantCopyExists, "AccountantCopyExists", true},
      {zqeMenuNames, qbMnuBanking, "Banking", true},
      {zqeFieldNames, zqFieldCustomFields, "DataExtRet", true},
  };
  for (const Case& c : cases) {
    const ZKEnum& cat = EnumCatalogue(c.type);
    SCOPED_TRACE(std::string(c.tag) + " in catalogue " + std::to_string(c.type));
    EXPECT_EQ(cat.XMLTagOf(static_cast<Integer>(c.code)), c.tag);
    if (c.last) {
      EXPECT_EQ(cat.Count(), c.code);
    }
  }
  EXPECT_EQ(EnumCatalogue(zqeReport).ItemByCode(52).Description(), "Profit And Loss Standard");
}

TEST(Enumerations, CatalogueTextsAreTheSchemasValues) {
  const auto schema = SchemaEnumerations();
  if (schema.empty()) GTEST_SKIP() << "qbXML schema not found";
  struct Case {
    zqEnumerationType type;
    std::vector<std::string> elements;  // their values taken together
    std::set<std::string> notInSchema;  // the library's own values
    bool complete = true;  // every schema value has a catalogue value
  };
  const Case cases[] = {
      {zqeJobStatus, {"JobStatus"}, {}},
      {zqeDeliveryMethod, {"DeliveryMethod"}, {}},
      {zqeItemType, {"ItemTypeFilter"}, {"Subtotal", "Group", "SalesTaxGroup"}},
      {zqeAccountType, {"AccountType"}, {}},
      {zqeActiveStatus, {"ActiveStatus"}, {}},
      {zqeTaxForm, {"TaxForm"}, {}},
      {zqeMonth, {"FirstMonthFiscalYear"}, {}},
      {zqeOperator, {"Operator"}, {}},
      {zqeDateMacro, {"DateMacro"}, {}},
      {zqeTxnPaymentType, {"TxnDelType"}, {}, false},
      {zqeGenderType, {"Gender"}, {}},
      {zqeEmployeeType, {"EmployeeType"}, {}},
      {zqeWageType, {"WageType"}, {"Salary", "Hourly"}},
      {zqeMatchType, {"MatchCriterion"}, {}},
      {zqePaidStatus, {"PaidStatus"}, {}},
      {zqeCalculateChargesFrom, {"CalculateChargesFrom"}, {}},
      {zqeAgingReportBasis, {"AgingReportBasis"}, {}},
      {zqeSummaryReportBasis, {"SummaryReportBasis"}, {}},
      {zqePaySalesTax, {"PaySalesTax"}, {}},
      {zqeDayOfWeek, {"FirstDayOfWeek"}, {}},
      {zqeLinkedTxnType, {"LinkType"}, {}},
      {zqeReportField, {"IncludeColumn", "ColType"}, {}},
      {zqeReportDateMacro, {"ReportDateMacro"}, {"Custom"}},
      {zqeTxnType, {"TxnType"}, {}},
      {zqeEntityType, {"EntityTypeFilter"}, {}},
      {zqeBillableStatus, {"BillableStatus"}, {}},
      {zqeReportCalendar, {"ReportCalendar"}, {}},
      {zqeReportRowColReturn, {"ReturnRows", "ReturnColumns"}, {}},
      {zqeReportColSortFields, {"SummarizeRowsBy", "SummarizeColumnsBy"}, {}},
      {zqeDataExtDataTypes, {"DataExtType"}, {}},
      {zqeClearedStatus, {"ClearedStatus"}, {}},
      {zqePayrollAccrualPeriod, {"AccrualPeriod"}, {}},
      {zqePayrollPayFrequency, {"PayPeriod"}, {}},
      {zqeReportAccountFilters, {"AccountTypeFilter"}, {}},
      {zqeReportBudgetCriterion, {"BudgetCriterion"}, {}},
      {zqeReportBudgetSumColsByEnum, {"SummarizeBudgetColumnsBy"}, {}},
      {zqeReportBudgetSumRowsByEnum, {"SummarizeBudgetRowsBy"}, {}},
      {zqeReportDetailLevelFilterEnum, {"ReportDetailLevelFilter"}, {}},
      {zqeReportPostingStatusFilter, {"ReportPostingStatusFilter"}, {}},
      {zqeCashFlowClassification, {"CashFlowClassification"}, {}},
      {zqeSpecialAcountType, {"SpecialAccountType"}, {}},
      {zqePayrollItemNonWage, {"NonWageType"}, {}},
      {zqeMenuConditions, {"VisibleIf", "EnabledIfNot"}, {}},
      {zqeMenuNames, {"AddToMenu"}, {}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE("catalogue " + std::to_string(c.type));
    std::set<std::string> values, tags;
    for (const auto& e : c.elements) {
      ASSERT_TRUE(schema.count(e)) << e;
      values.insert(schema.at(e).begin(), schema.at(e).end());
    }
    for (const auto& v : EnumCatalogue(c.type)) {
      tags.insert(v.XMLTag());
      EXPECT_EQ(values.count(v.XMLTag()), c.notInSchema.count(v.XMLTag()) ? 0u : 1u) << v.XMLTag();
    }
    if (c.complete) {
      for (const auto& s : values) EXPECT_TRUE(tags.count(s)) << "missing " << s;
    }
  }

  // Each report's name is one of the report names of its request kind.
  const std::map<qbEnumReportType, std::string> kinds = {
      {ReportTypeAging, "Aging"}, {ReportTypeBudget, "BudgetSummary"},
      {ReportTypeCustomSummary, "CustomSummary"}, {ReportTypeCustomDetail, "CustomDetail"},
      {ReportTypeGeneralSummary, "GeneralSummary"}, {ReportTypeGeneralDetail, "GeneralDetail"},
      {ReportTypeJob, "Job"}, {ReportTypeTime, "Time"}, {ReportTypePayrollDetail, "PayrollDetail"},
      {ReportTypePayrollSummary, "PayrollSummary"}};
  int code = 0;
  for (const auto& r : detail::ReportTable()) {
    EXPECT_EQ(r.code, ++code);
    const std::string& tag = EnumCatalogue(zqeReport).XMLTagOf(static_cast<Integer>(r.code));
    EXPECT_EQ(schema.at(kinds.at(r.kind) + "ReportType").count(tag), 1u) << r.code << " " << tag;
  }
  EXPECT_EQ(code, 89);
}

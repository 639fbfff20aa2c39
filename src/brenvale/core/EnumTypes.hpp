#pragma once
// The public enumerations. Those with a run-time catalogue (keyed by zqEnumerationType) carry the same
// codes there, with a description in words and the qbXML text (EnumCatalogue.cpp,
// EnumCatalogueReports.cpp). Where a value has a qbXML text, the member name is built from it.
#include <cstdint>

namespace brenvale {

enum zqEnumObjectState : std::int32_t {
  zqObjectStateNew = 1,
  zqObjectStateClean = 2,
  zqObjectStateDirty = 3,
};

// Every kind of record the library reads or writes. The codes are the table names' codes
// (zqEnumTableName), so a kind and its table share one number; the catalogue's CollectionKey of
// each is its qbXML name.
enum zqEnumListObjectType : std::int32_t {
  zqObjectTypeNone = 0,
  zqObjectTypeAccount = 1,
  zqObjectTypeClass = 2,
  zqObjectTypeCustomerMsg = 3,
  zqObjectTypeCustomerType = 4,
  zqObjectTypeDateDrivenTerms = 5,
  zqObjectTypeStandardTerms = 6,
  zqObjectTypeItemDiscount = 7,
  zqObjectTypeItemGroup = 8,
  zqObjectTypeItemInventory = 9,
  zqObjectTypeItemInventoryAssembly = 10,
  zqObjectTypeItemNonInventory = 11,
  zqObjectTypeItemOtherCharge = 12,
  zqObjectTypeItemPayment = 13,
  zqObjectTypeCustomer = 14,
  zqObjectTypeItemSalesTax = 15,
  zqObjectTypeItemSalesTaxGroup = 16,
  zqObjectTypeItemService = 17,
  zqObjectTypeItemSubtotal = 18,
  zqObjectTypeJobType = 19,
  zqObjectTypeVendor = 20,
  zqObjectTypeOtherName = 21,
  zqObjectTypePaymentMethod = 22,
  zqObjectTypeBill = 23,
  zqObjectTypeSalesRep = 24,
  zqObjectTypeSalesTaxCode = 25,
  zqObjectTypeEmployee = 26,
  zqObjectTypeCheck = 27,
  zqObjectTypeShipMethod = 28,
  zqObjectTypePurchaseOrder = 29,
  zqObjectTypeToDo = 30,
  zqObjectTypeVendorType = 31,
  zqObjectTypeVendorCredit = 32,
  zqObjectTypeCreditCardCharge = 33,
  zqObjectTypeCreditCardCredit = 34,
  zqObjectTypeJournalEntry = 35,
  zqObjectTypeInvoice = 36,
  zqObjectTypeReceivePayment = 37,
  zqObjectTypeSalesReceipt = 38,
  zqObjectTypeCreditMemo = 39,
  zqObjectTypeEstimate = 40,
  zqObjectTypeTimeTracking = 41,
  zqObjectTypeDeposit = 42,
  zqObjectTypeBillPaymentCheck = 43,
  zqObjectTypePayrollItemWage = 44,
  zqObjectTypeItem = 45,
  zqObjectTypeEntity = 46,
  zqObjectTypeTerms = 47,
  zqObjectTypeCharge = 48,
  zqObjectTypeInventoryAdjustment = 49,
  zqObjectTypeItemReceipt = 50,
  zqObjectTypeSalesTaxPaymentCheck = 51,
  zqObjectTypeSalesOrder = 52,
  zqObjectTypeBuildAssembly = 53,
  zqObjectTypeTemplate = 54,
  zqObjectTypePayrollItemNonWage = 55,
  zqObjectTypeCompany = 56,
  zqObjectTypePriceLevel = 57,
  zqObjectTypeTaxCode = 58,
  zqObjectTypeBillPaymentCreditCard = 59,
  zqObjectTypeCurrency = 60,
  zqObjectTypeUnitOfMeasureSet = 61,
  zqObjectTypeItemFixedAsset = 62,
  zqObjectTypeDataExtDef = 63,
  zqObjectTypeBillPayment = 64,  // either payment form
  zqObjectTypeStatementCharge = zqObjectTypeCharge,
};
// True for the twelve kinds of item.
constexpr bool IsItemObjectType(zqEnumListObjectType t) {
  switch (t) {
    case zqObjectTypeItemDiscount:
    case zqObjectTypeItemGroup:
    case zqObjectTypeItemInventory:
    case zqObjectTypeItemInventoryAssembly:
    case zqObjectTypeItemNonInventory:
    case zqObjectTypeItemOtherCharge:
    case zqObjectTypeItemPayment:
    case zqObjectTypeItemSalesTax:
    case zqObjectTypeItemSalesTaxGroup:
    case zqObjectTypeItemService:
    case zqObjectTypeItemSubtotal:
    case zqObjectTypeItemFixedAsset:
      return true;
    default:
      return false;
  }
}
// True for the list kinds, false for transactions (and the company).
constexpr bool IsListObjectType(zqEnumListObjectType t) {
  if (IsItemObjectType(t)) return true;
  switch (t) {
    case zqObjectTypeAccount:
    case zqObjectTypeClass:
    case zqObjectTypeCustomerMsg:
    case zqObjectTypeCustomerType:
    case zqObjectTypeDateDrivenTerms:
    case zqObjectTypeStandardTerms:
    case zqObjectTypeCustomer:
    case zqObjectTypeJobType:
    case zqObjectTypeVendor:
    case zqObjectTypeOtherName:
    case zqObjectTypePaymentMethod:
    case zqObjectTypeSalesRep:
    case zqObjectTypeSalesTaxCode:
    case zqObjectTypeEmployee:
    case zqObjectTypeShipMethod:
    case zqObjectTypeToDo:
    case zqObjectTypeVendorType:
    case zqObjectTypePayrollItemWage:
    case zqObjectTypeItem:
    case zqObjectTypeEntity:
    case zqObjectTypeTerms:
    case zqObjectTypeTemplate:
    case zqObjectTypePayrollItemNonWage:
    case zqObjectTypePriceLevel:
    case zqObjectTypeTaxCode:
    case zqObjectTypeCurrency:
    case zqObjectTypeUnitOfMeasureSet:
    case zqObjectTypeDataExtDef:
      return true;
    default:
      return false;
  }
}

// The kind of list a reference points into.
enum zqEnumListType : std::int32_t {
  zqListTypeNone = 0,
  zqListTypeAccount = 1,
  zqListTypeCustomer = 2,
  zqListTypeEmployee = 3,
  zqListTypeOtherName = 4,
  zqListTypeVendor = 5,
  zqListTypeTerms = 6,
  zqListTypeClass = 7,
  zqListTypeSalesRep = 8,
  zqListTypeCustomerType = 9,
  zqListTypeVendorType = 10,
  zqListTypeJobType = 11,
  zqListTypeCustomerMsg = 12,
  zqListTypePaymentMethod = 13,
  zqListTypeShipMethod = 14,
  zqListTypeSalesTaxCode = 15,
  zqListTypeToDo = 16,
  zqListTypeItem = 17,
  zqListTypePayrollItemWage = 18,
  zqListTypePayrollItemNonWage = 19,
  zqListTypeTemplate = 20,
  zqListTypePriceLevel = 21,
  zqListTypeCurrency = 22,
  zqListTypeUnitOfMeasureSet = 23,
  zqListTypeTaxCode = 24,
  zqListTypeEntity = 25,
};

enum qbEnumDateMacro : std::int32_t {
  qbDateMacroNone = 0,
  qbDateMacroAll = 1, qbDateMacroToday, qbDateMacroThisWeek, qbDateMacroThisWeekToDate,
  qbDateMacroThisMonth, qbDateMacroThisMonthToDate, qbDateMacroThisCalendarQuarter,
  qbDateMacroThisCalendarQuarterToDate, qbDateMacroThisFiscalQuarter,
  qbDateMacroThisFiscalQuarterToDate, qbDateMacroThisCalendarYear, qbDateMacroThisCalendarYearToDate,
  qbDateMacroThisFiscalYear, qbDateMacroThisFiscalYearToDate, qbDateMacroYesterday,
  qbDateMacroLastWeek, qbDateMacroLastWeekToDate, qbDateMacroLastMonth, qbDateMacroLastMonthToDate,
  qbDateMacroLastCalendarQuarter, qbDateMacroLastCalendarQuarterToDate, qbDateMacroLastFiscalQuarter,
  qbDateMacroLastFiscalQuarterToDate, qbDateMacroLastCalendarYear, qbDateMacroLastCalendarYearToDate,
  qbDateMacroLastFiscalYear, qbDateMacroLastFiscalYearToDate, qbDateMacroNextWeek,
  qbDateMacroNextFourWeeks, qbDateMacroNextMonth, qbDateMacroNextCalendarQuarter,
  qbDateMacroNextCalendarYear, qbDateMacroNextFiscalQuarter, qbDateMacroNextFiscalYear,
};

enum qbEnumMatchType : std::int32_t {
  qbMatchStartsWith = 1,
  qbMatchContains = 2,
  qbMatchEndsWith = 3,
};

enum qbEnumOperator : std::int32_t {
  qbLessThan = 1,
  qbLessThanOrEqual = 2,
  qbEqual = 3,
  qbGreaterThan = 4,
  qbGreaterThanOrEqual = 5,
};

enum qbEnumPaidStatus : std::int32_t {
  qbPaidStatusAll = 1,
  qbPaidStatusPaidOnly = 2,
  qbPaidStatusNotPaidOnly = 3,
};

enum qbEnumDoneStatus : std::int32_t {
  qbDoneStatusAll = 1,
  qbDoneStatusDoneOnly = 2,
  qbDoneStatusNotDoneOnly = 3,
};

enum zqEnumTxnState : std::int32_t {
  zqTxnStateActive = 1,
  zqTxnStateVoided = 2,
};

enum qbEnumActiveStatus : std::int32_t {
  qbActiveStatusActiveOnly = 1,
  qbActiveStatusInactiveOnly = 2,
  qbActiveStatusAll = 3,
};

// A customer job's status ("JobStatus").
enum qbEnumJobStatus : std::int32_t {
  qbJobStatusAwarded = 1, qbJobStatusClosed = 2, qbJobStatusInProgress = 3, qbJobStatusNone = 4,
  qbJobStatusNotAwarded = 5, qbJobStatusPending = 6,
};

// How a customer receives forms ("DeliveryMethod").
enum qbEnumDeliveryMethod : std::int32_t {
  qbDeliveryMethodEmail = 1, qbDeliveryMethodFax = 2, qbDeliveryMethodPrint = 3,
};

// The kind of an item. 13 to 15 are groups of kinds that only a report item filter takes.
enum qbEnumItemType : std::int32_t {
  qbItemTypeService = 1, qbItemTypeInventory = 2, qbItemTypeNonInventory = 3, qbItemTypeOtherCharge = 4,
  qbItemTypeSubtotal = 5, qbItemTypeGroup = 6, qbItemTypeDiscount = 7, qbItemTypePayment = 8,
  qbItemTypeSalesTax = 9, qbItemTypeSalesTaxGroup = 10, qbItemTypeAssembly = 11, qbItemTypeFixedAsset = 12,
  qbItemTypeAllExceptFixedAsset = 13, qbItemTypeInventoryAndAssembly = 14, qbItemTypeSales = 15,
};

// The type of an account ("AccountType").
enum qbEnumAccountType : std::int32_t {
  qbAccountsPayable = 1, qbAccountsReceivable = 2, qbBank = 3, qbCostOfGoodsSold = 4, qbCreditCard = 5,
  qbEquity = 6, qbExpense = 7, qbFixedAsset = 8, qbIncome = 9, qbLongTermLiability = 10, qbNonPosting = 11,
  qbOtherAsset = 12, qbOtherCurrentAsset = 13, qbOtherCurrentLiability = 14, qbOtherExpense = 15,
  qbOtherIncome = 16,
};

// The company's income tax form ("TaxForm").
enum qbEnumTaxForm : std::int32_t {
  qbTaxForm1040 = 1, qbTaxForm1065 = 2, qbTaxForm1120 = 3, qbTaxForm1120S = 4, qbTaxForm990 = 5,
  qbTaxForm990PF = 6, qbTaxForm990T = 7, qbTaxFormOtherOrNone = 8,
};

// Months of the year (fiscal and tax year starts).
enum qbEnumMonth : std::int32_t {
  qbMonthJanuary = 1, qbMonthFebruary = 2, qbMonthMarch = 3, qbMonthApril = 4, qbMonthMay = 5,
  qbMonthJune = 6, qbMonthJuly = 7, qbMonthAugust = 8, qbMonthSeptember = 9, qbMonthOctober = 10,
  qbMonthNovember = 11, qbMonthDecember = 12,
};

// The fields of a transaction line that FieldCanBeUpdated, FieldDisplayString and FieldUpdate
// address; the catalogue's XMLTag is the line element the field is written to.
enum zqEnumFldTxn : std::int32_t {
  zqFldTxnItem = 1, zqFldTxnQuantity = 2, zqFldTxnDescription = 3, zqFldTxnCost = 4, zqFldTxnServiceDate = 5,
  zqFldTxnClass = 6, zqFldTxnAmount = 7, zqFldTxnTax = 8, zqFldTxnMarkup = 9, zqFldTxnCustomer = 10,
};

// How a bill payment pays: its XMLTag is the request and delete type of that kind.
enum qbEnumBillPaymentMethod : std::int32_t {
  qbBillPaymentMethodCheck = 1, qbBillPaymentMethodCreditCard = 2,
};

// The kinds of transaction line; the XMLTag is the line aggregate.
enum zqEnumTxnLineType : std::int32_t {
  zqTxnLineTypeItem = 1, zqTxnLineTypeItemGroup = 2, zqTxnLineTypeExpense = 3, zqTxnLineTypeJournalDebit = 4,
  zqTxnLineTypeJournalCredit = 5,
};

// An employee's gender ("Gender").
enum qbEnumGenderType : std::int32_t {
  qbGenderMale = 1, qbGenderFemale = 2,
};

// An employee's type ("EmployeeType").
enum qbEnumEmployeeType : std::int32_t {
  qbEmployeeTypeOfficer = 1, qbEmployeeTypeOwner = 2, qbEmployeeTypeRegular = 3, qbEmployeeTypeStatutory = 4,
};

// A payroll wage item's type ("WageType"). "Salary" and "Hourly" are the texts older QuickBooks
// versions send; the rest are the current values.
enum qbEnumWageType : std::int32_t {
  qbWageTypeSalary = 1, qbWageTypeSalaryRegular = 2, qbWageTypeHourly = 3, qbWageTypeHourlyRegular = 4,
  qbWageTypeBonus = 5, qbWageTypeCommission = 6, qbWageTypeHourlyOvertime = 7, qbWageTypeHourlySick = 8,
  qbWageTypeHourlyVacation = 9, qbWageTypeSalarySick = 10, qbWageTypeSalaryVacation = 11,
};

// Finance charge preference ("CalculateChargesFrom").
enum qbEnumCalculateChargesFrom : std::int32_t {
  qbCalculateChargesFromDueDate = 1, qbCalculateChargesFromInvoiceOrBilledDate = 2,
};

// Aging report preference ("AgingReportBasis").
enum qbEnumAgingReportBasis : std::int32_t {
  qbAgingReportBasisAgeFromDueDate = 1, qbAgingReportBasisAgeFromTransactionDate = 2,
};

// Summary report preference ("SummaryReportBasis").
enum qbEnumSummaryReportBasis : std::int32_t {
  qbSummaryReportBasisAccrual = 1, qbSummaryReportBasisCash = 2,
};

// How often sales tax is paid ("PaySalesTax").
enum qbEnumPaySalesTax : std::int32_t {
  qbPaySalesTaxMonthly = 1, qbPaySalesTaxQuarterly = 2, qbPaySalesTaxAnnually = 3,
};

// Days of the week ("FirstDayOfWeek").
enum qbEnumDayOfWeek : std::int32_t {
  qbDayOfWeekMonday = 1, qbDayOfWeekTuesday = 2, qbDayOfWeekWednesday = 3, qbDayOfWeekThursday = 4,
  qbDayOfWeekFriday = 5, qbDayOfWeekSaturday = 6, qbDayOfWeekSunday = 7,
};

// Whether a linked transaction links by amount or by quantity ("LinkType").
enum qbEnumLinkedTxnType : std::int32_t {
  qbLinkTypeAmount = 1, qbLinkTypeQuantity = 2,
};

// The report catalogue, in code order; each report's qbXML name is its XMLTag in the catalogue.
enum qbEnumReports : std::int32_t {
  qbRpt1099Detail = 1, qbRptAuditTrail = 2, qbRptBalanceSheetDetail = 3, qbRptCheckDetail = 4,
  qbRptCustomerBalanceDetail = 5, qbRptDepositDetail = 6, qbRptEstimatesByJob = 7,
  qbRptExpenseByVendorDetail = 8, qbRptGeneralLedger = 9, qbRptIncomeByCustomerDetail = 10,
  qbRptIncomeTaxDetail = 11, qbRptInventoryValuationDetail = 12, qbRptJobProgressInvoicesVsEstimates = 13,
  qbRptJournal = 14, qbRptMissingChecks = 15, qbRptOpenInvoices = 16, qbRptOpenPurchaseOrders = 17,
  qbRptOpenPurchaseOrdersByJob = 18, qbRptPendingSales = 19, qbRptProfitAndLossDetail = 20,
  qbRptPurchaseByItemDetail = 21, qbRptPurchaseByVendorDetail = 22, qbRptSalesByCustomerDetail = 23,
  qbRptSalesByItemDetail = 24, qbRptSalesByRepDetail = 25, qbRptTransactionDetailByAccount = 26,
  qbRptTransactionListByCustomer = 27, qbRptTransactionListByDate = 28, qbRptTransactionListByVendor = 29,
  qbRptUnpaidBillsDetail = 30, qbRptUnbilledCostsByJob = 31, qbRptVendorBalanceDetail = 32,
  qbRptAPAgingDetail = 33, qbRptAPAgingSummary = 34, qbRptARAgingDetail = 35, qbRptARAgingSummary = 36,
  qbRptCollectionsReport = 37, qbRptBalanceSheetPrevYearComp = 38, qbRptBalanceSheetStandard = 39,
  qbRptBalanceSheetSummary = 40, qbRptCustomerBalanceSummary = 41, qbRptExpenseByVendorSummary = 42,
  qbRptIncomeByCustomerSummary = 43, qbRptInventoryStockStatusByItem = 44,
  qbRptInventoryStockStatusByVendor = 45, qbRptIncomeTaxSummary = 46, qbRptInventoryValuationSummary = 47,
  qbRptPhysicalInventoryWorksheet = 48, qbRptProfitAndLossByClass = 49, qbRptProfitAndLossByJob = 50,
  qbRptProfitAndLossPrevYearComp = 51, qbRptProfitAndLossStandard = 52, qbRptProfitAndLossYTDComp = 53,
  qbRptPurchaseByItemSummary = 54, qbRptPurchaseByVendorSummary = 55, qbRptSalesByCustomerSummary = 56,
  qbRptSalesByItemSummary = 57, qbRptSalesByRepSummary = 58, qbRptSalesTaxLiability = 59,
  qbRptSalesTaxRevenueSummary = 60, qbRptTrialBalance = 61, qbRptVendorBalanceSummary = 62,
  qbRptJobEstimatesVsActualsDetail = 63, qbRptJobEstimatesVsActualsSummary = 64,
  qbRptJobProfitabilityDetail = 65, qbRptJobProfitabilitySummary = 66, qbRptItemEstimatesVsActuals = 67,
  qbRptItemProfitability = 68, qbRptTimeByItem = 69, qbRptTimeByJobDetail = 70, qbRptTimeByJobSummary = 71,
  qbRptTimeByName = 72, qbRptBalanceSheetBudgetOverview = 73, qbRptBalanceSheetBudgetVsActual = 74,
  qbRptProfitAndLossBudgetOverview = 75, qbRptProfitAndLossBudgetPerformance = 76,
  qbRptProfitAndLossBudgetVsActual = 77, qbRptEmployeeStateTaxesDetail = 78, qbRptPayrollItemDetail = 79,
  qbRptPayrollReviewDetail = 80, qbRptPayrollTransactionDetail = 81, qbRptPayrollTransactionsByPayee = 82,
  qbRptEmployeeEarningsSummary = 83, qbRptPayrollLiabilityBalances = 84, qbRptPayrollSummary = 85,
  qbRptOpenSalesOrderByCustomer = 86, qbRptOpenSalesOrderByItem = 87, qbRptTransactionDetail = 88,
  qbRptTransactionSummary = 89,
};

// The kind of a report request; it gives the request name ("GeneralSummary" + "ReportQueryRq").
enum qbEnumReportType : std::int32_t {
  ReportTypeAging = 1,
  ReportTypeBudget = 2,
  ReportTypeCustomSummary = 3,
  ReportTypeCustomDetail = 4,
  ReportTypeGeneralSummary = 5,
  ReportTypeGeneralDetail = 6,
  ReportTypeJob = 7,
  ReportTypeTime = 8,
  ReportTypePayrollDetail = 9,
  ReportTypePayrollSummary = 10,
};

// The kind of a report row ("TextRow", "DataRow", "TotalRow", "SubtotalRow"); the data row's name is
// spelled so.
enum qbEnumRptRowType : std::int32_t {
  qbRptRowTypeText = 1,
  qbrptRowTypeData = 2,
  qbRptRowTypeTotal = 3,
  qbRptRowTypeSubTotal = 4,
};

// Report columns ("IncludeColumn" when asked for, "ColType" when read back). The codes of the
// first 62 are those of the oldest column set; the later columns follow.
enum qbEnumReportFields : std::int32_t {
  qbFldAccount = 1, qbFldAddr1 = 2, qbFldAddr2 = 3, qbFldAddr3 = 4, qbFldAddr4 = 5, qbFldAging = 6,
  qbFldAmount = 7, qbFldAverageCost = 8, qbFldBilledDate = 9, qbFldBillingStatus = 10, qbFldBlank = 11,
  qbFldClass = 12, qbFldCostPrice = 13, qbFldCredit = 14, qbFldCustomField = 15, qbFldDate = 16,
  qbFldDebit = 17, qbFldDeliveryDate = 18, qbFldDueDate = 19, qbFldEstimateActive = 20, qbFldFOB = 21,
  qbFldItem = 22, qbFldItemDesc = 23, qbFldMemo = 24, qbFldModifiedTime = 25, qbFldLastModifiedBy = 26,
  qbFldName = 27, qbFldOpenBalance = 28, qbFldOriginalAmount = 29, qbFldPaidAmount = 30, qbFldPaidStatus = 31,
  qbFldPaidThroughDate = 32, qbFldPaymentMethod = 33, qbFldPayrollItem = 34, qbFldPONumber = 35,
  qbFldPrintStatus = 36, qbFldProgressAmount = 37, qbFldProgressPercent = 38, qbFldQuantity = 39,
  qbFldQuantityAvailable = 40, qbFldQuantityOnHand = 41, qbFldQuantityOnSalesOrder = 42,
  qbFldReceivedQuantity = 43, qbFldRefNumber = 44, qbFldRunningBalance = 45, qbFldSalesRep = 46,
  qbFldSalesTaxCode = 47, qbFldShipDate = 48, qbFldShipMethod = 49, qbFldSourceName = 50,
  qbFldSplitAccount = 51, qbFldSSNOrTaxID = 52, qbFldTaxLine = 53, qbFldTaxTableVersion = 54, qbFldTerms = 55,
  qbFldTxnID = 56, qbFldTxnNumber = 57, qbFldTxnType = 58, qbFldUnitPrice = 59, qbFldUserEdit = 60,
  qbFldValueOnHand = 61, qbFldClearedStatus = 62, qbFldWageBase = 63, qbFldWageBaseTips = 64, qbFldAddr5 = 65,
  qbFldAmountDifference = 66, qbFldCalculatedAmount = 67, qbFldCreateDate = 68, qbFldCurrency = 69,
  qbFldDuration = 70, qbFldEarliestReceiptDate = 71, qbFldExchangeRate = 72, qbFldIncomeSubjectToTax = 73,
  qbFldInvoiced = 74, qbFldIsAdjustment = 75, qbFldItemVendor = 76, qbFldLabel = 77,
  qbFldLatestOrPriorState = 78, qbFldNameAccountNumber = 79, qbFldNameAddress = 80, qbFldNameCity = 81,
  qbFldNameContact = 82, qbFldNameEmail = 83, qbFldNameFax = 84, qbFldNamePhone = 85, qbFldNameState = 86,
  qbFldNameZip = 87, qbFldPercent = 88, qbFldPercentChange = 89, qbFldPercentOfTotalRetail = 90,
  qbFldPercentOfTotalValue = 91, qbFldPhysicalCount = 92, qbFldQuantityOnOrder = 93,
  qbFldQuantityOnPendingBuild = 94, qbFldReorderPoint = 95, qbFldRetailValueOnHand = 96,
  qbFldSalesPerWeek = 97, qbFldSerialOrLotNumber = 98, qbFldShipToAddr1 = 99, qbFldShipToAddr2 = 100,
  qbFldShipToAddr3 = 101, qbFldShipToAddr4 = 102, qbFldShipToAddr5 = 103, qbFldSONumber = 104,
  qbFldSuggestedReorder = 105, qbFldTotal = 106,
};

// A report's period ("ReportDateMacro"); DateMacroCustom sends the dates themselves.
enum qbEnumReportDateMacro : std::int32_t {
  DateMacroAll = 1, DateMacroToday = 2, DateMacroThisWeek = 3, DateMacroThisWeekToDate = 4,
  DateMacroThisMonth = 5, DateMacroThisMonthToDate = 6, DateMacroThisQuarter = 7,
  DateMacroThisQuarterToDate = 8, DateMacroThisYear = 9, DateMacroThisYearToDate = 10,
  DateMacroYesterday = 11, DateMacroLastWeek = 12, DateMacroLastWeekToDate = 13, DateMacroLastMonth = 14,
  DateMacroLastMonthToDate = 15, DateMacroLastQuarter = 16, DateMacroLastQuarterToDate = 17,
  DateMacroLastYear = 18, DateMacroLastYearToDate = 19, DateMacroNextWeek = 20, DateMacroNextFourWeeks = 21,
  DateMacroNextMonth = 22, DateMacroNextQuarter = 23, DateMacroNextYear = 24, DateMacroCustom = 25,
};

// Transaction types ("TxnType", "TxnTypeFilter").
enum qbEnumTxnType : std::int32_t {
  qbTxnTypeARRefundCreditCard = 1, qbTxnTypeBill = 2, qbTxnTypeBillPaymentCheck = 3,
  qbTxnTypeBillPaymentCreditCard = 4, qbTxnTypeBuildAssembly = 5, qbTxnTypeCharge = 6, qbTxnTypeCheck = 7,
  qbTxnTypeCreditCardCharge = 8, qbTxnTypeCreditCardCredit = 9, qbTxnTypeCreditMemo = 10,
  qbTxnTypeDeposit = 11, qbTxnTypeEstimate = 12, qbTxnTypeInventoryAdjustment = 13, qbTxnTypeInvoice = 14,
  qbTxnTypeItemReceipt = 15, qbTxnTypeJournalEntry = 16, qbTxnTypeLiabilityAdjustment = 17,
  qbTxnTypePaycheck = 18, qbTxnTypePayrollLiabilityCheck = 19, qbTxnTypePurchaseOrder = 20,
  qbTxnTypeReceivePayment = 21, qbTxnTypeSalesOrder = 22, qbTxnTypeSalesReceipt = 23,
  qbTxnTypeSalesTaxPaymentCheck = 24, qbTxnTypeTransfer = 25, qbTxnTypeVendorCredit = 26,
  qbTxnTypeYTDAdjustment = 27,
};

// Name list kinds ("EntityTypeFilter").
enum qbEnumEntityType : std::int32_t {
  qbEntityTypeCustomer = 1, qbEntityTypeEmployee = 2, qbEntityTypeOtherName = 3, qbEntityTypeVendor = 4,
};

// Whether a line or time entry is billable ("BillableStatus").
enum qbEnumBillableStatus : std::int32_t {
  qbBillableStatusBillable = 1, qbBillableStatusNotBillable = 2, qbBillableStatusHasBeenBilled = 3,
};

// The groups of QuickBooks' report menu.
enum qbEnumReportGroups : std::int32_t {
  qbReportGroupCompanyAndFinancial = 1, qbReportGroupCustomersAndReceivables = 2, qbReportGroupSales = 3,
  qbReportGroupJobsTimeAndMileage = 4, qbReportGroupVendorsAndPayables = 5, qbReportGroupPurchases = 6,
  qbReportGroupInventory = 7, qbReportGroupEmployeesAndPayroll = 8, qbReportGroupBanking = 9,
  qbReportGroupAccountantAndTaxes = 10, qbReportGroupBudgets = 11, qbReportGroupList = 12,
  qbReportGroupCustom = 13,
};

// The calendar of a summary report ("ReportCalendar").
enum qbEnumReportCalendar : std::int32_t {
  qbReportCalendarFiscalYear = 1, qbReportCalendarCalendarYear = 2, qbReportCalendarTaxYear = 3,
};

// Which rows and columns a summary report returns ("ReturnRows", "ReturnCols").
enum qbEnumReportReturnRowCol : std::int32_t {
  qbReturnActiveOnly = 1, qbReturnNonZero = 2, qbReturnAll = 3,
};

// What a report summarises its rows and columns by ("SummarizeRowsBy",
// "SummarizeColumnsBy"; TaxLine is taken for rows only).
enum qbEnumReportColSortFields : std::int32_t {
  qbSummarizeByAccount = 1, qbSummarizeByBalanceSheet = 2, qbSummarizeByClass = 3, qbSummarizeByCustomer = 4,
  qbSummarizeByCustomerType = 5, qbSummarizeByDay = 6, qbSummarizeByEmployee = 7, qbSummarizeByFourWeek = 8,
  qbSummarizeByHalfMonth = 9, qbSummarizeByIncomeStatement = 10, qbSummarizeByItemDetail = 11,
  qbSummarizeByItemType = 12, qbSummarizeByMonth = 13, qbSummarizeByPayee = 14,
  qbSummarizeByPaymentMethod = 15, qbSummarizeByPayrollItemDetail = 16, qbSummarizeByPayrollYtdDetail = 17,
  qbSummarizeByQuarter = 18, qbSummarizeBySalesRep = 19, qbSummarizeBySalesTaxCode = 20,
  qbSummarizeByShipMethod = 21, qbSummarizeByTaxLine = 22, qbSummarizeByTerms = 23,
  qbSummarizeByTotalOnly = 24, qbSummarizeByTwoWeek = 25, qbSummarizeByVendor = 26,
  qbSummarizeByVendorType = 27, qbSummarizeByWeek = 28, qbSummarizeByYear = 29,
};

// The type of a custom field ("DataExtType").
enum qbEnumDataExtDataType : std::int32_t {
  qbDataExtTypeINTTYPE = 1, qbDataExtTypeAMTTYPE = 2, qbDataExtTypePRICETYPE = 3, qbDataExtTypeQUANTYPE = 4,
  qbDataExtTypePERCENTTYPE = 5, qbDataExtTypeDATETIMETYPE = 6, qbDataExtTypeSTR255TYPE = 7,
  qbDataExtTypeSTR1024TYPE = 8,
};

// A transaction's cleared state ("ClearedStatus").
enum qbEnumClearedStatus : std::int32_t {
  qbClearedStatusCleared = 1, qbClearedStatusNotCleared = 2, qbClearedStatusPending = 3,
};

// When paid time off accrues ("AccrualPeriod").
enum qbEnumPayrollAccrualPeriod : std::int32_t {
  qbAccrualPeriodBeginningOfYear = 1, qbAccrualPeriodEveryHourOnPaycheck = 2,
  qbAccrualPeriodEveryPaycheck = 3,
};

// An employee's pay period ("PayPeriod").
enum qbEnumPayrollPayFrequency : std::int32_t {
  qbPayFrequencyDaily = 1, qbPayFrequencyWeekly = 2, qbPayFrequencyBiweekly = 3,
  qbPayFrequencySemimonthly = 4, qbPayFrequencyMonthly = 5, qbPayFrequencyQuarterly = 6,
  qbPayFrequencyYearly = 7,
};

// The account groups a report can be filtered by ("AccountTypeFilter").
enum qbEnumReportAccountFilters : std::int32_t {
  qbAccountFilterAccountsPayable = 1, qbAccountFilterAccountsReceivable = 2,
  qbAccountFilterAllowedFor1099 = 3, qbAccountFilterAPAndSalesTax = 4, qbAccountFilterAPOrCreditCard = 5,
  qbAccountFilterARAndAP = 6, qbAccountFilterAsset = 7, qbAccountFilterBalanceSheet = 8,
  qbAccountFilterBank = 9, qbAccountFilterBankAndARAndAPAndUF = 10, qbAccountFilterBankAndUF = 11,
  qbAccountFilterCostOfSales = 12, qbAccountFilterCreditCard = 13, qbAccountFilterCurrentAsset = 14,
  qbAccountFilterCurrentAssetAndExpense = 15, qbAccountFilterCurrentLiability = 16,
  qbAccountFilterEquity = 17, qbAccountFilterEquityAndIncomeAndExpense = 18,
  qbAccountFilterExpenseAndOtherExpense = 19, qbAccountFilterFixedAsset = 20,
  qbAccountFilterIncomeAndExpense = 21, qbAccountFilterIncomeAndOtherIncome = 22,
  qbAccountFilterLiability = 23, qbAccountFilterLiabilityAndEquity = 24,
  qbAccountFilterLongTermLiability = 25, qbAccountFilterNonPosting = 26, qbAccountFilterOrdinaryExpense = 27,
  qbAccountFilterOrdinaryIncome = 28, qbAccountFilterOrdinaryIncomeAndCOGS = 29,
  qbAccountFilterOrdinaryIncomeAndExpense = 30, qbAccountFilterOtherAsset = 31,
  qbAccountFilterOtherCurrentAsset = 32, qbAccountFilterOtherCurrentLiability = 33,
  qbAccountFilterOtherExpense = 34, qbAccountFilterOtherIncome = 35, qbAccountFilterOtherIncomeOrExpense = 36,
};

// What a budget report is built from ("BudgetCriterion").
enum qbEnumReportBudgetCriterion : std::int32_t {
  qbBudgetCriterionAccounts = 1, qbBudgetCriterionAccountsAndClasses = 2,
  qbBudgetCriterionAccountsAndCustomers = 3,
};

// Budget report columns ("SummarizeBudgetColumnsBy").
enum qbEnumReportBudgetSummarizeColsBy : std::int32_t {
  qbBudgetColsByClass = 1, qbBudgetColsByCustomer = 2, qbBudgetColsByDate = 3,
};

// Budget report rows ("SummarizeBudgetRowsBy").
enum qbEnumReportBudgetSummarizeRowsBy : std::int32_t {
  qbBudgetRowsByAccount = 1, qbBudgetRowsByClass = 2, qbBudgetRowsByCustomer = 3,
};

// Which detail lines a report shows ("ReportDetailLevelFilter").
enum qbEnumReportDetailLevelFilter : std::int32_t {
  qbDetailLevelAll = 1, qbDetailLevelAllExceptSummary = 2, qbDetailLevelSummaryOnly = 3,
};

// Posting or non-posting transactions in a report ("ReportPostingStatusFilter").
enum qbEnumReportPostingStatusFilter : std::int32_t {
  qbPostingStatusEither = 1, qbPostingStatusNonPosting = 2, qbPostingStatusPosting = 3,
};

// An account's place in the cash flow statement ("CashFlowClassification").
enum qbEnumCashFlowClassification : std::int32_t {
  qbCashFlowNone = 1, qbCashFlowOperating = 2, qbCashFlowInvesting = 3, qbCashFlowFinancing = 4,
  qbCashFlowNotApplicable = 5,
};

// The accounts QuickBooks creates and uses itself ("SpecialAccountType").
enum qbEnumSpecialAccountType : std::int32_t {
  qbSpecialAccountAccountsPayable = 1, qbSpecialAccountAccountsReceivable = 2,
  qbSpecialAccountCondenseItemAdjustmentExpenses = 3, qbSpecialAccountCostOfGoodsSold = 4,
  qbSpecialAccountDirectDepositLiabilities = 5, qbSpecialAccountEstimates = 6,
  qbSpecialAccountExchangeGainLoss = 7, qbSpecialAccountInventoryAssets = 8,
  qbSpecialAccountItemReceiptAccount = 9, qbSpecialAccountOpeningBalanceEquity = 10,
  qbSpecialAccountPayrollExpenses = 11, qbSpecialAccountPayrollLiabilities = 12,
  qbSpecialAccountPettyCash = 13, qbSpecialAccountPurchaseOrders = 14,
  qbSpecialAccountReconciliationDifferences = 15, qbSpecialAccountRetainedEarnings = 16,
  qbSpecialAccountSalesOrders = 17, qbSpecialAccountSalesTaxPayable = 18,
  qbSpecialAccountUncategorizedExpenses = 19, qbSpecialAccountUncategorizedIncome = 20,
  qbSpecialAccountUndepositedFunds = 21,
};

// A non-wage payroll item's type ("NonWageType").
enum qbEnumPayrollItemNonWageType : std::int32_t {
  qbNonWageTypeAddition = 1, qbNonWageTypeCompanyContribution = 2, qbNonWageTypeDeduction = 3,
  qbNonWageTypeDirectDeposit = 4, qbNonWageTypeTax = 5,
};

// When a menu extension entry is shown or enabled ("VisibleIf", "EnabledIf" ...).
enum qbMnuConditions : std::int32_t {
  qbMnuMultiUserMode = 1, qbMnuHasCustomers = 2, qbMnuHasVendors = 3, qbMnuInventoryEnabled = 4,
  qbMnuClassesEnabled = 5, qbMnuPayrollEnabled = 6, qbMnuTimeTrackingEnabled = 7, qbMnuPriceLevelsEnabled = 8,
  qbMnuAssemblyItemsEnabled = 9, qbMnuSalesOrdersEnabled = 10, qbMnuEstimatesEnabled = 11,
  qbMnuSalesTaxEnabled = 12, qbMnuIsAccountantCopy = 13, qbMnuAccountantCopyExists = 14,
};

// The QuickBooks menus an application can extend ("AddToMenu").
enum qbMnuNames : std::int32_t {
  qbMnuFile = 1, qbMnuCompany = 2, qbMnuCustomers = 3, qbMnuVendors = 4, qbMnuEmployees = 5, qbMnuBanking = 6,
};

// The library's tables, one per list and transaction kind; a transaction line knows its owner's kind
// by this code.
enum zqEnumTableName : std::int32_t {
  zqTableNameNone = 0,
  zqTableNameAccount = 1, zqTableNameClass = 2, zqTableNameCustomerMsg = 3, zqTableNameCustomerType = 4,
  zqTableNameDateDrivenTerms = 5, zqTableNameStandardTerms = 6, zqTableNameItemDiscount = 7,
  zqTableNameItemGroup = 8, zqTableNameItemInventory = 9, zqTableNameItemInventoryAssembly = 10,
  zqTableNameItemNonInventory = 11, zqTableNameItemOtherCharge = 12, zqTableNameItemPayment = 13,
  zqTableNameCustomer = 14, zqTableNameItemSalesTax = 15, zqTableNameItemSalesTaxGroup = 16,
  zqTableNameItemService = 17, zqTableNameItemSubtotal = 18, zqTableNameJobType = 19, zqTableNameVendor = 20,
  zqTableNameOtherName = 21, zqTableNamePaymentMethod = 22, zqTableNameBill = 23, zqTableNameSalesRep = 24,
  zqTableNameSalesTaxCode = 25, zqTableNameEmployee = 26, zqTableNameCheck = 27, zqTableNameShipMethod = 28,
  zqTableNamePurchaseOrder = 29, zqTableNameToDo = 30, zqTableNameVendorType = 31,
  zqTableNameVendorCredit = 32, zqTableNameCreditCardCharge = 33, zqTableNameCreditCardCredit = 34,
  zqTableNameJournalEntry = 35, zqTableNameInvoice = 36, zqTableNameReceivePayment = 37,
  zqTableNameSalesReceipt = 38, zqTableNameCreditMemo = 39, zqTableNameEstimate = 40,
  zqTableNameTimeTracking = 41, zqTableNameDeposit = 42, zqTableNameBillPaymentCheck = 43,
  zqTableNamePayrollItemWage = 44, zqTableNameItem = 45, zqTableNameEntity = 46, zqTableNameTerms = 47,
  zqTableNameCharge = 48, zqTableNameInventoryAdjustment = 49, zqTableNameItemReceipt = 50,
  zqTableNameSalesTaxPaymentCheck = 51, zqTableNameSalesOrder = 52, zqTableNameBuildAssembly = 53,
  zqTableNameTemplate = 54, zqTableNamePayrollItemNonWage = 55, zqTableNameCompany = 56,
  zqTableNamePriceLevel = 57, zqTableNameTaxCode = 58, zqTableNameBillPaymentCreditCard = 59,
  zqTableNameCurrency = 60, zqTableNameUnitOfMeasureSet = 61, zqTableNameItemFixedAsset = 62,
  zqTableNameDataExtDef = 63,
};

// The fields an entry list (ListEntries, TxnEntries) can ask for; the XMLTag is the element asked for.
enum zqFields : std::int32_t {
  zqFieldListID = 1, zqFieldTxnID = 2, zqFieldName = 3, zqFieldFullName = 4, zqFieldIsActive = 5,
  zqFieldParent = 6, zqFieldSublevel = 7, zqFieldTimeCreated = 8, zqFieldTimeModified = 9,
  zqFieldEditSequence = 10, zqFieldDescription = 11, zqFieldPrice = 12, zqFieldCompanyName = 13,
  zqFieldFirstName = 14, zqFieldLastName = 15, zqFieldPhone = 16, zqFieldFax = 17, zqFieldEmail = 18,
  zqFieldContact = 19, zqFieldBalance = 20, zqFieldTotalBalance = 21, zqFieldAccountNumber = 22,
  zqFieldAccountType = 23, zqFieldTxnNumber = 24, zqFieldTxnDate = 25, zqFieldRefNumber = 26,
  zqFieldMemo = 27, zqFieldAmount = 28, zqFieldCustomer = 29, zqFieldVendor = 30, zqFieldEntity = 31,
  zqFieldAccount = 32, zqFieldClass = 33, zqFieldDueDate = 34, zqFieldIsPaid = 35,
  zqFieldBalanceRemaining = 36, zqFieldTotalAmount = 37, zqFieldSalesTaxCode = 38, zqFieldQuantityOnHand = 39,
  zqFieldCustomFields = 40,
};

// The kind of an incoming event notification ("DataEvent", "UIEvent", "UIExtensionEvent").
enum qbEventTypes : std::int32_t {
  qbEventData = 1,
  qbEventUI = 2,
  qbEventUIExtension = 3,
};

// What happened to a list record or a transaction ("ListEventOperation", "TxnEventOperation").
enum qbListEventOperations : std::int32_t {
  qbListEventAdd = 1,
  qbListEventModify = 2,
  qbListEventDelete = 3,
  qbListEventMerge = 4,
};

enum qbTxnEventOperations : std::int32_t {
  qbTxnEventAdd = 1,
  qbTxnEventModify = 2,
  qbTxnEventDelete = 3,
};

}  // namespace brenvale

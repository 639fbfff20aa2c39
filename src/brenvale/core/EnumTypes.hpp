#pragma once
// The public enumerations. Each has a run-time catalogue of the same values (EnumCatalogue.cpp).
#include <cstdint>

namespace brenvale {

enum zqEnumObjectState : std::int32_t {
  zqObjectStateNew = 1,
  zqObjectStateClean = 2,
  zqObjectStateDirty = 3,
};

// Every kind of record the library reads or writes. List kinds come first (below 100), then the
// transaction kinds; the catalogue's CollectionKey of each is its qbXML name.
enum zqEnumListObjectType : std::int32_t {
  zqObjectTypeNone = 0,
  zqObjectTypeAccount = 1,
  zqObjectTypeCustomer = 2,
  zqObjectTypeEmployee = 3,
  zqObjectTypeOtherName = 4,
  zqObjectTypeVendor = 5,
  zqObjectTypeStandardTerms = 6,
  zqObjectTypeDateDrivenTerms = 7,
  zqObjectTypeClass = 8,
  zqObjectTypeSalesRep = 9,
  zqObjectTypeCustomerType = 10,
  zqObjectTypeVendorType = 11,
  zqObjectTypeJobType = 12,
  zqObjectTypeCustomerMsg = 13,
  zqObjectTypePaymentMethod = 14,
  zqObjectTypeShipMethod = 15,
  zqObjectTypeSalesTaxCode = 16,
  zqObjectTypeToDo = 17,
  zqObjectTypeItemService = 18,
  zqObjectTypeItemNonInventory = 19,
  zqObjectTypeItemOtherCharge = 20,
  zqObjectTypeItemInventory = 21,
  zqObjectTypeItemInventoryAssembly = 22,
  zqObjectTypeItemSubtotal = 23,
  zqObjectTypeItemDiscount = 24,
  zqObjectTypeItemPayment = 25,
  zqObjectTypeItemSalesTax = 26,
  zqObjectTypeItemSalesTaxGroup = 27,
  zqObjectTypeItemGroup = 28,
  zqObjectTypeItemFixedAsset = 29,
  zqObjectTypePayrollItemWage = 30,
  zqObjectTypePayrollItemNonWage = 31,
  zqObjectTypeTemplate = 32,
  zqObjectTypePriceLevel = 33,
  zqObjectTypeCurrency = 34,
  zqObjectTypeUnitOfMeasureSet = 35,
  zqObjectTypeTaxCode = 36,
  zqObjectTypeEntity = 37,
  zqObjectTypeItem = 38,
  zqObjectTypeTerms = 39,
  zqObjectTypeDataExtDef = 40,
  zqObjectTypeCompany = 41,
  zqObjectTypeBill = 101,
  zqObjectTypeBillPaymentCheck = 102,
  zqObjectTypeBillPaymentCreditCard = 103,
  zqObjectTypeCharge = 104,
  zqObjectTypeCheck = 105,
  zqObjectTypeCreditCardCharge = 106,
  zqObjectTypeCreditCardCredit = 107,
  zqObjectTypeCreditMemo = 108,
  zqObjectTypeDeposit = 109,
  zqObjectTypeEstimate = 110,
  zqObjectTypeInvoice = 111,
  zqObjectTypeInventoryAdjustment = 112,
  zqObjectTypeJournalEntry = 113,
  zqObjectTypePurchaseOrder = 114,
  zqObjectTypeReceivePayment = 115,
  zqObjectTypeSalesReceipt = 116,
  zqObjectTypeTimeTracking = 117,
  zqObjectTypeVendorCredit = 118,
  zqObjectTypeSalesOrder = 119,
  zqObjectTypeItemReceipt = 120,
  zqObjectTypeBuildAssembly = 121,
  zqObjectTypeSalesTaxPaymentCheck = 122,
  zqObjectTypeBillPayment = 123,
  zqObjectTypeStatementCharge = 124,
};
constexpr bool IsListObjectType(zqEnumListObjectType t) { return t > 0 && t < 100; }

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

}  // namespace brenvale

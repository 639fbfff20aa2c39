// Every QuickBooks list the engine keeps, as data: its fields (types, lengths, order, the qbXML
// version that brought each), the requests QuickBooks has for it, where its names must be unique,
// the values its queries filter on, the defaults QuickBooks fills in, and its own rules as hooks.
#include "brenvale/rqp/lists/ListKinds.hpp"

#include <cctype>

#include "brenvale/rqp/ledger/Ledger.hpp"
#include "brenvale/rqp/lists/KindHooks.hpp"
#include "brenvale/rqp/protocol/Text.hpp"

namespace brenvale::rqp::detail {
namespace {

using Defaults = std::vector<std::pair<std::string_view, std::string_view>>;

// What QuickBooks offers for a list.
enum Flags : unsigned {
  kAdd = 1,        // XAddRq
  kMod = 2,        // XModRq
  kDel = 4,        // a ListDelType
  kDataExt = 8,    // Ret carries DataExtRet; queries take OwnerID
  kIterator = 16,  // queries take iterator="Start|Continue|Stop"
  kNoFullName = 32,
  kNoActiveStatus = 64,
};

struct KindRow {
  int code;  // stored in company files: never renumber
  std::string_view base;
  std::string_view label;
  NameGroup group;
  Family family;
  std::string_view nameField;
  unsigned flags;
  std::string_view versions;      // the qbXML versions of the Add, Mod and Query requests: "4.0 6.0 4.0"
  std::string_view fields;        // Add, Mod and Ret bodies in one field list (Declarations.hpp)
  std::string_view queryFilters;  // filters beyond the common list filter
  Defaults defaults = {};
  std::vector<std::string_view> indexed = {};
  std::vector<ChangeHook> hooks = {};
  std::vector<DeleteGuard> deleteGuards = {};
  std::vector<Computed> computed = {};
  std::vector<std::pair<std::string_view, std::vector<std::string_view>>> refTargets = {};
};

constexpr unsigned kList = kAdd | kDel;
constexpr unsigned kItem = kAdd | kMod | kDel | kDataExt | kIterator;

// Fields QuickBooks Desktop takes in requests but keeps only in other editions are declared
// [am]: accepted and not stored.
constexpr std::string_view kHierarchy = "Name!:s31 FullName[r]:s159 IsActive:b ParentRef:ref Sublevel[r]:int";
constexpr std::string_view kItemHead =
    "Name!:s31 FullName[r]:s159 BarCode[am]^12.0=BarCode BarCodeValue[r]^12.0:s50 IsActive:b ClassRef^12.0:ref159 "
    "ParentRef:ref Sublevel[r]:int";
constexpr std::string_view kFlatItemHead =
    "Name!:s31 BarCode[am]^12.0=BarCode BarCodeValue[r]^12.0:s50 IsActive:b";
constexpr std::string_view kSalesOrPurchase =
    "(SalesOrPurchase~M=SalesOrPurchase | SalesAndPurchase~M=SalesAndPurchase)!";
constexpr std::string_view kSpecialItem =
    "SpecialItemType[r]^6.0:e(FinanceCharge|ReimbursableExpenseGroup|ReimbursableExpenseSubtotal)";
constexpr std::string_view kInventory =
    "UnitOfMeasureSetRef^7.0:ref31 ForceUOMChange[m]^7.0:b IsTaxIncluded[am]^6.0%cua:b SalesTaxCodeRef:ref3 "
    "SalesDesc:s4095 SalesPrice:price IncomeAccountRef^m7.0:ref159 ApplyIncomeAccountRefToExistingTxns[m]^7.0:b "
    "PurchaseDesc:s4095 PurchaseCost:price PurchaseTaxCodeRef[am]^6.0%cua:ref3 COGSAccountRef:ref159";
constexpr std::string_view kInventoryVendor = "PrefVendorRef:ref41 AssetAccountRef:ref159";

// Item kinds in the order QuickBooks lists them in an item query (the order of its answer's kinds).
constexpr std::string_view kItemOrder[] = {"ItemService",  "ItemNonInventory", "ItemOtherCharge",   "ItemInventory",
                                           "ItemInventoryAssembly", "ItemFixedAsset", "ItemSubtotal", "ItemDiscount",
                                           "ItemPayment", "ItemSalesTax", "ItemSalesTaxGroup", "ItemGroup"};

const std::vector<KindRow>& Rows() {
  // Inventory reports its prices even when none was given, and what is on order (no orders yet).
  const Defaults inventory = {{"SalesPrice", "0.00"}, {"PurchaseCost", "0.00"}, {"QuantityOnOrder", "0"},
                              {"QuantityOnSalesOrder", "0"}};
  // What QuickBooks computes from the ledger: balances, and the stock of inventory.
  const std::vector<Computed> accountBalances = {{"Balance", AccountBalanceSql(false)},
                                                 {"TotalBalance", AccountBalanceSql(true)}};
  const std::vector<Computed> stock = {{"QuantityOnHand", QuantityOnHandSql()}, {"AverageCost", AverageCostSql()}};
  // What an assembly is built from, and what a group may hold (any item but another group).
  const std::vector<std::string_view> components = {"ItemInventory", "ItemInventoryAssembly", "ItemNonInventory",
                                                    "ItemService", "ItemOtherCharge"};
  std::vector<std::string_view> groupable;
  for (auto kind : kItemOrder)
    if (kind != "ItemGroup") groupable.push_back(kind);
  static const std::vector<KindRow> rows = {
      {1, "Account", "Account", NameGroup::Own, Family::None, "Name", kAdd | kMod | kDel | kDataExt, " 6.0 ",
       "Name!:s31 FullName[r]:s159 IsActive:b ParentRef:ref Sublevel[r]:int AccountType!:E.AccountType "
       "DetailAccountType[a]%o:s SpecialAccountType[r]^2.1:E.SpecialAccountType AccountNumber:s7 BankNumber^r2.0:s25 "
       "Desc:s200 OpenBalance[am]:amt OpenBalanceDate[am]:d Balance[r]:amt TotalBalance[r]:amt "
       "SalesTaxCodeRef[am]^6.0%cua:ref3 TaxLineID[am]^7.0%dca:int TaxLineInfoRet[r]^2.1{TaxLineID!:int TaxLineName:s256} "
       "CashFlowClassification[r]^2.1:e(None|Operating|Investing|Financing|NotApplicable) CurrencyRef^8.0:ref64",
       "AccountType*:E.AccountType CurrencyFilter^8.0=CurrencyFilter",
       {},
       {"AccountType", "SpecialAccountType"},
       {AccountTree, PostsOpeningBalance, AccountTaxLine, AccountOrderAndCashFlow},
       {KeepSpecialAccounts},
       accountBalances},
      {2, "Customer", "Customer", NameGroup::Names, Family::Entity, "Name", kAdd | kMod | kDel | kDataExt | kIterator,
       "", "Name!:s41 FullName[r]:s209 IsActive^m3.0:b ClassRef^12.0:ref159 ParentRef^m3.0:ref Sublevel[r]:int CompanyName:s41 "
       "Salutation:s15 FirstName:s25 MiddleName:s5 LastName:s25 Suffix[am]%o:s10 JobTitle^12.0:s41 BillAddress=Address "
       "BillAddressBlock[r]^6.0=AddressBlock ShipAddress=Address ShipAddressBlock[r]^6.0=AddressBlock "
       "ShipToAddress^12.0*50=ShipToAddress PrintAs[am]%o:s110 Phone:s21 Mobile[am]%o:s21 Pager[am]%o:s21 AltPhone:s21 "
       "Fax:s21 Email:s1023 Cc^12.0:s1023 Contact:s41 AltContact:s41 AdditionalContactRef^12.0*8=ContactRef "
       "Contacts~M~R^12.0*=Contacts CustomerTypeRef^m3.0:ref159 TermsRef^m3.0:ref31 SalesRepRef^m3.0:ref5 "
       "OpenBalance[a]:amt OpenBalanceDate[a]:d Balance[r]:amt TotalBalance[r]:amt SalesTaxCodeRef^m3.0:ref3 "
       "ItemSalesTaxRef^m3.0%da:ref31 SalesTaxCountry[am]^6.0%cua:e(Australia|Canada|UK|US) ResaleNumber^m3.0:s15 "
       "AccountNumber:s99 CreditLimit^m3.0:amt PreferredPaymentMethodRef^3.0:ref31 CreditCardInfo^3.0=CreditCardInfo "
       "JobStatus^m3.0:e(Awarded|Closed|InProgress|None|NotAwarded|Pending) JobStartDate^m3.0:d "
       "JobProjectedEndDate^m3.0:d JobEndDate^m3.0:d JobDesc^m3.0:s99 JobTypeRef^m3.0:ref159 Notes^a3.0^m3.0:s4095 "
       "AdditionalNotes~M~R^12.0*=AdditionalNotes IsStatementWithParent[am]^m3.0%o:b "
       "DeliveryMethod[am]^m3.0%o:e(Print|Fax|Email) "
       "PreferredDeliveryMethod^12.0:e(None|Email|Fax) PriceLevelRef^4.0:ref31 ExternalGUID[ar]^8.0:guid "
       "TaxRegistrationNumber[am]^8.0%cua:s30 CurrencyRef^8.0:ref64",
       "TotalBalanceFilter=TotalBalanceFilter CurrencyFilter^8.0=CurrencyFilter ClassFilter^12.0=ClassFilter",
       {{"JobStatus", "None"}, {"PreferredDeliveryMethod", "None"}},
       {},
       {PostsOpeningBalance},
       {},
       {{"Balance", EntityBalanceSql("AccountsReceivable", false)},
        {"TotalBalance", EntityBalanceSql("AccountsReceivable", true)}}},
      {3, "Vendor", "Vendor", NameGroup::Names, Family::Entity, "Name", kAdd | kMod | kDel | kDataExt | kIterator, "",
       "Name!:s41 IsActive^m3.0:b ClassRef^12.0:ref159 CompanyName:s41 Salutation:s15 "
       "FirstName:s25 MiddleName:s5 LastName:s25 Suffix[am]%o:s10 JobTitle^12.0:s41 VendorAddress=Address "
       "VendorAddressBlock[r]^6.0=AddressBlock ShipAddress^11.0=Address Phone:s21 Mobile[am]%o:s21 Pager[am]%o:s21 "
       "AltPhone:s21 Fax:s21 Email:s1023 Cc^12.0:s1023 Contact:s41 AltContact:s41 "
       "AdditionalContactRef^12.0*8=ContactRef Contacts~M~R^12.0*=Contacts NameOnCheck:s41 AccountNumber:s99 "
       "Notes^a3.0^m3.0:s4095 AdditionalNotes~M~R^12.0*=AdditionalNotes VendorTypeRef^m3.0:ref159 TermsRef^m3.0:ref31 "
       "CreditLimit^m3.0:amt VendorTaxIdent^m3.0:s15 IsVendorEligibleFor1099^m3.0%da:b OpenBalance[a]:amt "
       "OpenBalanceDate[a]:d Balance[r]:amt "
       "BillingRateRef^6.0:ref31 ExternalGUID[ar]^8.0:guid SalesTaxCodeRef[am]^8.0%cua:ref3 "
       "SalesTaxCountry[am]^8.0%cua:e(Australia|Canada|UK|US) IsSalesTaxAgency[am]^8.0%cua:b "
       "SalesTaxReturnRef[am]^8.0%cua:ref TaxRegistrationNumber[am]^8.0%cua:s30 "
       "ReportingPeriod[am]^8.0%cua:e(Monthly|Quarterly) IsTaxTrackedOnPurchases[am]^8.0%cua:b "
       "TaxOnPurchasesAccountRef[am]^8.0%cua:ref IsTaxTrackedOnSales[am]^8.0%cua:b "
       "TaxOnSalesAccountRef[am]^8.0%cua:ref IsTaxOnTax[am]^8.0%cua:b PrefillAccountRef^8.0*3:ref159 "
       "CurrencyRef^8.0:ref64",
       "TotalBalanceFilter=TotalBalanceFilter CurrencyFilter^8.0=CurrencyFilter ClassFilter^12.0=ClassFilter",
       {{"IsVendorEligibleFor1099", "false"}},
       {},
       {PostsOpeningBalance},
       {},
       {{"Balance", EntityBalanceSql("AccountsPayable", false)}}},
      {4, "Employee", "Employee", NameGroup::Names, Family::Entity, "Name", kAdd | kMod | kDel | kDataExt, "",
       "Name%o:s41 IsActive^m3.0:b Salutation:s15 FirstName:s25 MiddleName:s5 LastName:s25 Suffix[am]%o:s10 "
       "JobTitle^12.0:s41 SupervisorRef^13.0%d:ref209 Department^13.0%d:s31 Description^13.0%d:s64 "
       "TargetBonus^13.0:amt EmployeeAddress{Addr1:s41 Addr2:s41 Addr3[am]%o:s Addr4[am]^2.0%o:s City:s31 State:s21 "
       "PostalCode:s13 Country[am]%o:s} PrintAs:s41 Phone:s21 Mobile^2.1:s21 Pager^2.1:s21 PagerPIN^2.1:s10 AltPhone:s21 "
       "Fax^2.1:s21 SSN[a]:s15 SSN[r]^2.0:s11 Email:s1023 AdditionalContactRef^12.0*8=ContactRef "
       "EmergencyContacts^13.0%d{PrimaryContact=EmergencyContact SecondaryContact=EmergencyContact} "
       "EmployeeType^m5.0:e(Officer|Owner|Regular|Statutory) PartOrFullTime^13.0:e(PartTime|FullTime) "
       "Exempt^13.0%d:e(Exempt|NonExempt) KeyEmployee^13.0%d:e(Yes|No) Gender[ar]:e(Male|Female) HiredDate^m5.0:d "
       "OriginalHireDate^13.0%d:d AdjustedServiceDate^13.0%d:d ReleasedDate^m5.0:d BirthDate^2.0:d "
       "USCitizen^13.0%d:e(Yes|No) Ethnicity^13.0%d:e(AmericianIndian|Asian|Black|Hawaiian|Hispanic|White|TwoOrMoreRaces) "
       "Disabled^13.0%d:e(Yes|No) DisabilityDesc^13.0%d:s25 OnFile^13.0%d:e(Yes|No) WorkAuthExpireDate^13.0%d:d "
       "USVeteran^13.0%d:e(Yes|No) MilitaryStatus^13.0%d:e(Active|Reserve) AccountNumber:s99 Notes^3.0^r2.1:s4095 "
       "AdditionalNotes~M~R^12.0*=AdditionalNotes BillingRateRef^6.0:ref31 EmployeePayrollInfo~M^2.0=PayrollInfo "
       "ExternalGUID[ar]^8.0:guid",
       "", {}, {}, {EmployeeName}},
      {5, "OtherName", "Other Name", NameGroup::Names, Family::Entity, "Name", kAdd | kMod | kDel | kDataExt, "",
       "Name!:s41 IsActive:b CompanyName:s41 Salutation:s15 FirstName:s25 MiddleName:s5 LastName:s25 "
       "OtherNameAddress=Address OtherNameAddressBlock[r]^6.0=AddressBlock Phone:s21 AltPhone:s21 Fax:s21 "
       "Email:s1023 Contact:s41 AltContact:s41 AccountNumber:s99 Notes^3.0:s4095 ExternalGUID[ar]^8.0:guid",
       ""},
      {6, "Class", "Class", NameGroup::Own, Family::None, "Name", kAdd | kMod | kDel, " 8.0 ", kHierarchy, ""},
      {7, "CustomerType", "Customer Type", NameGroup::Own, Family::None, "Name", kList, "", kHierarchy, ""},
      {8, "VendorType", "Vendor Type", NameGroup::Own, Family::None, "Name", kList, "", kHierarchy, ""},
      {9, "JobType", "Job Type", NameGroup::Own, Family::None, "Name", kList, "", kHierarchy, ""},
      {10, "CustomerMsg", "Customer Message", NameGroup::Own, Family::None, "Name", kList, "",
       "Name!:s101 IsActive:b", ""},
      {11, "PaymentMethod", "Payment Method", NameGroup::Own, Family::None, "Name", kList, "",
       "Name!:s31 IsActive:b PaymentMethodType^7.0:E.PaymentMethodType",
       "PaymentMethodType^7.0*:E.PaymentMethodType", {}, {"PaymentMethodType"}},
      {12, "ShipMethod", "Ship Method", NameGroup::Own, Family::None, "Name", kList, "", "Name!:s15 IsActive:b", ""},
      {13, "SalesTaxCode", "Sales Tax Code", NameGroup::Own, Family::None, "Name", kAdd | kMod | kDel, " 8.0 ",
       "Name!:s3 IsActive:b IsTaxable!:b Desc:s31 ItemPurchaseTaxRef[am]^6.0%cua:ref31 ItemSalesTaxRef[am]^6.0%cua:ref31", ""},
      {14, "SalesRep", "Sales Rep", NameGroup::Own, Family::None, "Initial", kAdd | kMod | kDel, " 3.0 ",
       "Initial!:s5 IsActive:b SalesRepEntityRef!:ref41", ""},
      {15, "StandardTerms", "Terms", NameGroup::Terms, Family::Terms, "Name", kList, "",
       "Name!:s31 IsActive:b StdDueDays:int StdDiscountDays:int DiscountPct:pct", "",
       {{"StdDueDays", "0"}, {"StdDiscountDays", "0"}, {"DiscountPct", "0.00"}}},
      {16, "DateDrivenTerms", "Terms", NameGroup::Terms, Family::Terms, "Name", kList, "",
       "Name!:s31 IsActive:b DayOfMonthDue!:int<1,31> DueNextMonthDays:int DiscountDayOfMonth:int<1,31> "
       "DiscountPct:pct",
       "", {{"DueNextMonthDays", "0"}}},
      {17, "ToDo", "To Do", NameGroup::Own, Family::None, "", kAdd | kMod | kDel | kNoFullName, " 9.0 ",
       "Notes!:s4095 IsActive:b Type^13.0:e(Task|Call|Fax|Email|Meeting|Appointment) "
       "Priority^13.0:e(Low|Medium|High) (CustomerRef!:ref209 | EmployeeRef!:ref31 | LeadRef!:ref209 | "
       "VendorRef!:ref41) IsDone:b ReminderDate:d ReminderTime^13.0:ti",
       "DoneStatus:e(All|DoneOnly|NotDoneOnly)", {{"IsDone", "false"}, {"ReminderDate", "today"}}, {"IsDone"}},
      {20, "ItemService", "Item", NameGroup::Items, Family::Item, "Name", kItem, "",
       "$ItemHead UnitOfMeasureSetRef^7.0:ref31 ForceUOMChange[m]^7.0:b IsTaxIncluded[am]^6.0%cua:b SalesTaxCodeRef:ref3 "
       "$SalesOrPurchase ExternalGUID[ar]^8.0:guid",
       "ClassFilter^12.0=ClassFilter", {}, {}, {ItemBarCode}},
      // QuickBooks' schema has ClassRef after ParentRef in ItemNonInventoryAdd, before it elsewhere.
      {21, "ItemNonInventory", "Item", NameGroup::Items, Family::Item, "Name", kItem, "",
       "Name!:s31 FullName[r]:s159 BarCode[am]^12.0=BarCode BarCodeValue[r]^12.0:s50 IsActive:b "
       "ClassRef[mr]^12.0:ref159 ParentRef:ref ClassRef[a]^12.0:ref159 Sublevel[r]:int "
       "ManufacturerPartNumber^7.0:s31 UnitOfMeasureSetRef^7.0:ref31 ForceUOMChange[m]^7.0:b "
       "IsTaxIncluded[am]^6.0%cua:b SalesTaxCodeRef:ref3 $SalesOrPurchase ExternalGUID[ar]^8.0:guid",
       "ClassFilter^12.0=ClassFilter", {}, {}, {ItemBarCode}},
      {22, "ItemOtherCharge", "Item", NameGroup::Items, Family::Item, "Name", kItem, " 3.0 ",
       "$ItemHead IsTaxIncluded[am]^6.0%cua:b SalesTaxCodeRef:ref3 $SalesOrPurchase $SpecialItem "
       "ExternalGUID[ar]^8.0:guid",
       "ClassFilter^12.0=ClassFilter", {}, {}, {ItemBarCode}},
      {23, "ItemInventory", "Item", NameGroup::Items, Family::Item, "Name", kItem, "",
       "$ItemHead ManufacturerPartNumber^7.0:s31 $Inventory ApplyCOGSAccountRefToExistingTxns[m]^8.0:b "
       "$InventoryVendor ReorderPoint:quan Max^13.0:quan "
       "QuantityOnHand[ar]:quan TotalValue[a]:amt InventoryDate[a]:d AverageCost[r]:price QuantityOnOrder[r]:quan "
       "QuantityOnSalesOrder[r]^2.0:quan ExternalGUID[ar]^8.0:guid",
       "ClassFilter^12.0=ClassFilter", inventory, {}, {ItemBarCode, InventoryStart}, {}, stock},
      {24, "ItemInventoryAssembly", "Item", NameGroup::Items, Family::Item, "Name", kItem, "2.0 3.0 2.0",
       "$ItemHead ManufacturerPartNumber^12.0:s31 $Inventory $InventoryVendor BuildPoint:quan Max^13.0:quan "
       "QuantityOnHand[ar]:quan "
       "TotalValue[a]:amt InventoryDate[a]:d AverageCost[r]:price QuantityOnOrder[r]:quan "
       "QuantityOnSalesOrder[r]:quan ExternalGUID[ar]^8.0:guid "
       "(ClearItemsInGroup[m]!:b | ItemInventoryAssemblyLine*{ItemInventoryRef!:ref159 Quantity:quan})",
       "ClassFilter^12.0=ClassFilter", inventory, {}, {ItemBarCode, InventoryStart, AssemblyComponents}, {}, stock,
       {{"ItemInventoryRef", components}}},
      {25, "ItemFixedAsset", "Item", NameGroup::Items, Family::Item, "Name", kItem, "3.0 3.0 3.0",
       "$FlatItemHead ClassRef^12.0:ref159 AcquiredAs!:e(New|Old) PurchaseDesc!:s50 PurchaseDate!:d "
       "PurchaseCost:price VendorOrPayeeName:s50 AssetAccountRef:ref159 "
       "FixedAssetSalesInfo[ar]{SalesDesc!:s50 SalesDate!:d SalesPrice:price SalesExpense:price} "
       "FixedAssetSalesInfoMod[m]{SalesDesc:s50 SalesDate:d SalesPrice:price SalesExpense:price} AssetDesc:s50 "
       "Location:s50 PONumber:s30 SerialNumber:s30 WarrantyExpDate:d Notes:s4095 AssetNumber:s10 CostBasis:amt "
       "YearEndAccumulatedDepreciation:amt YearEndBookValue:amt ExternalGUID[ar]^8.0:guid",
       "ClassFilter^12.0=ClassFilter", {}, {}, {ItemBarCode}},
      {26, "ItemSubtotal", "Item", NameGroup::Items, Family::Item, "Name", kItem, " 3.0 ",
       "$FlatItemHead ItemDesc:s4095 $SpecialItem ExternalGUID[ar]^8.0:guid", "", {}, {}, {ItemBarCode}},
      {27, "ItemDiscount", "Item", NameGroup::Items, Family::Item, "Name", kItem, " 3.0 ",
       "$ItemHead ItemDesc:s4095 SalesTaxCodeRef:ref3 (DiscountRate!:price | DiscountRatePercent!:pct) "
       "AccountRef^m7.0:ref159 ApplyAccountRefToExistingTxns[m]^7.0:b ExternalGUID[ar]^8.0:guid",
       "ClassFilter^12.0=ClassFilter", {}, {}, {ItemBarCode}},
      {28, "ItemPayment", "Item", NameGroup::Items, Family::Item, "Name", kItem, " 3.0 ",
       "$FlatItemHead ClassRef^12.0:ref159 ItemDesc:s4095 DepositToAccountRef:ref159 PaymentMethodRef:ref31 "
       "ExternalGUID[ar]^8.0:guid",
       "ClassFilter^12.0=ClassFilter", {}, {}, {ItemBarCode}},
      {29, "ItemSalesTax", "Item", NameGroup::Items, Family::Item, "Name", kItem, " 3.0 ",
       "$FlatItemHead ClassRef^12.0:ref159 ItemDesc:s4095 TaxRate:pct TaxVendorRef:ref41 "
       "SalesTaxReturnLineRef[am]^8.0%cua:ref ExternalGUID[ar]^8.0:guid",
       "ClassFilter^12.0=ClassFilter", {{"TaxRate", "0.00"}}, {}, {ItemBarCode}},
      {30, "ItemSalesTaxGroup", "Item", NameGroup::Items, Family::Item, "Name", kItem, " 3.0 ",
       "$FlatItemHead ItemDesc:s4095 ExternalGUID[ar]^8.0:guid ItemSalesTaxRef+:ref31", "", {}, {}, {ItemBarCode}, {},
       {}, {{"ItemSalesTaxRef", {"ItemSalesTax"}}}},
      {31, "ItemGroup", "Item", NameGroup::Items, Family::Item, "Name", kItem, " 3.0 ",
       "$FlatItemHead ItemDesc:s4095 UnitOfMeasureSetRef^7.0:ref31 ForceUOMChange[m]^7.0:b IsPrintItemsInGroup:b "
       "$SpecialItem ExternalGUID[ar]^8.0:guid "
       "(ClearItemsInGroup[m]!:b | ItemGroupLine*{ItemRef:ref Quantity:quan UnitOfMeasure^7.0:s31})",
       "", {{"IsPrintItemsInGroup", "false"}}, {}, {ItemBarCode}, {}, {}, {{"ItemRef", groupable}}},
      {40, "PriceLevel", "Price Level", NameGroup::Own, Family::None, "Name", kAdd | kMod | kDel, "4.0 4.0 4.0",
       "Name!:s31 IsActive:b PriceLevelType[r]:e(FixedPercentage|PerItem) (PriceLevelFixedPercentage!:pct | "
       "PriceLevelPerItem~R*{ItemRef!:ref (CustomPrice!:price | CustomPricePercent!:pct | "
       "AdjustPercentage[am]!:pct AdjustRelativeTo[am]!:e(StandardPrice|Cost|CurrentCustomPrice))!} "
       "CurrencyRef^8.0:ref64)",
       "ItemRef:ref CurrencyFilter^8.0=CurrencyFilter", {}, {}, {PerItemPrices}},
      {41, "PayrollItemWage", "Payroll Item", NameGroup::Own, Family::None, "Name", kList, "2.0  ",
       "Name!:s31 IsActive:b WageType!:E.WageType ExpenseAccountRef^r2.0!:ref159", ""},
      {42, "PayrollItemNonWage", "Payroll Item", NameGroup::Own, Family::None, "Name", kDel, "  3.0",
       "Name!:s31 IsActive:b NonWageType:e(Addition|CompanyContribution|Deduction|DirectDeposit|Tax) "
       "ExpenseAccountRef:ref159 LiabilityAccountRef:ref159",
       ""},
      {43, "Template", "Template", NameGroup::Own, Family::None, "Name", 0, "  3.0",
       "Name!:s31 IsActive:b TemplateType:e(BuildAssembly|CreditMemo|Estimate|Invoice|PurchaseOrder|SalesOrder|"
       "SalesReceipt)",
       ""},
      {44, "Currency", "Currency", NameGroup::Own, Family::None, "Name", kAdd | kMod | kDel, "8.0 8.0 8.0",
       "Name!:s64 IsActive:b CurrencyCode!:s3 CurrencyFormat{ThousandSeparator:e(Comma|Period|Space|Apostrophe) "
       "ThousandSeparatorGrouping:e(XX_XXX_XXX|X_XX_XX_XXX) DecimalPlaces:e(0|2) DecimalSeparator:e(Period|Comma)} "
       "IsUserDefinedCurrency[r]:b ExchangeRate[r]:float AsOfDate[r]:d",
       "", {{"IsUserDefinedCurrency", "true"}}},
      {45, "UnitOfMeasureSet", "Unit Of Measure Set", NameGroup::Own, Family::None, "Name", kList, "7.0  7.0",
       "Name!:s31 IsActive:b UnitOfMeasureType!:e(Area|Count|Length|Other|Time|Volume|Weight) "
       "BaseUnit!{Name!:s31 Abbreviation!:s31} RelatedUnit*{Name!:s31 Abbreviation!:s31 ConversionRatio!:price} "
       "DefaultUnit*{UnitUsedFor!:e(Purchase|Sales|Shipping) Unit!:s31}",
       ""},
      {46, "BillingRate", "Billing Rate", NameGroup::Own, Family::None, "Name", kList | kNoActiveStatus,
       "6.0  6.0",
       "Name!:s31 BillingRateType[r]:e(FixedRate|PerItem) (FixedBillingRate!:price | "
       "BillingRatePerItem~R+{ItemRef!:ref (CustomRate!:price | CustomRatePercent!:pct | "
       "AdjustPercentage[a]!:pct AdjustBillingRateRelativeTo[a]!:e(StandardRate|CurrentCustomRate))!})!",
       "ItemRef:ref", {}, {}, {PerItemPrices}},
  };
  return rows;
}

// Expands the "$Name" pieces shared by the item lists.
std::string Expand(std::string_view fields) {
  static const std::pair<std::string_view, std::string_view> pieces[] = {
      {"$ItemHead", kItemHead},       {"$FlatItemHead", kFlatItemHead}, {"$SalesOrPurchase", kSalesOrPurchase},
      {"$SpecialItem", kSpecialItem}, {"$InventoryVendor", kInventoryVendor}, {"$Inventory", kInventory},
  };
  std::string out(fields);
  for (auto [name, text] : pieces) {
    std::size_t at;
    while ((at = out.find(name)) != std::string::npos &&
           (at + name.size() == out.size() || !std::isalnum(static_cast<unsigned char>(out[at + name.size()]))))
      out.replace(at, name.size(), text);
  }
  return out;
}

// The query of a kind: by ListID, by full name, or by the common filters and the kind's own.
std::string QueryFields(std::string_view base, unsigned flags, std::string_view filters) {
  if (base == "Template") return "IncludeRetElement^4.0*:s50";
  std::string fields = "(ListID+:id";
  if (!(flags & kNoFullName)) fields += " | FullName+:s";
  fields += " | MaxReturned:int<1,2147483647> ";
  if (!(flags & kNoActiveStatus)) fields += "ActiveStatus:e(ActiveOnly|InactiveOnly|All) ";
  fields += "FromModifiedDate:dt ToModifiedDate:dt (NameFilter=NameFilter | NameRangeFilter=NameRangeFilter) ";
  fields += filters;
  fields += ") IncludeRetElement";
  fields += base == "PriceLevel" || base == "BillingRate" ? "*:s50" : "^4.0*:s50";
  if (flags & kDataExt) fields += " OwnerID^2.0*:guid";
  return fields;
}

// The version of the Add, Mod or Query request (0, 1, 2) in a row's "add mod query" versions.
std::string RequestVersion(std::string_view versions, int which) {
  auto parts = Split(versions, ' ');
  return which < static_cast<int>(parts.size()) ? std::string(parts[static_cast<std::size_t>(which)]) : std::string();
}

}  // namespace

void DeclareListKinds(DeclBuilder& b) {
  b.Aggregate("ContactRef", "ContactName!:s40 ContactValue!:s255");
  b.Aggregate("ShipToAddress", "Name!:s41 " + b.AggregateText("Address") + " DefaultShipTo:b");
  b.Aggregate("Contacts",
              "ListID[mr]!:id TimeCreated[r]!:dt TimeModified[r]!:dt EditSequence[mr]!:s16 Contact[r]:s41 "
              "Salutation:s15 FirstName!:s25 MiddleName:s5 LastName:s25 JobTitle:s41 AdditionalContactRef*5=ContactRef");
  b.Aggregate("AdditionalNotes", "NoteID[mr]!:int Date[r]!:d Note!:s4095");
  b.Aggregate("CreditCardInfo",
              "CreditCardNumber:s25 ExpirationMonth:int<1,12> ExpirationYear:int NameOnCard:s41 "
              "CreditCardAddress:s41 CreditCardPostalCode:s41");
  b.Aggregate("EmergencyContact",
              "ContactName!:s40 ContactValue!:s255 "
              "Relation:e(Spouse|Partner|Mother|Father|Sister|Brother|Son|Daughter|Friend|Other)");
  b.Aggregate("Hours",
              "HoursAvailable:ti AccrualPeriod:e(BeginningOfYear|EveryHourOnPaycheck|EveryPaycheck) HoursAccrued:ti "
              "MaximumHours:ti IsResettingHoursEachNewYear:b HoursUsed^5.0:ti AccrualStartDate^5.0:d");
  b.Aggregate("PayrollInfo",
              "PayPeriod:e(Daily|Weekly|Biweekly|Semimonthly|Monthly|Quarterly|Yearly) ClassRef:ref159 "
              "(ClearEarnings[am]!:b | Earnings+{PayrollItemWageRef!:ref31 (Rate!:price | RatePercent!:pct)!}) "
              "UseTimeDataToCreatePaychecks^3.0:e(NotSet|UseTimeData|DoNotUseTimeData) SickHours=Hours "
              "VacationHours=Hours");
  b.Aggregate("BarCode", "BarCodeValue:s50 AssignEvenIfUsed:b AllowOverride:b");
  b.Aggregate("SalesOrPurchase",
              "Desc:s4095 (Price!:price | PricePercent!:pct) AccountRef^m7.0:ref159 "
              "ApplyAccountRefToExistingTxns[m]^7.0:b");
  b.Aggregate("SalesAndPurchase",
              "SalesDesc:s4095 SalesPrice:price IncomeAccountRef^m7.0:ref159 ApplyIncomeAccountRefToExistingTxns[m]^7.0:b "
              "PurchaseDesc:s4095 PurchaseCost:price PurchaseTaxCodeRef[am]^6.0%cua:ref3 ExpenseAccountRef^m7.0:ref159 "
              "ApplyExpenseAccountRefToExistingTxns[m]^7.0:b PrefVendorRef:ref41");
  b.Enumeration("AccountType",
                "AccountsPayable|AccountsReceivable|Bank|CostOfGoodsSold|CreditCard|Equity|Expense|FixedAsset|Income|"
                "LongTermLiability|NonPosting|OtherAsset|OtherCurrentAsset|OtherCurrentLiability|OtherExpense|"
                "OtherIncome");
  b.Enumeration("SpecialAccountType",
                "AccountsPayable|AccountsReceivable|CondenseItemAdjustmentExpenses|CostOfGoodsSold|"
                "DirectDepositLiabilities|Estimates|ExchangeGainLoss|InventoryAssets|ItemReceiptAccount|"
                "OpeningBalanceEquity|PayrollExpenses|PayrollLiabilities|PettyCash|PurchaseOrders|"
                "ReconciliationDifferences|RetainedEarnings|SalesOrders|SalesTaxPayable|UncategorizedExpenses|"
                "UncategorizedIncome|UndepositedFunds");
  b.Enumeration("PaymentMethodType",
                "AmericanExpress|Cash|Check|DebitCard|Discover|ECheck|GiftCard|MasterCard|Other|OtherCreditCard|Visa");
  b.Enumeration("WageType",
                "Bonus|Commission|HourlyOvertime|HourlyRegular|HourlySick|HourlyVacation|SalaryRegular|SalarySick|"
                "SalaryVacation");
  std::string delTypes;
  for (auto& row : Rows())
    if (row.flags & kDel) delTypes += std::string(row.base) + "|";
  b.Enumeration("ListDelType", delTypes + "InventorySite|Vehicle|WorkersCompCode");

  for (auto& row : Rows()) {
    std::string base(row.base);
    std::string fields = Expand(row.fields);
    std::string retFields = "ListID!:id TimeCreated!:dt TimeModified!:dt EditSequence!:s16 " + fields;
    if (row.flags & kDataExt) retFields += " DataExtRet^2.0*=DataExtRet";
    b.Element(base + "Ret", retFields, 'r');
    if (row.flags & kAdd) {
      b.Element(base + "Add", fields, 'a');
      b.Request(base + "AddRq", "@" + base + "Add! IncludeRetElement^4.0*:s50", "requestID",
                RequestVersion(row.versions, 0));
    }
    if (row.flags & kMod) {
      b.Element(base + "Mod", "ListID!:id EditSequence!:s16 " + fields, 'm');
      b.Request(base + "ModRq", "@" + base + "Mod! IncludeRetElement^4.0*:s50", "requestID",
                RequestVersion(row.versions, 1));
    }
    std::string attributes = "requestID,metaData";
    if (row.flags & kIterator) attributes += ",iterator,iteratorID";
    b.Request(base + "QueryRq", QueryFields(row.base, row.flags, row.queryFilters), attributes,
              RequestVersion(row.versions, 2));
  }
  b.Request("ItemQueryRq", QueryFields("Item", kDataExt, ""), "requestID,metaData,iterator,iteratorID");
  b.Request("EntityQueryRq", QueryFields("Entity", 0, ""), "requestID,metaData,iterator,iteratorID");
  b.Request("TermsQueryRq", QueryFields("Terms", 0, ""), "requestID,metaData");
  b.Request("BillToPayQueryRq",
            "PayeeEntityRef!:ref209 APAccountRef:ref159 DueDate:d CurrencyFilter^8.0=CurrencyFilter "
            "IncludeRetElement^4.0*:s50",
            "requestID,metaData", "2.0");
  b.Request("ListDelRq", "ListDelType!:E.ListDelType ListID!:id", "requestID", "1.1");
  b.Request("ListDeletedQueryRq",
            "ListDelType+:E.ListDelType DeletedDateRangeFilter{FromDeletedDate:dt ToDeletedDate:dt} "
            "IncludeRetElement^4.0*:s50",
            "requestID,metaData", "2.0");
}

std::vector<ListKind> BuildListKinds() {
  const Declarations& ds = Declarations::Get();
  std::vector<ListKind> kinds;
  for (auto& row : Rows()) {
    ListKind k;
    k.code = row.code;
    k.base = row.base;
    k.label = row.label;
    k.group = row.group;
    k.family = row.family;
    k.nameField = row.nameField;
    k.defaults = row.defaults;
    k.indexed = row.indexed;
    k.hooks = row.hooks;
    k.deleteGuards = row.deleteGuards;
    k.computed = row.computed;
    k.refTargets = row.refTargets;
    for (std::size_t i = 0; i < std::size(kItemOrder); ++i)
      if (kItemOrder[i] == row.base) k.sortGroup = static_cast<int>(i);
    std::string base(k.base);
    k.retName = base + "Ret";
    k.addName = base + "Add";
    k.modName = base + "Mod";
    k.addRq = base + "AddRq";
    k.modRq = base + "ModRq";
    k.queryRq = base + "QueryRq";
    k.ret = ds.Named(k.retName);
    if (row.flags & kAdd) k.add = ds.Named(k.addName);
    if (row.flags & kMod) k.mod = ds.Named(k.modName);
    k.deletable = row.flags & kDel;
    k.hierarchical = k.ret->Child("ParentRef") && k.ret->Child("Sublevel");
    for (auto& c : k.computed) k.computedSelect += (k.computedSelect.empty() ? "SELECT id, " : ", ") + c.sql;
    if (!k.computedSelect.empty()) k.computedSelect += " FROM records WHERE id IN (SELECT value FROM json_each(?))";
    kinds.push_back(std::move(k));
  }
  return kinds;
}

}  // namespace brenvale::rqp::detail

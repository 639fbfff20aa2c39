#include "brenvale/rqp/detail/ListKinds.hpp"

#include <algorithm>
#include <cctype>

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
};

struct KindRow {
  int code;  // stored in company files: never renumber
  std::string_view base;
  std::string_view label;
  NameGroup group;
  Family family;
  std::string_view nameField;
  unsigned flags;
  std::string_view fields;        // Add, Mod and Ret bodies in one field list (Declarations.hpp)
  std::string_view queryFilters;  // filters beyond the common list filter
  Defaults defaults;
};

constexpr unsigned kList = kAdd | kDel;
constexpr unsigned kItem = kAdd | kMod | kDel | kDataExt | kIterator;

// Fields QuickBooks Desktop takes in requests but keeps only in other editions are declared
// [am]: accepted and not stored.
constexpr std::string_view kHierarchy = "Name!:s31 FullName[r]:s159 IsActive:b ParentRef:ref Sublevel[r]:int";
constexpr std::string_view kItemHead =
    "Name!:s31 FullName[r]:s159 BarCode[am]=BarCode BarCodeValue[r]:s50 IsActive:b ClassRef:ref159 ParentRef:ref "
    "Sublevel[r]:int";
constexpr std::string_view kFlatItemHead =
    "Name!:s31 BarCode[am]=BarCode BarCodeValue[r]:s50 IsActive:b";
constexpr std::string_view kSalesOrPurchase =
    "(SalesOrPurchase~M=SalesOrPurchase | SalesAndPurchase~M=SalesAndPurchase)!";
constexpr std::string_view kSpecialItem = "SpecialItemType[r]:e(FinanceCharge|ReimbursableExpenseGroup|ReimbursableExpenseSubtotal)";

const std::vector<KindRow>& Rows() {
  const Defaults quantities = {{"QuantityOnHand", "0"}, {"AverageCost", "0.00"}, {"QuantityOnOrder", "0"},
                               {"QuantityOnSalesOrder", "0"}};
  static const std::vector<KindRow> rows = {
      {1, "Account", "Account", NameGroup::Own, Family::None, "Name", kAdd | kMod | kDel | kDataExt,
       "Name!:s31 FullName[r]:s159 IsActive:b ParentRef:ref Sublevel[r]:int AccountType!:E.AccountType "
       "DetailAccountType[a]:s SpecialAccountType[r]:E.SpecialAccountType AccountNumber:s7 BankNumber:s25 "
       "Desc:s200 OpenBalance[am]:amt OpenBalanceDate[am]:d Balance[r]:amt TotalBalance[r]:amt "
       "SalesTaxCodeRef[am]:ref3 TaxLineID[am]:int TaxLineInfoRet[r]{TaxLineID!:int TaxLineName:s256} "
       "CashFlowClassification[r]:e(None|Operating|Investing|Financing|NotApplicable) CurrencyRef:ref64",
       "AccountType*:E.AccountType CurrencyFilter=CurrencyFilter",
       {{"Balance", "0.00"}, {"TotalBalance", "0.00"}}},
      {2, "Customer", "Customer", NameGroup::Names, Family::Entity, "Name", kAdd | kMod | kDel | kDataExt | kIterator,
       "Name!:s41 FullName[r]:s209 IsActive:b ClassRef:ref159 ParentRef:ref Sublevel[r]:int CompanyName:s41 "
       "Salutation:s15 FirstName:s25 MiddleName:s5 LastName:s25 Suffix[am]:s10 JobTitle:s41 BillAddress=Address "
       "BillAddressBlock[r]=AddressBlock ShipAddress=Address ShipAddressBlock[r]=AddressBlock "
       "ShipToAddress*50=ShipToAddress PrintAs[am]:s110 Phone:s21 Mobile[am]:s21 Pager[am]:s21 AltPhone:s21 Fax:s21 "
       "Email:s1023 Cc:s1023 Contact:s41 AltContact:s41 AdditionalContactRef*8=ContactRef Contacts~M~R*=Contacts "
       "CustomerTypeRef:ref159 TermsRef:ref31 SalesRepRef:ref5 OpenBalance[a]:amt OpenBalanceDate[a]:d "
       "Balance[r]:amt TotalBalance[r]:amt SalesTaxCodeRef:ref3 ItemSalesTaxRef:ref31 "
       "SalesTaxCountry[am]:e(Australia|Canada|UK|US) ResaleNumber:s15 AccountNumber:s99 CreditLimit:amt "
       "PreferredPaymentMethodRef:ref31 CreditCardInfo=CreditCardInfo "
       "JobStatus:e(Awarded|Closed|InProgress|None|NotAwarded|Pending) JobStartDate:d JobProjectedEndDate:d "
       "JobEndDate:d JobDesc:s99 JobTypeRef:ref159 Notes:s4095 AdditionalNotes~M~R*=AdditionalNotes "
       "IsStatementWithParent[am]:b DeliveryMethod[am]:e(Print|Fax|Email) PreferredDeliveryMethod:e(None|Email|Fax) "
       "PriceLevelRef:ref31 ExternalGUID[ar]:guid TaxRegistrationNumber[am]:s30 CurrencyRef:ref64",
       "TotalBalanceFilter=TotalBalanceFilter CurrencyFilter=CurrencyFilter ClassFilter=ClassFilter",
       {{"Balance", "0.00"}, {"TotalBalance", "0.00"}, {"JobStatus", "None"}, {"PreferredDeliveryMethod", "None"}}},
      {3, "Vendor", "Vendor", NameGroup::Names, Family::Entity, "Name", kAdd | kMod | kDel | kDataExt | kIterator,
       "Name!:s41 IsActive:b ClassRef:ref159 CompanyName:s41 Salutation:s15 FirstName:s25 MiddleName:s5 "
       "LastName:s25 Suffix[am]:s10 JobTitle:s41 VendorAddress=Address VendorAddressBlock[r]=AddressBlock "
       "ShipAddress=Address Phone:s21 Mobile[am]:s21 Pager[am]:s21 AltPhone:s21 Fax:s21 Email:s1023 Cc:s1023 "
       "Contact:s41 AltContact:s41 AdditionalContactRef*8=ContactRef Contacts~M~R*=Contacts NameOnCheck:s41 "
       "AccountNumber:s99 Notes:s4095 AdditionalNotes~M~R*=AdditionalNotes VendorTypeRef:ref159 TermsRef:ref31 "
       "CreditLimit:amt VendorTaxIdent:s15 IsVendorEligibleFor1099:b OpenBalance[a]:amt OpenBalanceDate[a]:d "
       "Balance[r]:amt BillingRateRef:ref31 ExternalGUID[ar]:guid SalesTaxCodeRef[am]:ref3 "
       "SalesTaxCountry[am]:e(Australia|Canada|UK|US) IsSalesTaxAgency[am]:b SalesTaxReturnRef[am]:ref "
       "TaxRegistrationNumber[am]:s30 ReportingPeriod[am]:e(Monthly|Quarterly) IsTaxTrackedOnPurchases[am]:b "
       "TaxOnPurchasesAccountRef[am]:ref IsTaxTrackedOnSales[am]:b TaxOnSalesAccountRef[am]:ref IsTaxOnTax[am]:b "
       "PrefillAccountRef*3:ref159 CurrencyRef:ref64",
       "TotalBalanceFilter=TotalBalanceFilter CurrencyFilter=CurrencyFilter ClassFilter=ClassFilter",
       {{"IsVendorEligibleFor1099", "false"}, {"Balance", "0.00"}}},
      {4, "Employee", "Employee", NameGroup::Names, Family::Entity, "Name", kAdd | kMod | kDel | kDataExt,
       "Name:s41 IsActive:b Salutation:s15 FirstName:s25 MiddleName:s5 LastName:s25 Suffix[am]:s10 JobTitle:s41 "
       "SupervisorRef:ref209 Department:s31 Description:s64 TargetBonus:amt "
       "EmployeeAddress{Addr1:s41 Addr2:s41 Addr3[am]:s Addr4[am]:s City:s31 State:s21 PostalCode:s13 "
       "Country[am]:s} PrintAs:s41 Phone:s21 Mobile:s21 Pager:s21 PagerPIN:s10 AltPhone:s21 Fax:s21 SSN[ar]:s11 "
       "Email:s1023 AdditionalContactRef*8=ContactRef "
       "EmergencyContacts{PrimaryContact=EmergencyContact SecondaryContact=EmergencyContact} "
       "EmployeeType:e(Officer|Owner|Regular|Statutory) PartOrFullTime:e(PartTime|FullTime) "
       "Exempt:e(Exempt|NonExempt) KeyEmployee:e(Yes|No) Gender[ar]:e(Male|Female) HiredDate:d OriginalHireDate:d "
       "AdjustedServiceDate:d ReleasedDate:d BirthDate:d USCitizen:e(Yes|No) "
       "Ethnicity:e(AmericianIndian|Asian|Black|Hawaiian|Hispanic|White|TwoOrMoreRaces) Disabled:e(Yes|No) "
       "DisabilityDesc:s25 OnFile:e(Yes|No) WorkAuthExpireDate:d USVeteran:e(Yes|No) "
       "MilitaryStatus:e(Active|Reserve) AccountNumber:s99 Notes:s4095 AdditionalNotes~M~R*=AdditionalNotes "
       "BillingRateRef:ref31 EmployeePayrollInfo~M=PayrollInfo ExternalGUID[ar]:guid",
       "", {}},
      {5, "OtherName", "Other Name", NameGroup::Names, Family::Entity, "Name", kAdd | kMod | kDel | kDataExt,
       "Name!:s41 IsActive:b CompanyName:s41 Salutation:s15 FirstName:s25 MiddleName:s5 LastName:s25 "
       "OtherNameAddress=Address OtherNameAddressBlock[r]=AddressBlock Phone:s21 AltPhone:s21 Fax:s21 "
       "Email:s1023 Contact:s41 AltContact:s41 AccountNumber:s99 Notes:s4095 ExternalGUID[ar]:guid",
       "", {}},
      {6, "Class", "Class", NameGroup::Own, Family::None, "Name", kAdd | kMod | kDel, kHierarchy, "", {}},
      {7, "CustomerType", "Customer Type", NameGroup::Own, Family::None, "Name", kList, kHierarchy, "", {}},
      {8, "VendorType", "Vendor Type", NameGroup::Own, Family::None, "Name", kList, kHierarchy, "", {}},
      {9, "JobType", "Job Type", NameGroup::Own, Family::None, "Name", kList, kHierarchy, "", {}},
      {10, "CustomerMsg", "Customer Message", NameGroup::Own, Family::None, "Name", kList, "Name!:s101 IsActive:b", "",
       {}},
      {11, "PaymentMethod", "Payment Method", NameGroup::Own, Family::None, "Name", kList,
       "Name!:s31 IsActive:b PaymentMethodType:E.PaymentMethodType", "PaymentMethodType*:E.PaymentMethodType", {}},
      {12, "ShipMethod", "Ship Method", NameGroup::Own, Family::None, "Name", kList, "Name!:s15 IsActive:b", "", {}},
      {13, "SalesTaxCode", "Sales Tax Code", NameGroup::Own, Family::None, "Name", kAdd | kMod | kDel,
       "Name!:s3 IsActive:b IsTaxable!:b Desc:s31 ItemPurchaseTaxRef[am]:ref31 ItemSalesTaxRef[am]:ref31", "", {}},
      {14, "SalesRep", "Sales Rep", NameGroup::Own, Family::None, "Initial", kAdd | kMod | kDel,
       "Initial!:s5 IsActive:b SalesRepEntityRef!:ref41", "", {}},
      {15, "StandardTerms", "Terms", NameGroup::Terms, Family::Terms, "Name", kList,
       "Name!:s31 IsActive:b StdDueDays:int StdDiscountDays:int DiscountPct:pct", "",
       {{"StdDueDays", "0"}, {"StdDiscountDays", "0"}, {"DiscountPct", "0"}}},
      {16, "DateDrivenTerms", "Terms", NameGroup::Terms, Family::Terms, "Name", kList,
       "Name!:s31 IsActive:b DayOfMonthDue!:int<1,31> DueNextMonthDays:int DiscountDayOfMonth:int<1,31> "
       "DiscountPct:pct",
       "", {{"DueNextMonthDays", "0"}}},
      {17, "ToDo", "To Do", NameGroup::Own, Family::None, "", kAdd | kMod | kDel | kNoFullName,
       "Notes!:s4095 IsActive:b Type:e(Task|Call|Fax|Email|Meeting|Appointment) Priority:e(Low|Medium|High) "
       "(CustomerRef!:ref209 | EmployeeRef!:ref31 | LeadRef!:ref209 | VendorRef!:ref41) IsDone:b ReminderDate:d "
       "ReminderTime:ti",
       "DoneStatus:e(All|DoneOnly|NotDoneOnly)", {{"IsDone", "false"}, {"ReminderDate", "today"}}},
      {20, "ItemService", "Item", NameGroup::Items, Family::Item, "Name", kItem,
       "$ItemHead UnitOfMeasureSetRef:ref31 ForceUOMChange[m]:b IsTaxIncluded[am]:b SalesTaxCodeRef:ref3 "
       "$SalesOrPurchase ExternalGUID[ar]:guid",
       "ClassFilter=ClassFilter", {}},
      {21, "ItemNonInventory", "Item", NameGroup::Items, Family::Item, "Name", kItem,
       "$ItemHead ManufacturerPartNumber:s31 UnitOfMeasureSetRef:ref31 ForceUOMChange[m]:b IsTaxIncluded[am]:b "
       "SalesTaxCodeRef:ref3 $SalesOrPurchase ExternalGUID[ar]:guid",
       "ClassFilter=ClassFilter", {}},
      {22, "ItemOtherCharge", "Item", NameGroup::Items, Family::Item, "Name", kItem,
       "$ItemHead IsTaxIncluded[am]:b SalesTaxCodeRef:ref3 $SalesOrPurchase $SpecialItem ExternalGUID[ar]:guid",
       "ClassFilter=ClassFilter", {}},
      {23, "ItemInventory", "Item", NameGroup::Items, Family::Item, "Name", kItem,
       "$ItemHead ManufacturerPartNumber:s31 $Inventory ReorderPoint:quan Max:quan QuantityOnHand[ar]:quan "
       "TotalValue[a]:amt InventoryDate[a]:d AverageCost[r]:price QuantityOnOrder[r]:quan "
       "QuantityOnSalesOrder[r]:quan ExternalGUID[ar]:guid",
       "ClassFilter=ClassFilter", quantities},
      {24, "ItemInventoryAssembly", "Item", NameGroup::Items, Family::Item, "Name", kItem,
       "$ItemHead ManufacturerPartNumber:s31 $Inventory BuildPoint:quan Max:quan QuantityOnHand[ar]:quan "
       "TotalValue[a]:amt InventoryDate[a]:d AverageCost[r]:price QuantityOnOrder[r]:quan "
       "QuantityOnSalesOrder[r]:quan ExternalGUID[ar]:guid "
       "(ClearItemsInGroup[m]!:b | ItemInventoryAssemblyLine*{ItemInventoryRef!:ref159 Quantity:quan})",
       "ClassFilter=ClassFilter", quantities},
      {25, "ItemFixedAsset", "Item", NameGroup::Items, Family::Item, "Name", kItem,
       "$FlatItemHead ClassRef:ref159 AcquiredAs!:e(New|Old) PurchaseDesc!:s50 PurchaseDate!:d PurchaseCost:price "
       "VendorOrPayeeName:s50 AssetAccountRef:ref159 "
       "FixedAssetSalesInfo[ar]{SalesDesc!:s50 SalesDate!:d SalesPrice:price SalesExpense:price} "
       "FixedAssetSalesInfoMod[m]{SalesDesc:s50 SalesDate:d SalesPrice:price SalesExpense:price} AssetDesc:s50 "
       "Location:s50 PONumber:s30 SerialNumber:s30 WarrantyExpDate:d Notes:s4095 AssetNumber:s10 CostBasis:amt "
       "YearEndAccumulatedDepreciation:amt YearEndBookValue:amt ExternalGUID[ar]:guid",
       "ClassFilter=ClassFilter", {}},
      {26, "ItemSubtotal", "Item", NameGroup::Items, Family::Item, "Name", kItem,
       "$FlatItemHead ItemDesc:s4095 $SpecialItem ExternalGUID[ar]:guid", "", {}},
      {27, "ItemDiscount", "Item", NameGroup::Items, Family::Item, "Name", kItem,
       "$ItemHead ItemDesc:s4095 SalesTaxCodeRef:ref3 (DiscountRate!:price | DiscountRatePercent!:pct) "
       "AccountRef:ref159 ApplyAccountRefToExistingTxns[m]:b ExternalGUID[ar]:guid",
       "ClassFilter=ClassFilter", {}},
      {28, "ItemPayment", "Item", NameGroup::Items, Family::Item, "Name", kItem,
       "$FlatItemHead ClassRef:ref159 ItemDesc:s4095 DepositToAccountRef:ref159 PaymentMethodRef:ref31 "
       "ExternalGUID[ar]:guid",
       "ClassFilter=ClassFilter", {}},
      {29, "ItemSalesTax", "Item", NameGroup::Items, Family::Item, "Name", kItem,
       "$FlatItemHead ClassRef:ref159 ItemDesc:s4095 TaxRate:pct TaxVendorRef:ref41 SalesTaxReturnLineRef[am]:ref "
       "ExternalGUID[ar]:guid",
       "ClassFilter=ClassFilter", {{"TaxRate", "0"}}},
      {30, "ItemSalesTaxGroup", "Item", NameGroup::Items, Family::Item, "Name", kItem,
       "$FlatItemHead ItemDesc:s4095 ExternalGUID[ar]:guid ItemSalesTaxRef+:ref31", "", {}},
      {31, "ItemGroup", "Item", NameGroup::Items, Family::Item, "Name", kItem,
       "$FlatItemHead ItemDesc:s4095 UnitOfMeasureSetRef:ref31 ForceUOMChange[m]:b IsPrintItemsInGroup:b "
       "$SpecialItem ExternalGUID[ar]:guid "
       "(ClearItemsInGroup[m]!:b | ItemGroupLine*{ItemRef:ref Quantity:quan UnitOfMeasure:s31})",
       "", {{"IsPrintItemsInGroup", "false"}}},
      {40, "PriceLevel", "Price Level", NameGroup::Own, Family::None, "Name", kAdd | kMod | kDel,
       "Name!:s31 IsActive:b PriceLevelType[r]:e(FixedPercentage|PerItem) (PriceLevelFixedPercentage!:pct | "
       "PriceLevelPerItem~R*{ItemRef!:ref (CustomPrice!:price | CustomPricePercent!:pct | "
       "AdjustPercentage[am]!:pct AdjustRelativeTo[am]!:e(StandardPrice|Cost|CurrentCustomPrice))!} "
       "CurrencyRef:ref64)",
       "ItemRef:ref CurrencyFilter=CurrencyFilter", {}},
      {41, "PayrollItemWage", "Payroll Item", NameGroup::Own, Family::None, "Name", kList,
       "Name!:s31 IsActive:b WageType!:E.WageType ExpenseAccountRef!:ref159", "", {}},
      {42, "PayrollItemNonWage", "Payroll Item", NameGroup::Own, Family::None, "Name", kDel,
       "Name!:s31 IsActive:b NonWageType:e(Addition|CompanyContribution|Deduction|DirectDeposit|Tax) "
       "ExpenseAccountRef:ref159 LiabilityAccountRef:ref159",
       "", {}},
      {43, "Template", "Template", NameGroup::Own, Family::None, "Name", 0,
       "Name!:s31 IsActive:b TemplateType:e(BuildAssembly|CreditMemo|Estimate|Invoice|PurchaseOrder|SalesOrder|"
       "SalesReceipt)",
       "", {}},
      {44, "Currency", "Currency", NameGroup::Own, Family::None, "Name", kAdd | kMod | kDel,
       "Name!:s64 IsActive:b CurrencyCode!:s3 CurrencyFormat{ThousandSeparator:e(Comma|Period|Space|Apostrophe) "
       "ThousandSeparatorGrouping:e(XX_XXX_XXX|X_XX_XX_XXX) DecimalPlaces:e(0|2) DecimalSeparator:e(Period|Comma)} "
       "IsUserDefinedCurrency[r]:b ExchangeRate[r]:float AsOfDate[r]:d",
       "", {{"IsUserDefinedCurrency", "true"}}},
      {45, "UnitOfMeasureSet", "Unit Of Measure Set", NameGroup::Own, Family::None, "Name", kList,
       "Name!:s31 IsActive:b UnitOfMeasureType!:e(Area|Count|Length|Other|Time|Volume|Weight) "
       "BaseUnit!{Name!:s31 Abbreviation!:s31} RelatedUnit*{Name!:s31 Abbreviation!:s31 ConversionRatio!:price} "
       "DefaultUnit*{UnitUsedFor!:e(Purchase|Sales|Shipping) Unit!:s31}",
       "", {}},
      {46, "BillingRate", "Billing Rate", NameGroup::Own, Family::None, "Name", kList,
       "Name!:s31 BillingRateType[r]:e(FixedRate|PerItem) (FixedBillingRate!:price | "
       "BillingRatePerItem~R+{ItemRef!:ref (CustomRate!:price | CustomRatePercent!:pct | "
       "AdjustPercentage[a]!:pct AdjustBillingRateRelativeTo[a]!:e(StandardRate|CurrentCustomRate))!})!",
       "ItemRef:ref", {}},
  };
  return rows;
}

// Expands the "$Name" pieces shared by the item lists.
std::string Expand(std::string_view fields) {
  static const std::pair<std::string_view, std::string_view> pieces[] = {
      {"$ItemHead", kItemHead},
      {"$FlatItemHead", kFlatItemHead},
      {"$SalesOrPurchase", kSalesOrPurchase},
      {"$SpecialItem", kSpecialItem},
      {"$Inventory",
       "UnitOfMeasureSetRef:ref31 ForceUOMChange[m]:b IsTaxIncluded[am]:b SalesTaxCodeRef:ref3 SalesDesc:s4095 "
       "SalesPrice:price IncomeAccountRef:ref159 ApplyIncomeAccountRefToExistingTxns[m]:b PurchaseDesc:s4095 "
       "PurchaseCost:price PurchaseTaxCodeRef[am]:ref3 COGSAccountRef:ref159 ApplyCOGSAccountRefToExistingTxns[m]:b "
       "PrefVendorRef:ref41 AssetAccountRef:ref159"},
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

std::string QueryFields(const KindRow& row) {
  if (row.base == "Template") return "IncludeRetElement*:s50";
  std::string fields = "(ListID+:id";
  if (!(row.flags & kNoFullName)) fields += " | FullName+:s";
  fields += " | MaxReturned:int<1,2147483647> ActiveStatus:e(ActiveOnly|InactiveOnly|All) FromModifiedDate:dt "
            "ToModifiedDate:dt (NameFilter=NameFilter | NameRangeFilter=NameRangeFilter) ";
  fields += row.queryFilters;
  fields += ") IncludeRetElement*:s50";
  if (row.flags & kDataExt) fields += " OwnerID*:guid";
  return fields;
}

std::vector<ListKind> Build() {
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
    std::string base(k.base);
    k.retName = base + "Ret";
    k.addRq = base + "AddRq";
    k.modRq = base + "ModRq";
    k.queryRq = base + "QueryRq";
    k.ret = ds.Named(k.retName);
    if (row.flags & kAdd) k.add = ds.Named(base + "Add");
    if (row.flags & kMod) k.mod = ds.Named(base + "Mod");
    k.deletable = row.flags & kDel;
    k.hierarchical = k.ret->Child("ParentRef") && k.ret->Child("Sublevel");
    kinds.push_back(std::move(k));
  }
  return kinds;
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
              "MaximumHours:ti IsResettingHoursEachNewYear:b HoursUsed:ti AccrualStartDate:d");
  b.Aggregate("PayrollInfo",
              "PayPeriod:e(Daily|Weekly|Biweekly|Semimonthly|Monthly|Quarterly|Yearly) ClassRef:ref159 "
              "(ClearEarnings[am]!:b | Earnings+{PayrollItemWageRef!:ref31 (Rate!:price | RatePercent!:pct)!}) "
              "UseTimeDataToCreatePaychecks:e(NotSet|UseTimeData|DoNotUseTimeData) SickHours=Hours "
              "VacationHours=Hours");
  b.Aggregate("BarCode", "BarCodeValue:s50 AssignEvenIfUsed:b AllowOverride:b");
  b.Aggregate("SalesOrPurchase",
              "Desc:s4095 (Price!:price | PricePercent!:pct) AccountRef:ref159 ApplyAccountRefToExistingTxns[m]:b");
  b.Aggregate("SalesAndPurchase",
              "SalesDesc:s4095 SalesPrice:price IncomeAccountRef:ref159 ApplyIncomeAccountRefToExistingTxns[m]:b "
              "PurchaseDesc:s4095 PurchaseCost:price PurchaseTaxCodeRef[am]:ref3 ExpenseAccountRef:ref159 "
              "ApplyExpenseAccountRefToExistingTxns[m]:b PrefVendorRef:ref41");
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
    if (row.flags & kDataExt) retFields += " DataExtRet*=DataExtRet";
    b.Element(base + "Ret", retFields, 'r');
    if (row.flags & kAdd) {
      b.Element(base + "Add", fields, 'a');
      b.Request(base + "AddRq", "@" + base + "Add! IncludeRetElement*:s50");
    }
    if (row.flags & kMod) {
      b.Element(base + "Mod", "ListID!:id EditSequence!:s16 " + fields, 'm');
      b.Request(base + "ModRq", "@" + base + "Mod! IncludeRetElement*:s50");
    }
    std::string attributes = "requestID,metaData";
    if (row.flags & kIterator) attributes += ",iterator,iteratorID";
    b.Request(base + "QueryRq", QueryFields(row), attributes);
  }
  KindRow item{0, "Item", "Item", NameGroup::Items, Family::Item, "", kDataExt, "", "", {}};
  KindRow entity{0, "Entity", "Entity", NameGroup::Names, Family::Entity, "", 0, "", "", {}};
  KindRow terms{0, "Terms", "Terms", NameGroup::Terms, Family::Terms, "", 0, "", "", {}};
  b.Request("ItemQueryRq", QueryFields(item), "requestID,metaData,iterator,iteratorID");
  b.Request("EntityQueryRq", QueryFields(entity), "requestID,metaData,iterator,iteratorID");
  b.Request("TermsQueryRq", QueryFields(terms), "requestID,metaData");
  b.Request("ListDelRq", "ListDelType!:E.ListDelType ListID!:id");
  b.Request("ListDeletedQueryRq",
            "ListDelType+:E.ListDelType DeletedDateRangeFilter{FromDeletedDate:dt ToDeletedDate:dt} "
            "IncludeRetElement*:s50",
            "requestID,metaData");
}

const std::vector<ListKind>& ListKinds() {
  static const std::vector<ListKind> kinds = Build();
  return kinds;
}

const ListKind* KindByBase(std::string_view base) {
  for (auto& k : ListKinds())
    if (k.base == base) return &k;
  return nullptr;
}

const ListKind* KindByCode(int code) {
  for (auto& k : ListKinds())
    if (k.code == code) return &k;
  return nullptr;
}

std::vector<const ListKind*> KindsOf(Family family) {
  std::vector<const ListKind*> out;
  for (auto& k : ListKinds())
    if (k.family == family) out.push_back(&k);
  return out;
}

std::vector<const ListKind*> RefTargets(std::string_view ref, const ListKind* owner) {
  static const std::vector<std::pair<std::string_view, std::vector<std::string_view>>> table = {
      {"ClassRef", {"Class"}},
      {"OverrideClassRef", {"Class"}},
      {"CustomerTypeRef", {"CustomerType"}},
      {"VendorTypeRef", {"VendorType"}},
      {"JobTypeRef", {"JobType"}},
      {"TermsRef", {"StandardTerms", "DateDrivenTerms"}},
      {"SalesRepRef", {"SalesRep"}},
      {"SalesTaxCodeRef", {"SalesTaxCode"}},
      {"PurchaseTaxCodeRef", {"SalesTaxCode"}},
      {"CustomerSalesTaxCodeRef", {"SalesTaxCode"}},
      {"DefaultTaxableSalesTaxCodeRef", {"SalesTaxCode"}},
      {"DefaultNonTaxableSalesTaxCodeRef", {"SalesTaxCode"}},
      {"ItemSalesTaxRef", {"ItemSalesTax", "ItemSalesTaxGroup"}},
      {"ItemPurchaseTaxRef", {"ItemSalesTax"}},
      {"DefaultItemSalesTaxRef", {"ItemSalesTax", "ItemSalesTaxGroup"}},
      {"PreferredPaymentMethodRef", {"PaymentMethod"}},
      {"PaymentMethodRef", {"PaymentMethod"}},
      {"PriceLevelRef", {"PriceLevel"}},
      {"CurrencyRef", {"Currency"}},
      {"HomeCurrencyRef", {"Currency"}},
      {"PrefVendorRef", {"Vendor"}},
      {"TaxVendorRef", {"Vendor"}},
      {"VendorRef", {"Vendor"}},
      {"CustomerRef", {"Customer"}},
      {"EmployeeRef", {"Employee"}},
      {"SupervisorRef", {"Employee"}},
      {"SalesRepEntityRef", {"Employee", "Vendor", "OtherName"}},
      {"ItemInventoryRef", {"ItemInventory", "ItemInventoryAssembly"}},
      {"UnitOfMeasureSetRef", {"UnitOfMeasureSet"}},
      {"BillingRateRef", {"BillingRate"}},
      {"PayrollItemWageRef", {"PayrollItemWage"}},
      {"ShipMethodRef", {"ShipMethod"}},
      {"DefaultShipMethodRef", {"ShipMethod"}},
      {"CustomerMsgRef", {"CustomerMsg"}},
      {"TemplateRef", {"Template"}},
  };
  std::vector<const ListKind*> out;
  if (ref == "ParentRef") {
    if (owner) out.push_back(owner);
    return out;
  }
  if (ref == "ItemRef") return KindsOf(Family::Item);
  if (ref == "EntityRef" || ref == "PayeeEntityRef") return KindsOf(Family::Entity);
  if (ref.ends_with("AccountRef")) {
    out.push_back(KindByBase("Account"));
    return out;
  }
  for (auto& [name, bases] : table)
    if (name == ref) {
      for (auto b : bases) out.push_back(KindByBase(b));
      break;
    }
  return out;
}

std::string RefTargetLabel(std::string_view ref, const std::vector<const ListKind*>& targets) {
  if (ref == "SalesRepEntityRef" || ref == "EntityRef" || ref == "PayeeEntityRef") return "Entity";
  return targets.empty() ? std::string(ref) : std::string(targets.front()->label);
}

}  // namespace brenvale::rqp::detail

// The values of every enumeration catalogue but the report ones (EnumCatalogueReports.cpp): code,
// description in words and, where the qbXML text differs from the description without blanks, the
// qbXML text. The codes are those of the public enumerations (EnumTypes.hpp); where QuickBooks knows a
// value, the description is chosen so that its blank-free form is QuickBooks' own text.
#include <array>
#include <memory>
#include <string>

#include "brenvale/core/detail/EnumCatalogueData.hpp"

namespace brenvale::detail {
namespace {

const EnumTable kTables[] = {
    {zqeObjectState, {{1, "New"}, {2, "Clean"}, {3, "Dirty"}}},

    {zqeListType,
     {{1, "Account"}, {2, "Customer"}, {3, "Employee"}, {4, "Other Name"}, {5, "Vendor"},
      {6, "Terms"}, {7, "Class"}, {8, "Sales Rep"}, {9, "Customer Type"}, {10, "Vendor Type"},
      {11, "Job Type"}, {12, "Customer Msg"}, {13, "Payment Method"}, {14, "Ship Method"},
      {15, "Sales Tax Code"}, {16, "To Do"}, {17, "Item"}, {18, "Payroll Item Wage"},
      {19, "Payroll Item Non Wage"}, {20, "Template"}, {21, "Price Level"}, {22, "Currency"},
      {23, "Unit Of Measure Set"}, {24, "Tax Code"}, {25, "Entity"}}},

    {zqeDateMacro,
     {{1, "All"}, {2, "Today"}, {3, "This Week"}, {4, "This Week To Date"}, {5, "This Month"},
      {6, "This Month To Date"}, {7, "This Calendar Quarter"}, {8, "This Calendar Quarter To Date"},
      {9, "This Fiscal Quarter"}, {10, "This Fiscal Quarter To Date"}, {11, "This Calendar Year"},
      {12, "This Calendar Year To Date"}, {13, "This Fiscal Year"}, {14, "This Fiscal Year To Date"},
      {15, "Yesterday"}, {16, "Last Week"}, {17, "Last Week To Date"}, {18, "Last Month"},
      {19, "Last Month To Date"}, {20, "Last Calendar Quarter"}, {21, "Last Calendar Quarter To Date"},
      {22, "Last Fiscal Quarter"}, {23, "Last Fiscal Quarter To Date"}, {24, "Last Calendar Year"},
      {25, "Last Calendar Year To Date"}, {26, "Last Fiscal Year"}, {27, "Last Fiscal Year To Date"},
      {28, "Next Week"}, {29, "Next Four Weeks"}, {30, "Next Month"}, {31, "Next Calendar Quarter"},
      {32, "Next Calendar Year"}, {33, "Next Fiscal Quarter"}, {34, "Next Fiscal Year"}}},

    {zqeMatchType, {{1, "Starts With", "StartsWith"}, {2, "Contains"}, {3, "Ends With"}}},
    {zqeOperator,
     {{1, "Less Than"}, {2, "Less Than Or Equal", "LessThanEqual"}, {3, "Equal"}, {4, "Greater Than"},
      {5, "Greater Than Or Equal", "GreaterThanEqual"}}},
    {zqePaidStatus, {{1, "All"}, {2, "Paid Only"}, {3, "Not Paid Only"}}},
    {zqeTxnState, {{1, "Active"}, {2, "Voided"}}},
    {zqeActiveStatus, {{1, "Active Only"}, {2, "Inactive Only"}, {3, "All"}}},
    {zqeFileOpenMode, {{0, "Single User"}, {1, "Multi User"}, {2, "Dont Care", "DoNotCare"}}},

    {zqeWarnings, {{1, "Item Has Expense Account"}, {2, "Journal Entry Debit Credit Error"}}},

    {zqeJobStatus,
     {{1, "Awarded"}, {2, "Closed"}, {3, "In Progress"}, {4, "None"}, {5, "Not Awarded"}, {6, "Pending"}}},

    {zqeDeliveryMethod, {{1, "Email"}, {2, "Fax"}, {3, "Print"}}},

    {zqeItemType,
     {{1, "Service"}, {2, "Inventory"}, {3, "Non Inventory"}, {4, "Other Charge"}, {5, "Subtotal"},
      {6, "Group"}, {7, "Discount"}, {8, "Payment"}, {9, "Sales Tax"}, {10, "Sales Tax Group"},
      {11, "Assembly"}, {12, "Fixed Asset"}, {13, "All Except Fixed Asset"}, {14, "Inventory And Assembly"},
      {15, "Sales"}}},

    {zqeAccountType,
     {{1, "Accounts Payable"}, {2, "Accounts Receivable"}, {3, "Bank"}, {4, "Cost Of Goods Sold"},
      {5, "Credit Card"}, {6, "Equity"}, {7, "Expense"}, {8, "Fixed Asset"}, {9, "Income"},
      {10, "Long Term Liability"}, {11, "Non Posting"}, {12, "Other Asset"}, {13, "Other Current Asset"},
      {14, "Other Current Liability"}, {15, "Other Expense"}, {16, "Other Income"}}},

    {zqeTaxForm,
     {{1, "Form 1040"}, {2, "Form 1065"}, {3, "Form 1120"}, {4, "Form 1120S"}, {5, "Form 990"},
      {6, "Form 990PF"}, {7, "Form 990T"}, {8, "Other Or None"}}},

    {zqeMonth,
     {{1, "January"}, {2, "February"}, {3, "March"}, {4, "April"}, {5, "May"}, {6, "June"}, {7, "July"},
      {8, "August"}, {9, "September"}, {10, "October"}, {11, "November"}, {12, "December"}}},

    {zqeField,
     {{1, "Item", "ItemRef"}, {2, "Quantity"}, {3, "Description", "Desc"}, {4, "Cost", "Rate"},
      {5, "Service Date"}, {6, "Class", "ClassRef"}, {7, "Amount"}, {8, "Tax", "SalesTaxCodeRef"},
      {9, "Markup", "MarkupRate"}, {10, "Customer", "CustomerRef"}}},

    {zqeTxnPaymentType, {{1, "Check", "BillPaymentCheck"}, {2, "Credit Card", "BillPaymentCreditCard"}}},

    {zqeTxnLineType,
     {{1, "Item Line"}, {2, "Item Group Line"}, {3, "Expense Line"}, {4, "Journal Debit Line"},
      {5, "Journal Credit Line"}}},

    {zqeGenderType, {{1, "Male"}, {2, "Female"}}},
    {zqeEmployeeType, {{1, "Officer"}, {2, "Owner"}, {3, "Regular"}, {4, "Statutory"}}},

    {zqeWageType,
     {{1, "Salary"}, {2, "Salary Regular"}, {3, "Hourly"}, {4, "Hourly Regular"}, {5, "Bonus"},
      {6, "Commission"}, {7, "Hourly Overtime"}, {8, "Hourly Sick"}, {9, "Hourly Vacation"},
      {10, "Salary Sick"}, {11, "Salary Vacation"}}},

    {zqeCalculateChargesFrom, {{1, "Due Date"}, {2, "Invoice Or Billed Date"}}},
    {zqePaySalesTax, {{1, "Monthly"}, {2, "Quarterly"}, {3, "Annually"}}},

    {zqeDayOfWeek,
     {{1, "Monday"}, {2, "Tuesday"}, {3, "Wednesday"}, {4, "Thursday"}, {5, "Friday"}, {6, "Saturday"},
      {7, "Sunday"}}},

    {zqeLinkedTxnType, {{1, "Amount", "AMTTYPE"}, {2, "Quantity", "QUANTYPE"}}},

    {zqeTxnType,
     {{1, "AR Refund Credit Card"}, {2, "Bill"}, {3, "Bill Payment Check"}, {4, "Bill Payment Credit Card"},
      {5, "Build Assembly"}, {6, "Charge"}, {7, "Check"}, {8, "Credit Card Charge"},
      {9, "Credit Card Credit"}, {10, "Credit Memo"}, {11, "Deposit"}, {12, "Estimate"},
      {13, "Inventory Adjustment"}, {14, "Invoice"}, {15, "Item Receipt"}, {16, "Journal Entry"},
      {17, "Liability Adjustment"}, {18, "Paycheck"}, {19, "Payroll Liability Check"}, {20, "Purchase Order"},
      {21, "Receive Payment"}, {22, "Sales Order"}, {23, "Sales Receipt"}, {24, "Sales Tax Payment Check"},
      {25, "Transfer"}, {26, "Vendor Credit"}, {27, "YTD Adjustment"}}},

    {zqeEntityType, {{1, "Customer"}, {2, "Employee"}, {3, "Other Name"}, {4, "Vendor"}}},
    {zqeBillableStatus, {{1, "Billable"}, {2, "Not Billable"}, {3, "Has Been Billed"}}},

    {zqeDataExtDataTypes,
     {{1, "Integer", "INTTYPE"}, {2, "Amount", "AMTTYPE"}, {3, "Price", "PRICETYPE"},
      {4, "Quantity", "QUANTYPE"}, {5, "Percent", "PERCENTTYPE"}, {6, "Date Time", "DATETIMETYPE"},
      {7, "Text 255", "STR255TYPE"}, {8, "Text 1024", "STR1024TYPE"}}},

    {zqeClearedStatus, {{1, "Cleared"}, {2, "Not Cleared"}, {3, "Pending"}}},

    {zqePayrollAccrualPeriod,
     {{1, "Beginning Of Year"}, {2, "Every Hour On Paycheck"}, {3, "Every Paycheck"}}},

    {zqePayrollPayFrequency,
     {{1, "Daily"}, {2, "Weekly"}, {3, "Biweekly"}, {4, "Semimonthly"}, {5, "Monthly"}, {6, "Quarterly"},
      {7, "Yearly"}}},

    {zqeCashFlowClassification,
     {{1, "None"}, {2, "Operating"}, {3, "Investing"}, {4, "Financing"}, {5, "Not Applicable"}}},

    {zqeSpecialAcountType,
     {{1, "Accounts Payable"}, {2, "Accounts Receivable"}, {3, "Condense Item Adjustment Expenses"},
      {4, "Cost Of Goods Sold"}, {5, "Direct Deposit Liabilities"}, {6, "Estimates"},
      {7, "Exchange Gain Loss"}, {8, "Inventory Assets"}, {9, "Item Receipt Account"},
      {10, "Opening Balance Equity"}, {11, "Payroll Expenses"}, {12, "Payroll Liabilities"},
      {13, "Petty Cash"}, {14, "Purchase Orders"}, {15, "Reconciliation Differences"},
      {16, "Retained Earnings"}, {17, "Sales Orders"}, {18, "Sales Tax Payable"},
      {19, "Uncategorized Expenses"}, {20, "Uncategorized Income"}, {21, "Undeposited Funds"}}},

    {zqePayrollItemNonWage,
     {{1, "Addition"}, {2, "Company Contribution"}, {3, "Deduction"}, {4, "Direct Deposit"}, {5, "Tax"}}},

    {zqeMenuConditions,
     {{1, "Multi User Mode"}, {2, "Has Customers"}, {3, "Has Vendors"}, {4, "Inventory Enabled"},
      {5, "Classes Enabled"}, {6, "Payroll Enabled"}, {7, "Time Tracking Enabled"},
      {8, "Price Levels Enabled"}, {9, "Assembly Items Enabled"}, {10, "Sales Orders Enabled"},
      {11, "Estimates Enabled"}, {12, "Sales Tax Enabled"}, {13, "Is Accountant Copy"},
      {14, "Accountant Copy Exists"}}},

    {zqeMenuNames,
     {{1, "File"}, {2, "Company"}, {3, "Customers"}, {4, "Vendors"}, {5, "Employees"}, {6, "Banking"}}},

    {zqeDataBaseTableName,
     {{1, "Account"}, {2, "Class"}, {3, "Customer Msg"}, {4, "Customer Type"}, {5, "Date Driven Terms"},
      {6, "Standard Terms"}, {7, "Item Discount"}, {8, "Item Group"}, {9, "Item Inventory"},
      {10, "Item Inventory Assembly"}, {11, "Item Non Inventory"}, {12, "Item Other Charge"},
      {13, "Item Payment"}, {14, "Customer"}, {15, "Item Sales Tax"}, {16, "Item Sales Tax Group"},
      {17, "Item Service"}, {18, "Item Subtotal"}, {19, "Job Type"}, {20, "Vendor"}, {21, "Other Name"},
      {22, "Payment Method"}, {23, "Bill"}, {24, "Sales Rep"}, {25, "Sales Tax Code"}, {26, "Employee"},
      {27, "Check"}, {28, "Ship Method"}, {29, "Purchase Order"}, {30, "To Do"}, {31, "Vendor Type"},
      {32, "Vendor Credit"}, {33, "Credit Card Charge"}, {34, "Credit Card Credit"}, {35, "Journal Entry"},
      {36, "Invoice"}, {37, "Receive Payment"}, {38, "Sales Receipt"}, {39, "Credit Memo"}, {40, "Estimate"},
      {41, "Time Tracking"}, {42, "Deposit"}, {43, "Bill Payment Check"}, {44, "Payroll Item Wage"},
      {45, "Item"}, {46, "Entity"}, {47, "Terms"}, {48, "Charge"}, {49, "Inventory Adjustment"},
      {50, "Item Receipt"}, {51, "Sales Tax Payment Check"}, {52, "Sales Order"}, {53, "Build Assembly"},
      {54, "Template"}, {55, "Payroll Item Non Wage"}, {56, "Company"}, {57, "Price Level"}, {58, "Tax Code"},
      {59, "Bill Payment Credit Card"}, {60, "Currency"}, {61, "Unit Of Measure Set"},
      {62, "Item Fixed Asset"}, {63, "Data Ext Def"}}},

    {zqeFieldNames,
     {{1, "List ID"}, {2, "Txn ID"}, {3, "Name"}, {4, "Full Name"}, {5, "Is Active"},
      {6, "Parent", "ParentRef"}, {7, "Sublevel"}, {8, "Time Created"}, {9, "Time Modified"},
      {10, "Edit Sequence"}, {11, "Description", "Desc"}, {12, "Price"}, {13, "Company Name"},
      {14, "First Name"}, {15, "Last Name"}, {16, "Phone"}, {17, "Fax"}, {18, "Email"}, {19, "Contact"},
      {20, "Balance"}, {21, "Total Balance"}, {22, "Account Number"}, {23, "Account Type"},
      {24, "Txn Number"}, {25, "Txn Date"}, {26, "Ref Number"}, {27, "Memo"}, {28, "Amount"},
      {29, "Customer", "CustomerRef"}, {30, "Vendor", "VendorRef"}, {31, "Entity", "EntityRef"},
      {32, "Account", "AccountRef"}, {33, "Class", "ClassRef"}, {34, "Due Date"}, {35, "Is Paid"},
      {36, "Balance Remaining"}, {37, "Total Amount"}, {38, "Sales Tax Code", "SalesTaxCodeRef"},
      {39, "Quantity On Hand"}, {40, "Custom Fields", "DataExtRet"}}},
};

std::shared_ptr<ZKEnum> MakeCatalogue(std::initializer_list<EnumRow> rows) {
  auto cat = std::make_shared<ZKEnum>();
  for (const auto& r : rows) cat->Add(static_cast<Integer>(r.code), r.description, r.tag ? r.tag : "");
  return cat;
}

}  // namespace

std::span<const EnumTable> GeneralEnumTables() { return kTables; }

void BuildCatalogues(Enumerations& into) {
  // Filed in zqEnumerationType order, whichever table file holds them.
  std::array<const EnumTable*, kEnumerationTypeCount + 1> byType{};
  for (auto tables : {GeneralEnumTables(), ReportEnumTables()})
    for (const auto& t : tables) byType.at(static_cast<std::size_t>(t.type)) = &t;
  for (int type = 1; type <= kEnumerationTypeCount; ++type) {
    std::shared_ptr<ZKEnum> cat;
    if (type == zqeObjectType) {
      // The kinds of record share the table names' codes, plus the bill payment of either form.
      cat = MakeCatalogue(byType[zqeDataBaseTableName]->rows);
      cat->Add(zqObjectTypeBillPayment, "Bill Payment");
    } else if (type == zqeReport) {
      cat = std::make_shared<ZKEnum>();
      for (const auto& r : ReportTable())
        cat->Add(static_cast<Integer>(r.code), r.description, r.tag ? r.tag : "");
    } else if (const EnumTable* t = byType[static_cast<std::size_t>(type)]) {
      cat = MakeCatalogue(t->rows);
    } else {
      continue;
    }
    into.AddObject(std::move(cat), std::to_string(type));
  }
}

}  // namespace brenvale::detail

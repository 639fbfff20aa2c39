// The values of every enumeration catalogue, in one place: code, description in words and, where
// the qbXML text differs from the description without blanks, the qbXML tag.
#include <initializer_list>

#include "brenvale/core/EnumTypes.hpp"
#include "brenvale/core/Enumerations.hpp"

namespace brenvale::detail {
namespace {

struct Row {
  int code;
  const char* description;
  const char* tag = nullptr;
};

struct Catalogue {
  zqEnumerationType type;
  std::initializer_list<Row> rows;
};

const Catalogue kCatalogues[] = {
    {zqeObjectState, {{1, "New"}, {2, "Clean"}, {3, "Dirty"}}},

    {zqeObjectType,
     {{1, "Account"}, {2, "Customer"}, {3, "Employee"}, {4, "Other Name"}, {5, "Vendor"},
      {6, "Standard Terms"}, {7, "Date Driven Terms"}, {8, "Class"}, {9, "Sales Rep"},
      {10, "Customer Type"}, {11, "Vendor Type"}, {12, "Job Type"}, {13, "Customer Msg"},
      {14, "Payment Method"}, {15, "Ship Method"}, {16, "Sales Tax Code"}, {17, "To Do"},
      {18, "Item Service"}, {19, "Item Non Inventory"}, {20, "Item Other Charge"},
      {21, "Item Inventory"}, {22, "Item Inventory Assembly"}, {23, "Item Subtotal"},
      {24, "Item Discount"}, {25, "Item Payment"}, {26, "Item Sales Tax"},
      {27, "Item Sales Tax Group"}, {28, "Item Group"}, {29, "Item Fixed Asset"},
      {30, "Payroll Item Wage"}, {31, "Payroll Item Non Wage"}, {32, "Template"},
      {33, "Price Level"}, {34, "Currency"}, {35, "Unit Of Measure Set"}, {36, "Tax Code"},
      {37, "Entity"}, {38, "Item"}, {39, "Terms"}, {40, "Data Ext Def"}, {41, "Company"},
      {101, "Bill"}, {102, "Bill Payment Check"}, {103, "Bill Payment Credit Card"},
      {104, "Charge"}, {105, "Check"}, {106, "Credit Card Charge"}, {107, "Credit Card Credit"},
      {108, "Credit Memo"}, {109, "Deposit"}, {110, "Estimate"}, {111, "Invoice"},
      {112, "Inventory Adjustment"}, {113, "Journal Entry"}, {114, "Purchase Order"},
      {115, "Receive Payment"}, {116, "Sales Receipt"}, {117, "Time Tracking"},
      {118, "Vendor Credit"}, {119, "Sales Order"}, {120, "Item Receipt"},
      {121, "Build Assembly"}, {122, "Sales Tax Payment Check"}, {123, "Bill Payment"},
      {124, "Statement Charge", "Charge"}}},

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
     {{1, "Less Than"}, {2, "Less Than Or Equal"}, {3, "Equal"}, {4, "Greater Than"},
      {5, "Greater Than Or Equal"}}},
    {zqePaidStatus, {{1, "All"}, {2, "Paid Only"}, {3, "Not Paid Only"}}},
    {zqeTxnState, {{1, "Active"}, {2, "Voided"}}},
    {zqeActiveStatus, {{1, "Active Only"}, {2, "Inactive Only"}, {3, "All"}}},
    {zqeFileOpenMode, {{0, "Single User"}, {1, "Multi User"}, {2, "Dont Care", "DoNotCare"}}},
};

}  // namespace

void BuildCatalogues(Enumerations& into) {
  for (const auto& c : kCatalogues) {
    auto cat = std::make_shared<ZKEnum>();
    for (const auto& r : c.rows) cat->Add(static_cast<Integer>(r.code), r.description, r.tag ? r.tag : "");
    into.AddObject(std::move(cat), std::to_string(static_cast<int>(c.type)));
  }
}

}  // namespace brenvale::detail

// Every list kind: added, read back, modified where QuickBooks allows it and the change read back,
// and every answer valid against the qbXML schema.
#include <ostream>

#include "rqp/EngineHarness.hpp"

namespace rqptest {

struct KindCase {
  std::string kind;
  std::string add;  // children of the Add body
  std::string mod;  // children of a Mod body, empty when QuickBooks has no Mod
  // What a query reads after the modify: paths in the Ret element and their text ("" for absent).
  std::vector<std::pair<std::string, std::string>> after = {};
};
// Test listings show the kind, not the parameter's bytes.
void PrintTo(const KindCase& c, std::ostream* os) { *os << c.kind; }

class KindsTest : public EngineTest, public ::testing::WithParamInterface<KindCase> {};

TEST_P(KindsTest, AddQueryModify) {
  const KindCase& k = GetParam();
  // What the records refer to.
  Add("Vendor", "<Name>Maker</Name>");
  Add("Account", "<Name>Sales</Name><AccountType>Income</AccountType><AccountNumber>4000</AccountNumber>");
  Add("ItemService", "<Name>Base</Name><SalesOrPurchase><Price>40</Price></SalesOrPurchase>");
  Add("ItemInventory", "<Name>Stock</Name><SalesPrice>10</SalesPrice>");
  Add("ItemSalesTax", "<Name>State</Name><TaxRate>6.25</TaxRate>");

  pugi::xml_node ret = Add(k.kind, k.add);
  ASSERT_TRUE(ret) << k.kind;
  EXPECT_EQ(std::string(ret.name()), k.kind + "Ret");
  std::string id = Text(ret, "ListID");
  Status q = One("<" + k.kind + "QueryRq><ListID>" + id + "</ListID></" + k.kind + "QueryRq>");
  EXPECT_EQ(q.code, 0);
  EXPECT_EQ(Text(q.node.first_child(), "ListID"), id);
  if (k.mod.empty()) return;
  ASSERT_FALSE(k.after.empty()) << "a modify case reads its change back";
  Status m = Mod(k.kind, ret, k.mod);
  ASSERT_EQ(m.code, 0) << m.message;
  pugi::xml_node read = Read(k.kind, ret);
  for (auto& [path, value] : k.after) EXPECT_EQ(Text(read, path.c_str()), value) << k.kind << " " << path;
  EXPECT_NE(Text(read, "EditSequence"), Text(ret, "EditSequence"));
}

const std::string kSalesOrPurchase = "<SalesOrPurchase><Desc>d</Desc><Price>12.5</Price><AccountRef><FullName>Sales</FullName></AccountRef></SalesOrPurchase>";

INSTANTIATE_TEST_SUITE_P(
    Lists, KindsTest,
    ::testing::Values(
        KindCase{"Account", "<Name>Checking</Name><AccountType>Bank</AccountType><OpenBalance>50</OpenBalance><TaxLineID>1</TaxLineID>",
                 "<Desc>Main</Desc><OpenBalance>60</OpenBalance>", {{"Desc", "Main"}, {"Balance", "60.00"}}},
        KindCase{"Customer",
                 "<Name>Full</Name><CompanyName>Full Ltd</CompanyName><Suffix>Jr</Suffix><BillAddress><Addr1>1 Main</Addr1>"
                 "<City>Town</City></BillAddress><ShipToAddress><Name>Dock</Name><City>Port</City></ShipToAddress><Contacts>"
                 "<FirstName>Al</FirstName><AdditionalContactRef><ContactName>Cell</ContactName><ContactValue>1</ContactValue>"
                 "</AdditionalContactRef></Contacts><CreditCardInfo><ExpirationMonth>12</ExpirationMonth></CreditCardInfo>"
                 "<AdditionalNotes><Note>hello</Note></AdditionalNotes>",
                 "<JobStatus>Pending</JobStatus><AdditionalNotesMod><NoteID>1</NoteID><Note>bye</Note></AdditionalNotesMod>",
                 {{"JobStatus", "Pending"}, {"AdditionalNotesRet/Note", "bye"}, {"BillAddress/City", "Town"}}},
        KindCase{"Vendor", "<Name>V2</Name><VendorAddress><Addr1>x</Addr1></VendorAddress><IsVendorEligibleFor1099>true"
                           "</IsVendorEligibleFor1099><PrefillAccountRef><FullName>Sales</FullName></PrefillAccountRef>",
                 "<NameOnCheck>V Two</NameOnCheck>", {{"NameOnCheck", "V Two"}, {"PrefillAccountRef/FullName", "Sales"}}},
        KindCase{"Employee", "<FirstName>Eve</FirstName><LastName>Ray</LastName><Gender>Female</Gender>"
                             "<EmployeePayrollInfo><PayPeriod>Weekly</PayPeriod></EmployeePayrollInfo>",
                 "<EmployeePayrollInfoMod><PayPeriod>Monthly</PayPeriod></EmployeePayrollInfoMod>",
                 {{"EmployeePayrollInfo/PayPeriod", "Monthly"}, {"Name", "Eve Ray"}}},
        KindCase{"OtherName", "<Name>Other</Name><OtherNameAddress><City>C</City></OtherNameAddress>", "<Notes>n</Notes>",
                 {{"Notes", "n"}}},
        KindCase{"Class", "<Name>Cls</Name>", "<Name>Cls2</Name>", {{"Name", "Cls2"}, {"FullName", "Cls2"}}},
        KindCase{"CustomerType", "<Name>Retail</Name>", ""},
        KindCase{"VendorType", "<Name>Supplier</Name>", ""},
        KindCase{"JobType", "<Name>Repair</Name>", ""},
        KindCase{"CustomerMsg", "<Name>" + std::string(101, 'm') + "</Name>", ""},
        KindCase{"PaymentMethod", "<Name>Bitcoin</Name><PaymentMethodType>Other</PaymentMethodType>", ""},
        KindCase{"ShipMethod", "<Name>Courier</Name>", ""},
        KindCase{"SalesTaxCode", "<Name>Ex</Name><IsTaxable>false</IsTaxable><Desc>Exempt</Desc>", "<Desc>Exempted</Desc>",
                 {{"Desc", "Exempted"}}},
        KindCase{"SalesRep", "<Initial>MK</Initial><SalesRepEntityRef><FullName>Maker</FullName></SalesRepEntityRef>",
                 "<Initial>MK2</Initial>", {{"Initial", "MK2"}, {"SalesRepEntityRef/FullName", "Maker"}}},
        KindCase{"StandardTerms", "<Name>Net 45</Name><StdDueDays>45</StdDueDays>", ""},
        KindCase{"DateDrivenTerms", "<Name>EOM</Name><DayOfMonthDue>31</DayOfMonthDue><DiscountPct>1.5</DiscountPct>", ""},
        KindCase{"ToDo", "<Notes>Call back</Notes><VendorRef><FullName>Maker</FullName></VendorRef>", "<IsDone>true</IsDone>",
                 {{"IsDone", "true"}, {"VendorRef/FullName", "Maker"}}},
        KindCase{"ItemService", "<Name>Svc</Name><BarCode><BarCodeValue>123</BarCodeValue></BarCode>" + kSalesOrPurchase,
                 "<SalesAndPurchaseMod><SalesPrice>3</SalesPrice><PrefVendorRef><FullName>Maker</FullName></PrefVendorRef>"
                 "</SalesAndPurchaseMod>",
                 {{"SalesAndPurchase/SalesPrice", "3.00"}, {"SalesAndPurchase/PrefVendorRef/FullName", "Maker"},
                  {"SalesOrPurchase/Price", ""}, {"BarCodeValue", "123"}}},
        KindCase{"ItemNonInventory", "<Name>NI</Name><ManufacturerPartNumber>P1</ManufacturerPartNumber>" + kSalesOrPurchase,
                 "<SalesOrPurchaseMod><PricePercent>5</PricePercent><ApplyAccountRefToExistingTxns>true"
                 "</ApplyAccountRefToExistingTxns></SalesOrPurchaseMod>",
                 {{"SalesOrPurchase/PricePercent", "5.00"}, {"SalesOrPurchase/Price", ""}, {"SalesOrPurchase/Desc", "d"}}},
        KindCase{"ItemOtherCharge", "<Name>Fee</Name>" + kSalesOrPurchase, "<IsActive>false</IsActive>",
                 {{"IsActive", "false"}}},
        KindCase{"ItemInventory",
                 "<Name>Inv</Name><IncomeAccountRef><FullName>Sales</FullName></IncomeAccountRef><QuantityOnHand>3</QuantityOnHand>"
                 "<TotalValue>9</TotalValue><InventoryDate>2024-01-31</InventoryDate>",
                 "<ForceUOMChange>true</ForceUOMChange><ReorderPoint>2</ReorderPoint>",
                 {{"ReorderPoint", "2"}, {"IncomeAccountRef/FullName", "Sales"}, {"AverageCost", "3.00"}}},
        KindCase{"ItemInventoryAssembly",
                 "<Name>Kit</Name><ItemInventoryAssemblyLine><ItemInventoryRef><FullName>Stock</FullName></ItemInventoryRef>"
                 "<Quantity>2</Quantity></ItemInventoryAssemblyLine>",
                 "<ClearItemsInGroup>true</ClearItemsInGroup>", {{"ItemInventoryAssemblyLine/Quantity", ""}}},
        KindCase{"ItemFixedAsset", "<Name>Truck</Name><AcquiredAs>New</AcquiredAs><PurchaseDesc>F150</PurchaseDesc>"
                                   "<PurchaseDate>2023-05-01</PurchaseDate><FixedAssetSalesInfo><SalesDesc>sold</SalesDesc>"
                                   "<SalesDate>2024-01-01</SalesDate></FixedAssetSalesInfo>",
                 "<FixedAssetSalesInfoMod><SalesPrice>100</SalesPrice></FixedAssetSalesInfoMod>",
                 {{"FixedAssetSalesInfo/SalesPrice", "100.00"}, {"FixedAssetSalesInfo/SalesDesc", "sold"}}},
        KindCase{"ItemSubtotal", "<Name>Subtotal</Name><ItemDesc>sum</ItemDesc>", "<ItemDesc>total</ItemDesc>",
                 {{"ItemDesc", "total"}}},
        KindCase{"ItemDiscount", "<Name>Disc</Name><DiscountRatePercent>10</DiscountRatePercent>", "<DiscountRate>5</DiscountRate>",
                 {{"DiscountRate", "5.00"}, {"DiscountRatePercent", ""}}},
        KindCase{"ItemPayment", "<Name>Pay</Name><PaymentMethodRef><FullName>Cash</FullName></PaymentMethodRef>", "<ItemDesc>p</ItemDesc>",
                 {{"ItemDesc", "p"}, {"PaymentMethodRef/FullName", "Cash"}}},
        KindCase{"ItemSalesTax", "<Name>County</Name><TaxRate>1</TaxRate><TaxVendorRef><FullName>Maker</FullName></TaxVendorRef>",
                 "<TaxRate>1.5</TaxRate>", {{"TaxRate", "1.50"}}},
        KindCase{"ItemSalesTaxGroup", "<Name>Combined</Name><ItemSalesTaxRef><FullName>State</FullName></ItemSalesTaxRef>",
                 "<ItemDesc>both</ItemDesc>", {{"ItemDesc", "both"}, {"ItemSalesTaxRef/FullName", "State"}}},
        KindCase{"ItemGroup", "<Name>Bundle</Name><ItemGroupLine><ItemRef><FullName>Base</FullName></ItemRef><Quantity>1</Quantity>"
                              "</ItemGroupLine>",
                 "<ItemGroupLine><ItemRef><FullName>Stock</FullName></ItemRef></ItemGroupLine>",
                 {{"ItemGroupLine/ItemRef/FullName", "Stock"}, {"ItemGroupLine/Quantity", ""}}},
        KindCase{"PriceLevel", "<Name>Wholesale</Name><PriceLevelPerItem><ItemRef><FullName>Base</FullName></ItemRef>"
                               "<AdjustPercentage>-10</AdjustPercentage><AdjustRelativeTo>StandardPrice</AdjustRelativeTo>"
                               "</PriceLevelPerItem>",
                 "<PriceLevelFixedPercentage>5</PriceLevelFixedPercentage>",
                 {{"PriceLevelFixedPercentage", "5.00"}, {"PriceLevelType", "FixedPercentage"},
                  {"PriceLevelPerItemRet/CustomPrice", ""}}},
        KindCase{"PayrollItemWage", "<Name>Hourly</Name><WageType>Hourly Regular</WageType><ExpenseAccountRef><FullName>"
                                    "Payroll Expenses</FullName></ExpenseAccountRef>",
                 ""},
        KindCase{"Currency", "<Name>Bitcoin</Name><CurrencyCode>XBT</CurrencyCode><CurrencyFormat><DecimalPlaces>2</DecimalPlaces>"
                             "</CurrencyFormat>",
                 "<Name>Digital Gold</Name>", {{"Name", "Digital Gold"}, {"CurrencyCode", "XBT"}}},
        KindCase{"UnitOfMeasureSet", "<Name>Length</Name><UnitOfMeasureType>Length</UnitOfMeasureType><BaseUnit><Name>foot</Name>"
                                     "<Abbreviation>ft</Abbreviation></BaseUnit><RelatedUnit><Name>yard</Name><Abbreviation>yd"
                                     "</Abbreviation><ConversionRatio>3</ConversionRatio></RelatedUnit>",
                 ""},
        KindCase{"BillingRate", "<Name>Senior</Name><BillingRatePerItem><ItemRef><FullName>Base</FullName></ItemRef>"
                                "<CustomRate>120</CustomRate></BillingRatePerItem>",
                 ""}),
    [](const ::testing::TestParamInfo<KindCase>& p) { return p.param.kind; });

using KindRulesTest = EngineTest;

TEST_F(KindRulesTest, KindsComputeWhatQuickBooksComputes) {
  Add("ItemService", "<Name>Base</Name><SalesOrPurchase><Price>40</Price></SalesOrPurchase>");
  pugi::xml_node level = Add("PriceLevel", "<Name>Less</Name><PriceLevelPerItem><ItemRef><FullName>Base</FullName>"
                                           "</ItemRef><AdjustPercentage>-10</AdjustPercentage><AdjustRelativeTo>"
                                           "StandardPrice</AdjustRelativeTo></PriceLevelPerItem>");
  EXPECT_EQ(Text(level, "PriceLevelType"), "PerItem");
  EXPECT_EQ(Text(level, "PriceLevelPerItemRet/CustomPrice"), "36.00");
  pugi::xml_node todo = Add("ToDo", "<Notes>Remember</Notes>");
  EXPECT_EQ(Text(todo, "IsDone"), "false");
  EXPECT_EQ(Text(todo, "ReminderDate").size(), 10u);
  pugi::xml_node wage = Add("PayrollItemWage", "<Name>Salary</Name><WageType>salary regular</WageType>"
                                               "<ExpenseAccountRef><FullName>Payroll Expenses</FullName></ExpenseAccountRef>");
  EXPECT_EQ(Text(wage, "WageType"), "SalaryRegular");  // enumerations compare without blanks or case
  pugi::xml_node svc = Add("ItemService", "<Name>Bar</Name><BarCode><BarCodeValue>0042</BarCodeValue></BarCode>"
                                          "<SalesOrPurchase><PricePercent>12.50</PricePercent></SalesOrPurchase>");
  EXPECT_EQ(Text(svc, "BarCodeValue"), "0042");
  EXPECT_EQ(Text(svc, "SalesOrPurchase/PricePercent"), "12.50");
  // Templates and non-wage payroll items cannot be added, but templates exist from the start.
  Status templates = One("<TemplateQueryRq/>");
  EXPECT_EQ(templates.code, 0);
  EXPECT_FALSE(Text(templates.node, "TemplateRet/TemplateType").empty());
  EXPECT_EQ(One("<PayrollItemNonWageQueryRq/>").code, 1);
  EXPECT_EQ(One("<CurrencyQueryRq><FullName>Euro</FullName></CurrencyQueryRq>").code, 0);
}

}  // namespace rqptest

namespace rqptest {

// What QuickBooks puts in its answers even when nobody sent it.
TEST_F(KindRulesTest, AnswersHaveWhatQuickBooksAlwaysAnswers) {
  // Every account has its cash flow classification, by its type.
  for (auto [type, classification] : {std::pair{"Bank", "NotApplicable"}, {"FixedAsset", "Investing"},
                                      {"LongTermLiability", "Financing"}, {"OtherCurrentAsset", "Operating"},
                                      {"Expense", "NotApplicable"}}) {
    pugi::xml_node a = Add("Account", std::string("<Name>A ") + type + "</Name><AccountType>" + type + "</AccountType>");
    EXPECT_EQ(Text(a, "CashFlowClassification"), classification) << type;
  }
  Status receivable = One("<AccountQueryRq><FullName>Accounts Receivable</FullName></AccountQueryRq>");
  EXPECT_EQ(Text(receivable.node, "AccountRet/CashFlowClassification"), "Operating");
  // Inventory reports its prices as 0.00 when none was given.
  pugi::xml_node inv = Add("ItemInventory", "<Name>Bare</Name>");
  EXPECT_EQ(Text(inv, "SalesPrice"), "0.00");
  EXPECT_EQ(Text(inv, "PurchaseCost"), "0.00");
  // Zero percentages read "0.00".
  EXPECT_EQ(Text(One("<StandardTermsQueryRq><FullName>Net 30</FullName></StandardTermsQueryRq>").node,
                 "StandardTermsRet/DiscountPct"), "0.00");
  EXPECT_EQ(Text(One("<StandardTermsQueryRq><FullName>2% 10 Net 30</FullName></StandardTermsQueryRq>").node,
                 "StandardTermsRet/DiscountPct"), "2.00");
  EXPECT_EQ(Text(Add("ItemSalesTax", "<Name>Nil</Name>"), "TaxRate"), "0.00");
  // The preferences and the company say what a desktop company says.
  Status prefs = One("<PreferencesQueryRq/>");
  EXPECT_EQ(Text(prefs.node, "PreferencesRet/ItemsAndInventoryPreferences/FIFOEnabled"), "false");
  EXPECT_EQ(Text(prefs.node, "PreferencesRet/MultiCurrencyPreferences/HomeCurrencyRef/FullName"), "US Dollar");
  Status company = One("<CompanyQueryRq/>");
  pugi::xml_node services = company.node.first_element_by_path("CompanyRet/SubscribedServices");
  EXPECT_GE(std::distance(services.children("Service").begin(), services.children("Service").end()), 5);
  EXPECT_EQ(Text(services, "Service/ServiceStatus"), "Never");
  // In an older version's answer, what came later is left out.
  auto old = Send("<PreferencesQueryRq/><CompanyQueryRq/>", "continueOnError", "6.0");
  EXPECT_FALSE(old[0].node.first_child().child("ItemsAndInventoryPreferences"));
  EXPECT_FALSE(old[0].node.first_child().child("MultiCurrencyPreferences"));
  EXPECT_FALSE(old[1].node.first_child().child("SubscribedServices"));
}

}  // namespace rqptest

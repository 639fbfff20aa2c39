// The requests the library's list records write, as the library writes them (every field a US
// desktop takes, the modify bodies after a change, the payroll block written as its Mod form, price
// blocks switched in a modify, group lines cleared, data extension values by each reference form,
// queries carrying two OwnerIDs), answered by the engine as QuickBooks answers them: each accepted,
// each answer valid against the schema, and what was sent read back.
#include <ostream>

#include "rqp/EngineHarness.hpp"

namespace rqptest {
namespace {

std::string E(const std::string& tag, const std::string& text) { return "<" + tag + ">" + text + "</" + tag + ">"; }
std::string Ref(const std::string& tag, const std::string& name) { return E(tag, E("FullName", name)); }

struct LibraryCase {
  std::string kind;
  std::string add;  // the Add body
  std::string mod;  // the Mod body after ListID and EditSequence
  // What the record reads after the add, then after the modify: paths and texts ("" for absent).
  std::vector<std::pair<std::string, std::string>> added, modified;
};
void PrintTo(const LibraryCase& c, std::ostream* os) { *os << c.kind; }

// The text at `path` in `ret`, or with a leading '#' the number of `ret`'s children of that name.
std::string Probe(pugi::xml_node ret, const std::string& path) {
  if (path.front() != '#') return Text(ret, path.c_str());
  auto all = ret.children(path.c_str() + 1);
  return std::to_string(std::distance(all.begin(), all.end()));
}

class LibraryRequestsTest : public EngineTest, public ::testing::WithParamInterface<LibraryCase> {
 protected:
  void SetUp() override {
    EngineTest::SetUp();
    if (IsSkipped()) return;
    // What the library's requests refer to.
    Add("CustomerType", E("Name", "Retail"));
    Add("JobType", E("Name", "Repair"));
    Add("Vendor", E("Name", "Rep Vendor"));
    Add("SalesRep", E("Initial", "AL") + Ref("SalesRepEntityRef", "Rep Vendor"));
    Add("ItemSalesTax", E("Name", "State Tax") + E("TaxRate", "6.25"));
    Add("ItemSalesTax", E("Name", "City Tax") + E("TaxRate", "1"));
    Add("PriceLevel", E("Name", "Wholesale") + E("PriceLevelFixedPercentage", "-10"));
    Add("Customer", E("Name", "Other Customer"));
    Add("Account", E("Name", "Sales") + E("AccountType", "Income"));
    Add("Account", E("Name", "Parts") + E("AccountType", "CostOfGoodsSold"));
    Add("Account", E("Name", "Vehicles") + E("AccountType", "FixedAsset"));
    Add("ItemService", E("Name", "Labor") + E("SalesOrPurchase", E("Price", "50")));
    Add("ItemInventory", E("Name", "Bolt") + E("SalesPrice", "2") + Ref("IncomeAccountRef", "Sales"));
    Add("PayrollItemWage", E("Name", "Hourly") + E("WageType", "HourlyRegular") +
                               Ref("ExpenseAccountRef", "Payroll Expenses"));
  }
};

TEST_P(LibraryRequestsTest, AddedAndModifiedAsWritten) {
  const LibraryCase& c = GetParam();
  pugi::xml_node ret = Add(c.kind, c.add);
  ASSERT_TRUE(ret) << c.kind;
  for (auto& [path, text] : c.added) EXPECT_EQ(Probe(ret, path), text) << "added: " << path;
  Status m = Mod(c.kind, ret, c.mod);
  ASSERT_EQ(m.code, 0) << m.message;
  pugi::xml_node read = Read(c.kind, ret);
  for (auto& [path, text] : c.modified) EXPECT_EQ(Probe(read, path), text) << "modified: " << path;
  // Queried as the library queries, with its data extensions asked for by two owners.
  Status q = One("<" + c.kind + "QueryRq><ListID>" + Text(ret, "ListID") +
                 "</ListID><OwnerID>0</OwnerID><OwnerID>{6B063959-81B0-4622-85D6-F548C8CCB517}</OwnerID></" + c.kind +
                 "QueryRq>");
  EXPECT_EQ(q.code, 0) << q.message;
}

const std::string kCreditCard = E("CreditCardInfo", E("CreditCardNumber", "4111111111111111") + E("ExpirationMonth", "12") +
                                                        E("ExpirationYear", "2027") + E("NameOnCard", "Ann Lee"));

INSTANTIATE_TEST_SUITE_P(
    Library, LibraryRequestsTest,
    ::testing::Values(
        LibraryCase{
            "Customer",
            "<Name>Acme Supply</Name><IsActive>true</IsActive><CompanyName>Acme Supply Co</CompanyName>"
            "<Salutation>Ms.</Salutation><FirstName>Ann</FirstName><MiddleName>B</MiddleName><LastName>Lee</LastName>"
            "<BillAddress><Addr1>1 Main St</Addr1><City>Boston</City><State>MA</State><PostalCode>02108</PostalCode>"
            "<Country>USA</Country></BillAddress><ShipAddress><Addr1>9 Dock Rd</Addr1><Addr5>Gate 4</Addr5></ShipAddress>"
            "<Phone>555-0100</Phone><AltPhone>555-0102</AltPhone><Email>ann&#64;acme.example</Email><Contact>Ann Lee"
            "</Contact><AltContact>Bo Lee</AltContact>" +
                Ref("CustomerTypeRef", "Retail") + Ref("TermsRef", "Net 30") + Ref("SalesRepRef", "AL") +
                "<OpenBalance>1250.50</OpenBalance><OpenBalanceDate>2024-01-31</OpenBalanceDate>" +
                Ref("SalesTaxCodeRef", "Tax") + Ref("ItemSalesTaxRef", "State Tax") +
                "<ResaleNumber>R-1</ResaleNumber><AccountNumber>A-9</AccountNumber><CreditLimit>5000.00</CreditLimit>" +
                Ref("PreferredPaymentMethodRef", "Check") + kCreditCard +
                "<JobStatus>Pending</JobStatus><JobStartDate>2024-02-01</JobStartDate>"
                "<JobProjectedEndDate>2024-03-01</JobProjectedEndDate><JobEndDate>2024-03-15</JobEndDate>"
                "<JobDesc>Roof</JobDesc>" +
                Ref("JobTypeRef", "Repair") + "<Notes>Call first</Notes>" + Ref("PriceLevelRef", "Wholesale") +
                Ref("CurrencyRef", "US Dollar"),
            "<Name>Roofs</Name><IsActive>true</IsActive>" + Ref("ParentRef", "Other Customer") +
                "<CompanyName>Acme Supply Co</CompanyName><FirstName>Ann</FirstName><LastName>Lee</LastName><BillAddress>"
                "<Addr1>1 Main St</Addr1><City>Boston</City><State>MA</State></BillAddress><ShipAddress><Addr1>9 Dock Rd"
                "</Addr1><City>Quincy</City></ShipAddress><Phone>555-0100</Phone><Email>ann&#64;roofs.example</Email>" +
                Ref("TermsRef", "Net 30") + Ref("SalesTaxCodeRef", "Tax") +
                "<CreditLimit>5000.00</CreditLimit><CreditCardInfo><CreditCardNumber>xxxx1111</CreditCardNumber>"
                "<ExpirationMonth>12</ExpirationMonth></CreditCardInfo><JobStatus>InProgress</JobStatus>"
                "<JobStartDate>2024-02-01</JobStartDate><JobDesc>Roof</JobDesc><Notes>Call first</Notes>",
            {{"Balance", "1250.50"}, {"TotalBalance", "1250.50"}, {"SalesRepRef/FullName", "AL"},
             {"PriceLevelRef/FullName", "Wholesale"}, {"ShipAddress/Addr5", "Gate 4"}},
            {{"FullName", "Other Customer:Roofs"}, {"Sublevel", "1"}, {"ShipAddress/City", "Quincy"},
             {"JobStatus", "InProgress"}, {"Balance", "1250.50"}, {"Email", "ann@roofs.example"}}},
        LibraryCase{
            "Vendor",
            "<Name>Paper Mill</Name><IsActive>false</IsActive><CompanyName>Paper Mill Inc</CompanyName>"
            "<Salutation>Mr.</Salutation><FirstName>Ed</FirstName><MiddleName>K</MiddleName><LastName>Fox</LastName>"
            "<VendorAddress><Addr1>4 Mill Rd</Addr1><City>Lowell</City></VendorAddress><Phone>555-0200</Phone>"
            "<AltPhone>555-0201</AltPhone><Email>ed&#64;mill.example</Email><Contact>Ed Fox</Contact><AltContact>Al Fox"
            "</AltContact><NameOnCheck>Paper Mill Incorporated</NameOnCheck><AccountNumber>V-100</AccountNumber>"
            "<Notes>Net 15 in practice</Notes><CreditLimit>2500.00</CreditLimit><VendorTaxIdent>12-3456789"
            "</VendorTaxIdent><IsVendorEligibleFor1099>true</IsVendorEligibleFor1099><OpenBalance>300.00</OpenBalance>"
            "<OpenBalanceDate>2024-01-01</OpenBalanceDate>" +
                Ref("CurrencyRef", "US Dollar"),
            "<Name>Paper Mill</Name><IsActive>true</IsActive><CompanyName>Paper Mill Inc</CompanyName>"
            "<FirstName>Ed</FirstName><VendorAddress><Addr1>4 Mill Rd</Addr1></VendorAddress><Phone>555-0200</Phone>"
            "<NameOnCheck>P. Mill</NameOnCheck><CreditLimit>2500.00</CreditLimit><VendorTaxIdent>12-3456789"
            "</VendorTaxIdent><IsVendorEligibleFor1099>true</IsVendorEligibleFor1099>",
            {{"Balance", "300.00"}, {"IsActive", "false"}, {"VendorTaxIdent", "12-3456789"}},
            {{"NameOnCheck", "P. Mill"}, {"IsActive", "true"}, {"Balance", "300.00"}}},
        LibraryCase{
            "Employee",
            "<IsActive>true</IsActive><Salutation>Dr.</Salutation><FirstName>Kim</FirstName><MiddleName>J</MiddleName>"
            "<LastName>Park</LastName><EmployeeAddress><Addr1>7 Elm St</Addr1><City>Salem</City><State>OR</State>"
            "<PostalCode>97301</PostalCode></EmployeeAddress><PrintAs>K. Park</PrintAs><Phone>555-0300</Phone>"
            "<Mobile>555-0301</Mobile><Pager>555-0302</Pager><PagerPIN>1234</PagerPIN><AltPhone>555-0303</AltPhone>"
            "<SSN>123-45-6789</SSN><Email>kim&#64;example.com</Email><EmployeeType>Regular</EmployeeType>"
            "<Gender>Female</Gender><HiredDate>2020-05-04</HiredDate><BirthDate>1990-07-08</BirthDate>"
            "<AccountNumber>E-7</AccountNumber><Notes>Prefers email</Notes><EmployeePayrollInfo><PayPeriod>Biweekly"
            "</PayPeriod><Earnings>" +
                Ref("PayrollItemWageRef", "Hourly") +
                "<Rate>22.50</Rate></Earnings><UseTimeDataToCreatePaychecks>UseTimeData</UseTimeDataToCreatePaychecks>"
                "<SickHours><HoursAvailable>PT40H0M</HoursAvailable><AccrualPeriod>EveryPaycheck</AccrualPeriod>"
                "</SickHours><VacationHours><MaximumHours>PT80H0M</MaximumHours><IsResettingHoursEachNewYear>false"
                "</IsResettingHoursEachNewYear></VacationHours></EmployeePayrollInfo>",
            "<IsActive>true</IsActive><FirstName>Kim</FirstName><MiddleName>J</MiddleName><LastName>Park</LastName>"
            "<EmployeeAddress><Addr1>7 Elm St</Addr1><City>Salem</City></EmployeeAddress><Phone>555-0399</Phone>"
            "<BirthDate>1990-07-08</BirthDate><EmployeePayrollInfoMod><PayPeriod>Weekly</PayPeriod>"
            "<UseTimeDataToCreatePaychecks>NotSet</UseTimeDataToCreatePaychecks><SickHours><HoursAvailable>PT12H30M"
            "</HoursAvailable></SickHours></EmployeePayrollInfoMod>",
            {{"Name", "Kim J Park"}, {"EmployeePayrollInfo/PayPeriod", "Biweekly"},
             {"EmployeePayrollInfo/Earnings/PayrollItemWageRef/FullName", "Hourly"},
             {"EmployeePayrollInfo/VacationHours/MaximumHours", "PT80H0M"}},
            {{"Phone", "555-0399"}, {"EmployeePayrollInfo/PayPeriod", "Weekly"},
             {"EmployeePayrollInfo/UseTimeDataToCreatePaychecks", "NotSet"},
             {"EmployeePayrollInfo/SickHours/HoursAvailable", "PT12H30M"},
             {"EmployeePayrollInfo/Earnings/Rate", "22.50"}}},
        LibraryCase{
            "OtherName",
            "<Name>Owner Draws</Name><IsActive>true</IsActive><CompanyName>Self</CompanyName><Salutation>Mx."
            "</Salutation><FirstName>Sam</FirstName><MiddleName>Q</MiddleName><LastName>Ray</LastName><OtherNameAddress>"
            "<Addr1>2 Oak Ln</Addr1><PostalCode>10001</PostalCode></OtherNameAddress><Phone>555-0400</Phone>"
            "<AltPhone>555-0401</AltPhone><Email>sam&#64;example.com</Email><Contact>Sam Ray</Contact><AltContact>Jo Ray"
            "</AltContact><AccountNumber>O-1</AccountNumber>",
            "<Name>Owner Draws</Name><FirstName>Sam</FirstName><LastName>Roy</LastName><OtherNameAddress>"
            "<Addr1>2 Oak Ln</Addr1></OtherNameAddress><Phone>555-0400</Phone>",
            {{"OtherNameAddress/PostalCode", "10001"}},
            {{"LastName", "Roy"}}},
        // A service priced by one block, switched to the other in a modify.
        LibraryCase{"ItemService",
                    "<Name>Install</Name><IsActive>true</IsActive>" + Ref("SalesTaxCodeRef", "Non") +
                        "<SalesOrPurchase><Desc>Installing</Desc><Price>75.00</Price>" + Ref("AccountRef", "Sales") +
                        "</SalesOrPurchase>",
                    "<Name>Install</Name><SalesAndPurchaseMod><SalesDesc>Installing</SalesDesc><SalesPrice>80.00"
                    "</SalesPrice>" +
                        Ref("IncomeAccountRef", "Sales") + "<PurchaseCost>40.00</PurchaseCost>" +
                        Ref("ExpenseAccountRef", "Parts") + Ref("PrefVendorRef", "Rep Vendor") + "</SalesAndPurchaseMod>",
                    {{"SalesOrPurchase/Price", "75.00"}},
                    {{"SalesOrPurchase/Price", ""},
                     {"SalesAndPurchase/SalesPrice", "80.00"},
                     {"SalesAndPurchase/ExpenseAccountRef/FullName", "Parts"}}},
        LibraryCase{"ItemNonInventory",
                    "<Name>Widget</Name><ManufacturerPartNumber>W-1</ManufacturerPartNumber><SalesAndPurchase>"
                    "<SalesDesc>w</SalesDesc><SalesPrice>3.00</SalesPrice>" +
                        Ref("IncomeAccountRef", "Sales") + "<PurchaseCost>1.00</PurchaseCost>" +
                        Ref("ExpenseAccountRef", "Parts") + "</SalesAndPurchase>",
                    "<Name>Widget</Name><SalesOrPurchaseMod><Price>4.00</Price>" + Ref("AccountRef", "Sales") +
                        "</SalesOrPurchaseMod>",
                    {{"SalesAndPurchase/PurchaseCost", "1.00"}},
                    {{"SalesOrPurchase/Price", "4.00"}, {"SalesAndPurchase/SalesPrice", ""}}},
        LibraryCase{"ItemInventory",
                    "<Name>Nut</Name><IsActive>true</IsActive><ManufacturerPartNumber>N-1</ManufacturerPartNumber>" +
                        Ref("SalesTaxCodeRef", "Tax") + "<SalesDesc>nut</SalesDesc><SalesPrice>0.50</SalesPrice>" +
                        Ref("IncomeAccountRef", "Sales") + "<PurchaseDesc>nut</PurchaseDesc><PurchaseCost>0.10"
                        "</PurchaseCost>" + Ref("PrefVendorRef", "Rep Vendor") +
                        "<ReorderPoint>100</ReorderPoint><QuantityOnHand>500</QuantityOnHand><TotalValue>50.00"
                        "</TotalValue><InventoryDate>2024-01-01</InventoryDate>",
                    "<Name>Nut</Name><SalesPrice>0.60</SalesPrice>" + Ref("COGSAccountRef", "Parts") +
                        "<ReorderPoint>50</ReorderPoint>",
                    {{"QuantityOnHand", "500"}, {"AverageCost", "0.10"}},
                    {{"SalesPrice", "0.60"}, {"QuantityOnHand", "500"}, {"COGSAccountRef/FullName", "Parts"}}},
        LibraryCase{"ItemInventoryAssembly",
                    "<Name>Kit</Name>" + Ref("IncomeAccountRef", "Sales") + "<BuildPoint>5</BuildPoint>"
                        "<ItemInventoryAssemblyLine>" + Ref("ItemInventoryRef", "Bolt") + "<Quantity>4</Quantity>"
                        "</ItemInventoryAssemblyLine>",
                    "<Name>Kit</Name><BuildPoint>6</BuildPoint><ClearItemsInGroup>true</ClearItemsInGroup>",
                    {{"ItemInventoryAssemblyLine/Quantity", "4"}},
                    {{"BuildPoint", "6"}, {"ItemInventoryAssemblyLine/Quantity", ""}}},
        LibraryCase{"ItemGroup",
                    "<Name>Bundle</Name><ItemDesc>both</ItemDesc><IsPrintItemsInGroup>true</IsPrintItemsInGroup>"
                    "<ItemGroupLine>" + Ref("ItemRef", "Labor") + "<Quantity>2</Quantity></ItemGroupLine>"
                    "<ItemGroupLine>" + Ref("ItemRef", "Bolt") + "</ItemGroupLine>",
                    "<Name>Bundle</Name><ClearItemsInGroup>true</ClearItemsInGroup>",
                    {{"ItemGroupLine/Quantity", "2"}, {"IsPrintItemsInGroup", "true"}},
                    {{"#ItemGroupLine", "0"}}},
        LibraryCase{"ItemSalesTaxGroup",
                    "<Name>Combined</Name><ItemSalesTaxRef><FullName>State Tax</FullName></ItemSalesTaxRef>",
                    "<Name>Combined</Name><ItemDesc>two</ItemDesc><ItemSalesTaxRef><FullName>State Tax</FullName>"
                    "</ItemSalesTaxRef><ItemSalesTaxRef><FullName>City Tax</FullName></ItemSalesTaxRef>",
                    {{"ItemSalesTaxRef/FullName", "State Tax"}},
                    {{"ItemDesc", "two"}, {"#ItemSalesTaxRef", "2"}}},
        LibraryCase{"ItemFixedAsset",
                    "<Name>Truck</Name><AcquiredAs>New</AcquiredAs><PurchaseDesc>F150</PurchaseDesc><PurchaseDate>"
                    "2023-05-01</PurchaseDate><PurchaseCost>30000.00</PurchaseCost>" +
                        Ref("AssetAccountRef", "Vehicles") + "<AssetDesc>truck</AssetDesc><Location>yard</Location>",
                    "<Name>Truck</Name><AcquiredAs>Old</AcquiredAs><PurchaseDesc>F150</PurchaseDesc><PurchaseDate>"
                    "2023-05-01</PurchaseDate><FixedAssetSalesInfoMod><SalesDesc>sold</SalesDesc><SalesDate>2024-06-01"
                    "</SalesDate><SalesPrice>20000.00</SalesPrice></FixedAssetSalesInfoMod>",
                    {{"PurchaseCost", "30000.00"}},
                    {{"AcquiredAs", "Old"}, {"FixedAssetSalesInfo/SalesPrice", "20000.00"}}},
        LibraryCase{"ItemDiscount",
                    "<Name>Loyal</Name><ItemDesc>d</ItemDesc><DiscountRatePercent>5.00</DiscountRatePercent>" +
                        Ref("AccountRef", "Sales"),
                    "<Name>Loyal</Name><DiscountRate>10.00</DiscountRate><ApplyAccountRefToExistingTxns>false"
                    "</ApplyAccountRefToExistingTxns>",
                    {{"DiscountRatePercent", "5.00"}},
                    {{"DiscountRate", "10.00"}, {"DiscountRatePercent", ""}}}),
    [](const ::testing::TestParamInfo<LibraryCase>& p) { return p.param.kind; });

// A payroll block's earnings are replaced whole by the earnings of a modify, and emptied by
// ClearEarnings; what the modify leaves out stays.
TEST_F(LibraryRequestsTest, EarningsAreReplacedWholeOrCleared) {
  Add("PayrollItemWage", E("Name", "Bonus") + E("WageType", "Bonus") + Ref("ExpenseAccountRef", "Payroll Expenses"));
  auto earning = [](const std::string& wage, const std::string& rate) {
    return E("Earnings", Ref("PayrollItemWageRef", wage) + rate);
  };
  pugi::xml_node eve = Add("Employee", E("FirstName", "Eve") + E("LastName", "Ray") +
                                           E("EmployeePayrollInfo", E("PayPeriod", "Weekly") +
                                                                        earning("Hourly", E("Rate", "20")) +
                                                                        earning("Bonus", E("RatePercent", "5"))));
  ASSERT_EQ(eve.child("EmployeePayrollInfo").select_nodes("Earnings").size(), 2u);
  ASSERT_EQ(Mod("Employee", eve, E("EmployeePayrollInfoMod", earning("Bonus", E("RatePercent", "7")))).code, 0);
  pugi::xml_node read = Read("Employee", eve);
  EXPECT_EQ(read.child("EmployeePayrollInfo").select_nodes("Earnings").size(), 1u);
  EXPECT_EQ(Text(read, "EmployeePayrollInfo/Earnings/RatePercent"), "7.00");
  EXPECT_EQ(Text(read, "EmployeePayrollInfo/PayPeriod"), "Weekly");
  ASSERT_EQ(Mod("Employee", read, E("EmployeePayrollInfoMod", E("ClearEarnings", "true"))).code, 0);
  read = Read("Employee", eve);
  EXPECT_FALSE(read.first_element_by_path("EmployeePayrollInfo/Earnings"));
  EXPECT_EQ(Text(read, "EmployeePayrollInfo/PayPeriod"), "Weekly");
  // The add form of the block is not taken in a modify.
  EXPECT_THROW(Mod("Employee", read, E("EmployeePayrollInfo", E("PayPeriod", "Monthly"))), BrenvaleError);
}

// A value goes on an item of any kind by its ListID under the one type "Item"; a ListID of another
// kind than the type named is an invalid reference, and nothing is added.
TEST_F(LibraryRequestsTest, DataExtensionValuesFindTheirObjectByListId) {
  const std::string owner = "{6B063959-81B0-4622-85D6-F548C8CCB517}";
  ASSERT_EQ(One("<DataExtDefAddRq><DataExtDefAdd>" + E("OwnerID", owner) + E("DataExtName", "Grade") +
                E("DataExtType", "STR255TYPE") + "</DataExtDefAdd></DataExtDefAddRq>").code, 0);
  auto value = [&](const std::string& type, const std::string& id) {
    return One("<DataExtAddRq><DataExtAdd>" + E("OwnerID", owner) + E("DataExtName", "Grade") +
               E("ListDataExtType", type) + E("ListObjRef", E("ListID", id)) + E("DataExtValue", "A") +
               "</DataExtAdd></DataExtAddRq>");
  };
  pugi::xml_node bolt = One("<ItemQueryRq><FullName>Bolt</FullName></ItemQueryRq>").node.first_child();
  pugi::xml_node buyer = One("<CustomerQueryRq><FullName>Other Customer</FullName></CustomerQueryRq>").node.first_child();
  ASSERT_EQ(value("Item", Text(bolt, "ListID")).code, 0);
  Status mismatched = value("Vendor", Text(buyer, "ListID"));
  EXPECT_EQ(mismatched.code, 3140) << mismatched.message;
  Status items = One("<ItemQueryRq><FullName>Bolt</FullName><OwnerID>0</OwnerID>" + E("OwnerID", owner) + "</ItemQueryRq>");
  EXPECT_EQ(Text(items.node, "ItemInventoryRet/DataExtRet/DataExtValue"), "A");
  Status customers = One("<CustomerQueryRq><FullName>Other Customer</FullName>" + E("OwnerID", owner) + "</CustomerQueryRq>");
  EXPECT_FALSE(customers.node.first_element_by_path("CustomerRet/DataExtRet"));
}

using BillsToPayTest = EngineTest;

// A vendor's open bills come from what its transactions left owed on accounts payable: its opening
// balance is a bill until it is paid.
TEST_F(BillsToPayTest, AVendorsOpeningBalanceIsABillToPay) {
  pugi::xml_node mill = Add("Vendor", E("Name", "Mill") + E("OpenBalance", "300") + E("OpenBalanceDate", "2024-01-01"));
  Add("Vendor", E("Name", "Settled"));
  Add("Customer", E("Name", "Buyer") + E("OpenBalance", "50"));
  Add("Account", E("Name", "Other Payables") + E("AccountType", "AccountsPayable"));
  const std::string id = Text(mill, "ListID");
  auto query = [&](const std::string& payee, const std::string& rest = {}) {
    return One("<BillToPayQueryRq>" + E("PayeeEntityRef", payee) + rest + "</BillToPayQueryRq>");
  };
  // As the library asks: the vendor by ListID, the account by name.
  Status s = query(E("ListID", id), Ref("APAccountRef", "Accounts Payable"));
  ASSERT_EQ(s.code, 0) << s.message;
  ASSERT_EQ(RetTexts(s, "BillToPay/TxnID").size(), 1u);
  pugi::xml_node bill = s.node.first_child().child("BillToPay");
  EXPECT_EQ(Text(bill, "TxnType"), "Bill");
  EXPECT_EQ(Text(bill, "APAccountRef/FullName"), "Accounts Payable");
  EXPECT_EQ(Text(bill, "TxnDate"), "2024-01-01");
  EXPECT_EQ(Text(bill, "AmountDue"), "300.00");
  EXPECT_EQ(Text(bill, "AmountDue"), Text(Read("Vendor", mill), "Balance"));
  EXPECT_EQ(query(E("FullName", "Mill"), E("DueDate", "2024-01-01")).code, 0);
  // Nothing open: another payables account, due later, a vendor owed nothing, a name that is no vendor.
  for (auto& [payee, rest] : std::vector<std::pair<std::string, std::string>>{
           {"Mill", Ref("APAccountRef", "Other Payables")},
           {"Mill", Ref("APAccountRef", "Uncategorized Expenses")},
           {"Mill", E("DueDate", "2023-12-31")},
           {"Mill", E("CurrencyFilter", E("FullName", "Euro"))},
           {"Settled", ""},
           {"Buyer", ""}}) {
    Status none = query(E("FullName", payee), rest);
    EXPECT_EQ(none.code, 1) << payee << rest;
    EXPECT_EQ(none.message, "A query request did not find a matching object in QuickBooks");
  }
  // A vendor that owes the company: a credit to apply.
  pugi::xml_node owing = Add("Vendor", E("Name", "Owing") + E("OpenBalance", "-50"));
  Status credit = query(E("FullName", "Owing"));
  ASSERT_EQ(credit.code, 0) << credit.message;
  EXPECT_EQ(Text(credit.node, "BillToPayRet/CreditToApply/TxnType"), "VendorCredit");
  EXPECT_EQ(Text(credit.node, "BillToPayRet/CreditToApply/CreditRemaining"), "50.00");
  EXPECT_EQ(Text(Read("Vendor", owing), "Balance"), "-50.00");
  // What is not there is an invalid reference.
  EXPECT_EQ(query(E("FullName", "Nobody")).code, 3140);
  EXPECT_EQ(query(E("FullName", "Mill"), Ref("APAccountRef", "Nowhere")).code, 3140);
}

// Every query counts what it found when asked to (retCount), and answers only the count for
// metaData="MetaDataOnly"; finding nothing is status 1 either way.
TEST_F(BillsToPayTest, QueriesCountWhatTheyFind) {
  Add("Vendor", E("Name", "Mill") + E("OpenBalance", "300"));
  pugi::xml_node gone = Add("Class", E("Name", "Gone"));
  ASSERT_EQ(One("<ListDelRq><ListDelType>Class</ListDelType>" + E("ListID", Text(gone, "ListID")) + "</ListDelRq>").code, 0);
  ASSERT_EQ(One("<DataExtDefAddRq><DataExtDefAdd><OwnerID>0</OwnerID>" + E("DataExtName", "Color") +
                E("DataExtType", "STR255TYPE") + E("AssignToObject", "Customer") + "</DataExtDefAdd></DataExtDefAddRq>").code,
            0);
  struct Case {
    std::string query, finds, findsNothing;
  };
  for (const Case& c : {Case{"BillToPay", E("PayeeEntityRef", E("FullName", "Mill")),
                             E("PayeeEntityRef", E("FullName", "Mill")) + E("DueDate", "1990-01-01")},
                        Case{"ListDeleted", E("ListDelType", "Class"), E("ListDelType", "Customer")},
                        Case{"DataExtDef", E("AssignToObject", "Customer"), E("AssignToObject", "Vendor")},
                        Case{"Vendor", E("FullName", "Mill"), E("NameFilter", E("MatchCriterion", "StartsWith") +
                                                                                  E("Name", "Q"))}}) {
    SCOPED_TRACE(c.query);
    auto send = [&](const std::string& metaData, const std::string& body) {
      return One("<" + c.query + "QueryRq metaData=\"" + metaData + "\">" + body + "</" + c.query + "QueryRq>");
    };
    Status counted = send("MetaDataOnly", c.finds);
    EXPECT_EQ(counted.code, 0);
    EXPECT_EQ(counted.node.attribute("retCount").as_int(), 1);
    EXPECT_FALSE(counted.node.first_child());
    Status both = send("MetaDataAndResponseData", c.finds);
    EXPECT_EQ(both.node.attribute("retCount").as_int(), 1);
    EXPECT_TRUE(both.node.first_child());
    EXPECT_FALSE(send("NoMetaData", c.finds).node.attribute("retCount"));
    Status none = send("MetaDataOnly", c.findsNothing);
    EXPECT_EQ(none.code, 1);
    EXPECT_EQ(none.node.attribute("retCount").as_int(), 0);
  }
}

}  // namespace
}  // namespace rqptest

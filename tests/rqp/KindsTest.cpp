// Every list kind, end to end: added and read back as it was answered, modified where QuickBooks
// allows it and read back again, found and left out by every filter QuickBooks' schema gives its
// query (and the item, entity and terms queries across kinds), deleted and listed as deleted. Every
// answer is valid against the qbXML schema.
#include <algorithm>
#include <functional>
#include <optional>
#include <ostream>
#include <sstream>

#include "brenvale/rqp/engine/Company.hpp"
#include "brenvale/rqp/records/Kind.hpp"
#include "rqp/EngineHarness.hpp"
#include "rqp/QbxmlSchema.hpp"

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

// The whole element as text, to compare two answers about one record.
std::string Whole(pugi::xml_node n) {
  std::ostringstream out;
  n.print(out, "", pugi::format_raw);
  return out.str();
}

// The ListIDs a query answered.
std::vector<std::string> Ids(const Status& s) { return RetTexts(s, "ListID"); }

// Request bodies that find a record and bodies that must leave it out, for one query filter.
struct Probes {
  std::vector<std::string> find, miss;
};

class KindsTest : public EngineTest, public ::testing::WithParamInterface<KindCase> {
 protected:
  void SetUp() override {
    EngineTest::SetUp();
    if (IsSkipped()) return;
    // What the records refer to.
    Add("Vendor", "<Name>Maker</Name>");
    Add("Account", "<Name>Sales</Name><AccountType>Income</AccountType><AccountNumber>4000</AccountNumber>");
    Add("ItemService", "<Name>Base</Name><SalesOrPurchase><Price>40</Price></SalesOrPurchase>");
    Add("ItemInventory", "<Name>Stock</Name><SalesPrice>10</SalesPrice>");
    Add("ItemSalesTax", "<Name>State</Name><TaxRate>6.25</TaxRate>");
    Add("Class", "<Name>Region</Name>");
    Add("Class", "<Name>North</Name><ParentRef><FullName>Region</FullName></ParentRef>");
    Add("Class", "<Name>Elsewhere</Name>");
    Add("ItemNonInventory", "<Name>NI Parts</Name><SalesOrPurchase><Price>1</Price></SalesOrPurchase>");
  }

  // The text of the first of `paths` the record has.
  static std::string First(pugi::xml_node ret, std::initializer_list<const char*> paths) {
    for (const char* p : paths)
      if (ret.first_element_by_path(p)) return Text(ret, p);
    return {};
  }

  // The probes of one filter of a query, for the record `ret`; nullopt for a filter without any.
  static std::optional<Probes> ProbesOf(const std::string& filter, pugi::xml_node ret) {
    const std::string id = Text(ret, "ListID");
    const std::string name = First(ret, {"FullName", "Name", "Initial"});
    auto e = [](const std::string& tag, const std::string& text) { return "<" + tag + ">" + text + "</" + tag + ">"; };
    if (filter == "ListID") return Probes{{e("ListID", id)}, {e("ListID", "80000FFF-1111111111")}};
    if (filter == "FullName") return Probes{{e("FullName", name)}, {e("FullName", name + " none")}};
    if (filter == "ActiveStatus") {
      bool active = Text(ret, "IsActive") != "false";
      return Probes{{e("ActiveStatus", active ? "ActiveOnly" : "InactiveOnly"), e("ActiveStatus", "All")},
                    {e("ActiveStatus", active ? "InactiveOnly" : "ActiveOnly")}};
    }
    if (filter == "FromModifiedDate")
      return Probes{{e("FromModifiedDate", Text(ret, "TimeModified"))}, {e("FromModifiedDate", "2100-01-01")}};
    if (filter == "ToModifiedDate")
      return Probes{{e("ToModifiedDate", Text(ret, "TimeModified"))}, {e("ToModifiedDate", "2000-01-01")}};
    auto nameFilter = [&](const char* how, const std::string& part) {
      return "<NameFilter>" + e("MatchCriterion", how) + e("Name", part) + "</NameFilter>";
    };
    if (filter == "NameFilter" && !name.empty())
      return Probes{{nameFilter("StartsWith", name.substr(0, 2)), nameFilter("Contains", name.substr(1, 2)),
                     nameFilter("EndsWith", name.substr(name.size() - 2))},
                    {nameFilter("StartsWith", "qqq"), nameFilter("Contains", name + "x")}};
    if (filter == "NameRangeFilter" && !name.empty())
      return Probes{{"<NameRangeFilter>" + e("FromName", name) + e("ToName", name) + "</NameRangeFilter>",
                     "<NameRangeFilter>" + e("FromName", name) + "</NameRangeFilter>"},
                    {"<NameRangeFilter>" + e("FromName", name + "zzz") + "</NameRangeFilter>",
                     "<NameRangeFilter>" + e("ToName", "!") + "</NameRangeFilter>"}};
    if (filter == "TotalBalanceFilter") {
      std::string balance = First(ret, {"TotalBalance", "Balance"});
      auto f = [&](const char* op) {
        return "<TotalBalanceFilter>" + e("Operator", op) + e("Amount", balance) + "</TotalBalanceFilter>";
      };
      return Probes{{f("Equal"), f("GreaterThanEqual"), f("LessThanEqual")}, {f("GreaterThan"), f("LessThan")}};
    }
    if (filter == "CurrencyFilter") {
      std::string currency = Text(ret, "CurrencyRef/FullName");
      return Probes{{"<CurrencyFilter>" + e("FullName", currency) + "</CurrencyFilter>",
                     "<CurrencyFilter>" + e("ListID", Text(ret, "CurrencyRef/ListID")) + "</CurrencyFilter>"},
                    {"<CurrencyFilter>" + e("FullName", currency == "Euro" ? "Swiss Franc" : "Euro") + "</CurrencyFilter>"}};
    }
    if (filter == "ClassFilter") {
      std::string cls = Text(ret, "ClassRef/FullName");
      return Probes{{"<ClassFilter>" + e("FullName", cls) + "</ClassFilter>",
                     "<ClassFilter>" + e("ListID", Text(ret, "ClassRef/ListID")) + "</ClassFilter>",
                     "<ClassFilter>" + e("FullNameWithChildren", cls.substr(0, cls.find(':'))) + "</ClassFilter>"},
                    {"<ClassFilter>" + e("FullName", "Elsewhere") + "</ClassFilter>",
                     "<ClassFilter>" + e("FullNameWithChildren", "Elsewhere") + "</ClassFilter>"}};
    }
    if (filter == "AccountType") {
      std::string type = Text(ret, "AccountType");
      return Probes{{e("AccountType", type), e("AccountType", "NonPosting") + e("AccountType", type)},
                    {e("AccountType", type == "Equity" ? "Bank" : "Equity")}};
    }
    if (filter == "ItemRef") {
      std::string item = First(ret, {"PriceLevelPerItemRet/ItemRef/FullName", "BillingRatePerItemRet/ItemRef/FullName"});
      return Probes{{"<ItemRef>" + e("FullName", item) + "</ItemRef>"},
                    {"<ItemRef>" + e("FullName", item == "Stock" ? "State" : "Stock") + "</ItemRef>"}};
    }
    if (filter == "PaymentMethodType") {
      std::string type = Text(ret, "PaymentMethodType");
      return Probes{{e("PaymentMethodType", type)}, {e("PaymentMethodType", type == "Cash" ? "Check" : "Cash")}};
    }
    if (filter == "DoneStatus") {
      bool done = Text(ret, "IsDone") == "true";
      return Probes{{e("DoneStatus", "All"), e("DoneStatus", done ? "DoneOnly" : "NotDoneOnly")},
                    {e("DoneStatus", done ? "NotDoneOnly" : "DoneOnly")}};
    }
    return std::nullopt;
  }

  // Runs every filter QuickBooks' schema gives `query` (a kind's own query, or the query across kinds
  // it takes part in) against the record `ret`.
  void ProbeQuery(const std::string& query, pugi::xml_node ret) {
    const QbxmlSchemaTree& schema = SchemaTree(SchemaFolder());
    pugi::xml_node definition = schema.Element(query + "QueryRq");
    ASSERT_TRUE(definition) << query;
    const std::string id = Text(ret, "ListID");
    auto children = schema.Children(definition);
    auto takes = [&](const char* filter) {
      return std::any_of(children.begin(), children.end(), [&](auto& c) { return c.first == filter; });
    };
    // A filter finds an inactive record (or a to-do that is done) only among all of them; the
    // statuses go before and after the filter in schema order.
    bool inactive = Text(ret, "IsActive") == "false", done = Text(ret, "IsDone") == "true";
    auto run = [&](const std::string& filter, const std::string& body) {
      bool scoped = filter != "ListID" && filter != "FullName";
      std::string before = scoped && inactive && filter != "ActiveStatus" && takes("ActiveStatus")
                               ? "<ActiveStatus>All</ActiveStatus>" : "";
      std::string after = scoped && done && filter != "DoneStatus" ? "<DoneStatus>All</DoneStatus>" : "";
      return One("<" + query + "QueryRq>" + before + body + after + "</" + query + "QueryRq>");
    };
    int probed = 0;
    for (auto& [filter, node] : children) {
      SCOPED_TRACE(query + "QueryRq " + filter);
      if (filter == "MaxReturned") {
        Status s = One("<" + query + "QueryRq><MaxReturned>1</MaxReturned>" +
                       (inactive && takes("ActiveStatus") ? "<ActiveStatus>All</ActiveStatus>" : "") +
                       (done ? "<DoneStatus>All</DoneStatus>" : "") + "</" + query + "QueryRq>");
        EXPECT_EQ(Ids(s).size(), 1u);
      } else if (filter == "IncludeRetElement") {
        Status s = run("ListID", "<ListID>" + id + "</ListID><IncludeRetElement>ListID</IncludeRetElement>");
        ASSERT_EQ(Ids(s), std::vector<std::string>{id});
        EXPECT_EQ(Whole(s.node.first_child()), "<" + std::string(ret.name()) + "><ListID>" + id + "</ListID></" +
                                                   std::string(ret.name()) + ">");
      } else if (filter == "OwnerID") {
        Status s = run("ListID", "<ListID>" + id + "</ListID><OwnerID>0</OwnerID>");
        EXPECT_EQ(Ids(s), std::vector<std::string>{id});
      } else if ((filter == "NameFilter" || filter == "NameRangeFilter") && std::string(ret.name()) == "ToDoRet") {
        continue;  // to-dos have no name to filter on
      } else if (auto probes = ProbesOf(filter, ret)) {
        for (auto& body : probes->find) {
          auto ids = Ids(run(filter, body));
          EXPECT_NE(std::find(ids.begin(), ids.end(), id), ids.end()) << body;
        }
        for (auto& body : probes->miss) {
          auto ids = Ids(run(filter, body));
          EXPECT_EQ(std::find(ids.begin(), ids.end(), id), ids.end()) << body;
        }
      } else {
        ADD_FAILURE() << "no probe for the filter " << filter << " of " << query << "QueryRq";
      }
      ++probed;
    }
    EXPECT_GE(probed, 3) << query;
  }

  // Whether QuickBooks deletes records of `kind` by ListDel.
  static bool Deletable(const std::string& kind) {
    pugi::xml_node type = SchemaTree(SchemaFolder()).Element("ListDelType");
    return type.find_node([&](pugi::xml_node n) { return kind == n.attribute("value").value(); });
  }
};

TEST_P(KindsTest, AddQueryModifyFilterDelete) {
  const KindCase& k = GetParam();
  pugi::xml_node ret = Add(k.kind, k.add);
  ASSERT_TRUE(ret) << k.kind;
  EXPECT_EQ(std::string(ret.name()), k.kind + "Ret");
  std::string id = Text(ret, "ListID");
  // Read back, it is what the add answered.
  EXPECT_EQ(Whole(Read(k.kind, ret)), Whole(ret));
  if (!k.mod.empty()) {
    ASSERT_FALSE(k.after.empty()) << "a modify case reads its change back";
    Status m = Mod(k.kind, ret, k.mod);
    ASSERT_EQ(m.code, 0) << m.message;
    pugi::xml_node read = Read(k.kind, ret);
    EXPECT_EQ(Whole(read), Whole(m.node.first_child()));
    for (auto& [path, value] : k.after) EXPECT_EQ(Text(read, path.c_str()), value) << k.kind << " " << path;
    EXPECT_NE(Text(read, "EditSequence"), Text(ret, "EditSequence"));
    ret = read;
  }
  ProbeQuery(k.kind, ret);
  for (const char* across : {"Item", "Entity", "Terms"}) {
    const std::string& kind = k.kind;
    bool member = across == std::string("Item") ? kind.rfind("Item", 0) == 0
                  : across == std::string("Terms") ? kind.ends_with("Terms")
                                                   : kind == "Customer" || kind == "Vendor" || kind == "Employee" ||
                                                         kind == "OtherName";
    if (member) ProbeQuery(across, ret);
  }
  if (!Deletable(k.kind)) return;
  Status del = One("<ListDelRq><ListDelType>" + k.kind + "</ListDelType><ListID>" + id + "</ListID></ListDelRq>");
  ASSERT_EQ(del.code, 0) << del.message;
  EXPECT_EQ(Text(del.node, "ListID"), id);
  EXPECT_EQ(One("<" + k.kind + "QueryRq><ListID>" + id + "</ListID></" + k.kind + "QueryRq>").code, 500);
  Status deleted = One("<ListDeletedQueryRq><ListDelType>" + k.kind + "</ListDelType></ListDeletedQueryRq>");
  EXPECT_EQ(Text(deleted.node, "ListDeletedRet/ListID"), id);
}

const std::string kSalesOrPurchase = "<SalesOrPurchase><Desc>d</Desc><Price>12.5</Price><AccountRef><FullName>Sales</FullName></AccountRef></SalesOrPurchase>";
const std::string kClass = "<ClassRef><FullName>Region:North</FullName></ClassRef>";
const std::string kDollars = "<CurrencyRef><FullName>US Dollar</FullName></CurrencyRef>";

const std::vector<KindCase> kKindCases = {
        KindCase{"Account", "<Name>Checking</Name><AccountType>Bank</AccountType><TaxLineID>1</TaxLineID>" + kDollars,
                 "<Desc>Main</Desc>", {{"Desc", "Main"}, {"Balance", "0.00"}, {"TaxLineInfoRet/TaxLineID", "1"}}},
        KindCase{"Customer",
                 "<Name>Full</Name>" + kClass + "<CompanyName>Full Ltd</CompanyName><BillAddress><Addr1>1 Main</Addr1>"
                 "<City>Town</City></BillAddress><ShipToAddress><Name>Dock</Name><City>Port</City></ShipToAddress><Contacts>"
                 "<FirstName>Al</FirstName><AdditionalContactRef><ContactName>Cell</ContactName><ContactValue>1</ContactValue>"
                 "</AdditionalContactRef></Contacts><CreditCardInfo><ExpirationMonth>12</ExpirationMonth></CreditCardInfo>"
                 "<AdditionalNotes><Note>hello</Note></AdditionalNotes>" + kDollars,
                 "<JobStatus>Pending</JobStatus><AdditionalNotesMod><NoteID>1</NoteID><Note>bye</Note></AdditionalNotesMod>",
                 {{"JobStatus", "Pending"}, {"AdditionalNotesRet/Note", "bye"}, {"BillAddress/City", "Town"},
                  {"BillAddressBlock/Addr2", "Town"}}},
        KindCase{"Vendor", "<Name>V2</Name>" + kClass + "<VendorAddress><Addr1>x</Addr1></VendorAddress><IsVendorEligibleFor1099>true"
                           "</IsVendorEligibleFor1099><PrefillAccountRef><FullName>Sales</FullName></PrefillAccountRef>" + kDollars,
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
        KindCase{"ItemService", "<Name>Svc</Name><BarCode><BarCodeValue>123</BarCodeValue></BarCode>" + kClass + kSalesOrPurchase,
                 "<SalesAndPurchaseMod><SalesPrice>3</SalesPrice><PrefVendorRef><FullName>Maker</FullName></PrefVendorRef>"
                 "</SalesAndPurchaseMod>",
                 {{"SalesAndPurchase/SalesPrice", "3.00"}, {"SalesAndPurchase/PrefVendorRef/FullName", "Maker"},
                  {"SalesOrPurchase/Price", ""}, {"BarCodeValue", "123"}}},
        KindCase{"ItemNonInventory", "<Name>NI</Name><ParentRef><FullName>NI Parts</FullName></ParentRef>" + kClass +
                                     "<ManufacturerPartNumber>P1</ManufacturerPartNumber>" + kSalesOrPurchase,
                 "<SalesOrPurchaseMod><PricePercent>5</PricePercent><ApplyAccountRefToExistingTxns>true"
                 "</ApplyAccountRefToExistingTxns></SalesOrPurchaseMod>",
                 {{"SalesOrPurchase/PricePercent", "5.00"}, {"SalesOrPurchase/Price", ""}, {"SalesOrPurchase/Desc", "d"},
                  {"FullName", "NI Parts:NI"}, {"Sublevel", "1"}}},
        KindCase{"ItemOtherCharge", "<Name>Fee</Name>" + kClass + kSalesOrPurchase, "<IsActive>false</IsActive>",
                 {{"IsActive", "false"}}},
        KindCase{"ItemInventory",
                 "<Name>Inv</Name>" + kClass + "<IncomeAccountRef><FullName>Sales</FullName></IncomeAccountRef>"
                 "<InventoryDate>2024-01-31</InventoryDate>",
                 "<ForceUOMChange>true</ForceUOMChange><ReorderPoint>2</ReorderPoint>",
                 {{"ReorderPoint", "2"}, {"IncomeAccountRef/FullName", "Sales"}, {"QuantityOnHand", "0"},
                  {"AssetAccountRef/FullName", "Inventory Asset"}, {"COGSAccountRef/FullName", "Cost of Goods Sold"}}},
        KindCase{"ItemInventoryAssembly",
                 "<Name>Kit</Name>" + kClass + "<ItemInventoryAssemblyLine><ItemInventoryRef><FullName>Stock</FullName></ItemInventoryRef>"
                 "<Quantity>2</Quantity></ItemInventoryAssemblyLine>",
                 "<ClearItemsInGroup>true</ClearItemsInGroup>", {{"ItemInventoryAssemblyLine/Quantity", ""}}},
        KindCase{"ItemFixedAsset", "<Name>Truck</Name>" + kClass + "<AcquiredAs>New</AcquiredAs><PurchaseDesc>F150</PurchaseDesc>"
                                   "<PurchaseDate>2023-05-01</PurchaseDate><FixedAssetSalesInfo><SalesDesc>sold</SalesDesc>"
                                   "<SalesDate>2024-01-01</SalesDate></FixedAssetSalesInfo>",
                 "<FixedAssetSalesInfoMod><SalesPrice>100</SalesPrice></FixedAssetSalesInfoMod>",
                 {{"FixedAssetSalesInfo/SalesPrice", "100.00"}, {"FixedAssetSalesInfo/SalesDesc", "sold"}}},
        KindCase{"ItemSubtotal", "<Name>Subtotal</Name><ItemDesc>sum</ItemDesc>", "<ItemDesc>total</ItemDesc>",
                 {{"ItemDesc", "total"}}},
        KindCase{"ItemDiscount", "<Name>Disc</Name>" + kClass + "<DiscountRatePercent>10</DiscountRatePercent>",
                 "<DiscountRate>5</DiscountRate>", {{"DiscountRate", "5.00"}, {"DiscountRatePercent", ""}}},
        KindCase{"ItemPayment", "<Name>Pay</Name>" + kClass + "<PaymentMethodRef><FullName>Cash</FullName></PaymentMethodRef>",
                 "<ItemDesc>p</ItemDesc>", {{"ItemDesc", "p"}, {"PaymentMethodRef/FullName", "Cash"}}},
        KindCase{"ItemSalesTax", "<Name>County</Name>" + kClass + "<TaxRate>1</TaxRate><TaxVendorRef><FullName>Maker</FullName></TaxVendorRef>",
                 "<TaxRate>1.5</TaxRate>", {{"TaxRate", "1.50"}}},
        KindCase{"ItemSalesTaxGroup", "<Name>Combined</Name><ItemSalesTaxRef><FullName>State</FullName></ItemSalesTaxRef>",
                 "<ItemDesc>both</ItemDesc>", {{"ItemDesc", "both"}, {"ItemSalesTaxRef/FullName", "State"}}},
        KindCase{"ItemGroup", "<Name>Bundle</Name><ItemGroupLine><ItemRef><FullName>Base</FullName></ItemRef><Quantity>1</Quantity>"
                              "</ItemGroupLine>",
                 "<ItemGroupLine><ItemRef><FullName>Stock</FullName></ItemRef></ItemGroupLine>",
                 {{"ItemGroupLine/ItemRef/FullName", "Stock"}, {"ItemGroupLine/Quantity", ""}}},
        KindCase{"PriceLevel", "<Name>Wholesale</Name><PriceLevelFixedPercentage>5</PriceLevelFixedPercentage>",
                 "<PriceLevelPerItem><ItemRef><FullName>Base</FullName></ItemRef><AdjustPercentage>-10</AdjustPercentage>"
                 "<AdjustRelativeTo>StandardPrice</AdjustRelativeTo></PriceLevelPerItem>" + kDollars,
                 {{"PriceLevelFixedPercentage", ""}, {"PriceLevelType", "PerItem"}, {"PriceLevelPerItemRet/CustomPrice", "36.00"}}},
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
                 ""}};

INSTANTIATE_TEST_SUITE_P(Lists, KindsTest, ::testing::ValuesIn(kKindCases),
                         [](const ::testing::TestParamInfo<KindCase>& p) { return p.param.kind; });

// Every kind a host can add is among the cases above: a kind declared later is tested end to end too.
TEST(KindsCovered, EveryKindAHostAddsIsACase) {
  brenvale::rqp::detail::InstallEngine();
  int addable = 0;
  for (auto& kind : brenvale::rqp::detail::KindRegistry::All()) {
    if (!kind.add) continue;
    ++addable;
    EXPECT_TRUE(std::any_of(kKindCases.begin(), kKindCases.end(), [&](auto& c) { return c.kind == kind.base; }))
        << kind.base;
  }
  EXPECT_GE(addable, 30);
}

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

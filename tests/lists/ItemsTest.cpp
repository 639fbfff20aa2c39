// The twelve item kinds, from one table: the add request each writes and the modify request of a
// change (both checked against the qbXML schema by the scripted processor), what each reads back
// from QuickBooks' answer; then the rules of items: their codes and the subtotal's own texts.
#include <functional>
#include <regex>
#include <string>
#include <vector>

#include "brenvale/Brenvale.hpp"
#include "brenvale/model/Lists.hpp"
#include "brenvale/model/RefCache.hpp"
#include "lists/ListsTestSupport.hpp"

namespace brenvale::testing {
namespace {

const std::string kIdentity =
    "<ListID>80000041-1712345678</ListID><TimeCreated>2024-03-01T10:00:00</TimeCreated>"
    "<TimeModified>2024-03-02T11:30:15</TimeModified><EditSequence>1712345999</EditSequence>";
const std::string kModLead = "<ListID>80000041-1712345678</ListID><EditSequence>1712345999</EditSequence>";

// What QuickBooks holds already, by list: the records a query of that list answers (every name
// asked for, as a record of that element; items of the kind their name says).
std::string QueryAnswer(const std::string& rq) {
  static const std::regex query("<(\\w+)QueryRq");
  static const std::regex name("<FullName>([^<]*)</FullName>");
  std::smatch m;
  if (!std::regex_search(rq, m, query)) return {};
  const std::string list = m[1];
  std::string rets;
  for (auto it = std::sregex_iterator(rq.begin(), rq.end(), name); it != std::sregex_iterator(); ++it) {
    const std::string full = (*it)[1];
    std::string ret = list + "Ret";
    if (list == "Item")
      ret = full == "Bolt" ? "ItemInventoryRet" : full == "State" ? "ItemSalesTaxRet" : full == "Promo" ? "ItemDiscountRet"
                                                                                                        : "ItemServiceRet";
    rets += "<" + ret + "><ListID>L-" + full + "</ListID><FullName>" + full + "</FullName></" + ret + ">";
  }
  return StatusResponse(list + "QueryRs", 0, rets);
}

template <class K>
K& As(zkItem& item) {
  return static_cast<K&>(item);
}

struct ItemCase {
  std::string kind;
  std::function<zkItem&(Items&)> add;
  std::string addBody;  // the add request's body
  std::string retBody;  // QuickBooks' answer, after the identity
  std::function<void(zkItem&)> check;
  std::function<void(zkItem&)> change;
  std::string modBody;  // the modify request's body, after ListID and EditSequence
};

void PrintTo(const ItemCase& k, std::ostream* os) { *os << k.kind; }

std::vector<ItemCase> Cases() {
  std::vector<ItemCase> cases;
  cases.push_back(
      {"ItemService",
       [](Items& c) -> zkItem& {
         auto& s = c.Add<ItemService>("Labor", true, "Work");
         s.SalesTaxCodeRef("Non");
         s.SalesOrPurchase().Desc("An hour");
         s.SalesOrPurchase().Price(45.5);
         s.SalesOrPurchase().AccountRef("Income");
         return s;
       },
       "<Name>Labor</Name><IsActive>true</IsActive><ParentRef><FullName>Work</FullName></ParentRef>"
       "<SalesTaxCodeRef><FullName>Non</FullName></SalesTaxCodeRef><SalesOrPurchase><Desc>An hour</Desc>"
       "<Price>0000045.50000</Price><AccountRef><FullName>Income</FullName></AccountRef></SalesOrPurchase>",
       "<Name>Labor</Name><FullName>Work:Labor</FullName><IsActive>true</IsActive>"
       "<ParentRef><ListID>L-Work</ListID><FullName>Work</FullName></ParentRef><Sublevel>1</Sublevel>"
       "<SalesTaxCodeRef><FullName>Non</FullName></SalesTaxCodeRef><SalesOrPurchase><Desc>An hour</Desc>"
       "<Price>45.50</Price><AccountRef><FullName>Income</FullName></AccountRef></SalesOrPurchase>",
       [](zkItem& i) {
         EXPECT_EQ(i.FullName(), "Work:Labor");
         EXPECT_EQ(i.ItemType(), qbItemTypeService);
         EXPECT_DOUBLE_EQ(i.SalesCost(), 45.5);
         EXPECT_EQ(As<ItemService>(i).SalesOrPurchase().AccountRef().FullName(), "Income");
       },
       // The other block: the one held is taken out first, and the modify sends the new one.
       [](zkItem& i) {
         auto& s = As<ItemService>(i);
         EXPECT_EQ(RaisedBy([&] { s.SalesAndPurchase(); }).Number(), ErrorNumber(1003));
         s.RemoveBlock();
         s.SalesAndPurchase().SalesPrice(50);
         s.SalesAndPurchase().PurchaseCost(20);
       },
       "<Name>Labor</Name><IsActive>true</IsActive><ParentRef><FullName>Work</FullName></ParentRef>"
       "<SalesTaxCodeRef><FullName>Non</FullName></SalesTaxCodeRef><SalesAndPurchaseMod><SalesPrice>0000050.00000</SalesPrice>"
       "<PurchaseCost>0000020.00000</PurchaseCost></SalesAndPurchaseMod>"});
  cases.push_back({"ItemNonInventory",
                   [](Items& c) -> zkItem& {
                     auto& n = c.Add<ItemNonInventory>("Gloves");
                     n.ManufacturerPartNumber("GL-9");
                     n.SalesAndPurchase().SalesDesc("Work gloves");
                     n.SalesAndPurchase().SalesPrice(12);
                     n.SalesAndPurchase().IncomeAccountRef("Income");
                     n.SalesAndPurchase().PurchaseCost(4.25);
                     n.SalesAndPurchase().ExpenseAccountRef("Supplies");
                     n.SalesAndPurchase().PrefVendorRef("Maker");
                     return n;
                   },
                   "<Name>Gloves</Name><IsActive>true</IsActive><ManufacturerPartNumber>GL-9"
                   "</ManufacturerPartNumber><SalesAndPurchase><SalesDesc>Work gloves</SalesDesc>"
                   "<SalesPrice>0000012.00000</SalesPrice><IncomeAccountRef><FullName>Income</FullName>"
                   "</IncomeAccountRef><PurchaseCost>0000004.25000</PurchaseCost><ExpenseAccountRef>"
                   "<FullName>Supplies</FullName></ExpenseAccountRef><PrefVendorRef><FullName>Maker</FullName>"
                   "</PrefVendorRef></SalesAndPurchase>", "<Name>Gloves</Name><FullName>Gloves</FullName><ManufacturerPartNumber>GL-9</ManufacturerPartNumber>"
                   "<SalesAndPurchase><SalesDesc>Work gloves</SalesDesc><SalesPrice>12.00</SalesPrice><PurchaseCost>4.25</PurchaseCost>"
                   "<ExpenseAccountRef><FullName>Supplies</FullName></ExpenseAccountRef><PrefVendorRef><FullName>Maker</FullName></PrefVendorRef>"
                   "</SalesAndPurchase>",
                   [](zkItem& i) {
                     EXPECT_EQ(As<ItemNonInventory>(i).ManufacturerPartNumber(), "GL-9");
                     EXPECT_TRUE(i.HasSalesAndPurchase());
                     EXPECT_TRUE(i.ContainsExpenseAccount());
                     EXPECT_DOUBLE_EQ(i.PurchaseCost(), 4.25);
                     EXPECT_EQ(i.SalesDescription(), "Work gloves");
                   },
                   [](zkItem& i) { As<ItemNonInventory>(i).SalesAndPurchase().PurchaseCost(5); },
                   "<Name>Gloves</Name><IsActive>true</IsActive><ManufacturerPartNumber>GL-9"
                   "</ManufacturerPartNumber><SalesAndPurchaseMod><SalesDesc>Work gloves</SalesDesc>"
                   "<SalesPrice>0000012.00000</SalesPrice><PurchaseCost>0000005.00000</PurchaseCost><PrefVendorRef>"
                   "<FullName>Maker</FullName></PrefVendorRef></SalesAndPurchaseMod>"});
  cases.push_back({"ItemOtherCharge",
                   [](Items& c) -> zkItem& {
                     auto& o = c.Add<ItemOtherCharge>("Delivery");
                     o.SalesOrPurchase().PricePercent(3);
                     o.SalesOrPurchase().AccountRef("Income");
                     return o;
                   },
                   "<Name>Delivery</Name><IsActive>true</IsActive><SalesOrPurchase><PricePercent>0000003.00000"
                   "</PricePercent><AccountRef><FullName>Income</FullName></AccountRef></SalesOrPurchase>", "<Name>Delivery</Name><FullName>Delivery</FullName><SalesOrPurchase><PricePercent>3.00</PricePercent></SalesOrPurchase>",
                   [](zkItem& i) {
                     EXPECT_TRUE(i.SalesCostIsPercent());
                     EXPECT_DOUBLE_EQ(i.SalesCost(), 3);
                   },
                   [](zkItem& i) { As<ItemOtherCharge>(i).SalesOrPurchase().Price(9.5); },
                   "<Name>Delivery</Name><IsActive>true</IsActive><SalesOrPurchaseMod><Price>0000009.50000</Price>"
                   "</SalesOrPurchaseMod>"});
  cases.push_back({"ItemInventory",
                   [](Items& c) -> zkItem& {
                     auto& v = c.Add<ItemInventory>("Bolt");
                     v.SalesDesc("Steel bolt");
                     v.SalesPrice(0.8);
                     v.IncomeAccountRef("Income");
                     v.PurchaseCost(0.2);
                     v.COGSAccountRef("COGS");
                     v.PrefVendorRef("Maker");
                     v.AssetAccountRef("Stock");
                     v.ReorderPoint(100);
                     v.QuantityOnHand(40);
                     v.TotalValue(Currency(8));
                     v.InventoryDate(Date::Serial(2024, 1, 31));
                     return v;
                   },
                   "<Name>Bolt</Name><IsActive>true</IsActive><SalesDesc>Steel bolt</SalesDesc>"
                   "<SalesPrice>0000000.80000</SalesPrice><IncomeAccountRef><FullName>Income</FullName>"
                   "</IncomeAccountRef><PurchaseCost>0000000.20000</PurchaseCost><COGSAccountRef><FullName>COGS"
                   "</FullName></COGSAccountRef><PrefVendorRef><FullName>Maker</FullName></PrefVendorRef>"
                   "<AssetAccountRef><FullName>Stock</FullName></AssetAccountRef><ReorderPoint>100.00000"
                   "</ReorderPoint><QuantityOnHand>40.00000</QuantityOnHand><TotalValue>8.00</TotalValue>"
                   "<InventoryDate>2024-01-31</InventoryDate>", "<Name>Bolt</Name><FullName>Bolt</FullName><SalesDesc>Steel bolt</SalesDesc><SalesPrice>0.80</SalesPrice>"
                   "<ReorderPoint>100</ReorderPoint><QuantityOnHand>40</QuantityOnHand><AverageCost>0.20</AverageCost>"
                   "<QuantityOnOrder>5</QuantityOnOrder><QuantityOnSalesOrder>2</QuantityOnSalesOrder>",
                   [](zkItem& i) {
                     auto& v = As<ItemInventory>(i);
                     EXPECT_DOUBLE_EQ(v.QuantityOnHand(), 40);
                     EXPECT_DOUBLE_EQ(v.AverageCost(), 0.2);
                     EXPECT_DOUBLE_EQ(v.QuantityOnOrder(), 5);
                     EXPECT_DOUBLE_EQ(v.QuantityOnSalesOrder(), 2);
                   },
                   // What is given only in an add cannot change once the item exists.
                   [](zkItem& i) {
                     auto& v = As<ItemInventory>(i);
                     EXPECT_EQ(RaisedBy([&] { v.QuantityOnHand(1); }).Number(), ErrorNumber(1002));
                     EXPECT_EQ(RaisedBy([&] { v.IncomeAccountRef("Other"); }).Number(), ErrorNumber(1002));
                     v.ReorderPoint(50);
                     v.SalesDesc("");
                   },
                   "<Name>Bolt</Name><IsActive>true</IsActive><SalesDesc></SalesDesc><SalesPrice>0000000.80000"
                   "</SalesPrice><PurchaseCost>0000000.20000</PurchaseCost><COGSAccountRef><FullName>COGS</FullName>"
                   "</COGSAccountRef><PrefVendorRef><FullName>Maker</FullName></PrefVendorRef><AssetAccountRef>"
                   "<FullName>Stock</FullName></AssetAccountRef><ReorderPoint>50.00000</ReorderPoint>"});
  cases.push_back({"ItemInventoryAssembly",
                   [](Items& c) -> zkItem& {
                     auto& a = c.Add<ItemAssembly>("Bolt kit");
                     a.IncomeAccountRef("Income");
                     a.COGSAccountRef("COGS");
                     a.AssetAccountRef("Stock");
                     a.BuildPoint(5);
                     a.AssemblyLines().Add("Bolt", 12);
                     return a;
                   },
                   "<Name>Bolt kit</Name><IsActive>true</IsActive><IncomeAccountRef><FullName>Income</FullName>"
                   "</IncomeAccountRef><COGSAccountRef><FullName>COGS</FullName></COGSAccountRef><AssetAccountRef>"
                   "<FullName>Stock</FullName></AssetAccountRef><BuildPoint>5.00000</BuildPoint>"
                   "<ItemInventoryAssemblyLine><ItemInventoryRef><FullName>Bolt</FullName></ItemInventoryRef>"
                   "<Quantity>12.00000</Quantity></ItemInventoryAssemblyLine>", "<Name>Bolt kit</Name><FullName>Bolt kit</FullName><BuildPoint>5</BuildPoint>"
                   "<ItemInventoryAssemblyLine><ItemInventoryRef><FullName>Bolt</FullName></ItemInventoryRef>"
                   "<Quantity>12</Quantity></ItemInventoryAssemblyLine>",
                   [](zkItem& i) {
                     auto lines = As<ItemAssembly>(i).AssemblyLines();
                     ASSERT_EQ(lines.Count(), 1);
                     EXPECT_EQ(lines[1].Item(), "Bolt");
                     EXPECT_DOUBLE_EQ(lines[1].Quantity(), 12);
                   },
                   // Emptied, the components are cleared.
                   [](zkItem& i) { As<ItemAssembly>(i).AssemblyLines().Remove(1); },
                   "<Name>Bolt kit</Name><IsActive>true</IsActive><COGSAccountRef><FullName>COGS</FullName>"
                   "</COGSAccountRef><AssetAccountRef><FullName>Stock</FullName></AssetAccountRef>"
                   "<BuildPoint>5.00000</BuildPoint><ClearItemsInGroup>true</ClearItemsInGroup>"});
  cases.push_back({"ItemFixedAsset",
                   [](Items& c) -> zkItem& {
                     auto& f = c.Add<ItemFixedAsset>("Truck");
                     f.PurchaseDesc("F150");
                     f.PurchaseDate(Date::Serial(2024, 2, 1));
                     f.PurchaseCost(30000);
                     f.AssetAccountRef("Equipment");
                     f.FixedAssetSalesInfo().SalesDesc("Sold on");
                     f.FixedAssetSalesInfo().SalesDate(Date::Serial(2026, 6, 30));
                     f.FixedAssetSalesInfo().SalesPrice(9000);
                     f.SerialNumber("VIN-1");
                     f.CostBasis(Currency(30000));
                     return f;
                   },
                   "<Name>Truck</Name><IsActive>true</IsActive><AcquiredAs>New</AcquiredAs><PurchaseDesc>F150"
                   "</PurchaseDesc><PurchaseDate>2024-02-01</PurchaseDate><PurchaseCost>0030000.00000</PurchaseCost>"
                   "<AssetAccountRef><FullName>Equipment</FullName></AssetAccountRef><FixedAssetSalesInfo>"
                   "<SalesDesc>Sold on</SalesDesc><SalesDate>2026-06-30</SalesDate><SalesPrice>0009000.00000"
                   "</SalesPrice></FixedAssetSalesInfo><SerialNumber>VIN-1</SerialNumber><CostBasis>30000.00"
                   "</CostBasis>", "<Name>Truck</Name><FullName>Truck</FullName><AcquiredAs>New</AcquiredAs><PurchaseDesc>F150</PurchaseDesc>"
                   "<PurchaseDate>2024-02-01</PurchaseDate><FixedAssetSalesInfo><SalesDesc>Sold on</SalesDesc>"
                   "<SalesDate>2026-06-30</SalesDate><SalesPrice>9000.00</SalesPrice></FixedAssetSalesInfo><SerialNumber>VIN-1</SerialNumber>",
                   [](zkItem& i) {
                     auto& f = As<ItemFixedAsset>(i);
                     EXPECT_EQ(f.AcquiredAs(), "New");
                     EXPECT_EQ(f.FixedAssetSalesInfo().SalesDate(), Date::Serial(2026, 6, 30));
                     EXPECT_EQ(f.SerialNumber(), "VIN-1");
                   },
                   [](zkItem& i) {
                     auto& f = As<ItemFixedAsset>(i);
                     f.AcquiredAs("Old");
                     f.Location("Yard");
                   },
                   "<Name>Truck</Name><IsActive>true</IsActive><AcquiredAs>Old</AcquiredAs><PurchaseDesc>F150"
                   "</PurchaseDesc><PurchaseDate>2024-02-01</PurchaseDate><PurchaseCost>0030000.00000</PurchaseCost>"
                   "<AssetAccountRef><FullName>Equipment</FullName></AssetAccountRef><FixedAssetSalesInfoMod>"
                   "<SalesDesc>Sold on</SalesDesc><SalesDate>2026-06-30</SalesDate><SalesPrice>0009000.00000"
                   "</SalesPrice></FixedAssetSalesInfoMod><Location>Yard</Location><SerialNumber>VIN-1"
                   "</SerialNumber><CostBasis>30000.00</CostBasis>"});
  cases.push_back({"ItemSubtotal",
                   [](Items& c) -> zkItem& {
                     auto& s = c.Add<ItemSubtotal>("Subtotal");
                     s.ItemDesc("Sum above");
                     return s;
                   },
                   "<Name>Subtotal</Name><IsActive>true</IsActive><ItemDesc>Sum above</ItemDesc>", "<Name>Subtotal</Name><FullName>Subtotal</FullName><ItemDesc>Sum above</ItemDesc>",
                   [](zkItem& i) {
                     EXPECT_EQ(i.ItemType(), qbItemTypeSubtotal);
                     EXPECT_EQ(i.SalesDescription(), "Sum above");
                     EXPECT_EQ(i.PurchaseDescription(), "Sum above");
                   },
                   [](zkItem& i) { i.IsActive(false); },
                   "<Name>Subtotal</Name><IsActive>false</IsActive><ItemDesc>Sum above</ItemDesc>"});
  cases.push_back({"ItemDiscount",
                   [](Items& c) -> zkItem& {
                     auto& d = c.Add<ItemDiscount>("Loyalty");
                     d.ItemDesc("10% off");
                     d.DiscountRatePercent(10);
                     d.AccountRef("Discounts");
                     return d;
                   },
                   "<Name>Loyalty</Name><IsActive>true</IsActive><ItemDesc>10% off</ItemDesc>"
                   "<DiscountRatePercent>0000010.00000</DiscountRatePercent><AccountRef><FullName>Discounts"
                   "</FullName></AccountRef>", "<Name>Loyalty</Name><FullName>Loyalty</FullName><ItemDesc>10% off</ItemDesc>"
                   "<DiscountRatePercent>10.00</DiscountRatePercent><AccountRef><FullName>Discounts</FullName></AccountRef>",
                   [](zkItem& i) {
                     EXPECT_TRUE(i.SalesCostIsPercent());
                     EXPECT_DOUBLE_EQ(i.SalesCost(), 10);
                   },
                   // A rate takes out the percentage.
                   [](zkItem& i) { As<ItemDiscount>(i).DiscountRate(5); },
                   "<Name>Loyalty</Name><IsActive>true</IsActive><ItemDesc>10% off</ItemDesc>"
                   "<DiscountRate>0000005.00000</DiscountRate><AccountRef><FullName>Discounts</FullName>"
                   "</AccountRef>"});
  cases.push_back({"ItemPayment",
                   [](Items& c) -> zkItem& {
                     auto& p = c.Add<ItemPayment>("Deposit");
                     p.DepositToAccountRef("Checking");
                     p.PaymentMethodRef("Check");
                     return p;
                   },
                   "<Name>Deposit</Name><IsActive>true</IsActive><DepositToAccountRef><FullName>Checking</FullName>"
                   "</DepositToAccountRef><PaymentMethodRef><FullName>Check</FullName></PaymentMethodRef>", "<Name>Deposit</Name><FullName>Deposit</FullName>"
                   "<DepositToAccountRef><FullName>Checking</FullName></DepositToAccountRef>"
                   "<PaymentMethodRef><FullName>Check</FullName></PaymentMethodRef>",
                   [](zkItem& i) { EXPECT_EQ(As<ItemPayment>(i).PaymentMethodRef().FullName(), "Check"); },
                   [](zkItem& i) { As<ItemPayment>(i).PaymentMethodRef("Cash"); },
                   "<Name>Deposit</Name><IsActive>true</IsActive><DepositToAccountRef><FullName>Checking</FullName>"
                   "</DepositToAccountRef><PaymentMethodRef><FullName>Cash</FullName></PaymentMethodRef>"});
  cases.push_back({"ItemSalesTax",
                   [](Items& c) -> zkItem& {
                     auto& t = c.Add<ItemSalesTax>("State");
                     t.TaxRate(6.25);
                     t.TaxVendorRef("Revenue Office");
                     return t;
                   },
                   "<Name>State</Name><IsActive>true</IsActive><TaxRate>0000006.25000</TaxRate><TaxVendorRef>"
                   "<FullName>Revenue Office</FullName></TaxVendorRef>", "<Name>State</Name><FullName>State</FullName><TaxRate>6.25</TaxRate>"
                   "<TaxVendorRef><FullName>Revenue Office</FullName></TaxVendorRef>",
                   [](zkItem& i) {
                     EXPECT_DOUBLE_EQ(i.SalesCost(), 6.25);
                     EXPECT_TRUE(i.SalesCostIsPercent());
                   },
                   [](zkItem& i) { As<ItemSalesTax>(i).TaxRate(7); },
                   "<Name>State</Name><IsActive>true</IsActive><TaxRate>0000007.00000</TaxRate><TaxVendorRef>"
                   "<FullName>Revenue Office</FullName></TaxVendorRef>"});
  cases.push_back({"ItemSalesTaxGroup",
                   [](Items& c) -> zkItem& {
                     auto& g = c.Add<ItemSalesTaxGroup>("Combined");
                     g.GroupLines().Add("State");
                     g.GroupLines().Add("County");
                     return g;
                   },
                   "<Name>Combined</Name><IsActive>true</IsActive><ItemSalesTaxRef><FullName>State</FullName>"
                   "</ItemSalesTaxRef><ItemSalesTaxRef><FullName>County</FullName></ItemSalesTaxRef>", "<Name>Combined</Name><FullName>Combined</FullName>"
                   "<ItemSalesTaxRef><FullName>State</FullName></ItemSalesTaxRef><ItemSalesTaxRef><FullName>County</FullName></ItemSalesTaxRef>",
                   [](zkItem& i) {
                     auto lines = As<ItemSalesTaxGroup>(i).GroupLines();
                     ASSERT_EQ(lines.Count(), 2);
                     EXPECT_EQ(lines[2].Item(), "County");
                   },
                   [](zkItem& i) { As<ItemSalesTaxGroup>(i).ItemDesc("Both"); },
                   "<Name>Combined</Name><IsActive>true</IsActive><ItemDesc>Both</ItemDesc><ItemSalesTaxRef>"
                   "<FullName>State</FullName></ItemSalesTaxRef><ItemSalesTaxRef><FullName>County</FullName>"
                   "</ItemSalesTaxRef>"});
  cases.push_back({"ItemGroup",
                   [](Items& c) -> zkItem& {
                     auto& g = c.Add<ItemGroup>("Starter");
                     g.IsPrintItemsInGroup(true);
                     g.GroupLines().Add("Labor", 2);
                     g.GroupLines().Add("Gloves");
                     return g;
                   },
                   "<Name>Starter</Name><IsActive>true</IsActive><IsPrintItemsInGroup>true</IsPrintItemsInGroup>"
                   "<ItemGroupLine><ItemRef><FullName>Labor</FullName></ItemRef><Quantity>2.00000</Quantity>"
                   "</ItemGroupLine><ItemGroupLine><ItemRef><FullName>Gloves</FullName></ItemRef></ItemGroupLine>", "<Name>Starter</Name><FullName>Starter</FullName><IsPrintItemsInGroup>true</IsPrintItemsInGroup>"
                   "<ItemGroupLine><ItemRef><FullName>Labor</FullName></ItemRef><Quantity>2</Quantity></ItemGroupLine>"
                   "<ItemGroupLine><ItemRef><FullName>Gloves</FullName></ItemRef></ItemGroupLine>",
                   [](zkItem& i) {
                     auto lines = As<ItemGroup>(i).GroupLines();
                     ASSERT_EQ(lines.Count(), 2);
                     EXPECT_DOUBLE_EQ(lines[1].Quantity(), 2);
                     EXPECT_FALSE(lines[2].HasQuantity());
                   },
                   [](zkItem& i) { As<ItemGroup>(i).GroupLines().Remove(2); },
                   "<Name>Starter</Name><IsActive>true</IsActive><IsPrintItemsInGroup>true</IsPrintItemsInGroup>"
                   "<ItemGroupLine><ItemRef><FullName>Labor</FullName></ItemRef><Quantity>2.00000</Quantity>"
                   "</ItemGroupLine>"});
  return cases;
}

class ItemKinds : public ListsTest, public ::testing::WithParamInterface<ItemCase> {
 protected:
  void TearDown() override {
    TheRefCache().Clear();
    ListsTest::TearDown();
  }
};

TEST_P(ItemKinds, WritesItsAddReadsTheAnswerAndWritesItsModify) {
  const ItemCase& k = GetParam();
  auto p = InstallProcessor();
  p->answer = [&](const std::string& rq) -> std::string {
    if (rq.find("QueryRq") != std::string::npos) return QueryAnswer(rq);
    const bool add = rq.find("AddRq") != std::string::npos;
    return StatusResponse(k.kind + (add ? "AddRs" : "ModRs"), 0, "<" + k.kind + "Ret>" + kIdentity + k.retBody + "</" + k.kind + "Ret>");
  };
  Items master(true);
  zkItem& item = k.add(master);
  ASSERT_EQ(master.Commit(), 1) << (item.Errors().Count() ? item.Errors()[1].Description() : "");
  const std::string addRq = "<" + k.kind + "AddRq requestID = \"1\"><" + k.kind + "Add>" + k.addBody + "</" + k.kind +
                            "Add></" + k.kind + "AddRq>";
  EXPECT_NE(p->requests.back().find(addRq), std::string::npos) << p->requests.back();
  EXPECT_EQ(item.ObjectState(), zqObjectStateClean);
  EXPECT_EQ(item.ListID(), "80000041-1712345678");
  k.check(item);

  k.change(item);
  EXPECT_EQ(item.ObjectState(), zqObjectStateDirty);
  ASSERT_EQ(master.Commit(), 1) << (item.Errors().Count() ? item.Errors()[1].Description() : "");
  const std::string modRq = "<" + k.kind + "ModRq requestID = \"1\"><" + k.kind + "Mod>" + kModLead + k.modBody +
                            "</" + k.kind + "Mod></" + k.kind + "ModRq>";
  EXPECT_NE(p->requests.back().find(modRq), std::string::npos) << p->requests.back();
}

INSTANTIATE_TEST_SUITE_P(Kinds, ItemKinds, ::testing::ValuesIn(Cases()),
                         [](const auto& param) { return param.param.kind; });

// --- rules --------------------------------------------------------------------------------------

// Each case starts from a master holding Bolt, Promo and State.
TEST_F(ListsTest, ItemRulesGiveTheirCodesAndTexts) {
  const std::vector<ItemRuleCase> cases{
      {"a service under an inventory item",
       [](Items& c) -> zkItem& { return c.Add<ItemService>("Labor", true, "Bolt"); }, 1104, "Parent",
       "Parent item type must be the same as the child's"},
      {"an inventory item under an inventory item (accepted)",
       [](Items& c) -> zkItem& { return c.Add<ItemInventory>("Nut", true, "Bolt"); }, -1, "", ""},
      {"a sales tax group member counted twice",
       [](Items& c) -> zkItem& {
         auto& g = c.Add<ItemSalesTaxGroup>("Combined");
         g.GroupLines().Add("State", 2);
         return g;
       },
       1103, "", "Quantity must be 1 for sales tax group lines"},
      {"a group line with a quantity of a discount",
       [](Items& c) -> zkItem& {
         auto& g = c.Add<ItemGroup>("Kit");
         g.GroupLines().Add("Bolt", 3);
         g.GroupLines().Add("Promo", 1);
         return g;
       },
       1105, "GroupLine", "Cannot specify Quanity if Item is of type Discount."},
      {"a group line of a discount without a quantity (accepted)",
       [](Items& c) -> zkItem& {
         auto& g = c.Add<ItemGroup>("Kit");
         g.GroupLines().Add("Promo");
         return g;
       },
       -1, "", ""},
      {"a fixed asset without a purchase date",
       [](Items& c) -> zkItem& {
         auto& f = c.Add<ItemFixedAsset>("Truck");
         f.PurchaseDesc("F150");
         return f;
       },
       1105, "PurchaseDate", "Fixed Assets require a purchase date"},
      {"a fixed asset without a purchase description",
       [](Items& c) -> zkItem& {
         auto& f = c.Add<ItemFixedAsset>("Truck");
         f.PurchaseDate(Date::Serial(2024, 2, 1));
         return f;
       },
       1106, "PurchaseDesc", "Fixed Assets require a purchase description"},
      {"a subtotal without a name", [](Items& c) -> zkItem& { return c.Add<ItemSubtotal>(""); }, 0, "Name",
       "Name must be entered"},
      {"a subtotal of 31 characters (accepted)",
       [](Items& c) -> zkItem& { return c.Add<ItemSubtotal>(std::string(31, 's')); }, -1, "", ""},
      {"a subtotal of 32 characters",
       [](Items& c) -> zkItem& { return c.Add<ItemSubtotal>(std::string(32, 's')); }, 0, "Name",
       "Name length cannot exceed 31"},
      {"a service of 32 characters",
       [](Items& c) -> zkItem& { return c.Add<ItemService>(std::string(32, 's')); }, 1013, "Name",
       "Name cannot exceed 31 characters"},
      {"a discount at a rate and a percentage: the last one given stays (accepted)",
       [](Items& c) -> zkItem& {
         auto& d = c.Add<ItemDiscount>("Both");
         d.DiscountRate(5);
         d.DiscountRatePercent(10);
         EXPECT_TRUE(d.SalesCostIsPercent());
         return d;
       },
       -1, "", ""}};
  for (const ItemRuleCase& rule : cases) {
    SCOPED_TRACE(rule.what);
    Items master(true);
    master.Add<ItemInventory>("Bolt");
    master.Add<ItemDiscount>("Promo").DiscountRatePercent(5);
    master.Add<ItemSalesTax>("State").TaxRate(5);
    zkItem& item = rule.make(master);
    const bool ok = item.Validate();
    if (rule.code < 0) {
      EXPECT_TRUE(ok) << (item.Errors().Count() ? item.Errors()[1].Description() : "");
      continue;
    }
    EXPECT_FALSE(ok);
    ExpectOneError(item, rule.code, rule.field, rule.message);
  }
}

TEST_F(ListsTest, AnItemKindTheLibraryDoesNotKnowIsRefused) {
  Items master(true);
  EXPECT_EQ(master.Add(qbItemTypeService, "Labor").ItemType(), qbItemTypeService);
  EXPECT_EQ(master.Add(qbItemTypeGroup, "Kit").Decl().xmlName, "ItemGroup");
  const BrenvaleError e = RaisedBy([&] { master.Add(static_cast<qbEnumItemType>(99), "Odd"); });
  EXPECT_EQ(e.Number(), ErrorNumber(1101));
  EXPECT_EQ(e.Description(), "Invalid item type specified");
  EXPECT_EQ(master.Count(), 2);  // nothing half-added
}

}  // namespace
}  // namespace brenvale::testing

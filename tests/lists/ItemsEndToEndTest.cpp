// Items of every kind against the company engine: each added, read back by every query method (one
// ItemQuery answering every kind into one collection), modified, deleted; and bad items refused with
// a clear error, nothing of them added.
#include <functional>
#include <string>
#include <vector>

#include "lists/CompanyTestSupport.hpp"
#include "support/RaisedBy.hpp"

namespace brenvale::testing {
namespace {

class ItemsEndToEnd : public CompanyEndToEnd {
 protected:
  void SetUp() override {
    CompanyEndToEnd::SetUp();
    // What the items refer to, beyond what a new company holds (an inventory asset account among it).
    for (const char* account : {"<Name>Equipment</Name><AccountType>FixedAsset</AccountType>",
                                "<Name>Discounts Given</Name><AccountType>Income</AccountType>"})
      Send(std::string("<AccountAddRq><AccountAdd>") + account + "</AccountAdd></AccountAddRq>");
    Send("<VendorAddRq><VendorAdd><Name>Maker</Name></VendorAdd></VendorAddRq>");
  }

  static std::string FirstError(ListRecord& r) { return r.Errors().Count() ? r.Errors()[1].Description() : ""; }
};

// One kind: a valid new item of it, what the engine must give back, a change and what it shows.
struct ItemKindCase {
  std::string kind;
  std::function<zkItem&(Items&)> add;
  std::function<void(zkItem&)> check;
  std::function<void(zkItem&)> change;
  std::function<void(zkItem&)> checkChanged;
};

template <class K>
K& As(zkItem& item) {
  return static_cast<K&>(item);
}

// The kinds in the order they are added: the later ones name the earlier.
std::vector<ItemKindCase> KindCases() {
  std::vector<ItemKindCase> cases;
  cases.push_back(
      {"ItemService",
       [](Items& c) -> zkItem& {
         auto& s = c.Add<ItemService>("Labor");
         s.SalesTaxCodeRef("Non");
         s.SalesOrPurchase().Desc("An hour of work");
         s.SalesOrPurchase().Price(45.5);
         s.SalesOrPurchase().AccountRef("Uncategorized Income");
         return s;
       },
       [](zkItem& i) {
         EXPECT_EQ(i.SalesDescription(), "An hour of work");
         EXPECT_DOUBLE_EQ(i.SalesCost(), 45.5);
         EXPECT_EQ(i.SalesTaxCode(), "Non");
         EXPECT_FALSE(i.HasSalesAndPurchase());
       },
       [](zkItem& i) { As<ItemService>(i).SalesOrPurchase().Price(50); },
       [](zkItem& i) { EXPECT_DOUBLE_EQ(i.SalesCost(), 50); }});
  cases.push_back(
      {"ItemNonInventory",
       [](Items& c) -> zkItem& {
         auto& n = c.Add<ItemNonInventory>("Gloves");
         n.ManufacturerPartNumber("GL-9");
         n.SalesAndPurchase().SalesDesc("Work gloves");
         n.SalesAndPurchase().SalesPrice(12);
         n.SalesAndPurchase().IncomeAccountRef("Uncategorized Income");
         n.SalesAndPurchase().PurchaseDesc("Gloves, bulk");
         n.SalesAndPurchase().PurchaseCost(4.25);
         n.SalesAndPurchase().ExpenseAccountRef("Uncategorized Expenses");
         n.SalesAndPurchase().PrefVendorRef("Maker");
         return n;
       },
       [](zkItem& i) {
         EXPECT_TRUE(i.HasSalesAndPurchase());
         EXPECT_TRUE(i.ContainsExpenseAccount());
         EXPECT_EQ(i.PurchaseDescription(), "Gloves, bulk");
         EXPECT_DOUBLE_EQ(i.PurchaseCost(), 4.25);
         EXPECT_EQ(As<ItemNonInventory>(i).SalesAndPurchase().PrefVendorRef().FullName(), "Maker");
       },
       [](zkItem& i) { As<ItemNonInventory>(i).SalesAndPurchase().PurchaseCost(5); },
       [](zkItem& i) { EXPECT_DOUBLE_EQ(i.PurchaseCost(), 5); }});
  cases.push_back({"ItemOtherCharge",
                   [](Items& c) -> zkItem& {
                     auto& o = c.Add<ItemOtherCharge>("Delivery");
                     o.SalesOrPurchase().PricePercent(3);
                     o.SalesOrPurchase().AccountRef("Uncategorized Income");
                     return o;
                   },
                   [](zkItem& i) {
                     EXPECT_TRUE(i.SalesCostIsPercent());
                     EXPECT_DOUBLE_EQ(i.SalesCost(), 3);
                   },
                   [](zkItem& i) { As<ItemOtherCharge>(i).SalesOrPurchase().Desc("Freight"); },
                   [](zkItem& i) { EXPECT_EQ(i.SalesDescription(), "Freight"); }});
  cases.push_back({"ItemInventory",
                   [](Items& c) -> zkItem& {
                     auto& v = c.Add<ItemInventory>("Bolt");
                     v.SalesDesc("Steel bolt");
                     v.SalesPrice(0.8);
                     v.IncomeAccountRef("Uncategorized Income");
                     v.PurchaseCost(0.2);
                     v.COGSAccountRef("Cost of Goods Sold");
                     v.PrefVendorRef("Maker");
                     v.AssetAccountRef("Inventory Asset");
                     v.ReorderPoint(100);
                     return v;
                   },
                   [](zkItem& i) {
                     EXPECT_TRUE(i.HasSalesAndPurchase());
                     EXPECT_DOUBLE_EQ(i.SalesCost(), 0.8);
                     EXPECT_DOUBLE_EQ(As<ItemInventory>(i).ReorderPoint(), 100);
                     EXPECT_EQ(As<ItemInventory>(i).AssetAccountRef().FullName(), "Inventory Asset");
                   },
                   [](zkItem& i) { As<ItemInventory>(i).ReorderPoint(50); },
                   [](zkItem& i) { EXPECT_DOUBLE_EQ(As<ItemInventory>(i).ReorderPoint(), 50); }});
  cases.push_back({"ItemInventoryAssembly",
                   [](Items& c) -> zkItem& {
                     auto& a = c.Add<ItemAssembly>("Bolt kit");
                     a.IncomeAccountRef("Uncategorized Income");
                     a.COGSAccountRef("Cost of Goods Sold");
                     a.AssetAccountRef("Inventory Asset");
                     a.AssemblyLines().Add("Bolt", 12);
                     return a;
                   },
                   [](zkItem& i) {
                     auto lines = As<ItemAssembly>(i).AssemblyLines();
                     ASSERT_EQ(lines.Count(), 1);
                     EXPECT_EQ(lines[1].Item(), "Bolt");
                     EXPECT_DOUBLE_EQ(lines[1].Quantity(), 12);
                   },
                   [](zkItem& i) { As<ItemAssembly>(i).AssemblyLines()[1].Quantity(10); },
                   [](zkItem& i) { EXPECT_DOUBLE_EQ(As<ItemAssembly>(i).AssemblyLines()[1].Quantity(), 10); }});
  cases.push_back({"ItemFixedAsset",
                   [](Items& c) -> zkItem& {
                     auto& f = c.Add<ItemFixedAsset>("Truck");
                     f.PurchaseDesc("F150");
                     f.PurchaseDate(Date::Serial(2024, 2, 1));
                     f.PurchaseCost(30000);
                     f.AssetAccountRef("Equipment");
                     f.SerialNumber("VIN-1");
                     return f;
                   },
                   [](zkItem& i) {
                     auto& f = As<ItemFixedAsset>(i);
                     EXPECT_EQ(f.AcquiredAs(), "New");
                     EXPECT_EQ(f.PurchaseDate(), Date::Serial(2024, 2, 1));
                     EXPECT_EQ(f.SerialNumber(), "VIN-1");
                   },
                   [](zkItem& i) { As<ItemFixedAsset>(i).Location("Yard"); },
                   [](zkItem& i) { EXPECT_EQ(As<ItemFixedAsset>(i).Location(), "Yard"); }});
  cases.push_back({"ItemSubtotal",
                   [](Items& c) -> zkItem& {
                     auto& s = c.Add<ItemSubtotal>("Subtotal");
                     s.ItemDesc("Sum of the lines above");
                     return s;
                   },
                   [](zkItem& i) { EXPECT_EQ(i.SalesDescription(), "Sum of the lines above"); },
                   [](zkItem& i) { As<ItemSubtotal>(i).ItemDesc("Total"); },
                   [](zkItem& i) { EXPECT_EQ(i.SalesDescription(), "Total"); }});
  cases.push_back({"ItemDiscount",
                   [](Items& c) -> zkItem& {
                     auto& d = c.Add<ItemDiscount>("Loyalty");
                     d.DiscountRatePercent(10);
                     d.AccountRef("Discounts Given");
                     return d;
                   },
                   [](zkItem& i) {
                     EXPECT_TRUE(i.SalesCostIsPercent());
                     EXPECT_DOUBLE_EQ(i.SalesCost(), 10);
                   },
                   [](zkItem& i) { As<ItemDiscount>(i).DiscountRate(5); },
                   [](zkItem& i) {
                     EXPECT_FALSE(i.SalesCostIsPercent());
                     EXPECT_DOUBLE_EQ(i.SalesCost(), 5);
                   }});
  cases.push_back({"ItemPayment",
                   [](Items& c) -> zkItem& {
                     auto& p = c.Add<ItemPayment>("Deposit");
                     p.PaymentMethodRef("Check");
                     return p;
                   },
                   [](zkItem& i) { EXPECT_EQ(As<ItemPayment>(i).PaymentMethodRef().FullName(), "Check"); },
                   [](zkItem& i) { As<ItemPayment>(i).PaymentMethodRef("Cash"); },
                   [](zkItem& i) { EXPECT_EQ(As<ItemPayment>(i).PaymentMethodRef().FullName(), "Cash"); }});
  cases.push_back({"ItemSalesTax",
                   [](Items& c) -> zkItem& {
                     auto& t = c.Add<ItemSalesTax>("State");
                     t.TaxRate(6.25);
                     t.TaxVendorRef("Maker");
                     return t;
                   },
                   [](zkItem& i) { EXPECT_DOUBLE_EQ(i.SalesCost(), 6.25); },
                   [](zkItem& i) { As<ItemSalesTax>(i).TaxRate(7); },
                   [](zkItem& i) { EXPECT_DOUBLE_EQ(i.SalesCost(), 7); }});
  cases.push_back({"ItemSalesTaxGroup",
                   [](Items& c) -> zkItem& {
                     auto& g = c.Add<ItemSalesTaxGroup>("Combined");
                     g.GroupLines().Add("State");
                     return g;
                   },
                   [](zkItem& i) {
                     auto lines = As<ItemSalesTaxGroup>(i).GroupLines();
                     ASSERT_EQ(lines.Count(), 1);
                     EXPECT_EQ(lines[1].Item(), "State");
                   },
                   [](zkItem& i) { As<ItemSalesTaxGroup>(i).ItemDesc("State and county"); },
                   [](zkItem& i) { EXPECT_EQ(i.SalesDescription(), "State and county"); }});
  cases.push_back({"ItemGroup",
                   [](Items& c) -> zkItem& {
                     auto& g = c.Add<ItemGroup>("Starter");
                     g.IsPrintItemsInGroup(true);
                     g.GroupLines().Add("Labor", 2);
                     g.GroupLines().Add("Gloves");
                     return g;
                   },
                   [](zkItem& i) {
                     auto lines = As<ItemGroup>(i).GroupLines();
                     ASSERT_EQ(lines.Count(), 2);
                     EXPECT_EQ(lines[1].Item(), "Labor");
                     EXPECT_DOUBLE_EQ(lines[1].Quantity(), 2);
                     EXPECT_EQ(lines[2].Item(), "Gloves");
                   },
                   [](zkItem& i) { As<ItemGroup>(i).GroupLines().Remove(2); },
                   [](zkItem& i) { EXPECT_EQ(As<ItemGroup>(i).GroupLines().Count(), 1); }});
  return cases;
}

TEST_F(ItemsEndToEnd, EveryKindIsAddedQueriedModifiedAndDeleted) {
  Items& master = BrenvaleGlobals::Items();
  const std::vector<ItemKindCase> cases = KindCases();
  std::vector<std::string> ids;
  for (const ItemKindCase& k : cases) {
    SCOPED_TRACE(k.kind);
    zkItem& item = k.add(master);
    ASSERT_EQ(master.Commit(), 1) << FirstError(item) << (master.Errors().Count() ? master.Errors()[1].Description() : "");
    EXPECT_EQ(item.ObjectState(), zqObjectStateClean);
    EXPECT_EQ(item.Decl().xmlName, k.kind);
    ASSERT_FALSE(item.ListID().empty());
    ids.push_back(item.ListID());
    k.check(item);
  }

  // One ItemQuery answers every kind, each read into its own.
  Items all;
  ASSERT_EQ(all.GetAll(), static_cast<Long>(cases.size()));
  for (std::size_t n = 0; n < cases.size(); ++n) {
    SCOPED_TRACE(cases[n].kind);
    zkItem* byId = all.GetByListID(ids[n]);
    ASSERT_NE(byId, nullptr);
    EXPECT_EQ(byId->Decl().xmlName, cases[n].kind);
    cases[n].check(*byId);
    Items one;
    zkItem* byName = one.GetByFullName(byId->FullName());
    ASSERT_NE(byName, nullptr);
    EXPECT_EQ(byName->ListID(), ids[n]);
  }
  Items range;
  EXPECT_EQ(range.GetByNameRange("B", "Dz"), 5);  // Bolt, Bolt kit, Combined, Delivery, Deposit
  Items match;
  EXPECT_EQ(match.GetByNameMatch("Bolt", qbMatchStartsWith), 2);

  for (std::size_t n = 0; n < cases.size(); ++n) {
    SCOPED_TRACE(cases[n].kind);
    zkItem& item = *master.GetByListID(ids[n]);
    cases[n].change(item);
    EXPECT_EQ(item.ObjectState(), zqObjectStateDirty);
    ASSERT_EQ(master.Commit(), 1) << FirstError(item) << (master.Errors().Count() ? master.Errors()[1].Description() : "");
    Items fresh;
    zkItem* back = fresh.GetByListID(ids[n]);
    ASSERT_NE(back, nullptr);
    cases[n].checkChanged(*back);
  }

  // Deleted in the reverse order, so nothing is in use by what is left.
  for (std::size_t n = cases.size(); n-- > 0;) {
    SCOPED_TRACE(cases[n].kind);
    EXPECT_EQ(master.Delete(ids[n]), 0);
    Items fresh;
    EXPECT_EQ(RaisedBy([&] { fresh.GetByListID(ids[n]); }).Number(), ErrorNumber(1001));
  }
  Items none;
  EXPECT_EQ(none.GetAll(), 0);
}

TEST_F(ItemsEndToEnd, BadItemsAreRefusedWithNothingHalfAdded) {
  Items& master = BrenvaleGlobals::Items();
  auto& ok = master.Add<ItemService>("Labor");
  ok.SalesOrPurchase().Price(10);
  ASSERT_EQ(master.Commit(), 1);
  CurrentSession().commitRaises = false;

  const std::vector<ItemRuleCase> bad{
      {"a name over 31 characters",
       [](Items& c) -> zkItem& { return c.Add<ItemSubtotal>(std::string(32, 's')); }, 0, "Name",
       "Name length cannot exceed 31"},
      {"an unknown account",
       [](Items& c) -> zkItem& {
         auto& d = c.Add<ItemDiscount>("Promo");
         d.AccountRef("Nowhere");
         return d;
       },
       1014, "Account", "Invalid account specified"},
      {"a group of an item that does not exist",
       [](Items& c) -> zkItem& {
         auto& g = c.Add<ItemGroup>("Kit");
         g.GroupLines().Add("Labor", 1);
         g.GroupLines().Add("Ghost", 1);
         return g;
       },
       2001, "Item", "Invalid item specified"},
      {"a sales tax group of a service",
       [](Items& c) -> zkItem& {
         auto& g = c.Add<ItemSalesTaxGroup>("Taxes");
         g.GroupLines().Add("Labor");
         return g;
       },
       1001, "", "QuickBooks: Invalid argument.  The specified record does not exist in the list."},
      {"a service under a parent that does not exist",
       [](Items& c) -> zkItem& {
         auto& s = c.Add<ItemService>("Overtime", true, "Labor:Nope");
         s.SalesOrPurchase().Price(1);
         return s;
       },
       1010, "Parent", "Invalid parent specified"}};
  for (const ItemRuleCase& b : bad) {
    SCOPED_TRACE(b.what);
    zkItem& item = b.make(master);
    const std::string name = item.Name();
    EXPECT_EQ(master.Commit(), 0);
    ExpectOneError(item, b.code, b.field, b.message);
    EXPECT_EQ(item.ObjectState(), zqObjectStateNew);
    // Nothing of it reached the company.
    Items all;
    EXPECT_EQ(all.GetAll(), 1);
    master.Remove(master.Count());
  }
}

}  // namespace
}  // namespace brenvale::testing

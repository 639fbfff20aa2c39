// Whole flows against the company engine, the way a host works: connect to a new company file in a
// temporary folder, add records, read them back by every query, commit batches with failures,
// delete, close.
#include <algorithm>
#include <chrono>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "brenvale/Brenvale.hpp"
#include "brenvale/model/Lists.hpp"
#include "brenvale/rqp/CompanyEngine.hpp"
#include "lists/CompanyTestSupport.hpp"
#include "lists/ListsTestSupport.hpp"

namespace brenvale::testing {
namespace {

std::vector<std::string> FullNames(ListCollectionBase& c) {
  std::vector<std::string> names;
  for (Long i = 1; i <= c.Count(); ++i) names.push_back(c.Item(static_cast<std::size_t>(i)).FullName());
  return names;
}

bool Holds(ListCollectionBase& c, const std::string& fullName) {
  auto names = FullNames(c);
  return std::find(names.begin(), names.end(), fullName) != names.end();
}

TEST_F(CompanyEndToEnd, JobTypesAddQueryCommitAndDelete) {
  JobTypes& master = BrenvaleGlobals::JobTypes();
  JobTypes query;  // not the master: only reads
  const Long before = query.GetAll();

  master.Add("Zulu");
  master.Add("Install", true, "Zulu");
  master.Add("Repair", false, "Zulu");
  master.Add("Yankee");
  ASSERT_EQ(master.Commit(), 4) << (master.Errors().Count() ? master.Errors()[1].Description() : "");
  JobType& install = master.Item("Zulu:Install");
  const std::string installId = install.ListID();
  const Date installCreated = install.TimeCreated();
  const std::string repairId = master.Item("Zulu:Repair").ListID();
  EXPECT_EQ(install.ObjectState(), zqObjectStateClean);
  EXPECT_FALSE(install.ListID().empty());
  EXPECT_FALSE(install.EditSequence().empty());
  EXPECT_EQ(install.Sublevel(), 1);
  EXPECT_TRUE(master.Item("Zulu").Children().ItemExists("Zulu:Install"));

  // Without an ActiveStatus QuickBooks answers active records only: the inactive repair is left out.
  EXPECT_EQ(query.GetAll(), before + 3);
  EXPECT_FALSE(Holds(query, "Zulu:Repair"));
  EXPECT_EQ(query.GetAll(2), 2);
  EXPECT_EQ(query.Count(), 2);

  master.GetActive();  // the master now holds new copies: `install` is gone
  EXPECT_TRUE(Holds(master, "Zulu:Install"));
  EXPECT_FALSE(Holds(master, "Zulu:Repair"));

  query.Clear();
  JobType* found = query.GetByFullName("Zulu:Install");
  ASSERT_NE(found, nullptr);
  EXPECT_EQ(found->ListID(), installId);
  EXPECT_EQ(found->Parent(), "Zulu");

  query.Clear();
  found = query.GetByListID(installId);
  ASSERT_NE(found, nullptr);
  EXPECT_EQ(found->FullName(), "Zulu:Install");

  EXPECT_EQ(query.GetByNameRange("Zulu", "Zulu:Repair"), 2);
  EXPECT_EQ(FullNames(query), (std::vector<std::string>{"Zulu", "Zulu:Install"}));
  EXPECT_EQ(query.GetByNameMatch("Zul", qbMatchStartsWith), 2);
  EXPECT_EQ(query.GetByNameMatch("Install", qbMatchContains), 1);
  EXPECT_EQ(query.GetByNameMatch("ankee", qbMatchEndsWith), 1);
  EXPECT_EQ(FullNames(query), std::vector<std::string>{"Yankee"});

  EXPECT_GE(query.GetByDateSpan(installCreated, Date()), 3);
  EXPECT_TRUE(Holds(query, "Zulu:Install"));
  EXPECT_EQ(query.GetByDateSpan(Date::Serial(2001, 1, 1), Date::Serial(2001, 1, 2)), 0);

  // A batch with a duplicate, an empty name and a good record, behind the records already held.
  const Long held = master.Count();
  master.Add("Zulu");
  master.Add("");
  JobType& fresh = master.Add("Xray");
  BrenvaleError raised = RaisedBy([&] { master.Commit(); });
  EXPECT_EQ(raised.Number(), ErrorNumber(1023));
  EXPECT_EQ(raised.Source(), "JobType");
  ASSERT_EQ(master.Errors().Count(), 2);
  EXPECT_EQ(master.Errors()[1].Number(), ErrorNumber(1011));
  EXPECT_EQ(master.Errors()[1].Field(), std::to_string(held + 2));
  EXPECT_EQ(master.Errors()[2].Number(), ErrorNumber(1018));
  EXPECT_EQ(master.Errors()[2].Field(), std::to_string(held + 1));
  ListRecord& duplicate = master.Item(static_cast<std::size_t>(held + 1));
  EXPECT_EQ(duplicate.ObjectState(), zqObjectStateNew);
  ASSERT_EQ(duplicate.Errors().Count(), 1);
  EXPECT_EQ(duplicate.Errors()[1].Number(), ErrorNumber(1017));
  EXPECT_EQ(duplicate.Errors()[1].Field(), "Name");
  EXPECT_EQ(fresh.ObjectState(), zqObjectStateClean);
  EXPECT_FALSE(fresh.ListID().empty());

  // Only the master commits; job types cannot be modified through the library.
  EXPECT_EQ(RaisedBy([&] { query.Commit(); }).Number(), ErrorNumber(1021));
  master.Remove(static_cast<std::size_t>(held + 2));
  master.Remove(static_cast<std::size_t>(held + 1));
  master.Item("Yankee").Name("Yankee Two");
  BrenvaleError refused = RaisedBy([&] { master.Commit(); });
  EXPECT_EQ(refused.Number(), ErrorNumber(1003));
  EXPECT_EQ(refused.Description(), "XMLModify not allowed");

  // Delete: a held record leaves the collection too; a deleted one is not found any more.
  master.GetActive();
  ASSERT_TRUE(master.ItemExists("Zulu:Install"));
  EXPECT_EQ(master.Delete(installId), 0);
  EXPECT_FALSE(master.ItemExists("Zulu:Install"));
  EXPECT_EQ(master.Delete(repairId), 0);
  EXPECT_EQ(RaisedBy([&] { query.GetByListID(repairId); }).Number(), ErrorNumber(1001));
  query.GetAll();
  EXPECT_FALSE(Holds(query, "Zulu:Install"));
  BrenvaleError unknown = RaisedBy([&] { master.Delete("80000999-1234567890"); });
  EXPECT_EQ(unknown.Number(), ErrorNumber(1026));
  EXPECT_EQ(unknown.Source(), "JobType");
}

// Every other kind that can be added: add through its master collection, commit, read it back
// with a query of a collection of its own.
struct RoundTrip {
  std::string kind;
  std::function<ListRecord&()> add;  // adds a record to the master
  std::function<ListCollectionBase&()> master;
  std::function<std::unique_ptr<ListCollectionBase>()> make;  // a collection that only reads
  std::function<void(ListRecord&)> check;                     // of the record read back
};

void PrintTo(const RoundTrip& r, std::ostream* os) { *os << r.kind; }

template <class C>
std::function<std::unique_ptr<ListCollectionBase>()> Reader() {
  return [] { return std::make_unique<C>(); };
}

std::vector<RoundTrip> RoundTrips() {
  using G = BrenvaleGlobals;
  return {
      {"VendorType", []() -> ListRecord& { return G::VendorTypes().Add("Suppliers"); },
       []() -> ListCollectionBase& { return G::VendorTypes(); }, Reader<VendorTypes>(),
       [](ListRecord& r) { EXPECT_EQ(r.FullName(), "Suppliers"); }},
      {"Class", []() -> ListRecord& { return G::Classes().Add("East"); },
       []() -> ListCollectionBase& { return G::Classes(); }, Reader<Classes>(),
       [](ListRecord& r) { EXPECT_EQ(r.Name(), "East"); }},
      {"CustomerType", []() -> ListRecord& { return G::CustomerTypes().Add("Retail", false); },
       []() -> ListCollectionBase& { return G::CustomerTypes(); }, Reader<CustomerTypes>(),
       [](ListRecord& r) { EXPECT_FALSE(r.IsActive()); }},
      {"ShipMethod", []() -> ListRecord& { return G::ShipMethods().Add("Courier & Co"); },
       []() -> ListCollectionBase& { return G::ShipMethods(); }, Reader<ShipMethods>(),
       [](ListRecord& r) { EXPECT_EQ(r.Name(), "Courier & Co"); }},
      {"PaymentMethod", []() -> ListRecord& { return G::PaymentMethods().Add("Barter"); },
       []() -> ListCollectionBase& { return G::PaymentMethods(); }, Reader<PaymentMethods>(),
       [](ListRecord& r) { EXPECT_EQ(r.Name(), "Barter"); }},
      {"CustomerMessage",
       []() -> ListRecord& { return G::CustomerMessages().Add(std::string(90, 'm') + " thanks"); },
       []() -> ListCollectionBase& { return G::CustomerMessages(); }, Reader<CustomerMessages>(),
       [](ListRecord& r) { EXPECT_EQ(r.Name(), std::string(90, 'm') + " thanks"); }},
      {"SalesTaxCode",
       []() -> ListRecord& { return G::SalesTaxCodes().Add("Zro", true, false, "Zero rated"); },
       []() -> ListCollectionBase& { return G::SalesTaxCodes(); }, Reader<SalesTaxCodes>(),
       [](ListRecord& r) {
         EXPECT_FALSE(static_cast<SalesTaxCode&>(r).IsTaxable());
         EXPECT_EQ(static_cast<SalesTaxCode&>(r).Desc(), "Zero rated");
       }},
      {"SalesRep", []() -> ListRecord& { return G::SalesReps().Add("PL", true, "Pat Lee"); },
       []() -> ListCollectionBase& { return G::SalesReps(); }, Reader<SalesReps>(),
       [](ListRecord& r) { EXPECT_EQ(static_cast<SalesRep&>(r).SalesRepEntityRef().FullName(), "Pat Lee"); }},
      {"ToDo",
       []() -> ListRecord& {
         return G::ToDoList().Add("Call the bank", true, false, Date::Serial(2030, 1, 2));
       },
       []() -> ListCollectionBase& { return G::ToDoList(); }, Reader<ToDoList>(),
       [](ListRecord& r) { EXPECT_EQ(static_cast<ToDo&>(r).ReminderDate(), Date::Serial(2030, 1, 2)); }},
      {"PayrollItemWage",
       []() -> ListRecord& {
         return G::PayrollItemWages().Add("Night Shift", true, qbWageTypeHourlyRegular, "Wages Paid");
       },
       []() -> ListCollectionBase& { return G::PayrollItemWages(); }, Reader<PayrollItemWages>(),
       [](ListRecord& r) {
         EXPECT_EQ(static_cast<PayrollItemWage&>(r).WageType(), qbWageTypeHourlyRegular);
         EXPECT_EQ(static_cast<PayrollItemWage&>(r).ExpenseAccountRef().FullName(), "Wages Paid");
       }},
  };
}

class KindRoundTrip : public CompanyEndToEnd, public ::testing::WithParamInterface<RoundTrip> {};

TEST_P(KindRoundTrip, AddsAndReadsBack) {
  // What sales reps and wage items refer to.
  Send("<VendorAddRq requestID = \"1\"><VendorAdd><Name>Pat Lee</Name></VendorAdd></VendorAddRq>");
  Send(
      "<AccountAddRq requestID = \"1\"><AccountAdd><Name>Wages Paid</Name><AccountType>Expense</AccountType>"
      "</AccountAdd></AccountAddRq>");
  const RoundTrip& k = GetParam();
  ListRecord& added = k.add();
  ListCollectionBase& master = k.master();
  ASSERT_EQ(master.Commit(), 1) << (added.Errors().Count() ? added.Errors()[1].Description() : "")
                                << (master.Errors().Count() ? master.Errors()[1].Description() : "");
  EXPECT_EQ(added.ObjectState(), zqObjectStateClean);
  ASSERT_FALSE(added.ListID().empty());

  auto reader = k.make();
  ListRecord* back = reader->GetByListID(added.ListID());
  ASSERT_NE(back, nullptr);
  EXPECT_EQ(back->ObjectState(), zqObjectStateClean);
  EXPECT_EQ(back->Name(), added.Name());
  EXPECT_EQ(back->EditSequence(), added.EditSequence());
  k.check(*back);
  // Without an ActiveStatus QuickBooks answers active records only.
  reader->GetAll();
  EXPECT_EQ(reader->Find(added.CollectionKey()) != nullptr, added.IsActive());
}

INSTANTIATE_TEST_SUITE_P(Lists, KindRoundTrip, ::testing::ValuesIn(RoundTrips()),
                         [](const auto& p) { return p.param.kind; });

TEST_F(CompanyEndToEnd, SalesRepEntityMustBeAnEmployeeVendorOrOtherName) {
  Send("<CustomerAddRq requestID = \"1\"><CustomerAdd><Name>Big Buyer</Name></CustomerAdd></CustomerAddRq>");
  SalesReps& reps = BrenvaleGlobals::SalesReps();
  SalesRep& customer = reps.Add("BB", true, "Big Buyer");
  SalesRep& nobody = reps.Add("NB", true, "Nobody Here");
  EXPECT_FALSE(reps.Validate());
  ASSERT_EQ(customer.Errors().Count(), 1);
  EXPECT_EQ(customer.Errors()[1].Number(), ErrorNumber(2203));
  ASSERT_EQ(nobody.Errors().Count(), 1);
  EXPECT_EQ(nobody.Errors()[1].Number(), ErrorNumber(2204));
}

TEST_F(CompanyEndToEnd, ToDoIsModified) {
  ToDoList& todos = BrenvaleGlobals::ToDoList();
  ToDo& t = todos.Add("Call the bank");
  ASSERT_EQ(todos.Commit(), 1);
  const std::string firstSequence = t.EditSequence();
  t.Notes("Call the bank again");
  t.IsDone(true);
  ASSERT_EQ(todos.Commit(), 1) << (t.Errors().Count() ? t.Errors()[1].Description() : "");
  EXPECT_EQ(t.ObjectState(), zqObjectStateClean);
  EXPECT_NE(t.EditSequence(), firstSequence);
  ToDoList reader;
  ToDo* back = reader.GetByListID(t.ListID());
  ASSERT_NE(back, nullptr);
  EXPECT_EQ(back->Notes(), "Call the bank again");
  EXPECT_TRUE(back->IsDone());
  // Every query of to-dos asks for the done ones too.
  ToDoList all;
  all.GetAll();
  EXPECT_NE(all.Find(t.ListID()), nullptr);
}

// The read-only lists answer their queries; what QuickBooks has no request for is refused before
// anything is sent. A US company has no tax code list: the qbXML it knows has no tax code request.
TEST_F(CompanyEndToEnd, ReadOnlyListsAndTaxCodes) {
  Templates templates;
  EXPECT_GE(templates.GetAll(), 0);
  EXPECT_EQ(templates.GetAll(1), std::min<Long>(templates.Count(), 1));
  PayrollItemNonWages nonWages;
  EXPECT_GE(nonWages.GetAll(), 0);
  const auto before = BrenvaleGlobals::QBConnection().qbxmlVersion();
  for (const auto& refused : std::vector<std::pair<int, std::function<void()>>>{
           {1026, [&] { templates.GetByListID("80000001-1"); }},
           {1026, [&] { templates.GetByNameMatch("S", qbMatchStartsWith); }},
           {1026, [&] { BrenvaleGlobals::Templates().Delete("80000001-1"); }},
           {1026, [&] { BrenvaleGlobals::ToDoList().GetByFullName("x"); }},
           {1005, [&] { TaxCodes().GetAll(); }},
           {1005, [&] {
              BrenvaleGlobals::TaxCodes().Add("G");
              BrenvaleGlobals::TaxCodes().Commit();
            }}}) {
    BrenvaleError e = RaisedBy(refused.second);
    EXPECT_EQ(e.Number(), ErrorNumber(refused.first)) << e.Description();
  }
  EXPECT_EQ(BrenvaleGlobals::QBConnection().qbxmlVersion(), before);
}

// --- accounts, terms and price levels --------------------------------------------------------------

// The full names a query collection holds.
template <class C>
std::vector<std::string> Queried(const std::function<Long(C&)>& query) {
  C c;
  query(c);
  return FullNames(c);
}

// A tree of bank accounts with opening balances, added in one batch (parents before children): the
// sums of sub-accounts, every query, a change, a move, and deletes QuickBooks takes or refuses.
TEST_F(CompanyEndToEnd, AnAccountTreeWithOpeningBalances) {
  Accounts& master = BrenvaleGlobals::Accounts();
  const Date opened = Date::Serial(2024, 1, 1);
  master.Add("Operating", true, {}, qbBank, "1000", "0012-3456", "Main account", Currency(1000), opened);
  master.Add("Payroll", true, "Operating", qbBank, "1010", {}, {}, Currency(250), opened);
  master.Add("Reserve", true, "Operating:Payroll", qbBank, {}, {}, {}, Currency::FromUnits(405000), opened);
  master.Add("Savings", true, {}, qbBank, "1100");
  ASSERT_EQ(master.Commit(), 4) << (master.Errors().Count() ? master.Errors()[1].Description() : "");
  Account& operating = master.Item("Operating");
  EXPECT_EQ(master.Item("Operating:Payroll:Reserve").Sublevel(), 2);
  EXPECT_EQ(operating.Balance(), Currency(1000));
  EXPECT_EQ(operating.SumSubAccountBalances(), Currency::FromUnits(12905000));

  // Read back by every query.
  Accounts query;
  Account* reserve = query.GetByFullName("Operating:Payroll:Reserve");
  ASSERT_NE(reserve, nullptr);
  EXPECT_EQ(reserve->Balance(), Currency::FromUnits(405000));
  EXPECT_EQ(reserve->AccountType(), qbBank);
  const std::string reserveId = reserve->ListID();
  query.Clear();
  ASSERT_NE(query.GetByListID(operating.ListID()), nullptr);
  EXPECT_EQ(query.Item("Operating").AccountNumber(), "1000");
  EXPECT_EQ(query.Item("Operating").BankNumber(), "0012-3456");
  EXPECT_EQ(query.Item("Operating").Desc(), "Main account");
  EXPECT_EQ(Queried<Accounts>([](Accounts& c) { return c.GetByNameRange("Operating:Payroll:A", "Operating:Payroll:Z"); }),
            std::vector<std::string>{"Operating:Payroll:Reserve"});
  EXPECT_EQ(Queried<Accounts>([](Accounts& c) { return c.GetByNameMatch("Operat", qbMatchStartsWith); }).size(), 3u);
  EXPECT_EQ(Queried<Accounts>([](Accounts& c) { return c.GetByNameMatch("Reserve", qbMatchEndsWith); }),
            std::vector<std::string>{"Operating:Payroll:Reserve"});
  EXPECT_EQ(Queried<Accounts>([](Accounts& c) { return c.GetByNameMatch("avin", qbMatchContains); }),
            std::vector<std::string>{"Savings"});
  EXPECT_GE(Queried<Accounts>([&](Accounts& c) { return c.GetByDateSpan(operating.TimeCreated(), Date()); }).size(), 4u);
  master.GetActive();
  ASSERT_TRUE(master.ItemExists("Operating:Payroll"));

  // The sum from a fresh read, through the tree the collection links, to QuickBooks' own total.
  Accounts all;
  all.GetAll();
  Account& top = all.Item("Operating");
  EXPECT_EQ(all.SumSubAccountBalances(top), Currency::FromUnits(12905000));
  EXPECT_EQ(top.TotalBalance(), all.SumSubAccountBalances(top));
  EXPECT_EQ(all.Item("Operating:Payroll").TotalBalance(), Currency::FromUnits(2905000));
  EXPECT_EQ(all.SumSubAccountBalances(all.Item("Savings")), Currency(0));

  // A change: renamed, described; the opening balance is the add's alone.
  Account& savings = master.Item("Savings");
  savings.Name("Savings Reserve");
  savings.Desc("Rainy days");
  EXPECT_EQ(RaisedBy([&] { savings.OpenBalance(Currency(5)); }).Number(), ErrorNumber(1002));
  ASSERT_EQ(master.Commit(), 1) << (savings.Errors().Count() ? savings.Errors()[1].Description() : "");
  // Moved: the reserve goes under the savings account, with its balance.
  Account& moved = master.Item("Operating:Payroll:Reserve");
  moved.Parent("Savings Reserve");
  ASSERT_EQ(master.Commit(), 1) << (moved.Errors().Count() ? moved.Errors()[1].Description() : "");
  EXPECT_EQ(moved.FullName(), "Savings Reserve:Reserve");
  all.GetAll();
  EXPECT_EQ(all.Item("Savings Reserve").Desc(), "Rainy days");
  EXPECT_EQ(all.SumSubAccountBalances(all.Item("Savings Reserve")), Currency::FromUnits(405000));
  EXPECT_EQ(all.SumSubAccountBalances(all.Item("Operating")), Currency(1250));

  // Deletes: an account with sub-accounts is refused, so is one in use (its opening balance is
  // posted); a leaf that nothing uses goes.
  EXPECT_EQ(RaisedBy([&] { master.Delete(master.Item("Savings Reserve").ListID()); }).Number(), ErrorNumber(1026));
  EXPECT_EQ(master.Errors().Count(), 1);  // QuickBooks' reason
  EXPECT_EQ(RaisedBy([&] { master.Delete(reserveId); }).Number(), ErrorNumber(1026));
  master.Add("Petty", true, "Savings Reserve", qbBank);
  ASSERT_EQ(master.Commit(), 1);
  EXPECT_EQ(master.Delete(master.Item("Savings Reserve:Petty").ListID()), 0);
  Accounts after;
  EXPECT_EQ(after.GetByNameMatch("Reserve", qbMatchEndsWith), 2);  // the savings account and its reserve
  EXPECT_EQ(after.GetByNameMatch("Petty", qbMatchContains), 0);
}

// What the library refuses and what QuickBooks refuses: a value over its limit, a parent of another
// type, a name taken; each a clear error on its record, and nothing of it added.
TEST_F(CompanyEndToEnd, BadAccountsAreRefusedWithNothingHalfAdded) {
  Accounts& master = BrenvaleGlobals::Accounts();
  master.Add("Vehicles", true, {}, qbFixedAsset);
  ASSERT_EQ(master.Commit(), 1);
  Accounts before;
  const Long count = before.GetAll();

  Account& longNumber = master.Add("Van", true, "Vehicles", qbFixedAsset, "12345678");
  Account& fuel = master.Add("Fuel", true, "Vehicles", qbExpense);
  Account& twice = master.Add("Vehicles", true, {}, qbFixedAsset);
  Account& good = master.Add("Truck", true, "Vehicles", qbFixedAsset);
  CurrentSession().commitRaises = false;
  EXPECT_EQ(master.Commit(), 1);
  ASSERT_EQ(longNumber.Errors().Count(), 1);
  EXPECT_EQ(longNumber.Errors()[1].Number(), ErrorNumber(1300));
  EXPECT_EQ(longNumber.Errors()[1].Field(), "Number");
  ASSERT_EQ(fuel.Errors().Count(), 1);
  EXPECT_EQ(fuel.Errors()[1].Number(), ErrorNumber(1303));
  ASSERT_EQ(twice.Errors().Count(), 1);
  EXPECT_EQ(twice.Errors()[1].Number(), ErrorNumber(1017));
  EXPECT_EQ(good.ObjectState(), zqObjectStateClean);

  Accounts after;
  EXPECT_EQ(after.GetAll(), count + 1);
  EXPECT_TRUE(Holds(after, "Vehicles:Truck"));
  EXPECT_FALSE(Holds(after, "Vehicles:Van"));
  EXPECT_FALSE(Holds(after, "Vehicles:Fuel"));
}

// Terms of both kinds: added through one collection, read back each as its own kind by every query,
// never modified, deleted as their own kind.
TEST_F(CompanyEndToEnd, TermsOfBothKinds) {
  Terms& master = BrenvaleGlobals::Terms();
  StandardTerm& net = master.Add<StandardTerm>("Net 21");
  net.StdDueDays(21);
  net.StdDiscountDays(7);
  net.DiscountPct(Currency(3));
  auto& prox = static_cast<DateDrivenTerm&>(master.Add(zqObjectTypeDateDrivenTerms, "Prox 10"));
  prox.DayOfMonthDue(10);
  prox.DueNextMonthDays(5);
  prox.DiscountDayOfMonth(1);
  ASSERT_EQ(master.Commit(), 2) << (master.Errors().Count() ? master.Errors()[1].Description() : "");
  EXPECT_FALSE(net.ListID().empty());

  Terms query;
  EXPECT_GE(query.GetAll(), 2);
  zkTerm& readNet = query.Item("Net 21");
  ASSERT_FALSE(readNet.IsDateDriven());
  EXPECT_EQ(static_cast<StandardTerm&>(readNet).StdDiscountDays(), 7);
  EXPECT_EQ(readNet.DiscountPercent(), Currency(3));
  EXPECT_EQ(readNet.CalculateDueDate(Date::Serial(2024, 1, 15)), Date::Serial(2024, 2, 5));
  EXPECT_EQ(readNet.CalculateDiscountDate(Date::Serial(2024, 1, 15)), Date::Serial(2024, 1, 22));
  zkTerm& readProx = query.Item("Prox 10");
  ASSERT_TRUE(readProx.IsDateDriven());
  EXPECT_EQ(readProx.CalculateDueDate(Date::Serial(2024, 1, 8)), Date::Serial(2024, 2, 10));
  EXPECT_EQ(readProx.CalculateDiscountDate(Date::Serial(2024, 1, 8)), Date::Serial(2024, 2, 1));

  Terms byType;
  EXPECT_GE(byType.GetByType(zqObjectTypeDateDrivenTerms), 1);
  for (Long i = 1; i <= byType.Count(); ++i) EXPECT_TRUE(byType.Item(static_cast<std::size_t>(i)).IsDateDriven());
  byType.GetByType(zqObjectTypeStandardTerms);
  EXPECT_TRUE(byType.ItemExists("Net 21"));
  EXPECT_FALSE(byType.ItemExists("Prox 10"));
  Terms one;
  ASSERT_NE(one.GetByFullName("Prox 10"), nullptr);
  ASSERT_NE(one.GetByListID(net.ListID()), nullptr);
  EXPECT_EQ(one.Count(), 2);
  EXPECT_EQ(Queried<Terms>([](Terms& c) { return c.GetByNameRange("Net 21", "Prox 10"); }),
            (std::vector<std::string>{"Net 21", "Net 30", "Net 60", "Prox 10"}));
  EXPECT_EQ(Queried<Terms>([](Terms& c) { return c.GetByNameMatch("rox", qbMatchContains); }),
            std::vector<std::string>{"Prox 10"});
  EXPECT_GE(Queried<Terms>([&](Terms& c) { return c.GetByDateSpan(net.TimeCreated(), Date()); }).size(), 2u);
  master.GetActive();
  EXPECT_TRUE(master.ItemExists("Prox 10"));

  // Neither kind can be modified: refused before anything is sent.
  master.Item("Net 21").Name("Net 22");
  BrenvaleError refused = RaisedBy([&] { master.Commit(); });
  EXPECT_EQ(refused.Number(), ErrorNumber(1003));
  EXPECT_EQ(refused.Description(), "XMLModify not supported");

  // Deleted as their own kinds, held or not.
  master.GetActive();
  EXPECT_EQ(master.Delete(master.Item("Prox 10").ListID()), 0);
  Terms fresh;
  EXPECT_EQ(fresh.Delete(one.Item("Net 21").ListID()), 0);
  Terms gone;
  gone.GetAll();
  EXPECT_FALSE(gone.ItemExists("Net 21"));
  EXPECT_FALSE(gone.ItemExists("Prox 10"));
}

// Price levels of both forms over two items: read back by every query, changed, deleted; a price of
// an item QuickBooks does not have is refused with nothing added.
TEST_F(CompanyEndToEnd, PriceLevelsOfBothForms) {
  for (const char* item : {"Design", "Survey"})
    Send(std::string("<ItemServiceAddRq requestID = \"1\"><ItemServiceAdd><Name>") + item +
         "</Name><SalesOrPurchase><Price>100.00</Price><AccountRef><FullName>Uncategorized Income</FullName>"
         "</AccountRef></SalesOrPurchase></ItemServiceAdd></ItemServiceAddRq>");
  PriceLevels& master = BrenvaleGlobals::PriceLevels();
  PriceLevel& trade = master.Add("Trade");
  trade.PriceLevelsPerItem().Add("Design", 85.5f);
  trade.PriceLevelsPerItem().Add("Survey", -12.0f, true);
  PriceLevel& staff = master.Add("Staff");
  staff.PriceLevelFixedPercentage(-20);
  ASSERT_EQ(master.Commit(), 2) << (trade.Errors().Count() ? trade.Errors()[1].Description() : "")
                                << (master.Errors().Count() ? master.Errors()[1].Description() : "");

  PriceLevels query;
  PriceLevel* back = query.GetByFullName("Trade");
  ASSERT_NE(back, nullptr);
  EXPECT_EQ(back->PriceLevelType(), "PerItem");
  levelsPerItem prices = back->PriceLevelsPerItem();
  ASSERT_EQ(prices.Count(), 2);
  EXPECT_EQ(prices[1].Item(), "Design");
  EXPECT_FALSE(prices[1].ItemRef().ListID().empty());
  EXPECT_FLOAT_EQ(prices[1].CustomPrice(), 85.5f);
  EXPECT_FALSE(prices[1].CustomPriceIsPercent());
  EXPECT_EQ(prices[2].Item(), "Survey");
  EXPECT_FLOAT_EQ(prices[2].CustomPrice(), -12.0f);
  EXPECT_TRUE(prices[2].CustomPriceIsPercent());
  PriceLevel* fixed = query.GetByListID(staff.ListID());
  ASSERT_NE(fixed, nullptr);
  EXPECT_EQ(fixed->PriceLevelType(), "FixedPercentage");
  EXPECT_DOUBLE_EQ(fixed->PriceLevelFixedPercentage(), -20.0);
  EXPECT_EQ(Queried<PriceLevels>([](PriceLevels& c) { return c.GetByNameRange("S", "Staff"); }),
            std::vector<std::string>{"Staff"});
  EXPECT_EQ(Queried<PriceLevels>([](PriceLevels& c) { return c.GetByNameMatch("rad", qbMatchContains); }),
            std::vector<std::string>{"Trade"});
  EXPECT_EQ(Queried<PriceLevels>([&](PriceLevels& c) { return c.GetByDateSpan(staff.TimeCreated(), Date()); }).size(),
            2u);

  // Changed: a deeper discount, a new price for one item, renamed.
  staff.PriceLevelFixedPercentage(-25);
  staff.Name("Staff and family");
  trade.PriceLevelsPerItem()[1].CustomPrice(80.0f);
  ASSERT_EQ(master.Commit(), 2) << (master.Errors().Count() ? master.Errors()[1].Description() : "");
  PriceLevels changed;
  changed.GetAll();
  EXPECT_DOUBLE_EQ(changed.Item("Staff and family").PriceLevelFixedPercentage(), -25.0);
  bool designSeen = false;
  for (const levelPerItem& p : changed.Item("Trade").PriceLevelsPerItem())
    if (p.Item() == "Design") {
      designSeen = true;
      EXPECT_FLOAT_EQ(p.CustomPrice(), 80.0f);
    }
  EXPECT_TRUE(designSeen);

  // An unknown item: refused by the library, nothing sent for it, nothing added.
  PriceLevel& bad = master.Add("Bad");
  bad.PriceLevelsPerItem().Add("Design", 1.0f);
  bad.PriceLevelsPerItem().Add("Nothing Such", 1.0f);
  CurrentSession().commitRaises = false;
  EXPECT_EQ(master.Commit(), 0);
  ASSERT_EQ(bad.Errors().Count(), 1);
  EXPECT_EQ(bad.Errors()[1].Number(), ErrorNumber(2001));
  EXPECT_EQ(bad.Errors()[1].Field(), "Item 2");
  PriceLevels none;
  none.GetAll();
  EXPECT_FALSE(none.ItemExists("Bad"));

  // Deleted.
  EXPECT_EQ(master.Delete(trade.ListID()), 0);
  PriceLevels left;
  left.GetAll();
  EXPECT_FALSE(left.ItemExists("Trade"));
  EXPECT_TRUE(left.ItemExists("Staff and family"));
}

// --- the name lists --------------------------------------------------------------------------------

// The first error a record holds after a commit, for a failure's message.
std::string FirstError(ListRecord& r) { return r.Errors().Count() ? r.Errors()[1].Description() : ""; }

// A customer with a job and both addresses, a vendor, an employee and an other name: added in one
// batch each, read back by every query (through their own lists and the entity list), changed,
// deleted.
TEST_F(CompanyEndToEnd, NamesOfEveryListAddQueryModifyAndDelete) {
  using G = BrenvaleGlobals;
  Customers& customers = G::Customers();
  Customer& acme = customers.Add("Acme Supply");
  acme.CompanyName("Acme Supply Co");
  acme.FirstName("Dana");
  acme.LastName("Reyes");
  acme.BillAddress().Line1("Acme Supply Co");
  acme.BillAddress().Line2("12 Harbor St");
  acme.BillAddress().City("Boston");
  acme.BillAddress().State("MA");
  acme.BillAddress().PostalCode("02110");
  acme.ShipAddress().Line1("Dock 4");
  acme.ShipAddress().City("Quincy");
  Customer& job = customers.Add("Roof repair", true, "Acme Supply");
  job.JobDesc("Replace the flat roof");
  job.JobStatus(qbJobStatusInProgress);
  ASSERT_EQ(customers.Commit(), 2) << FirstError(acme) << FirstError(job);
  EXPECT_EQ(job.FullName(), "Acme Supply:Roof repair");
  EXPECT_EQ(job.Sublevel(), 1);

  Vendor& vendor = G::Vendors().Add("Pioneer Lumber");
  vendor.VendorAddress().City("Salem");
  vendor.NameOnCheck("Pioneer Lumber LLC");
  ASSERT_EQ(G::Vendors().Commit(), 1) << FirstError(vendor);
  Employee& employee = G::Employees().Add("Lee Park");
  employee.FirstName("Lee");
  employee.LastName("Park");
  employee.EmployeeAddress().City("Lynn");
  ASSERT_EQ(G::Employees().Commit(), 1) << FirstError(employee);
  OtherName& other = G::OtherNames().Add("Town Clerk");
  other.OtherNameAddress().City("Salem");
  ASSERT_EQ(G::OtherNames().Commit(), 1) << FirstError(other);

  // Every query of the customers, the job among them.
  Customers query;
  Customer* read = query.GetByFullName("Acme Supply");
  ASSERT_NE(read, nullptr);
  EXPECT_EQ(read->BillAddress().Line2(), "12 Harbor St");
  EXPECT_EQ(read->BillAddress().City(), "Boston");
  EXPECT_EQ(read->BillAddress().PostalCode(), "02110");
  EXPECT_EQ(read->ShipAddress().City(), "Quincy");
  EXPECT_EQ(read->CompanyName(), "Acme Supply Co");
  query.Clear();
  Customer* readJob = query.GetByListID(job.ListID());
  ASSERT_NE(readJob, nullptr);
  EXPECT_EQ(readJob->FullName(), "Acme Supply:Roof repair");
  EXPECT_EQ(readJob->ParentRef().FullName(), "Acme Supply");
  EXPECT_EQ(readJob->JobDesc(), "Replace the flat roof");
  EXPECT_EQ(readJob->JobStatus(), qbJobStatusInProgress);
  const std::vector<std::string> both{"Acme Supply", "Acme Supply:Roof repair"};
  EXPECT_EQ(Queried<Customers>([](Customers& c) { return c.GetAll(); }), both);
  const std::string acmeId = acme.ListID(), jobId = job.ListID();
  const Date created = acme.TimeCreated();
  customers.GetActive();  // the master alone reads the active list; it holds what it read now
  EXPECT_EQ(FullNames(customers), both);
  EXPECT_EQ(Queried<Customers>([](Customers& c) { return c.GetByNameMatch("Acme", qbMatchStartsWith); }), both);
  EXPECT_EQ(Queried<Customers>([](Customers& c) { return c.GetByNameMatch("repair", qbMatchEndsWith); }),
            std::vector<std::string>{"Acme Supply:Roof repair"});
  EXPECT_EQ(Queried<Customers>([](Customers& c) { return c.GetByNameRange("Acme Supply:A", "Acme Supply:Z"); }),
            std::vector<std::string>{"Acme Supply:Roof repair"});
  EXPECT_EQ(Queried<Customers>([&](Customers& c) { return c.GetByDateSpan(created, Date()); }), both);

  // The other lists by name, and every name at once through the entity list, each as its own kind.
  EXPECT_EQ(Queried<Vendors>([](Vendors& c) { return c.GetByNameMatch("Lumber", qbMatchContains); }),
            std::vector<std::string>{"Pioneer Lumber"});
  Vendors vendors;
  ASSERT_NE(vendors.GetByListID(vendor.ListID()), nullptr);
  EXPECT_EQ(vendors.Item("Pioneer Lumber").NameOnCheck(), "Pioneer Lumber LLC");
  EXPECT_EQ(vendors.Item("Pioneer Lumber").VendorAddress().City(), "Salem");
  Employees employees;
  ASSERT_NE(employees.GetByFullName("Lee Park"), nullptr);
  EXPECT_EQ(employees.Item("Lee Park").EmployeeAddress().City(), "Lynn");
  EXPECT_EQ(Queried<OtherNames>([](OtherNames& c) { return c.GetAll(); }), std::vector<std::string>{"Town Clerk"});
  Entities entities;
  EXPECT_EQ(entities.GetAll(), 5);
  ASSERT_TRUE(entities.ItemExists("Lee Park"));
  EXPECT_NE(dynamic_cast<Employee*>(&entities.Item("Lee Park")), nullptr);
  EXPECT_NE(dynamic_cast<Vendor*>(&entities.Item("Pioneer Lumber")), nullptr);
  EXPECT_NE(dynamic_cast<Customer*>(&entities.Item("Acme Supply:Roof repair")), nullptr);
  EXPECT_EQ(Queried<Entities>([](Entities& c) { return c.GetByNameMatch("Salem", qbMatchContains); }).size(), 0u);

  // Changes: an address part and a name, then read back.
  Customer& acmeRead = customers.Item("Acme Supply");
  acmeRead.ShipAddress().City("Braintree");
  employee.LastName("Parker");
  employee.Name("Lee Parker");
  ASSERT_EQ(customers.Commit(), 1) << FirstError(acmeRead);
  ASSERT_EQ(G::Employees().Commit(), 1) << FirstError(employee);
  Customers again;
  ASSERT_NE(again.GetByFullName("Acme Supply"), nullptr);
  EXPECT_EQ(again.Item("Acme Supply").ShipAddress().City(), "Braintree");
  EXPECT_EQ(again.Item("Acme Supply").BillAddress().City(), "Boston");  // untouched
  Employees renamed;
  ASSERT_NE(renamed.GetByFullName("Lee Parker"), nullptr);
  EXPECT_EQ(renamed.Item("Lee Parker").LastName(), "Parker");

  // Deletes: a customer with a job is refused; the job, then the customer, and the others go.
  EXPECT_EQ(RaisedBy([&] { customers.Delete(acmeId); }).Number(), ErrorNumber(1026));
  EXPECT_EQ(customers.Delete(jobId), 0);
  EXPECT_EQ(customers.Delete(acmeId), 0);
  EXPECT_EQ(G::Vendors().Delete(vendor.ListID()), 0);
  EXPECT_EQ(G::Employees().Delete(employee.ListID()), 0);
  EXPECT_EQ(G::OtherNames().Delete(other.ListID()), 0);
  Entities none;
  EXPECT_EQ(none.GetAll(), 0);
}

// Bad names: over a limit, an unknown reference, a job under a name of another list, a name another
// list holds; each a clear error on its record, and nothing of it added.
TEST_F(CompanyEndToEnd, BadNamesAreRefusedWithNothingHalfAdded) {
  using G = BrenvaleGlobals;
  Customers& customers = G::Customers();
  customers.Add("Acme Supply");
  ASSERT_EQ(customers.Commit(), 1);
  G::Vendors().Add("Pioneer Lumber");
  ASSERT_EQ(G::Vendors().Commit(), 1);

  Customer& longName = customers.Add(std::string(42, 'n'));
  Customer& longJob = customers.Add("Far Away");
  longJob.JobDesc(std::string(100, 'j'));
  // An address part over its limit is refused as it is set, and the address keeps what it had.
  longJob.BillAddress().City("Boston");
  EXPECT_EQ(RaisedBy([&] { longJob.BillAddress().City(std::string(32, 'c')); }).Number(), ErrorNumber(1202));
  EXPECT_EQ(longJob.BillAddress().City(), "Boston");
  Customer& unknownType = customers.Add("Typed");
  unknownType.CustomerTypeRef("No Such Type");
  Customer& underVendor = customers.Add("Deck", true, "Pioneer Lumber");
  Customer& good = customers.Add("Good Job", true, "Acme Supply");
  CurrentSession().commitRaises = false;
  EXPECT_EQ(customers.Commit(), 1);
  // A name another name list holds is taken.
  OtherName& taken = G::OtherNames().Add("Acme Supply");
  EXPECT_EQ(G::OtherNames().Commit(), 0);
  ASSERT_EQ(taken.Errors().Count(), 1);
  EXPECT_EQ(taken.Errors()[1].Number(), ErrorNumber(1017)) << FirstError(taken);
  struct Refusal {
    Customer* record;
    int code;
  };
  for (const Refusal& r : std::vector<Refusal>{{&longName, 1500}, {&longJob, 1508}, {&unknownType, 1001},
                                                {&underVendor, 1010}}) {
    SCOPED_TRACE(r.record->Name());
    ASSERT_GE(r.record->Errors().Count(), 1);
    EXPECT_EQ(r.record->Errors()[1].Number(), ErrorNumber(r.code)) << FirstError(*r.record);
    EXPECT_EQ(r.record->ObjectState(), zqObjectStateNew);
  }
  EXPECT_EQ(longJob.Errors()[1].Field(), "Account Number");  // QuickBooks' own label for the job description
  EXPECT_EQ(good.ObjectState(), zqObjectStateClean);

  Entities after;
  EXPECT_EQ(after.GetAll(), 3);
  EXPECT_TRUE(Holds(after, "Acme Supply:Good Job"));
  EXPECT_FALSE(Holds(after, "Far Away"));
  EXPECT_FALSE(Holds(after, "Typed"));
  EXPECT_FALSE(Holds(after, "Pioneer Lumber:Deck"));
}

}  // namespace
}  // namespace brenvale::testing

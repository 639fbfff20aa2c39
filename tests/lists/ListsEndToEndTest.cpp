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
#include "lists/ListsTestSupport.hpp"

namespace brenvale::testing {
namespace {

namespace fs = std::filesystem;

class CompanyEndToEnd : public ListsTest {
 protected:
  void SetUp() override {
    CurrentSession() = Session{};
    dir_ = fs::temp_directory_path() /
           ("brenvale-lists-" + std::to_string(std::chrono::steady_clock::now().time_since_epoch().count()));
    fs::create_directories(dir_);
    rqp::RegisterCompanyEngine();
    BrenvaleGlobals::QBConnection().RequestProcessorProgId("BrenvaleRqP.RequestProcessor");
    BrenvaleGlobals::QBConnect("", "Brenvale tests", qbOpenModeDontCare, (dir_ / "company.qbw").string());
    // The company object lives as long as the thread: start every test with empty masters.
    for (auto& entry : TheLists()) entry->Clear();
  }
  void TearDown() override {
    BrenvaleGlobals::QBConnection().CloseConnection();
    for (auto& entry : TheLists()) entry->Clear();
    CurrentSession() = Session{};
    std::error_code ec;
    fs::remove_all(dir_, ec);
  }

  // Sends one request written by hand (for records of kinds outside these lists).
  static void Send(const std::string& rq) {
    xmlBldr b;
    b.NewClear();
    b.InsertRawXML(rq);
    DomDocument doc = b.NewSendRequest();
    ASSERT_NE(doc.Xml().find("statusCode=\"0\""), std::string::npos) << doc.Xml();
  }

  fs::path dir_;
};

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

}  // namespace
}  // namespace brenvale::testing

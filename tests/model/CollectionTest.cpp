// The collection core and the list collection, through the customer kind declared for the tests:
// the batch commit, refiling in place, the reference cache, master-only operations, queries with
// iterators and filters, delete. Every request goes through the scripted processor, which checks
// it against the qbXML schema.
#include <algorithm>

#include "brenvale/lists/SalesReps.hpp"
#include "brenvale/lists/ToDoList.hpp"
#include "model/ModelTestSupport.hpp"
#include "model/TestKinds.hpp"

namespace brenvale::testing {
namespace {

class Collections : public ModelTest {};

std::string CustomerRet(const std::string& id, const std::string& name, const std::string& parent = {}) {
  std::string full = parent.empty() ? name : parent + ":" + name;
  return "<CustomerRet><ListID>" + id + "</ListID><EditSequence>1</EditSequence><Name>" + name + "</Name><FullName>" +
         full + "</FullName>" + (parent.empty() ? "" : "<ParentRef><FullName>" + parent + "</FullName></ParentRef>") +
         "<IsActive>true</IsActive></CustomerRet>";
}

// The request IDs of the add requests of a batch, with the names they carry.
std::vector<std::string> Sent(const std::string& request, const std::string& tag) {
  std::vector<std::string> out;
  for (std::size_t at = request.find("<" + tag + ">"); at != std::string::npos; at = request.find("<" + tag + ">", at + 1)) {
    const std::size_t from = at + tag.size() + 2;
    out.push_back(request.substr(from, request.find('<', from) - from));
  }
  return out;
}

TEST_F(Collections, ABatchCommitCollectsEachFailureAndRaisesAfter) {
  std::string batch;
  auto p = Install([&](const std::string& rq) {
    batch = rq;
    return Responses(Rs("CustomerAddRs", "1", 0, CustomerRet("L1", "First")) +
                     Rs("CustomerAddRs", "3", 3100, {}, "The name &quot;Third&quot; of the list element is already in use.") +
                     Rs("CustomerAddRs", "4", 3000, {}, "There was an error.  QuickBooks error message: Invalid thing"));
  });
  TestCustomers all(true);
  all.Add("First");
  all.Add("");  // fails validation: not sent
  all.Add("Third");
  all.Add("Fourth");
  all.Add("Fifth");  // QuickBooks never answers it
  BrenvaleError raised = RaisedBy([&] { all.Commit(); });
  EXPECT_EQ(raised.Number(), ErrorNumber(1023));
  EXPECT_EQ(raised.Source(), "Customer");
  ASSERT_EQ(p->requests.size(), 1u);
  EXPECT_EQ(Sent(batch, "Name"), (std::vector<std::string>{"First", "Third", "Fourth", "Fifth"}));
  EXPECT_NE(batch.find("<CustomerAddRq requestID = \"3\"><CustomerAdd><Name>Third</Name>"), std::string::npos);

  std::vector<std::pair<int, std::string>> entries;
  for (const zkError& e : all.Errors()) entries.emplace_back(e.Number() - ErrorNumber(0), e.Field());
  EXPECT_EQ(entries, (std::vector<std::pair<int, std::string>>{{1011, "2"}, {1018, "3"}, {1018, "4"}, {1018, "5"}}));
  TestCustomer& first = all.Item("First");
  EXPECT_EQ(first.ObjectState(), zqObjectStateClean);
  EXPECT_EQ(first.ListID(), "L1");
  EXPECT_EQ(all.Item("Third").Errors()[1].Number(), ErrorNumber(1017));
  EXPECT_EQ(all.Item("Third").Errors()[1].Field(), "Name");
  EXPECT_EQ(all.Item("Fourth").Errors()[1].Description(), "QuickBooks: Invalid thing");
  EXPECT_EQ(all.Item("Fifth").Errors()[1].Description(), "QuickBooks: no response to this record");
  EXPECT_EQ(all.Item("Third").ObjectState(), zqObjectStateNew);

  // With the library-wide setting off the same failures are only collected; Commit2 counts them.
  CurrentSession().commitRaises = false;
  EXPECT_NO_THROW(all.Commit());
  EXPECT_EQ(all.Commit2(), 4);
}

// A record QuickBooks gives a new key is filed under it where it stands; the others do not move.
TEST_F(Collections, ACommittedRecordIsFiledAgainWhereItStands) {
  auto p = Install([](const std::string& rq) {
    std::string answers;
    for (const std::string& id : Sent(rq, "Notes")) {
      const std::string n = id.substr(5);
      answers += Rs("ToDoAddRs", n, 0,
                    "<ToDoRet><ListID>T" + n + "</ListID><EditSequence>1</EditSequence><Notes>" + id +
                        "</Notes><IsActive>true</IsActive></ToDoRet>");
    }
    return Responses(answers);
  });
  ToDoList todos(true);
  for (int i = 1; i <= 5; ++i) todos.Add("Call " + std::to_string(i));
  EXPECT_FALSE(todos.ItemExists("T3"));  // filed by ListID: none yet
  // A batch larger than a message goes as several, one after the other.
  const std::size_t saved = CollectionCore::CommitMessageSize;
  CollectionCore::CommitMessageSize = 2;
  EXPECT_EQ(todos.Commit(), 5);
  CollectionCore::CommitMessageSize = saved;
  EXPECT_EQ(p->requests.size(), 3u);
  for (int i = 1; i <= 5; ++i) {
    ASSERT_TRUE(todos.ItemExists("T" + std::to_string(i)));
    EXPECT_EQ(todos.Item("T" + std::to_string(i)).Notes(), "Call " + std::to_string(i));
    EXPECT_EQ(todos.Item(static_cast<std::size_t>(i)).ListID(), "T" + std::to_string(i));
  }
  todos.Remove("T2");
  EXPECT_EQ(todos.Item(std::size_t{2}).ListID(), "T3");
  EXPECT_EQ(todos.Item("T5").Notes(), "Call 5");
  EXPECT_EQ(RaisedBy([&] { todos.Item("T2"); }).Number(), platform::kInvalidProcedureCall);
}

// Validation asks no question per record: the names a batch needs are fetched first, one query per
// list for all of them, and what the master collection holds is not asked for at all.
TEST_F(Collections, ReferencesAreLookedUpOnceAListForAWholeBatch) {
  std::vector<std::string> queries;
  auto p = Install([&](const std::string& rq) {
    if (rq.find("CustomerQueryRq") != std::string::npos) {
      queries.push_back(rq);
      std::string rets;
      for (const std::string& name : Sent(rq, "FullName"))
        if (name != "Parent 7") rets += CustomerRet("P-" + name, name);
      return Responses(Rs("CustomerQueryRs", "1", 500, rets, "The query request has not been fully completed."));
    }
    std::string answers;
    const auto names = Sent(rq, "Name");
    std::size_t at = 0;
    for (std::size_t id = rq.find("requestID = \""); id != std::string::npos; id = rq.find("requestID = \"", id + 1), ++at) {
      const std::string n = rq.substr(id + 13, rq.find('"', id + 13) - id - 13);
      answers += Rs("CustomerAddRs", n, 0, CustomerRet("N" + n, names[at]));
    }
    return Responses(answers);
  });
  TestCustomers all(true);
  all.Add("Held");
  for (int i = 0; i < 20; ++i) all.Add("Job " + std::to_string(i), true, "Parent " + std::to_string(i % 10));
  all.Add("Inside", true, "Held");  // its parent is in the master collection: never asked for
  all.Commit2();
  ASSERT_EQ(queries.size(), 1u);
  auto asked = Sent(queries[0], "FullName");
  std::sort(asked.begin(), asked.end());
  EXPECT_EQ(asked.size(), 10u);  // each name once
  EXPECT_EQ(std::count(asked.begin(), asked.end(), "Held"), 0);
  ASSERT_EQ(p->requests.size(), 2u);
  // The two jobs under the missing parent failed validation; the others were added.
  ASSERT_EQ(all.Errors().Count(), 2);
  EXPECT_EQ(all.Errors()[1].Field(), "9");
  EXPECT_EQ(all.Errors()[2].Field(), "19");
  EXPECT_EQ(all.Item("Parent 7:Job 7").Errors()[1].Number(), ErrorNumber(1010));

  // A name found once is known for the rest of the session.
  p->requests.clear();
  TestCustomer& again = all.Add("Again", true, "Parent 1");
  EXPECT_TRUE(again.Validate());
  EXPECT_TRUE(p->requests.empty());
}

TEST_F(Collections, SalesRepEntitiesOfABatchAreOneQuery) {
  auto p = Install([](const std::string& rq) {
    if (rq.find("EntityQueryRq") != std::string::npos)
      return Responses(Rs("EntityQueryRs", "1", 500,
                          "<VendorRet><ListID>V1</ListID><FullName>Pat Lee</FullName></VendorRet>"
                          "<CustomerRet><ListID>C1</ListID><FullName>Big Buyer</FullName></CustomerRet>",
                          "not fully completed"));
    return Responses(Rs("SalesRepAddRs", "1", 0,
                        "<SalesRepRet><ListID>R1</ListID><Initial>PL</Initial><SalesRepEntityRef><FullName>Pat Lee"
                        "</FullName></SalesRepEntityRef></SalesRepRet>"));
  });
  SalesReps reps(true);
  reps.Add("PL", true, "Pat Lee");
  SalesRep& customer = reps.Add("BB", true, "Big Buyer");
  SalesRep& nobody = reps.Add("NB", true, "Nobody");
  CurrentSession().commitRaises = false;
  EXPECT_EQ(reps.Commit(), 1);
  ASSERT_EQ(p->requests.size(), 2u);
  EXPECT_NE(p->requests[0].find("<EntityQueryRq requestID = \"1\"><FullName>Pat Lee</FullName><FullName>Big Buyer"
                                "</FullName><FullName>Nobody</FullName></EntityQueryRq>"),
            std::string::npos);
  EXPECT_EQ(customer.Errors()[1].Number(), ErrorNumber(2203));
  EXPECT_EQ(nobody.Errors()[1].Number(), ErrorNumber(2204));
}

TEST_F(Collections, OnlyTheMasterChangesAndAStrangerIsNotCommitted) {
  auto p = Install([](const std::string&) { return Responses(""); });
  TestCustomers copy(false);
  for (auto op : std::vector<std::function<void()>>{[&] { copy.Commit(); }, [&] { copy.GetActive(); },
                                                    [&] { copy.Add("x"); }, [&] { copy.Remove(std::size_t{1}); }}) {
    BrenvaleError e = RaisedBy(op);
    EXPECT_EQ(e.Number(), ErrorNumber(1021));
    EXPECT_EQ(e.Description(), "This operation is only permitted on the master collection");
  }
  TestCustomers master(true);
  TestCustomer stranger;
  stranger.Name("S");
  CurrentSession().commitRaises = false;
  master.Commit(&stranger);
  ASSERT_EQ(master.Errors().Count(), 1);
  EXPECT_EQ(master.Errors()[1].Number(), ErrorNumber(1022));
  EXPECT_EQ(master.Errors()[1].Field(), "Customer");
  EXPECT_TRUE(p->requests.empty());
}

TEST_F(Collections, QueriesPageThroughIteratorsAndWriteTheirFilters) {
  int served = 0;
  const std::string kIterator = "{2F3C0D1E-4A5B-4C6D-8E9F-0A1B2C3D4E5F}";
  auto p = Install([&](const std::string& rq) {
    std::string rets;
    const bool stop = rq.find("iterator=\"Stop\"") != std::string::npos;
    const auto max = Sent(rq, "MaxReturned");
    const int want = max.empty() ? 5 : std::stoi(max.front());
    for (int i = 0; i < want && served < 5 && !stop; ++i, ++served)
      rets += CustomerRet(std::to_string(served), "N" + std::to_string(served));
    const int remaining = std::max(0, 5 - served);
    return "<?xml version=\"1.0\" ?><QBXML><QBXMLMsgsRs><CustomerQueryRs statusCode=\"0\" statusSeverity=\"Info\" "
           "statusMessage=\"Status OK\" iteratorRemainingCount=\"" + std::to_string(remaining) +
           "\" iteratorID=\"" + kIterator + "\">" + rets + "</CustomerQueryRs></QBXMLMsgsRs></QBXML>";
  });
  const Long saved = ListCollectionBase::IteratorPageSize;
  ListCollectionBase::IteratorPageSize = 2;
  TestCustomers all(true);
  EXPECT_EQ(all.GetAll(), 5);
  EXPECT_EQ(all.Count(), 5);
  ASSERT_EQ(p->requests.size(), 3u);
  EXPECT_NE(p->requests[0].find("<CustomerQueryRq metaData=\"NoMetaData\" iterator=\"Start\" ><MaxReturned>2"),
            std::string::npos);
  EXPECT_NE(p->requests[1].find("iterator=\"Continue\" iteratorID=\"" + kIterator +
                                "\" ><MaxReturned>2</MaxReturned></CustomerQueryRq>"),
            std::string::npos);
  // Asked for fewer than there are: the iterator is stopped.
  served = 0;
  p->requests.clear();
  EXPECT_EQ(all.GetAll(3), 3);
  EXPECT_NE(p->requests.back().find("iterator=\"Stop\" iteratorID=\"" + kIterator + "\" ></CustomerQueryRq>"),
            std::string::npos);
  ListCollectionBase::IteratorPageSize = saved;

  // Below qbXML 5.0 there are no iterators: one plain query with its filters, in the schema's order.
  CurrentSession().qbXMLVersionNumber = VersionNumberOf("4.0");
  p->requests.clear();
  served = 0;
  all.GetByNameMatch("N", qbMatchStartsWith, 10);
  all.GetByNameRange("A", "M");
  all.GetByDateSpan(Date::Serial(2024, 1, 2), Date());
  all.GetActive(7);
  ASSERT_EQ(p->requests.size(), 4u);
  EXPECT_NE(p->requests[0].find("<CustomerQueryRq requestID = \"1\"><MaxReturned>10</MaxReturned><NameFilter>"
                                "<MatchCriterion>StartsWith</MatchCriterion><Name>N</Name></NameFilter></CustomerQueryRq>"),
            std::string::npos);
  EXPECT_NE(p->requests[1].find("<NameRangeFilter><FromName>A</FromName><ToName>M</ToName></NameRangeFilter>"),
            std::string::npos);
  EXPECT_NE(p->requests[2].find("<FromModifiedDate>2024-01-02T00:00:00</FromModifiedDate></CustomerQueryRq>"),
            std::string::npos);
  EXPECT_NE(p->requests[3].find("<MaxReturned>7</MaxReturned><ActiveStatus>ActiveOnly</ActiveStatus>"), std::string::npos);
}

TEST_F(Collections, ARecordReadAgainReplacesTheOneHeldWhereItStands) {
  std::string name = "Zed";
  Install([&](const std::string&) {
    return Responses(Rs("CustomerQueryRs", "1", 0, CustomerRet("A1", "Abe") + CustomerRet("Z1", name)));
  });
  TestCustomers all(true);
  all.GetAll();
  TestCustomer* found = all.GetByFullName("zed");  // case aside
  ASSERT_NE(found, nullptr);
  EXPECT_EQ(found->ListID(), "Z1");
  EXPECT_EQ(all.Count(), 2);
  EXPECT_EQ(&all.Item(std::size_t{2}), found);
  EXPECT_EQ(all.GetByListID("A1")->Name(), "Abe");
  EXPECT_EQ(all.Count(), 2);
}

TEST_F(Collections, ARefusedDeleteRaises1026AndKeepsQuickBooksReason) {
  std::string status = "0";
  auto p = Install([&](const std::string&) {
    return Responses(Rs("ListDelRs", "1", std::stoi(status), {}, "Object &quot;X&quot; cannot be found."));
  });
  TestCustomers all(true);
  TestCustomer& gone = all.Add("Gone");
  gone.ReadFrom(Parse(CustomerRet("L9", "Gone")).DocumentElement());
  EXPECT_EQ(all.Delete("L9", true), 0);
  EXPECT_NE(p->requests.back().find("<ListDelRq requestID = \"1\"><ListDelType>Customer</ListDelType><ListID>L9"),
            std::string::npos);
  EXPECT_EQ(all.Count(), 0);
  status = "3120";
  BrenvaleError e = RaisedBy([&] { all.Delete("L0"); });
  EXPECT_EQ(e.Number(), ErrorNumber(1026));
  EXPECT_EQ(e.Source(), "Customer");
  EXPECT_EQ(e.Description(), "");  // the code has no message of its own
  ASSERT_EQ(all.Errors().Count(), 1);
  EXPECT_EQ(all.Errors()[1].Description(), "QuickBooks: Object \"X\" cannot be found.");
}

// One collection of several kinds: one query answers every kind, each read into its own class; a
// commit sends each record's own request; a delete names the record's kind, asked of QuickBooks first
// when the collection does not hold the record.
TEST_F(Collections, ACollectionOfSeveralKindsReadsWritesAndDeletesEachAsItsOwn) {
  auto ret = [](const std::string& kind, const std::string& id, const std::string& name) {
    return "<" + kind + "Ret><ListID>" + id + "</ListID><EditSequence>1</EditSequence><Name>" + name +
           "</Name><FullName>" + name + "</FullName><IsActive>true</IsActive></" + kind + "Ret>";
  };
  auto p = Install([&](const std::string& rq) {
    if (rq.find("<ItemQueryRq") != std::string::npos) {
      if (rq.find("<ListID>N7</ListID>") != std::string::npos)
        return Responses(Rs("ItemQueryRs", "1", 0, ret("ItemNonInventory", "N7", "Nails")));
      if (rq.find("<ListID>") != std::string::npos) return Responses(Rs("ItemQueryRs", "1", 1));
      return Responses(Rs("ItemQueryRs", "1", 0,
                          ret("ItemService", "S1", "Design") + ret("ItemFixedAsset", "F1", "Truck") +
                              ret("ItemNonInventory", "N1", "Screws")));
    }
    if (rq.find("<ListDelRq") != std::string::npos) return Responses(Rs("ListDelRs", "1", 0));
    return Responses(Rs("ItemServiceAddRs", "1", 0, ret("ItemService", "S2", "Repair")) +
                     Rs("ItemNonInventoryAddRs", "2", 0, ret("ItemNonInventory", "N2", "Bolts")));
  });
  TestAnyItems items(true);
  EXPECT_EQ(items.GetAll(), 2);  // the fixed asset is not a kind of this collection
  EXPECT_NE(p->requests.back().find("<ItemQueryRq requestID = \"1\">"), std::string::npos);
  EXPECT_NE(dynamic_cast<TestItem*>(&items.Item("Design")), nullptr);
  EXPECT_NE(dynamic_cast<TestOtherItem*>(&items.Item("Screws")), nullptr);

  items.Clear();
  items.Add<TestItem>("Repair").SalesOrPurchase().Desc("Labour");
  TestOtherItem& bolts = items.Add<TestOtherItem>("Bolts");
  bolts.SalesOrPurchase().Desc("Box of 100");
  EXPECT_EQ(items.Commit(), 2);
  const std::string& batch = p->requests.back();
  EXPECT_NE(batch.find("<ItemServiceAddRq requestID = \"1\"><ItemServiceAdd><Name>Repair</Name>"), std::string::npos);
  EXPECT_NE(batch.find("<ItemNonInventoryAddRq requestID = \"2\"><ItemNonInventoryAdd><Name>Bolts</Name>"),
            std::string::npos);
  EXPECT_EQ(bolts.ListID(), "N2");

  // A held record names its own kind; one the collection does not hold is asked for first and not
  // kept; one QuickBooks does not know is refused before any delete is sent.
  items.Delete("N2", false);
  EXPECT_NE(p->requests.back().find("<ListDelType>ItemNonInventory</ListDelType><ListID>N2</ListID>"),
            std::string::npos);
  EXPECT_EQ(items.Count(), 2);
  const std::size_t before = p->requests.size();
  items.Delete("N7", false);
  ASSERT_EQ(p->requests.size(), before + 2);
  EXPECT_NE(p->requests[before].find("<ListID>N7</ListID>"), std::string::npos);
  EXPECT_NE(p->requests.back().find("<ListDelType>ItemNonInventory</ListDelType><ListID>N7</ListID>"),
            std::string::npos);
  EXPECT_EQ(items.Count(), 2);
  EXPECT_EQ(RaisedBy([&] { items.Delete("X0"); }).Number(), ErrorNumber(1026));
  EXPECT_EQ(p->requests.size(), before + 3);
}

}  // namespace
}  // namespace brenvale::testing

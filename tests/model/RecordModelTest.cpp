// The shared record and collection machinery, exercised through a small record kind declared here.
#include <gtest/gtest.h>

#include "brenvale/core/TraceHook.hpp"
#include "brenvale/model/HierarchicalCollection.hpp"
#include "brenvale/model/HierarchicalRecord.hpp"
#include "brenvale/qbxml/Dom.hpp"
#include "brenvale/qbxml/Session.hpp"
#include "brenvale/qbxml/xmlBldr.hpp"
#include "support/ScriptedProcessor.hpp"

using namespace brenvale;

namespace {

// A modifiable hierarchical kind with a field fixed after creation and a record-specific rule.
class Widget : public HierarchicalRecord {
 public:
  enum : FieldId { kCode = kFirstCustomField, kLimit, kSince };
  Widget() : HierarchicalRecord(StaticSchema()) {}
  static const RecordSchema& StaticSchema() {
    static const RecordSchema schema([] {
      SchemaSpec s;
      s.label = "Widget";
      s.xmlName = "Class";  // reuses a real kind's request names
      s.objectType = zqObjectTypeClass;
      s.listType = zqListTypeClass;
      s.hierarchical = true;
      s.fields = {{kCode, "Code", FieldKind::Text, {}, true},
                  {kLimit, "Limit", FieldKind::Amount, Currency(3)},
                  {kSince, "Since", FieldKind::Date}};
      s.add = {"Name", "IsActive", "ParentRef", "Code", "Limit", "Since"};
      s.mod = {"Name", "IsActive", "Limit", "Since"};
      s.read = {"Code", "Limit", "Since"};
      s.rules = {{RuleKind::NotEmpty, "Name", 0, 1012, "Name"},
                 {RuleKind::MaxLength, "Name", 31, 1013, "Name"},
                 {RuleKind::Custom, "", 1, 0, ""},
                 {RuleKind::MaxLength, "Code", 3, 1400, "Code"}};
      s.queryIterates = true;
      return s;
    }());
    return schema;
  }
  const std::string& Code() const { return Text(kCode); }
  void Code(std::string v) { SetText(kCode, std::move(v)); }
  Currency Limit() const { return Amount(kLimit); }
  void Limit(Currency v) { SetAmount(kLimit, v); }
  void Since(Date d) { SetDate(kSince, d); }
  bool failCustom = false;

 protected:
  void CheckRule(int check, zkErrors& errors) override {
    if (check == 1 && failCustom) errors.AddCode(1010, "Custom");
  }
};

class Widgets : public HierarchicalCollection<Widget> {
 public:
  using HierarchicalCollection::HierarchicalCollection;
};

const char* kRet =
    "<ClassRet><ListID>80000001-1</ListID><TimeCreated>2012-05-01T13:45:30-05:00</TimeCreated>"
    "<TimeModified>2012-05-02T00:00:00</TimeModified><EditSequence>100</EditSequence><Name>Sub</Name>"
    "<FullName>Top:Mid:Sub</FullName><IsActive>true</IsActive><ParentRef><ListID>80000002-1</ListID>"
    "<FullName>Top:Mid</FullName></ParentRef><Sublevel>2</Sublevel><Code>AB</Code><Limit>12.50</Limit>"
    "<Gadget>x</Gadget></ClassRet>";

// A value that does not convert is skipped, not fatal.
const char* kBadSublevel = "<ClassRet><Name>Odd</Name><Sublevel>99999999999</Sublevel></ClassRet>";

using Scripted = brenvale::testing::ScriptedProcessor;

DomDocument Parse(const std::string& xml) { return DomDocument::Load(xml); }

// Puts a scripted processor into this thread's session, as a connection would.
Scripted& InstallProcessor() {
  auto p = std::make_shared<Scripted>();
  CurrentSession().processor = p;
  CurrentSession().ticket = p->ticket;
  return *p;
}

std::string Body(const std::function<void(xmlBldr&)>& write) {
  xmlBldr b;
  b.Clear();
  write(b);
  return b.GetXML();
}

class ModelTest : public ::testing::Test {
 protected:
  void SetUp() override {
    CurrentSession() = Session();
    CurrentSession().qbXMLVersionNumber = Currency(13);
    CurrentSession().qbxmlVersion = "13.0";
  }
  void TearDown() override { CurrentSession() = Session(); }
};

}  // namespace

TEST_F(ModelTest, StateFollowsSettersAndReads) {
  Widget w;
  EXPECT_EQ(w.ObjectState(), zqObjectStateNew);
  w.Name("A");
  w.Code("X");  // fixed fields may be set while New
  EXPECT_EQ(w.ObjectState(), zqObjectStateNew);
  DomDocument d = Parse(kRet);
  w.FromDom(d.DocumentElement());
  EXPECT_EQ(w.ObjectState(), zqObjectStateClean);
  w.Name("B");
  EXPECT_EQ(w.ObjectState(), zqObjectStateDirty);
  w.FromDom(d.DocumentElement());
  EXPECT_EQ(w.ObjectState(), zqObjectStateClean);
  try {
    w.Code("ZZ");
    FAIL();
  } catch (const BrenvaleError& e) {
    EXPECT_EQ(e.Code(), 1002);
    EXPECT_EQ(e.Source(), "Widget");
  }
  EXPECT_EQ(w.Code(), "AB");
  EXPECT_EQ(w.ObjectState(), zqObjectStateClean);
}

TEST_F(ModelTest, ReadingFillsFieldsAndSkipsUnknownElements) {
  std::vector<std::string> traced;
  auto old = SetTraceObserver([&](std::string_view s, std::string_view t) { traced.push_back(std::string(s) + "|" + std::string(t)); });
  Widget w;
  w.Since(Date::Serial(2020, 1, 1));
  w.FromDom(Parse(kRet).DocumentElement());
  SetTraceObserver(old);
  EXPECT_EQ(traced, std::vector<std::string>{"Widget|Unknown Field: Gadget"});
  Widget odd;
  EXPECT_NO_THROW(odd.FromDom(Parse(kBadSublevel).DocumentElement()));
  EXPECT_EQ(odd.Name(), "Odd");
  EXPECT_EQ(w.ListID(), "80000001-1");
  EXPECT_EQ(w.EditSequence(), "100");
  EXPECT_EQ(w.FullName(), "Top:Mid:Sub");
  EXPECT_EQ(w.CollectionKey(), "Top:Mid:Sub");
  EXPECT_EQ(w.Parent(), "Top:Mid");
  EXPECT_EQ(w.ParentRef().ListID(), "80000002-1");
  EXPECT_EQ(w.Sublevel(), 2);
  EXPECT_EQ(w.Limit(), *Currency::Parse("12.5"));
  EXPECT_EQ(w.TimeCreated(), Date::FromParts(2012, 5, 1, 13, 45, 30));  // the offset is dropped
  EXPECT_EQ(w.ValueText(Widget::kSince), "2020-01-01");  // missing element: the value stays
  w.Parent("");
  EXPECT_EQ(w.FullName(), "Sub");
}

TEST_F(ModelTest, ValidationRulesRunInOrderOncePerField) {
  Widget w;
  EXPECT_FALSE(w.Validate());
  ASSERT_EQ(w.Errors().Count(), 1);
  EXPECT_EQ(w.Errors()[1].Number(), ErrorNumber(1012));
  EXPECT_EQ(w.Errors()[1].Field(), "Name");
  w.Name(std::string(31, 'n'));
  EXPECT_TRUE(w.Validate());
  EXPECT_EQ(w.Errors().Count(), 0);
  w.Name(std::string(32, 'n'));
  w.Code("ABCD");
  w.failCustom = true;
  EXPECT_FALSE(w.Validate());
  EXPECT_FALSE(w.Validate());  // a second run replaces, not adds
  ASSERT_EQ(w.Errors().Count(), 3);
  EXPECT_EQ(w.Errors()[1].Description(), "Name cannot exceed 31 characters");
  EXPECT_EQ(w.Errors()[2].Field(), "Custom");
  EXPECT_EQ(w.Errors()[3].Number(), ErrorNumber(1400));
  // Lengths count characters, not bytes.
  w.Name(std::string(15, 'n') + "\xC3\xA9" + std::string(15, 'n'));
  w.Code("é");
  w.failCustom = false;
  EXPECT_TRUE(w.Validate());
  // A Clean record is valid without any test.
  Widget clean;
  clean.FromDom(Parse("<ClassRet><ListID>1</ListID></ClassRet>").DocumentElement());
  EXPECT_TRUE(clean.Validate());
}

TEST_F(ModelTest, AddAndModifyBodies) {
  Widget w;
  w.Name("Sub & Co");
  w.Parent("Top");
  w.Code("AB");
  w.Limit(*Currency::Parse("1234.5"));
  EXPECT_EQ(Body([&](xmlBldr& b) { w.XMLInsert(b); }),
            "<Name>Sub &amp; Co</Name><IsActive>true</IsActive><ParentRef><FullName>Top</FullName></ParentRef>"
            "<Code>AB</Code><Limit>1234.50</Limit>");
  CurrentSession().qbXMLVersionNumber = Currency(2);  // Limit needs 3.0
  EXPECT_EQ(Body([&](xmlBldr& b) { w.XMLInsert(b); }).find("Limit"), std::string::npos);
  CurrentSession().qbXMLVersionNumber = Currency(13);

  w.FromDom(Parse(kRet).DocumentElement());
  w.Limit(Currency());
  w.Since(Date());  // emptied by the caller: the modify request clears it
  EXPECT_EQ(Body([&](xmlBldr& b) { w.XMLModify(b); }),
            "<ListID>80000001-1</ListID><EditSequence>100</EditSequence><Name>Sub</Name><IsActive>true</IsActive>"
            "<Limit>0.00</Limit><Since></Since>");
}

TEST_F(ModelTest, CommitBatchCollectsFailuresAndRaisesAfter) {
  std::string sent;
  Scripted& p = InstallProcessor();
  p.answer = [&](const std::string& rq) {
    sent = rq;
    return std::string("<?xml version=\"1.0\" ?><QBXML><QBXMLMsgsRs>"
                       "<ClassAddRs requestID=\"1\" statusCode=\"0\" statusSeverity=\"Info\" statusMessage=\"Status OK\">"
                       "<ClassRet><ListID>L1</ListID><EditSequence>1</EditSequence><Name>First</Name>"
                       "<FullName>First</FullName></ClassRet></ClassAddRs>"
                       "<ClassAddRs requestID=\"3\" statusCode=\"3100\" statusSeverity=\"Error\" "
                       "statusMessage=\"The name &quot;Third&quot; of the list element is already in use.\"/>"
                       "<ClassAddRs requestID=\"4\" statusCode=\"3000\" statusSeverity=\"Error\" "
                       "statusMessage=\"QuickBooks error message: Invalid thing\"/>"
                       "</QBXMLMsgsRs></QBXML>");
  };
  Widgets all(true);
  all.Add("First");
  all.Add("");  // fails validation
  all.Add("Third");
  all.Add("Fourth");
  try {
    all.Commit();
    FAIL();
  } catch (const BrenvaleError& e) {
    EXPECT_EQ(e.Code(), 1023);
    EXPECT_EQ(e.Source(), "Widget");
  }
  EXPECT_NE(sent.find("<ClassAddRq requestID = \"1\"><ClassAdd><Name>First</Name>"), std::string::npos);
  EXPECT_EQ(sent.find("requestID = \"2\""), std::string::npos);
  EXPECT_NE(sent.find("<ClassAddRq requestID = \"3\">"), std::string::npos);
  ASSERT_EQ(all.Errors().Count(), 3);
  EXPECT_EQ(all.Errors()[1].Number(), ErrorNumber(1011));
  EXPECT_EQ(all.Errors()[1].Field(), "2");
  EXPECT_EQ(all.Errors()[2].Number(), ErrorNumber(1018));
  EXPECT_EQ(all.Errors()[2].Field(), "3");
  Widget& first = all.Item("First");
  EXPECT_EQ(first.ObjectState(), zqObjectStateClean);
  EXPECT_EQ(first.ListID(), "L1");
  Widget& third = all.Item("Third");
  EXPECT_EQ(third.ObjectState(), zqObjectStateNew);
  EXPECT_EQ(third.Errors()[1].Number(), ErrorNumber(1017));
  EXPECT_EQ(third.Errors()[1].Field(), "Name");
  EXPECT_EQ(all.Item("Fourth").Errors()[1].Description(), "QuickBooks: Invalid thing");
  // With the setting off, the same failures are only collected.
  CurrentSession().commitRaises = false;
  EXPECT_NO_THROW(all.Commit());
  EXPECT_EQ(all.Commit2(), 3);
}

TEST_F(ModelTest, MasterOnlyOperationsAndForeignMembers) {
  Scripted& p = InstallProcessor();
  Widgets copy(false);
  for (auto op : std::vector<std::function<void()>>{[&] { copy.Commit(); }, [&] { copy.GetActive(); },
                                                    [&] { copy.Add("x"); }}) {
    try {
      op();
      FAIL();
    } catch (const BrenvaleError& e) {
      EXPECT_EQ(e.Code(), 1021);
      EXPECT_EQ(e.Description(), "This operation is only permitted on the master collection");
    }
  }
  EXPECT_TRUE(p.requests.empty());
  Widgets master(true);
  Widget stranger;
  stranger.Name("S");
  CurrentSession().commitRaises = false;
  master.Commit(&stranger);
  ASSERT_EQ(master.Errors().Count(), 1);
  EXPECT_EQ(master.Errors()[1].Number(), ErrorNumber(1022));
  EXPECT_EQ(master.Errors()[1].Field(), "Widget");
  EXPECT_TRUE(p.requests.empty());
}

TEST_F(ModelTest, QueriesPageThroughIteratorsAndWriteTheirFilters) {
  Scripted& p = InstallProcessor();
  int served = 0;
  p.answer = [&](const std::string&) {
    int remaining = 5 - (served + 2);
    std::string rets;
    for (int i = 0; i < 2 && served < 5; ++i, ++served)
      rets += "<ClassRet><ListID>" + std::to_string(served) + "</ListID><Name>N" + std::to_string(served) +
              "</Name><FullName>N" + std::to_string(served) + "</FullName></ClassRet>";
    return "<?xml version=\"1.0\" ?><QBXML><QBXMLMsgsRs><ClassQueryRs statusCode=\"0\" statusSeverity=\"Info\" "
           "statusMessage=\"Status OK\" iteratorRemainingCount=\"" + std::to_string(std::max(remaining, 0)) +
           "\" iteratorID=\"{it}\">" + rets + "</ClassQueryRs></QBXMLMsgsRs></QBXML>";
  };
  Long saved = ListCollectionBase::IteratorPageSize;
  ListCollectionBase::IteratorPageSize = 2;
  Widgets all(true);
  EXPECT_EQ(all.GetAll(), 5);
  ListCollectionBase::IteratorPageSize = saved;
  EXPECT_EQ(all.Count(), 5);
  ASSERT_EQ(p.requests.size(), 3u);
  EXPECT_NE(p.requests[0].find("<ClassQueryRq metaData=\"NoMetaData\" iterator=\"Start\" ><MaxReturned>2"), std::string::npos);
  EXPECT_NE(p.requests[1].find("iterator=\"Continue\" iteratorID=\"{it}\" >"), std::string::npos);

  // Below qbXML 5.0 there are no iterators: one plain query with its filters.
  CurrentSession().qbXMLVersionNumber = Currency(4);
  p.requests.clear();
  served = 0;
  all.GetByNameMatch("N", qbMatchStartsWith, 10);
  ASSERT_EQ(p.requests.size(), 1u);
  EXPECT_NE(p.requests[0].find("<ClassQueryRq requestID = \"1\"><MaxReturned>10</MaxReturned><NameFilter>"
                               "<MatchCriterion>StartsWith</MatchCriterion><Name>N</Name></NameFilter></ClassQueryRq>"),
            std::string::npos);
  all.GetByNameRange("A", "M");
  EXPECT_NE(p.requests[1].find("<NameRangeFilter><FromName>A</FromName><ToName>M</ToName></NameRangeFilter>"),
            std::string::npos);
  all.GetByDateSpan(Date::Serial(2024, 1, 2), Date());
  EXPECT_NE(p.requests[2].find("<FromModifiedDate>2024-01-02T00:00:00</FromModifiedDate></ClassQueryRq>"),
            std::string::npos);
}

TEST_F(ModelTest, DeleteRemovesOrRaisesWithTheRecordsLabel) {
  Scripted& p = InstallProcessor();
  std::string status = "0";
  p.answer = [&](const std::string&) {
    return "<?xml version=\"1.0\" ?><QBXML><QBXMLMsgsRs><ListDelRs requestID=\"1\" statusCode=\"" + status +
           "\" statusSeverity=\"Error\" statusMessage=\"Object &quot;X&quot; cannot be found.\"/></QBXMLMsgsRs></QBXML>";
  };
  Widgets all(true);
  Widget& w = all.Add("Gone");
  w.FromDom(Parse("<ClassRet><ListID>L9</ListID><Name>Gone</Name></ClassRet>").DocumentElement());
  all.Delete("L9", true);
  EXPECT_NE(p.requests.back().find("<ListDelRq requestID = \"1\"><ListDelType>Class</ListDelType><ListID>L9</ListID>"),
            std::string::npos);
  EXPECT_EQ(all.Count(), 0);
  status = "3120";
  try {
    all.Delete("L0");
    FAIL();
  } catch (const BrenvaleError& e) {
    EXPECT_EQ(e.Code(), 1026);
    EXPECT_EQ(e.Source(), "Widget");
    EXPECT_EQ(e.Description(), "QuickBooks: Object \"X\" cannot be found.");
  }
}

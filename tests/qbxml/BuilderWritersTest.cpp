// The request builder's writers: element texts, the version gate, escaping, tops, envelopes,
// request wrappers, filters and the OwnerID writer.
#include <functional>

#include "QbxmlTestSupport.hpp"
#include "brenvale/qbxml/xmlBldr.hpp"
#include "brenvale/qbxml/zkBase.hpp"

namespace brenvale {
namespace {

using testing::SessionTest;
using namespace std::string_literals;

Currency V(const char* text) { return *Currency::Parse(text); }

const std::string kPlainTop =
    "<?xml version=\"1.0\" ?><!DOCTYPE QBXML PUBLIC '-//INTUIT//DTD QBXML QBD 1.0//EN' >";
const std::string kEnvelope = "<QBXMLMsgsRq onError = \"continueOnError\">";

class BuilderWriters : public SessionTest {
 protected:
  // The text one call writes into an empty builder.
  static std::string Written(const std::function<void(xmlBldr&)>& write) {
    xmlBldr b;
    write(b);
    return b.GetXML();
  }
};

TEST_F(BuilderWriters, ElementTextsAreExact) {
  SetVersion("13.0");
  struct Case {
    const char* what;
    std::function<void(xmlBldr&)> write;
    std::string expected;
  };
  const Case cases[] = {
      {"element", [](xmlBldr& b) { b.CreateElement("Name", "Acme"); }, "<Name>Acme</Name>"},
      {"empty element", [](xmlBldr& b) { b.CreateElement("Fax", ""); }, "<Fax></Fax>"},
      {"element2", [](xmlBldr& b) { b.CreateElement2("Fax", "555", false, Currency()); }, "<Fax>555</Fax>"},
      {"element2 empty", [](xmlBldr& b) { b.CreateElement2("Fax", "", false, Currency()); }, ""},
      {"element2 forced", [](xmlBldr& b) { b.CreateElement2("Fax", "", true, Currency()); }, "<Fax></Fax>"},
      {"date", [](xmlBldr& b) { b.CreateDateElement("TxnDate", Date::Serial(2012, 5, 1)); },
       "<TxnDate>2012-05-01</TxnDate>"},
      {"date with time drops it", [](xmlBldr& b) { b.CreateDateElement("TxnDate", Date::FromParts(2012, 5, 1, 9, 30)); },
       "<TxnDate>2012-05-01</TxnDate>"},
      {"null date", [](xmlBldr& b) { b.CreateDateElement("TxnDate", Date::Null()); }, ""},
      {"blank tag", [](xmlBldr& b) { b.CreateBlankTag("ListID"); }, "<ListID/>"},
      {"aggregate", [](xmlBldr& b) { b.OpenAggregate("CustomerQueryRq", "requestID", "1"); },
       "<CustomerQueryRq requestID = \"1\">"},
      {"aggregate escapes its value", [](xmlBldr& b) { b.OpenAggregate("X", "a", "<\"1\">"); },
       "<X a = \"&lt;&quot;1&quot;&gt;\">"},
      {"aggregate only", [](xmlBldr& b) { b.OpenAggregateOnly("ListFilter"); }, "<ListFilter>"},
      {"iterator start",
       [](xmlBldr& b) { b.OpenAggregateOnly("CustomerQueryRq", "NoMetaData", "Start"); },
       "<CustomerQueryRq metaData=\"NoMetaData\" iterator=\"Start\" >"},
      {"iterator continue",
       [](xmlBldr& b) { b.OpenAggregateOnly("CustomerQueryRq", "NoMetaData", "Continue", "{1-2}"); },
       "<CustomerQueryRq metaData=\"NoMetaData\" iterator=\"Continue\" iteratorID=\"{1-2}\" >"},
      {"iterator values not escaped", [](xmlBldr& b) { b.OpenAggregateOnly("Q", "M&", "I<"); },
       "<Q metaData=\"M&\" iterator=\"I<\" >"},
      {"unnamed end closes last opened",
       [](xmlBldr& b) {
         b.OpenAggregateOnly("ListFilter");
         b.EndAggregate();
       },
       "<ListFilter></ListFilter>"},
      {"unnamed end remembers one name only",
       [](xmlBldr& b) {
         b.OpenAggregateOnly("Outer");
         b.OpenAggregate("Inner", "a", "1");
         b.EndAggregate();
         b.EndAggregate();
       },
       "<Outer><Inner a = \"1\"></Inner></Inner>"},
      {"named end", [](xmlBldr& b) { b.EndAggregate("QBXML"); }, "</QBXML>"},
      {"value only", [](xmlBldr& b) { b.EnterValueOnly("a<b"); }, "a&lt;b"},
      {"raw", [](xmlBldr& b) { EXPECT_EQ(b.InsertRawXML("<a>&amp;@</a>"), ""); }, "<a>&amp;@</a>"},
      {"report top", [](xmlBldr& b) { b.CreateRptTop(); }, "<?xml version=\"1.0\" ?>"},
  };
  for (const Case& c : cases) EXPECT_EQ(Written(c.write), c.expected) << c.what;
}

TEST_F(BuilderWriters, VersionGateDropsNewerElementsSilently) {
  SetVersion("2.0");
  EXPECT_EQ(Written([](xmlBldr& b) {
              b.CreateElement("New", "x", V("3.0"));
              b.CreateElement("Same", "x", V("2.0"));
              b.CreateElement("Old", "x", V("1.1"));
              b.CreateElement("Ungated", "x");
              b.CreateElement2("New2", "x", true, V("2.1"));
              b.CreateElement2("Same2", "", true, V("2.0"));
              b.CreateDateElement("NewDate", Date::Serial(2020, 1, 2), V("3.0"));
              b.CreateDateElement("SameDate", Date::Serial(2020, 1, 2), V("2.0"));
            }),
            "<Same>x</Same><Old>x</Old><Ungated>x</Ungated><Same2></Same2><SameDate>2020-01-02</SameDate>");

  SetVersion("CA3.0");  // the Canadian texts gate by their number
  EXPECT_EQ(Written([](xmlBldr& b) {
              b.CreateElement("A", "x", V("3.0"));
              b.CreateElement("B", "x", V("3.0001"));
            }),
            "<A>x</A>");

  SetVersion("");  // before connecting every gated element is left out
  EXPECT_EQ(Written([](xmlBldr& b) {
              b.CreateElement("A", "x", V("1.0"));
              b.CreateElement("B", "x");
            }),
            "<B>x</B>");
}

TEST_F(BuilderWriters, EscapesInTheDefinedOrderWithWindows1252Codes) {
  const std::pair<std::string, std::string> cases[] = {
      {"A&B <C>", "A&amp;B &lt;C&gt;"},
      {"x@y", "x&#64;y"},
      {"\"q\" 'a'", "&quot;q&quot; &apos;a&apos;"},
      {"&amp;", "&amp;amp;"},                      // & first: an entity in the value is text
      {"wait\u2026", "wait&#133;"},                // ellipsis: its Windows-1252 code, not U+2026
      {"caf\u00e9", "caf&#233;"},                  // é
      {"\u20ac5", "&#128;5"},                      // euro sign
      {"\u2122\u0152\u017e\u0178", "&#153;&#140;&#158;&#159;"},
      {"\u00a0\u00ff", "&#160;&#255;"},
      {"\u0081\u009d", "&#129;&#157;"},            // undefined codes map the character of that number
      // Outside the code page: references to the code point (QuickBooks stores them as "?"); the C1
      // controls the code page lacks cannot be told from Windows-1252 codes, and are written as "?".
      {"\u4e2d\u6587 \u0394 \U0001F600", "&#20013;&#25991; &#916; &#128512;"},
      {"\u0100\uFFFD", "&#256;&#65533;"},
      {"\u0080\u0085x", "??x"},
      {"a\xe9z", "a&#233;z"},                      // a stray byte counts as its Windows-1252 code
      {"\xC0\xAF", "&#192;&#175;"},                 // so do the bytes of an overlong form
      {"plain text 123", "plain text 123"},
      {"", ""},
  };
  for (const auto& [in, out] : cases) EXPECT_EQ(EscapeXmlText(in), out) << in;

  xmlBldr b;
  b.CreateElement("Memo", "A&B <C>");
  b.CreateElement("Email", "x@y");
  EXPECT_EQ(b.GetXML(), "<Memo>A&amp;B &lt;C&gt;</Memo><Email>x&#64;y</Email>");

  // Whatever the text, what is written is plain ASCII: well-formed under the ISO-8859-1 declaration.
  for (const auto& [in, out] : cases)
    for (unsigned char c : EscapeXmlText(in)) EXPECT_LT(c, 0x80) << in;
}

TEST_F(BuilderWriters, TopsFollowTheSessionVersion) {
  const std::string iso = "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>";
  const std::string head = "<!DOCTYPE QBXML PUBLIC '-//INTUIT//DTD QBXML QBD ";
  struct Case {
    const char* version;
    bool online;
    std::string expected;
  };
  const Case cases[] = {
      {"", false, kPlainTop},
      {"1.0", false, kPlainTop},
      {"1.1", false, iso + head + "1.1//EN' >"},
      {"11.0", false, iso + "<!DOCTYPE QBXML PUBLIC '-//INTUIT//DTD QBXML QBD 11.0//EN' >"},
      {"CA3.0", false, iso + "<!DOCTYPE QBXML PUBLIC '-//INTUIT//DTD QBXML QBD CA3.0//EN' >"},
      {"13.0", false, iso + head + "13.0//EN' >"},
      {"2.0", true, ""},  // online: put in at send time, not by the builder
      {"", true, kPlainTop},
  };
  for (const Case& c : cases) {
    SetVersion(c.version, c.online);
    EXPECT_EQ(Written([](xmlBldr& b) { b.CreateTop(); }), c.expected) << c.version << " online=" << c.online;
  }
}

TEST_F(BuilderWriters, NewDocumentsStartWithTheirEnvelopes) {
  SetVersion("7.0");
  const std::string top =
      "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><!DOCTYPE QBXML PUBLIC '-//INTUIT//DTD QBXML QBD 7.0//EN' >";
  xmlBldr b;
  b.CreateElement("Left", "over");
  b.NewClear();
  EXPECT_EQ(b.GetXML(), top + "<QBXML>" + kEnvelope);
  b.NewClearSubscriptions();
  EXPECT_EQ(b.GetXML(), top + "<QBXML><QBXMLSubscriptionMsgsRq>");
  b.IOClear();
  EXPECT_EQ(b.GetXML(), "<Brenvale>" + kEnvelope);
  b.Clear();
  EXPECT_EQ(b.GetXML(), "");
}

TEST_F(BuilderWriters, DocumentsWithoutClearRunTogether) {
  xmlBldr b;
  b.CreateElement("A", "1");
  EXPECT_EQ(b.GetXML(), "<A>1</A>");
  b.CreateElement("B", "2");
  EXPECT_EQ(b.GetXML(), "<A>1</A><B>2</B>");
  EXPECT_EQ(b.GetXML(), "<A>1</A><B>2</B>");  // joining twice changes nothing
}

// A record that writes one marker element per body kind.
class FakeRecord : public zkBase {
 public:
  explicit FakeRecord(zqEnumListObjectType type) : type_(type) {}
  Long XMLInsert(xmlBldr& b) override {
    b.CreateElement("Name", "inserted");
    return 0;
  }
  Long XMLQueryRs(xmlBldr& b) override {
    b.CreateElement("ListID", "80000001-1");
    return 0;
  }
  Long XMLModify(xmlBldr& b) override {
    b.CreateElement("EditSequence", "42");
    return 0;
  }
  zqEnumListObjectType ObjectType() const override { return type_; }
  Long FromDom(const DomNode&) override { return 0; }

 private:
  zqEnumListObjectType type_;
};

TEST_F(BuilderWriters, RequestWrappersUseTheRecordsQbxmlName) {
  FakeRecord jobType(zqObjectTypeJobType), customerMsg(zqObjectTypeCustomerMsg), invoice(zqObjectTypeInvoice);
  EXPECT_EQ(Written([&](xmlBldr& b) { b.InsertAddRq(jobType, 3); }),
            "<JobTypeAddRq requestID = \"3\"><JobTypeAdd><Name>inserted</Name></JobTypeAdd></JobTypeAddRq>");
  EXPECT_EQ(Written([&](xmlBldr& b) { b.InsertModRq(customerMsg, 12); }),
            "<CustomerMsgModRq requestID = \"12\"><CustomerMsgMod><EditSequence>42</EditSequence>"
            "</CustomerMsgMod></CustomerMsgModRq>");
  EXPECT_EQ(Written([&](xmlBldr& b) { b.InsertQueryRs(invoice, 1); }),
            "<InvoiceQueryRs requestID = \"1\"><InvoiceRet><ListID>80000001-1</ListID></InvoiceRet></InvoiceQueryRs>");
}

TEST_F(BuilderWriters, NameFiltersWriteOneOrAllNames) {
  const std::vector<std::string> names = {"Bank", "Savings", "Petty Cash"};
  EXPECT_EQ(Written([&](xmlBldr& b) { EXPECT_FALSE(b.InsertAccountFilter(names, true).has_value()); }),
            "<AccountFilter><FullNameWithChildren>Bank</FullNameWithChildren></AccountFilter>");
  EXPECT_EQ(Written([&](xmlBldr& b) { b.InsertAccountFilter(names, false); }),
            "<AccountFilter><FullName>Bank</FullName><FullName>Savings</FullName>"
            "<FullName>Petty Cash</FullName></AccountFilter>");
  EXPECT_EQ(Written([&](xmlBldr& b) { b.InsertEntityFilter({"A&B"}, false); }),
            "<EntityFilter><FullName>A&amp;B</FullName></EntityFilter>");
  EXPECT_EQ(Written([&](xmlBldr& b) { b.InsertEntityFilter({}, true); }), "<EntityFilter></EntityFilter>");
}

TEST_F(BuilderWriters, DateFilterForms) {
  const Date from = Date::FromParts(2012, 5, 1, 8, 5, 9);
  const Date to = Date::Serial(2012, 6, 30);
  SetVersion("2.0");
  EXPECT_EQ(Written([&](xmlBldr& b) { EXPECT_EQ(b.InsertDateFilter("Modified", from, to), 0); }),
            "<ModifiedDateRangeFilter><FromModifiedDate>2012-05-01T08:05:09</FromModifiedDate>"
            "<ToModifiedDate>2012-06-30T00:00:00</ToModifiedDate></ModifiedDateRangeFilter>");
  EXPECT_EQ(Written([&](xmlBldr& b) { b.InsertDateFilter("TransactionModified", from); }),
            "<TransactionModifiedDateRangeFilter><FromModifiedDate>2012-05-01T08:05:09</FromModifiedDate>"
            "</TransactionModifiedDateRangeFilter>");
  EXPECT_EQ(Written([&](xmlBldr& b) { b.InsertDateFilter("Txn", from, to); }),
            "<TxnDateRangeFilter><FromTxnDate>2012-05-01</FromTxnDate><ToTxnDate>2012-06-30</ToTxnDate>"
            "</TxnDateRangeFilter>");
  EXPECT_EQ(Written([&](xmlBldr& b) { b.InsertDateFilter("", Date::Null(), to); }),
            "<DateRangeFilter><ToDate>2012-06-30</ToDate></DateRangeFilter>");
  EXPECT_EQ(Written([&](xmlBldr& b) { b.InsertDateFilter("Txn", Date::Null(), Date::Null(), qbDateMacroThisWeekToDate); }),
            "<TxnDateRangeFilter><DateMacro>ThisWeekToDate</DateMacro></TxnDateRangeFilter>");
  EXPECT_EQ(Written([&](xmlBldr& b) { b.InsertDateFilter("Txn", from, Date::Null(), qbDateMacroLastFiscalYear); }),
            "<TxnDateRangeFilter><FromTxnDate>2012-05-01</FromTxnDate><DateMacro>LastFiscalYear</DateMacro>"
            "</TxnDateRangeFilter>");

  SetVersion("1.1");  // below 2.0 the modified dates lose their time
  EXPECT_EQ(Written([&](xmlBldr& b) { b.InsertDateFilter("Modified", from); }),
            "<ModifiedDateRangeFilter><FromModifiedDate>2012-05-01</FromModifiedDate></ModifiedDateRangeFilter>");
}

TEST_F(BuilderWriters, OwnerIdElements) {
  auto owner = [](bool bAdd) {
    return Written([bAdd](xmlBldr& b) { b.AddDataExtTag(bAdd, zqObjectTypeCustomer); });
  };
  SetVersion("1.1");
  EXPECT_EQ(owner(true), "");
  SetVersion("2.0");
  EXPECT_EQ(owner(true), "<OwnerID>0</OwnerID>");
  EXPECT_EQ(owner(false), "");

  Session& s = CurrentSession();
  s.dataExtOwnerID = "{6B063959-81B0-4622-85D6-F548C8CCB517}";
  EXPECT_EQ(owner(true), "<OwnerID>0</OwnerID>");  // no assignment hook: no second OwnerID
  std::vector<int> asked;
  s.dataExtAssignedTo = [&asked](int type) {
    asked.push_back(type);
    return type == zqObjectTypeCustomer;
  };
  EXPECT_EQ(owner(true), "<OwnerID>0</OwnerID><OwnerID>{6B063959-81B0-4622-85D6-F548C8CCB517}</OwnerID>");
  EXPECT_EQ(owner(false), "<OwnerID>{6B063959-81B0-4622-85D6-F548C8CCB517}</OwnerID>");
  EXPECT_EQ(asked, (std::vector<int>{zqObjectTypeCustomer, zqObjectTypeCustomer}));
  EXPECT_EQ(Written([](xmlBldr& b) { b.AddDataExtTag(true, zqObjectTypeVendor); }), "<OwnerID>0</OwnerID>");
}

}  // namespace
}  // namespace brenvale

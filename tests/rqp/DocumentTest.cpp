// Request documents: what the library writes is taken, what QuickBooks refuses is refused, and bad
// input never crashes the engine nor leaves anything behind.
#include "rqp/EngineHarness.hpp"

namespace rqptest {
namespace hr = brenvale::rqp::hresult;

using DocumentTest = EngineTest;

TEST_F(DocumentTest, TakesTheLibrarysWritingHabits) {
  // Blanks around "=", a DOCTYPE with a public identifier only, an ISO-8859-1 declaration over UTF-8
  // text, character references for "@" and Windows-1252 codes, booleans in any case.
  Status s = One("<JobTypeAddRq requestID = \"1\"><JobTypeAdd><Name>R&#64;pair &#128; caf\xC3\xA9</Name>"
                 "<IsActive>False</IsActive></JobTypeAdd></JobTypeAddRq>");
  ASSERT_EQ(s.code, 0) << s.message;
  // "&#128;" comes back as Windows-1252 code 128 (a plain parser reads U+0080; the library maps it to the euro).
  EXPECT_EQ(Text(s.node, "JobTypeRet/Name"), "R@pair \xC2\x80 caf\xC3\xA9");
  EXPECT_EQ(Text(s.node, "JobTypeRet/IsActive"), "false");
  std::string raw = Raw("<JobTypeQueryRq requestID=\"2\"><FullName>r@pair &#8364; CAF&#201;</FullName></JobTypeQueryRq>");
  // Responses carry characters above 127 as references to their Windows-1252 codes.
  EXPECT_NE(raw.find("<Name>R@pair &#128; caf&#233;</Name>"), std::string::npos) << raw;
  EXPECT_EQ(raw.rfind("<?xml version=\"1.0\" ?>", 0), 0u);
  EXPECT_NE(raw.find("<JobTypeQueryRs requestID=\"2\" statusCode=\"0\" statusSeverity=\"Info\" statusMessage=\"Status OK\">"),
            std::string::npos);

  // A qbxml processing instruction instead of the DOCTYPE; elements in the library's own order.
  std::string text = "<?xml version=\"1.0\"?><?qbxml version=\"13.0\"?><QBXML><QBXMLMsgsRq onError=\"stopOnError\">"
                     "<ClassAddRq><ClassAdd><IsActive>1</IsActive><Name>Ordered</Name></ClassAdd></ClassAddRq>"
                     "</QBXMLMsgsRq></QBXML>";
  std::string r = engine_->ProcessRequest(ticket_, text);
  EXPECT_NE(r.find("<Name>Ordered</Name><FullName>Ordered</FullName><IsActive>true</IsActive>"), std::string::npos) << r;
  EXPECT_EQ(SchemaErrors(r), "");
}

TEST_F(DocumentTest, DocumentsQuickBooksCannotParseRaiseTheParseError) {
  const std::string good = "<ClassAddRq><ClassAdd><Name>Never</Name></ClassAdd></ClassAddRq>";
  const std::vector<std::string> bad = {
      "<QBXML><QBXMLMsgsRq onError=\"stopOnError\"><ClassAddRq>",                  // not well-formed
      Message(good + "<NoSuchThingRq/>"),                                            // unknown request
      Message(good + "<ClassAddRq><ClassAdd><Name>X</Name><Color>red</Color></ClassAdd></ClassAddRq>"),  // unknown element
      Message(good + "<ClassAddRq><ClassAdd><IsActive>true</IsActive></ClassAdd></ClassAddRq>"),  // required missing
      Message(good + "<ClassAddRq><ClassAdd><Name>A</Name><Name>B</Name></ClassAdd></ClassAddRq>"),  // twice
      Message(good + "<ClassQueryRq><ListID>1-1</ListID><FullName>A</FullName></ClassQueryRq>"),   // two branches
      Message(good + "<ClassQueryRq iterator=\"Start\"/>"),                          // no iterators for classes
      Message(good + "<ClassQueryRq metaData=\"Everything\"/>"),                     // bad attribute value
      Message(good + "<ClassAddRq><ClassAdd>text<Name>X</Name></ClassAdd></ClassAddRq>"),
      Message(good, "sometimesOnError"),
      "<?xml version=\"1.0\"?><QBXML><QBXMLMsgsRq>" + good + "</QBXMLMsgsRq></QBXML>",  // no onError
      "<?xml version=\"1.0\"?><Other/>",
      "",
  };
  for (auto& text : bad) {
    BrenvaleError e = Failure(text);
    EXPECT_EQ(e.Number(), hr::kParseError) << text;
    EXPECT_EQ(e.Description().rfind("QuickBooks found an error when parsing the provided XML text stream.", 0), 0u);
  }
  // Nothing of a refused document was applied, and the engine goes on answering.
  EXPECT_EQ(One("<ClassQueryRq><FullName>Never</FullName></ClassQueryRq>").code, 500);
}

TEST_F(DocumentTest, BadValuesAreTheRequestsStatus) {
  struct Case {
    std::string request;
    int code;
  };
  const std::vector<Case> cases = {
      {"<ClassAddRq><ClassAdd><Name>" + std::string(32, 'x') + "</Name></ClassAdd></ClassAddRq>", 3070},
      {"<ClassAddRq><ClassAdd><Name>Yes</Name><IsActive>maybe</IsActive></ClassAdd></ClassAddRq>", 3030},
      {"<CustomerAddRq><CustomerAdd><Name>D</Name><JobStartDate>2024-02-30</JobStartDate></CustomerAdd></CustomerAddRq>", 3020},
      {"<CustomerAddRq><CustomerAdd><Name>A</Name><CreditLimit>lots</CreditLimit></CustomerAdd></CustomerAddRq>", 3040},
      {"<CustomerAddRq><CustomerAdd><Name>E</Name><JobStatus>Dreaming</JobStatus></CustomerAdd></CustomerAddRq>", 3210},
      {"<DateDrivenTermsAddRq><DateDrivenTermsAdd><Name>T</Name><DayOfMonthDue>32</DayOfMonthDue></DateDrivenTermsAdd>"
       "</DateDrivenTermsAddRq>", 3210},
      {"<ClassQueryRq><ListID>zz</ListID></ClassQueryRq>", 3000},
      {"<ClassAddRq><ClassAdd><Name></Name></ClassAdd></ClassAddRq>", 3180},
      {"<ClassAddRq><ClassAdd><Name>a:b</Name></ClassAdd></ClassAddRq>", 3180},
  };
  std::string all;
  for (auto& c : cases) all += c.request;
  all += "<ClassAddRq requestID=\"last\"><ClassAdd><Name>Fine</Name></ClassAdd></ClassAddRq>";
  auto statuses = Send(all);
  ASSERT_EQ(statuses.size(), cases.size() + 1);
  for (std::size_t i = 0; i < cases.size(); ++i) {
    EXPECT_EQ(statuses[i].code, cases[i].code) << cases[i].request << " -> " << statuses[i].message;
    EXPECT_EQ(statuses[i].severity, "Error");
    EXPECT_FALSE(statuses[i].node.first_child()) << "a failed request returns no record";
  }
  EXPECT_EQ(statuses.back().code, 0);
  EXPECT_EQ(std::string(statuses.back().node.attribute("requestID").value()), "last");
  EXPECT_EQ(statuses[0].message, "The string \"" + std::string(32, 'x') + "\" in the field \"Name\" is too long.");
}

TEST_F(DocumentTest, OnErrorDecidesWhetherLaterRequestsRun) {
  const std::string requests =
      "<ClassAddRq requestID=\"1\"><ClassAdd><Name>One</Name></ClassAdd></ClassAddRq>"
      "<ClassAddRq requestID=\"2\"><ClassAdd><Name>one</Name></ClassAdd></ClassAddRq>"
      "<ClassAddRq requestID=\"3\"><ClassAdd><Name>Three</Name></ClassAdd></ClassAddRq>";
  auto stopped = Send(requests, "stopOnError");
  ASSERT_EQ(stopped.size(), 2u);
  EXPECT_EQ(stopped[1].code, 3100);
  EXPECT_EQ(stopped[1].message, "The name \"one\" of the list element is already in use.");
  EXPECT_EQ(One("<ClassQueryRq><FullName>Three</FullName></ClassQueryRq>").code, 500);

  auto continued = Send("<ClassAddRq requestID=\"2\"><ClassAdd><Name>ONE</Name></ClassAdd></ClassAddRq>"
                        "<ClassAddRq requestID=\"3\"><ClassAdd><Name>Three</Name></ClassAdd></ClassAddRq>");
  ASSERT_EQ(continued.size(), 2u);
  EXPECT_EQ(continued[0].code, 3100);
  EXPECT_EQ(continued[1].code, 0);
}

TEST_F(DocumentTest, FailedRequestsLeaveNothingBehind) {
  pugi::xml_node a = Add("Class", "<Name>A</Name>");
  std::string aId = Text(a, "ListID"), aSeq = Text(a, "EditSequence");
  Add("Class", "<Name>X</Name><ParentRef><FullName>A</FullName></ParentRef>");
  Add("Class", "<Name>B</Name>");
  auto mod = [&](const std::string& body) {
    return One("<ClassModRq><ClassMod><ListID>" + aId + "</ListID><EditSequence>" + aSeq + "</EditSequence>" + body +
               "</ClassMod></ClassModRq>");
  };
  EXPECT_EQ(mod("<Name>b</Name>").code, 3100);
  EXPECT_EQ(mod("<Name>Renamed</Name><ParentRef><FullName>Nowhere</FullName></ParentRef>").code, 3140);
  EXPECT_EQ(mod("<ParentRef><FullName>A:X</FullName></ParentRef>").code, 3170);  // under its own child
  Status a2 = One("<ClassQueryRq><ListID>" + aId + "</ListID></ClassQueryRq>");
  EXPECT_EQ(Text(a2.node, "ClassRet/FullName"), "A");
  EXPECT_EQ(Text(a2.node, "ClassRet/EditSequence"), aSeq);
  EXPECT_EQ(One("<ClassQueryRq><FullName>A:X</FullName></ClassQueryRq>").code, 0);
  // Failed adds take no ListID: the next record gets the number after the last one stored.
  pugi::xml_node c = Add("Class", "<Name>C</Name>");
  auto number = [](const std::string& id) { return std::stoul(id.substr(0, id.find('-')), nullptr, 16); };
  EXPECT_EQ(number(Text(c, "ListID")), number(aId) + 3);
}

TEST_F(DocumentTest, UnansweredRequestsAreRefusedNotIgnored) {
  Status s = One("<ListDelRq><ListDelType>Vehicle</ListDelType><ListID>1-1</ListID></ListDelRq>");
  EXPECT_EQ(s.code, 3120);
  EXPECT_EQ(s.severity, "Error");
}

}  // namespace rqptest

namespace rqptest {
TEST(SchemaCheck, RefusesAnInvalidDocument) {
  if (!QbxmlSchema()) GTEST_SKIP() << "qbXML schema folder absent";
  std::string out = "<?xml version=\"1.0\"?><QBXML><QBXMLMsgsRs><ClassQueryRs statusCode=\"0\" statusSeverity=\"Info\">"
                    "<ClassRet><Name>x</Name><ListID>1-1</ListID></ClassRet></ClassQueryRs></QBXMLMsgsRs></QBXML>";
  EXPECT_NE(SchemaErrors(out), "");
}
}  // namespace rqptest

// Request documents: what the library writes is taken, what QuickBooks refuses is refused (the whole
// document for what its parser refuses, the request for a bad value), the request's qbXML version
// decides its elements, characters are what QuickBooks can store, and bad input never crashes the
// engine, leaves anything behind or makes it write a response that is not XML.
#include "rqp/EngineHarness.hpp"

namespace rqptest {
namespace hr = brenvale::rqp::hresult;

using DocumentTest = EngineTest;

const std::string kParseFailure = "QuickBooks found an error when parsing the provided XML text stream.";

TEST_F(DocumentTest, TakesTheLibrarysWritingHabits) {
  // Blanks around "=", a DOCTYPE with a public identifier only, an ISO-8859-1 declaration, character
  // references for "@" and for Windows-1252 codes, booleans in any case.
  Status s = One("<JobTypeAddRq requestID = \"1\"><JobTypeAdd><Name>R&#64;pair &#128; caf&#233;</Name>"
                 "<IsActive>False</IsActive></JobTypeAdd></JobTypeAddRq>");
  ASSERT_EQ(s.code, 0) << s.message;
  EXPECT_EQ(Text(s.node, "JobTypeRet/IsActive"), "false");
  // "&#128;" is the euro sign (Windows-1252 code 128), found by its Unicode reference too.
  std::string raw = Raw("<JobTypeQueryRq requestID=\"2\"><FullName>r@pair &#8364; CAF&#201;</FullName></JobTypeQueryRq>");
  EXPECT_NE(raw.find("<Name>R@pair &#128; caf&#233;</Name>"), std::string::npos) << raw;
  EXPECT_EQ(raw.rfind("<?xml version=\"1.0\" ?>", 0), 0u);
  EXPECT_NE(raw.find("<JobTypeQueryRs requestID=\"2\" statusCode=\"0\" statusSeverity=\"Info\" statusMessage=\"Status OK\">"),
            std::string::npos);

  // A qbxml processing instruction instead of the DOCTYPE.
  std::string r = Document("<?xml version=\"1.0\"?><?qbxml version=\"13.0\"?><QBXML><QBXMLMsgsRq onError=\"stopOnError\">"
                           "<ClassAddRq><ClassAdd><Name>Ordered</Name><IsActive>1</IsActive></ClassAdd></ClassAddRq>"
                           "</QBXMLMsgsRq></QBXML>");
  EXPECT_NE(r.find("<Name>Ordered</Name><FullName>Ordered</FullName><IsActive>true</IsActive>"), std::string::npos) << r;

  // Request IDs come back as they were sent, escaped; QuickBooks takes up to 50 characters.
  const std::string id50(50, 'x');
  EXPECT_EQ(std::string(One("<HostQueryRq requestID=\"" + id50 + "\"/>").node.attribute("requestID").value()), id50);
  Status odd = One("<HostQueryRq requestID=\"&lt;a&amp;&quot;b&apos; &#20013;\"/>");
  EXPECT_EQ(std::string(odd.node.attribute("requestID").value()), "<a&\"b' \xE4\xB8\xAD");
}

TEST_F(DocumentTest, DocumentsQuickBooksCannotParseRaiseTheParseError) {
  const std::string good = "<ClassAddRq><ClassAdd><Name>Never</Name></ClassAdd></ClassAddRq>";
  const std::string prolog = "<?xml version=\"1.0\" encoding=\"UTF-8\"?><QBXML><QBXMLMsgsRq onError=\"stopOnError\">" + good;
  const std::string epilog = "</QBXMLMsgsRq></QBXML>";
  struct Case {
    std::string why, text;
  };
  const std::vector<Case> cases = {
      {"not well-formed", "<QBXML><QBXMLMsgsRq onError=\"stopOnError\"><ClassAddRq>"},
      {"unknown request", Message(good + "<NoSuchThingRq/>")},
      {"unknown element", Message(good + "<ClassAddRq><ClassAdd><Name>X</Name><Color>red</Color></ClassAdd></ClassAddRq>")},
      {"required element missing", Message(good + "<ClassAddRq><ClassAdd><IsActive>true</IsActive></ClassAdd></ClassAddRq>")},
      {"twice", Message(good + "<ClassAddRq><ClassAdd><Name>A</Name><Name>B</Name></ClassAdd></ClassAddRq>")},
      {"two branches", Message(good + "<ClassQueryRq><ListID>1-1</ListID><FullName>A</FullName></ClassQueryRq>")},
      {"out of order", Message(good + "<CustomerAddRq><CustomerAdd><FirstName>Al</FirstName><Name>Al</Name>"
                                      "</CustomerAdd></CustomerAddRq>")},
      {"filter before MaxReturned", Message(good + "<CustomerQueryRq><NameFilter><MatchCriterion>StartsWith</MatchCriterion>"
                                                   "<Name>A</Name></NameFilter><MaxReturned>5</MaxReturned></CustomerQueryRq>")},
      {"IncludeRetElement first", Message(good + "<ClassAddRq><IncludeRetElement>Name</IncludeRetElement><ClassAdd>"
                                                 "<Name>X</Name></ClassAdd></ClassAddRq>")},
      {"out of order deep down", Message(good + "<CustomerAddRq><CustomerAdd><Name>B</Name><BillAddress><City>C</City>"
                                                "<Addr1>1</Addr1></BillAddress></CustomerAdd></CustomerAddRq>")},
      {"no iterators for classes", Message(good + "<ClassQueryRq iterator=\"Start\"/>")},
      {"bad attribute value", Message(good + "<ClassQueryRq metaData=\"Everything\"/>")},
      {"requestID of 51 characters", Message(good + "<HostQueryRq requestID=\"" + std::string(51, 'x') + "\"/>")},
      {"text in an aggregate", Message(good + "<ClassAddRq><ClassAdd>text<Name>X</Name></ClassAdd></ClassAddRq>")},
      {"an element of 12.0 in 11.0", Message(good + "<CustomerAddRq><CustomerAdd><Name>P</Name><PreferredDeliveryMethod>"
                                                    "Email</PreferredDeliveryMethod></CustomerAdd></CustomerAddRq>",
                                             "stopOnError", "11.0")},
      {"a request of 8.0 in 7.0", Message(good + "<CurrencyQueryRq/>", "stopOnError", "7.0")},
      {"bad onError", Message(good, "sometimesOnError")},
      {"no onError", "<?xml version=\"1.0\"?><QBXML><QBXMLMsgsRq>" + good + epilog},
      {"unknown version", "<?xml version=\"1.0\"?><?qbxml version=\"99.0\"?><QBXML><QBXMLMsgsRq onError=\"stopOnError\">" +
                              good + epilog},
      {"other document element", "<?xml version=\"1.0\"?><Other/>"},
      {"empty", ""},
      {"encoding nobody supports", "<?xml version=\"1.0\" encoding=\"EBCDIC-US\"?><QBXML/>"},
      // Characters XML does not allow, however they come, and references to them.
      {"raw control character", prolog + "<ClassAddRq><ClassAdd><Name>a\x01" "b</Name></ClassAdd></ClassAddRq>" + epilog},
      {"reference to NUL", prolog + "<ClassAddRq><ClassAdd><Name>a&#0;b</Name></ClassAdd></ClassAddRq>" + epilog},
      {"hex reference to a control", prolog + "<ClassAddRq><ClassAdd><Name>a&#x1F;b</Name></ClassAdd></ClassAddRq>" + epilog},
      {"reference to a surrogate", prolog + "<ClassAddRq><ClassAdd><Name>&#55296;</Name></ClassAdd></ClassAddRq>" + epilog},
      {"reference beyond Unicode", prolog + "<ClassAddRq><ClassAdd><Name>&#1114112;</Name></ClassAdd></ClassAddRq>" + epilog},
      {"huge reference", prolog + "<ClassAddRq><ClassAdd><Name>&#99999999999;</Name></ClassAdd></ClassAddRq>" + epilog},
      {"reference in a requestID", prolog + "<ClassAddRq requestID=\"a&#1;b\"><ClassAdd><Name>Id</Name></ClassAdd>"
                                            "</ClassAddRq>" + epilog},
      {"bare ampersand", prolog + "<ClassAddRq><ClassAdd><Name>a & b</Name></ClassAdd></ClassAddRq>" + epilog},
      {"undefined entity", prolog + "<ClassAddRq><ClassAdd><Name>&eacute;</Name></ClassAdd></ClassAddRq>" + epilog},
      {"overlong UTF-8 slash", prolog + "<ClassAddRq><ClassAdd><Name>a\xC0\xAF</Name></ClassAdd></ClassAddRq>" + epilog},
      {"UTF-8 surrogate", prolog + "<ClassAddRq><ClassAdd><Name>\xED\xA0\x80</Name></ClassAdd></ClassAddRq>" + epilog},
      {"UTF-8 beyond Unicode", prolog + "<ClassAddRq><ClassAdd><Name>\xF4\x90\x80\x80</Name></ClassAdd></ClassAddRq>" + epilog},
      {"truncated UTF-8", prolog + "<ClassAddRq><ClassAdd><Name>\xE4\xB8</Name></ClassAdd></ClassAddRq>" + epilog},
  };
  for (auto& c : cases) {
    BrenvaleError e = Failure(c.text);
    EXPECT_EQ(e.Number(), hr::kParseError) << c.why;
    EXPECT_EQ(e.Description().rfind(kParseFailure, 0), 0u) << c.why << ": " << e.Description();
  }
  // Nothing of a refused document was applied, and the engine goes on answering.
  EXPECT_EQ(One("<ClassQueryRq><FullName>Never</FullName></ClassQueryRq>").code, 500);
  // The parser's reason names what it refused.
  EXPECT_NE(Failure(cases[6].text).Description().find("\"FirstName\""), std::string::npos);
  EXPECT_NE(Failure(cases[14].text).Description().find("\"PreferredDeliveryMethod\""), std::string::npos);
}

TEST_F(DocumentTest, TheHostMayRelaxTheOrderForItsOwnExperiments) {
  const std::string outOfOrder = "<CustomerAddRq><CustomerAdd><FirstName>Al</FirstName><Name>Relaxed</Name><BillAddress>"
                                 "<City>C</City><Addr1>1</Addr1></BillAddress></CustomerAdd></CustomerAddRq>";
  EXPECT_EQ(Failure(Message(outOfOrder)).Number(), hr::kParseError);
  engine_->CloseConnection();
  brenvale::rqp::HostFacts relaxed;
  relaxed.RelaxElementOrder = true;
  Open(relaxed);
  Status s = One(outOfOrder);
  ASSERT_EQ(s.code, 0) << s.message;
  EXPECT_EQ(Text(s.node, "CustomerRet/FirstName"), "Al");
  EXPECT_EQ(Text(s.node, "CustomerRet/BillAddress/Addr1"), "1");
  // Only the order is relaxed.
  EXPECT_EQ(Failure(Message("<ClassAddRq><ClassAdd><Name>A</Name><Color>red</Color></ClassAdd></ClassAddRq>")).Number(),
            hr::kParseError);
}

TEST_F(DocumentTest, TheRequestsVersionDecidesWhatTheAnswerHas) {
  Add("Class", "<Name>West</Name>");
  Add("Customer", "<Name>Versioned</Name><ClassRef><FullName>West</FullName></ClassRef><JobTitle>Owner</JobTitle>"
                  "<BillAddress><Addr1>1 Main</Addr1><Addr5>Floor 2</Addr5></BillAddress><PreferredDeliveryMethod>Email"
                  "</PreferredDeliveryMethod>");
  const std::string query = "<CustomerQueryRq><FullName>Versioned</FullName></CustomerQueryRq>";
  auto ret = [&](const std::string& version) { return Send(query, "continueOnError", version).at(0).node.first_child(); };
  pugi::xml_node at11 = ret("11.0");
  EXPECT_EQ(Text(at11, "Name"), "Versioned");
  EXPECT_EQ(Text(at11, "BillAddress/Addr5"), "Floor 2");  // since 6.0
  for (const char* newer : {"ClassRef", "JobTitle", "PreferredDeliveryMethod"}) EXPECT_FALSE(at11.child(newer)) << newer;
  pugi::xml_node at5 = ret("5.0");
  EXPECT_FALSE(at5.child("BillAddress").child("Addr5"));
  EXPECT_FALSE(at5.child("BillAddressBlock"));
  pugi::xml_node at12 = ret("12.0");
  EXPECT_EQ(Text(at12, "ClassRef/FullName"), "West");
  EXPECT_EQ(Text(at12, "PreferredDeliveryMethod"), "Email");
  // The processing instruction names the version as well as the DOCTYPE does.
  std::string pi = Document("<?xml version=\"1.0\"?><?qbxml version=\"11.0\"?><QBXML><QBXMLMsgsRq onError=\"stopOnError\">" +
                            query + "</QBXMLMsgsRq></QBXML>");
  EXPECT_EQ(pi.find("JobTitle"), std::string::npos) << pi;
  EXPECT_NE(pi.find("<Name>Versioned</Name>"), std::string::npos);
}

TEST_F(DocumentTest, CharactersAreWhatQuickBooksCanStore) {
  // QuickBooks keeps text in Windows-1252: what the code page lacks comes back as "?".
  Status cjk = One("<ClassAddRq><ClassAdd><Name>A&#20013;&#25991;B &#128512;</Name></ClassAdd></ClassAddRq>");
  ASSERT_EQ(cjk.code, 0) << cjk.message;
  EXPECT_EQ(Text(cjk.node, "ClassRet/Name"), "A??B ?");
  // The declared encoding decides what the bytes are: the UTF-8 bytes of "é" in an ISO-8859-1
  // document are the two characters "Ã©"; in a UTF-8 document (or one that declares none) "é".
  auto nameIn = [&](const std::string& declaration, const std::string& name) {
    std::string r = Document(declaration + "<?qbxml version=\"13.0\"?><QBXML><QBXMLMsgsRq onError=\"stopOnError\">"
                             "<JobTypeAddRq><JobTypeAdd><Name>" + name + "</Name></JobTypeAdd></JobTypeAddRq>"
                             "</QBXMLMsgsRq></QBXML>");
    auto statuses = Statuses(r);
    return statuses.empty() ? std::string() : Text(statuses[0].node, "JobTypeRet/Name");
  };
  EXPECT_EQ(nameIn("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>", "caf\xC3\xA9"), "caf\xC3\x83\xC2\xA9");
  EXPECT_EQ(nameIn("<?xml version=\"1.0\" encoding=\"utf-8\"?>", "cafe\xC3\xA9"), "cafe\xC3\xA9");
  EXPECT_EQ(nameIn("<?xml version=\"1.0\"?>", "caff\xC3\xA9"), "caff\xC3\xA9");
  // Byte 128 of a Windows-1252 document is the euro sign; answered as "&#128;", which a plain parser
  // reads as U+0080 (the library maps it back to the euro sign).
  EXPECT_EQ(nameIn("<?xml version=\"1.0\" encoding=\"windows-1252\"?>", "price \x80"), "price \xC2\x80");
  EXPECT_EQ(nameIn("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>", "x \xE9"), "x \xC3\xA9");
  // What is stored comes back as references to Windows-1252 codes.
  std::string raw = Raw("<JobTypeQueryRq><FullName>price &#8364;</FullName></JobTypeQueryRq>");
  EXPECT_NE(raw.find("<Name>price &#128;</Name>"), std::string::npos) << raw;
}

TEST_F(DocumentTest, BadValuesAreTheRequestsStatus) {
  struct Case {
    std::string request;
    int code;
  };
  const std::vector<Case> cases = {
      {"<ClassAddRq><ClassAdd><Name>" + std::string(32, 'x') + "</Name></ClassAdd></ClassAddRq>", 3070},
      {"<ClassAddRq><ClassAdd><Name>Yes</Name><IsActive>maybe</IsActive></ClassAdd></ClassAddRq>", 3010},
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
  EXPECT_EQ(statuses[1].message, "There was an error when converting the boolean value \"maybe\" in the field \"IsActive\".");
  EXPECT_EQ(statuses[7].message, "There was an error when saving a Class list, element \"\".  QuickBooks error message: "
                                 "The name of the list element cannot be blank.");
}

TEST_F(DocumentTest, HugeValuesAreQuotedShort) {
  const std::string huge(10 * 1024 * 1024, 'h');
  Status s = One("<ClassAddRq><ClassAdd><Name>" + huge + "</Name></ClassAdd></ClassAddRq>");
  EXPECT_EQ(s.code, 3070);
  EXPECT_LT(s.message.size(), 200u);
  EXPECT_EQ(s.message, "The string \"" + std::string(100, 'h') + "...\" in the field \"Name\" is too long.");
}

TEST_F(DocumentTest, OnErrorDecidesWhetherLaterRequestsRun) {
  const std::string requests =
      "<ClassAddRq requestID=\"1\"><ClassAdd><Name>One</Name></ClassAdd></ClassAddRq>"
      "<ClassAddRq requestID=\"2\"><ClassAdd><Name>one</Name></ClassAdd></ClassAddRq>"
      "<ClassAddRq requestID=\"3\"><ClassAdd><Name>Three</Name></ClassAdd></ClassAddRq>";
  auto stopped = Send(requests, "stopOnError");
  ASSERT_EQ(stopped.size(), 3u);
  EXPECT_EQ(stopped[0].code, 0);
  EXPECT_EQ(stopped[1].code, 3100);
  EXPECT_EQ(stopped[1].message, "The name \"one\" of the list element is already in use.");
  // Every request after the failure is answered, as not processed.
  EXPECT_EQ(stopped[2].code, 3231);
  EXPECT_EQ(stopped[2].severity, "Error");
  EXPECT_EQ(stopped[2].message, "The request has not been processed.");
  EXPECT_EQ(std::string(stopped[2].node.attribute("requestID").value()), "3");
  EXPECT_EQ(One("<ClassQueryRq><FullName>One</FullName></ClassQueryRq>").code, 0);  // the first stays
  EXPECT_EQ(One("<ClassQueryRq><FullName>Three</FullName></ClassQueryRq>").code, 500);

  // rollbackOnError undoes what the message did before the failure as well.
  auto rolled = Send("<ClassAddRq><ClassAdd><Name>Four</Name></ClassAdd></ClassAddRq>"
                     "<ClassAddRq><ClassAdd><Name>ONE</Name></ClassAdd></ClassAddRq>"
                     "<ClassAddRq><ClassAdd><Name>Five</Name></ClassAdd></ClassAddRq>",
                     "rollbackOnError");
  ASSERT_EQ(rolled.size(), 3u);
  EXPECT_EQ(rolled[1].code, 3100);
  EXPECT_EQ(rolled[2].code, 3231);
  EXPECT_EQ(One("<ClassQueryRq><FullName>Four</FullName></ClassQueryRq>").code, 500);

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

TEST(SchemaCheck, RefusesAnInvalidDocument) {
  if (!QbxmlSchema()) GTEST_SKIP() << "no qbXML schema in " << SchemaFolder();
  std::string out = "<?xml version=\"1.0\"?><QBXML><QBXMLMsgsRs><ClassQueryRs statusCode=\"0\" statusSeverity=\"Info\">"
                    "<ClassRet><Name>x</Name><ListID>1-1</ListID></ClassRet></ClassQueryRs></QBXMLMsgsRs></QBXML>";
  EXPECT_NE(SchemaErrors(out), "");
  EXPECT_NE(SchemaErrors("<QBXML><QBXMLMsgsRs>"), "");
}

// A valid answer holding what only another edition writes, or what a later version brought, is not
// what a US desktop answers that session.
TEST(SchemaCheck, RefusesWhatAUsDesktopDoesNotWrite) {
  if (!QbxmlSchema()) GTEST_SKIP() << "no qbXML schema in " << SchemaFolder();
  auto customer = [](const std::string& extra) {
    return "<?xml version=\"1.0\"?><QBXML><QBXMLMsgsRs><CustomerQueryRs statusCode=\"0\" statusSeverity=\"Info\">"
           "<CustomerRet><ListID>1-1</ListID><TimeCreated>2024-01-01T00:00:00</TimeCreated><TimeModified>"
           "2024-01-01T00:00:00</TimeModified><EditSequence>1</EditSequence><Name>x</Name><FullName>x</FullName>" +
           extra + "<Sublevel>0</Sublevel></CustomerRet></CustomerQueryRs></QBXMLMsgsRs></QBXML>";
  };
  EXPECT_EQ(SchemaErrors(customer("")), "");
  EXPECT_NE(SchemaErrors(customer("<ClassRef><ListID>2-1</ListID></ClassRef>"), "11.0").find("only from qbXML 12.0"),
            std::string::npos);
  EXPECT_EQ(SchemaErrors(customer("<ClassRef><ListID>2-1</ListID></ClassRef>"), "12.0"), "");
  std::string suffix = customer("");
  suffix.insert(suffix.find("</CustomerRet>"), "<Suffix>Jr</Suffix>");
  EXPECT_EQ(brenvale::testing::SchemaProblems(suffix), "");
  EXPECT_NE(SchemaErrors(suffix).find("not in QBD"), std::string::npos);
}

}  // namespace rqptest

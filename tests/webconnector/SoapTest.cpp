// The Web Connector's messages without a network: reading calls in the forms clients send them,
// writing answers and calls byte for byte, faults, and the first call's host facts.
#include <pugixml.hpp>

#include "brenvale/webconnector/detail/HostFacts.hpp"
#include "webconnector/WebConnectorTestSupport.hpp"

namespace brenvale::webconnector::testing {
namespace {

using detail::Call;
using detail::Fault;

Call Read(const std::string& envelope) {
  auto read = detail::ReadCall(envelope);
  if (const Fault* f = std::get_if<Fault>(&read)) {
    ADD_FAILURE() << f->text;
    return {};
  }
  return std::get<Call>(read);
}

TEST(Soap, CallsAreReadInEveryFormClientsSendThem) {
  struct Case {
    std::string what, envelope, operation;
    std::vector<std::pair<std::string, std::string>> arguments;
  };
  const std::string ns = "http://developer.intuit.com/";
  const std::vector<Case> cases = {
      {"the Web Connector's own form",
       Recorded("authenticate", "<strUserName>acme</strUserName><strPassword>p&amp;w &lt;1&gt;</strPassword>"),
       "authenticate", {{"strUserName", "acme"}, {"strPassword", "p&w <1>"}}},
      {"a prefixed operation and other envelope prefix",
       "<SOAP-ENV:Envelope xmlns:SOAP-ENV=\"http://schemas.xmlsoap.org/soap/envelope/\"><SOAP-ENV:Body>"
       "<ns1:getLastError xmlns:ns1=\"" + ns + "\"><ns1:ticket>T-1</ns1:ticket></ns1:getLastError>"
       "</SOAP-ENV:Body></SOAP-ENV:Envelope>",
       "getLastError", {{"ticket", "T-1"}}},
      {"qbXML in a CDATA section, whitespace kept, a nil message",
       Recorded("receiveResponseXML",
                "<ticket>T</ticket><response><![CDATA[<QBXML> <A/> </QBXML>]]></response>"
                "<hresult /><message xsi:nil=\"true\" />"),
       "receiveResponseXML", {{"ticket", "T"}, {"response", "<QBXML> <A/> </QBXML>"}, {"hresult", ""}, {"message", ""}}},
      {"the other spelling of the company file and versions as text",
       Recorded("sendRequestXML",
                "<ticket>T</ticket><strHCPResponse /><strCompanyFilename>C:\\A.qbw</strCompanyFilename>"
                "<qbXMLCountry>US</qbXMLCountry><qbXMLMajorVers> 13</qbXMLMajorVers><qbXMLMinorVers>0</qbXMLMinorVers>"),
       "sendRequestXML", {{"strCompanyFileName", "C:\\A.qbw"}, {"qbXMLCountry", "US"}, {"qbXMLMajorVers", " 13"}}},
      {"serverVersion with no parameter", Recorded("serverVersion", ""), "serverVersion", {}},
      {"a carriage return sent as a character reference", Recorded("connectionError",
       "<ticket>T</ticket><hresult>0x80040408</hresult><message>a&#xD;\nb</message>"),
       "connectionError", {{"hresult", "0x80040408"}, {"message", "a\r\nb"}}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    Call call = Read(c.envelope);
    ASSERT_NE(call.operation, nullptr);
    EXPECT_EQ(call.operation->name, c.operation);
    for (const auto& [name, value] : c.arguments) EXPECT_EQ(call.Argument(name), value) << name;
  }
  EXPECT_EQ(Read(cases[3].envelope).IntArgument("qbXMLMajorVers"), 13);
  EXPECT_EQ(Read(cases[3].envelope).Argument("ticket"), "T");
  EXPECT_EQ(Read(Recorded("getLastError", "")).Argument("ticket"), "");  // missing: empty
}

TEST(Soap, WhatIsNotACallIsAFault) {
  struct Case {
    std::string envelope, code, says;
  };
  const std::vector<Case> cases = {
      {"<soap:Envelope", "soap:Client", "not well-formed"},
      {"<Envelope/>", "soap:Client", "not a SOAP envelope"},
      {"<e:Envelope xmlns:e=\"http://www.w3.org/2003/05/soap-envelope\"><e:Body/></e:Envelope>", "soap:VersionMismatch",
       "SOAP 1.1"},
      {kHead + kTail, "soap:Client", "body is empty"},
      {Recorded("sendRequestXm", "<ticket>T</ticket>"), "soap:Client", "no operation 'sendRequestXm'"},
      {kHead + "<authenticate xmlns=\"http://example.com/\"/>" + kTail, "soap:Client", "no operation 'authenticate'"},
      {kHead + "<authenticate/>" + kTail, "soap:Client", "no operation"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.envelope);
    auto read = detail::ReadCall(c.envelope);
    ASSERT_TRUE(std::holds_alternative<Fault>(read));
    EXPECT_EQ(std::get<Fault>(read).code, c.code);
    EXPECT_NE(std::get<Fault>(read).text.find(c.says), std::string::npos) << std::get<Fault>(read).text;
  }
  EXPECT_EQ(detail::FaultEnvelope({"soap:Client", "a < b"}),
            kHead + "<soap:Fault><faultcode>soap:Client</faultcode><faultstring>a &lt; b</faultstring></soap:Fault>" +
                kTail);
}

TEST(Soap, AnswersAndCallsAreWrittenByteForByte) {
  using detail::FindOperation;
  using detail::Result;
  const std::string qbxml = "<?xml version=\"1.0\"?>\r\n<QBXML><A>x &amp; y</A></QBXML>";
  const std::string escaped = "&lt;?xml version=\"1.0\"?&gt;&#xD;\n&lt;QBXML&gt;&lt;A&gt;x &amp;amp; y&lt;/A&gt;&lt;/QBXML&gt;";
  EXPECT_EQ(detail::ResultEnvelope(*FindOperation("sendRequestXML"), Result(qbxml)), Answer("sendRequestXML", escaped));
  EXPECT_EQ(detail::ResultEnvelope(*FindOperation("receiveResponseXML"), Result(-1)), Answer("receiveResponseXML", "-1"));
  EXPECT_EQ(detail::ResultEnvelope(*FindOperation("authenticate"), Result(std::vector<std::string>{"T", ""})),
            Answer("authenticate", "<string>T</string><string></string>"));
  EXPECT_EQ(detail::ResultEnvelope(*FindOperation("getLastError"), Result(std::string())), Answer("getLastError", ""));

  // Our Web Connector writes the calls as QuickBooks' Web Connector does, every parameter in order.
  EXPECT_EQ(detail::CallEnvelope(*FindOperation("sendRequestXML"), {"T", qbxml, "C:\\A.qbw", "US", "13", "0"}),
            Recorded("sendRequestXML", "<ticket>T</ticket><strHCPResponse>" + escaped +
                                           "</strHCPResponse><strCompanyFileName>C:\\A.qbw</strCompanyFileName>"
                                           "<qbXMLCountry>US</qbXMLCountry><qbXMLMajorVers>13</qbXMLMajorVers>"
                                           "<qbXMLMinorVers>0</qbXMLMinorVers>"));
  EXPECT_EQ(detail::CallEnvelope(*FindOperation("serverVersion"), {}), Recorded("serverVersion", ""));
  EXPECT_EQ(detail::SoapAction(*FindOperation("closeConnection")), "\"http://developer.intuit.com/closeConnection\"");

  // What is written reads back the same, CR LF included.
  Result back;
  ASSERT_FALSE(detail::ReadResult(*FindOperation("sendRequestXML"), Answer("sendRequestXML", escaped), back));
  EXPECT_EQ(std::get<std::string>(back), qbxml);
  EXPECT_TRUE(detail::ReadResult(*FindOperation("receiveResponseXML"), Answer("receiveResponseXML", "ten"), back));
}

TEST(Soap, OnlyCharactersXmlCanCarryTravel) {
  EXPECT_FALSE(detail::ForbiddenCharacter("a\tb\r\nc \xC3\xA9"));
  EXPECT_EQ(detail::ForbiddenCharacter(std::string("a\x01") + "b"), 1u);
  EXPECT_EQ(detail::ForbiddenCharacter("a\x1F"), 0x1Fu);
}

TEST(FirstCall, HostQueriesAreAnsweredFromIt) {
  auto answer = detail::AnswerFromFirstCall(Rq("<HostQueryRq requestID=\"7\"/><CompanyQueryRq/>"), kFirstCallResponse);
  ASSERT_TRUE(answer);
  pugi::xml_document doc;
  ASSERT_TRUE(doc.load_string(answer->c_str()));
  pugi::xml_node msgs = doc.child("QBXML").child("QBXMLMsgsRs");
  EXPECT_STREQ(msgs.child("HostQueryRs").attribute("requestID").value(), "7");
  EXPECT_STREQ(msgs.child("HostQueryRs").attribute("statusCode").value(), "0");
  EXPECT_STREQ(msgs.child("HostQueryRs").child("HostRet").child_value("ProductName"), "QuickBooks Enterprise");
  EXPECT_FALSE(msgs.child("CompanyQueryRs").attribute("requestID"));  // the request had none
  EXPECT_STREQ(msgs.child("CompanyQueryRs").child("CompanyRet").child_value("CompanyName"), "Acme");

  // Anything else travels to QuickBooks.
  for (const std::string& rq :
       {Rq("<HostQueryRq requestID=\"1\"><IncludeRetElement>ProductName</IncludeRetElement></HostQueryRq>"),
        Rq("<HostQueryRq requestID=\"1\"/><CustomerQueryRq requestID=\"2\"/>"), Rq("<PreferencesQueryRq/>"),
        Rq("<HostQueryRq metaData=\"x\"/>"), Rq(""), std::string("<not xml")}) {
    EXPECT_FALSE(detail::AnswerFromFirstCall(rq, kFirstCallResponse)) << rq;
  }
  EXPECT_FALSE(detail::AnswerFromFirstCall(Rq("<HostQueryRq/>"), ""));
}

TEST(FirstCall, SessionVersionsEndWithTheWebConnectorsPair) {
  using V = std::vector<std::string>;
  EXPECT_EQ(detail::SessionVersions({13, 0, "US", "", kFirstCallResponse}), (V{"2.0", "12.0", "13.0"}));
  EXPECT_EQ(detail::SessionVersions({14, 0, "US", "", kFirstCallResponse}), (V{"2.0", "12.0", "13.0", "14.0"}));
  EXPECT_EQ(detail::SessionVersions({13, 0, "US", "", ""}), V{"13.0"});
  EXPECT_EQ(detail::SessionVersions({0, 0, "US", "", kFirstCallResponse}), (V{"2.0", "12.0", "13.0", "16.0"}));
  EXPECT_TRUE(detail::SessionVersions({}).empty());
}

}  // namespace
}  // namespace brenvale::webconnector::testing

// The request builder's sending half, against a scripted request processor: routing, the first
// status, malformed responses, the 1999 error, the raw-text send, online DOCTYPEs and the query
// shortcuts.
#include <functional>
#include <stdexcept>

#include "QbxmlTestSupport.hpp"
#include "brenvale/qbxml/xmlBldr.hpp"

namespace brenvale {
namespace {

using testing::InstallProcessor;
using testing::SessionTest;

const std::string kEnvelope = "<QBXMLMsgsRq onError = \"continueOnError\">";
const std::string kTop11 =
    "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><!DOCTYPE QBXML PUBLIC '-//INTUIT//DTD QBXML QBD 11.0//EN' >";

// Two responses in one document: the first failed, the second succeeded.
const std::string kTwoResponses =
    "<?xml version=\"1.0\" ?>\n<QBXML>\n<QBXMLMsgsRs>\n"
    "<CustomerAddRs requestID=\"1\" statusCode=\"3100\" statusSeverity=\"Error\" "
    "statusMessage=\"The name &quot;Acme&quot; of the list element is already in use.\"/>\n"
    "<CustomerAddRs requestID=\"2\" statusCode=\"0\" statusSeverity=\"Info\" statusMessage=\"Status OK\">"
    "<CustomerRet><Name>Bolt</Name></CustomerRet></CustomerAddRs>\n"
    "</QBXMLMsgsRs>\n</QBXML>\n";

std::string Response(int code, const std::string& message) {
  return "<?xml version=\"1.0\" ?><QBXML><QBXMLMsgsRs><CustomerQueryRs requestID=\"1\" statusCode=\"" +
         std::to_string(code) + "\" statusSeverity=\"Info\" statusMessage=\"" + message +
         "\"></CustomerQueryRs></QBXMLMsgsRs></QBXML>";
}

class BuilderSend : public SessionTest {};

TEST_F(BuilderSend, EverySendNeedsAConnection) {
  xmlBldr b;
  b.NewClear();
  const std::string before = b.GetXML();
  auto expectNotConnected = [](const std::function<void()>& send) {
    try {
      send();
      ADD_FAILURE() << "no error raised";
    } catch (const BrenvaleError& e) {
      EXPECT_EQ(e.Number(), ErrorNumber(1000));
      EXPECT_EQ(e.Source(), "QBConnection");
      EXPECT_EQ(e.Description(), "QBConnect has not been called, or it failed");
    }
  };
  expectNotConnected([&] { b.SendToQB(); });
  expectNotConnected([&] { b.NewSendRequest(); });
  expectNotConnected([&] { b.NewSendSubscriptionRequest(); });
  expectNotConnected([&] { b.XMLSendToQB(); });
  EXPECT_EQ(b.GetXML(), before);  // nothing was closed or written
}

TEST_F(BuilderSend, RequestsGoWithTheTicketAndSubscriptionsWithout) {
  SetVersion("11.0");
  auto rqp = InstallProcessor("T-42");
  rqp->responses = {Response(0, "Status OK")};
  xmlBldr b;
  b.NewClear();
  b.OpenAggregate("CustomerQueryRq", "requestID", "1");
  b.EndAggregate();
  b.NewSendRequest();
  ASSERT_EQ(rqp->exchanges.size(), 1u);
  EXPECT_EQ(rqp->exchanges[0].member, "ProcessRequest");
  EXPECT_EQ(rqp->exchanges[0].ticket, "T-42");
  EXPECT_EQ(rqp->exchanges[0].request,
            kTop11 + "<QBXML>" + kEnvelope + "<CustomerQueryRq requestID = \"1\"></CustomerQueryRq></QBXMLMsgsRq></QBXML>");

  b.NewClearSubscriptions();
  b.OpenAggregate("DataEventSubscriptionQueryRq", "requestID", "1");
  b.CreateElement("SubscriberID", "{8A5F2DA5-7F5C-4C1B-9F54-4E36C77E2B3C}");
  b.EndAggregate("DataEventSubscriptionQueryRq");
  b.NewSendSubscriptionRequest();
  ASSERT_EQ(rqp->exchanges.size(), 2u);
  EXPECT_EQ(rqp->exchanges[1].member, "ProcessSubscription");
  EXPECT_EQ(rqp->exchanges[1].request,
            kTop11 + "<QBXML><QBXMLSubscriptionMsgsRq><DataEventSubscriptionQueryRq requestID = \"1\"><SubscriberID>"
                     "{8A5F2DA5-7F5C-4C1B-9F54-4E36C77E2B3C}</SubscriberID></DataEventSubscriptionQueryRq>"
                     "</QBXMLSubscriptionMsgsRq></QBXML>");

  // The text decides, not the way the document was started.
  b.NewClear();
  b.OpenAggregate("ClassQueryRq", "requestID", "QBXMLSubscriptionMsgsRq");
  b.EndAggregate();
  b.NewSendRequest();
  ASSERT_EQ(rqp->exchanges.size(), 3u);
  EXPECT_EQ(rqp->exchanges[2].member, "ProcessSubscription");
}

TEST_F(BuilderSend, FirstResponseStatusBecomesErrNumberAndErrMsg) {
  auto rqp = InstallProcessor();
  rqp->responses = {kTwoResponses, Response(0, "Status OK")};
  xmlBldr b;
  b.NewClear();
  DomDocument doc = b.NewSendRequest();
  EXPECT_EQ(b.ErrNumber(), 3100);
  EXPECT_EQ(b.ErrMsg(), "The name \"Acme\" of the list element is already in use.");
  // The document is handed back whole: the second response is there for the caller.
  EXPECT_EQ(doc.Child(1).Child(0).Child(1).ChildText("CustomerRet"), "Bolt");

  b.NewClear();
  b.NewSendRequest();
  EXPECT_EQ(b.ErrNumber(), 0);
  EXPECT_EQ(b.ErrMsg(), "Status OK");

  // A response that is not well-formed: an empty document, and the last status stays.
  rqp->responses = {Response(500, "Warn"), "<?xml version=\"1.0\" ?><QBXML><QBXMLMsgsRs>"};
  b.NewClear();
  b.NewSendRequest();
  EXPECT_EQ(b.ErrNumber(), 500);
  b.NewClear();
  DomDocument broken = b.NewSendRequest();
  EXPECT_TRUE(broken.Empty());
  EXPECT_EQ(b.ErrNumber(), 500);
  EXPECT_EQ(b.ErrMsg(), "Warn");
}

TEST_F(BuilderSend, StatusIsReadFromFixedPositionsOnly) {
  auto rqp = InstallProcessor();
  xmlBldr b;
  // Without a declaration the messages aggregate is not at document child 1: nothing is read.
  rqp->responses = {"<QBXML><QBXMLMsgsRs><CustomerQueryRs statusCode=\"1\" statusMessage=\"x\"/></QBXMLMsgsRs></QBXML>"};
  b.NewClear();
  b.NewSendRequest();
  EXPECT_EQ(b.ErrNumber(), 0);
  EXPECT_EQ(b.ErrMsg(), "");
  // A status code that is not a number is skipped; the message is still read.
  rqp->responses = {"<?xml version=\"1.0\" ?><QBXML><QBXMLMsgsRs><R statusCode=\"abc\" statusMessage=\"m\"/>"
                    "</QBXMLMsgsRs></QBXML>"};
  b.NewClear();
  b.NewSendRequest();
  EXPECT_EQ(b.ErrNumber(), 0);
  EXPECT_EQ(b.ErrMsg(), "m");
}

TEST_F(BuilderSend, ProcessorFailuresBecomeError1999) {
  auto rqp = InstallProcessor();
  rqp->fail = true;
  rqp->failureText = "Could not start QuickBooks.";
  xmlBldr b;
  b.NewClear();
  try {
    b.NewSendRequest();
    FAIL() << "no error raised";
  } catch (const BrenvaleError& e) {
    EXPECT_EQ(e.Number(), ErrorNumber(1999));
    EXPECT_EQ(e.Number(), -2147219505);
    EXPECT_EQ(e.Source(), "Brenvale");
    EXPECT_EQ(e.Description(), "Microsoft XML 4.0 parser not installed.");
  }
  EXPECT_EQ(b.ErrMsg(), "Could not start QuickBooks.");
  EXPECT_EQ(b.ErrNumber(), 0);

  rqp->failureText = "Raw send failed.";
  b.NewClear();
  EXPECT_THROW(b.XMLSendToQB(), BrenvaleError);
  EXPECT_EQ(b.ErrMsg(), "Raw send failed.");

  // Any exception of the processor counts, not only the library's own.
  class Throwing : public testing::ScriptedProcessor {
   public:
    std::string ProcessRequest(const std::string&, const std::string&) override {
      throw std::runtime_error("socket closed");
    }
  };
  CurrentSession().processor = std::make_shared<Throwing>();
  b.NewClear();
  try {
    b.SendToQB();
    FAIL() << "no error raised";
  } catch (const BrenvaleError& e) {
    EXPECT_EQ(e.Number(), ErrorNumber(1999));
  }
  EXPECT_EQ(b.ErrMsg(), "socket closed");
}

TEST_F(BuilderSend, XmlSendToQbReturnsTheRawResponse) {
  auto rqp = InstallProcessor("T");
  rqp->responses = {Response(0, "OK"), Response(3120, "Object not found")};
  xmlBldr b;
  b.NewClear();
  b.NewSendRequest();
  ASSERT_EQ(b.ErrNumber(), 0);
  b.NewClearSubscriptions();  // even a subscription envelope goes by ProcessRequest here
  rqp->validate = false;      // closed as a request envelope: not a document QuickBooks would take
  const std::string raw = b.XMLSendToQB();
  EXPECT_EQ(raw, Response(3120, "Object not found"));
  EXPECT_EQ(raw.rfind("<?xml version=\"1.0\" ?>", 0), 0u);
  EXPECT_EQ(b.ErrNumber(), 0);
  EXPECT_EQ(b.ErrMsg(), "OK");
  ASSERT_EQ(rqp->exchanges.size(), 2u);
  EXPECT_EQ(rqp->exchanges[1].member, "ProcessRequest");
  EXPECT_EQ(rqp->exchanges[1].ticket, "T");
  const std::string& sent = rqp->exchanges[1].request;
  EXPECT_EQ(sent.substr(sent.size() - 22), "</QBXMLMsgsRq></QBXML>");
}

TEST_F(BuilderSend, OnlineResponsesLoseTheirDoctype) {
  const std::string online =
      "<?xml version=\"1.0\" ?>\n<!DOCTYPE QBXML PUBLIC \"-//INTUIT//DTD QBXML QBO 2.0//EN\" "
      "\"http://apps.quickbooks.com/qbXML/qbxmlops20.dtd\">\n<QBXML><QBXMLMsgsRs>"
      "<CustomerQueryRs requestID=\"1\" statusCode=\"1\" statusMessage=\"No match\"/></QBXMLMsgsRs></QBXML>";
  auto rqp = InstallProcessor();
  rqp->responses = {online};

  SetVersion("2.0", true);
  xmlBldr b;
  b.NewClear();
  EXPECT_EQ(b.GetXML(), "<QBXML>" + kEnvelope);  // nothing in front of the root
  DomDocument doc = b.NewSendRequest();
  // The declaration and the online DOCTYPE are put in on the way out.
  EXPECT_EQ(rqp->exchanges.back().request,
            "<?xml version=\"1.0\" ?><!DOCTYPE QBXML PUBLIC \"-//INTUIT//DTD QBXML QBO 2.0//EN\" "
            "\"http://apps.quickbooks.com/qbXML/qbxmlops20.dtd\"><QBXML>" + kEnvelope + "</QBXMLMsgsRq></QBXML>");
  EXPECT_EQ(b.ErrNumber(), 1);
  EXPECT_EQ(b.ErrMsg(), "No match");
  EXPECT_EQ(doc.Child(1).BaseName(), "QBXML");

  // A desktop session keeps it: the DOCTYPE then stands at child 1 and no status is read.
  SetVersion("2.0", false);
  xmlBldr desktop;
  desktop.NewClear();
  desktop.NewSendRequest();
  EXPECT_EQ(desktop.ErrNumber(), 0);
}

TEST_F(BuilderSend, QueryShortcutsBuildAndSendOneRequest) {
  SetVersion("11.0");
  auto rqp = InstallProcessor();
  rqp->responses = {Response(0, "Status OK")};
  const std::string head = kTop11 + "<QBXML>" + kEnvelope;

  xmlBldr full;
  DomDocument doc = full.QueryFullTableExecute("ClassQueryRq", 500);
  EXPECT_EQ(doc.Child(1).BaseName(), "QBXML");
  EXPECT_EQ(rqp->exchanges.back().request, head + "<ClassQueryRq requestID = \"1\"></ClassQueryRq></QBXMLMsgsRq></QBXML>");

  xmlBldr single;
  single.QuerySingleExecute("CustomerQueryRq", "Acme & Co", "FullName", 10, zqObjectTypeCustomer);
  EXPECT_EQ(rqp->exchanges.back().request, head + "<CustomerQueryRq requestID = \"1\"><FullName>Acme &amp; Co</FullName>"
                                              "</CustomerQueryRq></QBXMLMsgsRq></QBXML>");

  xmlBldr filtered;
  filtered.QuerySingleExecute("CustomerQueryRq", "Ac", "FromName", 0, zqObjectTypeCustomer, "NameRangeFilter", true);
  EXPECT_EQ(rqp->exchanges.back().request,
            head + "<CustomerQueryRq requestID = \"1\"><NameRangeFilter><FromName>Ac</FromName></NameRangeFilter>"
                   "<OwnerID>0</OwnerID></CustomerQueryRq></QBXMLMsgsRq></QBXML>");

  xmlBldr raw;
  EXPECT_EQ(raw.XMLQuerySingleExecute("InvoiceQueryRq", "NotPaidOnly", "PaidStatus", 25, zqObjectTypeInvoice),
            Response(0, "Status OK"));
  EXPECT_EQ(rqp->exchanges.back().request, head + "<InvoiceQueryRq requestID = \"1\"><MaxReturned>25</MaxReturned>"
                                              "<PaidStatus>NotPaidOnly</PaidStatus></InvoiceQueryRq></QBXMLMsgsRq></QBXML>");

  xmlBldr insert;
  insert.CreateElement("Stale", "x");
  EXPECT_EQ(insert.XMLInsertBegin("ClassAddRq", "ClassAdd"), "");
  insert.CreateElement("Name", "Retail");
  insert.XMLInsertFinish("ClassAddRq", "ClassAdd");
  EXPECT_EQ(rqp->exchanges.back().request, head + "<ClassAddRq requestID = \"1\"><ClassAdd><Name>Retail</Name>"
                                              "</ClassAdd></ClassAddRq></QBXMLMsgsRq></QBXML>");
  EXPECT_EQ(rqp->exchanges.size(), 5u);
}

}  // namespace
}  // namespace brenvale

#include <gtest/gtest.h>

#include "brenvale/company/BrenvaleGlobals.hpp"
#include "brenvale/connection/QBConnection.hpp"
#include "brenvale/core/TraceHook.hpp"
#include "brenvale/qbxml/Session.hpp"
#include "support/ScriptedProcessor.hpp"

using namespace brenvale;
using brenvale::testing::ScriptedProcessor;
using brenvale::testing::ScriptedRegistration;

namespace {

class ConnectionTest : public ::testing::Test {
 protected:
  void SetUp() override {
    CurrentSession() = Session();
    conn.RequestProcessorProgId(reg.ProgId());
  }
  void TearDown() override {
    conn.CloseConnection();
    CurrentSession() = Session();
  }
  ScriptedRegistration reg;
  QBConnection conn;
};

}  // namespace

TEST_F(ConnectionTest, ConnectNegotiatesTheLastVersionAndReadsTheHost) {
  int opened = 0;
  conn.ConnectionOpened.Subscribe([&] { ++opened; });
  ASSERT_EQ(conn.Connect("id", "App", qbOpenModeDontCare, "/tmp/x.qbw"), 0);
  auto& p = *reg.last;
  EXPECT_EQ(p.calls, (std::vector<std::string>{"OpenConnection2", "BeginSession", "QBXMLVersionsForSession",
                                               "ProcessRequest", "GetCurrentCompanyFileName"}));
  EXPECT_EQ(p.connectionType, localQBD);
  EXPECT_EQ(p.auth.AuthFlags, conn.AuthPreferences().AuthFlags);  // written before OpenConnection2
  EXPECT_NE(p.requests.at(0).find("<HostQueryRq requestID = \"1\"></HostQueryRq>"), std::string::npos);
  EXPECT_EQ(conn.qbxmlVersion(), "13.0");
  EXPECT_EQ(conn.qbXMLVersionNumber(), Currency(13));
  EXPECT_EQ(conn.ProductName(), "QuickBooks Pro");
  EXPECT_EQ(conn.QBMajorVersion(), 34);
  EXPECT_EQ(conn.Country(), "US");
  EXPECT_EQ(conn.QBFileMode(), "SingleUser");
  EXPECT_EQ(conn.CompanyPath(), "/tmp/x.qbw");
  EXPECT_TRUE(conn.IsConnected());
  EXPECT_EQ(CurrentSession().ticket, p.ticket);
  EXPECT_EQ(opened, 1);
}

TEST_F(ConnectionTest, TheLastListedVersionWinsWhateverTheOrder) {
  for (auto [versions, expected] : std::vector<std::pair<std::vector<std::string>, std::string>>{
           {{"1.0", "2.0", "3.0"}, "3.0"}, {{"3.0", "2.0", "1.0"}, "1.0"}, {{"CA3.0"}, "CA3.0"}}) {
    ScriptedRegistration r("Test.Versions", [v = versions](ScriptedProcessor& p) { p.versions = v; });
    QBConnection c;
    c.RequestProcessorProgId(r.ProgId());
    c.Connect("", "App", qbOpenModeDontCare);
    EXPECT_EQ(c.qbxmlVersion(), expected);
    c.CloseConnection();
  }
}

TEST_F(ConnectionTest, VersionOverrideChangesTheTextButNotTheGate) {
  conn.Connect("", "App", qbOpenModeDontCare);
  conn.qbxmlVersionOverride("2.0");
  EXPECT_EQ(CurrentSession().qbxmlVersion, "2.0");
  EXPECT_EQ(CurrentSession().qbXMLVersionNumber, Currency(13));
}

TEST_F(ConnectionTest, UnknownHostFieldsAreTracedAndDoNotStopTheConnect) {
  ScriptedRegistration r("Test.Extra", [](ScriptedProcessor& p) {
    p.answer = [](const std::string&) {
      return ScriptedProcessor::HostResponse("34", "<ListMetaData><X>1</X></ListMetaData>");
    };
  });
  std::vector<std::string> traced;
  auto old = SetTraceObserver([&](std::string_view s, std::string_view t) { traced.push_back(std::string(s) + "|" + std::string(t)); });
  conn.RequestProcessorProgId(r.ProgId());
  EXPECT_EQ(conn.Connect("", "App", qbOpenModeDontCare), 0);
  SetTraceObserver(old);
  EXPECT_EQ(traced, std::vector<std::string>{"HostQueryRS|Unknown Field: ListMetaData"});
}

TEST_F(ConnectionTest, OldQuickBooksIsRefusedAndTheSessionClosed) {
  ScriptedRegistration r("Test.Old", [](ScriptedProcessor& p) { p.major = "9"; });
  conn.RequestProcessorProgId(r.ProgId());
  try {
    conn.Connect("", "App", qbOpenModeDontCare);
    FAIL() << "connected to QuickBooks 9";
  } catch (const BrenvaleError& e) {
    EXPECT_EQ(e.Number(), ErrorNumber(1004));
    EXPECT_EQ(e.Source(), "Brenvale");
    EXPECT_EQ(e.Description(), "Brenvale must have QuickBooks Pro 2002 or higher installed");
  }
  EXPECT_FALSE(conn.IsConnected());
  EXPECT_TRUE(CurrentSession().ticket.empty());
  auto& calls = r.last->calls;
  EXPECT_EQ(std::vector<std::string>(calls.end() - 2, calls.end()),
            (std::vector<std::string>{"EndSession", "CloseConnection"}));
}

TEST_F(ConnectionTest, ProcessorFailuresPassThroughAndLeaveNothingOpen) {
  for (std::string step : {"OpenConnection2", "BeginSession", "QBXMLVersionsForSession"}) {
    ScriptedRegistration r("Test.Fail", [step](ScriptedProcessor& p) { p.failAt = step; });
    conn.RequestProcessorProgId(r.ProgId());
    try {
      conn.Connect("", "App", qbOpenModeDontCare);
      FAIL() << step;
    } catch (const BrenvaleError& e) {
      EXPECT_EQ(e.Description(), "Could not start QuickBooks.") << step;
      EXPECT_EQ(e.Source(), "QBXMLRP2.RequestProcessor");
    }
    EXPECT_FALSE(conn.IsConnected()) << step;
    EXPECT_FALSE(CurrentSession().processor) << step;
    bool began = step != "OpenConnection2" && step != "BeginSession";
    auto& calls = r.last->calls;
    EXPECT_EQ(std::count(calls.begin(), calls.end(), "EndSession"), began ? 1 : 0) << step;
    EXPECT_EQ(std::count(calls.begin(), calls.end(), "CloseConnection"), step == "OpenConnection2" ? 0 : 1) << step;
  }
}

TEST_F(ConnectionTest, ProcessorChoiceAndFallback) {
  QBConnection plain;  // the default processor does not exist on this system
  try {
    plain.Connect("", "App", qbOpenModeDontCare);
    FAIL();
  } catch (const BrenvaleError& e) {
    EXPECT_EQ(e.Number(), 429);
    EXPECT_NE(e.Description().find("QBXMLRP2.RequestProcessor"), std::string::npos);
  }
  // A caller's ProgID that cannot be created falls back to the older processor.
  ScriptedRegistration older{std::string(kProgIdQBXMLRP)};
  conn.RequestProcessorProgId("No.SuchProcessor");
  EXPECT_EQ(conn.Connect("", "App", qbOpenModeDontCare), 0);
  EXPECT_TRUE(older.last);
  conn.CloseConnection();
  // The older processor is opened with OpenConnection when asked for.
  conn.RequestProcessorProgId(reg.ProgId());
  conn.UseRequestProcessor1(true);
  conn.Connect("", "App", qbOpenModeDontCare);
  EXPECT_EQ(reg.last->calls.front(), "OpenConnection");
}

TEST_F(ConnectionTest, CloseEndsTheSessionOnceAndIsHarmlessWhenClosed) {
  int closed = 0;
  conn.ConnectionClosed.Subscribe([&] { ++closed; });
  conn.CloseConnection();
  EXPECT_EQ(closed, 0);
  conn.Connect("", "App", qbOpenModeDontCare);
  auto p = reg.last;
  conn.CloseConnection();
  conn.CloseConnection();
  EXPECT_EQ(closed, 1);
  EXPECT_EQ(std::vector<std::string>(p->calls.end() - 2, p->calls.end()),
            (std::vector<std::string>{"EndSession", "CloseConnection"}));
  EXPECT_TRUE(CurrentSession().ticket.empty());
  EXPECT_FALSE(conn.IsConnected());
}

TEST_F(ConnectionTest, OnlineAndSubscriptionOnlyConnections) {
  conn.ConnectQBOE("", "App", qbOpenModeDontCare, "login");
  EXPECT_TRUE(conn.IsOnline());
  EXPECT_EQ(conn.qbxmlVersion(), "34.1");  // the processor's major and minor version
  EXPECT_EQ(reg.last->connectionType, remoteQBOE);
  conn.CloseConnection();
  EXPECT_FALSE(conn.IsOnline());
  conn.ConnectForSubscriptions("", "App");
  EXPECT_TRUE(CurrentSession().ticket.empty());
  EXPECT_TRUE(CurrentSession().processor);
  EXPECT_EQ(reg.last->calls, std::vector<std::string>{"OpenConnection2"});
}

TEST_F(ConnectionTest, FormDisplayNeedsAConnectionAndAKnownKind) {
  try {
    conn.DisplayQBForm(zqObjectTypeInvoice);
    FAIL();
  } catch (const BrenvaleError& e) {
    EXPECT_EQ(e.Code(), 1000);
    EXPECT_EQ(e.Source(), "QBConnection");
  }
  conn.Connect("", "App", qbOpenModeDontCare);
  try {
    conn.DisplayQBForm(zqObjectTypeItem);
    FAIL();
  } catch (const BrenvaleError& e) {
    EXPECT_EQ(e.Code(), 1030);
    EXPECT_EQ(e.Source(), "Brenvale:QBConnection:DisplayQBForm");
  }
  reg.last->answer = [](const std::string&) {
    return std::string("<?xml version=\"1.0\" ?><QBXML><QBXMLMsgsRs><ListDisplayModRs requestID=\"1\" "
                       "statusCode=\"0\" statusSeverity=\"Info\" statusMessage=\"Status OK\"/></QBXMLMsgsRs></QBXML>");
  };
  conn.DisplayQBForm(zqObjectTypeCustomer, "80000001-1");
  EXPECT_NE(reg.last->requests.back().find("<ListDisplayModRq requestID = \"1\"><ListDisplayModType>Customer"
                                           "</ListDisplayModType><ListID>80000001-1</ListID></ListDisplayModRq>"),
            std::string::npos);
}

TEST(Globals, CollectionsNeedAConnectionAndAreShared) {
  CurrentSession() = Session();
  try {
    BrenvaleGlobals::JobTypes();
    FAIL();
  } catch (const BrenvaleError& e) {
    EXPECT_EQ(e.Code(), 1000);
    EXPECT_EQ(e.Source(), "Brenvale");
    EXPECT_EQ(e.Description(), "QBConnect has not been called, or it failed");
  }
  ScriptedRegistration reg;
  BrenvaleGlobals::QBConnection().RequestProcessorProgId(reg.ProgId());
  EXPECT_EQ(BrenvaleGlobals::QBConnect("", "App", qbOpenModeDontCare), 0);
  EXPECT_EQ(&BrenvaleGlobals::JobTypes(), &BrenvaleGlobals::JobTypes());
  EXPECT_TRUE(BrenvaleGlobals::JobTypes().IsMaster());
  // QBConnect again reuses the connection object and connects it anew.
  QBConnection* first = &BrenvaleGlobals::QBConnection();
  EXPECT_EQ(BrenvaleGlobals::QBConnect("", "App", qbOpenModeDontCare), 0);
  EXPECT_EQ(first, &BrenvaleGlobals::QBConnection());
  BrenvaleGlobals::QBConnection().CloseConnection();
}

TEST(Globals, EnumerationShortcuts) {
  EXPECT_EQ(BrenvaleGlobals::EStr(1, zqeMatchType), "Starts With");
  EXPECT_EQ(BrenvaleGlobals::EXMLStr(1, zqeMatchType), "StartsWith");
  EXPECT_EQ(BrenvaleGlobals::eVal("StartsWith", zqeMatchType), 1);
  EXPECT_EQ(BrenvaleGlobals::eVal("Ends With", zqeMatchType), 3);
  try {
    BrenvaleGlobals::EStr(70000, zqeMatchType);
    FAIL();
  } catch (const BrenvaleError& e) {
    EXPECT_EQ(e.Number(), 6);  // overflow before any lookup
  }
  try {
    BrenvaleGlobals::EStr(99, zqeMatchType);
    FAIL();
  } catch (const BrenvaleError& e) {
    EXPECT_EQ(e.Code(), 1007);
  }
  EXPECT_TRUE(BrenvaleGlobals::qbNullDate().IsNull());
  EXPECT_NO_THROW(BrenvaleGlobals::GetDataPath());
}

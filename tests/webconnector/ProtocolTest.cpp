// The service over the loopback address, driven call by call as the Web Connector drives it, with a
// host on another thread: recorded calls answered byte for byte, whole sessions, retries, a wrong
// password, a Web Connector that disappears, QuickBooks that cannot be opened, the company file a
// user is bound to, and every wait's time limit.
#include <pugixml.hpp>

#include <future>
#include <regex>

#include "brenvale/core/ProcessorHresult.hpp"
#include "webconnector/WebConnectorTestSupport.hpp"

namespace brenvale::webconnector::testing {
namespace {

std::string Ticket(const std::string& t) { return "<ticket>" + t + "</ticket>"; }

TEST_F(BridgeTest, RecordedCallsAreAnsweredByteForByte) {
  Start();
  ScriptedWebConnector wc(Origin());
  const std::string unknown =
      "This session is not known to the service: it has ended, or it was never begun. Update the application "
      "again to start a new one.";
  const std::vector<std::pair<std::string, std::string>> cases = {
      {Recorded("serverVersion", ""), Answer("serverVersion", "Brenvale 0.1.0")},
      {Recorded("serverVersion", "<strVersion>2.3.0.215</strVersion>"), Answer("serverVersion", "Brenvale 0.1.0")},
      {Recorded("clientVersion", "<strVersion>2.3.0.215</strVersion>"), Answer("clientVersion", "")},
      {Recorded("sendRequestXML", Ticket("nope") + "<strHCPResponse /><strCompanyFileName /><qbXMLCountry>US"
                                                   "</qbXMLCountry><qbXMLMajorVers>13</qbXMLMajorVers><qbXMLMinorVers>0"
                                                   "</qbXMLMinorVers>"),
       Answer("sendRequestXML", "")},
      {Recorded("receiveResponseXML", Ticket("nope") + "<response>&lt;QBXML/&gt;</response><hresult /><message />"),
       Answer("receiveResponseXML", "-1")},
      {Recorded("getLastError", Ticket("nope")), Answer("getLastError", unknown)},
      {Recorded("connectionError", Ticket("nope") + "<hresult>0x80040408</hresult><message>Could not start "
                                                    "QuickBooks.</message>"),
       Answer("connectionError", "done")},
      {Recorded("closeConnection", Ticket("nope")), Answer("closeConnection", "OK")},
      {Recorded("getInteractiveURL", "<wcTicket>T</wcTicket><sessionID>S</sessionID>"), Answer("getInteractiveURL", "")},
      {Recorded("interactiveDone", "<wcTicket>T</wcTicket>"), Answer("interactiveDone", "Done")},
      {Recorded("interactiveRejected", "<wcTicket>T</wcTicket><reason>No</reason>"), Answer("interactiveRejected", "")},
  };
  for (const auto& [request, answer] : cases) {
    auto [status, body] = wc.Post(request);
    EXPECT_EQ(status, 200) << request;
    EXPECT_EQ(body, answer) << request;
  }

  // A wrong password: "nvu", with a ticket of its own each time.
  std::vector<std::string> tickets;
  for (int i = 0; i < 2; ++i) {
    auto [status, body] =
        wc.Post(Recorded("authenticate", "<strUserName>acme</strUserName><strPassword>wrong</strPassword>"));
    std::smatch m;
    ASSERT_TRUE(std::regex_search(body, m, std::regex("<string>([0-9a-f-]{36})</string>"))) << body;
    EXPECT_EQ(body, Answer("authenticate", "<string>" + m[1].str() + "</string><string>nvu</string>"));
    tickets.push_back(m[1]);
  }
  EXPECT_NE(tickets[0], tickets[1]);
  // No host has work: "none".
  auto [status, body] =
      wc.Post(Recorded("authenticate", "<strUserName>acme</strUserName><strPassword>acme-secret</strPassword>"));
  EXPECT_NE(body.find("</string><string>none</string></authenticateResult>"), std::string::npos) << body;

  // What is not a call: HTTP 500 with a SOAP fault, never a body the Web Connector cannot read.
  auto [faultStatus, fault] = wc.Post("<soap:Envelope><soap:Body>");
  EXPECT_EQ(faultStatus, 500);
  EXPECT_EQ(fault.rfind(kHead + "<soap:Fault><faultcode>soap:Client</faultcode><faultstring>The message is not "
                                "well-formed XML",
                        0),
            0u)
      << fault;
}

TEST_F(BridgeTest, OlderWebConnectorsAreAskedToUpgrade) {
  ServiceOptions o = Options();
  o.minimumClientVersion = "2.1.0.30";
  Start(std::move(o));
  ScriptedWebConnector wc(Origin());
  EXPECT_EQ(wc.Text("clientVersion", {"2.0.1.4"}), "O:2.1.0.30");
  EXPECT_EQ(wc.Text("clientVersion", {"2.1"}), "O:2.1.0.30");
  EXPECT_EQ(wc.Text("clientVersion", {"2.1.0.30"}), "");
  EXPECT_EQ(wc.Text("clientVersion", {"2.3.0.215"}), "");
  EXPECT_TRUE(VersionBefore("2.10", "10.0"));
  EXPECT_FALSE(VersionBefore("2.10", "2.9"));
}

TEST_F(BridgeTest, ASessionCallByCall) {
  Start();
  auto host = Host();
  const std::string request = Rq("<CustomerQueryRq requestID=\"2\"><MaxReturned>1</MaxReturned></CustomerQueryRq>");
  const std::string response =
      Rs("<CustomerQueryRs requestID=\"2\" statusCode=\"1\" statusSeverity=\"Info\" statusMessage=\"A query request "
         "did not find a matching object in QuickBooks\"/>");
  std::string hostAnswer, hostQuery, file;
  std::vector<std::string> versions;
  std::thread hostThread = HostDoing(host, [&](const std::string& t) {
    versions = host->QBXMLVersionsForSession(t);
    file = host->GetCurrentCompanyFileName(t);
    hostQuery = host->ProcessRequest(t, Rq("<HostQueryRq requestID=\"1\"/>"));  // from the first call
    hostAnswer = host->ProcessRequest(t, request);
  });

  ScriptedWebConnector wc(Origin());
  const std::vector<std::string> auth = wc.AuthenticateWhenWorkWaits("acme", "acme-secret");
  ASSERT_EQ(auth.size(), 2u);
  EXPECT_EQ(auth[1], "");  // the company file open in QuickBooks
  const std::string& t = auth[0];
  auto [s1, first] = wc.Post(Recorded(
      "sendRequestXML", Ticket(t) + "<strHCPResponse>" + detail::EscapeText(kFirstCallResponse) +
                            "</strHCPResponse><strCompanyFileName>" + kAcmeFile +
                            "</strCompanyFileName><qbXMLCountry>US</qbXMLCountry><qbXMLMajorVers>13</qbXMLMajorVers>"
                            "<qbXMLMinorVers>0</qbXMLMinorVers>"));
  EXPECT_EQ(first, Answer("sendRequestXML", detail::EscapeText(request)));
  auto [s2, done] = wc.Post(Recorded("receiveResponseXML", Ticket(t) + "<response>" + detail::EscapeText(response) +
                                                               "</response><hresult /><message />"));
  EXPECT_EQ(done, Answer("receiveResponseXML", "100"));
  EXPECT_EQ(wc.Post(Recorded("closeConnection", Ticket(t))).second,
            Answer("closeConnection", "OK: 1 request exchanged with company acme."));
  hostThread.join();

  EXPECT_EQ(hostAnswer, response);
  EXPECT_EQ(versions, (std::vector<std::string>{"2.0", "12.0", "13.0"}));
  EXPECT_EQ(file, kAcmeFile);
  EXPECT_NE(hostQuery.find("<ProductName>QuickBooks Enterprise</ProductName>"), std::string::npos) << hostQuery;
  // The ticket's session is gone.
  EXPECT_EQ(wc.Number("receiveResponseXML", {t, response, "", ""}), -1);
}

TEST_F(BridgeTest, ARetriedResponseIsDeliveredOnce) {
  Start();
  auto host = Host();
  const std::string r1 = Rq("<CustomerQueryRq requestID=\"1\"/>"), r2 = Rq("<VendorQueryRq requestID=\"1\"/>");
  const std::string a = Rs("<CustomerQueryRs requestID=\"1\" statusCode=\"0\"/>");
  const std::string b = Rs("<VendorQueryRs requestID=\"1\" statusCode=\"0\"/>");
  std::vector<std::string> answers;
  BrenvaleError bad(0, {}, {});
  std::thread hostThread = HostDoing(host, [&](const std::string& t) {
    bad = RaisedBy([&] { host->ProcessRequest(t, Rq("<CustomerQueryRq>\x01</CustomerQueryRq>")); });
    answers.push_back(host->ProcessRequest(t, r1));
    answers.push_back(host->ProcessRequest(t, r2));
  });
  ScriptedWebConnector wc(Origin());
  const std::string t = wc.AuthenticateWhenWorkWaits("acme", "acme-secret").at(0);
  EXPECT_EQ(wc.Text("sendRequestXML", FirstSend(t)), r1);
  const int progress = wc.Number("receiveResponseXML", {t, a, "", ""});
  EXPECT_GT(progress, 0);
  EXPECT_LT(progress, 100);
  const int again = wc.Number("receiveResponseXML", {t, a, "", ""});  // the call is made again
  EXPECT_GT(again, 0);
  EXPECT_LT(again, 100);
  EXPECT_EQ(wc.Text("sendRequestXML", NextSend(t)), r2);  // the next request, not the first again
  EXPECT_EQ(wc.Number("receiveResponseXML", {t, b, "", ""}), 100);
  EXPECT_EQ(wc.Number("receiveResponseXML", {t, b, "", ""}), 100);
  // A response nothing waits for is an error the Web Connector can show.
  EXPECT_EQ(wc.Number("receiveResponseXML", {t, Rs("<Other/>"), "", ""}), -1);
  EXPECT_EQ(wc.Text("getLastError", {t}),
            "The service received a response, but no request of this session was waiting for one.");
  wc.Text("closeConnection", {t});
  hostThread.join();
  EXPECT_EQ(answers, (std::vector<std::string>{a, b}));
  EXPECT_EQ(bad.Number(), hresult::kParseError);
  EXPECT_NE(bad.Description().find("control character 1"), std::string::npos) << bad.Description();
}

TEST_F(BridgeTest, QuickBooksRefusingADocumentReachesTheHost) {
  Start();
  auto host = Host();
  BrenvaleError refused(0, {}, {});
  std::string after;
  std::thread hostThread = HostDoing(host, [&](const std::string& t) {
    refused = RaisedBy([&] { host->ProcessRequest(t, Rq("<CustomerQueryRq/>")); });
    after = host->ProcessRequest(t, Rq("<VendorQueryRq/>"));
  });
  ScriptedWebConnector wc(Origin());
  const std::string t = wc.AuthenticateWhenWorkWaits("acme", "acme-secret").at(0);
  wc.Text("sendRequestXML", FirstSend(t));
  const int progress = wc.Number(
      "receiveResponseXML",
      {t, "", "0x80040400", "QuickBooks found an error when parsing the provided XML text stream."});
  EXPECT_GT(progress, 0);  // the session goes on
  EXPECT_EQ(wc.Text("sendRequestXML", NextSend(t)), Rq("<VendorQueryRq/>"));
  EXPECT_EQ(wc.Number("receiveResponseXML", {t, Rs("<VendorQueryRs/>"), "", ""}), 100);
  wc.Text("closeConnection", {t});
  hostThread.join();
  EXPECT_EQ(refused.Number(), hresult::kParseError);
  EXPECT_EQ(refused.Description(), "QuickBooks found an error when parsing the provided XML text stream.");
  EXPECT_EQ(refused.Source(), "BrenvaleWC.RequestProcessor");
  EXPECT_EQ(after, Rs("<VendorQueryRs/>"));
}

TEST_F(BridgeTest, AWrongPasswordIsRefusedAndNoPasswordIsLogged) {
  Start();
  auto host = Host();
  std::thread hostThread = HostDoing(host, [](const std::string&) {});
  ScriptedWebConnector wc(Origin());
  for (auto [user, password] : {std::pair{"acme", "bolt-secret"}, std::pair{"acme", ""}, std::pair{"nobody", "acme-secret"},
                                std::pair{"ACME", "acme-secret"}})
    EXPECT_EQ(wc.Strings("authenticate", {user, password}).at(1), "nvu") << user << " " << password;
  const std::vector<std::string> good = wc.AuthenticateWhenWorkWaits("acme", "acme-secret");
  EXPECT_EQ(good.at(1), "");
  hostThread.join();

  // Our Web Connector says so too.
  Client client(OurWebConnector("acme", "not-it", "acme.qbw"), Engine);
  const SessionReport report = client.RunSession();
  EXPECT_EQ(report.outcome, SessionOutcome::NotValidUser) << report.text;

  const std::vector<std::string> log = Log();
  ASSERT_FALSE(log.empty());
  for (const std::string& line : log) {
    EXPECT_EQ(line.find("secret"), std::string::npos) << line;
    EXPECT_EQ(line.find("not-it"), std::string::npos) << line;
    EXPECT_EQ(line.find(good[0]), std::string::npos) << line;  // never a whole ticket
  }
  EXPECT_TRUE(std::any_of(log.begin(), log.end(), [](const std::string& l) {
    return l.find("user 'nobody': not a valid user name and password") != std::string::npos;
  }));
}

TEST_F(BridgeTest, AWebConnectorThatDisappearsCostsOneRequestNeverTwo) {
  Start();
  auto host = service_->ProcessorFactory({.sessionWait = 20s, .requestWait = 1500ms})();
  host->OpenConnection("", "Bridge tests");
  const std::string add = Rq("<JobTypeAddRq requestID=\"1\"><JobTypeAdd><Name>Vanish</Name></JobTypeAdd></JobTypeAddRq>");
  const std::string query = Rq("<JobTypeQueryRq requestID=\"2\"/>");
  std::promise<BrenvaleError> lost;
  std::promise<void> weCame;
  std::string queried;
  std::thread hostThread = HostDoing(host, [&](const std::string& t) {
    lost.set_value(RaisedBy([&] { host->ProcessRequest(t, add); }));
    weCame.get_future().wait();
    queried = host->ProcessRequest(t, query);
  });

  // A Web Connector takes the request, QuickBooks applies it, and the Web Connector is gone.
  ScriptedWebConnector wc(Origin());
  const std::string t = wc.AuthenticateWhenWorkWaits("acme", "acme-secret").at(0);
  const std::string taken = wc.Text("sendRequestXML", FirstSend(t, (dir_ / "acme.qbw").string()));
  ASSERT_EQ(taken, add);
  {
    auto quickbooks = Engine();
    quickbooks->OpenConnection("", "QuickBooks");
    const std::string qt = quickbooks->BeginSession((dir_ / "acme.qbw").string(), qbOpenModeDontCare);
    EXPECT_NE(quickbooks->ProcessRequest(qt, taken).find("statusCode=\"0\""), std::string::npos);
    quickbooks->EndSession(qt);
    quickbooks->CloseConnection();
  }
  const BrenvaleError e = lost.get_future().get();
  EXPECT_EQ(e.Number(), hresult::kCouldNotAccess);
  EXPECT_EQ(e.Description(),
            "Could not access QuickBooks. The Web Connector of the company 'acme' took the request but did not "
            "return its response within 1.5 seconds; QuickBooks may or may not have applied it.");
  // Its late answer is refused, and says why.
  EXPECT_EQ(wc.Number("receiveResponseXML", {t, Rs("<JobTypeAddRs/>"), "", ""}), -1);
  EXPECT_EQ(wc.Text("getLastError", {t}),
            "The host stopped waiting for the response to its request; this session has ended.");

  // Our own Web Connector comes next: it gets the query, never the add again.
  {
    WebConnectorLoop ours(OurWebConnector("acme", "acme-secret", "acme.qbw"), Engine);
    weCame.set_value();
    hostThread.join();
  }
  pugi::xml_document doc;
  ASSERT_TRUE(doc.load_string(queried.c_str())) << queried;
  int vanish = 0;
  for (pugi::xml_node ret : doc.child("QBXML").child("QBXMLMsgsRs").child("JobTypeQueryRs").children("JobTypeRet"))
    vanish += std::string_view(ret.child_value("Name")) == "Vanish";
  EXPECT_EQ(vanish, 1) << queried;
}

TEST_F(BridgeTest, QuickBooksThatCannotBeOpenedReachesTheHost) {
  Start();
  auto host = Host();
  auto hostExpectingFailure = [&](BrenvaleError& e) {
    return HostDoing(host, [&](const std::string& t) { e = RaisedBy([&] { host->QBXMLVersionsForSession(t); }); });
  };
  BrenvaleError e(0, {}, {});
  std::thread hostThread = hostExpectingFailure(e);
  ScriptedWebConnector wc(Origin());
  const std::string t = wc.AuthenticateWhenWorkWaits("acme", "acme-secret").at(0);
  EXPECT_EQ(wc.Text("connectionError", {t, "0x80040408", "Could not start QuickBooks."}), "done");
  EXPECT_EQ(wc.Text("getLastError", {t}), "QuickBooks could not be opened: Could not start QuickBooks.");
  EXPECT_EQ(wc.Text("sendRequestXML", FirstSend(t)), "");  // the session is over
  hostThread.join();
  EXPECT_EQ(e.Number(), static_cast<std::int32_t>(0x80040408u));
  EXPECT_EQ(e.Description(), "Could not start QuickBooks.");

  // Our Web Connector reports what its company engine cannot open the same way.
  BrenvaleError engineSays(0, {}, {});
  hostThread = hostExpectingFailure(engineSays);
  Client client(OurWebConnector("acme", "acme-secret", "no-such-folder/acme.qbw"), Engine);
  SessionReport report;
  const auto limit = std::chrono::steady_clock::now() + 20s;
  do {
    report = client.RunSession();
  } while (report.outcome == SessionOutcome::NoWork && std::chrono::steady_clock::now() < limit);
  hostThread.join();
  EXPECT_EQ(report.outcome, SessionOutcome::Failed);
  EXPECT_EQ(engineSays.Number() & 0xFFFF0000, static_cast<std::int32_t>(0x80040000u));
  EXPECT_EQ(engineSays.Description(), report.text);
  EXPECT_FALSE(fs::exists(dir_ / "no-such-folder"));
}

TEST_F(BridgeTest, AUserExchangesWithItsOwnCompanyFileOnly) {
  users_.Set({"acme", "acme", Users::HashPassword("acme-secret", kFastHash), kAcmeFile});
  Start();
  auto host = Host();
  const std::string byItsFile = "c:/company files/ACME.QBW";
  BrenvaleError refused(0, {}, {});
  std::string file;
  std::thread hostThread = HostDoing(host, [&](const std::string& t) {
    refused = RaisedBy([&] { host->GetCurrentCompanyFileName(t); });
  }, byItsFile);
  ScriptedWebConnector wc(Origin());
  std::vector<std::string> auth = wc.AuthenticateWhenWorkWaits("acme", "acme-secret");
  EXPECT_EQ(auth.at(1), kAcmeFile);  // QuickBooks is told which file to open
  EXPECT_EQ(wc.Text("sendRequestXML", FirstSend(auth[0], "C:\\Company Files\\Bolt.qbw")), "");
  const std::string why =
      "The user 'acme' exchanges data with the company file 'C:\\Company Files\\Acme.qbw' only, but QuickBooks has "
      "'C:\\Company Files\\Bolt.qbw' open. Open that company file and update again.";
  EXPECT_EQ(wc.Text("getLastError", {auth[0]}), why);
  wc.Text("closeConnection", {auth[0]});
  hostThread.join();
  EXPECT_EQ(refused.Number(), hresult::kCouldNotOpenFile);  // the host learns it at once
  EXPECT_EQ(refused.Description(), "Could not open the specified QuickBooks company data file. " + why);

  hostThread = HostDoing(host, [&](const std::string& t) { file = host->GetCurrentCompanyFileName(t); }, byItsFile);
  auth = wc.AuthenticateWhenWorkWaits("acme", "acme-secret");
  const std::string same = "c:/company files/acme.QBW";
  EXPECT_NE(wc.Text("sendRequestXML", FirstSend(auth.at(0), same)).find("<HostQueryRq"), std::string::npos);
  EXPECT_EQ(wc.Number("receiveResponseXML", {auth[0], Rs("<HostQueryRs/>"), "", ""}), 100);
  wc.Text("closeConnection", {auth[0]});
  hostThread.join();
  EXPECT_EQ(file, same);
}

TEST_F(BridgeTest, OneWebConnectorServesACompanyAtATime) {
  users_.Set({"acme2", "acme", Users::HashPassword("acme-secret", kFastHash), {}});
  Start();
  auto host = Host();
  std::promise<void> finish;
  std::thread hostThread = HostDoing(host, [&](const std::string&) { finish.get_future().wait(); });
  ScriptedWebConnector wc(Origin());
  const std::string first = wc.AuthenticateWhenWorkWaits("acme", "acme-secret").at(0);
  EXPECT_EQ(wc.Strings("authenticate", {"acme2", "acme-secret"}).at(1), "busy");
  // The same user starting over replaces its own session.
  const std::vector<std::string> again = wc.Strings("authenticate", {"acme", "acme-secret"});
  EXPECT_EQ(again.at(1), "");
  EXPECT_EQ(wc.Text("sendRequestXML", FirstSend(first)), "");
  EXPECT_EQ(wc.Text("getLastError", {first}), "The Web Connector started a new session.");
  finish.set_value();
  EXPECT_NE(wc.Text("sendRequestXML", FirstSend(again[0])).find("<HostQueryRq"), std::string::npos);
  EXPECT_EQ(wc.Number("receiveResponseXML", {again[0], Rs("<HostQueryRs/>"), "", ""}), 100);
  hostThread.join();
}

TEST_F(BridgeTest, AQuietHostKeepsTheWebConnectorWithNoOpAndAnIdleOneLetsItGo) {
  ServiceOptions o = Options();
  o.hold = 50ms;
  o.hostIdle = 300ms;
  Start(std::move(o));
  auto host = Host();
  std::promise<void> first, second;
  std::vector<std::string> answers;
  std::thread hostThread = HostDoing(host, [&](const std::string& t) {
    first.get_future().wait();
    answers.push_back(host->ProcessRequest(t, Rq("<CustomerQueryRq/>")));
    second.get_future().wait();
    answers.push_back(host->ProcessRequest(t, Rq("<VendorQueryRq/>")));
  });
  ScriptedWebConnector wc(Origin());
  std::string t = wc.AuthenticateWhenWorkWaits("acme", "acme-secret").at(0);
  EXPECT_EQ(wc.Text("sendRequestXML", FirstSend(t)), "");  // the host is thinking
  EXPECT_EQ(wc.Text("getLastError", {t}), "NoOp");
  first.set_value();
  EXPECT_EQ(wc.Text("sendRequestXML", NextSend(t)), Rq("<CustomerQueryRq/>"));
  const int progress = wc.Number("receiveResponseXML", {t, Rs("<CustomerQueryRs/>"), "", ""});
  EXPECT_GT(progress, 0);
  EXPECT_LT(progress, 100);

  // The host stays quiet past its idle limit: the Web Connector is let go with the closing query.
  std::string sent = wc.Text("sendRequestXML", NextSend(t));
  for (const auto limit = std::chrono::steady_clock::now() + 20s; sent.empty() && std::chrono::steady_clock::now() < limit;
       sent = wc.Text("sendRequestXML", NextSend(t)))
    EXPECT_EQ(wc.Text("getLastError", {t}), "NoOp");
  EXPECT_NE(sent.find("<HostQueryRq requestID=\"1\"/>"), std::string::npos) << sent;
  EXPECT_EQ(wc.Number("receiveResponseXML", {t, Rs("<HostQueryRs/>"), "", ""}), 100);
  wc.Text("closeConnection", {t});
  EXPECT_EQ(wc.Strings("authenticate", {"acme", "acme-secret"}).at(1), "none");  // still idle

  second.set_value();  // work again: the next update takes it
  t = wc.AuthenticateWhenWorkWaits("acme", "acme-secret").at(0);
  EXPECT_EQ(wc.Text("sendRequestXML", FirstSend(t)), Rq("<VendorQueryRq/>"));
  EXPECT_EQ(wc.Number("receiveResponseXML", {t, Rs("<VendorQueryRs/>"), "", ""}), 100);
  hostThread.join();
  EXPECT_EQ(answers, (std::vector<std::string>{Rs("<CustomerQueryRs/>"), Rs("<VendorQueryRs/>")}));
}

TEST_F(BridgeTest, EveryWaitOfTheHostHasATimeLimit) {
  Start();
  auto host = Host(300ms);
  BrenvaleError e = RaisedBy([&] { host->BeginSession("acme", qbOpenModeDontCare); });
  EXPECT_EQ(e.Number(), hresult::kCouldNotAccess);
  EXPECT_EQ(e.Description(), "Could not access QuickBooks. No Web Connector of the company 'acme' logged in within "
                             "0.3 seconds. Run the Web Connector (Update Selected) or shorten its schedule.");
  e = RaisedBy([&] { host->BeginSession("nowhere", qbOpenModeDontCare); });
  EXPECT_EQ(e.Number(), hresult::kCouldNotOpenFile);
  EXPECT_NE(e.Description().find("the companies served are 'acme', 'bolt'"), std::string::npos) << e.Description();
  EXPECT_EQ(RaisedBy([&] { host->BeginSession("", qbOpenModeDontCare); }).Number(), hresult::kCouldNotOpenFile);
  EXPECT_EQ(RaisedBy([&] { host->ProcessRequest("", Rq("")); }).Number(), hresult::kBeginSessionNotCalled);
  EXPECT_EQ(RaisedBy([&] { host->ProcessSubscription(Rq("")); }).Number(), 438);
  auto unopened = service_->ProcessorFactory()();
  EXPECT_EQ(RaisedBy([&] { unopened->BeginSession("acme", qbOpenModeDontCare); }).Number(), hresult::kCouldNotAccess);

  // A stopped service answers at once.
  service_->Stop();
  e = RaisedBy([&] { Host(20s)->BeginSession("acme", qbOpenModeDontCare); });
  EXPECT_EQ(e.Description(), "Could not access QuickBooks. The Web Connector service has stopped.");
}

TEST_F(BridgeTest, PlainHttpIsServedOnTheLoopbackAddressOnly) {
  for (const char* address : {"0.0.0.0", "192.168.1.20", "example.com"}) {
    ServiceOptions o = Options();
    o.address = address;
    BrenvaleError e = RaisedBy([&] { Service s(std::move(o)); });
    EXPECT_EQ(e.Number(), 5) << address;
    EXPECT_NE(e.Description().find("Plain http is served on the loopback address only"), std::string::npos);
  }
  ServiceOptions half = Options();
  half.certificateFile = "cert.pem";
  EXPECT_EQ(RaisedBy([&] { Service s(std::move(half)); }).Number(), 5);
  ServiceOptions missing = Options();
  missing.certificateFile = (dir_ / "none.pem").string();
  missing.keyFile = (dir_ / "none.key").string();
  Service unreadable(std::move(missing));
  EXPECT_EQ(RaisedBy([&] { unreadable.Start(); }).Number(), 75);

  Start();
  ServiceOptions taken = Options();
  taken.port = service_->Port();
  Service second(std::move(taken));
  BrenvaleError e = RaisedBy([&] { second.Start(); });
  EXPECT_NE(e.Description().find("cannot listen on 127.0.0.1:" + std::to_string(service_->Port())), std::string::npos);
  service_.reset();  // the port is free again: the same service starts now
  EXPECT_NO_THROW(second.Start());
}

TEST_F(BridgeTest, TheServiceDescribesItself) {
  Start();
  httplib::Client http(Origin());
  httplib::Result wsdl = http.Get("/qbwc?wsdl");
  ASSERT_TRUE(wsdl);
  EXPECT_EQ(wsdl->status, 200);
  EXPECT_EQ(wsdl->get_header_value("Content-Type"), "text/xml; charset=utf-8");
  pugi::xml_document doc;
  ASSERT_TRUE(doc.load_string(wsdl->body.c_str()));
  pugi::xml_node defs = doc.child("wsdl:definitions");
  EXPECT_STREQ(defs.attribute("targetNamespace").value(), "http://developer.intuit.com/");
  std::vector<std::string> operations;
  for (pugi::xml_node op : defs.child("wsdl:binding").children("wsdl:operation")) {
    operations.emplace_back(op.attribute("name").value());
    EXPECT_EQ(op.child("soap:operation").attribute("soapAction").value(), "http://developer.intuit.com/" + operations.back());
  }
  EXPECT_EQ(operations, (std::vector<std::string>{"serverVersion", "clientVersion", "authenticate", "sendRequestXML",
                                                  "receiveResponseXML", "connectionError", "getLastError",
                                                  "closeConnection", "getInteractiveURL", "interactiveDone",
                                                  "interactiveRejected"}));
  EXPECT_EQ(defs.child("wsdl:service").child("wsdl:port").child("soap:address").attribute("location").value(),
            Origin() + "/qbwc");
  pugi::xpath_node receive = doc.select_node(
      "//s:element[@name='receiveResponseXMLResponse']//s:element[@name='receiveResponseXMLResult']");
  ASSERT_TRUE(receive);
  EXPECT_STREQ(receive.node().attribute("type").value(), "s:int");

  httplib::Result support = http.Get("/support");
  ASSERT_TRUE(support);
  EXPECT_EQ(support->status, 200);
  EXPECT_NE(support->body.find("Web Connector"), std::string::npos);
}

}  // namespace
}  // namespace brenvale::webconnector::testing

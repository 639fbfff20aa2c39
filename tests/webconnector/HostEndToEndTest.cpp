// A host program, unchanged, on "BrenvaleWC.RequestProcessor": it connects, adds, queries, modifies
// and deletes records through its collections while our own Web Connector relays every request to
// the company engine. Two companies at once, and the service over HTTPS.
#include <future>

#include "brenvale/Brenvale.hpp"
#include "brenvale/qbxml/Session.hpp"
#include "brenvale/core/ProcessorHresult.hpp"
#include "webconnector/WebConnectorTestSupport.hpp"

namespace brenvale::webconnector::testing {
namespace {

// A host's thread: the library's session and masters are per thread, so each host starts clean.
class HostThread {
 public:
  explicit HostThread(std::function<void()> body)
      : done_(std::async(std::launch::async, [body = std::move(body)] {
          CurrentSession() = Session{};
          body();
          BrenvaleGlobals::QBConnection().CloseConnection();
          CurrentSession() = Session{};
        })) {}
  // Rethrows what the host raised, failed assertions included.
  void Join() { done_.get(); }

 private:
  std::future<void> done_;
};

std::vector<std::string> Names(JobTypes& types) {
  std::vector<std::string> names;
  for (JobType& t : types) names.push_back(t.FullName());
  return names;
}

TEST_F(BridgeTest, AHostWorksThroughItsCollections) {
  Start();
  RegisterWebConnector(*service_, {.sessionWait = 20s, .requestWait = 20s});
  WebConnectorLoop ours(OurWebConnector("bolt", "bolt-secret", "bolt.qbw"), Engine);
  HostThread host([&] {
    QBConnection& connection = BrenvaleGlobals::QBConnection();
    connection.RequestProcessorProgId("BrenvaleWC.RequestProcessor");
    BrenvaleGlobals::QBConnect("", "Bridge host", qbOpenModeDontCare, "bolt");
    EXPECT_EQ(connection.qbxmlVersion(), "13.0");
    EXPECT_EQ(connection.ProductName(), "QuickBooks Pro 2024");  // the engine's, through the first call

    JobTypes& types = BrenvaleGlobals::JobTypes();
    types.GetAll();
    types.Add("Install");
    types.Add("Roofs", true, "Install");
    types.Add("Gutters", true, "Install");
    ASSERT_EQ(types.Commit(), 3);
    const std::string gutters = types.Item("Install:Gutters").ListID();

    ToDoList& todos = BrenvaleGlobals::ToDoList();
    ToDo& call = todos.Add("Call the roofer");
    ASSERT_EQ(todos.Commit(), 1);
    call.Notes("Call the roofer about the gutters");
    call.IsDone(true);
    ASSERT_EQ(todos.Commit(), 1) << (call.Errors().Count() ? call.Errors()[1].Description() : "");

    EXPECT_EQ(types.Delete(gutters), 0);
    JobTypes reader;
    reader.GetByNameMatch("Install", qbMatchStartsWith);
    EXPECT_EQ(Names(reader), (std::vector<std::string>{"Install", "Install:Roofs"}));
    ToDoList todoReader;
    ToDo* back = todoReader.GetByListID(call.ListID());
    ASSERT_NE(back, nullptr);
    EXPECT_EQ(back->Notes(), "Call the roofer about the gutters");
    EXPECT_TRUE(back->IsDone());
  });
  host.Join();

  // What the host did is in bolt's company file, once.
  auto engine = Engine();
  engine->OpenConnection("", "check");
  const std::string t = engine->BeginSession((dir_ / "bolt.qbw").string(), qbOpenModeDontCare);
  const std::string all = engine->ProcessRequest(t, Rq("<JobTypeQueryRq requestID=\"1\"/>"));
  engine->EndSession(t);
  EXPECT_NE(all.find("<FullName>Install:Roofs</FullName>"), std::string::npos) << all;
  EXPECT_EQ(all.find("Gutters"), std::string::npos);
  EXPECT_EQ(all.find("<Name>Install</Name>"), all.rfind("<Name>Install</Name>"));
  EXPECT_FALSE(fs::exists(dir_ / "acme.qbw"));
  ours.Finish();
  const std::vector<SessionReport> reports = ours.Reports();
  ASSERT_FALSE(reports.empty());
  EXPECT_EQ(reports.front().outcome, SessionOutcome::Finished) << reports.front().text;
}

TEST_F(BridgeTest, TwoCompaniesAtOnceNeverCross) {
  ServiceOptions o = Options();
  o.hold = 200ms;
  Start(std::move(o));
  RegisterWebConnector(*service_, {.sessionWait = 20s, .requestWait = 20s});
  WebConnectorLoop acme(OurWebConnector("acme", "acme-secret", "acme.qbw"), Engine);
  WebConnectorLoop bolt(OurWebConnector("bolt", "bolt-secret", "bolt.qbw"), Engine);
  auto work = [](const std::string& company) {
    return [company] {
      BrenvaleGlobals::QBConnection().RequestProcessorProgId("BrenvaleWC.RequestProcessor");
      BrenvaleGlobals::QBConnect("", "Bridge host", qbOpenModeDontCare, company);
      JobTypes& types = BrenvaleGlobals::JobTypes();
      for (int round = 0; round < 3; ++round) {
        for (int i = 0; i < 4; ++i) types.Add(company + "-" + std::to_string(round * 4 + i));
        ASSERT_EQ(types.Commit(), 4);
      }
      JobTypes reader;
      reader.GetAll();
      EXPECT_EQ(reader.Count(), 12);
      for (const std::string& name : Names(reader)) EXPECT_EQ(name.rfind(company + "-", 0), 0u) << name;
    };
  };
  HostThread a(work("acme")), b(work("bolt"));
  a.Join();
  b.Join();
  for (const char* company : {"acme", "bolt"}) {
    auto engine = Engine();
    engine->OpenConnection("", "check");
    const std::string t = engine->BeginSession((dir_ / (std::string(company) + ".qbw")).string(), qbOpenModeDontCare);
    const std::string all = engine->ProcessRequest(t, Rq("<JobTypeQueryRq requestID=\"1\"/>"));
    engine->EndSession(t);
    const std::string other = std::string(company) == "acme" ? "bolt-" : "acme-";
    EXPECT_EQ(all.find(other), std::string::npos) << company;
    EXPECT_NE(all.find(std::string(company) + "-11"), std::string::npos) << company;
  }
}

TEST_F(BridgeTest, HttpsWithTheUsersCertificate) {
  const fs::path certificate = dir_ / "service.pem", key = dir_ / "service.key";
  MakeCertificate(certificate, key);
  ServiceOptions o = Options();
  o.certificateFile = certificate.string();
  o.keyFile = key.string();
  Start(std::move(o));
  EXPECT_EQ(service_->Url(), "https://127.0.0.1:" + std::to_string(service_->Port()) + "/");

  ClientOptions trusting = OurWebConnector("acme", "acme-secret", "acme.qbw");
  trusting.caFile = certificate.string();
  auto host = Host();
  std::string answer;
  std::thread hostThread = HostDoing(host, [&](const std::string& t) {
    answer = host->ProcessRequest(t, Rq("<JobTypeQueryRq requestID=\"1\"/>"));
  });
  {
    WebConnectorLoop ours(trusting, Engine);
    hostThread.join();
  }
  EXPECT_NE(answer.find("<JobTypeQueryRs requestID=\"1\""), std::string::npos) << answer;

  // A Web Connector that does not trust the certificate never sends its password.
  Client wary(OurWebConnector("acme", "acme-secret", "acme.qbw"), Engine);
  const SessionReport refused = wary.RunSession();
  EXPECT_EQ(refused.outcome, SessionOutcome::Failed);
  EXPECT_NE(refused.text.find("not trusted"), std::string::npos) << refused.text;
  // Nor does ours send it over plain http to another machine.
  ClientOptions plain = OurWebConnector("acme", "acme-secret", "acme.qbw");
  plain.url = "http://sync.acme.example/qbwc";
  const SessionReport clear = Client(plain, Engine).RunSession();
  EXPECT_NE(clear.text.find("would travel in the clear"), std::string::npos) << clear.text;
  // Plain http to the https port gets no answer.
  ScriptedWebConnector http("http://127.0.0.1:" + std::to_string(service_->Port()));
  EXPECT_NE(http.Post(Recorded("serverVersion", "")).first, 200);
}

}  // namespace
}  // namespace brenvale::webconnector::testing

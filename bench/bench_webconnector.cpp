// Requests per second through the Web Connector bridge on the loopback address: a host's
// ProcessRequest waits while our own Web Connector takes the request at sendRequestXML, runs it,
// and brings the response back through receiveResponseXML. Measured against a processor that
// answers at once (the bridge's own cost, by response size) and against the company engine, with
// the same query sent to the engine directly beside it.
#include <benchmark/benchmark.h>

#include <atomic>
#include <filesystem>
#include <thread>

#include "brenvale/rqp/CompanyEngine.hpp"
#include "brenvale/webconnector/Client.hpp"
#include "brenvale/webconnector/Service.hpp"

namespace {

using namespace brenvale;
using namespace std::chrono_literals;
namespace fs = std::filesystem;

const std::string kQuery =
    "<?xml version=\"1.0\" encoding=\"utf-8\"?><?qbxml version=\"13.0\"?><QBXML><QBXMLMsgsRq onError=\"stopOnError\">"
    "<AccountQueryRq requestID=\"1\"/></QBXMLMsgsRq></QBXML>";

// Answers every request with a response of a given size, at once.
class Answering : public IRequestProcessor {
 public:
  explicit Answering(std::size_t bytes) {
    response_ = "<?xml version=\"1.0\" ?><QBXML><QBXMLMsgsRs><AccountQueryRs requestID=\"1\" statusCode=\"0\">";
    while (response_.size() < bytes) response_ += "<AccountRet><Name>Checking &amp; Savings</Name></AccountRet>";
    response_ += "</AccountQueryRs></QBXMLMsgsRs></QBXML>";
  }
  void OpenConnection(const std::string&, const std::string&) override {}
  void OpenConnection2(const std::string&, const std::string&, qbConnectionType) override {}
  std::string BeginSession(const std::string&, qbEnumFileOpenMode) override { return "T"; }
  std::vector<std::string> QBXMLVersionsForSession(const std::string&) override { return {"13.0"}; }
  std::string GetCurrentCompanyFileName(const std::string&) override { return "C:\\Bench.qbw"; }
  std::string ProcessRequest(const std::string&, const std::string&) override { return response_; }
  std::string ProcessSubscription(const std::string&) override { return {}; }
  void EndSession(const std::string&) override {}
  void CloseConnection() override {}
  ProcessorAuthPreferences& AuthPreferences() override { return auth_; }

 private:
  std::string response_;
  ProcessorAuthPreferences auth_;
};

fs::path BenchFolder() {
  fs::path dir = fs::temp_directory_path() / ("brenvale-bench-wc-" + std::to_string(::getpid()));
  fs::create_directories(dir);
  return dir;
}

// A service, our Web Connector relaying to `open` on a thread, and a host session through them.
void RoundTrips(benchmark::State& state, std::function<std::shared_ptr<IRequestProcessor>()> open,
                const std::string& companyFile) {
  webconnector::Users users;
  users.Set({"bench", "bench", webconnector::Users::HashPassword("pw", webconnector::kMinimumHashIterations), {}});
  webconnector::ServiceOptions options;
  options.users = users;
  webconnector::Service service(options);
  service.Start();
  auto host = service.ProcessorFactory({.sessionWait = 30s, .requestWait = 30s})();
  host->OpenConnection("", "bench");

  std::atomic<bool> stop = false;
  std::thread webConnector([&] {
    webconnector::Client client({.url = service.Url(), .userName = "bench", .password = "pw", .companyFile = companyFile},
                                open);
    while (!stop) client.RunSession();
  });
  const std::string ticket = host->BeginSession("bench", qbOpenModeDontCare);
  host->QBXMLVersionsForSession(ticket);
  std::size_t bytes = 0;
  for (auto _ : state) {
    const std::string response = host->ProcessRequest(ticket, kQuery);
    bytes += response.size();
    benchmark::DoNotOptimize(response.data());
  }
  stop = true;
  host->EndSession(ticket);
  webConnector.join();
  state.SetItemsProcessed(state.iterations());
  state.SetBytesProcessed(static_cast<std::int64_t>(bytes));
}

void BM_BridgeRoundTrip(benchmark::State& state) {
  const auto bytes = static_cast<std::size_t>(state.range(0));
  RoundTrips(state, [bytes] { return std::make_shared<Answering>(bytes); }, "C:\\Bench.qbw");
}
BENCHMARK(BM_BridgeRoundTrip)->Arg(300)->Arg(100 << 10)->Arg(1 << 20)->UseRealTime()->Unit(benchmark::kMicrosecond);

void BM_BridgeToEngine(benchmark::State& state) {
  const fs::path dir = BenchFolder();
  RoundTrips(state, [] { return std::make_shared<rqp::CompanyEngine>(); }, (dir / "bench.qbw").string());
  fs::remove_all(dir);
}
BENCHMARK(BM_BridgeToEngine)->UseRealTime()->Unit(benchmark::kMicrosecond);

void BM_EngineDirect(benchmark::State& state) {
  const fs::path dir = BenchFolder();
  {
    rqp::CompanyEngine engine;
    engine.OpenConnection("", "bench");
    const std::string ticket = engine.BeginSession((dir / "bench.qbw").string(), qbOpenModeDontCare);
    for (auto _ : state) benchmark::DoNotOptimize(engine.ProcessRequest(ticket, kQuery));
    engine.EndSession(ticket);
    state.SetItemsProcessed(state.iterations());
  }
  fs::remove_all(dir);
}
BENCHMARK(BM_EngineDirect)->UseRealTime()->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();

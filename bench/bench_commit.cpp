// Committing n new job types to the company engine in one batch: the time grows with n, not with
// its square (each committed record is filed again where it stands). The engine's own share of each
// commit is counted apart ("engine_ms"), so the library's share ("library_ms") shows on its own.
#include <benchmark/benchmark.h>

#include <chrono>
#include <filesystem>
#include <random>
#include <string>

#include "brenvale/Brenvale.hpp"
#include "brenvale/rqp/CompanyEngine.hpp"

namespace {

namespace fs = std::filesystem;
using namespace brenvale;

// The engine, with the time spent inside ProcessRequest counted.
class TimedEngine : public IRequestProcessor {
 public:
  static inline double spent = 0;  // milliseconds
  TimedEngine() : inner_(CreateRequestProcessor("BrenvaleRqP.RequestProcessor")) {}
  void OpenConnection(const std::string& a, const std::string& b) override { inner_->OpenConnection(a, b); }
  void OpenConnection2(const std::string& a, const std::string& b, qbConnectionType t) override {
    inner_->OpenConnection2(a, b, t);
  }
  std::string BeginSession(const std::string& f, qbEnumFileOpenMode m) override { return inner_->BeginSession(f, m); }
  std::vector<std::string> QBXMLVersionsForSession(const std::string& t) override {
    return inner_->QBXMLVersionsForSession(t);
  }
  std::string GetCurrentCompanyFileName(const std::string& t) override { return inner_->GetCurrentCompanyFileName(t); }
  std::string ProcessRequest(const std::string& t, const std::string& rq) override {
    const auto start = std::chrono::steady_clock::now();
    std::string rs = inner_->ProcessRequest(t, rq);
    spent += std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
    return rs;
  }
  std::string ProcessSubscription(const std::string& rq) override { return inner_->ProcessSubscription(rq); }
  void EndSession(const std::string& t) override { inner_->EndSession(t); }
  void CloseConnection() override { inner_->CloseConnection(); }
  ProcessorAuthPreferences& AuthPreferences() override { return inner_->AuthPreferences(); }

 private:
  std::shared_ptr<IRequestProcessor> inner_;
};

void BM_CommitNewJobTypes(benchmark::State& state) {
  rqp::RegisterCompanyEngine();
  RegisterRequestProcessor("Bench.TimedEngine", [] { return std::make_shared<TimedEngine>(); });
  const int n = static_cast<int>(state.range(0));
  int round = 0;
  double engine = 0, total = 0;
  for (auto _ : state) {
    state.PauseTiming();
    std::random_device rd;
    const fs::path dir = fs::temp_directory_path() / ("brenvale-bench-commit-" + std::to_string(rd()));
    fs::create_directories(dir);
    BrenvaleGlobals::QBConnection().RequestProcessorProgId("Bench.TimedEngine");
    BrenvaleGlobals::QBConnect("", "bench", qbOpenModeDontCare, (dir / "bench.qbw").string());
    JobTypes& types = BrenvaleGlobals::JobTypes();
    types.Clear();
    for (int i = 0; i < n; ++i) types.Add("Type " + std::to_string(round) + "-" + std::to_string(i));
    ++round;
    TimedEngine::spent = 0;
    state.ResumeTiming();
    const auto start = std::chrono::steady_clock::now();
    const Long committed = types.Commit();
    total += std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
    state.PauseTiming();
    engine += TimedEngine::spent;
    if (committed != n) state.SkipWithError("not every record was committed");
    types.Clear();
    BrenvaleGlobals::QBConnection().CloseConnection();
    fs::remove_all(dir);
    state.ResumeTiming();
  }
  state.SetItemsProcessed(state.iterations() * n);
  const auto rounds = static_cast<double>(state.iterations());
  state.counters["engine_ms"] = engine / rounds;
  state.counters["library_ms"] = (total - engine) / rounds;
}

BENCHMARK(BM_CommitNewJobTypes)
    ->Arg(1000)
    ->Arg(2000)
    ->Arg(4000)
    ->Arg(8000)
    ->Arg(10000)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(2);

}  // namespace

BENCHMARK_MAIN();

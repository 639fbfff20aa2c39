// Customers as a host reads and writes them: the standard 10,000-customer response read into
// Customer records through Customers (in time and peak heap, against a bare pugixml parse and walk of
// the same document), and 10,000 CustomerAdd requests written, each with a billing address.
#include <benchmark/benchmark.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "BenchSupport.hpp"
#include "brenvale/Brenvale.hpp"
#include "brenvale/qbxml/Session.hpp"
#include "brenvale/qbxml/xmlBldr.hpp"

#include "HeapCount.hpp"

namespace {

using namespace brenvale;
constexpr int kCustomers = 10000;

// The generator's response, or empty (with the reason) when the generator cannot be run.
std::string gUnavailable;
const std::string& CustomerResponse() {
  static const std::string response = [] {
    try {
      return bench::GeneratedCustomers(kCustomers);
    } catch (const std::exception& e) {
      gUnavailable = e.what();
      return std::string();
    }
  }();
  return response;
}

bool HaveResponse(benchmark::State& state) {
  if (!CustomerResponse().empty()) return true;
  state.SkipWithError(("no standard document to read: " + gUnavailable).c_str());
  return false;
}

void BM_CustomersRead(benchmark::State& state) {
  if (!HaveResponse(state)) return;
  bench::ConnectCanned(&CustomerResponse);
  std::size_t peak = 0;
  for (auto _ : state) {
    bench::PeakAbove heap;
    Customers customers;
    if (customers.GetAll() != kCustomers) state.SkipWithError("the query read the wrong number of records");
    benchmark::DoNotOptimize(customers.Item(std::size_t{kCustomers}).BillAddress().City());
    peak = heap.Bytes();
  }
  state.counters["peak_bytes"] = static_cast<double>(peak);
  state.SetItemsProcessed(state.iterations() * kCustomers);
  CurrentSession() = Session{};
}

// The floor: the response handed over, parsed once and every element of every Ret touched.
void BM_CustomersBareWalk(benchmark::State& state) {
  if (!HaveResponse(state)) return;
  std::size_t peak = 0;
  for (auto _ : state) {
    bench::PeakAbove heap;
    const std::string text = CustomerResponse();
    std::size_t bytes = 0;
    if (bench::BareWalk(text, "CustomerQueryRs", "CustomerRet", bytes) != kCustomers)
      state.SkipWithError("the walk found the wrong number of records");
    benchmark::DoNotOptimize(bytes);
    peak = heap.Bytes();
  }
  state.counters["peak_bytes"] = static_cast<double>(peak);
  state.SetItemsProcessed(state.iterations() * kCustomers);
}

// 10,000 new customers, each with a name, a company, a phone and a four-part billing address.
std::vector<std::unique_ptr<Customer>> NewCustomers() {
  std::vector<std::unique_ptr<Customer>> customers;
  customers.reserve(kCustomers);
  for (int i = 0; i < kCustomers; ++i) {
    auto c = std::make_unique<Customer>();
    const std::string n = std::to_string(i);
    c->Name("Harbor & Pier Supply " + n);
    c->CompanyName("Harbor & Pier Supply");
    c->Phone("(617) 555-" + n);
    c->BillAddress().Line1("Harbor & Pier Supply");
    c->BillAddress().Line2(n + " Atlantic Ave");
    c->BillAddress().City("Boston");
    c->BillAddress().State("MA");
    c->BillAddress().PostalCode("02110");
    customers.push_back(std::move(c));
  }
  return customers;
}

// The requests of a batch, written as a commit writes them, to the finished document text.
void BM_CustomerAddRequests(benchmark::State& state) {
  bench::ConnectCanned(&CustomerResponse);
  const auto customers = NewCustomers();
  std::size_t bytes = 0;
  for (auto _ : state) {
    xmlBldr b;
    b.NewClear();
    int id = 0;
    for (const auto& c : customers) {
      b.OpenAggregate("CustomerAddRq", "requestID", std::to_string(++id));
      b.OpenAggregateOnly("CustomerAdd");
      c->XMLInsert(b);
      b.EndAggregate("CustomerAdd");
      b.EndAggregate("CustomerAddRq");
    }
    const std::string xml = b.GetXML();
    bytes = xml.size();
    benchmark::DoNotOptimize(xml.data());
  }
  state.counters["document_bytes"] = static_cast<double>(bytes);
  state.SetItemsProcessed(state.iterations() * kCustomers);
  CurrentSession() = Session{};
}

BENCHMARK(BM_CustomersRead)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_CustomersBareWalk)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_CustomerAddRequests)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();

// The company engine: adds per second in one batch message (customers with an address), queries per
// second, how query time grows with the size of the company (1k, 10k, 100k customers), and an item
// query across the twelve item kinds.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <map>
#include <memory>
#include <random>
#include <string>

#include "brenvale/rqp/CompanyEngine.hpp"

namespace {

namespace fs = std::filesystem;
using brenvale::rqp::CompanyEngine;

std::string Message(const std::string& requests) {
  return "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><!DOCTYPE QBXML PUBLIC '-//INTUIT//DTD QBXML QBD 13.0//EN' >"
         "<QBXML><QBXMLMsgsRq onError = \"continueOnError\">" + requests + "</QBXMLMsgsRq></QBXML>";
}

std::string CustomerName(int i) {
  char buf[32];
  std::snprintf(buf, sizeof buf, "Customer %06d", i);
  return buf;
}

std::string CustomerAdd(int i) {
  return "<CustomerAddRq requestID=\"" + std::to_string(i) + "\"><CustomerAdd><Name>" + CustomerName(i) +
         "</Name><IsActive>true</IsActive><CompanyName>Company " + std::to_string(i) +
         "</CompanyName><FirstName>Ann</FirstName><LastName>Smith</LastName><BillAddress><Addr1>" +
         std::to_string(i) + " Main St</Addr1><City>Springfield</City><State>IL</State><PostalCode>62701</PostalCode>"
         "</BillAddress><Phone>555-0100</Phone><Email>ann@example.com</Email><TermsRef><FullName>Net 30</FullName>"
         "</TermsRef></CustomerAdd></CustomerAddRq>";
}

struct Company {
  fs::path dir;
  std::unique_ptr<CompanyEngine> engine;
  std::string ticket;

  explicit Company(const std::string& tag) {
    std::random_device rd;
    dir = fs::temp_directory_path() / ("bench-engine-" + tag + "-" + std::to_string(rd()));
    fs::create_directories(dir);
    engine = std::make_unique<CompanyEngine>();
    engine->OpenConnection("", "bench");
    ticket = engine->BeginSession((dir / "bench.qbw").string(), brenvale::qbOpenModeSingleUser);
  }
  ~Company() {
    engine.reset();
    std::error_code ec;
    fs::remove_all(dir, ec);
  }
  std::string Send(const std::string& requests) { return engine->ProcessRequest(ticket, Message(requests)); }
};

// A company holding `n` customers, built once per size.
Company& CompanyOf(int n) {
  static std::map<int, std::unique_ptr<Company>> companies;
  auto& c = companies[n];
  if (!c) {
    c = std::make_unique<Company>(std::to_string(n));
    for (int start = 0; start < n; start += 1000) {
      std::string batch;
      for (int i = start; i < std::min(n, start + 1000); ++i) batch += CustomerAdd(i);
      c->Send(batch);
    }
  }
  return *c;
}

// Adds per second: one message holding state.range(0) simple list records (job types).
void BM_AddSimpleRecordsInOneMessage(benchmark::State& state) {
  Company c("jobtypes");
  int next = 0;
  const int batch = static_cast<int>(state.range(0));
  for (auto _ : state) {
    std::string requests;
    for (int i = 0; i < batch; ++i)
      requests += "<JobTypeAddRq requestID=\"" + std::to_string(i) + "\"><JobTypeAdd><Name>Job type " +
                  std::to_string(next++) + "</Name><IsActive>true</IsActive></JobTypeAdd></JobTypeAddRq>";
    benchmark::DoNotOptimize(c.Send(requests));
  }
  state.SetItemsProcessed(state.iterations() * batch);
}
BENCHMARK(BM_AddSimpleRecordsInOneMessage)->Arg(100)->Arg(1000)->Unit(benchmark::kMillisecond)->UseRealTime();

// Adds per second of customers with an address and a terms reference.
void BM_AddCustomersInOneMessage(benchmark::State& state) {
  Company c("customers");
  int next = 0;
  const int batch = static_cast<int>(state.range(0));
  for (auto _ : state) {
    std::string requests;
    for (int i = 0; i < batch; ++i) requests += CustomerAdd(next++);
    benchmark::DoNotOptimize(c.Send(requests));
  }
  state.SetItemsProcessed(state.iterations() * batch);
}
BENCHMARK(BM_AddCustomersInOneMessage)->Arg(1000)->Unit(benchmark::kMillisecond)->UseRealTime();

// Queries per second, one query per message, against companies of 1k, 10k and 100k customers.
void BM_QueryCustomerByFullName(benchmark::State& state) {
  const int n = static_cast<int>(state.range(0));
  Company& c = CompanyOf(n);
  std::mt19937 rng(7);
  for (auto _ : state) {
    std::string rq = "<CustomerQueryRq><FullName>" + CustomerName(static_cast<int>(rng() % n)) + "</FullName></CustomerQueryRq>";
    benchmark::DoNotOptimize(c.Send(rq));
  }
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_QueryCustomerByFullName)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMicrosecond)->UseRealTime();

void BM_QueryCustomersStartingWith(benchmark::State& state) {
  const int n = static_cast<int>(state.range(0));
  Company& c = CompanyOf(n);
  std::mt19937 rng(11);
  for (auto _ : state) {
    std::string prefix = CustomerName(static_cast<int>(rng() % n)).substr(0, 14);  // ten customers
    std::string rq = "<CustomerQueryRq><NameFilter><MatchCriterion>StartsWith</MatchCriterion><Name>" + prefix +
                     "</Name></NameFilter></CustomerQueryRq>";
    benchmark::DoNotOptimize(c.Send(rq));
  }
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_QueryCustomersStartingWith)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMicrosecond)->UseRealTime();

// The first page of 100 of every active customer, and the same page through an iterator (which
// also notes the rest of the company for later pages).
void BM_QueryFirstPageOf100(benchmark::State& state) {
  Company& c = CompanyOf(static_cast<int>(state.range(0)));
  for (auto _ : state) benchmark::DoNotOptimize(c.Send("<CustomerQueryRq><MaxReturned>100</MaxReturned></CustomerQueryRq>"));
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_QueryFirstPageOf100)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMicrosecond)->UseRealTime();

void BM_IteratorStartPageOf100(benchmark::State& state) {
  Company& c = CompanyOf(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    std::string r = c.Send("<CustomerQueryRq iterator=\"Start\"><MaxReturned>100</MaxReturned></CustomerQueryRq>");
    auto at = r.find("iteratorID=\"");
    std::string id = r.substr(at + 12, 38);
    c.Send("<CustomerQueryRq iterator=\"Stop\" iteratorID=\"" + id + "\"/>");
  }
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_IteratorStartPageOf100)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMicrosecond)->UseRealTime();

// A whole company read through an iterator in pages of 1000.
void BM_ReadAllCustomersByIterator(benchmark::State& state) {
  const int n = static_cast<int>(state.range(0));
  Company& c = CompanyOf(n);
  for (auto _ : state) {
    std::string r = c.Send("<CustomerQueryRq iterator=\"Start\"><MaxReturned>1000</MaxReturned></CustomerQueryRq>");
    std::string id = r.substr(r.find("iteratorID=\"") + 12, 38);
    while (r.find("iteratorRemainingCount=\"0\"") == std::string::npos)
      r = c.Send("<CustomerQueryRq iterator=\"Continue\" iteratorID=\"" + id + "\"><MaxReturned>1000</MaxReturned></CustomerQueryRq>");
  }
  state.SetItemsProcessed(state.iterations() * n);
}
BENCHMARK(BM_ReadAllCustomersByIterator)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond)->UseRealTime();

// An item query across kinds: a company holding state.range(0) items, as many of each of the twelve
// kinds (inventory with stock on hand, whose quantity and average cost come from the ledger), read
// whole by one ItemQuery.
std::string ItemAdd(int kind, int i) {
  const std::string n = std::to_string(i);
  const std::string price = "<SalesOrPurchase><Price>" + n + ".5</Price></SalesOrPurchase>";
  struct Kind {
    const char* name;
    std::string body;
  };
  const Kind kinds[] = {
      {"ItemService", price},
      {"ItemNonInventory", price},
      {"ItemOtherCharge", price},
      {"ItemInventory", "<SalesPrice>3</SalesPrice><QuantityOnHand>" + n + "</QuantityOnHand><TotalValue>" + n +
                            "0</TotalValue>"},
      {"ItemInventoryAssembly", "<ItemInventoryAssemblyLine><ItemInventoryRef><FullName>Inventory " + n +
                                    "</FullName></ItemInventoryRef><Quantity>2</Quantity></ItemInventoryAssemblyLine>"},
      {"ItemFixedAsset", "<AcquiredAs>New</AcquiredAs><PurchaseDesc>Truck</PurchaseDesc><PurchaseDate>2024-01-02"
                         "</PurchaseDate>"},
      {"ItemSubtotal", "<ItemDesc>Subtotal</ItemDesc>"},
      {"ItemDiscount", "<DiscountRatePercent>5</DiscountRatePercent>"},
      {"ItemPayment", "<ItemDesc>Deposit</ItemDesc>"},
      {"ItemSalesTax", "<TaxRate>6.25</TaxRate>"},
      {"ItemSalesTaxGroup", "<ItemSalesTaxRef><FullName>SalesTax " + n + "</FullName></ItemSalesTaxRef>"},
      {"ItemGroup", "<ItemGroupLine><ItemRef><FullName>Service " + n + "</FullName></ItemRef></ItemGroupLine>"},
  };
  const char* names[] = {"Service", "NonInventory", "OtherCharge", "Inventory", "Assembly", "FixedAsset",
                         "Subtotal", "Discount", "Payment", "SalesTax", "TaxGroup", "Group"};
  const Kind& k = kinds[kind];
  return std::string("<") + k.name + "AddRq><" + k.name + "Add><Name>" + names[kind] + " " + n + "</Name>" + k.body +
         "</" + k.name + "Add></" + k.name + "AddRq>";
}

void BM_ItemQueryAcrossKinds(benchmark::State& state) {
  const int n = static_cast<int>(state.range(0)) / 12;
  Company c("items");
  for (int kind = 0; kind < 12; ++kind) {
    std::string batch;
    for (int i = 0; i < n; ++i) batch += ItemAdd(kind, i);
    c.Send(batch);
  }
  std::size_t bytes = 0;
  for (auto _ : state) {
    std::string r = c.Send("<ItemQueryRq/>");
    bytes = r.size();
    benchmark::DoNotOptimize(r);
  }
  state.SetItemsProcessed(state.iterations() * n * 12);
  state.counters["response_MiB"] = static_cast<double>(bytes) / (1024.0 * 1024.0);
}
BENCHMARK(BM_ItemQueryAcrossKinds)->Arg(1200)->Arg(3600)->Arg(12000)->Arg(24000)->Unit(benchmark::kMillisecond)->UseRealTime();

// The resident set of this process in KiB.
long ResidentKiB() {
  std::ifstream status("/proc/self/status");
  std::string line;
  while (std::getline(status, line))
    if (line.rfind("VmRSS:", 0) == 0) return std::stol(line.substr(6));
  return 0;
}

// Memory of a long session: 20,000 queries that differ only in MaxReturned, then 2,000 iterators
// started and never continued. The counters give how much the process grew in each phase.
void BM_LongSessionMemory(benchmark::State& state) {
  Company& c = CompanyOf(1000);
  for (auto _ : state) {
    const long start = ResidentKiB();
    for (int i = 1; i <= 20000; ++i)
      c.Send("<CustomerQueryRq><MaxReturned>" + std::to_string(i) + "</MaxReturned><NameFilter><MatchCriterion>"
             "StartsWith</MatchCriterion><Name>Customer 000001</Name></NameFilter></CustomerQueryRq>");
    const long afterQueries = ResidentKiB();
    for (int i = 0; i < 2000; ++i)
      c.Send("<CustomerQueryRq iterator=\"Start\"><MaxReturned>1</MaxReturned></CustomerQueryRq>");
    const long afterIterators = ResidentKiB();
    state.counters["queries_growth_MiB"] = static_cast<double>(afterQueries - start) / 1024.0;
    state.counters["iterators_growth_MiB"] = static_cast<double>(afterIterators - afterQueries) / 1024.0;
    state.counters["rss_MiB"] = static_cast<double>(afterIterators) / 1024.0;
  }
}
BENCHMARK(BM_LongSessionMemory)->Iterations(1)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace

BENCHMARK_MAIN();

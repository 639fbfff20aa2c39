// What records cost: heap bytes per record (a job type; a customer-sized record of 60 fields with
// 35 set), and reading the standard 10,000-customer response into a collection against a bare
// pugixml walk of the same document, in time and in peak heap.
//
// The heap is counted by this program's own operator new/delete and pugixml's allocation hooks.
#include <benchmark/benchmark.h>

#include <memory>
#include <pugixml.hpp>
#include <string>
#include <vector>

#include "BenchSupport.hpp"
#include "brenvale/Brenvale.hpp"
#include "brenvale/qbxml/Session.hpp"
#include "model/TestKinds.hpp"

#include "HeapCount.hpp"

namespace {

using namespace brenvale;
using bench::gLive;
using bench::PeakAbove;
constexpr int kCustomers = 10000;

// The generator's 10,000-customer response.
const std::string& CustomerResponse() {
  static const std::string response = bench::GeneratedCustomers(kCustomers);
  return response;
}

void Connect() { bench::ConnectCanned(&CustomerResponse); }

// Live heap per record: `kPer` records of one element each, read and kept.
template <class Record>
void BytesPerRecord(benchmark::State& state, const std::string& element) {
  DomDocument doc = DomDocument::Load(element);
  constexpr int kPer = 2000;
  for (auto _ : state) {
    std::vector<std::shared_ptr<Record>> kept;
    kept.reserve(kPer);
    const std::size_t before = gLive;
    for (int i = 0; i < kPer; ++i) {
      auto r = std::make_shared<Record>();
      r->ReadFrom(doc.DocumentElement());
      kept.push_back(std::move(r));
    }
    state.counters["bytes_per_record"] = static_cast<double>(gLive - before) / kPer;
  }
}

void BM_JobTypeBytes(benchmark::State& state) {
  BytesPerRecord<JobType>(
      state,
      "<JobTypeRet><ListID>80000007-1712345678</ListID><TimeCreated>2024-03-01T10:00:00</TimeCreated>"
      "<TimeModified>2024-03-02T11:30:15</TimeModified><EditSequence>1712345999</EditSequence><Name>Install</Name>"
      "<FullName>Work:Install</FullName><IsActive>true</IsActive><ParentRef><ListID>80000001-1</ListID>"
      "<FullName>Work</FullName></ParentRef><Sublevel>1</Sublevel></JobTypeRet>");
}

// A customer of the 60-field test kind with 35 fields set (an address of six parts among them).
void BM_CustomerSizedBytes(benchmark::State& state) {
  BytesPerRecord<testing::TestCustomer>(
      state,
      "<CustomerRet><ListID>80000001-1623712659</ListID><TimeCreated>2021-06-14T19:17:39-04:00</TimeCreated>"
      "<TimeModified>2021-12-31T06:56:09-05:00</TimeModified><EditSequence>1640951769</EditSequence>"
      "<Name>Jose's Boutique and Co 00001</Name><FullName>Jose's Boutique and Co 00001</FullName>"
      "<IsActive>true</IsActive><ClassRef><ListID>80000004-1</ListID><FullName>East</FullName></ClassRef>"
      "<Sublevel>0</Sublevel><CompanyName>Jose's Boutique and Co</CompanyName><Salutation>Mr.</Salutation>"
      "<FirstName>Jose</FirstName><LastName>O'Neil</LastName><JobTitle>Owner</JobTitle>"
      "<BillAddress><Addr1>Jose's Boutique</Addr1><Addr2>2530 Hill St</Addr2><City>Boston</City><State>MA</State>"
      "<PostalCode>02108</PostalCode><Country>USA</Country></BillAddress><Phone>(677) 361-2583</Phone>"
      "<AltPhone>(677) 361-2584</AltPhone><Fax>(677) 361-2585</Fax><Email>jose.oneil1@example.com</Email>"
      "<Contact>Jose O'Neil</Contact><CustomerTypeRef><ListID>80000002-1</ListID><FullName>Retail</FullName>"
      "</CustomerTypeRef><TermsRef><ListID>80000003-1</ListID><FullName>Net 30</FullName></TermsRef>"
      "<SalesRepRef><ListID>80000005-1</ListID><FullName>PL</FullName></SalesRepRef><Balance>10743.18</Balance>"
      "<TotalBalance>10743.18</TotalBalance><SalesTaxCodeRef><ListID>80000006-1</ListID><FullName>Tax</FullName>"
      "</SalesTaxCodeRef><ResaleNumber>RS-2291</ResaleNumber><AccountNumber>A-10043</AccountNumber>"
      "<CreditLimit>25000.00</CreditLimit><JobStatus>InProgress</JobStatus><JobStartDate>2024-02-01</JobStartDate>"
      "<JobDesc>Spring refit</JobDesc><Notes>Prefers mornings</Notes><IsStatementWithParent>false"
      "</IsStatementWithParent><DeliveryMethod>Email</DeliveryMethod><PreferredDeliveryMethod>Email"
      "</PreferredDeliveryMethod><ExternalGUID>{0B2C3D4E-1111-2222-3333-444455556666}</ExternalGUID>"
      "<IsUsingCustomerTaxCode>false</IsUsingCustomerTaxCode></CustomerRet>");
}

// The standard 10,000 customers read by a collection, and the peak heap of doing so.
void BM_CustomersRead(benchmark::State& state) {
  Connect();
  CustomerResponse();
  std::size_t peak = 0;
  for (auto _ : state) {
    PeakAbove heap;
    testing::TestCustomers customers;
    if (customers.GetAll() != kCustomers) state.SkipWithError("the query read the wrong number of records");
    benchmark::DoNotOptimize(customers.Item(std::size_t{1}).ListID());
    peak = heap.Bytes();
  }
  state.counters["peak_bytes"] = static_cast<double>(peak);
  state.SetItemsProcessed(state.iterations() * kCustomers);
  CurrentSession() = Session{};
}

// The floor: the response handed over, parsed once and every child of every Ret touched.
void BM_CustomersBareWalk(benchmark::State& state) {
  CustomerResponse();
  std::size_t peak = 0;
  for (auto _ : state) {
    PeakAbove heap;
    const std::string text = CustomerResponse();
    std::size_t bytes = 0;
    const long records = bench::BareWalk(text, "CustomerQueryRs", "CustomerRet", bytes);
    if (records != kCustomers) state.SkipWithError("the walk found the wrong number of records");
    benchmark::DoNotOptimize(bytes);
    peak = heap.Bytes();
  }
  state.counters["peak_bytes"] = static_cast<double>(peak);
  state.SetItemsProcessed(state.iterations() * kCustomers);
}

BENCHMARK(BM_JobTypeBytes)->Iterations(3);
BENCHMARK(BM_CustomerSizedBytes)->Iterations(3);
BENCHMARK(BM_CustomersRead)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_CustomersBareWalk)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();

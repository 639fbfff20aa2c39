// The request builder: building a 10,000-element request (pieces appended, joined once), with
// plain and with escaping-heavy values, against the floor of appending the same text to one
// preallocated string; and the escaping alone.
//
// Counters: time_per_element is the whole build (envelope, elements, GetXML) divided by the
// element count; bytes_per_second for the escaping runs counts the input bytes.
#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "brenvale/qbxml/Session.hpp"
#include "brenvale/qbxml/xmlBldr.hpp"

namespace {

using brenvale::Currency;
using brenvale::CurrentSession;
using brenvale::xmlBldr;

constexpr int kElements = 10000;

void UseVersion(const char* version) {
  auto& s = CurrentSession();
  s.qbxmlVersion = version;
  s.qbXMLVersionNumber = brenvale::VersionNumberOf(version);
}

std::vector<std::string> PlainValues() {
  std::vector<std::string> v;
  v.reserve(kElements);
  for (int i = 0; i < kElements; ++i) v.push_back("Customer " + std::to_string(100000 + i) + " Main Street");
  return v;
}

// Every value needs several replacements, ASCII and Windows-1252 alike.
std::vector<std::string> HeavyValues() {
  std::vector<std::string> v;
  v.reserve(kElements);
  for (int i = 0; i < kElements; ++i)
    v.push_back("Smith & Sons <\"Ltd\"> 'x' @" + std::to_string(i) + " Caf\u00e9 \u2026 \u20ac5");
  return v;
}

void SetElementCounter(benchmark::State& state) {
  const double elements = static_cast<double>(state.iterations()) * kElements;
  state.SetItemsProcessed(static_cast<std::int64_t>(elements));
  // Seconds per element, printed with its SI prefix ("250ns").
  state.counters["time_per_element"] =
      benchmark::Counter(elements, benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

void BuildDocument(benchmark::State& state, const std::vector<std::string>& values) {
  UseVersion("13.0");
  std::size_t bytes = 0;
  for (auto _ : state) {
    xmlBldr b;
    b.NewClear();
    b.OpenAggregate("CustomerAddRq", "requestID", "1");
    b.OpenAggregateOnly("CustomerAdd");
    for (const std::string& value : values) b.CreateElement("Name", value, Currency(2));
    b.EndAggregate("CustomerAdd");
    b.EndAggregate("CustomerAddRq");
    b.EndAggregate("QBXMLMsgsRq");
    b.EndAggregate("QBXML");
    std::string xml = b.GetXML();
    bytes = xml.size();
    benchmark::DoNotOptimize(xml.data());
  }
  SetElementCounter(state);
  state.counters["document_bytes"] = static_cast<double>(bytes);
}

void BM_Build10kElements(benchmark::State& state) { BuildDocument(state, PlainValues()); }
BENCHMARK(BM_Build10kElements)->Unit(benchmark::kMicrosecond);

void BM_Build10kElementsEscapeHeavy(benchmark::State& state) { BuildDocument(state, HeavyValues()); }
BENCHMARK(BM_Build10kElementsEscapeHeavy)->Unit(benchmark::kMicrosecond);

// The floor: the same plain text appended to one string reserved up front, with no pieces, no
// escaping and no version gate.
void BM_Baseline_OneStringAppend(benchmark::State& state) {
  const std::vector<std::string> values = PlainValues();
  for (auto _ : state) {
    std::string xml;
    xml.reserve(600000);
    xml += "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><!DOCTYPE QBXML PUBLIC '-//INTUIT//DTD QBXML QBD 13.0//EN' >"
           "<QBXML><QBXMLMsgsRq onError = \"continueOnError\"><CustomerAddRq requestID = \"1\"><CustomerAdd>";
    for (const std::string& value : values) {
      xml += "<Name>";
      xml += value;
      xml += "</Name>";
    }
    xml += "</CustomerAdd></CustomerAddRq></QBXMLMsgsRq></QBXML>";
    benchmark::DoNotOptimize(xml.data());
  }
  SetElementCounter(state);
}
BENCHMARK(BM_Baseline_OneStringAppend)->Unit(benchmark::kMicrosecond);

// Elements above the session's version: the cost of the gate alone.
void BM_Gated10kElements(benchmark::State& state) {
  UseVersion("2.0");
  const std::vector<std::string> values = PlainValues();
  for (auto _ : state) {
    xmlBldr b;
    for (const std::string& value : values) b.CreateElement("Name", value, Currency(3));
    benchmark::DoNotOptimize(b.GetXML());
  }
  SetElementCounter(state);
}
BENCHMARK(BM_Gated10kElements)->Unit(benchmark::kMicrosecond);

void EscapeText(benchmark::State& state, const std::string& text) {
  for (auto _ : state) {
    std::string escaped = brenvale::EscapeXmlText(text);
    benchmark::DoNotOptimize(escaped.data());
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * static_cast<std::int64_t>(text.size()));
}

void BM_EscapePlain(benchmark::State& state) {
  std::string text;
  while (text.size() < 4096) text += "Customer 100042 Main Street Suite 7 Springfield ";
  EscapeText(state, text);
}
BENCHMARK(BM_EscapePlain);

void BM_EscapeHeavy(benchmark::State& state) {
  std::string text;
  while (text.size() < 4096) text += "Smith & Sons <\"Ltd\"> 'x' @ Caf\u00e9 \u2026 \u20ac5 ";
  EscapeText(state, text);
}
BENCHMARK(BM_EscapeHeavy);

}  // namespace

BENCHMARK_MAIN();

// Records read per second by a collection query (request written, response parsed, every Ret read
// by FromDom and filed) against a bare pugixml walk of the same 10,000-record response.
//
// The response is the standard customer document of the bench generator with its CustomerRet
// elements renamed ClassRet: a class reads ListID, times, EditSequence, Name, FullName, IsActive and
// Sublevel, and skips every other child as an unknown element, as it would in a real response.
#include <benchmark/benchmark.h>

#include <memory>
#include <pugixml.hpp>
#include <string>

#include "BenchSupport.hpp"
#include "brenvale/Brenvale.hpp"
#include "brenvale/qbxml/Session.hpp"

namespace {

constexpr int kRecords = 10000;

// Every `from` in `text` replaced by `to`, in one pass.
void ReplaceAll(std::string& text, const std::string& from, const std::string& to) {
  std::string out;
  out.reserve(text.size());
  std::size_t start = 0;
  for (std::size_t at = text.find(from); at != std::string::npos; at = text.find(from, start)) {
    out.append(text, start, at - start).append(to);
    start = at + from.size();
  }
  out.append(text, start, std::string::npos);
  text = std::move(out);
}

// The generator's customer response, turned into a class query response.
const std::string& ClassResponse() {
  static const std::string response = [] {
    std::string text = brenvale::bench::GeneratedCustomers(kRecords);
    ReplaceAll(text, "CustomerQueryRs", "ClassQueryRs");
    ReplaceAll(text, "<CustomerRet>", "<ClassRet>");
    ReplaceAll(text, "</CustomerRet>", "</ClassRet>");
    return text;
  }();
  return response;
}

void BM_CollectionQuery(benchmark::State& state) {
  brenvale::Session& session = brenvale::CurrentSession();
  session.qbxmlVersion = "13.0";
  session.qbXMLVersionNumber = brenvale::VersionNumberOf("13.0");
  session.processor = std::make_shared<brenvale::bench::CannedProcessor>(&ClassResponse);
  session.ticket = "T";
  ClassResponse();
  for (auto _ : state) {
    brenvale::Classes classes;
    brenvale::Long read = classes.GetAll();
    if (read != kRecords) state.SkipWithError("the query read the wrong number of records");
    benchmark::DoNotOptimize(classes.Item(std::size_t{1}).ListID());
  }
  state.SetItemsProcessed(state.iterations() * kRecords);
  session = brenvale::Session{};
}

// The floor: parse once and touch every child of every Ret, nothing kept.
void BM_PugixmlWalk(benchmark::State& state) {
  const std::string& text = ClassResponse();
  for (auto _ : state) {
    pugi::xml_document doc;
    if (!doc.load_buffer(text.data(), text.size())) state.SkipWithError("parse failed");
    std::size_t records = 0, bytes = 0;
    for (pugi::xml_node ret :
         doc.child("QBXML").child("QBXMLMsgsRs").child("ClassQueryRs").children("ClassRet")) {
      ++records;
      for (pugi::xml_node field : ret.children()) bytes += std::string_view(field.child_value()).size();
    }
    if (records != kRecords) state.SkipWithError("the walk found the wrong number of records");
    benchmark::DoNotOptimize(bytes);
  }
  state.SetItemsProcessed(state.iterations() * kRecords);
}

BENCHMARK(BM_CollectionQuery)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_PugixmlWalk)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();

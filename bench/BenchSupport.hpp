#pragma once
// What the benchmarks share: the standard documents of the bench generator, and a request processor
// that answers every request with one of them.
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <vector>

#include <memory>
#include <pugixml.hpp>
#include <string_view>

#include "brenvale/core/RequestProcessor.hpp"
#include "brenvale/qbxml/Session.hpp"

namespace brenvale::bench {

// The generator's response of `customers` customers ("customers.xml"), as text.
inline std::string GeneratedCustomers(int customers) {
  std::string dir = (std::filesystem::temp_directory_path() / "brenvale-bench-XXXXXX").string();
  if (!mkdtemp(dir.data())) throw std::runtime_error("cannot make a temporary folder");
  const std::string command = "python3 '" BRENVALE_BENCH_GEN "' --customers " + std::to_string(customers) +
                              " --invoices 1 --lines 1 --out '" + dir + "' > /dev/null";
  const int status = std::system(command.c_str());
  std::ifstream in(std::filesystem::path(dir) / "customers.xml", std::ios::binary);
  std::string text{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
  std::filesystem::remove_all(dir);
  if (status != 0 || text.empty()) throw std::runtime_error("the bench generator failed: " + command);
  return text;
}

// Answers every request with the text `response` gives, a fresh copy each time as a processor would.
class CannedProcessor : public IRequestProcessor {
 public:
  explicit CannedProcessor(const std::string& (*response)()) : response_(response) {}
  void OpenConnection(const std::string&, const std::string&) override {}
  void OpenConnection2(const std::string&, const std::string&, qbConnectionType) override {}
  std::string BeginSession(const std::string&, qbEnumFileOpenMode) override { return "T"; }
  std::vector<std::string> QBXMLVersionsForSession(const std::string&) override { return {"13.0"}; }
  std::string GetCurrentCompanyFileName(const std::string&) override { return {}; }
  std::string ProcessRequest(const std::string&, const std::string&) override { return response_(); }
  std::string ProcessSubscription(const std::string&) override { return {}; }
  void EndSession(const std::string&) override {}
  void CloseConnection() override {}
  ProcessorAuthPreferences& AuthPreferences() override { return prefs_; }

 private:
  const std::string& (*response_)();
  ProcessorAuthPreferences prefs_;
};

// A US desktop 13.0 session whose every request `response` answers.
inline void ConnectCanned(const std::string& (*response)()) {
  Session& session = CurrentSession();
  session.qbxmlVersion = "13.0";
  session.qbXMLVersionNumber = VersionNumberOf("13.0");
  session.country = "US";
  session.processor = std::make_shared<CannedProcessor>(response);
  session.ticket = "T";
}

// The floor a read is measured against: `text` parsed by pugixml and the text of every element of
// every `ret` in the `rs` response touched (those of nested aggregates too), nothing kept. Returns the
// number of Ret elements, or -1 when the text does not parse.
inline long BareWalk(const std::string& text, const char* rs, const char* ret, std::size_t& touched) {
  pugi::xml_document doc;
  if (!doc.load_buffer(text.data(), text.size())) return -1;
  long records = 0;
  for (pugi::xml_node r : doc.child("QBXML").child("QBXMLMsgsRs").child(rs).children(ret)) {
    ++records;
    for (pugi::xml_node field : r.children()) {
      touched += std::string_view(field.child_value()).size();
      for (pugi::xml_node part : field.children())
        if (part.type() == pugi::node_element) touched += std::string_view(part.child_value()).size();
    }
  }
  return records;
}

}  // namespace brenvale::bench

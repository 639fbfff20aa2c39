// The company engine answering whatever a host sends. Every input ends in a response document or
// in the processor's error; a response is always XML a conforming parser takes (plain ASCII, no
// character XML forbids, references only to characters XML allows, well-formed); nothing may crash,
// hang or leak. The company the inputs work on grows as they go.
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>

#include <pugixml.hpp>

#include "brenvale/core/BrenvaleError.hpp"
#include "brenvale/rqp/CompanyEngine.hpp"

namespace {

namespace fs = std::filesystem;

struct Company {
  fs::path dir;
  brenvale::rqp::CompanyEngine engine;
  std::string ticket;

  Company() : dir(fs::temp_directory_path() / ("fuzz-engine-" + std::to_string(std::rand()))) {
    fs::create_directories(dir);
    engine.OpenConnection("", "fuzz");
    ticket = engine.BeginSession((dir / "fuzz.qbw").string(), brenvale::qbOpenModeSingleUser);
  }
  ~Company() {
    engine.CloseConnection();
    std::error_code ec;
    fs::remove_all(dir, ec);
  }
};

bool XmlChar(unsigned long c) {
  return c == 0x9 || c == 0xA || c == 0xD || (c >= 0x20 && c <= 0xD7FF) || (c >= 0xE000 && c <= 0xFFFD) ||
         (c >= 0x10000 && c <= 0x10FFFF);
}

// Whether `response` is a document any conforming XML parser takes.
bool ConformingXml(const std::string& response) {
  for (std::size_t i = 0; i < response.size(); ++i) {
    unsigned char c = static_cast<unsigned char>(response[i]);
    if (c >= 0x80 || (c < 0x20 && c != '\n')) return false;
    if (c != '&') continue;
    std::size_t end = response.find(';', i);
    if (end == std::string::npos) return false;
    std::string ref = response.substr(i + 1, end - i - 1);
    if (ref.size() > 1 && ref[0] == '#') {
      char* stop = nullptr;
      unsigned long code = std::strtoul(ref.c_str() + 1, &stop, 10);
      if (*stop != '\0' || !XmlChar(code)) return false;
    } else if (ref != "amp" && ref != "lt" && ref != "gt" && ref != "quot" && ref != "apos") {
      return false;
    }
  }
  pugi::xml_document doc;
  return doc.load_buffer(response.data(), response.size()) && doc.child("QBXML");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static auto company = std::make_unique<Company>();
  static const int cleanup = std::atexit([] { company.reset(); });
  (void)cleanup;
  std::string request(reinterpret_cast<const char*>(data), size);
  try {
    std::string response = company->engine.ProcessRequest(company->ticket, request);
    if (!ConformingXml(response)) __builtin_trap();
  } catch (const brenvale::BrenvaleError&) {
    // the processor's error: a document it does not take
  }
  return 0;
}

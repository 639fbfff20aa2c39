#pragma once
// Shared pieces of the list tests: a fresh session per test, a scripted request processor, and a
// collector of what the trace hook is given.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "brenvale/core/BrenvaleError.hpp"
#include "brenvale/core/TraceHook.hpp"
#include "brenvale/qbxml/Session.hpp"
#include "support/RaisedBy.hpp"
#include "support/ScriptedProcessor.hpp"

namespace brenvale::testing {

class ListsTest : public ::testing::Test {
 protected:
  void SetUp() override { Reset(); }
  void TearDown() override {
    SetTraceObserver({});
    Reset();
  }
  static void Reset() {
    CurrentSession() = Session{};
    CurrentSession().qbxmlVersion = "13.0";
    CurrentSession().qbXMLVersionNumber = VersionNumberOf("13.0");
  }
};

// A scripted processor in this thread's session; it answers every request with `answer`.
inline std::shared_ptr<ScriptedProcessor> InstallProcessor(std::string answer = {}) {
  auto p = std::make_shared<ScriptedProcessor>();
  p->answer = [answer](const std::string&) { return answer; };
  CurrentSession().processor = p;
  CurrentSession().ticket = p->ticket;
  return p;
}

// A response document holding one response aggregate.
inline std::string Response(const std::string& rs) {
  return "<?xml version=\"1.0\" ?><QBXML><QBXMLMsgsRs>" + rs + "</QBXMLMsgsRs></QBXML>";
}

// A response document with one response aggregate `rs` of that status holding `body`.
inline std::string StatusResponse(const std::string& rs, int status, const std::string& body = {},
                                  const std::string& message = "Status OK") {
  return Response("<" + rs + " requestID=\"1\" statusCode=\"" + std::to_string(status) +
                  "\" statusSeverity=\"" + (status ? "Warn" : "Info") + "\" statusMessage=\"" + message +
                  "\">" + body + "</" + rs + ">");
}

// Collects (source, text) pairs given to the trace hook while alive.
class TraceCollector {
 public:
  TraceCollector() {
    SetTraceObserver([this](std::string_view source, std::string_view text) {
      seen.emplace_back(std::string(source), std::string(text));
    });
  }
  ~TraceCollector() { SetTraceObserver({}); }
  std::vector<std::pair<std::string, std::string>> seen;
};

}  // namespace brenvale::testing

#pragma once
// A request processor for tests: records every call, answers requests from a script, can be told
// to fail at any step, and checks every request it is given against QuickBooks' qbXML schema (a
// test whose requests cannot be checked, for want of the schema, is reported skipped).
#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "brenvale/core/BrenvaleError.hpp"
#include "brenvale/core/ProcessorRegistry.hpp"
#include "brenvale/core/RequestProcessor.hpp"

namespace brenvale::testing {

class ScriptedProcessor : public IRequestProcessor {
 public:
  struct Exchange {
    std::string member;  // "ProcessRequest" or "ProcessSubscription"
    std::string ticket;
    std::string request;
  };

  std::vector<std::string> calls;      // operation names in order
  std::vector<Exchange> exchanges;     // ProcessRequest and ProcessSubscription calls
  std::vector<std::string> requests;   // their request texts
  std::vector<std::string> versions{"1.0", "2.0", "13.0"};
  std::string companyFile = "C:\\Company.qbw";
  std::string ticket = "{ticket-1}";
  std::string failAt;  // the operation that throws
  std::string major = "34";
  // Requests and subscriptions throw with this text.
  bool fail = false;
  std::string failureText = "The request processor failed.";
  // Whether each request is checked against the schema; off only for documents that are not
  // qbXML requests by design (what a test sends to see the transport alone).
  bool validate = true;
  ProcessorAuthPreferences auth;
  qbConnectionType connectionType = unknown;
  // Answers a request. Without it: the queued responses in order (the last repeats); without those,
  // a host query's answer, and otherwise an empty response document.
  std::function<std::string(const std::string&)> answer;
  std::deque<std::string> responses;

  static std::string HostResponse(const std::string& major, const std::string& extra = {});

  void OpenConnection(const std::string&, const std::string&) override { Step("OpenConnection"); }
  void OpenConnection2(const std::string&, const std::string&, qbConnectionType type) override {
    Step("OpenConnection2");
    connectionType = type;
  }
  std::string BeginSession(const std::string& file, qbEnumFileOpenMode) override {
    Step("BeginSession");
    if (!file.empty()) companyFile = file;
    return ticket;
  }
  std::vector<std::string> QBXMLVersionsForSession(const std::string&) override {
    Step("QBXMLVersionsForSession");
    return versions;
  }
  std::string GetCurrentCompanyFileName(const std::string&) override {
    Step("GetCurrentCompanyFileName");
    return companyFile;
  }
  std::string ProcessRequest(const std::string& t, const std::string& request) override;
  std::string ProcessSubscription(const std::string& request) override;
  void EndSession(const std::string&) override { Step("EndSession"); }
  void CloseConnection() override { Step("CloseConnection"); }
  ProcessorAuthPreferences& AuthPreferences() override { return auth; }
  std::string MajorVersion() const override { return major; }
  std::string MinorVersion() const override { return "1"; }

 private:
  void Step(const std::string& name);
  std::string Answer(const std::string& request);
  void Check(const std::string& request) const;
};

// Registers a ScriptedProcessor under a ProgID for the life of the object; the processor the
// connection creates is reachable through `last`.
class ScriptedRegistration {
 public:
  explicit ScriptedRegistration(std::string progId = "Test.ScriptedProcessor",
                                std::function<void(ScriptedProcessor&)> setup = {});
  ~ScriptedRegistration();
  const std::string& ProgId() const { return progId_; }
  std::shared_ptr<ScriptedProcessor> last;

 private:
  std::string progId_;
};

}  // namespace brenvale::testing

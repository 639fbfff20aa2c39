#pragma once
// A request processor for tests: records every call, answers requests with a script, and can be
// told to fail at any step.
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
  std::vector<std::string> calls;     // operation names in order
  std::vector<std::string> requests;  // request texts of ProcessRequest / ProcessSubscription
  std::vector<std::string> versions{"1.0", "2.0", "13.0"};
  std::string companyFile = "C:\\Company.qbw";
  std::string ticket = "{ticket-1}";
  std::string failAt;  // the operation that throws
  std::string major = "34";
  ProcessorAuthPreferences auth;
  qbConnectionType connectionType = unknown;
  // Answers a request; the default answers a host query and otherwise "Status OK" with nothing.
  std::function<std::string(const std::string&)> answer;

  static std::string HostResponse(const std::string& major, const std::string& extra = {}) {
    return "<?xml version=\"1.0\" ?><QBXML><QBXMLMsgsRs><HostQueryRs requestID=\"1\" statusCode=\"0\" "
           "statusSeverity=\"Info\" statusMessage=\"Status OK\"><HostRet><ProductName>QuickBooks Pro</ProductName>"
           "<MajorVersion>" + major + "</MajorVersion><MinorVersion>0</MinorVersion><Country>US</Country>"
           "<SupportedQBXMLVersion>12.0</SupportedQBXMLVersion><SupportedQBXMLVersion>13.0"
           "</SupportedQBXMLVersion>" + extra + "<IsAutomaticLogin>false</IsAutomaticLogin>"
           "<QBFileMode>SingleUser</QBFileMode></HostRet></HostQueryRs></QBXMLMsgsRs></QBXML>";
  }

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
  std::string ProcessRequest(const std::string& t, const std::string& request) override {
    Step("ProcessRequest");
    if (t != ticket) throw BrenvaleError(ErrorNumber(1033), "ScriptedProcessor", "bad ticket");
    requests.push_back(request);
    if (answer) return answer(request);
    if (request.find("HostQueryRq") != std::string::npos) return HostResponse(major);
    return "<?xml version=\"1.0\" ?><QBXML><QBXMLMsgsRs></QBXMLMsgsRs></QBXML>";
  }
  std::string ProcessSubscription(const std::string& request) override {
    Step("ProcessSubscription");
    requests.push_back(request);
    return answer ? answer(request) : std::string("<?xml version=\"1.0\" ?><QBXML/>");
  }
  void EndSession(const std::string&) override { Step("EndSession"); }
  void CloseConnection() override { Step("CloseConnection"); }
  ProcessorAuthPreferences& AuthPreferences() override { return auth; }
  std::string MajorVersion() const override { return major; }
  std::string MinorVersion() const override { return "1"; }

 private:
  void Step(const std::string& name) {
    calls.push_back(name);
    if (name == failAt) throw BrenvaleError(-2147220472, "QBXMLRP2.RequestProcessor", "Could not start QuickBooks.");
  }
};

// Registers a ScriptedProcessor under a ProgID for the life of the object; the processor the
// connection creates is reachable through `last`.
class ScriptedRegistration {
 public:
  explicit ScriptedRegistration(std::string progId = "Test.ScriptedProcessor",
                                std::function<void(ScriptedProcessor&)> setup = {})
      : progId_(std::move(progId)) {
    RegisterRequestProcessor(progId_, [this, setup] {
      auto p = std::make_shared<ScriptedProcessor>();
      if (setup) setup(*p);
      last = p;
      return p;
    });
  }
  ~ScriptedRegistration() { UnregisterRequestProcessor(progId_); }
  const std::string& ProgId() const { return progId_; }
  std::shared_ptr<ScriptedProcessor> last;

 private:
  std::string progId_;
};

}  // namespace brenvale::testing

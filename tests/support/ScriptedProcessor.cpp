#include "support/ScriptedProcessor.hpp"

#include <gtest/gtest.h>

#include "support/QbxmlSchema.hpp"

namespace brenvale::testing {

std::string ScriptedProcessor::HostResponse(const std::string& major, const std::string& extra) {
  return "<?xml version=\"1.0\" ?><QBXML><QBXMLMsgsRs><HostQueryRs requestID=\"1\" statusCode=\"0\" "
         "statusSeverity=\"Info\" statusMessage=\"Status OK\"><HostRet><ProductName>QuickBooks Pro</ProductName>"
         "<MajorVersion>" + major + "</MajorVersion><MinorVersion>0</MinorVersion><Country>US</Country>"
         "<SupportedQBXMLVersion>12.0</SupportedQBXMLVersion><SupportedQBXMLVersion>13.0"
         "</SupportedQBXMLVersion>" + extra + "<IsAutomaticLogin>false</IsAutomaticLogin>"
         "<QBFileMode>SingleUser</QBFileMode></HostRet></HostQueryRs></QBXMLMsgsRs></QBXML>";
}

void ScriptedProcessor::Step(const std::string& name) {
  calls.push_back(name);
  if (name == failAt) throw BrenvaleError(-2147220472, "QBXMLRP2.RequestProcessor", "Could not start QuickBooks.");
}

void ScriptedProcessor::Check(const std::string& request) const {
  if (!validate || !SchemaOrSkip("the requests of this test")) return;
  const std::string problems = SchemaProblems(request);
  if (!problems.empty()) ADD_FAILURE() << "a request QuickBooks would refuse: " << problems << "\n" << request;
}

std::string ScriptedProcessor::Answer(const std::string& request) {
  if (fail) throw BrenvaleError(-2147220000, "QBXMLRP2", failureText);
  if (answer) return answer(request);
  if (!responses.empty()) {
    std::string r = responses.front();
    if (responses.size() > 1) responses.pop_front();
    return r;
  }
  if (request.find("HostQueryRq") != std::string::npos) return HostResponse(major);
  return "<?xml version=\"1.0\" ?><QBXML><QBXMLMsgsRs></QBXMLMsgsRs></QBXML>";
}

std::string ScriptedProcessor::ProcessRequest(const std::string& t, const std::string& request) {
  Step("ProcessRequest");
  exchanges.push_back({"ProcessRequest", t, request});
  if (t != ticket) throw BrenvaleError(ErrorNumber(1033), "ScriptedProcessor", "bad ticket");
  requests.push_back(request);
  Check(request);
  return Answer(request);
}

std::string ScriptedProcessor::ProcessSubscription(const std::string& request) {
  Step("ProcessSubscription");
  exchanges.push_back({"ProcessSubscription", {}, request});
  requests.push_back(request);
  Check(request);
  return Answer(request);
}

ScriptedRegistration::ScriptedRegistration(std::string progId, std::function<void(ScriptedProcessor&)> setup)
    : progId_(std::move(progId)) {
  RegisterRequestProcessor(progId_, [this, setup] {
    auto p = std::make_shared<ScriptedProcessor>();
    if (setup) setup(*p);
    last = p;
    return p;
  });
}

ScriptedRegistration::~ScriptedRegistration() { UnregisterRequestProcessor(progId_); }

}  // namespace brenvale::testing

#pragma once
// "BrenvaleWC.RequestProcessor": the request processor that reaches a real QuickBooks Desktop
// through QuickBooks' Web Connector. A host selects it by ProgID and works unchanged; each of its
// synchronous requests is handed to the Web Connector of the company at its next sendRequestXML,
// and the host's thread waits (within a time limit) until receiveResponseXML brings the answer.
//
//   brenvale::webconnector::Service service({.users = brenvale::webconnector::Users::Load("users.txt")});
//   service.Start();
//   brenvale::webconnector::RegisterWebConnector(service, {.company = "acme"});
//   BrenvaleGlobals::QBConnection().RequestProcessorProgId("BrenvaleWC.RequestProcessor");
//   BrenvaleGlobals::QBConnect("", "My App", qbOpenModeDontCare, "acme");  // waits for the Web Connector
//
// Failures are raised as QuickBooks' request processor raises them (core/ProcessorHresult.hpp), with
// a text that says what happened: no Web Connector came, it left, QuickBooks refused the document.
#include <chrono>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "brenvale/core/RequestProcessor.hpp"

namespace brenvale::webconnector {

inline constexpr std::string_view kProgIdWebConnector = "BrenvaleWC.RequestProcessor";

namespace detail {
class Hub;
struct CompanyFacts;
}  // namespace detail

struct ProcessorOptions {
  // How long "BeginSession" waits for the company's Web Connector to log in, and then for its
  // first call; set it above the Web Connector's schedule.
  std::chrono::milliseconds sessionWait = std::chrono::minutes(2);
  // How long "ProcessRequest" waits for the response.
  std::chrono::milliseconds requestWait = std::chrono::minutes(2);
  // When set, every session is on this company (a name of the users file), whatever file name the
  // host gives "BeginSession"; otherwise that name (or the company file) chooses the company, and an
  // empty one means the only company the service serves.
  std::string company;
};

class WebConnectorProcessor : public IRequestProcessor {
 public:
  WebConnectorProcessor(std::shared_ptr<detail::Hub> hub, ProcessorOptions options);
  ~WebConnectorProcessor() override;
  WebConnectorProcessor(const WebConnectorProcessor&) = delete;
  WebConnectorProcessor& operator=(const WebConnectorProcessor&) = delete;

  void OpenConnection(const std::string& appID, const std::string& appName) override;
  void OpenConnection2(const std::string& appID, const std::string& appName,
                       qbConnectionType connectionType) override;
  std::string BeginSession(const std::string& qbFileName, qbEnumFileOpenMode openMode) override;
  std::vector<std::string> QBXMLVersionsForSession(const std::string& ticket) override;
  std::string GetCurrentCompanyFileName(const std::string& ticket) override;
  std::string ProcessRequest(const std::string& ticket, const std::string& request) override;
  // Event subscriptions do not travel through the Web Connector: error 438.
  std::string ProcessSubscription(const std::string& request) override;
  void EndSession(const std::string& ticket) override;
  void CloseConnection() override;
  ProcessorAuthPreferences& AuthPreferences() override { return auth_; }

 private:
  const detail::CompanyFacts& Facts(const std::string& ticket);

  std::shared_ptr<detail::Hub> hub_;
  ProcessorOptions options_;
  ProcessorAuthPreferences auth_;
  bool connected_ = false;
  std::string ticket_;
  std::shared_ptr<const detail::CompanyFacts> facts_;
};

class Service;
// Registers "BrenvaleWC.RequestProcessor" for the service: every processor created by that ProgID
// sends its requests through this service's Web Connectors.
void RegisterWebConnector(const Service& service, ProcessorOptions options = {});

}  // namespace brenvale::webconnector

#include "brenvale/webconnector/WebConnectorProcessor.hpp"

#include "brenvale/core/BrenvaleError.hpp"
#include "brenvale/core/ProcessorRegistry.hpp"
#include "brenvale/core/ProcessorHresult.hpp"
#include "brenvale/webconnector/Service.hpp"
#include "brenvale/webconnector/detail/HostFacts.hpp"
#include "brenvale/webconnector/detail/Hub.hpp"

namespace brenvale::webconnector {
namespace {

constexpr std::string_view kSource = kProgIdWebConnector;
constexpr std::int32_t kObjectDoesNotSupport = 438;

[[noreturn]] void Fail(std::int32_t number, const std::string& text) {
  throw BrenvaleError(number, std::string(kSource), text);
}

}  // namespace

WebConnectorProcessor::WebConnectorProcessor(std::shared_ptr<detail::Hub> hub, ProcessorOptions options)
    : hub_(std::move(hub)), options_(std::move(options)) {}

WebConnectorProcessor::~WebConnectorProcessor() {
  try {
    CloseConnection();
  } catch (...) {
    // Ending the session when the processor goes is best effort.
  }
}

void WebConnectorProcessor::OpenConnection(const std::string&, const std::string&) { connected_ = true; }

void WebConnectorProcessor::OpenConnection2(const std::string& appID, const std::string& appName, qbConnectionType) {
  OpenConnection(appID, appName);
}

std::string WebConnectorProcessor::BeginSession(const std::string& qbFileName, qbEnumFileOpenMode) {
  if (!connected_) Fail(hresult::kCouldNotAccess, "Could not access QuickBooks. OpenConnection has not been called.");
  if (!ticket_.empty())
    Fail(hresult::kSessionAlreadyBegun,
         "A session has already begun on this connection. Call EndSession before beginning another.");
  ticket_ = hub_->BeginHost(options_.company.empty() ? qbFileName : options_.company, options_.sessionWait);
  facts_.reset();
  return ticket_;
}

const detail::CompanyFacts& WebConnectorProcessor::Facts(const std::string& ticket) {
  if (ticket_.empty() || ticket != ticket_) {
    if (ticket_.empty() && ticket.empty())
      Fail(hresult::kBeginSessionNotCalled, "The BeginSession method has not been called or it did not succeed.");
    Fail(hresult::kInvalidTicket, "The ticket parameter is invalid.");
  }
  if (!facts_) facts_ = std::make_shared<const detail::CompanyFacts>(hub_->Facts(ticket, options_.sessionWait));
  return *facts_;
}

std::vector<std::string> WebConnectorProcessor::QBXMLVersionsForSession(const std::string& ticket) {
  std::vector<std::string> versions = detail::SessionVersions(Facts(ticket));
  if (versions.empty())
    Fail(hresult::kUnexpected, "Unexpected error. The Web Connector did not say which qbXML versions QuickBooks "
                               "supports.");
  return versions;
}

std::string WebConnectorProcessor::GetCurrentCompanyFileName(const std::string& ticket) {
  return Facts(ticket).companyFile;
}

std::string WebConnectorProcessor::ProcessRequest(const std::string& ticket, const std::string& request) {
  Facts(ticket);
  return hub_->Process(ticket, request, options_.requestWait);
}

std::string WebConnectorProcessor::ProcessSubscription(const std::string&) {
  Fail(kObjectDoesNotSupport, "Object doesn't support this property or method: event subscriptions cannot travel "
                              "through the Web Connector; subscribe on the QuickBooks machine itself.");
}

void WebConnectorProcessor::EndSession(const std::string& ticket) {
  if (ticket_.empty() || ticket != ticket_) Facts(ticket);  // raises the processor's ticket errors
  std::string ending = std::move(ticket_);
  ticket_.clear();
  facts_.reset();
  hub_->EndHost(ending);
}

void WebConnectorProcessor::CloseConnection() {
  if (!ticket_.empty()) EndSession(ticket_);
  connected_ = false;
}

void RegisterWebConnector(const Service& service, ProcessorOptions options) {
  RegisterRequestProcessor(kProgIdWebConnector, service.ProcessorFactory(std::move(options)));
}

}  // namespace brenvale::webconnector

#include "brenvale/rqp/CompanyEngine.hpp"

#include "brenvale/core/BrenvaleError.hpp"
#include "brenvale/core/ProcessorRegistry.hpp"
#include "brenvale/rqp/engine/Company.hpp"
#include "brenvale/rqp/protocol/Guid.hpp"
#include "brenvale/rqp/protocol/Status.hpp"
#include "brenvale/rqp/subscriptions/Subscriptions.hpp"

namespace brenvale::rqp {
namespace {

const std::string kSource(kProgIdCompanyEngine);

[[noreturn]] void Fail(std::int32_t number, const std::string& text) { throw BrenvaleError(number, kSource, text); }

}  // namespace

CompanyEngine::CompanyEngine(HostFacts facts) : facts_(std::move(facts)) { detail::InstallEngine(); }

CompanyEngine::~CompanyEngine() = default;

void CompanyEngine::OpenConnection(const std::string& /*appID*/, const std::string& appName) {
  connected_ = true;
  appName_ = appName;
}

void CompanyEngine::OpenConnection2(const std::string& appID, const std::string& appName,
                                    qbConnectionType /*connectionType*/) {
  OpenConnection(appID, appName);
}

std::string CompanyEngine::BeginSession(const std::string& qbFileName, qbEnumFileOpenMode openMode) {
  if (!connected_) Fail(hresult::kCouldNotAccess, "Could not access QuickBooks. OpenConnection has not been called.");
  if (company_)
    Fail(hresult::kSessionAlreadyBegun,
         "A session has already begun on this connection. Call EndSession before beginning another.");
  try {
    company_ = std::make_unique<detail::Company>(qbFileName, openMode, facts_);
  } catch (const detail::ProcessError& e) {
    Fail(e.hresult, e.text);
  }
  ticket_ = detail::NewGuid();
  return ticket_;
}

void CompanyEngine::CheckTicket(const std::string& ticket) const {
  if (!company_ && ticket.empty())
    Fail(hresult::kBeginSessionNotCalled, "The BeginSession method has not been called or it did not succeed.");
  if (!company_ || ticket != ticket_) Fail(hresult::kInvalidTicket, "The ticket parameter is invalid.");
}

std::vector<std::string> CompanyEngine::QBXMLVersionsForSession(const std::string& ticket) {
  CheckTicket(ticket);
  return facts_.SupportedVersions;
}

std::string CompanyEngine::GetCurrentCompanyFileName(const std::string& ticket) {
  CheckTicket(ticket);
  return company_->Path();
}

std::string CompanyEngine::ProcessRequest(const std::string& ticket, const std::string& request) {
  CheckTicket(ticket);
  try {
    return company_->Process(request);
  } catch (const detail::ProcessError& e) {
    Fail(e.hresult, e.text);
  } catch (const std::exception& e) {
    Fail(hresult::kUnexpected, std::string("Unexpected error. ") + e.what());
  }
}

std::string CompanyEngine::ProcessSubscription(const std::string& request) {
  if (!connected_) Fail(hresult::kCouldNotAccess, "Could not access QuickBooks. OpenConnection has not been called.");
  try {
    return detail::ProcessSubscriptions(request, facts_);
  } catch (const detail::ProcessError& e) {
    Fail(e.hresult, e.text);
  } catch (const std::exception& e) {
    Fail(hresult::kUnexpected, std::string("Unexpected error. ") + e.what());
  }
}

void CompanyEngine::EndSession(const std::string& ticket) {
  CheckTicket(ticket);
  company_.reset();
  ticket_.clear();
}

void CompanyEngine::CloseConnection() {
  company_.reset();
  ticket_.clear();
  connected_ = false;
}

std::string CompanyEngine::MajorVersion() const { return std::to_string(facts_.MajorVersion); }
std::string CompanyEngine::MinorVersion() const { return std::to_string(facts_.MinorVersion); }

void RegisterCompanyEngine(HostFacts facts) {
  RegisterRequestProcessor(kProgIdCompanyEngine,
                           [facts] { return std::make_shared<CompanyEngine>(facts); });
}

}  // namespace brenvale::rqp

#include "brenvale/company/BrenvaleGlobals.hpp"

#include <cstdlib>
#include <filesystem>
#include <memory>

#include "brenvale/core/BrenvaleError.hpp"
#include "brenvale/qbxml/Session.hpp"

namespace brenvale {
namespace {

Integer Narrow16(Long code) {
  if (code < -32768 || code > 32767) platform::Raise(platform::kOverflow, "Brenvale");
  return static_cast<Integer>(code);
}

std::unique_ptr<brenvale::QBConnection>& ConnectionSlot() {
  thread_local std::unique_ptr<brenvale::QBConnection> connection;
  return connection;
}

}  // namespace

std::string BrenvaleGlobals::EStr(Long Code, zqEnumerationType Enumeration) {
  return EnumCatalogue(Enumeration).ItemByCode(Narrow16(Code)).Description();
}

Long BrenvaleGlobals::eVal(const std::string& Description, zqEnumerationType Enumeration) {
  return EnumCatalogue(Enumeration).Item(std::string_view(Description)).Code();
}

std::string BrenvaleGlobals::EXMLStr(Long Code, zqEnumerationType Enumeration) {
  return EnumCatalogue(Enumeration).ItemByCode(Narrow16(Code)).XMLTag();
}

brenvale::QBConnection& BrenvaleGlobals::QBConnection() {
  auto& slot = ConnectionSlot();
  if (!slot) slot = std::make_unique<brenvale::QBConnection>();
  return *slot;
}

Long BrenvaleGlobals::QBConnect(const std::string& AppID, const std::string& AppName,
                                qbEnumFileOpenMode ConnectionType, const std::string& QBWFilePath) {
  return QBConnection().Connect(AppID, AppName, ConnectionType, QBWFilePath);
}

brenvale::Company& BrenvaleGlobals::Company() { return TheCompany(); }

brenvale::Company& BrenvaleGlobals::ConnectedCompany() {
  if (CurrentSession().ticket.empty()) Raise(1000, "Brenvale");
  return TheCompany();
}

std::string BrenvaleGlobals::GetDataPath() {
  // The first of the machine-wide data folders that exists; empty when none does.
  try {
    std::string dirs;
    if (const char* env = std::getenv("XDG_DATA_DIRS")) dirs = env;
    if (dirs.empty()) dirs = "/usr/local/share:/usr/share";
    std::size_t start = 0;
    while (start <= dirs.size()) {
      std::size_t end = dirs.find(':', start);
      std::string dir = dirs.substr(start, end == std::string::npos ? std::string::npos : end - start);
      if (!dir.empty() && std::filesystem::is_directory(dir)) return dir;
      if (end == std::string::npos) break;
      start = end + 1;
    }
  } catch (...) {
    // Never raises: a failure gives an empty answer.
  }
  return {};
}

brenvale::JobTypes& BrenvaleGlobals::JobTypes() { return ConnectedCompany().JobTypes(); }
brenvale::VendorTypes& BrenvaleGlobals::VendorTypes() { return ConnectedCompany().VendorTypes(); }
brenvale::Classes& BrenvaleGlobals::Classes() { return ConnectedCompany().Classes(); }
brenvale::CustomerTypes& BrenvaleGlobals::CustomerTypes() { return ConnectedCompany().CustomerTypes(); }
brenvale::ShipMethods& BrenvaleGlobals::ShipMethods() { return ConnectedCompany().ShipMethods(); }
brenvale::PaymentMethods& BrenvaleGlobals::PaymentMethods() { return ConnectedCompany().PaymentMethods(); }
brenvale::CustomerMessages& BrenvaleGlobals::CustomerMessages() {
  return ConnectedCompany().CustomerMessages();
}
brenvale::SalesTaxCodes& BrenvaleGlobals::SalesTaxCodes() { return ConnectedCompany().SalesTaxCodes(); }
brenvale::TaxCodes& BrenvaleGlobals::TaxCodes() { return ConnectedCompany().TaxCodes(); }
brenvale::SalesReps& BrenvaleGlobals::SalesReps() { return ConnectedCompany().SalesReps(); }
brenvale::ToDoList& BrenvaleGlobals::ToDoList() { return ConnectedCompany().ToDoList(); }
brenvale::PayrollItemWages& BrenvaleGlobals::PayrollItemWages() {
  return ConnectedCompany().PayrollItemWages();
}
brenvale::PayrollItemNonWages& BrenvaleGlobals::PayrollItemNonWages() {
  return ConnectedCompany().PayrollItemNonWages();
}
brenvale::Templates& BrenvaleGlobals::Templates() { return ConnectedCompany().Templates(); }

}  // namespace brenvale

#include "Tool.hpp"

#include <cstdio>
#include <filesystem>
#include <system_error>

#include "Progress.hpp"
#include "brenvale/company/BrenvaleGlobals.hpp"
#include "brenvale/core/ProcessorRegistry.hpp"
#include "brenvale/qbxml/Session.hpp"
#include "brenvale/rqp/CompanyEngine.hpp"

namespace brenvale::tool {
namespace {

std::string& LastFailure() {
  static std::string text;
  return text;
}

constexpr const char* kAppID = "";
constexpr const char* kAppName = "Brenvale command-line tool";
// The library's number for any failure to exchange a request with the processor.
constexpr int kExchangeFailed = 1999;

namespace fs = std::filesystem;

// The directory a file goes into must exist: a file error otherwise.
fs::path CheckedFilePath(const std::string& file, const std::string& what) {
  if (file.empty()) throw UsageError(what + " needs a file name");
  fs::path path = fs::absolute(fs::path(file));
  std::error_code ec;
  fs::path dir = path.parent_path();
  if (!fs::is_directory(dir, ec))
    throw FileError("cannot use " + what + " '" + file + "': directory '" + dir.string() +
                    "' does not exist");
  if (fs::is_directory(path, ec))
    throw FileError("cannot use " + what + " '" + file + "': it is a directory");
  return path;
}

// Stands between the library and the session's request processor and keeps the words of the last
// failure of an exchange: the library reports every such failure under one number, and the user
// deserves the processor's own explanation.
class ReportingProcessor : public IRequestProcessor {
 public:
  explicit ReportingProcessor(std::shared_ptr<IRequestProcessor> inner) : inner_(std::move(inner)) {}

  void OpenConnection(const std::string& id, const std::string& name) override {
    inner_->OpenConnection(id, name);
  }
  void OpenConnection2(const std::string& id, const std::string& name, qbConnectionType type) override {
    inner_->OpenConnection2(id, name, type);
  }
  std::string BeginSession(const std::string& file, qbEnumFileOpenMode mode) override {
    return inner_->BeginSession(file, mode);
  }
  std::vector<std::string> QBXMLVersionsForSession(const std::string& ticket) override {
    return inner_->QBXMLVersionsForSession(ticket);
  }
  std::string GetCurrentCompanyFileName(const std::string& ticket) override {
    return inner_->GetCurrentCompanyFileName(ticket);
  }
  std::string ProcessRequest(const std::string& ticket, const std::string& request) override {
    return Reporting([&] { return inner_->ProcessRequest(ticket, request); });
  }
  std::string ProcessSubscription(const std::string& request) override {
    return Reporting([&] { return inner_->ProcessSubscription(request); });
  }
  void EndSession(const std::string& ticket) override { inner_->EndSession(ticket); }
  void CloseConnection() override { inner_->CloseConnection(); }
  ProcessorAuthPreferences& AuthPreferences() override { return inner_->AuthPreferences(); }
  std::string MajorVersion() const override { return inner_->MajorVersion(); }
  std::string MinorVersion() const override { return inner_->MinorVersion(); }

 private:
  template <class F>
  std::string Reporting(F&& exchange) {
    try {
      return exchange();
    } catch (const BrenvaleError& e) {
      char number[16];
      std::snprintf(number, sizeof number, "0x%08X", static_cast<std::uint32_t>(e.Number()));
      LastFailure() = "(" + std::string(number) + "): " + e.Description();
      throw;
    } catch (const std::exception& e) {
      LastFailure() = std::string(": ") + e.what();
      throw;
    }
  }

  std::shared_ptr<IRequestProcessor> inner_;
};

}  // namespace

const std::string& LastProcessorFailure() { return LastFailure(); }

Format GlobalOptions::OutputFormat() const {
  if (format == "json") return Format::Json;
  if (format == "xml") return Format::Xml;
  return Format::Table;
}

std::string ErrorNumberText(std::int32_t number, bool libraryCode) {
  const auto bits = static_cast<std::uint32_t>(number);
  char hex[16];
  std::snprintf(hex, sizeof hex, "0x%08X", bits);
  if ((bits & 0xFFFF0000u) != 0x80040000u) return libraryCode ? std::to_string(number) : std::string(hex);
  if (!libraryCode) return hex;
  return std::to_string(bits - 0x80040000u) + " (" + hex + ")";
}

void PrintError(std::ostream& err, const BrenvaleError& e) {
  // A processor's own number is shown as it is: it may fall among the library's codes (QuickBooks'
  // 0x80040403) without being one of them.
  const bool platform = (static_cast<std::uint32_t>(e.Number()) & 0xFFFF0000u) != 0x80040000u;
  std::string library =
      "error " + ErrorNumberText(e.Number(), e.IsLibraryCode() || platform) + ": " + e.Description();
  if (!e.Source().empty()) library += " [" + e.Source() + "]";
  // The library reports every failed exchange under one number and text; the processor's own
  // reason is what a person needs first.
  if (e.Code() == kExchangeFailed && !LastFailure().empty()) {
    err << "brenvale: the request processor refused the request " << LastFailure() << "\n"
        << "brenvale: the library reports it as " << library << "\n";
    return;
  }
  err << "brenvale: " << library << "\n";
}

void RegisterProcessors() { rqp::RegisterCompanyEngine(); }

void OpenCompany(const GlobalOptions& options) {
  if (!IsRequestProcessorRegistered(options.processor)) {
    std::string known;
    for (const std::string& p : RegisteredRequestProcessors()) known += (known.empty() ? "" : ", ") + p;
    throw UsageError("unknown request processor '" + options.processor + "'; registered: " + known);
  }
  const fs::path company = CheckedFilePath(options.company, "company file");
  brenvale::QBConnection& connection = BrenvaleGlobals::QBConnection();
  if (!options.trace.empty()) connection.TracePath(CheckedFilePath(options.trace, "trace file").string());
  connection.RequestProcessorProgId(options.processor);
  try {
    Progress progress("opening " + company.filename().string());
    BrenvaleGlobals::QBConnect(kAppID, kAppName, qbOpenModeDontCare, company.string());
  } catch (const BrenvaleError& e) {
    throw CompanyError(e, company.string());
  }
  Session& session = CurrentSession();
  session.processor = std::make_shared<ReportingProcessor>(session.processor);
}

void CloseCompany() noexcept {
  try {
    BrenvaleGlobals::QBConnection().CloseConnection();
  } catch (...) {
    // Closing at the end of a command is best effort; the command's own result stands.
  }
}

}  // namespace brenvale::tool

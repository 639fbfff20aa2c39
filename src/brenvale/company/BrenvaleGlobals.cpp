#include "brenvale/company/BrenvaleGlobals.hpp"

#include <cstdlib>
#include <filesystem>
#include <memory>

#include "brenvale/core/BrenvaleError.hpp"
#include "brenvale/core/ThreadState.hpp"
#include "brenvale/qbxml/Session.hpp"

namespace brenvale {
namespace {

Integer Narrow16(Long code) {
  if (code < -32768 || code > 32767) platform::Raise(platform::kOverflow, "Brenvale");
  return static_cast<Integer>(code);
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
  // The connection is the top of the thread's library state: it goes first, and ends its session
  // while the session's values are still there.
  return detail::ThreadState::Current().Get<brenvale::QBConnection>(detail::StateSlot::Connection);
}

Long BrenvaleGlobals::QBConnect(const std::string& AppID, const std::string& AppName,
                                qbEnumFileOpenMode ConnectionType, const std::string& QBWFilePath) {
  return QBConnection().Connect(AppID, AppName, ConnectionType, QBWFilePath);
}

MasterCollections& BrenvaleGlobals::Company() { return TheMasterCollections(); }

MasterCollections& BrenvaleGlobals::ConnectedCollections() {
  if (CurrentSession().ticket.empty()) Raise(1000, "Brenvale");
  return TheMasterCollections();
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

#define BRENVALE_GLOBAL_ACCESSOR(Collection, Record) \
  brenvale::Collection& BrenvaleGlobals::Collection() { return ConnectedCollections().Collection(); }
BRENVALE_RECORD_KINDS(BRENVALE_GLOBAL_ACCESSOR)
#undef BRENVALE_GLOBAL_ACCESSOR

}  // namespace brenvale

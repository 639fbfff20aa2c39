#include "brenvale/webconnector/QwcFile.hpp"

#include <pugixml.hpp>

#include <cctype>
#include <sstream>

#include "brenvale/core/BrenvaleError.hpp"
#include "brenvale/webconnector/detail/Crypto.hpp"
#include "brenvale/webconnector/detail/Url.hpp"

namespace brenvale::webconnector {
namespace {

[[noreturn]] void Refuse(const std::string& why) {
  platform::Raise(platform::kInvalidProcedureCall, "BrenvaleWC", "The .QWC file cannot be written: " + why);
}

// The registrable part of a host name, taken as its last two labels.
std::string Domain(const std::string& host) {
  const std::size_t last = host.rfind('.');
  if (last == std::string::npos || last == 0) return host;
  const std::size_t before = host.rfind('.', last - 1);
  return before == std::string::npos ? host : host.substr(before + 1);
}

detail::Url CheckedUrl(const std::string& what, const std::string& text) {
  auto url = detail::ParseUrl(text);
  if (!url) Refuse(what + " '" + text + "' is not an http or https address.");
  if (detail::IsIpAddress(url->host))
    Refuse(what + " '" + text + "' names an IP address; the Web Connector takes host names only.");
  if (url->scheme == "http" && url->host != "localhost")
    Refuse(what + " '" + text + "' is plain http; the Web Connector takes http only for localhost, "
           "any other host needs https.");
  return *url;
}

bool IsGuid(const std::string& s) {
  if (s.size() != 38 || s.front() != '{' || s.back() != '}') return false;
  for (std::size_t i = 1; i < 37; ++i) {
    const bool dash = i == 9 || i == 14 || i == 19 || i == 24;
    if (dash ? s[i] != '-' : !std::isxdigit(static_cast<unsigned char>(s[i]))) return false;
  }
  return true;
}

void CheckChoice(const std::string& what, const std::string& value, std::initializer_list<const char*> choices) {
  if (value.empty()) return;
  std::string list;
  for (const char* c : choices) {
    if (value == c) return;
    list += (list.empty() ? "" : ", ") + std::string(c);
  }
  Refuse(what + " '" + value + "' is not one of " + list + ".");
}

}  // namespace

std::string QwcFile::Text() {
  if (AppName.empty()) Refuse("it needs an AppName.");
  if (UserName.empty()) Refuse("it needs a UserName.");
  const detail::Url url = CheckedUrl("the AppURL", AppURL);
  if (AppSupport.empty()) AppSupport = (url.port == (url.scheme == "https" ? 443 : 80)
                                            ? url.scheme + "://" + url.host
                                            : url.scheme + "://" + url.host + ":" + std::to_string(url.port)) +
                                       "/support";
  const detail::Url support = CheckedUrl("the AppSupport address", AppSupport);
  if (Domain(support.host) != Domain(url.host))
    Refuse("the AppSupport address must be on the domain of the AppURL (" + Domain(url.host) + ").");
  if (!CertURL.empty()) CheckedUrl("the CertURL", CertURL);
  if (AppDescription.empty()) AppDescription = "Exchanges data with " + AppName + ".";
  if (OwnerID.empty()) OwnerID = detail::NewGuid();
  if (FileID.empty()) FileID = detail::NewGuid();
  if (!IsGuid(OwnerID)) Refuse("the OwnerID '" + OwnerID + "' is not a GUID of the form {XXXXXXXX-XXXX-XXXX-XXXX-XXXXXXXXXXXX}.");
  if (!IsGuid(FileID)) Refuse("the FileID '" + FileID + "' is not a GUID of the form {XXXXXXXX-XXXX-XXXX-XXXX-XXXXXXXXXXXX}.");
  CheckChoice("the QBType", QBType, {"QBFS", "QBPOS"});
  CheckChoice("the PersonalDataPref", PersonalDataPref, {"pdpNotNeeded", "pdpOptional", "pdpRequired"});
  CheckChoice("the UnattendedModePref", UnattendedModePref, {"umpRequired", "umpOptional"});
  CheckChoice("the Style", Style, {"Document", "DocWrapped", "RpcStyle"});
  if (RunEveryNMinutes && *RunEveryNMinutes < 1) Refuse("RunEveryNMinutes must be 1 at least.");
  if (AuthFlags && (*AuthFlags & ~0xF) != 0) Refuse("AuthFlags combines 0x1, 0x2, 0x4 and 0x8 only.");

  pugi::xml_document doc;
  pugi::xml_node root = doc.append_child("QBWCXML");
  auto add = [&](const char* name, const std::string& value) { root.append_child(name).text().set(value.c_str()); };
  auto flag = [](bool b) { return std::string(b ? "true" : "false"); };
  add("AppName", AppName);
  add("AppID", AppID);
  add("AppURL", AppURL);
  add("AppDescription", AppDescription);
  add("AppSupport", AppSupport);
  add("UserName", UserName);
  add("OwnerID", OwnerID);
  add("FileID", FileID);
  add("QBType", QBType);
  if (!AppDisplayName.empty()) add("AppDisplayName", AppDisplayName);
  if (!AppUniqueName.empty()) add("AppUniqueName", AppUniqueName);
  if (!CertURL.empty()) add("CertURL", CertURL);
  if (AuthFlags) {
    std::ostringstream hex;
    hex << "0x" << std::uppercase << std::hex << *AuthFlags;
    add("AuthFlags", hex.str());
  }
  if (Notify) add("Notify", flag(*Notify));
  if (!PersonalDataPref.empty()) add("PersonalDataPref", PersonalDataPref);
  if (!UnattendedModePref.empty()) add("UnattendedModePref", UnattendedModePref);
  if (!Style.empty()) add("Style", Style);
  if (RunEveryNMinutes)
    root.append_child("Scheduler").append_child("RunEveryNMinutes").text().set(std::to_string(*RunEveryNMinutes).c_str());
  if (IsReadOnly) add("IsReadOnly", flag(*IsReadOnly));

  std::ostringstream out;
  out << "<?xml version=\"1.0\"?>\n";
  doc.save(out, "  ", pugi::format_indent | pugi::format_no_declaration, pugi::encoding_utf8);
  return out.str();
}

}  // namespace brenvale::webconnector

#pragma once
// The .QWC file a user loads into QuickBooks' Web Connector to add an application: where the
// service is, which user logs in, and the identifiers the Web Connector keeps in the company.
#include <cstdint>
#include <optional>
#include <string>

namespace brenvale::webconnector {

struct QwcFile {
  std::string AppName;         // shown in the Web Connector's list; required
  std::string AppID;           // may be empty
  std::string AppURL;          // the service: https, or http on localhost only; never a bare IP address
  std::string AppDescription;  // empty: "Exchanges data with <AppName>."
  std::string AppSupport;      // on the same domain as AppURL; empty: AppURL's origin + "/support"
  std::string UserName;        // never the password
  std::string OwnerID;         // one GUID per application; empty: a new one
  std::string FileID;          // one GUID per company; empty: a new one
  std::string QBType = "QBFS";
  // Optional elements, written only when set.
  std::string AppDisplayName, AppUniqueName, CertURL;
  std::optional<std::int32_t> AuthFlags;   // 0x1 SimpleStart, 0x2 Pro, 0x4 Premier, 0x8 Enterprise
  std::optional<bool> IsReadOnly, Notify;
  std::string PersonalDataPref;            // pdpNotNeeded, pdpOptional or pdpRequired
  std::string UnattendedModePref;          // umpRequired or umpOptional
  std::optional<int> RunEveryNMinutes;     // the Web Connector's scheduler, 1 minute at least
  std::string Style;                       // Document (the default), DocWrapped or RpcStyle

  // The file's text. Fills the empty identifiers and the defaults in this object first; refuses a
  // file the Web Connector would refuse with error 5 and the reason.
  std::string Text();
};

}  // namespace brenvale::webconnector

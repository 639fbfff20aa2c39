#pragma once
// The library's global object: its members read like free functions of the library
// (BrenvaleGlobals::QBConnect(...), BrenvaleGlobals::JobTypes()). It holds no state of its own;
// everything it returns lives in this thread's library state, created on first use.
#include <string>

#include "brenvale/company/MasterCollections.hpp"
#include "brenvale/connection/QBConnection.hpp"
#include "brenvale/core/Date.hpp"
#include "brenvale/core/Enumerations.hpp"

namespace brenvale {

class BrenvaleGlobals {
 public:
  BrenvaleGlobals() = delete;

  // The Description of the value with that code (the code is narrowed to 16 bits first).
  static std::string EStr(Long Code, zqEnumerationType Enumeration);
  // The code of the value with that description (blanks ignored).
  static Long eVal(const std::string& Description, zqEnumerationType Enumeration);
  // The XMLTag of the value with that code.
  static std::string EXMLStr(Long Code, zqEnumerationType Enumeration);
  static Date qbNullDate() { return Date(); }
  static brenvale::Enumerations& QBEnumerations() { return TheEnumerations(); }
  static brenvale::QBConnection& QBConnection();
  // Creates the library-wide connection when there is none, then connects it.
  static Long QBConnect(const std::string& AppID, const std::string& AppName, qbEnumFileOpenMode ConnectionType,
                        const std::string& QBWFilePath = {});
  // The holder of the master collections. (Once the company record arrives, this answers it, and
  // it offers the same collection accessors.)
  static MasterCollections& Company();
  // The machine-wide application data folder, or empty.
  static std::string GetDataPath();

  // Collection accessors: the master collections; 1000 before a connection.
#define BRENVALE_GLOBAL_ACCESSOR(Collection, Record) static brenvale::Collection& Collection();
  BRENVALE_RECORD_KINDS(BRENVALE_GLOBAL_ACCESSOR)
#undef BRENVALE_GLOBAL_ACCESSOR

 private:
  static MasterCollections& ConnectedCollections();
};

}  // namespace brenvale

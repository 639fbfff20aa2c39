#pragma once
// The library's global object: its members read like free functions of the library
// (BrenvaleGlobals::QBConnect(...), BrenvaleGlobals::JobTypes()). It holds no state of its own;
// everything it returns lives in this thread's library-wide objects, created on first use.
#include <string>

#include "brenvale/company/Company.hpp"
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
  static brenvale::Company& Company();
  // The machine-wide application data folder, or empty.
  static std::string GetDataPath();

  // Collection accessors: the company object's master collections; 1000 before a connection.
  static brenvale::JobTypes& JobTypes();
  static brenvale::VendorTypes& VendorTypes();
  static brenvale::Classes& Classes();
  static brenvale::CustomerTypes& CustomerTypes();
  static brenvale::ShipMethods& ShipMethods();
  static brenvale::PaymentMethods& PaymentMethods();
  static brenvale::CustomerMessages& CustomerMessages();
  static brenvale::SalesTaxCodes& SalesTaxCodes();
  static brenvale::TaxCodes& TaxCodes();
  static brenvale::SalesReps& SalesReps();
  static brenvale::ToDoList& ToDoList();
  static brenvale::PayrollItemWages& PayrollItemWages();
  static brenvale::PayrollItemNonWages& PayrollItemNonWages();
  static brenvale::Templates& Templates();

 private:
  static brenvale::Company& ConnectedCompany();
};

}  // namespace brenvale

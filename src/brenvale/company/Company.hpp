#pragma once
// The company object: one master collection of each list kind, created with it and kept for the
// life of the thread's library objects.
#include "brenvale/lists/JobTypes.hpp"
#include "brenvale/lists/VendorTypes.hpp"
#include "brenvale/lists/Classes.hpp"
#include "brenvale/lists/CustomerTypes.hpp"
#include "brenvale/lists/ShipMethods.hpp"
#include "brenvale/lists/PaymentMethods.hpp"
#include "brenvale/lists/CustomerMessages.hpp"
#include "brenvale/lists/SalesTaxCodes.hpp"
#include "brenvale/lists/TaxCodes.hpp"
#include "brenvale/lists/SalesReps.hpp"
#include "brenvale/lists/ToDoList.hpp"
#include "brenvale/lists/PayrollItemWages.hpp"
#include "brenvale/lists/PayrollItemNonWages.hpp"
#include "brenvale/lists/Templates.hpp"

namespace brenvale {

class Company {
 public:
  Company();
  Company(const Company&) = delete;
  Company& operator=(const Company&) = delete;

  brenvale::JobTypes& JobTypes() { return jobTypes_; }
  brenvale::VendorTypes& VendorTypes() { return vendorTypes_; }
  brenvale::Classes& Classes() { return classes_; }
  brenvale::CustomerTypes& CustomerTypes() { return customerTypes_; }
  brenvale::ShipMethods& ShipMethods() { return shipMethods_; }
  brenvale::PaymentMethods& PaymentMethods() { return paymentMethods_; }
  brenvale::CustomerMessages& CustomerMessages() { return customerMessages_; }
  brenvale::SalesTaxCodes& SalesTaxCodes() { return salesTaxCodes_; }
  brenvale::TaxCodes& TaxCodes() { return taxCodes_; }
  brenvale::SalesReps& SalesReps() { return salesReps_; }
  brenvale::ToDoList& ToDoList() { return toDoList_; }
  brenvale::PayrollItemWages& PayrollItemWages() { return payrollItemWages_; }
  brenvale::PayrollItemNonWages& PayrollItemNonWages() { return payrollItemNonWages_; }
  brenvale::Templates& Templates() { return templates_; }

 private:
  brenvale::JobTypes jobTypes_{true};
  brenvale::VendorTypes vendorTypes_{true};
  brenvale::Classes classes_{true};
  brenvale::CustomerTypes customerTypes_{true};
  brenvale::ShipMethods shipMethods_{true};
  brenvale::PaymentMethods paymentMethods_{true};
  brenvale::CustomerMessages customerMessages_{true};
  brenvale::SalesTaxCodes salesTaxCodes_{true};
  brenvale::TaxCodes taxCodes_{true};
  brenvale::SalesReps salesReps_{true};
  brenvale::ToDoList toDoList_{true};
  brenvale::PayrollItemWages payrollItemWages_{true};
  brenvale::PayrollItemNonWages payrollItemNonWages_{true};
  brenvale::Templates templates_{true};
};

// This thread's company object.
Company& TheCompany();

}  // namespace brenvale

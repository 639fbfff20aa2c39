#pragma once
// The record kinds the library offers, in one place. The master collections, the library globals,
// the umbrella header and the tool read this list: adding a kind is its include below and one line
// in the list.
#include "brenvale/dataext/DataExtensionDefinitions.hpp"
#include "brenvale/lists/Accounts.hpp"
#include "brenvale/lists/Classes.hpp"
#include "brenvale/lists/CustomerMessages.hpp"
#include "brenvale/lists/CustomerTypes.hpp"
#include "brenvale/lists/Customers.hpp"
#include "brenvale/lists/Employees.hpp"
#include "brenvale/lists/Entities.hpp"
#include "brenvale/lists/Items.hpp"
#include "brenvale/lists/JobTypes.hpp"
#include "brenvale/lists/OtherNames.hpp"
#include "brenvale/lists/PaymentMethods.hpp"
#include "brenvale/lists/PayrollItemNonWages.hpp"
#include "brenvale/lists/PayrollItemWages.hpp"
#include "brenvale/lists/SalesReps.hpp"
#include "brenvale/lists/SalesTaxCodes.hpp"
#include "brenvale/lists/ShipMethods.hpp"
#include "brenvale/lists/TaxCodes.hpp"
#include "brenvale/lists/Terms.hpp"
#include "brenvale/lists/Templates.hpp"
#include "brenvale/lists/ToDoList.hpp"
#include "brenvale/lists/VendorTypes.hpp"
#include "brenvale/lists/Vendors.hpp"
#include "brenvale/pricing/PriceLevels.hpp"

// X(collection class, record class), in the order the library globals offer them. A collection of
// several kinds names their common base (Items, zkItem); its kinds come with it (Members).
#define BRENVALE_RECORD_KINDS(X)         \
  X(Accounts, Account)                   \
  X(Customers, Customer)                 \
  X(Vendors, Vendor)                     \
  X(SalesTaxCodes, SalesTaxCode)         \
  X(PaymentMethods, PaymentMethod)       \
  X(Classes, Class)                      \
  X(CustomerTypes, CustomerType)         \
  X(OtherNames, OtherName)               \
  X(Employees, Employee)                 \
  X(Terms, zkTerm)                       \
  X(SalesReps, SalesRep)                 \
  X(CustomerMessages, CustomerMessage)   \
  X(ToDoList, ToDo)                      \
  X(ShipMethods, ShipMethod)             \
  X(Entities, Entity)                    \
  X(JobTypes, JobType)                   \
  X(VendorTypes, VendorType)             \
  X(PayrollItemWages, PayrollItemWage)   \
  X(Templates, Template)                 \
  X(PayrollItemNonWages, PayrollItemNonWage) \
  X(TaxCodes, TaxCode)                   \
  X(PriceLevels, PriceLevel)             \
  X(Items, zkItem)                       \
  X(DataExtensionDefinitions, DataExtensionDefinition)

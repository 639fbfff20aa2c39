#pragma once
// A sales rep: initials standing for an employee, vendor or other name (the sales rep entity).
// A sales rep has no name of its own: Name() and the collection key are its initials.
#include "brenvale/model/ListRecord.hpp"

namespace brenvale {

class SalesRep : public ListRecord {
 public:
  SalesRep();
  static const RecordSchema& StaticSchema();

  const std::string& Initial() const;
  void Initial(std::string value);
  const zkListObjectRef& SalesRepEntityRef() const;
  // Sets the entity by its full name.
  void SalesRepEntityRef(std::string fullName);

 protected:
  // Whether QuickBooks knows the entity, and as an employee, vendor or other name (2204, 2203).
  void CheckRule(int check, zkErrors& errors) override;
};

}  // namespace brenvale

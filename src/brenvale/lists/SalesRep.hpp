#pragma once
// A sales rep: initials standing for an employee, vendor or other name (the sales rep entity).
// A sales rep has no name of its own: Name() and the collection key are its initials.
#include <string>
#include <string_view>

#include "brenvale/model/ListRecord.hpp"

namespace brenvale {

class SalesRep : public ListRecord {
 public:
  SalesRep() : ListRecord(Declaration()) {}
  static const RecordDecl& Declaration();

  std::string Initial() const;
  void Initial(std::string_view value);
  zkListObjectRef SalesRepEntityRef() const;
  // Sets the entity by its full name.
  void SalesRepEntityRef(std::string_view fullName);
};

}  // namespace brenvale

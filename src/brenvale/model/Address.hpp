#pragma once
// A postal address, as bill-to and ship-to addresses of transactions and list records hold it: a
// nested record declared by its own field table, written inside its owner's aggregate
// ("BillAddress", "ShipAddress"). Its limits are checked by Validate and by the setters.
//
// An address comes in three forms: the full one; an employee's, which QuickBooks on a desktop takes
// without the third and fourth lines and the country; and the address block QuickBooks reports
// beside an address (the lines as it prints them), which is only read.
#include <string>
#include <string_view>

#include "brenvale/model/RecordCore.hpp"

namespace brenvale {

class Address : public RecordCore {
 public:
  explicit Address(const RecordDecl& form = Declaration()) : RecordCore(form) {}
  static const RecordDecl& Declaration();
  static const RecordDecl& EmployeeForm();
  static const RecordDecl& BlockForm();

  // True when no part of the address is set.
  bool IsEmpty() const { return !HoldsAnyValue(); }
  std::string Line1() const;
  void Line1(std::string_view value);
  std::string Line2() const;
  void Line2(std::string_view value);
  std::string Line3() const;
  void Line3(std::string_view value);
  std::string Line4() const;
  void Line4(std::string_view value);
  std::string Line5() const;
  void Line5(std::string_view value);
  std::string City() const;
  void City(std::string_view value);
  // The state, the province of a Canadian address or the county of a British one: one field,
  // written under the name the session's version gives it.
  std::string State() const;
  void State(std::string_view value);
  std::string PostalCode() const;
  void PostalCode(std::string_view value);
  std::string Country() const;
  void Country(std::string_view value);
  // QuickBooks' note on the address; read only.
  std::string Note() const;
  // Takes every part of `source` (a part `source` lacks is cleared here).
  void CopyAddress(const Address& source);

 private:
  // Sets a part, refusing a text over its limit with the limit's own message (1202).
  void SetPart(FieldId id, std::string_view value);
};

}  // namespace brenvale

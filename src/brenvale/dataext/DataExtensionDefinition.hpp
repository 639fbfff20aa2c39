#pragma once
// A data-extension definition: a named custom field of an owner — "0" for QuickBooks' own custom
// fields, an application's GUID for its private ones — with its type and the kinds of object it is
// assigned to. QuickBooks knows a definition by its owner and name: a modify request names the
// definition as QuickBooks keeps it and gives a new name when it was renamed.
//
// QuickBooks' own custom fields hold text and go on customers, vendors, employees and items only:
// another type or kind on such a field raises 2801 (2802 when it is one only because no
// application GUID is registered).
#include <string>
#include <string_view>

#include "brenvale/dataext/dataExtAssignedTos.hpp"
#include "brenvale/model/ListRecord.hpp"

namespace brenvale {

class DataExtensionDefinition : public ListRecord {
 public:
  // A new definition of the registered application's (owner "0" when no GUID is registered),
  // holding text.
  DataExtensionDefinition();
  static const RecordDecl& Declaration();

  std::string OwnerId() const;
  // Set while the definition is new (1002 afterwards).
  void OwnerId(std::string_view value);
  qbEnumDataExtDataType DataType() const;
  // Set while the definition is new (1002 afterwards).
  void DataType(qbEnumDataExtDataType value);
  dataExtAssignedTos& AssignedTos() { return assigned_; }
  const dataExtAssignedTos& AssignedTos() const { return assigned_; }
  // QuickBooks' number for the definition (0 while new).
  Long DataExtID() const;
  // The name QuickBooks keeps the definition under (the name until a rename is saved).
  const std::string& KeptName() const { return keptName_; }

  // Raises 2801, or 2802 without a registered GUID, unless the definition is an application's.
  void RequireApplicationField() const;

 protected:
  void AfterRead() override;
  void ReadOwnField(FieldId id, const DomNode& node) override;
  void WriteOwnField(xmlBldr& b, FieldId id, const WriteContext& context) const override;
  std::string OwnFieldText(FieldId id) const override;
  void SetOwnFieldText(FieldId id, std::string_view text) override;

 private:
  friend class dataExtAssignedTos;
  void AssignmentsChanged() { MarkChanged(false); }

  dataExtAssignedTos assigned_{*this};
  std::string keptName_;
};

}  // namespace brenvale

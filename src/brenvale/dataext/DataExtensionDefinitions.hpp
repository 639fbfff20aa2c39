#pragma once
// The data-extension definitions of the company, filed by name: read by owner or by the kind they
// are assigned to, added, renamed and deleted, saved to a file and loaded from one (to define the
// same fields in another company).
#include <string>
#include <string_view>

#include "brenvale/dataext/DataExtensionDefinition.hpp"
#include "brenvale/model/ListCollection.hpp"

namespace brenvale {

class DataExtensionDefinitions : public ListCollection<DataExtensionDefinition> {
 public:
  using ListCollection::ListCollection;

  // A new definition (of the registered application's, else QuickBooks' own), held for the next
  // commit (master only: 1021 otherwise).
  DataExtensionDefinition& Add(std::string_view Name = {}, qbEnumDataExtDataType DataType = qbDataExtTypeSTR255TYPE);
  // Renames the definition held under `Definition` and saves the change at once; returns how many
  // QuickBooks took (0 or 1). A name not held raises 1022; failures are collected as a commit's are.
  Long Rename(std::string_view Definition, std::string_view NewName);
  // Deletes the definition named `Name` in QuickBooks (with every value of it), of the owner of the
  // one held under that name, else of the registered application (else QuickBooks' own); with
  // bRemove also from this collection. A refusal raises 1026, QuickBooks' reason in Errors.
  Long Delete(const std::string& Name, bool bRemove = true) override;

  // The definitions of an owner and/or assigned to a kind (zqObjectTypeNone and an empty owner: all).
  // QuickBooks' query takes one or the other: given both, it asks by owner and keeps those assigned
  // to the kind. Each fills the collection afresh and returns how many it read.
  Long GetBy(zqEnumListObjectType AssignedToObject, const std::string& OwnerId = {}, const std::string& sMDBPath = {});
  Long GetByOwner(const std::string& OwnerId, const std::string& sMDBPath = {});
  Long GetByAssignedToObject(zqEnumListObjectType AssignedToObject, const std::string& sMDBPath = {});

  // Writes the definitions held to a file, as a query response of DataExtDefRet elements; returns 0.
  // A file that cannot be written raises 75.
  Long SaveToXml(const std::string& FilePath);
  // Adds a new definition for each one in a file SaveToXml wrote (names already held are left as
  // they are), for the next commit; returns how many it added. A file that is missing or is not such
  // a document raises 75.
  Long LoadFromXml(const std::string& FilePath);

 protected:
  // Definitions changed in QuickBooks: values ask for them again.
  void AfterChange() override;
};

}  // namespace brenvale

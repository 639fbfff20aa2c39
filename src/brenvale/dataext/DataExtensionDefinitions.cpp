#include "brenvale/dataext/DataExtensionDefinitions.hpp"

#include <memory>

#include "brenvale/core/BrenvaleError.hpp"
#include "brenvale/model/DataExtObject.hpp"
#include "brenvale/model/detail/DataExtCatalog.hpp"
#include "brenvale/qbxml/Session.hpp"
#include "brenvale/qbxml/xmlBldr.hpp"

namespace brenvale {
namespace {

// Every DataExtDefRet element under `node`, in document order.
template <class F>
void ForEachDefinition(const DomNode& node, F&& visit) {
  for (DomNode c : node.Children()) {
    if (!c.IsElement()) continue;
    if (c.BaseName() == "DataExtDefRet")
      visit(c);
    else
      ForEachDefinition(c, visit);
  }
}

}  // namespace

DataExtensionDefinition& DataExtensionDefinitions::Add(std::string_view Name, qbEnumDataExtDataType DataType) {
  auto record = std::make_shared<DataExtensionDefinition>();
  record->Name(Name);
  if (DataType != qbDataExtTypeSTR255TYPE) record->DataType(DataType);
  return AddNew(std::move(record));
}

Long DataExtensionDefinitions::Rename(std::string_view Definition, std::string_view NewName) {
  DataExtensionDefinition* held = Find(Definition);
  if (!held) Raise(1022, CollectionLabel());
  held->Name(NewName);
  return Commit(held);
}

Long DataExtensionDefinitions::Delete(const std::string& Name, bool bRemove) {
  CollectionErrors().Clear();
  std::string owner = CurrentSession().dataExtOwnerID;
  if (owner.empty()) owner = "0";
  if (const DataExtensionDefinition* held = Find(Name)) owner = held->OwnerId();
  DomDocument doc;
  ResponseView::Response rs = SendSimple("DataExtDefDelRq", {{"OwnerID", owner}, {"DataExtName", Name}}, doc);
  const Long status = rs.StatusCode();
  if (status != 0) {
    CollectionErrors().AddCode(1001, "", "QuickBooks: " + rs.Message());
    Raise(1026, CollectionLabel());
  }
  detail::TheDataExtCatalog().Forget();
  if (bRemove && FindKey(Name)) RemoveKey(Name);
  return status;
}

Long DataExtensionDefinitions::GetBy(zqEnumListObjectType AssignedToObject, const std::string& OwnerId,
                                     const std::string&) {
  std::string_view kind;
  if (AssignedToObject != zqObjectTypeNone) {
    kind = DataExtObjectOf(AssignedToObject).tag;
    if (kind.empty()) Raise(1030, CollectionLabel());
  }
  if (OwnerId.empty() && kind.empty()) return GetAll();
  Query(
      0, kQueryNone,
      [&](xmlBldr& b) {
        // The query names an owner or a kind, not both.
        if (!OwnerId.empty())
          b.CreateElement("OwnerID", OwnerId);
        else
          b.CreateElement("AssignToObject", kind);
      },
      true);
  if (!OwnerId.empty() && !kind.empty())
    for (std::size_t position = Size(); position >= 1; --position)
      if (!Item(position).AssignedTos().ItemExists(AssignedToObject)) RemoveAt(position);
  return Count();
}

Long DataExtensionDefinitions::GetByOwner(const std::string& OwnerId, const std::string& sMDBPath) {
  return GetBy(zqObjectTypeNone, OwnerId.empty() ? std::string("0") : OwnerId, sMDBPath);
}

Long DataExtensionDefinitions::GetByAssignedToObject(zqEnumListObjectType AssignedToObject,
                                                     const std::string& sMDBPath) {
  if (AssignedToObject == zqObjectTypeNone) Raise(1030, CollectionLabel());
  return GetBy(AssignedToObject, {}, sMDBPath);
}

Long DataExtensionDefinitions::SaveToXml(const std::string& FilePath) {
  xmlBldr b;
  b.IOClear();
  for (std::size_t position = 1; position <= Size(); ++position)
    b.InsertQueryRs(Item(position), static_cast<Integer>(position));
  return b.SaveToFile(FilePath);
}

Long DataExtensionDefinitions::LoadFromXml(const std::string& FilePath) {
  RequireMaster();
  xmlBldr b;
  const DomDocument doc = b.ReadXml(FilePath);
  if (doc.Empty() || doc.DocumentElement().BaseName() != "Brenvale")
    platform::Raise(platform::kFileError, CollectionLabel(),
                    "Path/File access error: '" + FilePath + "' is not a file of data extension definitions");
  Long added = 0;
  ForEachDefinition(doc.DocumentElement(), [&](const DomNode& ret) {
    DataExtensionDefinition saved;
    saved.FromDom(ret);
    if (saved.Name().empty() || Find(saved.Name())) return;
    DataExtensionDefinition& fresh = Add(saved.Name());
    fresh.OwnerId(saved.OwnerId());
    fresh.DataType(saved.DataType());
    for (zqEnumListObjectType kind : saved.AssignedTos()) fresh.AssignedTos().Add(kind);
    ++added;
  });
  return added;
}

void DataExtensionDefinitions::AfterChange() { detail::TheDataExtCatalog().Forget(); }

}  // namespace brenvale

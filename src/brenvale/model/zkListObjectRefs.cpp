#include "brenvale/model/zkListObjectRefs.hpp"

#include "brenvale/model/Lists.hpp"
#include "brenvale/model/zkList.hpp"

namespace brenvale {

zkListObjectRef& zkListObjectRefs::Add(std::string FullName, zqEnumListType ListType, std::string ListID) {
  std::string key = FullName;
  return refs_.Add(zkListObjectRef(std::move(FullName), ListType, std::move(ListID)), key);
}

zkListObject* zkListObjectRef::Object() const {
  zkList* master = TheLists().Master(list_);
  if (!master) return nullptr;
  if (!fullName_.empty()) {
    if (zkListObject* o = master->Find(fullName_)) return o;
    if (zkListObject* o = master->GetByFullName(fullName_)) return o;
  }
  if (!listID_.empty()) return master->GetByListID(listID_);
  return nullptr;
}

}  // namespace brenvale

#include "brenvale/lists/Items.hpp"

#include "brenvale/core/BrenvaleError.hpp"

namespace brenvale {

void Items::Fill(zkItem& item, std::string_view name, bool active, std::string_view parent) {
  item.Name(name);
  item.IsActive(active);
  if (!parent.empty()) item.Parent(parent);
}

zkItem& Items::Add(qbEnumItemType ItemType, std::string_view Name, bool IsActive, std::string_view ParentFullName) {
  zkItem* added = nullptr;
  ForEachKind([&]<class K>(std::type_identity<K>) {
    if (!added && K::kItemType == ItemType) added = &Add<K>(Name, IsActive, ParentFullName);
  });
  if (!added) Raise(1101, "Item");
  return *added;
}

}  // namespace brenvale

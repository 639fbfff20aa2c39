#include "brenvale/lists/Items.hpp"

#include <tuple>

#include "brenvale/core/BrenvaleError.hpp"

namespace brenvale {

void Items::Fill(zkItem& item, std::string_view name, bool active, std::string_view parent) {
  item.Name(name);
  item.IsActive(active);
  if (!parent.empty()) item.Parent(parent);
}

zkItem& Items::Add(qbEnumItemType ItemType, std::string_view Name, bool IsActive, std::string_view ParentFullName) {
  zkItem* added = nullptr;
  [&]<class... K>(std::tuple<K...>*) {
    ((added = added ? added : K::kItemType == ItemType ? &Add<K>(Name, IsActive, ParentFullName) : nullptr), ...);
  }(static_cast<Members*>(nullptr));
  if (!added) Raise(1101, "Item");
  return *added;
}

}  // namespace brenvale

#pragma once
// Every item, of every kind, in one collection keyed by full name: one ItemQuery answers them all,
// each read into its own kind; a commit sends each record's own request; a delete names its kind.
#include <memory>
#include <string_view>

#include "brenvale/lists/ItemAssembly.hpp"
#include "brenvale/lists/ItemDiscount.hpp"
#include "brenvale/lists/ItemFixedAsset.hpp"
#include "brenvale/lists/ItemGroup.hpp"
#include "brenvale/lists/ItemInventory.hpp"
#include "brenvale/lists/ItemNonInventory.hpp"
#include "brenvale/lists/ItemOtherCharge.hpp"
#include "brenvale/lists/ItemPayment.hpp"
#include "brenvale/lists/ItemSalesTax.hpp"
#include "brenvale/lists/ItemSalesTaxGroup.hpp"
#include "brenvale/lists/ItemService.hpp"
#include "brenvale/lists/ItemSubtotal.hpp"
#include "brenvale/lists/zkItem.hpp"
#include "brenvale/model/ListCollection.hpp"

namespace brenvale {

class Items : public ListCollection<zkItem, ItemService, ItemNonInventory, ItemOtherCharge, ItemInventory,
                                    ItemAssembly, ItemFixedAsset, ItemSubtotal, ItemDiscount, ItemPayment,
                                    ItemSalesTax, ItemSalesTaxGroup, ItemGroup> {
 public:
  using ListCollection::ListCollection;

  // A new item of that type, named, filed for the next commit; a kind the library does not know
  // raises 1101.
  zkItem& Add(qbEnumItemType ItemType, std::string_view Name = {}, bool IsActive = true,
              std::string_view ParentFullName = {});
  // A new item of kind K.
  template <class K>
  K& Add(std::string_view Name = {}, bool IsActive = true, std::string_view ParentFullName = {}) {
    auto record = std::make_shared<K>();
    Fill(*record, Name, IsActive, ParentFullName);
    return AddNew(std::move(record));
  }

 private:
  static void Fill(zkItem& item, std::string_view name, bool active, std::string_view parent);
};

}  // namespace brenvale

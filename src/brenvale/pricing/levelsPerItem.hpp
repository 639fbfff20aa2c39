#pragma once
// The per-item prices of a price level, 1-based.
#include <cstddef>
#include <string_view>

#include "brenvale/model/ChildList.hpp"
#include "brenvale/pricing/levelPerItem.hpp"

namespace brenvale {

class levelsPerItem : public ChildList<levelPerItem> {
 public:
  using ChildList::ChildList;
  using ChildList::Add;
  // A new price for the item named `ItemFullName`: `CustomPrice` as a price, or as a percentage
  // of the item's own price when `CustomPriceIsPercent`.
  levelPerItem& Add(std::string_view ItemFullName, Single CustomPrice, bool CustomPriceIsPercent = false,
                    std::size_t BeforeIndex = 0) const {
    levelPerItem& entry = ChildList::Add(BeforeIndex);
    entry.Item(ItemFullName);
    entry.CustomPriceIsPercent(CustomPriceIsPercent);
    entry.CustomPrice(CustomPrice);
    return entry;
  }
};

}  // namespace brenvale

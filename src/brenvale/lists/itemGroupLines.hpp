#pragma once
// The lines of a group item, the components of an assembly, the members of a sales-tax group.
#include <optional>
#include <string_view>

#include "brenvale/lists/itemGroupLine.hpp"
#include "brenvale/model/ChildList.hpp"

namespace brenvale {

class itemGroupLines : public ChildList<itemGroupLine> {
 public:
  using ChildList::ChildList;
  using ChildList::Add;

  // A new line for the item, appended or inserted ahead of `BeforeIndex` (1-based; 0 appends).
  itemGroupLine& Add(std::string_view Item, std::optional<double> Quantity = std::nullopt,
                     std::size_t BeforeIndex = 0) const {
    itemGroupLine& line = ChildList::Add(BeforeIndex);
    line.Item(Item);
    if (Quantity) line.Quantity(*Quantity);
    return line;
  }
};

}  // namespace brenvale

#pragma once
// A price level: a named change of the prices charged to a customer, by one percentage for every
// item, or by a custom price per item.
#include <string>
#include <string_view>

#include "brenvale/model/ListRecord.hpp"
#include "brenvale/pricing/levelsPerItem.hpp"

namespace brenvale {

class PriceLevel : public ListRecord {
 public:
  PriceLevel() : ListRecord(Declaration()) {}
  static const RecordDecl& Declaration();

  // "FixedPercentage" or "PerItem" as QuickBooks reports it. Set by the client, it chooses what is
  // written; left empty, a level with a fixed percentage is of that form, any other per item.
  std::string PriceLevelType() const;
  void PriceLevelType(std::string_view value);
  bool IsFixedPercentage() const;
  // The percentage by which every item's price changes (negative: a discount).
  double PriceLevelFixedPercentage() const;
  void PriceLevelFixedPercentage(double value);
  // The per-item prices; never written for a fixed-percentage level.
  levelsPerItem PriceLevelsPerItem();

 private:
  // Every per-item price names an item QuickBooks has (2001), reported as "Item" and its position.
  void CheckItems(zkErrors& errors, ValidateContext& context);
  friend struct PriceLevelDecl;
};

}  // namespace brenvale

#pragma once
// One item's price in a price level: a custom price, or a custom percentage of the item's price.
#include <string>
#include <string_view>

#include "brenvale/core/Types.hpp"
#include "brenvale/model/RecordCore.hpp"

namespace brenvale {

class levelPerItem : public RecordCore {
 public:
  levelPerItem() : RecordCore(Declaration()) {}
  static const RecordDecl& Declaration();

  zkListObjectRef ItemRef() const;
  // The item's full name; setting it names the item (its ListID is looked up by QuickBooks).
  std::string Item() const;
  void Item(std::string_view fullName);
  // The price, or the percentage when CustomPriceIsPercent.
  Single CustomPrice() const;
  void CustomPrice(Single value);
  bool CustomPriceIsPercent() const;
  // Turns the price into a percentage (or back), keeping its value.
  void CustomPriceIsPercent(bool value);

 private:
  // Which of the two a price set later becomes, while neither holds one.
  bool percentWanted_ = false;
};

}  // namespace brenvale

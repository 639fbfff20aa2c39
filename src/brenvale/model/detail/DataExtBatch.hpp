#pragma once
// Data extension values waiting to be saved, gathered from one or many collections (a record's,
// its lines', every record of a commit), written as one message of DataExtAdd, DataExtMod and
// DataExtDel requests, and the answers read back into each value.
#include <string_view>
#include <vector>

#include "brenvale/core/Types.hpp"
#include "brenvale/model/DataExtObject.hpp"

namespace brenvale {
class DataExtension;
class DataExtensions;
}  // namespace brenvale

namespace brenvale::detail {

class DataExtBatch {
 public:
  // Adds the values of `values` waiting to be saved; the collection's Errors start afresh, and a
  // value that fails its checks is left out with 1011 there.
  void Add(DataExtensions& values);
  bool Empty() const { return entries_.empty(); }
  std::size_t Size() const { return entries_.size(); }
  // How many values Add left out for failing their checks.
  std::size_t Refused() const { return refused_; }
  // Sends every value added in one message; returns how many QuickBooks saved. A refusal leaves
  // "QuickBooks: " and its reason in the value's Errors and 1018 in its collection's.
  Long Send();

 private:
  struct Entry {
    DataExtensions* values;
    DataExtension* value;
    std::string_view request;  // "Add", "Mod", "Del"
    DataExtTarget target;
  };
  std::vector<Entry> entries_;
  std::size_t refused_ = 0;
};

}  // namespace brenvale::detail

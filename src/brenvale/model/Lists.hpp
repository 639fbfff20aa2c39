#pragma once
// The holder of the master list collections: one per list kind, the collection the company object
// owns. Parent checks and references look records up through it.
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "brenvale/core/EnumTypes.hpp"
#include "brenvale/core/KeyedList.hpp"
#include "brenvale/model/zkList.hpp"

namespace brenvale {

class Lists {
 public:
  // Files a collection under a key (the list type's code for masters).
  void AddObject(zkList* NewObject, std::string_view Key);
  zkList& Item(std::string_view key) { return *list_.Get(key); }
  zkList& Item(std::size_t position) { return *list_.At(position); }
  std::int32_t Count() const { return static_cast<std::int32_t>(list_.Count()); }
  auto begin() const { return list_.begin(); }
  auto end() const { return list_.end(); }

  // The master collection of a list kind, or null when none is registered.
  zkList* Master(zqEnumListType type) const;
  // A master registered while another is stands in for it until it goes; then the other is the
  // master again.
  void RegisterMaster(zqEnumListType type, zkList* collection);
  void UnregisterMaster(zkList* collection);

 private:
  KeyedList<zkList*> list_;
  std::vector<std::pair<zqEnumListType, zkList*>> hidden_;  // masters stood in for, oldest first
};

// This thread's holder.
Lists& TheLists();

}  // namespace brenvale

#include "brenvale/model/Lists.hpp"

#include <iterator>

#include "brenvale/core/ThreadState.hpp"

namespace brenvale {

void Lists::AddObject(zkList* NewObject, std::string_view Key) { list_.Add(NewObject, Key); }

zkList* Lists::Master(zqEnumListType type) const {
  auto* c = list_.Find(std::to_string(static_cast<int>(type)));
  return c ? *c : nullptr;
}

void Lists::RegisterMaster(zqEnumListType type, zkList* collection) {
  std::string key = std::to_string(static_cast<int>(type));
  if (std::size_t pos = list_.PositionOf(key)) {
    hidden_.emplace_back(type, list_.At(pos));
    list_.RemoveAt(pos);
  }
  list_.Add(collection, key);
}

void Lists::UnregisterMaster(zkList* collection) {
  std::erase_if(hidden_, [&](const auto& h) { return h.second == collection; });
  for (std::size_t i = 1; i <= list_.Count(); ++i)
    if (list_.At(i) == collection) {
      list_.RemoveAt(i);
      // The master it stood in for, the latest first, is the master again.
      const zqEnumListType type = collection->ListType();
      for (auto h = hidden_.rbegin(); h != hidden_.rend(); ++h)
        if (h->first == type) {
          zkList* restored = h->second;
          hidden_.erase(std::next(h).base());
          list_.Add(restored, std::to_string(static_cast<int>(type)));
          break;
        }
      return;
    }
}

Lists& TheLists() { return detail::ThreadState::Current().Get<Lists>(detail::StateSlot::Lists); }

}  // namespace brenvale

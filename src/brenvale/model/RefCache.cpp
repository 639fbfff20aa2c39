#include "brenvale/model/RefCache.hpp"

#include <algorithm>

#include "brenvale/core/BrenvaleError.hpp"
#include "brenvale/core/Enumerations.hpp"
#include "brenvale/core/KeyedList.hpp"
#include "brenvale/core/ThreadState.hpp"
#include "brenvale/model/Lists.hpp"
#include "brenvale/model/RecordCore.hpp"
#include "brenvale/model/zkList.hpp"
#include "brenvale/qbxml/ResponseView.hpp"
#include "brenvale/qbxml/Session.hpp"
#include "brenvale/qbxml/xmlBldr.hpp"

namespace brenvale {

std::string RefCache::KeyOf(zqEnumListType list, std::string_view fullName) {
  std::string key = std::to_string(static_cast<int>(list));
  key += '\x1f';
  key += detail::FoldKey(fullName);
  return key;
}

void RefCache::CheckSession() {
  const Session& session = CurrentSession();
  if (session.ticket != ticket_ || session.processor.get() != processor_) {
    entries_.clear();
    ticket_ = session.ticket;
    processor_ = session.processor.get();
  }
}

RefAnswer RefCache::Find(zqEnumListType list, std::string_view fullName, RefEntry* entry,
                         std::string_view sortTag) {
  if (zkList* master = TheLists().Master(list)) {
    if (zkListObject* held = master->Find(fullName)) {
      if (entry) {
        *entry = RefEntry{held->ListID(), held->FullName(), {}, std::string(sortTag), {}};
        if (const zkEnumValue* kind = EnumCatalogue(zqeObjectType).FindByCode(static_cast<Integer>(held->ObjectType())))
          entry->retName = kind->CollectionKey() + "Ret";
        if (const auto* record = dynamic_cast<const RecordCore*>(held); record && !sortTag.empty())
          if (const FieldId id = record->Decl().FindTag(sortTag); id != kNoField) entry->sort = record->ValueText(id);
      }
      return RefAnswer::Found;
    }
  }
  CheckSession();
  auto it = entries_.find(KeyOf(list, fullName));
  if (it == entries_.end()) return RefAnswer::Unknown;
  if (!it->second) return RefAnswer::Missing;
  if (!sortTag.empty() && it->second->sortTag != sortTag) return RefAnswer::Unknown;
  if (entry) *entry = *it->second;
  return RefAnswer::Found;
}

void RefCache::Batch::Add(zqEnumListType list, std::string_view fullName, std::string_view sortTag) {
  auto it = std::find_if(byList_.begin(), byList_.end(),
                         [&](const Names& l) { return l.list == list && l.sortTag == sortTag; });
  if (it == byList_.end()) it = byList_.insert(byList_.end(), Names{list, sortTag, {}});
  it->names.emplace_back(fullName);
}

void RefCache::Fetch(const Batch& batch) {
  for (const Batch::Names& l : batch.byList_) Fetch(l.list, l.names, l.sortTag);
}

void RefCache::Fetch(zqEnumListType list, const std::vector<std::string>& names, std::string_view sortTag) {
  if (!CurrentSession().processor) return;
  std::vector<std::string_view> wanted;
  for (const std::string& name : names) {
    if (name.empty() || Find(list, name, nullptr, sortTag) != RefAnswer::Unknown) continue;
    if (std::find_if(wanted.begin(), wanted.end(), [&](std::string_view w) {
          return detail::FoldKey(w) == detail::FoldKey(name);
        }) == wanted.end())
      wanted.push_back(name);
  }
  if (wanted.empty()) return;
  const std::string request = EnumCatalogue(zqeListType).ItemByCode(static_cast<Integer>(list)).CollectionKey() + "QueryRq";
  try {
    xmlBldr b;
    b.NewClear();
    b.OpenAggregate(request, "requestID", "1");
    for (std::string_view name : wanted) b.CreateElement("FullName", name);
    b.EndAggregate(request);
    DomDocument doc = b.NewSendRequest();
    ResponseView::Response rs = ResponseView(doc).First();
    // A name QuickBooks does not know makes the status a warning (500); the others still come back.
    // Any other failure leaves every name unknown.
    if (!rs || (rs.StatusCode() != 0 && rs.StatusCode() != 1 && rs.StatusCode() != 500)) return;
    for (DomNode ret : rs.Rets()) {
      RefEntry e{ret.ChildText("ListID"), ret.ChildText("FullName"), std::string(ret.BaseName()),
                 std::string(sortTag), sortTag.empty() ? std::string() : ret.ChildText(sortTag)};
      if (e.fullName.empty()) e.fullName = ret.ChildText("Name");
      // A record that comes back without its name answers the one name asked for.
      if (e.fullName.empty() && wanted.size() == 1) e.fullName = wanted.front();
      if (e.fullName.empty()) continue;
      std::string key = KeyOf(list, e.fullName);
      entries_[std::move(key)] = std::move(e);
    }
    // A name QuickBooks did not answer is missing, whatever was known of it before.
    for (std::string_view name : wanted) {
      auto [it, added] = entries_.try_emplace(KeyOf(list, name));
      if (!added && it->second && it->second->sortTag != sortTag) it->second.reset();
    }
  } catch (const BrenvaleError&) {
    // A lookup that cannot be answered finds nothing; the names stay unknown.
  }
}

void RefCache::ForgetMissing(zqEnumListType list) {
  const std::string prefix = std::to_string(static_cast<int>(list)) + '\x1f';
  for (auto it = entries_.begin(); it != entries_.end();) {
    if (!it->second && it->first.compare(0, prefix.size(), prefix) == 0)
      it = entries_.erase(it);
    else
      ++it;
  }
}

void RefCache::Clear() { entries_.clear(); }

RefCache& TheRefCache() { return detail::ThreadState::Current().Get<RefCache>(detail::StateSlot::References); }

}  // namespace brenvale

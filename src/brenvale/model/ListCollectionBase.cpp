#include "brenvale/model/ListCollectionBase.hpp"

#include <unordered_map>

#include "brenvale/core/BrenvaleError.hpp"
#include "brenvale/core/Enumerations.hpp"
#include "brenvale/model/Lists.hpp"
#include "brenvale/qbxml/Conversions.hpp"
#include "brenvale/qbxml/Dom.hpp"
#include "brenvale/qbxml/Session.hpp"
#include "brenvale/qbxml/xmlBldr.hpp"

namespace brenvale {
namespace {

constexpr std::string_view kQuickBooksPrefix = "QuickBooks error message: ";

// The response aggregates of a sent document, in order.
DomNode MessagesOf(const DomDocument& doc) { return doc.DocumentElement().ChildNamed("QBXMLMsgsRs"); }

Long StatusCodeOf(const DomNode& rs) { return TextToLong(rs.Attribute("statusCode").value_or("0")); }

std::string StatusMessageOf(const DomNode& rs) {
  std::string msg = rs.Attribute("statusMessage").value_or("");
  auto at = msg.find(kQuickBooksPrefix);
  if (at != std::string::npos) msg = msg.substr(at + kQuickBooksPrefix.size());
  return msg;
}

// The first element child (a response's Ret).
DomNode FirstElement(const DomNode& n) {
  for (DomNode c : n.Children())
    if (c.IsElement()) return c;
  return {};
}

}  // namespace

Long ListCollectionBase::IteratorPageSize = 500;

ListCollectionBase::ListCollectionBase(const RecordSchema& schema, bool master) : schema_(schema), master_(master) {
  if (master_) TheLists().RegisterMaster(schema_.Decl().listType, this);
}

ListCollectionBase::~ListCollectionBase() {
  if (master_) TheLists().UnregisterMaster(this);
}

void ListCollectionBase::RequireMaster() const {
  if (!master_) Raise(1021, schema_.CollectionLabel());
}

void ListCollectionBase::Remove(std::string_view key) {
  RequireMaster();
  records_.Remove(key);
}

void ListCollectionBase::Remove(std::size_t position) {
  RequireMaster();
  records_.RemoveAt(position);
}

ListRecord* ListCollectionBase::Find(std::string_view key) {
  auto* r = records_.Find(key);
  return r ? r->get() : nullptr;
}

ListRecord& ListCollectionBase::AddRecord(std::shared_ptr<ListRecord> record) {
  RequireMaster();
  ListRecord& r = *record;
  File(std::move(record));
  return r;
}

std::string ListCollectionBase::FreeKeyFor(const ListRecord& record) const {
  std::string key = record.CollectionKey();
  // A record whose key is taken (or empty) is still held, just not findable by key.
  if (!key.empty() && records_.Exists(key)) key.clear();
  return key;
}

void ListCollectionBase::File(std::shared_ptr<ListRecord> record) {
  std::string key = FreeKeyFor(*record);
  records_.Add(std::move(record), key);
}

void ListCollectionBase::Refile(const std::shared_ptr<ListRecord>& record, std::size_t pos) {
  if (!records_.ExistsAt(pos) || records_.At(pos) != record) {
    pos = 0;
    for (std::size_t i = 1; i <= records_.Count() && !pos; ++i)
      if (records_.At(i) == record) pos = i;
    if (!pos) return;
  }
  records_.RemoveAt(pos);
  std::string key = FreeKeyFor(*record);
  records_.Add(record, key, pos <= records_.Count() ? std::optional<std::size_t>(pos) : std::nullopt);
}

bool ListCollectionBase::Validate() {
  errors_.Clear();
  for (std::size_t i = 1; i <= records_.Count(); ++i)
    if (!records_.At(i)->Validate()) errors_.AddCode(1011, std::to_string(i));
  return errors_.Count() == 0;
}

// --- queries ----------------------------------------------------------------------------------

Long ListCollectionBase::Fill(const DomNode& response) {
  Long read = 0;
  for (DomNode ret : response.Children()) {
    if (!ret.IsElement()) continue;
    std::shared_ptr<ListRecord> record = MakeRecord(ret.BaseName());
    if (!record) continue;
    record->FromDom(ret);
    // A record read again replaces the copy the collection holds.
    std::string key = record->CollectionKey();
    if (std::size_t pos = records_.PositionOf(key)) records_.RemoveAt(pos);
    File(std::move(record));
    ++read;
  }
  return read;
}

void ListCollectionBase::LinkChildren() {
  if (!schema_.Decl().hierarchical) return;
  for (auto& r : records_) r->Children().Clear();
  for (auto& r : records_) {
    std::string parent = r->Parent();
    if (parent.empty()) continue;
    if (auto* p = records_.Find(parent)) {
      std::string full = r->FullName();
      if (!(*p)->Children().ItemExists(full)) (*p)->Children().Add(full, ListType(), r->ListID());
    }
  }
}

Long ListCollectionBase::Query(Long maxReturned, FilterWriter writeFilters, const void* context, bool clearFirst) {
  const std::string rq = QueryRequestName();
  const Long page = IteratorPageSize;
  const bool iterate = schema_.Decl().queryIterates && CurrentSession().qbXMLVersionNumber >= Currency(5) &&
                       (maxReturned <= 0 || maxReturned > page);
  auto send = [&](std::string_view iterator, const std::string& iteratorId, Long max) {
    xmlBldr b;
    b.NewClear();
    if (iterator.empty())
      b.OpenAggregate(rq, "requestID", "1");
    else
      b.OpenAggregateOnly(rq, "NoMetaData", iterator, iteratorId);
    if (max > 0) b.CreateElement("MaxReturned", std::to_string(max));
    if (writeFilters && iterator != "Continue" && iterator != "Stop") writeFilters(b, context);
    b.EndAggregate(rq);
    DomDocument doc = b.NewSendRequest();
    DomNode rs = FirstElement(MessagesOf(doc));
    if (rs.IsNull()) Raise(1001, schema_.CollectionLabel(), "QuickBooks: no response to " + rq);
    Long status = StatusCodeOf(rs);
    // Status 1 is "no match": an empty answer, not a failure.
    if (status != 0 && status != 1)
      Raise(1001, schema_.CollectionLabel(), "QuickBooks: " + StatusMessageOf(rs));
    return std::make_pair(doc, rs);
  };

  if (clearFirst) records_.Clear();
  Long read = 0;
  if (!iterate) {
    auto [doc, rs] = send({}, {}, maxReturned);
    read = Fill(rs);
  } else {
    auto [doc, rs] = send("Start", {}, page);
    read = Fill(rs);
    std::string id = rs.Attribute("iteratorID").value_or("");
    Long remaining = TextToLong(rs.Attribute("iteratorRemainingCount").value_or("0"));
    while (remaining > 0 && !id.empty() && (maxReturned <= 0 || read < maxReturned)) {
      Long want = maxReturned > 0 ? std::min(page, maxReturned - read) : page;
      auto [nextDoc, nextRs] = send("Continue", id, want);
      Long got = Fill(nextRs);
      read += got;
      remaining = TextToLong(nextRs.Attribute("iteratorRemainingCount").value_or("0"));
      if (got == 0) break;
    }
    if (remaining > 0 && !id.empty()) send("Stop", id, 0);
  }
  LinkChildren();
  return read;
}

Long ListCollectionBase::GetAll(Long MaxReturned, const std::string&) {
  return Query(MaxReturned, nullptr, nullptr, true);
}

Long ListCollectionBase::GetActive(Long MaxReturned, const std::string&) {
  RequireMaster();
  return Query(
      MaxReturned, [](xmlBldr& b, const void*) { b.CreateElement("ActiveStatus", "ActiveOnly"); }, nullptr, true);
}

ListRecord* ListCollectionBase::GetByFullName(const std::string& sFullName) {
  Query(0, [](xmlBldr& b, const void* c) { b.CreateElement("FullName", *static_cast<const std::string*>(c)); },
        &sFullName, false);
  for (auto& r : records_)
    if (detail::FoldKey(r->FullName()) == detail::FoldKey(sFullName)) return r.get();
  return nullptr;
}

ListRecord* ListCollectionBase::GetByListID(const std::string& sListID) {
  Query(0, [](xmlBldr& b, const void* c) { b.CreateElement("ListID", *static_cast<const std::string*>(c)); },
        &sListID, false);
  for (auto& r : records_)
    if (r->ListID() == sListID) return r.get();
  return nullptr;
}

Long ListCollectionBase::GetByNameRange(const std::string& FromName, const std::string& ToName, Long MaxReturned,
                                        const std::string&) {
  std::pair<const std::string*, const std::string*> range{&FromName, &ToName};
  return Query(
      MaxReturned,
      [](xmlBldr& b, const void* c) {
        auto* r = static_cast<const std::pair<const std::string*, const std::string*>*>(c);
        b.OpenAggregateOnly("NameRangeFilter");
        b.CreateElement("FromName", *r->first);
        b.CreateElement("ToName", *r->second);
        b.EndAggregate("NameRangeFilter");
      },
      &range, true);
}

Long ListCollectionBase::GetByNameMatch(const std::string& MatchString, qbEnumMatchType MatchType, Long MaxReturned,
                                        const std::string&) {
  // Validates the match type before anything is sent.
  std::string criterion = EnumCatalogue(zqeMatchType).XMLTagOf(static_cast<Integer>(MatchType));
  std::pair<const std::string*, const std::string*> match{&criterion, &MatchString};
  return Query(
      MaxReturned,
      [](xmlBldr& b, const void* c) {
        auto* m = static_cast<const std::pair<const std::string*, const std::string*>*>(c);
        b.OpenAggregateOnly("NameFilter");
        b.CreateElement("MatchCriterion", *m->first);
        b.CreateElement("Name", *m->second);
        b.EndAggregate("NameFilter");
      },
      &match, true);
}

Long ListCollectionBase::GetByDateSpan(Date FromDate, Date ToDate, Long MaxReturned, const std::string&) {
  std::pair<Date, Date> span{FromDate, ToDate};
  return Query(
      MaxReturned,
      [](xmlBldr& b, const void* c) {
        auto* s = static_cast<const std::pair<Date, Date>*>(c);
        if (!s->first.IsNull()) b.CreateElement("FromModifiedDate", DateTimeToText(s->first));
        if (!s->second.IsNull()) b.CreateElement("ToModifiedDate", DateTimeToText(s->second));
      },
      &span, true);
}

// --- commit -----------------------------------------------------------------------------------

Long ListCollectionBase::Commit(ListRecord* Member) { return CommitBatch(Member, true, nullptr); }

Long ListCollectionBase::Commit2(ListRecord* Member) {
  Long failures = 0;
  CommitBatch(Member, false, &failures);
  return failures;
}

Long ListCollectionBase::CommitBatch(ListRecord* member, bool raise, Long* failures) {
  RequireMaster();
  errors_.Clear();
  // The batch works on its own list of records: validation may load parents into the collection.
  // Each entry keeps its request ID (the record's position) and where the collection holds it.
  struct Sent {
    Integer index;
    std::shared_ptr<ListRecord> record;
    std::size_t position;
    bool answered = false;
  };
  std::vector<Sent> batch;
  if (member) {
    std::size_t position = 0;
    for (std::size_t i = 1; i <= records_.Count() && !position; ++i)
      if (records_.At(i).get() == member) position = i;
    if (!member->Validate()) errors_.AddCode(1011, "1");
    if (!position) errors_.AddCode(1022, schema_.Label());
    if (position && errors_.Count() == 0 && member->ObjectState() != zqObjectStateClean)
      batch.push_back({1, records_.At(position), position});
  } else {
    std::vector<std::shared_ptr<ListRecord>> all(records_.begin(), records_.end());
    for (std::size_t i = 0; i < all.size(); ++i) {
      Integer index = static_cast<Integer>(i + 1);
      if (!all[i]->Validate()) {
        errors_.AddCode(1011, std::to_string(index));
        continue;
      }
      if (all[i]->ObjectState() != zqObjectStateClean) batch.push_back({index, all[i], i + 1});
    }
  }

  Long committed = 0;
  if (!batch.empty()) {
    xmlBldr b;
    b.NewClear();
    std::unordered_map<Long, std::size_t> byRequestId;
    for (std::size_t slot = 0; slot < batch.size(); ++slot) {
      const Sent& s = batch[slot];
      byRequestId.emplace(s.index, slot);
      switch (s.record->ObjectState()) {
        case zqObjectStateNew: b.InsertAddRq(*s.record, s.index); break;
        case zqObjectStateDirty: b.InsertModRq(*s.record, s.index); break;
        default: Raise(1003, "Brenvale: " + schema_.Label(), "Unknown Object State");
      }
    }
    DomDocument doc = b.NewSendRequest();
    for (DomNode rs : MessagesOf(doc).Children()) {
      if (!rs.IsElement()) continue;
      Long requestId = TextToLong(rs.Attribute("requestID").value_or("0"));
      auto found = byRequestId.find(requestId);
      if (found == byRequestId.end()) continue;
      Sent& sent = batch[found->second];
      sent.answered = true;
      ListRecord& record = *sent.record;
      Long status = StatusCodeOf(rs);
      record.Errors().Clear();
      if (status == 0) {
        record.FromDom(FirstElement(rs));
        // Refile under the key QuickBooks' answer gives it.
        Refile(sent.record, sent.position);
        ++committed;
      } else {
        errors_.AddCode(1018, std::to_string(requestId));
        if (status == 3100)
          record.Errors().AddCode(1017, "Name");
        else
          record.Errors().AddCode(1001, "", "QuickBooks: " + StatusMessageOf(rs));
      }
    }
    // A request QuickBooks never answered counts as failed.
    for (const Sent& s : batch)
      if (!s.answered) {
        errors_.AddCode(1018, std::to_string(s.index));
        s.record->Errors().AddCode(1001, "", "QuickBooks: no response to this record");
      }
    LinkChildren();
  }
  if (failures) *failures = errors_.Count();
  if (raise && errors_.Count() > 0 && CurrentSession().commitRaises) Raise(1023, schema_.CollectionLabel());
  return committed;
}

// --- delete -----------------------------------------------------------------------------------

std::string ListCollectionBase::DeleteTypeName(const ListRecord*) const { return schema_.XmlName(); }

Long ListCollectionBase::Delete(const std::string& ListID, bool bRemove) {
  std::size_t heldAt = 0;
  for (std::size_t pos = 1; pos <= records_.Count() && !heldAt; ++pos)
    if (records_.At(pos)->ListID() == ListID) heldAt = pos;
  const ListRecord* held = heldAt ? records_.At(heldAt).get() : nullptr;
  xmlBldr b;
  b.NewClear();
  b.OpenAggregate("ListDelRq", "requestID", "1");
  b.CreateElement("ListDelType", DeleteTypeName(held));
  b.CreateElement("ListID", ListID);
  b.EndAggregate("ListDelRq");
  DomDocument doc = b.NewSendRequest();
  DomNode rs = FirstElement(MessagesOf(doc));
  Long status = rs.IsNull() ? -1 : StatusCodeOf(rs);
  if (status != 0)
    Raise(1026, schema_.CollectionLabel(),
          rs.IsNull() ? "QuickBooks gave no answer" : "QuickBooks: " + StatusMessageOf(rs));
  if (bRemove && heldAt) records_.RemoveAt(heldAt);
  return status;
}

}  // namespace brenvale

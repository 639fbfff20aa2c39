#include "brenvale/model/ListCollectionBase.hpp"

#include "brenvale/core/BrenvaleError.hpp"
#include "brenvale/core/Enumerations.hpp"
#include "brenvale/model/Lists.hpp"
#include "brenvale/qbxml/Conversions.hpp"
#include "brenvale/qbxml/Session.hpp"
#include "brenvale/qbxml/xmlBldr.hpp"

namespace brenvale {

Long ListCollectionBase::IteratorPageSize = 500;

ListCollectionBase::ListCollectionBase(const RecordDecl& decl, bool master) : CollectionCore(decl, master) {
  // A kind outside the lists references name (data-extension definitions) is not filed there.
  if (master && Facts().listType != zqListTypeNone) TheLists().RegisterMaster(Facts().listType, this);
}

ListCollectionBase::~ListCollectionBase() {
  if (IsMaster()) TheLists().UnregisterMaster(this);
}

std::string_view ListCollectionBase::CollectionLabel() const {
  return Facts().collectionLabel.empty() ? Decl().label : Facts().collectionLabel;
}

void ListCollectionBase::Remove(std::string_view key) {
  RequireMaster();
  RemoveKey(key);
}

void ListCollectionBase::Remove(std::size_t position) {
  RequireMaster();
  RemoveAt(position);
}

void ListCollectionBase::AfterChange() {
  if (!Facts().hierarchical) return;
  for (std::size_t i = 1; i <= Size(); ++i) Item(i).ClearChildren();
  for (std::size_t i = 1; i <= Size(); ++i) {
    ListRecord& r = Item(i);
    const std::string parent = r.Parent();
    if (parent.empty()) continue;
    if (ListRecord* p = Find(parent)) {
      const std::string full = r.FullName();
      if (!p->Children().ItemExists(full)) p->Children().Add(full, ListType(), r.ListID());
    }
  }
}

// --- queries ----------------------------------------------------------------------------------

void ListCollectionBase::RequireQuery(std::uint8_t needs) const {
  // The tax code list has no requests in the qbXML of US editions (qbXML 13.0 has none at all):
  // QuickBooks would refuse the whole document, so the library says so before sending anything.
  if (Facts().outsideUS && CurrentSession().country == "US") Raise(1005, CollectionLabel());
  if ((Facts().queries & needs) != needs) Raise(1026, CollectionLabel());
}

Long ListCollectionBase::Query(Long maxReturned, std::uint8_t needs, const QueryFilters& filters, bool clearFirst,
                               std::string_view kind) {
  // A kind whose query takes no filters takes no MaxReturned either: the count is kept here.
  const bool limitHere = maxReturned > 0 && !(Facts().queries & kQueryFilters);
  if (maxReturned > 0 && !limitHere) needs |= kQueryFilters;
  RequireQuery(needs);
  const std::string rq = std::string(kind.empty() ? Decl().xmlName : kind) + "QueryRq";
  const Long page = IteratorPageSize;
  const bool filtered = (needs & kQueryFilters) || !filters;
  // Only a query of the filtered form pages (one by ListID or FullName takes no MaxReturned).
  const bool iterate = Facts().iterates && filtered && CurrentSession().qbXMLVersionNumber >= Currency(5) &&
                       (maxReturned <= 0 || maxReturned > page);
  auto send = [&](std::string_view iterator, const std::string& iteratorId, Long max, DomDocument& doc) {
    xmlBldr b;
    b.NewClear();
    if (iterator.empty())
      b.OpenAggregate(rq, "requestID", "1");
    else
      b.OpenAggregateOnly(rq, "NoMetaData", iterator, iteratorId);
    if (max > 0 && !limitHere) b.CreateElement("MaxReturned", std::to_string(max));
    if (filters) filters(b);
    // Without a DoneStatus QuickBooks answers open to-dos only.
    if (filtered && (Facts().queries & kQueryDoneStatus)) b.CreateElement("DoneStatus", "All");
    WriteOwnerIDs(b);
    b.EndAggregate(rq);
    ResponseView::Response rs = SendOne(b, doc, rq);
    // Status 1 is "no match": an empty answer, not a failure.
    if (!rs.Answered()) Raise(1001, CollectionLabel(), "QuickBooks: " + rs.Message());
    return rs;
  };

  if (clearFirst) ClearRecords();
  Long read = 0;
  DomDocument doc;
  if (!iterate) {
    ResponseView::Response rs = send({}, {}, maxReturned, doc);
    read = Fill(rs);
  } else {
    ResponseView::Response rs = send("Start", {}, page, doc);
    read = Fill(rs);
    const std::string id = rs.IteratorID();
    Long remaining = rs.RemainingCount();
    while (remaining > 0 && !id.empty() && (maxReturned <= 0 || read < maxReturned)) {
      const Long want = maxReturned > 0 ? std::min(page, maxReturned - read) : page;
      xmlBldr b;
      b.NewClear();
      b.OpenAggregateOnly(rq, "NoMetaData", "Continue", id);
      b.CreateElement("MaxReturned", std::to_string(want));
      b.EndAggregate(rq);
      DomDocument next;
      ResponseView::Response more = SendOne(b, next, rq);
      if (!more.Answered()) Raise(1001, CollectionLabel(), "QuickBooks: " + more.Message());
      const Long got = Fill(more);
      read += got;
      remaining = more.RemainingCount();
      if (got == 0) break;
    }
    if (remaining > 0 && !id.empty()) {
      xmlBldr b;
      b.NewClear();
      b.OpenAggregateOnly(rq, "NoMetaData", "Stop", id);
      b.EndAggregate(rq);
      DomDocument stopped;
      SendOne(b, stopped, rq);
    }
  }
  if (limitHere)
    while (static_cast<Long>(Size()) > maxReturned) RemoveAt(Size());
  AfterChange();
  return limitHere ? std::min(read, maxReturned) : read;
}

Long ListCollectionBase::GetAll(Long MaxReturned, const std::string&) { return Query(MaxReturned, 0, {}, true); }

Long ListCollectionBase::GetActive(Long MaxReturned, const std::string&) {
  RequireMaster();
  return Query(MaxReturned, kQueryFilters, [](xmlBldr& b) { b.CreateElement("ActiveStatus", "ActiveOnly"); }, true);
}

ListRecord* ListCollectionBase::GetByFullName(const std::string& sFullName) {
  Query(0, kQueryByFullName, [&](xmlBldr& b) { b.CreateElement("FullName", sFullName); }, false);
  for (RecordCore* r : LastRead())
    if (detail::FoldKey(static_cast<ListRecord*>(r)->FullName()) == detail::FoldKey(sFullName))
      return static_cast<ListRecord*>(r);
  return nullptr;
}

ListRecord* ListCollectionBase::GetByListID(const std::string& sListID) {
  Query(0, kQueryByListID, [&](xmlBldr& b) { b.CreateElement("ListID", sListID); }, false);
  for (RecordCore* r : LastRead())
    if (static_cast<ListRecord*>(r)->ListID() == sListID) return static_cast<ListRecord*>(r);
  return nullptr;
}

Long ListCollectionBase::GetByNameRange(const std::string& FromName, const std::string& ToName, Long MaxReturned,
                                        const std::string&) {
  return Query(
      MaxReturned, kQueryFilters,
      [&](xmlBldr& b) {
        b.OpenAggregateOnly("NameRangeFilter");
        b.CreateElement("FromName", FromName);
        b.CreateElement("ToName", ToName);
        b.EndAggregate("NameRangeFilter");
      },
      true);
}

Long ListCollectionBase::GetByNameMatch(const std::string& MatchString, qbEnumMatchType MatchType, Long MaxReturned,
                                        const std::string&) {
  // Validates the match type before anything is sent.
  const std::string criterion = EnumCatalogue(zqeMatchType).XMLTagOf(static_cast<Integer>(MatchType));
  return Query(
      MaxReturned, kQueryFilters,
      [&](xmlBldr& b) {
        b.OpenAggregateOnly("NameFilter");
        b.CreateElement("MatchCriterion", criterion);
        b.CreateElement("Name", MatchString);
        b.EndAggregate("NameFilter");
      },
      true);
}

Long ListCollectionBase::GetByDateSpan(Date FromDate, Date ToDate, Long MaxReturned, const std::string&) {
  return Query(
      MaxReturned, kQueryFilters,
      [&](xmlBldr& b) {
        if (!FromDate.IsNull()) b.CreateElement("FromModifiedDate", DateTimeToText(FromDate));
        if (!ToDate.IsNull()) b.CreateElement("ToModifiedDate", DateTimeToText(ToDate));
      },
      true);
}

// --- commit and delete -----------------------------------------------------------------------

Long ListCollectionBase::Commit(ListRecord* Member) {
  RequireQuery(kQueryNone);
  return CommitBatch(Member, true, nullptr);
}

Long ListCollectionBase::Commit2(ListRecord* Member) {
  RequireQuery(kQueryNone);
  Long failures = 0;
  CommitBatch(Member, false, &failures);
  return failures;
}

Long ListCollectionBase::Delete(const std::string& ListID, bool bRemove) {
  if (!Facts().deletable) Raise(1026, CollectionLabel());
  RequireQuery(kQueryNone);
  CollectionErrors().Clear();
  // "ListDelType" names the record's own kind. A collection of several kinds that does not hold the
  // record asks QuickBooks for it first, and lets it go again afterwards.
  std::size_t held = PositionHolding(ListRecord::kListID, ListID);
  bool fetched = false;
  if (!held && SeveralKinds()) {
    if (!GetByListID(ListID)) {
      CollectionErrors().AddCode(1001, "", "QuickBooks: no record has the ListID " + ListID);
      Raise(1026, CollectionLabel());
    }
    held = PositionHolding(ListRecord::kListID, ListID);
    fetched = true;
  }
  const std::string type(held ? At(held).Decl().xmlName : Decl().xmlName);
  DomDocument doc;
  ResponseView::Response rs = SendSimple("ListDelRq", {{"ListDelType", type}, {"ListID", ListID}}, doc);
  const Long status = rs.StatusCode();
  if (status != 0) {
    if (fetched) RemoveHolding(ListRecord::kListID, ListID);
    CollectionErrors().AddCode(1001, "", "QuickBooks: " + rs.Message());
    Raise(1026, CollectionLabel());
  }
  if (bRemove || fetched) RemoveHolding(ListRecord::kListID, ListID);
  return status;
}

}  // namespace brenvale

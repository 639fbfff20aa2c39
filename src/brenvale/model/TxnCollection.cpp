#include "brenvale/model/TxnCollection.hpp"

#include "brenvale/core/BrenvaleError.hpp"
#include "brenvale/core/Enumerations.hpp"
#include "brenvale/qbxml/xmlBldr.hpp"

namespace brenvale {
namespace {

// The name lists of the entity and account queries: none raises 1019, several with their
// children 1600.
void CheckNames(const std::vector<std::string>& names, bool withChildren, std::string_view source) {
  if (names.empty()) Raise(1019, source);
  if (withChildren && names.size() > 1) Raise(1600, source);
}

}  // namespace

void TxnCollectionBase::Remove(std::string_view key) {
  RequireMaster();
  RemoveKey(key);
}

void TxnCollectionBase::Remove(std::size_t position) {
  RequireMaster();
  RemoveAt(position);
}

Long TxnCollectionBase::Commit2(TxnRecord* Member) {
  Long failures = 0;
  CommitBatch(Member, false, &failures);
  return failures;
}

Long TxnCollectionBase::Query(const TxnQuery& q, bool clearFirst) {
  const std::uint8_t can = Facts().queries;
  auto require = [&](bool asked, std::uint8_t feature) {
    if (asked && !(can & feature)) Raise(1027, CollectionLabel());
  };
  require(!q.entities.empty(), kTxnQueryEntity);
  require(!q.accounts.empty(), kTxnQueryAccount);
  require(q.refRange || q.refMatched, kTxnQueryRefNumber);
  require(q.paid != qbPaidStatusAll, kTxnQueryPaidStatus);
  require(q.includeLineItems, kTxnQueryLineItems);
  require(includeLinkedTxns_, kTxnQueryLinkedTxns);

  const std::string rq = std::string(Decl().xmlName) + "QueryRq";
  xmlBldr b;
  b.NewClear();
  b.OpenAggregate(rq, "requestID", "1");
  if (!q.txnIDs.empty()) {
    for (const std::string& id : q.txnIDs) b.CreateElement("TxnID", id);
  } else {
    if (q.maxReturned > 0) b.CreateElement("MaxReturned", std::to_string(q.maxReturned));
    if (q.dates != TxnQuery::Dates::None)
      b.InsertDateFilter(q.dates == TxnQuery::Dates::Modified ? "Modified" : "Txn", q.from, q.to, q.macro);
    if (!q.entities.empty()) b.InsertEntityFilter(q.entities, q.entitiesWithChildren);
    if (!q.accounts.empty()) b.InsertAccountFilter(q.accounts, q.accountsWithChildren);
    if (q.refMatched) {
      b.OpenAggregateOnly("RefNumberFilter");
      b.CreateElement("MatchCriterion", EnumCatalogue(zqeMatchType).XMLTagOf(static_cast<Integer>(q.refMatchType)));
      b.CreateElement("RefNumber", q.refMatch);
      b.EndAggregate("RefNumberFilter");
    } else if (q.refRange) {
      b.OpenAggregateOnly("RefNumberRangeFilter");
      if (!q.fromRefNumber.empty()) b.CreateElement("FromRefNumber", q.fromRefNumber);
      if (!q.toRefNumber.empty()) b.CreateElement("ToRefNumber", q.toRefNumber);
      b.EndAggregate("RefNumberRangeFilter");
    }
    if (q.paid != qbPaidStatusAll)
      b.CreateElement("PaidStatus", EnumCatalogue(zqePaidStatus).XMLTagOf(static_cast<Integer>(q.paid)));
  }
  if (q.includeLineItems) b.CreateElement("IncludeLineItems", "true");
  if (includeLinkedTxns_) b.CreateElement("IncludeLinkedTxns", "true");
  WriteOwnerIDs(b);
  b.EndAggregate(rq);
  DomDocument doc;
  ResponseView::Response rs = SendOne(b, doc, rq);
  if (!rs.Answered()) Raise(1001, CollectionLabel(), "QuickBooks: " + rs.Message());
  if (clearFirst) ClearRecords();
  return Fill(rs);
}

Long TxnCollectionBase::GetAll(bool IncludeLineItems, Long MaxReturned, qbEnumPaidStatus PaidStatus,
                               const std::string&) {
  return Query({.maxReturned = MaxReturned, .paid = PaidStatus, .includeLineItems = IncludeLineItems});
}

Long TxnCollectionBase::GetByDateMacro(qbEnumDateMacro DateMacro, bool IncludeLineItems, Long MaxReturned,
                                       qbEnumPaidStatus PaidStatus, const std::string&, const std::string& Entity,
                                       bool WithChildren) {
  TxnQuery q{.maxReturned = MaxReturned, .dates = TxnQuery::Dates::Txn, .macro = DateMacro, .paid = PaidStatus,
             .includeLineItems = IncludeLineItems};
  if (!Entity.empty()) {
    q.entities = {Entity};
    q.entitiesWithChildren = WithChildren;
  }
  return Query(q);
}

Long TxnCollectionBase::GetByDateSpan(Date FromDate, Date ToDate, bool UseModifiedDate, bool IncludeLineItems,
                                      Long MaxReturned, qbEnumPaidStatus PaidStatus, const std::string&,
                                      const std::string& Entity, bool WithChildren) {
  TxnQuery q{.maxReturned = MaxReturned,
             .dates = UseModifiedDate ? TxnQuery::Dates::Modified : TxnQuery::Dates::Txn,
             .from = FromDate,
             .to = ToDate,
             .paid = PaidStatus,
             .includeLineItems = IncludeLineItems};
  if (!Entity.empty()) {
    q.entities = {Entity};
    q.entitiesWithChildren = WithChildren;
  }
  return Query(q);
}

Long TxnCollectionBase::GetByEntity(const std::vector<std::string>& EntityList, bool WithChildren,
                                    bool IncludeLineItems, Long MaxReturned, qbEnumPaidStatus PaidStatus,
                                    const std::string&) {
  CheckNames(EntityList, WithChildren, "GetByEntity");
  return Query({.maxReturned = MaxReturned, .entities = EntityList, .entitiesWithChildren = WithChildren,
                .paid = PaidStatus, .includeLineItems = IncludeLineItems});
}

Long TxnCollectionBase::GetByAccount(const std::vector<std::string>& AccountList, bool WithChildren,
                                     bool IncludeLineItems, Long MaxReturned, qbEnumPaidStatus PaidStatus,
                                     const std::string&) {
  CheckNames(AccountList, WithChildren, "GetByAccount");
  return Query({.maxReturned = MaxReturned, .accounts = AccountList, .accountsWithChildren = WithChildren,
                .paid = PaidStatus, .includeLineItems = IncludeLineItems});
}

Long TxnCollectionBase::GetBySingleEntity(const std::string& Entity, bool WithChildren, bool IncludeLineItems,
                                          const std::string& sMDBPath) {
  return GetByEntity({Entity}, WithChildren, IncludeLineItems, 0, qbPaidStatusAll, sMDBPath);
}

Long TxnCollectionBase::GetBySingleAccount(const std::string& Account, bool WithChildren, bool IncludeLineItems,
                                           const std::string& sMDBPath) {
  return GetByAccount({Account}, WithChildren, IncludeLineItems, 0, qbPaidStatusAll, sMDBPath);
}

Long TxnCollectionBase::GetByRefNumber(const std::string& FromRefNumber, const std::string& ToRefNumber,
                                       bool IncludeLineItems, Long MaxReturned, qbEnumPaidStatus PaidStatus,
                                       const std::string&) {
  return Query({.maxReturned = MaxReturned, .fromRefNumber = FromRefNumber, .toRefNumber = ToRefNumber,
                .refRange = true, .paid = PaidStatus, .includeLineItems = IncludeLineItems});
}

Long TxnCollectionBase::GetByRefNumberMatch(const std::string& MatchString, qbEnumMatchType MatchType,
                                            bool IncludeLineItems, Long MaxReturned, qbEnumPaidStatus PaidStatus,
                                            const std::string&) {
  EnumCatalogue(zqeMatchType).XMLTagOf(static_cast<Integer>(MatchType));  // 1007 before anything is sent
  return Query({.maxReturned = MaxReturned, .refMatch = MatchString, .refMatchType = MatchType, .refMatched = true,
                .paid = PaidStatus, .includeLineItems = IncludeLineItems});
}

Long TxnCollectionBase::GetMultiple(const std::vector<std::string>& TxnIds, bool IncludeLineItems,
                                    const std::string&) {
  if (TxnIds.empty()) Raise(1019, "GetMultiple");
  return Query({.txnIDs = TxnIds, .includeLineItems = IncludeLineItems});
}

TxnRecord* TxnCollectionBase::GetByTxnID(const std::string& TxnId, bool IncludeLineItems, const std::string&) {
  Query({.txnIDs = {TxnId}, .includeLineItems = IncludeLineItems}, false);
  for (RecordCore* r : LastRead())
    if (static_cast<TxnRecord*>(r)->TxnId() == TxnId) return static_cast<TxnRecord*>(r);
  return nullptr;
}

Long TxnCollectionBase::Delete(const std::string& TxnId, bool bRemove) {
  if (!Facts().deletable) Raise(1027, CollectionLabel());
  return DelOrVoid("Del", TxnId, bRemove);
}

Long TxnCollectionBase::Void(const std::string& TxnId, bool bRemove) {
  if (!Facts().voidable) Raise(1027, CollectionLabel());
  return DelOrVoid("Void", TxnId, bRemove);
}

Long TxnCollectionBase::DelOrVoid(std::string_view verb, const std::string& txnId, bool remove) {
  const std::string rq = "Txn" + std::string(verb) + "Rq";
  const std::string type = "Txn" + std::string(verb) + "Type";
  DomDocument doc;
  ResponseView::Response rs = SendSimple(rq, {{type, Decl().xmlName}, {"TxnID", txnId}}, doc);
  const Long status = rs.StatusCode();
  if (status != 0) Raise(1026, CollectionLabel(), rs.Message());
  if (remove) RemoveHolding(TxnRecord::kTxnID, txnId);
  return status;
}

}  // namespace brenvale

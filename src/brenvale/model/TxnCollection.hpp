#pragma once
// The transaction collection on the collection core: the queries by date, date macro, entity,
// account, reference number and TxnID (each filter only where the kind's query takes it), with or
// without line items and linked transactions; delete and void. Typed collections derive through
// TxnCollection<T>.
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "brenvale/core/Date.hpp"
#include "brenvale/core/EnumTypes.hpp"
#include "brenvale/model/CollectionCore.hpp"
#include "brenvale/model/TxnRecord.hpp"

namespace brenvale {

// What one transaction query asks for; written in the order the query request takes it.
struct TxnQuery {
  std::vector<std::string> txnIDs;  // when set, nothing else but the Include elements is written
  Long maxReturned = 0;
  enum class Dates : std::uint8_t { None, Modified, Txn } dates = Dates::None;
  Date from, to;
  qbEnumDateMacro macro = qbDateMacroNone;
  std::vector<std::string> entities;
  bool entitiesWithChildren = false;
  std::vector<std::string> accounts;
  bool accountsWithChildren = false;
  std::string fromRefNumber, toRefNumber;  // a range, when either is set
  bool refRange = false;
  std::string refMatch;                     // a match, with its criterion
  qbEnumMatchType refMatchType = qbMatchStartsWith;
  bool refMatched = false;
  qbEnumPaidStatus paid = qbPaidStatusAll;
  bool includeLineItems = false;
};

class TxnCollectionBase : public CollectionCore {
 public:
  TxnCollectionBase(const RecordDecl& decl, bool master) : CollectionCore(decl, master) {}

  const TxnFacts& Facts() const { return *Decl().txn; }

  Long Count() const { return static_cast<Long>(Size()); }
  TxnRecord& Item(std::size_t position) { return static_cast<TxnRecord&>(At(position)); }
  TxnRecord& Item(std::string_view key) { return static_cast<TxnRecord&>(AtKey(key)); }
  bool ItemExists(std::string_view key) const { return PositionOfKey(key) != 0; }
  bool ItemExists(std::size_t position) const { return HoldsAt(position); }
  void Remove(std::string_view key);
  void Remove(std::size_t position);
  void Clear() { ClearRecords(); }
  zkErrors& Errors() { return CollectionErrors(); }
  bool Validate() { return ValidateAll(); }
  Long Commit(TxnRecord* Member = nullptr) { return CommitBatch(Member, true, nullptr); }
  // As Commit, but never raises 1023: returns how many entries the collection collected.
  Long Commit2(TxnRecord* Member = nullptr);

  // Also ask QuickBooks for each transaction's linked transactions.
  bool IncludeLinkedTxns() const { return includeLinkedTxns_; }
  void IncludeLinkedTxns(bool value) { includeLinkedTxns_ = value; }

  // --- queries (each fills the collection afresh and returns how many transactions it read) --------
  Long GetAll(bool IncludeLineItems = false, Long MaxReturned = 0, qbEnumPaidStatus PaidStatus = qbPaidStatusAll,
              const std::string& sMDBPath = {});
  Long GetByDateMacro(qbEnumDateMacro DateMacro, bool IncludeLineItems = false, Long MaxReturned = 0,
                      qbEnumPaidStatus PaidStatus = qbPaidStatusAll, const std::string& sMDBPath = {},
                      const std::string& Entity = {}, bool WithChildren = false);
  // By modification date when UseModifiedDate, else by transaction date.
  Long GetByDateSpan(Date FromDate, Date ToDate, bool UseModifiedDate = false, bool IncludeLineItems = false,
                     Long MaxReturned = 0, qbEnumPaidStatus PaidStatus = qbPaidStatusAll,
                     const std::string& sMDBPath = {}, const std::string& Entity = {}, bool WithChildren = false);
  // An empty list raises 1019; WithChildren with more than one name raises 1600.
  Long GetByEntity(const std::vector<std::string>& EntityList, bool WithChildren = false, bool IncludeLineItems = false,
                   Long MaxReturned = 0, qbEnumPaidStatus PaidStatus = qbPaidStatusAll,
                   const std::string& sMDBPath = {});
  Long GetByAccount(const std::vector<std::string>& AccountList, bool WithChildren = false,
                    bool IncludeLineItems = false, Long MaxReturned = 0, qbEnumPaidStatus PaidStatus = qbPaidStatusAll,
                    const std::string& sMDBPath = {});
  Long GetBySingleEntity(const std::string& Entity, bool WithChildren = false, bool IncludeLineItems = false,
                         const std::string& sMDBPath = {});
  Long GetBySingleAccount(const std::string& Account, bool WithChildren = false, bool IncludeLineItems = false,
                          const std::string& sMDBPath = {});
  Long GetByRefNumber(const std::string& FromRefNumber, const std::string& ToRefNumber, bool IncludeLineItems = false,
                      Long MaxReturned = 0, qbEnumPaidStatus PaidStatus = qbPaidStatusAll,
                      const std::string& sMDBPath = {});
  Long GetByRefNumberMatch(const std::string& MatchString, qbEnumMatchType MatchType, bool IncludeLineItems = false,
                           Long MaxReturned = 0, qbEnumPaidStatus PaidStatus = qbPaidStatusAll,
                           const std::string& sMDBPath = {});
  Long GetMultiple(const std::vector<std::string>& TxnIds, bool IncludeLineItems = false,
                   const std::string& sMDBPath = {});
  // The transaction with that TxnID (also kept in the collection), or null.
  TxnRecord* GetByTxnID(const std::string& TxnId, bool IncludeLineItems = false, const std::string& sMDBPath = {});

  // Deletes (voids) a transaction in QuickBooks; with bRemove, also from this collection. A refusal
  // raises 1026 with QuickBooks' status text; a kind QuickBooks cannot delete (void) raises 1027.
  Long Delete(const std::string& TxnId, bool bRemove = true);
  Long Void(const std::string& TxnId, bool bRemove = true);

  // Runs one query; `clearFirst` empties the collection first. Returns how many it read.
  Long Query(const TxnQuery& query, bool clearFirst = true);

 private:
  Long DelOrVoid(std::string_view verb, const std::string& txnId, bool remove);
  bool includeLinkedTxns_ = false;
};

// The typed face of a transaction collection: transactions come back as T.
template <class T>
class TxnCollection : public TxnCollectionBase {
 public:
  explicit TxnCollection(bool master = false) : TxnCollectionBase(T::Declaration(), master) {}

  T& Item(std::size_t position) { return static_cast<T&>(TxnCollectionBase::Item(position)); }
  T& Item(std::string_view key) { return static_cast<T&>(TxnCollectionBase::Item(key)); }
  T& operator[](std::size_t position) { return Item(position); }
  T& operator[](std::string_view key) { return Item(key); }
  T* GetByTxnID(const std::string& TxnId, bool IncludeLineItems = false, const std::string& sMDBPath = {}) {
    return static_cast<T*>(TxnCollectionBase::GetByTxnID(TxnId, IncludeLineItems, sMDBPath));
  }
  // A new transaction, held for the next commit (master only: 1021 otherwise).
  T& Add() { return static_cast<T&>(AddRecord(std::make_shared<T>())); }

  using iterator = PositionIterator<TxnCollection, T>;
  iterator begin() { return iterator(this, 1); }
  iterator end() { return iterator(this, Size() + 1); }

 protected:
  std::shared_ptr<RecordCore> MakeRecord(std::string_view retName) override { return MakeRecordFor<T>(retName); }
};

}  // namespace brenvale

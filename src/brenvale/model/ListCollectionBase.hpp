#pragma once
// The list collection on the collection core: the zkList face, the list queries (paged through
// iterators where the kind allows, each filter only where QuickBooks takes it), and delete. Typed
// collections derive through ListCollection<T>.
#include <memory>
#include <string>
#include <string_view>

#include "brenvale/core/Date.hpp"
#include "brenvale/model/CollectionCore.hpp"
#include "brenvale/model/ListRecord.hpp"
#include "brenvale/model/zkList.hpp"

namespace brenvale {

class ListCollectionBase : public CollectionCore, public zkList {
 public:
  ListCollectionBase(const RecordDecl& decl, bool master);
  ~ListCollectionBase() override;

  const ListFacts& Facts() const { return *Decl().list; }

  // --- zkList -------------------------------------------------------------------------------
  zqEnumListType ListType() const override { return Facts().listType; }
  ListRecord& Item(std::string_view key) override { return static_cast<ListRecord&>(AtKey(key)); }
  ListRecord& Item(std::size_t position) override { return static_cast<ListRecord&>(At(position)); }
  zkErrors& Errors() override { return CollectionErrors(); }
  bool ItemExists(std::string_view key) const override { return PositionOfKey(key) != 0; }
  bool ItemExists(std::size_t position) const { return HoldsAt(position); }
  Long Count() const override { return static_cast<Long>(Size()); }
  void Remove(std::string_view key) override;
  void Remove(std::size_t position) override;
  void Clear() override { ClearRecords(); }
  Long Commit() override { return Commit(nullptr); }
  bool Validate() override { return ValidateAll(); }
  Long GetActive(Long MaxReturned = 0, const std::string& sMDBPath = {}) override;
  Long GetAll(Long MaxReturned = 0, const std::string& sMDBPath = {}) override;
  ListRecord* GetByFullName(const std::string& sFullName) override;
  ListRecord* GetByListID(const std::string& sListID) override;
  ListRecord* Find(std::string_view key) override { return static_cast<ListRecord*>(FindKey(key)); }

  // --- the rest of every collection -----------------------------------------------------------
  Long GetByNameRange(const std::string& FromName, const std::string& ToName, Long MaxReturned = 0,
                      const std::string& sMDBPath = {});
  Long GetByNameMatch(const std::string& MatchString, qbEnumMatchType MatchType, Long MaxReturned = 0,
                      const std::string& sMDBPath = {});
  Long GetByDateSpan(Date FromDate, Date ToDate, Long MaxReturned = 0, const std::string& sMDBPath = {});
  // Sends every New and Dirty record (or only `Member`) in one batch; returns how many QuickBooks
  // accepted. Failures are collected; with the library-wide setting on, 1023 is raised after.
  Long Commit(ListRecord* Member);
  // As Commit, but never raises 1023: returns how many entries the collection collected.
  Long Commit2(ListRecord* Member = nullptr);
  // Deletes a record in QuickBooks; with bRemove, also from this collection. A refusal raises 1026
  // (the code has no message of its own); QuickBooks' reason is left in the collection's Errors.
  virtual Long Delete(const std::string& ListID, bool bRemove = true);

  bool IsMaster() const { return CollectionCore::IsMaster(); }
  std::string_view CollectionLabel() const override;
  // Records per page of an iterated query.
  static Long IteratorPageSize;

 protected:
  ListRecord& AddNewRecord(std::shared_ptr<ListRecord> record) {
    return static_cast<ListRecord&>(AddRecord(std::move(record)));
  }
  void AfterChange() override;
  zqEnumListType CommitList() const override { return Facts().listType; }
  // Whether the collection holds records of several kinds (its declaration then names the list:
  // its query, label and facts; each record's own declaration names its kind).
  virtual bool SeveralKinds() const { return false; }

  // One query: `filters` writes the children after "MaxReturned" (none: every record); `needs`
  // names the query features it uses, which the kind must take. `kind` names the query request of
  // one kind of a collection of several ("StandardTerms"; empty: the collection's own). Returns how
  // many records it read.
  Long Query(Long maxReturned, std::uint8_t needs, const QueryFilters& filters, bool clearFirst,
             std::string_view kind = {});

 private:
  // Raises when QuickBooks has no such request for the kind (1026), or none in this edition (1005).
  void RequireQuery(std::uint8_t needs) const;
};

}  // namespace brenvale

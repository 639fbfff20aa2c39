#pragma once
// The shared body of every list collection: records filed by CollectionKey, the queries (paged
// through iterators where the kind allows), the batch commit, and delete. Typed collections derive
// through ListCollection<T>.
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "brenvale/core/Date.hpp"
#include "brenvale/core/KeyedList.hpp"
#include "brenvale/model/ListRecord.hpp"
#include "brenvale/model/zkList.hpp"

namespace brenvale {

class DomNode;
class xmlBldr;

class ListCollectionBase : public zkList {
 public:
  ListCollectionBase(const RecordSchema& schema, bool master);
  ~ListCollectionBase() override;
  ListCollectionBase(const ListCollectionBase&) = delete;
  ListCollectionBase& operator=(const ListCollectionBase&) = delete;

  // --- zkList -------------------------------------------------------------------------------
  zqEnumListType ListType() const override { return schema_.Decl().listType; }
  ListRecord& Item(std::string_view key) override { return *records_.Get(key); }
  ListRecord& Item(std::size_t position) override { return *records_.At(position); }
  zkErrors& Errors() override { return errors_; }
  bool ItemExists(std::string_view key) const override { return records_.Exists(key); }
  bool ItemExists(std::size_t position) const { return records_.ExistsAt(position); }
  Long Count() const override { return static_cast<Long>(records_.Count()); }
  void Remove(std::string_view key) override;
  void Remove(std::size_t position) override;
  void Clear() override { records_.Clear(); }
  Long Commit() override { return Commit(nullptr); }
  bool Validate() override;
  Long GetActive(Long MaxReturned = 0, const std::string& sMDBPath = {}) override;
  Long GetAll(Long MaxReturned = 0, const std::string& sMDBPath = {}) override;
  ListRecord* GetByFullName(const std::string& sFullName) override;
  ListRecord* GetByListID(const std::string& sListID) override;
  ListRecord* Find(std::string_view key) override;

  // --- the rest of every collection -----------------------------------------------------------
  Long GetByNameRange(const std::string& FromName, const std::string& ToName, Long MaxReturned = 0,
                      const std::string& sMDBPath = {});
  Long GetByNameMatch(const std::string& MatchString, qbEnumMatchType MatchType, Long MaxReturned = 0,
                      const std::string& sMDBPath = {});
  Long GetByDateSpan(Date FromDate, Date ToDate, Long MaxReturned = 0, const std::string& sMDBPath = {});
  // Sends every New and Dirty record (or only `Member`) in one batch; returns how many QuickBooks
  // accepted. Failures are collected; with the library-wide setting on, 1023 is raised after.
  Long Commit(ListRecord* Member);
  // As Commit, but never raises 1023: returns how many records failed.
  Long Commit2(ListRecord* Member = nullptr);
  // Deletes a record in QuickBooks (1026 when refused); with bRemove, also from this collection.
  Long Delete(const std::string& ListID, bool bRemove = true);

  bool IsMaster() const { return master_; }
  const RecordSchema& Schema() const { return schema_; }
  // Records per page of an iterated query.
  static Long IteratorPageSize;

 protected:
  // A new record of the collection's kind for a Ret element of that name (null: not ours).
  virtual std::shared_ptr<ListRecord> MakeRecord(std::string_view retName) = 0;
  // Files a record created by the derived collection's Add (master only: 1021 otherwise).
  ListRecord& AddRecord(std::shared_ptr<ListRecord> record);
  std::shared_ptr<ListRecord> RecordAt(std::size_t position) const { return records_.At(position); }
  void RequireMaster() const;

  // One query: `writeFilters` writes the children after "MaxReturned"; returns records read.
  using FilterWriter = void (*)(xmlBldr&, const void* context);
  Long Query(Long maxReturned, FilterWriter writeFilters, const void* context, bool clearFirst);
  // Files the Ret elements of one response; returns how many were read.
  Long Fill(const DomNode& response);
  // The query's request name, "JobTypeQueryRq".
  virtual std::string QueryRequestName() const { return schema_.XmlName() + "QueryRq"; }
  // The kind named in "ListDelType".
  virtual std::string DeleteTypeName(const ListRecord* record) const;

 private:
  // The key a record can be filed under here: its CollectionKey, or none when that is taken.
  std::string FreeKeyFor(const ListRecord& record) const;
  void File(std::shared_ptr<ListRecord> record);
  // Files a record again at its position (where it was expected to be) under its current key.
  void Refile(const std::shared_ptr<ListRecord>& record, std::size_t position);
  Long CommitBatch(ListRecord* member, bool raise, Long* failures);
  void LinkChildren();

  const RecordSchema& schema_;
  bool master_;
  KeyedList<std::shared_ptr<ListRecord>> records_;
  zkErrors errors_;
};

}  // namespace brenvale

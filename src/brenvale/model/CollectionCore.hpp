#pragma once
// The body every collection shares, list or transaction: records in order and filed by key, the
// response reading that fills them, and the batch commit. A record whose key changes (QuickBooks
// gave it a ListID, a full name) is filed again where it stands, so a commit of n records is linear.
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "brenvale/core/Types.hpp"
#include "brenvale/core/zkErrors.hpp"
#include "brenvale/model/RecordCore.hpp"
#include "brenvale/model/RecordIndex.hpp"
#include "brenvale/qbxml/ResponseView.hpp"

namespace brenvale {

class xmlBldr;

// Writes the filters of a query into its request, after "MaxReturned".
using QueryFilters = std::function<void(xmlBldr&)>;

class CollectionCore {
 public:
  CollectionCore(const RecordDecl& decl, bool master) : decl_(&decl), master_(master) {}
  virtual ~CollectionCore();
  CollectionCore(const CollectionCore&) = delete;
  CollectionCore& operator=(const CollectionCore&) = delete;

  const RecordDecl& Decl() const { return *decl_; }
  bool IsMaster() const { return master_; }
  std::size_t Size() const { return entries_.size(); }
  bool HoldsAt(std::size_t position) const { return position >= 1 && position <= entries_.size(); }
  // By 1-based position; out of range raises "Subscript out of range".
  RecordCore& At(std::size_t position) const;
  std::shared_ptr<RecordCore> SharedAt(std::size_t position) const;
  // The record filed under `key` (case aside), or null.
  RecordCore* FindKey(std::string_view key) const;
  // 1-based position of the record filed under `key`, or 0.
  std::size_t PositionOfKey(std::string_view key) const;
  // 1-based position of a record, or 0 when the collection does not hold it.
  std::size_t PositionOf(const RecordCore& record) const;
  // By key; an unknown key raises "Invalid procedure call or argument".
  RecordCore& AtKey(std::string_view key) const;
  void RemoveAt(std::size_t position);
  void RemoveKey(std::string_view key);
  void ClearRecords();

  // The class label of the collection's raised errors and entries.
  virtual std::string_view CollectionLabel() const { return decl_->label; }

  // Whether queries also ask for QuickBooks' own custom fields of the records (OwnerID 0); only a
  // kind that carries data extensions has them (1030 otherwise). The fields of the application whose
  // GUID is registered come whenever it has a definition for the kind.
  bool IncludeDataExtensions() const { return includeDataExt_; }
  void IncludeDataExtensions(bool value);

  // Requests per message of a commit. A batch larger than this goes as several messages, one after
  // the other: QuickBooks runs a message as one transaction, and a very large one takes longer than
  // its parts; if an exchange fails, what the earlier messages committed stays committed.
  static std::size_t CommitMessageSize;

 protected:
  // A new record for a returned element of that name; null when the element is not one of ours.
  virtual std::shared_ptr<RecordCore> MakeRecord(std::string_view retName) = 0;
  // Run after records were read or committed (a hierarchy links its children).
  virtual void AfterChange() {}
  // The list whose missing names the reference cache forgets after a commit (none for transactions).
  virtual zqEnumListType CommitList() const { return zqListTypeNone; }

  void RequireMaster() const;
  // Files a record at the end (master only: 1021 otherwise); returns it.
  RecordCore& AddRecord(std::shared_ptr<RecordCore> record);
  // Reads every returned element of a response into a new record and files it; a record read again
  // replaces the one held under the same key, where it stands. Returns how many were read.
  Long Fill(const ResponseView::Response& response);
  // The records the last Fill read, in order.
  const std::vector<RecordCore*>& LastRead() const { return lastRead_; }

  // Writes the "OwnerID" elements of a query of a kind that carries data extensions (nothing for
  // another kind): the public fields' when asked for, the registered application's when it has some.
  void WriteOwnerIDs(xmlBldr& b) const;

  // Sends a finished request document and returns its first response; a document QuickBooks
  // answered without any response raises 1001.
  ResponseView::Response SendOne(xmlBldr& b, DomDocument& keep, std::string_view request);
  // Writes and sends one request holding simple elements (a delete, a void) and returns its response.
  ResponseView::Response SendSimple(std::string_view request,
                                    std::initializer_list<std::pair<std::string_view, std::string_view>> children,
                                    DomDocument& keep);
  // The 1-based position of the first record whose identity field holds `id`, or 0.
  std::size_t PositionHolding(FieldId idField, std::string_view id) const;
  // Takes out the first record whose identity field holds `id` (nothing when none does).
  void RemoveHolding(FieldId idField, std::string_view id);

  // Sends every New and Dirty record (or only `member`) in one batch; failures are collected in the
  // collection's errors and the records' own; with `raise` and the library-wide setting on, 1023 is
  // raised after. Returns how many QuickBooks accepted; `failures` gets how many entries the
  // collection collected.
  Long CommitBatch(RecordCore* member, bool raise, Long* failures);
  bool ValidateAll();
  zkErrors& CollectionErrors() { return errors_; }

 private:
  struct Entry {
    std::shared_ptr<RecordCore> record;
    std::uint64_t hash = 0;
    bool keyed = false;
  };
  // Sends the records at these positions (request IDs) in one message and reads the answers.
  Long SendBatch(const std::vector<std::size_t>& batch, bool single);
  // Saves, in one message, the data extension values waiting on the records at these positions that
  // QuickBooks holds (a record just added has its ListID or TxnID now); a record with a value refused
  // gets the reason in its Errors and 1018 in the collection's.
  void SaveValues(const std::vector<std::size_t>& positions, bool single);
  // Files entry `position` under its record's current key, unless the key is empty or taken.
  void Key(std::size_t position);
  std::size_t Find(const KeyParts& key, std::uint64_t hash) const;
  void Unkey(std::size_t position);

  const RecordDecl* decl_;
  bool master_;
  bool includeDataExt_ = false;
  std::vector<Entry> entries_;
  RecordIndex index_;
  std::vector<RecordCore*> lastRead_;
  zkErrors errors_;
};

// Iterates a typed collection by 1-based position: for (T& record : collection) ...
template <class C, class T>
class PositionIterator {
 public:
  PositionIterator(C* c, std::size_t pos) : c_(c), pos_(pos) {}
  T& operator*() const { return c_->Item(pos_); }
  T* operator->() const { return &c_->Item(pos_); }
  PositionIterator& operator++() {
    ++pos_;
    return *this;
  }
  bool operator==(const PositionIterator& o) const { return pos_ == o.pos_; }

 private:
  C* c_;
  std::size_t pos_;
};

// A new record of kind T for a returned element named after the kind ("JobTypeRet"); null for any
// other element.
template <class T>
std::shared_ptr<RecordCore> MakeRecordFor(std::string_view retName) {
  const std::string_view name = T::Declaration().xmlName;
  if (retName.size() != name.size() + 3 || retName.substr(0, name.size()) != name || retName.substr(name.size()) != "Ret")
    return nullptr;
  return std::make_shared<T>();
}

}  // namespace brenvale

#include "brenvale/model/CollectionCore.hpp"

#include <algorithm>

#include "brenvale/core/BrenvaleError.hpp"
#include "brenvale/model/ListRecord.hpp"
#include "brenvale/model/RefCache.hpp"
#include "brenvale/model/detail/DataExtBatch.hpp"
#include "brenvale/model/detail/DataExtCatalog.hpp"
#include "brenvale/qbxml/Session.hpp"
#include "brenvale/qbxml/xmlBldr.hpp"

namespace brenvale {

std::size_t CollectionCore::CommitMessageSize = 500;

CollectionCore::~CollectionCore() = default;

void CollectionCore::RequireMaster() const {
  if (!master_) Raise(1021, CollectionLabel());
}

RecordCore& CollectionCore::At(std::size_t position) const {
  if (!HoldsAt(position)) platform::Raise(platform::kSubscriptOutOfRange, "Brenvale");
  return *entries_[position - 1].record;
}

std::shared_ptr<RecordCore> CollectionCore::SharedAt(std::size_t position) const {
  if (!HoldsAt(position)) platform::Raise(platform::kSubscriptOutOfRange, "Brenvale");
  return entries_[position - 1].record;
}

std::size_t CollectionCore::Find(const KeyParts& key, std::uint64_t hash) const {
  return index_.Find(hash, [&](std::uint32_t position) {
    const Entry& e = entries_[position - 1];
    const KeyParts current = e.record->CollectionKeyParts();
    // A record renamed since it was filed is still found under the key it was filed with.
    return RecordIndex::Equal(current, key) || RecordIndex::Hash(current) != e.hash;
  });
}

std::size_t CollectionCore::PositionOfKey(std::string_view key) const {
  if (key.empty()) return 0;
  const KeyParts parts{{key}};
  return Find(parts, RecordIndex::Hash(parts));
}

RecordCore* CollectionCore::FindKey(std::string_view key) const {
  const std::size_t position = PositionOfKey(key);
  return position ? entries_[position - 1].record.get() : nullptr;
}

RecordCore& CollectionCore::AtKey(std::string_view key) const {
  RecordCore* found = FindKey(key);
  if (!found) platform::Raise(platform::kInvalidProcedureCall, "Brenvale");
  return *found;
}

std::size_t CollectionCore::PositionOf(const RecordCore& record) const {
  for (std::size_t i = 0; i < entries_.size(); ++i)
    if (entries_[i].record.get() == &record) return i + 1;
  return 0;
}

void CollectionCore::Key(std::size_t position) {
  Entry& e = entries_[position - 1];
  const KeyParts key = e.record->CollectionKeyParts();
  e.hash = RecordIndex::Hash(key);
  // A record whose key is empty or taken is still held, just not found by key.
  e.keyed = !key.Empty() && !Find(key, e.hash);
  if (e.keyed) index_.Insert(e.hash, static_cast<std::uint32_t>(position));
}

void CollectionCore::Unkey(std::size_t position) {
  Entry& e = entries_[position - 1];
  if (e.keyed) index_.Erase(e.hash, static_cast<std::uint32_t>(position));
  e.keyed = false;
}

RecordCore& CollectionCore::AddRecord(std::shared_ptr<RecordCore> record) {
  RequireMaster();
  RecordCore& added = *record;
  entries_.push_back(Entry{std::move(record)});
  Key(entries_.size());
  return added;
}

void CollectionCore::RemoveAt(std::size_t position) {
  if (!HoldsAt(position)) platform::Raise(platform::kSubscriptOutOfRange, "Brenvale");
  Unkey(position);
  entries_.erase(entries_.begin() + static_cast<std::ptrdiff_t>(position - 1));
  index_.Shift(static_cast<std::uint32_t>(position + 1), -1);
}

void CollectionCore::RemoveKey(std::string_view key) {
  const std::size_t position = PositionOfKey(key);
  if (!position) platform::Raise(platform::kInvalidProcedureCall, "Brenvale");
  RemoveAt(position);
}

void CollectionCore::ClearRecords() {
  entries_.clear();
  index_.Clear();
  lastRead_.clear();
}

// --- reading --------------------------------------------------------------------------------------

void CollectionCore::IncludeDataExtensions(bool value) {
  if (value && !decl_->dataExt) Raise(1030, CollectionLabel());
  includeDataExt_ = value;
}

void CollectionCore::WriteOwnerIDs(xmlBldr& b) const {
  if (!decl_->dataExt) return;
  detail::InstallDataExtHook();
  b.AddDataExtTag(includeDataExt_, decl_->objectType);
}

Long CollectionCore::Fill(const ResponseView::Response& response) {
  lastRead_.clear();
  index_.Reserve(entries_.size() + 64);
  for (DomNode ret : response.Rets()) {
    std::shared_ptr<RecordCore> record = MakeRecord(ret.BaseName());
    if (!record) continue;
    record->ReadFrom(ret);
    lastRead_.push_back(record.get());
    const KeyParts key = record->CollectionKeyParts();
    const std::uint64_t hash = RecordIndex::Hash(key);
    const std::size_t held = key.Empty() ? 0 : Find(key, hash);
    if (held) {
      entries_[held - 1].record = std::move(record);
      continue;
    }
    entries_.push_back(Entry{std::move(record), hash, !key.Empty()});
    if (!key.Empty()) index_.Insert(hash, static_cast<std::uint32_t>(entries_.size()));
  }
  return static_cast<Long>(lastRead_.size());
}

ResponseView::Response CollectionCore::SendOne(xmlBldr& b, DomDocument& keep, std::string_view request) {
  keep = b.NewSendRequest();
  ResponseView::Response rs = ResponseView(keep).First();
  if (!rs) Raise(1001, CollectionLabel(), "QuickBooks: no response to " + std::string(request));
  return rs;
}

ResponseView::Response CollectionCore::SendSimple(
    std::string_view request, std::initializer_list<std::pair<std::string_view, std::string_view>> children,
    DomDocument& keep) {
  xmlBldr b;
  b.NewClear();
  b.OpenAggregate(request, "requestID", "1");
  for (const auto& [tag, value] : children) b.CreateElement(tag, value);
  b.EndAggregate(request);
  return SendOne(b, keep, request);
}

std::size_t CollectionCore::PositionHolding(FieldId idField, std::string_view id) const {
  for (std::size_t position = 1; position <= entries_.size(); ++position)
    if (entries_[position - 1].record->ValueText(idField) == id) return position;
  return 0;
}

void CollectionCore::RemoveHolding(FieldId idField, std::string_view id) {
  if (const std::size_t position = PositionHolding(idField, id)) RemoveAt(position);
}

// --- commit ---------------------------------------------------------------------------------------

Long CollectionCore::SendBatch(const std::vector<std::size_t>& batch, bool single) {
  const WriteContext add = WriteContext::OfSession(Form::Add);
  const WriteContext mod = add.As(Form::Mod);
  xmlBldr b;
  b.NewClear();
  for (std::size_t position : batch) {
    const RecordCore& r = *entries_[position - 1].record;
    const bool isNew = r.ObjectState() == zqObjectStateNew;
    if (!isNew && r.ObjectState() != zqObjectStateDirty)
      Raise(1003, "Brenvale: " + std::string(r.Label()), "Unknown Object State");
    const std::string id = std::to_string(single ? 1 : position);
    // Each record's own kind names its request: a collection of several kinds sends several.
    const std::string name(r.Decl().xmlName);
    const std::string rq = name + (isNew ? "AddRq" : "ModRq");
    const std::string body = name + (isNew ? "Add" : "Mod");
    b.OpenAggregate(rq, "requestID", id);
    b.OpenAggregateOnly(body);
    WriteRequestBody(r, b, isNew ? add : mod);
    b.EndAggregate(body);
    b.EndAggregate(rq);
  }
  DomDocument doc = b.NewSendRequest();
  // Which of the batch each request ID stands for (IDs are positions, or 1 for a single member).
  std::vector<char> answered(batch.size(), 0);
  auto slotOf = [&](Long requestId) -> std::size_t {
    if (single) return requestId == 1 ? 0 : batch.size();
    auto it = std::lower_bound(batch.begin(), batch.end(), static_cast<std::size_t>(requestId));
    return it != batch.end() && *it == static_cast<std::size_t>(requestId) ? static_cast<std::size_t>(it - batch.begin())
                                                                           : batch.size();
  };
  Long committed = 0;
  for (ResponseView::Response rs : ResponseView(doc)) {
    const Long requestId = rs.RequestNumber();
    const std::size_t slot = slotOf(requestId);
    if (slot == batch.size() || answered[slot]) continue;
    answered[slot] = 1;
    const std::size_t position = batch[slot];
    RecordCore& record = *entries_[position - 1].record;
    record.Errors().Clear();
    const Long status = rs.StatusCode();
    if (status == 0) {
      record.ReadFrom(rs.FirstRet());
      // QuickBooks' answer may give it a new key (a ListID, a full name): filed again in place.
      Unkey(position);
      Key(position);
      ++committed;
    } else {
      errors_.AddCode(1018, std::to_string(requestId));
      if (status == 3100)
        record.Errors().AddCode(1017, "Name");
      else
        record.Errors().AddCode(1001, "", "QuickBooks: " + rs.Message());
    }
  }
  // A request QuickBooks never answered counts as failed.
  for (std::size_t slot = 0; slot < batch.size(); ++slot)
    if (!answered[slot]) {
      errors_.AddCode(1018, std::to_string(single ? 1 : batch[slot]));
      entries_[batch[slot] - 1].record->Errors().AddCode(1001, "", "QuickBooks: no response to this record");
    }
  return committed;
}

void CollectionCore::SaveValues(const std::vector<std::size_t>& positions, bool single) {
  detail::DataExtBatch values;
  std::vector<std::size_t> holding;
  for (std::size_t position : positions) {
    RecordCore& r = *entries_[position - 1].record;
    // A record QuickBooks does not hold (yet) keeps its values waiting.
    if (!r.Decl().dataExt || r.ObjectState() != zqObjectStateClean) continue;
    const std::size_t before = values.Size(), refused = values.Refused();
    r.AddDataExtChanges(values);
    if (values.Size() != before || values.Refused() != refused) holding.push_back(position);
  }
  if (holding.empty()) return;
  values.Send();
  for (std::size_t position : holding)
    if (entries_[position - 1].record->ReportDataExtFailures() > 0)
      errors_.AddCode(1018, std::to_string(single ? 1 : position));
}

bool CollectionCore::ValidateAll() {
  errors_.Clear();
  RefCache& refs = TheRefCache();
  RefCache::Batch batch;
  for (const Entry& e : entries_)
    if (e.record->ObjectState() != zqObjectStateClean)
      e.record->ForEachReference([&](zqEnumListType list, std::string_view name, std::string_view sortTag) {
        batch.Add(list, name, sortTag);
      });
  refs.Fetch(batch);
  ValidateContext context = ValidateContext::OfSession();
  for (std::size_t i = 0; i < entries_.size(); ++i)
    if (!entries_[i].record->Validate(context)) errors_.AddCode(1011, std::to_string(i + 1));
  return errors_.Count() == 0;
}

Long CollectionCore::CommitBatch(RecordCore* member, bool raise, Long* failures) {
  RequireMaster();
  errors_.Clear();
  // The records sent: their positions, which are also their request IDs.
  std::vector<std::size_t> batch;
  RefCache& refs = TheRefCache();
  {
    // Every name the rules will look up, fetched at once: one query per list for the whole batch.
    RefCache::Batch names;
    auto gather = [&](const RecordCore& r) {
      if (r.ObjectState() != zqObjectStateClean)
        r.ForEachReference([&](zqEnumListType list, std::string_view name, std::string_view sortTag) {
          names.Add(list, name, sortTag);
        });
    };
    if (member)
      gather(*member);
    else
      for (const Entry& e : entries_) gather(*e.record);
    refs.Fetch(names);
  }
  ValidateContext context = ValidateContext::OfSession();
  if (member) {
    const std::size_t position = PositionOf(*member);
    if (!member->Validate(context)) errors_.AddCode(1011, "1");
    if (!position) errors_.AddCode(1022, std::string(decl_->label));
    if (position && errors_.Count() == 0 && member->ObjectState() != zqObjectStateClean) batch.push_back(position);
  } else {
    for (std::size_t position = 1; position <= entries_.size(); ++position) {
      RecordCore& r = *entries_[position - 1].record;
      if (!r.Validate(context)) {
        errors_.AddCode(1011, std::to_string(position));
        continue;
      }
      if (r.ObjectState() != zqObjectStateClean) batch.push_back(position);
    }
  }

  // A kind QuickBooks cannot modify refuses a changed record before anything of the batch is sent.
  for (std::size_t position : batch) {
    const RecordCore& r = *entries_[position - 1].record;
    if (!r.Decl().modRefusal.empty() && r.ObjectState() == zqObjectStateDirty)
      Raise(1003, "Brenvale: " + std::string(r.Label()), r.Decl().modRefusal);
  }
  Long committed = 0;
  for (std::size_t from = 0; from < batch.size(); from += CommitMessageSize) {
    const std::vector<std::size_t> part(batch.begin() + static_cast<std::ptrdiff_t>(from),
                                        batch.begin() + static_cast<std::ptrdiff_t>(std::min(batch.size(), from + CommitMessageSize)));
    committed += SendBatch(part, member != nullptr);
  }
  if (member) {
    if (const std::size_t position = PositionOf(*member)) SaveValues({position}, true);
  } else {
    std::vector<std::size_t> all(entries_.size());
    for (std::size_t i = 0; i < all.size(); ++i) all[i] = i + 1;
    SaveValues(all, false);
  }
  if (!batch.empty()) {
    if (CommitList() != zqListTypeNone) refs.ForgetMissing(CommitList());
    AfterChange();
  }
  if (failures) *failures = errors_.Count();
  if (raise && errors_.Count() > 0 && CurrentSession().commitRaises) Raise(1023, CollectionLabel());
  return committed;
}

}  // namespace brenvale

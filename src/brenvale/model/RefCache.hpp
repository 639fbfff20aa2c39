#pragma once
// What the library knows of the records that references name, one cache per connection. Setters
// and validation ask it and never send a request of their own: a record the master collection of
// its list holds is known at once; names neither holds are looked up in batches, one query per list
// for as many names as a commit needs.
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "brenvale/core/EnumTypes.hpp"

namespace brenvale {

struct RefEntry {
  std::string listID;
  std::string fullName;
  std::string retName;  // the element QuickBooks answered with ("VendorRet" for an entity)
  // What sort of record it is within its list, where a lookup asked for it: the text of the
  // record's element `sortTag` (an account's "AccountType").
  std::string sortTag;
  std::string sort;
};

enum class RefAnswer { Found, Missing, Unknown };

class RefCache {
 public:
  // What is known of the record named `fullName` in `list`; the entry when found. With a
  // `sortTag`, a record looked up without that element is not known yet.
  RefAnswer Find(zqEnumListType list, std::string_view fullName, RefEntry* entry = nullptr,
                 std::string_view sortTag = {});
  // Looks up in QuickBooks, in one query, the names of `list` that are not known yet (with the
  // element `sortTag` of each, when given). Nothing is sent without a connection, or when every
  // name is known.
  void Fetch(zqEnumListType list, const std::vector<std::string>& names, std::string_view sortTag = {});

  // Names gathered from many records, fetched with one query per list (and sort element).
  class Batch {
   public:
    void Add(zqEnumListType list, std::string_view fullName, std::string_view sortTag = {});
    bool Empty() const { return byList_.empty(); }

   private:
    friend class RefCache;
    struct Names {
      zqEnumListType list;
      std::string_view sortTag;
      std::vector<std::string> names;
    };
    std::vector<Names> byList_;
  };
  void Fetch(const Batch& batch);

  // Forgets the names of `list` found missing: a commit may have added them.
  void ForgetMissing(zqEnumListType list);
  void Clear();

 private:
  // Entries belong to one session; a new session starts afresh.
  void CheckSession();
  static std::string KeyOf(zqEnumListType list, std::string_view fullName);

  // The session the entries were filled in: its processor and ticket.
  const void* processor_ = nullptr;
  std::string ticket_;
  std::unordered_map<std::string, std::optional<RefEntry>> entries_;  // nothing: looked up, missing
};

// This thread's cache.
RefCache& TheRefCache();

}  // namespace brenvale

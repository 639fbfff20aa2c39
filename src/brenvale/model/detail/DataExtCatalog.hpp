#pragma once
// The data-extension definitions the session knows, by the object they are assigned to: asked of
// QuickBooks once per object and session (one "DataExtDefQueryRq"), forgotten when definitions
// change. Values take their type from here and Item checks a name against it (2804); the request
// builder asks it, through the session's hook, whether the registered owner has a definition for
// the kind of a query, to add that owner's "OwnerID".
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "brenvale/core/EnumTypes.hpp"
#include "brenvale/core/RequestProcessor.hpp"

namespace brenvale::detail {

struct DataExtDefFacts {
  std::string ownerId;
  std::string name;
  qbEnumDataExtDataType type = qbDataExtTypeSTR255TYPE;
};

class DataExtCatalog {
 public:
  enum class Known { Yes, NoConnection, NoAnswer };

  // The definitions assigned to the object with that tag ("Customer"). Asks QuickBooks when they
  // are not known yet and a session is open; `known` says why there are none when they cannot be
  // known.
  const std::vector<DataExtDefFacts>& AssignedTo(std::string_view objectTag, Known* known = nullptr);
  // The definition of `owner` named `name` (case aside) assigned to the object, or null.
  const DataExtDefFacts* Find(std::string_view objectTag, std::string_view owner, std::string_view name,
                              Known* known = nullptr);
  // Definitions were added, changed or deleted: ask again next time.
  void Forget() { byObject_.clear(); }

 private:
  // Entries belong to one session; a new session starts afresh.
  void CheckSession();

  std::weak_ptr<IRequestProcessor> processor_;
  std::string ticket_;
  std::map<std::string, std::vector<DataExtDefFacts>, std::less<>> byObject_;
};

// This thread's catalogue.
DataExtCatalog& TheDataExtCatalog();

// Two owner IDs name the same owner (GUIDs compare without regard to case).
bool SameOwner(std::string_view a, std::string_view b);

// Sets the session's hook through which the request builder learns whether the registered owner
// has a definition for a kind (it adds that owner's "OwnerID" to the kind's queries), unless the
// session has one.
void InstallDataExtHook();

}  // namespace brenvale::detail

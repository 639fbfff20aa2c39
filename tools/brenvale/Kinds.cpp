#include "Kinds.hpp"

#include <algorithm>
#include <cctype>
#include <type_traits>
#include <utility>

#include "Tool.hpp"
#include "brenvale/company/BrenvaleGlobals.hpp"
#include "brenvale/company/RecordKinds.hpp"

namespace brenvale::tool {
namespace {

// One kind, from the global accessor of its master collection: a blank record comes from the
// collection's Add with its defaults.
template <auto Accessor, class Record>
Kind Of(std::string name, std::string plural) {
  ListRecord& (*addNew)() = nullptr;
  if constexpr (requires { Accessor().Add(); })
    if (Record::Declaration().list->addable) addNew = []() -> ListRecord& { return Accessor().Add(); };
  return Kind{std::move(name),
              std::move(plural),
              &Record::Declaration,
              []() -> ListCollectionBase& { return Accessor(); },
              addNew,
              []() -> std::shared_ptr<ListRecord> { return std::make_shared<Record>(); }};
}

// A collection's kind, or for a collection of several kinds their base (named as its list, "Item")
// and each of them (named as in qbXML, "ItemService"), a blank record of each from Add<K>.
template <auto Accessor, class Collection, class Record>
void Register(std::vector<Kind>& kinds, std::string name, std::string plural) {
  if constexpr (std::is_constructible_v<Record>) {
    kinds.push_back(Of<Accessor, Record>(std::move(name), std::move(plural)));
  } else {
    Kind base{std::string(Record::Declaration().xmlName), plural, &Record::Declaration,
              []() -> ListCollectionBase& { return Accessor(); }, nullptr, nullptr};
    Collection::ForEachKind([&]<class K>(std::type_identity<K>) {
      Kind k{std::string(K::Declaration().xmlName),
             plural,
             &K::Declaration,
             []() -> ListCollectionBase& { return Accessor(); },
             []() -> ListRecord& { return Accessor().template Add<K>(); },
             []() -> std::shared_ptr<ListRecord> { return std::make_shared<K>(); },
             base.name};
      base.kinds.push_back(k.name);
      kinds.push_back(std::move(k));
    });
    kinds.push_back(std::move(base));
  }
}

std::vector<Kind> Registered() {
  using G = BrenvaleGlobals;
  std::vector<Kind> kinds;
#define BRENVALE_TOOL_KIND(Collection, Record) \
  Register<&G::Collection, brenvale::Collection, brenvale::Record>(kinds, #Record, #Collection);
  BRENVALE_RECORD_KINDS(BRENVALE_TOOL_KIND)
#undef BRENVALE_TOOL_KIND
  std::sort(kinds.begin(), kinds.end(), [](const Kind& a, const Kind& b) { return a.name < b.name; });
  return kinds;
}

// Lower case without "-", "_" and blanks: "job-type" and "JobType" meet.
std::string Folded(std::string_view text) {
  std::string out;
  for (char c : text)
    if (c != '-' && c != '_' && c != ' ')
      out += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return out;
}

}  // namespace

const std::vector<Kind>& Kinds() {
  static const std::vector<Kind> kinds = Registered();
  return kinds;
}

const Kind* FindKind(std::string_view name) {
  const std::string wanted = Folded(name);
  // A kind of a collection of several kinds is not named by the collection's name.
  for (const Kind& k : Kinds())
    if (Folded(k.name) == wanted || (k.base.empty() && Folded(k.plural) == wanted) ||
        Folded(k.decl().xmlName) == wanted)
      return &k;
  return nullptr;
}

std::string KindNames() {
  std::string out;
  for (const Kind& k : Kinds()) out += (out.empty() ? "" : ", ") + k.name;
  return out;
}

const Kind& RequireKind(std::string_view name) {
  if (const Kind* k = FindKind(name)) return *k;
  throw UsageError("unknown kind '" + std::string(name) + "'; the kinds are: " + KindNames());
}

int FindField(const RecordDecl& decl, std::span<const FieldId> among, std::string_view name) {
  const std::string wanted = Folded(name);
  for (FieldId id : among) {
    std::string tag = Folded(decl.Field(id).tag);
    if (tag == wanted) return id;
    if (decl.Field(id).kind == ValueKind::Ref && tag.size() > 3 && tag.ends_with("ref") &&
        tag.substr(0, tag.size() - 3) == wanted)
      return id;
  }
  return -1;
}

std::string FieldNames(const RecordDecl& decl, std::span<const FieldId> ids) {
  std::string out;
  for (FieldId id : ids) out += (out.empty() ? "" : ", ") + std::string(decl.Field(id).tag);
  return out;
}

}  // namespace brenvale::tool

#include "Kinds.hpp"

#include <algorithm>
#include <cctype>
#include <tuple>
#include <type_traits>
#include <utility>

#include "Tool.hpp"
#include "brenvale/company/BrenvaleGlobals.hpp"
#include "brenvale/company/RecordKinds.hpp"

namespace brenvale::tool {
namespace {

// One kind, from the global accessor of its master collection: a blank record comes from the
// collection's Add with its defaults (Add<Record>() in a collection of several kinds).
template <auto Accessor, class Record, bool Member>
Kind Of(std::string name, std::string plural) {
  ListRecord& (*addNew)() = nullptr;
  std::shared_ptr<ListRecord> (*scratch)() = nullptr;
  // The common base of several kinds (an item, a name) has no record of its own.
  if constexpr (std::is_default_constructible_v<Record>) {
    scratch = []() -> std::shared_ptr<ListRecord> { return std::make_shared<Record>(); };
    if constexpr (Member && requires { Accessor().template Add<Record>(); }) {
      if (Record::Declaration().list->addable)
        addNew = []() -> ListRecord& { return Accessor().template Add<Record>(); };
    } else if constexpr (!Member && requires { Accessor().Add(); }) {
      if (Record::Declaration().list->addable) addNew = []() -> ListRecord& { return Accessor().Add(); };
    }
  }
  return Kind{std::move(name),
              std::move(plural),
              &Record::Declaration,
              []() -> ListCollectionBase& { return Accessor(); },
              addNew,
              scratch,
              {}};
}

// The kinds of one collection: its record kind; for a collection of several kinds, the list itself
// (what they share, every record shown) and then each of them by its qbXML name, unless a
// collection of its own (registered before) serves it already, as the name lists' do for entities.
template <auto Accessor, class Collection, class Record>
void Register(std::vector<Kind>& kinds, const char* name, const char* plural) {
  using Members = typename Collection::Members;
  if constexpr (std::is_same_v<Members, std::tuple<Record>>) {
    kinds.push_back(Of<Accessor, Record, false>(name, plural));
  } else {
    Kind list = Of<Accessor, Record, false>(std::string(Record::Declaration().xmlName), plural);
    [&]<class... K>(std::tuple<K...>*) {
      (list.members.append(list.members.empty() ? "" : ", ").append(K::Declaration().xmlName), ...);
      const auto registered = [&](std::string_view kind) {
        return std::any_of(kinds.begin(), kinds.end(), [&](const Kind& k) { return k.name == kind; });
      };
      ((registered(K::Declaration().xmlName)
            ? void()
            : kinds.push_back(Of<Accessor, K, true>(std::string(K::Declaration().xmlName), plural))),
       ...);
    }(static_cast<Members*>(nullptr));
    kinds.push_back(std::move(list));
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
  // A kind's own name first: the kinds of one collection share its plural.
  for (const Kind& k : Kinds())
    if (Folded(k.name) == wanted) return &k;
  for (const Kind& k : Kinds())
    if (Folded(k.plural) == wanted || Folded(k.decl().xmlName) == wanted) return &k;
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

FieldPath FindFieldPath(const RecordDecl& decl, Form form, std::string_view name) {
  FieldPath path;
  const RecordDecl* at = &decl;
  while (true) {
    const std::size_t dot = name.find('.');
    const int id = FindField(*at, at->Order(form), name.substr(0, dot));
    if (id < 0) return {};
    const FieldDef& f = at->Field(static_cast<FieldId>(id));
    path.ids.push_back(static_cast<FieldId>(id));
    path.name += (path.name.empty() ? "" : ".") + std::string(f.tag);
    if (dot == std::string_view::npos) {
      // A group of fields is set part by part.
      if (f.kind == ValueKind::Aggregate || f.kind == ValueKind::Children) return {};
      path.field = &f;
      return path;
    }
    if (f.kind != ValueKind::Aggregate) return {};
    at = &f.body();
    name = name.substr(dot + 1);
  }
}

RecordCore& HolderOf(RecordCore& record, const FieldPath& path) {
  RecordCore* holder = &record;
  for (std::size_t i = 0; i + 1 < path.ids.size(); ++i) holder = &holder->Nested(path.ids[i]);
  return *holder;
}

std::string FieldNames(const RecordDecl& decl, std::span<const FieldId> ids) {
  std::string out;
  for (FieldId id : ids) {
    out += (out.empty() ? "" : ", ") + std::string(decl.Field(id).tag);
    if (decl.Field(id).kind == ValueKind::Aggregate) out += ".FIELD";
  }
  return out;
}

}  // namespace brenvale::tool

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
  // A kind that is the common base of several (every name list) has no record of its own.
  std::shared_ptr<ListRecord> (*scratch)() = nullptr;
  if constexpr (std::is_default_constructible_v<Record>)
    scratch = []() -> std::shared_ptr<ListRecord> { return std::make_shared<Record>(); };
  return Kind{std::move(name),
              std::move(plural),
              &Record::Declaration,
              []() -> ListCollectionBase& { return Accessor(); },
              addNew,
              scratch};
}

std::vector<Kind> Registered() {
  using G = BrenvaleGlobals;
#define BRENVALE_TOOL_KIND(Collection, Record) Of<&G::Collection, brenvale::Record>(#Record, #Collection),
  std::vector<Kind> kinds = {BRENVALE_RECORD_KINDS(BRENVALE_TOOL_KIND)};
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
  for (const Kind& k : Kinds())
    if (Folded(k.name) == wanted || Folded(k.plural) == wanted || Folded(k.decl().xmlName) == wanted)
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

#include "brenvale/rqp/records/RecordWriter.hpp"

#include <algorithm>

#include "brenvale/rqp/protocol/Text.hpp"
#include "brenvale/rqp/records/Kind.hpp"
#include "brenvale/rqp/schema/Declarations.hpp"

namespace brenvale::rqp::detail {
std::vector<std::string> ChildTexts(pugi::xml_node parent, const char* name) {
  std::vector<std::string> out;
  for (auto c : parent.children(name)) out.emplace_back(c.text().get());
  return out;
}

namespace {

// The stored form with every "<XRef><ListID>id</ListID>" of a kept record followed by that
// record's full name. A reference that carries its own name (a list the engine does not keep)
// stays as it is.
std::string WithNames(Context& co, std::string_view ret, FullNames* names) {
  static constexpr std::string_view kOpen = "Ref><ListID>", kClose = "</ListID>", kName = "<FullName>";
  std::string out;
  std::size_t from = 0;
  for (std::size_t at; (at = ret.find(kOpen, from)) != std::string_view::npos;) {
    std::size_t idStart = at + kOpen.size();
    std::size_t idEnd = ret.find(kClose, idStart);
    if (idEnd == std::string_view::npos) break;
    std::size_t after = idEnd + kClose.size();
    out.append(ret.substr(from, after - from));
    from = after;
    if (ret.substr(after, kName.size()) == kName) continue;
    std::string id(ret.substr(idStart, idEnd - idStart));
    std::optional<std::string> name;
    if (auto known = names ? names->find(id) : FullNames::iterator{}; names && known != names->end()) {
      name = known->second;
    } else {
      auto& s = co.Data().Db().Prepare("SELECT full_name FROM records WHERE list_id=?");
      s.Bind(1, id);
      if (s.Step()) name = std::string(s.Text(0));
      s.Reset();
      if (names) names->emplace(std::move(id), name);
    }
    if (name) {
      out += kName;
      AppendEscaped(out, *name, false);
      out += "</FullName>";
    }
  }
  out.append(ret.substr(from));
  return out;
}

// The stored record with its computed elements' values in place of their empty elements.
std::string WithComputed(const ListKind& kind, const Record& record, const std::vector<std::int64_t>& values) {
  std::string ret = record.ret;
  for (std::size_t i = 0; i < kind.computed.size() && i < values.size(); ++i) {
    std::string element(kind.computed[i].element);
    std::size_t at = ret.find("<" + element + "></" + element + ">");
    const ChildRule* rule = kind.ret->Child(element);
    if (at != std::string::npos && rule)
      ret.insert(at + element.size() + 2, FormatNumber(Declarations::Get().At(rule->decl).type, values[i]));
  }
  return ret;
}

}  // namespace

ComputedValues ComputeValues(Context& co, const ListKind& kind, const std::vector<std::int64_t>& rowIds) {
  ComputedValues out;
  if (kind.computedSelect.empty()) return out;
  auto& s = co.Data().Db().Prepare(kind.computedSelect);
  s.Bind(1, JsonArray(rowIds));
  while (s.Step()) {
    auto& values = out[s.Int(0)];
    for (int col = 1; col <= static_cast<int>(kind.computed.size()); ++col) values.push_back(s.Int(col));
  }
  s.Reset();
  return out;
}

void WriteListRecord(Context& co, const Record& record, const RetOptions& options, std::string& out, FullNames* names,
                     const ComputedValues* values) {
  const ListKind* kind = KindByCode(record.kind);
  if (!kind || kind->computed.empty()) return WriteRecord(co, record.listId, record.ret, options, out, names);
  ComputedValues own;
  if (!values || !values->count(record.rowId)) {
    own = ComputeValues(co, *kind, {record.rowId});
    values = &own;
  }
  auto it = values->find(record.rowId);
  WriteRecord(co, record.listId, it == values->end() ? record.ret : WithComputed(*kind, record, it->second), options,
              out, names);
}

RetOptions OptionsOf(pugi::xml_node request, int version) {
  return RetOptions{ChildTexts(request, "IncludeRetElement"), ChildTexts(request, "OwnerID"), version};
}

void AppendDataExtRet(std::string& out, std::string_view owner, std::string_view name, std::string_view type,
                      std::string_view value) {
  out += "<DataExtRet>";
  AppendElement(out, "OwnerID", owner);
  AppendElement(out, "DataExtName", name);
  AppendElement(out, "DataExtType", type);
  AppendElement(out, "DataExtValue", value);
  out += "</DataExtRet>";
}

void WriteRecord(Context& co, std::string_view objectId, std::string_view ret, const RetOptions& options,
                 std::string& out, FullNames* names) {
  std::string s = WithNames(co, ret, names);
  if (!options.owners.empty() && !objectId.empty()) {
    std::string ext;
    for (auto& v : co.Data().DataExtValuesOf(objectId)) {
      if (std::find(options.owners.begin(), options.owners.end(), v.ownerId) == options.owners.end()) continue;
      pugi::xml_document def;
      def.load_string(v.defRet.c_str());
      auto d = def.first_child();
      AppendDataExtRet(ext, v.ownerId, d.child("DataExtName").text().get(), d.child("DataExtType").text().get(),
                       v.value);
    }
    if (!ext.empty()) s.insert(s.rfind("</"), ext);
  }
  if (!options.include.empty() || options.version < kNewestVersion) {
    pugi::xml_document doc;
    doc.load_string(s.c_str());
    auto root = doc.first_child();
    if (options.version < kNewestVersion)
      if (const Decl* decl = Declarations::Get().Named(root.name())) DropNewerThan(*decl, root, options.version);
    if (!options.include.empty()) {
      for (auto c = root.first_child(); c;) {
        auto next = c.next_sibling();
        std::string_view name = c.name();
        bool keep = (name == "DataExtRet" && !options.owners.empty()) ||
                    std::find(options.include.begin(), options.include.end(), name) != options.include.end();
        if (!keep) root.remove_child(c);
        c = next;
      }
    }
    s.clear();
    Serialize(root, s);
  }
  AppendResponseText(out, s);
  out += '\n';
}

}  // namespace brenvale::rqp::detail

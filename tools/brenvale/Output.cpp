#include "Output.hpp"

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <variant>

#include "brenvale/model/DataExtensions.hpp"
#include "brenvale/qbxml/Conversions.hpp"
#include "brenvale/qbxml/xmlBldr.hpp"

namespace brenvale::tool {
namespace {

std::string Lower(std::string_view text) {
  std::string out(text);
  for (char& c : out) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return out;
}

std::string FieldNames(const RecordDecl& decl) {
  std::string out;
  for (FieldId id : KindFields(decl)) out += (out.empty() ? "" : ", ") + std::string(decl.Field(id).tag);
  return out;
}

std::string JsonValue(const RecordCore& record, FieldId id);

// The fields a nested record holds, as a JSON object.
std::string JsonObject(const RecordCore& record) {
  std::string out = "{";
  for (const FieldId id : KindFields(record.Decl())) {
    if (!record.Has(id)) continue;
    out += (out.size() > 1 ? ", " : "") + JsonString(record.Decl().Field(id).tag) + ": " + JsonValue(record, id);
  }
  return out + "}";
}

// A field's value as a JSON value: true/false, a number, a string, an object for a reference or a
// nested record, an array for child records; null when unset.
std::string JsonValue(const RecordCore& record, FieldId id) {
  const ValueKind kind = record.Decl().Field(id).kind;
  if (kind == ValueKind::Aggregate || kind == ValueKind::Children) {
    std::string items;
    for (std::size_t i = 0; const RecordCore* nested = record.NestedAt(id, i); ++i)
      if (kind == ValueKind::Children || nested->HoldsAnyValue()) items += (items.empty() ? "" : ", ") + JsonObject(*nested);
    if (kind == ValueKind::Aggregate) return items.empty() ? "null" : items;
    return record.Has(id) ? "[" + items + "]" : "null";
  }
  const FieldValue v = record.Value(id);
  if (std::holds_alternative<std::monostate>(v)) return "null";
  if (auto b = std::get_if<bool>(&v)) return *b ? "true" : "false";
  if (auto i = std::get_if<std::int64_t>(&v)) {
    if (record.Decl().Field(id).kind == ValueKind::Enum) return JsonString(record.ValueText(id));
    return std::to_string(*i);
  }
  if (std::holds_alternative<Currency>(v)) return record.ValueText(id);
  if (auto d = std::get_if<double>(&v)) return NumberToText(*d);
  if (auto r = std::get_if<zkListObjectRef>(&v)) {
    if (r->IsEmpty()) return "null";
    return "{\"ListID\": " + (r->ListID().empty() ? std::string("null") : JsonString(r->ListID())) +
           ", \"FullName\": " + (r->FullName().empty() ? std::string("null") : JsonString(r->FullName())) +
           "}";
  }
  std::string text = record.ValueText(id);
  return text.empty() && !std::holds_alternative<std::string>(v) ? "null" : JsonString(text);
}

// The custom field values a record holds, QuickBooks' own first, then the application's.
std::vector<const DataExtension*> CustomValues(const ListRecord& record) {
  std::vector<const DataExtension*> out;
  for (const DataExtensions* fields : {record.FindCustomFields(), record.FindApplicationFields()})
    if (fields)
      for (const DataExtension& value : *fields) out.push_back(&value);
  return out;
}

// A field's value in a table cell; a nested record's parts joined by ", ".
std::string CellText(const RecordCore& record, FieldId id) {
  if (record.Decl().Field(id).kind != ValueKind::Aggregate) return record.ValueText(id);
  const RecordCore* nested = record.FindNested(id);
  std::string out;
  if (!nested) return out;
  for (FieldId part : KindFields(nested->Decl())) {
    const std::string text = CellText(*nested, part);
    if (!text.empty()) out += (out.empty() ? "" : ", ") + text;
  }
  return out;
}

// Every record with the fields of its own kind (an entity or item query answers several); a record of
// another kind than the collection's says which.
void PrintJson(std::ostream& out, const RecordDecl& collectionDecl, const std::vector<ListRecord*>& records) {
  out << "[";
  for (std::size_t r = 0; r < records.size(); ++r) {
    const RecordDecl& decl = records[r]->Decl();
    const std::vector<FieldId> fields = KindFields(decl);
    out << (r ? ",\n  {" : "\n  {");
    if (&decl != &collectionDecl) out << "\"kind\": " << JsonString(decl.xmlName) << ", ";
    for (std::size_t f = 0; f < fields.size(); ++f) {
      out << (f ? ", " : "") << JsonString(decl.Field(fields[f]).tag) << ": " << JsonValue(*records[r], fields[f]);
    }
    if (decl.dataExt) {
      out << ", \"CustomFields\": {";
      const char* sep = "";
      for (const DataExtension* v : CustomValues(*records[r])) {
        out << sep << JsonString(v->Name()) << ": " << (v->HasValue() ? JsonString(v->ValueText()) : "null");
        sep = ", ";
      }
      out << "}";
    }
    out << "}";
  }
  out << (records.empty() ? "]\n" : "\n]\n");
}

// The records as the collection's query response, each as the Ret element of its own kind.
void PrintXml(std::ostream& out, const RecordDecl& decl, const std::vector<ListRecord*>& records) {
  const std::string name(decl.xmlName);
  xmlBldr b;
  b.Clear();
  b.InsertRawXML(
      "<?xml version=\"1.0\" ?><QBXML><QBXMLMsgsRs><" + name +
      "QueryRs requestID=\"1\" statusCode=\"0\" statusSeverity=\"Info\" statusMessage=\"Status OK\">");
  for (ListRecord* record : records) {
    // Each record in its own kind's element: an item query answers every kind of item, a query of
    // the terms StandardTermsRet and DateDrivenTermsRet.
    const std::string ret = std::string(record->Decl().xmlName) + "Ret";
    b.OpenAggregateOnly(ret);
    record->XMLQueryRs(b);
    b.EndAggregate(ret);
  }
  b.InsertRawXML("</" + name + "QueryRs></QBXMLMsgsRs></QBXML>");
  out << IndentXml(b.GetXML());
}

std::size_t Width(std::string_view utf8) { return TextLength(utf8); }

}  // namespace

std::vector<FieldId> KindFields(const RecordDecl& decl) {
  std::vector<FieldId> out;
  auto in = [](std::span<const FieldId> order, FieldId id) {
    return std::find(order.begin(), order.end(), id) != order.end();
  };
  for (std::size_t i = 0; i < decl.fields.size(); ++i) {
    const auto id = static_cast<FieldId>(i);
    if (in(decl.read, id) || in(decl.add, id) || in(decl.mod, id)) out.push_back(id);
  }
  return out;
}

std::vector<FieldId> TableColumns(const RecordDecl& decl, const std::vector<std::string>& names) {
  const std::vector<FieldId> fields = KindFields(decl);
  std::vector<FieldId> out;
  if (names.empty()) {
    const FieldId name = decl.list->hierarchical ? ListRecord::kFullName : decl.list->nameField;
    auto take = [&](FieldId id) {
      if (std::find(fields.begin(), fields.end(), id) != fields.end() &&
          std::find(out.begin(), out.end(), id) == out.end())
        out.push_back(id);
    };
    take(ListRecord::kListID);
    take(name);
    take(ListRecord::kIsActive);
    for (FieldId id : fields)
      if (id >= kListBaseFields.fields.size()) take(id);
    take(ListRecord::kTimeModified);
    return out;
  }
  for (const std::string& n : names) {
    if (Lower(n) == "all") {
      out.insert(out.end(), fields.begin(), fields.end());
      continue;
    }
    auto it = std::find_if(fields.begin(), fields.end(),
                           [&](FieldId id) { return Lower(decl.Field(id).tag) == Lower(n); });
    if (it == fields.end())
      throw UsageError("unknown field '" + n + "' for " + std::string(decl.label) +
                       "; its fields are: " + FieldNames(decl));
    out.push_back(*it);
  }
  return out;
}

void PrintTable(std::ostream& out, const std::vector<std::vector<std::string>>& rows) {
  std::vector<std::size_t> widths;
  for (const auto& row : rows) {
    if (widths.size() < row.size()) widths.resize(row.size(), 0);
    for (std::size_t c = 0; c < row.size(); ++c) widths[c] = std::max(widths[c], Width(row[c]));
  }
  for (const auto& row : rows) {
    std::string line;
    for (std::size_t c = 0; c < row.size(); ++c) {
      line += row[c];
      if (c + 1 < row.size()) line.append(widths[c] - Width(row[c]) + 2, ' ');
    }
    line.erase(line.find_last_not_of(' ') + 1);
    out << line << "\n";
  }
}

void PrintRecords(std::ostream& out, Format format, const RecordDecl& decl,
                  const std::vector<ListRecord*>& records, const std::vector<FieldId>& columns) {
  switch (format) {
    case Format::Json: PrintJson(out, decl, records); return;
    case Format::Xml: PrintXml(out, decl, records); return;
    case Format::Table: break;
  }
  // Custom fields held by any record are columns of their own, after the fields.
  std::vector<std::string> custom;
  for (ListRecord* record : records)
    for (const DataExtension* v : CustomValues(*record))
      if (std::find(custom.begin(), custom.end(), v->Name()) == custom.end()) custom.push_back(v->Name());
  std::vector<std::vector<std::string>> rows;
  rows.emplace_back();
  for (FieldId id : columns) rows.back().push_back(std::string(decl.Field(id).tag));
  rows.back().insert(rows.back().end(), custom.begin(), custom.end());
  for (ListRecord* record : records) {
    rows.emplace_back();
    for (FieldId id : columns) rows.back().push_back(CellText(*record, id));
    const std::vector<const DataExtension*> values = CustomValues(*record);
    for (const std::string& name : custom) {
      auto held = std::find_if(values.begin(), values.end(), [&](const DataExtension* v) { return v->Name() == name; });
      rows.back().push_back(held == values.end() ? std::string() : (*held)->ValueText());
    }
  }
  PrintTable(out, rows);
}

std::string JsonString(std::string_view text) {
  std::string out = "\"";
  for (char ch : text) {
    auto c = static_cast<unsigned char>(ch);
    switch (ch) {
      case '"': out += "\\\""; break;
      case '\\': out += "\\\\"; break;
      case '\n': out += "\\n"; break;
      case '\r': out += "\\r"; break;
      case '\t': out += "\\t"; break;
      default:
        if (c < 0x20) {
          char buf[8];
          std::snprintf(buf, sizeof buf, "\\u%04x", c);
          out += buf;
        } else {
          out += ch;
        }
    }
  }
  return out + "\"";
}

std::string IndentXml(std::string_view xml) {
  std::string out;
  int depth = 0;
  auto indent = [&] { out.append(static_cast<std::size_t>(std::max(depth, 0)) * 2, ' '); };
  // The end of the markup that starts at `at` ('>' outside quotes; "-->" for a comment).
  auto markupEnd = [&](std::size_t at) {
    if (xml.substr(at, 4) == "<!--") {
      std::size_t e = xml.find("-->", at);
      return e == std::string_view::npos ? xml.size() : e + 3;
    }
    char quote = 0;
    for (std::size_t i = at + 1; i < xml.size(); ++i) {
      if (quote) {
        if (xml[i] == quote) quote = 0;
      } else if (xml[i] == '"' || xml[i] == '\'') {
        quote = xml[i];
      } else if (xml[i] == '>') {
        return i + 1;
      }
    }
    return xml.size();
  };
  auto trimmed = [](std::string_view s) {
    std::size_t b = s.find_first_not_of(" \t\r\n");
    if (b == std::string_view::npos) return std::string_view();
    return s.substr(b, s.find_last_not_of(" \t\r\n") - b + 1);
  };

  std::size_t i = 0;
  while (i < xml.size()) {
    if (xml[i] != '<') {
      std::size_t next = std::min(xml.find('<', i), xml.size());
      std::string_view text = trimmed(xml.substr(i, next - i));
      if (!text.empty()) {
        indent();
        out.append(text);
        out += '\n';
      }
      i = next;
      continue;
    }
    std::size_t end = markupEnd(i);
    std::string_view tag = xml.substr(i, end - i);
    const bool isEnd = tag.starts_with("</");
    const bool isStart = !isEnd && !tag.starts_with("<?") && !tag.starts_with("<!") && !tag.ends_with("/>");
    if (isEnd) {
      --depth;
      indent();
      out.append(tag);
      out += '\n';
      i = end;
      continue;
    }
    if (isStart) {
      // An element that holds only text (or nothing) stays on one line.
      std::size_t textEnd = std::min(xml.find('<', end), xml.size());
      if (xml.substr(textEnd, 2) == "</") {
        std::size_t closeEnd = markupEnd(textEnd);
        indent();
        out.append(xml.substr(i, closeEnd - i));
        out += '\n';
        i = closeEnd;
        continue;
      }
      indent();
      out.append(tag);
      out += '\n';
      ++depth;
      i = end;
      continue;
    }
    indent();
    out.append(tag);
    out += '\n';
    i = end;
  }
  return out;
}

}  // namespace brenvale::tool

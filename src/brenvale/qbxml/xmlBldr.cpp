// The request builder's writing half: pieces, escaping, the version gate, element writers,
// document tops, request wrappers, filters and the I/O documents. Sending is in xmlBldrSend.cpp.
#include "brenvale/qbxml/xmlBldr.hpp"

#include <array>
#include <charconv>
#include <cstring>

#include "brenvale/core/BrenvaleError.hpp"
#include "brenvale/core/Enumerations.hpp"
#include "brenvale/core/detail/Windows1252.hpp"
#include "brenvale/qbxml/Conversions.hpp"
#include "brenvale/qbxml/Session.hpp"
#include "brenvale/qbxml/detail/BuilderTexts.hpp"
#include "brenvale/qbxml/detail/TextFile.hpp"
#include "brenvale/qbxml/zkBase.hpp"

namespace brenvale {
namespace {

using namespace std::string_view_literals;

void AppendNumber(std::string& out, int value) {
  char buffer[12];
  auto result = std::to_chars(buffer, buffer + sizeof buffer, value);
  out.append(buffer, result.ptr);
}

// What the escaping does with each byte: 0 copies it, 1 replaces an ASCII character, 2 starts a
// character of 128 and above.
constexpr std::array<unsigned char, 256> kByteClass = [] {
  std::array<unsigned char, 256> t{};
  for (unsigned char c : {'&', '>', '"', '\'', '<', '@'}) t[c] = 1;
  for (int c = 0x80; c < 0x100; ++c) t[static_cast<std::size_t>(c)] = 2;
  return t;
}();

std::string_view AsciiReplacement(char c) {
  switch (c) {
    case '&': return "&amp;"sv;
    case '>': return "&gt;"sv;
    case '"': return "&quot;"sv;
    case '\'': return "&apos;"sv;
    case '<': return "&lt;"sv;
    default: return "&#64;"sv;  // '@'
  }
}

// The escaping of EscapeXmlText, appended to `out`. The replacements of the definition (& > " '
// < @ in that order, then each Windows-1252 character of codes 128-255) never produce text that a
// later replacement would touch, so one pass over the text gives the same result.
//
// A character Windows-1252 does not have (CJK, Greek, emoji ...) is written as a reference to its
// Unicode code point, so that the document stays what its ISO-8859-1 declaration says: raw UTF-8
// bytes there would be read as other characters. QuickBooks keeps text in Windows-1252 and stores
// such a character as "?"; it comes back so. The C1 controls the code page lacks (U+0080, U+0085
// ...) cannot be written as references at all, since the reading side takes "&#128;" ... "&#159;"
// as Windows-1252 codes; they are written as the "?" QuickBooks would make of them.
void AppendEscaped(std::string& out, std::string_view text) {
  const auto* bytes = reinterpret_cast<const unsigned char*>(text.data());
  const std::size_t size = text.size();
  std::size_t runStart = 0;  // start of the text not yet copied
  std::size_t pos = 0;
  for (;;) {
    while (pos < size && kByteClass[bytes[pos]] == 0) ++pos;
    if (pos == size) break;
    if (kByteClass[bytes[pos]] == 1) {
      out.append(text, runStart, pos - runStart);
      out += AsciiReplacement(text[pos]);
      runStart = ++pos;
      continue;
    }
    const std::size_t start = pos;
    char32_t ch = detail::NextUtf8(text, pos);
    // A byte that starts no well-formed UTF-8 sequence (or an overlong one) is taken as a
    // Windows-1252 code itself.
    if (pos - start == 1 || ch < 0x80) {
      pos = start + 1;
      ch = detail::Cp1252ToUnicode(bytes[start]);
    }
    const int code = detail::UnicodeToCp1252(ch);
    out.append(text, runStart, start - runStart);
    if (code >= 0) {
      out += "&#"sv;
      AppendNumber(out, code);
      out += ';';
    } else if (ch >= 0x100) {
      out += "&#"sv;
      AppendNumber(out, static_cast<int>(ch));
      out += ';';
    } else {
      out += '?';
    }
    runStart = pos;
  }
  out.append(text, runStart, size - runStart);
}

// `<TAG>V</TAG>` with V escaped.
std::string SimpleElement(std::string_view tag, std::string_view value) {
  std::string piece;
  piece.reserve(2 * tag.size() + value.size() + 5 + value.size() / 4);
  piece += '<';
  piece += tag;
  piece += '>';
  AppendEscaped(piece, value);
  piece += "</"sv;
  piece += tag;
  piece += '>';
  return piece;
}

void WriteNameFilter(xmlBldr& b, std::string_view filterTag, const std::vector<std::string>& names,
                     bool withChildren) {
  b.OpenAggregateOnly(filterTag);
  if (withChildren) {
    // Only one name can carry its children; the others are ignored.
    if (!names.empty()) b.CreateElement("FullNameWithChildren", names.front());
  } else {
    for (const std::string& name : names) b.CreateElement("FullName", name);
  }
  b.EndAggregate(filterTag);
}

enum WrapperBody { kInsertBody = 0, kModifyBody = 1, kQueryRsBody = 2 };

}  // namespace

std::string EscapeXmlText(std::string_view text) {
  std::string out;
  if (text.empty()) return out;
  out.reserve(text.size() + text.size() / 8 + 8);
  AppendEscaped(out, text);
  return out;
}

xmlBldr::xmlBldr() : pieces_(1) {}

// --- pieces ---------------------------------------------------------------------------------

void xmlBldr::AppendPiece(std::string piece) {
  pieces_.push_back(std::move(piece));
  ++pieceCount_;
}

void xmlBldr::JoinPieces() {
  std::size_t total = 0;
  for (std::size_t i = 1; i <= pieceCount_; ++i) total += pieces_[i].size();
  std::string joined;
  joined.resize(total);
  char* out = joined.data();
  for (std::size_t i = 1; i <= pieceCount_; ++i) {
    const std::string& piece = pieces_[i];
    if (!piece.empty()) std::memcpy(out, piece.data(), piece.size());
    out += piece.size();
  }
  xml_ = std::move(joined);
}

void xmlBldr::Clear() {
  pieces_.resize(1);
  pieces_[0].clear();
  pieceCount_ = 0;
}

std::string xmlBldr::GetXML() {
  JoinPieces();
  return xml_;
}

bool xmlBldr::PassesGate(Currency minVersion) const { return CurrentSession().qbXMLVersionNumber >= minVersion; }

// --- element writers ------------------------------------------------------------------------

std::string xmlBldr::InsertRawXML(std::string_view XMLString) {
  AppendPiece(std::string(XMLString));
  return {};
}

void xmlBldr::CreateElement2(std::string_view TagName, std::string_view Value, bool ForceNull, Currency MinVersion) {
  if (!PassesGate(MinVersion)) return;
  if (Value.empty() && !ForceNull) return;
  AppendPiece(SimpleElement(TagName, Value));
}

void xmlBldr::CreateElement(std::string_view TagName, std::string_view Value, Currency MinVersion) {
  if (!PassesGate(MinVersion)) return;
  AppendPiece(SimpleElement(TagName, Value));
}

void xmlBldr::CreateDateElement(std::string_view Tag, Date d, Currency MinVersion) {
  if (d.IsNull()) return;
  CreateElement2(Tag, DateToText(d), false, MinVersion);
}

void xmlBldr::CreateBlankTag(std::string_view TagName) {
  std::string piece;
  piece.reserve(TagName.size() + 3);
  piece += '<';
  piece += TagName;
  piece += "/>"sv;
  AppendPiece(std::move(piece));
}

void xmlBldr::OpenAggregate(std::string_view TagName, std::string_view Attrib, std::string_view Value) {
  lastAggregate_.assign(TagName);
  std::string piece;
  piece.reserve(TagName.size() + Attrib.size() + Value.size() + 8);
  piece += '<';
  piece += TagName;
  piece += ' ';
  piece += Attrib;
  piece += " = \""sv;
  AppendEscaped(piece, Value);
  piece += "\">"sv;
  AppendPiece(std::move(piece));
}

void xmlBldr::OpenAggregateOnly(std::string_view TagName, std::string_view MetaData, std::string_view Iterator,
                                std::string_view IteratorId) {
  lastAggregate_.assign(TagName);
  std::string piece;
  piece.reserve(TagName.size() + 2 + (MetaData.empty() ? 0 : MetaData.size() + Iterator.size() + IteratorId.size() + 40));
  piece += '<';
  piece += TagName;
  if (!MetaData.empty()) {
    // The query attributes are written as given, not escaped.
    piece += " metaData=\""sv;
    piece += MetaData;
    piece += "\" iterator=\""sv;
    piece += Iterator;
    piece += '"';
    if (!IteratorId.empty()) {
      piece += " iteratorID=\""sv;
      piece += IteratorId;
      piece += '"';
    }
    piece += ' ';
  }
  piece += '>';
  AppendPiece(std::move(piece));
}

void xmlBldr::EndAggregate(std::string_view TagName) {
  const std::string_view name = TagName.empty() ? std::string_view(lastAggregate_) : TagName;
  std::string piece;
  piece.reserve(name.size() + 3);
  piece += "</"sv;
  piece += name;
  piece += '>';
  AppendPiece(std::move(piece));
}

void xmlBldr::EnterValueOnly(std::string_view TagName) { AppendPiece(EscapeXmlText(TagName)); }

// --- document tops --------------------------------------------------------------------------

void xmlBldr::CreateRptTop() { AppendPiece(std::string(detail::kPlainDeclaration)); }

void xmlBldr::CreateTop() {
  const Session& session = CurrentSession();
  const std::string& version = session.qbxmlVersion;
  if (version.empty() || version == "1.0") {
    std::string top(detail::kPlainDeclaration);
    top += detail::kDoctypeHead;
    top += "1.0"sv;
    top += detail::kDoctypeTail;
    AppendPiece(std::move(top));
  } else if (!session.isOnline) {
    std::string top(detail::kIsoDeclaration);
    top += detail::kDoctypeHead;
    top += version;
    top += detail::kDoctypeTail;
    AppendPiece(std::move(top));
  }
  // Online: the declaration and the online DOCTYPE are not written by the builder.
}

void xmlBldr::NewClear() {
  Clear();
  CreateTop();
  OpenAggregateOnly(detail::kRoot);
  OpenAggregate(detail::kMsgsRq, "onError", "continueOnError");
}

void xmlBldr::NewClearSubscriptions() {
  Clear();
  CreateTop();
  OpenAggregateOnly(detail::kRoot);
  OpenAggregateOnly(detail::kSubscriptionMsgsRq);
}

void xmlBldr::IOClear() {
  Clear();
  OpenAggregateOnly(detail::kIoRoot);
  OpenAggregate(detail::kMsgsRq, "onError", "continueOnError");
}

// --- request wrappers -----------------------------------------------------------------------

void xmlBldr::WriteQueryWrapper(std::string_view suffixRq, std::string_view suffix, zkBase& o, Integer id,
                                int which) {
  const std::string& name = EnumCatalogue(zqeObjectType).ItemByCode(static_cast<Integer>(o.ObjectType())).CollectionKey();
  std::string outer = name;
  outer += suffixRq;
  std::string inner = name;
  inner += suffix;
  std::string requestId;
  AppendNumber(requestId, id);
  OpenAggregate(outer, "requestID", requestId);
  OpenAggregateOnly(inner);
  switch (which) {
    case kInsertBody: o.XMLInsert(*this); break;
    case kModifyBody: o.XMLModify(*this); break;
    default: o.XMLQueryRs(*this); break;
  }
  EndAggregate(inner);
  EndAggregate(outer);
}

void xmlBldr::InsertAddRq(zkBase& o, Integer iRequestId) { WriteQueryWrapper("AddRq", "Add", o, iRequestId, kInsertBody); }

void xmlBldr::InsertModRq(zkBase& o, Integer iRequestId) { WriteQueryWrapper("ModRq", "Mod", o, iRequestId, kModifyBody); }

void xmlBldr::InsertQueryRs(zkBase& o, Integer iRequestId) {
  WriteQueryWrapper("QueryRs", "Ret", o, iRequestId, kQueryRsBody);
}

std::string xmlBldr::XMLInsertBegin(std::string_view QueryType, std::string_view InsertCmd) {
  Clear();
  CreateTop();
  OpenAggregateOnly(detail::kRoot);
  OpenAggregate(detail::kMsgsRq, "onError", "continueOnError");
  OpenAggregate(QueryType, "requestID", "1");
  OpenAggregateOnly(InsertCmd);
  return {};
}

DomDocument xmlBldr::XMLInsertFinish(std::string_view QueryType, std::string_view InsertCmd) {
  EndAggregate(InsertCmd);
  EndAggregate(QueryType);
  EndAggregate(detail::kMsgsRq);
  EndAggregate(detail::kRoot);
  return SendToQB();
}

// --- query shortcuts ------------------------------------------------------------------------

DomDocument xmlBldr::QueryFullTableExecute(std::string_view QueryName, Long /*MaxRows: not used*/) {
  CreateTop();
  OpenAggregateOnly(detail::kRoot);
  OpenAggregate(detail::kMsgsRq, "onError", "continueOnError");
  OpenAggregate(QueryName, "requestID", "1");
  EndAggregate(QueryName);
  EndAggregate(detail::kMsgsRq);
  EndAggregate(detail::kRoot);
  return SendToQB();
}

void xmlBldr::WriteSingleQuery(std::string_view QueryType, std::string_view sValue, std::string_view sIdentifier,
                               Long maxReturned, zqEnumListObjectType ObjType, std::string_view sFilterType,
                               bool IncludeDataExtensions) {
  CreateTop();
  OpenAggregateOnly(detail::kRoot);
  OpenAggregate(detail::kMsgsRq, "onError", "continueOnError");
  OpenAggregate(QueryType, "requestID", "1");
  if (maxReturned != 0) {
    std::string rows;
    AppendNumber(rows, maxReturned);
    CreateElement("MaxReturned", rows);
  }
  if (!sFilterType.empty()) {
    OpenAggregateOnly(sFilterType);
    CreateElement(sIdentifier, sValue);
    EndAggregate(sFilterType);
  } else {
    CreateElement(sIdentifier, sValue);
  }
  AddDataExtTag(IncludeDataExtensions, ObjType);
  EndAggregate(QueryType);
}

DomDocument xmlBldr::QuerySingleExecute(std::string_view QueryType, std::string_view sValue,
                                        std::string_view sIdentifier, Long /*MaxRows: not used*/,
                                        zqEnumListObjectType ObjType, std::string_view sFilterType,
                                        bool IncludeDataExtensions) {
  WriteSingleQuery(QueryType, sValue, sIdentifier, 0, ObjType, sFilterType, IncludeDataExtensions);
  EndAggregate(detail::kMsgsRq);
  EndAggregate(detail::kRoot);
  return SendToQB();
}

std::string xmlBldr::XMLQuerySingleExecute(std::string_view QueryType, std::string_view sValue,
                                           std::string_view sIdentifier, Long MaxRows,
                                           zqEnumListObjectType ObjType, std::string_view sFilterType,
                                           bool IncludeDataExtensions) {
  WriteSingleQuery(QueryType, sValue, sIdentifier, MaxRows, ObjType, sFilterType, IncludeDataExtensions);
  return XMLSendToQB();  // closes the envelope itself
}

// --- filters --------------------------------------------------------------------------------

Variant xmlBldr::InsertAccountFilter(const std::vector<std::string>& Accounts, bool WithChildren) {
  WriteNameFilter(*this, "AccountFilter", Accounts, WithChildren);
  return {};
}

Variant xmlBldr::InsertEntityFilter(const std::vector<std::string>& Entities, bool WithChildren) {
  WriteNameFilter(*this, "EntityFilter", Entities, WithChildren);
  return {};
}

Long xmlBldr::InsertDateFilter(std::string_view FilterType, Date FromDate, Date ToDate, qbEnumDateMacro DateMacro) {
  std::string filterTag(FilterType);
  filterTag += "DateRangeFilter"sv;
  // "Modified" and "TransactionModified" both use the ModifiedDate elements with date-times.
  const bool modified = FilterType == "Modified"sv || FilterType == "TransactionModified"sv;
  const std::string_view stem = modified ? "Modified"sv : FilterType;
  auto text = [modified](Date d) { return modified ? DateTimeToText(d) : DateToText(d); };

  OpenAggregateOnly(filterTag);
  if (!FromDate.IsNull()) CreateElement("From" + std::string(stem) + "Date", text(FromDate));
  if (!ToDate.IsNull()) CreateElement("To" + std::string(stem) + "Date", text(ToDate));
  if (DateMacro != qbDateMacroNone)
    CreateElement("DateMacro", EnumCatalogue(zqeDateMacro).ItemByCode(static_cast<Integer>(DateMacro)).CollectionKey());
  EndAggregate(filterTag);
  return 0;
}

void xmlBldr::AddDataExtTag(bool bAdd, zqEnumListObjectType mObjectType) {
  const Session& session = CurrentSession();
  if (bAdd && session.qbXMLVersionNumber >= Currency(2)) CreateElement("OwnerID", "0");
  if (!session.dataExtOwnerID.empty() && session.dataExtAssignedTo &&
      session.dataExtAssignedTo(static_cast<int>(mObjectType)))
    CreateElement("OwnerID", session.dataExtOwnerID);
}

// --- files ----------------------------------------------------------------------------------

Long xmlBldr::SaveToFile(const std::string& Path) {
  EndAggregate(detail::kMsgsRq);
  EndAggregate(detail::kIoRoot);
  JoinPieces();
  std::string bytes = detail::Utf8ToCp1252(xml_);
  bytes += '\n';
  const std::string failure = detail::WriteFileBytes(Path, bytes, false);
  if (!failure.empty()) platform::Raise(platform::kFileError, "Brenvale", failure);
  return 0;
}

DomDocument xmlBldr::ReadXml(const std::string& sFile) {
  std::optional<std::string> bytes = detail::ReadFileBytes(sFile);
  if (!bytes) return DomDocument();
  constexpr std::string_view kUtf8Bom = "\xEF\xBB\xBF";
  // A file that says it is UTF-8 (by its byte order mark) is read as UTF-8; any other as Windows-1252.
  if (std::string_view(*bytes).substr(0, kUtf8Bom.size()) == kUtf8Bom)
    return DomDocument::Load(std::string_view(*bytes).substr(kUtf8Bom.size()));
  return DomDocument::Load(detail::Cp1252ToUtf8(*bytes));
}

}  // namespace brenvale

#include "brenvale/rqp/protocol/Text.hpp"

#include <cstdint>

#include "brenvale/core/detail/Windows1252.hpp"
#include "brenvale/rqp/protocol/Encoding.hpp"

namespace brenvale::rqp::detail {

std::vector<std::string_view> Split(std::string_view s, char sep) {
  std::vector<std::string_view> out;
  std::size_t start = 0;
  while (true) {
    auto p = s.find(sep, start);
    if (p == std::string_view::npos) {
      out.push_back(s.substr(start));
      return out;
    }
    out.push_back(s.substr(start, p - start));
    start = p + 1;
  }
}

std::string_view Trim(std::string_view s) {
  auto ws = [](char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; };
  while (!s.empty() && ws(s.front())) s.remove_prefix(1);
  while (!s.empty() && ws(s.back())) s.remove_suffix(1);
  return s;
}

std::size_t Utf8Length(std::string_view s) {
  std::size_t n = 0;
  for (char c : s)
    if ((static_cast<unsigned char>(c) & 0xC0) != 0x80) ++n;
  return n;
}

namespace {

char32_t FoldChar(char32_t c) {
  if (c >= 'A' && c <= 'Z') return c + 32;
  if (c >= 0xC0 && c <= 0xDE && c != 0xD7) return c + 32;
  if (c == 0x152 || c == 0x160 || c == 0x17D) return c + 1;  // Œ Š Ž
  if (c == 0x178) return 0xFF;                                 // Ÿ
  return c;
}

}  // namespace

std::string NameKey(std::string_view name) {
  std::string out;
  out.reserve(name.size());
  std::size_t pos = 0;
  while (pos < name.size()) {
    unsigned char b = static_cast<unsigned char>(name[pos]);
    if (b < 0x80) {
      char c = static_cast<char>(b);
      if (c >= 'A' && c <= 'Z') c = static_cast<char>(c + 32);
      else if (c == ':') c = '\x01';
      out.push_back(c);
      ++pos;
      continue;
    }
    brenvale::detail::AppendUtf8(out, FoldChar(brenvale::detail::NextUtf8(name, pos)));
  }
  return out;
}

bool ToCodePage(std::string& utf8) {
  std::size_t i = 0;
  while (i < utf8.size() && static_cast<unsigned char>(utf8[i]) < 0x80) ++i;
  if (i == utf8.size()) return false;
  std::string out = utf8.substr(0, i);
  while (i < utf8.size()) {
    if (static_cast<unsigned char>(utf8[i]) < 0x80) {
      out.push_back(utf8[i++]);
      continue;
    }
    char32_t c = 0;
    if (!DecodeUtf8(utf8, i, c)) {
      ++i;
      c = U'?';
    }
    if (c >= 0x80 && c < 0xA0) c = brenvale::detail::Cp1252ToUnicode(static_cast<unsigned char>(c));
    if (brenvale::detail::UnicodeToCp1252(c) < 0) c = U'?';
    brenvale::detail::AppendUtf8(out, c);
  }
  bool changed = out != utf8;
  if (changed) utf8 = std::move(out);
  return changed;
}

namespace {

void AppendReference(std::string& out, std::uint32_t code) {
  out += "&#";
  out += std::to_string(code);
  out.push_back(';');
}

}  // namespace

void AppendEscaped(std::string& out, std::string_view text, bool referenceNonAscii) {
  std::size_t pos = 0;
  while (pos < text.size()) {
    unsigned char b = static_cast<unsigned char>(text[pos]);
    if (b < 0x80) {
      switch (b) {
        case '&': out += "&amp;"; break;
        case '<': out += "&lt;"; break;
        case '>': out += "&gt;"; break;
        case '"': out += "&quot;"; break;
        case '\'': out += "&apos;"; break;
        case '\t':
        case '\n':
        case '\r': AppendReference(out, b); break;  // kept through attribute-value normalisation
        default: out.push_back(b < 0x20 || b == 0x7F ? '?' : static_cast<char>(b));
      }
      ++pos;
      continue;
    }
    std::size_t start = pos;
    char32_t c = 0;
    if (!DecodeUtf8(text, pos, c) || !IsXmlChar(c)) {  // not text at all: never written as it is
      pos = start + 1;
      out.push_back('?');
      continue;
    }
    if (!referenceNonAscii) {
      out.append(text.substr(start, pos - start));
      continue;
    }
    int code = brenvale::detail::UnicodeToCp1252(c);
    AppendReference(out, code >= 0 ? static_cast<std::uint32_t>(code) : static_cast<std::uint32_t>(c));
  }
}

std::string Escaped(std::string_view text) {
  std::string out;
  AppendEscaped(out, text);
  return out;
}

void AppendResponseText(std::string& out, std::string_view stored) {
  std::size_t start = 0;
  for (std::size_t i = 0; i < stored.size();) {
    if (static_cast<unsigned char>(stored[i]) < 0x80) {
      ++i;
      continue;
    }
    out.append(stored.substr(start, i - start));
    std::size_t from = i;
    char32_t c = 0;
    if (DecodeUtf8(stored, i, c) && IsXmlChar(c)) {
      int code = brenvale::detail::UnicodeToCp1252(c);
      AppendReference(out, code >= 0 ? static_cast<std::uint32_t>(code) : static_cast<std::uint32_t>(c));
    } else {
      i = from + 1;
      out.push_back('?');
    }
    start = i;
  }
  out.append(stored.substr(start));
}

void Serialize(pugi::xml_node node, std::string& out) {
  out += '<';
  out += node.name();
  out += '>';
  for (auto c : node.children()) {
    if (c.type() == pugi::node_element) Serialize(c, out);
    else if (c.type() == pugi::node_pcdata || c.type() == pugi::node_cdata) AppendEscaped(out, c.value(), false);
  }
  out += "</";
  out += node.name();
  out += '>';
}

void AppendElement(std::string& out, std::string_view tag, std::string_view text) {
  out.push_back('<');
  out += tag;
  out.push_back('>');
  AppendEscaped(out, text);
  out += "</";
  out += tag;
  out.push_back('>');
}

}  // namespace brenvale::rqp::detail

#include "brenvale/rqp/detail/Text.hpp"

#include <cstdint>

#include "brenvale/core/detail/Windows1252.hpp"

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

namespace {
char32_t FoldChar(char32_t c) {
  if (c >= 'A' && c <= 'Z') return c + 32;
  if (c >= 0xC0 && c <= 0xDE && c != 0xD7) return c + 32;
  if (c == 0x152 || c == 0x160 || c == 0x17D) return c + 1;  // Œ Š Ž
  if (c == 0x178) return 0xFF;                                 // Ÿ
  return c;
}

std::string Fold(std::string_view s) {
  std::string out;
  out.reserve(s.size());
  std::size_t pos = 0;
  while (pos < s.size()) {
    unsigned char b = static_cast<unsigned char>(s[pos]);
    if (b < 0x80) {
      char c = static_cast<char>(b);
      if (c >= 'A' && c <= 'Z') c = static_cast<char>(c + 32);
      else if (c == ':') c = '\x01';
      out.push_back(c);
      ++pos;
      continue;
    }
    brenvale::detail::AppendUtf8(out, FoldChar(brenvale::detail::NextUtf8(s, pos)));
  }
  return out;
}
}  // namespace


std::string NameKey(std::string_view name) { return Fold(name); }

void AppendEscaped(std::string& out, std::string_view text, bool referenceNonAscii) {
  std::size_t pos = 0;
  while (pos < text.size()) {
    unsigned char b = static_cast<unsigned char>(text[pos]);
    if (b < 0x80 || !referenceNonAscii) {
      switch (b) {
        case '&': out += "&amp;"; break;
        case '<': out += "&lt;"; break;
        case '>': out += "&gt;"; break;
        case '"': out += "&quot;"; break;
        case '\'': out += "&apos;"; break;
        default: out.push_back(static_cast<char>(b));
      }
      ++pos;
      continue;
    }
    AppendCharReference(out, brenvale::detail::NextUtf8(text, pos));
  }
}

void AppendCharReference(std::string& out, char32_t ch) {
  int code = brenvale::detail::UnicodeToCp1252(ch);
  out += "&#";
  out += std::to_string(code >= 0 ? static_cast<std::uint32_t>(code) : static_cast<std::uint32_t>(ch));
  out.push_back(';');
}

std::string Escaped(std::string_view text) {
  std::string out;
  AppendEscaped(out, text);
  return out;
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

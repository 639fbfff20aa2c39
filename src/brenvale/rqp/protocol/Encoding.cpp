#include "brenvale/rqp/protocol/Encoding.hpp"

#include <cctype>

#include "brenvale/core/detail/Windows1252.hpp"
#include "brenvale/rqp/protocol/Status.hpp"
#include "brenvale/rqp/protocol/Text.hpp"

namespace brenvale::rqp::detail {

bool DecodeUtf8(std::string_view s, std::size_t& pos, char32_t& out) {
  auto byte = [&](std::size_t i) { return static_cast<unsigned char>(s[i]); };
  if (pos >= s.size()) return false;
  unsigned char b0 = byte(pos);
  if (b0 < 0x80) {
    out = b0;
    ++pos;
    return true;
  }
  std::size_t extra = 0;
  char32_t c = 0, least = 0;
  if (b0 >= 0xC2 && b0 <= 0xDF) {
    extra = 1, c = b0 & 0x1F, least = 0x80;
  } else if (b0 >= 0xE0 && b0 <= 0xEF) {
    extra = 2, c = b0 & 0x0F, least = 0x800;
  } else if (b0 >= 0xF0 && b0 <= 0xF4) {
    extra = 3, c = b0 & 0x07, least = 0x10000;
  } else {
    return false;  // a continuation byte, an overlong lead (C0, C1) or a lead beyond U+10FFFF
  }
  if (pos + extra >= s.size()) return false;
  for (std::size_t i = 1; i <= extra; ++i) {
    unsigned char b = byte(pos + i);
    if ((b & 0xC0) != 0x80) return false;
    c = (c << 6) | (b & 0x3Fu);
  }
  if (c < least || c > 0x10FFFF || (c >= 0xD800 && c <= 0xDFFF)) return false;
  out = c;
  pos += extra + 1;
  return true;
}

namespace {

[[noreturn]] void Refuse(const std::string& why) { throw ProcessError{hresult::kParseError, ParseFailureText(why)}; }

std::string Lower(std::string_view s) {
  std::string out(s);
  for (auto& c : out) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return out;
}

enum class Encoding { Utf8, Latin1, Cp1252, Ascii };

// The encoding the XML declaration at the start of `text` names.
Encoding DeclaredEncoding(std::string_view text) {
  if (!text.starts_with("<?xml")) return Encoding::Utf8;
  std::size_t end = text.find("?>");
  if (end == std::string_view::npos) return Encoding::Utf8;  // the parser reports the open declaration
  std::string_view decl = text.substr(0, end);
  std::size_t at = decl.find("encoding");
  if (at == std::string_view::npos) return Encoding::Utf8;
  std::size_t q = decl.find_first_of("\"'", at);
  if (q == std::string_view::npos) return Encoding::Utf8;
  std::size_t q2 = decl.find(decl[q], q + 1);
  if (q2 == std::string_view::npos) return Encoding::Utf8;
  std::string name = Lower(decl.substr(q + 1, q2 - q - 1));
  if (name == "utf-8" || name == "utf8") return Encoding::Utf8;
  if (name == "iso-8859-1" || name == "iso8859-1" || name == "iso_8859-1" || name == "latin1" || name == "l1")
    return Encoding::Latin1;
  if (name == "windows-1252" || name == "cp1252") return Encoding::Cp1252;
  if (name == "us-ascii" || name == "ascii") return Encoding::Ascii;
  Refuse("System does not support the specified encoding (\"" + std::string(decl.substr(q + 1, q2 - q - 1)) + "\").");
}

std::string At(std::size_t offset) { return " at offset " + std::to_string(offset) + "."; }

// Checks the reference that starts with "&" at `pos`; returns the position after it.
std::size_t CheckReference(std::string_view s, std::size_t pos) {
  std::size_t semi = s.find(';', pos);
  if (semi == std::string_view::npos || semi - pos > 12) Refuse("A reference is not terminated by \";\"" + At(pos));
  std::string_view body = s.substr(pos + 1, semi - pos - 1);
  if (body == "amp" || body == "lt" || body == "gt" || body == "quot" || body == "apos") return semi + 1;
  if (body.empty() || body[0] != '#') Refuse("Reference to undefined entity \"" + std::string(body) + "\"" + At(pos));
  bool hex = body.size() > 1 && body[1] == 'x';
  std::string_view digits = body.substr(hex ? 2 : 1);
  if (digits.empty()) Refuse("A character reference holds no number" + At(pos));
  std::uint64_t value = 0;
  for (char c : digits) {
    int d = std::isdigit(static_cast<unsigned char>(c)) ? c - '0'
            : hex && std::isxdigit(static_cast<unsigned char>(c)) ? std::tolower(static_cast<unsigned char>(c)) - 'a' + 10
                                                                   : -1;
    if (d < 0) Refuse("A character reference holds \"" + std::string(1, c) + "\"" + At(pos));
    value = value * (hex ? 16 : 10) + static_cast<std::uint64_t>(d);
    if (value > 0x10FFFF) break;
  }
  if (!IsXmlChar(static_cast<char32_t>(value > 0x10FFFF ? 0x110000 : value)))
    Refuse("The character reference \"&" + std::string(body) + ";\" names a character XML does not allow" + At(pos));
  return semi + 1;
}

// Checks the references in the markup and text of a decoded document. Comments, CDATA sections,
// processing instructions and the DOCTYPE hold no references.
void CheckReferences(std::string_view s) {
  std::size_t pos = 0;
  while (pos < s.size()) {
    std::size_t next = s.find_first_of("&<", pos);
    if (next == std::string_view::npos) return;
    if (s[next] == '&') {
      pos = CheckReference(s, next);
      continue;
    }
    auto skipTo = [&](std::string_view end) {
      std::size_t e = s.find(end, next + 1);
      return e == std::string_view::npos ? s.size() : e + end.size();
    };
    if (s.substr(next, 4) == "<!--") pos = skipTo("-->");
    else if (s.substr(next, 9) == "<![CDATA[") pos = skipTo("]]>");
    else if (s.substr(next, 2) == "<?") pos = skipTo("?>");
    else if (s.substr(next, 9) == "<!DOCTYPE") pos = skipTo(">");
    else pos = next + 1;
  }
}

}  // namespace

std::string DecodeDocument(std::string_view bytes) {
  if (bytes.starts_with("\xEF\xBB\xBF")) bytes.remove_prefix(3);
  if (bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF"))
    Refuse("Switch from current encoding to specified encoding not supported (UTF-16).");
  Encoding encoding = DeclaredEncoding(bytes);
  std::string text;
  text.reserve(bytes.size());
  for (std::size_t pos = 0; pos < bytes.size();) {
    unsigned char b = static_cast<unsigned char>(bytes[pos]);
    char32_t c = b;
    std::size_t at = pos;
    if (b < 0x80 || encoding == Encoding::Latin1) {
      ++pos;
    } else if (encoding == Encoding::Cp1252) {
      c = brenvale::detail::Cp1252ToUnicode(b);
      ++pos;
    } else if (encoding == Encoding::Ascii || !DecodeUtf8(bytes, pos, c)) {
      Refuse(std::string("An invalid character was found in text content (the byte ") + std::to_string(b) +
             " is not " + (encoding == Encoding::Ascii ? "US-ASCII" : "UTF-8") + ")" + At(at));
    }
    if (!IsXmlChar(c)) Refuse("An invalid character was found in text content (code " + std::to_string(c) + ")" + At(at));
    if (c < 0x80) text.push_back(static_cast<char>(c));
    else brenvale::detail::AppendUtf8(text, c);
  }
  CheckReferences(text);
  return text;
}

}  // namespace brenvale::rqp::detail

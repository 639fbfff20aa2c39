#pragma once
// Text helpers of the engine: splitting, name folding, the characters QuickBooks can store, and the
// escaping of response text.
#include <string>
#include <string_view>
#include <vector>

#include <pugixml.hpp>

namespace brenvale::rqp::detail {

std::vector<std::string_view> Split(std::string_view s, char sep);
std::string_view Trim(std::string_view s);

// The key names are compared and sorted by: letters folded to lower case (ASCII and Latin-1), and
// the hierarchy separator ':' ranked below every other character so that "A:B" follows "A"
// directly. Two names are the same QuickBooks name exactly when their keys are equal.
std::string NameKey(std::string_view name);

// Length in characters of UTF-8 text.
std::size_t Utf8Length(std::string_view s);

// What QuickBooks keeps of a text: it stores text in the Windows-1252 code page, so a character
// the code page lacks becomes "?". U+0080..U+009F (what a parser makes of "&#128;" ...) are read as
// the Windows-1252 characters of those codes, the way the library writes them. Returns false when
// nothing changed.
bool ToCodePage(std::string& utf8);

// True for the characters XML 1.0 allows in a document.
constexpr bool IsXmlChar(char32_t c) {
  return c == 0x9 || c == 0xA || c == 0xD || (c >= 0x20 && c <= 0xD7FF) || (c >= 0xE000 && c <= 0xFFFD) ||
         (c >= 0x10000 && c <= 0x10FFFF);
}

// Appends `text` (UTF-8) escaped for element content or attribute values: the five XML entities,
// every character above 127 as a character reference (its Windows-1252 code where it has one,
// which is how QuickBooks writes them, its code point otherwise), and "?" for anything XML cannot
// carry, so that what is written is always well-formed. `referenceNonAscii` false keeps UTF-8 as it
// is (how records are stored).
void AppendEscaped(std::string& out, std::string_view text, bool referenceNonAscii = true);
std::string Escaped(std::string_view text);

// Stored text (escaped UTF-8) made ready for a response: characters above 127 become references.
void AppendResponseText(std::string& out, std::string_view stored);

// Serialises an element compactly for storage: its elements and text, UTF-8 kept, XML's special
// characters escaped.
void Serialize(pugi::xml_node node, std::string& out);

// Appends "<tag>escaped text</tag>".
void AppendElement(std::string& out, std::string_view tag, std::string_view text);

}  // namespace brenvale::rqp::detail

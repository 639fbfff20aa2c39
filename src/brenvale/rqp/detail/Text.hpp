#pragma once
// Small text helpers of the engine: splitting, name folding, XML escaping of response text.
#include <string>
#include <string_view>
#include <vector>

namespace brenvale::rqp::detail {

std::vector<std::string_view> Split(std::string_view s, char sep);
std::string_view Trim(std::string_view s);

// The key names are compared and sorted by: letters folded to lower case (ASCII and Latin-1), and
// the hierarchy separator ':' ranked below every other character so that "A:B" follows "A"
// directly. Two names are the same QuickBooks name exactly when their keys are equal.
std::string NameKey(std::string_view name);

// Appends `text` escaped for element content or attribute values: the five XML entities, and
// every character above 127 as a character reference (its Windows-1252 code where it has one,
// which is how QuickBooks writes them).
// `referenceNonAscii` false keeps UTF-8 as it is (how records are stored).
void AppendEscaped(std::string& out, std::string_view text, bool referenceNonAscii = true);
std::string Escaped(std::string_view text);
// Appends the character reference QuickBooks writes for a character above 127.
void AppendCharReference(std::string& out, char32_t ch);

// Appends "<tag>escaped text</tag>".
void AppendElement(std::string& out, std::string_view tag, std::string_view text);

}  // namespace brenvale::rqp::detail

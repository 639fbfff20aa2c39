#pragma once
// The bytes of a request document as characters: decoded as the document's XML declaration says,
// and refused when they hold anything a conforming XML parser refuses.
#include <string>
#include <string_view>

namespace brenvale::rqp::detail {

// Decodes the UTF-8 character at `pos` strictly (no overlong forms, no surrogates, nothing above
// U+10FFFF, no truncated sequence) and advances past it; false, with `pos` unchanged, otherwise.
bool DecodeUtf8(std::string_view s, std::size_t& pos, char32_t& out);

// The document's text as UTF-8. The encoding is the one its XML declaration names (UTF-8 when it
// names none); UTF-8, ISO-8859-1, Windows-1252 and US-ASCII are read, any other is refused as
// QuickBooks' parser refuses an encoding it does not support. Every character, and every character
// or entity reference outside comments and CDATA sections, must be one XML 1.0 allows. Throws
// ProcessError (the parse failure) naming what was wrong and where.
std::string DecodeDocument(std::string_view bytes);

}  // namespace brenvale::rqp::detail

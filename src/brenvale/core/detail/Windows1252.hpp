#pragma once
// Windows-1252, the code page of qbXML documents: character references written by the request
// builder carry Windows-1252 codes (128-159 included), and reading maps them back.
#include <string>
#include <string_view>

namespace brenvale::detail {

// The Unicode character of a Windows-1252 code (0-255). The five undefined codes (129, 141, 143,
// 144, 157) map to the character of the same number.
char32_t Cp1252ToUnicode(unsigned char code);
// The Windows-1252 code of a Unicode character, or -1 when the code page has none.
int UnicodeToCp1252(char32_t ch);

// UTF-8 text to Windows-1252 bytes; characters outside the code page become '?'.
std::string Utf8ToCp1252(std::string_view utf8);
// Windows-1252 bytes to UTF-8.
std::string Cp1252ToUtf8(std::string_view bytes);
// Replaces every U+0080..U+009F in UTF-8 text (what a parser makes of "&#128;" ...) by the
// character Windows-1252 gives that code. Returns false when nothing needed changing.
bool FixC1Controls(std::string& utf8);

void AppendUtf8(std::string& out, char32_t ch);
// Decodes one UTF-8 character at `pos` and advances; malformed bytes decode as themselves.
char32_t NextUtf8(std::string_view s, std::size_t& pos);

}  // namespace brenvale::detail

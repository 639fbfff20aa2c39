#include "brenvale/core/detail/Windows1252.hpp"

namespace brenvale::detail {
namespace {

constexpr char32_t kHigh[32] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

}  // namespace

char32_t Cp1252ToUnicode(unsigned char code) {
  if (code >= 0x80 && code < 0xA0) return kHigh[code - 0x80];
  return code;
}

int UnicodeToCp1252(char32_t ch) {
  if (ch < 0x80 || (ch >= 0xA0 && ch <= 0xFF)) return static_cast<int>(ch);
  for (int i = 0; i < 32; ++i)
    if (kHigh[i] == ch) return 0x80 + i;
  return -1;
}

void AppendUtf8(std::string& out, char32_t ch) {
  if (ch < 0x80) {
    out += static_cast<char>(ch);
  } else if (ch < 0x800) {
    out += static_cast<char>(0xC0 | (ch >> 6));
    out += static_cast<char>(0x80 | (ch & 0x3F));
  } else if (ch < 0x10000) {
    out += static_cast<char>(0xE0 | (ch >> 12));
    out += static_cast<char>(0x80 | ((ch >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (ch & 0x3F));
  } else {
    out += static_cast<char>(0xF0 | (ch >> 18));
    out += static_cast<char>(0x80 | ((ch >> 12) & 0x3F));
    out += static_cast<char>(0x80 | ((ch >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (ch & 0x3F));
  }
}

char32_t NextUtf8(std::string_view s, std::size_t& pos) {
  auto byte = [&](std::size_t i) { return static_cast<unsigned char>(s[i]); };
  unsigned char b0 = byte(pos);
  std::size_t extra = b0 >= 0xF0 ? 3 : b0 >= 0xE0 ? 2 : b0 >= 0xC0 ? 1 : 0;
  if (extra == 0 || pos + extra >= s.size()) {
    ++pos;
    return b0;
  }
  char32_t ch = b0 & (0x3Fu >> extra);
  for (std::size_t i = 1; i <= extra; ++i) {
    unsigned char b = byte(pos + i);
    if ((b & 0xC0) != 0x80) {
      ++pos;
      return b0;
    }
    ch = (ch << 6) | (b & 0x3Fu);
  }
  pos += extra + 1;
  return ch;
}

std::string Utf8ToCp1252(std::string_view utf8) {
  std::string out;
  out.reserve(utf8.size());
  for (std::size_t pos = 0; pos < utf8.size();) {
    int code = UnicodeToCp1252(NextUtf8(utf8, pos));
    out += static_cast<char>(code < 0 ? '?' : code);
  }
  return out;
}

std::string Cp1252ToUtf8(std::string_view bytes) {
  std::string out;
  out.reserve(bytes.size());
  for (char c : bytes) AppendUtf8(out, Cp1252ToUnicode(static_cast<unsigned char>(c)));
  return out;
}

bool FixC1Controls(std::string& utf8) {
  // U+0080..U+009F are encoded as C2 80 .. C2 9F.
  if (utf8.find('\xC2') == std::string::npos) return false;
  std::string out;
  bool changed = false;
  out.reserve(utf8.size());
  for (std::size_t i = 0; i < utf8.size(); ++i) {
    unsigned char c = static_cast<unsigned char>(utf8[i]);
    if (c == 0xC2 && i + 1 < utf8.size()) {
      unsigned char n = static_cast<unsigned char>(utf8[i + 1]);
      if (n >= 0x80 && n < 0xA0) {
        AppendUtf8(out, Cp1252ToUnicode(n));
        ++i;
        changed = true;
        continue;
      }
    }
    out += static_cast<char>(c);
  }
  if (changed) utf8 = std::move(out);
  return changed;
}

}  // namespace brenvale::detail

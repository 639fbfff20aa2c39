// Simple values: the types of qbXML's leaf elements, their canonical text, and the statuses
// QuickBooks answers for a value it cannot take.
#include <algorithm>
#include <cctype>
#include <charconv>
#include <cstdio>

#include "brenvale/rqp/protocol/Status.hpp"
#include "brenvale/rqp/protocol/Text.hpp"
#include "brenvale/rqp/schema/Declarations.hpp"

namespace brenvale::rqp::detail {

std::optional<long long> ParseDecimal(std::string_view text) {
  text = Trim(text);
  bool negative = false;
  if (!text.empty() && (text[0] == '-' || text[0] == '+')) {
    negative = text[0] == '-';
    text.remove_prefix(1);
  }
  if (text.empty()) return std::nullopt;
  long long whole = 0, frac = 0;
  int fracDigits = 0, wholeDigits = 0;
  bool point = false, roundUp = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    char c = text[i];
    if (c == '.' && !point) { point = true; continue; }
    if (c < '0' || c > '9') return std::nullopt;
    if (!point) {
      if (++wholeDigits > 13 && whole != 0) return std::nullopt;
      whole = whole * 10 + (c - '0');
    } else if (fracDigits < 5) {
      frac = frac * 10 + (c - '0');
      ++fracDigits;
    } else if (fracDigits == 5) {
      roundUp = c >= '5';
      ++fracDigits;
    }
  }
  if (wholeDigits == 0 && fracDigits == 0) return std::nullopt;
  for (int i = std::min(fracDigits, 5); i < 5; ++i) frac *= 10;
  long long v = whole * 100000 + frac + (roundUp ? 1 : 0);
  return negative ? -v : v;
}

std::string FormatDecimal(long long v, int minDecimals) {
  bool negative = v < 0;
  unsigned long long a = negative ? 0ULL - static_cast<unsigned long long>(v) : static_cast<unsigned long long>(v);
  std::string frac = std::to_string(a % 100000);
  frac.insert(0, 5 - frac.size(), '0');
  while (static_cast<int>(frac.size()) > minDecimals && frac.back() == '0') frac.pop_back();
  std::string out = negative && a != 0 ? "-" : "";
  out += std::to_string(a / 100000);
  if (!frac.empty()) out += "." + frac;
  return out;
}

std::string FormatAmount(long long value) {
  // `value` is in hundred-thousandths like every parsed decimal; amounts keep two decimals.
  long long rounded = value >= 0 ? (value + 500) / 1000 * 1000 : -((-value + 500) / 1000 * 1000);
  return FormatDecimal(rounded, 2);
}

std::string FormatNumber(VType type, long long value) {
  if (type == VType::Amt) return FormatAmount(value);
  return FormatDecimal(value, type == VType::Price || type == VType::Pct ? 2 : 0);
}

namespace {

Problem ValueProblem(int status, std::string message) {
  return Problem{Problem::Kind::Value, status, std::move(message)};
}

bool Digits(std::string_view s, std::size_t from, std::size_t count) {
  if (from + count > s.size()) return false;
  for (std::size_t i = from; i < from + count; ++i)
    if (s[i] < '0' || s[i] > '9') return false;
  return true;
}

int DaysIn(int y, int m) {
  static const int days[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  bool leap = (y % 4 == 0 && y % 100 != 0) || y % 400 == 0;
  return m == 2 && leap ? 29 : days[m - 1];
}

// "YYYY-M-D" with one- or two-digit month and day; rewritten zero-padded.
bool CanonicalDate(std::string_view s, std::string& out, std::size_t& used) {
  if (!Digits(s, 0, 4) || s.size() < 8 || s[4] != '-') return false;
  std::size_t i = 5;
  auto part = [&](int& v) {
    std::size_t start = i;
    while (i < s.size() && i - start < 2 && s[i] >= '0' && s[i] <= '9') ++i;
    if (i == start) return false;
    v = std::stoi(std::string(s.substr(start, i - start)));
    return true;
  };
  int y = std::stoi(std::string(s.substr(0, 4))), m = 0, d = 0;
  if (!part(m) || i >= s.size() || s[i] != '-') return false;
  ++i;
  if (!part(d)) return false;
  if (y < 1900 || m < 1 || m > 12 || d < 1 || d > DaysIn(y, m)) return false;
  char buf[48];
  std::snprintf(buf, sizeof buf, "%04d-%02d-%02d", y, m, d);
  out = buf;
  used = i;
  return true;
}

bool ValidDateTime(std::string_view s) {
  std::string date;
  std::size_t i = 0;
  if (!CanonicalDate(s, date, i)) return false;
  if (i == s.size()) return true;
  if (s[i] != 'T') return false;
  ++i;
  auto two = [&](int max) {
    std::size_t start = i;
    while (i < s.size() && i - start < 2 && s[i] >= '0' && s[i] <= '9') ++i;
    if (i == start) return false;
    return std::stoi(std::string(s.substr(start, i - start))) <= max;
  };
  if (!two(23)) return false;
  for (int part = 0; part < 2 && i < s.size() && s[i] == ':'; ++part) {
    ++i;
    if (!two(59)) return false;
  }
  if (i == s.size()) return true;
  if (s[i] != '+' && s[i] != '-') return false;
  ++i;
  if (!two(14) || i >= s.size() || s[i] != ':') return false;
  ++i;
  return two(59) && i == s.size();
}

bool ValidListId(std::string_view s) {
  if (s.size() > 36) return false;
  auto dash = s.find('-');
  if (dash == 0 || dash == std::string_view::npos || dash + 1 == s.size()) return false;
  for (std::size_t i = 0; i < s.size(); ++i) {
    char c = s[i];
    if (i == dash) continue;
    bool hex = (c >= '0' && c <= '9') || (c >= 'A' && c <= 'F') || (c >= 'a' && c <= 'f');
    if (!hex) return false;
  }
  return true;
}

bool ValidGuid(std::string_view s) {
  if (s == "0") return true;
  if (s.size() != 38 || s.front() != '{' || s.back() != '}') return false;
  for (std::size_t i = 1; i < 37; ++i) {
    char c = s[i];
    bool dashAt = i == 9 || i == 14 || i == 19 || i == 24;
    if (dashAt ? c != '-' : !std::isxdigit(static_cast<unsigned char>(c))) return false;
  }
  return true;
}

std::string Squeeze(std::string_view s) {
  std::string out;
  for (char c : s)
    if (c != ' ') out.push_back(static_cast<char>(std::tolower(static_cast<unsigned char>(c))));
  return out;
}

}  // namespace

Problem CheckValue(const Decl& decl, std::string& text) {
  const std::string& field = decl.name;
  auto conversion = [&](int status, const char* what) {
    return ValueProblem(status, "There was an error when converting the " + std::string(what) + " " +
                                    Quote(text) + " in the field " + Quote(field) + ".");
  };
  auto invalid = [&] {
    return ValueProblem(3210, "The " + Quote(field) + " field has an invalid value " + Quote(text) + ".");
  };
  switch (decl.type) {
    case VType::Complex:
      return {};
    case VType::Str:
    case VType::Uuid:
    case VType::Macro:
      if (decl.maxLength > 0 && Utf8Length(text) > static_cast<std::size_t>(decl.maxLength))
        return ValueProblem(3070, "The string " + Quote(text) + " in the field " + Quote(field) + " is too long.");
      return {};
    case VType::Id: {
      std::string t(Trim(text));
      if (!t.empty() && !ValidListId(t))
        return ValueProblem(3000, "The given object ID " + Quote(text) + " in the field " + Quote(field) + " is invalid.");
      text = t;
      return {};
    }
    case VType::Bool: {
      std::string t = Squeeze(Trim(text));
      if (t == "true" || t == "1") text = "true";
      else if (t == "false" || t == "0") text = "false";
      else if (!t.empty()) return conversion(3010, "boolean value");
      else text.clear();
      return {};
    }
    case VType::Date: {
      std::string t(Trim(text)), out;
      std::size_t used = 0;
      if (t.empty()) { text.clear(); return {}; }
      if (!CanonicalDate(t, out, used) || used != t.size()) return conversion(3020, "date value");
      text = out;
      return {};
    }
    case VType::DateTime: {
      std::string t(Trim(text));
      if (!t.empty() && !ValidDateTime(t)) return conversion(3020, "date value");
      text = t;
      return {};
    }
    case VType::TimeInterval: {
      std::string t(Trim(text));
      std::size_t i = 0;
      if (t.empty()) { text.clear(); return {}; }
      if (t[i] == '+' || t[i] == '-') ++i;
      bool ok = t.compare(i, 2, "PT") == 0;
      i += 2;
      bool any = false;
      while (ok && i < t.size()) {
        std::size_t start = i;
        while (i < t.size() && std::isdigit(static_cast<unsigned char>(t[i]))) ++i;
        if (i == start || i == t.size() || (t[i] != 'H' && t[i] != 'M' && t[i] != 'S')) ok = false;
        ++i;
        any = true;
      }
      if (!ok || !any) return invalid();
      text = t;
      return {};
    }
    case VType::Amt:
    case VType::Price:
    case VType::Quan:
    case VType::Pct:
    case VType::Float: {
      std::string t(Trim(text));
      if (t.empty()) { text.clear(); return {}; }
      auto v = ParseDecimal(t);
      const char* what = decl.type == VType::Quan ? "quantity" : decl.type == VType::Pct ? "percent" : "amount";
      if (!v) return conversion(3040, what);
      text = FormatNumber(decl.type, *v);
      return {};
    }
    case VType::Int: {
      std::string t(Trim(text));
      if (t.empty()) { text.clear(); return {}; }
      long long v = 0;
      const char* b = t.data() + (t[0] == '+' ? 1 : 0);
      auto [p, ec] = std::from_chars(b, t.data() + t.size(), v);
      if (ec != std::errc() || p != t.data() + t.size()) return invalid();
      if ((decl.minValue && v < *decl.minValue) || (decl.maxValue && v > *decl.maxValue)) return invalid();
      text = std::to_string(v);
      return {};
    }
    case VType::Guid: {
      std::string t(Trim(text));
      if (!ValidGuid(t)) return invalid();
      for (auto& c : t) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
      text = t;
      return {};
    }
    case VType::Enum: {
      if (decl.enumValues.empty()) return {};
      std::string key = Squeeze(Trim(text));
      for (auto& v : decl.enumValues)
        if (Squeeze(v) == key) {
          text = v;
          return {};
        }
      return invalid();
    }
  }
  return {};
}

}  // namespace brenvale::rqp::detail

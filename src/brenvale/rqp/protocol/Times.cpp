#include "brenvale/rqp/protocol/Times.hpp"

#include <cstdio>
#include <ctime>

#include "brenvale/rqp/protocol/Text.hpp"

namespace brenvale::rqp::detail {

std::string DateTimeText(std::int64_t t) {
  std::time_t tt = static_cast<std::time_t>(t);
  std::tm local{};
  localtime_r(&tt, &local);
  char buf[40];
  std::strftime(buf, sizeof buf, "%Y-%m-%dT%H:%M:%S", &local);
  long off = local.tm_gmtoff;
  char sign = off < 0 ? '-' : '+';
  off = off < 0 ? -off : off;
  char zone[48];
  std::snprintf(zone, sizeof zone, "%c%02ld:%02ld", sign, off / 3600, (off % 3600) / 60);
  return std::string(buf) + zone;
}

std::string DateText(std::int64_t t) { return DateTimeText(t).substr(0, 10); }

std::int64_t ParseDateTime(std::string_view text, bool endOfDay) {
  int y = 0, mo = 0, d = 0, h = 0, mi = 0, s = 0, oh = 0, om = 0;
  char sign = 0;
  std::string t(Trim(text));
  int n = std::sscanf(t.c_str(), "%d-%d-%dT%d:%d:%d", &y, &mo, &d, &h, &mi, &s);
  if (n < 3) return 0;
  bool dateOnly = t.find('T') == std::string::npos;
  if (dateOnly && endOfDay) {
    h = 23;
    mi = 59;
    s = 59;
  }
  auto tpos = t.find('T');
  std::size_t zone = tpos == std::string::npos ? std::string::npos : t.find_first_of("+-", tpos);
  std::tm tm{};
  tm.tm_year = y - 1900;
  tm.tm_mon = mo - 1;
  tm.tm_mday = d;
  tm.tm_hour = h;
  tm.tm_min = mi;
  tm.tm_sec = s;
  if (zone != std::string::npos && std::sscanf(t.c_str() + zone, "%c%d:%d", &sign, &oh, &om) == 3) {
    std::int64_t utc = timegm(&tm);
    std::int64_t offset = (oh * 3600 + om * 60) * (sign == '-' ? -1 : 1);
    return utc - offset;
  }
  tm.tm_isdst = -1;
  return std::mktime(&tm);
}

}  // namespace brenvale::rqp::detail

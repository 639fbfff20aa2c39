#include "brenvale/core/KeyedList.hpp"

namespace brenvale::detail {

std::string FoldKey(std::string_view key) {
  std::string out(key);
  for (char& c : out)
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  return out;
}

}  // namespace brenvale::detail

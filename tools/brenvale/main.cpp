#include <iostream>

int main() {
  std::cout << "brenvale: the command-line tool is being built\n";
  return 0;
}

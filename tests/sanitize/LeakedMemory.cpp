#include <vector>

// Several, because an address that is still in a register counts as known.
int main() {
    for (int count = 0; count < 10; ++count)
        new std::vector<int>(10);
}

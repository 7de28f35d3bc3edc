// What the controls of the hardening test are compiled from: calls of every kind that the compiler can guard.
#include <cstdio>
#include <cstring>
#include <vector>

int copied(const char* text, const std::vector<int>& numbers) {
    char small[64];
    char large[20000];
    std::strcpy(small, text);
    std::snprintf(large, sizeof large, "%s", small);
    return large[0] + numbers[static_cast<unsigned char>(text[0])];
}

int main(int count, char** words) {
    return copied(words[0], std::vector<int>(static_cast<std::size_t>(count)));
}

#ifdef RELOCATION_IN_CODE
asm(".text\n.quad main\n");
#endif
#ifdef WRITABLE_CODE
asm(".section .hot,\"awx\",@progbits\n.quad 0\n.text\n");
#endif

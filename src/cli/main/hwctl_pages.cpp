#include "cli/completion.h"
#include "cli/man_page.h"

#include <fstream>
#include <iostream>
#include <iterator>

// Writes the manual page or a completion script to standard output:
//   hwctl_pages man TEMPLATE VERSION | bash | zsh | fish
int main(int argc, char** argv) {
    using namespace hourwright;
    const std::string_view page = argc > 1 ? argv[1] : "";
    if (page == "man" && argc == 4) {
        std::ifstream file(argv[2], std::ios::binary);
        const std::string text{std::istreambuf_iterator<char>(file), {}};
        std::cout << cli::manPage(text, argv[3]);
    } else if (page == "bash") {
        std::cout << cli::bashCompletion();
    } else if (page == "zsh") {
        std::cout << cli::zshCompletion();
    } else if (page == "fish") {
        std::cout << cli::fishCompletion();
    } else {
        return 2;
    }
    return std::cout.flush() ? 0 : 1;
}

#include <iostream>

#include "cli_context.h"
#include "quillon_app.h"

int main(int argc, char** argv) {
    std::ios::sync_with_stdio(false);
    quillon::CliContext context(std::cin, std::cout, std::cerr);
    return quillon::RunQuillon({argv + 1, argv + argc}, context);
}

#include <unistd.h>

#include <iostream>

#include "cli_context.h"
#include "quillon_app.h"

int main(int argc, char** argv) {
    std::ios::sync_with_stdio(false);
    quillon::CliContext context(std::cin, std::cout, std::cerr);
    context.errIsTerminal = ::isatty(STDERR_FILENO) == 1;
    return quillon::RunQuillon({argv + 1, argv + argc}, context);
}

// varnel-cli
#include <cstdio>
#include <exception>
#include <string>
#include <vector>

#include "app/cli.h"

int main(int argc, char** argv) {
    try {
        return app::RunCli(std::vector<std::string>(argv + (argc > 0 ? 1 : 0), argv + argc));
    } catch (const std::exception& error) {
        std::fprintf(stderr, "varnel-cli: %s\n", error.what());
    } catch (...) {
        std::fputs("varnel-cli: unknown error\n", stderr);
    }
    return 2;
}

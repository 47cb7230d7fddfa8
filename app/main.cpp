// SPDX-License-Identifier: MIT
#include <cstdio>
#include <cstring>

#include <dlfcn.h>

int main(int argc, char** argv)
{
    if (argc == 2 && std::strcmp(argv[1], "--version") == 0)
        return std::puts("kpexport " KP_VERSION) < 0 ? 1 : 0;
    void* const module = dlopen(KP_MODULE, RTLD_NOW);
    using Program = int (*)(int, char**);
    const auto program = module ? reinterpret_cast<Program>(dlsym(module, "kpexportProgram")) : nullptr;
    if (!program) {
        std::fprintf(stderr, "kpexport: error: %s (install the program again)\n", dlerror());
        return 1;
    }
    return program(argc, argv);
}

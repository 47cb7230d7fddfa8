// SPDX-License-Identifier: MIT
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include <dlfcn.h>
#include <fcntl.h>
#include <unistd.h>

namespace
{

/// Where this executable lies, with a slash at the end; empty when the system does not say.
std::string ownFolder()
{
    char path[4096];
    const ssize_t length = readlink("/proc/self/exe", path, sizeof path);
    if (length <= 0)
        return {};
    const std::string file(path, static_cast<std::size_t>(length));
    return file.substr(0, file.rfind('/') + 1);
}

/// The module beside the executable, as it is built or installed. By its path, since the search by name goes by who
/// calls dlopen(), and that is somebody else where a sanitizer stands between.
void* openModule(const std::string& file)
{
    for (const char* place : {"../lib/", "../" KP_LIBRARY_FOLDER "/"}) {
        if (void* const module = dlopen((ownFolder() + place + file).c_str(), RTLD_NOW))
            return module;
    }
    return nullptr;
}

/// Takes the numbers of standard streams that were closed: else the next file that is opened would be one, and get what is
/// printed. Writing to them fails as it did.
void holdStandardStreams()
{
    for (int number = STDIN_FILENO; number <= STDERR_FILENO; ++number) {
        if (fcntl(number, F_GETFD) < 0 && open("/dev/null", number == STDIN_FILENO ? O_WRONLY : O_RDONLY) != number)
            std::_Exit(1);
    }
}

} // namespace

int main(int argc, char** argv)
{
    holdStandardStreams();
    if (argc > 1 && (std::strcmp(argv[1], "--version") == 0 || std::strcmp(argv[1], "-v") == 0))
        return std::puts("kpexport " KP_VERSION) < 0 || std::fflush(stdout) != 0 ? 1 : 0;
    // The commands do without Widgets; only the window loads them.
    const bool window = argc < 2 || std::strcmp(argv[1], "--model") == 0 || std::strncmp(argv[1], "--model=", 8) == 0;
    const char* const entry = window ? "kpexportWindow" : "kpexportCommands";
    void* const module = openModule(std::string(entry) + KP_MODULE_SUFFIX);
    using Program = int (*)(int, char**);
    const auto program = module ? reinterpret_cast<Program>(dlsym(module, entry)) : nullptr;
    if (!program) {
        std::fprintf(stderr, "kpexport: error: %s (install the program again)\n", dlerror());
        return 1;
    }
    return program(argc, argv);
}

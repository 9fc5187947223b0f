#include "TrayLauncher.h"

#include <cstdio>
#include <dlfcn.h>
#include <filesystem>
#include <string>
#include <system_error>

namespace {

using TrayMain = int (*)(int, char**);

std::filesystem::path executableDirectory()
{
    std::error_code error;
    const auto self = std::filesystem::read_symlink("/proc/self/exe", error);
    return error ? std::filesystem::path() : self.parent_path();
}

} // namespace

int TrayLauncher::run(int argc, char* argv[])
{
    const std::filesystem::path directory = executableDirectory();
    std::string failure = "not found";
    for (const auto& candidate :
         {directory / moduleFileName, directory / PICTRAY_MODULE_DIR_FROM_BIN / moduleFileName}) {
        if (!std::filesystem::exists(candidate))
            continue;
        // The module stays loaded until the process exits.
        void* module = dlopen(candidate.c_str(), RTLD_NOW | RTLD_LOCAL);
        if (module == nullptr) {
            failure = dlerror();
            continue;
        }
        const auto trayMain = reinterpret_cast<TrayMain>(dlsym(module, "pictrayTrayMain"));
        if (trayMain == nullptr) {
            failure = dlerror();
            continue;
        }
        return trayMain(argc, argv);
    }
    std::fprintf(stderr, "pictray: cannot load the tray application (%s): %s\n", moduleFileName,
                 failure.c_str());
    return 1;
}

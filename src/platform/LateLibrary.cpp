// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "platform/LateLibrary.h"

#include <dlfcn.h>
#include <stdexcept>
#include <string>

namespace vexlator::platform {

void* FindInLibrary(const char* library, const char* function) {
    void* loaded = dlopen(library, RTLD_NOW | RTLD_LOCAL);
    void* found = loaded ? dlsym(loaded, function) : nullptr;
    if (found) return found;
    const char* reason = dlerror();
    throw std::runtime_error(reason ? reason : std::string(library) + ": there is no " + function);
}

}  // namespace vexlator::platform

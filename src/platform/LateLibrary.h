// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>

namespace vexlator::platform {

/// Loads a library, unless it is loaded, and finds a function in it. The library stays until the program
/// ends.
/// @param library as the system's loader knows it, "libproj.so.25"
/// @throws std::runtime_error: the library or the function is missing, with the loader's reason
void* FindInLibrary(const char* library, const char* function);

/// A C function of a library that is loaded when the first of its functions is called. A program that rarely
/// needs the library starts without it.
template <typename Signature>
class LateFunction;

template <typename Result, typename... Arguments>
class LateFunction<Result(Arguments...)> {
public:
    /// Both texts outlive it.
    constexpr LateFunction(const char* library, const char* name) : library_(library), name_(name) {}

    Result operator()(Arguments... arguments) const {
        void* found = found_.load(std::memory_order_acquire);
        if (!found) {
            found = FindInLibrary(library_, name_);
            found_.store(found, std::memory_order_release);
        }
        return reinterpret_cast<Result (*)(Arguments...)>(found)(arguments...);
    }

private:
    const char *library_, *name_;
    mutable std::atomic<void*> found_ = nullptr;
};

}  // namespace vexlator::platform

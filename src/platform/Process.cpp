// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "platform/Process.h"

#include "platform/Paths.h"

#include <array>
#include <cctype>
#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <fcntl.h>
#include <pwd.h>
#include <spawn.h>
#include <string_view>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

extern char** environ;

namespace vexlator::platform {

namespace {

/// As the system takes them: ended by a null pointer. They point into `arguments`.
std::vector<char*> Pointers(std::vector<std::string>& arguments) {
    std::vector<char*> pointers;
    for (std::string& argument : arguments) pointers.push_back(argument.data());
    pointers.push_back(nullptr);
    return pointers;
}

/// Process number, or -1.
pid_t Spawn(std::vector<std::string> arguments) {
    if (arguments.empty()) return -1;
    std::vector<char*> pointers = Pointers(arguments);
    pid_t child = -1;
    return ::posix_spawnp(&child, pointers[0], nullptr, nullptr, pointers.data(), environ) == 0 ? child : -1;
}

/// What comes through a pipe until nobody writes to it.
std::string ReadAll(int pipe) {
    std::string text;
    std::array<char, 4096> buffer;
    for (;;) {
        ssize_t size = ::read(pipe, buffer.data(), buffer.size());
        if (size < 0 && errno == EINTR) continue;
        if (size <= 0) return text;
        text.append(buffer.data(), static_cast<std::size_t>(size));
    }
}

/// A process group of its own, nothing to read, and one pipe for all that it prints. Process number, or -1.
pid_t SpawnApart(std::vector<std::string> arguments, int pipe) {
    std::vector<char*> pointers = Pointers(arguments);
    posix_spawn_file_actions_t files;
    posix_spawnattr_t attributes;
    ::posix_spawn_file_actions_init(&files);
    ::posix_spawn_file_actions_addopen(&files, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    ::posix_spawn_file_actions_adddup2(&files, pipe, STDOUT_FILENO);
    ::posix_spawn_file_actions_adddup2(&files, pipe, STDERR_FILENO);
    ::posix_spawnattr_init(&attributes);
    ::posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETPGROUP);
    pid_t child = -1;
    int error = ::posix_spawnp(&child, pointers[0], &files, &attributes, pointers.data(), environ);
    ::posix_spawnattr_destroy(&attributes);
    ::posix_spawn_file_actions_destroy(&files);
    return error == 0 ? child : -1;
}

/// A name without a folder stays, to be looked for where the system keeps its programs.
std::string ProgramPath(const std::string& name) {
    if (name.find_first_of("\\/") == std::string::npos) return name;
    std::string found = FindExisting(name);
    return found.empty() ? NativePath(name) : found;
}

}  // namespace

std::string CurrentUser() {
    for (const char* name : {"USER", "LOGNAME", "USERNAME"})
        if (const char* user = std::getenv(name); user && *user) return std::string(user).substr(0, 255);
    const passwd* entry = ::getpwuid(::geteuid());
    return entry && entry->pw_name ? entry->pw_name : "";
}

std::string LocaleCountry() {
    for (const char* name : {"LC_ALL", "LC_CTYPE", "LANG"}) {
        const char* value = std::getenv(name);
        if (!value || !*value) continue;
        std::string_view locale = value;
        std::size_t mark = locale.find('_');
        if (mark == std::string_view::npos) return "UNK";
        std::string country(locale.substr(mark + 1, 2));
        bool letters = country.size() == 2 && std::isupper(static_cast<unsigned char>(country[0])) &&
                       std::isupper(static_cast<unsigned char>(country[1]));
        return letters ? country : "UNK";
    }
    return "UNK";
}

std::vector<std::string> SplitArguments(std::string_view line) {
    std::vector<std::string> arguments;
    bool quoted = false, open = false;
    for (char c : line) {
        if (c == '"') {
            quoted = !quoted;
            if (!open) arguments.emplace_back();
            open = true;
        } else if (c == ' ' && !quoted) {
            open = false;
        } else {
            if (!open) arguments.emplace_back();
            open = true;
            arguments.back() += c;
        }
    }
    return arguments;
}

std::vector<std::string> ProgramArguments(const std::string& commandLine) {
    std::vector<std::string> arguments = SplitArguments(commandLine);
    if (!arguments.empty()) arguments[0] = ProgramPath(arguments[0]);
    return arguments;
}

int RunProgram(const std::string& commandLine, const std::function<void()>& whileWaiting) {
    pid_t child = Spawn(ProgramArguments(commandLine));
    if (child < 0) return -1;
    int status = 0;
    for (;;) {
        pid_t ended = ::waitpid(child, &status, whileWaiting ? WNOHANG : 0);
        if (ended == child) return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
        if (ended < 0 && errno != EINTR) return -1;
        if (ended == 0) {
            whileWaiting();
            Sleep(0.02);
        }
    }
}

ProgramResult CaptureProgram(std::vector<std::string> arguments) {
    ProgramResult result;
    std::array<int, 2> pipe{};
    if (arguments.empty() || ::pipe2(pipe.data(), O_CLOEXEC) != 0) return result;
    pid_t child = SpawnApart(std::move(arguments), pipe[1]);
    ::close(pipe[1]);
    if (child > 0) result.output = ReadAll(pipe[0]);
    ::close(pipe[0]);
    int status = 0;
    while (child > 0 && ::waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    if (child > 0 && WIFEXITED(status)) result.status = WEXITSTATUS(status);
    return result;
}

void ReplaceProcess(const std::string& nativePath, std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), nativePath);
    ::execv(nativePath.c_str(), Pointers(arguments).data());
}

bool OpenWithDesktop(const std::string& nativePath) {
    return Spawn({"xdg-open", nativePath}) > 0;
}

void Sleep(double seconds) {
    std::this_thread::sleep_for(std::chrono::duration<double>(seconds));
}

}  // namespace vexlator::platform

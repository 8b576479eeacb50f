// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "support/TempFolder.h"

#include <csignal>
#include <cstdlib>
#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace vexlator::test {

struct ShellResult {
    int status;
    std::string out, err;
};

/// Runs a command of the shell in a folder.
inline ShellResult RunShell(const TempFolder& folder, const std::string& command) {
    std::string line =
        "cd '" + folder.Path() + "' && {\n" + command + "\n} </dev/null >stdout.txt 2>stderr.txt";
    int status = std::system(line.c_str());
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, TempFolder::Read(folder / "stdout.txt"),
            TempFolder::Read(folder / "stderr.txt")};
}

/// Runs an action in several processes, each with its number. It must return true in all of them. They start
/// when the last one exists.
inline void RunAtOnce(int processes, const std::function<bool(int)>& action) {
    int gate[2];
    ASSERT_EQ(::pipe(gate), 0);
    std::vector<pid_t> children;
    for (int i = 0; i < processes; ++i) {
        children.push_back(::fork());
        if (children.back() != 0) continue;
        ::close(gate[1]);
        char c = 0;
        ::_exit(::read(gate[0], &c, 1) == 0 && action(i) ? 0 : 1);
    }
    ::close(gate[0]);
    ::close(gate[1]);
    for (pid_t child : children) {
        int status = -1;
        ::waitpid(child, &status, 0);
        EXPECT_EQ(status, 0);
    }
}

/// Limits files to `bytes` during its lifetime, like a full disk: writes fail late.
class SmallDisk {
public:
    explicit SmallDisk(rlim_t bytes) {
        ::getrlimit(RLIMIT_FSIZE, &old_);
        rlimit small{bytes, old_.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &small);
        handler_ = std::signal(SIGXFSZ, SIG_IGN);
    }
    ~SmallDisk() {
        ::setrlimit(RLIMIT_FSIZE, &old_);
        std::signal(SIGXFSZ, handler_);
    }

private:
    rlimit old_{};
    void (*handler_)(int);
};

}  // namespace vexlator::test

// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <spawn.h>
#include <stdexcept>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

extern char** environ;

namespace vexlator::test {

/// A PostgreSQL server of our own with an empty database, gone with the object. Throws when there is none to
/// be had: a test that needs it fails.
class PostgresServer {
public:
    PostgresServer() {
        std::array<int, 2> input{}, output{};
        if (::pipe2(input.data(), O_CLOEXEC) != 0 || ::pipe2(output.data(), O_CLOEXEC) != 0)
            throw std::runtime_error("no pipe");
        posix_spawn_file_actions_t actions;
        ::posix_spawn_file_actions_init(&actions);
        ::posix_spawn_file_actions_adddup2(&actions, input[0], 0);
        ::posix_spawn_file_actions_adddup2(&actions, output[1], 1);
        std::string script = VEXLATOR_SOURCE "/scripts/postgres-for-tests";
        std::array<char*, 2> arguments{script.data(), nullptr};
        int error = ::posix_spawn(&child_, script.c_str(), &actions, nullptr, arguments.data(), environ);
        ::posix_spawn_file_actions_destroy(&actions);
        ::close(input[0]);
        ::close(output[1]);
        keepAlive_ = input[1];
        if (error == 0) connectionString_ = FirstLine(output[0]);
        ::close(output[0]);
        if (!connectionString_.empty()) return;
        Stop();
        throw std::runtime_error("no PostgreSQL server; scripts/postgres-for-tests says why");
    }
    ~PostgresServer() { Stop(); }
    PostgresServer(const PostgresServer&) = delete;
    PostgresServer& operator=(const PostgresServer&) = delete;

    const std::string& ConnectionString() const { return connectionString_; }

private:
    static std::string FirstLine(int descriptor) {
        std::string line;
        for (char c = 0; ::read(descriptor, &c, 1) == 1 && c != '\n';) line += c;
        return line;
    }
    void Stop() {
        ::close(keepAlive_);
        if (child_ <= 0) return;
        while (::waitpid(child_, nullptr, 0) < 0 && errno == EINTR) {
        }
    }

    pid_t child_ = -1;
    int keepAlive_ = -1;
    std::string connectionString_;
};

}  // namespace vexlator::test

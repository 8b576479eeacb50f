// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace vexlator::corporate {

/// Performs the tasks that the SWD hand-offs post: files NAME.task in a folder, whose content is the argument
/// text of the program for them. A task is removed when its log is there. Several services can share a
/// folder. A task whose service was killed is performed anew.
class TaskService {
public:
    /// @param program native path of the program
    TaskService(std::string folder, std::string program)
        : folder_(std::move(folder)), program_(std::move(program)) {}

    /// Performs what is there now; `tell` gets a line for each. Returns the number of tasks.
    std::size_t PerformAll(const std::function<void(const std::string&)>& tell);

private:
    std::string Perform(const std::string& task) const;

    std::string folder_, program_;
};

}  // namespace vexlator::corporate

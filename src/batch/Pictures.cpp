// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "batch/Pictures.h"

#include "platform/Files.h"
#include "platform/ScratchFolder.h"
#include "platform/Signals.h"
#include "platform/Task.h"

#include <chrono>
#include <deque>
#include <list>
#include <set>

namespace vexlator::batch {

namespace {

using Clock = std::chrono::steady_clock;

constexpr auto longest = std::chrono::seconds(20);  ///< time limit for one picture

struct Drawn {
    std::string drawing, picture;
    platform::Task task;
    Clock::time_point begin = Clock::now();
};

std::deque<std::string> FirstDrawings(const std::vector<std::string>& commands, Journal& journal,
                                      std::size_t most) {
    std::deque<std::string> drawings;
    std::set<std::string> known;
    for (const std::string& command : commands) {
        if (drawings.size() >= most) break;
        std::optional<Entry> entry = journal.Last(command);
        std::string drawing = entry ? DrawingOf(*entry) : "";
        if (!drawing.empty() && known.insert(drawing).second) drawings.push_back(drawing);
    }
    return drawings;
}

/// Collects the finished pictures.
void TakeDrawn(std::list<Drawn>& running, Pictures& pictures) {
    for (auto it = running.begin(); it != running.end();) {
        auto drawn = it++;
        if (Clock::now() - drawn->begin > longest) drawn->task.Kill();
        if (!drawn->task.Look()) continue;
        if (drawn->task.Status() == 0 && platform::FileExists(drawn->picture))
            pictures[drawn->drawing] = platform::ReadWholeFile(drawn->picture);
        platform::RemoveFile(drawn->picture);
        running.erase(drawn);
    }
}

}  // namespace

Pictures DrawPictures(const std::vector<std::string>& commands, Journal& journal, std::size_t most,
                      unsigned jobs) {
    Pictures pictures;
    std::string program = platform::ExecutableFolder() + "/vdfpicture";
    if (most == 0 || !platform::FileExists(program)) return pictures;
    std::deque<std::string> drawings = FirstDrawings(commands, journal, most);
    platform::ScratchFolder folder;
    std::list<Drawn> running;
    while (!drawings.empty() || !running.empty()) {
        while (!drawings.empty() && running.size() < jobs) {
            std::string picture = folder.Path() + "/" + std::to_string(drawings.size()) + ".png";
            platform::Task task({program, drawings.front(), picture, "--size", "160x120"});
            running.push_back({drawings.front(), picture, std::move(task)});
            drawings.pop_front();
        }
        std::vector<const platform::Task*> tasks;
        for (const Drawn& drawn : running) tasks.push_back(&drawn.task);
        platform::WaitForTasks(tasks, 1);
        platform::ThrowIfStopped();
        TakeDrawn(running, pictures);
    }
    return pictures;
}

}  // namespace vexlator::batch

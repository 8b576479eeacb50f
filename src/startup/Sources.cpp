// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "startup/Sources.h"

#include "platform/Files.h"
#include "platform/Paths.h"
#include "startup/NamedFiles.h"
#include "startup/Tidied.h"
#include "util/Files.h"
#include "util/Paths.h"
#include "util/Text.h"

#include <algorithm>
#include <set>

namespace vexlator::startup {

namespace {

using Paths = std::vector<std::string>;

/// Collects the sources of a command.
class Gathering {
public:
    explicit Gathering(const Conversions& conversions) : files_(conversions) {}

    void AddItem(std::string_view item) {
        std::string_view name = util::Trim(item);
        if (!Exists(name)) name = WithoutSingleQuotes(name);
        if (Exists(item))
            Add(std::string(item));
        else if (Exists(name) || !(AddGuessed(Matches(name, First())) || AddGuessed(Parts(name))))
            Add(std::string(name));
    }
    SourceList TakeList() { return std::move(list_); }

private:
    /// Names without a folder are beside the first source.
    static std::string Located(std::string_view name, std::string_view first) {
        bool beside = !first.empty() && util::FileNameOf(name) == name;
        return beside ? util::JoinPath(util::FolderOf(first), name) : platform::AbsolutePath(name);
    }
    std::string First() const { return list_.paths.empty() ? "" : list_.paths.front(); }
    bool Exists(std::string_view name) const { return platform::FileExists(Located(name, First())); }
    void Add(const std::string& name) {
        // One file can be named twice, even in two letter cases. That would duplicate its features.
        std::string file = platform::FindExisting(Located(name, First()));
        bool isKnown = !file.empty() && !known_.insert(file).second;
        if (name.empty() || (isKnown && list_.guessed)) return;
        list_.paths.push_back(list_.paths.empty() ? platform::AbsolutePath(name) : name);
    }

    /// Adds those that can be imported. False if there are none.
    bool AddGuessed(Paths names) {
        std::erase_if(names, [&](const std::string& name) { return !files_.CanImport(CodeOf(name)); });
        list_.guessed |= !names.empty();
        for (const std::string& name : names) Add(name);
        return !names.empty();
    }

    static Paths Matches(std::string_view pattern, const std::string& first) {
        Paths matches;
        std::string folder = util::FolderOf(Located(pattern, first));
        std::string names = util::FileNameOf(pattern);
        if (names.find_first_of("*?[") == std::string::npos) return matches;
        for (const std::string& name : platform::ListFiles(folder))
            if (util::MatchesPattern(name, names, util::Brackets::Set))
                matches.push_back(util::JoinPath(folder, name));
        return matches;
    }

    /// The files whose names or patterns are in the text; none if there is other text too.
    Paths Parts(std::string_view text) const {
        Paths parts;
        std::string first = First();
        std::size_t begin = 0;
        for (std::size_t end = 0; end < text.size();) {
            end = std::min(text.find_first_of(nameSeparators, end + 1), text.size());
            std::string_view name = text.substr(begin, end - begin);
            name.remove_prefix(std::min(name.find_first_not_of(nameSeparators), name.size()));
            if (name.find('.') == std::string_view::npos) continue;
            Paths found = Matches(name, first);
            if (platform::FileExists(Located(name, first))) found.emplace_back(name);
            if (found.empty()) continue;
            if (first.empty()) first = platform::AbsolutePath(found.front());
            parts.insert(parts.end(), found.begin(), found.end());
            begin = end;
        }
        return begin == text.size() ? parts : Paths();
    }

    NamedFiles files_;
    SourceList list_;
    std::set<std::string> known_;  ///< by their native paths
};

}  // namespace

SourceList FindSources(const Conversions& conversions, std::string_view argument) {
    Gathering sources(conversions);
    while (!argument.empty()) {
        std::size_t bar = std::min(argument.find('|'), argument.size());
        sources.AddItem(argument.substr(0, bar));
        argument.remove_prefix(std::min(bar + 1, argument.size()));
    }
    return sources.TakeList();
}

}  // namespace vexlator::startup
